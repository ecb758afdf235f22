#pragma once

#include "history/RowHashes.h"

#include <QList>
#include <QSet>
#include <QStringList>

// Which rows of a table were not there before.

/// The numbers of these rows, in their order.
QList<quint64> HashesOf(const QList<QStringList> &rows);

/// The places of the rows that were not there. A row that is there more often than it was is new as
/// many times as it is more: the first of them are taken for the new ones.
QSet<int> RowsNotIn(const QList<quint64> &rows, RowCounts before);
