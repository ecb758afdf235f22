#include "controls/Notice.h"
#include "core/GlobalState.h"
#include "courts/Counties.h"
#include "jobs/frmQueue.h"
#include "namesearch/CourtStrip.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"
#include "tables/ResultListView.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {
const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
const QString king = RequestLine(u"SMITH"_s, u"King"_s);
const QStringList down{u"ERROR~Court is down~"_s, u"EOF~"_s};

QToolButton *opener(const QWidget *window)
{
    return window->findChild<QToolButton *>(u"cmdCourts"_s);
}

bool isOpen(const QWidget *window)
{
    return ListOf(window, "lvCourts")->isVisible();
}

QString inShort(const QWidget *window)
{
    return window->findChild<QLabel *>(u"lblCourtsInShort"_s)->text();
}

QPushButton *retryOf(const QWidget *window)
{
    return ButtonOf(window, "cmdRetryFailed");
}

/// Until the strip shows what has become of the search.
bool reads(const QWidget *window, const QString &text)
{
    return LinkDesk::WaitUntil([=] { return inShort(window) == text; });
}

/// The texts of the window that tell of the end of a search.
QStringList endOf(const QWidget *window)
{
    QStringList texts;
    for (const QString &label : {u"lblStatus"_s, u"lblSearchStatus"_s, u"Label3"_s})
        texts.append(window->findChild<QLabel *>(label)->text());
    return texts;
}
} // namespace

/// The strip "Courts" of the results windows.
class tst_CourtStrip : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void itIsClosedAndASearchThatGoesWellLeavesItSo_data() { EachResultsWindow(); }
    void itIsClosedAndASearchThatGoesWellLeavesItSo();
    void theButtonOpensAndClosesIt();
    void itOpensByItselfWhenSomethingFails_data() { EachResultsWindow(); }
    void itOpensByItselfWhenSomethingFails();
    void whatTheUserClosedStaysClosed();
    void aSearchOfAllCountiesShowsEach();
    void aFewCourtsTakeNoMoreRoomThanTheyNeed();
    void aReasonIsNotCutBesideAShortName();
    void aTextOfTheCourtIsPlain();
    void itsRowsFollowAtMostEvery40Milliseconds();
    void theKeyboardStaysInTheWindow();
    void theTabKeyPassesThroughIt();
    void retryBringsWhatWasMissing_data() { EachResultsWindow(); }
    void retryBringsWhatWasMissing();
    void theStatusStandsStillWhileItIsRetried();
    void aRetryIsStoppedByItsButton();
    void aRetryThatWaitsIsClosedWithItsWindow();
    void aWindowWhoseRetryRunsStays();
    void aReportMeanwhileIsNotWhole();
    void nobodyIsAskedWithoutALogin();
    void theNextPageWaitsForTheRetry();
    void aListThatTheUserHasSortedStaysSo();
    void theNoticeOfTooManyGivesWay();
    void howItWentIsSpoken();
};

