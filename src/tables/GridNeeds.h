#pragma once

#include "records/GridTable.h"
#include "tables/WidestTexts.h"

/// How wide the columns of a grid would have to be for none of their texts to wrap.
class GridNeeds
{
public:
    GridNeeds() : widest(QFont(), 0) {}

    /// Another table, or another font; its rows are looked at when somebody asks.
    void Begin(const QFont &font, const GridTable &table);
    /// The width of a column in pixels, its margins included. The rows that the table has got since
    /// are looked at now, each of them once.
    int Needed(const GridTable &table, int column);

private:
    WidestTexts widest;
    qsizetype looked = 0; ///< so many rows, from the first on
};
