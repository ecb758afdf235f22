#pragma once

#include <QString>

#include <functional>

class QObject;
class QWidget;

/// Asks where to save a file; `suggested` is the path that is offered. A name without an ending
/// gets `ending`. An existing file is replaced only when the user says so. With the answer comes
/// the call of `save`, unless the user does not want to, or `context` is gone by then.
///
/// It returns at once: a job that took its turn inside a dialog's own event loop would keep the
/// answer until it ends.
void AskWhereToSave(QWidget *parent, const QString &title, const QString &suggested,
                    const QString &ending, QObject *context,
                    const std::function<void(const QString &path)> &save);

/// Puts something else in the place of the dialog: it gets the suggested path and gives the answer,
/// "" for none.
/// An empty function puts the dialog back.
void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog);
