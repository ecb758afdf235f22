// A search is repeated with something done to it inside each of its yields in turn: whatever can be
// clicked meanwhile, and at whichever moment, the run ends in the way that is meant for it.

#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/DupesSearch.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QPointer>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace {
constexpr int fewestYields = 8;
constexpr int mostYields = 60;
constexpr int longestRunMilliseconds = 5'000;
constexpr double longestNapSeconds = 0.01;
constexpr int blinkMilliseconds = 500;
/// Long enough for a pending window to see the stop before the program ends.
constexpr int exitMilliseconds = 20;

/// The key of a job behind the search, which nothing that happens to the search may touch.
const QString otherKey = u"00000000000000000001"_s;

enum class Act {
    StopButton,
    Logout,
    Disconnect,
    Exit,
    CloseMain,
    CloseFrame,
    UnloadByCode,
    SessionEnds,
    UnloadUnconditionally
};

/// Where the search is when it happens.
enum class Moment { Pending, Running, Over };

enum class End {
    None,           ///< it never began
    Completed,      ///< everything came
    Stopped,        ///< read on to the end mark, then stopped
    StoppedPending, ///< its Stop button, before its turn
    AllJobsStopped, ///< a wish to leave, seen before its turn
    ConnectionLost,
};

/// How a search must end with this done to it at this moment.
struct Told
{
    Act act;
    Moment moment;
    End end;
    bool gone;          ///< the window goes
    bool keyLeft;       ///< its key stays in the queue
    bool staysLoggedIn; ///< the session goes on
    bool stopsOthers;   ///< bStopRequested stays set for the jobs that wait
    bool endsProgram;
};

constexpr std::array<Told, 27> allTold{{
    {Act::StopButton, Moment::Pending, End::StoppedPending, false, false, true, false, false},
    {Act::StopButton, Moment::Running, End::Stopped, false, false, true, false, false},
    {Act::StopButton, Moment::Over, End::Completed, false, false, true, false, false},
    // Without a link the search has its turn and cannot send.
    {Act::Logout, Moment::Pending, End::ConnectionLost, false, false, false, false, false},
    {Act::Logout, Moment::Running, End::ConnectionLost, false, false, false, false, false},
    {Act::Logout, Moment::Over, End::Completed, false, false, false, false, false},
    {Act::Disconnect, Moment::Pending, End::ConnectionLost, false, false, false, false, false},
    {Act::Disconnect, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::Disconnect, Moment::Over, End::Completed, false, false, false, false, false},
    {Act::Exit, Moment::Pending, End::AllJobsStopped, false, false, false, false, true},
    {Act::Exit, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::Exit, Moment::Over, End::Completed, false, false, false, false, true},
    {Act::CloseMain, Moment::Pending, End::AllJobsStopped, false, false, false, false, true},
    {Act::CloseMain, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::CloseMain, Moment::Over, End::Completed, false, false, false, false, true},
    // Closing is not stopping: the key of a search that was pending is left.
    {Act::CloseFrame, Moment::Pending, End::None, true, true, true, false, false},
    {Act::CloseFrame, Moment::Running, End::Completed, false, false, true, false, false},
    {Act::CloseFrame, Moment::Over, End::Completed, true, false, true, false, false},
    {Act::UnloadByCode, Moment::Pending, End::None, true, true, true, false, false},
    {Act::UnloadByCode, Moment::Running, End::Completed, false, false, true, false, false},
    {Act::UnloadByCode, Moment::Over, End::Completed, true, false, true, false, false},
    // These ask nobody: the run goes on to its end behind a window that is out of sight.
    {Act::SessionEnds, Moment::Pending, End::None, true, true, true, false, false},
    {Act::SessionEnds, Moment::Running, End::Completed, true, false, true, false, false},
    {Act::SessionEnds, Moment::Over, End::Completed, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Pending, End::None, true, true, true, false, false},
    {Act::UnloadUnconditionally, Moment::Running, End::Completed, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Over, End::Completed, true, false, true, false, false},
}};

