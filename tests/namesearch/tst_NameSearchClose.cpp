#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString closeQuestion = u"Are you sure you want to close this form?\r\n\r\nAny data that has "
                              "not been printed or saved will be lost!"_s;
const QString closeTitle = u"Close Search Form .."_s;
const QString refusal = u"This form cannot be closed until the current search completes."_s;
const QString refusalTitle = u"Stop Current Search .."_s;
const QString stopRequest = u"STOP¦"_s;
const QString exitedByUser = u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s;

/// Closes a window in one of the ways that UnloadMode tells apart.
void closeBy(frmNameSearchResults *window, UnloadMode mode)
{
    if (mode == UnloadMode::ControlMenu)
        window->close();
    else
        window->Unload(mode);
}
} // namespace

Q_DECLARE_METATYPE(UnloadMode)

class tst_NameSearchClose : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void refusedWhileSearching_data();
    void refusedWhileSearching();
    void asked_data();
    void asked();
    void passesWithoutAlerts();
    void passesForOtherReasons_data();
    void passesForOtherReasons();
    void passesForOtherReasonsWhileSearching();
    void unconditionalCloseAsksNothing();
    void unconditionalCloseWhileSearching();
    void aPendingWindowIsNotTheSearcher();
    void aPendingWindowLeavesItsKey();
    void theQueueHoldsAtAKeyThatWasLeft();
    void rightAfterStopTheRunGoesOnToItsEnd();
    void rightAfterStopWithTheConnectionDropped();
    void rightAfterStopWhileTheStopIsStillBeingSent();
    void aFinishedWindowIsGone();
    void noSearchStartsUnderTheQuestion();
    void theFrameInTheMainWindowIsRefusedToo();
    void theFrameInTheMainWindowGoesWithItsWindow();
};

void tst_NameSearchClose::init()
{
    SearchTest::init();
    Global.bShowAlerts = true;
}

void tst_NameSearchClose::refusedWhileSearching_data()
{
    QTest::addColumn<UnloadMode>("mode");
    QTest::newRow("by the control menu") << UnloadMode::ControlMenu;
    QTest::newRow("by code") << UnloadMode::Code;
}

void tst_NameSearchClose::refusedWhileSearching()
{
    QFETCH(UnloadMode, mode);
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->Boxes.Expect(refusal, refusalTitle);
    bool visible = false;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   closeBy(window, mode);
                   visible = window->isVisible();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(visible);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
}

void tst_NameSearchClose::asked_data()
{
    QTest::addColumn<UnloadMode>("mode");
    QTest::addColumn<bool>("yes");
    QTest::newRow("by the control menu, yes") << UnloadMode::ControlMenu << true;
    QTest::newRow("by the control menu, no") << UnloadMode::ControlMenu << false;
    QTest::newRow("by code, yes") << UnloadMode::Code << true;
    QTest::newRow("by code, no") << UnloadMode::Code << false;
}

void tst_NameSearchClose::asked()
{
    QFETCH(UnloadMode, mode);
    QFETCH(bool, yes);
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    desk->Boxes.Expect(closeQuestion, closeTitle, yes ? MsgAnswer::Yes : MsgAnswer::No);
    closeBy(window, mode);
    QCOMPARE(window->isVisible(), !yes);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window.isNull(), yes);
}

void tst_NameSearchClose::passesWithoutAlerts()
{
    Global.bShowAlerts = false;
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_NameSearchClose::passesForOtherReasons_data()
{
    QTest::addColumn<UnloadMode>("mode");
    QTest::newRow("the session ends") << UnloadMode::SessionEnd;
    QTest::newRow("the task manager") << UnloadMode::TaskManager;
    QTest::newRow("the main window goes") << UnloadMode::MdiParent;
}

void tst_NameSearchClose::passesForOtherReasons()
{
    QFETCH(UnloadMode, mode);
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    QVERIFY(window->Unload(mode));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
}

void tst_NameSearchClose::passesForOtherReasonsWhileSearching()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   window->Unload(UnloadMode::SessionEnd);
                   court->SendTokens({ResultLine(u"A"_s), u"EOF~"_s});
               });
    QTRY_VERIFY(window.isNull());
    // Nobody looks at the rest: it ends as if it had been stopped.
    QTRY_VERIFY(
        desk->Folder.Logged(u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s));
    QVERIFY(!Global.bSearchInProgress);
}

void tst_NameSearchClose::unconditionalCloseAsksNothing()
{
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    window->lbl911 = u"T"_s;
    QVERIFY(window->Unload());
    QVERIFY(desk->Folder.Logged(u"Unconditional Form Close Called. Closing Name Search form."_s));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
}

void tst_NameSearchClose::unconditionalCloseWhileSearching()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   window->lbl911 = u"T"_s;
                   window->close();
                   court->SendTokens({u"EOF~"_s});
               });
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearchClose::aPendingWindowIsNotTheSearcher()
{
    // Some other job is searching: this window may go.
    Global.bSearchInProgress = true;
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::Yes);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
}

