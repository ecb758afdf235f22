#include "casedetails/DistrictDesk.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <functional>

// The tabs of the District and Municipal Courts behind the Summary.

class tst_DistrictTabs : public DistrictTest
{
    Q_OBJECT
private Q_SLOTS:
    void notesOfATab_data();
    void notesOfATab();
    void aNoteOfAnotherTabIsNone_data();
    void aNoteOfAnotherTabIsNone();
    void notesAreGoneBehindARetryWithout();
    void theOrderOfTheRows_data();
    void theOrderOfTheRows();
    void emptyAndIncompleteMessages_data();
    void emptyAndIncompleteMessages();
    void whatTheLogSaysOfViolations();
    void whatTheLogSaysOfIncompleteViolations();
    void violationsThatBreakDown();
    void violationsByTheirWords_data();
    void violationsByTheirWords();
    void theBoxesOfThePanel_data();
    void theBoxesOfThePanel();
    void arbitrationGoesIntoEveryLine_data();
    void arbitrationGoesIntoEveryLine();
    void theClientCodeGoesWithSummaryAndNames_data();
    void theClientCodeGoesWithSummaryAndNames();
};

namespace {
const QString tableHead = u"GRIDDEF~Date~Entry~20~80~"_s;
const DistrictTab &violations = districtWindows.front().tabs.back();

void eachTab(const std::function<void(const DistrictWindow &, const DistrictTab &)> &addRow)
{
    for (const DistrictWindow &window : districtWindows) {
        for (const DistrictTab &tab : window.tabs)
            addRow(window, tab);
    }
}

/// The tab of the data row.
const DistrictTab &tabOf(CaseKind kind, CaseTab tab)
{
    const auto &tabs = DistrictOf(kind).tabs;
    return *std::find_if(tabs.begin(), tabs.end(),
                         [tab](const DistrictTab &row) { return row.tab == tab; });
}

QByteArray rowName(const DistrictWindow &window, const DistrictTab &tab, const char *what)
{
    return QByteArray(window.name) + ", " + CaseTabRowOf(tab.tab).caption.toLatin1() + ", " + what;
}
} // namespace

void tst_DistrictTabs::notesOfATab_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QStringList>("notes");
    QTest::addColumn<bool>("table");
    QTest::addColumn<QList<QStringList>>("cells");
    const QList<QStringList> rows{{u"Date"_s, u"Entry"_s}, {u"1"_s, u"2"_s}};
    eachTab([&](const DistrictWindow &window, const DistrictTab &tab) {
        const auto row = [&](const char *what, const QStringList &notes, bool table,
                             const QList<QStringList> &cells) {
            QTest::newRow(rowName(window, tab, what).constData())
                << window.kind << tab.tab << notes << table << cells;
        };
        const QList<QStringList> message{{QString()}, {tab.empty.toString()}};
        row("no note", {}, true, rows);
        row("one note", {u"First"_s}, true, rows);
        row("two notes", {u"First"_s, u"Second"_s}, true, rows);
        // Behind two notes comes the table, or nothing can be read.
        row("three notes", {u"First"_s, u"Second"_s, u"Third"_s}, true, {});
        row("a note and no table", {u"First"_s}, false, message);
    });
}

void tst_DistrictTabs::notesOfATab()
{
    QFETCH(CaseKind, kind);
    QFETCH(CaseTab, tab);
    QFETCH(QStringList, notes);
    QFETCH(bool, table);
    const DistrictTab &row = tabOf(kind, tab);
    QStringList reply;
    for (const QString &note : notes)
        reply.append(row.noteHead + note + u'~');
    if (table)
        reply += {tableHead, u"1~2~"_s};
    const CaseWindow *window = AfterTab(kind, row, reply + QStringList{u"EOF~"_s});
    QTEST(CellsOf(window, tab), "cells");
    QCOMPARE(TextOf(window, row.firstNote), notes.value(0));
    QCOMPARE(TextOf(window, row.secondNote), notes.value(1));
    QCOMPARE(IsSeen(window, row.firstNote), !notes.isEmpty());
    QCOMPARE(IsSeen(window, row.secondNote), notes.size() > 1);
    // None of them is another tab's.
    for (const DistrictTab &other : DistrictOf(kind).tabs)
        QVERIFY(other.tab == tab || TextOf(window, other.firstNote).isEmpty());
}

void tst_DistrictTabs::aNoteOfAnotherTabIsNone_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<CaseTab>("tab");
    eachTab([](const DistrictWindow &window, const DistrictTab &tab) {
        QTest::newRow(rowName(window, tab, "a foreign note").constData()) << window.kind << tab.tab;
    });
}

