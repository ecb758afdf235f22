#include "controls/ScreenFit.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {
/// What the platform puts around a window: nobody knows it before the window is shown.
constexpr QSize frameAllowance(16, 40);
} // namespace

void FitOnScreen(QWidget *window, QSize wanted)
{
    const QScreen *screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
    if (screen)
        wanted = wanted.boundedTo(screen->availableGeometry().size() - frameAllowance);
    window->resize(wanted);
}