void tst_CourtStrip::itIsClosedAndASearchThatGoesWellLeavesItSo()
{
    QFETCH(const Which, which);
    court->Expect(LineOf(which)).Reply({RowOf(which), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    const QString place = which == Which::Name ? u"King"_s : u"Benton District (BED)"_s;
    QVERIFY(reads(window, place + u": 1 case"_s));
    QVERIFY(!isOpen(window));
    QVERIFY(!opener(window)->isChecked());
    QVERIFY(!retryOf(window)->isEnabled());
}

void tst_CourtStrip::theButtonOpensAndClosesIt()
{
    court->Expect(king).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    opener(window)->click();
    QVERIFY(isOpen(window));
    QVERIFY(reads(window, u"King: 1 case"_s));
    QCOMPARE(RowsOf(window, "lvCourts"),
             (QList<QStringList>{{u"King"_s, u"1 case"_s, u"0.0 s"_s}}));
    opener(window)->click();
    QVERIFY(!isOpen(window));
}

void tst_CourtStrip::itOpensByItselfWhenSomethingFails()
{
    QFETCH(const Which, which);
    court->Expect(LineOf(which)).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    QVERIFY(desk->WaitUntil([window] { return isOpen(window); }));
    QVERIFY(opener(window)->isChecked());
    QCOMPARE(RowsOf(window, "lvCourts").at(0).at(1), u"Failed: Court is down"_s);
    QVERIFY(desk->WaitUntil([window] { return retryOf(window)->isEnabled(); }));
}

void tst_CourtStrip::whatTheUserClosedStaysClosed()
{
    court->Expect(adams).Reply({u"ERROR~Court is down~"_s});
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Begin(MakeWindow(Which::Name), {adams, king});
    opener(window)->click();
    opener(window)->click();
    desk->When([this] { return court->Requests().size() == 1; },
               [this] { court->SendTokens({u"EOF~"_s}); });
    QVERIFY(desk->Finish(window));
    QVERIFY(reads(window, u"2 courts: 2 failed"_s));
    QVERIFY(!isOpen(window));
}

void tst_CourtStrip::aSearchOfAllCountiesShowsEach()
{
    QStringList lines;
    for (const QString &county : WaCountyNames()) {
        lines.append(RequestLine(u"SMITH"_s, county));
        court->Expect(lines.last())
            .Reply(county == u"King" ? down : QStringList{ResultLine(county), u"EOF~"_s});
    }
    QCOMPARE(lines.size(), 39);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), lines);
    QVERIFY(reads(window, u"39 courts: 38 answered, 1 failed"_s));
    const QList<QStringList> rows = RowsOf(window, "lvCourts");
    QCOMPARE(rows.size(), 39);
    QCOMPARE(rows.at(16).at(0), u"King"_s);
    QCOMPARE(rows.at(16).at(1), u"Failed: Court is down"_s);
    QCOMPARE(rows.at(38).at(1), u"1 case"_s);
    const QRect failed =
        ListOf(window, "lvCourts")->visualRect(ListOf(window, "lvCourts")->model()->index(16, 0));
    QVERIFY(ListOf(window, "lvCourts")->viewport()->rect().contains(failed.center()));
    // The list of results is what the window is for.
    QVERIFY(ListOf(window)->height() >= ListOf(window, "lvCourts")->height());
}

void tst_CourtStrip::aFewCourtsTakeNoMoreRoomThanTheyNeed()
{
    court->Expect(adams).Reply(down);
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {adams, king});
    window->resize(820, 900);
    QVERIFY(desk->WaitUntil([window] { return isOpen(window); }));
    const ResultListView *courts = ListOf(window, "lvCourts");
    const auto *strip = window->findChild<CourtStrip *>();
    QVERIFY(desk->WaitUntil([=] {
        return courts->height() == courts->maximumHeight()
               && courts->geometry().bottom() == strip->rect().bottom();
    }));
    QVERIFY(courts->viewport()->height() >= 2 * courts->rowHeight(0));
}