void tst_DistrictTabs::aNoteOfAnotherTabIsNone()
{
    QFETCH(CaseKind, kind);
    QFETCH(CaseTab, tab);
    const DistrictTab &row = tabOf(kind, tab);
    const CaseWindow *window =
        AfterTab(kind, row, {u"OTHERNOTE~First~"_s, tableHead, u"1~2~"_s, u"EOF~"_s});
    QVERIFY(!IsSeen(window, row.firstNote));
    // A first line that is neither a note nor a table leaves the grid empty.
    QCOMPARE(CellsOf(window, tab), QList<QStringList>());
}

void tst_DistrictTabs::notesAreGoneBehindARetryWithout()
{
    const DistrictTab &names = districtWindows.front().tabs.front();
    CaseWindow *window =
        AfterTab(CaseKind::NonCivil, names,
                 {u"CPARNOTE~First~"_s, tableHead, u"1~2~"_s, u"ERROR No more~"_s, u"EOF~"_s});
    QCOMPARE(TextOf(window, "lblNameNote1"), u"First"_s);
    QVERIFY(window->Tab(CaseTab::Names).TabIncomplete);
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s,
                             [](QDialog *dialog) { ButtonOf(dialog, "Command1")->click(); });
    ClickTab(window, u"Names"_s);
    court->Expect(DistrictLineOf(CaseKind::NonCivil, names.word)).Reply(GridDef({u"3~4~"_s}));
    ButtonOf(window, "cmdClearAll")->click();
    window->findChild<QAbstractButton *>(u"chkTab_1"_s)->setChecked(true);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    QVERIFY(!IsSeen(window, "lblNameNote1"));
    QCOMPARE(CellsOf(window, CaseTab::Names).at(1), (QStringList{u"3"_s, u"4"_s}));
}

void tst_DistrictTabs::theOrderOfTheRows_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<bool>("lastFirst");
    eachTab([](const DistrictWindow &window, const DistrictTab &tab) {
        QTest::newRow(rowName(window, tab, "rows").constData())
            << window.kind << tab.tab
            << (tab.tab == CaseTab::Docket || tab.tab == CaseTab::Judgments);
    });
}

void tst_DistrictTabs::theOrderOfTheRows()
{
    QFETCH(CaseKind, kind);
    QFETCH(CaseTab, tab);
    QFETCH(bool, lastFirst);
    const DistrictTab &row = tabOf(kind, tab);
    const CaseWindow *window = AfterTab(
        kind, row, QStringList{row.noteHead + u"First~"_s} + GridDef({u"1~A~"_s, u"2~B~"_s}));
    QCOMPARE(CellsOf(window, tab).at(1).at(1), lastFirst ? u"B"_s : u"A"_s);
    QCOMPARE(CellsOf(window, tab).at(2).at(1), lastFirst ? u"A"_s : u"B"_s);
}

void tst_DistrictTabs::emptyAndIncompleteMessages_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<bool>("incomplete");
    eachTab([](const DistrictWindow &window, const DistrictTab &tab) {
        QTest::newRow(rowName(window, tab, "empty").constData()) << window.kind << tab.tab << false;
        QTest::newRow(rowName(window, tab, "incomplete").constData())
            << window.kind << tab.tab << true;
    });
}

void tst_DistrictTabs::emptyAndIncompleteMessages()
{
    QFETCH(CaseKind, kind);
    QFETCH(CaseTab, tab);
    QFETCH(bool, incomplete);
    const DistrictTab &row = tabOf(kind, tab);
    QStringList reply{u"EOF~"_s};
    if (incomplete)
        reply.prepend(u"ERROR The court is busy~"_s);
    const CaseWindow *window = AfterTab(kind, row, reply);
    const QString message = (incomplete ? row.incomplete : row.empty).toString();
    QCOMPARE(CellsOf(window, tab), (QList<QStringList>{{QString()}, {message}}));
    const QStringView log = incomplete ? row.incompleteLog : row.emptyLog;
    const QStringView otherLog = incomplete ? row.emptyLog : row.incompleteLog;
    const QString request = DistrictLineOf(kind, row.word);
    QVERIFY(log.isEmpty() || desk->Folder.Logged(log + request));
    QVERIFY(otherLog.isEmpty() || !desk->Folder.Logged(otherLog + request));
    const QString title = CaseTabRowOf(tab).title.toString();
    QCOMPARE(TextOf(window, "lblStatus"),
             incomplete ? u"Search Incomplete!"_s : u"Search Complete"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), incomplete ? u"red"_s : u"blue"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             incomplete ? QString(title + u" Information Incomplete! Click Tab to Retry.")
                        : QString());
    QCOMPARE(IsSeen(window, "lblWarning"), incomplete);
    QCOMPARE(window->Tab(tab).TabIncomplete, incomplete);
    QCOMPARE(window->Tab(tab).TabNotRetrieved, incomplete);
    QCOMPARE(window->Tab(tab).TabDone, !incomplete);
}

