#pragma once

#include <QApplication>
#include <QString>
#include <QWidget>

// What the tour sees and does is what a user would: in windows that can be seen, by the names of
// their controls.

/// The window of this name that can be seen now; nullptr without one.
QWidget *WindowNamed(const QString &name);

/// The control of this name in such a window; nullptr without it.
template<typename Widget>
Widget *ControlOf(const QString &window, const QString &name)
{
    const QWidget *parent = WindowNamed(window);
    return parent ? parent->findChild<Widget *>(name) : nullptr;
}

bool CanClick(const QString &window, const QString &name);

/// Queued: a click may open a box or wait for the server, and the tour goes on inside it.
void ClickOn(const QString &window, const QString &name);

QString LabelText(const QString &window, const QString &name);
