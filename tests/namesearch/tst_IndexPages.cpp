#include "core/GlobalState.h"
#include "core/Options.h"
#include "jobs/frmQueue.h"
#include "namesearch/IndexLines.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"

#include <QPushButton>
#include <QTest>

// The pages of an index search: how large they are, how one leads to the next, and in what ways a
// page behind the first can end.

namespace {
constexpr int shortestTick = 1;

const QString lost = u"Search Stopped - Court Connection Lost!"_s;
const QString getNext = u"Get Next 500 Cases"_s;

/// A window with the request for the first page at the head of the queue.
frmNameSearchResults *startPages(SearchDesk &desk, const ScriptedCourt &court, int pageLimit = 500,
                                 const QString &clientCode = {})
{
    desk.ConnectTo(court);
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    desk.Enqueue(window, {IndexLine(1, pageLimit)});
    window->ClientAcctgCode = clientCode;
    window->Timer1->start(shortestTick);
    return window;
}

QPushButton *nextButton(const QWidget *window)
{
    return ButtonOf(window, "cmdSearchResults_4");
}

/// Presses Get Next and waits for the end of its page.
bool takeNextPage(SearchDesk &desk, const frmNameSearchResults *window)
{
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    return desk.Finish(window);
}

/// The limits that the window has for its next page.
QString limitsOf(const frmNameSearchResults *window)
{
    return u"%1-%2"_s.arg(window->NextLowerLimit).arg(window->NextUpperLimit);
}

/// Which of Save, Get Next and Print can be seen, those that can be pressed in capitals.
QString buttonsOf(const QWidget *window)
{
    QStringList seen;
    for (const auto &[name, word] :
         {std::pair{"cmdSearchResults_6", u"save"_s}, std::pair{"cmdSearchResults_4", u"next"_s},
          std::pair{"cmdSearchResults_2", u"print"_s}}) {
        const QPushButton *button = ButtonOf(window, name);
        if (button->isVisible())
            seen.append(button->isEnabled() ? word.toUpper() : word);
    }
    return seen.join(u' ');
}

QStringList manyRows(int first, int last)
{
    QStringList rows;
    for (int i = first; i <= last; ++i)
        rows.append(IndexRow(QString::number(i)));
    return rows;
}
} // namespace

class tst_IndexPages : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void pageSize_data();
    void pageSize();
    void thePageSizeOfTheOptions();
    void aThousandTwoHundredRows();
    void theButtonStandsInThePlaceOfSave();
    void theSecondPage_data();
    void theSecondPage();
    void aStoppedSecondPageEndsByItsEndMark();
    void aLostSecondPageCannotBeAskedForAgain();
    void aPageIsANewSearchToWhoWantedToLeave();
    void theClientCodeIsOnEveryPageAndNotInTheList();
    void eachPressCountsOnce();
    void withoutALoginNothingIsQueued_data();
    void withoutALoginNothingIsQueued();
    void fromGetNextTheKeyboardGoesToTheList();
};

void tst_IndexPages::pageSize_data()
{
    QTest::addColumn<int>("pageLimit");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("left");
    QTest::addColumn<QString>("limits");
    QTest::addColumn<QString>("caption");
    QTest::newRow("one row a page") << 1 << 1 << 2 << u"2-2"_s << u"Get Next 1 Cases"_s;
    QTest::newRow("less than a page left")
        << 100 << 100 << 99 << u"101-199"_s << u"Get Next 99 Cases"_s;
    QTest::newRow("a page left") << 100 << 100 << 100 << u"101-200"_s << u"Get Next 100 Cases"_s;
    QTest::newRow("more than a page left")
        << 100 << 100 << 101 << u"101-200"_s << u"Get Next 100 Cases"_s;
    QTest::newRow("more than the design's 500")
        << 750 << 750 << 5000 << u"751-1500"_s << u"Get Next 750 Cases"_s;
    QTest::newRow("fewer came than were asked for")
        << 750 << 600 << 700 << u"601-1300"_s << u"Get Next 700 Cases"_s;
    QTest::newRow("up to the greatest row")
        << 500 << 32267 << 500 << u"32268-32767"_s << u"Get Next 500 Cases"_s;
    QTest::newRow("the greatest page")
        << 32767 << 0 << 32767 << u"1-32767"_s << u"Get Next 32767 Cases"_s;
}

