#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

// What a case window says of each tab that has not come, and of a run that left something behind.

namespace {
const CaseWindowKind superior = CaseWindowKind::Superior;
const QString stoppedNotice =
    u"The retrieval of this tab was stopped: entries may be missing. Open the case again to "
    "retrieve all of them."_s;
} // namespace

class tst_CaseAnswers : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachBoxSaysWhatHasBecomeOfItsTab_data() { EachCaseWindow(); }
    void eachBoxSaysWhatHasBecomeOfItsTab();
    void aTabThatIsRetriedSaysHowThatWent();
    void aTabThatIsToComeWaits();
    void aSilentCourtIsSaidSo();
    void wordsOfTheCourtArePlain();
    void aCaseThatIsStoppedBeforeItsTurnWasNotAsked_data() { EachCaseWindow(); }
    void aCaseThatIsStoppedBeforeItsTurnWasNotAsked();
    void aTabThatWasStoppedSaysSoBesideItsMessage_data() { EachCaseWindow(); }
    void aTabThatWasStoppedSaysSoBesideItsMessage();
    void aRunThatBreaksDownSaysSoAndWhatToDo_data() { EachCaseWindow(); }
    void aRunThatBreaksDownSaysSoAndWhatToDo();
    void aStopLetsTheOthersGoOnBehindABreakdown();
    void aLaterRunTakesTheBreakdownBack();
    void aLaterRunThatBreaksDownSaysSo();

private:
    /// The words beside a box.
    static QString said(const CaseWindow *window, CaseTab tab);
    static QString shown(const CaseWindow *window, const char *label);
    /// The link goes while the Docket is asked for, and the send of the next line fails.
    CaseWindow *brokenDown(CaseWindowKind kind);
};

QString tst_CaseAnswers::said(const CaseWindow *window, CaseTab tab)
{
    const QString words =
        window->findChild<QLabel *>(u"lblTab_%1"_s.arg(CaseTabRowOf(tab).check))->text();
    // Who does not see it hears it with the box.
    if (BoxOf(window, tab)->accessibleDescription() != words)
        return u"not what a screen reader says"_s;
    return words;
}

QString tst_CaseAnswers::shown(const CaseWindow *window, const char *label)
{
    const auto *found = window->findChild<QLabel *>(QLatin1StringView(label));
    return found->isVisible() ? found->text() : QString();
}

void tst_CaseAnswers::eachBoxSaysWhatHasBecomeOfItsTab()
{
    QFETCH(const CaseWindowKind, kind);
    const CaseWindow *window = AfterFirstRun(kind, {u"Docket"_s}, {u"Names"_s});
    QCOMPARE(said(window, CaseTab::Names), u"Failed: The court is busy"_s);
    QCOMPARE(said(window, CaseTab::Docket), QString());
    QCOMPARE(said(window, CaseTab::Summary), QString());
    for (const CaseTab tab : TabsOf(kind)) {
        if (tab != CaseTab::Names && tab != CaseTab::Docket)
            QCOMPARE(said(window, tab), u"Not asked"_s);
    }
    QCOMPARE(shown(window, "lblTabNotice"), QString());
    QCOMPARE(shown(window, "lblBreakdown"), QString());
}

void tst_CaseAnswers::aTabThatIsRetriedSaysHowThatWent()
{
    CaseWindow *window = AfterFirstRun(superior);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(superior, CaseTab::Names)).Reply({});
    ExpectFailingTab(superior, CaseTab::Docket);
    QString meanwhile;
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   meanwhile = said(window, CaseTab::Names);
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    AnswerPrompt(true);
    SearchNowToTheEnd(window);
    QCOMPARE(meanwhile, u"Asking .."_s);
    QCOMPARE(said(window, CaseTab::Names), QString());
    QCOMPARE(said(window, CaseTab::Docket), u"Failed: The court is busy"_s);
    QCOMPARE(said(window, CaseTab::Charges), u"Not asked"_s);
}

void tst_CaseAnswers::aTabThatIsToComeWaits()
{
    CaseWindow *window = Pending(superior, {u"Docket"_s});
    QString docket;
    QString names;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   // The panel is in the place of the Names, which were left out.
                   ClickTab(window, u"Names"_s);
                   docket = said(window, CaseTab::Docket);
                   names = said(window, CaseTab::Names);
               });
    Run(window);
    QCOMPARE(docket, u"Waiting"_s);
    QCOMPARE(names, u"Not asked"_s);
}

void tst_CaseAnswers::aSilentCourtIsSaidSo()
{
    const CaseWindow *window = WithoutSummary(superior);
    QVERIFY(said(window, CaseTab::Summary).startsWith(u"Failed: "));
    QVERIFY(said(window, CaseTab::Summary).size() > 10);
}

void tst_CaseAnswers::wordsOfTheCourtArePlain()
{
    CaseWindow *window = Pending(superior, {});
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(LineOf(superior, CaseTab::Names)).Reply({u"ERROR <b>down~</b>"_s, u"EOF~"_s});
    Run(window);
    QCOMPARE(said(window, CaseTab::Names), u"Failed: <b>down </b>"_s);
    QCOMPARE(window->findChild<QLabel *>(u"lblTab_1"_s)->textFormat(), Qt::PlainText);
}

