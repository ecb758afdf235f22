#include "controls/Notice.h"

#include "controls/WindowPlace.h"

#include <QAccessible>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int noticeMilliseconds = 10'000;

DesktopNotice &replacement()
{
    static DesktopNotice notice;
    return notice;
}

std::function<void(QWidget *)> &alertReplacement()
{
    static std::function<void(QWidget *)> alert;
    return alert;
}

QMdiSubWindow *frameOf(const QWidget *window)
{
    return qobject_cast<QMdiSubWindow *>(window->parentWidget());
}

void bringToFront(QWidget *window)
{
    BringToFront(window->window());
    if (QMdiSubWindow *frame = frameOf(window)) {
        frame->setWindowState(frame->windowState() & ~Qt::WindowMinimized);
        frame->mdiArea()->setActiveSubWindow(frame);
    }
}

void showTrayMessage(QWidget *window, const QString &title, const QString &text)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages())
        return;
    // One at a time: an icon a search would fill the tray.
    static QPointer<QSystemTrayIcon> icon;
    delete icon;
    icon = new QSystemTrayIcon(window->window()->windowIcon(), qApp);
    QObject::connect(icon, &QSystemTrayIcon::messageClicked, window,
                     [window] { bringToFront(window); });
    QTimer::singleShot(noticeMilliseconds, icon, &QObject::deleteLater);
    icon->show();
    // Some desktops read markup in the text: there must be none.
    icon->showMessage(title, QString(text).remove(u'<').remove(u'&'), QSystemTrayIcon::Information,
                      noticeMilliseconds);
}
} // namespace

bool IsInFront(const QWidget *window)
{
    if (!window->isVisible() || !window->isActiveWindow() || window->window()->isMinimized())
        return false;
    const QMdiSubWindow *frame = frameOf(window);
    return !frame || frame->mdiArea()->currentSubWindow() == frame;
}

void ShowDesktopNotice(QWidget *window, const QString &title, const QString &text)
{
    if (replacement()) {
        replacement()(window, title, text);
        return;
    }
    QApplication::alert(window->window());
    showTrayMessage(window, title, text);
}

void ReplaceDesktopNotice(DesktopNotice notice)
{
    replacement() = std::move(notice);
}

void SpeakAlert(QWidget *control)
{
    if (alertReplacement()) {
        alertReplacement()(control);
        return;
    }
    QAccessibleEvent alert(control, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ReplaceSpokenAlert(std::function<void(QWidget *control)> alert)
{
    alertReplacement() = std::move(alert);
}
