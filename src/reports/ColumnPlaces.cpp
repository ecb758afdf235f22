#include "reports/ColumnPlaces.h"

#include <algorithm>
#include <cmath>

namespace {
/// The least that a column which yields keeps, if it had as much.
constexpr double floorOfYielding = 1400.0;

/// Between the text of a column that yields and the next one: its lines are full, which
/// those of others are seldom, and would look like one with what stands beside them.
constexpr double airBehindText = 80.0;

/// With the widths that shares come to on this paper.
QList<ColumnFormat> onPaper(QList<ColumnFormat> formats, int printableWidth)
{
    int room = printableWidth;
    for (const ColumnFormat &format : formats)
        room -= format.Gap;
    for (ColumnFormat &format : formats) {
        if (format.Share > 0.0 && room > 0)
            format.Width = static_cast<int>(std::lround(format.Share * room));
    }
    return formats;
}

/// The widths and gaps of columns without those that yield, and the last gap, behind which nothing
/// stands.
double widthOfOthers(const QList<ColumnFormat> &formats)
{
    double sum = 0.0;
    for (const ColumnFormat &format : formats)
        sum += (format.Yields ? 0 : format.Width) + format.Gap;
    return sum - formats.last().Gap;
}

struct Fitted
{
    double Yielding = 0.0; ///< the factor of the columns that yield
    double Others = 1.0;   ///< of all others and of the gaps
};

/// By how much the widths have to be multiplied to be within the printable width.
Fitted fit(const QList<ColumnFormat> &formats, double printable)
{
    double yielding = 0.0;
    for (const ColumnFormat &format : formats)
        yielding += format.Yields ? format.Width : 0;
    const double others = widthOfOthers(formats);
    if (others + yielding <= printable)
        return {1.0, 1.0};
    const double kept = std::min(yielding, std::max(printable - others, floorOfYielding));
    return {yielding > 0.0 ? kept / yielding : 1.0,
            others + kept <= printable ? 1.0 : (printable - kept) / others};
}
} // namespace

QList<ColumnPlace> PlaceColumns(const QList<ColumnFormat> &written, int printableWidth)
{
    QList<ColumnPlace> places;
    if (written.isEmpty())
        return places;
    const QList<ColumnFormat> formats = onPaper(written, printableWidth);
    const Fitted factors = fit(formats, printableWidth);
    double left = 0.0;
    for (const ColumnFormat &format : formats) {
        const double width = format.Width * (format.Yields ? factors.Yielding : factors.Others);
        const bool full = format.Yields && width < format.Width;
        const double room = full ? width - airBehindText : width;
        const double wrapAt = format.WrapAt > 0 ? std::min<double>(format.WrapAt, room) : room;
        places.append({left, width, wrapAt, format.Alignment});
        left += width + format.Gap * factors.Others;
    }
    return places;
}

ColumnPlaces::ColumnPlaces(const QList<QList<ColumnFormat>> &tables, int printableWidth)
{
    for (const QList<ColumnFormat> &formats : tables)
        places.append(PlaceColumns(formats, printableWidth));
}