void tst_CourtStrip::aReasonIsNotCutBesideAShortName()
{
    court->Expect(king).Reply({u"ERROR~The host of this county cannot be reached at this time; "
                               "please try the search again later~"_s,
                               u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    window->resize(820, 560);
    QVERIFY(desk->WaitUntil([window] { return isOpen(window); }));
    const ResultListView *courts = ListOf(window, "lvCourts");
    QVERIFY(desk->WaitUntil([=] {
        const int needed = courts->sizeHintForIndex(courts->model()->index(0, 1)).width();
        return courts->columnWidth(1) >= needed;
    }));
}

void tst_CourtStrip::aTextOfTheCourtIsPlain()
{
    court->Expect(king).Reply({u"ERROR~<b>&nbsp;down</b>~"_s, u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    QVERIFY(reads(window, u"King: Failed: <b>&nbsp;down</b>"_s));
    QCOMPARE(window->findChild<QLabel *>(u"lblCourtsInShort"_s)->textFormat(), Qt::PlainText);
}

void tst_CourtStrip::itsRowsFollowAtMostEvery40Milliseconds()
{
    QStringList lines;
    for (const QString &county : WaCountyNames()) {
        lines.append(RequestLine(u"SMITH"_s, county));
        court->Expect(lines.last()).Reply({u"EOF~"_s});
    }
    NameResultsWindow *window = MakeWindow(Which::Name);
    const QSignalSpy changes(&window->Search(), &NameSearch::CourtsChanged);
    const RowTable *rows = ListOf(window, "lvCourts")->List()->Rows();
    const QSignalSpy cells(rows, &RowTable::CellChanged);
    QElapsedTimer clock;
    clock.start();
    Search(window, lines);
    const qint64 taken = clock.elapsed();
    QVERIFY(reads(window, u"39 courts: 39 answered"_s));
    QVERIFY(changes.count() > 39);
    // In each showing of a run no court has more than two changed cells.
    QVERIFY2(cells.count() <= 39 * 2 * (taken / 40 + 2),
             qPrintable(QString::number(cells.count())));
    QVERIFY(cells.count() < changes.count() * 39);
}

void tst_CourtStrip::theKeyboardStaysInTheWindow()
{
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    QVERIFY(desk->WaitUntil([window] { return isOpen(window); }));
    ListOf(window, "lvCourts")->setFocus();
    opener(window)->click();
    QCOMPARE(window->focusWidget(), static_cast<QWidget *>(opener(window)));
    QVERIFY(desk->WaitUntil([window] { return retryOf(window)->isEnabled(); }));
    retryOf(window)->setFocus();
    Global.bLoggedIn = true;
    retryOf(window)->click();
    window->Timer1->stop();
    QCOMPARE(window->focusWidget(), static_cast<QWidget *>(ListOf(window)));
    window->Search().Stop();
}

void tst_CourtStrip::theTabKeyPassesThroughIt()
{
    NameResultsWindow *window = desk->MakePending({king});
    QStringList names;
    const QWidget *widget = ListOf(window);
    while (names.size() < 4) {
        widget = widget->nextInFocusChain();
        if (widget->isVisibleTo(window) && (widget->focusPolicy() & Qt::TabFocus)
            && !widget->focusProxy() && widget->objectName() != u"qt_scrollarea_viewport")
            names.append(widget->objectName());
    }
    QCOMPARE(names, (QStringList{u"cmdCourts"_s, u"cmdRetryFailed"_s, u"cmdStopSearching"_s,
                                 u"cmdSearchResults_0"_s}));
}

void tst_CourtStrip::retryBringsWhatWasMissing()
{
    QFETCH(const Which, which);
    court->Expect(LineOf(which)).Reply(down);
    court->Expect(LineOf(which)).Reply({RowOf(which), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    Global.bLoggedIn = true;
    const QStringList end = endOf(window);
    QVERIFY(desk->WaitUntil([window] { return retryOf(window)->isEnabled(); }));
    QTest::mouseClick(retryOf(window), Qt::LeftButton);
    QVERIFY(!retryOf(window)->isEnabled());
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    const QString place = which == Which::Name ? u"King"_s : u"Benton District (BED)"_s;
    QVERIFY(reads(window, place + u": 1 case - Retry ended: 1 of 1 answered, 1 row added."_s));
    QCOMPARE(RowsOf(window).size(), 1);
    QCOMPARE(endOf(window), end);
    QVERIFY(!retryOf(window)->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_CourtStrip::theStatusStandsStillWhileItIsRetried()
{
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    Global.bLoggedIn = true;
    Global.bShowAlerts = false;
    window->Search().RetryFailed();
    window->Timer1->stop();
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QLabel *>(u"lblStatus"_s)->isVisible());
    QVERIFY(reads(window, u"King: Waiting - Retry: waiting .."_s));
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(!window->tmrBlink->isActive());
}

void tst_CourtStrip::aRetryIsStoppedByItsButton()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({ResultLine(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    const QStringList end = endOf(window);
    Global.bLoggedIn = true;
    Global.bShowAlerts = true;
    desk->Boxes.Expect(u"Stop This Search?"_s, u"Stop Search Verification"_s, MsgAnswer::Yes);
    desk->When([window] { return window->RowCount() == 1; },
               [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    window->Search().RetryFailed();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QVERIFY(reads(window, u"King: Stopped - 1 case came, others may be missing - Retry stopped: 0 "
                          "of 1 answered, 1 row added."_s));
    QCOMPARE(endOf(window), end);
    QVERIFY(desk->WaitUntil([window] { return retryOf(window)->isEnabled(); }));
}

void tst_CourtStrip::aRetryThatWaitsIsClosedWithItsWindow()
{
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    Global.bShowAlerts = false;
    window->Search().RetryFailed();
    window->Timer1->stop();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    window->Unload(UnloadMode::Code);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CourtStrip::aWindowWhoseRetryRunsStays()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({ResultLine(u"A"_s)});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    desk->Boxes.Expect(u"This form cannot be closed until the current search completes."_s,
                       u"Stop Current Search .."_s);
    desk->When([window] { return window->RowCount() == 1; },
               [this, window] {
                   window->Unload(UnloadMode::Code);
                   court->SendTokens({u"EOF~"_s});
               });
    window->Search().RetryFailed();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QVERIFY(!window->IsUnloaded());
}

void tst_CourtStrip::aReportMeanwhileIsNotWhole()
{
    court->Expect(king).Reply({u"EOF~"_s});
    court->Expect(adams).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king, adams});
    window->SearchIncomplete = false;
    window->Search().RetryFailed();
    window->Timer1->stop();
    const QString path = desk->Folder.Path() + u"/report.txt"_s;
    window->PrintToFile(path);
    QVERIFY(desk->Folder.Read(u"report.txt"_s).contains("This Search is Incomplete!"));
    window->Search().Stop();
    window->PrintToFile(path);
    QVERIFY(!desk->Folder.Read(u"report.txt"_s).contains("This Search is Incomplete!"));
}

void tst_CourtStrip::nobodyIsAskedWithoutALogin()
{
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    Global.bLoggedIn = false;
    desk->Boxes.Expect(
        u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to "
        "the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
        u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation, MsgAnswer::No,
        MsgButtons::YesNo);
    QVERIFY(desk->WaitUntil([window] { return retryOf(window)->isEnabled(); }));
    retryOf(window)->click();
    QVERIFY(!window->Search().IsRetrying());
    QVERIFY(retryOf(window)->isEnabled());
}

void tst_CourtStrip::theNextPageWaitsForTheRetry()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({LimitRow(500, 200)});
    Global.bShowAlerts = false;
    auto *window = Begin(new frmNameSearchResults(u"WA"_s, true), {IndexLine()});
    desk->When([window] { return window->RowCount() == 1; },
               [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    QVERIFY(desk->Finish(window));
    QPushButton *next = ButtonOf(window, "cmdSearchResults_4");
    QVERIFY(next->isEnabled());
    QVERIFY(inShort(window).isEmpty() || !isOpen(window));
    window->Search().RetryFailed();
    window->Timer1->stop();
    QVERIFY(next->isVisible());
    QVERIFY(!next->isEnabled());
    window->Search().Stop();
    QVERIFY(next->isEnabled());
}

void tst_CourtStrip::aListThatTheUserHasSortedStaysSo()
{
    court->Expect(adams).Reply({ResultLine(u"B"_s), ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({ResultLine(u"0"_s), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {adams, king});
    window->Search().RetryFailed();
    ClickHeader(ListOf(window), 0);
    ClickHeader(ListOf(window), 0);
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QStringList names;
    for (const QStringList &row : RowsOf(window))
        names.append(row.at(0));
    QCOMPARE(names, (QStringList{u"A"_s, u"B"_s, u"0"_s}));
    QCOMPARE(ArrowOf(ListOf(window)), u"0"_s);
}

void tst_CourtStrip::theNoticeOfTooManyGivesWay()
{
    court->Expect(adams).Reply({u"This search resulted in more than 200 results.~"_s});
    court->Expect(king).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {adams, king});
    QCOMPARE(HeadersOf(window).size(), 1);
    window->Search().RetryFailed();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(HeadersOf(window).first(), u"Participant Name"_s);
    QCOMPARE(RowsOf(window).size(), 1);
    QVERIFY(reads(window, u"2 courts: 1 answered, 1 with too many to list - Retry ended: 1 of 1 "
                          "answered, 1 row added."_s));
}

void tst_CourtStrip::howItWentIsSpoken()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply(down);
    NameResultsWindow *window = Search(MakeWindow(Which::Name), {king});
    QStringList spoken;
    ReplaceSpokenAlert(
        [&spoken](QWidget *control) { spoken.append(qobject_cast<QLabel *>(control)->text()); });
    window->Search().RetryFailed();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    ReplaceSpokenAlert({});
    QCOMPARE(spoken, QStringList{u"King: Failed: Court is down - Retry ended: 0 of 1 answered, 0 "
                                 "rows added."_s});
}

HALVANE_TEST(tst_CourtStrip)
#include "tst_CourtStrip.moc"
