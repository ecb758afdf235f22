// The exchange of the Summary, which says what kind of case it is, whether there is one at all, and
// which tabs it has.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseWindow.h"
#include "casedetails/GridGrammar.h"
#include "casedetails/SummaryReply.h"
#include "casedetails/frmArbPrompt.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

#include <QLabel>

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
} // namespace

/// What the lines of a Summary reply amount to.
struct CaseWindow::SummaryRead
{
    QString ErrorText;
    QString TimeOut;        ///< the reason, when the end mark did not come
    bool Question = false;  ///< the court asks whether arbitration is meant
    bool Warnings = false;  ///< an error that makes the case invalid
    bool NotOnFile = false; ///< the reply ended before its end mark
};

void CaseWindow::DoSummarySearch(const QString &request)
{
    CaseTabState &summary = TabOf(CaseTab::Summary);
    const TabTexts texts = TextsOf(CaseTab::Summary);
    try {
        summary.TabIncomplete = false;
        NotLocated = false;
        UserQuestion = false;
        if (summary.TabNotRetrieved)
            lblWarning->hide();
        WriteAppInfo(texts.Retrieving);
        SetStatusText(texts.Retrieving);
        summary.TabDone = false;
        lboxResponses.Clear();
        sendTabRequest(request, true);
        const SummaryRead read = readSummary(request);
        if (!read.TimeOut.isEmpty())
            summaryIncomplete(request, read.TimeOut);
        else if (read.NotOnFile)
            summaryNotOnFile(request);
        else
            evaluateSummary(request, read);
    } catch (const RunTimeError &error) {
        tabFailed(CaseTab::Summary, error);
    }
}

CaseWindow::SummaryRead CaseWindow::readSummary(const QString &request)
{
    SummaryRead read;
    const auto take = [&](const QString &line) { return takeSummaryLine(line, request, read); };
    if (!readLines(u" ", take))
        read.TimeOut = timedOut.toString();
    return read;
}

/// True when nothing more is read.
bool CaseWindow::takeSummaryLine(const QString &line, const QString &request, SummaryRead &read)
{
    switch (ClassifySummaryLine(lblState, line)) {
    case SummaryLine::EndOfReply:
        return true;
    case SummaryLine::BankruptcyNotFound:
        lboxResponses.Clear();
        lboxResponses.AddItem(caseNotFound.toString());
        SetCaseTitle(notAvailable.toString());
        SetDateFiled(notAvailable.toString());
        SetStatusText(TextsOf(CaseTab::Summary).Complete);
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

void CaseWindow::takeSummaryError(const QString &line, SummaryRead &read)
{
    const SummaryError error = ReadSummaryError(line);
    read.ErrorText = error.Text;
    if (!error.LogLine.isEmpty())
        WriteAppInfo(error.LogLine);
    lboxResponses.AddItem(error.Response);
    if (error.Warnings) {
        read.Warnings = true;
        CaseInvalid = true;
    }
}

/// The court does not go on before it knows; the answer is part of every later request of the case.
void CaseWindow::askArbitration()
{
    UserQuestion = true;
    ArbitrationAnswer = false;
    frmArbPrompt::ShowModal(this);
    ArbitrationAnswer = CaseAnswers.ArbitrationChosen;
    arbitration = ArbitrationAnswer ? ArbitrationMode::Arbitration : ArbitrationMode::NoArbitration;
    CaseAnswers.ArbitrationChosen = false;
}

void CaseWindow::summaryNotOnFile(const QString &request)
{
    lboxResponses.Clear();
    lboxResponses.AddItem(caseNotFound.toString());
    ShowSummaryResponse();
    SetStatusText(TextsOf(CaseTab::Summary).Complete);
    summaryComplete(request);
}

void CaseWindow::evaluateSummary(const QString &request, const SummaryRead &read)
{
    lblStatus->show();
    if (read.Question) {
        if (!isToEnd())
            askArbitration();
        return;
    }
    if (read.ErrorText.contains(u"not a valid case number", Qt::CaseInsensitive)) {
        summaryInvalid(request, read.ErrorText);
        return;
    }
    if (read.ErrorText.contains(u"idaho courts are currently unavailable, please try later",
                                Qt::CaseInsensitive)) {
        logSummaryFailure(TextsOf(CaseTab::Summary).SearchIncomplete, request,
                          u"Search Incomplete. Idaho Courts Are Currently Unavailable."_s);
        lblState = u"ID"_s;
        lboxResponses.Clear();
        lboxResponses.AddItem(idahoIsDown.toString());
    } else if (read.Warnings) {
        SetStatusText(warningsStatus.toString());
        summaryIncomplete(request, read.ErrorText);
        return;
    } else if (stopHasCutSummaryShort()) {
        return;
    } else if (IsBankruptcy() && lboxResponses.ListCount() == 0) {
        lboxResponses.AddItem(caseNotFound.toString());
        SetCaseTitle(notAvailable.toString());
        SetDateFiled(notAvailable.toString());
    }
    showSummary();
    summaryComplete(request);
}

/// A reply that ended with a stop before there was a case in it says nothing of the case: not that
/// there is none, and not that this is all of it. The run ends with the stop, and the Summary
/// offers itself as one that has not come.
bool CaseWindow::stopHasCutSummaryShort() const
{
    return (StopRequested || Global.bStopRequested)
           && lboxResponses.ListCount() < fewestLinesOf(kind);
}

void CaseWindow::showSummary()
{
    ShowSummaryResponse();
    // A reply that ended the search has said so itself.
    if (!NotLocated)
        SetStatusText(TextsOf(CaseTab::Summary).Complete);
}

void CaseWindow::summaryComplete(const QString &request)
{
    const TabTexts texts = TextsOf(CaseTab::Summary);
    WriteAppInfo(texts.AllReceived + request);
    WriteAppInfo(texts.NormalExit);
    TabOf(CaseTab::Summary).TabDone = true;
    TabOf(CaseTab::Summary).TabIncomplete = false;
}

void CaseWindow::logSummaryFailure(const QString &first, const QString &request,
                                   const QString &reason)
{
    WriteAppInfo(first + request);
    WriteAppInfo(TextsOf(CaseTab::Summary).SearchResult + reason);
}

/// The reason stands where the Summary would, alone.
void CaseWindow::showFailedSummary(const QString &reason)
{
    SetStatusText(warningsStatus.toString(), true);
    ShowSummaryFailure(reason);
    ShowGrid(CaseTab::Summary, OneCellTable(lboxResponses.List(0)));
    ActivateTab(CaseTabRowOf(CaseTab::Summary).caption.toString());
    RemoveAllTabsButFirst();
}

void CaseWindow::summaryInvalid(const QString &request, const QString &reason)
{
    logSummaryFailure(u"Summary Search Incomplete. Invalid Case# for County. Request: "_s, request,
                      reason);
    SetWarning(u"Summary Information Unvavailable! Case Number Invalid For County."_s);
    showFailedSummary(reason);
    CaseTabState &summary = TabOf(CaseTab::Summary);
    summary.TabNotRetrieved = false;
    summary.TabIncomplete = false;
    summary.TabDone = false;
}

void CaseWindow::summaryIncomplete(const QString &request, const QString &reason)
{
    logSummaryFailure(TextsOf(CaseTab::Summary).SearchIncomplete, request, reason);
    SetWarning(u"Summary Information Incomplete! Please Retry Search."_s);
    showFailedSummary(reason);
    CaseTabState &summary = TabOf(CaseTab::Summary);
    summary.TabIncomplete = true;
    summary.TabNotRetrieved = false;
    summary.TabDone = false;
}
