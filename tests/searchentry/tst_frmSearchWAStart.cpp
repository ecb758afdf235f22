#include "app/Startup.h"
#include "controls/CheckListBox.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "courts/Counties.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "support/FakeSocket.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString disclaimer =
    u"Neither the court nor clerk makes any representation as to the accuracy and completeness of "
    "the Washington Court data except for court purposes. \r\n\r\nDo you want to continue?"_s;
const QString disclaimerTitle = u"Washington State Courts"_s;
const QString notLoggedIn = u"This Search Cannot be Started!\r\n\r\nThis is because you are not "
                            "currently Logged-In to the Halvane Server.\r\n\r\nDo you want to "
                            "Login Now?"_s;
const QString notLoggedInTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;

/// A line as it is read easily: its fields with "/" for the broken bar.
QString wire(const QString &text)
{
    return QString(text).replace(u'/', u'\u00A6');
}

QString label(const QDialog *dialog, const char *name)
{
    return TextOf(dialog, name);
}
} // namespace

class tst_frmSearchWAStart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void refusal_data();
    void refusal();
    void requestLine_data();
    void requestLine();
    void severalCountiesGiveALineEachInListOrder();
    void allCountiesGiveThirtyNineLines();
    void statewideGivesThirtyNineLines();
    void statewideWalksTheListFile();
    void jurisdictionTitle_data();
    void jurisdictionTitle();
    void aSearchGetsAWindowAndAPlaceInTheQueue();
    void theFormStaysAsItWas();
    void twoSearchesStandInTheQueue();
    void nothingIsSentByTheForm();
    void stopRequestsOfTheSessionAreForgotten();
    void entriesAreFoldedBeforeTheyAreChecked();
    void theAccountingCodeIsHandedOver_data();
    void theAccountingCodeIsHandedOver();
    void disclaimerIsAskedOnceInASession();
    void declinedDisclaimerEndsTheClickAndAsksAgain();
    void withoutAlertsThereIsNoDisclaimer();
    void aRefusalGoesBeforeTheDisclaimer();
    void notLoggedInDeclined();
    void notLoggedInShowsTheLogin();
    void disclaimerGoesBeforeTheLoginQuestion();
    void aFormCancelledUnderTheDisclaimerStartsNothing();

private:
    QLineEdit *box(int i) const
    {
        return form->findChild<QLineEdit *>(u"txtSearchName_"_s + QString::number(i));
    }
    void click(const char *name) const
    {
        auto *button = form->findChild<QWidget *>(QLatin1StringView(name));
        QTest::mouseClick(button, Qt::LeftButton, {}, {10, button->height() / 2});
    }
    void tick(const char *list, const QStringList &items) const;
    void fill(const QStringList &names, const QStringList &counties, const QStringList &types);
    /// The results window that the click makes; nullptr when it makes none.
    frmNameSearchResults *start();
    static QList<frmNameSearchResults *> resultsWindows();

    std::unique_ptr<SearchDesk> desk;
    QPointer<frmSearchWA> form;
};

void tst_frmSearchWAStart::initTestCase()
{
    WireWindows();
}

void tst_frmSearchWAStart::init()
{
    desk = std::make_unique<SearchDesk>();
    Global.bLoggedIn = true;
    frmSearchWA::ShowForm();
    form = &frmSearchWA::Form();
}

void tst_frmSearchWAStart::cleanup()
{
    const QString boxes = desk->Boxes.Complaints();
    const bool allHappened = desk->AllHappened();
    if (frmSearchWA::IsLoaded())
        frmSearchWA::Form().Unload();
    desk.reset();
    QCOMPARE(boxes, QString());
    QVERIFY(allHappened);
}

void tst_frmSearchWAStart::tick(const char *list, const QStringList &items) const
{
    auto *widget = form->findChild<CheckListBox *>(QLatin1StringView(list));
    for (int i = 0; i < widget->count(); ++i) {
        if (!items.contains(widget->item(i)->text()))
            continue;
        widget->scrollToItem(widget->item(i));
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                          widget->visualItemRect(widget->item(i)).center());
    }
}

