#pragma once

#include "controls/FormWindow.h"
#include "session/LoginExchange.h"

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <array>
#include <memory>

class EditCommands;
class QMdiSubWindow;
class QToolButton;
class WaitingList;

namespace Ui {
class frmMain;
}

/// The window of the program: menus, tool bar, status bar with the connection lamp, the way out,
/// and the place where all other windows live as children.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override;

    /// The one main window, nullptr before it is made and after it is gone.
    static frmMain *Form();

    /// Makes `child` a child window and shows it. The main window owns it from here on.
    void ShowChild(FormWindow *child);
    /// Brings a child that is open, or was hidden, to the front.
    void ShowChildAgain(FormWindow *child);
    /// Takes a child off the screen without unloading it.
    void HideChild(FormWindow *child);
    FormWindow *ActiveChild() const;

    /// Ends the session; closing the socket is the logout. Always LoggedOut.
    SessionResult Logout();

    void UpdateStatusBarText(int panel, const QString &text);

    /// Warns that the session has been idle, waits for the user's answer, and logs out unless the
    /// user stays. Keeps events running, for up to 18 seconds.
    void autologout();

    /// "Connected" or "NOT CONNECTED". Writing it drives the lamp.
    const QString &txtConnectStatus() const { return connectStatus; }
    void SetTxtConnectStatus(const QString &text);
    /// Looks whether the link stands, and shows it; a link that is lost ends the session.
    void CheckConnection();
    /// One session has ended, or another begun: what still asks about the former goes away.
    void SessionChanged();

    /// Takes the window away for good, asking first what `mode` has to ask. False when refused.
    bool Unload(UnloadMode mode);

    /// What runs, what waits, and what holds the queue.
    WaitingList *Waiting() const { return waiting; }

    /// A line in the status bar that stays, such as the one that marks practice records.
    void SetNotice(const QString &text);

    QStringList lstActiveWindows; ///< captions of the open children, in the order of activation
    QTimer *tmrConnectStatus;     ///< 15 seconds a tick: notices a lost link
    QTimer *TimerExit;            ///< 700 ms a tick: waits for a running search to end

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void Load();
    void makeStatusBar();
    void showWaiting();
    void connectFileAndEdit();
    void connectMenus();
    void connectToolBar();

    void RestorePosition();
    void SavePosition();
    void Activated();
    void ShowConnection(bool connected);

    void offerCommands();
    void offerEditing();
    void mnuFileSave_Click();
    void mnuFilePrint_Click();
    void mnuFileExit_Click();
    void mnuConnnectionConnect_Click();
    void mnuConnectionDisConnect_Click();
    void mnuCheckMsgs_Click();
    void connectCourts();
    void BackToPreviousChild();
    void listActiveWindows();
    QList<QMdiSubWindow *> childrenByActivation() const;

    bool QueryUnload(UnloadMode mode);
    void TimerExit_Tick();
    void UnloadNow();
    void logoutAndReport(bool modal);

    const std::unique_ptr<Ui::frmMain> ui;
    EditCommands *const edit;
    WaitingList *const waiting;
    QToolButton *cmdWaiting = nullptr;
    std::array<QLabel *, 4> panels{};
    QLabel *lamp = nullptr;
    QLabel *notice = nullptr;
    QString connectStatus;
    int sessionChanges = 0; ///< how often SessionChanged was called
    bool exiting = false;
    bool activatedOnce = false;
    bool unloaded = false;
};
