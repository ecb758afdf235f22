#include "link/Comm.h"

#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Windows1252.h"
#include "link/Framing.h"
#include "link/Router.h"
#include "link/ServerSocket.h"
#include "link/frmWinsock.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr float sendLimitSeconds = 30.0F;
constexpr int closeWaitMilliseconds = 1000;
constexpr qint16 shortLimitSeconds = 14;
constexpr int secondsPerMinute = 60;

/// While part of a token waits in the buffer the clock restarts on every round; sleeping no longer
/// than this is as good as going round all the time.
constexpr float longestPartialWaitSeconds = 1.0F;

/// The phases that have limits of their own. A later row goes before an earlier one.
struct PhaseLimit
{
    Boolean GlobalState::*flag;
    qint16 seconds;
};

constexpr std::array<PhaseLimit, 3> phaseLimits{{
    {&GlobalState::bGettingMessages, 12},
    {&GlobalState::bGettingParams, 12},
    {&GlobalState::bCheckingServer, 10},
}};

bool isConnected(const ServerSocket *socket)
{
    return socket && socket->State() == SocketState::Connected;
}

/// A full buffer without a complete token in it holds a token that no server has reason to send.
/// Its connection is closed; the next test of the state reports the loss.
void refuseEndlessToken()
{
    if (Global.strRecvBuffer.Size() < maximumBacklogBytes)
        return;
    WriteAppInfo(u"Refused a token of more than "_s + QString::number(maximumBacklogBytes)
                 + u" bytes. Closing the connection."_s);
    Global.strRecvBuffer.Clear();
    DropServerLink();
}

/// False when the socket is there, not connected, and cannot be closed to idle.
bool closedToIdle()
{
    if (!Global.sckServer || Global.sckServer->State() == SocketState::Connected)
        return true;
    Global.sckServer->Close();
    // The server closed its side, but we may have been faster than the event that reports it.
    Global.bConnectionClosed = true;
    Clock::Current().SleepMilliseconds(closeWaitMilliseconds);
    return Global.sckServer->State() == SocketState::Closed;
}
} // namespace

SendStatus TrySend(const QByteArray &data, ServerSocket *socket, Boolean &busyFlag)
{
    if (!isConnected(socket))
        return SendStatus::NotConnected;
    if (busyFlag)
        return SendStatus::TimedOut;
    busyFlag = true;
    socket->SendData(data);
    return SendStatus::Sent;
}

SendStatus SendWithTimeout(const QByteArray &data, ServerSocket *const &socket, Boolean &busyFlag,
                           float limitSeconds)
{
    const float start = Clock::Current().SecondsOfDay();
    const ServerSocket *const began = socket;
    SendStatus result = TrySend(data, socket, busyFlag);
    while (result == SendStatus::TimedOut) {
        const float elapsed = ElapsedSeconds(start);
        if (elapsed >= limitSeconds)
            return SendStatus::Busy;
        result = TrySend(data, socket, busyFlag);
        if (result == SendStatus::TimedOut)
            YieldUntilEvent(static_cast<double>(limitSeconds - elapsed));
    }
    if (result != SendStatus::Sent)
        return result;
    for (;;) {
        if (!busyFlag)
            return SendStatus::Sent;
        // Unloaded under the send: its completion will never be reported, and must not be waited
        // for.
        if (socket != began) {
            busyFlag = false;
            return SendStatus::TimedOut;
        }
        const float elapsed = ElapsedSeconds(start);
        if (elapsed >= limitSeconds)
            return SendStatus::TimedOut;
        YieldUntilEvent(static_cast<double>(limitSeconds - elapsed));
    }
}

SendStatus SendReq(const QString &request)
{
    const QByteArray frame = ToWindows1252(WrapDelimited(request, QChar(u'|')));
    const SendStatus status =
        SendWithTimeout(frame, Global.sckServer, Global.bSendBusy, sendLimitSeconds);
    if (frmWinsock::IsLoaded()) {
        if (status == SendStatus::NotConnected)
            frmWinsock::Form().StopInactivity();
        else
            frmWinsock::Form().RestartInactivity();
    }
    WriteAppInfo(u"SendReq: "_s + request);
    return status;
}

qint16 ResponseLimitSeconds()
{
    qint16 limit = 0;
    if (Global.bStopRequested || Global.bLoginBusy) {
        limit = shortLimitSeconds;
    } else {
        const int seconds = Global.intSearchTimeout * secondsPerMinute;
        if (seconds > std::numeric_limits<qint16>::max())
            throw RunTimeError::Overflow();
        limit = static_cast<qint16>(seconds);
    }
    for (const PhaseLimit &phase : phaseLimits) {
        if (Global.*phase.flag)
            limit = phase.seconds;
    }
    return limit;
}

Response ReadResponse()
{
    float start = Clock::Current().SecondsOfDay();
    const auto limit = static_cast<float>(ResponseLimitSeconds());
    // The reply belongs to this connection. One that is made inside the wait is somebody else's.
    const QPointer<ServerSocket> socket(Global.sckServer);
    for (;;) {
        const float elapsed = ElapsedSeconds(start);
        if (elapsed >= limit)
            return {ReadStatus::TimedOutOrLost, {}};
        if (Global.sckServer != socket || !isConnected(socket)) {
            WriteAppInfo(u"Connection Lost While Waiting for Response. "
                         "Exiting Process ReadResponse()"_s);
            return {ReadStatus::TimedOutOrLost, {}};
        }
        float longestWait = limit - elapsed;
        if (!Global.strRecvBuffer.IsEmpty()) {
            start = Clock::Current().SecondsOfDay();
            longestWait = longestPartialWaitSeconds;
        }
        const qsizetype before = Global.strRecvBuffer.Size();
        const QByteArray token = ExtractDelimited(Global.strRecvBuffer, frameBar);
        if (!token.isEmpty())
            return {ReadStatus::Token, FromWindows1252(token)};
        if (!closedToIdle())
            return {ReadStatus::NotClosed, {}};
        // Without a whole token in it the buffer takes as much as a token may have.
        const frmWinsock::BacklogBound room(maximumBacklogBytes);
        // An empty token was consumed: what stands behind it may be whole, however much it is.
        const bool consumed = Global.strRecvBuffer.Size() != before;
        if (!consumed)
            refuseEndlessToken();
        if (frmWinsock::IsLoaded())
            frmWinsock::Form().TakeArrivedData();
        // What stands behind an empty token is here already and wakes nobody.
        if (consumed || Global.strRecvBuffer.Size() != before)
            Yield();
        else
            YieldUntilEvent(static_cast<double>(longestWait));
        // A box may have stood over the wait for longer than the limit: what has come meanwhile has
        // come in time, and left where it is it would be read as the next reply.
        if (Global.strRecvBuffer.Size() > before)
            start = Clock::Current().SecondsOfDay();
    }
}
