// The window of the queue: what it shows of real windows, and what its buttons do to them.

#include "app/Startup.h"
#include "casedetails/CaseDesk.h"
#include "casedetails/CaseJob.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/WaitingList.h"
#include "jobs/frmQueue.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmMain.h"
#include "session/frmWaiting.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace {
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;
const QString skipTitle = u"Skip in the Queue .."_s;
const QString closedReason =
    u"\n\nIts window was closed without Stop before it had its turn, and it has kept its place in "
    "the queue. Nothing behind it can run.\n\nTake it out of the queue?"_s;
const QString brokenReason =
    u"\n\nIts run broke down and has kept its place in the queue. What it has fetched stays in its "
    "window. Nothing behind it can run.\n\nTake it out of the queue?"_s;
constexpr int someTicks = 5;

QString lineFor(const QString &lastName)
{
    return u"WASUP¦SEARCH¦"_s + lastName + u"¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s;
}
} // namespace

class tst_Waiting : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { WireWindows(); }
    void init() override;

    void theStatusBarCounts();
    void opensFromTheStatusBar_data();
    void opensFromTheStatusBar();
    void thereIsOneSuchWindow();
    void whatItShows();
    void aTipIsNoMarkup();
    void itFollowsWhatHappens();
    void itSeesARunBreakDown();
    void goToBringsItsWindowToTheFront_data();
    void goToBringsItsWindowToTheFront();
    void stopIsThatOfTheWindow_data();
    void stopIsThatOfTheWindow();
    void skipAKeyThatWasLeft_data();
    void skipAKeyThatWasLeft();
    void skipARunThatBrokeDown();
    void whatIsSettledUnderTheQuestion();
    void whatGoesOnUnderTheQuestionIsLeftAlone();
    void noJobBeginsUnderTheQuestion();
    void nothingIsCutWhileThereIsRoom();
    void aColumnOfTheUsersStays();
    void theChosenRowStaysChosen();
    void theRowOfAWindowGoesWithIt();
    void closesByEscape();

private:
    frmNameSearchResults *pending(const QString &lastName);
    frmWaiting *open();
    QStringList cells(int column) const;
    void choose(int row) const;
    QString commands() const;
    frmCaseDetails *brokenDown();

    QPointer<frmMain> main;
    QPointer<frmWaiting> window;
};

void tst_Waiting::init()
{
    CaseTest::init();
    main = new frmMain;
    main->show();
    Global.bShowAlerts = false;
}

/// A search that waits, as a child of the main window; its timer stands still.
frmNameSearchResults *tst_Waiting::pending(const QString &lastName)
{
    auto *search = new frmNameSearchResults(u"WA"_s);
    search->SetTxtCountyList(u"King"_s);
    desk->Enqueue(search, {lineFor(lastName)});
    main->ShowChild(search);
    search->ShownJob()->AnnounceLaunch();
    return search;
}

frmWaiting *tst_Waiting::open()
{
    Choose(main, "mnuSearchWaiting");
    window = qobject_cast<frmWaiting *>(Shown(u"frmWaiting"_s));
    return window;
}

QStringList tst_Waiting::cells(int column) const
{
    const QAbstractItemModel *model = Child<QTableView>(window, "tblWaiting")->model();
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, column).data().toString());
    return texts;
}

void tst_Waiting::choose(int row) const
{
    const auto *table = Child<QTableView>(window, "tblWaiting");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(row, 0)).center());
}

/// The buttons that can be pressed.
QString tst_Waiting::commands() const
{
    QStringList names;
    for (const char *name : {"cmdGoTo", "cmdStop", "cmdSkip"}) {
        if (ButtonOf(window, name)->isEnabled())
            names.append(QString::fromLatin1(name).mid(3));
    }
    return names.join(u' ');
}

/// A case whose docket cannot be read: its run breaks down and keeps its place.
frmCaseDetails *tst_Waiting::brokenDown()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"DOCKET"_s))
        .Reply({u"GRIDDEF~Date~Entry~wide~80~"_s, u"01/02/2003~A~"_s, u"EOF~"_s});
    frmCaseDetails *broken = Superior();
    main->ShowChild(broken);
    broken->ShownJob()->AnnounceLaunch();
    desk->ConnectTo(*court);
    desk->Time.Run(0.02);
    Begin(broken);
    desk->WaitUntil([broken] { return broken->ShownJob()->KeepsPlace(); });
    desk->Time.Stop();
    return broken;
}