void tst_DistrictTabs::whatTheLogSaysOfViolations()
{
    AfterTab(CaseKind::NonCivil, violations, GridDef({u"1~2~"_s}));
    const QStringList log = desk->Folder.Log();
    const QString line = DistrictLineOf(CaseKind::NonCivil, violations.word);
    QStringList entries;
    for (const QString &entry : log) {
        if (entry.contains(u"Violations"))
            entries.append(entry);
    }
    QCOMPARE(entries, (QStringList{u"Retrieving Violations .."_s,
                                   u"All Responses For Violations were Received: "_s + line,
                                   u"NORMAL EXIT - from DoViolationsSearch()."_s}));
    QVERIFY(desk->Folder.Logged(u"Current Response: --> 1~2~ 0"_s));
    QVERIFY(desk->Folder.Logged(u"Sent response to caller: 1~2~"_s));
}

void tst_DistrictTabs::whatTheLogSaysOfIncompleteViolations()
{
    QStringList statuses;
    const QString section = u"NonCivilCaseTabs"_s;
    FetchAtOnce(section, {u"Violations"_s});
    ExpectSummary(CaseKind::NonCivil, DistrictSummary(CaseKind::NonCivil));
    const QString line = DistrictLineOf(CaseKind::NonCivil, violations.word);
    court->Expect(line).Reply({});
    CaseWindow *window = Make(CaseKind::NonCivil);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   statuses.append(TextOf(window, "lblStatus"));
                   court->SendTokens({u"ERROR The court is busy~"_s, u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(statuses, QStringList{u"Retrieving Violations .."_s});
    QVERIFY(desk->Folder.Logged(u"Violations Search Incomplete. Request: "_s + line));
    QVERIFY(desk->Folder.Logged(u"Violations Search Result Was:  The court is busy~"_s));
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Violations Information Incomplete! Click Tab to Retry."_s);
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s,
                             [](QDialog *dialog) { ButtonOf(dialog, "Command2")->click(); });
    ClickTab(window, u"Violations"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_5"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Violations Information Incomplete! Click Tab to Review."_s);
}

void tst_DistrictTabs::violationsThatBreakDown()
{
    FetchAtOnce(u"NonCivilCaseTabs"_s, {u"Violations"_s});
    ExpectSummary(CaseKind::NonCivil, DistrictSummary(CaseKind::NonCivil));
    CaseWindow *window = Make(CaseKind::NonCivil);
    // The link goes in the pause ahead of the tab, which lasts as long as the clock stands still.
    desk->When([window] { return window->Tab(CaseTab::Summary).TabDone; },
               [this] {
                   court->DropClient();
                   QTRY_VERIFY(!court->HasClient());
                   desk->Time.Run(0.05);
               });
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(window->Tab(CaseTab::Summary).TabDone && !Global.bSearchInProgress);
    desk->Time.Stop();
    QVERIFY(desk->Folder.Logged(u"Exiting DoViolationsSearch() via PROCERR in Case Details. Error: "
                                "Halvane Server Connection was Dropped!"_s));
    QVERIFY(!window->Tab(CaseTab::Violations).TabDone);
    // The window keeps its place until it goes.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    window->Unload(UnloadMode::MdiParent);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_DistrictTabs::violationsByTheirWords_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("known");
    for (const QString &caption :
         {u"VIOLATIONS"_s, u"&VIOLATIONS"_s, u"Violations"_s, u"violations"_s})
        QTest::newRow(qPrintable(caption)) << caption << true;
    // The tab that others have in its place
    for (const QString &caption : {u"CHARGES"_s, u"VIOLATION"_s, QString()})
        QTest::newRow(qPrintable(u"not "_s + caption)) << caption << false;
}

void tst_DistrictTabs::violationsByTheirWords()
{
    QFETCH(QString, caption);
    QFETCH(bool, known);
    CaseWindow *window = AfterTab(CaseKind::NonCivil, violations, GridDef({u"1~2~"_s}));
    window->ActivateTab(caption);
    QCOMPARE(ShownFrame(window), known ? u"frameTabs_5"_s : u"frameTabs_0"_s);
}

void tst_DistrictTabs::theBoxesOfThePanel_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QStringList>("boxes");
    QTest::newRow("non-civil") << CaseKind::NonCivil
                               << QStringList{u"0 Summary"_s, u"1 Names"_s, u"2 Docket"_s,
                                              u"4 Violations"_s};
    QTest::newRow("civil") << CaseKind::Civil
                           << QStringList{u"0 Summary"_s, u"1 Names"_s, u"2 Docket"_s,
                                          u"3 Judgments"_s};
}

