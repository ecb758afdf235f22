#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>

namespace {
const QStringList number{u"click optSearchType_2"_s};
const QStringList oregon{u"click optState_0"_s};
const QStringList district{u"click optState_0"_s, u"click optOrCDcourts_1"_s};
const QStringList idaho{u"click optState_3"_s};

const QString notScomis = u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo continue "
                          "the search using this number click OK."_s;
const QString notScomisTitle = u"Halvane Form Field Validation"_s;

QStringList entered(const QString &county, const QString &text)
{
    QStringList steps = number;
    if (!county.isEmpty())
        steps.append(u"tick lboxMultiJurisdiction "_s + county);
    steps.append(u"type txtSearchName_0 "_s + text);
    return steps;
}

/// What a case window is handed. The request line has the same head in all three states: the window
/// knows by its state what it has to send.
QStringList details(const QString &state, const QString &text, const QStringList &places)
{
    return QStringList{u"frmCaseDetails"_s, u"caption Case Details ("_s + text + u')',
                       u"lblState "_s + state, u"lblCaseDetailsHdr Case Details ("_s + text + u')'}
           + places
           + QStringList{u"txtCaseNumber "_s + text,
                         u"tboxCaseNumberQueue WASUP¦SUMMARY¦"_s + text + u'¦'};
}
} // namespace

/// Case number searches of the state courts, from the clicks on the form to the case window.
class tst_DispatchNumbers : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void theWindowIsHanded_data();
    void theWindowIsHanded();
    void theCodeIsHandedOver();
    void aNumberWithOrWithoutDashesIsTheSameNumber();
    void aNumberRefusedByTheUserStartsNothing();
    void refused_data();
    void refused();
    void aSecondNumberIsAnotherWindow();
    void theNumberGoesToTheRecentNumbers();
    void tabThroughTheCountiesChoosesNone_data();
    void tabThroughTheCountiesChoosesNone();
    void aCountyThatIsDeselectedIsNotSearched();
    void aCourtWithoutSuchASearchIsTrapped_data();
    void aCourtWithoutSuchASearchIsTrapped();

private:
    QListWidget *counties() const
    {
        return qobject_cast<QListWidget *>(desk->Control("lboxMultiJurisdiction"));
    }
    void expectNotScomis(MsgAnswer answer)
    {
        desk->Desk.Boxes.Expect(notScomis, notScomisTitle, MsgIcon::Exclamation, answer,
                                MsgButtons::OkCancel);
    }
};

void tst_DispatchNumbers::theWindowIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<QStringList>("handed");
    QTest::newRow("Superior") << entered(u"King"_s, u"05-2-02029-1"_s) << false
                              << details(u"WA"_s, u"05-2-02029-1"_s,
                                         {u"txtCountyName King"_s, u"lblCourtName King County, "
                                                                   "Washington Superior Courts"_s});
    QTest::newRow("Superior, not in the court's own form")
        << entered(u"Adams"_s, u"a-17"_s) << true
        << details(u"WA"_s, u"A-17"_s,
                   {u"txtCountyName Adams"_s,
                    u"lblCourtName Adams County, Washington Superior Courts"_s});
    QTest::newRow("Oregon Circuit")
        << oregon + entered(u"Baker"_s, u"cv08060677"_s) << true
        << details(u"OR"_s, u"CV08060677"_s, {u"txtCountyName Baker"_s, u"lblOrCourtType C"_s});
    QTest::newRow("Oregon District")
        << district + entered(u"Lane"_s, u"cv08060677"_s) << true
        << details(u"OR"_s, u"CV08060677"_s, {u"txtCountyName Lane"_s, u"lblOrCourtType D"_s});
    QTest::newRow("Idaho, which asks nothing")
        << idaho + entered(u"Ada"_s, u"cr-1998-0002546-in"_s) << false
        << details(u"ID"_s, u"CR-1998-0002546-IN"_s, {u"txtCountyName Ada"_s});
}

void tst_DispatchNumbers::theWindowIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, asks);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    if (asks)
        expectNotScomis(MsgAnswer::Ok);
    const auto *window = desk->StartOne<frmCaseDetails>();
    QCOMPARE(Handed(window), handed);
    QVERIFY(window->isVisible());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
    QVERIFY(desk->Form()->isVisible());
}

void tst_DispatchNumbers::theCodeIsHandedOver()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(entered(u"King"_s, u"052020291"_s));
    desk->ExpectCode(u"abc"_s);
    const auto *window = desk->StartOne<frmCaseDetails>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, u"ABC"_s);
    QCOMPARE(window->tboxCaseNumberQueue, u"WASUP¦SUMMARY¦05-2-02029-1¦"_s);
}

void tst_DispatchNumbers::aNumberWithOrWithoutDashesIsTheSameNumber()
{
    desk->Do(entered(u"King"_s, u" 052020291 "_s));
    const auto *plain = desk->StartOne<frmCaseDetails>();
    QCOMPARE(desk->Text("txtSearchName_0"), u"05-2-02029-1"_s);
    desk->Do({u"type txtSearchName_0 05-2-02029-1"_s});
    const auto *dashed = desk->StartOne<frmCaseDetails>();
    QVERIFY(plain && dashed);
    QCOMPARE(Handed(plain), Handed(dashed));
    QCOMPARE(plain->txtCaseNumber, u"05-2-02029-1"_s);
}

void tst_DispatchNumbers::aNumberRefusedByTheUserStartsNothing()
{
    desk->Do(entered(u"King"_s, u"17x"_s));
    expectNotScomis(MsgAnswer::Cancel);
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(said.value(0), u"This case number appears to be a non-SCOMIS number."_s);
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Text("txtSearchName_0"), u"17X"_s);
}

