// Stop in the middle of a flood, at very many moments of it: the window says so at once, the court
// is told, the run is over with the end mark, and the next job is right.

#include "casedetails/frmCaseDetails.h"
#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Exchange.h"
#include "link/Router.h"
#include "namesearch/NameResultsWindow.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/FloodRows.h"
#include "sweeps/FloodTest.h"

#include <QAction>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int rowsInAll = 10'000;
/// What a court has under way when it is told: in the program's buffers, and in two machines'.
constexpr qint64 mostUnderWay = 8'000'000;
/// So much comes behind the request to stop.
constexpr int piecesBehindStop = 3;

int momentsOf(Extent extent)
{
    return extent == Extent::Short ? 12 : extent == Extent::Ci ? 60 : 400;
}

QByteArray lineOf(qint64 number)
{
    return "|01/02/2003~COMPLAINT " + QByteArray::number(number) + "~|";
}

Flood docketOf(int lines)
{
    const auto piece = [](qint64 number) {
        QByteArray bytes = number == 0 ? QByteArray("|GRIDDEF~Date~Text~20~80~|") : QByteArray();
        for (qint64 line = number * rowsOfPiece; line < (number + 1) * rowsOfPiece; ++line)
            bytes += lineOf(line);
        return bytes;
    };
    return {.Pieces = lines / rowsOfPiece, .Piece = piece};
}
} // namespace

class tst_FloodStops : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void aSearch_data();
    void aSearch();
    void aCase_data() { moments(); }
    void aCase();
    void aLogout_data() { moments(); }
    void aLogout();
    void aCourtThatIgnoresStop_data();
    void aCourtThatIgnoresStop();

private:
    static void moments();
    /// The moment of this data row: so many bytes have been sent.
    static qint64 moment(qint64 inAll);
    /// Does this in the first yield in which that holds. A timer's tick could come too late for it.
    static void inYield(const std::function<bool()> &ready, const std::function<void()> &act);
    /// Waits until the court, which has a thread of its own, has heard this, and no more than that
    /// behind so many requests.
    void waitForStop(const QByteArray &stop, qsizetype requests);
    void checkStop(qint64 sentAtClick);
};

void tst_FloodStops::moments()
{
    QTest::addColumn<int>("moment");
    for (int i = 0; i < momentsOf(SweepExtent()); ++i)
        QTest::addRow("moment %d", i) << i;
}

qint64 tst_FloodStops::moment(qint64 inAll)
{
    QFETCH(int, moment);
    return inAll * moment / momentsOf(SweepExtent());
}

void tst_FloodStops::inYield(const std::function<bool()> &ready, const std::function<void()> &act)
{
    WatchYields([ready, act] {
        if (!ready())
            return;
        // A copy of its own: what happens yields, and this function is gone by then.
        const std::function<void()> now = act;
        WatchYields({});
        now();
    });
}

void tst_FloodStops::waitForStop(const QByteArray &stop, qsizetype requests)
{
    QVERIFY(WaitUntil([&] { return flood->Requests().contains(stop); }));
    QCOMPARE(flood->Requests().last(), stop);
    QCOMPARE(flood->Requests().size(), requests);
}

void tst_FloodStops::checkStop(qint64 sentAtClick)
{
    QVERIFY2(flood->BytesAtStop() - sentAtClick <= mostUnderWay,
             qPrintable(QString::number(flood->BytesAtStop() - sentAtClick)));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_FloodStops::aSearch_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<int>("moment");
    for (int i = 0; i < momentsOf(SweepExtent()); ++i) {
        const auto list = static_cast<size_t>(i) % floodLists.size();
        QTest::addRow("%s, moment %d", floodLists.at(list).Name, i) << static_cast<int>(list) << i;
    }
}

void tst_FloodStops::aSearch()
{
    QFETCH(int, list);
    const FloodList &one = floodLists.at(static_cast<size_t>(list));
    Connect();
    Flood rows = RowsOf(one, rowsInAll);
    rows.PiecesBehindStop = piecesBehindStop;
    flood->Answer(rows);
    NameResultsWindow *window = WindowOf(one);
    const QPushButton *stop = ButtonOf(window, "cmdStopSearching");
    const int wanted = static_cast<int>(moment(rowsInAll));
    qint64 sentAtClick = 0;
    int rowsAtClick = 0;
    unsigned long long yields = 0;
    inYield([&] { return window->RowCount() >= wanted && Job::WithTurn(); },
            [&] {
                sentAtClick = flood->BytesSent();
                rowsAtClick = window->RowCount();
                Click(window, "cmdStopSearching");
                yields = YieldCount();
            });
    Run(window);
    QVERIFY(!stop->isEnabled());
    waitForStop(one.Which == FloodList::Bankruptcy ? QByteArray("|BKRPT~STOP~|")
                                                   : QByteArray("|STOP\xA6|"),
                2);
    // The page of an index ends as if all had come.
    const QString ends = one.Which == FloodList::Index
                             ? u"Search Complete: %1 Cases Retrieved."_s
                             : u"Search Stopped By User: %1 Cases Retrieved."_s;
    QCOMPARE(TextOf(window, "lblStatus"), ends.arg(window->RowCount()));
    QVERIFY(window->RowCount() >= rowsAtClick);
    // A turn or two for each row that was under way, and a few for the end.
    const auto behind = static_cast<unsigned long long>(window->RowCount() - rowsAtClick);
    QVERIFY2(YieldCount() - yields <= 8 * behind + 1'000,
             qPrintable(QString::number(YieldCount() - yields)));
    checkStop(sentAtClick);
    Close(window);
    SearchOnce();
}

