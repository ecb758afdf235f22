#include "tables/ColumnRoom.h"

#include <algorithm>
#include <numeric>

namespace {
int lackOf(const ColumnNeed &column)
{
    return std::max(column.Needed - column.Width, 0);
}
} // namespace

QList<int> WithRoom(const QList<ColumnNeed> &columns, int room)
{
    QList<int> widths;
    for (const ColumnNeed &column : columns)
        widths.append(column.Width);
    QList<qsizetype> order(columns.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qsizetype left, qsizetype right) {
        return lackOf(columns[left]) < lackOf(columns[right]);
    });
    for (const qsizetype column : std::as_const(order)) {
        const int given = std::min(lackOf(columns[column]), std::max(room, 0));
        widths[column] += given;
        room -= given;
    }
    return widths;
}
