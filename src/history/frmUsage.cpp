#include "history/frmUsage.h"

#include "history/HistoryStore.h"
#include "history/UsageReport.h"
#include "reports/ReportViewer.h"
#include "reports/SaveReport.h"
#include "session/frmMain.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"
#include "ui_frmUsage.h"

#include <QHash>
#include <QItemSelectionModel>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

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

/// A line, and what it is known by when its list is read again.
struct KeptLine
{
    QString Key;
    QStringList Cells;
};

QString keyOf(const HistoryUsage &line)
{
    return line.Month + u'\n' + line.ClientCode + u'\n';
}

/// True when these lines are there already, in this order. Only what has changed in them is set.
bool showInPlace(ResultListModel *list, const QList<KeptLine> &lines)
{
    if (list->Count() != lines.size())
        return false;
    for (int row = 0; row < list->Count(); ++row) {
        if (list->Key(row) != lines[row].Key)
            return false;
    }
    for (int row = 0; row < list->Count(); ++row) {
        const QStringList cells = list->Cells(row);
        for (int column = 0; column < cells.size(); ++column) {
            if (cells[column] != lines[row].Cells.value(column))
                list->SetCell(row, column, lines[row].Cells.value(column));
        }
    }
    return true;
}

/// What the user has in view and has selected of a list, by the keys of its lines.
struct Place
{
    QStringList FromTop; ///< from the first in sight on; empty at the top of the list
    QStringList Selected;
    QString Current;
    int Across = 0;
};

Place placeIn(ResultListView *view)
{
    const ResultListModel *list = view->List();
    Place place;
    place.Across = view->horizontalScrollBar()->value();
    if (view->verticalScrollBar()->value() > 0) {
        for (int row = view->rowAt(0); row >= 0 && row < list->Count(); ++row)
            place.FromTop.append(list->Key(row));
    }
    const QList<int> selected = view->Tools()->Filter()->SelectedRows();
    for (const int row : selected)
        place.Selected.append(list->Key(row));
    if (view->currentIndex().isValid())
        place.Current = list->Key(view->currentIndex().row());
    return place;
}

void goBackTo(const Place &place, ResultListView *view)
{
    QHash<QString, QModelIndex> rows;
    for (int row = 0; row < view->List()->Count(); ++row)
        rows.insert(view->List()->Key(row), view->List()->index(row, 0));
    QItemSelectionModel *selection = view->selectionModel();
    if (const QModelIndex current = rows.value(place.Current); current.isValid())
        selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    for (const QString &key : place.Selected) {
        const QModelIndex row = rows.value(key);
        selection->select(row, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    // The first of them that is still there.
    for (const QString &key : place.FromTop) {
        if (rows.contains(key)) {
            view->scrollTo(rows.value(key), QAbstractItemView::PositionAtTop);
            break;
        }
    }
    view->horizontalScrollBar()->setValue(place.Across);
}

/// Shows these lines. What the user looks at and has selected stays so where it is still there:
/// every request changes the account, and somebody may be reading it meanwhile.
void showKept(ResultListView *view, const QList<KeptLine> &lines)
{
    ResultListModel *list = view->List();
    if (showInPlace(list, lines))
        return;
    const Place place = placeIn(view);
    list->Clear();
    for (const KeptLine &line : lines)
        list->AddRow(line.Cells, line.Key);
    list->Flush();
    goBackTo(place, view);
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
    lines = HistoryStore::Of().Usage();
    QList<KeptLine> rows;
    for (const HistoryUsage &line : std::as_const(lines))
        rows.append({keyOf(line), UsageCells(line)});
    if (!lines.isEmpty())
        rows.append({u"Total"_s, UsageCells(TotalUsage(lines))});
    {
        // A list that is made anew has nothing selected for a moment.
        const QScopedValueRollback rollback(filling, true);
        showKept(ui->listUsage, rows);
    }
    ui->lblNote->setText(noteOf(HistoryStore::Of().IsOpen(), lines.isEmpty()));
    showBehind();
}

/// Null when none is selected, or the total is.
const HistoryUsage *frmUsage::selectedLine() const
{
    const int row = ui->listUsage->SelectedRow();
    return row >= 0 && row < lines.size() ? &lines.at(row) : nullptr;
}

void frmUsage::showBehind()
{
    if (filling)
        return;
    QList<KeptLine> rows;
    if (const HistoryUsage *line = selectedLine()) {
        const QList<AskedItem> items = HistoryStore::Of().UsageItems(line->ClientCode, line->Month);
        for (const AskedItem &item : items)
            rows.append({keyOf(*line) + QString::number(item.Id), behindCells(item)});
    }
    showKept(ui->listBehind, rows);
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
