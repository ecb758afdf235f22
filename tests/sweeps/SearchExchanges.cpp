// The searches: every kind of line that the search form makes, the pages of an index, the people of
// one name, and a request that is asked once more.

#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "sweeps/ExchangeDesk.h"
#include "sweeps/Exchanges.h"

#include <QPointer>
#include <QPushButton>

namespace {
enum class Form { Name, Index, Civil, NonCivil, Defendants };

/// How a search ends whose reply came whole.
enum class WholeEnd { Completed, Incomplete, MaxNames, MaxResults, NextPage };

/// What leads to the exchange.
enum class Lead { None, AnotherCounty, FirstPage, People, FailedBefore };

struct SearchRow
{
    const char *name;
    Form form;
    QStringView state;
    QString request;
    QStringList reply;
    WholeEnd end = WholeEnd::Completed;
    Lead lead = Lead::None;
};

const QString searching = u"SEARCHING~King~"_s;
const QString endMark = u"EOF~"_s;
const QString bankruptcyRow = u"~05-1~RETRIEVECOMMAND=B~1~2~3~4~5~"_s;
const QString tooMany =
    u"This search resulted in more than 200 results. Please refine your search.~"_s;

const QString timedOut = u"Search Error! Reason: Timed Out Waiting For Response from Server."_s;
const QString courtLost = u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString scomisLost =
    u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString incompleteLine = u"SEARCH Incomplete from ProcessSearchReqeusts."_s;
const QString maxResultsLine =
    u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts()."_s;
/// The lines of the log that tell how a search ended, but for that of a good end.
const QStringList endLines{LinkLostLine, timedOut,       courtLost,
                           scomisLost,   incompleteLine, maxResultsLine};

QStringList rows(const QString &form)
{
    return {searching, u"ANN"_s + form, u"BOB"_s + form, endMark};
}

QString superior(const QString &name)
{
    return ResultLine(name);
}

const QString plain = u"~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s;
const QString idaho =
    u"~CR-1998-0002546-IN~05/08/1998~Speeding~ID District Ct Ada County~Defendant~"_s;
const QString oregon = u"~DO99120007~12/06/1999~Dissolution~OR Multnomah Co Cir Ct~Petitioner~"_s;
const QString district = CaseRow({});

/// The lines are those of docs/protocol.md.
const QList<SearchRow> &table()
{
    static const QList<SearchRow> all{
        {"Superior", Form::Name, u"WA", RequestLine(), rows(plain)},
        {"Superior, an error among the rows",
         Form::Name,
         u"WA",
         RequestLine(),
         {superior(u"ANN"_s), u"ERROR~Down~"_s, superior(u"BOB"_s), endMark},
         WholeEnd::Incomplete},
        {"Superior, too many hits",
         Form::Name,
         u"WA",
         RequestLine(),
         {superior(u"ANN"_s), u"ERROR~Too many hits~"_s, endMark},
         WholeEnd::MaxNames},
        {"Superior, more than 200 results",
         Form::Name,
         u"WA",
         RequestLine(),
         {superior(u"ANN"_s), tooMany, endMark},
         WholeEnd::MaxResults},
        {"Superior, the heirs thereof",
         Form::Name,
         u"WA",
         RequestLine(),
         {u"ANN~02-2-02029-9~01/02/2002~Civil~King~Heirs THEREOF~"_s, endMark}},
        {"Superior, the second county", Form::Name, u"WA", RequestLine(u"SMITH"_s, u"Adams"_s),
         rows(plain), WholeEnd::Completed, Lead::AnotherCounty},
        {"Superior, asked once more", Form::Name, u"WA", RequestLine(), rows(plain),
         WholeEnd::Completed, Lead::FailedBefore},
        {"Oregon, a county", Form::Name, u"OR", u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,DO,¦¦¦"_s,
         rows(oregon)},
        {"Oregon, statewide", Form::Name, u"OR", u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,¦¦¦"_s,
         rows(oregon)},
        {"Idaho, a county", Form::Name, u"ID", u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Ada,¦CV,JU,¦¦¦"_s,
         rows(idaho)},
        {"Idaho, statewide", Form::Name, u"ID", u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CR,¦¦¦"_s,
         rows(idaho)},
        {"bankruptcy, a person", Form::Name, u"WAWBK",
         u"BKRPT~SEARCH~SMITH~JOHN~Q~~WAW~*ALL~1980~2005~"_s, rows(bankruptcyRow)},
        {"bankruptcy, a business", Form::Name, u"WAEBK",
         u"BKRPT~SEARCHBUS~ACME INC~WAE~*ALL~1980~2005~"_s, rows(bankruptcyRow)},
        {"bankruptcy, a tax number", Form::Name, u"IDBK",
         u"BKRPT~SEARCHTID~00-0000001~ID~*ALL~1980~2005~"_s, rows(bankruptcyRow)},
        {"bankruptcy, a social security number", Form::Name, u"ORBK",
         u"BKRPT~SEARCHSSN~900-00-0001~OR~*ALL~1980~2005~"_s, rows(bankruptcyRow)},
        {"index",
         Form::Index,
         u"WA",
         IndexLine(),
         {searching, IndexRow(u"ANN"_s), IndexRow(u"BOB"_s), endMark}},
        {"index, an error and the end",
         Form::Index,
         u"WA",
         IndexLine(),
         {IndexRow(u"ANN"_s), u"ERROR~Down~"_s, endMark}},
        {"index, a page with a next one",
         Form::Index,
         u"WA",
         IndexLine(),
         {IndexRow(u"ANN"_s), LimitRow(500, 700)},
         WholeEnd::NextPage},
        {"index, the next page",
         Form::Index,
         u"WA",
         IndexLine(501, 1000),
         {IndexRow(u"ANN"_s), endMark},
         WholeEnd::Completed,
         Lead::FirstPage},
        {"district, civil", Form::Civil, u"WA", DistrictLine(), rows(district)},
        {"district, non-civil", Form::NonCivil, u"WA", DistrictLine(u"BED"_s, u"IN"_s),
         rows(district)},
        {"statewide", Form::NonCivil, u"WA", StatewideLine(), rows(district)},
        {"statewide, people of one name",
         Form::NonCivil,
         u"WA",
         StatewideLine(),
         {PersonRow(u"ANN"_s), PersonRow(u"BOB"_s), endMark}},
        {"statewide with addresses",
         Form::Defendants,
         u"WA",
         StatewideLine(u"DND"_s),
         {AddressRow(u"ANN"_s, u"K1"_s), AddressRow(u"BOB"_s, u"K2"_s), endMark}},
        {"the cases of a person", Form::NonCivil, u"WA", CasesLine(u"ANN"_s, 1), rows(district),
         WholeEnd::Completed, Lead::People},
        {"the cases of a person with an address", Form::Defendants, u"WA",
         u"WADISCIS¦SEARCH¦SMITH, JOHN, Q¦SMITH, ANN¦M¦01/02/1970¦K1¦01¦DNDND¦"_s, rows(district),
         WholeEnd::Completed, Lead::People},
    };
    return all;
}

bool isDistrict(Form form)
{
    return form != Form::Name && form != Form::Index;
}

bool isPerson(const QString &token)
{
    return token.startsWith(u"NCNMD~") || token.startsWith(u"NCDND~");
}

/// The rows that stand in these tokens, by the name in front of them.
QStringList namesIn(const QStringList &tokens, bool people)
{
    QStringList names;
    for (const QString &token : tokens) {
        const bool isRow = !token.startsWith(u"SEARCHING") && !token.startsWith(u"ERROR")
                           && !token.startsWith(u"WARNING") && token != endMark && token != tooMany;
        if (isRow && isPerson(token) == people)
            names.append(people ? token.section(u'~', 1, 1) : token.section(u'~', 0, 0));
    }
    return names;
}

/// With so many tokens the exchange is over.
qsizetype neededTokens(const SearchRow &row)
{
    return row.end == WholeEnd::MaxResults ? row.reply.indexOf(tooMany) + 1 : row.reply.size();
}

QList<QStringList> leadOf(const SearchRow &row)
{
    switch (row.lead) {
    case Lead::None:
        return {};
    case Lead::AnotherCounty:
        return {{superior(u"ADA"_s), endMark}};
    case Lead::FirstPage:
        return {{IndexRow(u"ADA"_s), LimitRow(500, 700)}};
    case Lead::People:
        return {{row.form == Form::Defendants ? AddressRow(u"ANN"_s, u"K1"_s) : PersonRow(u"ANN"_s),
                 endMark}};
    case Lead::FailedBefore:
        return {{superior(u"ANN"_s), u"ERROR~Down~"_s, endMark}};
    }
    return {};
}

QByteArrayList beforeOf(const SearchRow &row)
{
    QByteArrayList replies;
    const QList<QStringList> before = leadOf(row);
    for (const QStringList &tokens : before)
        replies.append(ScriptedCourt::Tokens(tokens));
    return replies;
}

NameResultsWindow *makeWindow(const SearchRow &row)
{
    switch (row.form) {
    case Form::Name:
    case Form::Index:
        return new frmNameSearchResults(row.state.toString(), row.form == Form::Index);
    case Form::Civil:
        return new frmDiscisNameResults;
    case Form::NonCivil:
        return new frmDiscisNCNameResults(DiscisDndSearch::No);
    case Form::Defendants:
        break;
    }
    return new frmDiscisNCNameResults(DiscisDndSearch::Yes);
}

/// What is read at the end of a search.
struct Texts
{
    QString Status;
    QString SearchStatus;
    QString Count;
    QString Court;
    QString Log;
    bool Trouble = false;
    bool SearchTrouble = false;
    bool Incomplete = false;
};

class SearchRun : public ExchangeRun
{
public:
    SearchRun(ExchangeDesk &ownDesk, const SearchRow &ownRow)
        : desk(ownDesk), row(ownRow), window(makeWindow(ownRow))
    {
    }
    ~SearchRun() override { delete window; }

