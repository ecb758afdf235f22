#include "session/frmLogin.h"

#include "controls/MsgBox.h"
#include "controls/Twips.h"
#include "controls/WindowPlace.h"
#include "core/Clock.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "core/Version.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "session/LoginOffer.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmMain.h"
#include "session/frmMsg.h"
#include "ui_frmLogin.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>
#include <QUrl>

#include <array>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmLogin> loaded;

constexpr int uiMilliseconds = 250;
constexpr int blinkMilliseconds = 300;
constexpr int blinkRounds = 3;
constexpr float networkWaitSeconds = 5.0F;
constexpr int messagesHeightTwips = 5370;
constexpr int parameterPauseMilliseconds = 200;

/// What is said of a login that failed. The last row has the title and text for every other code.
struct Refusal
{
    SessionResult result;
    QStringView title;
    QStringView text;
    QStringView status; ///< for lblStatus: what has ended, and what to do
};

constexpr std::array<Refusal, 4> refusals{{
    {SessionResult::InvalidCredentials, u"Invalid User Name or Password ..",
     u"Either the User Name and/or Password you entered is Invalid!\r\n\r\n"
     "Please Re-Enter Your User Name and Password and then select Login.",
     u"Invalid Login - Try Again"},
    {SessionResult::NoReply, u"Login Error ..",
     u"A Login Error was Encountered! Error Response: Timed Out Waiting For Response from Server.",
     u"No Reply - Select Login to Try Again"},
    {SessionResult::ConnectionLost, u"Login Error ..",
     u"A Login Error was Encountered! Error Response: Halvane Server Connection was Dropped!",
     u"Connection Lost - Select Connect Again"},
    {SessionResult::LoggedOut, u"Login Error ..",
     u"Invalid User Name or Password.\r\n\r\n"
     "Please Re-Enter Your User Name and Password and then select Login.",
     u"Login Failed - Try Again"},
}};

const Refusal &refusalOf(SessionResult result)
{
    for (const Refusal &row : refusals) {
        if (row.result == result)
            return row;
    }
    return refusals.back();
}
} // namespace

frmLogin::frmLogin(QWidget *parent)
    : FormWindow(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                             | Qt::WindowCloseButtonHint),
      tmrUI(new QTimer(this)), tmrLbl(new QTimer(this)), ui(std::make_unique<Ui::frmLogin>())
{
    ui->setupUi(this);
    ui->Frame1->hide();
    tmrUI->setObjectName(u"tmrUI"_s);
    tmrUI->setInterval(uiMilliseconds);
    tmrLbl->setObjectName(u"tmrLbl"_s);
    tmrLbl->setInterval(blinkMilliseconds);
    colourLink();

    connect(tmrUI, &QTimer::timeout, this, &frmLogin::StartConnect);
    connect(tmrLbl, &QTimer::timeout, this, [this] {
        ui->lblStatus->setVisible(!ui->lblStatus->isVisible());
        if (++blinks >= 2 * blinkRounds)
            tmrLbl->stop();
    });
    connect(ui->cmdLogin, &QPushButton::clicked, this, &frmLogin::cmdLogin_Click);
    connect(ui->cmdConnectAgain, &QPushButton::clicked, this, &frmLogin::cmdConnectAgain_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel_Click);
    connect(ui->Label1, &QPushButton::clicked, this,
            [] { QDesktopServices::openUrl(QUrl(SupportPage())); });
}

void frmLogin::colourLink()
{
    QPalette link = ui->Label1->palette();
    link.setColor(QPalette::ButtonText, palette().color(QPalette::Link));
    ui->Label1->setPalette(link);
}

void frmLogin::changeEvent(QEvent *event)
{
    FormWindow::changeEvent(event);
    // The desktop has turned dark, or light again.
    if (event->type() == QEvent::PaletteChange)
        colourLink();
}

frmLogin::~frmLogin()
{
    setHourglass(false);
}

