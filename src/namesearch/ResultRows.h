#pragma once

#include "namesearch/ResultColumns.h"

#include <QStringList>

/// A row as the list takes it.
struct ResultRow
{
    QStringList Cells;
    bool Complete = true; ///< false when a field was missing; Cells then ends before it
};

/// Cuts a row of the server into the cells of a list of cases. The row's last character, after
/// trimming, is its delimiter; in the District and Municipal Courts it is always "~". A row that
/// has too few fields keeps the cells that it had.
ResultRow ParseResultRow(const QString &row, ResultKind kind);

/// True for a row that names a person instead of a case: a non-civil search that found several
/// people of one name sends such rows, for the user to choose from.
bool IsDuplicateName(const QString &row);