const Told &toldOf(Act act, Moment moment)
{
    return *std::find_if(allTold.begin(), allTold.end(), [&](const Told &told) {
        return told.act == act && told.moment == moment;
    });
}

/// The box that refuses, when the search is running.
struct Refusal
{
    Act act;
    QStringView title;
    QStringView text;
};

constexpr QStringView formRefusal = u"This form cannot be closed until the current search "
                                    "completes.";
constexpr std::array<Refusal, 5> refusals{{
    {Act::Disconnect, u"Disconnect From Halvane ..",
     u"You must wait for the current search to complete before disconnecting. All Pending Searches "
     "will be stopped."},
    {Act::Exit, u"Exit Halvane ..",
     u"You must wait for the current search to complete or be stopped before Exiting. All Pending "
     "Searches will be stopped."},
    {Act::CloseMain, u"Exit Halvane ..",
     u"You must wait for the current search to complete before Exiting Halvane.  All Pending "
     "Searches will be stopped."},
    {Act::CloseFrame, u"Stop Current Search ..", formRefusal},
    {Act::UnloadByCode, u"Stop Current Search ..", formRefusal},
}};

/// The line that each end leaves in the log.
struct EndLine
{
    End end;
    QStringView line;
};

constexpr std::array<EndLine, 5> endLines{{
    {End::Completed, u"NORMAL EXIT - from ProcessSearchReqeusts."},
    {End::Stopped, u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."},
    {End::AllJobsStopped, u"INCOMPLETE EXIT - from Timer1 - Name Search Results."},
    {End::ConnectionLost, u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."},
    {End::ConnectionLost, u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."},
}};

/// What the window reads in each end, up to the number of its rows.
struct EndTexts
{
    End end;
    QStringView status;
    QStringView searchStatus;
};

constexpr std::array<EndTexts, 5> endTexts{{
    {End::Completed, u"Search Complete: ", u""},
    {End::Stopped, u"Search Stopped By User: ",
     u"Search Stopped By User. Some results may not have been retrieved."},
    {End::StoppedPending, u"Search Stopped By User .. ",
     u"Search Stopped By User. No Results Were Retrieved."},
    {End::AllJobsStopped, u"Search Stopped By User .. ",
     u"Search Stopped By User: 0 Cases Retrieved."},
    {End::ConnectionLost, u"Search Stopped - Court Connection Lost!",
     u"Search Stopped. Court Connection Lost. Please Close Form and Retry"},
}};

enum class Kind { Superior, Index, Civil, NonCivil };

const QString indexLine =
    u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=1~UL=500~"_s;
const QString indexRow =
    u"SMITH~02-1-02029-9~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"_s;

QStringList linesOf(Kind kind)
{
    switch (kind) {
    case Kind::Index:
        return {indexLine};
    case Kind::Civil:
        return {DistrictLine(), DistrictLine(u"BEN"_s)};
    case Kind::NonCivil:
        return {StatewideLine(), StatewideLine()};
    case Kind::Superior:
        break;
    }
    return {RequestLine(), RequestLine(u"SMYTHE"_s)};
}

/// What the court says to each of the lines.
QStringList repliesOf(Kind kind)
{
    switch (kind) {
    case Kind::Index:
        return {indexRow, u"SEARCHING~King~"_s, indexRow, u"EOF~"_s};
    case Kind::Civil:
        return {CaseRow(u"SMITH"_s), u"EOF~"_s};
    case Kind::NonCivil:
        return {CaseRow(u"SMITH"_s), PersonRow(u"A"_s), u"EOF~"_s};
    case Kind::Superior:
        break;
    }
    return {u"Searching~King~County~"_s, ResultLine(u"SMITH"_s), u"EOF~"_s};
}

NameResultsWindow *makeWindow(Kind kind)
{
    switch (kind) {
    case Kind::Index:
        return new frmNameSearchResults(u"WA"_s, true);
    case Kind::Civil:
        return MakeWindow(Which::Civil);
    case Kind::NonCivil:
        return MakeWindow(Which::NonCivil);
    case Kind::Superior:
        break;
    }
    return MakeWindow(Which::Name);
}

/// A court that answers every search alike, each token in two pieces, one piece a turn of the event
/// loop. A request to stop it takes note of: the replies come all the same, as from one that was
/// nearly done.
class AnsweringSocket : public FakeSocket
{
    Q_OBJECT
public:
    using FakeSocket::FakeSocket;

    static void Install(Kind kind, std::function<void()> onRequest)
    {
        frmWinsock::SetSocketFactory([kind, onRequest](QObject *parent) {
            auto *socket = new AnsweringSocket(parent);
            socket->searchKind = kind;
            socket->requested = onRequest;
            return socket;
        });
    }

    void SendData(const QByteArray &data) override
    {
        FakeSocket::SendData(data);
        if (data == QByteArray("|STOP\xA6|"))
            return;
        if (requested)
            requested();
        QByteArrayList pieces;
        const QStringList replies = repliesOf(searchKind);
        for (const QString &reply : replies) {
            const QByteArray token = ScriptedCourt::Tokens({reply});
            pieces.append({token.left(token.size() / 2), token.mid(token.size() / 2)});
        }
        ArriveLater(pieces);
    }

private:
    Kind searchKind = Kind::Superior;
    std::function<void()> requested;
};

constexpr std::array<const char *, 9> actNames{"Stop",
                                               "logout",
                                               "Disconnect",
                                               "Exit",
                                               "the main window is closed",
                                               "the window is closed by its frame",
                                               "the window is unloaded by code",
                                               "the session of the desktop ends",
                                               "the window is unloaded unconditionally"};
constexpr std::array<const char *, 3> momentNames{"pending", "running", "over"};
constexpr std::array<const char *, 4> kindNames{"Superior", "Index", "District civil",
                                                "District non-civil"};
constexpr std::array<const char *, 6> endNames{
    "none", "completed", "stopped", "stopped while pending", "all jobs stopped", "connection lost"};

template<typename Enum, size_t Size>
QString nameOf(Enum value, const std::array<const char *, Size> &names)
{
    return QString::fromLatin1(names.at(static_cast<size_t>(value)));
}

/// What is left of the program behind a search, as one line.
QString stateLine(const QString &end, bool gone, const QStringList &queue, bool loggedIn,
                  bool stopsOthers, bool endsProgram)
{
    return u"%1, window %2, queue %3, %4, others %5, program %6"_s.arg(
        end, gone ? u"gone"_s : u"there"_s, queue.join(u'+'),
        loggedIn ? u"logged in"_s : u"logged out"_s, stopsOthers ? u"stopped"_s : u"wait"_s,
        endsProgram ? u"ended"_s : u"runs"_s);
}
} // namespace

Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Kind)

class tst_EveryYield : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyYield_data();
    void everyYield();

private:
    /// A new session in a program without windows.
    void connectAgain();
    /// One search with the act in its nth yield, or behind its end if it has no such yield.
    void searchWith(int nth);
    void act();
    void perform() const;
    /// Handles what happens until the search is over and its run has left the stack.
    bool waitForTheEnd() const;
    Moment momentNow() const;
    QString endOf() const;
    void checkTexts(End end) const;
    void checkControls(const Told &told) const;
    void leaveAtLast();
    void searchAgain();

    Act what = Act::StopButton;
    Kind kind = Kind::Superior;
    std::unique_ptr<SearchDesk> desk;
    std::unique_ptr<frmMain> main;
    QPointer<NameResultsWindow> window;
    std::optional<Moment> moment; ///< when it happened
    int endings = 0;
};

