#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "core/Version.h"
#include "core/VersionText.h"
#include "prefs/frmAbout.h"
#include "prefs/frmInfo.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmConnect.h"
#include "session/frmConnectionStatus.h"
#include "session/frmElapsedTime.h"
#include "session/frmMsg.h"
#include "support/HalvaneTest.h"

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;

class tst_SmallWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { session = std::make_unique<SessionFixture>(); }
    void cleanup();

    void connectDialog();
    void connectDialogForgetsTheChoiceBefore();
    void connectChoice_data();
    void connectChoice();
    void connectionStatus_data();
    void connectionStatus();
    void connectionStatusAsksTheFlagAndNotTheSocket();
    void message();
    void messageIsReplaced();
    void messageClosesByItsButton();
    void thereIsOneWindowOfMessages();
    void elapsedTime_data();
    void elapsedTime();
    void elapsedTimeForgetsTheSessionTime_data();
    void elapsedTimeForgetsTheSessionTime();
    void about();
    void aboutCopiesWhatItRunsOn();
    void splashHidesItsButton();
    void fieldError();
    void infoKeepsItsDesignTexts();
    void showInfo_data();
    void showInfo();

private:
    static bool isCentred(const QWidget &window)
    {
        const QPoint off = QRect(window.pos(), window.size()).center()
                           - QGuiApplication::primaryScreen()->availableGeometry().center();
        return std::abs(off.x()) <= 1 && std::abs(off.y()) <= 1;
    }

    std::unique_ptr<SessionFixture> session;
};

void tst_SmallWindows::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_SmallWindows::connectDialog()
{
    const frmConnect dialog;
    QCOMPARE(dialog.windowTitle(), u"Connect to Halvane"_s);
    QCOMPARE(Child<QLabel>(&dialog, "Label1")->text(), u"Connect to Halvane"_s);
    QCOMPARE(Child<QPushButton>(&dialog, "cmdConnect")->text(), u"Connect"_s);
    QCOMPARE(Child<QPushButton>(&dialog, "cmdCancel")->text(), u"Work Offline"_s);
    QVERIFY(isCentred(dialog));
}

void tst_SmallWindows::connectDialogForgetsTheChoiceBefore()
{
    Global.bConnectChosen = true;
    const frmConnect dialog;
    QCOMPARE(Global.bConnectChosen, false);
}

void tst_SmallWindows::connectChoice_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("chosen");
    QTest::newRow("Connect") << QByteArray("cmdConnect") << 0 << true;
    QTest::newRow("Work Offline") << QByteArray("cmdCancel") << 0 << false;
    QTest::newRow("Enter") << QByteArray() << int(Qt::Key_Return) << true;
    QTest::newRow("Esc") << QByteArray() << int(Qt::Key_Escape) << false;
    QTest::newRow("title bar") << QByteArray() << 0 << false;
}

void tst_SmallWindows::connectChoice()
{
    QFETCH(QByteArray, button);
    QFETCH(int, key);
    QFETCH(bool, chosen);
    session->boxes.ExpectDialog(u"frmConnect"_s, [&](QDialog *dialog) {
        QVERIFY(dialog->isModal());
        if (!button.isEmpty())
            Click(dialog, button.constData());
        else if (key != 0)
            QTest::keyClick(dialog, static_cast<Qt::Key>(key));
        else
            dialog->close();
    });
    frmConnect::ShowModal(nullptr);
    QCOMPARE(Global.bConnectChosen, chosen);
}

void tst_SmallWindows::connectionStatus_data()
{
    QTest::addColumn<bool>("loggedIn");
    QTest::addColumn<QString>("text");
    QTest::newRow("logged in") << true << u"You are Connected to Halvane"_s;
    QTest::newRow("not logged in") << false << u"You are NOT Connected to Halvane"_s;
}

void tst_SmallWindows::connectionStatus()
{
    QFETCH(bool, loggedIn);
    QFETCH(QString, text);
    Global.bLoggedIn = loggedIn;
    frmConnectionStatus dialog;
    QCOMPARE(dialog.windowTitle(), u"Halvane Connecton Status"_s);
    QCOMPARE(Child<QLabel>(&dialog, "lblStatus")->text(), text);
    QVERIFY(isCentred(dialog));
    dialog.show();
    Click(&dialog, "Command1");
    QVERIFY(!dialog.isVisible());
}

