// A case and what has come of it, and what its rows open.

#include "casedetails/CaseLinks.h"
#include "casedetails/CaseSheet.h"
#include "support/HalvaneTest.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_CaseSheet : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatEachKindBeginsWith_data();
    void whatEachKindBeginsWith();
    void whatIsHandedOver();
    void theHeadingSaysWhatIsArchived();
    void aTitleHasItsAmpersandsOnce();
    void aTabThatGoesOutOfSight();
    void aTabThatNoWindowHasDoesNotComeIntoSight();
    void onlyTabsOfTheStripCanBeIncomplete();
    void missingTabsAreOffered();
    void aTableThatNoWindowHas();
    void marksGoWithTheirTable();
    void rowsOfTheSummary();
    void rowsOfAList();
    void rowsOfTheJudgments_data();
    void rowsOfTheJudgments();
};

void tst_CaseSheet::whatEachKindBeginsWith_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("caseType");
    QTest::addColumn<int>("tabs");
    QTest::newRow("state") << int(CaseKind::State) << QString() << QString() << 10;
    QTest::newRow("civil") << int(CaseKind::Civil) << u"WA"_s << u"CIVIL  CV"_s << 4;
    QTest::newRow("non-civil") << int(CaseKind::NonCivil) << u"WA"_s << u"NON-CIVIL"_s << 4;
}

void tst_CaseSheet::whatEachKindBeginsWith()
{
    QFETCH(int, kind);
    const CaseRecord record(static_cast<CaseKind>(kind));
    QTEST(record.lblState, "state");
    QTEST(record.lblCaseType, "caseType");
    QCOMPARE(record.Caption, u"Case Details"_s);
    QCOMPARE(record.TabCaptions, QStringList{u"Summary"_s});
    QCOMPARE(record.SelectedTab, u"Summary"_s);
    int tabs = 0;
    for (const CaseTabRecord &tab : record.Tabs)
        tabs += tab.Exists ? 1 : 0;
    QTEST(tabs, "tabs");
}

void tst_CaseSheet::whatIsHandedOver()
{
    CaseSheet sheet(CaseKind::NonCivil);
    const QSignalSpy announced(&sheet, &CaseSheet::HeaderChanged);
    CaseStart start(CaseKind::State);
    start.txtCaseNumber = u"C1"_s;
    start.lblCourtName = u"Seattle"_s;
    sheet.Take(start);
    QCOMPARE(announced.size(), 1);
    QCOMPARE(sheet.Record.txtCaseNumber, u"C1"_s);
    QCOMPARE(sheet.Record.lblCourtName, u"Seattle"_s);
    QCOMPARE(sheet.Record.Kind, CaseKind::NonCivil);
}

void tst_CaseSheet::theHeadingSaysWhatIsArchived()
{
    CaseSheet sheet(CaseKind::State);
    sheet.SetHeading(u"Case Details (*02-1)"_s);
    QVERIFY(sheet.Record.Archived);
    sheet.SetHeading(u"Case Details (02-1)"_s);
    QVERIFY(!sheet.Record.Archived);
}

void tst_CaseSheet::aTitleHasItsAmpersandsOnce()
{
    CaseSheet sheet(CaseKind::Civil);
    sheet.SetTitle(u"A && B & C"_s);
    QCOMPARE(sheet.Record.lblCaseTitle, u"A & B & C"_s);
    CaseSheet nonCivil(CaseKind::NonCivil);
    nonCivil.SetTitle(u"A"_s);
    QCOMPARE(nonCivil.Record.lblCaseTitle, QString());
}

void tst_CaseSheet::aTabThatGoesOutOfSight()
{
    CaseSheet sheet(CaseKind::State);
    const QSignalSpy sight(&sheet, &CaseSheet::SightChanged);
    sheet.SetTabs({u"Summary"_s, u"Names"_s, u"Docket"_s});
    QCOMPARE(sight.size(), 0);
    sheet.Select(u"Docket"_s);
    sheet.BringIntoSight(CaseTab::Docket);
    sheet.SetTabs({u"Summary"_s, u"Docket"_s});
    QCOMPARE(sheet.Record.InSight, CaseTab::Docket);
    QCOMPARE(sight.size(), 1);
    sheet.RemoveAllTabsButFirst();
    QCOMPARE(sheet.Record.SelectedTab, u"Summary"_s);
    QCOMPARE(sheet.Record.InSight, CaseTab::Summary);
    QCOMPARE(sight.size(), 2);
}

