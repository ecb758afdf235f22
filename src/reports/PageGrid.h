#pragma once

#include "reports/Paper.h"

#include <QRect>
#include <QSize>

enum class PageArrangement {
    OneBelowOther,
    FacingPairs, ///< as in a book: the first page stands on the right
    AllAtOnce,
};

enum class PageZoom { FitWidth, FitPage, Free };

/// Where pages stand in a view, in pixels. Places are computed and not kept: there may be
/// thousands.
class PageGrid
{
public:
    /// For a view of this size. `freeScale` is in pixels a twip and holds for PageZoom::Free. All
    /// pages at once are as large as the view allows, and never too small to be told apart: then
    /// only as many as fit beside each other, and the view scrolls.
    PageGrid(const Paper &paper, int pages, PageArrangement arrangement, PageZoom zoom,
             double freeScale, const QSize &view);

    double Scale() const { return scale; } ///< pixels a twip
    int Columns() const { return columns; }

    /// Of all pages with what is around them.
    QSize Size() const;
    QRect PlaceOf(int page) const;

    struct Range
    {
        int First = 0;
        int End = 0; ///< behind the last one
    };
    /// The pages that show something between these heights.
    Range PagesBetween(int top, int bottom) const;

private:
    double scaleToFit(int beside, int below) const;
    void arrangeAll();
    int rowCount() const { return (pages + skipped + columns - 1) / columns; }
    QSize pageSize() const;

    const Paper paper;
    const int pages;
    const QSize view;
    int columns = 1;
    int skipped = 0; ///< places before the first page that are empty
    double scale = 0.0;
};
