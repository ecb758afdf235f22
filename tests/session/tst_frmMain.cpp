#include "Browser.h"
#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "link/ConnectState.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct Entry
{
    const char *name;
    QString caption;
    bool enabled;
};

struct Menu
{
    const char *name;
    QString caption;
    QList<Entry> entries;
};

/// The menus of a session that is not connected. An entry with nothing behind it yet is disabled.
const QList<Menu> &menus()
{
    static const QList<Menu> all{
        {"mnuFile",
         u"&File"_s,
         {{"mnuFileSave", u"&Save"_s, false},
          {"mnuFilePageSetup", u"Page Set&up..."_s, true},
          {"mnuFilePrint", u"&Print..."_s, false},
          {"mnuFileExit", u"E&xit"_s, true}}},
        {"mnuEdit",
         u"&Edit"_s,
         {{"mnuEditCut", u"Cu&t"_s, false},
          {"mnuEditCopy", u"&Copy"_s, false},
          {"mnuEditPaste", u"&Paste"_s, false}}},
        {"mnuView",
         u"&View"_s,
         {{"mnuViewToolbar", u"&Toolbar"_s, true},
          {"mnuViewStatusBar", u"Status &Bar"_s, true},
          {"mnuViewOptions", u"&Options and Preferences .."_s, true}}},
        {"mnuCourts", u"&Courts"_s, {}},
        {"mnuIdaho",
         u"&Idaho"_s,
         {{"mnuIdahoSupremeCourt", u"Idaho State District Courts"_s, true}}},
        {"mnuOregon",
         u"&Oregon"_s,
         {{"mnuOrCourts", u"Oregon State Circuit / District Courts"_s, true}}},
        {"mnuWashington",
         u"&Washington"_s,
         {{"mnuCourtsWaSuperior", u"Washington State &Superior Court"_s, true},
          {"mnuCourtsWaDiscis", u"Washington State District / Municipal Courts"_s, true}}},
        {"mnuFederal",
         u"&U.S. Courts"_s,
         {{"mnuFedBK", u"Federal Bankruptcy Court"_s, true},
          {"mnuFedDist", u"Federal District Courts"_s, false}}},
        {"mnuConnection",
         u"Con&nection"_s,
         {{"mnuConnnectionConnect", u"&Connect"_s, true},
          {"mnuConnectionDisConnect", u"&Disconnect"_s, false},
          {"mnuConnectionStatus", u"Current Connection &Status"_s, true}}},
        {"mnuSearch",
         u"&Search"_s,
         {{"mnuStartSearch", u"Create Search"_s, true},
          {"mnuSearchWaiting", u"&Waiting .."_s, true},
          {"mnuSearchHistory", u"&History .."_s, true},
          {"mnuSearchUsage", u"&Usage by Client Code .."_s, true}}},
        {"mnuMsgs", u"&Messages"_s, {{"mnuCheckMsgs", u"View Messages from Halvane"_s, true}}},
        {"mnuWindow",
         u"&Window"_s,
         {{"mnuWindowCascade", u"&Cascade"_s, false},
          {"mnuWindowTile", u"&Tile"_s, false},
          {"mnuWindowNext", u"&Next"_s, false},
          {"mnuWindowPrevious", u"&Previous"_s, false},
          {"mnuWindowClose", u"C&lose"_s, false},
          {"mnuWindowCloseAll", u"Close &All"_s, false}}},
        {"mnuHelp",
         u"&Help"_s,
         {{"mnuHelpOnline", u"Help"_s, true},
          {"mnuCourtDates", u"Court Coverage (Dates Available to Search) "_s, true},
          {"mnuHelpAbout", u"&About "_s, true}}},
    };
    return all;
}

QStringList names(const QList<QAction *> &actions)
{
    QStringList all;
    for (const QAction *action : actions) {
        if (!action->isSeparator())
            all.append(action->menu() ? action->menu()->objectName() : action->objectName());
    }
    return all;
}
} // namespace

