#include "tables/GridHeader.h"

#include "controls/WrappedText.h"

#include <QPainter>

#include <algorithm>

namespace {
/// A title is a few words. One that would fill the window leaves the rows their place.
constexpr int mostLines = 8;
} // namespace

GridHeader::GridHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(false);
}

QString GridHeader::textOf(int column) const
{
    return model()->headerData(column, Qt::Horizontal).toString();
}

/// A header without a title stands above a message that takes the place of a table: there is
/// nothing to point out, and no column to be known from another.
bool GridHeader::isQuiet() const
{
    for (int column = 0; column < count(); ++column) {
        if (!textOf(column).isEmpty())
            return false;
    }
    return true;
}

QSize GridHeader::sectionSizeFromContents(int column) const
{
    QSize size = QHeaderView::sectionSizeFromContents(column);
    const int most = mostLines * fontMetrics().height();
    const int lines =
        WrappedTextHeight(textOf(column), font(), sectionSize(column) - 2 * wrappedTextSide, most);
    size.setHeight(std::min(lines, most) + 2 * wrappedTextEdge);
    return size;
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader *option, int column) const
{
    QHeaderView::initStyleOptionForIndex(option, column);
    // The style would write it in one line.
    option->text.clear();
}

void GridHeader::paintSection(QPainter *painter, const QRect &place, int column) const
{
    if (isQuiet()) {
        painter->fillRect(place, palette().base());
        return;
    }
    painter->save();
    QHeaderView::paintSection(painter, place, column);
    painter->restore();
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    painter->setPen(palette().color(QPalette::ButtonText));
    DrawWrappedText(
        painter,
        place.adjusted(wrappedTextSide, wrappedTextEdge, -wrappedTextSide, -wrappedTextEdge),
        textOf(column), font(),
        alignment.isValid() ? alignment.value<Qt::Alignment>() : defaultAlignment());
}
