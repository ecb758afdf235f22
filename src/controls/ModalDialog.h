#pragma once

#include <QDialog>
#include <QPointer>

#include <utility>

/// Shows a dialog above all other windows of the program and waits until the user has left it. No
/// job takes its turn meanwhile. Events run: on return anything may have changed, and a dialog
/// whose parent was destroyed is gone.
///
/// A dialog about a window that is unloaded meanwhile has nothing to ask any more: it is rejected.
/// Gives QDialog::Accepted or QDialog::Rejected; Rejected too when the dialog went with its parent.
int RunModal(QDialog *dialog);

/// A dialog on the heap, for one modal showing; deleted at the end unless its parent has taken it
/// along. It can be filled before Run and read after it, while IsGone says no.
template<typename Dialog>
class ModalDialog
{
public:
    template<typename... Arguments>
    explicit ModalDialog(Arguments &&...arguments)
        : dialog(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ~ModalDialog() { delete dialog; }
    ModalDialog(const ModalDialog &) = delete;
    ModalDialog &operator=(const ModalDialog &) = delete;

    int Run() { return RunModal(dialog); }
    bool IsGone() const { return dialog.isNull(); }

    Dialog *operator->() const { return dialog; }
    Dialog &operator*() const { return *dialog; }

private:
    QPointer<Dialog> dialog;
};
