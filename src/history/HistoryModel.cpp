#include "history/HistoryModel.h"

#include "controls/WrappedText.h"
#include "history/HistoryStore.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int rowsOfPage = 100;
constexpr int mostPages = 20;
/// What a key waits for at most, and a stretch of the history more.
constexpr int keyMilliseconds = 20;

constexpr std::array<QStringView, HistoryModel::Columns> headers{
    u"When", u"Kind", u"What", u"Where", u"Client Code", u"Outcome", u"Count"};

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
        return TextOfMoment(item.When);
    case HistoryModel::Kind:
        return TextOfKind(item.Kind);
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
    timer.setInterval(0);
    connect(&timer, &QTimer::timeout, this, &HistoryModel::goOn);
}

void HistoryModel::forgetPages()
{
    pages.clear();
    pageOrder.clear();
}

void HistoryModel::SetFilter(const QString &words)
{
    beginResetModel();
    filter = words.simplified();
    forgetPages();
    timer.stop();
    beginLook(false);
    found.clear();
    if (filter.isEmpty()) {
        rows = HistoryStore::Of().CountOf({});
        endResetModel();
        return;
    }
    const QDeadlineTimer deadline(keyMilliseconds);
    bool more = lookOn();
    while (more && looked.size() < rowsOfPage && !deadline.hasExpired())
        more = lookOn();
    found = looked;
    rows = static_cast<int>(found.size());
    endResetModel();
    if (more)
        timer.start();
}

void HistoryModel::beginLook(bool again)
{
    looked.clear();
    below = std::numeric_limits<qint64>::max();
    looksAgain = again;
    changed = false;
}

/// False at the end.
bool HistoryModel::lookOn()
{
    const FoundIds more = HistoryStore::Of().Found(filter, below);
    looked += more.Ids;
    below = more.Below;
    return !more.AtEnd;
}

void HistoryModel::goOn()
{
    const bool more = lookOn();
    if (!looksAgain)
        showMore();
    else if (!more)
        showAgain();
    if (!more) {
        timer.stop();
        looksAgain = false;
        if (changed)
            Refresh();
    }
    Q_EMIT RowsCame();
}

/// What was found goes behind what is shown.
void HistoryModel::showMore()
{
    if (looked.size() == found.size())
        return;
    const int last = rows / rowsOfPage;
    beginInsertRows({}, rows, static_cast<int>(looked.size()) - 1);
    // It was not full.
    pages.remove(last);
    pageOrder.removeOne(last);
    found = looked;
    rows = static_cast<int>(found.size());
    endInsertRows();
}

/// What was found takes the place of what is shown.
void HistoryModel::showAgain()
{
    const qsizetype come = found.isEmpty() ? -1 : looked.indexOf(found.first());
    const bool onlyCame = come >= 0 && looked.sliced(come) == found;
    if (!onlyCame)
        beginResetModel();
    else if (come > 0)
        beginInsertRows({}, 0, static_cast<int>(come) - 1);
    forgetPages();
    found = looked;
    rows = static_cast<int>(found.size());
    if (!onlyCame)
        endResetModel();
    else if (come > 0)
        endInsertRows();
    if (rows > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, Columns - 1));
}

void HistoryModel::Refresh()
{
    if (filter.isEmpty()) {
        refreshAll();
    } else if (timer.isActive()) {
        changed = true;
    } else {
        beginLook(true);
        timer.start();
    }
}

void HistoryModel::refreshAll()
{
    const qint64 newest = rows > 0 ? ItemAt(0).Id : 0;
    const QList<AskedItem> first = HistoryStore::Of().Items({}, 0, rowsOfPage);
    const int now = HistoryStore::Of().CountOf({});
    const int come = newest > 0 ? placeOf(newest, first) : -1;
    // Nothing but what stands above has changed the number of rows.
    if (come < 0 || now != rows + come) {
        SetFilter({});
        return;
    }
    if (come > 0)
        beginInsertRows({}, 0, come - 1);
    forgetPages();
    rows = now;
    if (come > 0)
        endInsertRows();
    Q_EMIT dataChanged(index(0, 0), index(rows - 1, Columns - 1));
}

const QList<AskedItem> &HistoryModel::page(int number) const
{
    const auto known = pages.constFind(number);
    if (known != pages.cend())
        return *known;
    if (pageOrder.size() == mostPages)
        pages.remove(pageOrder.takeFirst());
    pageOrder.append(number);
    const HistoryStore &store = HistoryStore::Of();
    const int first = number * rowsOfPage;
    return *pages.insert(number, filter.isEmpty() ? store.Items({}, first, rowsOfPage)
                                                  : store.ItemsOf(found.mid(first, rowsOfPage)));
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
