#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
/// Which of the case windows a data row is about.
enum class Which { Case, Civil, NonCivil };

CaseWindow *make(Which which)
{
    switch (which) {
    case Which::Civil:
        return new frmCivilCaseDetails;
    case Which::NonCivil:
        return new frmNCCaseDetails;
    case Which::Case:
        break;
    }
    return new frmCaseDetails;
}

const QString later = u"Case details come with a later version."_s;
const QString stoppedStatus = u"Search Stopped By User .. "_s;
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;
const QString closeQuestion = u"Are you sure you want to close this form?\r\nAny data that has not "
                              "been printed or saved will be lost!"_s;
const QString closeTitle = u"Close Search Form .."_s;
const QString otherKey = u"11111111111111111111"_s;
} // namespace

Q_DECLARE_METATYPE(Which)
Q_DECLARE_METATYPE(UnloadMode)

class tst_CaseWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void atLoad_data();
    void atLoad();
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
    void onItsTurnItSaysWhatItCannotDo_data();
    void onItsTurnItSaysWhatItCannotDo();
    void aStopRequestGivesUp_data();
    void aStopRequestGivesUp();
    void aStopRequestGoesBeforeARunningJob();
    void whileTheLinkIsTakenItBlinksSlowly_data();
    void whileTheLinkIsTakenItBlinksSlowly();
    void behindAnotherKeyItWaits_data();
    void behindAnotherKeyItWaits();
    void blinkingIsFasterDuringTheRun();
    void turnsGoRoundAmongWindowsOfAllKinds();
    void stopWhilePendingWithdrawsTheKey_data();
    void stopWhilePendingWithdrawsTheKey();
    void aDeclinedStopLeavesTheButtonOff();
    void aPendingCaseDoesNotStartUnderTheQuestion();
    void pendingOnlyByItsExactText();
    void stopRequestByState_data();
    void stopRequestByState();
    void aStopThatCannotBeSentReleasesTheTurn();
    void closingAsks_data();
    void closingAsks();
    void aPendingWindowMayGoWhileAnotherJobRuns();
    void closingWithdrawsTheKey_data();
    void closingWithdrawsTheKey();
    void aWindowThatWasNeverShownGoesUnasked();
    void theCloseButtonCloses_data();
    void theCloseButtonCloses();

private:
    static void eachWindow();
    CaseWindow *pending(Which which = Which::Case);

    std::unique_ptr<SearchDesk> desk;
    std::unique_ptr<ScriptedCourt> court;
};

void tst_CaseWindows::init()
{
    desk = std::make_unique<SearchDesk>();
    court = std::make_unique<ScriptedCourt>();
}

void tst_CaseWindows::cleanup()
{
    const QString boxes = desk->Boxes.Complaints();
    const bool allHappened = desk->AllHappened();
    const QString conversation = court->Complaints();
    desk.reset();
    court.reset();
    QCOMPARE(boxes, QString());
    QVERIFY(allHappened);
    QCOMPARE(conversation, QString());
}

void tst_CaseWindows::eachWindow()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("case") << Which::Case;
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

CaseWindow *tst_CaseWindows::pending(Which which)
{
    CaseWindow *window = make(which);
    window->txtCaseNumber = u"02-1-00123-4"_s;
    if (which == Which::Case)
        window->lblState = u"WA"_s;
    desk->Enqueue(window);
    return window;
}

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
    const std::unique_ptr<CaseWindow> window(make(which));
    QTEST(window->objectName(), "name");
    QTEST(window->lblState, "state");
    QCOMPARE(TextOf(window.get(), "lblStatus"), u"Pending .."_s);
    QCOMPARE(TextOf(window.get(), "lblWarning"), QString());
    QCOMPARE(window->Timer1->interval(), 2000);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
    QVERIFY(!window->StopRequested && !window->SearchStopped);
    QVERIFY(!window->chkBK && !window->chkBKYass && !window->chkAutoPrint);
    QVERIFY(ButtonOf(window.get(), "cmdStopSearching")->isEnabled());
}

void tst_CaseWindows::whatTheStarterHandsOver_data()
{
    eachWindow();
}

