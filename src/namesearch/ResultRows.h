#pragma once

#include "namesearch/ResultColumns.h"

#include <QStringList>

/// A row as the list takes it.
struct ResultRow
{
    QStringList Cells;
    bool Complete = true; ///< false when a field was missing; Cells then ends before it
};

/// Cuts a row of the server into the cells of the list. The row's last character, after trimming,
/// is its delimiter. A row that has too few fields keeps the cells that it had.
ResultRow ParseResultRow(const QString &row, ResultKind kind);