void tst_CaseSheet::aTabThatNoWindowHasDoesNotComeIntoSight()
{
    CaseSheet sheet(CaseKind::Civil);
    const QSignalSpy sights(&sheet, &CaseSheet::SightChanged);
    const CaseTab before = sheet.Record.InSight;
    sheet.SetTabs({u"Charges"_s, u"Summary"_s}); // a tab of other courts, which the server named
    sheet.Record.SelectedTab = u"Charges"_s;
    sheet.SetTabs({u"Violations"_s});
    QCOMPARE(sheet.Record.SelectedTab, u"Violations"_s);
    QCOMPARE(sheet.Record.InSight, before);
    QCOMPARE(sights.size(), 0);
}

void tst_CaseSheet::onlyTabsOfTheStripCanBeIncomplete()
{
    CaseSheet sheet(CaseKind::State);
    sheet.SetTabs({u"Summary"_s, u"Docket"_s});
    sheet.Record.Tab(CaseTab::Docket).TabIncomplete = true;
    QVERIFY(sheet.Record.AnyTabIncomplete());
    sheet.RemoveAllTabsButFirst();
    QVERIFY(!sheet.Record.AnyTabIncomplete());
}

void tst_CaseSheet::missingTabsAreOffered()
{
    CaseSheet sheet(CaseKind::Civil);
    sheet.SetTabs({u"Summary"_s, u"Names"_s, u"Docket"_s});
    sheet.Record.Tab(CaseTab::Summary).TabDone = true;
    sheet.SetOnDemandPanel();
    const auto chosen = [&sheet](CaseTab tab) { return sheet.Record.Tab(tab).Chosen; };
    QVERIFY(!chosen(CaseTab::Summary) && chosen(CaseTab::Names) && chosen(CaseTab::Docket));
    QVERIFY(!chosen(CaseTab::Judgments) && !sheet.Record.Tab(CaseTab::Judgments).Offered);
    sheet.Choose(CaseTab::Names, false);
    sheet.ChoiceStands = true;
    sheet.SetOnDemandPanel();
    QVERIFY(!chosen(CaseTab::Names) && sheet.Record.Tab(CaseTab::Names).Offered);
    sheet.ChoiceStands = false;
    sheet.SetOnDemandPanel();
    QVERIFY(chosen(CaseTab::Names));
}

void tst_CaseSheet::aTableThatNoWindowHas()
{
    CaseSheet sheet(CaseKind::Civil);
    const QSignalSpy announced(&sheet, &CaseSheet::TabChanged);
    sheet.ShowTable(CaseTab::Charges, {{{u"A"_s, 100}}, {{u"a"_s}}, true});
    QCOMPARE(announced.size(), 0);
    QVERIFY(sheet.Record.Tab(CaseTab::Charges).Table.Rows.isEmpty());
    sheet.ShowTable(CaseTab::Docket, {{{u"A"_s, 100}}, {{u"a"_s}}, true});
    QCOMPARE(announced.size(), 1);
}

void tst_CaseSheet::marksGoWithTheirTable()
{
    CaseSheet sheet(CaseKind::State);
    const GridTable docket{{{u"Date"_s, 20}, {u"Entry"_s, 80}}, {{u"a"_s}, {u"b"_s}}, true};
    const RowMarks marks{{1}, QDate(2026, 11, 2)};
    QSignalSpy changed(&sheet, &CaseSheet::MarksChanged);
    sheet.ShowTable(CaseTab::Docket, docket);
    sheet.MarkNew(CaseTab::Docket, marks);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(sheet.Record.Tab(CaseTab::Docket).New, marks);
    QCOMPARE(sheet.Record.Tab(CaseTab::Docket).Table, docket);
    sheet.ShowTable(CaseTab::Docket, docket);
    QVERIFY(sheet.Record.Tab(CaseTab::Docket).New.IsEmpty());
}

