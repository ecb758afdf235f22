// The exchange of the Summary, which says what kind of case it is, whether there is one at all, and
// which tabs it has.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseExchange.h"
#include "casedetails/CaseJob.h"
#include "casedetails/CaseTalk.h"
#include "casedetails/GridGrammar.h"
#include "casedetails/SummaryReply.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView caseNotFound = u"Case Not Found";
constexpr QStringView notAvailable = u"N/A";
constexpr QStringView warningsStatus = u"Search Warnings - See Summary";
constexpr QStringView idahoIsDown = u"Idaho courts are currently unavailable, please try later.";
/// The fewest lines with which there is a case: its header, and an item in a civil one of the
/// District and Municipal Courts.
constexpr qsizetype fewestLinesOf(CaseKind kind)
{
    switch (kind) {
    case CaseKind::State:
        return 4;
    case CaseKind::NonCivil:
        return 6;
    case CaseKind::Civil:
        return 7;
    }
    return 0;
}

void logSummaryFailure(const QString &first, const QString &request, const QString &reason)
{
    WriteAppInfo(first + request);
    WriteAppInfo(TextsOf(CaseTab::Summary).SearchResult + reason);
}
} // namespace

/// What the lines of a Summary reply amount to.
struct CaseJob::SummaryRead
{
    QString ErrorText;
    QString TimeOut;        ///< the reason, when the end mark did not come
    bool Question = false;  ///< the court asks whether arbitration is meant
    bool Warnings = false;  ///< an error that makes the case invalid
    bool NotOnFile = false; ///< the reply ended before its end mark
};

void CaseJob::DoSummarySearch(const QString &request)
{
    CaseTabRecord &summary = Record.Tab(CaseTab::Summary);
    const TabTexts texts = TextsOf(CaseTab::Summary);
    try {
        summary.TabIncomplete = false;
        Record.NotLocated = false;
        Record.NoSuchCase = false;
        UserQuestion = false;
        InvalidNumber = false;
        if (summary.TabNotRetrieved)
            Sheet.SetWarning({});
        WriteAppInfo(texts.Retrieving);
        SetStatus(texts.Retrieving, StatusStyle::NormalBold);
        summary.TabDone = false;
        lboxResponses.Clear();
        Sheet.SetAnswer(CaseTab::Summary, AnswerState::Asking);
        SendTabRequest(request, Record.ClientAcctgCode);
        SummaryRead read;
        const auto take = [&](const QString &line) { return takeSummaryLine(line, request, read); };
        if (!ReadTabReply(u" ", take))
            read.TimeOut = ReplyTimedOut.toString();
        if (!read.TimeOut.isEmpty()) {
            summaryIncomplete(request, read.TimeOut);
        } else if (read.NotOnFile) {
            lboxResponses.Clear();
            lboxResponses.AddItem(caseNotFound.toString());
            ShowSummaryResponse();
            SetStatus(texts.Complete, StatusStyle::NormalBold);
            summaryComplete(request);
        } else {
            evaluateSummary(request, read);
        }
    } catch (const RunTimeError &error) {
        tabFailed(CaseTab::Summary, error);
    }
}

/// True when nothing more is read.
bool CaseJob::takeSummaryLine(const QString &line, const QString &request, SummaryRead &read)
{
    switch (ClassifySummaryLine(Record.lblState, line)) {
    case SummaryLine::EndOfReply:
        return true;
    case SummaryLine::BankruptcyNotFound:
        lboxResponses.Clear();
        lboxResponses.AddItem(caseNotFound.toString());
        Sheet.SetTitle(notAvailable.toString());
        Sheet.SetHeader(&CaseRecord::lblDateFiled, notAvailable.toString());
        SetStatus(TextsOf(CaseTab::Summary).Complete, StatusStyle::NormalBold);
        WriteAppInfo(TextsOf(CaseTab::Summary).AllReceived + request);
        break;
    case SummaryLine::NotOnFile:
        read.NotOnFile = true;
        return true;
    case SummaryLine::Error:
        takeSummaryError(line, read);
        break;
    case SummaryLine::Progress:
        break;
    case SummaryLine::UserQuestion:
        read.Question = true;
        break;
    case SummaryLine::Data:
        lboxResponses.AddItem(TrimBlanks(line));
        break;
    }
    return false;
}

void CaseJob::takeSummaryError(const QString &line, SummaryRead &read)
{
    const SummaryError error = ReadSummaryError(line);
    read.ErrorText = error.Text;
    Record.NoSuchCase |= IsNotOnFile(line);
    if (!error.LogLine.isEmpty())
        WriteAppInfo(error.LogLine);
    lboxResponses.AddItem(error.Response);
    if (error.Warnings) {
        read.Warnings = true;
        CaseInvalid = true;
    }
}

