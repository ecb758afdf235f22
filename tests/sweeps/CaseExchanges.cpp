// The tabs of every kind of case: in its first run, and in a later one that the user asks for.

#include "casedetails/DistrictDesk.h"
#include "casedetails/TabFamily.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "sweeps/CaseRuns.h"

#include <QDialog>
#include <QPushButton>

namespace {
const QString endMark = u"EOF~"_s;

/// The tabs of the courts that TabFamily and DistrictDesk write out, in one form.
QList<CaseTabExchange> tabs()
{
    QList<CaseTabExchange> all;
    for (const FamilyMember &member : family) {
        all.append({.Name = QLatin1StringView(member.name),
                    .Court = member.state.toString(),
                    .Kind = CaseKind::State,
                    .Tab = member.tab,
                    .Request = member.request.toString(),
                    .Head = TableHead(member),
                    .Rows = {TableRow(member, u"1~a~"_s), TableRow(member, u"2~b~"_s)},
                    .LastFirst = member.lastFirst,
                    .Incomplete = member.incomplete.toString()});
    }
    for (const DistrictWindow &window : districtWindows) {
        for (const DistrictTab &tab : window.tabs) {
            all.append({.Name = QLatin1StringView(window.name) + u' '
                                + CaseTabRowOf(tab.tab).caption.toString().toLower(),
                        .Court = u"WA"_s,
                        .Kind = window.kind,
                        .Tab = tab.tab,
                        .Request = DistrictLineOf(window.kind, tab.word),
                        .Notes = {tab.noteHead + u"Note~"_s},
                        .Head = {u"GRIDDEF~Date~Entry~20~80~"_s},
                        .Rows = {u"1~a~"_s, u"2~b~"_s},
                        .LastFirst = tab.tab == CaseTab::Docket || tab.tab == CaseTab::Judgments,
                        .Incomplete = tab.incomplete.toString()});
        }
    }
    return all;
}

const QList<CaseTabExchange> &tabTable()
{
    static const QList<CaseTabExchange> all = tabs();
    return all;
}

const QList<SummaryExchange> &summaryTable()
{
    const QString superior = SuperiorLine(u"SUMMARY"_s);
    const QStringList superiorReply{u"Case#:~02-1-00123-4~"_s,
                                    u"Court:~King~"_s,
                                    u"Title:~A~"_s,
                                    u"Filed:~1~"_s,
                                    u"Status:~Open~"_s,
                                    endMark};
    const QStringList stateReply{u"SUMMARY~names~"_s, u"Court~Ada~"_s, u"Number~1~"_s,
                                 u"Title~A~"_s, endMark};
    const QList<QStringList> stateCells{{u"Item"_s, u"Description"_s},
                                        {u"Court: "_s, u"Ada"_s},
                                        {u"Number: "_s, u"1"_s},
                                        {u"Title: "_s, u"A"_s}};
    const QList<QStringList> superiorCells{{u"Item"_s, u"Description"_s},
                                           {u"Status:"_s, u"Open"_s}};
    static const QList<SummaryExchange> all{
        {.Name = u"Superior summary"_s,
         .Court = u"WA"_s,
         .Request = superior,
         .Reply = QStringList{u"Searching~King~"_s} + superiorReply,
         .Cells = superiorCells},
        {.Name = u"Superior summary, with the answer about arbitration"_s,
         .Court = u"WA"_s,
         .Request = superior.chopped(2) + u" ARBITRATION¦¦"_s,
         .Reply = superiorReply,
         .Cells = superiorCells,
         .Asks = true},
        {.Name = u"Superior summary, asked later"_s,
         .Court = u"WA"_s,
         .Request = superior,
         .Reply = superiorReply,
         .Cells = superiorCells,
         .Later = true},
        {.Name = u"Oregon summary"_s,
         .Court = u"OR"_s,
         .Request = u"OREGON@SUMMARY,NAMES,DOCKET,@CV0100001@BAK C@"_s,
         .Reply = stateReply,
         .Cells = stateCells},
        {.Name = u"Idaho summary"_s,
         .Court = u"ID"_s,
         .Request = u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-2001-1¦Ada¦"_s,
         .Reply = stateReply,
         .Cells = stateCells},
        {.Name = u"bankruptcy summary"_s,
         .Court = u"WAWBK"_s,
         .Request = u"BKRPT~SUMMARY~99-20077~WAW~"_s,
         .Reply = {u"Case Title~A~"_s, u"Chapter~7~"_s, u"Date Filed~1~"_s, u"Judge~B~"_s, endMark},
         .Cells = {{u"Item"_s, u"Description"_s},
                   {u"Case Title: "_s, u"A"_s},
                   {u"Chapter: "_s, u"7"_s},
                   {u"Date Filed: "_s, u"1"_s},
                   {u"Judge: "_s, u"B"_s}}},
        {.Name = u"bankruptcy, several cases of a number"_s,
         .Court = u"WAWBK"_s,
         .Request = u"BKRPT~SUMMARY~99-20077~WAW~"_s,
         .Reply = {u"MULTIPLE"_s, u"99-1/RETRIEVECOMMAND=BKRPT~SUMMARY~99-1~/7/A/"_s, endMark},
         .Cells = {{u"Case#"_s, u"Type"_s, u"Title"_s}, {u"99-1"_s, u"7"_s, u"A"_s}}},
        {.Name = u"non-civil summary"_s,
         .Court = u"WA"_s,
         .Kind = CaseKind::NonCivil,
         .Request = DistrictLineOf(CaseKind::NonCivil, u"NCNCC"),
         .Reply = DistrictSummary(CaseKind::NonCivil) + QStringList{endMark},
         .Cells = {{u"Item"_s, u"Description"_s, u"Item"_s, u"Description"_s},
                   {u"Status"_s, u"Open"_s, {}, {}}}},
        {.Name = u"civil summary"_s,
         .Court = u"WA"_s,
         .Kind = CaseKind::Civil,
         .Request = DistrictLineOf(CaseKind::Civil, u"CIVI"),
         .Reply = DistrictSummary(CaseKind::Civil) + QStringList{endMark},
         .Cells = {{u"Summary Item"_s, u"Item Description"_s, u"Notes"_s},
                   {u"Case Type: "_s, u"Civil"_s, u"WA State District/Municipal Cts."_s},
                   {u"Court Location: "_s, u"Southeast District"_s, {}},
                   {u"Date Filed: "_s, u"01/11/2005"_s, {}},
                   {u"Suit Amount: "_s, u"$1,250.00"_s, {}},
                   {u"Status"_s, u"Open"_s, {}}}},
    };
    return all;
}

/// The Summary that leads to a tab: it leaves the tab in the strip.
QStringList summaryBefore(const CaseTabExchange &tab)
{
    if (tab.Kind != CaseKind::State)
        return DistrictSummary(tab.Kind) + QStringList{endMark};
    if (tab.Court == u"WA")
        return CaseLines::SuperiorSummary() + QStringList{endMark};
    if (tab.Court == u"OR" || tab.Court == u"ID")
        return {u"SUMMARY~NAMES~DOCKET~JUDGMENTS~CHARGES~ACCOUNTING~FINANCE~SENTENCE~"_s,
                u"Court~Ada~"_s, u"Number~1~"_s, u"Title~A~"_s, endMark};
    return {u"Case Title~A~"_s, u"TabDef/RETRIEVECOMMAND="_s + tab.Request + u'/',
            u"Chapter~7~"_s,    u"Date Filed~1~"_s,
            u"Judge~B~"_s,      endMark};
}
} // namespace

