// The index search of frmNameSearchResults: its replies, its messages and its pages.

#include "tables/ResultListView.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "namesearch/Replies.h"
#include "namesearch/ServerMessages.h"
#include "namesearch/frmNameSearchResults.h"
#include "ui_frmNameSearchResults.h"

using namespace Qt::StringLiterals;

/// An error by itself does not end the search: the end mark
/// behind it completes the search as if nothing had happened, and the error's own words are shown
/// only when a warning comes between the two.
NameResultsWindow::ReplyEffect frmNameSearchResults::takeIndexReply(const QString &reply)
{
    switch (ClassifyIndexReply(reply)) {
    case IndexReplyKind::Progress:
        break;
    case IndexReplyKind::EndOfSearch:
        return {.EndsSearch = SearchOutcome::Completed};
    case IndexReplyKind::Error:
        ServerErrorSeen = true;
        ServerErrorText = TrimBlanks(reply);
        break;
    case IndexReplyKind::Warning:
        ServerWarningSeen = true;
        ServerWarningText = TrimBlanks(reply);
        WriteAppInfo(u"Error or Warning Message Received During Index Search: "_s + reply);
        return {.EndsSearch = SearchOutcome::ServerMessage};
    case IndexReplyKind::Row:
        AddResultRow(TrimBlanks(reply));
        break;
    }
    return {};
}

void frmNameSearchResults::showServerMessage()
{
    EndJob();
    List()->List()->Flush();
    SetCount(QString::number(RowCount()));
    const ServerMessageRow &row =
        ServerMessageRowOf(ServerErrorSeen ? ServerErrorText : QString(), ServerWarningText);
    // Some messages have no words of their own: the labels turn red as they are.
    SetStatus(ui->lblStatus->text(), StatusStyle::TroubleBold);
    SetSearchStatus(ui->lblSearchStatus->text(), StatusStyle::TroubleBold);
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

void frmNameSearchResults::offerNextPage()
{
    const NextPage page = NextPageOf(ServerWarningText, Global.intMaxIndexResults);
    const QString request = PageRequest(lboxQueue.List(0), page);
    NextLowerLimit = page.Lower;
    NextUpperLimit = page.Upper;
    ui->cmdSearchResults_4->setText(u"Get Next "_s + page.Count + u" Cases"_s);
    lboxQueue.Clear();
    lboxQueue.AddItem(request);
    ui->cmdSearchResults_4->setEnabled(true);
    showPageButton(true);
    ShowCount(RowCount());
}

void frmNameSearchResults::clearServerTexts()
{
    ServerErrorSeen = false;
    ServerErrorText.clear();
    ServerWarningSeen = false;
    ServerWarningText.clear();
}

void frmNameSearchResults::cmdGetNext_Click()
{
    // Without a link the page would end as lost, and could not be asked for again.
    if (!MaySearch())
        return;
    // A page is a new search: whatever all jobs were asked to stop for is over.
    Global.bStopRequested = false;
    ++SearchRunCount;
    TurnOff(ui->cmdSearchResults_4);
    // Pending again, so that Stop withdraws the key instead of stopping a search that has not
    // begun.
    SetStatus(u"Pending .."_s, StatusStyle::NormalBold);
    BeginSearching();
}
