#include "reports/ReportPainter.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr double ruleWidth = 5.0;

/// From the wanted one down; what is named first is as wide, letter for letter.
constexpr std::array<QStringView, 6> families{u"Arial",       u"Liberation Sans", u"Arimo",
                                              u"Nimbus Sans", u"Helvetica",       u"DejaVu Sans"};

QString nearestFamily()
{
    const QStringList present = QFontDatabase::families();
    const auto found = std::find_if(families.begin(), families.end(), [&present](QStringView one) {
        return present.contains(one, Qt::CaseInsensitive);
    });
    if (found != families.end())
        return found->toString();
    return QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
}

QFont fontFor(ReportFont font)
{
    QFont made(ReportFontFamily());
    made.setPixelSize(font.Points * twipsPerPoint);
    made.setBold(font.Bold);
    made.setHintingPreference(QFont::PreferNoHinting);
    made.setStyleHint(QFont::SansSerif, QFont::ForceOutline);
    return made;
}
} // namespace

QString ReportFontFamily()
{
    static const QString family = nearestFamily();
    return family;
}

double ReportPainter::Width(const QString &text, ReportFont font) const
{
    return face(font).Metrics.horizontalAdvance(text);
}

int ReportPainter::LineHeight(ReportFont font) const
{
    return static_cast<int>(std::ceil(face(font).Metrics.lineSpacing()));
}

int ReportPainter::Ascent(ReportFont font) const
{
    return static_cast<int>(std::ceil(face(font).Metrics.ascent()));
}

void ReportPainter::Draw(QPainter *painter, const ReportPage &page) const
{
    painter->save();
    painter->setPen(QPen(Qt::black, ruleWidth));
    for (const PlacedRule &rule : page.Rules)
        painter->drawLine(rule.Left, rule.Top, rule.Right, rule.Bottom);
    const Face *set = nullptr;
    for (const PlacedText &text : page.Texts) {
        const Face *wanted = &face(text.Font);
        if (wanted != set)
            painter->setFont(wanted->Font);
        set = wanted;
        painter->drawText(QPointF(text.Left, text.BaseLine), text.Text);
    }
    painter->restore();
}

const ReportPainter::Face &ReportPainter::face(ReportFont font) const
{
    const std::pair key(font.Points, font.Bold);
    const auto found = faces.find(key);
    if (found != faces.end())
        return found->second;
    const QFont made = fontFor(font);
    return faces.emplace(key, Face{made, QFontMetricsF(made)}).first->second;
}
