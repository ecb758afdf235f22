#include "practice/PracticeProcess.h"

#include "core/Windows1252.h"
#include "support/Places.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
// Far more than any of it takes, so that a busy machine fails no test.
constexpr int longTime = 20'000;
// A process that works is seen asleep now and then, but not so often in a row.
constexpr int looks = 20;

QString programPath()
{
    return ProgramPath(u"halvane-practice"_s);
}
} // namespace

PracticeProcess::PracticeProcess(const QStringList &switches)
{
    process.start(programPath(), QStringList{u"--until-stdin-closes"_s} + switches);
    QByteArray line;
    QElapsedTimer timer;
    timer.start();
    while (!line.endsWith('\n') && process.waitForReadyRead(longTime) && timer.elapsed() < longTime)
        line += process.readAllStandardOutput();
    const QRegularExpression pattern(
        u"^halvane-practice: listening on 127\\.0\\.0\\.1:(\\d+)\n$"_s);
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(line));
    port = match.captured(1).toUShort();
}

PracticeProcess::~PracticeProcess()
{
    if (process.state() == QProcess::NotRunning)
        return;
    if (EndByInput() == -1) {
        process.kill();
        process.waitForFinished();
    }
}

bool PracticeProcess::ComesToRest() const
{
    QElapsedTimer timer;
    timer.start();
    for (int asleep = 0; asleep < looks; QTest::qSleep(5)) {
        QFile stat(u"/proc/%1/stat"_s.arg(process.processId()));
        if (timer.elapsed() > longTime || !stat.open(QIODevice::ReadOnly))
            return false;
        asleep = stat.readAll().contains(") S ") ? asleep + 1 : 0;
    }
    return true;
}

QString PracticeProcess::Errors(const QString &part)
{
    QElapsedTimer timer;
    timer.start();
    errors += process.readAllStandardError();
    process.setReadChannel(QProcess::StandardError);
    while (!errors.contains(part.toLocal8Bit()) && timer.elapsed() < longTime) {
        process.waitForReadyRead(100);
        errors += process.readAllStandardError();
    }
    return QString::fromLocal8Bit(errors);
}

int PracticeProcess::EndByInput()
{
    process.closeWriteChannel();
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(longTime))
        return -1;
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
}

FinishedRun RunPractice(const QStringList &switches)
{
    QProcess process;
    process.start(programPath(), switches);
    process.closeWriteChannel();
    FinishedRun run;
    if (!process.waitForFinished(longTime)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.exitCode = process.exitCode();
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.errors = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

WireClient::WireClient(const PracticeProcess &court)
{
    socket.connectToHost(u"127.0.0.1"_s, court.Port());
    socket.waitForConnected(longTime);
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

void WireClient::Send(const QString &request)
{
    SendRaw('|' + ToWindows1252(request) + '|');
}

void WireClient::SendRaw(const QByteArray &bytes)
{
    socket.write(bytes);
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(longTime)) {
    }
}

bool WireClient::waitForMore(int milliseconds)
{
    const bool came = socket.bytesAvailable() > 0 || socket.waitForReadyRead(milliseconds);
    const QByteArray chunk = socket.readAll();
    if (!chunk.isEmpty())
        arrivals.append(chunk.size());
    buffer += chunk;
    return came;
}

QStringList WireClient::ReadTo(const QString &text)
{
    QStringList tokens;
    qsizetype at = 0;
    while (true) {
        const qsizetype open = buffer.indexOf('|', at);
        const qsizetype close = open < 0 ? -1 : buffer.indexOf('|', open + 1);
        if (close < 0) {
            if (waitForMore(longTime))
                continue;
            break;
        }
        tokens.append(FromWindows1252(QByteArrayView(buffer).sliced(open + 1, close - open - 1)));
        at = close + 1;
        if (tokens.last() == text)
            break;
    }
    buffer.remove(0, at);
    return tokens;
}

QStringList WireClient::Ask(const QString &request)
{
    Send(request);
    return ReadTo();
}

QStringList WireClient::LogOn(const QString &user)
{
    return Ask(u"LOGON¦%1¦pw¦AppVer-9.00¦"_s.arg(user));
}

bool WireClient::WaitForBytes(qsizetype count)
{
    while (buffer.size() < count && waitForMore(longTime)) {
    }
    return buffer.size() >= count;
}

QByteArray WireClient::ReadBytes(qsizetype count)
{
    WaitForBytes(count);
    return std::exchange(buffer, QByteArray());
}

QByteArray WireClient::ReadFor(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        waitForMore(static_cast<int>(milliseconds - timer.elapsed()));
    return std::exchange(buffer, QByteArray());
}

QByteArray WireClient::ReadToClose()
{
    while (waitForMore(longTime)) {
    }
    return std::exchange(buffer, QByteArray());
}
