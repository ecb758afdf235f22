#include "tables/ColumnShares.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double whole = 100.0;
constexpr double roundingSlack = 5.0;
constexpr double mostPercent = 200.0;

/// A width that was sent as a negative or an absurd number still is a width.
double sane(double percent)
{
    return percent > 0.0 ? std::min(percent, mostPercent) : 0.0;
}

/// Columns that their share would leave too narrow are set to the least width, at the expense of
/// the others; perhaps some of these are too narrow then.
void settleNarrowOnes(QList<ColumnShare> &columns, int width, int least)
{
    bool again = true;
    while (again) {
        again = false;
        double room = width;
        double claimed = 0.0;
        for (const ColumnShare &column : std::as_const(columns)) {
            room -= std::max(column.Fixed, 0);
            claimed += column.Fixed < 0 ? sane(column.Percent) : 0.0;
        }
        for (ColumnShare &column : columns) {
            if (column.Fixed < 0 && room * sane(column.Percent) <= least * claimed) {
                column.Fixed = least;
                again = true;
            }
        }
    }
}

/// Each share ends where the sum of the shares up to it ends, so that no pixel is lost to rounding.
QList<int> filled(const QList<ColumnShare> &columns, int width)
{
    double room = width;
    double claimed = 0.0;
    for (const ColumnShare &column : columns) {
        room -= std::max(column.Fixed, 0);
        claimed += column.Fixed < 0 ? sane(column.Percent) : 0.0;
    }
    QList<int> pixels;
    double passed = 0.0;
    int given = 0;
    for (const ColumnShare &column : columns) {
        if (column.Fixed >= 0) {
            pixels.append(column.Fixed);
            continue;
        }
        passed += sane(column.Percent);
        const int end = static_cast<int>(std::lround(room * passed / claimed));
        pixels.append(end - given);
        given = end;
    }
    return pixels;
}
} // namespace

QList<ColumnShare> SharesOf(const QList<double> &percents)
{
    const auto isZero = [](double percent) { return percent == 0.0; };
    const bool nothingSeen = std::all_of(percents.begin(), percents.end(), isZero);
    QList<ColumnShare> shares;
    for (const double percent : percents) {
        if (nothingSeen)
            shares.append(ColumnShare{whole / static_cast<double>(percents.size())});
        else
            shares.append(ColumnShare{percent, isZero(percent) ? 0 : -1});
    }
    return shares;
}

bool FillsGrid(const QList<ColumnShare> &columns)
{
    double sum = 0.0;
    for (const ColumnShare &column : columns)
        sum += sane(column.Percent);
    return std::fabs(sum - whole) <= roundingSlack;
}

QList<int> ColumnPixels(const QList<ColumnShare> &columns, int width, int least)
{
    if (FillsGrid(columns)) {
        QList<ColumnShare> settled = columns;
        settleNarrowOnes(settled, width, least);
        return filled(settled, width);
    }
    QList<int> pixels;
    for (const ColumnShare &column : columns) {
        const int share = static_cast<int>(std::lround(width * sane(column.Percent) / whole));
        pixels.append(column.Fixed >= 0 ? column.Fixed : std::max(share, least));
    }
    return pixels;
}
