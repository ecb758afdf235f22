#include "support/FakeSocket.h"

#include "core/GlobalState.h"
#include "link/frmWinsock.h"

#include <QMetaObject>
#include <QPointer>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
QPointer<FakeSocket> newest;
}

void FakeSocket::Install(const std::function<void(FakeSocket *)> &prepare)
{
    frmWinsock::SetSocketFactory([prepare](QObject *parent) {
        newest = new FakeSocket(parent);
        if (prepare)
            prepare(newest);
        return newest.data();
    });
}

FakeSocket *FakeSocket::Last()
{
    return newest;
}

SocketState FakeSocket::State() const
{
    if (tellsState)
        return tellsState();
    if (connectedAnswers <= 0)
        return state;
    --connectedAnswers;
    return SocketState::Connected;
}

void FakeSocket::TakeUpArrived()
{
    incoming.append(heldBack);
    if (!refills)
        heldBack.clear();
}

void FakeSocket::Connect()
{
    connectedTo.append(RemoteHost + u':' + QString::number(RemotePort));
    state = SocketState::Connecting;
    if (dialled)
        dialled();
    if (refuses)
        QTimer::singleShot(0, this, [this] {
            state = SocketState::Closed;
            Q_EMIT Error(0, u"The attempt to connect was forcefully rejected"_s);
        });
    else if (connects)
        QTimer::singleShot(0, this, [this] {
            state = SocketState::Connected;
            Q_EMIT Connected();
        });
}

void FakeSocket::Close()
{
    if (closes)
        state = SocketState::Closed;
}

void FakeSocket::SendData(const QByteArray &data)
{
    sent.append(data);
    if (!nextReply.isEmpty())
        ArriveLater({std::exchange(nextReply, {})});
    if (completesSends)
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT SendComplete(); }, Qt::QueuedConnection);
    if (heard)
        heard(data);
}

QByteArray FakeSocket::GetData(qint64 maximum)
{
    const QByteArray chunk = incoming.left(maximum);
    incoming.remove(0, chunk.size());
    return chunk;
}

void FakeSocket::Arrive(const QByteArray &bytes)
{
    incoming.append(bytes);
    Q_EMIT DataArrival(incoming.size());
}

void FakeSocket::ArriveLater(const QByteArrayList &pieces)
{
    if (pieces.isEmpty())
        return;
    QTimer::singleShot(0, this, [this, pieces] {
        Arrive(pieces.first());
        ArriveLater(pieces.mid(1));
    });
}

void FakeSocket::PeerCloses()
{
    state = SocketState::Closing;
    Q_EMIT Closed();
}

void FakeSocket::PeerClosesBehindTokens()
{
    auto *look = new QTimer(this);
    connect(look, &QTimer::timeout, this, [this, look] {
        if (!incoming.isEmpty() || Global.strRecvBuffer.View().count('|') >= 2)
            return;
        look->stop();
        look->deleteLater();
        PeerCloses();
    });
    look->start(1);
}
