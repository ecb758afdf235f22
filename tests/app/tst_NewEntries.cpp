#include "app/NewEntries.h"
#include "casedetails/CaseDesk.h"
#include "casedetails/CaseIdentity.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "history/HistoryStore.h"
#include "link/RequestLine.h"
#include "namesearch/CaseMemory.h"
#include "namesearch/IndexLines.h"
#include "namesearch/ResultRows.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"
#include "support/ScriptedCourt.h"
#include "tables/FlexGrid.h"
#include "tables/ResultListView.h"

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolTip>

#include <functional>
#include <limits>

// What was not there at the last look is marked, in cases and in lists of results.

namespace {
constexpr int longEnough = 30'000;
const QString first = u"01/02/2003~COMPLAINT~"_s;
const QString second = u"01/03/2003~SUMMONS~"_s;
const QString third = u"01/04/2003~ANSWER~"_s;
const QStringList endMark{u"EOF~"_s};
} // namespace

class tst_NewEntries : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { WireNewEntries(); }
    void init() override;
    void cleanup();

    void aCaseThatWasNeverLookedAtMarksNothing();
    void entriesSinceTheLastLook();
    void nothingNewShowsNothing();
    void theSameLineTwiceCountsTwice();
    void eachLookIsTheNextOnesPast();
    void inOneWindowThePastStays();
    void aTabThatFailedOnlyAdds();
    void aTabThatWasStoppedOnlyAdds();
    void aFirstLookThatFailedIsNone();
    void aMessageIsNoRow();
    void theStateOfThingsIsNotMarked();
    void documentsAndChargesAndJudgments_data();
    void documentsAndChargesAndJudgments();
    void aBankruptcyCaseIsKnownByItsRequest();
    void withoutAHistoryNothingIsMarked();

    void rowsSinceTheLastSearch();
    void anotherClientCodeIsTheSameSearch();
    void anotherSearchMarksNothing();
    void aSearchThatWasStoppedIsNotRemembered();
    void thePagesOfAnIndexAreOneSearch();
    void anIndexThatLostRowsIsNotRemembered();
    void anOpenedRowIsTheSame();
    void aStatusThatChangesIsNotNew();
    void theToolTipSaysWhenACaseWasOpened();
    void rowsThatComeAreNotLookedUp();
    void rowsThatWereSortedOnTheWay();
    void rowsInThePlaceOfANotice();
    void manyRowsAreComparedWithoutTheirTexts();

private:
    static HistoryStore &store() { return HistoryStore::Of(); }
    void written() { QVERIFY(store().WaitUntilWritten(longEnough)); }
    void connectOnce()
    {
        if (!connected)
            desk->ConnectTo(*court);
        connected = true;
    }
    /// The case is opened, its Summary and this tab come, and its window stands at the end.
    frmCaseDetails *look(const QStringList &rows, const QString &tab = u"Docket"_s,
                         const QString &word = u"DOCKET"_s);
    void run(CaseWindow *window);
    void closeAfter(int days, FormWindow *window);
    static QString lineOf(const CaseWindow *window, CaseTab tab = CaseTab::Docket)
    {
        const QWidget *frame = window->Tab(tab).Frame;
        const auto *line = frame->findChild<QLabel *>(u"lblNew"_s);
        return line->isHidden() ? QString() : line->text();
    }
    /// The second cells of the rows that are marked.
    static QStringList markedIn(const CaseWindow *window, CaseTab tab = CaseTab::Docket);

    frmNameSearchResults *search(const QStringList &rows, const QString &code = {},
                                 const QString &line = RequestLine());
    /// A window of an index search, before its turn; each run of it is to be ended by finish.
    frmNameSearchResults *startIndex();
    void begin(NameResultsWindow *window, const QStringList &lines);
    void finish(const NameResultsWindow *window);
    static QStringList markedRows(const NameResultsWindow *window);

    QTemporaryDir folder;
    int histories = 0;
    bool connected = false;
};

