#include "controls/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

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
