// What the login window asks around a login, and what it does not ask at present.

#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "session/ServerExchanges.h"
#include "session/SessionState.h"
#include "session/frmLogin.h"
#include "sweeps/ExchangeDesk.h"
#include "sweeps/Exchanges.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>

namespace {
/// The exchanges of a login, in its order.
enum class Step { PrivateMessages, Login, Parameters, Message, Accounting };

struct SessionRow
{
    Step step;
    const char *name;
    QString request;
    QStringList reply;
    double limitSeconds;
    bool refused = false;
};

const QString logon = u"LOGON¦ann¦secret¦AppVer-9.00¦"_s;
const QString endMark = u"EOF~"_s;

/// What the log says of each that gets no answer, in the order of Step.
const QStringList noAnswer{
    u"No Response From Server during system message retrieval! Skipping."_s,
    u"Server Timeout - No Response From Server!"_s,
    u"Server Timeout - No Response From Server during GetINIval retrieval!!"_s,
    u"Server Timeout - No Response From Server during system message retrieval!!"_s,
    u"Server Timeout - No Response From Server during GETCLIENTACCTGOPT retrieval!!"_s};

const QList<SessionRow> &table()
{
    static const QList<SessionRow> all{
        {Step::PrivateMessages,
         "private messages",
         u"GET_PRIV_MSG¦ann¦secret¦AppVer-9.00¦"_s,
         {u"Your invoice "_s, u"is ready."_s, endMark},
         10.0},
        {Step::Login, "login", logon, {u"Welcome~"_s, endMark}, 14.0},
        {Step::Login,
         "login, refused",
         logon,
         {u"ERROR~Invalid User Name and/or PW~"_s, endMark},
         14.0,
         true},
        {Step::Parameters,
         "parameters",
         u"GETINIVAL¦"_s,
         {u"Searching=MaxIndexResults=300"_s, u"EOS~"_s, u"Searching=SearchTimeout=3"_s, u"EOS~"_s,
          endMark},
         12.0},
        {Step::Message,
         "message",
         u"GETMSG¦"_s,
         {u"The courts are closed "_s, u"on Monday."_s, endMark},
         12.0},
        {Step::Accounting,
         "accounting option",
         u"GETCLIENTACCTGOPT~"_s,
         {u"TRUE~"_s, endMark},
         14.0},
    };
    return all;
}

/// With so many tokens the exchange is over.
qsizetype neededTokens(const SessionRow &row)
{
    return row.step == Step::Accounting ? 1 : row.reply.size();
}

class LoginRun : public ExchangeRun
{
public:
    LoginRun(ExchangeDesk &ownDesk, const SessionRow &ownRow);
    ~LoginRun() override;

    void Announce(const Came &came, BoxAnswers &boxes) override;
    bool Go() override;
    bool IsOver() const override;
    void Leave() override;
    QStringList Seen() const override;
    QStringList Expected(const Came &came) const override;

private:
    bool isWhole(const Came &came) const { return came.Tokens >= neededTokens(row); }
    bool logsIn(const Came &came) const;
    QStringList logOf(const Came &came) const;

