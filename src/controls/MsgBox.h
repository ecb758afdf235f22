#pragma once

#include <QString>

class QWidget;

enum class MsgIcon { None, Information, Exclamation, Question, Critical };
enum class MsgButtons { Ok, OkCancel, YesNo };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// Shows a message box and waits for its answer. The text is shown as plain text, whatever it
/// holds. Events run meanwhile: after the answer anything may have changed. Closing the box, or the
/// end of its parent, counts as Cancel, or as No, or as OK where that is the only button.
MsgAnswer MsgBox(QWidget *parent, const QString &text, const QString &title = {},
                 MsgButtons buttons = MsgButtons::Ok, MsgIcon icon = MsgIcon::Information);
