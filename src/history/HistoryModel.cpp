#include "history/HistoryModel.h"

#include "controls/WrappedText.h"
#include "history/HistoryStore.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr int rowsOfPage = 100;
constexpr int mostPages = 20;
/// Longer than from one key to the next.
constexpr int countMilliseconds = 250;

constexpr std::array<QStringView, HistoryModel::Columns> headers{
    u"When", u"Kind", u"What", u"Where", u"Client Code", u"Outcome", u"Count"};
constexpr std::array<QStringView, 3> kinds{u"Search", u"Case", u"Document"};

QString outcomeOf(const AskedItem &item)
{
    if (item.State == AskedState::Waiting)
        return u"Waiting .."_s;
    return item.State == AskedState::Running ? u"Running .."_s : item.Outcome;
}

QString cellOf(const AskedItem &item, int column)
{
    switch (column) {
    case HistoryModel::When:
        return item.When.toString(u"MM/dd/yyyy HH:mm"_s);
    case HistoryModel::Kind:
        return kinds.at(static_cast<size_t>(item.Kind)).toString();
    case HistoryModel::What:
        return item.What;
    case HistoryModel::Where:
        return item.Where;
    case HistoryModel::ClientCode:
        return item.ClientCode;
    case HistoryModel::Outcome:
        return outcomeOf(item);
    case HistoryModel::Count:
        return item.Count < 0 ? QString() : QString::number(item.Count);
    default:
        return {};
    }
}

/// Where an item is among others, -1 when it is not there.
int placeOf(qint64 id, const QList<AskedItem> &items)
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [id](const AskedItem &one) { return one.Id == id; });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}
} // namespace

HistoryModel::HistoryModel(QObject *parent) : QAbstractTableModel(parent)
{
    countTimer.setSingleShot(true);
    countTimer.setInterval(countMilliseconds);
    connect(&countTimer, &QTimer::timeout, this, &HistoryModel::countRest);
}

/// How many there are. What comes to its end within a page is counted without another look.
int HistoryModel::count(const QList<AskedItem> &firstPage) const
{
    const auto size = static_cast<int>(firstPage.size());
    return size < rowsOfPage ? size : HistoryStore::Of().CountOf(filter);
}

void HistoryModel::SetFilter(const QString &words)
{
    beginResetModel();
    filter = words;
    pages.clear();
    pageOrder.clear();
    const QList<AskedItem> &first = page(0);
    const bool countsLater = !filter.isEmpty() && first.size() == rowsOfPage;
    rows = countsLater ? rowsOfPage : count(first);
    endResetModel();
    countTimer.stop();
    if (countsLater)
        countTimer.start();
}

void HistoryModel::countRest()
{
    const int all = HistoryStore::Of().CountOf(filter);
    if (all > rows) {
        beginInsertRows({}, rows, all - 1);
        rows = all;
        endInsertRows();
    }
    Q_EMIT Counted();
}

void HistoryModel::Refresh()
{
    if (!IsCounted()) {
        SetFilter(filter);
        return;
    }
    const qint64 newest = rows > 0 ? ItemAt(0).Id : 0;
    const QList<AskedItem> first = HistoryStore::Of().Items(filter, 0, rowsOfPage);
    const int now = count(first);
    const int come = newest > 0 ? placeOf(newest, first) : -1;
    // Nothing but what stands above has changed the number of rows.
    if (come < 0 || now != rows + come) {
        SetFilter(filter);
        return;
    }
    if (come > 0)
        beginInsertRows({}, 0, come - 1);
    pages.clear();
    pageOrder.clear();
    rows = now;
    if (come > 0)
        endInsertRows();
    Q_EMIT dataChanged(index(0, 0), index(rows - 1, Columns - 1));
}

const QList<AskedItem> &HistoryModel::page(int number) const
{
    const auto found = pages.constFind(number);
    if (found != pages.cend())
        return *found;
    if (pageOrder.size() == mostPages)
        pages.remove(pageOrder.takeFirst());
    pageOrder.append(number);
    return *pages.insert(number, HistoryStore::Of().Items(filter, number * rowsOfPage, rowsOfPage));
}

AskedItem HistoryModel::ItemAt(int row) const
{
    return row < 0 || row >= rows ? AskedItem() : page(row / rowsOfPage).value(row % rowsOfPage);
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows;
}

int HistoryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows)
        return {};
    const bool rightAligned = index.column() == Count;
    if (role == Qt::TextAlignmentRole && rightAligned)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
        return {};
    const QString cell = cellOf(ItemAt(index.row()), index.column());
    if (role == Qt::DisplayRole)
        return cell;
    if (role == Qt::ToolTipRole)
        return cell.isEmpty() ? QString() : ToolTipText(cell);
    // A reader that goes along the cells says which of them it is in.
    return QString(headers.at(static_cast<size_t>(index.column())).toString() + u": "_s
                   + (cell.isEmpty() ? u"none"_s : cell));
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= Columns)
        return {};
    if (role == Qt::TextAlignmentRole && section == Count)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    return headers.at(static_cast<size_t>(section)).toString();
}
