#pragma once

#include <QString>
#include <QStringList>

class QObject;
class QWidget;

enum class MsgIcon { None, Information, Exclamation, Question, Critical };
enum class MsgButtons { Ok, OkCancel, YesNo };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// Shows a message box and waits for its answer. The text is shown as plain text, whatever it
/// holds. No job takes its turn meanwhile. Events run: after the answer anything may have changed.
/// Closing the box, or the end of its parent, counts as Cancel, or as No, or as OK where that is
/// the only button.
///
/// A question about a window that is unloaded goes away with it, and none is asked about one that
/// has gone already; a message is shown all the same. `matter` names what a question
/// is about, whatever object that may be: see SettleQuestions.
MsgAnswer MsgBox(QWidget *parent, const QString &text, const QString &title = {},
                 MsgButtons buttons = MsgButtons::Ok, MsgIcon icon = MsgIcon::Information,
                 const QObject *matter = nullptr);

/// Shows a message that has, besides OK, a button with this caption. True when that was pressed.
bool MsgBoxOffering(QWidget *parent, const QString &text, const QString &title, MsgIcon icon,
                    const QString &offer);

/// Asks a question whose answers have captions of their own; the first is what Enter gives. Beside
/// them there is Cancel. Gives the number of the answer, from 0 on, and -1 for Cancel, for closing
/// the box, and for a question about a window that is unloaded.
int MsgBoxChoice(QWidget *parent, const QString &text, const QString &title, MsgIcon icon,
                 const QStringList &answers);

/// Takes away the questions about this matter, which has been settled without them: they answer as
/// if they had been closed.
void SettleQuestions(const QObject *matter);
