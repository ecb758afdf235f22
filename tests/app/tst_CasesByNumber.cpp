#include "app/CaseChecks.h"
#include "app/PracticeCourt.h"
#include "casedetails/CaseWindow.h"
#include "controls/TabStrip.h"
#include "practice/SpecialCases.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {
const QStringList byNumber{u"click optSearchType_2"_s};

/// One county in the list for a case number.
QStringList inCounty(const QString &name)
{
    return byNumber + QStringList{u"tick lboxMultiJurisdiction "_s + name};
}

const QStringList oneSeattle{u"choose cboxCountyList King"_s,
                             u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s};

QString numberOfSpecial(Practice::CourtFamily family, Practice::SpecialCase meaning)
{
    for (const Practice::SpecialCaseRow &row : Practice::specialCases) {
        if (row.meaning == meaning && (row.families & Practice::FamilyBit(family)) != 0)
            return Practice::SpecialCaseNumber(family, row);
    }
    return {};
}
} // namespace

/// Cases that are looked for by their numbers, one by one and in a batch, against the practice
/// court.
class tst_CasesByNumber : public PracticeTest
{
    Q_OBJECT
private Q_SLOTS:
    void aCaseByItsNumber_data();
    void aCaseByItsNumber();
    void severalBankruptcyCasesOfOneNumber();
    void aCaseInArbitration_data();
    void aCaseInArbitration();
    void aBatch();
    void aDocketOfTwentyThousandEntries_data();
    void aDocketOfTwentyThousandEntries();

private:
    void expectNotScomis();
    CaseWindow *startNumber(const QStringList &steps, const QString &number, bool asks);
};

void tst_CasesByNumber::expectNotScomis()
{
    user->Desk.Boxes.Expect(u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo "
                            "continue the search using this number click OK."_s,
                            u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
                            MsgButtons::OkCancel);
}

/// Enters a number and starts its search; the window of its case.
CaseWindow *tst_CasesByNumber::startNumber(const QStringList &steps, const QString &number,
                                           bool asks)
{
    user->Do(steps + QStringList{u"type txtSearchName_0 "_s + number});
    if (asks)
        expectNotScomis();
    return user->StartOne<CaseWindow>();
}

void tst_CasesByNumber::aCaseByItsNumber_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<Expected>("expected");
    QTest::addColumn<QString>("filed");
    const QString state = u"frmCaseDetails"_s;
    const QString john = u"SMITH, JOHN Q"_s;
    const QString seattleName = u"King District Seattle"_s;
    QTest::newRow("Superior") << inCounty(u"King"_s) << false
                              << Expected{state, u"94-1-00042-1"_s, john, u"King County"_s,
                                          criminalTabs}
                              << u"11/07/1994"_s;
    QTest::newRow("Superior, a judgment")
        << inCounty(u"Adams"_s) << false
        << Expected{state, u"96-9-00005-9"_s, john, u"Adams County"_s, judgmentTabs}
        << u"02/14/1996"_s;
    QTest::newRow("Oregon Circuit")
        << QStringList{u"click optState_0"_s} + inCounty(u"Multnomah"_s) << true
        << Expected{state, u"DO99120007"_s, john, u"Oregon State - Multnomah"_s, {}}
        << u"12/06/1999"_s;
    QTest::newRow("Oregon District")
        << QStringList{u"click optState_0"_s, u"click optOrCDcourts_1"_s}
               + inCounty(u"Washington"_s)
        << true << Expected{state, u"SC97030044"_s, john, u"Oregon State - Washington"_s, {}}
        << u"03/04/1997"_s;
    QTest::newRow("Idaho") << QStringList{u"click optState_3"_s} + inCounty(u"Ada"_s) << false
                           << Expected{state, u"CR-1998-0002546-IN"_s, john, u"Ada"_s, {}}
                           << u"05/08/1998"_s;
    QTest::newRow("District, civil")
        << discis + byNumber + oneSeattle << true
        << Expected{u"frmCivilCaseDetails"_s, u"5KS000123"_s, john, seattleName, discisTabs}
        << u"01/11/2005"_s;
    QTest::newRow("District, non-civil")
        << nonCivil + byNumber + oneSeattle << true
        << Expected{u"frmNCCaseDetails"_s, u"3YH809020"_s, john, seattleName, nonCivilTabs}
        << u"08/09/2003"_s;
    QTest::newRow("Bankruptcy") << federal + byNumber << false
                                << Expected{state, u"99-20077"_s, john, u"Oregon Bankruptcy"_s,
                                            firstTwo + QStringList{u"Docket"_s}}
                                << u"03/16/1999"_s;
}

