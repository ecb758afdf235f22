#pragma once

#include <QDialog>
#include <QTimer>

#include <memory>

namespace Ui {
class frmInactivity;
}

/// Warns for 15 seconds that an idle session is about to be ended. Global.bAutoLogout is True when
/// the count ran out or the user asked for it, False when the user wants to stay.
class frmInactivity : public QDialog
{
    Q_OBJECT
public:
    explicit frmInactivity(QWidget *parent = nullptr);
    ~frmInactivity() override;

    QTimer *Timer1;    ///< one second a tick
    QString Timer1Tag; ///< seconds left, as text

private:
    void Tick();
    void leave(bool logOut);

    const std::unique_ptr<Ui::frmInactivity> ui;
};
