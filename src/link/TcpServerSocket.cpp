#include "link/TcpServerSocket.h"

#include <QMetaObject>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {
/// What Qt may hold for us. What is beyond it stays with the kernel, and in the end with the
/// server: a flood is slowed down instead of stored. A document of 200 MB comes in turns of so
/// much, and each turn costs some: in turns of half as much they take a twentieth longer.
constexpr qint64 readBufferBytes = 512 * 1024;

bool networkAssumed = false;
} // namespace

void AssumeNetworkAddress(bool assume)
{
    networkAssumed = assume;
}

TcpServerSocket::TcpServerSocket(QObject *parent) : ServerSocket(parent), socket(this)
{
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.setReadBufferSize(readBufferBytes);
    connect(&socket, &QTcpSocket::connected, this, [this] {
        // Requests are small and each waits for its answer: nothing may wait for a fuller packet.
        socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
        fromEventLoop([this] { Q_EMIT Connected(); });
    });
    connect(&socket, &QTcpSocket::readyRead, this, &TcpServerSocket::reportArrival);
    connect(&socket, &QTcpSocket::bytesWritten, this, &TcpServerSocket::reportWritten);
    connect(&socket, &QTcpSocket::errorOccurred, this, &TcpServerSocket::reportError);
    connect(&socket, &QTcpSocket::disconnected, this, [this] {
        if (closingHere)
            return;
        peerClosed = true;
        // What was not written never will be: the send is over, and nobody may wait for it.
        if (sending)
            completeSend();
        fromEventLoop([this] { Q_EMIT Closed(); });
    });
}

QString TcpServerSocket::LocalIP() const
{
    if (networkAssumed)
        return u"0.0.0.0"_s;
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : addresses) {
        if (!address.isLoopback() && !address.isLinkLocal())
            return address.toString();
    }
    return u"127.0.0.1"_s;
}

SocketState TcpServerSocket::State() const
{
    switch (socket.state()) {
    case QAbstractSocket::ConnectedState:
        return SocketState::Connected;
    case QAbstractSocket::HostLookupState:
        return SocketState::ResolvingHost;
    case QAbstractSocket::ConnectingState:
        return SocketState::Connecting;
    case QAbstractSocket::ClosingState:
        return SocketState::Closing;
    default:
        return peerClosed ? SocketState::Closing : SocketState::Closed;
    }
}

void TcpServerSocket::Connect()
{
    Close();
    // An address that cannot be one is refused at once, which is no event of this call either.
    quietly([this] {
        if (LocalPort != 0)
            socket.bind(LocalPort);
        socket.connectToHost(RemoteHost, RemotePort);
    });
}

void TcpServerSocket::Close()
{
    closingHere = true;
    socket.abort();
    closingHere = false;
    peerClosed = false;
    ++closings;
}

void TcpServerSocket::SendData(const QByteArray &data)
{
    // Flushing may find the connection dead, which is no event of this call.
    sending = true;
    quietly([this, &data] {
        socket.write(data);
        socket.flush();
    });
}

qint64 TcpServerSocket::BytesToSend() const
{
    return socket.bytesToWrite();
}

qint64 TcpServerSocket::BytesAvailable() const
{
    return socket.bytesAvailable();
}

void TcpServerSocket::TakeUpArrived()
{
    // Found by trial: when nothing has arrived Qt calls it a time-out, and when the connection has
    // ended, it reports the end.
    quietly([this] { socket.waitForReadyRead(0); });
}

QByteArray TcpServerSocket::GetData(qint64 maximum)
{
    return socket.read(maximum);
}

void TcpServerSocket::quietly(const std::function<void()> &call)
{
    const QScopedValueRollback<bool> guard(insideCall, true);
    call();
}

void TcpServerSocket::reportArrival()
{
    fromEventLoop([this] {
        // Somebody may have taken it up in between.
        if (const qint64 waiting = socket.bytesAvailable(); waiting > 0)
            Q_EMIT DataArrival(waiting);
    });
}

void TcpServerSocket::fromEventLoop(const std::function<void()> &event)
{
    if (!insideCall) {
        event();
        return;
    }
    // Nobody needs what this connection had to report once it was closed here.
    const auto tell = [this, event, before = closings] {
        if (before == closings)
            event();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void TcpServerSocket::reportError(QAbstractSocket::SocketError error)
{
    // The server's close is an event of its own and no error; nothing having arrived is neither.
    if (error == QAbstractSocket::RemoteHostClosedError
        || (error == QAbstractSocket::SocketTimeoutError && State() == SocketState::Connected))
        return;
    const QString description = error == QAbstractSocket::ConnectionRefusedError
                                    ? u"The attempt to connect was forcefully rejected"_s
                                    : socket.errorString();
    fromEventLoop([this, error, description] { Q_EMIT Error(error, description); });
}

void TcpServerSocket::reportWritten()
{
    if (socket.bytesToWrite() > 0) {
        Q_EMIT SendProgress();
        return;
    }
    completeSend();
}

void TcpServerSocket::completeSend()
{
    sending = false;
    // Flushing writes at once, inside SendData; the event still has to come from the event loop.
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT SendComplete(); }, Qt::QueuedConnection);
}
