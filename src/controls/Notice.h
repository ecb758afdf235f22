#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Whether the user sees this window: it is not minimised, nothing of the program is
/// in front of it, and the program is not behind others.
bool IsInFront(const QWidget *window);

/// Tells the user, who may be working in another program, of something about a window: its entry in
/// the task bar asks for attention, and where the desktop has a tray, a message shows beside it for
/// a while. A click on the message brings the window to the front.
void ShowDesktopNotice(QWidget *window, const QString &title, const QString &text);

using DesktopNotice =
    std::function<void(QWidget *window, const QString &title, const QString &text)>;

/// Puts something else in the place of ShowDesktopNotice; an empty function puts it back.
void ReplaceDesktopNotice(DesktopNotice notice);

/// Has a screen reader say at once what this control reads.
void SpeakAlert(QWidget *control);

/// The same for SpeakAlert.
void ReplaceSpokenAlert(std::function<void(QWidget *control)> alert);
