#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

/// Name and version of the program. At start it is the splash, without its button.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr);
    ~frmAbout() override;

    /// Shows the window as a splash, painted at once: nothing else will run while it is up.
    void ShowAsSplash();

private:
    const std::unique_ptr<Ui::frmAbout> ui;
};