bool frmLogin::IsLoaded()
{
    return loaded && !loaded->IsUnloaded();
}

void frmLogin::ShowForm(QWidget *parent)
{
    if (IsLoaded()) {
        BringToFront(loaded);
        return;
    }
    if (frmLogin *form = LoadForm(parent)) {
        form->show();
        form->activateWindow();
    }
}

void frmLogin::ShowModal(QWidget *parent)
{
    if (IsLoaded()) {
        BringToFront(loaded);
        return;
    }
    frmLogin *form = LoadForm(parent);
    if (!form)
        return;
    QEventLoop untilUnloaded;
    connect(form, &FormWindow::Unloaded, &untilUnloaded, &QEventLoop::quit);
    form->setWindowModality(Qt::ApplicationModal);
    form->show();
    form->activateWindow();
    untilUnloaded.exec();
}

/// Makes the window and loads it; nullptr when it was closed while it loaded.
frmLogin *frmLogin::LoadForm(QWidget *parent)
{
    const QPointer<frmLogin> form(new frmLogin(parent));
    loaded = form;
    form->Load();
    if (!form || form->IsUnloaded())
        return nullptr;
    CentreOnScreen(form);
    // No field has the keyboard until it is known which one wants an entry, or the user goes to
    // one.
    form->setFocus();
    return form;
}