void tst_CaseWindows::whatTheStarterHandsOver()
{
    QFETCH(Which, which);
    const std::unique_ptr<CaseWindow> window(make(which));
    window->SetCaseDetailsHdr(u"Case Details (02-1-00123-4)"_s);
    window->SetCourtName(u"King County, Washington Superior Courts"_s);
    QCOMPARE(TextOf(window.get(), "lblCaseDetailsHdr"), u"Case Details (02-1-00123-4)"_s);
    QCOMPARE(window->lblCaseDetailsHdr(), u"Case Details (02-1-00123-4)"_s);
    QCOMPARE(TextOf(window.get(), "lblCourtName"), u"King County, Washington Superior Courts"_s);
    QCOMPARE(window->lblCourtName(), u"King County, Washington Superior Courts"_s);
    window->SetCaseTitle(u"Pending .. "_s);
    window->SetDateFiled(u"01/02/2002"_s);
    QCOMPARE(TextOf(window.get(), "lblCaseTitle"), u"Pending .. "_s);
    QCOMPARE(window->lblCaseTitle(), u"Pending .. "_s);
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
    QTest::addColumn<QString>("type");
    QTest::newRow("civil") << Which::Civil << u"CIVIL  CV"_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"NON-CIVIL"_s;
}

void tst_CaseWindows::districtWindowsNameTheCase()
{
    QFETCH(Which, which);
    const std::unique_ptr<CaseWindow> made(make(which));
    auto *window = qobject_cast<DiscisCaseWindow *>(made.get());
    QTEST(window->lblCaseType(), "type");
    window->SetCaseType(u"OTHER"_s);
    window->SetCaseNo(u"C0012345"_s);
    QCOMPARE(TextOf(window, "lblCaseType"), u"OTHER"_s);
    QCOMPARE(TextOf(window, "lblCaseNo"), u"C0012345"_s);
    QCOMPARE(window->lblCaseNo(), u"C0012345"_s);
}

void tst_CaseWindows::textsAreShownAsTheyAre_data()
{
    eachWindow();
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
    eachWindow();
}

void tst_CaseWindows::aTickSetsTheCaption()
{
    QFETCH(Which, which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    window->setWindowTitle(u"02-1-00123-4 - Case Details"_s);
    window->Timer1->start(1);
    QTRY_COMPARE(window->windowTitle(), u"Case Details (02-1-00123-4)"_s);
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
    CaseWindow *window = pending();
    window->lblState = state;
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), later);
    QTEST(window->chkBK, "bankruptcy");
}

void tst_CaseWindows::onItsTurnItSaysWhatItCannotDo_data()
{
    eachWindow();
}

void tst_CaseWindows::onItsTurnItSaysWhatItCannotDo()
{
    QFETCH(Which, which);
    desk->ConnectTo(*court);
    CaseWindow *window = pending(which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), later);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QCOMPARE(court->Requests(), QStringList());
}

void tst_CaseWindows::aStopRequestGivesUp_data()
{
    eachWindow();
}

void tst_CaseWindows::aStopRequestGivesUp()
{
    QFETCH(Which, which);
    Global.bStopRequested = true;
    CaseWindow *window = pending(which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(TextOf(window, "lblWarning"), u"Search Stopped .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->SearchStopped);
}

void tst_CaseWindows::aStopRequestGoesBeforeARunningJob()
{
    Global.bStopRequested = true;
    Global.bSearchInProgress = true;
    CaseWindow *window = pending();
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QVERIFY(Global.bSearchInProgress);
}

void tst_CaseWindows::whileTheLinkIsTakenItBlinksSlowly_data()
{
    eachWindow();
}

void tst_CaseWindows::whileTheLinkIsTakenItBlinksSlowly()
{
    QFETCH(Which, which);
    Global.bSearchInProgress = true;
    CaseWindow *window = pending(which);
    window->Timer1->start(1);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_CaseWindows::behindAnotherKeyItWaits_data()
{
    eachWindow();
}

void tst_CaseWindows::behindAnotherKeyItWaits()
{
    QFETCH(Which, which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    window->Timer1->start(1);
    QTest::qWait(30);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(window->Timer1->isActive());
    frmQueue::Form().FIFO.RemoveItem(0);
    QTRY_COMPARE(TextOf(window, "lblStatus"), later);
}

void tst_CaseWindows::blinkingIsFasterDuringTheRun()
{
    CaseWindow *window = pending();
    window->tmrBlink->setInterval(900);
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), later);
    QCOMPARE(window->tmrBlink->interval(), 700);
}

void tst_CaseWindows::turnsGoRoundAmongWindowsOfAllKinds()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    frmNameSearchResults *search = desk->MakePending({RequestLine()});
    CaseWindow *first = pending(Which::Case);
    CaseWindow *second = pending(Which::Civil);
    CaseWindow *third = pending(Which::NonCivil);
    for (JobWindow *window : QList<JobWindow *>{third, second, first, search})
        window->Timer1->start(1);
    QStringList meanwhile;
    desk->When([&] { return first->tmrBlink->interval() == 900; },
               [&] {
                   for (const CaseWindow *window : {first, second, third})
                       meanwhile.append(TextOf(window, "lblStatus"));
                   court->SendTokens({u"EOF~"_s});
               });
    QTRY_COMPARE(TextOf(third, "lblStatus"), later);
    QCOMPARE(meanwhile, QStringList(3, u"Pending .."_s));
    QCOMPARE(TextOf(search, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    QCOMPARE(TextOf(first, "lblStatus"), later);
    QCOMPARE(TextOf(second, "lblStatus"), later);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseWindows::stopWhilePendingWithdrawsTheKey_data()
{
    eachWindow();
}

void tst_CaseWindows::stopWhilePendingWithdrawsTheKey()
{
    QFETCH(Which, which);
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(window->StopRequested);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bUserStoppedSearch);
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QTest::qWait(20);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_CaseWindows::aDeclinedStopLeavesTheButtonOff()
{
    Global.bShowAlerts = true;
    CaseWindow *window = pending();
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!window->StopRequested);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    // It still takes its turn.
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), later);
}

void tst_CaseWindows::aPendingCaseDoesNotStartUnderTheQuestion()
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    CaseWindow *window = pending();
    desk->Boxes.Meanwhile([&] {
        window->Timer1->start(1);
        QTest::qWait(30);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_CaseWindows::pendingOnlyByItsExactText()
{
    court->Expect(u"\u00A6STOP"_s).Reply({});
    desk->ConnectTo(*court);
    CaseWindow *window = pending();
    window->findChild<QLabel *>(u"lblStatus"_s)->setText(u"pending"_s);
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(desk->Folder.Logged(u"Cannot Stop Pending Search"_s));
    QTRY_COMPARE(court->Requests().size(), 1);
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
}

void tst_CaseWindows::stopRequestByState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("request");
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s})
        QTest::newRow(qPrintable(state)) << state << u"BKRPT~STOP~"_s;
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::newRow(qPrintable(state)) << state << u"\u00A6STOP"_s;
}

