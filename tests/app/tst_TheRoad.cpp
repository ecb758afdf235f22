#include "app/Startup.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {
const QString disclaimer =
    u"Neither the court nor clerk makes any representation as to the accuracy and completeness of "
    "the Washington Court data except for court purposes. \r\n\r\nDo you want to continue?"_s;

const QString request = u"WASUP\u00A6SEARCH\u00A6SMITH\u00A6JOHN\u00A6Q\u00A6\u00A6King,\u00A6"
                        "Civil,Criminal,\u00A6\u00A6\u00A6"_s;

template<typename Widget = QWidget>
Widget *shownWindow(const QString &name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name && widget->isVisible())
            return qobject_cast<Widget *>(widget);
    }
    return nullptr;
}

void click(QWidget *window, const char *name)
{
    QTest::mouseClick(ButtonOf(window, name), Qt::LeftButton);
}

void type(const QWidget *window, const char *name, const QString &text)
{
    auto *box = window->findChild<QLineEdit *>(QLatin1StringView(name));
    box->clear();
    QTest::keyClicks(box, text);
}

void tick(const QWidget *window, const char *list, const QStringList &items)
{
    auto *box = window->findChild<QListWidget *>(QLatin1StringView(list));
    for (int i = 0; i < box->count(); ++i) {
        if (!items.contains(box->item(i)->text()))
            continue;
        box->scrollToItem(box->item(i));
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {},
                          box->visualItemRect(box->item(i)).center());
    }
}
} // namespace

class tst_TheRoad : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init() override;

    void fromTheLoginToTheRows();
    void twoSearchesFromOneForm();
    void afterALostConnectionTheNextLoginSearchesAgain();
    void aSearchThatWaitsLetsTheLoginGoFirst();
    void disconnectingStopsWhatIsPending();
    void disconnectIsRefusedWhileSearchingAndTheSearchGivesUp();

private:
    void startProgram();
    void logIn();
    frmNameSearchResults *startSearch();

    QPointer<frmMain> main;
};

void tst_TheRoad::initTestCase()
{
    WireWindows();
}

void tst_TheRoad::init()
{
    SearchTest::init();
    court->PointSettingsHere();
}

void tst_TheRoad::startProgram()
{
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) { click(dialog, "cmdConnect"); });
    Main(false);
    main = frmMain::Form();
}

void tst_TheRoad::logIn()
{
    QTRY_VERIFY(frmLogin::IsLoaded());
    auto *login = shownWindow(u"frmLogin"_s);
    QVERIFY(login);
    QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
    type(login, "txtUsername", u"paralegal"_s);
    type(login, "txtPassword", u"secret"_s);
    const QPointer<QWidget> open(login);
    click(login, "cmdLogin");
    QTRY_VERIFY(open.isNull());
    QVERIFY(Global.bLoggedIn);
}

frmNameSearchResults *tst_TheRoad::startSearch()
{
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    type(form, "txtSearchName_0", u"Smith"_s);
    type(form, "txtSearchName_1", u"John"_s);
    type(form, "txtSearchName_2", u"q"_s);
    const QWidgetList before = QApplication::allWidgets();
    click(form, "cmdBeginSearch");
    const QWidgetList after = QApplication::allWidgets();
    for (QWidget *widget : after) {
        auto *window = qobject_cast<frmNameSearchResults *>(widget);
        if (!window || before.contains(widget))
            continue;
        window->Timer1->setInterval(1);
        return window;
    }
    return nullptr;
}

