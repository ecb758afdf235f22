#pragma once

#include <QByteArrayView>
#include <QFontMetricsF>
#include <QList>
#include <QStringView>

#include <array>

/// How wide the widest text of each column is, of a hundred thousand rows too: a text is measured
/// only when it has enough characters to be the widest, and then by adding up what its characters
/// take.
class WidestTexts
{
public:
    /// For texts in this font, of so many columns, of which nothing is known yet.
    WidestTexts(const QFont &font, qsizetype columns);

    /// Takes a text of a column, in UTF-8 or not. True when it is the widest of its column so far.
    bool Note(qsizetype column, QByteArrayView utf8);
    bool Note(qsizetype column, QStringView text);

    /// The width of a column's widest text in one line, in pixels, without any margins.
    int Width(qsizetype column) const;
    qsizetype Columns() const { return widths.size(); }

private:
    bool mayBeWidest(qsizetype column, qsizetype characters) const;
    bool noteWidth(qsizetype column, double width);

    static constexpr size_t plainCharacters = 128;

    QFontMetricsF metrics;
    std::array<double, plainCharacters> advances{};
    double most = 0.0; ///< the width of the widest character
    QList<double> widths;
};