void tst_NewEntries::init()
{
    CaseTest::init();
    connected = false;
    store().Open(folder.filePath(u"history%1.db"_s.arg(++histories)));
    written();
}

void tst_NewEntries::cleanup()
{
    store().Close();
    CaseTest::cleanup();
}

void tst_NewEntries::run(CaseWindow *window)
{
    window->ShownJob()->AnnounceLaunch();
    connectOnce();
    desk->Time.Run(0.02);
    Begin(window);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    written();
}

frmCaseDetails *tst_NewEntries::look(const QStringList &rows, const QString &tab,
                                     const QString &word)
{
    FetchAtOnce(u"CaseSearchTabs"_s, {tab});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(word)).Reply(GridDef(rows));
    frmCaseDetails *window = Superior();
    run(window);
    return window;
}

void tst_NewEntries::closeAfter(int days, FormWindow *window)
{
    window->Unload(UnloadMode::MdiParent);
    desk->Time.Set(desk->Time.Now().addDays(days));
}

QStringList tst_NewEntries::markedIn(const CaseWindow *window, CaseTab tab)
{
    const CaseTabRecord &record = window->Record().Tab(tab);
    QStringList marked;
    for (int row = 0; row < record.Table.Rows.size(); ++row) {
        if (record.New.Rows.contains(row))
            marked.append(record.Table.Rows[row].value(1));
    }
    return marked;
}

void tst_NewEntries::aCaseThatWasNeverLookedAtMarksNothing()
{
    const frmCaseDetails *window = look({first, second});
    QCOMPARE(markedIn(window), QStringList());
    QCOMPARE(lineOf(window), QString());
}

void tst_NewEntries::entriesSinceTheLastLook()
{
    closeAfter(3, look({first}));
    const frmCaseDetails *window = look({first, second, third});
    QCOMPARE(markedIn(window), QStringList({u"ANSWER"_s, u"SUMMONS"_s}));
    QCOMPARE(lineOf(window), u"2 entries since 03/10/2026"_s);
    const FlexGrid *grid = window->Tab(CaseTab::Docket).Grid;
    QVERIFY(grid->model()->index(0, 0).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!grid->model()->index(2, 0).data(Qt::FontRole).value<QFont>().bold());
}

void tst_NewEntries::nothingNewShowsNothing()
{
    closeAfter(1, look({first, second}));
    const frmCaseDetails *window = look({second, first});
    QCOMPARE(markedIn(window), QStringList());
    QCOMPARE(lineOf(window), QString());
}

void tst_NewEntries::theSameLineTwiceCountsTwice()
{
    closeAfter(1, look({first, second}));
    const frmCaseDetails *window = look({first, second, second});
    QCOMPARE(markedIn(window), QStringList(u"SUMMONS"_s));
    QCOMPARE(lineOf(window), u"1 entry since 03/10/2026"_s);
}

void tst_NewEntries::eachLookIsTheNextOnesPast()
{
    closeAfter(1, look({first}));
    closeAfter(1, look({first, second}));
    const frmCaseDetails *window = look({first, second, third});
    QCOMPARE(markedIn(window), QStringList(u"ANSWER"_s));
    QCOMPARE(lineOf(window), u"1 entry since 03/11/2026"_s);
}

void tst_NewEntries::inOneWindowThePastStays()
{
    closeAfter(1, look({first}));
    frmCaseDetails *window = look({first, second});
    auto *job = qobject_cast<CaseJob *>(window->ShownJob());
    Q_EMIT job->TabCame(CaseTab::Docket, true);
    written();
    Q_EMIT job->TabCame(CaseTab::Docket, true);
    QCOMPARE(markedIn(window), QStringList(u"SUMMONS"_s));
}

void tst_NewEntries::aTabThatFailedOnlyAdds()
{
    closeAfter(1, look({first, second}));
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s))
        .Reply({u"GRIDDEF~Date~Entry~20~80~"_s, first, u"ERRORThe court is down"_s, u"EOF~"_s});
    frmCaseDetails *failed = Superior();
    run(failed);
    QVERIFY(failed->Tab(CaseTab::Docket).TabIncomplete);
    closeAfter(1, failed);
    const frmCaseDetails *window = look({first, second, third});
    QCOMPARE(markedIn(window), QStringList(u"ANSWER"_s));
    QCOMPARE(lineOf(window), u"1 entry since 03/10/2026"_s);
}