void tst_NameSearchClose::aPendingWindowLeavesItsKey()
{
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    const QString key = window->txtMasterKey;
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::Yes);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{key});
}

void tst_NameSearchClose::theQueueHoldsAtAKeyThatWasLeft()
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    const QPointer<frmNameSearchResults> left(desk->MakePending({RequestLine()}));
    frmNameSearchResults *behind = desk->Start({RequestLine(u"SMYTHE"_s)});
    left->close();
    Ticks(50);
    QVERIFY(left.isNull());
    QCOMPARE(TextOf(behind, "lblStatus"), u"Pending .."_s);
    QVERIFY(behind->Timer1->isActive());
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(court->Requests(), QStringList());
    // A logout ends the wait.
    Global.bStopRequested = true;
    QTRY_COMPARE(TextOf(behind, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_NameSearchClose::rightAfterStopTheRunGoesOnToItsEnd()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    bool aliveOnTheStack = false;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { QTest::mouseClick(ButtonOf(window, "cmdStopSearching"), Qt::LeftButton); });
    // Refused while the stop itself is being sent, free as soon as it is out.
    desk->When([&] { return Global.bUserStoppedSearch && court->Requests().size() == 2; },
               [&] { window->close(); });
    desk->When([&] { return window && !window->isVisible(); },
               [&] {
                   aliveOnTheStack = !window.isNull();
                   court->SendTokens({ResultLine(u"A"_s), u"Searching~King~County~"_s, u"EOF~"_s});
               });
    QTRY_VERIFY(window.isNull());
    QVERIFY(aliveOnTheStack);
    QCOMPARE(desk->Folder.TimesLogged(exitedByUser), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_NameSearchClose::rightAfterStopWithTheConnectionDropped()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { QTest::mouseClick(ButtonOf(window, "cmdStopSearching"), Qt::LeftButton); });
    desk->When([&] { return Global.bUserStoppedSearch && court->Requests().size() == 2; },
               [&] {
                   window->close();
                   court->DropClient();
               });
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Folder.TimesLogged(
                 u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s),
             1);
}

void tst_NameSearchClose::rightAfterStopWhileTheStopIsStillBeingSent()
{
    FakeSocket *socket = desk->ConnectToNothing();
    Global.bShowAlerts = false;
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->When([&] { return socket->sent.size() == 1 && !Global.bSendBusy; },
               [&] {
                   socket->completesSends = false;
                   QTest::mouseClick(ButtonOf(window, "cmdStopSearching"), Qt::LeftButton);
               });
    desk->When([&] { return socket->sent.size() == 2; },
               [&] {
                   Global.bSearchInProgress = false;
                   window->close();
                   socket->Arrive(ScriptedCourt::Tokens({u"EOF~"_s}));
                   Q_EMIT socket->SendComplete();
               });
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Folder.TimesLogged(exitedByUser), 1);
}

void tst_NameSearchClose::aFinishedWindowIsGone()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    QVERIFY(desk->Finish(window));
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::Yes);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
}

void tst_NameSearchClose::noSearchStartsUnderTheQuestion()
{
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    desk->Boxes.Meanwhile([&] {
        window->Timer1->start(1);
        Ticks(30);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    });
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::Yes);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window.isNull());
    QCOMPARE(court->Requests(), QStringList());
}

void tst_NameSearchClose::theFrameInTheMainWindowIsRefusedToo()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    frmMain main;
    main.show();
    Global.bShowAlerts = true;
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    main.ShowChild(window);
    auto *frame = qobject_cast<QMdiSubWindow *>(window->parentWidget());
    QVERIFY(frame);
    desk->Boxes.Expect(refusal, refusalTitle);
    window->Timer1->start(1);
    bool closed = true;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   closed = frame->close();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!closed);
    QVERIFY(window->isVisible());
}

void tst_NameSearchClose::theFrameInTheMainWindowGoesWithItsWindow()
{
    frmMain main;
    main.show();
    Global.bShowAlerts = true;
    const QPointer<frmNameSearchResults> window(desk->MakePending({RequestLine()}));
    main.ShowChild(window);
    const QPointer<QMdiSubWindow> frame(qobject_cast<QMdiSubWindow *>(window->parentWidget()));
    QVERIFY(frame);
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::No);
    QVERIFY(!frame->close());
    QVERIFY(window->isVisible());
    desk->Boxes.Expect(closeQuestion, closeTitle, MsgAnswer::Yes);
    frame->close();
    QTRY_VERIFY(window.isNull());
    QTRY_VERIFY(frame.isNull());
}

HALVANE_TEST(tst_NameSearchClose)
#include "tst_NameSearchClose.moc"