/// The court does not go on before it knows; the answer is part of every later request of the case.
void CaseJob::askArbitration()
{
    UserQuestion = true;
    const bool ArbitrationAnswer = talk && talk->AskArbitration();
    arbitration = ArbitrationAnswer ? ArbitrationMode::Arbitration : ArbitrationMode::NoArbitration;
    CaseAnswers.ArbitrationChosen = false;
}

void CaseJob::evaluateSummary(const QString &request, const SummaryRead &read)
{
    Q_EMIT StatusToBeSeen();
    if (read.Question) {
        if (!isToEnd())
            askArbitration();
        return;
    }
    if (IsInvalidNumber(read.ErrorText)) {
        summaryInvalid(request, read.ErrorText);
        return;
    }
    if (read.ErrorText.contains(u"idaho courts are currently unavailable, please try later",
                                Qt::CaseInsensitive)) {
        logSummaryFailure(TextsOf(CaseTab::Summary).SearchIncomplete, request,
                          u"Search Incomplete. Idaho Courts Are Currently Unavailable."_s);
        Record.lblState = u"ID"_s;
        lboxResponses.Clear();
        lboxResponses.AddItem(idahoIsDown.toString());
    } else if (read.Warnings) {
        SetStatus(warningsStatus.toString(), StatusStyle::NormalBold);
        summaryIncomplete(request, read.ErrorText);
        return;
    } else if (stopHasCutSummaryShort()) {
        return;
    } else if (Record.IsBankruptcy() && lboxResponses.ListCount() == 0) {
        lboxResponses.AddItem(caseNotFound.toString());
        Sheet.SetTitle(notAvailable.toString());
        Sheet.SetHeader(&CaseRecord::lblDateFiled, notAvailable.toString());
    }
    ShowSummaryResponse();
    // A reply that ended the search has said so itself.
    if (!Record.NotLocated)
        SetStatus(TextsOf(CaseTab::Summary).Complete, StatusStyle::NormalBold);
    summaryComplete(request);
}

/// A reply that ended with a stop before there was a case in it says nothing of the case: not that
/// there is none, and not that this is all of it. The run ends with the stop, and the Summary
/// offers itself as one that has not come.
bool CaseJob::stopHasCutSummaryShort() const
{
    return (StopRequested || Global.bStopRequested)
           && lboxResponses.ListCount() < fewestLinesOf(Record.Kind);
}

void CaseJob::summaryComplete(const QString &request)
{
    const TabTexts texts = TextsOf(CaseTab::Summary);
    WriteAppInfo(texts.AllReceived + request);
    WriteAppInfo(texts.NormalExit);
    Record.Tab(CaseTab::Summary).TabDone = true;
    Record.Tab(CaseTab::Summary).TabIncomplete = false;
    Sheet.SetAnswer(CaseTab::Summary, isToEnd() ? AnswerState::Stopped : AnswerState::Found);
}

/// The reason stands where the Summary would, alone.
void CaseJob::showFailedSummary(const QString &reason)
{
    SetStatus(warningsStatus.toString(), StatusStyle::TroubleBold);
    ShowSummaryFailure(reason);
    const QString shown = lboxResponses.List(0);
    InvalidNumber = IsInvalidNumber(shown);
    Sheet.ShowTable(CaseTab::Summary, OneCellTable(shown));
    ActivateTab(CaseTabRowOf(CaseTab::Summary).caption.toString());
    Sheet.RemoveAllTabsButFirst();
}

void CaseJob::summaryInvalid(const QString &request, const QString &reason)
{
    logSummaryFailure(u"Summary Search Incomplete. Invalid Case# for County. Request: "_s, request,
                      reason);
    Sheet.SetWarning(u"Summary Information Unvavailable! Case Number Invalid For County."_s);
    showFailedSummary(reason);
    CaseTabRecord &summary = Record.Tab(CaseTab::Summary);
    summary.TabNotRetrieved = false;
    summary.TabIncomplete = false;
    summary.TabDone = false;
    Sheet.EndFailed(CaseTab::Summary, reason, isToEnd());
}

void CaseJob::summaryIncomplete(const QString &request, const QString &reason)
{
    logSummaryFailure(TextsOf(CaseTab::Summary).SearchIncomplete, request, reason);
    Sheet.SetWarning(u"Summary Information Incomplete! Please Retry Search."_s);
    showFailedSummary(reason);
    CaseTabRecord &summary = Record.Tab(CaseTab::Summary);
    summary.TabIncomplete = true;
    summary.TabNotRetrieved = false;
    summary.TabDone = false;
    Sheet.EndFailed(CaseTab::Summary, reason, isToEnd());
}
