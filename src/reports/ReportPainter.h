#pragma once

#include "reports/FontRuler.h"
#include "reports/PageLayout.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include <map>

class QPainter;

/// The family that reports are written in: Arial, or what comes nearest to it here.
QString ReportFontFamily();

/// Measures and paints pages. One unit is one twip, and letters are measured as they were drawn and
/// not fitted to the dots of a screen: a page is the same on a screen, a printer and in a PDF.
class ReportPainter : public FontRuler
{
public:
    double Width(const QString &text, ReportFont font) const override;
    int LineHeight(ReportFont font) const override;
    int Ascent(ReportFont font) const override;

    /// Paints a page whose upper left corner is the painter's origin and whose twips are the
    /// painter's units.
    void Draw(QPainter *painter, const ReportPage &page) const;

private:
    struct Face
    {
        QFont Font;
        QFontMetricsF Metrics;
    };
    const Face &face(ReportFont font) const;

    mutable std::map<std::pair<int, bool>, Face> faces;
};
