#include "app/PracticeCourt.h"
#include "core/Options.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString client = ProgramPath(u"halvane"_s);
const QString practice = ProgramPath(u"halvane-practice"_s);
constexpr int startMilliseconds = 30'000;

bool answers(quint16 port)
{
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, port);
    return socket.waitForConnected(2000);
}

QByteArray statusOf(qint64 pid)
{
    QFile file(u"/proc/%1/stat"_s.arg(pid));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Running, and not a dead process that nobody has asked after.
bool isRunning(qint64 pid)
{
    const QByteArray status = statusOf(pid);
    const qsizetype name = status.lastIndexOf(')');
    return name > 0 && status.mid(name + 2, 1) != "Z";
}

/// The processes that this one has started.
QList<qint64> childrenOf(qint64 parent)
{
    QList<qint64> children;
    const QStringList all = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &entry : all) {
        const QByteArray status = statusOf(entry.toLongLong());
        const qsizetype name = status.lastIndexOf(')');
        if (name > 0 && status.mid(name + 4).split(' ').value(0).toLongLong() == parent)
            children.append(entry.toLongLong());
    }
    return children;
}
} // namespace

class tst_PracticeSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCourtAnswersAndEndsWithItsOwner();
    void twoCourtsHaveTwoPorts();
    void aProgramThatIsNotThereIsReported();
    void aProgramThatSaysNoPortIsReported();
    void theSessionIsPointedAtIt();
    void noChildIsLeftWhenTheClientIsKilled();
};

void tst_PracticeSession::theCourtAnswersAndEndsWithItsOwner()
{
    quint16 port = 0;
    qint64 pid = 0;
    {
        PracticeCourt court;
        QVERIFY2(court.Start(practice), qPrintable(court.Error()));
        port = court.Port();
        QVERIFY(port != 0);
        QVERIFY(answers(port));
        const QList<qint64> children = childrenOf(QCoreApplication::applicationPid());
        QCOMPARE(children.size(), 1);
        pid = children.first();
        QVERIFY(isRunning(pid));
    }
    QVERIFY(!isRunning(pid));
    QVERIFY(!answers(port));
}

void tst_PracticeSession::twoCourtsHaveTwoPorts()
{
    PracticeCourt first;
    PracticeCourt second;
    QVERIFY(first.Start(practice));
    QVERIFY(second.Start(practice));
    QVERIFY(first.Port() != second.Port());
}

void tst_PracticeSession::aProgramThatIsNotThereIsReported()
{
    PracticeCourt court;
    QVERIFY(!court.Start(u"/nowhere/halvane-practice"_s));
    QVERIFY(court.Error().startsWith(u"/nowhere/halvane-practice: "));
}

void tst_PracticeSession::aProgramThatSaysNoPortIsReported()
{
    PracticeCourt court;
    QVERIFY(!court.Start(u"/bin/true"_s));
    QVERIFY(court.Error().contains(u"did not say its port"));
}

void tst_PracticeSession::theSessionIsPointedAtIt()
{
    const TestFolder folder;
    const QByteArray before = folder.Read(u"options.ini"_s);
    PointSessionAt(4711);
    for (int i = 1; i <= 5; ++i)
        QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerIP"_s + QString::number(i)),
                 u"127.0.0.1"_s);
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerPort"_s), u"4711"_s);
    QCOMPARE(folder.Read(u"options.ini"_s), before);
}

void tst_PracticeSession::noChildIsLeftWhenTheClientIsKilled()
{
    const QTemporaryDir folder;
    QProcess process;
    process.start(client, {u"--practice"_s, u"--folder"_s, folder.path()});
    QVERIFY(process.waitForStarted());
    const qint64 pid = process.processId();
    QTRY_COMPARE_WITH_TIMEOUT(childrenOf(pid).size(), 1, startMilliseconds);
    const qint64 child = childrenOf(pid).first();
    QVERIFY(isRunning(child));
    process.kill();
    QVERIFY(process.waitForFinished());
    QTRY_VERIFY_WITH_TIMEOUT(!isRunning(child), startMilliseconds);
}

HALVANE_TEST(tst_PracticeSession)
#include "tst_PracticeSession.moc"