    ExchangeDesk &desk;
    const SessionRow &row;
    QPointer<frmLogin> login;
    bool pressed = false;
};

LoginRun::LoginRun(ExchangeDesk &ownDesk, const SessionRow &ownRow) : desk(ownDesk), row(ownRow)
{
    Session.strSystemMsg.clear();
    Session.strPrivateMsgs.clear();
    Global.bLoggedIn = false;
    Global.bShowAlerts = true;
    Global.bClientAcctgOpt = false;
    const bool remembered = row.step == Step::PrivateMessages;
    SaveOptionStr(u"Security"_s, u"RememberPwd"_s, remembered ? u"1"_s : u"0"_s);
    SaveOptionStr(u"Security"_s, u"UserName"_s, EncodeCredential(u"ann"_s));
    SaveOptionStr(u"Security"_s, u"UserPwd"_s, remembered ? EncodeCredential(u"secret"_s) : u""_s);
    SaveOptionStr(u"Searching"_s, u"MaxIndexResults"_s, u"500"_s);
    SaveOptionStr(u"Searching"_s, u"SearchTimeout"_s, u"1"_s);
}

LoginRun::~LoginRun()
{
    delete login;
    Global.bLoginBusy = false;
    Global.bShowAlerts = false;
}

/// A login is as good as accepted when its own reply ended without an error.
bool LoginRun::logsIn(const Came &came) const
{
    return row.step != Step::PrivateMessages
           && (row.step != Step::Login || (isWhole(came) && !row.refused));
}

void LoginRun::Announce(const Came &came, BoxAnswers &boxes)
{
    if (row.step == Step::Login && !isWhole(came))
        boxes.Expect(u"A Login Error was Encountered! Error Response: Timed Out Waiting For "
                     "Response from Server."_s,
                     u"Login Error .."_s, MsgIcon::Exclamation);
    else if (row.step == Step::Login && row.refused)
        boxes.Expect(u"Either the User Name and/or Password you entered is Invalid!\n\n"
                     "Please Re-Enter Your User Name and Password and then select Login."_s,
                     u"Invalid User Name or Password .."_s, MsgIcon::Exclamation);
    else if (row.step == Step::Message && isWhole(came))
        boxes.Expect(u"There is an important system message for you. Click OK to view it now or "
                     "Cancel to skip viewing it."_s,
                     u"Halvane - Important System Message"_s, MsgIcon::Information,
                     MsgAnswer::Cancel);
}

bool LoginRun::Go()
{
    frmLogin::ShowForm(nullptr);
    login = Shown<frmLogin>(u"frmLogin"_s);
    login->tmrUI->setInterval(0);
    const QPushButton *button = ButtonOf(login, "cmdLogin");
    if (!LinkDesk::WaitUntil([button] { return button->isEnabled(); }))
        return false;
    if (row.step == Step::PrivateMessages)
        return true;
    TypeInto(login, "txtUsername", u"ann"_s);
    TypeInto(login, "txtPassword", u"secret"_s);
    pressed = true;
    Click(login, "cmdLogin");
    pressed = false;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return true;
}

bool LoginRun::IsOver() const
{
    switch (row.step) {
    case Step::PrivateMessages:
        return !Global.bCheckingServer;
    case Step::Login:
        return QApplication::activeModalWidget() || !pressed || Global.bLoggedIn;
    case Step::Parameters:
        return !Global.bGettingParams;
    case Step::Message:
        return !Global.bGettingMessages;
    case Step::Accounting:
        break;
    }
    return !pressed;
}

/// A login window that is open keeps the jobs waiting.
void LoginRun::Leave()
{
    if (login && !login->IsUnloaded())
        Click(login, "cmdCancel");
}

QStringList LoginRun::Seen() const
{
    const bool open = login && !login->IsUnloaded();
    return {
        Line("window", open ? TextOf(login, "lblStatus") : u"closed"_s),
        Line("can log in", open && ButtonOf(login, "cmdLogin")->isEnabled() ? u"yes"_s : u"no"_s),
        Line("private",
             open && login->findChild<QWidget *>(u"Frame1"_s)->isVisible()
                 ? u'"' + login->findChild<QPlainTextEdit *>(u"txtMsg"_s)->toPlainText() + u'"'
                 : u"hidden"_s),
        Line("logged in", Global.bLoggedIn ? u"yes"_s : u"no"_s),
        Line("message", Session.strSystemMsg),
        Line("settings", GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s) + u'+'
                             + GetOptionStr(u"Searching"_s, u"SearchTimeout"_s)),
        Line("accounting", Global.bClientAcctgOpt ? u"yes"_s : u"no"_s),
        Line("hourglass", QApplication::overrideCursor() ? u"yes"_s : u"no"_s),
        Line("log", desk.Logged(noAnswer).join(u'+')),
    };
}

