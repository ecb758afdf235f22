// What the three case windows have in common before and after their runs: their load, what they are
// handed, how they wait for their turn, and how they close. How they are stopped is in
// tst_CaseStops.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseKinds.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString closeQuestion = u"Are you sure you want to close this form?\r\nAny data that has not "
                              "been printed or saved will be lost!"_s;
const QString closeTitle = u"Close Search Form .."_s;
const QString refusal = u"This form cannot be closed until the current search completes."_s;
const QString refusalTitle = u"Stop Current Search .."_s;
const QString otherKey = u"11111111111111111111"_s;

/// The request for the summary of the case that pending() makes.
QString summaryLine(Which which)
{
    switch (which) {
    case Which::Civil:
        return u"WADISCIS¦¦¦¦Y00012345¦CV¦SED¦CV¦"
               "CIVI¦¦"_s;
    case Which::NonCivil:
        return u"WADISCIS¦¦¦¦CR0012345¦IN¦SED¦IN¦"
               "NCNCC¦¦"_s;
    case Which::Case:
        break;
    }
    return SuperiorLine(u"SUMMARY"_s);
}

/// What the window says when its summary holds nothing.
QString nothingThere(Which which)
{
    return which == Which::Case ? u"Search Stopped. Case Not Located."_s
                                : u"Search Stopped. Case Was Not Located."_s;
}
} // namespace

Q_DECLARE_METATYPE(UnloadMode)

class tst_CaseWindows : public CaseKindsTest
{
    Q_OBJECT
private Q_SLOTS:
    void atLoad_data();
    void atLoad();
    void aLoadAsksAgainWhatWasDeclined();
    void whatTheStarterHandsOver_data();
    void whatTheStarterHandsOver();
    void districtWindowsNameTheCase_data();
    void districtWindowsNameTheCase();
    void textsAreShownAsTheyAre_data();
    void textsAreShownAsTheyAre();
    void aTickSetsTheCaption_data();
    void aTickSetsTheCaption();
    void bankruptcyIsSeenByTheState_data();
    void bankruptcyIsSeenByTheState();
    void theFirstTickCutsTheStrip_data();
    void theFirstTickCutsTheStrip();
    void onItsTurnItAsksForTheSummary_data();
    void onItsTurnItAsksForTheSummary();
    void whileTheLinkIsTakenItBlinksSlowly_data();
    void whileTheLinkIsTakenItBlinksSlowly();
    void behindAnotherKeyItWaits_data();
    void behindAnotherKeyItWaits();
    void theStatusBlinks();
    void blinkingIsFasterDuringTheRun();
    void turnsGoRoundAmongWindowsOfAllKinds();
    void theSecondOfTwoCasesWaitsForTheFirst();
    void closingAsks_data();
    void closingAsks();
    void closedInItsRunItRefuses_data();
    void closedInItsRunItRefuses();
    void aPendingWindowMayGoWhileAnotherJobRuns();
    void closingWithdrawsTheKey_data();
    void closingWithdrawsTheKey();
    void aKeyThatStandsTwiceGoesTwice();
    void aWindowThatWasNeverShownGoesUnasked();
    void theCloseButtonCloses_data();
    void theCloseButtonCloses();
    void anEmptyQueueClosesTheWindow_data();
    void anEmptyQueueClosesTheWindow();
};

void tst_CaseWindows::atLoad_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("state");
    QTest::newRow("case") << Which::Case << u"frmCaseDetails"_s << QString();
    QTest::newRow("civil") << Which::Civil << u"frmCivilCaseDetails"_s << u"WA"_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"frmNCCaseDetails"_s << u"WA"_s;
}