void tst_DispatchNumbers::refused_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("box");
    QTest::newRow("no number") << number + QStringList{u"tick lboxMultiJurisdiction King"_s}
                               << u"The NUMBER Field Is Empty!"_s << QString();
    QTest::newRow("no county") << entered({}, u"052020291"_s)
                               << u"You Have Not Selected a County!"_s << u"052020291"_s;
    QTest::newRow("a restricted case type, before the check digit is looked at")
        << entered(u"King"_s, u"055020290"_s)
        << u"The Case Type Entered (5) is Restricted and Cannot be Retrieved From This Court."_s
        << u"05-5-02029-0"_s;
    QTest::newRow("another county's number")
        << entered(u"Adams"_s, u"052020291"_s)
        << u"The case number is invalid for the county chosen."_s << u"05-2-02029-1"_s;
}

void tst_DispatchNumbers::refused()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, expected);
    QFETCH(QString, box);
    desk->Do(steps);
    QStringList lines;
    desk->ExpectRefusal(&lines);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(lines.value(0), expected);
    QCOMPARE(desk->Text("txtSearchName_0"), box);
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Desk.Folder.Read(u"MruCases.txt"_s), QByteArray());
    QVERIFY(desk->Form()->isVisible());
}

void tst_DispatchNumbers::aSecondNumberIsAnotherWindow()
{
    desk->Do(entered(u"King"_s, u"052020291"_s));
    const auto *first = desk->StartOne<frmCaseDetails>();
    desk->Do({u"tick lboxMultiJurisdiction Adams"_s, u"type txtSearchName_0 052020298"_s});
    const auto *second = desk->StartOne<frmCaseDetails>();
    QVERIFY(first && second);
    QCOMPARE(second->txtCountyName, u"Adams"_s);
    QCOMPARE(first->txtCountyName, u"King"_s);
    QCOMPARE(Keys(), (QStringList{first->txtMasterKey, second->txtMasterKey}));
}

void tst_DispatchNumbers::theNumberGoesToTheRecentNumbers()
{
    desk->Do(entered(u"King"_s, u"052020291"_s));
    QVERIFY(desk->StartOne<frmCaseDetails>());
    QVERIFY(desk->StartOne<frmCaseDetails>());
    QCOMPARE(desk->Desk.Folder.Read(u"MruCases.txt"_s), "05-2-02029-1\r\n");
    QCOMPARE(desk->ItemsOf("cboxCaseMRUs"), QStringList{u"05-2-02029-1"_s});
}

void tst_DispatchNumbers::tabThroughTheCountiesChoosesNone_data()
{
    QTest::addColumn<QStringList>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("refused");
    QTest::newRow("Superior") << QStringList() << u"052020291"_s << true;
    QTest::newRow("Idaho, which takes a number without a county")
        << idaho << u"CR-1998-0002546-IN"_s << false;
}

void tst_DispatchNumbers::tabThroughTheCountiesChoosesNone()
{
    QFETCH(QStringList, state);
    QFETCH(QString, text);
    QFETCH(bool, refused);
    QVERIFY(QTest::qWaitForWindowActive(desk->Form()));
    desk->Do(state + entered({}, text));
    // From the number on, until the list has had the focus and lost it again.
    int steps = 0;
    while (QApplication::focusWidget() != counties() && ++steps < 50)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), counties());
    QTest::keyClick(counties(), Qt::Key_Tab);
    QVERIFY(!counties()->hasFocus());
    QVERIFY(counties()->selectedItems().isEmpty());
    QCOMPARE(desk->Form()->Entry().NumberCounty, QString());
    QStringList said;
    if (refused)
        desk->ExpectRefusal(&said);
    const auto *window = desk->StartOne<frmCaseDetails>();
    QCOMPARE(said.value(0), refused ? u"You Have Not Selected a County!"_s : QString());
    QCOMPARE(window == nullptr, refused);
    if (window)
        QCOMPARE(window->txtCountyName, QString());
}

void tst_DispatchNumbers::aCountyThatIsDeselectedIsNotSearched()
{
    desk->Do(entered(u"King"_s, u"052020291"_s));
    QCOMPARE(desk->Form()->Entry().NumberCounty, u"King"_s);
    const QListWidgetItem *king = counties()->selectedItems().first();
    QTest::mouseClick(counties()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      counties()->visualItemRect(king).center());
    QCOMPARE(desk->Form()->Entry().NumberCounty, QString());
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(said.value(0), u"You Have Not Selected a County!"_s);
    QCOMPARE(Keys(), QStringList());
}

void tst_DispatchNumbers::aCourtWithoutSuchASearchIsTrapped_data()
{
    QTest::addColumn<int>("court");
    QTest::newRow("District") << static_cast<int>(CourtFamily::Discis);
    QTest::newRow("bankruptcy") << static_cast<int>(CourtFamily::Bankruptcy);
}

void tst_DispatchNumbers::aCourtWithoutSuchASearchIsTrapped()
{
    QFETCH(int, court);
    SearchEntry entry = desk->Form()->Entry();
    entry.Court = static_cast<CourtFamily>(court);
    entry.Kind = SearchKind::Number;
    frmCaseDetails window;
    QVERIFY(!DoCaseNumberSearch(window, entry, {}));
    QCOMPARE(desk->Desk.Folder.TimesLogged(u"Error Executing Case Number Search: "
                                           "DoCaseNumberSearch(): Error: Subscript out of range"_s),
             1);
    QCOMPARE(window.txtCaseNumber, QString());
}

HALVANE_TEST(tst_DispatchNumbers)
#include "tst_DispatchNumbers.moc"
