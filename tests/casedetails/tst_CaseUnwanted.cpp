// What a case asks and says behind a stop, and behind its window: nothing that nobody wants.

#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/ServerSocket.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

namespace {
const QString stopRequest = u"¦STOP"_s;
const QString stoppedStatus = u"Search Stopped by User .."_s;
const QString panel = u"frameTabs_8"_s;
const QStringList question{u"USERQUESTION~"_s, u"EOF~"_s};
const QString formClosed =
    u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s;
} // namespace

class tst_CaseUnwanted : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void aStopGoesBeforeTheQuestionOfTheCourt();
    void aWishToLeaveUnderTheQuestionOfTheCourt();
    void aWindowThatGoesInTheMiddleOfItsRun_data();
    void aWindowThatGoesInTheMiddleOfItsRun();
    void aWindowThatGoesInTheMiddleOfALaterRun();
    void stopGivesBackThePlaceOfABrokenRun();

private:
    static void stop(CaseWindow *window) { ButtonOf(window, "cmdStopSearching")->click(); }
    /// The Summary and these tabs are to be fetched, and nothing else.
    CaseWindow *fetching(CaseWindowKind kind, const QList<CaseTab> &tabs);
    /// A case whose first tab is being read: the court has said these lines of it.
    CaseWindow *readingNames(CaseWindowKind kind, const QStringList &lines);
    void stopWhen(CaseWindow *window, qsizetype requests);
};

void tst_CaseUnwanted::init()
{
    OnDemandTest::init();
    Global.bShowAlerts = false;
}

CaseWindow *tst_CaseUnwanted::fetching(CaseWindowKind kind, const QList<CaseTab> &tabs)
{
    QStringList captions;
    for (const CaseTab tab : tabs)
        captions.append(CaptionOf(tab));
    for (const QString &section : {u"CaseSearchTabs"_s, u"CivilCaseTabs"_s, u"NonCivilCaseTabs"_s})
        FetchAtOnce(section, captions);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    return MakeCase(kind);
}

CaseWindow *tst_CaseUnwanted::readingNames(CaseWindowKind kind, const QStringList &lines)
{
    CaseWindow *window = fetching(kind, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply(lines);
    return window;
}

void tst_CaseUnwanted::stopWhen(CaseWindow *window, qsizetype requests)
{
    court->Expect(stopRequest).Reply({u"EOF~"_s});
    desk->When([this, requests] { return court->Requests().size() == requests; },
               [window] { stop(window); });
}

/// Nobody is asked about a case that is not wanted any more, and the court is asked for nothing.
void tst_CaseUnwanted::aStopGoesBeforeTheQuestionOfTheCourt()
{
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question.first(1));
    frmCaseDetails *window = Superior();
    stopWhen(window, 1);
    Run(window);
    QCOMPARE(court->Requests().size(), 2);
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QVERIFY(!window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(ShownFrame(window), panel);
    // It is asked when the case is wanted after all.
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(SuperiorLine(u"SUMMARY"_s).replace(u"King"_s, u"King ARBITRATION"_s))
        .Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    Tick(window, {CaseTab::Summary});
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s,
                             [](QDialog *dialog) { ButtonOf(dialog, "Command1")->click(); });
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
}

void tst_CaseUnwanted::aWishToLeaveUnderTheQuestionOfTheCourt()
{
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    frmCaseDetails *window = Superior();
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [](QDialog *dialog) {
        Global.bStopRequested = true;
        ButtonOf(dialog, "Command1")->click();
    });
    Run(window);
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
}

void tst_CaseUnwanted::aWindowThatGoesInTheMiddleOfItsRun_data()
{
    EachCaseWindow();
}

/// Stop in another window frees the link for whoever asks; this window can be closed then.
void tst_CaseUnwanted::aWindowThatGoesInTheMiddleOfItsRun()
{
    QFETCH(CaseWindowKind, kind);
    const QPointer<CaseWindow> window = readingNames(kind, {});
    CaseWindow *other = Superior(u"03-2-00456-7"_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   stop(other);
                   QVERIFY(window->close());
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(court->Requests().size(), 2);
    QVERIFY(desk->Folder.Logged(formClosed));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_CaseUnwanted::aWindowThatGoesInTheMiddleOfALaterRun()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    const QPointer<CaseWindow> window = AfterFirstRun(kind);
    CaseWindow *other = Superior(u"03-2-00456-7"_s);
    other->Timer1->stop();
    frmQueue::Form().FIFO.Clear();
    ClickTab(window, u"Names"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   stop(other);
                   QVERIFY(window->close());
                   court->SendTokens(ReplyOf(CaseTab::Names));
               });
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(court->Requests().size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// It kept its place so that nothing is sent behind it unseen; who stops it has seen it.
void tst_CaseUnwanted::stopGivesBackThePlaceOfABrokenRun()
{
    CaseWindow *window = fetching(CaseWindowKind::Superior, {CaseTab::Names});
    bool lost = false;
    WatchYields([&lost, window] {
        if (!std::exchange(lost, window->Tab(CaseTab::Summary).TabDone) && lost)
            Global.sckServer->Close();
    });
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(
        u"Exiting DoNameSearch() via PROCERR in Case Details. Error: Halvane Server Connection "
        "was Dropped!"_s));
    WatchYields({});
    QTRY_VERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{window->txtMasterKey, otherKey}));
    // The next session has a link, over which a stop can be sent.
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    stop(window);
    QTRY_COMPARE(court->Requests().size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
}

HALVANE_TEST(tst_CaseUnwanted)
#include "tst_CaseUnwanted.moc"