void tst_CaseWindows::atLoad()
{
    QFETCH(Which, which);
    const std::unique_ptr<CaseWindow> window(MakeCase(which));
    QTEST(window->objectName(), "name");
    QTEST(window->lblState, "state");
    QCOMPARE(TextOf(window.get(), "lblStatus"), u"Pending .."_s);
    QCOMPARE(TextOf(window.get(), "lblWarning"), QString());
    QCOMPARE(window->Timer1->interval(), 2000);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QCOMPARE(window->TmrSearchOnDemand->interval(), 900);
    QCOMPARE(window->TmrFlash->interval(), 0);
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QVERIFY(!window->TmrFlash->isActive());
    QVERIFY(!window->StopRequested && !window->SearchStopped && !window->CloseRequested);
    QVERIFY(!window->chkBK && !window->chkBKYass && !window->chkAutoPrint);
    QVERIFY(ButtonOf(window.get(), "cmdStopSearching")->isEnabled());
    QVERIFY(!ButtonOf(window.get(), "cmdPrintDetails")->isEnabled());
    QCOMPARE(CaptionsOf(window.get()), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window.get()), u"frameTabs_0"_s);
}

void tst_CaseWindows::aLoadAsksAgainWhatWasDeclined()
{
    CaseAnswers.bOnDemandPrompt = false;
    CaseAnswers.bOnDemandRetry = false;
    const std::unique_ptr<CaseWindow> window(MakeCase(Which::Case));
    QVERIFY(CaseAnswers.bOnDemandPrompt);
    QVERIFY(CaseAnswers.bOnDemandRetry);
}

void tst_CaseWindows::whatTheStarterHandsOver_data()
{
    EachWindow();
}

void tst_CaseWindows::whatTheStarterHandsOver()
{
    QFETCH(Which, which);
    const std::unique_ptr<CaseWindow> window(MakeCase(which));
    window->SetCaseDetailsHdr(u"Case Details (02-1-00123-4)"_s);
    window->SetCourtName(u"King County, Washington Superior Courts"_s);
    QCOMPARE(TextOf(window.get(), "lblCaseDetailsHdr"), u"Case Details (02-1-00123-4)"_s);
    QCOMPARE(window->lblCaseDetailsHdr(), u"Case Details (02-1-00123-4)"_s);
    QCOMPARE(TextOf(window.get(), "lblCourtName"), u"King County, Washington Superior Courts"_s);
    QCOMPARE(window->lblCourtName(), u"King County, Washington Superior Courts"_s);
    window->SetCaseTitle(u"Pending .. "_s);
    window->SetDateFiled(u"01/02/2002"_s);
    // A case that is not civil has a name in its place.
    if (which != Which::NonCivil) {
        QCOMPARE(TextOf(window.get(), "lblCaseTitle"), u"Pending .. "_s);
        QCOMPARE(window->lblCaseTitle(), u"Pending .. "_s);
    }
    QCOMPARE(TextOf(window.get(), "lblDateFiled"), u"01/02/2002"_s);
    QCOMPARE(window->lblDateFiled(), u"01/02/2002"_s);
    if (auto *superior = qobject_cast<frmCaseDetails *>(window.get())) {
        superior->SetTopFrameCaseType(u"Civil/Plaintiff"_s);
        QCOMPARE(TextOf(superior, "lblTopFrameCaseType"), u"Civil/Plaintiff"_s);
        QCOMPARE(superior->lblTopFrameCaseType(), u"Civil/Plaintiff"_s);
    }
}

void tst_CaseWindows::districtWindowsNameTheCase_data()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

void tst_CaseWindows::districtWindowsNameTheCase()
{
    QFETCH(Which, which);
    const std::unique_ptr<CaseWindow> made(MakeCase(which));
    auto *window = qobject_cast<DiscisCaseWindow *>(made.get());
    window->SetCaseType(u"NON-CIVIL"_s);
    window->SetCaseNo(u"C0012345"_s);
    QCOMPARE(TextOf(window, "lblCaseType"), u"NON-CIVIL"_s);
    QCOMPARE(window->lblCaseType(), u"NON-CIVIL"_s);
    QCOMPARE(TextOf(window, "lblCaseNo"), u"C0012345"_s);
    QCOMPARE(window->lblCaseNo(), u"C0012345"_s);
}

void tst_CaseWindows::textsAreShownAsTheyAre_data()
{
    EachWindow();
}