/// An exchange without an answer, and behind a link that has gone all that are left of the login.
QStringList LoginRun::logOf(const Came &came) const
{
    const auto step = static_cast<qsizetype>(row.step);
    QStringList log;
    if (!isWhole(came))
        log.append(noAnswer[step]);
    if (logsIn(came) && (came.Lost || (came.InPart && !isWhole(came))))
        log += noAnswer.mid(step + 1);
    return log;
}

QStringList LoginRun::Expected(const Came &came) const
{
    const bool whole = isWhole(came);
    const bool in = logsIn(came);
    QString window = u"closed"_s;
    QString privates = u"hidden"_s;
    if (row.step == Step::PrivateMessages) {
        window = u"Enter User Name and Password to Continue .."_s;
        // Without an answer the box comes into view empty.
        privates = whole ? u"\"Your invoiceis ready.\""_s : u"\"\""_s;
    } else if (!in) {
        window = whole ? u"Invalid Login - Try Again"_s : u"No Reply - Select Login to Try Again"_s;
    }
    const bool parameters = row.step == Step::Parameters;
    return {
        Line("window", window),
        Line("can log in", in ? u"no"_s : u"yes"_s),
        Line("private", privates),
        Line("logged in", in ? u"yes"_s : u"no"_s),
        Line("message",
             row.step == Step::Message && whole ? u"The courts are closedon Monday."_s : QString()),
        Line("settings", (parameters && came.Tokens >= 2 ? u"300"_s : u"500"_s) + u'+'
                             + (parameters && came.Tokens >= 4 ? u"3"_s : u"1"_s)),
        Line("accounting", row.step == Step::Accounting && whole ? u"yes"_s : u"no"_s),
        Line("hourglass", u"no"_s),
        Line("log", logOf(came).join(u'+')),
    };
}

/// The login does not ask for it at present.
class CourtStatusRun : public ExchangeRun
{
public:
    bool Go() override
    {
        status = GetCourtStatus([](const QString &) {});
        over = true;
        return true;
    }
    bool IsOver() const override { return over; }
    QStringList Seen() const override { return {Line("status", status)}; }
    QStringList Expected(const Came &came) const override
    {
        return {Line("status", came.Tokens >= 2
                                   ? u"All courts are available."_s
                                   : u"Alert! Unable to Connect to Halvane at this time. Please "
                                     "try again later."_s)};
    }

private:
    QString status;
    bool over = false;
};

/// What is asked ahead of an exchange of the login, all of it answered by nothing.
QByteArrayList beforeOf(Step step)
{
    const auto before = std::max(0, static_cast<int>(step) - static_cast<int>(Step::Login));
    return QByteArrayList(before, "|EOF~|");
}
} // namespace

QList<Exchange> SessionExchanges()
{
    QList<Exchange> all;
    for (const SessionRow &row : table()) {
        all.append({.Name = QLatin1StringView(row.name),
                    .Request = row.request,
                    .Reply = ScriptedCourt::Tokens(row.reply),
                    .Before = beforeOf(row.step),
                    .NeededTokens = neededTokens(row),
                    .LimitSeconds = row.limitSeconds,
                    .Connects = true,
                    .Make = [&row](ExchangeDesk &desk) -> std::unique_ptr<ExchangeRun> {
                        return std::make_unique<LoginRun>(desk, row);
                    }});
    }
    all.append({.Name = u"court status"_s,
                .Request = u"COURT_STATUS¦"_s,
                .Reply = ScriptedCourt::Tokens({u"All courts are available."_s, endMark}),
                .NeededTokens = 2,
                .LimitSeconds = 10.0,
                .Make = [](ExchangeDesk &) -> std::unique_ptr<ExchangeRun> {
                    return std::make_unique<CourtStatusRun>();
                }});
    return all;
}
