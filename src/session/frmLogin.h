#pragma once

#include "controls/FormWindow.h"
#include "core/TurnHold.h"
#include "session/LoginExchange.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace Ui {
class frmLogin;
}

/// Reaches the server, takes name and password, and fetches what the server has to say before it
/// gives way to the search form. Stays above all other windows while it is open.
class frmLogin : public FormWindow
{
    Q_OBJECT
public:
    /// Loads and shows the window, or brings the one that is open to the front. Loading may wait
    /// for a network address, and may show a box.
    static void ShowForm(QWidget *parent);
    /// The same, above everything else, and waits until the login is through or given up. A window
    /// that is open already is brought to the front, and not waited for.
    static void ShowModal(QWidget *parent);
    static bool IsLoaded();

    ~frmLogin() override;

    SessionResult Login(const QString &userName, const QString &password, const QString &version);
    void ShowLoginStatus(const QString &text);

    QTimer *tmrUI;  ///< starts the connect once the window is up
    QTimer *tmrLbl; ///< blinks lblStatus for three rounds

protected:
    void Unloading() override;
    void Over() override { hold.reset(); }
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    explicit frmLogin(QWidget *parent);

    static frmLogin *LoadForm(QWidget *parent);
    void Load();
    void StartConnect();
    void ContactServer();
    bool ReachServer();
    void FetchPrivateMessages();
    void FillRemembered();
    void cmdLogin_Click();
    void cmdConnectAgain_Click();
    void cmdCancel_Click();
    void LoggedIn();
    void RememberCredentials();
    void OfferSystemMessage();
    void LoginRefused(SessionResult result);
    void setHourglass(bool on);
    void colourLink();
    void showMessages(const QString &text, bool bringIntoView);
    ShowStatus statusLine();

    const std::unique_ptr<Ui::frmLogin> ui;
    /// A job that waits from before must not talk into the login, nor to a court that does not know
    /// the user yet. Held until the exchanges of the login are over, whether or not the window was
    /// closed in the middle of them.
    std::optional<TurnHold> hold{std::in_place};
    bool cancelled = false;
    bool hourglass = false;
    int blinks = 0;
};