    bool Go() override;
    JobWindow *Window() const override { return window; }
    bool IsOver() const override;
    QStringList Seen() const override;
    QStringList Expected(const Came &came) const override;

private:
    bool lead();
    Texts lost(const QStringList &cases, const QStringList &people, const Came &came) const;
    Texts completed(const QStringList &cases, const QStringList &people) const;
    Texts whole(const QStringList &cases, const QStringList &people) const;
    Texts retried(const QStringList &tokens, const Came &came) const;
    QString countLabel(qsizetype count) const;
    QStringList logOf(const Texts &texts, const Came &came) const;

    ExchangeDesk &desk;
    const SearchRow &row;
    QPointer<NameResultsWindow> window;
};

bool SearchRun::Go()
{
    LoadDiscisCourts();
    QStringList lines{row.request};
    if (row.lead == Lead::AnotherCounty)
        lines.prepend(RequestLine());
    else if (row.lead == Lead::FirstPage)
        lines = {IndexLine()};
    else if (row.lead == Lead::People)
        lines = {StatewideLine(row.form == Form::Defendants ? u"DND"_s : u"SNCI"_s)};
    desk.User().Enqueue(window.data(), lines);
    window->Timer1->start(0);
    return lead() && desk.User().Finish(window);
}

/// What the user does behind the search that leads to this one.
bool SearchRun::lead()
{
    const char *button = nullptr;
    if (row.lead == Lead::FirstPage)
        button = "cmdSearchResults_4";
    else if (row.lead == Lead::People)
        button = "cmdSearchResults_0";
    else if (row.lead == Lead::FailedBefore)
        button = "cmdRetryFailed";
    if (!button)
        return true;
    if (!desk.User().Finish(window))
        return false;
    if (row.lead == Lead::People)
        CheckRow(window, 0);
    const QPushButton *pressed = ButtonOf(window, button);
    if (!LinkDesk::WaitUntil([pressed] { return pressed->isEnabled(); }))
        return false;
    Click(window, button);
    window->Timer1->start(0);
    return true;
}

bool SearchRun::IsOver() const
{
    return !window || !Global.bSearchInProgress;
}

QStringList SearchRun::Seen() const
{
    QStringList cases;
    for (const QStringList &cells : RowsOf(window))
        cases.append(cells.first());
    QStringList people;
    if (ListOf(window, "lvDupe")) {
        for (const QStringList &cells : RowsOf(window, "lvDupe"))
            people.append(cells.first());
    }
    const QList<CourtAnswer> &courts = window->Search().Record.Courts;
    return {
        Line("status", TextOf(window, "lblStatus") + u'/' + ColourOf(window, "lblStatus")),
        Line("search status",
             TextOf(window, "lblSearchStatus") + u'/' + ColourOf(window, "lblSearchStatus")),
        Line("count", TextOf(window, "Label3")),
        Line("cases", cases.join(u'+')),
        Line("people", people.join(u'+')),
        Line("court", courts.isEmpty() ? QString() : AnswerText(courts.last())),
        Line("incomplete", window->SearchIncomplete ? u"yes"_s : u"no"_s),
        Line("retry", window->Search().Record.RetryText),
        Line("log", desk.Logged(endLines).join(u'+')),
    };
}

QString SearchRun::countLabel(qsizetype count) const
{
    return (isDistrict(row.form) ? u"Cases Found: "_s : u"Retrieved: "_s) + QString::number(count);
}

Texts SearchRun::lost(const QStringList &cases, const QStringList &people, const Came &came) const
{
    const QStringList read = row.reply.mid(0, came.Tokens);
    const auto casesCame = static_cast<int>(namesIn(read, false).size());
    const auto peopleCame = static_cast<int>(namesIn(read, true).size());
    const bool errorCame = read.contains(u"ERROR~Down~"_s);
    QString court = u"Failed: "_s
                    + (errorCame                  ? u"Down"_s
                       : came.Lost || came.InPart ? u"the connection was lost"_s
                                                  : u"no answer came in time"_s);
    if (casesCame + peopleCame > 0)
        court += u" - "_s + FoundText(casesCame, peopleCame) + u" came, others may be missing"_s;
    // Behind a request that is not the last, the count is that of those before it until a row
    // comes.
    const bool lags = row.lead == Lead::AnotherCounty && casesCame == 0;
    return {.Status = u"Search Stopped - Court Connection Lost!"_s,
            .SearchStatus = u"Search Stopped. Court Connection Lost. Please Close Form and Retry"_s,
            .Count = countLabel(lags             ? 0
                                : peopleCame > 0 ? people.size()
                                                 : cases.size()),
            .Court = court,
            .Log = isDistrict(row.form) ? scomisLost : courtLost,
            .Trouble = true,
            // The line keeps the look that it had: behind a page with a next one it is red.
            .SearchTrouble = row.lead == Lead::FirstPage,
            .Incomplete = true};
}

Texts SearchRun::completed(const QStringList &cases, const QStringList &people) const
{
    const QString count = QString::number(cases.size());
    Texts texts{
        .Status = u"Search Complete: "_s + count + u" Cases Retrieved."_s,
        .SearchStatus =
            u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s,
        .Count = {},
        .Court = {},
        .Log = u"NORMAL EXIT - from ProcessSearchReqeusts."_s};
    const bool nonCivil = row.form == Form::NonCivil || row.form == Form::Defendants;
    if (nonCivil && !namesIn(row.reply, true).isEmpty()) {
        texts.Status = u"Search Complete:    "_s + QString::number(people.size())
                       + u" Duplicate Names Found."_s;
        texts.SearchStatus =
            u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s;
    } else if (nonCivil) {
        texts.Status = u"Search Complete:    "_s + count + u" Cases Retrieved."_s;
    }
    return texts;
}

Texts SearchRun::whole(const QStringList &cases, const QStringList &people) const
{
    const QString count = QString::number(cases.size());
    const auto casesCame = static_cast<int>(namesIn(row.reply, false).size());
    const auto peopleCame = static_cast<int>(namesIn(row.reply, true).size());
    const QString found = FoundText(casesCame, peopleCame);
    const bool error = row.reply.contains(u"ERROR~Down~"_s);
    const QString failed = u"Failed: Down - "_s + found + u" came, others may be missing"_s;
    switch (row.end) {
    case WholeEnd::Completed:
        break;
    case WholeEnd::Incomplete:
        return {.Status = u"Search Incomplete!"_s,
                .SearchStatus = u"Search Incomplete. Some Results May Not Have Been Retrieved. "
                                "Please Retry Search."_s,
                .Count = countLabel(cases.size()),
                .Court = failed,
                .Log = incompleteLine,
                .Trouble = true,
                .SearchTrouble = false,
                .Incomplete = true};
    case WholeEnd::MaxNames:
        return {.Status = u"Search Complete: "_s + count + u" Cases Retrieved."_s,
                .SearchStatus = u"The Max. Number of Names were retrieved. More cases exist. "
                                "Please refine search criteria."_s,
                .Count = u"Max. Names Found!"_s,
                .Court = u"Too many to list - "_s + found + u" came"_s,
                .Log = u"NORMAL EXIT - from ProcessSearchReqeusts."_s};
    case WholeEnd::MaxResults:
        return {.Status =
                    u"Search Stopped - Max Results Reached: "_s + count + u" Cases Retrieved."_s,
                .SearchStatus = u"Search Stopped on King Cty. Refine Search and Try Again."_s,
                .Count = {},
                .Court = u"Too many to list - "_s + found + u" came"_s,
                .Log = maxResultsLine};
    case WholeEnd::NextPage:
        return {.Status = u"Complete - 700 More Results Available"_s,
                .SearchStatus = u"700 more results are available for retrieval."_s,
                .Count = countLabel(cases.size()),
                .Court = found,
                .Log = {},
                .Trouble = true,
                .SearchTrouble = true};
    }
    Texts texts = completed(cases, people);
    texts.Court = error ? failed : found;
    return texts;
}

/// Beside the rows, a retry changes nothing of what the search says.
Texts SearchRun::retried(const QStringList &tokens, const Came &came) const
{
    const auto found = static_cast<int>(namesIn(tokens, false).size());
    Texts texts{.Status = u"Search Incomplete!"_s,
                .SearchStatus = u"Search Incomplete. Some Results May Not Have Been Retrieved. "
                                "Please Retry Search."_s,
                .Count = countLabel(1),
                .Court = FoundText(found, 0),
                .Log = {},
                .Trouble = true,
                .SearchTrouble = false,
                .Incomplete = true};
    if (came.Tokens < neededTokens(row))
        texts.Court = lost({}, {}, came).Court;
    return texts;
}

/// What the log says of the end, in its order.
QStringList SearchRun::logOf(const Texts &texts, const Came &came) const
{
    QStringList log;
    const bool again = row.lead == Lead::FailedBefore;
    if (again)
        log.append(incompleteLine);
    if (came.Tokens < neededTokens(row)) {
        if (came.Lost || came.InPart)
            log.append(LinkLostLine);
        log.append(timedOut);
    }
    // A retry ends in words of its own.
    if (!again && endLines.contains(texts.Log))
        log.append(texts.Log);
    return log;
}

QStringList SearchRun::Expected(const Came &came) const
{
    const bool isWhole = came.Tokens >= neededTokens(row);
    const QStringList tokens = row.reply.mid(0, came.Tokens);
    QStringList cases = namesIn(tokens, false);
    QStringList people = namesIn(tokens, true);
    QString retry;
    if (row.lead == Lead::FailedBefore) {
        const auto added = std::max<qsizetype>(0, cases.size() - 1);
        retry = u"Retry ended: %1 of 1 answered, %2 row%3 added."_s.arg(isWhole ? 1 : 0)
                    .arg(added)
                    .arg(added == 1 ? u""_s : u"s"_s);
        // It is in the list already.
        cases.removeOne(u"ANN"_s);
        cases.prepend(u"ANN"_s);
    } else if (row.lead == Lead::People) {
        people = {u">>SMITH, ANN"_s};
    } else if (row.lead != Lead::None) {
        cases.prepend(u"ADA"_s);
    }
    Texts texts = isWhole ? whole(cases, people) : lost(cases, people, came);
    if (row.lead == Lead::FailedBefore)
        texts = retried(tokens, came);
    if (isWhole && row.end == WholeEnd::MaxResults)
        cases.append(u"**Warning**"_s);
    const auto colour = [](bool trouble) { return trouble ? u"/red"_s : u"/blue"_s; };
    return {
        Line("status", texts.Status + colour(texts.Trouble)),
        Line("search status", texts.SearchStatus + colour(texts.SearchTrouble)),
        Line("count", texts.Count),
        Line("cases", cases.join(u'+')),
        Line("people", people.join(u'+')),
        Line("court", texts.Court),
        Line("incomplete", texts.Incomplete ? u"yes"_s : u"no"_s),
        Line("retry", retry),
        Line("log", logOf(texts, came).join(u'+')),
    };
}
} // namespace

QList<Exchange> SearchExchanges()
{
    QList<Exchange> all;
    for (const SearchRow &row : table()) {
        all.append({.Name = QLatin1StringView(row.name),
                    .Request = row.request,
                    .Reply = ScriptedCourt::Tokens(row.reply),
                    .Before = beforeOf(row),
                    .NeededTokens = neededTokens(row),
                    .Make = [&row](ExchangeDesk &desk) {
                        return std::make_unique<SearchRun>(desk, row);
                    }});
    }
    return all;
}
