#pragma once

#include <QList>

/// A column's claim on the width of its grid.
struct ColumnShare
{
    double Percent = 1;
    int Fixed = -1; ///< its width when that is settled already, in pixels; 0 for none at all
};

/// The claims of columns that were given these widths, in hundredths. One of 0 keeps its column out
/// of sight. When every one is 0 the columns share the grid evenly: rows that nobody can see would
/// look like a failure.
QList<ColumnShare> SharesOf(const QList<double> &percents);

/// Whether the columns are meant to fill the grid: their hundredths make a whole, or so nearly that
/// only rounding can be the cause, as with three columns of 33.
bool FillsGrid(const QList<ColumnShare> &columns);

/// The widths of the columns in a grid that is `width` pixels wide, none below `least` but those
/// that are fixed. Columns that fill the grid do so to the pixel while there is room; what the
/// fixed ones leave goes to the others in proportion. Any other column has its own hundredths.
QList<int> ColumnPixels(const QList<ColumnShare> &columns, int width, int least);