void tst_Waiting::theStatusBarCounts()
{
    auto *button = Child<QToolButton>(main, "cmdWaiting");
    QVERIFY(!button->isVisible());
    pending(u"A"_s);
    frmNameSearchResults *second = pending(u"B"_s);
    QTRY_COMPARE(button->text(), u"2 waiting"_s);
    QVERIFY(button->isVisible());
    QCOMPARE(button->accessibleName(), u"Queue: 2 waiting"_s);
    QVERIFY(!button->font().bold());
    second->Unload(UnloadMode::MdiParent);
    QTRY_COMPARE(button->text(), u"1 waiting, held up"_s);
    QVERIFY(button->font().bold());
    frmQueue::Form().FIFO.Clear();
    QTRY_VERIFY(!button->isVisible());
}

void tst_Waiting::opensFromTheStatusBar_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("a click") << false;
    QTest::newRow("the keyboard") << true;
}

void tst_Waiting::opensFromTheStatusBar()
{
    QFETCH(bool, byKey);
    pending(u"A"_s);
    auto *button = Child<QToolButton>(main, "cmdWaiting");
    QTRY_VERIFY(button->isVisible());
    if (byKey) {
        QVERIFY(button->focusPolicy() & Qt::TabFocus);
        QTest::keyClick(button, Qt::Key_Space);
    } else {
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(Shown(u"frmWaiting"_s));
}

void tst_Waiting::thereIsOneSuchWindow()
{
    const frmWaiting *first = open();
    QCOMPARE(open(), first);
    Click(window, "cmdClose");
    QVERIFY(!Shown(u"frmWaiting"_s));
    QVERIFY(open());
}

void tst_Waiting::whatItShows()
{
    open();
    QCOMPARE(TextOf(window, "lblSummary"), u"Nothing runs, and nothing waits."_s);
    QCOMPARE(commands(), QString());
    pending(u"SMITH"_s);
    auto *someCase = Superior();
    main->ShowChild(someCase);
    someCase->ShownJob()->AnnounceLaunch();
    QTRY_COMPARE(cells(0), (QStringList{u"Waits: next"_s, u"Waits: 2nd"_s}));
    QCOMPARE(cells(1), (QStringList{u"Search"_s, u"Case"_s}));
    QCOMPARE(cells(2), (QStringList{u"SMITH, JOHN, Q"_s, u"02-1-00123-4"_s}));
    QCOMPARE(cells(3), (QStringList{u"King"_s, u"King County, Washington Superior Courts"_s}));
    QCOMPARE(TextOf(window, "lblSummary"), u"One runs at a time, in this order. 2 waiting."_s);
    choose(0);
    QCOMPARE(commands(), u"GoTo Stop"_s);
}

void tst_Waiting::aTipIsNoMarkup()
{
    open();
    pending(u"<b>SMITH</b>"_s);
    QTRY_COMPARE(cells(2), QStringList{u"<b>SMITH</b>, JOHN, Q"_s});
    const auto *list = window->findChild<QTableView *>();
    QCOMPARE(list->model()->index(0, 2).data(Qt::ToolTipRole).toString(),
             u"<qt>&lt;b&gt;SMITH&lt;/b&gt;, JOHN, Q"_s);
}

void tst_Waiting::itFollowsWhatHappens()
{
    frmNameSearchResults *search = pending(u"SMITH"_s);
    court->Expect(lineFor(u"SMITH"_s)).Reply({u"EOF~"_s});
    open();
    QStringList seen;
    connect(main->Waiting(), &WaitingList::Changed, this, [&] { seen += cells(0); });
    desk->ConnectTo(*court);
    search->Timer1->start(1);
    QVERIFY(desk->Finish(search));
    QTRY_COMPARE(cells(0), QStringList());
    QCOMPARE(seen, QStringList{u"Runs"_s});
    // And is quiet while nothing happens.
    const QSignalSpy changes(main->Waiting(), &WaitingList::Changed);
    Ticks(someTicks);
    QCOMPARE(changes.size(), 0);
}

void tst_Waiting::itSeesARunBreakDown()
{
    open();
    brokenDown();
    QTRY_COMPARE(cells(0), QStringList{u"Holds the queue: its run broke down"_s});
    QCOMPARE(commands(), u"GoTo Skip"_s);
}

void tst_Waiting::goToBringsItsWindowToTheFront_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"the button", "a double click", "minimised", "hidden"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

void tst_Waiting::goToBringsItsWindowToTheFront()
{
    QFETCH(QString, how);
    frmNameSearchResults *first = pending(u"A"_s);
    pending(u"B"_s);
    if (how == u"minimised")
        first->parentWidget()->showMinimized();
    if (how == u"hidden")
        main->HideChild(first);
    open();
    choose(0);
    if (how == u"a double click") {
        const auto *table = Child<QTableView>(window, "tblWaiting");
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {},
                           table->visualRect(table->model()->index(0, 0)).center());
    } else {
        Click(window, "cmdGoTo");
    }
    QCOMPARE(main->ActiveChild(), first);
    QVERIFY(first->isVisible());
    QVERIFY(!first->parentWidget()->isMinimized());
    QVERIFY(window->isVisible());
}