void tst_CaseWindows::stopRequestByState()
{
    QFETCH(QString, state);
    QFETCH(QString, request);
    court->Expect(request).Reply({});
    desk->ConnectTo(*court);
    CaseWindow *window = pending();
    window->lblState = state;
    QVERIFY(window->StopActiveSearch());
    QTRY_COMPARE(court->Requests(), QStringList{request});
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_CaseWindows::aStopThatCannotBeSentReleasesTheTurn()
{
    // No connection.
    CaseWindow *window = pending();
    frmQueue::Form().FIFO.AddItem(otherKey);
    QVERIFY(window->StopActiveSearch());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(desk->Folder.Logged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s));
}

void tst_CaseWindows::closingAsks_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<bool>("yes");
    for (const Which which : {Which::Case, Which::Civil, Which::NonCivil}) {
        const QString window = QString::number(static_cast<int>(which));
        QTest::newRow(qPrintable(u"yes "_s + window)) << which << true;
        QTest::newRow(qPrintable(u"no "_s + window)) << which << false;
    }
}

void tst_CaseWindows::closingAsks()
{
    QFETCH(Which, which);
    QFETCH(bool, yes);
    Global.bShowAlerts = true;
    const QPointer<CaseWindow> window(pending(which));
    desk->Boxes.Expect(closeQuestion, closeTitle, yes ? MsgAnswer::Yes : MsgAnswer::No);
    window->close();
    QCOMPARE(window->isVisible(), !yes);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), yes ? 0 : 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window.isNull(), yes);
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
    QTest::addColumn<UnloadMode>("mode");
    QTest::newRow("by the user") << UnloadMode::ControlMenu;
    QTest::newRow("by code") << UnloadMode::Code;
    QTest::newRow("with the main window") << UnloadMode::MdiParent;
}

void tst_CaseWindows::closingWithdrawsTheKey()
{
    QFETCH(UnloadMode, mode);
    Global.bShowAlerts = false;
    frmQueue::Form().FIFO.AddItem(otherKey);
    const QPointer<CaseWindow> window(pending());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
    QVERIFY(window->Unload(mode));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->Timer1->isActive());
}

void tst_CaseWindows::aWindowThatWasNeverShownGoesUnasked()
{
    Global.bShowAlerts = true;
    const QPointer<CaseWindow> window(new frmCaseDetails);
    QVERIFY(window->Unload());
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseWindows::theCloseButtonCloses_data()
{
    eachWindow();
}

void tst_CaseWindows::theCloseButtonCloses()
{
    QFETCH(Which, which);
    Global.bShowAlerts = false;
    const QPointer<CaseWindow> window(pending(which));
    ButtonOf(window, "cmdCloseDetails")->click();
    QTRY_VERIFY(window.isNull());
}

QTEST_MAIN(tst_CaseWindows)
#include "tst_CaseWindows.moc"