class tst_frmMain : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void menuEntries_data();
    void menuEntries();
    void menuBarInOrder();
    void toolBarButtons_data();
    void toolBarButtons();
    void captionAndTips();

    void statusBarAtStart();
    void statusBarPanels();
    void noticeStaysInTheStatusBar();

    void connectionDisplay_data();
    void connectionDisplay();
    void displayWithoutTheLampsPictures();
    void lostLink_data();
    void lostLink();
    void timerLeavesAGoodLinkAlone();
    void connectedWithoutALinkIsNotBelieved();
    void timersAtStart();
    void activationShowsTheConnectionAndTheChildren();
    void maximisedOnFirstActivationOnly();

    void viewToolbarToggles();
    void viewStatusBarToggles();
    void createSearchWantsTheSearchForm_data();
    void createSearchWantsTheSearchForm();
    void theChosenCourtIsTheOnlyOneChecked_data();
    void theChosenCourtIsTheOnlyOneChecked();
    void supportPage_data();
    void supportPage();
    void pageSetupIsWanted();
    void aboutIsWanted();
    void templateTexts_data();
    void templateTexts();
    void forwardDoesNothing();
    void noMessages_data();
    void noMessages();
    void privateMessagesAreShown();

private:
    QString panel(int number) const
    {
        return Child<QLabel>(main, qPrintable(u"sbStatusBar_%1"_s.arg(number)))->text();
    }

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_frmMain::init()
{
    session = std::make_unique<SessionFixture>();
    FakeSocket::Install();
    main = session->ShowMain();
}

void tst_frmMain::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmMain::menuEntries_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("enabled");
    for (const Menu &menu : menus()) {
        for (const Entry &entry : menu.entries)
            QTest::newRow(entry.name)
                << QString::fromLatin1(menu.name) << QString::fromLatin1(entry.name)
                << entry.caption << entry.enabled;
    }
}

void tst_frmMain::menuEntries()
{
    QFETCH(QString, menu);
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(bool, enabled);
    const auto *action = main->findChild<QAction *>(name);
    QVERIFY(action);
    QCOMPARE(action->text(), caption);
    QCOMPARE(action->isEnabled(), enabled);
    QVERIFY(names(main->findChild<QMenu *>(menu)->actions()).contains(name));
}

void tst_frmMain::menuBarInOrder()
{
    QCOMPARE(
        names(main->menuBar()->actions()),
        (QStringList{u"mnuFile"_s, u"mnuEdit"_s, u"mnuView"_s, u"mnuCourts"_s, u"mnuConnection"_s,
                     u"mnuSearch"_s, u"mnuMsgs"_s, u"mnuWindow"_s, u"mnuHelp"_s}));
    QCOMPARE(names(Child<QMenu>(main, "mnuCourts")->actions()),
             (QStringList{u"mnuIdaho"_s, u"mnuOregon"_s, u"mnuWashington"_s, u"mnuFederal"_s}));
    for (const Menu &menu : menus()) {
        const auto *widget = Child<QMenu>(main, menu.name);
        QVERIFY2(widget, menu.name);
        QCOMPARE(widget->title(), menu.caption);
        QStringList expected;
        for (const Entry &entry : menu.entries)
            expected.append(QString::fromLatin1(entry.name));
        if (!expected.isEmpty())
            QCOMPARE(names(widget->actions()), expected);
    }
}

void tst_frmMain::toolBarButtons_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("enabled");
    // Without a child or a field there is nothing to be saved, edited or gone back to.
    for (const char *key : {"Save", "Cut", "Copy", "Paste", "Print", "Back", "Forward"})
        QTest::newRow(key) << QString::fromLatin1(key) << false;
    for (const char *key : {"Search", "Delete", "Help"})
        QTest::newRow(key) << QString::fromLatin1(key) << true;
}

void tst_frmMain::toolBarButtons()
{
    QFETCH(QString, key);
    QFETCH(bool, enabled);
    const auto *action = main->findChild<QAction *>(u"tbToolBar_"_s + key);
    QVERIFY(action);
    QCOMPARE(action->text(), key);
    QCOMPARE(action->isEnabled(), enabled);
    QVERIFY(!action->icon().isNull());
    QVERIFY(Child<QToolBar>(main, "tbToolBar")
                ->widgetForAction(main->findChild<QAction *>(u"tbToolBar_"_s + key)));
}

void tst_frmMain::captionAndTips()
{
    QCOMPARE(main->windowTitle(), u"Halvane"_s);
    QCOMPARE(main->objectName(), u"frmMain"_s);
    QCOMPARE(Child<QToolBar>(main, "tbToolBar")->toolTip(),
             u"Select a Toolbar Icon to Continue .."_s);
    QCOMPARE(frmMain::Form(), main);
}

