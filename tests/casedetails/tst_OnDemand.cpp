#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTest>

#include <algorithm>

// The later runs of a case window.

namespace {
const QString started = u"On Demand Search Started.."_s;
const QString normalExit = u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s;
const QString stopExit =
    u"SEARCHING STOPPED DUE TO LOGOUT - from ProcessSearchReqeusts in Case Details."_s;
const QString timerExit = u"INCOMPLETE EXIT - from OnDemandTimer1 - Case Details."_s;
} // namespace

class tst_OnDemand : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void searchNow_data();
    void searchNow();
    void theStatusBlinksFromTheBeginning();
    void whileAnotherJobRunsItBlinksSlowly();
    void itWaitsForItsTurn();
    void blinkingDuringTheRun();
    void tickedTabsInTheOrderOfTheBoxes();
    void eachTabIsShownAsItArrives_data();
    void eachTabIsShownAsItArrives();
    void nothingTicked_data();
    void nothingTicked();
    void aDisabledBoxDoesNotCount();
    void lookingAtAnotherTabAddsNothing();
    void aTickCanBeTakenBackBeforeItsTurn();
    void roundAndRound_data();
    void roundAndRound();
    void theLogOfARun();

    void stopWhilePending_data();
    void stopWhilePending();
    void stopInTheMiddle_data();
    void stopInTheMiddle();
    void logoutBeforeTheTurn_data();
    void logoutBeforeTheTurn();
    void logoutInTheMiddle_data();
    void logoutInTheMiddle();
    void aWishToCloseInTheMiddle();
    void closingWhilePendingWithdrawsTheKey();
    void closingDuringTheRunIsRefused();
};

void tst_OnDemand::searchNow_data()
{
    EachCaseWindow();
}

void tst_OnDemand::searchNow()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Names"_s});
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    frmQueue::Form().FIFO.AddItem(otherKey);
    const QString oldKey = window->txtMasterKey;
    Global.bStopRequested = true;
    window->StopRequested = true;
    window->findChild<QLabel *>(u"lblStatus"_s)->hide();
    ClickTab(window, u"Docket"_s);
    QVERIFY(CommandsEnabled(window));
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(!Global.bStopRequested && !window->StopRequested);
    QVERIFY(!window->txtMasterKey.isEmpty() && window->txtMasterKey != oldKey);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{otherKey, window->txtMasterKey}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!CommandsEnabled(window));
    QVERIFY(!ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(window->TmrSearchOnDemand->isActive() && window->tmrBlink->isActive());
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!Global.bSearchInProgress);
    // So it reads, although nothing has begun.
    QVERIFY(desk->Folder.Logged(u"Search On Demand Complete"_s));
    QVERIFY(!desk->Folder.Logged(started));
}

void tst_OnDemand::theStatusBlinksFromTheBeginning()
{
    CaseWindow *window = Pending(CaseWindowKind::Superior);
    const auto *status = window->findChild<QLabel *>(u"lblStatus"_s);
    QList<bool> seen;
    constexpr int never = 60'000;
    connect(window->tmrBlink, &QTimer::timeout, window, [&] {
        seen.append(status->isVisible());
        window->tmrBlink->setInterval(never);
    });
    const auto tick = [&] {
        const qsizetype before = seen.size();
        window->tmrBlink->start(1);
        QTRY_COMPARE(seen.size(), before + 1);
    };
    // The first run ends with the status on, wherever the blinking was.
    tick();
    Run(window);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    tick();
    tick();
    QCOMPARE(seen, (QList<bool>{true, true, false}));
}

void tst_OnDemand::whileAnotherJobRunsItBlinksSlowly()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    QVERIFY(window->tmrBlink->interval() != 900);
    Global.bSearchInProgress = true;
    window->TmrSearchOnDemand->start(1);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QTRY_VERIFY(window->TmrSearchOnDemand->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    Global.bSearchInProgress = false;
    window->TmrSearchOnDemand->stop();
}

