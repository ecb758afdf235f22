// The exchange of one tab: the request goes out, the lines of the reply come in until the end mark,
// and the grid is made from them.

#include "casedetails/CaseWindow.h"
#include "casedetails/TabGrids.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype errorWordLength = 5;

constexpr QStringView linkLost = u"Halvane Server Connection was Dropped!";
} // namespace

/// A request that does not leave breaks the tab down, as a lost link does.
void CaseWindow::sendTabRequest(const QString &request, bool withClientCode)
{
    QString line = TrimBlanks(request);
    if (withClientCode && !ClientAcctgCode.isEmpty())
        line = EmbedClientCode(line, ClientAcctgCode);
    if (BeginExchange(line) != SendStatus::Sent)
        throw RunTimeError(0, linkLost.toString());
}

bool CaseWindow::readLines(QStringView beforeStatus,
                           const std::function<bool(const QString &line)> &take)
{
    const ReadStatus status = ReadReply([&](const Response &response) {
        WriteAppInfo(u"Current Response: --> "_s + response.Token + beforeStatus
                     + QString::number(Number(response.Status)));
        return response.Status == ReadStatus::Token && take(response.Token);
    });
    if (status == ReadStatus::NotClosed)
        throw RunTimeError(0, linkLost.toString());
    return status == ReadStatus::Token;
}

void CaseWindow::retrieveTab(CaseTab tab, const QString &request)
{
    if (tab == CaseTab::Summary) {
        retrieveSummary();
        return;
    }
    try {
        doTabSearch(tab, request);
    } catch (const RunTimeError &error) {
        tabFailed(tab, error);
    }
}

void CaseWindow::tabFailed(CaseTab tab, const RunTimeError &error)
{
    WriteAppInfo(TextsOf(tab).ProcError + error.Description());
    FatalError = brokenDown;
}

void CaseWindow::doTabSearch(CaseTab tab, const QString &request)
{
    const TabTexts texts = TextsOf(tab);
    CaseTabState &state = TabOf(tab);
    WriteAppInfo(texts.Retrieving);
    state.TabDone = false;
    lboxResponses.Clear();
    SetStatusText(texts.Retrieving);
    // The names are what a client is billed for, as the Summary is.
    sendTabRequest(request, tab == CaseTab::Names);
    const TabResult result = readTab(tab);
    if (result.Complete) {
        WriteAppInfo(texts.AllReceived + request);
        lblStatus->show();
        ShowTab(tab, false, request);
        SetStatusText(texts.Complete);
        WriteAppInfo(texts.NormalExit);
        state.TabDone = true;
        state.TabIncomplete = false;
        return;
    }
    WriteAppInfo(texts.SearchIncomplete + request);
    WriteAppInfo(texts.SearchResult + result.Reason);
    ShowTab(tab, true, request);
    SetStatusText(texts.Incomplete);
    SetWarning(texts.Warning);
    state.TabDone = false;
    state.TabNotRetrieved = true;
    state.TabIncomplete = true;
}

CaseWindow::TabResult CaseWindow::readTab(CaseTab tab)
{
    TabResult result{.Complete = true, .Reason = {}};
    const auto take = [this, tab, &result](const QString &line) {
        switch (ClassifyTabLine(tab, line)) {
        case TabLine::EndOfReply:
            return true;
        case TabLine::Error:
            result = {false, line.sliced(errorWordLength)};
            break;
        case TabLine::Progress:
            break;
        case TabLine::Data:
            lboxResponses.AddItem(TrimBlanks(line));
            // The names have no such line: they would fill the log with people.
            if (tab != CaseTab::Names)
                WriteAppInfo(u"Sent response to caller: "_s + line);
            break;
        }
        return false;
    };
    if (!readLines(tab == CaseTab::Names ? u" Ret Val: " : u" ", take))
        return {false, timedOut.toString()};
    return result;
}