void frmLogin::Load()
{
    const RunScope scope(this);
    SetTopMostWindow(this, true);
    cancelled = false;
    if (Global.bLoggedIn) {
        ui->cmdLogin->setEnabled(false);
        MsgBox(this, u"Login Not Allowed. There is already one user logged in: [ "_s + u" ]"_s,
               u"Login Not Allowed .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
        WriteAppInfo(u"Login rejected. A user is already logged in!"_s);
        return;
    }
    if (HasNetworkAddress()) {
        ShowLoginStatus(u"Contacting Halvane .."_s);
        ui->txtUsername->clear();
        ui->txtPassword->clear();
        ui->cmdLogin->setEnabled(false);
        Q_EMIT SessionEvents::Of().SearchFormHidden();
        tmrUI->start();
        return;
    }
    PauseSeconds(networkWaitSeconds);
    if (HasNetworkAddress())
        return;
    const QString reason = u"Login Not Allowed. Reason: PC Not Connected to Internet."_s;
    MsgBox(this, u"[ "_s + reason + u" ]"_s, u"Login Denied - No Internet Connection Found .."_s,
           MsgButtons::Ok, MsgIcon::Exclamation);
    WriteAppInfo(reason);
    ShowLoginStatus(u"No Internet Connection .."_s);
}

void frmLogin::StartConnect()
{
    const RunScope scope(this);
    tmrUI->stop();
    if (!cancelled)
        Q_EMIT SessionEvents::Of().SearchFormHidden();
    FillRemembered();
    ContactServer();
    if (IsUnloaded())
        return;
    activateWindow();
    // Who is in a field already is typing.
    if (!qobject_cast<QLineEdit *>(focusWidget()))
        (ui->txtUsername->text().isEmpty() ? ui->txtUsername : ui->txtPassword)->setFocus();
}

void frmLogin::FillRemembered()
{
    const QString userName = ReadSetting(Setting::UserName);
    const bool remembered = SettingValue(Setting::RememberPwd) != u"0";
    ui->Check1->setChecked(remembered);
    ui->txtUsername->setText(DecodeCredential(userName));
    if (remembered)
        ui->txtPassword->setText(DecodeCredential(ReadSetting(Setting::UserPwd)));
}

void frmLogin::ContactServer()
{
    tmrUI->stop();
    setHourglass(true);
    ShowLoginStatus(u"Contacting Halvane .."_s);
    if (cancelled || !ReachServer() || cancelled)
        return;
    Global.bCheckingServer = true;
    ShowLoginStatus(u"Checking for messages .."_s);
    FetchPrivateMessages();
    Global.bCheckingServer = false;
    if (cancelled)
        return;
    ShowLoginStatus(u"Completed Checking Court Availability .."_s);
    ShowLoginStatus(u"Enter User Name and Password to Continue .."_s);
    ui->cmdLogin->setEnabled(true);
    setHourglass(false);
}

bool frmLogin::ReachServer()
{
    if (Global.intConnectState != ConnectDone) {
        const ServerSelection selection = SelectServer([this] { return cancelled; });
        if (selection == ServerSelection::Cancelled || cancelled)
            return false;
        if (selection == ServerSelection::NotAvailable) {
            MsgBox(this, u"Cannot Connect to Halvane Server at this time."_s,
                   u"Contacting Halvane Server .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
            ShowLoginStatus(u"Server Not Available .."_s);
            setHourglass(false);
            ui->cmdConnectAgain->show();
            return false;
        }
    }
    ShowLoginStatus(u"Server Contacted .."_s);
    return true;
}

void frmLogin::FetchPrivateMessages()
{
    const QString userName = TrimBlanks(ui->txtUsername->text());
    const QString password = TrimBlanks(ui->txtPassword->text());
    QString found;
    if (!userName.isEmpty() && !password.isEmpty()) {
        Session.strPrivateMsgs.clear();
        found = GetPrivateMessage(userName, password, LoginVersion(), statusLine());
    }
    // A refused request answers with words of its own and leaves no message: the box then comes
    // into view empty.
    if (found.isEmpty())
        Session.strPrivateMsgs = NoMessagesFound();
    showMessages(Session.strPrivateMsgs, !found.isEmpty());
}

void frmLogin::showMessages(const QString &text, bool bringIntoView)
{
    ui->txtMsg->setPlainText(text);
    if (!bringIntoView)
        return;
    ui->Frame1->show();
    resize(width(), PixelsFromTwips(messagesHeightTwips));
}

ShowStatus frmLogin::statusLine()
{
    return [self = QPointer<frmLogin>(this)](const QString &text) {
        if (self)
            self->ShowLoginStatus(text);
    };
}

void frmLogin::ShowLoginStatus(const QString &text)
{
    ui->lblStatus->setText(TrimBlanks(text));
    // At once: the next text may come before the event loop has a turn.
    ui->lblStatus->repaint();
}

SessionResult frmLogin::Login(const QString &userName, const QString &password,
                              const QString &version)
{
    return ::Login(userName, password, version, statusLine());
}

void frmLogin::cmdLogin_Click()
{
    const RunScope scope(this);
    setHourglass(true);
    ui->cmdLogin->setEnabled(false);
    if (Global.bLoginBusy)
        return;
    Session.strUserName = ui->txtUsername->text();
    Global.bLoginBusy = true;
    const SessionResult result =
        Login(ui->txtUsername->text(), ui->txtPassword->text(), LoginVersion());
    WriteAppInfo(u"Login Returned: "_s + QString::number(Number(result)));
    // Cancelled while the server was thinking: the window is gone, and nobody waits for its news.
    if (cancelled || IsUnloaded()) {
        Global.bLoginBusy = false;
        Global.bLoggedIn = false;
        return;
    }
    if (result == SessionResult::LoggedIn)
        LoggedIn();
    else
        LoginRefused(result);
}

void frmLogin::LoggedIn()
{
    // The parameters and messages belong to the login and keep its limits.
    Global.bLoginBusy = true;
    if (frmMain *main = frmMain::Form())
        main->SetTxtConnectStatus(u"Connected"_s);
    SettleLoginOffers();
    if (frmMain *main = frmMain::Form())
        main->SessionChanged();
    ShowLoginStatus(u"Updating Halvane System Parameters .."_s);
    Global.bGettingParams = true;
    GetIniValues(statusLine());
    Global.bGettingParams = false;
    ShowLoginStatus(u"Updating Halvane System Parameters. Complete."_s);
    Clock::Current().SleepMilliseconds(parameterPauseMilliseconds);
    if (!cancelled)
        RememberCredentials();
    setHourglass(false);
    if (!cancelled)
        OfferSystemMessage();
    if (!cancelled)
        GetClientAcctgOption();
    Global.bLoginBusy = false;
    Unload();
    if (Global.bLoggedIn)
        Q_EMIT SessionEvents::Of().LoggedIn();
}

void frmLogin::RememberCredentials()
{
    const bool remember = ui->Check1->isChecked();
    SaveSetting(Setting::RememberPwd, SettingWriter::Login, remember ? u"1"_s : u"0"_s);
    SaveSetting(Setting::UserName, SettingWriter::Login, EncodeCredential(ui->txtUsername->text()));
    SaveSetting(Setting::UserPwd, SettingWriter::Login,
                remember ? EncodeCredential(ui->txtPassword->text()) : QString());
}

void frmLogin::OfferSystemMessage()
{
    ShowLoginStatus(u"Checking for Halvane System Messages .."_s);
    if (GetSystemMessage(statusLine()).isEmpty() || cancelled)
        return;
    hide();
    if (!Global.bShowAlerts)
        return;
    const MsgAnswer answer =
        MsgBox(parentWidget(),
               u"There is an important system message for you. Click OK to view it now or Cancel "
               "to skip viewing it."_s,
               u"Halvane - Important System Message"_s, MsgButtons::OkCancel, MsgIcon::Information);
    if (answer == MsgAnswer::Ok)
        frmMsg::ShowForm(parentWidget());
}

void frmLogin::LoginRefused(SessionResult result)
{
    const Refusal &refusal = refusalOf(result);
    setHourglass(false);
    hide();
    MsgBox(parentWidget(), refusal.text.toString(), refusal.title.toString(), MsgButtons::Ok,
           MsgIcon::Exclamation);
    Global.bLoginBusy = false;
    if (IsUnloaded())
        return;
    show();
    activateWindow();
    ui->cmdLogin->setEnabled(true);
    ShowLoginStatus(refusal.status.toString());
    // Until then every further attempt would end in the same way.
    ui->cmdConnectAgain->setVisible(result == SessionResult::ConnectionLost);
}

/// As Cancel and a new login, but what was entered stays.
void frmLogin::cmdConnectAgain_Click()
{
    const RunScope scope(this);
    if (Global.bLoginBusy || Global.bCheckingServer)
        return;
    ui->txtUsername->setFocus();
    ui->cmdConnectAgain->hide();
    ui->cmdLogin->setEnabled(false);
    CloseServerLink();
    ContactServer();
}

void frmLogin::cmdCancel_Click()
{
    cancelled = true;
    tmrUI->stop();
    tmrLbl->stop();
    setHourglass(false);
    Global.bLoggedIn = false;
    frmWinsock::Unload();
    if (frmMain *main = frmMain::Form()) {
        main->SetTxtConnectStatus(u"NOT CONNECTED"_s);
        main->SessionChanged();
    }
    Unload();
}

void frmLogin::Unloading()
{
    // Closed by its title bar: as good as Cancel for a connect that is still under way.
    // The link goes with it: a run that still waits on it must not read what a next login is sent.
    if (!Global.bLoggedIn) {
        cancelled = true;
        frmWinsock::Unload();
    }
    tmrUI->stop();
    tmrLbl->stop();
    setHourglass(false);
    if (loaded == this)
        loaded = nullptr;
    Q_EMIT SessionEvents::Of().SearchFormWanted();
}

void frmLogin::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        ui->cmdCancel->click();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        ui->cmdLogin->click();
    else
        FormWindow::keyPressEvent(event);
}

void frmLogin::setHourglass(bool on)
{
    if (on == hourglass)
        return;
    hourglass = on;
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}