void tst_DistrictTabs::theBoxesOfThePanel()
{
    QFETCH(CaseKind, kind);
    const CaseWindow *window = Make(kind);
    QStringList boxes;
    for (int i = 0; i < 10; ++i) {
        const auto *box = window->findChild<QAbstractButton *>(u"chkTab_%1"_s.arg(i));
        if (!box->isHidden())
            boxes.append(QString::number(i) + u' ' + box->text());
    }
    QTEST(boxes, "boxes");
}

void tst_DistrictTabs::arbitrationGoesIntoEveryLine_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<bool>("yes");
    for (const DistrictWindow &window : districtWindows) {
        QTest::addRow("%s, yes", window.name) << window.kind << true;
        QTest::addRow("%s, no", window.name) << window.kind << false;
    }
}

void tst_DistrictTabs::arbitrationGoesIntoEveryLine()
{
    QFETCH(CaseKind, kind);
    QFETCH(bool, yes);
    const QString answer = yes ? u" ARBITRATION"_s : u" NOARBITRATION"_s;
    const DistrictWindow &district = DistrictOf(kind);
    // The first tab at once, the others later, with the answer too.
    FetchAtOnce(district.section.toString(), {u"Names"_s});
    court->Expect(DistrictLineOf(kind, district.summaryWord))
        .Reply({u"USERQUESTION~"_s, u"EOF~"_s});
    court->Expect(DistrictLineOf(kind, district.summaryWord).chopped(2) + answer + u"¦¦"_s)
        .Reply(DistrictSummary(kind) + QStringList{u"EOF~"_s});
    for (size_t i = 0; i < district.tabs.size(); ++i) {
        // The first run has passed by the line of each tab, and left its answer there.
        const QString line = DistrictLineOf(kind, district.tabs.at(i).word).chopped(2) + answer;
        court->Expect(line + (i > 0 ? answer : QString()) + u"¦¦"_s).Reply(GridDef({u"1~2~"_s}));
    }
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [yes](QDialog *dialog) {
        ButtonOf(dialog, yes ? "Command1" : "Command2")->click();
    });
    CaseWindow *window = Make(kind);
    Run(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    ClickTab(window, u"Docket"_s);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_DistrictTabs::theClientCodeGoesWithSummaryAndNames_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<bool>("onDemand");
    for (const DistrictWindow &window : districtWindows) {
        QTest::addRow("%s, at once", window.name) << window.kind << false;
        QTest::addRow("%s, on demand", window.name) << window.kind << true;
    }
}

void tst_DistrictTabs::theClientCodeGoesWithSummaryAndNames()
{
    QFETCH(CaseKind, kind);
    QFETCH(bool, onDemand);
    const DistrictWindow &district = DistrictOf(kind);
    const auto coded = [kind](QStringView word) {
        return QString(DistrictLineOf(kind, word).chopped(1) + u"^^CAC:ACME 7^^¦"_s);
    };
    FetchAtOnce(district.section.toString(), onDemand ? QStringList() : CaptionsOfKind(kind));
    court->Expect(coded(district.summaryWord))
        .Reply(DistrictSummary(kind) + QStringList{u"EOF~"_s});
    for (const DistrictTab &tab : district.tabs) {
        const bool names = tab.tab == CaseTab::Names;
        court->Expect(names ? coded(tab.word) : DistrictLineOf(kind, tab.word))
            .Reply(GridDef({u"1~2~"_s}));
    }
    CaseWindow *window = Make(kind);
    window->ClientAcctgCode = u"ACME 7"_s;
    Run(window);
    if (onDemand) {
        ClickTab(window, u"Docket"_s);
        ButtonOf(window, "cmdSearchNow")->click();
        QVERIFY(Finished(window));
    }
    for (const DistrictTab &tab : district.tabs) {
        QVERIFY(window->Tab(tab.tab).TabDone);
        // The lines themselves stay as they are: the code would be in them twice the next time.
        QCOMPARE(window->Tab(tab.tab).TabRequest, DistrictLineOf(kind, tab.word));
    }
}

HALVANE_TEST(tst_DistrictTabs)
#include "tst_DistrictTabs.moc"
