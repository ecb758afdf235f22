#include "controls/WrappedText.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype longestToolTip = 2000;
/// After so many characters a tool tip may break a word.
constexpr qsizetype longestWordOfAToolTip = 60;
constexpr QChar breakHere(u'\u200B');

QString withLineEnds(QString text)
{
    text.replace(u"\r\n"_s, QString(QChar::LineSeparator));
    for (QChar &c : text) {
        if (c == u'\n' || c == u'\r')
            c = QChar::LineSeparator;
    }
    return text;
}

/// Breaks the layout's text; the height of all lines.
int breakLines(QTextLayout &layout, int width)
{
    double height = 0.0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(width, 1));
        line.setPosition({0.0, height});
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return static_cast<int>(height);
}

QTextOption wrapping(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}
} // namespace

int WrappedTextHeight(const QString &text, const QFont &font, int width)
{
    QTextLayout layout(withLineEnds(text), font);
    layout.setTextOption(wrapping(Qt::AlignLeft));
    return breakLines(layout, width);
}

void DrawWrappedText(QPainter *painter, const QRect &place, const QString &text, const QFont &font,
                     Qt::Alignment alignment)
{
    QTextLayout layout(withLineEnds(text), font);
    layout.setTextOption(wrapping(alignment & Qt::AlignHorizontal_Mask));
    const int room = place.height() - breakLines(layout, place.width());
    int top = place.top();
    if (room > 0 && (alignment & Qt::AlignVCenter))
        top += room / 2;
    else if (room > 0 && (alignment & Qt::AlignBottom))
        top += room;
    painter->save();
    painter->setClipRect(place, Qt::IntersectClip);
    layout.draw(painter, QPointF(place.left(), top), {}, place);
    painter->restore();
}

QString ToolTipText(const QString &text)
{
    QString pieces;
    qsizetype ofThisWord = 0;
    for (const QChar c : QStringView(text).left(longestToolTip)) {
        ofThisWord = c.isSpace() ? 0 : ofThisWord + 1;
        if (ofThisWord > longestWordOfAToolTip) {
            pieces += breakHere;
            ofThisWord = 1;
        }
        pieces += c;
    }
    if (text.size() > longestToolTip)
        pieces += u" ..";
    // Only rich text is broken into lines.
    return u"<qt>"_s + pieces.toHtmlEscaped();
}