void tst_NewEntries::aTabThatWasStoppedOnlyAdds()
{
    closeAfter(1, look({first, second}));
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({});
    frmCaseDetails *stopped = Superior();
    const qsizetype before = court->Requests().size();
    desk->When([this, before] { return court->Requests().size() == before + 2; },
               [this, stopped] {
                   stopped->StopRequested = true;
                   court->SendTokens(GridDef({first}));
               });
    run(stopped);
    QCOMPARE(stopped->Record().Tab(CaseTab::Docket).Table.Rows.size(), 1);
    closeAfter(1, stopped);
    const frmCaseDetails *window = look({first, second, third});
    QCOMPARE(markedIn(window), QStringList(u"ANSWER"_s));
}

void tst_NewEntries::aFirstLookThatFailedIsNone()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({u"ERRORThe court is down"_s, u"EOF~"_s});
    frmCaseDetails *failed = Superior();
    run(failed);
    closeAfter(1, failed);
    QCOMPARE(markedIn(look({first, second})), QStringList());
}

void tst_NewEntries::aMessageIsNoRow()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply(endMark);
    frmCaseDetails *empty = Superior();
    run(empty);
    QVERIFY(empty->Record().Tab(CaseTab::Docket).Table.IsMessage());
    closeAfter(1, empty);
    frmCaseDetails *window = look({first});
    QCOMPARE(markedIn(window), QStringList(u"COMPLAINT"_s));
    closeAfter(1, window);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply(endMark);
    frmCaseDetails *emptyAgain = Superior();
    run(emptyAgain);
    QVERIFY(emptyAgain->Record().Tab(CaseTab::Docket).New.IsEmpty());
}

void tst_NewEntries::theStateOfThingsIsNotMarked()
{
    closeAfter(1, look({first}, u"Accounting"_s, u"ACCOUNTING"_s));
    const frmCaseDetails *window = look({first, second}, u"Accounting"_s, u"ACCOUNTING"_s);
    QVERIFY(window->Record().Tab(CaseTab::Accounting).New.IsEmpty());
}

void tst_NewEntries::documentsAndChargesAndJudgments_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("tableForm");
    QTest::newRow("charges") << int(CaseTab::Charges) << SuperiorLine(u"CHARGES"_s) << false;
    QTest::newRow("judgments") << int(CaseTab::Judgments) << SuperiorLine(u"JUDGMENTS"_s) << false;
    QTest::newRow("documents") << int(CaseTab::Documents)
                               << u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s << true;
}

void tst_NewEntries::documentsAndChargesAndJudgments()
{
    QFETCH(const int, tab);
    QFETCH(const QString, line);
    QFETCH(const bool, tableForm);
    const auto ofTab = static_cast<CaseTab>(tab);
    const auto lookAt = [&](const QStringList &rows) {
        FetchAtOnce(u"CaseSearchTabs"_s, {CaseTabRowOf(ofTab).caption.toString()});
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
        court->Expect(line).Reply(tableForm ? TableForm(rows) : GridDef(rows));
        frmCaseDetails *window = Superior();
        run(window);
        return window;
    };
    closeAfter(1, lookAt({first}));
    const frmCaseDetails *window = lookAt({first, second});
    QCOMPARE(markedIn(window, ofTab), QStringList(u"SUMMONS"_s));
    QCOMPARE(lineOf(window, ofTab), u"1 entry since 03/10/2026"_s);
}

/// One that was typed, and has its line from elsewhere than a row.
void tst_NewEntries::aBankruptcyCaseIsKnownByItsRequest()
{
    court->Expect(u"BKRPT~CASE~1~"_s).Reply(endMark);
    frmCaseDetails *window = Bankruptcy(u"BKRPT~CASE~1~"_s);
    run(window);
    QCOMPARE(CaseIdentity(window->Record()), u"WAWBK|BKRPT~CASE~1~"_s);
    QVERIFY(store().LastOpened(CaseIdentity(window->Record())));
}

