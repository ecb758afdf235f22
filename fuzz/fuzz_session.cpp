// A whole session below its windows: jobs that are opened, stopped, closed and retried, logins and
// logouts, against bytes, times and ends of the link that the input chooses. Whatever it was, the
// session comes to rest, and nothing is left of it. With HALVANE_SESSION_LOG=1 the log of each
// session is printed, and with it what an input did.

#include "core/AppFolder.h"
#include "core/FolderState.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "core/TurnHold.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "session/SessionCourt.h"
#include "session/SessionScript.h"
#include "session/SessionUser.h"
#include "session/VirtualLoop.h"
#include "support/ObjectCount.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
/// What a session reads of it, and no more: it is read for each tab of each case.
constexpr const char *options = "[Communications]\r\nInactivityTimeOut=12\r\n"
                                "[CaseSearchTabs]\r\nNames=1\r\nDocket=1\r\nDocuments=1\r\n"
                                "[NonCivilCaseTabs]\r\nViolations=1\r\n";
/// Turns without a move from the script after which the server closes the link: a reply that has
/// come in part is waited for without a limit.
constexpr int turnsOfSilence = 200;
/// And those after which all has to be at rest.
constexpr int mostTurns = 10'000;
/// A script waits for so many turns at most.
constexpr int longestRest = 150;
constexpr int turnsBetweenSkips = 50;
constexpr qint64 millisecondsOfTurn = 20;
constexpr qint64 longestJump = 5'000;

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "fuzz_session: %s\n", what);
    std::abort();
}

/// The program around the sessions: its loop, and its folder, in memory where there is room for it.
struct Program
{
    Program()
    {
        QCoreApplication::setEventDispatcher(loop);
        app = new QCoreApplication(count, arguments);
        Clock::Replace(loop);
        ChooseAppFolder(folder.path());
        QFile::copy(QStringLiteral(HALVANE_DATA_DIR "/wadisciscts.txt"),
                    folder.filePath(u"wadisciscts.txt"_s));
        LoadDiscisCourts();
    }

    /// As at its start.
    void Forget()
    {
        frmWinsock::Unload();
        frmQueue::Unload();
        Global = GlobalState();
        FolderStates::ForgetAll();
        Global.bShowAlerts = true;
        ReplaceShell([](const QString &) { return true; });
        loop->Restart();
        QFile::remove(folder.filePath(u"AppInfo.txt"_s));
        QFile::remove(folder.filePath(u"AppInfo.bak"_s));
        QDir(folder.filePath(u"Reports"_s)).removeRecursively();
    }

    /// The server may have written any key of it.
    void RestoreOptions()
    {
        QFile file(folder.filePath(u"options.ini"_s));
        const QByteArray asAtFirst(options);
        require(file.open(QIODevice::ReadWrite), "options.ini cannot be opened");
        if (file.readAll() == asAtFirst)
            return;
        require(file.resize(0) && file.write(asAtFirst) == asAtFirst.size(),
                "options.ini cannot be restored");
    }

    VirtualLoop *loop = new VirtualLoop;
    QTemporaryDir folder{QFileInfo(u"/dev/shm"_s).isWritable()
                             ? u"/dev/shm/halvane-session-XXXXXX"_s
                             : QDir::tempPath() + u"/halvane-session-XXXXXX"_s};

private:
    int count = 1;
    char ownName[8] = "session";
    char *arguments[2] = {ownName, nullptr};
    QCoreApplication *app;
};

Program &program()
{
    static Program theOne;
    return theOne;
}

/// One session: the user and the court do what the script says, one move a turn of the loop.
class World
{
public:
    explicit World(QByteArrayView bytes) : script(bytes)
    {
        program().loop->World = [this] { turn(); };
        user.BeLoggedIn();
    }
    ~World() { program().loop->World = {}; }
    Q_DISABLE_COPY_MOVE(World)

