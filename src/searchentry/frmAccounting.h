#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmAccounting;
}

/// The signals of the window of client codes to the search form.
class AccountingEvents : public QObject
{
    Q_OBJECT
public:
    static AccountingEvents &Of();

Q_SIGNALS:
    /// The user has switched the question for a client code on or off: cmdEditAcctID follows.
    void OptionChanged(bool on);
};

/// Asks for the client code that the searches to come are billed to, and leaves it in
/// Global.ClientAcctgCode. Where the account must give one, there is no way out without it.
class frmAccounting : public QDialog
{
    Q_OBJECT
public:
    explicit frmAccounting(QWidget *parent = nullptr);
    ~frmAccounting() override;

    /// Shows the window and waits until it is answered.
    static void ShowModal(QWidget *parent);

    /// Esc, Cancel and the title bar come here: it stays while a code is still owed.
    void reject() override;

private:
    void cmdOK_Click();
    bool MaySend(const QString &code);
    bool QueryUnload();
    void TellCodeIsRequired();

    const std::unique_ptr<Ui::frmAccounting> ui;
    const bool inSession; ///< somebody was logged in when the window came up
};
