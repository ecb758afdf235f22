#include "controls/SaveDialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
std::function<QString(const QString &)> &replacement()
{
    static std::function<QString(const QString &)> dialog;
    return dialog;
}
} // namespace

QString AskWhereToSave(QWidget *parent, const QString &title, const QString &suggested,
                       const QString &ending)
{
    if (replacement())
        return replacement()(suggested);
    // On the heap and watched: its parent may be closed, and deleted, while the dialog is up.
    const QPointer<QFileDialog> dialog(new QFileDialog(parent, title));
    dialog->setObjectName(u"SaveDialog"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(
        {ending.toUpper() + u" files (*."_s + ending + u')', u"All files (*)"_s});
    dialog->setDefaultSuffix(ending);
    dialog->setDirectory(QFileInfo(suggested).absolutePath());
    dialog->selectFile(QFileInfo(suggested).fileName());
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    const QString path = accepted ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    return path;
}

void ReplaceSaveDialog(std::function<QString(const QString &suggested)> dialog)
{
    replacement() = std::move(dialog);
}