void tst_IndexPages::pageSize()
{
    QFETCH(int, pageLimit);
    QFETCH(int, last);
    QFETCH(int, left);
    QFETCH(QString, limits);
    court->Expect(IndexLine(1, pageLimit)).Reply({IndexRow(u"A"_s), LimitRow(last, left)});
    Global.intMaxIndexResults = static_cast<qint16>(pageLimit);
    const frmNameSearchResults *window = startPages(*desk, *court, pageLimit);
    QVERIFY(desk->Finish(window));
    QCOMPARE(limitsOf(window), limits);
    QTEST(nextButton(window)->text(), "caption");
    QCOMPARE(window->lboxQueue.Lines(),
             QStringList{IndexLine(window->NextLowerLimit, window->NextUpperLimit)});
    QCOMPARE(TextOf(window, "lblStatus"), u"Complete - %1 More Results Available"_s.arg(left));
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"%1 more results are available for retrieval."_s.arg(left));
    QCOMPARE(buttonsOf(window), u"NEXT PRINT"_s);
}

void tst_IndexPages::thePageSizeOfTheOptions()
{
    SaveOptionStr(u"Searching"_s, u"MaxIndexResults"_s, u"40"_s);
    LoadAppOptions();
    court->Expect(IndexLine(1, 40)).Reply({LimitRow(40, 90)});
    court->Expect(IndexLine(41, 80)).Reply({LimitRow(80, 50)});
    const frmNameSearchResults *window = startPages(*desk, *court, 40);
    QVERIFY(desk->Finish(window));
    QCOMPARE(nextButton(window)->text(), u"Get Next 40 Cases"_s);
    // The page that is offered stays; a changed size counts from the page behind it.
    SaveOptionStr(u"Searching"_s, u"MaxIndexResults"_s, u"20"_s);
    LoadAppOptions();
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(limitsOf(window), u"81-100"_s);
    QCOMPARE(nextButton(window)->text(), u"Get Next 20 Cases"_s);
}

