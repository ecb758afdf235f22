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

CourtSocket::CourtSocket(QObject *parent) : FakeSocket(parent)
{
    state = SocketState::Closed;
    refuses = Court().refuses;
    connects = Court().connects;
}

FakeCourt &CourtSocket::Court()
{
    static FakeCourt court;
    return court;
}

void CourtSocket::Install()
{
    Court() = FakeCourt();
    frmWinsock::SetSocketFactory([](QObject *parent) { return new CourtSocket(parent); });
}

void CourtSocket::Connect()
{
    Court().connectedTo.append(RemoteHost + u':' + QString::number(RemotePort));
    FakeSocket::Connect();
}

void CourtSocket::SendData(const QByteArray &data)
{
    FakeSocket::SendData(data);
    const bool drops = Court().requests.size() == Court().dropsBehind;
    Court().requests.append(data);
    if (Court().onRequest)
        Court().onRequest();
    const QByteArray reply = Court().replies.isEmpty() ? QByteArray() : Court().replies.takeFirst();
    QTimer::singleShot(0, this, [this, reply, drops] {
        if (!reply.isEmpty())
            Arrive(reply);
        if (drops)
            QTimer::singleShot(0, this, [this] { PeerCloses(); });
    });
}

void MoodySocket::Install(const QList<SocketState> &states)
{
    frmWinsock::SetSocketFactory([states](QObject *parent) {
        auto *socket = new MoodySocket(parent);
        socket->moods = states;
        return socket;
    });
}

SocketState MoodySocket::State() const
{
    return moods.size() > 1 ? moods.takeFirst() : moods.first();
}

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

void Click(const QObject *window, const char *button)
{
    QTest::mouseClick(Child<QPushButton>(window, button), Qt::LeftButton);
}

void ClickOnScreen(const QObject *window, const char *button)
{
    const auto *target = Child<QPushButton>(window, button);
    QWidget *around = target->window();
    QTest::mouseClick(around->windowHandle(), Qt::LeftButton, {},
                      target->mapTo(around, target->rect().center()));
}

void Choose(const QObject *window, const char *action)
{
    Child<QAction>(window, action)->trigger();
}

void TypeInto(const QObject *window, const char *field, const QString &text)
{
    auto *line = Child<QLineEdit>(window, field);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
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