void tst_frmMain::statusBarAtStart()
{
    QCOMPARE(panel(1), u"Halvane Ready .."_s);
    QCOMPARE(panel(2), QString());
    QCOMPARE(panel(3), QString());
    QCOMPARE(panel(4), u"Not Connected"_s);
}

void tst_frmMain::statusBarPanels()
{
    for (int number = 1; number <= 4; ++number) {
        const QString text = u"<b>%1</b>"_s.arg(number);
        main->UpdateStatusBarText(number, text);
        QCOMPARE(panel(number), text);
        QCOMPARE(Child<QLabel>(main, qPrintable(u"sbStatusBar_%1"_s.arg(number)))->textFormat(),
                 Qt::PlainText);
    }
    main->UpdateStatusBarText(0, u"nowhere"_s);
    main->UpdateStatusBarText(5, u"nowhere"_s);
    for (int number = 1; number <= 4; ++number)
        QCOMPARE(panel(number), u"<b>%1</b>"_s.arg(number));
}

void tst_frmMain::noticeStaysInTheStatusBar()
{
    const auto *notice = Child<QLabel>(main, "lblNotice");
    QVERIFY(!notice->isVisible());
    main->SetNotice(u"Practice court"_s);
    QVERIFY(notice->isVisible());
    QCOMPARE(notice->text(), u"Practice court"_s);
    main->SetNotice(QString());
    QVERIFY(!notice->isVisible());
}

void tst_frmMain::connectionDisplay_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("lamp");
    QTest::addColumn<QString>("panelText");
    QTest::newRow("connected") << true << u"greenlt.bmp"_s << u"Connected"_s;
    QTest::newRow("not connected") << false << u"redlt.bmp"_s << u"Not Connected"_s;
}

void tst_frmMain::connectionDisplay()
{
    QFETCH(bool, connected);
    QFETCH(QString, lamp);
    QFETCH(QString, panelText);
    session->BeLoggedIn();
    main->UpdateStatusBarText(1, u"something else"_s);
    main->SetTxtConnectStatus(connected ? u"again"_s : u"Connected"_s);
    main->SetTxtConnectStatus(connected ? u"Connected"_s : u"NOT CONNECTED"_s);
    const QImage picture(session->folder.Path(lamp));
    QVERIFY(!picture.isNull());
    QCOMPARE(LampOf(main), picture.convertToFormat(QImage::Format_RGB32));
    // Around the lamp is the window, whatever its colour.
    const QImage shown = Child<QLabel>(main, "lamp")->pixmap().toImage();
    QCOMPARE(shown.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(shown.pixelColor(shown.rect().center()).alpha(), 255);
    QCOMPARE(panel(4), panelText);
    QCOMPARE(panel(1), u"Halvane Ready .."_s);
    const auto *connectEntry = Child<QAction>(main, "mnuConnnectionConnect");
    const auto *disconnectEntry = Child<QAction>(main, "mnuConnectionDisConnect");
    QCOMPARE(connectEntry->isChecked(), connected);
    QCOMPARE(connectEntry->isEnabled(), !connected);
    QCOMPARE(disconnectEntry->isChecked(), false);
    QCOMPARE(disconnectEntry->isEnabled(), connected);
}

void tst_frmMain::displayWithoutTheLampsPictures()
{
    session->folder.Remove(u"greenlt.bmp"_s);
    session->BeLoggedIn();
    QCOMPARE(panel(4), u"Connected"_s);
    QVERIFY(Child<QLabel>(main, "lamp")->pixmap().isNull());
}

void tst_frmMain::lostLink_data()
{
    QTest::addColumn<bool>("closed");
    QTest::addColumn<int>("connectState");
    QTest::newRow("closed by the server") << true << int(ConnectDone);
    QTest::newRow("idle") << false << int(ConnectIdle);
    QTest::newRow("connecting") << false << int(ConnectUnderWay);
    QTest::newRow("refused") << false << int(ConnectRefused);
}

void tst_frmMain::lostLink()
{
    QFETCH(bool, closed);
    QFETCH(int, connectState);
    session->BeLoggedIn();
    QCOMPARE(panel(4), u"Connected"_s);
    Global.bLoginBusy = true;
    Global.bGettingParams = true;
    Global.bGettingMessages = true;
    Global.bSearchInProgress = true;
    Global.bConnectionClosed = closed;
    Global.intConnectState = connectState;
    main->tmrConnectStatus->setInterval(1);
    QTRY_COMPARE(panel(4), u"Not Connected"_s);
    QCOMPARE(main->txtConnectStatus(), u"NOT CONNECTED"_s);
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(Global.bGettingParams, false);
    QCOMPARE(Global.bGettingMessages, false);
    QCOMPARE(Global.bSearchInProgress, true);
    QCOMPARE(session->boxes.Answered(), 0);
}

void tst_frmMain::timerLeavesAGoodLinkAlone()
{
    session->BeLoggedIn();
    Global.bLoginBusy = true;
    QSignalSpy ticks(main->tmrConnectStatus, &QTimer::timeout);
    main->tmrConnectStatus->setInterval(1);
    QTRY_VERIFY(ticks.count() >= 3);
    QCOMPARE(panel(4), u"Connected"_s);
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Global.bLoginBusy, true);
}

