#include "reports/TextWidths.h"

#include <algorithm>
#include <limits>

namespace {
constexpr double unknown = -1.0;
}

double TextWidths::Within(const QString &text, ReportFont font, double limit)
{
    const double atMost = sum(text, font);
    return atMost <= limit ? atMost : Exact(text, font);
}

double TextWidths::sum(const QString &text, ReportFont font)
{
    Known &widths = knownOf(font);
    double total = 0.0;
    for (const QChar character : text) {
        if (character.unicode() >= knownCharacters)
            return std::numeric_limits<double>::infinity();
        double &width = widths.Widths[character.unicode()];
        if (width == unknown)
            width = Exact(QString(character), font);
        total += width;
    }
    return total;
}

TextWidths::Known &TextWidths::knownOf(ReportFont font)
{
    const auto found = std::find_if(known.begin(), known.end(),
                                    [font](const Known &one) { return one.Font == font; });
    if (found != known.end())
        return *found;
    known.append({font, {}});
    known.last().Widths.fill(unknown);
    return known.last();
}