void tst_IndexPages::aThousandTwoHundredRows()
{
    court->Expect(IndexLine(1, 500)).Reply(manyRows(1, 500) + QStringList{LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000))
        .Reply(manyRows(501, 1000) + QStringList{LimitRow(1000, 200)});
    court->Expect(IndexLine(1001, 1200)).Reply(manyRows(1001, 1200) + QStringList{u"EOF~"_s});
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    QCOMPARE(limitsOf(window), u"501-1000"_s);
    QCOMPARE(nextButton(window)->text(), u"Get Next 500 Cases"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Complete - 700 More Results Available"_s);
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 500"_s);
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(limitsOf(window), u"1001-1200"_s);
    QCOMPARE(nextButton(window)->text(), u"Get Next 200 Cases"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Complete - 200 More Results Available"_s);
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 1000"_s);
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1200 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(buttonsOf(window), u"SAVE PRINT"_s);
    const QList<QStringList> rows = RowsOf(window);
    QCOMPARE(rows.size(), 1200);
    for (int i = 0; i < 1200; ++i)
        QCOMPARE(rows[i][0], QString::number(i + 1));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexPages::theButtonStandsInThePlaceOfSave()
{
    court->Expect(IndexLine()).Reply({});
    const frmNameSearchResults *window = startPages(*desk, *court);
    const QPushButton *save = ButtonOf(window, "cmdSearchResults_6");
    const QPushButton *print = ButtonOf(window, "cmdSearchResults_2");
    const auto gapToPrint = [&](const QPushButton *button) {
        return print->geometry().left() - button->geometry().right();
    };
    int top = 0;
    int gap = 0;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   top = save->y();
                   gap = gapToPrint(save);
                   court->SendTokens({LimitRow(500, 700)});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(top > 0 && gap > 0);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(nextButton(window)->y(), top);
    QCOMPARE(gapToPrint(nextButton(window)), gap);
    court->Expect(IndexLine(501, 1000)).Reply({u"EOF~"_s});
    QVERIFY(takeNextPage(*desk, window));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(buttonsOf(window), u"SAVE PRINT"_s);
    QCOMPARE(save->y(), top);
    QCOMPARE(gapToPrint(save), gap);
}

void tst_IndexPages::theSecondPage_data()
{
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<bool>("drops");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("limits");
    QTest::addColumn<int>("lower"); ///< of the line that the window keeps
    const QString row = IndexRow(u"B"_s);
    const QString offered = u"501-1000"_s;
    QTest::newRow("the last page")
        << QStringList{row, u"EOF~"_s} << false << u"Search Complete: 2 Cases Retrieved."_s
        << QString() << u"SAVE PRINT"_s << getNext << offered << 501;
    QTest::newRow("empty") << QStringList{u"EOF~"_s} << false
                           << u"Search Complete: 1 Cases Retrieved."_s << QString()
                           << u"SAVE PRINT"_s << getNext << offered << 501;
    QTest::newRow("one more page")
        << QStringList{row, LimitRow(1000, 200)} << false
        << u"Complete - 200 More Results Available"_s << u"Retrieved: 2"_s << u"NEXT PRINT"_s
        << u"Get Next 200 Cases"_s << u"1001-1200"_s << 1001;
    QTest::newRow("lost") << QStringList{row} << true << lost << u"Retrieved: 2"_s
                          << u"next PRINT"_s << getNext << offered << 501;
    QTest::newRow("lost before its first row") << QStringList() << true << lost << u"Retrieved: 1"_s
                                               << u"next PRINT"_s << getNext << offered << 501;
    QTest::newRow("a short row") << QStringList{row, u"C~1~2~"_s, u"EOF~"_s} << false << lost
                                 << u"Retrieved: 2"_s << u"next PRINT"_s << getNext << offered
                                 << 501;
    QTest::newRow("a malformed limit")
        << QStringList{row, u"WARNING~Reached Search Limit~1000~many~"_s} << false
        << u"Complete - many More Results Available"_s << u"2"_s << u"next PRINT"_s << getNext
        << offered << 501;
    QTest::newRow("a limit without numbers")
        << QStringList{row, u"WARNING~Reached Search Limit~"_s} << false << u"Searching .."_s
        << u"2"_s << u"next PRINT"_s << getNext << offered << 501;
    QTest::newRow("a limit too great") << QStringList{row, LimitRow(32700, 200)} << false
                                       << u"Complete - 200 More Results Available"_s << u"2"_s
                                       << u"next PRINT"_s << getNext << offered << 501;
    QTest::newRow("another warning")
        << QStringList{row, u"WARNING~Something~"_s} << false << u"Searching .."_s << u"2"_s
        << u"next PRINT"_s << getNext << offered << 501;
    QTest::newRow("an error") << QStringList{u"ERROR~Down~"_s, u"WARNING~Something~"_s} << false
                              << u"Error - Unexpected Search Results."_s << u"1"_s
                              << u"next PRINT"_s << getNext << offered << 501;
}

void tst_IndexPages::theSecondPage()
{
    QFETCH(QStringList, reply);
    QFETCH(bool, drops);
    QFETCH(int, lower);
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), LimitRow(500, 700)});
    ScriptedCourt::Exchange &second = court->Expect(IndexLine(501, 1000)).Reply(reply);
    if (drops)
        second.Drop();
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    QVERIFY(takeNextPage(*desk, window));
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(TextOf(window, "Label3"), "count");
    QTEST(buttonsOf(window), "buttons");
    QTEST(nextButton(window)->text(), "caption");
    QTEST(limitsOf(window), "limits");
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine(lower, lower == 501 ? 1000 : 1200)});
    QCOMPARE(RowsOf(window)[0][0], u"A"_s);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!window->tmrBlink->isActive());
    QCOMPARE(window->SearchIncomplete, TextOf(window, "lblStatus") == lost);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexPages::aStoppedSecondPageEndsByItsEndMark()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Reply({IndexRow(u"B"_s)});
    court->Expect(u"STOP¦"_s).Reply({IndexRow(u"C"_s), u"EOF~"_s});
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    QString whileStopping;
    desk->When([&] { return window->RowCount() == 2; },
               [&] {
                   Global.bShowAlerts = false;
                   ButtonOf(window, "cmdStopSearching")->click();
                   whileStopping = buttonsOf(window) + u": "_s + TextOf(window, "lblStatus");
               });
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Complete: 3 Cases Retrieved."_s);
    QVERIFY(desk->Finish(window));
    QCOMPARE(whileStopping, u"next PRINT: Search Stopped By User .. "_s);
    QVERIFY(window->StopRequested);
    QCOMPARE(buttonsOf(window), u"SAVE PRINT"_s);
    QCOMPARE(window->RowCount(), 3);
}