QList<Exchange> CaseExchanges()
{
    QList<Exchange> all;
    for (const SummaryExchange &summary : summaryTable()) {
        QByteArrayList before;
        if (summary.Asks)
            before = {ScriptedCourt::Tokens({u"USERQUESTION~Arbitration~"_s, endMark})};
        else if (summary.Later)
            before = {ScriptedCourt::Tokens({u"ERROR unknown error~"_s, endMark})};
        all.append({.Name = summary.Name,
                    .Request = summary.Request,
                    .Reply = ScriptedCourt::Tokens(summary.Reply),
                    .Before = before,
                    .NeededTokens = summary.Reply.size(),
                    .Make = [&summary](ExchangeDesk &desk) { return MakeRun(desk, summary); }});
    }
    for (const CaseTabExchange &tab : tabTable()) {
        const QStringList reply = tab.Notes + tab.Head + tab.Rows + QStringList{endMark};
        for (const bool later : {false, true})
            all.append(
                {.Name = tab.Name + (later ? u", asked later"_s : QString()),
                 .Request = tab.Request,
                 .Reply = ScriptedCourt::Tokens(reply),
                 .Before = {ScriptedCourt::Tokens(summaryBefore(tab))},
                 .NeededTokens = reply.size(),
                 .Make = [&tab, later](ExchangeDesk &desk) { return MakeRun(desk, tab, later); }});
    }
    return all;
}
