#include "session/FrameSize.h"

#include "controls/FormWindow.h"
#include "controls/PageScroller.h"

#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

FrameSize::FrameSize(QMdiArea *area, QMdiSubWindow *ofFrame, QSize designed)
    : QObject(ofFrame), viewport(area->viewport()), frame(ofFrame), child(ofFrame->widget()),
      asked(designed)
{
    child->ensurePolished();
    child->installEventFilter(this);
    viewport->installEventFilter(this);
}

QSize FrameSize::wanted() const
{
    QSize size = asked + frame->sizeHint() - child->sizeHint();
    // What a small screen has no room for scrolls, or is a shorter list. The bar that scrolls a
    // page stands beside it, not over it.
    if (size.height() > viewport->height() && child->findChild<PageScroller *>())
        size.rwidth() += frame->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return size;
}

bool FrameSize::isLeftAlone() const
{
    constexpr Qt::WindowStates other = Qt::WindowMinimized | Qt::WindowMaximized;
    return !(frame->windowState() & other) && frame->geometry() == given;
}

void FrameSize::Give()
{
    asked = asked.expandedTo(child->sizeHint());
    // A main window that is smaller than a child can be scrolls.
    frame->resize(wanted().boundedTo(viewport->size()).expandedTo(frame->minimumSizeHint()));
    const QSize room = viewport->size();
    frame->move(std::max(0, std::min(frame->x(), room.width() - frame->width())),
                std::max(0, std::min(frame->y(), room.height() - frame->height())));
    given = frame->geometry();
}

bool FrameSize::eventFilter(QObject *watched, QEvent *event)
{
    // Of the other events some come while the area is going, and its frames after it.
    const bool roomChanged = event->type() == QEvent::Resize && watched == viewport;
    // What has no page lives with the room it has: it says longer texts all the time.
    const bool childChanged = event->type() == QEvent::LayoutRequest && watched == child
                              && child->findChild<PageScroller *>();
    if ((roomChanged || childChanged) && child && frame->widget() == child && isLeftAlone())
        Give();
    return QObject::eventFilter(watched, event);
}