void tst_IndexPages::aLostSecondPageCannotBeAskedForAgain()
{
    court->Expect(IndexLine()).Reply({LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Drop();
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    QVERIFY(takeNextPage(*desk, window));
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    QTest::keyClick(nextButton(window), Qt::Key_Space);
    QCOMPARE(window->SearchRunCount, qint16(2));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// An exit was refused while the page before this one, or another job, was running: that stops what
/// was pending then, and not what is wanted later.
void tst_IndexPages::aPageIsANewSearchToWhoWantedToLeave()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Reply({IndexRow(u"B"_s), u"EOF~"_s});
    const frmNameSearchResults *window = startPages(*desk, *court);
    desk->When([this] { return court->Requests().size() == 1; },
               [] { Global.bStopRequested = true; });
    QVERIFY(desk->Finish(window));
    QVERIFY(Global.bStopRequested);
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QVERIFY(!Global.bStopRequested);
}

void tst_IndexPages::theClientCodeIsOnEveryPageAndNotInTheList()
{
    const auto tagged = [](const QString &line) -> QString {
        return line.chopped(1) + u"^^CAC:ABC^^~"_s;
    };
    court->Expect(tagged(IndexLine())).Reply({LimitRow(500, 700)});
    court->Expect(tagged(IndexLine(501, 1000))).Reply({LimitRow(1000, 200)});
    court->Expect(tagged(IndexLine(1001, 1200))).Reply({u"EOF~"_s});
    const frmNameSearchResults *window = startPages(*desk, *court, 500, u"ABC"_s);
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine(501, 1000)});
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine(1001, 1200)});
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine(1001, 1200)});
}

void tst_IndexPages::eachPressCountsOnce()
{
    court->Expect(IndexLine()).Reply({LimitRow(500, 700)});
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->SearchRunCount, qint16(1));
    window->Timer1->setInterval(60'000);
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    QCOMPARE(window->SearchRunCount, qint16(2));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
}

void tst_IndexPages::withoutALoginNothingIsQueued_data()
{
    QTest::addColumn<bool>("logsIn");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void tst_IndexPages::withoutALoginNothingIsQueued()
{
    QFETCH(bool, logsIn);
    court->Expect(IndexLine()).Reply({IndexRow(u"1"_s), LimitRow(500, 700)});
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    const QString status = TextOf(window, "lblStatus");
    Global.bLoggedIn = false;
    desk->Boxes.Expect(u"This Search Cannot be Started!\r\nThis is because you are not currently "
                       "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
                       u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
                       logsIn ? MsgAnswer::Yes : MsgAnswer::No);
    QTest::mouseClick(nextButton(window), Qt::LeftButton);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(frmLogin::IsLoaded(), logsIn);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(window->SearchRunCount, qint16(1));
    QCOMPARE(TextOf(window, "lblStatus"), status);
    QVERIFY(nextButton(window)->isEnabled());
    if (logsIn)
        return;
    // The page is still to be had.
    Global.bLoggedIn = true;
    court->Expect(IndexLine(501, 1000)).Reply({IndexRow(u"2"_s), u"EOF~"_s});
    QVERIFY(takeNextPage(*desk, window));
    QCOMPARE(window->RowCount(), 2);
}

void tst_IndexPages::fromGetNextTheKeyboardGoesToTheList()
{
    // And not to the button that prints.
    court->Expect(IndexLine()).Reply({LimitRow(500, 700)});
    const frmNameSearchResults *window = startPages(*desk, *court);
    QVERIFY(desk->Finish(window));
    window->Timer1->setInterval(60'000);
    nextButton(window)->setFocus();
    nextButton(window)->click();
    QCOMPARE(window->focusWidget()->objectName(), u"listview1"_s);
}

HALVANE_TEST(tst_IndexPages)
#include "tst_IndexPages.moc"
