#include "link/Exchange.h"

#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "link/ServerSocket.h"
#include "link/frmWinsock.h"

#include <QPointer>

#include <algorithm>

namespace {
constexpr float longestTurnSeconds = 1.0F;
/// A reader that has no turns of its own lets the event loop have one behind so many tokens, or so
/// many characters in them: a court that goes on and on must not keep the window from answering.
constexpr int tokensAtOnce = 1'000;
constexpr qsizetype charactersAtOnce = 200'000;

/// Tells when the event loop is to have a turn.
class TokensAtOnce
{
public:
    bool AreEnough(const QString &token)
    {
        ++tokens;
        characters += token.size();
        if (tokens < tokensAtOnce && characters < charactersAtOnce)
            return false;
        *this = {};
        return true;
    }

private:
    int tokens = 0;
    qsizetype characters = 0;
};

bool isStillOurs(const ServerSocket *socket)
{
    return socket && Global.sckServer == socket && socket->State() == SocketState::Connected;
}

/// The server closed its side, but we may have been faster than the event that reports it.
void closeDeadLink(ServerSocket *socket)
{
    if (!socket || Global.sckServer != socket)
        return;
    socket->Close();
    Global.bConnectionClosed = true;
}
} // namespace

SendStatus BeginExchange(const QString &request)
{
    frmWinsock::DiscardArrivedData();
    const SendStatus status = SendReq(request);
    if (status == SendStatus::Sent)
        Q_EMIT LinkEvents::Of().RequestSent(request);
    return status;
}

SendStatus InterruptExchange(const QString &request)
{
    return SendReq(request);
}

bool IsLinkUp()
{
    return Global.sckServer && Global.sckServer->State() == SocketState::Connected;
}

ReadStatus ReadReply(const std::function<bool(const Response &response)> &take, EachRound round)
{
    const frmWinsock::BacklogBound bound(maximumUnreadBytes);
    TokensAtOnce without;
    for (;;) {
        const Response response = ReadResponse();
        const bool over = take(response);
        if (over || response.Status != ReadStatus::Token)
            return response.Status;
        if (round == EachRound::Yields)
            YieldBetween();
        else if (without.AreEnough(response.Token))
            Yield();
    }
}

BytesStatus ReadBytes(const std::function<bool(QByteArray piece)> &take,
                      const std::function<float()> &limitSeconds)
{
    const frmWinsock::BacklogBound bound(maximumPieceBytes);
    float start = Clock::Current().SecondsOfDay();
    // The reply belongs to this connection. One that is made inside the wait is somebody else's.
    const QPointer<ServerSocket> socket(Global.sckServer);
    for (;;) {
        const bool ours = Global.sckServer == socket;
        const QByteArray piece = ours ? Global.strRecvBuffer.TakeAll() : QByteArray();
        if (!piece.isEmpty())
            start = Clock::Current().SecondsOfDay();
        if (take(piece))
            return BytesStatus::Over;
        // Whatever came while `take` was busy is in time.
        if (!Global.strRecvBuffer.IsEmpty() && Global.sckServer == socket)
            continue;
        const float elapsed = ElapsedSeconds(start);
        const float limit = limitSeconds();
        if (elapsed >= limit)
            return BytesStatus::Silent;
        if (!isStillOurs(socket)) {
            closeDeadLink(socket);
            return BytesStatus::Lost;
        }
        frmWinsock::Form().TakeArrivedData();
        if (Global.strRecvBuffer.IsEmpty())
            YieldUntilEvent(static_cast<double>(std::min(limit - elapsed, longestTurnSeconds)));
        else
            Yield();
    }
}

void DropRestOfReply()
{
    frmWinsock::DiscardArrivedData();
}
