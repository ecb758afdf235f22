#include "namesearch/frmDiscisNCNameResults.h"

#include "controls/MsgBox.h"
#include "tables/ResultListView.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "namesearch/DuplicateNames.h"
#include "namesearch/ResultRows.h"
#include "ui_frmDiscisNCNameResults.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// The texts of the window with one of its two lists in front.
struct ViewTexts
{
    bool names;
    QStringView instruction;  ///< Label1
    QStringView searchStatus; ///< lblSearchStatus
    QStringView retrieve;     ///< cmdSearchResults(0)
    QStringView other;        ///< cmdViewDupes
};
constexpr std::array<ViewTexts, 2> views{{
    {false,
     u"To retrieve case details, either double-click on a case from the list, or highlight it and "
     "click 'Retrieve Case Details'.",
     u" Search Completed Successfully.   Double-Click on any Case to Retrieve Details.",
     u"Retrieve Case Details", u"&View Duplicates"},
    {true,
     u"Mulitple Names Match Search Criteria. Check Name(s) to retrieve cases for and click "
     "'Retrieve Case(s)'",
     u"Multiple Names Match. Please Select Name(s) to retrieve.", u"Retrieve Case(s)",
     u"&View Cases"},
}};
} // namespace

frmDiscisNCNameResults::frmDiscisNCNameResults(QWidget *parent)
    : DiscisResultsWindow(ResultsWindow::DiscisNonCivil, parent),
      lblDNDorSNCI(Global.DiscisDndSearch ? u"DND"_s : u"SNCI"_s),
      ui(std::make_unique<Ui::frmDiscisNCNameResults>())
{
    ui->setupUi(this);
    ui->lvDupe->hide();
    ui->lvDupe->List()->SetCheckBoxes(true);
    ui->lvDupe->UseSmallText();
    connect(ui->lblHelp, &QPushButton::clicked, this,
            [this] { MsgBox(this, u"Not Implemented Yet."_s); });
    connect(ui->lvDupe, &ResultListView::HeaderClicked, this,
            [this](int column) { SortList(ui->lvDupe, column); });
    connect(ui->cmdViewDupes, &QPushButton::clicked, this,
            &frmDiscisNCNameResults::ToggleDupesView);
    UseDiscisControls(*ui);
    AlsoFills(ui->lvDupe);
}

frmDiscisNCNameResults::~frmDiscisNCNameResults() = default;

ResultKind frmDiscisNCNameResults::Kind() const
{
    return lblDNDorSNCI == u"DND" ? ResultKind::DiscisAddresses : ResultKind::DiscisStatewide;
}

void frmDiscisNCNameResults::InitListView()
{
    DiscisResultsWindow::InitListView();
    ui->lvDupe->SetColumns(ListColumnsOf(lblDNDorSNCI == u"DND" ? ResultKind::NamesAddresses
                                                                : ResultKind::NamesStatewide));
    ShowHeaderIconNC(0, Qt::AscendingOrder, true);
    Global.DiscisDndSearch = false;
}

void frmDiscisNCNameResults::ShowHeaderIconNC(int column, Qt::SortOrder order, bool show)
{
    ui->lvDupe->ShowHeaderIcon(column, order, show);
}

int frmDiscisNCNameResults::nameCount() const
{
    return ui->lvDupe->List()->Count();
}

void frmDiscisNCNameResults::AddRow(const QString &row)
{
    const bool isName = IsDuplicateName(row);
    if (isName) {
        DupesFound = true;
        AddDupeRow(row);
    } else {
        AddDiscisRow(row);
    }
    // The list to which rows come is shown in front.
    if (isName != ShowingDupes)
        ToggleDupesView();
}

void frmDiscisNCNameResults::AddDupeRow(const QString &row)
{
    const NameRow name = ParseNameRow(row, nameCount());
    if (!name.Cells.isEmpty())
        ui->lvDupe->List()->AddRow(name.Cells, name.Key);
    if (!name.Complete)
        throw RunTimeError::SubscriptOutOfRange();
    CountLater(nameCount());
}

void frmDiscisNCNameResults::ToggleDupesView()
{
    ResultListView *behind = ShowingDupes ? ui->lvDupe : ui->listview1;
    ResultListView *front = ShowingDupes ? ui->listview1 : ui->lvDupe;
    const bool focused = behind->Tools()->HoldsFocus();
    ShowingDupes = !ShowingDupes;
    const ViewTexts &texts = views[ShowingDupes ? 1 : 0];
    front->show();
    // The cursor stays on the list, whichever it is, or goes there from the words to find in it:
    // hiding would send it to the next control.
    if (focused)
        front->setFocus();
    behind->hide();
    ui->Label1->setText(texts.instruction.toString());
    SetSearchStatus(texts.searchStatus.toString(), StatusStyle::NormalBold);
    ui->cmdSearchResults_0->setText(texts.retrieve.toString());
    UpdateRetrieveButton();
    ui->cmdViewDupes->setText(texts.other.toString());
}

