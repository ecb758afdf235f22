#pragma once

#include <QString>

#include <functional>

/// Shows a line of progress on the login window.
using ShowStatus = std::function<void(const QString &)>;

// What the client asks of the server around the login. Each exchange fails softly: a line in the
// log, an empty answer, and the login goes on.

/// Takes the parameter lines, `section = key = value`, and writes each to options.ini. Settings
/// that were read before keep their values until the next start. False when the exchange did not
/// reach its end.
bool GetIniValues(const ShowStatus &show);

/// The broadcast message for all users, "" for none. Also in Session.strSystemMsg.
QString GetSystemMessage(const ShowStatus &show);

/// The private messages of a user, "" for none, or "No messages found." when the server refused or
/// did not answer. The request carries the credentials, so it can go out before the login.
QString GetPrivateMessage(const QString &userName, const QString &password, const QString &version,
                          const ShowStatus &show);

/// The availability of the courts, in the server's words. The login does not ask for it at present.
QString GetCourtStatus(const ShowStatus &show);

/// Asks whether the account uses client accounting, into Global.bClientAcctgOpt; without an answer
/// the flag stays as it is.
void GetClientAcctgOption();

/// What stands for "there is no private message" throughout.
inline QString NoMessagesFound()
{
    return QStringLiteral("No messages found.");
}