void tst_NewEntries::withoutAHistoryNothingIsMarked()
{
    closeAfter(1, look({first}));
    store().Close();
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + endMark);
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply(GridDef({first, second}));
    frmCaseDetails *window = Superior();
    window->ShownJob()->AnnounceLaunch();
    desk->Time.Run(0.02);
    Begin(window);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    QCOMPARE(markedIn(window), QStringList());
}

frmNameSearchResults *tst_NewEntries::search(const QStringList &rows, const QString &code,
                                             const QString &line)
{
    court->Expect(code.isEmpty() ? line : EmbedClientCode(line, code)).Reply(rows + endMark);
    auto *window = new frmNameSearchResults(u"WA"_s);
    window->ClientAcctgCode = code;
    begin(window, {line});
    if (!desk->Finish(window))
        qFatal("the search does not end");
    written();
    return window;
}

QStringList tst_NewEntries::markedRows(const NameResultsWindow *window)
{
    const RowTable &rows = window->Search().Record.Rows;
    QStringList marked;
    for (int row = 0; row < rows.Count(); ++row) {
        if (rows.IsNew(row))
            marked.append(rows.Cell(row, 0));
    }
    return marked;
}

void tst_NewEntries::rowsSinceTheLastSearch()
{
    closeAfter(2, search({ResultLine(u"SMITH"_s)}));
    const frmNameSearchResults *window =
        search({ResultLine(u"SMITH"_s), ResultLine(u"SMITHSON"_s, u"02-2-02030-2"_s)});
    QCOMPARE(markedRows(window), QStringList(u"SMITHSON"_s));
    QCOMPARE(window->findChild<QLabel *>(u"lblNew"_s)->text(),
             u"1 row is new since your last such search on 03/10/2026"_s);
}

void tst_NewEntries::anotherClientCodeIsTheSameSearch()
{
    closeAfter(2, search({ResultLine(u"SMITH"_s)}, u"ACME"_s));
    const frmNameSearchResults *window =
        search({ResultLine(u"SMITH"_s), ResultLine(u"SMITHSON"_s, u"02-2-02030-2"_s)}, u"OTHER"_s);
    QCOMPARE(markedRows(window), QStringList(u"SMITHSON"_s));
}

void tst_NewEntries::anotherSearchMarksNothing()
{
    closeAfter(2, search({ResultLine(u"SMITH"_s)}));
    const frmNameSearchResults *window =
        search({ResultLine(u"JONES"_s)}, {}, RequestLine(u"Jones"_s));
    QCOMPARE(markedRows(window), QStringList());
}

void tst_NewEntries::aSearchThatWasStoppedIsNotRemembered()
{
    court->Expect(RequestLine()).Reply({});
    auto *stopped = new frmNameSearchResults(u"WA"_s);
    desk->When([this] { return court->Requests().size() == 1; },
               [this, stopped] {
                   stopped->StopRequested = true;
                   court->SendTokens({ResultLine(u"SMITH"_s), u"EOF~"_s});
               });
    begin(stopped, {RequestLine()});
    QVERIFY(desk->Finish(stopped));
    closeAfter(1, stopped);
    const frmNameSearchResults *window =
        search({ResultLine(u"SMITH"_s), ResultLine(u"SMITHSON"_s, u"02-2-02030-2"_s)});
    QCOMPARE(markedRows(window), QStringList());
}

frmNameSearchResults *tst_NewEntries::startIndex()
{
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    begin(window, {IndexLine(1, 1)});
    return window;
}

void tst_NewEntries::begin(NameResultsWindow *window, const QStringList &lines)
{
    connectOnce();
    desk->Enqueue(window, lines);
    window->ShownJob()->AnnounceLaunch();
    window->Timer1->start(1);
}

void tst_NewEntries::finish(const NameResultsWindow *window)
{
    QVERIFY(desk->Finish(window));
    written();
}

