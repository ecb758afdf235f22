#include "session/SessionCourt.h"

#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/PracticeAnswers.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostPieces = 400;

FakeSocket *socketNow()
{
    return frmWinsock::IsLoaded() ? FakeSocket::Last() : nullptr;
}
} // namespace

SessionCourt::SessionCourt()
{
    FakeSocket::Install([this](FakeSocket *socket) { prepare(socket); });
}

SessionCourt::~SessionCourt()
{
    frmWinsock::SetSocketFactory({});
}

void SessionCourt::prepare(FakeSocket *socket)
{
    socket->state = SocketState::Closed;
    socket->dialled = [this, socket] {
        pieces.clear();
        socket->connects = NextConnects == Door::Opens;
        socket->refuses = NextConnects == Door::Refuses;
    };
    socket->completesSends = CompletesSends;
    socket->heard = [this](const QByteArray &frame) { hear(frame); };
}

void SessionCourt::hear(const QByteArray &frame)
{
    lastFrame = frame;
    if (AnswersInPieces == 0)
        return;
    if (frame.contains("STOP")) {
        pieces = {"|EOF~|"};
        return;
    }
    Answer(AnswersInPieces);
}

void SessionCourt::Answer(qsizetype piece)
{
    if (!lastFrame.isEmpty())
        sayInPieces(PracticeAnswer(lastFrame), piece);
}

void SessionCourt::sayInPieces(const QByteArray &bytes, qsizetype size)
{
    // Small ones at the beginning; what goes beyond so many turns comes at once.
    for (qsizetype at = 0; at < bytes.size(); at += size) {
        if (pieces.size() >= mostPieces || size <= 0) {
            pieces.append(bytes.mid(at));
            return;
        }
        pieces.append(bytes.mid(at, size));
    }
}

void SessionCourt::SendPiece()
{
    Arrive(pieces.takeFirst());
}

void SessionCourt::Arrive(const QByteArray &bytes)
{
    FakeSocket *socket = socketNow();
    if (!socket || socket->state != SocketState::Connected)
        return;
    arrived += bytes.size();
    socket->Arrive(bytes);
}

void SessionCourt::HoldBack(const QByteArray &bytes)
{
    FakeSocket *socket = socketNow();
    if (!socket || socket->state != SocketState::Connected)
        return;
    arrived += bytes.size();
    socket->HoldBack(bytes);
}

void SessionCourt::CompleteSend()
{
    if (FakeSocket *socket = socketNow())
        Q_EMIT socket->SendComplete();
}

void SessionCourt::Close()
{
    pieces.clear();
    FakeSocket *socket = socketNow();
    if (socket && socket->state == SocketState::Connected)
        socket->PeerCloses();
}

void SessionCourt::Reset()
{
    pieces.clear();
    FakeSocket *socket = socketNow();
    if (!socket || socket->state != SocketState::Connected)
        return;
    socket->state = SocketState::Closing;
    Q_EMIT socket->Error(104, u"Connection reset by peer"_s);
    Q_EMIT socket->Closed();
}
