#pragma once

#include "reports/FontRuler.h"

#include <QList>

#include <array>

/// Whether the texts of a report fit. Nearly all do, and the widths of their characters tell that
/// without the text being set, which takes a hundred times as long.
class TextWidths
{
public:
    explicit TextWidths(const FontRuler *fontRuler) : ruler(fontRuler) {}

    /// The width of a text in twips; not quite so exact, and greater, where it is within `limit`
    /// all the same.
    double Within(const QString &text, ReportFont font, double limit);
    double Exact(const QString &text, ReportFont font) const { return ruler->Width(text, font); }

private:
    /// Letters of the western languages, whose widths add up.
    static constexpr size_t knownCharacters = 0x180;
    struct Known
    {
        ReportFont Font;
        std::array<double, knownCharacters> Widths;
    };

    double sum(const QString &text, ReportFont font);
    Known &knownOf(ReportFont font);

    const FontRuler *ruler;
    QList<Known> known;
};
