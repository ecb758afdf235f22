#include "controls/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {
/// As much of a title bar as a pointer needs, in pixels.
constexpr QSize grip{64, 24};

bool isWithinReach(const QRect &place)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&place](const QScreen *screen) {
        const QRect upperEdge(place.topLeft(), QSize(place.width(), grip.height()));
        const QRect seen = upperEdge & screen->availableGeometry();
        return seen.width() >= grip.width() && seen.height() > 0;
    });
}
} // namespace

QRect WithinReach(QRect place)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen || isWithinReach(place))
        return place;
    const QRect room = screen->availableGeometry();
    place.setSize(place.size().boundedTo(room.size()));
    place.moveTo(std::clamp(place.x(), room.x(), room.x() + room.width() - place.width()),
                 std::clamp(place.y(), room.y(), room.y() + room.height() - place.height()));
    return place;
}

void CentreOnScreen(QWidget *window)
{
    const QScreen *screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return;
    QRect place(QPoint(0, 0), window->size());
    place.moveCenter(screen->availableGeometry().center());
    window->move(place.topLeft());
}

void SetTopMostWindow(QWidget *window, bool topMost)
{
    if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topMost)
        return;
    const bool visible = window->isVisible();
    window->setWindowFlag(Qt::WindowStaysOnTopHint, topMost);
    if (visible)
        window->show();
}

void BringToFront(QWidget *window)
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}
