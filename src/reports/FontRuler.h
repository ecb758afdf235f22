#pragma once

#include <QString>

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
