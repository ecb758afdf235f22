#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

/// What a socket's State says. Anything but Connected counts as not connected.
enum class SocketState : qint16 {
    Closed = 0,
    ResolvingHost = 4,
    Connecting = 6,
    Connected = 7,
    Closing = 8, ///< the server has closed its side; stays until Close is called
};

/// The one TCP socket to the server, as the program's logic needs it. The events come only while
/// the event loop runs, never from inside a call.
///
/// It is an interface so that a test can be a network that behaves as no real one will on demand:
/// a send that never completes, a close that does not close.
class ServerSocket : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    QString RemoteHost;
    quint16 RemotePort = 0;
    quint16 LocalPort = 0;

    /// The address of this machine in its network, "127.0.0.1" when it has none.
    virtual QString LocalIP() const = 0;
    virtual SocketState State() const = 0;

    /// Starts a connect to RemoteHost and RemotePort; the events tell the outcome.
    virtual void Connect() = 0;
    virtual void Close() = 0;

    /// Hands the bytes over in one piece; SendComplete follows when they have left the program.
    virtual void SendData(const QByteArray &data) = 0;

    /// What was handed over and has not left the program yet.
    virtual qint64 BytesToSend() const = 0;

    virtual qint64 BytesAvailable() const = 0;
    /// Counts what has reached this machine into BytesAvailable although no event has reported it
    /// yet. Does not wait, and raises no event by itself.
    virtual void TakeUpArrived() {}
    virtual QByteArray GetData(qint64 maximum) = 0;

Q_SIGNALS:
    void Connected();
    void Closed();
    void ConnectionRequest();
    void DataArrival(qint64 bytesTotal);
    void SendProgress();
    void SendComplete();
    void Error(int number, const QString &description);
};
