#pragma once

#include "reports/Report.h"

#include <optional>

/// The writing of a report: Arial in a few sizes.
struct ReportFont
{
    int Points = 9;
    bool Bold = false;

    bool operator==(const ReportFont &) const = default;
};

/// Measures text on paper, in twips. Who lays out pages needs no fonts: the printer's side has
/// them.
class FontRuler
{
public:
    FontRuler() = default;
    virtual ~FontRuler() = default;
    Q_DISABLE_COPY_MOVE(FontRuler)

    virtual double Width(const QString &text, ReportFont font) const = 0;
    /// Of a line, from its top to the top of the next.
    virtual int LineHeight(ReportFont font) const = 0;
    /// From the top of a line to its base line.
    virtual int Ascent(ReportFont font) const = 0;
};

/// A sheet of paper, upright or not, in twips. The margins of a report are always the same.
struct Paper
{
    int Width = 12240;
    int Height = 15840;

    static constexpr int LeftMargin = 720;
    static constexpr int RightMargin = 720;
    static constexpr int TopMargin = 1000;
    static constexpr int BottomMargin = 1000;
    static constexpr int FooterFromFoot = 350; ///< from the foot of the page to that of its footer

    int PrintableWidth() const { return Width - LeftMargin - RightMargin; }

    bool operator==(const Paper &) const = default;
};

/// A text on a page, its left end and base line in twips from the page's upper left corner.
struct PlacedText
{
    double Left = 0;
    int BaseLine = 0;
    QString Text;
    ReportFont Font;
};

/// A thin line on a page, from end to end in twips.
struct PlacedRule
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

struct ReportPage
{
    QList<PlacedText> Texts;
    QList<PlacedRule> Rules;
};
