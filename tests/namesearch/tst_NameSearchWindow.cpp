#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/ErrorOf.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimerEvent>

namespace {
struct Button
{
    const char *name;
    QString caption;
    bool visible;
    bool enabled;
};

const QList<Button> &buttons()
{
    static const QList<Button> all{
        {"cmdStopSearching", u"&Stop Search"_s, true, true},
        {"cmdSearchResults_0", u"Retrieve Case &Details"_s, true, false},
        {"cmdSearchResults_1", u"&Close Results"_s, false, true},
        {"cmdSearchResults_2", u"&Print Results"_s, true, false},
        {"cmdSearchResults_3", u"Create New &Search"_s, false, true},
        {"cmdSearchResults_4", u"Get &Next 500 Cases"_s, false, false},
        {"cmdSearchResults_5", u"&Email Results"_s, true, true},
        {"cmdSearchResults_6", u"Save Results to File"_s, true, true},
    };
    return all;
}
} // namespace

class tst_NameSearchWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void loadShowsASearchInProgress();
    void loadClearsTheFlags();
    void loadStartsTheTimers();
    void buttonsAtLoad_data();
    void buttonsAtLoad();
    void columnsAtLoad();
    void dateFiledIsCentred();
    void theSortArrowStandsOnTheFirstColumn();
    void legendExplainsTheMarks();
    void textsAreShownAsTheyAre();
    void addResultRow();
    void addResultRowWithTooFewFields();
    void addResultRowInIdahoWidensTwoColumns();
    void showSearchCriteria();
    void showSearchCriteriaOfAShortLine();
    void firstTickShowsTheCriteriaOnce();
    void tickWithoutAKeyWaits();
    void tickAfterAStopRequestGivesUp();
    void tickAfterAStopRequestGoesBeforeARunningJob();
    void tickWhileTheLinkIsTakenWaits();
    void tickBehindAnotherKeyWaits();
    void tickAtTheHeadRuns();
    void timersDoNotRunDuringTheSearch();
    void statusBlinks();
    void statusKeepsItsPlaceWhileHidden();
    void statusStaysOnAfterTheEnd();
    void noSearchRunsInsideABlink();
    void beginSearchingQueuesAgain();

private:
    std::unique_ptr<SearchDesk> desk;
};

void tst_NameSearchWindow::init()
{
    desk = std::make_unique<SearchDesk>();
}

void tst_NameSearchWindow::cleanup()
{
    QCOMPARE(EndDialogue(desk), QString());
}

void tst_NameSearchWindow::loadShowsASearchInProgress()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s);
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"blue"_s);
    QVERIFY(IsBold(window, "lblSearchStatus"));
    QCOMPARE(RowsOf(window).size(), 0);
    QCOMPARE(window->SortColumnName, u"Participant Name"_s);
    QCOMPARE(window->SearchRunCount, qint16(1));
    QCOMPARE(window->objectName(), u"frmNameSearchResults"_s);
}

void tst_NameSearchWindow::loadClearsTheFlags()
{
    Global.bUserStoppedSearch = true;
    const frmNameSearchResults window(u"WA"_s);
    QVERIFY(!Global.bUserStoppedSearch);
    QVERIFY(!window.StopRequested);
    QVERIFY(!window.SearchIncomplete);
    QVERIFY(!window.StopWarningFlag);
    QVERIFY(!window.chkIndexSearch);
    QVERIFY(!window.chkBK);
    QCOMPARE(window.lblState, u"WA"_s);
    QCOMPARE(window.lbl911, QString());
}

void tst_NameSearchWindow::loadStartsTheTimers()
{
    const frmNameSearchResults window(u"WA"_s);
    QVERIFY(window.Timer1->isActive());
    QVERIFY(window.tmrBlink->isActive());
    QCOMPARE(window.Timer1->interval(), 1900);
    QCOMPARE(window.tmrBlink->interval(), 500);
}

void tst_NameSearchWindow::buttonsAtLoad_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < buttons().size(); ++i)
        QTest::newRow(buttons()[i].name) << i;
}

void tst_NameSearchWindow::buttonsAtLoad()
{
    QFETCH(int, row);
    const Button &expected = buttons()[row];
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    const QPushButton *button = ButtonOf(window, expected.name);
    QVERIFY(button);
    QCOMPARE(button->text(), expected.caption);
    QCOMPARE(button->isVisible(), expected.visible);
    QCOMPARE(button->isEnabled(), expected.enabled);
}

