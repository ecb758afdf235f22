#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QObject;
class QWidget;

/// What is to be saved, and what is offered for it.
struct SaveQuestion
{
    QString Title;
    QString Suggested;   ///< the path that is offered
    QString Ending;      ///< what a name without an ending gets, without its dot
    QStringList Filters; ///< as QFileDialog writes them; the first one is in force
};

/// Asks where to save a file. An existing file is replaced only when the user says so. With the
/// answer comes the call of `save`, unless the user does not want to, or `context` is gone by then.
///
/// It returns at once: a job that took its turn inside a dialog's own event loop would keep the
/// answer until it ends.
void AskWhereToSave(QWidget *parent, const SaveQuestion &question, QObject *context,
                    const std::function<void(const QString &path)> &save);

/// Asks for a folder, in a dialog of this title that begins in `suggested`. With the answer, or ""
/// when the user does not want to choose one, comes the call of `answer`, unless `context` is gone
/// by then. It returns at once, too.
void AskForFolder(QWidget *parent, const QString &title, const QString &suggested, QObject *context,
                  const std::function<void(const QString &folder)> &answer);

/// Puts something else in the place of the dialog: it gets the suggested path and gives the answer,
/// "" for none.
/// An empty function puts the dialog back.
void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog);
/// The same for the dialog that asks for a folder.
void ReplaceFolderDialog(std::function<QString(const QString &suggested)> dialog);
