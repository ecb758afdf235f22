#include "app/SingleInstance.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"
#include "support/Ticks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstddef>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
const QString program = ProgramPath(u"halvane"_s);
constexpr int startMilliseconds = 30'000;

/// How often a start came to its end: each writes one separator line to the log.
qsizetype startsLogged(const QTemporaryDir &folder)
{
    QFile log(folder.filePath(u"AppInfo.txt"_s));
    return log.open(QIODevice::ReadOnly) ? log.readAll().count(" --  \r\n\r\n") : 0;
}

/// No questions, and no server but one that refuses.
void writeSettings(const QTemporaryDir &folder)
{
    QFile file(folder.filePath(u"options.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Communications]\r\nShowAlerts=0\r\nHVServerIP1=127.0.0.1\r\nHVServerPort=1\r\n");
}

/// Holds the name of a folder's program and answers nobody: a copy that cannot be reached.
class NameHolder
{
public:
    explicit NameHolder(const QString &folder)
    {
        const QByteArray name = nameOf(folder);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        if (name.isEmpty() || name.size() >= qsizetype(sizeof address.sun_path))
            return;
        // Abstract: the name begins with a zero byte, and the length tells where it ends.
        std::copy(name.begin(), name.end(), address.sun_path + 1);
        const auto length =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + size_t(name.size()));
        holds = ::bind(handle, reinterpret_cast<const sockaddr *>(&address), length) == 0;
    }
    ~NameHolder() { ::close(handle); }
    NameHolder(const NameHolder &) = delete;
    NameHolder &operator=(const NameHolder &) = delete;

    bool Holds() const { return holds; }

private:
    /// The name as the system lists it while a copy has it: behind what the platform adds.
    static QByteArray nameOf(const QString &folder)
    {
        SingleInstance first(folder);
        QFile list(u"/proc/net/unix"_s);
        if (!first.Claim() || !list.open(QIODevice::ReadOnly))
            return {};
        const QByteArray own = first.Name().toUtf8();
        const QList<QByteArray> lines = list.readAll().split('\n');
        for (const QByteArray &line : lines) {
            const qsizetype at = line.indexOf('@');
            if (at >= 0 && line.indexOf(own, at) >= 0)
                return line.mid(at + 1);
        }
        return {};
    }

    int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    bool holds = false;
};

void end(QProcess &process)
{
    process.kill();
    process.waitForFinished();
}
} // namespace

class tst_SingleInstance : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSecondIsRefusedAndTheFirstComesToTheFront();
    void anotherFolderIsAnotherProgram();
    void theNameIsFreeWhenTheFirstIsGone();
    void everyFurtherStartIsNoticed();
    void aSecondStartForANewSearch();
    void whatNobodyUnderstandsIsNoWish();
    void theSecondProgramEndsAtOnce();
    void aKilledProgramLeavesNothingBehind();
    void aNameThatNobodyAnswersTo();
    void theProgramRefusesToRunWhenNobodyAnswers();
};

void tst_SingleInstance::theSecondIsRefusedAndTheFirstComesToTheFront()
{
    SingleInstance first(u"/tmp/halvane-one"_s);
    SingleInstance second(u"/tmp/halvane-one"_s);
    QSignalSpy activated(&first, &SingleInstance::Activated);
    QSignalSpy wrong(&second, &SingleInstance::Activated);
    QVERIFY(first.Claim());
    QCOMPARE(activated.count(), 0);
    QVERIFY(!second.Claim());
    QTRY_COMPARE(activated.count(), 1);
    QCOMPARE(wrong.count(), 0);
}

void tst_SingleInstance::anotherFolderIsAnotherProgram()
{
    SingleInstance first(u"/tmp/halvane-one"_s);
    SingleInstance second(u"/tmp/halvane-two"_s);
    QSignalSpy activated(&first, &SingleInstance::Activated);
    QVERIFY(first.Claim());
    QVERIFY(second.Claim());
    Ticks(20);
    QCOMPARE(activated.count(), 0);
}

void tst_SingleInstance::theNameIsFreeWhenTheFirstIsGone()
{
    {
        SingleInstance first(u"/tmp/halvane-one"_s);
        QVERIFY(first.Claim());
    }
    SingleInstance second(u"/tmp/halvane-one"_s);
    QVERIFY(second.Claim());
}

