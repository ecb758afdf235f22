#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmElapsedTime;
}

/// The session status after a logout: shows Session.strSessionTime, and empties it on the way out.
class frmElapsedTime : public QDialog
{
    Q_OBJECT
public:
    explicit frmElapsedTime(QWidget *parent = nullptr);
    ~frmElapsedTime() override;

private:
    const std::unique_ptr<Ui::frmElapsedTime> ui;
};
