#include "app/Startup.h"
#include "controls/LinkLabel.h"
#include "core/GlobalState.h"
#include "core/HelpTopic.h"
#include "core/Options.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "namesearch/SearchDesk.h"
#include "searchentry/frmSearchWA.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {
QWidget *shownWindow(const QString &name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    return nullptr;
}

/// The names of the program's windows on the screen, sorted.
QStringList shownWindows()
{
    QStringList names;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        if (widget->isVisible() && widget->objectName().startsWith(u"frm"))
            names.append(widget->objectName());
    }
    names.sort();
    return names;
}

/// Looks at the screen during each sleep.
class WatchingClock : public TestClock
{
public:
    void SleepMilliseconds(int milliseconds) override
    {
        windows.append(shownWindows());
        const QWidget *splash = shownWindow(u"frmAbout"_s);
        okHidden = splash && !ButtonOf(splash, "cmdOK")->isVisible();
        queueLoaded = frmQueue::IsLoaded();
        TestClock::SleepMilliseconds(milliseconds);
    }

    QList<QStringList> windows;
    bool okHidden = false;
    bool queueLoaded = true;
};
} // namespace

/// Writes down which window is raised or gets the keyboard.
class FrontWatcher : public QObject
{
public:
    FrontWatcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ZOrderChange && watched == frmMain::Form())
            Seen.append(u"main raised"_s);
        else if (event->type() == QEvent::WindowActivate && watched->isWidgetType()
                 && static_cast<QWidget *>(watched)->isWindow())
            Seen.append(watched->objectName() + u" active"_s);
        return false;
    }

    QStringList Seen;
};

class tst_Startup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void splashStandsForTwoSeconds();
    void withAlertsTheConnectQuestionComesFirst();
    void withoutAlertsTheLoginComesAtOnce();
    void workOfflineOpensNoSocket();
    void connectingOpensTheLogin();
    void theMainWindowComesForward();
    void theMainWindowDoesNotTakeTheKeyboardFromTheLogin();
    void theSearchFormComesWhenTheLoginCloses();
    void theSearchFormIsAwayWhileTheServerIsContacted();
    void startClearsWhatWasLeft();
    void startReadsTheSettings();
    void startLogsASeparatorLine();
    void defaultView_data();
    void defaultView();
    void practiceIsShownInTheStatusBar();
    void withoutOptionsIniItStartsToo();
    void whatAKilledProgramHasLeftIsTakenAway();
    void anIdleSessionIsWarned();
    void aSearchInAStateShowsTheFormInIt_data();
    void aSearchInAStateShowsTheFormInIt();
    void aboutOpens();
    void theHelpOfAResultsWindowOpens();
    void theHelpOfAStepOfTheFormOpensOnItsTopic();
    void aCourtsEntryShowsTheForm_data();
    void aCourtsEntryShowsTheForm();
    void aNewSearchShowsTheFormWithWhatIsEntered();
    void aNewSearchMovesNothingUnderTheLogin();
    void aNewSearchMovesNothingUnderAQuestion();

private:
    void offline();

    std::unique_ptr<SearchDesk> desk;
};

void tst_Startup::initTestCase()
{
    WireWindows();
}

void tst_Startup::init()
{
    desk = std::make_unique<SearchDesk>();
}

void tst_Startup::cleanup()
{
    QCOMPARE(EndDialogue(desk), QString());
}

void tst_Startup::offline()
{
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) {
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
    });
    Main(false);
}

void tst_Startup::splashStandsForTwoSeconds()
{
    WatchingClock watching;
    offline();
    QCOMPARE(watching.Sleeps(), QList<int>{2000});
    QCOMPARE(watching.windows, (QList<QStringList>{{u"frmAbout"_s, u"frmMain"_s}}));
    QVERIFY(watching.okHidden);
    QVERIFY(!watching.queueLoaded);
    QVERIFY(!shownWindow(u"frmAbout"_s));
}

