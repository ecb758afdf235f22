#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "core/Options.h"
#include "link/frmWinsock.h"
#include "session/SessionEvents.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/ScriptedCourt.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
/// The replies of a login, in the order of its requests.
const QByteArrayList &replies()
{
    static const QByteArrayList all{"|EOF~|", "|Searching=SearchTimeout=3||EOS~||EOF~|",
                                    "|Hello||EOF~|", "|TRUE~||EOF~|"};
    return all;
}

/// How many bytes of each reply the exchange needs to come to its end.
constexpr std::array<qsizetype, 4> needed{6, 41, 13, 7};

QString requestText(qsizetype number)
{
    static const QStringList all{u"LOGON¦User¦Pass¦AppVer-9.00¦"_s, u"GETINIVAL¦"_s, u"GETMSG¦"_s,
                                 u"GETCLIENTACCTGOPT~"_s};
    return all[number];
}

void addSteps()
{
    QTest::addColumn<int>("step");
    QTest::newRow("login") << 0;
    QTest::newRow("parameters") << 1;
    QTest::newRow("messages") << 2;
    QTest::newRow("accounting option") << 3;
}

/// True when nothing is left over in the buffer: silence then runs into its limit.
bool endsBetweenTokens(const QByteArray &bytes)
{
    return bytes.count('|') % 2 == 0;
}

const QString timedOutText = u"A Login Error was Encountered! Error Response: Timed Out Waiting "
                             "For Response from Server."_s;
const QString droppedText =
    u"A Login Error was Encountered! Error Response: Halvane Server Connection was Dropped!"_s;
const QString errorTitle = u"Login Error .."_s;
} // namespace

class tst_frmLoginFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QString()); }

    void cancelBeforeTheConnect();
    void cancelDuringTheConnect();
    void titleBarDuringTheConnect();
    void cancelWhileMessagesAreFetched();
    void cancelWhileTheServerThinks_data() { addSteps(); }
    void cancelWhileTheServerThinks();
    void cancelTurnsTheLampRed();
    void aWindowReopenedInsideTheOldOnesWaitWorks_data() { addSteps(); }
    void aWindowReopenedInsideTheOldOnesWaitWorks();
    void escapeKeyWhileTheServerThinks();
    void titleBarWhileTheServerThinks_data() { addSteps(); }
    void titleBarWhileTheServerThinks();
    void titleBarBehindABoxOfRefusal();

    void droppedAtEveryByte_data() { addSteps(); }
    void droppedAtEveryByte();
    void droppedAndThenRefusedAtEveryByte_data() { addSteps(); }
    void droppedAndThenRefusedAtEveryByte();
    void silentAtEveryByte_data() { addSteps(); }
    void silentAtEveryByte();
    void linkThatTheTimerFindsLostDuringTheLogin();
    void overlongTimeOutSettingDoesNoHarmWhenTheLinkIsLost();

private:
    void begin()
    {
        session = std::make_unique<SessionFixture>();
        session->ShowMain(false);
        FakeCourt::Install();
    }
    QString end()
    {
        QString complaints = session->boxes.Complaints();
        session.reset();
        if (QApplication::overrideCursor())
            complaints += u" the hourglass stays"_s;
        return complaints;
    }
    FakeCourt &court() { return FakeCourt::Current(); }
    static FakeSocket *socket() { return static_cast<FakeSocket *>(Global.sckServer); }

    frmLogin *ready()
    {
        frmLogin *login = session->OpenLoginToTheEnd();
        if (login) {
            TypeInto(login, "txtUsername", u"User"_s);
            TypeInto(login, "txtPassword", u"Pass"_s);
        }
        return login;
    }

    /// Replies up to `step`, whose reply is `last`; then nothing more.
    void reply(qsizetype step, const QByteArray &last)
    {
        court().replies = replies().mid(0, step) + QByteArrayList{last};
        court().requests.clear();
    }

    /// A new window, a working server: "" when the login succeeds.
    QString laterLogin()
    {
        session->Main()->tmrConnectStatus->setInterval(1);
        if (!WaitUntil([] { return !Global.bLoggedIn; }))
            return u"the lost link is not noticed"_s;
        court() = FakeCourt();
        if (frmLogin *left = session->OpenLogin())
            Click(left, "cmdCancel");
        court().replies = replies();
        frmLogin *login = ready();
        if (!login)
            return u"the server is not reached"_s;
        Click(login, "cmdLogin");
        return Global.bLoggedIn ? QString() : u"the login fails"_s;
    }

    std::unique_ptr<SessionFixture> session;
};

