#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Asks where to save a file; `suggested` is the path that is offered. A name without an ending
/// gets `ending`. An existing file is replaced only when the user says so. "" when the user does
/// not want to save. Events run meanwhile: after the answer anything may have changed.
QString AskWhereToSave(QWidget *parent, const QString &title, const QString &suggested,
                       const QString &ending);

/// Puts something else in the place of the dialog: it gets the suggested path and gives the answer.
/// An empty function puts the dialog back.
void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog);