void tst_frmMain::connectedWithoutALinkIsNotBelieved()
{
    Global.bLoggedIn = true;
    main->SetTxtConnectStatus(u"Connected"_s);
    QCOMPARE(main->txtConnectStatus(), u"NOT CONNECTED"_s);
    QCOMPARE(panel(4), u"Not Connected"_s);
    QCOMPARE(Global.bLoggedIn, false);
}

void tst_frmMain::timersAtStart()
{
    QVERIFY(main->tmrConnectStatus->isActive());
    QCOMPARE(main->tmrConnectStatus->interval(), 15000);
    QVERIFY(!main->TimerExit->isActive());
    QCOMPARE(main->TimerExit->interval(), 700);
}

void tst_frmMain::activationShowsTheConnectionAndTheChildren()
{
    main->lstActiveWindows = QStringList{u"gone"_s};
    session->BeLoggedIn();
    main->UpdateStatusBarText(4, u"wrong"_s);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(main, &activation);
    QCOMPARE(main->lstActiveWindows, QStringList());
    QCOMPARE(panel(4), u"Connected"_s);
}

void tst_frmMain::maximisedOnFirstActivationOnly()
{
    QVERIFY(main->isMaximized());
    main->showNormal();
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(main, &activation);
    QVERIFY(!main->isMaximized());
}

void tst_frmMain::viewToolbarToggles()
{
    const auto *bar = Child<QToolBar>(main, "tbToolBar");
    const auto *entry = Child<QAction>(main, "mnuViewToolbar");
    QVERIFY(entry->isChecked() && bar->isVisible());
    Choose(main, "mnuViewToolbar");
    QVERIFY(!entry->isChecked() && !bar->isVisible());
    Choose(main, "mnuViewToolbar");
    QVERIFY(entry->isChecked() && bar->isVisible());
}

void tst_frmMain::viewStatusBarToggles()
{
    const auto *bar = Child<QStatusBar>(main, "sbStatusBar");
    const auto *entry = Child<QAction>(main, "mnuViewStatusBar");
    QVERIFY(entry->isChecked() && bar->isVisible());
    Choose(main, "mnuViewStatusBar");
    QVERIFY(!entry->isChecked() && !bar->isVisible());
    Choose(main, "mnuViewStatusBar");
    QVERIFY(entry->isChecked() && bar->isVisible());
}

void tst_frmMain::createSearchWantsTheSearchForm_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::newRow("menu") << QByteArray("mnuStartSearch");
    QTest::newRow("tool bar") << QByteArray("tbToolBar_Search");
}

void tst_frmMain::createSearchWantsTheSearchForm()
{
    QFETCH(QByteArray, action);
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SearchWithStateWanted);
    Choose(main, action.constData());
    QCOMPARE(wanted.count(), 1);
}

