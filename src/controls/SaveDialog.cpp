#include "controls/SaveDialog.h"

#include "controls/FormWindow.h"
#include "core/TurnHold.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
std::function<QString(const QString &)> &replacement()
{
    static std::function<QString(const QString &)> dialog;
    return dialog;
}

/// Qt's dialog asks by itself whether to replace a file, in a loop inside of accept(). The window
/// that it is about may go under that question, and would take the dialog along.
class SaveDialog : public QFileDialog
{
public:
    SaveDialog(QWidget *parent, const QString &title) : QFileDialog(parent, title)
    {
        form = parent ? qobject_cast<FormWindow *>(FormWindow::Around(parent)) : nullptr;
        if (form)
            connect(form, &FormWindow::Unloaded, this, &SaveDialog::giveUp);
    }

    void accept() override
    {
        std::optional<FormWindow::RunScope> scope;
        if (form)
            scope.emplace(form);
        const QPointer<SaveDialog> self(this);
        answering = true;
        QFileDialog::accept();
        if (!self)
            return;
        answering = false;
        if (givenUp)
            reject();
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
    // It goes with its parent, which may be closed while it is up.
    auto *dialog = new SaveDialog(parent, question.Title);
    dialog->setObjectName(u"SaveDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(question.Filters);
    dialog->setDefaultSuffix(question.Ending);
    dialog->setDirectory(QFileInfo(question.Suggested).absolutePath());
    dialog->selectFile(QFileInfo(question.Suggested).fileName());
    // A question like any other: no job begins under it, and the answer need not wait for one.
    const auto hold = std::make_shared<TurnHold>();
    QObject::connect(dialog, &QObject::destroyed, [hold] {});
    // Once the dialog has closed: it tells the name while it is still up, and would stand over
    // whatever saving shows and lets through.
    QObject::connect(
        dialog, &QFileDialog::fileSelected, context,
        [hold, save](const QString &path) { save(path); }, Qt::QueuedConnection);
    dialog->open();
}

void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog)
{
    replacement() = std::move(dialog);
}
