#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmOnDemand;
}

class FormWindow;

/// Asks whether an incomplete tab shall be retrieved again, and leaves the answer in
/// CaseAnswers.bOnDemandRetry. Its check box is there and changes nothing: the question comes back
/// at the next click on an incomplete tab, so that nobody prints half a docket unknowingly.
class frmOnDemand : public QDialog
{
    Q_OBJECT
public:
    explicit frmOnDemand(QWidget *parent = nullptr);
    ~frmOnDemand() override;

    /// True while the window is open, in whatever case window.
    static bool IsLoaded();
    /// Shows the window and waits until it is answered; with NO when its parent goes.
    static void ShowModal(FormWindow *parent);

    /// Esc and the title bar: what is there can be looked at.
    void reject() override;

private:
    void answer(bool retry);

    const std::unique_ptr<Ui::frmOnDemand> ui;
};
