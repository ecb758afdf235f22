#include "controls/LinkLabel.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

LinkLabel::LinkLabel(QWidget *parent) : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    // By Tab only: a click acts, and the focus stays in the field that is being filled.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QFont smaller = font();
    smaller.setPointSizeF(QFontInfo(smaller).pointSizeF() - 1.0);
    smaller.setUnderline(true);
    setFont(smaller);
}

QSize LinkLabel::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(text()), metrics.height() + 2};
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    // Enter would start the search.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Link));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}