void tst_CaseAnswers::aCaseThatIsStoppedBeforeItsTurnWasNotAsked()
{
    QFETCH(const CaseWindowKind, kind);
    CaseWindow *window = MakeCase(kind);
    window->StopPendingSearch();
    QCOMPARE(said(window, CaseTab::Summary), u"Not asked"_s);
    QCOMPARE(said(window, TabsOf(kind).first()), u"Not asked"_s);
    QCOMPARE(shown(window, "lblTabNotice"), QString());
}

void tst_CaseAnswers::aTabThatWasStoppedSaysSoBesideItsMessage()
{
    QFETCH(const CaseWindowKind, kind);
    Global.bShowAlerts = false;
    CaseWindow *window = Pending(kind, {u"Names"_s});
    FetchAtOnce(kind == superior                ? u"CaseSearchTabs"_s
                : kind == CaseWindowKind::Civil ? u"CivilCaseTabs"_s
                                                : u"NonCivilCaseTabs"_s,
                {u"Names"_s, u"Docket"_s});
    court->Expect(LineOf(kind, CaseTab::Docket)).Reply({});
    court->Expect(u"¦STOP"_s).Reply({u"EOF~"_s});
    desk->When([this] { return court->Requests().size() == 3; },
               [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    Run(window);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Docket));
    QCOMPARE(CellsOf(window, CaseTab::Docket).last().first(),
             u"No Docket Information Found For This Case."_s);
    QCOMPARE(shown(window, "lblTabNotice"), stoppedNotice);
    ClickTab(window, u"Names"_s);
    QCOMPARE(shown(window, "lblTabNotice"), QString());
}

CaseWindow *tst_CaseAnswers::brokenDown(CaseWindowKind kind)
{
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    CloseServerLink();
    return window;
}

void tst_CaseAnswers::aRunThatBreaksDownSaysSoAndWhatToDo()
{
    QFETCH(const CaseWindowKind, kind);
    CaseWindow *window = Pending(kind, {});
    FetchAtOnce(kind == superior                ? u"CaseSearchTabs"_s
                : kind == CaseWindowKind::Civil ? u"CivilCaseTabs"_s
                                                : u"NonCivilCaseTabs"_s,
                {u"Names"_s, u"Docket"_s});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->When([this] { return court->Requests().size() == 2; }, [] { CloseServerLink(); });
    desk->ConnectTo(*court);
    desk->Time.Run(0.1);
    Begin(window);
    QVERIFY(desk->WaitUntil(
        [window] { return window->findChild<QLabel *>(u"lblBreakdown"_s)->isVisible(); }));
    const QString text = shown(window, "lblBreakdown");
    QVERIFY2(text.startsWith(u"The retrieval of this case broke down ("), qPrintable(text));
    QVERIFY2(text.contains(u"Every search behind it waits until you select Stop Search"),
             qPrintable(text));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(said(window, CaseTab::Docket).startsWith(u"Failed: "));
}

void tst_CaseAnswers::aStopLetsTheOthersGoOnBehindABreakdown()
{
    Global.bShowAlerts = false;
    CaseWindow *window = brokenDown(superior);
    Tick(window, {CaseTab::Docket});
    Global.bLoggedIn = true;
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(desk->WaitUntil(
        [window] { return window->findChild<QLabel *>(u"lblBreakdown"_s)->isVisible(); }));
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    const QString text = shown(window, "lblBreakdown");
    QVERIFY2(text.contains(u"Retrieve what is missing with SEARCH NOW"), qPrintable(text));
    QVERIFY2(!text.contains(u"waits"), qPrintable(text));
}

void tst_CaseAnswers::aLaterRunTakesTheBreakdownBack()
{
    CaseWindow *window = brokenDown(superior);
    Tick(window, {CaseTab::Docket});
    Global.bLoggedIn = true;
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(desk->WaitUntil(
        [window] { return window->findChild<QLabel *>(u"lblBreakdown"_s)->isVisible(); }));
    desk->ConnectTo(*court);
    ExpectTab(superior, CaseTab::Docket);
    ClickTab(window, u"Charges"_s);
    Tick(window, {CaseTab::Docket});
    SearchNow(window);
    QCOMPARE(shown(window, "lblBreakdown"), QString());
    window->TmrSearchOnDemand->start(1);
    QVERIFY(Finished(window));
    QCOMPARE(shown(window, "lblBreakdown"), QString());
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_CaseAnswers::aLaterRunThatBreaksDownSaysSo()
{
    CaseWindow *window = brokenDown(superior);
    Tick(window, {CaseTab::Docket, CaseTab::Charges});
    Global.bLoggedIn = true;
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(desk->WaitUntil(
        [window] { return window->findChild<QLabel *>(u"lblBreakdown"_s)->isVisible(); }));
    QVERIFY(said(window, CaseTab::Docket).startsWith(u"Failed: "));
    QCOMPARE(said(window, CaseTab::Charges), u"Not asked"_s);
}

HALVANE_TEST(tst_CaseAnswers)
#include "tst_CaseAnswers.moc"