    void Run()
    {
        while (!script.AtEnd() || !user.AllIsOver() || court.HasPiece()
               || frmQueue::Form().FIFO.ListCount() > 0)
            program().loop->processEvents({});
        require(!Global.bSearchInProgress, "a job keeps the link");
        require(!TurnHold::IsHeld(), "the turn is held when nobody asks");
        require(!Global.bLoginBusy && !Global.bGettingParams && !Global.bGettingMessages
                    && !Global.bCheckingServer,
                "a login that is over has left its limits");
        require(Job::AllAtRest() && !Job::WithTurn(), "a run is on the stack");
    }

    /// Everything is closed, as at the end of a day.
    void End()
    {
        user.Disconnect();
        user.CloseAll();
        require(!Global.bLoggedIn || IsUp(), "logged in without a link");
        Global.bLoggedIn = false;
        frmWinsock::Unload();
    }

private:
    static bool IsUp()
    {
        return Global.sckServer && Global.sckServer->State() == SocketState::Connected;
    }

    void turn();
    void goOn();
    void perform(const SessionMove &move);
    bool performOnLink(const SessionMove &move);
    void performOnJob(const SessionMove &move);
    void checkAlways() const;

    SessionScript script;
    SessionCourt court;
    SessionUser user;
    bool courtSpoke = false;
    bool holdsBack = false; ///< the next bytes come without an event
    int silentTurns = 0;
    int turnsToRest = 0; ///< the script goes on behind these, or as soon as all is over
};

/// What the court has begun to say and the moves of the script take turns.
void World::turn()
{
    checkAlways();
    program().loop->Advance(millisecondsOfTurn);
    user.CheckConnection();
    if (court.HasPiece() && (!courtSpoke || turnsToRest > 0 || script.AtEnd())) {
        courtSpoke = true;
        court.SendPiece();
        return;
    }
    courtSpoke = false;
    if (turnsToRest > 0 && !user.AllIsOver()) {
        --turnsToRest;
        program().loop->Advance(program().loop->UntilNextTimer(longestJump));
        return;
    }
    turnsToRest = 0;
    if (const std::optional<SessionMove> move = script.Next())
        perform(*move);
    else
        goOn();
}

/// Nobody does anything any more: time goes on, the user takes out of the queue what holds it, and
/// in the end the link is lost.
void World::goOn()
{
    ++silentTurns;
    require(silentTurns < mostTurns, "it does not come to rest");
    if (silentTurns % turnsBetweenSkips == 0)
        user.SkipHeld();
    if (silentTurns == turnsOfSilence)
        court.Close();
    program().loop->Advance(program().loop->UntilNextTimer(longestJump));
}

void World::checkAlways() const
{
    require(Global.strRecvBuffer.Size() <= court.Arrived(), "the buffer has more than arrived");
    require(frmWinsock::IsLoaded() == (Global.sckServer != nullptr),
            "the socket and its form are not loaded together");
    require(program().loop->Timers() < 100, "timers gather");
}

void World::perform(const SessionMove &move)
{
    if (!performOnLink(move))
        performOnJob(move);
}

/// True when the letter was one of these.
bool World::performOnLink(const SessionMove &move)
{
    switch (move.Letter) {
    case '=': // these bytes arrive
        if (holdsBack)
            court.HoldBack(move.Text);
        else
            court.Arrive(move.Text);
        holdsBack = false;
        return true;
    case 'b': // the next bytes arrive without an event
        holdsBack = true;
        return true;
    case 'a': // the true answer to the last request, in pieces
        court.Answer(move.First);
        return true;
    case 'A': // every request has its true answer from now on
        court.AnswersInPieces = move.First;
        return true;
    case 'e':
        court.CompleteSend();
        return true;
    case 'E': // sends are completed by themselves, or not
        court.CompletesSends = move.First != 0;
        return true;
    case 'x':
        court.Close();
        return true;
    case 'X':
        court.Reset();
        return true;
    case 'K': // how the next connects come out
        court.NextConnects = static_cast<SessionCourt::Door>(move.First % 3);
        return true;
    case 'w': // tenths of a second go by
        program().loop->Advance(move.First * 100);
        return true;
    case 'R': // the script goes on when all is over
        turnsToRest = longestRest;
        return true;
    case 'W': // time goes on to the next timer
        program().loop->Advance(program().loop->UntilNextTimer(longestJump));
        return true;
    default:
        return false;
    }
}

