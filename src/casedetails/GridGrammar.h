#pragma once

#include "records/GridTable.h"

#include <QStringList>

#include <optional>

// The two grammars by which a reply carries a table. Lines are those of lboxResponses, line 0
// first. None of these needs a window, and the cost of each is that of reading its lines: what a
// line can be multiplied by is the number of columns, which is bounded.

/// No grid has more columns, whatever a reply defines; what stands beyond is left out. A column is
/// meant to be at least a hundredth wide.
inline constexpr int maximumGridColumns = 100;

/// The order in which the lines of a reply become the rows of a grid.
enum class RowOrder {
    AsSent,
    LastFirst ///< the newest entry, which stands last in the reply, comes to the top
};

/// How many times the delimiter stands in the line.
int CountDelimiters(const QString &line, QChar delimiter);

/// True for a line that defines a table of the table form and is never one of its rows.
bool IsDefinitionLine(const QString &line);

/// The table of a reply whose line `first` begins "GRIDDEF~"; the lines behind it are the rows. An
/// empty table when that line does not begin so. Throws error 13 when a width is no number and 6
/// when it is too great for one.
GridTable GridDefTable(const QStringList &lines, RowOrder order, int first = 0);

/// The columns of a "COLDEF~" line whose headers and widths stand in any order: what is a number is
/// a width, and a column without one has a hundredth. Nothing when the line is rejected: it is
/// empty, holds no "~", begins otherwise, or has too few fields for a single column. Throws error 6
/// or 13 when a width is too great.
std::optional<QList<GridColumn>> ApplyColDef(const QString &line);

/// The same, and for a rejected line `count` columns of equal width with no headers.
QList<GridColumn> ColDefColumns(const QString &line, int count);

/// The columns of a "COLDEF" line that has all headers and then all widths. Throws as GridDefTable.
QList<GridColumn> SetGridColsAndNamesAndWidths(const QString &line);

/// The rows of a reply in the table form, with the definition lines left out, a cell with "<BR>"
/// turned into several rows, and "<CR>" into a blank. A row that came of no "<BR>" is its line as
/// it stood. A line whose only "<BR>" stands behind its last "~" gives no row. `expanded`, if
/// given, gets each row that came of a "<BR>", in order.
QStringList ExpandGridRows(const QStringList &lines, QStringList *expanded = nullptr);

/// The table of a reply in the table form. Too few lines (below five) give an empty table.
/// A cell is trimmed; the cells beside the further pieces of a "<BR>" are one blank. `expanded` as
/// above. Throws as ApplyColDef.
GridTable ColDefTable(const QStringList &lines, QStringList *expanded = nullptr);

/// The same for the names of Oregon and Idaho, whose column definition is read otherwise and whose
/// rows are split by their own last character. Throws as GridDefTable.
GridTable NamesTable(const QStringList &lines);

/// A message in the place of a table: one column of the whole width, an empty header, the message
/// in row 1.
GridTable MessageTable(const QString &message);

/// A message as the only row, with no header above it.
GridTable OneCellTable(const QString &message);