void tst_SmallWindows::connectionStatusAsksTheFlagAndNotTheSocket()
{
    session->BeLoggedIn();
    Global.bLoggedIn = false;
    const frmConnectionStatus dialog;
    QCOMPARE(Child<QLabel>(&dialog, "lblStatus")->text(), u"You are NOT Connected to Halvane"_s);
}

void tst_SmallWindows::message()
{
    Session.strSystemMsg = u"<b>Closed</b> &amp; locked\non Monday"_s;
    const frmMsg window;
    QCOMPARE(window.windowTitle(), u"Halvane - Important Message(s). Please Read .."_s);
    QCOMPARE(Child<QGroupBox>(&window, "Frame1")->title(), u"Important Message - Please Read .."_s);
    QCOMPARE(Child<QPushButton>(&window, "Command1")->text(), u"&Close"_s);
    QCOMPARE(Child<QPlainTextEdit>(&window, "Text1")->toPlainText(), Session.strSystemMsg);
    QVERIFY(Child<QPlainTextEdit>(&window, "Text1")->isReadOnly());
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(!window.isModal());
}

void tst_SmallWindows::messageIsReplaced()
{
    Session.strSystemMsg = u"to all"_s;
    frmMsg window;
    window.SetText1(u"to you"_s);
    QCOMPARE(Child<QPlainTextEdit>(&window, "Text1")->toPlainText(), u"to you"_s);
}

void tst_SmallWindows::messageClosesByItsButton()
{
    const QPointer<frmMsg> window(new frmMsg);
    window->show();
    Click(window, "Command1");
    QTRY_VERIFY(!window);
}

void tst_SmallWindows::thereIsOneWindowOfMessages()
{
    Session.strSystemMsg = u"to all"_s;
    const QPointer<frmMsg> window(&frmMsg::ShowForm(nullptr));
    QVERIFY(window->isVisible());
    window->SetText1(u"to you"_s);
    Session.strSystemMsg = u"to all, later"_s;
    QCOMPARE(&frmMsg::ShowForm(nullptr), window.data());
    QCOMPARE(Child<QPlainTextEdit>(window, "Text1")->toPlainText(), u"to all, later"_s);
    // One that is being closed is not shown again.
    window->close();
    frmMsg &next = frmMsg::ShowForm(nullptr);
    QVERIFY(&next != window.data());
    QTRY_VERIFY(!window);
    QVERIFY(next.isVisible());
    next.close();
}

void tst_SmallWindows::elapsedTime_data()
{
    QTest::addColumn<QString>("sessionTime");
    QTest::newRow("a normal logout") << QString();
    QTest::newRow("lost connection") << u"Lost Connection"_s;
}

void tst_SmallWindows::elapsedTime()
{
    QFETCH(QString, sessionTime);
    Session.strSessionTime = sessionTime;
    const frmElapsedTime window;
    QCOMPARE(window.windowTitle(), u"Halvane - Session Status .."_s);
    QCOMPARE(Child<QGroupBox>(&window, "Frame1")->title(), u"Total Session Time:"_s);
    QCOMPARE(Child<QLabel>(&window, "lblElapsedTime")->text(), sessionTime);
    QCOMPARE(Child<QPushButton>(&window, "cmdPrint")->text(), u"Print"_s);
    QVERIFY(isCentred(window));
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SessionReportWanted);
    Click(&window, "cmdPrint");
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(Session.strSessionTime, sessionTime);
}

void tst_SmallWindows::elapsedTimeForgetsTheSessionTime_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Esc") << 1;
    QTest::newRow("title bar") << 2;
}

void tst_SmallWindows::elapsedTimeForgetsTheSessionTime()
{
    QFETCH(int, way);
    Session.strSessionTime = u"Lost Connection"_s;
    frmElapsedTime window;
    window.show();
    QCOMPARE(Session.strSessionTime, u"Lost Connection"_s);
    if (way == 0)
        Click(&window, "Command1");
    else if (way == 1)
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        window.close();
    QVERIFY(!window.isVisible());
    QCOMPARE(Session.strSessionTime, QString());
}

