#pragma once

#include "link/ServerSocket.h"

#include <QByteArrayList>

#include <functional>

/// A socket without a network: the test decides what arrives, in which pieces, whether a send ever
/// completes, and what the state says. Install() makes every later load of frmWinsock use one. It
/// is the only one: what a test wants otherwise it says by the members below.
class FakeSocket : public ServerSocket
{
    Q_OBJECT
public:
    using ServerSocket::ServerSocket;

    /// From now on frmWinsock makes FakeSockets, each made ready by this; Last() is the newest.
    static void Install(const std::function<void(FakeSocket *)> &prepare = {});
    static FakeSocket *Last();

    QString LocalIP() const override { return localIP; }
    SocketState State() const override;
    void Connect() override;
    void Close() override;
    void SendData(const QByteArray &data) override;
    qint64 BytesToSend() const override { return unsent; }
    qint64 BytesAvailable() const override { return incoming.size(); }
    void TakeUpArrived() override;
    QByteArray GetData(qint64 maximum) override;

    /// Lets bytes arrive, now.
    void Arrive(const QByteArray &bytes);
    /// Lets these pieces arrive one a turn of the event loop, from the next turn on.
    void ArriveLater(const QByteArrayList &pieces);
    /// Lets bytes arrive at the turn after the next request, as its reply.
    void Answer(const QByteArray &bytes) { nextReply.append(bytes); }
    /// Lets bytes reach the machine without an event that tells of them.
    void HoldBack(const QByteArray &bytes) { heldBack.append(bytes); }
    /// The server closes its side.
    void PeerCloses();
    /// The same, once every whole token that arrived has been taken: at a turn of its own, however
    /// busy the machine is.
    void PeerClosesBehindTokens();

    SocketState state = SocketState::Connected;
    bool completesSends = true; ///< at the next turn of the event loop
    bool closes = true;         ///< false: Close leaves the state as it is
    bool connects = true;       ///< Connect succeeds at the next turn
    bool refuses = false;       ///< Connect is refused at the next turn
    bool refills = false;       ///< as much as was held back reaches the machine again and again
    qint64 unsent = 0;          ///< so many bytes nobody has read
    mutable int connectedAnswers = 0; ///< so often the state is Connected, whatever it is
    QString localIP = QStringLiteral("192.0.2.1");
    QByteArrayList sent;
    QStringList connectedTo; ///< "host:port" of each Connect
    /// Says the state in place of the socket.
    std::function<SocketState()> tellsState;
    /// Called at each Connect, before anything comes of it.
    std::function<void()> dialled;
    /// Called with each frame that goes out, behind the answer that was given by Answer().
    std::function<void(const QByteArray &frame)> heard;

private:
    QByteArray incoming;
    QByteArray heldBack;
    QByteArray nextReply;
};
