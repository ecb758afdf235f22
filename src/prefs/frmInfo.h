#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmInfo;
}

/// Tells the user in three lines why an entry was refused: what is wrong, why, and what to do.
class frmInfo : public QDialog
{
    Q_OBJECT
public:
    explicit frmInfo(QWidget *parent = nullptr);
    ~frmInfo() override;

    /// Fills the three lines and shows the window until it is closed. A caption that is given takes
    /// the place of the window's own.
    static void ShowFieldError(QWidget *parent, const QString &what, const QString &why,
                               const QString &action, const QString &caption = {});

    /// Sets the caption to the last of the four texts that is not empty; the lines keep what they
    /// have.
    void ShowInfo(const QString &first, const QString &second, const QString &third,
                  const QString &fourth);

private:
    void FitTexts();

    const std::unique_ptr<Ui::frmInfo> ui;
};