void tst_frmSearchWAStart::fill(const QStringList &names, const QStringList &counties,
                                const QStringList &types)
{
    for (int i = 0; i < names.size(); ++i)
        box(i)->insert(names[i]);
    tick("lboxCountyOrProfile", counties);
    tick("lboxCaseTypes", types);
}

QList<frmNameSearchResults *> tst_frmSearchWAStart::resultsWindows()
{
    QList<frmNameSearchResults *> windows;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (auto *window = qobject_cast<frmNameSearchResults *>(widget))
            windows.append(window);
    }
    return windows;
}

frmNameSearchResults *tst_frmSearchWAStart::start()
{
    const QList<frmNameSearchResults *> before = resultsWindows();
    click("cmdBeginSearch");
    const QList<frmNameSearchResults *> after = resultsWindows();
    for (frmNameSearchResults *window : after) {
        if (!before.contains(window))
            return window;
    }
    return nullptr;
}

void tst_frmSearchWAStart::refusal_data()
{
    QTest::addColumn<bool>("business");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("counties");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QStringList>("told");
    const QStringList king{u"King"_s};
    const QStringList civil{u"Civil"_s};
    const QString required = u"This is a required field and Has a Minimum Length of 1 Character."_s;
    const QStringList noLast{u"The LAST NAME Field Is Empty!"_s, required,
                             u"Please enter a Last Name or Select Cancel to Continue."_s};
    const QStringList noBusiness{u"The BUSINESS NAME Field Is Empty!"_s, required,
                                 u"Please enter a Business Name or Select Cancel to Continue."_s};
    const QStringList noCounty{
        u"You Have Not Selected a County!"_s,
        u"At least one selection is required when searching County Jurisdictions."_s,
        u"Please Select a County(s) or Change Jurisidiction to Continue."_s};
    const QStringList noType{u"You Have Not Selected a Case Type!"_s,
                             u"At least one Case Type Must be Selected"_s,
                             u"Please Select a Case Type(s) to Continue with this Search."_s};
    QTest::newRow("no last name") << false << QStringList{} << king << civil << noLast;
    QTest::newRow("only blanks as last name")
        << false << QStringList{u"   "_s} << king << civil << noLast;
    QTest::newRow("no business name") << true << QStringList{} << king << civil << noBusiness;
    QTest::newRow("middle initial without first name")
        << false << QStringList{u"Smith"_s, QString(), u"Q"_s} << king << civil
        << QStringList{u"The FIRST NAME Field Is Empty!"_s,
                       u"This is a required field when a MIDDLE INITIAL is entered."_s,
                       u"Please enter a First Name or Remove the Middle Initial to Continue."_s};
    QTest::newRow("suffix without first name")
        << false << QStringList{u"Smith"_s, QString(), QString(), u"Jr."_s} << king << civil
        << QStringList{u"The FIRST NAME Field Is Empty!"_s,
                       u"This is a required field when a SUFFIX is entered."_s,
                       u"Please enter a First Name or Remove the Suffix to Continue."_s};
    QTest::newRow("no county") << false << QStringList{u"Smith"_s} << QStringList{} << civil
                               << noCounty;
    QTest::newRow("no case type") << false << QStringList{u"Smith"_s} << king << QStringList{}
                                  << noType;
    QTest::newRow("the first failure only")
        << false << QStringList{} << QStringList{} << QStringList{} << noLast;
    QTest::newRow("no county for a business")
        << true << QStringList{u"Acme"_s} << QStringList{} << QStringList{} << noCounty;
}

void tst_frmSearchWAStart::refusal()
{
    QFETCH(bool, business);
    QFETCH(QStringList, names);
    QFETCH(QStringList, counties);
    QFETCH(QStringList, types);
    QFETCH(QStringList, told);
    if (business)
        click("optSearchType_1");
    fill(names, counties, types);
    QStringList raised;
    connect(&SearchEvents::Of(), &SearchEvents::FieldErrorRaised, form,
            [&raised](const QString &what, const QString &why, const QString &action) {
                raised = QStringList{what, why, action};
            });
    QStringList shown;
    desk->Boxes.ExpectDialog(u"frmInfo"_s, [&shown](QDialog *dialog) {
        shown = QStringList{label(dialog, "Label1_0"), label(dialog, "Label1_1"),
                            label(dialog, "Label1_2")};
        QTest::mouseClick(ButtonOf(dialog, "Command1"), Qt::LeftButton);
    });
    QVERIFY(!start());
    QCOMPARE(raised, told);
    QCOMPARE(shown, told);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(form->isVisible());
}

