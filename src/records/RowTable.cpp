#include "records/RowTable.h"

#include <cstring>

namespace {
/// Stands behind each cell of a row. No text has this byte in UTF-8.
constexpr char cellEnd = '\xFF';

/// The cells as one block of UTF-8: a list of texts takes four times the memory, and there may be a
/// hundred thousand rows, of which the view shows thirty.
QByteArray packed(const QStringList &cells)
{
    qsizetype size = 0;
    for (const QString &cell : cells)
        size += cell.size() + 1;
    QByteArray block;
    block.reserve(size);
    for (const QString &cell : cells) {
        block.append(cell.toUtf8());
        block.append(cellEnd);
    }
    block.squeeze();
    return block;
}

/// The text of a cell of this block, empty when the row has no such cell.
QString cellIn(QByteArrayView block, int column)
{
    qsizetype from = 0;
    for (int before = 0; before < column; ++before) {
        const qsizetype end = block.indexOf(cellEnd, from);
        if (end < 0)
            return {};
        from = end + 1;
    }
    const qsizetype end = block.indexOf(cellEnd, from);
    return end < 0 || column < 0 ? QString() : QString::fromUtf8(block.sliced(from, end - from));
}
} // namespace

void RowTable::AddRow(const QStringList &cells, const QString &key)
{
    rows.push_back({packed(cells), key});
    Q_EMIT RowAdded();
}

void RowTable::Clear()
{
    rows.clear();
    Q_EMIT Cleared();
}

QString RowTable::Cell(int row, int column) const
{
    return cellIn(at(row).cells, column);
}

void RowTable::ViewCells(int row, std::span<QByteArrayView> cells) const
{
    const char *from = at(row).cells.constData();
    const char *const end = from + at(row).cells.size();
    for (QByteArrayView &cell : cells) {
        cell = {};
        const auto left = static_cast<size_t>(end - from);
        if (left == 0)
            continue;
        const auto *to = static_cast<const char *>(std::memchr(from, cellEnd, left));
        cell = QByteArrayView(from, to - from);
        from = to + 1;
    }
}

void RowTable::SetCell(int row, int column, const QString &text)
{
    QStringList cells = Cells(row);
    while (cells.size() <= column)
        cells.append(QString());
    cells[column] = text;
    at(row).cells = packed(cells);
    Q_EMIT CellChanged(row, column);
}

QStringList RowTable::Cells(int row) const
{
    const QByteArrayView block = at(row).cells;
    QStringList cells;
    qsizetype from = 0;
    for (qsizetype end = block.indexOf(cellEnd); end >= 0; end = block.indexOf(cellEnd, from)) {
        cells.append(QString::fromUtf8(block.sliced(from, end - from)));
        from = end + 1;
    }
    return cells;
}

QString RowTable::Key(int row) const
{
    return at(row).key;
}

bool RowTable::IsChecked(int row) const
{
    return at(row).checked;
}

void RowTable::SetChecked(int row, bool checked)
{
    at(row).checked = checked;
    Q_EMIT CheckChanged(row);
}

QList<int> RowTable::CheckedRows() const
{
    QList<int> checked;
    for (int row = 0; row < Count(); ++row) {
        if (IsChecked(row))
            checked.append(row);
    }
    return checked;
}

void RowTable::Rearrange(const std::vector<int> &order)
{
    std::vector<Row> moved;
    moved.reserve(rows.size());
    for (const int from : order)
        moved.push_back(std::move(at(from)));
    rows = std::move(moved);
}
