#include "casedetails/CaseSheet.h"

#include "casedetails/DocumentList.h"
#include "core/Log.h"

#include <algorithm>

CaseSheet::CaseSheet(CaseKind kind) : Record(kind) {}

void CaseSheet::Take(const CaseStart &start)
{
    const CaseKind kind = Record.Kind;
    static_cast<CaseStart &>(Record) = start;
    Record.Kind = kind;
    Q_EMIT HeaderChanged();
}

void CaseSheet::SetHeader(QString CaseRecord::*field, const QString &text)
{
    Record.*field = text;
    Q_EMIT HeaderChanged();
}

void CaseSheet::SetHeading(const QString &text)
{
    Record.SetHeading(text);
    Q_EMIT HeaderChanged();
}

void CaseSheet::SetTitle(const QString &text)
{
    Record.SetTitle(text);
    Q_EMIT HeaderChanged();
}

void CaseSheet::SetWarning(const QString &text, StatusStyle style)
{
    Record.lblWarning.Set(text, style);
    Q_EMIT WarningChanged();
}

void CaseSheet::SetTabs(const QStringList &captions)
{
    const QString selected = Record.SelectedTab;
    Record.TabCaptions = captions;
    if (!captions.contains(selected))
        Record.SelectedTab = captions.value(0);
    Q_EMIT TabsChanged();
    if (Record.SelectedTab == selected)
        return;
    // The tab that was in sight has gone: what the strip has selected instead comes into sight.
    const std::optional<CaseTab> tab = CaseTabOf(Record.SelectedTab);
    if (tab && Record.Tab(*tab).Exists)
        BringIntoSight(*tab);
}

void CaseSheet::RemoveAllTabsButFirst()
{
    SetTabs(Record.TabCaptions.first(std::min<qsizetype>(1, Record.TabCaptions.size())));
}

void CaseSheet::ShowTable(CaseTab tab, const GridTable &table)
{
    if (!Record.Tab(tab).Exists)
        return;
    Record.Tab(tab).Table = table;
    Record.Tab(tab).New = {};
    Q_EMIT TabChanged(tab);
}

void CaseSheet::MarkNew(CaseTab tab, const RowMarks &marks)
{
    Record.Tab(tab).New = marks;
    Q_EMIT MarksChanged(tab);
}

void CaseSheet::AddDocumentLine(const QStringList &lines)
{
    const qsizetype last = lines.size() - 1;
    if (lines.size() < documentDefinitionLines)
        return;
    if (lines.size() == documentDefinitionLines) {
        GridTable table;
        if (const std::optional<QString> failure = InitDocGrid(lines, table))
            WriteAppInfo(*failure);
        Record.DocumentLines = lines;
        ShowTable(CaseTab::Documents, table);
        return;
    }
    Record.DocumentLines.append(lines[last]);
    GridDocumentsAddResponse(lines[last], last, Record.Tab(CaseTab::Documents).Table);
    Q_EMIT RowsAdded();
}

void CaseSheet::EndDocuments(const QStringList &lines, bool incomplete, const QString &request)
{
    // A list that has come line by line stands already, with what the user has chosen in it.
    if (lines.size() > documentDefinitionLines && Record.DocumentLines == lines) {
        Q_EMIT RowsComplete();
        return;
    }
    const TabView view = ShowDocumentsResponse(lines, incomplete, request);
    for (const QString &line : view.LogLines)
        WriteAppInfo(line);
    Record.DocumentLines = lines;
    ShowTable(CaseTab::Documents, view.Grid);
}

void CaseSheet::ToBegin(CaseTab tab)
{
    Record.Tab(tab).FirstColumn = CaseTabRecord().FirstColumn;
    Q_EMIT TabToBegin(tab);
}

void CaseSheet::BringIntoSight(CaseTab tab)
{
    Record.InSight = tab;
    Record.PanelInSight = Record.Tab(tab).TabNotRetrieved;
    if (Record.PanelInSight)
        SetOnDemandPanel();
    Q_EMIT SightChanged();
}

void CaseSheet::SetAnswer(CaseTab tab, AnswerState state, const QString &reason)
{
    Record.Tab(tab).Answer = state;
    Record.Tab(tab).Reason = reason;
    Q_EMIT AnswersChanged();
}

void CaseSheet::EndFailed(CaseTab tab, const QString &reason, bool stopped)
{
    if (stopped)
        SetAnswer(tab, AnswerState::Stopped);
    else
        SetAnswer(tab, AnswerState::Failed, CourtWords(reason));
}

void CaseSheet::EndAnswers(const QString &error, bool holdsQueue)
{
    for (CaseTabRecord &tab : Record.Tabs) {
        if (tab.Answer == AnswerState::Waiting)
            tab.Answer = AnswerState::NotAsked;
        if (tab.Answer == AnswerState::Asking)
            tab.Answer = AnswerState::Stopped;
    }
    SetBreakdown(error, holdsQueue);
}

void CaseSheet::SetBreakdown(const QString &error, bool holdsQueue)
{
    Record.Breakdown = error;
    Record.HoldsQueue = holdsQueue && !error.isEmpty();
    Q_EMIT AnswersChanged();
}

void CaseSheet::OfferMissing(bool keepTicks)
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        CaseTabRecord &state = Record.Tab(tab);
        const bool missing = Record.TabExists(tab) && !state.TabDone;
        if (state.Exists && !(missing && keepTicks)) {
            state.Offered = missing;
            state.Chosen = missing;
        }
    }
    Q_EMIT OfferChanged();
}

void CaseSheet::AllowSearchNow(bool allowed)
{
    Record.CanSearchNow = allowed;
    Q_EMIT OfferChanged();
}

void CaseSheet::OfferOnDemand()
{
    SetOnDemandPanel();
    AllowSearchNow(true);
    AllowPrint(true);
}

void CaseSheet::AllowPrint(bool allowed)
{
    Record.CanPrint = allowed;
    Q_EMIT OfferChanged();
}
