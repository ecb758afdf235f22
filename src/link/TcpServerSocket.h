#pragma once

#include "link/ServerSocket.h"

#include <QTcpSocket>

#include <functional>

/// The real ServerSocket, over QTcpSocket.
class TcpServerSocket : public ServerSocket
{
    Q_OBJECT
public:
    explicit TcpServerSocket(QObject *parent = nullptr);

    QString LocalIP() const override;
    SocketState State() const override;
    void Connect() override;
    void Close() override;
    void SendData(const QByteArray &data) override;
    qint64 BytesToSend() const override;
    qint64 BytesAvailable() const override;
    void TakeUpArrived() override;
    QByteArray GetData(qint64 maximum) override;

private:
    /// Does what makes Qt signal at once; the events follow on the next turn of the event loop.
    void quietly(const std::function<void()> &call);
    /// Lets an event happen now, or on the next turn when a call of ours is still on the stack.
    void fromEventLoop(const std::function<void()> &event);
    void reportArrival();
    void reportError(QAbstractSocket::SocketError error);
    void reportWritten();
    void completeSend();

    QTcpSocket socket;
    bool peerClosed = false;
    bool closingHere = false;
    bool insideCall = false; ///< what Qt signals now is passed on in the next turn
    bool sending = false;
    int closings = 0; ///< how often Close was called
};

/// Makes LocalIP answer as if the machine were in a network: a practice court lies on this machine
/// and needs none.
void AssumeNetworkAddress(bool assume);