void tst_NameSearchWindow::columnsAtLoad()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(HeadersOf(window),
             (QStringList{u"Participant Name"_s, u"Case Number"_s, u"Date Filed"_s,
                          u"Description"_s, u"Location"_s, u"Role"_s}));
    const auto *list = window->findChild<QTableView *>(u"listview1"_s);
    // 15 twips make a pixel; the last column takes what is left.
    const QList<int> widths{113, 127, 87, 120, 113};
    for (int i = 0; i < widths.size(); ++i)
        QCOMPARE(list->columnWidth(i), widths[i]);
}

void tst_NameSearchWindow::dateFiledIsCentred()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    window->AddResultRow(ResultLine(u"A"_s));
    const auto *list = window->findChild<QTableView *>(u"listview1"_s);
    QTRY_COMPARE(list->model()->rowCount(), 1);
    for (int column = 0; column < 6; ++column) {
        const QVariant alignment = list->model()->index(0, column).data(Qt::TextAlignmentRole);
        const bool centred = alignment.value<Qt::Alignment>().testFlag(Qt::AlignHCenter);
        QCOMPARE(centred, column == 2);
    }
}

void tst_NameSearchWindow::theSortArrowStandsOnTheFirstColumn()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    const QHeaderView *header = window->findChild<QTableView *>(u"listview1"_s)->horizontalHeader();
    QVERIFY(header->isSortIndicatorShown());
    QCOMPARE(header->sortIndicatorSection(), 0);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
}

void tst_NameSearchWindow::legendExplainsTheMarks()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(TextOf(window, "Label9"), u"'>>' =  Already Retrieved   ' * ' = Archived"_s);
}

void tst_NameSearchWindow::textsAreShownAsTheyAre()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    const QList<QLabel *> labels = window->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(window->findChild<QLineEdit *>(u"txtCountyList"_s)->isReadOnly());
}

void tst_NameSearchWindow::addResultRow()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    window->AddResultRow(ResultLine(u"SMITH, JOHN"_s, u"*02-2-02029-9"_s));
    window->AddResultRow(ResultLine(u"<b>SMITH</b>"_s));
    QCOMPARE(window->RowCount(), 2);
    QTRY_COMPARE(TextOf(window, "Label3"), u"Retrieved: 2"_s);
    const QList<QStringList> rows = RowsOf(window);
    QCOMPARE(rows[0], (QStringList{u"SMITH, JOHN"_s, u"*02-2-02029-9"_s, u"01/02/2002"_s,
                                   u"Civil"_s, u"WA Superior Ct King County"_s, u"Plaintiff"_s}));
    QCOMPARE(rows[1][0], u"<b>SMITH</b>"_s);
}

void tst_NameSearchWindow::addResultRowWithTooFewFields()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(ErrorOf([&] { window->AddResultRow(u"A~B~"_s); }), 9);
    QCOMPARE(window->RowCount(), 1);
    QCOMPARE(ErrorOf([&] { window->AddResultRow(QString()); }), 9);
    QCOMPARE(window->RowCount(), 1);
}

void tst_NameSearchWindow::addResultRowInIdahoWidensTwoColumns()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()}, u"ID"_s);
    const auto *list = window->findChild<QTableView *>(u"listview1"_s);
    QCOMPARE(list->columnWidth(1), 80);
    QCOMPARE(list->columnWidth(4), 67);
    window->AddResultRow(ResultLine(u"A"_s));
    QCOMPARE(list->columnWidth(1), 113);
    QCOMPARE(list->columnWidth(4), 80);
}

void tst_NameSearchWindow::showSearchCriteria()
{
    frmNameSearchResults *window =
        desk->MakePending({RequestLine(), RequestLine(u"SMYTHE"_s, u"Adams"_s)});
    window->ShowSearchCriteria(1);
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMYTHE, JOHN, Q"_s);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"Civil, Criminal"_s);
    QCOMPARE(window->windowTitle(),
             u"SMYTHE, JOHN, Q in Adams County, Washington Superior Courts"_s);
}

void tst_NameSearchWindow::showSearchCriteriaOfAShortLine()
{
    frmNameSearchResults *window = desk->MakePending({u"WASUP"_s});
    QCOMPARE(ErrorOf([&] { window->ShowSearchCriteria(0); }), 9);
    QCOMPARE(ErrorOf([&] { window->ShowSearchCriteria(7); }), 9);
}

void tst_NameSearchWindow::firstTickShowsTheCriteriaOnce()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(TextOf(window, "lblNameVal"), QString());
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN, Q"_s);
    window->setWindowTitle(u"mine"_s);
    Ticks(20);
    QCOMPARE(window->windowTitle(), u"mine"_s);
}

