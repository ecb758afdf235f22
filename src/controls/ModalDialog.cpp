#include "controls/ModalDialog.h"

#include "controls/FormWindow.h"
#include "core/TurnHold.h"

namespace {
/// The window that a dialog stands over, as far as it can be unloaded.
FormWindow *formBehind(const QDialog *dialog)
{
    for (QWidget *widget = dialog->parentWidget(); widget; widget = widget->parentWidget()) {
        if (auto *form = qobject_cast<FormWindow *>(widget))
            return form;
    }
    return nullptr;
}
} // namespace

int RunModal(QDialog *dialog)
{
    const TurnHold hold;
    const QPointer<QDialog> watched(dialog);
    if (const FormWindow *form = formBehind(dialog)) {
        // Behind a window that has gone already nobody is there to be asked.
        if (form->IsUnloaded())
            return QDialog::Rejected;
        QObject::connect(form, &FormWindow::Unloaded, dialog, &QDialog::reject);
    }
    const int result = dialog->exec();
    return watched ? result : static_cast<int>(QDialog::Rejected);
}
