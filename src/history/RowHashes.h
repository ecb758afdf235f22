#pragma once

#include "history/RowSet.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QStringList>

// A row that was seen is kept as a number: it tells whether a row was there before, and nothing
// about anybody.

/// How often each row was there, by its hash.
using RowCounts = QHash<quint64, int>;

/// The number of a row, cell by cell: the same for the same cells in every run and version of the
/// program, and whether they come as texts or in UTF-8.
class RowHash
{
public:
    RowHash();
    void Add(QStringView cell);
    /// No text is made of it, as far as its characters are those of English.
    void Add(QByteArrayView utf8);
    quint64 Value() const { return hash; }

private:
    quint64 hash;
};

quint64 HashOfCells(const QStringList &cells);

RowCounts CountsOf(const QList<quint64> &rows);

/// Those of `counts` and `more`, each as often as it is there at most.
RowCounts Joined(const RowCounts &counts, const RowCounts &more);

/// As they are kept in the file, and back; what does not fit is left out.
QByteArray PackedRows(const RowCounts &counts);
RowCounts UnpackedRows(const QByteArray &packed);
/// The same without how often they were there.
RowSet UnpackedRowSet(const QByteArray &packed);
