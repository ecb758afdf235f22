#include "controls/SaveDialog.h"

#include "core/TurnHold.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
std::function<QString(const QString &)> &replacement()
{
    static std::function<QString(const QString &)> dialog;
    return dialog;
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
    // It goes with its parent, which may be closed while it is up.
    auto *dialog = new QFileDialog(parent, question.Title);
    dialog->setObjectName(u"SaveDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(question.Filters);
    dialog->setDefaultSuffix(question.Ending);
    dialog->setDirectory(QFileInfo(question.Suggested).absolutePath());
    dialog->selectFile(QFileInfo(question.Suggested).fileName());
    QObject::connect(dialog, &QFileDialog::fileSelected, context, save);
    // A question like any other: no job begins under it, and the answer need not wait for one.
    QObject::connect(dialog, &QObject::destroyed, [hold = std::make_shared<TurnHold>()] {});
    dialog->open();
}

void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog)
{
    replacement() = std::move(dialog);
}