void tst_CasesByNumber::aCaseByItsNumber()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, asks);
    QFETCH(Expected, expected);
    QFETCH(QString, filed);
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    CaseWindow *window = startNumber(steps, expected.cell, asks);
    QVERIFY(window);
    QCOMPARE(window->objectName(), expected.form);
    QVERIFY(user->Run(window));
    CheckCase(window, expected);
    QCOMPARE(window->lblDateFiled(), filed);
    QVERIFY2(window->lblCaseDetailsHdr().contains(expected.cell),
             qPrintable(window->lblCaseDetailsHdr()));
}

void tst_CasesByNumber::severalBankruptcyCasesOfOneNumber()
{
    QVERIFY(LogInAs(u"quiet"_s));
    const QString number =
        numberOfSpecial(Practice::CourtFamily::Bankruptcy, Practice::SpecialCase::Multiple);
    CaseWindow *list = startNumber(federal + byNumber, number, false);
    QVERIFY(list);
    QVERIFY(user->Run(list));
    QCOMPARE(TextOf(list, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(StripOf(list)->Captions(), QStringList{u"Summary"_s});
    QCOMPARE(list->lblCaseTitle(), u"Multiple Matching Cases Found for the Number Entered"_s);
    const FlexGrid *grid = list->Tab(CaseTab::Summary).Grid;
    QCOMPARE(grid->Rows(), 1 + Practice::multipleCases);
    QCOMPARE(grid->Cell(0, 0), u"Case#"_s);

    const QString second = number + u"-2"_s;
    QCOMPARE(grid->Cell(2, 0), second);
    const QModelIndex index = grid->model()->index(1, 0);
    const QList<JobWindow *> windows = user->NewWindows([&] {
        const QPoint where = grid->visualRect(index).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, where);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, where);
    });
    QCOMPARE(windows.size(), 1);
    auto *window = qobject_cast<CaseWindow *>(windows.first());
    QVERIFY(window);
    QVERIFY(user->Run(window));
    CheckCase(window, {{},
                       second,
                       u"PRACTICE, JAMES A"_s,
                       u"Oregon Bankruptcy"_s,
                       firstTwo + QStringList{u"Docket"_s}});
    QVERIFY(HasCell(window, CaseTab::Summary, second));
}

void tst_CasesByNumber::aCaseInArbitration_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("arbitration");
    QTest::newRow("yes") << u"Command1"_s << true;
    QTest::newRow("no") << u"Command2"_s << false;
}

void tst_CasesByNumber::aCaseInArbitration()
{
    QFETCH(QString, button);
    QFETCH(bool, arbitration);
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    const QString number =
        numberOfSpecial(Practice::CourtFamily::Superior, Practice::SpecialCase::Arbitration);
    CaseWindow *window = startNumber(inCounty(u"King"_s), number, false);
    QVERIFY(window);
    user->Desk.Boxes.ExpectDialog(u"frmArbPrompt"_s, [button](QDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
    });
    QVERIFY(user->Run(window));
    CheckCase(window, {{}, number, u"PRACTICE, JAMES A"_s, u"King County"_s, civilTabs});
    QCOMPARE(window->lblCourtName().contains(u"Arbitration"_s), arbitration);
    // The tabs are of the same part of the case as its summary.
    const QList<QStringList> &docket = window->Tab(CaseTab::Docket).Grid->Table().Rows;
    const bool speaksOfIt = std::any_of(docket.begin(), docket.end(), [](const QStringList &row) {
        return row.join(u' ').contains(u"Arbitration"_s, Qt::CaseInsensitive);
    });
    QCOMPARE(speaksOfIt, arbitration);
}

