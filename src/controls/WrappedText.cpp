#include "controls/WrappedText.h"

#include "core/TextUtilities.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// A text of megabytes would take seconds at each measuring and painting.
constexpr qsizetype longestWrapped = 60'000;
constexpr qsizetype longestToolTip = 2000;
constexpr qsizetype longestTitle = 500;
/// After so many characters a tool tip may break a word.
constexpr qsizetype longestWordOfAToolTip = 60;
constexpr QChar breakHere(u'\u200B');

/// What of the text is shown, its line ends as a layout takes them.
QString shownPart(const QString &whole)
{
    QString text = whole.size() > longestWrapped ? whole.left(longestWrapped) + u" .." : whole;
    text.replace(u"\r\n"_s, QString(QChar::LineSeparator));
    for (QChar &c : text) {
        if (c == u'\n' || c == u'\r')
            c = QChar::LineSeparator;
    }
    return text;
}

QTextOption wrapping(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// So much of a text is broken at a time. The layout looks through all that follows a line to find
/// where it ends, which for a word of a megabyte takes minutes.
constexpr qsizetype stretchCharacters = 4096;

using StretchLaid = std::function<void(const QTextLayout &stretch)>;

/// Breaks lines of one stretch, from `height` on, until it is used by half: behind that a line may
/// end only because the stretch does. Gives how many characters the lines took.
qsizetype breakStretch(QTextLayout &layout, bool isLast, int width, int most, double &height)
{
    qsizetype taken = 0;
    const qsizetype size = layout.text().size();
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(width, 1));
        line.setPosition({0.0, height});
        height += std::ceil(line.height());
        taken = line.textStart() + line.textLength();
        if (height >= most || (!isLast && taken >= size / 2))
            break;
    }
    layout.endLayout();
    return taken;
}

/// Breaks a text, line ends as they are shown, into lines down to `most` pixels; each stretch of it
/// is shown to `laid`. Gives the height.
int breakText(const QString &text, const QFont &font, Qt::Alignment alignment, int width, int most,
              const StretchLaid &laid = {})
{
    double height = 0.0;
    qsizetype from = 0;
    do {
        const bool isLast = from + stretchCharacters >= text.size();
        QTextLayout layout(text.mid(from, stretchCharacters), font);
        layout.setTextOption(wrapping(alignment));
        from += breakStretch(layout, isLast, width, most, height);
        if (laid)
            laid(layout);
        if (isLast)
            break;
    } while (height < most);
    return static_cast<int>(height);
}
} // namespace

int WrappedTextHeight(const QString &text, const QFont &font, int width, int most)
{
    return breakText(shownPart(text), font, Qt::AlignLeft, width, most);
}

void DrawWrappedText(QPainter *painter, const QRect &place, const QString &text, const QFont &font,
                     Qt::Alignment alignment)
{
    const QString lines = shownPart(text);
    const Qt::Alignment across = alignment & Qt::AlignHorizontal_Mask;
    int top = place.top();
    if (alignment & (Qt::AlignVCenter | Qt::AlignBottom)) {
        const int room =
            place.height() - breakText(lines, font, across, place.width(), place.height());
        top += std::max(0, alignment & Qt::AlignVCenter ? room / 2 : room);
    }
    painter->save();
    painter->setClipRect(place, Qt::IntersectClip);
    breakText(lines, font, across, place.width(), place.height(), [&](const QTextLayout &stretch) {
        stretch.draw(painter, QPointF(place.left(), top), {}, place);
    });
    painter->restore();
}

QString TitleText(const QString &text)
{
    return text.size() > longestTitle ? OneLine(text.left(longestTitle)) + u" .." : OneLine(text);
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