void tst_OnDemand::itWaitsForItsTurn()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    frmQueue::Form().FIFO.AddItem(otherKey);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    Ticks(20);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(court->Requests().size(), 1);
    ExpectTab(CaseWindowKind::Civil, CaseTab::Docket);
    frmQueue::Form().FIFO.RemoveItem(0);
    QVERIFY(Finished(window));
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_OnDemand::blinkingDuringTheRun()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    court->Expect(LineOf(CaseWindowKind::Civil, CaseTab::Docket)).Reply({});
    int interval = 0;
    bool blinking = false;
    bool printable = true;
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   interval = window->tmrBlink->interval();
                   blinking = window->tmrBlink->isActive();
                   printable = ButtonOf(window, "cmdPrintDetails")->isEnabled();
                   court->SendTokens(ReplyOf(CaseTab::Docket));
               });
    SearchNowToTheEnd(window);
    QCOMPARE(interval, 500);
    QVERIFY(blinking && !printable);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
}

void tst_OnDemand::tickedTabsInTheOrderOfTheBoxes()
{
    // In this court the strip has another order than the boxes.
    FetchAtOnce(u"OrCaseSearchTabs"_s, {});
    const auto line = [](const QString &word) {
        return QString(u"OREGON@"_s + word + u",@CV0012345@BAK C@"_s);
    };
    court->Expect(line(u"SUMMARY,NAMES,DOCKET"_s))
        .Reply({u"NAMES,DOCKET,JUDGMENTS,CHARGES,ACCOUNTING,FINANCE,SENTENCE~"_s,
                u"Court~Baker Circuit~"_s, u"Type~CV~"_s, u"Title~SMITH VS DOE~"_s, u"A~1~"_s,
                u"B~2~"_s, u"Date Filed~01/11/2005~"_s, u"EOF~"_s});
    frmCaseDetails *window = OfState(u"OR"_s, u"CV0012345"_s);
    Run(window);
    QCOMPARE(CaptionsOf(window).sliced(4),
             (QStringList{u"Charges"_s, u"Accounting"_s, u"Finance"_s, u"Sentence"_s}));
    ClickTab(window, u"Names"_s);
    Tick(window, {CaseTab::Finance, CaseTab::Accounting, CaseTab::Sentence, CaseTab::Judgments});
    for (const QString &word : {u"JUDGMENTS"_s, u"SENTENCES"_s, u"ACCOUNTING"_s, u"FINANCE"_s})
        court->Expect(line(word)).Reply(TableForm({u"1~2~"_s}));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Sentence).TabDone);
    QVERIFY(window->Tab(CaseTab::Names).TabNotRetrieved && !window->Tab(CaseTab::Names).TabDone);
}

void tst_OnDemand::eachTabIsShownAsItArrives_data()
{
    EachCaseWindow();
}

void tst_OnDemand::eachTabIsShownAsItArrives()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    const QList<CaseTab> tabs = TabsOf(kind);
    const auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    const auto inSight = [&] { return ShownFrame(window).append(u' ' + strip->SelectedCaption()); };
    QStringList shown;
    QStringList expected{u"frameTabs_8 Docket"_s};
    for (int i = 0; i < tabs.size(); ++i) {
        court->Expect(LineOf(kind, tabs[i])).Reply({});
        // What is in sight while the tab is asked for is the one before it.
        desk->When([this, i] { return court->Requests().size() == i + 2; },
                   [&, i] {
                       shown.append(inSight());
                       court->SendTokens(ReplyOf(tabs[i]));
                   });
        expected.append(FrameOf(tabs[i]) + u' ' + CaptionOf(tabs[i]));
    }
    SearchNowToTheEnd(window);
    shown.append(inSight());
    QCOMPARE(shown, expected);
    for (const CaseTab tab : tabs) {
        QCOMPARE(CellsOf(window, tab).value(1).value(1), CaptionOf(tab));
        QVERIFY(window->Tab(tab).TabDone && !window->Tab(tab).TabNotRetrieved);
        QVERIFY(!BoxOf(window, tab)->isChecked());
    }
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QVERIFY(!IsSeen(window, "lblWarning"));
    QVERIFY(frmQueue::Form().FIFO.ListCount() == 0 && !Global.bSearchInProgress);
    QVERIFY(CommandsEnabled(window) && ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_OnDemand::nothingTicked_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<bool>("incomplete");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        QTest::addRow("%s, all is well", caseWindowNames.at(i))
            << static_cast<CaseWindowKind>(i) << false;
        QTest::addRow("%s, a tab is incomplete", caseWindowNames.at(i))
            << static_cast<CaseWindowKind>(i) << true;
    }
}