void tst_CaseSheet::rowsOfTheSummary()
{
    CaseRecord record(CaseKind::State);
    record.txtCountyName = u"King"_s;
    record.ClientAcctgCode = u"A1"_s;
    record.Tab(CaseTab::Summary).Table = {
        {{u"Item"_s, 30}, {u"Description"_s, 70}},
        {{u"Cause:"_s, u"Theft"_s}, {u"Associated Case:"_s, u"02-2-00456-7"_s}},
        true};
    QCOMPARE(AssociatedCase(record, 0), QString());
    QCOMPARE(AssociatedCase(record, 1), QString());
    QCOMPARE(AssociatedCase(record, 2), u"02-2-00456-7"_s);
    QCOMPARE(AssociatedCase(record, 3), QString());
    QVERIFY(!ListedCase(record, 2));
    const CaseStart start = CaseOfCounty(record, u" 02-2-00456-7 "_s);
    QCOMPARE(start.txtCaseNumber, u"02-2-00456-7"_s);
    QCOMPARE(start.lblCaseDetailsHdr, u"Case Details (02-2-00456-7)"_s);
    QCOMPARE(start.txtCountyName, u"King"_s);
    QCOMPARE(start.ClientAcctgCode, u"A1"_s);
    QCOMPARE(start.lblCaseTitle, u"Pending .. "_s);
}

void tst_CaseSheet::rowsOfAList()
{
    CaseRecord record(CaseKind::State);
    record.lblState = u"WAWBK"_s;
    record.chkBKYass = true;
    record.Tab(CaseTab::Summary).Table = {
        {{u"Case#"_s, 15}, {u"Type"_s, 10}, {u"Title"_s, 74}},
        {{u"99-1"_s, u"BK"_s, u"A"_s}, {u"99-2"_s, QString(), u"B"_s}, {u"99-3"_s, u"AP"_s}},
        true};
    record.List1 = {u"RETRIEVECOMMAND=BKRPT~1~^1^"_s, u"RETRIEVECOMMAND=BKRPT~2~^2^"_s,
                    u"no command^3^"_s};
    const std::optional<CaseStart> first = ListedCase(record, 1);
    QVERIFY(first.has_value());
    QCOMPARE(first->TabRequests, QStringList{u"BKRPT~1~"_s});
    QCOMPARE(first->lblCaseTitle, u"Bankruptcy"_s);
    QVERIFY(first->chkBK);
    QVERIFY(!ListedCase(record, 0));
    QVERIFY(!ListedCase(record, 2)); // no type
    QVERIFY(!ListedCase(record, 3)); // no command
    QVERIFY(!ListedCase(record, 4));
}

void tst_CaseSheet::rowsOfTheJudgments_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("number");
    QTest::newRow("a number") << u"WA"_s << 1 << u"02-9-00456-7"_s;
    QTest::newRow("none") << u"WA"_s << 2 << QString();
    QTest::newRow("the headers") << u"WA"_s << 0 << QString();
    QTest::newRow("behind the last") << u"WA"_s << 3 << QString();
    QTest::newRow("another court") << u"ID"_s << 1 << QString();
}

void tst_CaseSheet::rowsOfTheJudgments()
{
    QFETCH(QString, state);
    QFETCH(int, row);
    CaseRecord record(CaseKind::State);
    record.lblState = state;
    record.Tab(CaseTab::Judgments).Table = {
        {{u"Date"_s, 50}, {u"Case"_s, 50}},
        {{u"01/02/2003"_s, u" 02-9-00456-7 "_s}, {u"01/02/2003"_s, u"02-9-00456-78"_s}},
        true};
    QTEST(CaseOfJudgment(record, row), "number");
}

HALVANE_TEST(tst_CaseSheet)
#include "tst_CaseSheet.moc"
