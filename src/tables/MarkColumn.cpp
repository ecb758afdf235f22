#include "tables/MarkColumn.h"

#include "controls/WrappedText.h"
#include "tables/NewRowData.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int leastDot = 5;
constexpr int marginsInDots = 3;
} // namespace

MarkColumn::MarkColumn(QWidget *parent) : QHeaderView(Qt::Vertical, parent)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(1);
}

int MarkColumn::dotSize() const
{
    return std::max(leastDot, fontMetrics().height() / 2);
}

QSize MarkColumn::sizeHint() const
{
    return {marginsInDots * dotSize() - dotSize() / 2, 0};
}

/// Below the last row stands what stands beside it: nothing.
void MarkColumn::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect().adjusted(0, length() - offset(), 0, 0), palette().base());
}

/// On the ground of the cells, beside the first line of the row's text: the row is one with its
/// dot.
void MarkColumn::paintSection(QPainter *painter, const QRect &place, int row) const
{
    painter->fillRect(place, palette().base());
    if (!model()->headerData(row, Qt::Vertical, newRowRole).toBool())
        return;
    const int size = dotSize();
    const int line = std::min(fontMetrics().height() + 2 * wrappedTextEdge, place.height());
    const QRect dot(place.left() + (place.width() - size) / 2, place.top() + (line - size) / 2,
                    size, size);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette().highlight());
    painter->drawEllipse(dot);
    painter->restore();
}
