#pragma once

#include "records/ResultsRecord.h"

#include <QStringView>

#include <span>

/// A column of the report of a list.
struct ReportColumn
{
    int Cell;             ///< of the row
    QStringView Head;     ///< on paper
    QStringView FileHead; ///< in a text file
    QStringView Format;   ///< on paper; "" for as much as the longest cell takes
};

/// The columns of the report of a list of this kind. In the report of an index search the title of
/// a case and its effective date are no columns: they stand on a line under the row.
std::span<const ReportColumn> ReportColumnsOf(ResultKind kind);

/// A report needs no more cells of a row than these.
inline constexpr size_t mostReportCells = 8;

/// The cells of that line.
inline constexpr int indexTitleCell = 4;
inline constexpr int indexDateCell = 7;
