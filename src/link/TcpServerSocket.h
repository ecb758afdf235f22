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
    qint64 BytesAvailable() const override;
    QByteArray GetData(qint64 maximum) override;

private:
    /// Lets an event happen now, or on the next turn when a call of ours is still on the stack.
    void fromEventLoop(const std::function<void()> &event);
    void reportError(QAbstractSocket::SocketError error);
    void reportWritten();
    void completeSend();

    QTcpSocket socket;
    bool peerClosed = false;
    bool closingHere = false;
    bool insideSend = false;
    bool sending = false;
};

/// Makes LocalIP answer as if the machine were in a network: a practice court lies on this machine
/// and needs none.
void AssumeNetworkAddress(bool assume);
