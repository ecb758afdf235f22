#include "app/ProgramTest.h"
#include "controls/FormWindow.h"
#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/LoginOffer.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

namespace {
struct Road
{
    const char *name;
    const char16_t *dialog; ///< its object name
    /// Brings it up, as the user does. `waiting` is a search that has its place in the queue.
    void (*open)(frmNameSearchResults *waiting);
};

void press(const QString &window, const char *button)
{
    Click(Shown(window), button);
}

const QList<Road> &roads()
{
    static const QList<Road> all{
        {"the question about the exit", u"MsgBox",
         [](frmNameSearchResults *) { ChooseEntry(u"mnuFileExit"_s); }},
        {"the question about disconnecting", u"MsgBox",
         [](frmNameSearchResults *) { ChooseEntry(u"mnuConnectionDisConnect"_s); }},
        {"a notice", u"MsgBox", [](frmNameSearchResults *) { ChooseEntry(u"mnuCheckMsgs"_s); }},
        {"About", u"frmAbout", [](frmNameSearchResults *) { ChooseEntry(u"mnuHelpAbout"_s); }},
        {"the options", u"frmOpts",
         [](frmNameSearchResults *) { ChooseEntry(u"mnuViewOptions"_s); }},
        {"the state of the connection", u"frmConnectionStatus",
         [](frmNameSearchResults *) { ChooseEntry(u"mnuConnectionStatus"_s); }},
        {"the question about stopping", u"MsgBox",
         [](frmNameSearchResults *waiting) { Click(waiting, "cmdStopSearching"); }},
        {"the question about closing", u"MsgBox",
         [](frmNameSearchResults *waiting) { FormWindow::Around(waiting)->close(); }},
        {"a refused entry", u"frmInfo",
         [](frmNameSearchResults *) {
             TypeInto(Shown(u"frmSearchWA"_s), "txtSearchName_0", QString());
             press(u"frmSearchWA"_s, "cmdBeginSearch");
         }},
        {"the notice of the courts", u"MsgBox",
         [](frmNameSearchResults *) {
             Global.WaDisclaimerAccepted = false;
             press(u"frmSearchWA"_s, "cmdBeginSearch");
         }},
        {"the client code", u"frmAccounting",
         [](frmNameSearchResults *) {
             SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
             press(u"frmSearchWA"_s, "cmdBeginSearch");
         }},
        {"the offer to log in", u"MsgBox",
         [](frmNameSearchResults *waiting) {
             Global.bLoggedIn = false;
             OfferLogin(waiting);
             Global.bLoggedIn = true;
         }},
        {"the file of an export", u"SaveDialog",
         [](frmNameSearchResults *waiting) {
             AskWhereToSave(waiting,
                            {.Title = u"Export"_s,
                             .Suggested = QDir::temp().filePath(u"list.csv"_s),
                             .Ending = u"csv"_s,
                             .Filters = {u"CSV Files (*.csv)"_s}},
                            waiting, [](const QString &) {});
             QTRY_VERIFY(!waiting->findChild<QDialog *>(u"SaveDialog"_s));
         }},
        {"the folder of reports", u"FolderDialog",
         [](frmNameSearchResults *waiting) {
             AskForFolder(waiting, u"Folder"_s, QDir::tempPath(), waiting, [](const QString &) {});
             QTRY_VERIFY(!waiting->findChild<QDialog *>(u"FolderDialog"_s));
         }},
    };
    return all;
}
} // namespace

/// Whatever asks the user something, a job that is due waits for the answer, and not the answer for
/// the job.
class tst_UnderEveryDialog : public ProgramTest
{
    Q_OBJECT
private Q_SLOTS:
    void aJobThatIsDueWaits_data();
    void aJobThatIsDueWaits();
    void aJobThatIsDueWaitsForTheLogin_data();
    void aJobThatIsDueWaitsForTheLogin();

private:
    frmNameSearchResults *beginWithASearchThatIsDue();
    void runsNow(frmNameSearchResults *waiting);
};

/// A session with a search at the head of the queue, which does not ask for its turn yet.
frmNameSearchResults *tst_UnderEveryDialog::beginWithASearchThatIsDue()
{
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    frmNameSearchResults *waiting = StartSearch();
    waiting->Timer1->stop();
    Global.bShowAlerts = true;
    return waiting;
}

void tst_UnderEveryDialog::runsNow(frmNameSearchResults *waiting)
{
    QVERIFY(desk->Finish(waiting));
    QCOMPARE(TextOf(waiting, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_UnderEveryDialog::aJobThatIsDueWaits_data()
{
    QTest::addColumn<int>("row");
    for (qsizetype i = 0; i < roads().size(); ++i)
        QTest::newRow(roads()[i].name) << static_cast<int>(i);
}

void tst_UnderEveryDialog::aJobThatIsDueWaits()
{
    QFETCH(int, row);
    const Road &road = roads()[row];
    frmNameSearchResults *waiting = beginWithASearchThatIsDue();
    QVERIFY(waiting);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    int ticks = 0;
    connect(waiting->Timer1, &QTimer::timeout, waiting, [&ticks] { ++ticks; });
    const qsizetype before = court->Requests().size();
    int ticksUnderIt = 0;
    bool started = false;
    desk->Boxes.Whenever(QStringView(road.dialog).toString(), [&](QDialog *dialog) {
        waiting->Timer1->start(1);
        QTRY_VERIFY(ticks >= 5);
        ticksUnderIt = ticks;
        started = Global.bSearchInProgress || court->Requests().size() > before;
        waiting->Timer1->stop();
        dialog->reject();
    });
    road.open(waiting);
    QVERIFY(ticksUnderIt >= 5);
    QVERIFY(!started);
    waiting->Timer1->start(1);
    runsNow(waiting);
}

void tst_UnderEveryDialog::aJobThatIsDueWaitsForTheLogin_data()
{
    QTest::addColumn<bool>("modal");
    QTest::newRow("over the main window") << false;
    QTest::newRow("above everything else") << true;
}

void tst_UnderEveryDialog::aJobThatIsDueWaitsForTheLogin()
{
    QFETCH(bool, modal);
    frmNameSearchResults *waiting = beginWithASearchThatIsDue();
    QVERIFY(waiting);
    Global.bShowAlerts = false;
    ChooseEntry(u"mnuConnectionDisConnect"_s);
    int ticks = 0;
    connect(waiting->Timer1, &QTimer::timeout, waiting, [&ticks] { ++ticks; });
    waiting->Timer1->start(1);
    const qsizetype before = court->Requests().size();
    bool started = true;
    desk->When([&] { return ticks >= 5 && frmLogin::IsLoaded(); },
               [&] {
                   started = Global.bSearchInProgress || court->Requests().size() > before;
                   waiting->Timer1->stop();
                   Click(Shown(u"frmLogin"_s), "cmdCancel");
               });
    if (modal)
        ShowLoginModally();
    else
        ShowLogin();
    QTRY_VERIFY(!frmLogin::IsLoaded());
    QVERIFY(ticks >= 5);
    QVERIFY(!started);
}

HALVANE_TEST(tst_UnderEveryDialog)
#include "tst_UnderEveryDialog.moc"