void tst_Startup::withAlertsTheConnectQuestionComesFirst()
{
    QStringList shown;
    QStringList texts;
    QString viewBefore;
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [&](QDialog *dialog) {
        shown = shownWindows();
        viewBefore = Global.strDefaultView;
        texts = QStringList{dialog->windowTitle(), TextOf(dialog, "Label1"),
                            TextOf(dialog, "cmdConnect"), TextOf(dialog, "cmdCancel")};
        QVERIFY(frmQueue::IsLoaded());
        QVERIFY(!Global.bConnectChosen);
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
    });
    Main(false);
    QVERIFY(Global.bShowAlerts);
    QCOMPARE(shown, (QStringList{u"frmConnect"_s, u"frmMain"_s}));
    QCOMPARE(texts, (QStringList{u"Connect to Halvane"_s, u"Connect to Halvane"_s, u"Connect"_s,
                                 u"Work Offline"_s}));
    // The settings of the search are read after the question.
    QCOMPARE(viewBefore, QString());
    QCOMPARE(Global.strDefaultView, u"WA"_s);
}

void tst_Startup::withoutAlertsTheLoginComesAtOnce()
{
    FakeSocket::Install();
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    Main(false);
    QVERIFY(Global.bConnectChosen);
    QVERIFY(frmLogin::IsLoaded());
    QVERIFY(shownWindow(u"frmLogin"_s));
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_Startup::workOfflineOpensNoSocket()
{
    FakeSocket::Install();
    offline();
    Ticks(20);
    QVERIFY(!FakeSocket::Last());
    QVERIFY(!frmWinsock::IsLoaded());
    QVERIFY(!Global.bLoggedIn);
    QVERIFY(!Global.bConnectChosen);
    QVERIFY(!frmLogin::IsLoaded());
    QVERIFY(shownWindow(u"frmSearchWA"_s));
    QCOMPARE(frmMain::Form()->focusWidget()->objectName(), u"txtSearchName_0"_s);
    QCOMPARE(TextOf(frmMain::Form(), "sbStatusBar_4"), u"Not Connected"_s);
}

void tst_Startup::connectingOpensTheLogin()
{
    FakeSocket::Install();
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) {
        QTest::mouseClick(ButtonOf(dialog, "cmdConnect"), Qt::LeftButton);
    });
    Main(false);
    QVERIFY(Global.bConnectChosen);
    const QWidget *login = shownWindow(u"frmLogin"_s);
    QVERIFY(login);
    QVERIFY(login->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void tst_Startup::theMainWindowComesForward()
{
    QWidget other;
    other.setObjectName(u"other"_s);
    FrontWatcher watcher;
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [&](QDialog *dialog) {
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
        // Somebody else's window comes up meanwhile.
        other.show();
        other.raise();
        other.activateWindow();
        watcher.Seen.clear();
    });
    Main(false);
    QVERIFY(watcher.Seen.contains(u"main raised"_s));
    QTRY_COMPARE(QApplication::activeWindow(), frmMain::Form());
}

void tst_Startup::theMainWindowDoesNotTakeTheKeyboardFromTheLogin()
{
    FakeSocket::Install();
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    FrontWatcher watcher;
    Main(false);
    QVERIFY(watcher.Seen.contains(u"main raised"_s));
    QTRY_VERIFY(watcher.Seen.contains(u"frmLogin active"_s));
    QCoreApplication::processEvents();
    const qsizetype login = watcher.Seen.indexOf(u"frmLogin active"_s);
    QVERIFY2(!watcher.Seen.mid(login).contains(u"frmMain active"_s),
             qPrintable(watcher.Seen.join(u", "_s)));
    QCOMPARE(QApplication::activeWindow()->objectName(), u"frmLogin"_s);
}

void tst_Startup::theSearchFormComesWhenTheLoginCloses()
{
    FakeSocket::Install();
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    Main(false);
    QWidget *login = shownWindow(u"frmLogin"_s);
    QVERIFY(login);
    QTRY_VERIFY(!shownWindow(u"frmSearchWA"_s));
    QTest::mouseClick(ButtonOf(login, "cmdCancel"), Qt::LeftButton);
    QTRY_VERIFY(shownWindow(u"frmSearchWA"_s));
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(frmMain::Form()->focusWidget()->objectName(), u"txtSearchName_0"_s);
}

