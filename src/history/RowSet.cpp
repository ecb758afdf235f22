#include "history/RowSet.h"

#include <QHashFunctions>

#include <bit>

namespace {
constexpr int bitsOfNumber = 64;

/// Another one in each run of the program: no server can make up rows that all want one place.
quint64 scatterer()
{
    static const quint64 factor = QHashSeed::globalSeed() | 1U;
    return factor;
}
} // namespace

RowSet::RowSet(qsizetype most)
    : shift(bitsOfNumber - static_cast<int>(std::bit_width(2 * static_cast<size_t>(most) + 1))),
      places(size_t{1} << (bitsOfNumber - shift))
{
}

RowSet::RowSet(std::initializer_list<quint64> rows) : RowSet(static_cast<qsizetype>(rows.size()))
{
    for (const quint64 row : rows)
        Insert(row);
}

/// Where a number is, or would be.
size_t RowSet::placeOf(quint64 row) const
{
    size_t place = (row * scatterer()) >> shift;
    while (places[place] != 0 && places[place] != row)
        place = (place + 1) & (places.size() - 1);
    return place;
}

void RowSet::Insert(quint64 row)
{
    places[placeOf(row)] = row;
    hasZero = hasZero || row == 0;
}

bool RowSet::Contains(quint64 row) const
{
    return row == 0 ? hasZero : places[placeOf(row)] == row;
}
