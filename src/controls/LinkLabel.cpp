#include "controls/LinkLabel.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

LinkLabel::LinkLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::Link);
    setCursor(Qt::PointingHandCursor);
    // By Tab only: a click acts, and the focus stays in the field that is being filled.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QFont smaller = font();
    smaller.setPointSizeF(smaller.pointSizeF() - 1.0);
    smaller.setUnderline(true);
    setFont(smaller);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        Q_EMIT Clicked();
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT Clicked();
        break;
    default:
        QLabel::keyPressEvent(event);
    }
}

void LinkLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkLabel::focusInEvent(QFocusEvent *event)
{
    QLabel::focusInEvent(event);
    update();
}

void LinkLabel::focusOutEvent(QFocusEvent *event)
{
    QLabel::focusOutEvent(event);
    update();
}