void tst_EveryYield::init()
{
    desk = std::make_unique<SearchDesk>();
    ReplaceEndProgram([this](int) { ++endings; });
}

void tst_EveryYield::cleanup()
{
    WatchYields({});
    main.reset();
    desk.reset();
}

void tst_EveryYield::connectAgain()
{
    CloseServerLink();
    AnsweringSocket::Install(kind, [this] {
        // The status blinks while the court is asked: a yield inside the yields.
        if (window && !window->IsUnloaded() && window->tmrBlink->isActive())
            window->tmrBlink->start(0);
    });
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    // As the search form does for every search.
    Global.bStopRequested = false;
    if (!main) {
        main = std::make_unique<frmMain>();
        main->show();
        // Painting is no matter here, and takes half of the time.
        main->setUpdatesEnabled(false);
    }
    main->TimerExit->setInterval(exitMilliseconds);
    main->SetTxtConnectStatus(u"Connected"_s);
    Global.bShowAlerts = false;
    frmQueue::Form().FIFO.Clear();
}

Moment tst_EveryYield::momentNow() const
{
    if (!ButtonOf(window, "cmdStopSearching")->isEnabled())
        return Moment::Over;
    return Global.bSearchInProgress ? Moment::Running : Moment::Pending;
}

void tst_EveryYield::act()
{
    moment = momentNow();
    if (*moment == Moment::Running) {
        for (const Refusal &refusal : refusals) {
            if (refusal.act == what)
                desk->Boxes.Expect(refusal.text.toString(), refusal.title.toString());
        }
    }
    perform();
}