void tst_CaseWindows::textsAreShownAsTheyAre()
{
    QFETCH(Which, which);
    const CaseWindow *window = pending(which);
    const QList<QLabel *> labels = window->findChildren<QLabel *>();
    QVERIFY(labels.size() >= 4);
    for (const QLabel *label : labels)
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

void tst_CaseWindows::aTickSetsTheCaption_data()
{
    EachWindow();
}

void tst_CaseWindows::aTickSetsTheCaption()
{
    QFETCH(Which, which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    window->txtCaseNumber = u"*02-1-00123-4"_s;
    window->setWindowTitle(u"02-1-00123-4 - Case Details"_s);
    Begin(window);
    QTRY_COMPARE(window->windowTitle(), u"Case Details (*02-1-00123-4)"_s);
}

void tst_CaseWindows::bankruptcyIsSeenByTheState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("bankruptcy");
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s})
        QTest::newRow(qPrintable(state)) << state << true;
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::newRow(qPrintable(state)) << state << false;
}

void tst_CaseWindows::bankruptcyIsSeenByTheState()
{
    QFETCH(QString, state);
    QFETCH(bool, bankruptcy);
    Global.bSearchInProgress = true;
    CaseWindow *window = pending();
    window->lblState = state;
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QCOMPARE(window->chkBK, bankruptcy);
    // Its lines come from the server: there is nothing to be built before that.
    QCOMPARE(window->lboxTabReqQueue.ListCount() == 0, bankruptcy);
    QCOMPARE(CaptionsOf(window).size() == 1, bankruptcy);
    Global.bSearchInProgress = false;
}

void tst_CaseWindows::theFirstTickCutsTheStrip_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QStringList>("captions");
    const QStringList first{u"Summary"_s, u"Names"_s, u"Docket"_s};
    QTest::newRow("case") << Which::Case
                          << first + QStringList{u"Judgments"_s,  u"Charges"_s,  u"Sentence"_s,
                                                 u"Accounting"_s, u"Schedule"_s, u"Documents"_s};
    QTest::newRow("civil") << Which::Civil << first + QStringList{u"Judgments"_s};
    QTest::newRow("non-civil") << Which::NonCivil << first + QStringList{u"Violations"_s};
}

void tst_CaseWindows::theFirstTickCutsTheStrip()
{
    QFETCH(Which, which);
    QFETCH(QStringList, captions);
    Global.bSearchInProgress = true;
    CaseWindow *window = pending(which);
    QCOMPARE(CaptionsOf(window).size(), 1);
    Begin(window);
    QTRY_COMPARE(CaptionsOf(window), captions);
    QCOMPARE(window->TabCaptions(), captions);
    // Only the first tick does it: what the window was given later stays.
    const QStringList built = window->lboxTabReqQueue.Lines();
    window->txtCaseNumber = u"02-5-00123-4"_s;
    QTRY_COMPARE(window->windowTitle(), u"Case Details (02-5-00123-4)"_s);
    QCOMPARE(CaptionsOf(window), captions);
    QCOMPARE(window->lboxTabReqQueue.Lines(), built);
    Global.bSearchInProgress = false;
}

void tst_CaseWindows::onItsTurnItAsksForTheSummary_data()
{
    EachWindow();
}

void tst_CaseWindows::onItsTurnItAsksForTheSummary()
{
    QFETCH(Which, which);
    court->Expect(summaryLine(which)).Reply({});
    CaseWindow *window = pending(which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    bool inProgress = false;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   inProgress = Global.bSearchInProgress;
                   court->SendTokens({u"EOF~"_s});
               });
    Run(window);
    QVERIFY(inProgress);
    QCOMPARE(TextOf(window, "lblStatus"), nothingThere(which));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_CaseWindows::whileTheLinkIsTakenItBlinksSlowly_data()
{
    EachWindow();
}

void tst_CaseWindows::whileTheLinkIsTakenItBlinksSlowly()
{
    QFETCH(Which, which);
    Global.bSearchInProgress = true;
    CaseWindow *window = pending(which);
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    Global.bSearchInProgress = false;
}

void tst_CaseWindows::behindAnotherKeyItWaits_data()
{
    EachWindow();
}