void tst_frmSearchWAStart::requestLine_data()
{
    QTest::addColumn<bool>("business");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QStringList>("years");
    QTest::addColumn<QString>("line");
    const QStringList two{u"Civil"_s, u"Criminal"_s};
    QTest::newRow("a person, all years")
        << false << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s} << two << QStringList{}
        << u"WASUP/SEARCH/SMITH/JOHN/Q//King,/Civil,Criminal,///"_s;
    QTest::newRow("a person, a range of years")
        << false << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s} << two
        << QStringList{u"1990"_s, u"2002"_s}
        << u"WASUP/SEARCH/SMITH/JOHN/Q//King,/Civil,Criminal,/1990/2002/"_s;
    QTest::newRow("the suffix is not sent")
        << false << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s} << two << QStringList{}
        << u"WASUP/SEARCH/SMITH/JOHN/Q//King,/Civil,Criminal,///"_s;
    QTest::newRow("names go in upper case, trimmed")
        << false << QStringList{u"  smith "_s, u" john"_s, u"q "_s} << two << QStringList{}
        << u"WASUP/SEARCH/SMITH/JOHN/Q//King,/Civil,Criminal,///"_s;
    QTest::newRow("letters beyond ASCII")
        << false << QStringList{u"Mu\u00F1oz"_s} << QStringList{u"Civil"_s} << QStringList{}
        << u"WASUP/SEARCH/MU\u00D1OZ////King,/Civil,///"_s;
    QTest::newRow("a last name alone")
        << false << QStringList{u"Smith"_s} << QStringList{u"Civil"_s} << QStringList{}
        << u"WASUP/SEARCH/SMITH////King,/Civil,///"_s;
    QTest::newRow("a business") << true << QStringList{u"Acme Inc"_s} << QStringList{u"Civil"_s}
                                << QStringList{} << u"WASUP/SEARCH/ACME INC////King,/Civil,///"_s;
    QTest::newRow("every case type")
        << false << QStringList{u"Smith"_s}
        << QStringList{u"Probate"_s,  u"Juvenile Offender"_s, u"Judgment"_s,
                       u"Domestic"_s, u"Criminal"_s,          u"Civil"_s}
        << QStringList{}
        << u"WASUP/SEARCH/SMITH////King,/Civil,Criminal,Domestic,Judgment,Juvenile Offender,"
           "Probate,///"_s;
}

void tst_frmSearchWAStart::requestLine()
{
    QFETCH(bool, business);
    QFETCH(QStringList, names);
    QFETCH(QStringList, types);
    QFETCH(QStringList, years);
    QFETCH(QString, line);
    if (business)
        click("optSearchType_1");
    fill(names, {u"King"_s}, types);
    if (!years.isEmpty()) {
        click("optSearchYears_1");
        form->findChild<QComboBox *>(u"cboxSearchStartYear"_s)->setCurrentText(years[0]);
        form->findChild<QComboBox *>(u"cboxSearchEndYear"_s)->setCurrentText(years[1]);
    }
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{wire(line)});
}

void tst_frmSearchWAStart::severalCountiesGiveALineEachInListOrder()
{
    fill({u"Smith"_s}, {u"Yakima"_s, u"Grays Harbor"_s, u"Adams"_s}, {u"Civil"_s});
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.Lines(),
             (QStringList{wire(u"WASUP/SEARCH/SMITH////Adams,/Civil,///"_s),
                          wire(u"WASUP/SEARCH/SMITH////Grays Harbor,/Civil,///"_s),
                          wire(u"WASUP/SEARCH/SMITH////Yakima,/Civil,///"_s)}));
}

void tst_frmSearchWAStart::allCountiesGiveThirtyNineLines()
{
    fill({u"Smith"_s}, {}, {u"Civil"_s});
    click("cmdCheckAll");
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.ListCount(), 39);
    QCOMPARE(window->txtCountyList(),
             WaCountyNames().join(u", "_s) + u" County - Washington Superior Courts"_s);
}