void tst_NewEntries::thePagesOfAnIndexAreOneSearch()
{
    // The request of the last page is another when there is more to come.
    Global.intMaxIndexResults = 5;
    const auto lookAt = [this](const QStringList &lastPage) {
        const auto left = static_cast<int>(lastPage.size());
        court->Expect(IndexLine(1, 1)).Reply({IndexRow(u"A"_s), LimitRow(1, left)});
        court->Expect(IndexLine(2, 1 + left)).Reply(lastPage + endMark);
        frmNameSearchResults *window = startIndex();
        finish(window);
        window->Search().Timer1->setInterval(1);
        ButtonOf(window, "cmdSearchResults_4")->click();
        finish(window);
        return window;
    };
    frmNameSearchResults *first = lookAt({IndexRow(u"B"_s)});
    QCOMPARE(first->RowCount(), 2);
    closeAfter(1, first);
    const frmNameSearchResults *window = lookAt({IndexRow(u"B"_s), IndexRow(u"C"_s)});
    QCOMPARE(markedRows(window), QStringList(u"C"_s));
}

void tst_NewEntries::anIndexThatLostRowsIsNotRemembered()
{
    court->Expect(IndexLine(1, 1))
        .Reply({IndexRow(u"A"_s), u"ERROR~A county is down~"_s, u"EOF~"_s});
    frmNameSearchResults *broken = startIndex();
    finish(broken);
    closeAfter(1, broken);
    court->Expect(IndexLine(1, 1)).Reply({IndexRow(u"A"_s), IndexRow(u"B"_s), u"EOF~"_s});
    const frmNameSearchResults *window = startIndex();
    finish(window);
    QCOMPARE(window->RowCount(), 2);
    QCOMPARE(markedRows(window), QStringList());
}

void tst_NewEntries::anOpenedRowIsTheSame()
{
    closeAfter(1, search({ResultLine(u"SMITH"_s)}));
    QCOMPARE(markedRows(search({ResultLine(u"SMITH"_s, u"*02-2-02029-9"_s)})), QStringList());
}

void tst_NewEntries::aStatusThatChangesIsNotNew()
{
    const QString line = u"DISCIS¦a line¦"_s;
    const auto lookAt = [&](const QString &status, const QString &number) {
        court->Expect(line).Reply(
            {u"DOE, J~"_s + number + u"~SPD~SEA~IN~"_s + status + u"~DEF~01/02/2003~"_s,
             u"EOF~"_s});
        auto *window = new frmDiscisNCNameResults(DiscisDndSearch::No);
        begin(window, {line});
        if (!desk->Finish(window))
            qFatal("the search does not end");
        written();
        return window;
    };
    closeAfter(1, lookAt(u"ACT"_s, u"CR0012345"_s));
    frmDiscisNCNameResults *closed = lookAt(u"CLD"_s, u"CR0012345"_s);
    QCOMPARE(closed->RowCount(), 1);
    QCOMPARE(markedRows(closed), QStringList());
    closeAfter(1, closed);
    QCOMPARE(markedRows(lookAt(u"CLD"_s, u"CR0099999"_s)), QStringList(u"DOE, J"_s));
}

void tst_NewEntries::theToolTipSaysWhenACaseWasOpened()
{
    closeAfter(1, look({first}));
    const QString number = u"02-1-00123-4"_s;
    const frmNameSearchResults *window =
        search({ResultLine(u"SMITH"_s, number), ResultLine(u"JONES"_s)});
    const ResultListView *list = ListOf(window);
    const QPoint place = list->visualRect(list->model()->index(0, 2)).center();
    QHelpEvent event(QEvent::ToolTip, place, list->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list->viewport(), &event);
    QVERIFY2(QToolTip::text().contains(u"Opened before, last on "_s), qPrintable(QToolTip::text()));
    QVERIFY2(QToolTip::text().contains(u"2026"_s), qPrintable(QToolTip::text()));
    QCOMPARE(ListOf(window)->NoteOf(1), QString());
}

