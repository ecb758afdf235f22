#pragma once

#include "core/Boolean.h"

#include <QString>

class ServerSocket;

/// What SendReq says.
enum class SendStatus : qint16 {
    Sent = 0,
    TimedOut = 1,     ///< handed to the socket, and not seen to leave within the limit
    Busy = 2,         ///< an earlier send kept the socket busy for all of the limit
    NotConnected = -1 ///< nothing was sent
};

/// What ReadResponse says. A lost link and silence share a value; only the log tells them apart.
enum class ReadStatus : qint16 {
    Token = 0,
    TimedOutOrLost = 1,
    NotClosed = -1 ///< the socket was found unconnected and could not be closed to idle
};

/// The number of a status, as the log lines show it.
constexpr qint16 Number(SendStatus status)
{
    return static_cast<qint16>(status);
}
constexpr qint16 Number(ReadStatus status)
{
    return static_cast<qint16>(status);
}

/// Sends a request, given without its bars, and waits up to 30 seconds until it has left. Logs the
/// request as it is, a password in it included. Restarts the idle count, or stops it when there is
/// no connection.
SendStatus SendReq(const QString &request);

struct Response
{
    ReadStatus Status;
    QString Token; ///< not empty when Status is Token
};

/// Waits for the next token that is not empty.
///
/// The limit is chosen when the call begins: 14 seconds after a stop request or during the login,
/// otherwise the search time-out setting in minutes; 12 and 12 for messages and parameters and 10
/// while the server is being checked, which go before the others. It measures silence on an empty
/// buffer: a token that has come in part restarts the clock on every round.
///
/// Throws error 6 ("Overflow") when the setting in seconds does not fit 16 bits.
Response ReadResponse();

/// One attempt to hand bytes to the socket: Sent, NotConnected, or TimedOut while `busyFlag` says
/// that an earlier send is still under way.
SendStatus TrySend(const QByteArray &data, ServerSocket *socket, Boolean &busyFlag);

/// Attempts until the socket is free, then waits until `busyFlag` is cleared by the socket's
/// SendComplete, `limitSeconds` in all.
SendStatus SendWithTimeout(const QByteArray &data, ServerSocket *const &socket, Boolean &busyFlag,
                           float limitSeconds);

/// The limit that ReadResponse would choose now, in seconds.
qint16 ResponseLimitSeconds();