void tst_Startup::theSearchFormIsAwayWhileTheServerIsContacted()
{
    const ScriptedCourt court;
    court.PointSettingsHere();
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    Main(false);
    QTRY_VERIFY(ButtonOf(shownWindow(u"frmLogin"_s), "cmdLogin")->isEnabled());
    QVERIFY(!shownWindow(u"frmSearchWA"_s));
    QVERIFY(frmSearchWA::IsLoaded());
}

void tst_Startup::startClearsWhatWasLeft()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    Global.ClientAcctgCode = u"ABC"_s;
    Global.WaDisclaimerAccepted = true;
    offline();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(Global.ClientAcctgCode, QString());
    QVERIFY(!Global.WaDisclaimerAccepted);
}

void tst_Startup::startReadsTheSettings()
{
    SaveOptionStr(u"Searching"_s, u"MaxIndexResults"_s, u"300"_s);
    SaveOptionStr(u"Communications"_s, u"HVServerPort"_s, u"85"_s);
    SaveOptionStr(u"Searching"_s, u"SearchTimeout"_s, u"5"_s);
    offline();
    QCOMPARE(Global.CasesPerPage, qint16(300));
    QCOMPARE(Global.lngServerPort, 85);
    QCOMPARE(Global.intSearchTimeout, qint16(5));
}

void tst_Startup::startLogsASeparatorLine()
{
    offline();
    QCOMPARE(desk->Folder.Read(u"AppInfo.txt"_s).count(" --  \r\n\r\n"), 1);
}

void tst_Startup::defaultView_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("court");
    QTest::addColumn<int>("stateIndex");
    QTest::addColumn<int>("jurisdiction");
    QTest::newRow("Washington") << u"WA"_s << u"WA"_s << u"WASUP"_s << 1 << 0;
    QTest::newRow("unset") << u"0"_s << u"WA"_s << u"WASUP"_s << 1 << 0;
    QTest::newRow("unknown") << u"XX"_s << u"WA"_s << u"WASUP"_s << 1 << 0;
    QTest::newRow("lower case") << u"wa"_s << u"WA"_s << u"WASUP"_s << 1 << 0;
    QTest::newRow("Oregon") << u"OR"_s << u"OR"_s << u"OR"_s << 0 << 2;
    QTest::newRow("Idaho, beside Oregon's row") << u"ID"_s << u"ID"_s << u"IDSUP"_s << 3 << 2;
    QTest::newRow("federal") << u"FED"_s << u"FED"_s << u"FED"_s << 2 << 4;
}

void tst_Startup::defaultView()
{
    QFETCH(QString, view);
    SaveOptionStr(u"Searching"_s, u"DefaultView"_s, view);
    offline();
    const frmSearchWA &form = frmSearchWA::Form();
    QFETCH(int, stateIndex);
    QVERIFY(
        form.findChild<QRadioButton *>(u"optState_"_s + QString::number(stateIndex))->isChecked());
    QVERIFY(form.findChild<QRadioButton *>(u"optCourtSelection_0"_s)->isChecked());
    QTEST(form.findChild<QListWidget *>(u"lstJurisdictions"_s)->currentRow(), "jurisdiction");
    QTEST(Global.strSearchState, "state");
    QTEST(frmSearchWA::Form().strCurrentCourt, "court");
    QCOMPARE(frmSearchWA::Form().strCurrentSearchType, u"Individual Name"_s);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
}

void tst_Startup::practiceIsShownInTheStatusBar()
{
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) { dialog->reject(); });
    Main(true);
    const auto *notice = frmMain::Form()->findChild<QLabel *>(u"lblNotice"_s);
    QVERIFY(notice->isVisible());
    QVERIFY(notice->text().contains(u"made-up records"));
}