void tst_NewEntries::rowsThatComeAreNotLookedUp()
{
    closeAfter(1, look({first}));
    int asked = 0;
    UseCaseMemory([&asked](const QString &) -> std::optional<QDateTime> {
        ++asked;
        return std::nullopt;
    });
    const frmNameSearchResults *window = search({ResultLine(u"SMITH"_s), ResultLine(u"JONES"_s)});
    QCOMPARE(asked, 0);
    QVERIFY(ListOf(window)->NoteOf(0).isEmpty());
    QCOMPARE(asked, 1);
    UseCaseMemory({});
}

/// The user sorts while rows still come: the marks are on the rows that are new.
void tst_NewEntries::rowsThatWereSortedOnTheWay()
{
    closeAfter(2, search({ResultLine(u"SMITH, A"_s), ResultLine(u"SMITH, C"_s)}));
    court->Expect(RequestLine()).Reply({});
    auto *window = new frmNameSearchResults(u"WA"_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [this] {
                   court->SendTokens({ResultLine(u"SMITH, C"_s), ResultLine(u"SMITH, D"_s),
                                      ResultLine(u"SMITH, A"_s)});
               });
    desk->When([window] { return window->RowCount() == 3; },
               [this, window] {
                   ClickHeader(ListOf(window), 0);
                   court->SendTokens({ResultLine(u"SMITH, B"_s), u"EOF~"_s});
               });
    begin(window, {RequestLine()});
    QVERIFY(desk->Finish(window));
    const RowTable &rows = window->Search().Record.Rows;
    QCOMPARE(rows.Cell(0, 0), u"SMITH, D"_s);
    QCOMPARE(markedRows(window), QStringList({u"SMITH, D"_s, u"SMITH, B"_s}));
}

/// A notice in the place of the rows goes when rows come after all: it was none.
void tst_NewEntries::rowsInThePlaceOfANotice()
{
    closeAfter(2, search({ResultLine(u"SMITH, A"_s)}));
    frmNameSearchResults *window = search({ResultLine(u"SMITH, B"_s)});
    RowTable &rows = window->Search().Record.Rows;
    rows.Clear();
    rows.AddRow({u"SMITH, A"_s, u"x"_s});
    rows.AddRow(ParseResultRow(ResultLine(u"SMITH, A"_s), ResultKind::Superior).Cells);
    Q_EMIT window->Search().RunEnded(false);
    QCOMPARE(rows.NewCount(), 1);
    QVERIFY(rows.IsNew(0) && !rows.IsNew(1));
}

/// It happens between two events: nothing is looked through that has come before.
void tst_NewEntries::manyRowsAreComparedWithoutTheirTexts()
{
    const frmNameSearchResults *window = search({ResultLine(u"SMITH"_s)});
    RowTable &rows = window->Search().Record.Rows;
    constexpr int many = 20'000;
    for (int row = 0; row < many; ++row)
        rows.AddRow({u"SMITH, JOHN QUINCY"_s, u"02-2-%1-1"_s.arg(row), u"01/02/2003"_s,
                     u"TORT - MOTOR VEHICLE"_s, u"WA Superior Ct King County"_s, u"Defendant"_s});
    const auto best = [](const std::function<void()> &work) {
        constexpr int rounds = 5;
        qint64 least = std::numeric_limits<qint64>::max();
        for (int round = 0; round < rounds; ++round) {
            QElapsedTimer clock;
            clock.start();
            work();
            least = std::min(least, clock.nsecsElapsed());
        }
        return least;
    };
    QStringList cells;
    const qint64 texts = best([&] {
        for (int row = 0; row < rows.Count(); ++row)
            cells = rows.Cells(row);
    });
    const qint64 compared = best([&] { Q_EMIT window->Search().RunEnded(true); });
    QVERIFY2(10 * compared < texts, qPrintable(u"%1 ns, texts %2 ns"_s.arg(compared).arg(texts)));
}

HALVANE_TEST(tst_NewEntries)
#include "tst_NewEntries.moc"
