#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmConnect;
}

/// Asks at start whether to connect now. The answer is left in Global.bConnectChosen.
class frmConnect : public QDialog
{
    Q_OBJECT
public:
    explicit frmConnect(QWidget *parent = nullptr);
    ~frmConnect() override;

    /// Shows the dialog and waits until it is answered.
    static void ShowModal(QWidget *parent);

private:
    const std::unique_ptr<Ui::frmConnect> ui;
};