void tst_Startup::withoutOptionsIniItStartsToo()
{
    desk->Folder.Remove(u"options.ini"_s);
    FakeSocket::Install();
    // ShowAlerts is off when it is missing: no question.
    Main(false);
    QVERIFY(!Global.bShowAlerts);
    QVERIFY(frmLogin::IsLoaded());
    QVERIFY(frmSearchWA::IsLoaded());
}

void tst_Startup::aCourtsEntryShowsTheForm_data()
{
    QTest::addColumn<CourtEntry>("entry");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("jurisdiction");
    QTest::newRow("superior") << CourtEntry::WaSuperior
                              << u"Search Entry Form - WA. Superior Courts"_s << 0;
    QTest::newRow("district") << CourtEntry::WaDiscis
                              << u"Search Entry Form - WA. District & Municipal Courts"_s << 1;
    QTest::newRow("oregon") << CourtEntry::Oregon
                            << u"Search Entry Form - OR. Circuit/District Court"_s << 2;
    QTest::newRow("idaho") << CourtEntry::Idaho << u"Search Entry Form - ID. District Courts"_s
                           << 3;
    QTest::newRow("bankruptcy") << CourtEntry::Bankruptcy
                                << u"Search Entry Form - Federal Bankruptcy Courts"_s << 4;
}

void tst_Startup::aCourtsEntryShowsTheForm()
{
    QFETCH(CourtEntry, entry);
    offline();
    frmSearchWA::Form().Unload();
    Q_EMIT SessionEvents::Of().CourtWanted(entry);
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    QVERIFY(form);
    QTEST(form->windowTitle(), "caption");
    QTEST(form->findChild<QListWidget *>(u"lstJurisdictions"_s)->currentRow(), "jurisdiction");
    QVERIFY(form->focusWidget());
    QCOMPARE(form->focusWidget()->objectName(), u"txtSearchName_0"_s);
}

void tst_Startup::whatAKilledProgramHasLeftIsTakenAway()
{
    QVERIFY(QDir(desk->Folder.Path()).mkpath(u"Reports/King 94-1-00042-1"_s));
    const QStringList left{u"options.ini.AbCdEf.unfinished"_s,
                           u"Reports/A report.pdf.AbCdEf.unfinished"_s,
                           u"Reports/King 94-1-00042-1/A document.tif.AbCdEf.unfinished"_s};
    for (const QString &name : left)
        desk->Folder.Write(name, "half of it");
    desk->Folder.Write(u"Reports/A report.pdf"_s, "whole");
    offline();
    for (const QString &name : left)
        QVERIFY2(!QFileInfo::exists(desk->Folder.Path(name)), qPrintable(name));
    QCOMPARE(desk->Folder.Read(u"Reports/A report.pdf"_s), QByteArray("whole"));
}

void tst_Startup::anIdleSessionIsWarned()
{
    FakeSocket::Install();
    offline();
    frmWinsock::Form();
    bool warned = false;
    desk->When([] { return shownWindow(u"frmInactivity"_s) != nullptr; },
               [&warned] {
                   warned = true;
                   // Log out: the wait for an answer is over at once.
                   QTest::mouseClick(ButtonOf(shownWindow(u"frmInactivity"_s), "cmdLogOut"),
                                     Qt::LeftButton);
               });
    Global.bShowAlerts = false;
    Q_EMIT LinkEvents::Of().IdleLimitReached();
    QVERIFY(warned);
    QVERIFY(desk->Folder.Logged(u"Auto Logout Complete .."_s));
}

void tst_Startup::aSearchInAStateShowsTheFormInIt_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("stateIndex");
    QTest::addColumn<QString>("before");
    const QString open = u"open"_s;
    QTest::newRow("Oregon") << u"OR"_s << 0 << open;
    QTest::newRow("Washington") << u"WA"_s << 1 << open;
    QTest::newRow("federal") << u"FED"_s << 2 << open;
    QTest::newRow("Idaho") << u"ID"_s << 3 << open;
    QTest::newRow("Idaho, with the form out of sight") << u"ID"_s << 3 << u"hidden"_s;
    // A form that is loaded anew begins where the setting says, and so does the search.
    QTest::newRow("the setting's state, with the form closed") << u"WA"_s << 1 << u"closed"_s;
}