void tst_CasesByNumber::aBatch()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    struct Row
    {
        QString number;
        QString county;
        QStringList tabs;
    };
    const QList<Row> rows{{u"94-1-00042-1"_s, u"King"_s, criminalTabs},
                          {u"98-2-00017-7"_s, u"King"_s, civilTabs},
                          {u"05-2-00031-8"_s, u"Pierce"_s, civilTabs}};
    QStringList steps = byNumber + QStringList{u"click chkBulkSearch"_s};
    for (int i = 0; i < rows.size(); ++i) {
        const QString suffix = u'_' + QString::number(i) + u' ';
        steps += QStringList{u"type Text1"_s + suffix + rows[i].number,
                             u"choose cbCty1"_s + suffix + rows[i].county};
    }
    user->Do(steps);
    const QList<JobWindow *> windows =
        user->NewWindows([this] { user->Do({u"click cmdBatchSearch_4"_s}); });
    QCOMPARE(windows.size(), rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        auto *window = qobject_cast<CaseWindow *>(windows[i]);
        QVERIFY(window);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
        QVERIFY(user->Run(window));
        QCOMPARE(Keys().size(), rows.size() - i - 1);
    }
    for (int i = 0; i < rows.size(); ++i)
        CheckCase(
            qobject_cast<CaseWindow *>(windows[i]),
            {{}, rows[i].number, u"SMITH, JOHN Q"_s, rows[i].county + u" County"_s, rows[i].tabs});
}

void tst_CasesByNumber::aDocketOfTwentyThousandEntries_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("family");
    using Practice::CourtFamily;
    const auto add = [](const char *name, const QStringList &steps, CourtFamily family) {
        QTest::newRow(name) << steps << static_cast<int>(family);
    };
    add("Superior", inCounty(u"King"_s), CourtFamily::Superior);
    add("Oregon", QStringList{u"click optState_0"_s} + inCounty(u"Multnomah"_s),
        CourtFamily::Oregon);
    add("Idaho", QStringList{u"click optState_3"_s} + inCounty(u"Ada"_s), CourtFamily::Idaho);
    add("District, civil", discis + byNumber + oneSeattle, CourtFamily::District);
    add("District, non-civil", nonCivil + byNumber + oneSeattle, CourtFamily::District);
    add("Bankruptcy", federal + byNumber, CourtFamily::Bankruptcy);
}

void tst_CasesByNumber::aDocketOfTwentyThousandEntries()
{
    QFETCH(QStringList, steps);
    QFETCH(int, family);
    const auto courts = static_cast<Practice::CourtFamily>(family);
    FetchAtOnce({u"Docket"_s});
    QVERIFY(LogInAs(u"quiet"_s));
    CaseWindow *window = startNumber(
        steps, numberOfSpecial(courts, Practice::SpecialCase::LongDocket),
        courts == Practice::CourtFamily::Oregon || courts == Practice::CourtFamily::District);
    QVERIFY(window);
    QVERIFY(user->Run(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(ClickTab(window, u"Docket"_s));
    const FlexGrid *grid = window->Tab(CaseTab::Docket).Grid;
    QVERIFY(grid->isVisible());
    QCOMPARE(grid->Rows(), static_cast<int>(Practice::longDocketEntries) + 1);
    QCOMPARE(TroubleWith(window, CaseTab::Docket), QString());
}

HALVANE_TEST(tst_CasesByNumber)
#include "tst_CasesByNumber.moc"
