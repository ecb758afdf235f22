// The ways in which the run of a case ends.

#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "jobs/frmQueue.h"
#include "link/Comm.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

namespace {
const QString otherKey = u"11111111111111111111"_s;

/// What brings a run to each of its ends.
enum class Way {
    Complete,
    TabFails,
    InvalidNumber,
    StopButton,
    AllJobsStop,
    Closing,
    SummaryFails,
    NotConnected,
    TabBreaksDown,
    NothingThere,
    SilentSummary
};
const QString stopExit =
    u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in Case Details."_s;
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString errorExit = u"SEARCH ERROR EXIT - from ProcessSearchReqeusts."_s;
const QString invalidExit = u"NORMAL EXIT - INVALID CASE NUMBER in ProcessSearchReqeusts."_s;
const QString closeExit =
    u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s;
const QString nowhereExit = u"NORMAL EXIT - CASE NOT LOCATED in ProcessSearchReqeusts."_s;
const QStringList allExits{stopExit, normalExit, errorExit, invalidExit, closeExit, nowhereExit};

/// What is seen of a run at its end.
struct Ending
{
    QString Logged; ///< the one line of an exit, "" for none
    QString Status;
    QString Colour;
    QString Warning; ///< "" is hidden too
    bool Print;      ///< cmdPrintDetails
    bool Stop;       ///< cmdStopSearching
    bool KeyLeft;
    bool Flashes; ///< TmrFlash was started
    bool Stopped; ///< SearchStopped
    bool Prints;  ///< chkAutoPrint was heard
};

QByteArray asText(const Ending &ending)
{
    const auto flag = [](const char *name, bool value) {
        return value ? QByteArray(", ") + name : QByteArray();
    };
    return ending.Logged.toUtf8() + " / " + ending.Status.toUtf8() + " / " + ending.Colour.toUtf8()
           + " / " + ending.Warning.toUtf8() + flag("print", ending.Print)
           + flag("stop", ending.Stop) + flag("key left", ending.KeyLeft)
           + flag("flashes", ending.Flashes) + flag("stopped", ending.Stopped)
           + flag("prints", ending.Prints);
}
} // namespace

Q_DECLARE_METATYPE(Way)
Q_DECLARE_METATYPE(Ending)

class tst_CaseEnds : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void aClosedCaseDoesNotPrint();
    void printingFromTheMainWindow();
    void everyEnd_data();
    void everyEnd();
    void aWindowThatClosesSaysSo();
    void theInvalidNumberStandsAlone();
    void theTimerOfTheFlashStopsAtItsFirstTick();
    void aRunThatBrokeDownKeepsItsTurnUntilItCloses();
    void aRunThatBrokeDownAsksNothingMore();
    void aRunTimeErrorBetweenTheTabsEndsTheRun();
    void theTurnOfAnotherIsNotGivenAway();

private:
    /// A case with a Docket behind its summary, and what makes it end so.
    void prepare(Way way, frmCaseDetails *window);
    static Ending endingOf(const frmCaseDetails *window, const QStringList &log);
    /// Until the run has left the stack, however it ended.
    void runToItsEnd(frmCaseDetails *window);
};