void tst_Startup::aSearchInAStateShowsTheFormInIt()
{
    QFETCH(QString, state);
    QFETCH(int, stateIndex);
    QFETCH(QString, before);
    offline();
    if (before == u"hidden")
        frmSearchWA::HideForm();
    else if (before == u"closed")
        frmSearchWA::Form().Unload();
    QCOMPARE(shownWindow(u"frmSearchWA"_s) != nullptr, before == u"open");
    Global.strSearchState = before == u"closed" ? u"ID"_s : state;
    Q_EMIT SessionEvents::Of().SearchWithStateWanted();
    const QWidget *form = shownWindow(u"frmSearchWA"_s);
    QVERIFY(form);
    QVERIFY(
        form->findChild<QRadioButton *>(u"optState_"_s + QString::number(stateIndex))->isChecked());
    QCOMPARE(Global.strSearchState, state);
}

void tst_Startup::aboutOpens()
{
    offline();
    bool shown = false;
    desk->Boxes.ExpectDialog(u"frmAbout"_s, [&shown](QDialog *dialog) {
        shown = ButtonOf(dialog, "cmdOK")->isVisible();
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    Q_EMIT SessionEvents::Of().AboutWanted();
    QVERIFY(shown);
    QVERIFY(!shownWindow(u"frmAbout"_s));
}

void tst_Startup::theHelpOfAResultsWindowOpens()
{
    offline();
    Q_EMIT SessionEvents::Of().ResultsHelpWanted();
    QVERIFY(shownWindow(u"frmNameSearchResultsHelp"_s));
}

void tst_Startup::theHelpOfAStepOfTheFormOpensOnItsTopic()
{
    offline();
    auto *link = frmSearchWA::Form().findChild<LinkLabel *>(u"lblHelp_1"_s);
    QVERIFY(link);
    link->click();
    QWidget *help = shownWindow(u"frmSearchHelp"_s);
    QVERIFY(help);
    QCOMPARE(help->findChild<QListWidget *>(u"lstTopics"_s)->currentRow(),
             static_cast<int>(HelpTopic::SearchType));
}

void tst_Startup::aNewSearchShowsTheFormWithWhatIsEntered()
{
    offline();
    auto *name = frmSearchWA::Form().findChild<QLineEdit *>(u"txtSearchName_0"_s);
    name->setText(u"SMITH"_s);
    frmSearchWA::HideForm();
    QVERIFY(!shownWindow(u"frmSearchWA"_s));
    ShowSearchFormOnRequest();
    QVERIFY(shownWindow(u"frmSearchWA"_s));
    QCOMPARE(frmMain::Form()->focusWidget(), name);
    QCOMPARE(name->text(), u"SMITH"_s);
}

void tst_Startup::aNewSearchMovesNothingUnderTheLogin()
{
    FakeSocket::Install();
    SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    Main(false);
    QVERIFY(frmLogin::IsLoaded());
    frmSearchWA::HideForm();
    ShowSearchFormOnRequest();
    QVERIFY(!shownWindow(u"frmSearchWA"_s));
}

void tst_Startup::aNewSearchMovesNothingUnderAQuestion()
{
    offline();
    frmSearchWA::HideForm();
    desk->Boxes.ExpectDialog(u"frmAbout"_s, [](QDialog *dialog) {
        ShowSearchFormOnRequest();
        QVERIFY(!shownWindow(u"frmSearchWA"_s));
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    Q_EMIT SessionEvents::Of().AboutWanted();
    ShowSearchFormOnRequest();
    QVERIFY(shownWindow(u"frmSearchWA"_s));
}

HALVANE_TEST(tst_Startup)
#include "tst_Startup.moc"
