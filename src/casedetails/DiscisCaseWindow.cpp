#include "casedetails/DiscisCaseWindow.h"

#include "casedetails/DiscisSummary.h"

#include <QLabel>

using namespace Qt::StringLiterals;

DiscisCaseWindow::DiscisCaseWindow(CaseKind windowKind, QWidget *parent)
    : CaseWindow(windowKind, parent)
{
    lblState = u"WA"_s;
}

void DiscisCaseWindow::UseNotes(CaseTab tab, QLabel *first, QLabel *second)
{
    notesOf.at(static_cast<size_t>(tab)) = {first, second};
    ShowNotes(tab, {});
}

void DiscisCaseWindow::ShowNotes(CaseTab tab, const QStringList &notes)
{
    const auto [first, second] = notesOf.at(static_cast<size_t>(tab));
    const auto show = [&](QLabel *label, int index) {
        if (!label)
            return;
        label->setText(notes.value(index));
        label->setVisible(!label->text().isEmpty());
    };
    show(first, 0);
    show(second, 1);
}

void DiscisCaseWindow::SetCaseType(const QString &text)
{
    caseType->setText(text);
}

QString DiscisCaseWindow::lblCaseType() const
{
    return caseType->text();
}

void DiscisCaseWindow::SetCaseNo(const QString &text)
{
    caseNo->setText(text);
}

QString DiscisCaseWindow::lblCaseNo() const
{
    return caseNo->text();
}

/// Nobody hands these windows a heading: it reads as their caption.
void DiscisCaseWindow::BeginTick()
{
    CaseWindow::BeginTick();
    SetCaseDetailsHdr(windowTitle());
}

void DiscisCaseWindow::CutTabsToCase()
{
    SetTabs(DiscisTabs(Kind()));
}

void DiscisCaseWindow::SetText(QLabel *label, const std::optional<QString> &text)
{
    if (text)
        label->setText(*text);
}

void DiscisCaseWindow::ShowSummaryResponse()
{
    const DiscisSummaryView view = ReadDiscisSummary(Kind(), lboxResponses.Lines());
    if (view.CaseTitle)
        SetCaseTitle(*view.CaseTitle);
    if (view.CaseNo)
        SetCaseNo(*view.CaseNo);
    if (view.CourtName)
        SetCourtName(*view.CourtName);
    if (view.DateFiled)
        SetDateFiled(*view.DateFiled);
    ShowOwnFields(view);
    ShowNotes(CaseTab::Summary, {view.Note.value_or(QString()), view.SumNote2.value_or(QString())});
    if (view.Status)
        EndNotLocated(*view.Status, view.CaptionSuffix.value_or(QString()));
    ShowGrid(CaseTab::Summary, view.Grid);
}

/// The court's own line stays: these are not the Superior Courts.
void DiscisCaseWindow::ShowSummaryFailure(const QString &reason)
{
    SetCaseTitle(reason);
    SetDateFiled(u"N/A"_s);
}
