#include "practice/Conversation.h"

#include "core/Windows1252.h"
#include "practice/BankruptcySearch.h"
#include "practice/BankruptcyTabs.h"
#include "practice/DistrictSearch.h"
#include "practice/DistrictTabs.h"
#include "practice/IndexSearch.h"
#include "practice/SearchFields.h"
#include "practice/StateSearch.h"
#include "practice/StateTabs.h"
#include "practice/SuperiorSearch.h"
#include "practice/SuperiorTabs.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr qsizetype anyNumber = -1;

// The longest of the requests that do not wait has a dozen bytes.
constexpr qsizetype longestUrgent = 64;

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

bool isSearch(const Request &request)
{
    return !request.fields.isEmpty() && request.fields.first() == u"SEARCH";
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
    static constexpr std::array<Known, 14> table{{
        {u"LOGON", brokenBar, 3, false, &C::answerLogon},
        {u"GETINIVAL", brokenBar, 0, false, &C::answerParameters},
        {u"GETMSG", brokenBar, 0, false, &C::answerBroadcast},
        {u"GET_PRIV_MSG", brokenBar, 3, false, &C::answerPrivateMessages},
        {u"COURT_STATUS", brokenBar, 0, false, &C::answerCourtStatus},
        {u"GETCLIENTACCTGOPT", tilde, 0, false, &C::answerAccountingOption},
        {u"WASUP", brokenBar, anyNumber, true, &C::answerSuperior},
        {u"WASUPDOC", brokenBar, anyNumber, true, &C::answerDocuments},
        {u"OREGON", brokenBar, anyNumber, true, &C::answerOregon},
        {u"OREGON", atSign, anyNumber, true, &C::answerOregon},
        {u"IDSUP", brokenBar, anyNumber, true, &C::answerIdaho},
        {u"WADISCIS", brokenBar, anyNumber, true, &C::answerDistrict},
        {u"INDEX", tilde, anyNumber, true, &C::answerIndex},
        {u"BKRPT", tilde, anyNumber, true, &C::answerBankruptcy},
    }};
    for (const Known &known : table) {
        if (request.keyword == QStringView(known.keyword) && request.delimiter == known.delimiter
            && (known.fields == anyNumber || known.fields == request.fields.size()))
            return &known;
    }
    return nullptr;
}

Conversation::Conversation(const Population &population, QDate theDay,
                           std::shared_ptr<TabMemory> remembered, qint64 pace)
    : people(population), today(theDay), thisYear(theDay.year()), memory(std::move(remembered)),
      documentPace(pace), lists(theDay.year())
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
    // What the client asks a document with ends as the row of the list does.
    if (const auto document = ParseDocumentRequest(FromWindows1252(request)))
        return loggedIn ? answerDocument(*document) : Refusal(u"Not logged in"_s);
    const Request parsed = ParseRequest(request);
    const Known *known = find(parsed);
    if (known == nullptr)
        return Refusal(u"Unknown request"_s);
    if (known->needsLogin && !loggedIn)
        return Refusal(u"Not logged in"_s);
    return (this->*known->answer)(parsed);
}

Reply Conversation::answerLogon(const Request &request)
{
    userName = request.fields[0].trimmed().toLower();
    user = KindOfUser(request.fields[0], request.fields[1]);
    loggedIn = false;
    Reply reply;
    switch (user) {
    case UserKind::Refused:
        return Refusal(u"Invalid User Name and/or PW"_s);
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
        return Refusal(u"Invalid User Name and/or PW"_s);
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

TabContext Conversation::context() const
{
    return {people, today, *memory, lists, userName};
}

// What is not a search asks for a tab of a case.

Reply Conversation::answerTab(CourtFamily family, const Request &request)
{
    const std::optional<TabAsked> asked = ParseTabRequest(family, request.fields);
    if (!asked)
        return Refusal(u"Unknown request"_s);
    switch (family) {
    case CourtFamily::Superior:
        return AnswerSuperiorTab(context(), *asked);
    case CourtFamily::Oregon:
        return AnswerStateTab(OtherFamily::Oregon, context(), *asked);
    case CourtFamily::Idaho:
        return AnswerStateTab(OtherFamily::Idaho, context(), *asked);
    case CourtFamily::District:
        return AnswerDistrictTab(context(), *asked);
    case CourtFamily::Bankruptcy:
        break;
    }
    return AnswerBankruptcyTab(context(), *asked);
}

Reply Conversation::answerSuperior(const Request &request)
{
    if (!isSearch(request))
        return answerTab(CourtFamily::Superior, request);
    lists.Note(CourtFamily::Superior, request.fields);
    return AnswerSuperiorSearch(people, request.fields, thisYear);
}

Reply Conversation::answerDocuments(const Request &request)
{
    const std::optional<TabAsked> asked = ParseDocumentsRequest(request.fields);
    if (!asked)
        return Refusal(u"Unknown request"_s);
    return AnswerSuperiorTab(context(), *asked);
}

Reply Conversation::answerDocument(const DocumentAsked &asked) const
{
    const std::optional<ListedDocument> document = FindSuperiorDocument(context(), asked);
    return document ? DocumentReply(*document, documentPace) : Refusal(u"Document not found"_s);
}

Reply Conversation::answerOregon(const Request &request)
{
    return answerState(OtherFamily::Oregon, request);
}

Reply Conversation::answerIdaho(const Request &request)
{
    return answerState(OtherFamily::Idaho, request);
}

Reply Conversation::answerState(OtherFamily family, const Request &request)
{
    if (!isSearch(request))
        return answerTab(CourtFamilyOf(family), request);
    lists.Note(CourtFamilyOf(family), request.fields);
    return AnswerStateSearch(family, people, request.fields, thisYear);
}

Reply Conversation::answerDistrict(const Request &request)
{
    if (!isSearch(request))
        return answerTab(CourtFamily::District, request);
    lists.Note(CourtFamily::District, request.fields);
    return AnswerDistrictSearch(people, request.fields, thisYear);
}

/// The index has no cases of its own: its rows open those of the Superior Courts.
Reply Conversation::answerIndex(const Request &request)
{
    if (!isSearch(request))
        return Refusal(u"Unknown request"_s);
    lists.Note(CourtFamily::Superior, request.fields);
    return AnswerIndexSearch(people, request.fields, thisYear);
}

Reply Conversation::answerBankruptcy(const Request &request)
{
    if (!IsBankruptcySearch(request.fields))
        return answerTab(CourtFamily::Bankruptcy, request);
    lists.Note(CourtFamily::Bankruptcy, request.fields);
    return AnswerBankruptcySearch(people, request.fields, thisYear);
}
} // namespace Practice
