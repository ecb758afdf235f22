// The exchange of one tab: the request goes out, the lines of the reply come in until the end mark,
// and the table is made from them.

#include "casedetails/CaseExchange.h"
#include "casedetails/CaseJob.h"
#include "casedetails/TabGrids.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype errorWordLength = 5;

/// How the exchange of a tab ended.
struct TabResult
{
    bool Complete = false;
    QString Reason; ///< when it is not complete
};

/// `taken` is called for each line of the reply that is one of the responses now.
TabResult readTab(CaseTab tab, ListBox &responses, const std::function<void()> &taken)
{
    TabResult result{.Complete = true, .Reason = {}};
    const auto take = [&](const QString &line) {
        switch (ClassifyTabLine(tab, line)) {
        case TabLine::EndOfReply:
            return true;
        case TabLine::Error:
            result = {false, line.sliced(errorWordLength)};
            break;
        case TabLine::Progress:
            break;
        case TabLine::Data:
            responses.AddItem(TrimBlanks(line));
            // The names have no such line: they would fill the log with people.
            if (tab != CaseTab::Names)
                WriteAppInfo(u"Sent response to caller: "_s + line);
            taken();
            break;
        }
        return false;
    };
    if (!ReadTabReply(tab == CaseTab::Names ? u" Ret Val: " : u" ", take))
        return {false, ReplyTimedOut.toString()};
    return result;
}
} // namespace

void CaseJob::retrieveTab(CaseTab tab, const QString &request)
{
    if (tab == CaseTab::Summary) {
        DoSummarySearch(request);
        askAgainWithAnswer();
        return;
    }
    try {
        doTabSearch(tab, request);
    } catch (const RunTimeError &error) {
        tabFailed(tab, error);
    }
}

void CaseJob::tabFailed(CaseTab tab, const RunTimeError &error)
{
    WriteAppInfo(TextsOf(tab).ProcError + error.Description());
    FatalError = brokenDown;
    fatalText = error.Description();
    Sheet.SetAnswer(tab, AnswerState::Failed, fatalText);
}

void CaseJob::doTabSearch(CaseTab tab, const QString &request)
{
    const TabTexts texts = TextsOf(tab);
    CaseTabRecord &ofTab = Record.Tab(tab);
    WriteAppInfo(texts.Retrieving);
    ofTab.TabDone = false;
    lboxResponses.Clear();
    SetStatus(texts.Retrieving, StatusStyle::NormalBold);
    Sheet.SetAnswer(tab, AnswerState::Asking);
    // The names are what a client is billed for, as the Summary is.
    SendTabRequest(request, tab == CaseTab::Names ? Record.ClientAcctgCode : QString());
    const TabResult result = readTab(tab, lboxResponses, [this, tab] {
        if (tab == CaseTab::Documents)
            Sheet.AddDocumentLine(lboxResponses.Lines());
    });
    if (result.Complete) {
        WriteAppInfo(texts.AllReceived + request);
        Q_EMIT StatusToBeSeen();
        ShowTab(tab, false, request);
        SetStatus(texts.Complete, StatusStyle::NormalBold);
        WriteAppInfo(texts.NormalExit);
        ofTab.TabDone = true;
        ofTab.TabIncomplete = false;
        // A reply that ended with a stop looks whole, even when nothing had come.
        const bool whole = !isToEnd();
        Sheet.SetAnswer(tab, whole ? AnswerState::Found : AnswerState::Stopped);
        Q_EMIT TabCame(tab, whole);
        return;
    }
    WriteAppInfo(texts.SearchIncomplete + request);
    WriteAppInfo(texts.SearchResult + result.Reason);
    ShowTab(tab, true, request);
    SetStatus(texts.Incomplete, StatusStyle::NormalBold);
    Sheet.SetWarning(texts.Warning);
    ofTab.TabDone = false;
    ofTab.TabNotRetrieved = true;
    ofTab.TabIncomplete = true;
    Sheet.EndFailed(tab, result.Reason, isToEnd());
    Q_EMIT TabCame(tab, false);
}
