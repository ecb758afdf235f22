#pragma once

#include "support/BoxAnswers.h"
#include "support/FakeSocket.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QAction>
#include <QImage>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

class frmLogin;
class frmMain;

/// What a fake court does with the connects and requests of every socket that is made.
struct FakeCourt
{
    bool refuses = false;
    bool connects = true;
    QByteArrayList replies;     ///< one a request, from the front; a request beyond them gets none
    qsizetype dropsBehind = -1; ///< the server closes behind its reply to this request
    QByteArrayList requests;    ///< all that came, bars included
    std::function<void()> onRequest; ///< called for each, before its reply
    QStringList connectedTo;         ///< "host:port" of each attempt
};

/// A FakeSocket with a FakeCourt at its other end.
class CourtSocket : public FakeSocket
{
    Q_OBJECT
public:
    explicit CourtSocket(QObject *parent);

    /// From now on frmWinsock makes CourtSockets, which are not connected yet.
    static void Install();
    static FakeCourt &Court();

    void Connect() override;
    void SendData(const QByteArray &data) override;
};

/// A socket that tells one state after another, a state a question; the last one stays.
class MoodySocket : public FakeSocket
{
    Q_OBJECT
public:
    using FakeSocket::FakeSocket;

    static void Install(const QList<SocketState> &states);

    SocketState State() const override;

private:
    mutable QList<SocketState> moods;
};

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

/// The child of this name; the test fails at its first use when there is none.
/// The lamp of the main window as it is seen on the ground that its pictures have.
QImage LampOf(const QWidget *main);

template<typename T>
T *Child(const QObject *window, const char *name)
{
    return window->findChild<T *>(QString::fromLatin1(name));
}

/// Clicks a button as a user does.
void Click(const QObject *window, const char *button);

/// Clicks a button where it stands on the screen: what a modal window blocks does not hear of it.
void ClickOnScreen(const QObject *window, const char *button);

/// Chooses a menu entry or tool bar button as a user does; a disabled one does nothing.
void Choose(const QObject *window, const char *action);

/// Types into an entry field over whatever stands there.
void TypeInto(const QObject *window, const char *field, const QString &text);

/// Lets what is pending happen.
void Settle();

/// Lets events happen until the condition holds; False when it does not within five seconds.
bool WaitUntil(const std::function<bool()> &condition);