void tst_NameSearchWindow::tickWithoutAKeyWaits()
{
    frmNameSearchResults *window = desk->Start({RequestLine()});
    frmQueue::Form().FIFO.Clear();
    Ticks(20);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QVERIFY(window->Timer1->isActive());
}

void tst_NameSearchWindow::tickAfterAStopRequestGivesUp()
{
    Global.bStopRequested = true;
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    window->AddResultRow(ResultLine(u"A"_s));
    window->Timer1->start(1);
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), u"Search Stopped By User: 1 Cases Retrieved."_s);
    Ticks(60);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"red"_s);
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s));
    QVERIFY(!Global.bSearchInProgress);
}

void tst_NameSearchWindow::tickAfterAStopRequestGoesBeforeARunningJob()
{
    Global.bStopRequested = true;
    Global.bSearchInProgress = true;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QVERIFY(Global.bSearchInProgress);
}

void tst_NameSearchWindow::tickWhileTheLinkIsTakenWaits()
{
    Global.bSearchInProgress = true;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_NameSearchWindow::tickBehindAnotherKeyWaits()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    Ticks(20);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
}

void tst_NameSearchWindow::tickAtTheHeadRuns()
{
    ScriptedCourt court;
    court.Expect(RequestLine()).Reply({});
    desk->ConnectTo(court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    window->tmrBlink->setInterval(900);
    QString status;
    bool busy = false;
    int blink = 0;
    desk->When([&] { return court.Requests().size() == 1; },
               [&] {
                   status = TextOf(window, "lblStatus");
                   busy = Global.bSearchInProgress;
                   blink = window->tmrBlink->interval();
                   court.SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(status, u"Searching .."_s);
    QVERIFY(busy);
    QCOMPARE(blink, 500);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!window->Timer1->isActive());
}

void tst_NameSearchWindow::timersDoNotRunDuringTheSearch()
{
    ScriptedCourt court;
    court.Expect(RequestLine()).Reply({});
    desk->ConnectTo(court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    bool asking = true;
    bool blinking = false;
    desk->When([&] { return court.Requests().size() == 1; },
               [&] {
                   asking = window->Timer1->isActive();
                   blinking = window->tmrBlink->isActive();
                   court.SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!asking);
    QVERIFY(blinking);
}

void tst_NameSearchWindow::statusBlinks()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    const auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    window->tmrBlink->setInterval(1);
    QTRY_VERIFY(!status->isVisible());
    QTRY_VERIFY(status->isVisible());
    QTRY_VERIFY(!status->isVisible());
    QVERIFY(window->tmrBlink->isActive());
}

void tst_NameSearchWindow::statusKeepsItsPlaceWhileHidden()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    const auto *list = window->findChild<QWidget *>(u"listview1"_s);
    const auto *longStatus = window->findChild<QWidget *>(u"lblSearchStatus"_s);
    const QRect listBefore = list->geometry();
    const QRect longBefore = longStatus->geometry();
    status->hide();
    QVERIFY(!status->isVisible());
    window->layout()->invalidate();
    window->layout()->activate();
    // Nothing around it may jump with each blink.
    QCOMPARE(list->geometry(), listBefore);
    QCOMPARE(longStatus->geometry(), longBefore);
}

void tst_NameSearchWindow::statusStaysOnAfterTheEnd()
{
    ScriptedCourt court;
    court.Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    window->tmrBlink->setInterval(1);
    const auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    QTRY_VERIFY(!status->isVisible());
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    for (int i = 0; i < 20; ++i) {
        QVERIFY(status->isVisible());
        Ticks(1);
    }
}

void tst_NameSearchWindow::noSearchRunsInsideABlink()
{
    ScriptedCourt court;
    court.Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    // The blink yields. A search in that yield would leave the label as it blinked, for minutes.
    window->Timer1->start(0);
    QTimerEvent blink(window->tmrBlink->timerId());
    QCoreApplication::sendEvent(window->tmrBlink, &blink);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
}

void tst_NameSearchWindow::beginSearchingQueuesAgain()
{
    frmNameSearchResults *window = desk->Start({RequestLine()});
    // No connection: it ends at once.
    QVERIFY(desk->Finish(window));
    Global.bSearchInProgress = true;
    window->Timer1->setInterval(60'000);
    window->BeginSearching();
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
    // And blinks as at first.
    const auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    window->tmrBlink->setInterval(1);
    QTRY_VERIFY(!status->isVisible());
    QTRY_VERIFY(status->isVisible());
}

HALVANE_TEST(tst_NameSearchWindow)
#include "tst_NameSearchWindow.moc"
