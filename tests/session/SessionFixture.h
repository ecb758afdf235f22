#pragma once

#include "support/BoxAnswers.h"
#include "support/FakeCourt.h"
#include "support/FakeSocket.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"
#include "support/WindowUser.h"

#include <QAction>
#include <QImage>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

class frmLogin;
class frmMain;

/// The application folder, a clock that stands still, and answers for boxes, as every test of the
/// session needs them; and the main window with its login, for those that want it.
class SessionFixture
{
public:
    SessionFixture();
    ~SessionFixture();

    /// Makes and shows the main window, on an application folder that asks questions or does not.
    frmMain *ShowMain(bool alerts = true);
    frmMain *Main() const { return main; }

    /// Opens the login window, its timer shortened.
    frmLogin *OpenLogin();
    /// The login window that is open, nullptr without one.
    static frmLogin *LoginWindow();

    /// Opens the login window and waits until the server is reached and a login may begin.
    frmLogin *OpenLoginToTheEnd();

    /// Makes the connect state what it is with a server and a user logged in.
    void BeLoggedIn();

    TestFolder folder;
    TestClock clock;
    BoxAnswers boxes;
    QList<int> endings; ///< the exit codes with which the program ended

private:
    frmMain *main = nullptr;
};

/// The lamp of the main window as it is seen on the ground that its pictures have.
QImage LampOf(const QWidget *main);

/// Lets what is pending happen.
void Settle();

/// Lets events happen until the condition holds; False when it does not within five seconds.
bool WaitUntil(const std::function<bool()> &condition);