void tst_CaseEnds::prepare(Way way, frmCaseDetails *window)
{
    const QStringList summary = SuperiorSummary() + QStringList{u"EOF~"_s};
    const auto docket = [&](const QStringList &reply) {
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(summary);
        court->Expect(SuperiorLine(u"DOCKET"_s)).Reply(reply);
    };
    const auto during = [&](const std::function<void()> &act) {
        docket({});
        desk->When([this] { return court->Requests().size() == 2; },
                   [this, act] {
                       act();
                       court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
                   });
    };
    switch (way) {
    case Way::Complete:
        docket(GridDef({u"01/02/2003~A~"_s}));
        return;
    case Way::TabFails:
        docket({u"ERROR~no luck~"_s, u"EOF~"_s});
        return;
    case Way::InvalidNumber:
        court->Expect(SuperiorLine(u"SUMMARY"_s))
            .Reply({u"ERROR~02-1-00123-4 is not a valid case number~"_s, u"EOF~"_s});
        return;
    case Way::StopButton:
        during([window] { window->StopRequested = true; });
        return;
    case Way::AllJobsStop:
        during([] { Global.bStopRequested = true; });
        return;
    case Way::Closing:
        during([window] { window->CloseRequested = true; });
        return;
    case Way::SummaryFails:
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({u"ERROR~unknown error~"_s, u"EOF~"_s});
        return;
    case Way::NotConnected:
        return;
    case Way::TabBreaksDown:
        docket({u"GRIDDEF~Date~Entry~wide~80~"_s, u"01/02/2003~A~"_s, u"EOF~"_s});
        return;
    case Way::NothingThere:
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({u"EOF~"_s});
        return;
    case Way::SilentSummary:
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
        desk->When(
            [this] { return desk->Folder.Logged(u"SendReq: "_s + SuperiorLine(u"SUMMARY"_s)); },
            [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
        return;
    }
}

Ending tst_CaseEnds::endingOf(const frmCaseDetails *window, const QStringList &log)
{
    Ending ending{};
    for (const QString &line : log) {
        if (allExits.contains(line))
            ending.Logged += line;
    }
    const auto *warning = window->findChild<QWidget *>(u"lblWarning"_s);
    ending.Status = TextOf(window, "lblStatus");
    ending.Colour = ColourOf(window, "lblStatus");
    ending.Warning = warning->isVisible() ? TextOf(window, "lblWarning") : QString();
    ending.Print = ButtonOf(window, "cmdPrintDetails")->isEnabled();
    ending.Stop = ButtonOf(window, "cmdStopSearching")->isEnabled();
    ending.KeyLeft = frmQueue::Form().FIFO.Lines().contains(window->txtMasterKey);
    ending.Flashes = window->TmrFlash->isActive();
    ending.Stopped = window->SearchStopped;
    ending.Prints = !window->chkAutoPrint;
    return ending;
}

void tst_CaseEnds::runToItsEnd(frmCaseDetails *window)
{
    bool began = false;
    connect(window->Timer1, &QTimer::timeout, window, [&began] { began = true; });
    // The pauses between the tabs; no reply may seem late by it.
    desk->Time.Run(0.02);
    Begin(window);
    QTRY_VERIFY_WITH_TIMEOUT(began && !Global.bSearchInProgress, 20'000);
    desk->Time.Stop();
}

void tst_CaseEnds::printingFromTheMainWindow()
{
    FormWindow *child = Superior();
    QStringList captions;
    for (int i = 0; i < 2; ++i) {
        desk->Boxes.ExpectDialog(u"dlgPrintMgr"_s, [&captions](QDialog *dialog) {
            captions.append(dialog->windowTitle());
            dialog->reject();
        });
    }
    child->PrintDirect();
    child->PrintToFile(desk->Folder.Path(u"case.txt"_s));
    QCOMPARE(captions, (QStringList{u"Halvane - Print Report"_s, u"Save Report To File"_s}));
}

void tst_CaseEnds::everyEnd_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<Ending>("ending");
    const auto row = [](const char *name, Way way, const Ending &ending) {
        QTest::newRow(name) << way << ending;
    };
    const QString notAll = u"Warning: Some results may NOT have been retrieved .."_s;
    // print, stop, key left, flashes, stopped, prints
    row("normal", Way::Complete,
        {normalExit, u"Search Complete"_s, u"blue"_s, {}, true, false, false, true, false, true});
    row("normal, a tab is incomplete", Way::TabFails,
        {normalExit, u"Search Incomplete!"_s, u"red"_s,
         u"Docket Information Incomplete! Click Tab to Retry."_s, true, false, false, true, false,
         true});
    row("normal, the summary timed out", Way::SilentSummary,
        {normalExit, u"Search Incomplete!"_s, u"red"_s,
         u"Summary Information Incomplete! Please Retry Search."_s, true, false, false, true, false,
         true});
    row("invalid case", Way::InvalidNumber,
        {invalidExit,
         u"Search Complete - Case Number Invalid"_s,
         u"blue"_s,
         {},
         true,
         false,
         false,
         false,
         false,
         true});
    row("stopped by the button", Way::StopButton,
        {stopExit, u"Search Stopped by User .."_s, u"red"_s, notAll, true, false, false, false,
         true, false});
    row("stopped with all jobs", Way::AllJobsStop,
        {stopExit, u"Search Stopped by User .."_s, u"red"_s, notAll, true, false, false, false,
         true, false});
    row("error, the case is invalid", Way::SummaryFails,
        {errorExit, u"Search Warnings - See Summary"_s, u"red"_s,
         u"Summary Information Incomplete! Please Retry Search."_s, true, false, false, true, false,
         false});
    row("error, the summary broke down", Way::NotConnected,
        {errorExit,
         u"Retrieving Summary .."_s,
         u"blue"_s,
         {},
         true,
         false,
         false,
         true,
         false,
         false});
    row("a tab broke down", Way::TabBreaksDown,
        {{}, u"Retrieving Docket .."_s, u"blue"_s, {}, false, true, true, false, false, false});
    row("not located", Way::NothingThere,
        {nowhereExit,
         u"Search Stopped. Case Not Located."_s,
         u"blue"_s,
         {},
         true,
         false,
         false,
         true,
         false,
         true});
}

void tst_CaseEnds::aClosedCaseDoesNotPrint()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    const QPointer<frmCaseDetails> window = Superior();
    window->chkAutoPrint = true;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   window->Unload(UnloadMode::MdiParent);
                   court->SendTokens(SuperiorSummary() + QStringList{u"EOF~"_s});
               });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    // In a loop as the program's own, which deletes nothing before what was posted earlier.
    QEventLoop loop;
    connect(window, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
    desk->Time.Stop();
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseEnds::everyEnd()
{
    QFETCH(Way, way);
    QFETCH(Ending, ending);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    frmCaseDetails *window = Superior();
    window->chkAutoPrint = true;
    frmQueue::Form().FIFO.AddItem(otherKey);
    prepare(way, window);
    if (way != Way::NotConnected)
        desk->ConnectTo(*court);
    runToItsEnd(window);
    if (ending.Prints)
        QTRY_COMPARE(window->lboxReportsToPrint.ListCount(), 1);
    QCOMPARE(asText(endingOf(window, desk->Folder.Log())), asText(ending));
    QVERIFY(frmQueue::Form().FIFO.Lines().contains(otherKey));
    QCOMPARE(window->tmrBlink->isActive(), way == Way::TabBreaksDown);
    QVERIFY(!window->Timer1->isActive());
    if (ending.Flashes)
        QCOMPARE(window->TmrFlash->interval(), 500);
}

void tst_CaseEnds::aWindowThatClosesSaysSo()
{
    Global.bShowAlerts = true;
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    const QPointer<frmCaseDetails> window(Superior());
    frmQueue::Form().FIFO.AddItem(otherKey);
    prepare(Way::Closing, window);
    desk->ConnectTo(*court);
    QByteArray seen;
    connect(window, &FormWindow::Unloaded, this, [&] {
        seen = TextOf(window, "lblStatus").toUtf8() + '/' + ColourOf(window, "lblStatus").toUtf8()
               + '/' + TextOf(window, "lblWarning").toUtf8() + '/'
               + ColourOf(window, "lblWarning").toUtf8()
               + (window->tmrBlink->isActive() ? "/blinks" : "")
               + (Global.bSearchInProgress ? "/in progress" : "");
    });
    runToItsEnd(window);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(seen, QByteArray("Search Stopped - Form Closing ../red/Closing Form ../red"));
    QVERIFY(desk->Folder.Logged(closeExit));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseEnds::theInvalidNumberStandsAlone()
{
    frmCaseDetails *window = Superior();
    prepare(Way::InvalidNumber, window);
    Run(window);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(CellsOf(window, CaseTab::Summary),
             QList<QStringList>{{u"~02-1-00123-4 is not a valid case number~"_s}});
    const QTableView *grid = window->Tab(CaseTab::Summary).Grid;
    const QModelIndex cell = grid->model()->index(0, 0);
    QCOMPARE(cell.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignTop));
}

void tst_CaseEnds::theTimerOfTheFlashStopsAtItsFirstTick()
{
    frmCaseDetails *window = Superior();
    prepare(Way::NothingThere, window);
    int ticks = 0;
    connect(window->TmrFlash, &QTimer::timeout, this, [&ticks] { ++ticks; });
    Run(window);
    QVERIFY(window->TmrFlash->isActive());
    window->TmrFlash->setInterval(1);
    QTRY_COMPARE(ticks, 1);
    QVERIFY(!window->TmrFlash->isActive());
    Ticks(10);
    QCOMPARE(ticks, 1);
}

void tst_CaseEnds::aRunThatBrokeDownKeepsItsTurnUntilItCloses()
{
    Global.bShowAlerts = false;
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    frmCaseDetails *first = Superior();
    prepare(Way::TabBreaksDown, first);
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"03-2-00456-7"_s)).Reply({u"EOF~"_s});
    frmCaseDetails *second = Superior(u"03-2-00456-7"_s);
    desk->ConnectTo(*court);
    runToItsEnd(first);
    QCOMPARE(desk->Folder.Log()
                 .filter(u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: "_s)
                 .size(),
             1);
    QVERIFY(!Global.bSearchInProgress);
    int ticks = 0;
    connect(second->Timer1, &QTimer::timeout, this, [&ticks] { ++ticks; });
    Begin(second);
    QTRY_VERIFY(ticks >= 3);
    QCOMPARE(TextOf(second, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.List(0), first->txtMasterKey);
    first->close();
    QVERIFY(Finished(second));
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Stopped. Case Not Located."_s);
}

void tst_CaseEnds::aRunThatBrokeDownAsksNothingMore()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s, u"Judgments"_s, u"Documents"_s});
    frmCaseDetails *window = Superior();
    prepare(Way::TabBreaksDown, window);
    desk->ConnectTo(*court);
    runToItsEnd(window);
    QCOMPARE(court->Requests().size(), 2);
    QVERIFY(!window->Tab(CaseTab::Judgments).TabNotRetrieved);
    QVERIFY(!window->Tab(CaseTab::Judgments).TabDone);
    QVERIFY(!window->Tab(CaseTab::Docket).TabIncomplete);
}

