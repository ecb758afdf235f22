#include "session/ServerExchanges.h"

#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Options.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"
#include "session/SessionState.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype shortestIniLine = 5;

/// A message is read by a person. What goes beyond this is dropped, so that a server gone wrong
/// cannot fill the memory.
constexpr qsizetype longestMessage = 1'000'000;

QString numberText(SendStatus status)
{
    return QString::number(Number(status));
}

QString numberText(ReadStatus status)
{
    return QString::number(Number(status));
}

void appendMessage(QString &message, const QString &token)
{
    message += TrimBlanks(token);
    if (message.size() > longestMessage) {
        message.truncate(longestMessage);
        WriteAppInfo(
            u"A message from the server was cut: it was longer than any message may be."_s);
    }
}

void applyIniLine()
{
    if (Session.strIniLine.size() < shortestIniLine)
        return;
    const QStringList parts = Session.strIniLine.split(u'=');
    SaveOptionStr(TrimBlanks(FieldAt(parts, 0)), TrimBlanks(FieldAt(parts, 1)),
                  TrimBlanks(FieldAt(parts, 2)));
}

bool isEndMark(const QString &token)
{
    return token.startsWith(u"EOF~");
}

bool readIniLines()
{
    bool complete = false;
    const ReadStatus status = ReadReply([&](const Response &response) {
        WriteAppInfo(u"Read INI file change request from HV Server. Reply was: "_s
                     + numberText(response.Status));
        complete = isEndMark(response.Token);
        if (complete)
            Global.bGettingParams = false;
        else if (response.Token.startsWith(u"EOS~"))
            applyIniLine();
        else if (response.Status == ReadStatus::Token)
            Session.strIniLine = TrimBlanks(response.Token);
        return complete;
    });
    if (status == ReadStatus::TimedOutOrLost)
        WriteAppInfo(u"Server Timeout - No Response From Server during GetINIval retrieval!!"_s);
    else if (status != ReadStatus::Token)
        WriteAppInfo(u"Lost connection to server during retrieval of System INI settings"_s);
    return complete;
}

QString readSystemMessage()
{
    const auto take = [](const Response &response) {
        WriteAppInfo(u"Read message broadcast from HV Server. Reply was: "_s
                     + numberText(response.Status));
        if (response.Status != ReadStatus::Token || isEndMark(response.Token))
            return true;
        appendMessage(Session.strSystemMsg, response.Token);
        return false;
    };
    const ReadStatus status = ReadReply(take, EachRound::GoesOn);
    Global.bGettingMessages = false;
    if (status == ReadStatus::Token)
        return Session.strSystemMsg;
    WriteAppInfo(status == ReadStatus::TimedOutOrLost
                     ? u"Server Timeout - No Response From Server during system message "
                       "retrieval!!"_s
                     : u"Lost connection to server"_s);
    Session.strSystemMsg.clear();
    return {};
}

QString noPrivateMessage()
{
    Session.strPrivateMsgs.clear();
    return NoMessagesFound();
}

QString readPrivateMessage()
{
    bool refused = false;
    const ReadStatus status = ReadReply([&](const Response &response) {
        // Before the status: an error ends the exchange however it came.
        refused = response.Token.contains(u"ERROR", Qt::CaseInsensitive);
        if (refused)
            return true;
        WriteAppInfo(u"Read private message broadcast from HV Server. Reply was: "_s
                     + numberText(response.Status));
        if (isEndMark(response.Token))
            return true;
        appendMessage(Session.strPrivateMsgs, response.Token);
        return false;
    });
    if (refused)
        return noPrivateMessage();
    if (status != ReadStatus::Token) {
        WriteAppInfo(u"No Response From Server during system message retrieval! Skipping."_s);
        return noPrivateMessage();
    }
    return Session.strPrivateMsgs == NoMessagesFound() ? QString() : Session.strPrivateMsgs;
}

QString readCourtStatus()
{
    QString availability;
    Global.bCheckingServer = true;
    const auto take = [&availability](const Response &response) {
        // The limit of the next token is chosen by it, whoever has cleared it meanwhile.
        Global.bCheckingServer = true;
        WriteAppInfo(u"Read Court Availability from HV Server. Reply was: "_s
                     + numberText(response.Status));
        if (isEndMark(response.Token))
            return true;
        availability = TrimBlanks(response.Token);
        return false;
    };
    const ReadStatus status = ReadReply(take, EachRound::GoesOn);
    if (status == ReadStatus::Token)
        return availability;
    WriteAppInfo(status == ReadStatus::TimedOutOrLost
                     ? u"Server Timeout - No Response From Server during court availability "
                       "retrieval!!"_s
                     : u"Lost connection to server during court availability retrieval!!"_s);
    return u"Alert! Unable to Connect to Halvane at this time. Please try again later."_s;
}