void tst_frmSearchWAStart::statewideGivesThirtyNineLines()
{
    fill({u"Smith"_s}, {}, {u"Civil"_s});
    click("optSearchWhere_2");
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QStringList lines;
    const QStringList counties = WaCountyNames();
    for (const QString &county : counties)
        lines.append(wire(u"WASUP/SEARCH/SMITH////"_s + county + u",/Civil,///"_s));
    QCOMPARE(lines.size(), 39);
    QCOMPARE(window->lboxQueue.Lines(), lines);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_frmSearchWAStart::statewideWalksTheListFile()
{
    desk->Folder.Write(u"wactylst.txt"_s, "King\r\nPierce\r\n");
    fill({u"Smith"_s}, {}, {u"Civil"_s});
    click("optSearchWhere_2");
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.Lines(),
             (QStringList{wire(u"WASUP/SEARCH/SMITH////King,/Civil,///"_s),
                          wire(u"WASUP/SEARCH/SMITH////Pierce,/Civil,///"_s)}));
}

void tst_frmSearchWAStart::jurisdictionTitle_data()
{
    QTest::addColumn<QStringList>("counties");
    QTest::addColumn<QString>("title");
    QTest::newRow("one county") << QStringList{u"King"_s}
                                << u"King County - Washington Superior Courts"_s;
    QTest::newRow("several counties") << QStringList{u"King"_s, u"Adams"_s}
                                      << u"Adams, King County - Washington Superior Courts"_s;
    QTest::newRow("statewide") << QStringList{}
                               << u"Statewide (All Counties) - Washington Superior Courts"_s;
}

void tst_frmSearchWAStart::jurisdictionTitle()
{
    QFETCH(QStringList, counties);
    fill({u"Smith"_s}, counties, {u"Civil"_s});
    if (counties.isEmpty())
        click("optSearchWhere_2");
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QTEST(window->txtCountyList(), "title");
    QTEST(TextOf(window, "txtCountyList"), "title");
}

void tst_frmSearchWAStart::aSearchGetsAWindowAndAPlaceInTheQueue()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QCOMPARE(window->txtMasterKey.size(), 20);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{u"11111111111111111111"_s, window->txtMasterKey}));
    QCOMPARE(window->lblState, u"WA"_s);
    QVERIFY(!window->chkIndexSearch);
    QVERIFY(!window->chkBK);
    QCOMPARE(window->ClientAcctgCode, QString());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QVERIFY(window->Timer1->isActive());
}

void tst_frmSearchWAStart::theFormStaysAsItWas()
{
    fill({u"smith"_s, u"john"_s, u"q"_s, u"Jr."_s}, {u"King"_s}, {u"Civil"_s});
    QVERIFY(start());
    QVERIFY(form->isVisible());
    QCOMPARE(box(0)->text(), u"SMITH"_s);
    QCOMPARE(box(3)->text(), u"Jr."_s);
    QCOMPARE(form->findChild<CheckListBox *>(u"lboxCountyOrProfile"_s)->Selected(),
             QStringList{u"King"_s});
    QVERIFY(ButtonOf(form, "cmdBeginSearch")->isEnabled());
}

void tst_frmSearchWAStart::twoSearchesStandInTheQueue()
{
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    const frmNameSearchResults *first = start();
    const frmNameSearchResults *second = start();
    if (!first || !second)
        QFAIL("a search did not start");
    QVERIFY(first->txtMasterKey != second->txtMasterKey);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{first->txtMasterKey, second->txtMasterKey}));
}

void tst_frmSearchWAStart::nothingIsSentByTheForm()
{
    const FakeSocket *socket = desk->ConnectToNothing();
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    const frmNameSearchResults *window = start();
    window->Timer1->stop();
    QTest::qWait(20);
    QCOMPARE(socket->sent, QByteArrayList());
}

void tst_frmSearchWAStart::stopRequestsOfTheSessionAreForgotten()
{
    Global.bStopRequested = true;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    QVERIFY(start());
    QVERIFY(!Global.bStopRequested);
}

