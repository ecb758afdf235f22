#pragma once

#include "records/GridTable.h"
#include "tables/WidestTexts.h"

#include <QSet>

/// How wide the columns of a grid would have to be for none of their texts to wrap.
class GridNeeds
{
public:
    GridNeeds() : widest(QFont(), 0), widestBold(QFont(), 0) {}

    /// Another table, or another font, or other rows that are shown in bold; they are looked at
    /// when somebody asks.
    void Begin(const QFont &font, const GridTable &table, const QSet<int> &bold);
    /// The width of a column in pixels, its margins included. The rows that the table has got since
    /// are looked at now, each of them once.
    int Needed(const GridTable &table, int column);

private:
    WidestTexts widest;
    WidestTexts widestBold; ///< of the rows that are shown so
    QSet<int> boldRows;
    qsizetype looked = 0; ///< so many rows, from the first on
};
