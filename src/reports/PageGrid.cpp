#include "reports/PageGrid.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int spacing = 14;
constexpr int leastPageWidth = 90;
constexpr double leastScale = 0.002;
} // namespace

PageGrid::PageGrid(const Paper &sheet, int count, PageArrangement arrangement, PageZoom zoom,
                   double freeScale, const QSize &viewSize)
    : paper(sheet), pages(std::max(1, count)), view(viewSize)
{
    if (arrangement == PageArrangement::AllAtOnce) {
        arrangeAll();
        return;
    }
    if (arrangement == PageArrangement::FacingPairs) {
        columns = 2;
        skipped = 1;
    }
    constexpr int anyHeight = 0;
    scale = zoom == PageZoom::Free ? freeScale
                                   : scaleToFit(columns, zoom == PageZoom::FitPage ? 1 : anyHeight);
}

double PageGrid::scaleToFit(int beside, int below) const
{
    const auto fit = [](int room, int count, int twips) {
        return static_cast<double>(room - spacing * (count + 1)) / count / twips;
    };
    double fitting = fit(view.width(), beside, paper.Width);
    if (below > 0)
        fitting = std::min(fitting, fit(view.height(), below, paper.Height));
    return std::max(fitting, leastScale);
}

void PageGrid::arrangeAll()
{
    const double least = static_cast<double>(leastPageWidth) / paper.Width;
    const int most = std::max(1, (view.width() - spacing) / (leastPageWidth + spacing));
    columns = std::min(most, pages);
    scale = least;
    for (int beside = 1; beside <= std::min(most, pages); ++beside) {
        const double fitting = scaleToFit(beside, (pages + beside - 1) / beside);
        if (fitting > scale) {
            columns = beside;
            scale = fitting;
        }
    }
}

QSize PageGrid::pageSize() const
{
    // What fits exactly is not to lose a pixel to the last digit.
    constexpr double slack = 1e-6;
    return {static_cast<int>(std::floor(paper.Width * scale + slack)),
            static_cast<int>(std::floor(paper.Height * scale + slack))};
}

QSize PageGrid::Size() const
{
    const QSize page = pageSize();
    return {columns * (page.width() + spacing) + spacing,
            rowCount() * (page.height() + spacing) + spacing};
}

QRect PageGrid::PlaceOf(int page) const
{
    const QSize size = pageSize();
    const int place = page + skipped;
    const int free = std::max(0, view.width() - Size().width()) / 2;
    return {QPoint(free + spacing + place % columns * (size.width() + spacing),
                   spacing + place / columns * (size.height() + spacing)),
            size};
}

PageGrid::Range PageGrid::PagesBetween(int top, int bottom) const
{
    const int pitch = pageSize().height() + spacing;
    const int firstRow = std::max(0, top - spacing) / pitch;
    const int lastRow = std::max(0, bottom - spacing) / pitch;
    return {std::clamp(firstRow * columns - skipped, 0, pages),
            std::clamp((lastRow + 1) * columns - skipped, 0, pages)};
}