void tst_frmMain::theChosenCourtIsTheOnlyOneChecked_data()
{
    QTest::addColumn<QByteArray>("chosen");
    QTest::addColumn<CourtEntry>("court");
    QTest::newRow("superior") << QByteArray("mnuCourtsWaSuperior") << CourtEntry::WaSuperior;
    QTest::newRow("district") << QByteArray("mnuCourtsWaDiscis") << CourtEntry::WaDiscis;
    QTest::newRow("oregon") << QByteArray("mnuOrCourts") << CourtEntry::Oregon;
    QTest::newRow("bankruptcy") << QByteArray("mnuFedBK") << CourtEntry::Bankruptcy;
    QTest::newRow("idaho") << QByteArray("mnuIdahoSupremeCourt") << CourtEntry::Idaho;
}

void tst_frmMain::theChosenCourtIsTheOnlyOneChecked()
{
    QFETCH(QByteArray, chosen);
    QFETCH(CourtEntry, court);
    QList<CourtEntry> wanted;
    connect(&SessionEvents::Of(), &SessionEvents::CourtWanted, main,
            [&wanted](CourtEntry entry) { wanted.append(entry); });
    const QList<QByteArray> entries{"mnuCourtsWaSuperior", "mnuCourtsWaDiscis", "mnuOrCourts",
                                    "mnuFedBK", "mnuIdahoSupremeCourt"};
    for (const QByteArray &entry : entries)
        Child<QAction>(main, entry.constData())->setChecked(true);
    for (int click = 0; click < 2; ++click) {
        Choose(main, chosen.constData());
        for (const QByteArray &entry : entries)
            QCOMPARE(Child<QAction>(main, entry.constData())->isChecked(), entry == chosen);
    }
    QCOMPARE(wanted, QList<CourtEntry>({court, court}));
}

void tst_frmMain::supportPage_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("help") << QByteArray("mnuHelpOnline");
    QTest::newRow("court dates") << QByteArray("mnuCourtDates");
}

void tst_frmMain::supportPage()
{
    QFETCH(QByteArray, entry);
    Browser browser;
    Choose(main, entry.constData());
    QCOMPARE(browser.opened.size(), 1);
    QCOMPARE(browser.opened.first().path(), u"/support.htm"_s);
}

void tst_frmMain::pageSetupIsWanted()
{
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::PageSetupWanted);
    Choose(main, "mnuFilePageSetup");
    QCOMPARE(wanted.count(), 1);
}

void tst_frmMain::aboutIsWanted()
{
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::AboutWanted);
    Choose(main, "mnuHelpAbout");
    QCOMPARE(wanted.count(), 1);
}

void tst_frmMain::templateTexts_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("text");
    QTest::newRow("Delete") << QByteArray("tbToolBar_Delete") << u"Add 'Delete' button code."_s;
    QTest::newRow("Help") << QByteArray("tbToolBar_Help") << u"Add 'Help' button code."_s;
}

void tst_frmMain::templateTexts()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, text);
    session->boxes.Expect(text, u"Halvane"_s);
    Choose(main, button.constData());
    QCOMPARE(session->boxes.Answered(), 1);
}

void tst_frmMain::forwardDoesNothing()
{
    Choose(main, "tbToolBar_Forward");
    QCOMPARE(session->boxes.Answered(), 0);
    QVERIFY(!main->ActiveChild());
}

void tst_frmMain::noMessages_data()
{
    QTest::addColumn<QString>("messages");
    QTest::newRow("empty") << QString();
    QTest::newRow("the words for none") << u"No messages found."_s;
}

void tst_frmMain::noMessages()
{
    QFETCH(QString, messages);
    Session.strPrivateMsgs = messages;
    session->boxes.Expect(u"No Messages Found."_s, u"Halvane - Private Messages"_s);
    Choose(main, "mnuCheckMsgs");
    QCOMPARE(session->boxes.Answered(), 1);
    QVERIFY(!main->findChild<QWidget *>(u"frmMsg"_s));
}

void tst_frmMain::privateMessagesAreShown()
{
    Session.strSystemMsg = u"to all"_s;
    Session.strPrivateMsgs = u"to <you>"_s;
    Choose(main, "mnuCheckMsgs");
    auto *window = main->findChild<QWidget *>(u"frmMsg"_s);
    QVERIFY(window && window->isVisible());
    QCOMPARE(Child<QPlainTextEdit>(window, "Text1")->toPlainText(), u"to <you>"_s);
    Click(window, "Command1");
}

HALVANE_TEST(tst_frmMain)
#include "tst_frmMain.moc"
