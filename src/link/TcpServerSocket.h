#pragma once

#include "link/ServerSocket.h"

#include <QTcpSocket>

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
    void reportError(QAbstractSocket::SocketError error);
    void reportWritten();

    QTcpSocket socket;
    bool peerClosed = false;
    bool closingHere = false;
};

/// Makes LocalIP answer as if the machine were in a network: a practice court lies on this machine
/// and needs none.
void AssumeNetworkAddress(bool assume);
