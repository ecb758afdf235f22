#include "tables/WidestTexts.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace {
/// No column is as wide as a longer text, and nothing is learned from measuring all of it.
constexpr qsizetype longestMeasured = 2000;
} // namespace

WidestTexts::WidestTexts(const QFont &font, qsizetype columns) : metrics(font), widths(columns, 0.0)
{
    for (size_t code = 0; code < plainCharacters; ++code)
        advances[code] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(code)));
    most = std::max(*std::max_element(advances.begin(), advances.end()), metrics.maxWidth());
}

bool WidestTexts::mayBeWidest(qsizetype column, qsizetype characters) const
{
    return static_cast<double>(characters) * most > widths[column];
}

bool WidestTexts::Note(qsizetype column, QByteArrayView utf8)
{
    if (!mayBeWidest(column, utf8.size()))
        return false;
    double sum = 0.0;
    for (const char byte : utf8.first(std::min(utf8.size(), longestMeasured))) {
        const auto code = static_cast<unsigned char>(byte);
        if (code >= plainCharacters)
            return Note(column, QStringView(QString::fromUtf8(utf8)));
        sum += advances[code];
    }
    return noteWidth(column, sum);
}

bool WidestTexts::Note(qsizetype column, QStringView text)
{
    if (!mayBeWidest(column, text.size()))
        return false;
    double sum = 0.0;
    for (const QChar c : text.first(std::min(text.size(), longestMeasured)))
        sum += c.unicode() < plainCharacters ? advances[c.unicode()] : metrics.horizontalAdvance(c);
    return noteWidth(column, sum);
}

bool WidestTexts::noteWidth(qsizetype column, double width)
{
    if (width <= widths[column])
        return false;
    widths[column] = width;
    return true;
}

int WidestTexts::Width(qsizetype column) const
{
    return static_cast<int>(std::ceil(widths.value(column, 0.0)));
}
