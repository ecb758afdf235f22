#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTcpSocket>

/// The real program, started with some switches. It is ended by closing its standard input, so that
/// no court outlives a test.
class PracticeProcess
{
public:
    /// Starts the court and waits until it says where it listens.
    explicit PracticeProcess(const QStringList &switches = {});
    ~PracticeProcess();
    PracticeProcess(const PracticeProcess &) = delete;
    PracticeProcess &operator=(const PracticeProcess &) = delete;

    /// 0 when it did not come to listen.
    quint16 Port() const { return port; }

    qint64 ProcessId() const { return process.processId(); }
    bool IsRunning() const { return process.state() == QProcess::Running; }

    /// Waits until it does nothing any more but wait itself; false when it never does.
    bool ComesToRest() const;

    /// What it has written to standard error so far, waiting for `part` to be in it.
    QString Errors(const QString &part = {});

    /// Closes its input; its exit code, or -1 when it did not end.
    int EndByInput();

private:
    QProcess process;
    QByteArray errors;
    quint16 port = 0;
};

/// What a finished run of the program left behind.
struct FinishedRun
{
    int exitCode = -1;
    QString out;
    QString errors;
};

/// Runs the program to its end.
FinishedRun RunPractice(const QStringList &switches);

/// A client of the court that sees its bytes.
class WireClient
{
public:
    explicit WireClient(const PracticeProcess &court);

    /// Sends the text of a request between bars; `SendRaw` sends bytes as they are.
    void Send(const QString &request);
    void SendRaw(const QByteArray &bytes);

    /// Waits for a token that `text` equals, and answers all tokens up to it; what came when there
    /// is no such token in time or the link is gone.
    QStringList ReadTo(const QString &text = QStringLiteral("EOF~"));

    /// Sends a request and reads its reply.
    QStringList Ask(const QString &request);

    /// Logs in.
    QStringList LogOn(const QString &user = QStringLiteral("ann"));

    /// Waits until so many bytes have come, and leaves them to be read; false when they do not
    /// come.
    bool WaitForBytes(qsizetype count);

    /// Waits until so many bytes have come.
    QByteArray ReadBytes(qsizetype count);

    /// What comes within so many milliseconds.
    QByteArray ReadFor(int milliseconds);

    /// Waits for the court to close the link; what came before that.
    QByteArray ReadToClose();

    bool IsConnected() const { return socket.state() == QAbstractSocket::ConnectedState; }
    void Drop() { socket.abort(); }

    /// How many bytes each arrival brought.
    QList<qsizetype> arrivals;

private:
    bool waitForMore(int milliseconds);

    QTcpSocket socket;
    QByteArray buffer;
};
