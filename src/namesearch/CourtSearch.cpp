#include "namesearch/CourtSearch.h"

#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "namesearch/Replies.h"
#include "namesearch/ResultColumns.h"
#include "namesearch/SearchCriteria.h"
#include "namesearch/ServerMessages.h"

using namespace Qt::StringLiterals;

CourtSearch::CourtSearch(const QString &state, bool indexSearch)
    : NameSearch(JobKindName::NameSearch, ResultsWindow::Name)
{
    Record.lblState = state;
    Record.chkIndexSearch = indexSearch;
    Record.Kind = ResultKindOf(state, indexSearch, false);
    chkBK = Record.Kind == ResultKind::Bankruptcy;
}

ResultKind CourtSearch::kindOfRows() const
{
    return ResultKindOf(Record.lblState, Record.chkIndexSearch, chkBK);
}

void CourtSearch::ShowSearchCriteria(int lineIndex)
{
    if (KeepsGivenCriteria(Record.lblState)) {
        SetText(&ResultsRecord::Caption, Record.lblNameVal + u" in "_s + Record.txtCountyList);
        return;
    }
    if (Record.chkIndexSearch)
        Label2 = u"Index Results"_s;
    const SearchCriteria criteria = CriteriaOf(
        lboxQueue.List(lineIndex), {Record.lblState, Record.chkIndexSearch, Record.txtCountyList});
    SetNameVal(criteria.Name);
    SetText(&ResultsRecord::lblCaseTypeVals, criteria.CaseTypes);
    if (!criteria.Caption.isEmpty())
        SetText(&ResultsRecord::Caption, criteria.Caption);
}

void CourtSearch::AddRow(const QString &row)
{
    AddParsedRow(row, kindOfRows());
}

CaseStart CourtSearch::CaseOf(const QStringList &cells) const
{
    return CaseOfRow(cells, kindOfRows(), Record.lblState);
}

NameSearch::ReplyEffect CourtSearch::TakeReply(const QString &reply)
{
    return Record.chkIndexSearch ? takeIndexReply(reply) : NameSearch::TakeReply(reply);
}

void CourtSearch::EndSearch(SearchOutcome outcome)
{
    if (outcome == SearchOutcome::ServerMessage)
        showServerMessage();
    else
        NameSearch::EndSearch(outcome);
}

void CourtSearch::WithdrawOffer()
{
    pageOffered = false;
    Q_EMIT Changed();
    clearServerTexts();
}

/// An error by itself does not end the search: the end mark behind it completes the search as if
/// nothing had happened, and the error's own words are shown only when a warning comes between the
/// two.
NameSearch::ReplyEffect CourtSearch::takeIndexReply(const QString &reply)
{
    switch (ClassifyIndexReply(reply)) {
    case IndexReplyKind::Progress:
        break;
    case IndexReplyKind::EndOfSearch:
        return {.EndsSearch = SearchOutcome::Completed};
    case IndexReplyKind::Error:
        ServerErrorSeen = true;
        NoteError();
        ServerErrorText = TrimBlanks(reply);
        courts.TakeError(ServerErrorText.section(u'~', 1));
        break;
    case IndexReplyKind::Warning:
        ServerWarningSeen = true;
        ServerWarningText = TrimBlanks(reply);
        WriteAppInfo(u"Error or Warning Message Received During Index Search: "_s + reply);
        return {.EndsSearch = SearchOutcome::ServerMessage};
    case IndexReplyKind::Row:
        AddRowOnce(TrimBlanks(reply));
        break;
    }
    return {};
}

void CourtSearch::showServerMessage()
{
    SetOver();
    SetCount(QString::number(RowCount()));
    const ServerMessageRow &row =
        ServerMessageRowOf(ServerErrorSeen ? ServerErrorText : QString(), ServerWarningText);
    // Some messages have no words of their own: the lines turn red as they are.
    SetStatus(Status.Text, StatusStyle::TroubleBold);
    SetSearchStatus(Record.lblSearchStatus.Text, StatusStyle::TroubleBold);
    try {
        const QString more = row.pageLimit ? RowsStillToCome(ServerWarningText) : QString();
        if (!row.status.isEmpty()) {
            SetStatus(row.status.toString().replace(u"%m"_s, more), StatusStyle::TroubleBold);
            SetSearchStatus(row.searchStatus.toString().replace(u"%m"_s, more),
                            StatusStyle::TroubleBold);
        }
        if (row.pageLimit)
            offerNextPage();
    } catch (const RunTimeError &error) {
        // A warning that cannot be read offers no next page; what came is still there.
        WriteAppInfo(u"Cannot read the page limit: "_s + error.Description());
    }
    clearServerTexts();
    Global.strRecvBuffer.Clear();
    FinishRun();
}

void CourtSearch::offerNextPage()
{
    offerPage(NextPageOf(ServerWarningText, Global.intMaxIndexResults));
    ShowCount(RowCount());
}

void CourtSearch::offerPage(const NextPage &page)
{
    const QString request = PageRequest(lboxQueue.List(0), page);
    NextLowerLimit = page.Lower;
    NextUpperLimit = page.Upper;
    pageCount = page.Count;
    lboxQueue.Clear();
    lboxQueue.AddItem(request);
    pageOffered = true;
    pageTaken = false;
}

QString CourtSearch::ServerTrouble() const
{
    const QString error = ServerErrorSeen ? ServerErrorText : QString();
    if (ServerMessageRowOf(error, ServerWarningText).pageLimit)
        return {};
    return (error.isEmpty() ? ServerWarningText : error).section(u'~', 1);
}

/// A page that came only now has brought the offer of the next with it, or is the last one.
void CourtSearch::EndRetry(SearchOutcome outcome)
{
    if (outcome == SearchOutcome::ServerMessage && ServerTrouble().isEmpty())
        offerPageOfRetry();
    else if (outcome == SearchOutcome::Completed && Record.chkIndexSearch && pageTaken)
        pageOffered = false;
    clearServerTexts();
    NameSearch::EndRetry(outcome);
}

/// Not a page that was offered before: it may have been asked for since.
void CourtSearch::offerPageOfRetry()
{
    try {
        const NextPage page = NextPageOf(ServerWarningText, Global.intMaxIndexResults);
        if (!pageOffered || page.Lower > NextLowerLimit)
            offerPage(page);
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Cannot read the page limit: "_s + error.Description());
    }
}

void CourtSearch::clearServerTexts()
{
    ServerErrorSeen = false;
    ServerErrorText.clear();
    ServerWarningSeen = false;
    ServerWarningText.clear();
}

void CourtSearch::GetNextPage()
{
    // A page is a new search: whatever all jobs were asked to stop for is over.
    Global.bStopRequested = false;
    ++SearchRunCount;
    pageTaken = true;
    // Pending again, so that Stop withdraws the key instead of stopping a search that has not
    // begun.
    SetStatus(Kind().Pending.toString(), StatusStyle::NormalBold);
    BeginSearching();
}