void tst_FloodStops::aCase()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s, u"Names"_s});
    Connect();
    flood->Answer(ScriptedCourt::Tokens(SuperiorSummary() + QStringList{u"EOF~"_s}));
    Flood docket = docketOf(rowsInAll);
    docket.PiecesBehindStop = piecesBehindStop;
    flood->Answer(docket);
    CaseWindow *window = Superior();
    const int wanted = static_cast<int>(moment(rowsInAll));
    qint64 sentAtClick = 0;
    inYield(
        [&] {
            return window->lboxResponses.ListCount() >= std::max(wanted, 1)
                   && window->lboxResponses.List(0).startsWith(u"GRIDDEF"_s);
        },
        [&] {
            sentAtClick = flood->BytesSent();
            Click(window, "cmdStopSearching");
        });
    Run(window);
    waitForStop(QByteArray("|\xA6STOP|"), 3);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    checkStop(sentAtClick);
    Close(window);
    SearchOnce();
}

/// All jobs are to end: the court is told nothing, and goes on. The window that has its turn reads
/// until the link is closed.
void tst_FloodStops::aLogout()
{
    Connect();
    flood->Answer(RowsOf(floodLists.front(), rowsInAll));
    NameResultsWindow *window = WindowOf(floodLists.front());
    const int wanted = static_cast<int>(moment(rowsInAll));
    inYield([&] { return window->RowCount() >= wanted && Job::WithTurn(); },
            [] {
                Global.bStopRequested = true;
                CloseServerLink();
            });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    Close(window);
    Global.bStopRequested = false;
    SearchOnce(true);
}

void tst_FloodStops::aCourtThatIgnoresStop_data()
{
    QTest::addColumn<bool>("ofCase");
    QTest::addColumn<QByteArray>("menu");
    for (const bool ofCase : {false, true}) {
        const char *job = ofCase ? "case" : "search";
        QTest::addRow("%s, disconnect", job) << ofCase << QByteArray("mnuConnectionDisConnect");
        QTest::addRow("%s, exit", job) << ofCase << QByteArray("mnuFileExit");
    }
}

/// It goes on and on. Its window can be closed all the same, and who disconnects or exits is rid of
/// the court.
void tst_FloodStops::aCourtThatIgnoresStop()
{
    constexpr int rowsWithoutEnd = 1'000'000'000;
    constexpr qint64 goesOn = 300'000;
    QFETCH(bool, ofCase);
    QFETCH(QByteArray, menu);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    auto *main = new frmMain;
    main->TimerExit->setInterval(1);
    Global.bShowAlerts = false;
    bool ended = false;
    ReplaceEndProgram([&ended](int) { ended = true; });
    Connect();
    main->SetTxtConnectStatus(u"Connected"_s);
    QVERIFY(Child<QAction>(main, menu)->isEnabled());
    if (ofCase)
        flood->Answer(ScriptedCourt::Tokens(SuperiorSummary() + QStringList{u"EOF~"_s}));
    Flood endless = ofCase ? docketOf(rowsWithoutEnd) : RowsOf(floodLists.front(), rowsWithoutEnd);
    endless.PiecesBehindStop = -1;
    flood->Answer(endless);
    JobWindow *window =
        ofCase ? static_cast<JobWindow *>(Superior()) : WindowOf(floodLists.front());
    const QPointer<JobWindow> open(window);
    const qsizetype requests = ofCase ? 3 : 2;
    const auto leave = [&] {
        open->close();
        QVERIFY(!open || open->IsUnloaded());
        QVERIFY(Job::WithTurn());
        Child<QAction>(main, menu)->trigger();
    };
    inYield([&] { return flood->BytesSent() > goesOn; },
            [&] {
                Click(open, "cmdStopSearching");
                const qint64 sent = flood->BytesSent();
                inYield(
                    [this, sent, requests] {
                        return flood->Requests().size() == requests
                               && flood->BytesSent() > sent + goesOn;
                    },
                    leave);
            });
    desk->Time.Run(0.02);
    Begin(window);
    QVERIFY(WaitUntil([&] { return flood->Requests().size() == requests && !Job::WithTurn(); }));
    desk->Time.Stop();
    QVERIFY(WaitUntil([] { return !Global.bLoggedIn && !IsLinkUp(); }));
    QCOMPARE(ended, menu == "mnuFileExit");
    ReplaceEndProgram({});
    delete main;
    Global.bStopRequested = false;
    SearchAtNewCourt();
}

HALVANE_TEST(tst_FloodStops)
#include "tst_FloodStops.moc"
