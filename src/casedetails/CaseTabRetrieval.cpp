// The exchange of one tab: the request goes out, the lines of the reply come in until the end mark,
// and the grid is made from them.

#include "casedetails/CaseWindow.h"
#include "casedetails/TabGrids.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/ClientCode.h"
#include "link/Comm.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {
constexpr int brokenDown = 911;
constexpr qsizetype errorWordLength = 5;

const QString linkLost = u"Halvane Server Connection was Dropped!"_s;
} // namespace

/// A request that does not leave breaks the tab down, as a lost link does.
void CaseWindow::sendTabRequest(const QString &request, bool withClientCode)
{
    QString line = TrimBlanks(request);
    if (withClientCode && !ClientAcctgCode.isEmpty())
        line = EmbedClientCode(line, ClientAcctgCode);
    if (SendReq(line) != SendStatus::Sent)
        throw RunTimeError(0, linkLost);
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
    QString errorText;
    bool failed = false;
    for (;;) {
        const Response response = ReadResponse();
        const QString status = QString::number(Number(response.Status));
        const QString behind = tab == CaseTab::Names ? u" Ret Val: "_s : u" "_s;
        WriteAppInfo(u"Current Response: --> "_s + response.Token + behind + status);
        if (response.Status == ReadStatus::TimedOutOrLost)
            return {false, u"Search Error! Reason: Timed Out Waiting For Response from Server."_s};
        if (response.Status != ReadStatus::Token)
            throw RunTimeError(0, linkLost);
        switch (ClassifyTabLine(tab, response.Token)) {
        case TabLine::EndOfReply:
            return {!failed, errorText};
        case TabLine::Error:
            failed = true;
            errorText = response.Token.sliced(errorWordLength);
            break;
        case TabLine::Progress:
            break;
        case TabLine::Data:
            lboxResponses.AddItem(TrimBlanks(response.Token));
            // The names have no such line: they would fill the log with people.
            if (tab != CaseTab::Names)
                WriteAppInfo(u"Sent response to caller: "_s + response.Token);
            break;
        }
    }
}
