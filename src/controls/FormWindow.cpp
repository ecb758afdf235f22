#include "controls/FormWindow.h"

#include <QCloseEvent>
#include <QPointer>

FormWindow::FormWindow(QWidget *parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}

bool FormWindow::Unload(UnloadMode mode)
{
    if (unloaded)
        return true;
    const QPointer<FormWindow> self(this);
    const bool allowed = QueryUnload(mode);
    // The question may have been open for long: the window may be gone already.
    if (!self || unloaded)
        return true;
    if (!allowed)
        return false;
    unloaded = true;
    Unloading();
    hide();
    Q_EMIT Unloaded();
    if (runs == 0)
        deleteLater();
    return true;
}

bool FormWindow::QueryUnload(UnloadMode)
{
    return true;
}

void FormWindow::Unloading() {}

void FormWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(Unload(UnloadMode::ControlMenu));
}

void FormWindow::endRun()
{
    if (--runs == 0 && unloaded)
        deleteLater();
}