void tst_Waiting::stopIsThatOfTheWindow_data()
{
    QTest::addColumn<bool>("asks");
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true << true;
    QTest::newRow("no") << true << false;
    QTest::newRow("unasked") << false << true;
}

void tst_Waiting::stopIsThatOfTheWindow()
{
    QFETCH(bool, asks);
    QFETCH(bool, yes);
    Global.bShowAlerts = asks;
    frmNameSearchResults *first = pending(u"A"_s);
    frmNameSearchResults *second = pending(u"B"_s);
    open();
    choose(0);
    const FormWindow *front = nullptr;
    if (asks) {
        desk->Boxes.Meanwhile([&] { front = main->ActiveChild(); });
        desk->Boxes.Expect(stopQuestion, stopTitle, yes ? MsgAnswer::Yes : MsgAnswer::No);
    }
    Click(window, "cmdStop");
    // The question does not say which search it is about; what stands in front does.
    if (asks)
        QCOMPARE(front, first);
    QCOMPARE(TextOf(first, "lblStatus"), yes ? u"Search Stopped By User .. "_s : u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             yes ? QStringList{second->txtMasterKey}
                 : QStringList({first->txtMasterKey, second->txtMasterKey}));
}

void tst_Waiting::skipAKeyThatWasLeft_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void tst_Waiting::skipAKeyThatWasLeft()
{
    QFETCH(bool, yes);
    frmNameSearchResults *closed = pending(u"A"_s);
    const QString key = closed->txtMasterKey;
    frmNameSearchResults *next = pending(u"B"_s);
    closed->close();
    Ticks(1);
    open();
    QCOMPARE(cells(0), (QStringList{u"Holds the queue: closed without Stop"_s, u"Waits: next"_s}));
    QVERIFY(TextOf(window, "lblSummary").startsWith(u"The queue is held up"_s));
    choose(0);
    QCOMPARE(commands(), u"Skip"_s);
    desk->Boxes.Expect(u"Search: A, JOHN, Q (King)"_s + closedReason, skipTitle,
                       yes ? MsgAnswer::Yes : MsgAnswer::No);
    Click(window, "cmdSkip");
    QCOMPARE(frmQueue::Form().FIFO.Lines().contains(key), !yes);
    if (!yes)
        return;
    court->Expect(lineFor(u"B"_s)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    next->Timer1->start(1);
    QVERIFY(desk->Finish(next));
}

void tst_Waiting::skipARunThatBrokeDown()
{
    frmCaseDetails *broken = brokenDown();
    frmNameSearchResults *next = pending(u"B"_s);
    court->Expect(lineFor(u"B"_s)).Reply({u"EOF~"_s});
    open();
    QCOMPARE(cells(0), (QStringList{u"Holds the queue: its run broke down"_s, u"Waits: next"_s}));
    choose(0);
    QCOMPARE(commands(), u"GoTo Skip"_s);
    desk->Boxes.Expect(u"Case: 02-1-00123-4 (King Co Superior Ct)"_s + brokenReason, skipTitle,
                       MsgAnswer::Yes);
    Click(window, "cmdSkip");
    // Its window knows that there is nothing to stop any more: a stop would reach the next one.
    QCOMPARE(TextOf(broken, "lblStatus"), u"Search Stopped By User .. "_s);
    QVERIFY(!ButtonOf(broken, "cmdStopSearching")->isEnabled());
    QVERIFY(broken->isVisible());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{next->txtMasterKey});
    next->Timer1->start(1);
    QVERIFY(desk->Finish(next));
    QCOMPARE(TextOf(next, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
}

void tst_Waiting::whatIsSettledUnderTheQuestion()
{
    QPointer<frmCaseDetails> broken = brokenDown();
    const frmNameSearchResults *next = pending(u"B"_s);
    open();
    choose(0);
    QVERIFY(ButtonOf(window, "cmdSkip")->isEnabled());
    // Its window goes, and takes its key along. The question has nothing to ask any more.
    bool asked = false;
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [&](QDialog *) {
        asked = true;
        broken->Unload(UnloadMode::MdiParent);
    });
    Click(window, "cmdSkip");
    QVERIFY(asked);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{next->txtMasterKey});
}

