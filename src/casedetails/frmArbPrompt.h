#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmArbPrompt;
}

class FormWindow;

/// Asks whether the details of the arbitration court are wanted, and leaves the answer in
/// CaseAnswers.ArbitrationChosen. Closing the window leaves what was there: no.
class frmArbPrompt : public QDialog
{
    Q_OBJECT
public:
    explicit frmArbPrompt(QWidget *parent = nullptr);
    ~frmArbPrompt() override;

    /// Shows the window and waits until it is answered, or its parent goes.
    static void ShowModal(FormWindow *parent);

private:
    const std::unique_ptr<Ui::frmArbPrompt> ui;
};