/// Outside the exchange of a tab, which traps its own.
void tst_CaseEnds::aRunTimeErrorBetweenTheTabsEndsTheRun()
{
    Global.bShowAlerts = false;
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    const QPointer<frmCaseDetails> window = Superior();
    window->chkAutoPrint = true;
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->ConnectTo(*court);
    // The first yield behind the Summary is in the pause before the next tab.
    bool failed = false;
    WatchYields([window, &failed] {
        if (failed || !window->Tab(CaseTab::Summary).TabDone)
            return;
        failed = true;
        throw RunTimeError::SubscriptOutOfRange();
    });
    const auto unwatched = qScopeGuard([] { WatchYields({}); });
    runToItsEnd(window);
    QVERIFY(failed);
    const QStringList log = desk->Folder.Log();
    QCOMPARE(log.last(),
             u"Exiting ProcessSearchRequests via PROCERR in Case Details. Error: Subscript out of "
             "range"_s);
    for (const QString &exit : allExits)
        QVERIFY2(!log.contains(exit), qPrintable(exit));
    // Nothing more is asked, said or printed; the link is free, and the place kept until it closes.
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(TextOf(window, "lblStatus"), u"Summary Complete .."_s);
    QVERIFY(window->chkAutoPrint);
    QVERIFY(!window->Tab(CaseTab::Docket).TabDone && !window->Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{window->txtMasterKey, otherKey}));
    QVERIFY(window->close());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QTRY_VERIFY(window.isNull());
}

void tst_CaseEnds::theTurnOfAnotherIsNotGivenAway()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({});
    frmCaseDetails *window = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    // The key has gone already when the run ends.
    desk->When([this] { return court->Requests().size() == 2; },
               [this] {
                   frmQueue::Form().FIFO.RemoveItem(0);
                   court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
               });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
}

HALVANE_TEST(tst_CaseEnds)
#include "tst_CaseEnds.moc"
