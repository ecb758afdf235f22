// What clicks on a list of results do: a header sorts, a row opens its case.

#include "casedetails/CaseIdentity.h"
#include "casedetails/CaseWindow.h"
#include "casedetails/CaseWindows.h"
#include "casedetails/OpenCases.h"
#include "core/GeneralDate.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "namesearch/CaseFromRow.h"
#include "namesearch/CaseMemory.h"
#include "namesearch/NameResultsWindow.h"
#include "namesearch/SortKeys.h"
#include "session/LoginOffer.h"
#include "session/NewWindow.h"
#include "tables/ResultListView.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
/// The arrow and SortColumnName follow the first columns only.
constexpr int arrowColumns = 6;

void openCase(const CaseStart &start)
{
    NewWindow form(MakeCaseWindow(start.Kind));
    form->Take(start);
    WriteAppInfo(start.Log);
    form.GiveKey();
    form.Launch();
}

Qt::SortOrder other(Qt::SortOrder order)
{
    return order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
}
} // namespace

void NameResultsWindow::connectList(QPushButton *retrieve)
{
    retrieveButton = retrieve;
    listview1->SetRowNote([this](int row) { return noteOfRow(row); });
    connect(listview1, &ResultListView::HeaderClicked, this,
            [this](int column) { SortList(listview1, column); });
    connect(listview1, &ResultListView::RowChosen, this, &NameResultsWindow::chooseRow);
    connect(listview1, &ResultListView::SelectedRowChanged, this,
            &NameResultsWindow::UpdateRetrieveButton);
    connect(retrieveButton, &QPushButton::clicked, this, &NameResultsWindow::RetrieveDetails);
}

/// A text column goes by the window's flag, which every click flips; a column of dates or numbers
/// turns the order that the list has.
void NameResultsWindow::SortList(ResultListView *list, int column)
{
    sortFlag = !sortFlag;
    const ResultListModel *rows = list->List();
    const QString header = rows->Columns().at(column).Header;
    const SortAs as = SortAsOf(header);
    Qt::SortOrder order = sortFlag ? Qt::DescendingOrder : Qt::AscendingOrder;
    if (as != SortAs::Text)
        order = other(list->SortOrder());
    std::vector<QString> keys;
    keys.reserve(static_cast<size_t>(rows->Count()));
    for (int row = 0; row < rows->Count(); ++row)
        keys.push_back(SortKeyOf(rows->Cell(row, column), as));
    list->SortRows(keys, order);
    for (int i = 0; i < arrowColumns; ++i)
        list->ShowHeaderIcon(i, order, i == column);
    if (column < arrowColumns)
        SortColumnName = header;
}

void NameResultsWindow::RetrieveDetails()
{
    chooseRow(listview1->SelectedRow());
}

void NameResultsWindow::UpdateRetrieveButton()
{
    retrieveButton->setEnabled(listview1->SelectedRow() >= 0);
}

void NameResultsWindow::chooseRow(int row)
{
    if (row < 0)
        return;
    const RunScope scope(this);
    // The session may have ended under the question about a case that is open already.
    if (MaySearch() && mayOpenRow(row) && MaySearch())
        OpenCaseFromRow(row);
}

/// A case that has a window already is offered first. During the question the rows may become
/// others.
bool NameResultsWindow::mayOpenRow(int row)
{
    const QStringList cells = search->Record.Rows.Cells(row);
    if (!IsCaseRow(cells))
        return true;
    return MayOpenCase(this, search->CaseOf(cells)) && !IsUnloaded() && row < RowCount()
           && search->Record.Rows.Cells(row) == cells;
}

/// "Opened before, last on 11/2/2026 3:15 PM", or nothing. A row that comes is not looked up, only
/// one that the user asks about.
QString NameResultsWindow::noteOfRow(int row) const
{
    const QStringList cells = search->Record.Rows.Cells(row);
    if (!IsCaseRow(cells))
        return {};
    const std::optional<QDateTime> last = LastOpened(CaseIdentity(search->CaseOf(cells)));
    return last ? u"Opened before, last on "_s + GeneralDate(*last, ClockTime::ToTheMinute)
                : QString();
}

bool NameResultsWindow::MaySearch()
{
    if (Global.bLoggedIn)
        return true;
    const RunScope scope(this);
    if (OfferLogin(this))
        ShowLogin();
    return false;
}

void NameResultsWindow::OpenCaseFromRow(int row)
{
    constexpr int number = 1;
    if (!IsCaseRow(search->Record.Rows.Cells(row)))
        return;
    // A new job is being started: whatever all jobs were asked to stop for is over.
    Global.bStopRequested = false;
    CaseStart start = search->OpenRow(row);
    start.ClientAcctgCode = ClientAcctgCode;
    // A number is what a case is known by: its mark must not push the end of it out of sight.
    listview1->WidenForCell(row, number);
    openCase(start);
}
