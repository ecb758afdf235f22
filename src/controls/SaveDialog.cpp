#include "controls/SaveDialog.h"

#include "controls/FormWindow.h"
#include "core/TurnHold.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
using Replacement = std::function<QString(const QString &)>;

Replacement &replacement()
{
    static Replacement dialog;
    return dialog;
}

/// Qt's dialog asks by itself whether to replace a file, in a loop inside of accept(). The window
/// that it is about may go under that question, and would take the dialog along.
class FileDialog : public QFileDialog
{
public:
    FileDialog(QWidget *parent, const QString &title) : QFileDialog(parent, title)
    {
        form = parent ? qobject_cast<FormWindow *>(FormWindow::Around(parent)) : nullptr;
        if (form)
            connect(form, &FormWindow::Unloaded, this, &FileDialog::giveUp);
    }

    void accept() override
    {
        // Whoever asked says what is wrong with a folder that is not there.
        if (fileMode() == Directory && !QFileInfo(Chosen()).isDir()) {
            done(QDialog::Accepted);
            return;
        }
        std::optional<FormWindow::RunScope> scope;
        if (form)
            scope.emplace(form);
        const QPointer<FileDialog> self(this);
        answering = true;
        QFileDialog::accept();
        if (!self)
            return;
        answering = false;
        if (givenUp)
            reject();
    }

    /// What stands in the dialog: the name that was typed goes before what is selected.
    QString Chosen() const
    {
        const auto *name = findChild<QLineEdit *>(u"fileNameEdit"_s);
        if (fileMode() == Directory && name && !name->text().isEmpty())
            return directory().absoluteFilePath(name->text());
        return selectedFiles().value(0);
    }

private:
    void giveUp()
    {
        givenUp = true;
        if (!answering) {
            reject();
            return;
        }
        const QList<QDialog *> questions = findChildren<QDialog *>();
        for (QDialog *question : questions)
            question->reject();
    }

    FormWindow *form = nullptr;
    bool answering = false;
    bool givenUp = false;
};

Replacement &folderReplacement()
{
    static Replacement dialog;
    return dialog;
}

/// It goes with its parent, which may be closed while it is up.
FileDialog *newDialog(QWidget *parent, const QString &title, const QString &name)
{
    auto *dialog = new FileDialog(parent, title);
    dialog->setObjectName(name);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

/// Opens the dialog, and has `answer` called with what was chosen, "" for nothing, once it has
/// closed: it tells that while it is still up, and would stand over whatever the answer shows and
/// lets through. A question like any other: no job begins under it or before its answer is heard.
void open(FileDialog *dialog, QObject *context,
          const std::function<void(const QString &chosen)> &answer)
{
    const auto hold = std::make_shared<TurnHold>();
    QObject::connect(dialog, &QObject::destroyed, [hold] {});
    QObject::connect(
        dialog, &QDialog::finished, context, [dialog, context, hold, answer](int result) {
            const QString chosen = result == QDialog::Accepted ? dialog->Chosen() : QString();
            QMetaObject::invokeMethod(
                context, [hold, answer, chosen] { answer(chosen); }, Qt::QueuedConnection);
        });
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
    FileDialog *dialog = newDialog(parent, question.Title, u"SaveDialog"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(question.Filters);
    dialog->setDefaultSuffix(question.Ending);
    dialog->setDirectory(QFileInfo(question.Suggested).absolutePath());
    dialog->selectFile(QFileInfo(question.Suggested).fileName());
    open(dialog, context, [save](const QString &path) {
        if (!path.isEmpty())
            save(path);
    });
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
    FileDialog *dialog = newDialog(parent, title, u"FolderDialog"_s);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setDirectory(suggested);
    open(dialog, context, answer);
}

void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog)
{
    replacement() = std::move(dialog);
}

void ReplaceFolderDialog(std::function<QString(const QString &suggested)> dialog)
{
    folderReplacement() = std::move(dialog);
}
