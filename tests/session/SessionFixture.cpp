#include "SessionFixture.h"

#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

using namespace Qt::StringLiterals;

SessionFixture::SessionFixture()
{
    ReplaceEndProgram([this](int exitCode) { endings.append(exitCode); });
}

SessionFixture::~SessionFixture()
{
    delete main;
    TestFolder::ResetProgram();
    // What was unloaded is deleted at leisure; a test has none.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

frmMain *SessionFixture::ShowMain(bool alerts)
{
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, alerts ? u"1"_s : u"0"_s);
    main = new frmMain;
    main->show();
    main->activateWindow();
    Settle();
    return main;
}

frmLogin *SessionFixture::LoginWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *login = qobject_cast<frmLogin *>(window);
        if (login && !login->IsUnloaded())
            return login;
    }
    return nullptr;
}

frmLogin *SessionFixture::OpenLogin()
{
    frmLogin::ShowForm(main);
    frmLogin *login = LoginWindow();
    if (login)
        login->tmrUI->setInterval(1);
    return login;
}

frmLogin *SessionFixture::OpenLoginToTheEnd()
{
    frmLogin *login = OpenLogin();
    const auto *button = Child<QPushButton>(login, "cmdLogin");
    return WaitUntil([button] { return button->isEnabled(); }) ? login : nullptr;
}

void SessionFixture::BeLoggedIn()
{
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    if (main)
        main->SetTxtConnectStatus(u"Connected"_s);
}

void Settle()
{
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

bool WaitUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(5000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        // Every fixture has a timer of one millisecond running, for its boxes: it wakes us.
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

QImage LampOf(const QWidget *main)
{
    constexpr QRgb ground = 0xFFF0F0F0;
    const QPixmap lamp = Child<QLabel>(main, "lamp")->pixmap();
    QImage seen(lamp.size(), QImage::Format_RGB32);
    seen.fill(ground);
    QPainter(&seen).drawPixmap(0, 0, lamp);
    return seen;
}