frmDiscisNCNameResults::CheckedNames frmDiscisNCNameResults::checkedNames() const
{
    const ResultListModel *names = ui->lvDupe->List();
    CheckedNames checked;
    const QList<int> rows = names->CheckedRows();
    for (const int row : rows) {
        checked.All.append(names->Key(row));
        if (!ui->lvDupe->Tools()->Filter()->Shows(row))
            checked.OutOfSight.append(names->Key(row));
    }
    return checked;
}

/// Whether the names that are checked are to be retrieved: with each of them the user pays for a
/// search, so those that Find hides are asked about, whatever alerts are wanted. Whatever may have
/// become otherwise under a question is looked at again.
bool frmDiscisNCNameResults::mayRetrieve()
{
    CheckedNames agreed;
    while (!IsUnloaded() && namesRetrievable) {
        const CheckedNames checked = checkedNames();
        if (checked.All.isEmpty()) {
            MsgBox(this,
                   u"No Name(s) Selected. Please place a checkmark next to the name(s) to "
                   "retrieve."_s,
                   u"Halvane - Invalid Request .."_s);
            return false;
        }
        if (!MaySearch())
            return false;
        if (checked.OutOfSight.isEmpty() || checked == agreed)
            return true;
        if (MsgBox(this, OutOfSightQuestion(checked.OutOfSight.size(), checked.All.size()),
                   u"Halvane - Names Out of Sight"_s, MsgButtons::YesNo, MsgIcon::Question)
            != MsgAnswer::Yes)
            return false;
        agreed = checked;
    }
    return false;
}

void frmDiscisNCNameResults::RetrieveCheckedNames()
{
    const RunScope scope(this);
    if (!mayRetrieve())
        return;
    // The labels name each person while that person's cases are asked for; what was searched for
    // stays the same.
    if (searchedFor.isEmpty())
        searchedFor = lblNameVal();
    Global.bStopRequested = false;
    lboxQueue.Clear();
    ResultListModel *names = ui->lvDupe->List();
    const QList<int> checked = names->CheckedRows();
    for (const int row : checked) {
        QStringList cells;
        for (int column = 0; column < names->columnCount(); ++column)
            cells.append(names->Cell(row, column));
        lboxQueue.AddItem(CasesOfNameRequest(lblDNDorSNCI, searchedFor, cells, names->Key(row)));
        names->SetCell(row, 0, MarkedAsRetrieved(cells[0]));
    }
    showCaseColumnsAgain();
    allowRetrieval(false);
    SortColumnName = FirstSortColumn();
    // As after load: the cases that come now stand below those that were sorted.
    ShowHeaderIcon(0, Qt::AscendingOrder, true);
    StopRequested = false;
    Global.bUserStoppedSearch = false;
    SearchIncomplete = false;
    // Pending as at first, so that Stop withdraws the key until the turn has come.
    SetStatus(u"Pending .."_s, StatusStyle::NormalBold);
    ShowInProgress();
    SearchAgain();
}

/// A search that found too many and listed none has put a notice in the place of the cases.
void frmDiscisNCNameResults::showCaseColumnsAgain()
{
    const ListLayout layout = ListColumnsOf(Kind());
    if (List()->List()->Columns().size() == layout.Columns.size())
        return;
    List()->List()->Clear();
    List()->SetColumns(layout);
}

/// A run walks the request lines and must not have them replaced under it.
void frmDiscisNCNameResults::allowRetrieval(bool allowed)
{
    namesRetrievable = allowed;
    UpdateRetrieveButton();
}

void frmDiscisNCNameResults::RetrieveDetails()
{
    if (ShowingDupes)
        RetrieveCheckedNames();
    else
        DiscisResultsWindow::RetrieveDetails();
}

void frmDiscisNCNameResults::UpdateRetrieveButton()
{
    if (!ShowingDupes)
        DiscisResultsWindow::UpdateRetrieveButton();
    else if (namesRetrievable)
        ui->cmdSearchResults_0->setEnabled(true);
    else
        TurnOff(ui->cmdSearchResults_0);
}

QWidget *frmDiscisNCNameResults::HomeOfFocus() const
{
    return ShowingDupes ? ui->lvDupe : ui->listview1;
}

void frmDiscisNCNameResults::ShowStopped(StopCase stopCase)
{
    DiscisResultsWindow::ShowStopped(stopCase);
    // A run that was stopped still reads to its end.
    if (!HasTurn)
        allowRetrieval(true);
}

void frmDiscisNCNameResults::ShowCompletion()
{
    if (ShowingDupes) {
        SetStatus(u"Search Complete:    "_s + QString::number(nameCount())
                      + u" Duplicate Names Found."_s,
                  StatusStyle::NormalBold);
        SetSearchStatus(u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s,
                        StatusStyle::NormalBold);
        return;
    }
    const int rows = RowCount();
    SetStatus(u"Search Complete:    "_s + QString::number(rows)
                  + (rows == 1 ? u" Case Retrieved."_s : u" Cases Retrieved."_s),
              StatusStyle::NormalBold);
}

void frmDiscisNCNameResults::EndSearch(SearchOutcome outcome)
{
    ui->lvDupe->List()->Flush();
    DiscisResultsWindow::EndSearch(outcome);
    // However it ended: what came is there to be looked at.
    ui->cmdViewDupes->setEnabled((ShowingDupes ? RowCount() : nameCount()) > 0);
    allowRetrieval(true);
}