void tst_CaseWindows::behindAnotherKeyItWaits()
{
    QFETCH(Which, which);
    court->Expect(summaryLine(which)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    int ticks = 0;
    connect(window->Timer1, &QTimer::timeout, window, [&ticks] { ++ticks; });
    Begin(window);
    QTRY_VERIFY(ticks >= 3);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(court->Requests(), QStringList());
    frmQueue::Form().FIFO.RemoveItem(0);
    QVERIFY(Finished(window));
    QCOMPARE(TextOf(window, "lblStatus"), nothingThere(which));
}

void tst_CaseWindows::theStatusBlinks()
{
    CaseWindow *window = pending();
    const auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    window->tmrBlink->setInterval(1);
    QList<bool> seen;
    connect(
        window->tmrBlink, &QTimer::timeout, window, [&] { seen.append(status->isVisible()); },
        Qt::QueuedConnection);
    QTRY_VERIFY(seen.size() >= 4);
    for (qsizetype i = 1; i < seen.size(); ++i)
        QCOMPARE(seen[i], !seen[i - 1]);
    window->tmrBlink->stop();
}

void tst_CaseWindows::blinkingIsFasterDuringTheRun()
{
    court->Expect(summaryLine(Which::Case)).Reply({});
    CaseWindow *window = pending();
    window->tmrBlink->setInterval(900);
    int interval = 0;
    bool blinks = false;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   interval = window->tmrBlink->interval();
                   blinks = window->tmrBlink->isActive();
                   court->SendTokens({u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(interval, 700);
    QVERIFY(blinks);
}

void tst_CaseWindows::turnsGoRoundAmongWindowsOfAllKinds()
{
    court->Expect(RequestLine()).Reply({});
    for (const Which which : allWindows)
        court->Expect(summaryLine(which)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *search = desk->MakePending({RequestLine()});
    QList<CaseWindow *> windows;
    for (const Which which : allWindows)
        windows.append(pending(which));
    for (CaseWindow *window : {windows[2], windows[1], windows[0]})
        Begin(window);
    search->Timer1->start(1);
    QStringList meanwhile;
    desk->When([&] { return windows[0]->tmrBlink->interval() == 900; },
               [&] {
                   for (const CaseWindow *window : windows)
                       meanwhile.append(TextOf(window, "lblStatus"));
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finished(windows[2]));
    QCOMPARE(meanwhile, QStringList(3, u"Pending .."_s));
    QCOMPARE(TextOf(search, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    for (const Which which : allWindows)
        QCOMPARE(TextOf(windows[static_cast<int>(which)], "lblStatus"), nothingThere(which));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseWindows::theSecondOfTwoCasesWaitsForTheFirst()
{
    court->Expect(summaryLine(Which::Case)).Reply({});
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"03-2-00456-7"_s)).Reply({u"EOF~"_s});
    CaseWindow *first = Superior();
    CaseWindow *second = Superior(u"03-2-00456-7"_s);
    Begin(second);
    QString status;
    bool enabled = false;
    desk->When([&] { return second->tmrBlink->interval() == 900; },
               [&] {
                   status = TextOf(second, "lblStatus");
                   enabled = ButtonOf(second, "cmdStopSearching")->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    Run(first);
    QCOMPARE(status, u"Pending .."_s);
    QVERIFY(enabled);
    QVERIFY(Finished(second));
    QCOMPARE(TextOf(second, "lblStatus"), nothingThere(Which::Case));
}

void tst_CaseWindows::closingAsks_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<bool>("yes");
    for (const Which which : allWindows) {
        QTest::addRow("%s, yes", NameOf(which)) << which << true;
        QTest::addRow("%s, no", NameOf(which)) << which << false;
    }
}

void tst_CaseWindows::closingAsks()
{
    QFETCH(Which, which);
    QFETCH(bool, yes);
    Global.bShowAlerts = true;
    const QPointer<CaseWindow> window(pending(which));
    window->Timer1->start();
    desk->Boxes.Expect(closeQuestion, closeTitle, yes ? MsgAnswer::Yes : MsgAnswer::No);
    window->close();
    QCOMPARE(window->isVisible(), !yes);
    QCOMPARE(window->Timer1->isActive(), !yes);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), yes ? 0 : 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window.isNull(), yes);
}

void tst_CaseWindows::closedInItsRunItRefuses_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<UnloadMode>("mode");
    for (const Which which : allWindows) {
        QTest::addRow("%s, by the user", NameOf(which)) << which << UnloadMode::ControlMenu;
        QTest::addRow("%s, by code", NameOf(which)) << which << UnloadMode::Code;
    }
}

void tst_CaseWindows::closedInItsRunItRefuses()
{
    QFETCH(Which, which);
    QFETCH(UnloadMode, mode);
    Global.bShowAlerts = true;
    court->Expect(summaryLine(which)).Reply({});
    CaseWindow *window = pending(which);
    desk->Boxes.Expect(refusal, refusalTitle);
    bool gone = true;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   gone = window->Unload(mode);
                   court->SendTokens({u"EOF~"_s});
               });
    Run(window);
    QVERIFY(!gone);
    QVERIFY(window->isVisible());
    QCOMPARE(TextOf(window, "lblStatus"), nothingThere(which));
}

void tst_CaseWindows::aPendingWindowMayGoWhileAnotherJobRuns()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *search = desk->MakePending({RequestLine()});
    const QPointer<CaseWindow> window(pending());
    search->Timer1->start(1);
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   window->close();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(search));
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseWindows::closingWithdrawsTheKey_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<UnloadMode>("mode");
    for (const Which which : allWindows) {
        QTest::addRow("%s, by the user", NameOf(which)) << which << UnloadMode::ControlMenu;
        QTest::addRow("%s, by code", NameOf(which)) << which << UnloadMode::Code;
        QTest::addRow("%s, with the main window", NameOf(which)) << which << UnloadMode::MdiParent;
        QTest::addRow("%s, with the session", NameOf(which)) << which << UnloadMode::SessionEnd;
    }
}

