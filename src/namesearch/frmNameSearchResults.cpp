#include "namesearch/frmNameSearchResults.h"

#include "core/GlobalState.h"
#include "namesearch/ResultColumns.h"
#include "session/SessionEvents.h"
#include "tables/ResultListView.h"
#include "ui_frmNameSearchResults.h"

using namespace Qt::StringLiterals;

namespace {
enum ResultButton { CaseDetails, CloseResults, PrintResults, CreateSearch, GetNext, Email, Save };
} // namespace

frmNameSearchResults::frmNameSearchResults(const QString &state, bool indexSearch, QWidget *parent)
    : frmNameSearchResults(new CourtSearch(state, indexSearch), parent)
{
}

frmNameSearchResults::frmNameSearchResults(CourtSearch *ownSearch, QWidget *parent)
    : NameResultsWindow(ownSearch, parent), search(ownSearch),
      chkIndexSearch(search->Record.chkIndexSearch), chkBK(search->chkBK),
      SearchRunCount(search->SearchRunCount), NextLowerLimit(search->NextLowerLimit),
      NextUpperLimit(search->NextUpperLimit), ui(std::make_unique<Ui::frmNameSearchResults>())
{
    ui->setupUi(this);
    connect(ui->lblHelp, &QPushButton::clicked, &SessionEvents::Of(),
            &SessionEvents::ResultsHelpWanted);
    cmdSearchResults = {ui->cmdSearchResults_0, ui->cmdSearchResults_1, ui->cmdSearchResults_2,
                        ui->cmdSearchResults_3, ui->cmdSearchResults_4, ui->cmdSearchResults_5,
                        ui->cmdSearchResults_6};
    // Two buttons of the first design stand beyond the window's edge and do nothing; Get Next
    // comes into sight only when a page has a next one.
    cmdSearchResults[CloseResults]->hide();
    cmdSearchResults[CreateSearch]->hide();
    showPageButton(false);
    connect(cmdSearchResults[GetNext], &QPushButton::clicked, this,
            &frmNameSearchResults::cmdGetNext_Click);
    // Its eight columns have too little room otherwise.
    if (search->Record.Kind == ResultKind::Index)
        ui->listview1->UseSmallText();
    if (search->Record.Kind == ResultKind::Idaho)
        connect(&search->Record.Rows, &RowTable::RowAdded, this, [this] {
            List()->SetColumnTwips(1, idahoWideColumn2);
            List()->SetColumnTwips(4, idahoWideColumn5);
        });
    ConnectReportButtons(cmdSearchResults[Save], cmdSearchResults[Email]);
    UseControls(*ui);
}

frmNameSearchResults::~frmNameSearchResults() = default;

void frmNameSearchResults::InitListView()
{
    List()->SetColumns(ListColumnsOf(search->Record.Kind));
}

void frmNameSearchResults::SetLabelName(const QString &text)
{
    ui->lblName->setText(text);
}

void frmNameSearchResults::ShowStatus()
{
    NameResultsWindow::ShowStatus();
    ui->Label2->setText(search->Label2);
    if (search->PageOffered())
        cmdSearchResults[GetNext]->setText(u"Get Next "_s + search->PageCount() + u" Cases"_s);
    if (search->CanTakePage())
        cmdSearchResults[GetNext]->setEnabled(true);
    else if (search->IsRetrying())
        TurnOff(cmdSearchResults[GetNext]);
    showPageButton(search->PageOffered());
}

void frmNameSearchResults::cmdGetNext_Click()
{
    // Without a link the page would end as lost, and could not be asked for again.
    if (!MaySearch() || !search->CanTakePage())
        return;
    TurnOff(cmdSearchResults[GetNext]);
    search->GetNextPage();
}

void frmNameSearchResults::showPageButton(bool nextPage)
{
    cmdSearchResults[GetNext]->setVisible(nextPage);
    cmdSearchResults[Save]->setVisible(!nextPage);
}