/// The answer comes before the list has heard of it.
void tst_Waiting::whatGoesOnUnderTheQuestionIsLeftAlone()
{
    frmCaseDetails *broken = brokenDown();
    const frmNameSearchResults *next = pending(u"B"_s);
    open();
    choose(0);
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [&](QDialog *box) {
        qobject_cast<CaseJob *>(broken->ShownJob())->SearchNow();
        qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click();
    });
    Click(window, "cmdSkip");
    QCOMPARE(broken->ShownJob()->State(), JobState::Pending);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             QStringList({next->txtMasterKey, broken->txtMasterKey}));
}

void tst_Waiting::noJobBeginsUnderTheQuestion()
{
    frmNameSearchResults *closed = pending(u"A"_s);
    frmNameSearchResults *next = pending(u"B"_s);
    court->Expect(lineFor(u"B"_s)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    closed->close();
    open();
    choose(0);
    int ticks = 0;
    connect(next->Timer1, &QTimer::timeout, this, [&ticks] { ++ticks; });
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [&](QDialog *box) {
        // Even when the place is free, it is not its turn while somebody reads.
        frmQueue::Form().FIFO.RemoveItem(0);
        next->Timer1->start(1);
        while (ticks < someTicks)
            Ticks(1);
        QCOMPARE(court->Requests(), QStringList());
        QVERIFY(!Global.bSearchInProgress);
        box->reject();
    });
    Click(window, "cmdSkip");
    QVERIFY(desk->Finish(next));
}

void tst_Waiting::nothingIsCutWhileThereIsRoom()
{
    constexpr int name = 2;
    open();
    window->resize(1600, 400);
    const auto *table = Child<QTableView>(window, "tblWaiting");
    const auto needed = [table](int column) {
        return table->sizeHintForIndex(table->model()->index(0, column)).width();
    };
    pending(u"MONTGOMERY-WOLVERHAMPTON, CONSTANTINE MAXIMILIAN"_s)->close();
    QTRY_COMPARE(cells(0), QStringList{u"Holds the queue: closed without Stop"_s});
    // Written bold, since it holds the queue.
    for (const int column : {0, name})
        QTRY_VERIFY(table->columnWidth(column) >= needed(column));
    // Without room the columns are as wide as the texts that they are made for.
    window->resize(300, 400);
    QTRY_VERIFY(table->columnWidth(name) < needed(name));
}

void tst_Waiting::aColumnOfTheUsersStays()
{
    constexpr int name = 2;
    constexpr int chosenWidth = 90;
    open();
    auto *table = Child<QTableView>(window, "tblWaiting");
    table->setColumnWidth(name, chosenWidth);
    pending(u"MONTGOMERY-WOLVERHAMPTON, CONSTANTINE MAXIMILIAN"_s);
    window->resize(1600, 400);
    QTRY_COMPARE(window->width(), 1600);
    QTRY_COMPARE(cells(name).size(), 1);
    QCOMPARE(table->columnWidth(name), chosenWidth);
}

void tst_Waiting::theChosenRowStaysChosen()
{
    frmNameSearchResults *first = pending(u"A"_s);
    frmNameSearchResults *second = pending(u"B"_s);
    pending(u"C"_s);
    open();
    choose(1);
    const auto *table = Child<QTableView>(window, "tblWaiting");
    first->ShownJob()->Stop();
    QTRY_COMPARE(cells(2), (QStringList{u"B, JOHN, Q"_s, u"C, JOHN, Q"_s}));
    QCOMPARE(table->currentIndex().row(), 0);
    QVERIFY(table->selectionModel()->isRowSelected(0));
    // When it goes itself, the one that comes into its place is.
    second->ShownJob()->Stop();
    QTRY_COMPARE(cells(2), QStringList{u"C, JOHN, Q"_s});
    QCOMPARE(commands(), u"GoTo Stop"_s);
}

void tst_Waiting::theRowOfAWindowGoesWithIt()
{
    frmNameSearchResults *first = pending(u"A"_s);
    open();
    choose(0);
    QCOMPARE(commands(), u"GoTo Stop"_s);
    // The list has not heard of it yet.
    first->Unload(UnloadMode::MdiParent);
    Click(window, "cmdGoTo");
    Click(window, "cmdStop");
    QTRY_COMPARE(cells(0), QStringList{u"Holds the queue: closed without Stop"_s});
    QCOMPARE(commands(), u"Skip"_s);
}

void tst_Waiting::closesByEscape()
{
    open();
    QTest::keyClick(window, Qt::Key_Escape);
    QVERIFY(!Shown(u"frmWaiting"_s));
}

HALVANE_TEST(tst_Waiting)
#include "tst_Waiting.moc"