void tst_frmLoginFaults::cancelBeforeTheConnect()
{
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SearchFormWanted);
    const QPointer<frmLogin> login(session->OpenLogin());
    Click(login, "cmdCancel");
    QVERIFY(!frmLogin::IsLoaded());
    QVERIFY(!frmWinsock::IsLoaded());
    QTRY_VERIFY(!login);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(court().connectedTo, QStringList());
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::cancelDuringTheConnect()
{
    court().connects = false;
    const QPointer<frmLogin> login(session->OpenLogin());
    QTimer::singleShot(5, this, [&] { Click(login, "cmdCancel"); });
    QTRY_VERIFY(!login);
    QCOMPARE(court().connectedTo.size(), 1);
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::titleBarDuringTheConnect()
{
    court().connects = false;
    const QPointer<frmLogin> login(session->OpenLogin());
    QTimer::singleShot(5, this, [&] {
        login->close();
        session->clock.Run(1.0);
    });
    QTRY_VERIFY(!login);
    session->clock.Stop();
    QCOMPARE(court().connectedTo.size(), 1);
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::cancelWhileMessagesAreFetched()
{
    SaveOptionStr(u"Security"_s, u"RememberPwd"_s, u"1"_s);
    SaveOptionStr(u"Security"_s, u"UserName"_s, EncodeCredential(u"User"_s));
    SaveOptionStr(u"Security"_s, u"UserPwd"_s, EncodeCredential(u"Pass"_s));
    const QPointer<frmLogin> login(session->OpenLogin());
    court().onRequest = [&] { QTimer::singleShot(3, this, [&] { Click(login, "cmdCancel"); }); };
    QTRY_VERIFY(!login);
    QCOMPARE(court().requests.size(), 1);
    QCOMPARE(Global.bCheckingServer, false);
    SaveOptionStr(u"Security"_s, u"RememberPwd"_s, u"0"_s);
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::cancelWhileTheServerThinks()
{
    QFETCH(int, step);
    const QByteArray before = session->folder.Read(u"options.ini"_s);
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SearchFormWanted);
    const QPointer<frmLogin> login(ready());
    reply(step, {});
    court().onRequest = [&] {
        if (court().requests.size() == step + 1)
            QTimer::singleShot(2, this, [&] { Click(login, "cmdCancel"); });
    };
    Click(login, "cmdLogin");
    QCOMPARE(court().requests.size(), step + 1);
    QVERIFY(!frmLogin::IsLoaded());
    QVERIFY(!frmWinsock::IsLoaded());
    QTRY_VERIFY(!login);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(Global.bGettingParams, false);
    QCOMPARE(Global.bGettingMessages, false);
    if (step == 0)
        QCOMPARE(session->folder.Read(u"options.ini"_s), before);
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::cancelTurnsTheLampRed()
{
    const QPointer<frmLogin> login(ready());
    reply(1, {});
    QString during;
    court().onRequest = [&] {
        if (court().requests.size() != 2)
            return;
        during = session->Main()->txtConnectStatus();
        QTimer::singleShot(2, this, [&] { Click(login, "cmdCancel"); });
    };
    Click(login, "cmdLogin");
    QCOMPARE(during, u"Connected"_s);
    QCOMPARE(session->Main()->txtConnectStatus(), u"NOT CONNECTED"_s);
    QCOMPARE(LampOf(session->Main()),
             QImage(session->folder.Path(u"redlt.bmp"_s)).convertToFormat(QImage::Format_RGB32));
    QVERIFY(Child<QAction>(session->Main(), "mnuConnnectionConnect")->isEnabled());
    QVERIFY(!Child<QAction>(session->Main(), "mnuConnectionDisConnect")->isEnabled());
}

void tst_frmLoginFaults::aWindowReopenedInsideTheOldOnesWaitWorks()
{
    QFETCH(int, step);
    const QPointer<frmLogin> old(ready());
    reply(step, {});
    QPointer<frmLogin> reopened;
    court().onRequest = [&] {
        if (court().requests.size() != step + 1)
            return;
        QTimer::singleShot(2, this, [&] {
            Click(old, "cmdCancel");
            reopened = session->OpenLogin();
        });
    };
    Click(old, "cmdLogin");
    court().onRequest = {};
    QVERIFY(reopened && reopened != old);
    QTRY_VERIFY(!old);
    QCOMPARE(SessionFixture::LoginWindow(), reopened);
    court().replies = replies();
    court().requests.clear();
    QTRY_VERIFY(Child<QPushButton>(reopened, "cmdLogin")->isEnabled());
    TypeInto(reopened, "txtUsername", u"User"_s);
    TypeInto(reopened, "txtPassword", u"Pass"_s);
    Click(reopened, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(court().requests.size(), 4);
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(session->Main()->txtConnectStatus(), u"Connected"_s);
}

void tst_frmLoginFaults::escapeKeyWhileTheServerThinks()
{
    const QPointer<frmLogin> login(ready());
    reply(0, {});
    court().onRequest = [&] {
        QTimer::singleShot(2, this, [&] {
            QTest::keyClick(Child<QLineEdit>(login, "txtPassword"), Qt::Key_Escape);
        });
    };
    Click(login, "cmdLogin");
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(Global.bLoggedIn, false);
}

void tst_frmLoginFaults::titleBarWhileTheServerThinks()
{
    QFETCH(int, step);
    const QPointer<frmLogin> login(ready());
    court().replies = replies();
    court().onRequest = [&] {
        if (court().requests.size() == step + 1)
            login->close();
    };
    Click(login, "cmdLogin");
    QVERIFY(!frmLogin::IsLoaded());
    QTRY_VERIFY(!login);
    // Closed before the server had accepted, there is no login; closed after that, it goes on.
    QCOMPARE(Global.bLoggedIn, step > 0);
    QCOMPARE(court().requests.size(), step > 0 ? 4 : 1);
    QCOMPARE(Global.bLoginBusy, false);
    if (step > 0)
        session->Main()->Logout();
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::titleBarBehindABoxOfRefusal()
{
    const QPointer<frmLogin> login(ready());
    reply(0, "|ERROR~||EOF~|");
    session->boxes.Meanwhile([&] { login->close(); });
    session->boxes.Expect(
        u"Either the User Name and/or Password you entered is Invalid!\r\n\r\nPlease Re-Enter "
        "Your User Name and Password and then select Login."_s,
        u"Invalid User Name or Password .."_s, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    QTRY_VERIFY(!login);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(laterLogin(), QString());
}

void tst_frmLoginFaults::droppedAtEveryByte()
{
    QFETCH(int, step);
    frmWinsock::SetSocketFactory({});
    for (qsizetype cut = 0; cut < needed[static_cast<size_t>(step)]; ++cut) {
        TestFolder::ResetProgram();
        session->Main()->tmrConnectStatus->setInterval(15000);
        ScriptedCourt real;
        real.PointSettingsHere();
        Global.lngServerPort = real.Port();
        for (qsizetype i = 0; i < step; ++i)
            real.Expect(requestText(i)).ReplyBytes(replies()[i]);
        real.Expect(requestText(step)).ReplyBytes(replies()[step].left(cut)).Drop();
        const frmLogin *login = ready();
        QVERIFY(login);
        if (step == 0)
            session->boxes.Expect(timedOutText, errorTitle, MsgIcon::Exclamation);
        Click(login, "cmdLogin");
        QCOMPARE(Global.bLoginBusy, false);
        QCOMPARE(Global.bLoggedIn, step > 0);
        if (step == 0) {
            QVERIFY(login->isVisible() && Child<QPushButton>(login, "cmdLogin")->isEnabled());
            session->boxes.Expect(droppedText, errorTitle, MsgIcon::Exclamation);
            Click(login, "cmdLogin");
            Click(login, "cmdCancel");
        } else {
            QVERIFY(!frmLogin::IsLoaded());
            session->Main()->tmrConnectStatus->setInterval(1);
            QVERIFY(WaitUntil([] { return !Global.bLoggedIn; }));
            QCOMPARE(session->Main()->txtConnectStatus(), u"NOT CONNECTED"_s);
            Click(session->OpenLogin(), "cmdCancel");
        }
        for (qsizetype i = 0; i < 4; ++i)
            real.Expect(requestText(i)).ReplyBytes(replies()[i]);
        login = ready();
        QVERIFY(login);
        Click(login, "cmdLogin");
        QCOMPARE(real.Complaints(), QString());
        QCOMPARE(Global.bLoggedIn, true);
    }
}

void tst_frmLoginFaults::droppedAndThenRefusedAtEveryByte()
{
    QFETCH(int, step);
    for (qsizetype cut = 0; cut < needed[static_cast<size_t>(step)]; ++cut) {
        QCOMPARE(end(), QString());
        begin();
        frmLogin *login = ready();
        reply(step, replies()[step].left(cut));
        court().dropsBehind = step;
        if (step == 0)
            session->boxes.Expect(timedOutText, errorTitle, MsgIcon::Exclamation);
        Click(login, "cmdLogin");
        QCOMPARE(Global.bLoggedIn, step > 0);
        if (login == SessionFixture::LoginWindow())
            Click(login, "cmdCancel");
        session->Main()->Logout();

        court() = FakeCourt();
        court().refuses = true;
        session->boxes.Expect(u"Cannot Connect to Halvane Server at this time."_s,
                              u"Contacting Halvane Server .."_s, MsgIcon::Exclamation);
        login = session->OpenLogin();
        QVERIFY(WaitUntil([] {
            return FakeCourt::Current().connectedTo.size() == 10 && !QApplication::overrideCursor();
        }));
        QVERIFY(!Child<QPushButton>(login, "cmdLogin")->isEnabled());
        Click(login, "cmdCancel");
        QCOMPARE(laterLogin(), QString());
    }
}

void tst_frmLoginFaults::silentAtEveryByte()
{
    QFETCH(int, step);
    for (qsizetype cut = 0; cut < needed[static_cast<size_t>(step)]; ++cut) {
        QCOMPARE(end(), QString());
        begin();
        const QPointer<frmLogin> login(ready());
        const QByteArray come = replies()[step].left(cut);
        reply(step, come);
        if (endsBetweenTokens(come)) {
            if (step == 0)
                session->boxes.Expect(timedOutText, errorTitle, MsgIcon::Exclamation);
            session->clock.Run(1.0);
            Click(login, "cmdLogin");
            session->clock.Stop();
            QCOMPARE(Global.bLoggedIn, step > 0);
            QCOMPARE(frmLogin::IsLoaded(), step == 0);
            QCOMPARE(Global.bLoginBusy, false);
        } else {
            // Part of a token keeps the wait alive: only the user, or the link, ends it.
            const QDateTime begin = session->clock.Now();
            bool stillWaiting = false;
            QTimer watch;
            connect(&watch, &QTimer::timeout, this, [&] {
                if (begin.secsTo(session->clock.Now()) < 60)
                    return;
                watch.stop();
                stillWaiting = Global.bLoginBusy && login && !login->IsUnloaded();
                Click(login, "cmdCancel");
            });
            watch.start(1);
            session->clock.Run(5.0);
            Click(login, "cmdLogin");
            session->clock.Stop();
            QVERIFY(stillWaiting);
            QCOMPARE(Global.bLoggedIn, false);
        }
        if (Global.bLoggedIn)
            session->Main()->Logout();
        QCOMPARE(laterLogin(), QString());
    }
}

void tst_frmLoginFaults::linkThatTheTimerFindsLostDuringTheLogin()
{
    const frmLogin *login = ready();
    reply(1, "|Searching");
    session->Main()->tmrConnectStatus->setInterval(1);
    court().onRequest = [&] {
        if (court().requests.size() == 2)
            QTimer::singleShot(3, socket(), [] { socket()->PeerCloses(); });
    };
    Click(login, "cmdLogin");
    QVERIFY(!frmLogin::IsLoaded());
    QTRY_VERIFY(!Global.bLoggedIn);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(session->Main()->txtConnectStatus(), u"NOT CONNECTED"_s);
    QVERIFY(session->folder.Logged(
        u"Server Timeout - No Response From Server during GETCLIENTACCTGOPT retrieval!!"_s));
}

void tst_frmLoginFaults::overlongTimeOutSettingDoesNoHarmWhenTheLinkIsLost()
{
    // The lost link clears the flag that gave the accounting option its own limit; the setting that
    // takes its place does not fit 16 bits as seconds.
    Global.intSearchTimeout = 600;
    const frmLogin *login = ready();
    reply(2, "|Hello|");
    court().onRequest = [&] {
        if (court().requests.size() == 3)
            QTimer::singleShot(1, socket(), [this] {
                socket()->PeerCloses();
                Q_EMIT session->Main()->tmrConnectStatus->timeout({});
            });
    };
    Click(login, "cmdLogin");
    QVERIFY(!frmLogin::IsLoaded());
    QVERIFY(session->folder.Logged(u"Error While Retrieving the Client Accounting Option"_s));
}

HALVANE_TEST(tst_frmLoginFaults)
#include "tst_frmLoginFaults.moc"
