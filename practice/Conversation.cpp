#include "practice/Conversation.h"

#include "practice/SuperiorSearch.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr qsizetype anyNumber = -1;

// The longest of the requests that do not wait has a dozen bytes.
constexpr qsizetype longestUrgent = 64;

Reply refusal(const QString &reason)
{
    Reply reply;
    reply.Say(u"ERROR~%1~"_s.arg(reason)).Finish();
    return reply;
}

Reply tell(const QString &text)
{
    Reply reply;
    reply.Say(text).Finish();
    return reply;
}

Reply nothing()
{
    Reply reply;
    reply.Finish();
    return reply;
}
} // namespace

struct Conversation::Known
{
    const char16_t *keyword;
    QChar delimiter;
    qsizetype fields;
    bool needsLogin;
    Reply (Conversation::*answer)(const Request &request);
};

const Conversation::Known *Conversation::find(const Request &request)
{
    using C = Conversation;
    static constexpr std::array<Known, 12> table{{
        {u"LOGON", brokenBar, 3, false, &C::answerLogon},
        {u"GETINIVAL", brokenBar, 0, false, &C::answerParameters},
        {u"GETMSG", brokenBar, 0, false, &C::answerBroadcast},
        {u"GET_PRIV_MSG", brokenBar, 3, false, &C::answerPrivateMessages},
        {u"COURT_STATUS", brokenBar, 0, false, &C::answerCourtStatus},
        {u"GETCLIENTACCTGOPT", tilde, 0, false, &C::answerAccountingOption},
        {u"WASUP", brokenBar, anyNumber, true, &C::answerSuperior},
        {u"OREGON", brokenBar, anyNumber, true, &C::answerNotServed},
        {u"IDSUP", brokenBar, anyNumber, true, &C::answerNotServed},
        {u"WADISCIS", brokenBar, anyNumber, true, &C::answerNotServed},
        {u"INDEX", tilde, anyNumber, true, &C::answerNotServed},
        {u"BKRPT", tilde, anyNumber, true, &C::answerNotServed},
    }};
    for (const Known &known : table) {
        if (request.keyword == QStringView(known.keyword) && request.delimiter == known.delimiter
            && (known.fields == anyNumber || known.fields == request.fields.size()))
            return &known;
    }
    return nullptr;
}

Conversation::Conversation(const Population &population, QDate today)
    : people(population), thisYear(today.year())
{
}

Conversation::Turn Conversation::TurnOf(QByteArrayView request)
{
    if (request.size() > longestUrgent)
        return Turn::Waits;
    const Request parsed = ParseRequest(request);
    if (IsStop(parsed))
        return Turn::Stops;
    return IsAlive(parsed) ? Turn::Alive : Turn::Waits;
}

Reply Conversation::Answer(QByteArrayView request)
{
    const Request parsed = ParseRequest(request);
    const Known *known = find(parsed);
    if (known == nullptr)
        return refusal(u"Unknown request"_s);
    if (known->needsLogin && !loggedIn)
        return refusal(u"Not logged in"_s);
    return (this->*known->answer)(parsed);
}

Reply Conversation::answerLogon(const Request &request)
{
    user = KindOfUser(request.fields[0], request.fields[1]);
    loggedIn = false;
    Reply reply;
    switch (user) {
    case UserKind::Refused:
        return refusal(u"Invalid User Name and/or PW"_s);
    case UserKind::NoEndMark:
        reply.Say(u"ERROR~Invalid User Name and/or PW~"_s).Silence();
        return reply;
    case UserKind::Silent:
        reply.Silence();
        return reply;
    case UserKind::Dropped:
        reply.Drop();
        return reply;
    case UserKind::Ordinary:
    case UserKind::Accounting:
    case UserKind::Mail:
    case UserKind::Quiet:
        break;
    }
    loggedIn = true;
    return nothing();
}

Reply Conversation::answerParameters(const Request & /*request*/)
{
    if (user == UserKind::Quiet)
        return nothing();
    Reply reply;
    reply.Say(u"Searching=MaxIndexResults=500"_s).Say(u"EOS~"_s).Finish();
    return reply;
}

Reply Conversation::answerBroadcast(const Request & /*request*/)
{
    if (user == UserKind::Quiet)
        return nothing();
    return tell(u"Welcome to the practice court. The people and cases here are made up. To begin, "
                "search for SMITH, JOHN Q in King county."_s);
}

/// Comes before the login, so it brings the credentials along.
Reply Conversation::answerPrivateMessages(const Request &request)
{
    const UserKind asking = KindOfUser(request.fields[0], request.fields[1]);
    if (asking == UserKind::Refused || asking == UserKind::NoEndMark)
        return refusal(u"Invalid User Name and/or PW"_s);
    if (asking == UserKind::Mail)
        return tell(u"Your practice invoice is ready: 0 searches, nothing to pay."_s);
    return tell(u"No messages found."_s);
}

Reply Conversation::answerCourtStatus(const Request & /*request*/)
{
    return tell(u"All practice courts are available."_s);
}

Reply Conversation::answerAccountingOption(const Request & /*request*/)
{
    return tell(loggedIn && user == UserKind::Accounting ? u"TRUE~"_s : u"FALSE~"_s);
}

Reply Conversation::answerSuperior(const Request &request)
{
    if (!request.fields.isEmpty() && request.fields.first() == u"SEARCH")
        return AnswerSuperiorSearch(people, request.fields, thisYear);
    return nothing();
}

Reply Conversation::answerNotServed(const Request & /*request*/)
{
    return nothing();
}
} // namespace Practice
