#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmConnectionStatus;
}

/// Tells whether a user is logged in. It asks the login flag, not the socket.
class frmConnectionStatus : public QDialog
{
    Q_OBJECT
public:
    explicit frmConnectionStatus(QWidget *parent = nullptr);
    ~frmConnectionStatus() override;

private:
    const std::unique_ptr<Ui::frmConnectionStatus> ui;
};