void tst_OnDemand::nothingTicked()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(bool, incomplete);
    CaseWindow *window =
        AfterFirstRun(kind, {}, incomplete ? QStringList{u"Names"_s} : QStringList());
    const qsizetype requests = court->Requests().size();
    ClickTab(window, u"Docket"_s);
    Tick(window, {});
    SearchNowToTheEnd(window);
    QCOMPARE(court->Requests().size(), requests);
    QCOMPARE(window->lboxResponses.ListCount(), 0);
    QCOMPARE(TextOf(window, "lblStatus"),
             incomplete ? u"Search Incomplete!"_s : u"Search Complete"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), incomplete ? u"red"_s : u"blue"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(desk->Folder.Logged(normalExit));
    // The panel is in sight still, and offers all again.
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(BoxOf(window, CaseTab::Docket)->isChecked());
}

void tst_OnDemand::aDisabledBoxDoesNotCount()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil, {u"Names"_s});
    ClickTab(window, u"Docket"_s);
    Tick(window, {});
    BoxOf(window, CaseTab::Names)->setChecked(true);
    SearchNowToTheEnd(window);
    QCOMPARE(court->Requests().size(), 2);
}

void tst_OnDemand::lookingAtAnotherTabAddsNothing()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Sentence});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    ExpectTab(kind, CaseTab::Sentence);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   ClickTab(window, u"Charges"_s);
                   QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
                   QVERIFY(!BoxOf(window, CaseTab::Charges)->isChecked());
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Sentence).TabDone);
    QVERIFY(!window->Tab(CaseTab::Charges).TabDone);
}

void tst_OnDemand::aTickCanBeTakenBackBeforeItsTurn()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Sentence});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   BoxOf(window, CaseTab::Sentence)->click();
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNowToTheEnd(window);
    QVERIFY(!window->Tab(CaseTab::Sentence).TabDone);
}

void tst_OnDemand::roundAndRound_data()
{
    EachCaseWindow();
}

void tst_OnDemand::roundAndRound()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    QSet<QString> keys{window->txtMasterKey};
    const QList<CaseTab> tabs = TabsOf(kind).first(3);
    for (const CaseTab tab : tabs) {
        ClickTab(window, CaptionOf(tab));
        Tick(window, {tab});
        ExpectTab(kind, tab);
        SearchNowToTheEnd(window);
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
        QVERIFY(window->Tab(tab).TabDone);
        keys.insert(window->txtMasterKey);
    }
    QCOMPARE(keys.size(), 4);
    QCOMPARE(desk->Folder.TimesLogged(normalExit), 3);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OnDemand::theLogOfARun()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names});
    ExpectTab(CaseWindowKind::Civil, CaseTab::Names);
    desk->Folder.Remove(u"AppInfo.txt"_s);
    SearchNowToTheEnd(window);
    QStringList entries = desk->Folder.Log();
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [](const QString &line) {
                                     return !line.contains(u"On Demand") && !line.contains(u"Name");
                                 }),
                  entries.end());
    QCOMPARE(entries,
             (QStringList{u"Search On Demand Complete"_s, started, u"Retrieving Names .."_s,
                          u"Current Response: --> 01/02/2003~Names~ Ret Val: 0"_s,
                          u"All Responses For Names were Received: "_s
                              + LineOf(CaseWindowKind::Civil, CaseTab::Names),
                          u"NORMAL EXIT - from DoNameSearch()."_s, normalExit}));
}

