#include "namesearch/frmDiscisNCNameResults.h"

#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "namesearch/DuplicateNames.h"
#include "reports/ReportPaper.h"
#include "tables/ResultListView.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"
#include "ui_frmDiscisNCNameResults.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// The texts of the window with one of its two lists in front.
struct ViewTexts
{
    bool names;
    QStringView instruction; ///< Label1
    QStringView retrieve;    ///< cmdSearchResults(0)
    QStringView other;       ///< cmdViewDupes
};
constexpr std::array<ViewTexts, 2> views{{
    {false,
     u"To retrieve case details, either double-click on a case from the list, or highlight it and "
     "click 'Retrieve Case Details'.",
     u"Retrieve Case Details", u"&View Duplicates"},
    {true,
     u"Mulitple Names Match Search Criteria. Check Name(s) to retrieve cases for and click "
     "'Retrieve Case(s)'",
     u"Retrieve Case(s)", u"&View Cases"},
}};
} // namespace

frmDiscisNCNameResults::frmDiscisNCNameResults(DiscisDndSearch defendants, QWidget *parent)
    : frmDiscisNCNameResults(new NonCivilSearch(defendants), parent)
{
}

frmDiscisNCNameResults::frmDiscisNCNameResults(NonCivilSearch *ownSearch, QWidget *parent)
    : DiscisResultsWindow(ownSearch, parent), search(ownSearch), lblDNDorSNCI(search->lblDNDorSNCI),
      DupesFound(search->DupesFound), ShowingDupes(search->ShowingDupes),
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
    connect(search, &NonCivilSearch::Toggled, this, &frmDiscisNCNameResults::showToggled);
    // As after load: the cases that come now stand below those that were sorted.
    connect(search, &NonCivilSearch::SortForgotten, this,
            [this] { ShowHeaderIcon(0, Qt::AscendingOrder, true); });
    UseDiscisControls(*ui);
    ui->lvDupe->List()->UseRows(&search->Names);
    AlsoCountsRowsOf(ui->lvDupe);
}

frmDiscisNCNameResults::~frmDiscisNCNameResults() = default;

void frmDiscisNCNameResults::InitListView()
{
    DiscisResultsWindow::InitListView();
    ui->lvDupe->SetColumns(ListColumnsOf(search->KindOfNames()));
    ShowHeaderIconNC(0, Qt::AscendingOrder, true);
}

void frmDiscisNCNameResults::ShowHeaderIconNC(int column, Qt::SortOrder order, bool show)
{
    ui->lvDupe->ShowHeaderIcon(column, order, show);
}

void frmDiscisNCNameResults::showToggled()
{
    ResultListView *front = ShowingDupes ? ui->lvDupe : ui->listview1;
    ResultListView *behind = ShowingDupes ? ui->listview1 : ui->lvDupe;
    const bool focused = behind->Tools()->HoldsFocus();
    const ViewTexts &texts = views[ShowingDupes ? 1 : 0];
    front->show();
    // The cursor stays on the list, whichever it is, or goes there from the words to find in it:
    // hiding would send it to the next control.
    if (focused)
        front->setFocus();
    behind->hide();
    ui->Label1->setText(texts.instruction.toString());
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
    while (!IsUnloaded() && search->NamesRetrievable()) {
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
    if (mayRetrieve())
        search->RetrieveCheckedNames();
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
    else if (search->NamesRetrievable())
        ui->cmdSearchResults_0->setEnabled(true);
    else
        TurnOff(ui->cmdSearchResults_0);
}

ResultListView *frmDiscisNCNameResults::LastList() const
{
    return ui->lvDupe;
}

ReportedList frmDiscisNCNameResults::Reported() const
{
    if (ShowingDupes)
        return {&search->Names, search->KindOfNames()};
    return DiscisResultsWindow::Reported();
}

void frmDiscisNCNameResults::PrintResults()
{
    const Paper paper = ReportPaper::Of().Current();
    WriteAppInfo(u"Paper Size: "_s + QString::number(PaperNumber(paper)) + u" Orientation: "_s
                 + QString::number(OrientationNumber(paper)));
    DiscisResultsWindow::PrintResults();
}

QWidget *frmDiscisNCNameResults::HomeOfFocus() const
{
    return ShowingDupes ? ui->lvDupe : ui->listview1;
}

void frmDiscisNCNameResults::FlushRows()
{
    ui->lvDupe->List()->Flush();
    DiscisResultsWindow::FlushRows();
}

void frmDiscisNCNameResults::ShowStatus()
{
    DiscisResultsWindow::ShowStatus();
    UpdateRetrieveButton();
    ui->cmdViewDupes->setEnabled(search->CanToggle());
}