void tst_EveryYield::perform() const
{
    switch (what) {
    case Act::StopButton:
        ButtonOf(window, "cmdStopSearching")->click();
        return;
    case Act::Logout:
        main->Logout();
        return;
    case Act::Disconnect:
        main->findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
        return;
    case Act::Exit:
        main->findChild<QAction *>(u"mnuFileExit"_s)->trigger();
        return;
    case Act::CloseMain:
        main->close();
        return;
    case Act::CloseFrame:
        window->parentWidget()->close();
        return;
    case Act::UnloadByCode:
        window->Unload();
        return;
    case Act::SessionEnds:
        window->Unload(UnloadMode::SessionEnd);
        return;
    case Act::UnloadUnconditionally:
        window->lbl911 = u"T"_s;
        window->Unload();
        return;
    }
}

bool tst_EveryYield::waitForTheEnd() const
{
    const QDeadlineTimer deadline(longestRunMilliseconds);
    while (
        Global.bSearchInProgress
        || (window && !window->IsUnloaded() && ButtonOf(window, "cmdStopSearching")->isEnabled())) {
        if (deadline.hasExpired())
            return false;
        YieldUntilEvent(longestNapSeconds);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return true;
}

QString tst_EveryYield::endOf() const
{
    QStringList ends;
    const QStringList log = desk->Folder.Log();
    for (const QString &line : log) {
        for (const EndLine &row : endLines) {
            if (line == row.line)
                ends.append(nameOf(row.end, endNames));
        }
    }
    if (!ends.isEmpty())
        return ends.join(u" and "_s);
    const bool stopped = window && !ButtonOf(window, "cmdStopSearching")->isEnabled();
    return nameOf(stopped ? End::StoppedPending : End::None, endNames);
}

void tst_EveryYield::checkTexts(End end) const
{
    const auto *const texts = std::find_if(endTexts.begin(), endTexts.end(),
                                           [end](const EndTexts &row) { return row.end == end; });
    QVERIFY(texts != endTexts.end());
    const QString status = TextOf(window, "lblStatus");
    const QString searchStatus = TextOf(window, "lblSearchStatus");
    QVERIFY2(status.startsWith(texts->status), qPrintable(status));
    QVERIFY2(searchStatus.startsWith(texts->searchStatus), qPrintable(searchStatus));
    const qsizetype rows = RowsOf(window).size();
    if (end == End::Stopped)
        QCOMPARE(status, u"Search Stopped By User: %1 Cases Retrieved."_s.arg(rows));
    if (end == End::Completed)
        QCOMPARE(rows, 2);
    QCOMPARE(window->SearchIncomplete, end == End::ConnectionLost);
}

void tst_EveryYield::checkControls(const Told &told) const
{
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    // The main window, and the search in it, is hidden when the program has ended.
    QCOMPARE(window->isVisible(), !told.endsProgram);
    QVERIFY(!window->IsUnloaded());
}

void tst_EveryYield::searchWith(int nth)
{
    connectAgain();
    desk->Folder.Remove(u"AppInfo.txt"_s);
    moment.reset();
    endings = 0;
    int yields = 0;
    Global.DiscisDndSearch = false;
    window = makeWindow(kind);
    main->ShowChild(window);
    desk->Enqueue(window, linesOf(kind));
    EnqueueKey(otherKey);
    const QString key = window->txtMasterKey;
    QTimer *blink = window->tmrBlink;
    connect(blink, &QTimer::timeout, blink, [blink] { blink->setInterval(blinkMilliseconds); });
    blink->start(0);
    window->Timer1->start(0);
    WatchYields([&] {
        if (++yields == nth)
            QMetaObject::invokeMethod(
                this, [this] { act(); }, Qt::QueuedConnection);
    });
    QVERIFY(waitForTheEnd());
    WatchYields({});
    if (!moment)
        act();
    Told told = toldOf(what, *moment);
    // An index search ends with its end mark, stopped or not.
    if (kind == Kind::Index && told.end == End::Stopped)
        told.end = End::Completed;
    if (told.endsProgram)
        QVERIFY(QTest::qWaitFor([this] { return endings > 0; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList queue;
    if (told.keyLeft)
        queue.append(key);
    // The queue is unloaded at the very end.
    if (!told.endsProgram)
        queue.append(otherKey);
    QCOMPARE(stateLine(endOf(), window.isNull(), frmQueue::Form().FIFO.Lines(), Global.bLoggedIn,
                       Global.bStopRequested, endings == 1),
             stateLine(nameOf(told.end, endNames), told.gone, queue, told.staysLoggedIn,
                       told.stopsOthers, told.endsProgram));
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bSendBusy);
    QCOMPARE(desk->Boxes.Complaints(), QString());
    if (window) {
        checkTexts(told.end);
        checkControls(told);
    }
}

/// Whoever was refused during the search leaves now.
void tst_EveryYield::leaveAtLast()
{
    if (*moment != Moment::Running || (what != Act::Exit && what != Act::CloseMain))
        return;
    main->TimerExit->setInterval(1);
    perform();
    QVERIFY(QTest::qWaitFor([this] { return endings > 0; }));
    QVERIFY(!Global.bLoggedIn);
}

void tst_EveryYield::searchAgain()
{
    delete window;
    if (endings > 0)
        main.reset();
    connectAgain();
    window = makeWindow(kind);
    main->ShowChild(window);
    desk->Enqueue(window, linesOf(kind));
    window->Timer1->start(0);
    QVERIFY(waitForTheEnd());
    checkTexts(End::Completed);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    delete window;
}

void tst_EveryYield::everyYield_data()
{
    QTest::addColumn<Kind>("search");
    QTest::addColumn<Act>("happening");
    for (size_t i = 0; i < kindNames.size(); ++i) {
        for (size_t j = 0; j < actNames.size(); ++j)
            QTest::addRow("%s: %s", kindNames.at(i), actNames.at(j))
                << static_cast<Kind>(i) << static_cast<Act>(j);
    }
}

void tst_EveryYield::everyYield()
{
    QFETCH(Kind, search);
    QFETCH(Act, happening);
    kind = search;
    what = happening;
    std::array<int, 3> times{};
    int nth = 0;
    do {
        searchWith(++nth);
        if (!QTest::currentTestFailed())
            leaveAtLast();
        if (!QTest::currentTestFailed())
            searchAgain();
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"in yield %1, %2"_s.arg(nth).arg(moment ? nameOf(*moment, momentNames)
                                                                      : u"before it happened"_s)));
        }
        ++times.at(static_cast<size_t>(*moment));
    } while (*moment != Moment::Over && nth < mostYields);
    QVERIFY2(times[0] >= 2 && times[1] >= fewestYields && times[2] == 1,
             qPrintable(u"%1 %2 %3"_s.arg(times[0]).arg(times[1]).arg(times[2])));
}

QTEST_MAIN(tst_EveryYield)
#include "tst_EveryYield.moc"