void tst_SingleInstance::everyFurtherStartIsNoticed()
{
    SingleInstance first(u"/tmp/halvane-one"_s);
    QSignalSpy activated(&first, &SingleInstance::Activated);
    QVERIFY(first.Claim());
    for (int i = 1; i <= 3; ++i) {
        SingleInstance further(u"/tmp/halvane-one"_s);
        QVERIFY(!further.Claim());
        QTRY_COMPARE(activated.count(), i);
    }
}

void tst_SingleInstance::aSecondStartForANewSearch()
{
    SingleInstance first(u"/tmp/halvane-one"_s);
    QSignalSpy activated(&first, &SingleInstance::Activated);
    QSignalSpy wanted(&first, &SingleInstance::SearchWanted);
    QVERIFY(first.Claim());
    SingleInstance second(u"/tmp/halvane-one"_s);
    QVERIFY(!second.Claim(SecondStart::NewSearch));
    QTRY_COMPARE(wanted.count(), 1);
    QCOMPARE(activated.count(), 1);
    SingleInstance third(u"/tmp/halvane-one"_s);
    QVERIFY(!third.Claim());
    QTRY_COMPARE(activated.count(), 2);
    Ticks(20);
    QCOMPARE(wanted.count(), 1);
}

/// Whoever is on the machine can write there. What comes in two pieces is one line all the same.
void tst_SingleInstance::whatNobodyUnderstandsIsNoWish()
{
    SingleInstance first(u"/tmp/halvane-one"_s);
    QSignalSpy wanted(&first, &SingleInstance::SearchWanted);
    QVERIFY(first.Claim());
    for (const QByteArray &said : {QByteArray("old-search\n"), QByteArray("new-search"),
                                   QByteArray("new-search again\n"), QByteArray(100'000, 'n')}) {
        QLocalSocket other;
        other.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
        other.connectToServer(first.Name());
        QVERIFY(other.waitForConnected());
        other.write(said);
        other.flush();
        Ticks(20);
        QCOMPARE(wanted.count(), 0);
    }
    QLocalSocket other;
    other.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    other.connectToServer(first.Name());
    other.write("new-");
    other.flush();
    Ticks(20);
    other.write("search\n");
    other.flush();
    QTRY_COMPARE(wanted.count(), 1);
}

void tst_SingleInstance::theSecondProgramEndsAtOnce()
{
    const QTemporaryDir folder;
    writeSettings(folder);
    QProcess first;
    first.start(program, {u"--folder"_s, folder.path()});
    QTRY_COMPARE_WITH_TIMEOUT(startsLogged(folder), 1, startMilliseconds);
    QProcess second;
    second.start(program, {u"--folder"_s, folder.path()});
    QVERIFY(second.waitForFinished(startMilliseconds));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    // It never came to its splash, which stands before the line in the log.
    QCOMPARE(startsLogged(folder), 1);
    QCOMPARE(first.state(), QProcess::Running);
    end(first);
}

void tst_SingleInstance::aKilledProgramLeavesNothingBehind()
{
    const QTemporaryDir folder;
    writeSettings(folder);
    for (int starts = 1; starts <= 2; ++starts) {
        QProcess process;
        process.start(program, {u"--folder"_s, folder.path()});
        QTRY_COMPARE_WITH_TIMEOUT(startsLogged(folder), starts, startMilliseconds);
        QCOMPARE(process.state(), QProcess::Running);
        end(process);
    }
}

void tst_SingleInstance::aNameThatNobodyAnswersTo()
{
    const NameHolder holder(u"/tmp/halvane-one"_s);
    QVERIFY(holder.Holds());
    SingleInstance second(u"/tmp/halvane-one"_s);
    QVERIFY(!second.Claim());
    QVERIFY(!second.AnotherRuns());
}

void tst_SingleInstance::theProgramRefusesToRunWhenNobodyAnswers()
{
    const QTemporaryDir folder;
    writeSettings(folder);
    const NameHolder holder(QFileInfo(folder.path()).canonicalFilePath());
    QVERIFY(holder.Holds());
    QProcess process;
    process.start(program, {u"--folder"_s, folder.path()});
    QVERIFY(process.waitForFinished(startMilliseconds));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(process.readAllStandardError().contains("cannot tell whether a copy runs already"));
    // It never came to its splash, nor to anything that stands before it.
    QCOMPARE(startsLogged(folder), 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"options.ini"_s});
}

HALVANE_TEST(tst_SingleInstance)
#include "tst_SingleInstance.moc"