void readClientAcctgOption()
{
    const ReadStatus status = ReadReply([](const Response &response) {
        WriteAppInfo(u"Read Client Accounting Option from HV Server. Reply was: "_s
                     + numberText(response.Status));
        const QString token = response.Token.toUpper();
        const bool demanded = token.contains(u"TRUE~");
        const bool answered = demanded || token.contains(u"FALSE~") || token.contains(u"EOF~");
        if (answered)
            Global.bClientAcctgOpt = demanded;
        return answered;
    });
    if (status == ReadStatus::TimedOutOrLost)
        WriteAppInfo(u"Server Timeout - No Response From Server during GETCLIENTACCTGOPT "
                     "retrieval!!"_s);
    else if (status != ReadStatus::Token)
        WriteAppInfo(u"Lost connection to server during retrieval of GETCLIENTACCTGOPT settings"_s);
}
} // namespace

bool GetIniValues(const ShowStatus &show)
{
    try {
        Global.bGettingParams = true;
        WriteAppInfo(u"******** Retrieving System Parameter Updates ********"_s);
        show(u"Please Wait.. Retrieving Important System Update(s) From Server .."_s);
        const SendStatus sent = BeginExchange(ComposeLine(fieldBar, {u"GETINIVAL"_s}));
        WriteAppInfo(u"Sent GetIniVal request and result was: "_s + numberText(sent));
        return readIniLines();
    } catch (const RunTimeError &) {
        WriteAppInfo(u"Error While Retrieving System Params"_s);
        return false;
    }
}

QString GetSystemMessage(const ShowStatus &show)
{
    try {
        WriteAppInfo(u"******** Retrieving System Broadcast Message ********"_s);
        Session.strSystemMsg.clear();
        Global.bGettingMessages = true;
        show(u"Please Wait.. Retrieving Important System Message(s) From Server .."_s);
        const SendStatus sent = BeginExchange(ComposeLine(fieldBar, {u"GETMSG"_s}));
        WriteAppInfo(u"Sent Message request and result was: "_s + numberText(sent));
        return readSystemMessage();
    } catch (const RunTimeError &) {
        Global.bGettingMessages = false;
        WriteAppInfo(u"Error While Retrieving the System Message"_s);
        return {};
    }
}

QString GetPrivateMessage(const QString &userName, const QString &password, const QString &version,
                          const ShowStatus &show)
{
    try {
        Session.strPrivateMsgs.clear();
        WriteAppInfo(u"******** Retrieving Private Messages ********"_s);
        show(u"Please Wait. Retrieving Important Private Message(s) .."_s);
        const SendStatus sent =
            BeginExchange(ComposeLine(fieldBar, {u"GET_PRIV_MSG"_s, userName, password, version}));
        WriteAppInfo(u"Sent Private Message request and result was: "_s + numberText(sent));
        return readPrivateMessage();
    } catch (const RunTimeError &) {
        WriteAppInfo(u"Error *** in GetPrivateMessage()::While Retrieving Private Messages"_s);
        return {};
    }
}

QString GetCourtStatus(const ShowStatus &show)
{
    try {
        show(u"Checking Court Availability.."_s);
        const SendStatus sent = BeginExchange(ComposeLine(fieldBar, {u"COURT_STATUS"_s}));
        WriteAppInfo(u"Requesting Court Availability From Server and Result is: "_s
                     + numberText(sent));
        const QString status = readCourtStatus();
        const QString complete = u"Checking Court Availability Complete .."_s;
        show(complete);
        WriteAppInfo(complete);
        Global.bCheckingServer = false;
        return status;
    } catch (const RunTimeError &) {
        Global.bCheckingServer = false;
        WriteAppInfo(u"Error While Retrieving the Court Availability Status. The Application will "
                     "attempt to continue."_s);
        return {};
    }
}

void GetClientAcctgOption()
{
    try {
        BeginExchange(ComposeLine(u'~', {u"GETCLIENTACCTGOPT"_s}));
        readClientAcctgOption();
    } catch (const RunTimeError &) {
        WriteAppInfo(u"Error While Retrieving the Client Accounting Option"_s);
    }
}