void tst_frmSearchWAStart::entriesAreFoldedBeforeTheyAreChecked()
{
    desk->Boxes.ExpectDialog(u"frmInfo"_s, [](QDialog *dialog) { dialog->accept(); });
    fill({u"smith"_s, u"  "_s, u" q "_s, u" jr "_s}, {u"King"_s}, {u"Civil"_s});
    QVERIFY(!start());
    QCOMPARE(box(0)->text(), u"SMITH"_s);
    QCOMPARE(box(1)->text(), QString());
    QCOMPARE(box(2)->text(), u"Q"_s);
    QCOMPARE(box(3)->text(), u" jr "_s);
}

void tst_frmSearchWAStart::theAccountingCodeIsHandedOver_data()
{
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<bool>("compulsory");
    QTest::addColumn<QString>("code");
    QTest::newRow("nobody wants one") << u"0"_s << false << QString();
    QTest::newRow("any other text is no") << u"yes"_s << false << QString();
    QTest::newRow("the user wants one") << u"1"_s << false << u"ABC"_s;
    QTest::newRow("the server wants one") << u"0"_s << true << u"ABC"_s;
}

void tst_frmSearchWAStart::theAccountingCodeIsHandedOver()
{
    QFETCH(QString, enabled);
    QFETCH(bool, compulsory);
    QFETCH(QString, code);
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, enabled);
    Global.bClientAcctgOpt = compulsory;
    Global.ClientAcctgCode = u"  abc "_s;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    const frmNameSearchResults *window = start();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, code);
    QVERIFY(!window->lboxQueue.List(0).contains(u"CAC"));
}

void tst_frmSearchWAStart::disclaimerIsAskedOnceInASession()
{
    Global.bShowAlerts = true;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Expect(disclaimer, disclaimerTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    QVERIFY(start());
    QVERIFY(Global.WaDisclaimerAccepted);
    QVERIFY(!Global.OrDisclaimerAccepted);
    QVERIFY(start());
    QCOMPARE(desk->Boxes.Answered(), 1);
}

void tst_frmSearchWAStart::declinedDisclaimerEndsTheClickAndAsksAgain()
{
    Global.bShowAlerts = true;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Expect(disclaimer, disclaimerTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(!start());
    QVERIFY(!Global.WaDisclaimerAccepted);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    desk->Boxes.Expect(disclaimer, disclaimerTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    QVERIFY(start());
}

void tst_frmSearchWAStart::withoutAlertsThereIsNoDisclaimer()
{
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    QVERIFY(start());
    QVERIFY(Global.WaDisclaimerAccepted);
    QVERIFY(Global.OrDisclaimerAccepted);
    QVERIFY(!Global.IdDisclaimerAccepted);
}

void tst_frmSearchWAStart::aRefusalGoesBeforeTheDisclaimer()
{
    Global.bShowAlerts = true;
    desk->Boxes.ExpectDialog(u"frmInfo"_s, [](QDialog *dialog) { dialog->accept(); });
    QVERIFY(!start());
    QVERIFY(!Global.WaDisclaimerAccepted);
}

void tst_frmSearchWAStart::notLoggedInDeclined()
{
    Global.bLoggedIn = false;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(!start());
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_frmSearchWAStart::notLoggedInShowsTheLogin()
{
    FakeSocket::Install();
    Global.bLoggedIn = false;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    QVERIFY(!start());
    QVERIFY(frmLogin::IsLoaded());
    QVERIFY(!form->isVisible());
    QCOMPARE(box(0)->text(), u"SMITH"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_frmSearchWAStart::disclaimerGoesBeforeTheLoginQuestion()
{
    Global.bLoggedIn = false;
    Global.bShowAlerts = true;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Expect(disclaimer, disclaimerTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(!start());
}

void tst_frmSearchWAStart::aFormCancelledUnderTheDisclaimerStartsNothing()
{
    Global.bShowAlerts = true;
    fill({u"Smith"_s}, {u"King"_s}, {u"Civil"_s});
    desk->Boxes.Meanwhile([this] { form->Unload(); });
    desk->Boxes.Expect(disclaimer, disclaimerTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    click("cmdBeginSearch");
    QTRY_VERIFY(form.isNull());
    QVERIFY(resultsWindows().isEmpty());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

QTEST_MAIN(tst_frmSearchWAStart)
#include "tst_frmSearchWAStart.moc"
