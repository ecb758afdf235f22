#pragma once

#include <QDialog>
#include <QTimer>

#include <memory>

namespace Ui {
class frmInactivity;
}

/// Warns for 15 seconds that an idle session is about to be ended. Session.bAutoLogout is True when
/// the count ran out or the user asked for it, False when the user wants to stay.
///
/// It can be answered whatever else is open: the count runs under a box and a modal dialog too.
class frmInactivity : public QDialog
{
    Q_OBJECT
public:
    explicit frmInactivity(QWidget *parent = nullptr);
    ~frmInactivity() override;

    /// Shows the warning and returns at once.
    static void ShowWarning(QWidget *parent);
    /// Takes the warning away, if one is open, as if the user had chosen to stay: the session that
    /// it was about is over.
    static void CloseWarning();

    QTimer *Timer1;    ///< one second a tick
    QString Timer1Tag; ///< seconds left, as text

protected:
    bool event(QEvent *event) override;

private:
    void standOverModal();
    void Tick();
    void leave(bool logOut);

    const std::unique_ptr<Ui::frmInactivity> ui;
};
