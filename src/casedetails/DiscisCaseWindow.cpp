#include "casedetails/DiscisCaseWindow.h"

#include "casedetails/DiscisCaseJob.h"

#include <QLabel>

DiscisCaseWindow::DiscisCaseWindow(CaseKind kind, QWidget *parent)
    : CaseWindow(new DiscisCaseJob(kind), parent)
{
}

void DiscisCaseWindow::UseNotes(CaseTab tab, QLabel *first, QLabel *second)
{
    notesOf.at(static_cast<size_t>(tab)) = {first, second};
    showNotes(tab);
}

void DiscisCaseWindow::showNotes(CaseTab tab)
{
    const QStringList &notes = Record().Tab(tab).Notes;
    const auto [first, second] = notesOf.at(static_cast<size_t>(tab));
    const auto show = [&notes](QLabel *label, int index) {
        if (!label)
            return;
        label->setText(notes.value(index));
        label->setVisible(!notes.value(index).isEmpty());
    };
    show(first, 0);
    show(second, 1);
}

void DiscisCaseWindow::ShowHeader()
{
    CaseWindow::ShowHeader();
    caseType->setText(Record().lblCaseType);
    caseNo->setText(Record().lblCaseNo);
}

void DiscisCaseWindow::ShowTab(CaseTab tab)
{
    showNotes(tab);
    CaseWindow::ShowTab(tab);
}
