#include "namesearch/frmDiscisNCNameResults.h"

#include "controls/MsgBox.h"
#include "controls/ResultListView.h"
#include "core/GlobalState.h"
#include "namesearch/ResultRows.h"
#include "ui_frmDiscisNCNameResults.h"

using namespace Qt::StringLiterals;

frmDiscisNCNameResults::frmDiscisNCNameResults(QWidget *parent)
    : DiscisResultsWindow(ResultsWindow::DiscisNonCivil, parent),
      lblDNDorSNCI(Global.DiscisDndSearch ? u"DND"_s : u"SNCI"_s),
      ui(std::make_unique<Ui::frmDiscisNCNameResults>())
{
    ui->setupUi(this);
    ui->lvDupe->hide();
    connect(ui->lblHelp, &QPushButton::clicked, this,
            [this] { MsgBox(this, u"Not Implemented Yet."_s); });
    connect(ui->lvDupe, &ResultListView::HeaderClicked, this,
            [this](int column) { SortList(ui->lvDupe, column); });
    UseDiscisControls(*ui);
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

void frmDiscisNCNameResults::AddRow(const QString &row)
{
    if (!IsDuplicateName(row)) {
        AddDiscisRow(row);
        return;
    }
    DupesFound = true;
    ++namesFound;
}

void frmDiscisNCNameResults::ShowCompletion()
{
    const int rows = RowCount();
    SetStatus(u"Search Complete:    "_s + QString::number(rows)
                  + (rows == 1 ? u" Case Retrieved."_s : u" Cases Retrieved."_s),
              StatusStyle::NormalBold);
    if (DupesFound)
        SetSearchStatus(QString::number(namesFound)
                            + u" Names Match Search Criteria. Choosing Among Them Comes with a "
                              "Later Version."_s,
                        StatusStyle::NormalBold);
}
