#include "controls/PageScroller.h"

#include <QEvent>

PageScroller::PageScroller(QWidget *parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    // Whoever is on the page has the keyboard.
    setFocusPolicy(Qt::NoFocus);
}

QSize PageScroller::sizeHint() const
{
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}

bool PageScroller::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

void PageScroller::showEvent(QShowEvent *event)
{
    // The page stands on the ground of the frame that it is in.
    viewport()->setAutoFillBackground(false);
    if (widget())
        widget()->setAutoFillBackground(false);
    QScrollArea::showEvent(event);
}
