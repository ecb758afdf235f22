// A search is repeated with something done to it inside each of its yields in turn: whatever can be
// clicked meanwhile, and at whichever moment, the run ends in the way that is meant for it.

#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/YieldDesk.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/MailProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>

namespace {
constexpr YieldDesk::Walk walk{.fewestPending = 2, .fewestRunning = 6, .mostYields = 60};

/// The key of a job behind the search, which nothing that happens to the search may touch.
const QString otherKey = u"00000000000000000001"_s;

/// The last two are done by a window that has searched before: the run that is watched is its
/// second.
enum class Kind { Superior, Bankruptcy, Index, Civil, NonCivil, NextPage, CasesOfNames };

bool isSecondRun(Kind kind)
{
    return kind == Kind::NextPage || kind == Kind::CasesOfNames;
}

const QString indexLine =
    u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=1~UL=500~"_s;
const QString indexRow =
    u"SMITH~02-1-02029-9~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"_s;

QStringList linesOf(Kind kind)
{
    switch (kind) {
    case Kind::Index:
    case Kind::NextPage:
        return {indexLine};
    case Kind::CasesOfNames:
        return {StatewideLine()};
    case Kind::Civil:
        return {DistrictLine(), DistrictLine(u"BEN"_s)};
    case Kind::NonCivil:
        return {StatewideLine(), StatewideLine()};
    case Kind::Bankruptcy:
        return {u"BKRPT~SEARCH~SMITH~"_s, u"BKRPT~SEARCH~SMYTHE~"_s};
    case Kind::Superior:
        break;
    }
    return {RequestLine(), RequestLine(u"SMYTHE"_s)};
}

/// What the court says to each of the lines.
QStringList repliesOf(Kind kind, const QByteArray &request)
{
    switch (kind) {
    case Kind::NextPage:
        if (request.contains("LL=1~"))
            return {indexRow, u"WARNING~Reached Search Limit~1~2~"_s};
        [[fallthrough]];
    case Kind::Index:
        return {indexRow, u"SEARCHING~King~"_s, indexRow, u"EOF~"_s};
    case Kind::Civil:
        return {CaseRow(u"SMITH"_s), u"EOF~"_s};
    case Kind::NonCivil:
        return {CaseRow(u"SMITH"_s), PersonRow(u"A"_s), u"EOF~"_s};
    case Kind::CasesOfNames:
        if (request.contains("SNCINMD"))
            return {CaseRow(u"SMITH"_s), u"EOF~"_s};
        return {PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s};
    case Kind::Bankruptcy:
        return {u"SMITH~05-1~RETRIEVECOMMAND=BKRPT~01/02/2002~Chapter 7~Seattle~Debtor~X~"_s,
                u"EOF~"_s};
    case Kind::Superior:
        break;
    }
    return {u"Searching~King~County~"_s, ResultLine(u"SMITH"_s), u"EOF~"_s};
}

NameResultsWindow *makeWindow(Kind kind)
{
    switch (kind) {
    case Kind::Index:
    case Kind::NextPage:
        return new frmNameSearchResults(u"WA"_s, true);
    case Kind::Bankruptcy:
        return new frmNameSearchResults(u"WAWBK"_s);
    case Kind::Civil:
        return MakeWindow(Which::Civil);
    case Kind::NonCivil:
    case Kind::CasesOfNames:
        return MakeWindow(Which::NonCivil);
    case Kind::Superior:
        break;
    }
    return MakeWindow(Which::Name);
}

constexpr std::array<const char *, 7> kindNames{
    "Superior",           "Bankruptcy",       "Index",         "District civil",
    "District non-civil", "Index, next page", "cases of names"};
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
    void reportedAtEveryYield_data();
    void reportedAtEveryYield();

private:
    /// A new session in a program without windows.
    void connectAgain();
    /// A window whose next run has its key in the queue, its timers at a standstill.
    void prepare();
    /// One search with the act in its nth yield, or behind its end if it has no such yield.
    void searchWith(int nth);
    void act();
    /// Handles what happens until the search is over and its run has left the stack.
    bool waitForTheEnd() const;
    /// What the court hears of a click on Stop.
    void checkStopRequest(const ServerSocket *socket, Moment moment) const;
    Moment momentNow() const;
    QString endOf() const;
    void checkTexts(End end) const;
    void checkControls(const Expected &expected) const;
    void leaveAtLast();
    void searchAgain();
    /// One search whose report is made in its nth yield, or behind its end.
    void searchReportedIn(int nth);
    void report();
    void checkReport(const QByteArray &text, int rows) const;

    Act what = Act::StopButton;
    Kind kind = Kind::Superior;
    std::unique_ptr<SearchDesk> desk;
    std::unique_ptr<YieldDesk> yields;
    QPointer<NameResultsWindow> window;
    int timesUnanswered = 0;
};