void tst_CaseWindows::closingWithdrawsTheKey()
{
    QFETCH(Which, which);
    QFETCH(UnloadMode, mode);
    Global.bShowAlerts = false;
    frmQueue::Form().FIFO.AddItem(otherKey);
    const QPointer<CaseWindow> window(pending(which));
    const QList<QTimer *> timers{window->Timer1, window->tmrBlink, window->TmrSearchOnDemand,
                                 window->TmrFlash};
    for (QTimer *timer : timers)
        timer->start(60'000);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
    QVERIFY(window->Unload(mode));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    for (const QTimer *timer : timers)
        QVERIFY2(!timer->isActive(), qPrintable(timer->objectName()));
}

void tst_CaseWindows::aKeyThatStandsTwiceGoesTwice()
{
    Global.bShowAlerts = false;
    CaseWindow *window = pending();
    frmQueue::Form().FIFO.AddItem(window->txtMasterKey);
    frmQueue::Form().FIFO.AddItem(otherKey);
    QVERIFY(window->Unload());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
}

void tst_CaseWindows::aWindowThatWasNeverShownGoesUnasked()
{
    Global.bShowAlerts = true;
    const QPointer<CaseWindow> window(MakeCase(Which::Case));
    QVERIFY(window->Unload());
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseWindows::theCloseButtonCloses_data()
{
    EachWindow();
}

void tst_CaseWindows::theCloseButtonCloses()
{
    QFETCH(Which, which);
    Global.bShowAlerts = false;
    const QPointer<CaseWindow> window(pending(which));
    ButtonOf(window, "cmdCloseDetails")->click();
    QTRY_VERIFY(window.isNull());
}

void tst_CaseWindows::anEmptyQueueClosesTheWindow_data()
{
    EachWindow();
}

void tst_CaseWindows::anEmptyQueueClosesTheWindow()
{
    QFETCH(Which, which);
    Global.bShowAlerts = true;
    desk->ConnectTo(*court);
    Global.bSearchInProgress = true;
    const QPointer<CaseWindow> window(pending(which));
    frmQueue::Form().FIFO.AddItem(otherKey);
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    window->lboxTabReqQueue.Clear();
    desk->Boxes.Expect(u"No Search Requests For Case Details Can Be Located! This Form will be "
                       "closed when you select OK. The Request Queue Appears to be Empty."_s,
                       u"Search Queue Empty .."_s, MsgIcon::Exclamation);
    Global.bSearchInProgress = false;
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(court->Requests(), QStringList());
    QCOMPARE(desk->Folder.Log().last(),
             u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
}

HALVANE_TEST(tst_CaseWindows)
#include "tst_CaseWindows.moc"
