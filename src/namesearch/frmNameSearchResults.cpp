#include "namesearch/frmNameSearchResults.h"

#include "tables/ResultListView.h"
#include "core/GlobalState.h"
#include "namesearch/CaseFromRow.h"
#include "namesearch/SearchCriteria.h"
#include "session/SessionEvents.h"
#include "ui_frmNameSearchResults.h"

using namespace Qt::StringLiterals;

namespace {
enum ResultButton { CaseDetails, CloseResults, PrintResults, CreateSearch, GetNext, Email, Save };
} // namespace

frmNameSearchResults::frmNameSearchResults(const QString &state, bool indexSearch, QWidget *parent)
    : NameResultsWindow(ResultsWindow::Name, parent), chkIndexSearch(indexSearch),
      ui(std::make_unique<Ui::frmNameSearchResults>()),
      kind(ResultKindOf(state, indexSearch, Global.BkFormLoading))
{
    lblState = state;
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
    if (kind == ResultKind::Index)
        ui->listview1->UseSmallText();
    UseControls(*ui);
}

frmNameSearchResults::~frmNameSearchResults() = default;

void frmNameSearchResults::InitListView()
{
    chkBK = kind == ResultKind::Bankruptcy;
    List()->SetColumns(ListColumnsOf(kind));
}

void frmNameSearchResults::SetLabelName(const QString &text)
{
    ui->lblName->setText(text);
}

void frmNameSearchResults::AddResultRow(const QString &row)
{
    // Decided by what the window is now: its starter may have taken the index mark back after the
    // load.
    AddParsedRow(row, ResultKindOf(lblState, chkIndexSearch, chkBK));
    if (lblState == u"ID") {
        List()->SetColumnTwips(1, idahoWideColumn2);
        List()->SetColumnTwips(4, idahoWideColumn5);
    }
}

void frmNameSearchResults::AddRow(const QString &row)
{
    AddResultRow(row);
}

CaseFromRow frmNameSearchResults::CaseOf(const QStringList &cells) const
{
    return CaseOfRow(cells, ResultKindOf(lblState, chkIndexSearch, chkBK), lblState);
}

void frmNameSearchResults::ShowSearchCriteria(int lineIndex)
{
    if (KeepsGivenCriteria(lblState)) {
        setWindowTitle(lblNameVal() + u" in "_s + txtCountyList());
        return;
    }
    if (chkIndexSearch)
        ui->Label2->setText(u"Index Results"_s);
    const SearchCriteria criteria =
        CriteriaOf(lboxQueue.List(lineIndex), {lblState, chkIndexSearch, txtCountyList()});
    SetNameVal(criteria.Name);
    SetCaseTypeVals(criteria.CaseTypes);
    if (!criteria.Caption.isEmpty())
        setWindowTitle(criteria.Caption);
}

NameResultsWindow::ReplyEffect frmNameSearchResults::TakeReply(const QString &reply)
{
    return chkIndexSearch ? takeIndexReply(reply) : NameResultsWindow::TakeReply(reply);
}

void frmNameSearchResults::EndSearch(SearchOutcome outcome)
{
    if (outcome == SearchOutcome::ServerMessage)
        showServerMessage();
    else
        NameResultsWindow::EndSearch(outcome);
}

void frmNameSearchResults::PutButtonsBack()
{
    showPageButton(false);
    clearServerTexts();
}

void frmNameSearchResults::showPageButton(bool nextPage)
{
    cmdSearchResults[GetNext]->setVisible(nextPage);
    cmdSearchResults[Save]->setVisible(!nextPage);
}
