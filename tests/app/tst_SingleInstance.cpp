#include "app/SingleInstance.h"

#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString program = QStringLiteral(HALVANE_BIN_DIR "/halvane");
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
    void theSecondProgramEndsAtOnce();
    void aKilledProgramLeavesNothingBehind();
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
    QTest::qWait(20);
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

QTEST_GUILESS_MAIN(tst_SingleInstance)
#include "tst_SingleInstance.moc"