void World::performOnJob(const SessionMove &move)
{
    switch (move.Letter) {
    case 'n':
        return user.Open(move.First, move.Second);
    case 'r':
        return user.OpenRow(move.First, move.Second);
    case 'd':
        return user.OpenDocument(move.First, move.Second);
    case 'D':
        return user.OpenAllDocuments(move.First);
    case 's':
        return user.Stop(move.First);
    case 'c':
        return user.Close(move.First);
    case 'y':
        return user.RetryFailed(move.First);
    case 'p':
        return user.NextPage(move.First);
    case 'k':
        return user.RetrieveNames(move.First);
    case 'v':
        return user.ToggleNames(move.First);
    case 't':
        return user.ActivateTab(move.First, move.Second);
    case 'f':
        return user.SearchNow(move.First, move.Second);
    case 'g':
        return user.RetryDocuments(move.First);
    case 'u':
        return user.SkipHeld();
    case '!':
        return user.AnswerWith(move.First);
    case 'l':
        return user.LogIn();
    case 'z':
        return user.CancelLogin();
    case 'o':
        return user.Disconnect();
    case 'q':
        return user.WantExit();
    default:
        return;
    }
}

/// The lowest descriptor that is free: one that was left open would have taken it.
int freeDescriptor()
{
    const int found = dup(STDERR_FILENO);
    close(found);
    return found;
}

void checkFolder()
{
    const QString path = program().folder.path();
    QDirIterator files(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next().sliced(path.size() + 1);
        // What is written anew has a second ending as long as it is not in its place.
        const bool document = name.startsWith(u"Reports") && files.fileName().count(u'.') <= 1;
        const bool expected = document || name == u"AppInfo.txt" || name == u"AppInfo.bak"
                              || name == u"options.ini" || name == u"wadisciscts.txt";
        require(expected, qPrintable(u"an unexpected file: "_s + name));
    }
}

void checkNothingIsLeft(const ObjectCount::Holdings &before, int descriptor)
{
    require(frmQueue::Form().FIFO.ListCount() == 0, "the turn queue is not empty");
    frmQueue::Unload();
    const ObjectCount::Holdings now = ObjectCount::Objects();
    require(Job::All().isEmpty(), "a job was not deleted");
    require(now.objects == before.objects, "objects are left");
    require(now.timers == before.timers, "timers are left");
    require(program().loop->Timers() == 0, "timers run");
    require(freeDescriptor() == descriptor, "a file was left open");
    checkFolder();
}

void play(QByteArrayView script)
{
    program().Forget();
    program().RestoreOptions();
    World world(script);
    world.Run();
    world.End();
}

/// For who repeats one input and wants to see what it did.
void tellLog()
{
    static const bool wanted = qEnvironmentVariableIsSet("HALVANE_SESSION_LOG");
    QFile log(program().folder.filePath(u"AppInfo.txt"_s));
    if (wanted && log.open(QIODevice::ReadOnly))
        std::fputs(log.readAll().constData(), stderr);
}

/// After a session in which all was made that stays until the end of the program.
void countFromHere()
{
    play("A 9999\nn 0\nW\n");
    ObjectCount::Objects();
    static const ObjectCount count;
}
} // namespace

/// Here, since the start of the practice court is no part of an input's time.
extern "C" int LLVMFuzzerInitialize(int * /*count*/, char *** /*arguments*/)
{
    countFromHere();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ObjectCount::Holdings before = ObjectCount::Objects();
    const int descriptor = freeDescriptor();
    play(QByteArrayView(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    tellLog();
    checkNothingIsLeft(before, descriptor);
    return 0;
}
