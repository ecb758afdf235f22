#include "session/WaitingModel.h"

#include "controls/WrappedText.h"

#include <QFont>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<QStringView, WaitingModel::Columns> headers{u"State", u"Kind", u"What",
                                                                 u"Where"};

QString cellOf(const WaitingRow &row, int column)
{
    switch (column) {
    case WaitingModel::State:
        return StateText(row);
    case WaitingModel::Kind:
        return row.Kind;
    case WaitingModel::What:
        return row.What;
    case WaitingModel::Where:
        return row.Where;
    default:
        return {};
    }
}
} // namespace

bool WaitingModel::sameKeys(const QList<WaitingRow> &others) const
{
    return std::equal(
        rows.begin(), rows.end(), others.begin(), others.end(),
        [](const WaitingRow &one, const WaitingRow &other) { return one.Key == other.Key; });
}

void WaitingModel::Show(const QList<WaitingRow> &newRows)
{
    if (!sameKeys(newRows)) {
        beginResetModel();
        rows = newRows;
        endResetModel();
        return;
    }
    rows = newRows;
    if (!rows.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, Columns - 1));
}

const WaitingRow *WaitingModel::RowAt(int row) const
{
    return row >= 0 && row < rows.size() ? &rows[row] : nullptr;
}

int WaitingModel::IndexOf(const QString &key) const
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&key](const WaitingRow &row) { return row.Key == key; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

int WaitingModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

int WaitingModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant WaitingModel::data(const QModelIndex &index, int role) const
{
    const WaitingRow *row = RowAt(index.row());
    if (!row)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return cellOf(*row, index.column());
    case Qt::ToolTipRole: {
        const QString cell = cellOf(*row, index.column());
        return cell.isEmpty() ? QString() : ToolTipText(cell);
    }
    case Qt::AccessibleTextRole:
        // A reader that goes along the cells says which of them it is in.
        return QString(headers.at(static_cast<size_t>(index.column())).toString() + u": "_s
                       + cellOf(*row, index.column()));
    case Qt::FontRole: {
        QFont font;
        font.setBold(row->Holds());
        return font;
    }
    default:
        return {};
    }
}

QVariant WaitingModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= Columns)
        return {};
    return headers.at(static_cast<size_t>(section)).toString();
}
