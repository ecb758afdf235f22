#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmMsg;
}

/// Shows a message of the server, above all other windows.
class frmMsg : public QDialog
{
    Q_OBJECT
public:
    explicit frmMsg(QWidget *parent = nullptr);
    ~frmMsg() override;

    /// Shows the broadcast message. There is one such window: one that is open is brought to the
    /// front and shows it anew.
    static frmMsg &ShowForm(QWidget *parent);

    /// Replaces the broadcast message, with which the window opens.
    void SetText1(const QString &text);

private:
    const std::unique_ptr<Ui::frmMsg> ui;
};