void tst_SmallWindows::about()
{
    frmAbout window;
    QCOMPARE(window.windowTitle(), u"Halvane"_s);
    QCOMPARE(Child<QLabel>(&window, "lblTitle")->text(), u"Halvane"_s);
    QCOMPARE(Child<QLabel>(&window, "lblVersion")->text(), u"Version "_s + ProgramVersion());
    window.show();
    QVERIFY(Child<QPushButton>(&window, "cmdOK")->isVisible());
    Click(&window, "cmdOK");
    QVERIFY(!window.isVisible());
}

void tst_SmallWindows::aboutCopiesWhatItRunsOn()
{
    frmAbout window;
    window.show();
    const QString shown = Child<QLabel>(&window, "lblDetails")->text();
    QCOMPARE(shown, VersionText(u"Halvane"_s));
    QVERIFY2(shown.contains(u"\nPlatform plugin: offscreen\n"_s), qPrintable(shown));
    QGuiApplication::clipboard()->setText(u"before"_s);
    Click(&window, "cmdCopy");
    QCOMPARE(QGuiApplication::clipboard()->text(), shown);
    QCOMPARE(Child<QPushButton>(&window, "cmdCopy")->text(), u"&Copied"_s);
    QVERIFY(window.isVisible());
}

void tst_SmallWindows::splashHidesItsButton()
{
    frmAbout window;
    window.ShowAsSplash();
    QVERIFY(window.isVisible());
    for (const char *name : {"cmdOK", "cmdCopy", "lblDetails"})
        QVERIFY2(!Child<QWidget>(&window, name)->isVisible(), name);
    QCOMPARE(window.size(), QSize(400, 190));
    QVERIFY(isCentred(window));
}

void tst_SmallWindows::fieldError()
{
    QStringList shown;
    session->boxes.ExpectDialog(u"frmInfo"_s, [&](QDialog *dialog) {
        QVERIFY(dialog->isModal());
        for (const char *label : {"Label2", "Label1_0", "Label1_1", "Label1_2"})
            shown.append(Child<QLabel>(dialog, label)->text());
        for (const char *frame : {"Frame1", "Frame2", "Frame3"})
            shown.append(Child<QGroupBox>(dialog, frame)->title());
        shown.append(dialog->windowTitle());
        Click(dialog, "Command1");
    });
    frmInfo::ShowFieldError(nullptr, u"<b>what</b>"_s, u"why"_s, u"action"_s);
    QCOMPARE(shown, (QStringList{u"An Error Occurred During Validation of Form Field Entries!"_s,
                                 u"<b>what</b>"_s, u"why"_s, u"action"_s, u"Error Description:"_s,
                                 u"Rule:"_s, u"Suggestion:"_s, u"User Notification"_s}));
}

void tst_SmallWindows::infoKeepsItsDesignTexts()
{
    frmInfo window;
    window.ShowInfo(u"a"_s, u"b"_s, u"c"_s, u"d"_s);
    QCOMPARE(Child<QLabel>(&window, "Label1_1")->text(), u"Rule Description Text Goes Here .."_s);
    QCOMPARE(Child<QLabel>(&window, "Label1_2")->text(), u"Suggestion Text Goes Here .."_s);
}

void tst_SmallWindows::showInfo_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("caption");
    QTest::newRow("the last one wins") << QStringList{u"a"_s, u"b"_s, u"c"_s, u" d "_s} << u"d"_s;
    QTest::newRow("an empty one is passed over")
        << QStringList{u"a"_s, u"b"_s, QString(), QString()} << u"b"_s;
    QTest::newRow("none") << QStringList{QString(), QString(), QString(), QString()}
                          << u"User Notification"_s;
}

void tst_SmallWindows::showInfo()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, caption);
    frmInfo window;
    window.ShowInfo(texts[0], texts[1], texts[2], texts[3]);
    QCOMPARE(window.windowTitle(), caption);
    QVERIFY(window.isVisible());
}

HALVANE_TEST(tst_SmallWindows)
#include "tst_SmallWindows.moc"
