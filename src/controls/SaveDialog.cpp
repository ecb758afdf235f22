#include "controls/SaveDialog.h"

#include "core/TurnHold.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
using Replacement = std::function<QString(const QString &)>;

Replacement &replacement()
{
    static Replacement dialog;
    return dialog;
}

Replacement &folderReplacement()
{
    static Replacement dialog;
    return dialog;
}

/// It goes with its parent, which may be closed while it is up.
QFileDialog *newDialog(QWidget *parent, const QString &title, const QString &name)
{
    auto *dialog = new QFileDialog(parent, title);
    dialog->setObjectName(name);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

/// A question like any other: no job begins under it, and the answer need not wait for one.
void open(QFileDialog *dialog)
{
    QObject::connect(dialog, &QObject::destroyed, [hold = std::make_shared<TurnHold>()] {});
    dialog->open();
}
} // namespace

void AskWhereToSave(QWidget *parent, const SaveQuestion &question, QObject *context,
                    const std::function<void(const QString &path)> &save)
{
    if (replacement()) {
        const QPointer<QObject> waiting(context);
        const QString path = replacement()(question.Suggested);
        if (waiting && !path.isEmpty())
            save(path);
        return;
    }
    QFileDialog *dialog = newDialog(parent, question.Title, u"SaveDialog"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(question.Filters);
    dialog->setDefaultSuffix(question.Ending);
    dialog->setDirectory(QFileInfo(question.Suggested).absolutePath());
    dialog->selectFile(QFileInfo(question.Suggested).fileName());
    QObject::connect(dialog, &QFileDialog::fileSelected, context, save);
    open(dialog);
}

void AskForFolder(QWidget *parent, const QString &title, const QString &suggested, QObject *context,
                  const std::function<void(const QString &folder)> &answer)
{
    if (folderReplacement()) {
        const QPointer<QObject> waiting(context);
        const QString folder = folderReplacement()(suggested);
        if (waiting)
            answer(folder);
        return;
    }
    QFileDialog *dialog = newDialog(parent, title, u"FolderDialog"_s);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setDirectory(suggested);
    // Only now, when it is off the screen: the answer may open a box.
    QObject::connect(dialog, &QDialog::finished, context, [dialog, answer](int result) {
        answer(result == QDialog::Accepted ? dialog->selectedFiles().value(0) : QString());
    });
    open(dialog);
}

void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog)
{
    replacement() = std::move(dialog);
}

void ReplaceFolderDialog(std::function<QString(const QString &suggested)> dialog)
{
    folderReplacement() = std::move(dialog);
}
