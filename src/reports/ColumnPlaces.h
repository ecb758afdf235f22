#pragma once

#include "reports/Report.h"

/// Where a column stands on the page, in twips; `Left` from the left margin.
struct ColumnPlace
{
    double Left = 0;
    double Width = 0;  ///< of the column
    double WrapAt = 0; ///< of its text, within the column
    Qt::Alignment Alignment = Qt::AlignLeft;

    double Right() const { return Left + Width; }
};

/// The columns of a table on paper of this printable width. Columns that are wider together lose
/// what is too much: the one that yields first, down to a width that is still of use, then all
/// others in proportion.
QList<ColumnPlace> PlaceColumns(const QList<ColumnFormat> &columns, int printableWidth);

/// The columns of all tables of a report.
class ColumnPlaces
{
public:
    ColumnPlaces(const QList<QList<ColumnFormat>> &tables, int printableWidth);

    bool Has(int table) const { return table >= 0 && table < places.size(); }
    const QList<ColumnPlace> &Of(int table) const { return places.at(table); }

private:
    QList<QList<ColumnPlace>> places;
};
