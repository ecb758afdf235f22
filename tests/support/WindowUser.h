#pragma once

#include <QApplication>
#include <QPushButton>
#include <QString>
#include <QWidget>

// A user at a window, for every test that has one: finds controls by their names, reads what they
// show, clicks and types. A control that is not there ends the test program with its name.

[[noreturn]] void NoSuchControl(const QObject *window, const char *name);

/// The control, action or list of this name.
template<typename T = QWidget>
T *Child(const QObject *window, const char *name)
{
    auto *found = window->findChild<T *>(QLatin1StringView(name));
    if (!found)
        NoSuchControl(window, name);
    return found;
}

/// The window, or control, of this name that can be seen now; nullptr without one.
template<typename T = QWidget>
T *Shown(const QString &name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name && widget->isVisible())
            return qobject_cast<T *>(widget);
    }
    return nullptr;
}

/// The text of a control; "no such control" without one, for a comparison that shows it.
QString TextOf(const QWidget *window, const char *name);
/// nullptr without one.
QPushButton *ButtonOf(const QWidget *window, const char *name);
/// "blue" or "red" for the two colours of the status texts, the colour's name otherwise.
QString ColourOf(const QWidget *window, const char *name);
bool IsBold(const QWidget *window, const char *name);

/// Clicks a button.
void Click(const QObject *window, const char *button);
/// Clicks a button where it stands on the screen: what a modal window blocks does not hear of it.
void ClickOnScreen(const QObject *window, const char *button);
/// Chooses a menu entry or tool bar button; a disabled one does nothing.
void Choose(const QObject *window, const char *action);
/// Types into an entry field over whatever stands there.
void TypeInto(const QObject *window, const char *field, const QString &text);
