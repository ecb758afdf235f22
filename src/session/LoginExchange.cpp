#include "session/LoginExchange.h"

#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/TextUtilities.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"
#include "session/SessionState.h"

using namespace Qt::StringLiterals;

namespace {
SessionResult loginFailed(SessionResult result, const QString &logLine)
{
    WriteAppInfo(logLine);
    Global.bLoggedIn = false;
    Global.bLoginBusy = false;
    return result;
}

bool isRefusal(const QString &token)
{
    return token.startsWith(u"ERROR") || token == u"Invalid User Name and/or PW";
}
} // namespace

SessionResult Login(const QString &userName, const QString &password, const QString &version,
                    const ShowStatus &show)
{
    WriteAppInfo(u"******** Client Login: Started ********"_s);
    Session.strUserName = TrimBlanks(userName);
    Session.strUserPassword = TrimBlanks(password);
    const QString request =
        ComposeLine(fieldBar, {u"LOGON"_s, Session.strUserName, Session.strUserPassword, version});
    show(u"Logging On .."_s);
    const SendStatus sent = BeginExchange(request);
    if (sent == SendStatus::NotConnected)
        return loginFailed(SessionResult::ConnectionLost, u"Cannot Contact Server to Login."_s);
    WriteAppInfo(u"Sent login request to Halvane. Result: "_s + QString::number(Number(sent)));

    bool refused = false;
    Global.bLoginBusy = true;
    const ReadStatus status = ReadReply([&refused](const Response &response) {
        // The limit of the next token is chosen by it, whoever has cleared it meanwhile.
        Global.bLoginBusy = true;
        WriteAppInfo(u"read response reply: "_s + QString::number(Number(response.Status)));
        if (isRefusal(response.Token)) {
            WriteAppInfo(u"Got an Error in Login! The Result Code was: Invalid User Name or "
                         "Password."_s);
            refused = true;
        }
        return response.Token.startsWith(u"EOF");
    });
    if (status == ReadStatus::TimedOutOrLost)
        return loginFailed(SessionResult::NoReply, u"Server Timeout - No Response From Server!"_s);
    if (status != ReadStatus::Token)
        return loginFailed(SessionResult::ConnectionLost, u"Lost connection to server"_s);
    if (refused)
        return loginFailed(SessionResult::InvalidCredentials,
                           u"Login Failed Due to Invalid User Name and/or Password!"_s);
    WriteAppInfo(u"Login Successful"_s);
    Global.bLoggedIn = true;
    Global.bLoginBusy = false;
    return SessionResult::LoggedIn;
}