void tst_OnDemand::stopWhilePending_data()
{
    EachCaseWindow();
}

void tst_OnDemand::stopWhilePending()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    frmQueue::Form().FIFO.AddItem(otherKey);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(CommandsEnabled(window));
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    // Nothing was sent, and the panel can be used again.
    QCOMPARE(court->Requests().size(), 1);
    frmQueue::Form().FIFO.Clear();
    Tick(window, {CaseTab::Docket});
    ExpectTab(kind, CaseTab::Docket);
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_OnDemand::stopInTheMiddle_data()
{
    EachCaseWindow();
}

void tst_OnDemand::stopInTheMiddle()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    court->Expect(u"¦STOP"_s).Reply(ReplyOf(CaseTab::Names));
    bool commands = true;
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   ButtonOf(window, "cmdStopSearching")->click();
                   commands = CommandsEnabled(window);
               });
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(stopExit));
    QVERIFY(!commands);
    QVERIFY(desk->Folder.Logged(u"Searching Stopped - Yielding to Stop Command from User."_s));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Warning: Some results may NOT have been retrieved .."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(window->SearchStopped);
    // What had come stays, and the rest can be fetched.
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(!window->Tab(CaseTab::Docket).TabDone && window->Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(CommandsEnabled(window));
    QVERIFY(BoxOf(window, CaseTab::Docket)->isChecked());
    QVERIFY(!BoxOf(window, CaseTab::Names)->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!Global.bSearchInProgress);
}

void tst_OnDemand::logoutBeforeTheTurn_data()
{
    EachCaseWindow();
}

void tst_OnDemand::logoutBeforeTheTurn()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    Global.bStopRequested = true;
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(timerExit));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(TextOf(window, "lblWarning"), u"Search Stopped .."_s);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!desk->Folder.Logged(started));
    QCOMPARE(court->Requests().size(), 1);
    for (const CaseTab tab : TabsOf(kind))
        QVERIFY(window->Tab(tab).TabNotRetrieved);
}

void tst_OnDemand::logoutInTheMiddle_data()
{
    EachCaseWindow();
}

void tst_OnDemand::logoutInTheMiddle()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   Global.bStopRequested = true;
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(timerExit));
    QVERIFY(desk->Folder.Logged(u"Searching Stopped - Yielding to Logout Process."_s));
    QVERIFY(desk->Folder.Logged(stopExit));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(TextOf(window, "lblWarning"), u"Search Stopped .."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!Global.bSearchInProgress);
}

void tst_OnDemand::aWishToCloseInTheMiddle()
{
    const CaseWindowKind kind = CaseWindowKind::Civil;
    const QPointer<CaseWindow> window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->CloseRequested = true;
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(window.isNull());
    QVERIFY(desk->Folder.Logged(u"Searching Stopped - Yielding to Form Close Request by User."_s));
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
}

void tst_OnDemand::closingWhilePendingWithdrawsTheKey()
{
    const QPointer<CaseWindow> window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    Global.bShowAlerts = false;
    window->TmrSearchOnDemand->start();
    window->close();
    QVERIFY(!window || !window->TmrSearchOnDemand->isActive());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QTRY_VERIFY(window.isNull());
}

void tst_OnDemand::closingDuringTheRunIsRefused()
{
    const CaseWindowKind kind = CaseWindowKind::Civil;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->Boxes.Expect(u"This form cannot be closed until the current search completes."_s,
                       u"Stop Current Search .."_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->close();
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNowToTheEnd(window);
    QVERIFY(window->isVisible());
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
}

HALVANE_TEST(tst_OnDemand)
#include "tst_OnDemand.moc"
