#include "history/frmUsage.h"

#include "history/HistoryStore.h"
#include "history/UsageReport.h"
#include "reports/ReportViewer.h"
#include "reports/SaveReport.h"
#include "session/frmMain.h"
#include "ui_frmUsage.h"

#include <QItemSelectionModel>
#include <QPointer>

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// Reading a large account takes some milliseconds, and every request changes it.
constexpr int refreshMilliseconds = 1000;

constexpr std::array<int, 7> usageTwips{1000, 5200, 1100, 1100, 1100, 1100, 1400};
constexpr int firstNumber = 2;

/// No wider than most texts are: the room beside them goes to those that are longer.
const std::array<ListColumn, 6> &behindColumns()
{
    static const std::array<ListColumn, 6> columns{{
        {u"Asked For"_s, 1950},
        {u"Kind"_s, 950},
        {u"What"_s, 2400},
        {u"Where"_s, 1500},
        {u"Outcome"_s, 1800},
        {u"Requests"_s, 1000, Qt::AlignRight},
    }};
    return columns;
}

QStringList behindCells(const AskedItem &item)
{
    return {
        TextOfMoment(item.When),       TextOfKind(item.Kind), item.What, item.Where, item.Outcome,
        QString::number(item.Requests)};
}

QString noteOf(bool open, bool empty)
{
    if (!open)
        return u"The history is off, so that nothing is counted. It can be switched on under View, "
               "Options, Session."_s;
    return empty ? u"Nothing was sent since the history was begun or cleared."_s
                 : u"What was sent to the courts, by client code and month. The lines behind the "
                   "selected one stand below."_s;
}

QPointer<frmUsage> usageWindow;
} // namespace

frmUsage::frmUsage(QWidget *parent)
    : FormWindow(parent), tmrRefresh(new QTimer(this)), ui(std::make_unique<Ui::frmUsage>()),
      viewer(MakeReportViewer(this))
{
    ui->setupUi(this);
    tmrRefresh->setObjectName(u"tmrRefresh"_s);
    tmrRefresh->setSingleShot(true);
    tmrRefresh->setInterval(refreshMilliseconds);
    makeColumns();
    connect(tmrRefresh, &QTimer::timeout, this, &frmUsage::showLines);
    connect(&HistoryStore::Of(), &HistoryStore::Changed, tmrRefresh, [this] {
        if (!tmrRefresh->isActive())
            tmrRefresh->start();
    });
    connect(ui->listUsage, &ResultListView::SelectedRowChanged, this, &frmUsage::showBehind);
    connect(ui->cmdPrint, &QPushButton::clicked, this, &frmUsage::PrintDirect);
    connect(ui->cmdSave, &QPushButton::clicked, this, [this] {
        AskWhereToSaveReport(this, windowTitle(),
                             [this](const QString &path) { PrintToFile(path); });
    });
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    showLines();
    if (!lines.isEmpty())
        ui->listUsage->selectRow(0);
}

frmUsage::~frmUsage() = default;

void frmUsage::ShowForm()
{
    frmMain *main = frmMain::Form();
    if (!main)
        return;
    if (!usageWindow || usageWindow->IsUnloaded())
        usageWindow = new frmUsage;
    main->ShowChildAgain(usageWindow);
}

void frmUsage::Unloading()
{
    tmrRefresh->stop();
    HistoryStore::Of().disconnect(tmrRefresh);
}

void frmUsage::makeColumns()
{
    QList<ListColumn> columns;
    const QStringList heads = UsageHeads();
    for (qsizetype i = 0; i < heads.size(); ++i)
        columns.append({heads.at(i), usageTwips.at(static_cast<size_t>(i)),
                        i < firstNumber ? Qt::AlignLeft : Qt::AlignRight});
    ui->listUsage->SetColumns({u"Usage"_s, columns});
    ui->listBehind->SetColumns(
        {u"UsageItems"_s, QList<ListColumn>(behindColumns().begin(), behindColumns().end())});
}

void frmUsage::showLines()
{
    const HistoryUsage *selected = selectedLine();
    const HistoryUsage before = selected ? *selected : HistoryUsage();
    lines = HistoryStore::Of().Usage();
    ResultListModel *rows = ui->listUsage->List();
    rows->Clear();
    for (const HistoryUsage &line : std::as_const(lines))
        rows->AddRow(UsageCells(line));
    if (!lines.isEmpty())
        rows->AddRow(UsageCells(TotalUsage(lines)));
    rows->Flush();
    ui->lblNote->setText(noteOf(HistoryStore::Of().IsOpen(), lines.isEmpty()));
    selectLine(before);
    showBehind();
}

void frmUsage::selectLine(const HistoryUsage &line)
{
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines.at(i).Month == line.Month && lines.at(i).ClientCode == line.ClientCode)
            ui->listUsage->selectRow(static_cast<int>(i));
    }
}

/// Null when none is selected, or the total is.
const HistoryUsage *frmUsage::selectedLine() const
{
    const int row = ui->listUsage->SelectedRow();
    return row >= 0 && row < lines.size() ? &lines.at(row) : nullptr;
}

void frmUsage::showBehind()
{
    const HistoryUsage *line = selectedLine();
    QList<AskedItem> items;
    if (line)
        items = HistoryStore::Of().UsageItems(line->ClientCode, line->Month);
    ResultListModel *rows = ui->listBehind->List();
    rows->Clear();
    for (const AskedItem &item : std::as_const(items))
        rows->AddRow(behindCells(item));
    rows->Flush();
}

void frmUsage::PrintDirect()
{
    viewer->Show(ComposeUsage(lines, SituationNow(false, false)));
}

void frmUsage::PrintToFile(const QString &path)
{
    const RunScope scope(this);
    SaveReport(this, path, [this] { return UsageText(lines, SituationNow(false, false)); });
}