void tst_EveryYield::init()
{
    desk = std::make_unique<SearchDesk>();
    yields = std::make_unique<YieldDesk>(*desk);
}

void tst_EveryYield::cleanup()
{
    yields.reset();
    desk.reset();
}

void tst_EveryYield::connectAgain()
{
    yields->ConnectAgain([this](const QByteArray &request) { return repliesOf(kind, request); });
}

Moment tst_EveryYield::momentNow() const
{
    if (!ButtonOf(window, "cmdStopSearching")->isEnabled())
        return Moment::Over;
    return Global.bSearchInProgress ? Moment::Running : Moment::Pending;
}

void tst_EveryYield::act()
{
    if (what != Act::UnloadUnconditionally) {
        yields->Do(what, momentNow());
        return;
    }
    yields->Note(momentNow());
    window->lbl911 = u"T"_s;
    window->Unload();
}

bool tst_EveryYield::waitForTheEnd() const
{
    const bool ended = YieldDesk::WaitFor([this] {
        return !Global.bSearchInProgress
               && (!window || window->IsUnloaded()
                   || !ButtonOf(window, "cmdStopSearching")->isEnabled());
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ended;
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
        QCOMPARE(rows, kind == Kind::NextPage ? 3 : 2);
    QCOMPARE(window->SearchIncomplete, end == End::ConnectionLost);
}

void tst_EveryYield::checkControls(const Expected &expected) const
{
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    // The main window, and the search in it, is hidden when the program has ended.
    QCOMPARE(window->isVisible(), !expected.endsProgram);
    QVERIFY(!window->IsUnloaded());
}

/// One request, in the words of the court, when the search was running. It cannot be sent in the
/// middle of another send, and this is logged.
void tst_EveryYield::checkStopRequest(const ServerSocket *socket, Moment moment) const
{
    const auto *network = qobject_cast<const FakeSocket *>(socket);
    QVERIFY(network);
    QByteArrayList requests;
    for (const QByteArray &frame : network->sent) {
        if (frame.contains("STOP"))
            requests.append(frame);
    }
    const qsizetype unsent =
        desk->Folder.Log().filter(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s).size();
    QCOMPARE(requests.size() + unsent, moment == Moment::Running ? 1 : 0);
    for (const QByteArray &request : requests)
        QCOMPARE(request,
                 kind == Kind::Bankruptcy ? QByteArray("|BKRPT~STOP~|") : QByteArray("|STOP\xA6|"));
}

void tst_EveryYield::prepare()
{
    window = makeWindow(kind);
    yields->Watch(window);
    yields->Show(window);
    desk->Enqueue(window, linesOf(kind));
    if (!isSecondRun(kind))
        return;
    window->Timer1->start(0);
    QVERIFY(waitForTheEnd());
    if (kind == Kind::CasesOfNames) {
        CheckRow(window, 0);
        CheckRow(window, 1);
    }
    ButtonOf(window, kind == Kind::NextPage ? "cmdSearchResults_4" : "cmdSearchResults_0")->click();
    QVERIFY(window->Timer1->isActive());
    window->Timer1->stop();
}

void tst_EveryYield::searchWith(int nth)
{
    connectAgain();
    prepare();
    EnqueueKey(otherKey);
    desk->Folder.Remove(u"AppInfo.txt"_s);
    const QString key = window->txtMasterKey;
    yields->Begin(window->Timer1, nth, [this] { act(); });
    const QPointer<ServerSocket> socket(Global.sckServer);
    QVERIFY(waitForTheEnd());
    YieldDesk::StopWatching();
    desk->Time.Stop();
    if (!yields->When)
        act();
    const Moment moment = *yields->When;
    if (what == Act::StopButton)
        checkStopRequest(socket, moment);
    Expected expected = expectedOf(what, moment);
    // Who has said all before falling silent owes nothing.
    if (what == Act::DisconnectFromSilence && moment == Moment::Running) {
        if (AnsweringCourt::Behind(socket)->OwesAnswers())
            ++timesUnanswered;
        else
            expected.end = End::Completed;
    }
    // An index search ends with its end mark, stopped or not.
    if ((kind == Kind::Index || kind == Kind::NextPage) && expected.end == End::Stopped)
        expected.end = End::Completed;
    // A pending window sees the wish to leave before the program ends, and with it the queue.
    if (expected.end == End::AllJobsStopped && yields->Endings == 0)
        QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    if (expected.endsProgram)
        QVERIFY(yields->WaitForTheEnding());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList queue;
    if (expected.keyLeft)
        queue.append(key);
    // The queue is unloaded at the very end.
    if (!expected.endsProgram)
        queue.append(otherKey);
    const StateLeft left{endOf(),          window.isNull(),       frmQueue::Form().FIFO.Lines(),
                         Global.bLoggedIn, Global.bStopRequested, yields->Endings == 1};
    const StateLeft meant{
        nameOf(expected.end, endNames), expected.gone,        queue,
        expected.staysLoggedIn,         expected.stopsOthers, expected.endsProgram};
    QCOMPARE(left.Line(), meant.Line());
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bSendBusy);
    QCOMPARE(desk->Boxes.Complaints(), QString());
    if (window) {
        checkTexts(expected.end);
        checkControls(expected);
    }
}

/// Whoever was refused during the search leaves now. Leaving saves files, which takes longer than
/// all else, and does not depend on the window that has searched: one kind of them is enough.
void tst_EveryYield::leaveAtLast()
{
    if (kind != Kind::Superior || *yields->When != Moment::Running
        || (what != Act::Exit && what != Act::CloseMain))
        return;
    yields->Main->TimerExit->setInterval(1);
    yields->Perform(what);
    QVERIFY(yields->WaitForTheEnding());
    QVERIFY(!Global.bLoggedIn);
}

void tst_EveryYield::searchAgain()
{
    delete window;
    if (yields->Endings > 0)
        yields->Main.reset();
    connectAgain();
    prepare();
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
    timesUnanswered = 0;
    yields->WalkYields(walk, [this](int nth) {
        searchWith(nth);
        if (!QTest::currentTestFailed())
            leaveAtLast();
        if (!QTest::currentTestFailed())
            searchAgain();
    });
    if (!QTest::currentTestFailed())
        QCOMPARE(timesUnanswered > 0, what == Act::DisconnectFromSilence);
}

/// Shown, saved and mailed: what has come by now, marked as not whole while more may come.
void tst_EveryYield::report()
{
    yields->Note(momentNow());
    // The list on the screen may have its last rows still to come.
    const auto *search = dynamic_cast<const NonCivilSearch *>(&window->Search());
    const int rows = search && search->ShowingDupes ? search->Names.Count() : window->RowCount();
    window->PrintDirect();
    auto *preview = Shown(u"PreviewDoc"_s);
    QVERIFY(preview);
    preview->close();
    window->PrintToFile(desk->Folder.Path(u"saved.txt"_s));
    checkReport(desk->Folder.Read(u"saved.txt"_s), rows);
    QPushButton *email = ButtonOf(window, "cmdEmail");
    (email ? email : ButtonOf(window, "cmdSearchResults_5"))->click();
}

void tst_EveryYield::checkReport(const QByteArray &text, int rows) const
{
    QVERIFY(text.startsWith("Halvane Search "));
    const QByteArray total =
        "\r\nThis search found " + QByteArray::number(rows) + " Matching Records\r\n";
    QVERIFY(text.contains(total));
    QVERIFY(text.endsWith("\r\n<------ End of Report ------>\r\n"));
    QCOMPARE(text.contains("WARNING:  This Search is Incomplete! "), yields->When != Moment::Over);
}

void tst_EveryYield::searchReportedIn(int nth)
{
    connectAgain();
    prepare();
    desk->Folder.Remove(u"AppInfo.txt"_s);
    QDir(desk->Folder.Path()).mkdir(QString::number(nth));
    const MailProgram mail(desk->Folder.Path(QString::number(nth)));
    yields->Begin(window->Timer1, nth, [this] { report(); });
    QVERIFY(waitForTheEnd());
    YieldDesk::StopWatching();
    if (!yields->When)
        report();
    QTRY_VERIFY(mail.WasCalled() && !qApp->findChild<QProcess *>());
    QFile attached(mail.Arguments().value(6));
    QVERIFY(attached.open(QIODevice::ReadOnly));
    QCOMPARE(attached.readAll(), desk->Folder.Read(u"saved.txt"_s));
    QCOMPARE(endOf(), nameOf(End::Completed, endNames));
    checkTexts(End::Completed);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    QCOMPARE(desk->Boxes.Complaints(), QString());
    delete window;
}

void tst_EveryYield::reportedAtEveryYield_data()
{
    QTest::addColumn<Kind>("search");
    for (size_t i = 0; i < kindNames.size(); ++i)
        QTest::newRow(kindNames.at(i)) << static_cast<Kind>(i);
}

void tst_EveryYield::reportedAtEveryYield()
{
    QFETCH(Kind, search);
    kind = search;
    Global.strReportFolder = desk->Folder.Path();
    yields->WalkYields(walk, [this](int nth) { searchReportedIn(nth); });
}

HALVANE_TEST(tst_EveryYield)
#include "tst_EveryYield.moc"
