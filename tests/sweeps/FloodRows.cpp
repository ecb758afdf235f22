#include "sweeps/FloodRows.h"

#include "namesearch/DistrictSearch.h"
#include "namesearch/IndexLines.h"

namespace {
QString lineOf(const FloodList &list)
{
    switch (list.Which) {
    case FloodList::Civil:
    case FloodList::NonCivil:
        return DistrictLine();
    case FloodList::Index:
        return IndexLine();
    case FloodList::Bankruptcy:
        return u"BKRPT~SEARCH~SMITH~JOHN~"_s;
    default:
        return RequestLine();
    }
}

NameResultsWindow *makeWindow(const FloodList &list)
{
    if (list.Which == FloodList::Civil)
        return new frmDiscisNameResults;
    if (list.Which == FloodList::NonCivil)
        return new frmDiscisNCNameResults;
    return new frmNameSearchResults(QString::fromLatin1(list.State),
                                    list.Which == FloodList::Index);
}
} // namespace

QByteArray FloodRow(const FloodList &list, qint64 number)
{
    return "|SMITH, JOHN Q" + QByteArray::number(number) + "~94-1-"
           + QByteArray::number(number).rightJustified(5, '0') + "-1" + list.BehindNumber + '|';
}

Flood RowsOf(const FloodList &list, int rows)
{
    const auto piece = [&list](qint64 number) {
        QByteArray bytes;
        for (qint64 row = number * rowsOfPiece; row < (number + 1) * rowsOfPiece; ++row)
            bytes += FloodRow(list, row);
        return bytes;
    };
    return {.Pieces = rows / rowsOfPiece, .Piece = piece};
}

NameResultsWindow *WindowOf(const FloodList &list)
{
    NameResultsWindow *window = makeWindow(list);
    SearchDesk::Enqueue(window, {lineOf(list)});
    return window;
}
