#pragma once

#include "session/ServerExchanges.h"

/// What a login, or a logout, comes back with.
enum class SessionResult : qint16 {
    LoggedIn = 901,
    InvalidCredentials = 904,
    LoggedOut = 907,
    NoReply = 922,
    ConnectionLost = 954
};

constexpr qint16 Number(SessionResult result)
{
    return static_cast<qint16>(result);
}

/// Sends the login request and reads its reply to the end. There is no positive word of acceptance:
/// a reply that ends without an error is one. Sets bLoggedIn, and keeps the credentials as sent.
SessionResult Login(const QString &userName, const QString &password, const QString &version,
                    const ShowStatus &show);
