#include "history/NewRows.h"

QList<quint64> HashesOf(const QList<QStringList> &rows)
{
    QList<quint64> hashes;
    hashes.reserve(rows.size());
    for (const QStringList &row : rows)
        hashes.append(HashOfCells(row));
    return hashes;
}

QSet<int> RowsNotIn(const QList<quint64> &rows, RowCounts before)
{
    QSet<int> added;
    for (auto row = static_cast<int>(rows.size()) - 1; row >= 0; --row) {
        const auto known = before.find(rows[row]);
        if (known != before.end() && known.value() > 0)
            --known.value();
        else
            added.insert(row);
    }
    return added;
}