void tst_TheRoad::fromTheLoginToTheRows()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply(
        {u"Searching~King~County~"_s,
         u"SMITH, JOHN Q~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s,
         u"SMITH, JOHN QUINCY~*02-1-00001-1~03/04/2002~Criminal~WA Superior Ct King "
         "County~Defendant~"_s,
         u"EOF~"_s});
    startProgram();
    logIn();
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    QVERIFY(form);
    QCOMPARE(main->focusWidget()->objectName(), u"txtSearchName_0"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *window = startSearch();
    QVERIFY(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(desk->Finish(window));

    const QString bar = u"\u00A6"_s;
    QCOMPARE(
        court->Requests(),
        (QStringList{u"LOGON\u00A6paralegal\u00A6secret\u00A6AppVer-9.00\u00A6"_s,
                     u"GETINIVAL"_s + bar, u"GETMSG"_s + bar, u"GETCLIENTACCTGOPT~"_s, request}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QCOMPARE(window->windowTitle(), u"SMITH, JOHN, Q in King County, Washington Superior Courts"_s);
    QCOMPARE(TextOf(window, "txtCountyList"), u"King County - Washington Superior Courts"_s);
    QCOMPARE(
        RowsOf(window),
        (QList<QStringList>{{u"SMITH, JOHN Q"_s, u"02-2-02029-9"_s, u"01/02/2002"_s, u"Civil"_s,
                             u"WA Superior Ct King County"_s, u"Plaintiff"_s},
                            {u"SMITH, JOHN QUINCY"_s, u"*02-1-00001-1"_s, u"03/04/2002"_s,
                             u"Criminal"_s, u"WA Superior Ct King County"_s, u"Defendant"_s}}));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(main->ActiveChild(), window);
    QVERIFY(form->isVisible());
    QCOMPARE(TextOf(form, "txtSearchName_0"), u"SMITH"_s);
}

void tst_TheRoad::twoSearchesFromOneForm()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(request).Reply({u"EOF~"_s});
    startProgram();
    logIn();
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *first = startSearch();
    first->Timer1->stop();
    frmNameSearchResults *second = startSearch();
    QVERIFY(first && second && first != second);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{first->txtMasterKey, second->txtMasterKey}));
    first->Timer1->start();
    QVERIFY(desk->Finish(first));
    QVERIFY(desk->Finish(second));
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
}

void tst_TheRoad::afterALostConnectionTheNextLoginSearchesAgain()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply({ResultLine(u"A"_s)}).Drop();
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    startProgram();
    logIn();
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *lost = startSearch();
    QVERIFY(desk->Finish(lost));
    QCOMPARE(TextOf(lost, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);

    main->tmrConnectStatus->setInterval(1);
    QTRY_VERIFY(!Global.bLoggedIn);
    main->tmrConnectStatus->stop();
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) { click(dialog, "cmdConnect"); });
    // The link is still the dead one: a disconnect of the session gives it back.
    main->Logout();
    main->findChild<QAction *>(u"mnuConnnectionConnect"_s)->trigger();
    logIn();
    frmNameSearchResults *again = startSearch();
    QVERIFY(desk->Finish(again));
    QCOMPARE(TextOf(again, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_TheRoad::aSearchThatWaitsLetsTheLoginGoFirst()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    startProgram();
    logIn();
    Global.bShowAlerts = false;
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    frmNameSearchResults *window = startSearch();
    QVERIFY(window);
    window->Timer1->stop();
    main->findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
    QVERIFY(!Global.bLoggedIn);
    main->findChild<QAction *>(u"mnuConnnectionConnect"_s)->trigger();
    // From now on it asks for its turn in every wait of the login.
    window->Timer1->start();
    logIn();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TheRoad::disconnectingStopsWhatIsPending()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    startProgram();
    logIn();
    Global.bShowAlerts = false;
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = startSearch();
    QVERIFY(window);
    QVERIFY(Global.WaDisclaimerAccepted);
    Global.bStopRequested = true;
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"11111111111111111111"_s});
}

void tst_TheRoad::disconnectIsRefusedWhileSearchingAndTheSearchGivesUp()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(request).Reply({ResultLine(u"A"_s)});
    startProgram();
    logIn();
    Global.bShowAlerts = false;
    QWidget *form = shownWindow(u"frmSearchWA"_s);
    tick(form, "lboxCountyOrProfile", {u"King"_s});
    tick(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    frmNameSearchResults *window = startSearch();
    desk->Boxes.Expect(u"You must wait for the current search to complete before disconnecting. "
                       "All Pending Searches will be stopped."_s,
                       u"Disconnect From Halvane .."_s);
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   main->findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
                   // One more row, so that the wait that follows has the short limit.
                   court->SendTokens({ResultLine(u"B"_s)});
                   desk->Time.Run(1.0);
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(Global.bStopRequested);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(window->RowCount(), 2);
    QVERIFY(!court->Requests().contains(u"STOP\u00A6"_s));
}

QTEST_MAIN(tst_TheRoad)
#include "tst_TheRoad.moc"
