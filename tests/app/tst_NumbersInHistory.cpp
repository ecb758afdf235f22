// The numbers of a list that wait behind the ten which are asked for: the history has them, too.

#include "app/HistoryStart.h"
#include "app/HistoryWiring.h"
#include "casedetails/CaseWindow.h"
#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "history/HistoryStore.h"
#include "prefs/frmOpts.h"
#include "records/StartText.h"
#include "searchentry/CaseNumbers.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/NumberListRun.h"
#include "searchentry/frmNumberList.h"
#include "session/SessionEvents.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few
constexpr int atATime = 10;
const QString notStarted = u"Not started: "_s;

HistoryStore &store()
{
    return HistoryStore::Of();
}

/// The nth number that King county can have.
QString numberOf(int n)
{
    const QString head = u"05-2-"_s + QString::number(n).rightJustified(5, u'0') + u'-';
    return head + ComputeScomisCheckDigit(ScomisCountyCode(u"King"_s), head + u'0');
}

QStringList numbersOf(int first, int last)
{
    QStringList numbers;
    for (int n = first; n <= last; ++n)
        numbers.append(numberOf(n));
    return numbers;
}

QStringList namesOf(const QList<AskedItem> &items)
{
    QStringList names;
    for (const AskedItem &item : items)
        names.append(item.What);
    return names;
}

void stop(JobWindow *window)
{
    window->StopRequested = true;
    window->ShownJob()->Stop();
}
} // namespace

class tst_NumbersInHistory : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void allNumbersAreKeptInTheirOrder();
    void aNumberThatWaitsIsKeptAsOneThatIsAskedFor();
    void theOneThatFollowsKeepsItsLine();
    void whatIsNotWantedAnyMoreIsOver();
    void whatTheSessionGaveUpIsOfferedAgain_data();
    void whatTheSessionGaveUpIsOfferedAgain();
    void anotherSessionTakesTheWishBack();
    void aKilledProgramOffersThemAll();
    void withTheHistoryOffTheyAreKeptFromTheirLaunch();
    void aListBehindAnotherIsKept();
    void aListThatFindsNoLinkIsKept();
    void inAHistoryThatWasSwitchedOffNothingWaits();

private:
    /// Begins a list of these numbers and shows it; the windows that come at once.
    QList<JobWindow *> begin(const QStringList &numbers);
    /// What is kept, oldest first.
    QList<AskedItem> kept();
    /// "waits", or how it ended, of the nth that was kept.
    QString stateOf(int n);
    void reopen();
    void endProgram();
};

void tst_NumbersInHistory::init()
{
    EntryTest::init();
    // What is to be done at the end of the program is done once.
    FollowJobs();
    reopen();
}

void tst_NumbersInHistory::cleanup()
{
    store().Close();
    const QList<NumberListRun *> runs = qApp->findChildren<NumberListRun *>();
    qDeleteAll(runs);
    EntryTest::cleanup();
}

void tst_NumbersInHistory::reopen()
{
    store().Open(desk->Desk.Folder.Path(u"history.db"_s));
    QVERIFY(store().WaitUntilWritten(longEnough));
}

void tst_NumbersInHistory::endProgram()
{
    kept();
    ReplaceEndProgram([](int) {});
    EndProgram();
    ReplaceEndProgram({});
    reopen();
}

QList<JobWindow *> tst_NumbersInHistory::begin(const QStringList &numbers)
{
    const NumberListCourt court{.Counties = {u"King"_s}, .UsualCounty = u"King"_s};
    return desk->NewWindows([&] {
        const QList<ListedNumber> listed = ReadNumberList(numbers.join(u'\n'), court);
        frmNumberList::Follow(NumberListRun::Start(listed, court, u"CODE"_s, true));
    });
}

QList<AskedItem> tst_NumbersInHistory::kept()
{
    // The last words of a job are read on the next turn, and then the next number is begun.
    Ticks(4);
    if (!store().WaitUntilWritten(longEnough))
        return {};
    QList<AskedItem> items = store().Items({}, 0, 100);
    std::reverse(items.begin(), items.end());
    return items;
}

QString tst_NumbersInHistory::stateOf(int n)
{
    const AskedItem item = kept().value(n - 1);
    return item.State == AskedState::Waiting ? u"waits"_s : item.Outcome;
}

void tst_NumbersInHistory::allNumbersAreKeptInTheirOrder()
{
    QCOMPARE(begin(numbersOf(1, 12)).size(), atATime);
    const QList<AskedItem> items = kept();
    QCOMPARE(namesOf(items), numbersOf(1, 12));
    for (const AskedItem &item : items) {
        QCOMPARE(item.State, AskedState::Waiting);
        QCOMPARE(item.Kind, AskedKind::Case);
        QCOMPARE(item.ClientCode, u"CODE"_s);
        QCOMPARE(item.Where, u"King County, Washington Superior Courts"_s);
    }
}

void tst_NumbersInHistory::aNumberThatWaitsIsKeptAsOneThatIsAskedFor()
{
    begin(numbersOf(1, 11));
    const QList<AskedItem> items = kept();
    QCOMPARE(items.size(), 11);
    std::optional<CaseStart> asked = CaseStartOf(items[9].Origin);
    const std::optional<CaseStart> waits = CaseStartOf(items[10].Origin);
    QVERIFY(asked && waits);
    // They differ by the number alone.
    const auto ofOther = [](const QString &text) {
        return QString(text).replace(numberOf(10), numberOf(11));
    };
    asked->txtCaseNumber = ofOther(asked->txtCaseNumber);
    // The caption comes from its window.
    asked->Caption = waits->Caption;
    asked->lblCaseDetailsHdr = ofOther(asked->lblCaseDetailsHdr);
    asked->tboxCaseNumberQueue = ofOther(asked->tboxCaseNumberQueue);
    asked->Origin = ofOther(QString::fromUtf8(asked->Origin)).toUtf8();
    QCOMPARE(TextOfCaseStart(*waits), TextOfCaseStart(*asked));
    QVERIFY(waits->chkAutoPrint);
}

void tst_NumbersInHistory::theOneThatFollowsKeepsItsLine()
{
    const QList<JobWindow *> windows = begin(numbersOf(1, 12));
    const qint64 id = kept().value(10).Id;
    stop(windows.first());
    QTRY_COMPARE(OpenJobs().size(), 11);
    QCOMPARE(namesOf(kept()), numbersOf(1, 12));
    QCOMPARE(kept().value(10).Id, id);
    QCOMPARE(stateOf(1), u"Search Stopped By User .."_s);
    QCOMPARE(stateOf(11), u"waits"_s);
    // What comes of its case comes of this line, and of no other.
    stop(OpenJobs().last());
    QCOMPARE(stateOf(11), u"Search Stopped By User .."_s);
    QTRY_COMPARE(OpenJobs().size(), 12);
    QCOMPARE(stateOf(12), u"waits"_s);
    QCOMPARE(stateOf(2), u"waits"_s);
    QCOMPARE(kept().size(), 12);
}

void tst_NumbersInHistory::whatIsNotWantedAnyMoreIsOver()
{
    begin(numbersOf(1, 12));
    Click(Shown(u"frmNumberList"_s), "cmdStartNoMore");
    QCOMPARE(stateOf(10), u"waits"_s);
    QCOMPARE(stateOf(11), notStarted + u"no more were wanted"_s);
    QCOMPARE(stateOf(12), notStarted + u"no more were wanted"_s);
    endProgram();
    QCOMPARE(namesOf(store().Unfinished()), numbersOf(1, 10));
}

void tst_NumbersInHistory::whatTheSessionGaveUpIsOfferedAgain_data()
{
    QTest::addColumn<bool>("linkLost");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("the session") << false << u"the session ended"_s;
    QTest::newRow("the link") << true << u"the connection was lost"_s;
}

void tst_NumbersInHistory::whatTheSessionGaveUpIsOfferedAgain()
{
    QFETCH(const bool, linkLost);
    QFETCH(const QString, outcome);
    const QList<JobWindow *> windows = begin(numbersOf(1, 12));
    if (linkLost) {
        Global.bConnectionClosed = true;
        stop(windows.first());
    } else {
        Global.bLoggedIn = false;
        Q_EMIT SessionEvents::Of().SessionChanged();
    }
    QTRY_COMPARE(stateOf(11), notStarted + outcome);
    QCOMPARE(stateOf(12), notStarted + outcome);
    endProgram();
    QCOMPARE(namesOf(store().Unfinished()), numbersOf(linkLost ? 2 : 1, 12));
}

/// As with what a session has stopped: the program went on, and so did the user.
void tst_NumbersInHistory::anotherSessionTakesTheWishBack()
{
    begin(numbersOf(1, 12));
    Global.bLoggedIn = false;
    Q_EMIT SessionEvents::Of().SessionChanged();
    kept();
    Global.bLoggedIn = true;
    for (JobWindow *window : OpenJobs())
        stop(window);
    begin(numbersOf(13, 13));
    endProgram();
    QCOMPARE(namesOf(store().Unfinished()), numbersOf(13, 13));
}

void tst_NumbersInHistory::aKilledProgramOffersThemAll()
{
    begin(numbersOf(1, 12));
    kept();
    reopen();
    QCOMPARE(namesOf(store().Unfinished()), numbersOf(1, 12));
}

void tst_NumbersInHistory::withTheHistoryOffTheyAreKeptFromTheirLaunch()
{
    store().Close();
    const QList<JobWindow *> windows = begin(numbersOf(1, 12));
    reopen();
    stop(windows.first());
    QTRY_COMPARE(OpenJobs().size(), 11);
    QCOMPARE(namesOf(kept()), numbersOf(11, 11));
    Click(Shown(u"frmNumberList"_s), "cmdStartNoMore");
    QCOMPARE(namesOf(kept()), numbersOf(11, 11));
}

/// The places are taken: all of it waits.
void tst_NumbersInHistory::aListBehindAnotherIsKept()
{
    const QList<JobWindow *> windows = begin(numbersOf(1, 10));
    QCOMPARE(begin(numbersOf(21, 22)).size(), 0);
    QCOMPARE(namesOf(kept()), numbersOf(1, 10) + numbersOf(21, 22));
    stop(windows[3]);
    QTRY_COMPARE(OpenJobs().size(), 11);
    stop(OpenJobs().last());
    QCOMPARE(stateOf(4), u"Search Stopped By User .."_s);
    QCOMPARE(stateOf(11), u"Search Stopped By User .."_s);
    QCOMPARE(stateOf(12), u"waits"_s);
    QCOMPARE(kept().size(), 12);
}

/// The link may end while the list is being entered, or while its numbers are offered again.
void tst_NumbersInHistory::aListThatFindsNoLinkIsKept()
{
    Global.bConnectionClosed = true;
    QCOMPARE(begin(numbersOf(1, 3)).size(), 0);
    QCOMPARE(namesOf(kept()), numbersOf(1, 3));
    for (const int n : {1, 2, 3})
        QCOMPARE(stateOf(n), notStarted + u"the connection was lost"_s);
    endProgram();
    QCOMPARE(namesOf(store().Unfinished()), numbersOf(1, 3));
}

/// Or whoever logs in anew in this session, or in the next, would be offered what has run, or waits
/// in the queue.
void tst_NumbersInHistory::inAHistoryThatWasSwitchedOffNothingWaits()
{
    const auto switchTo = [](const QString &value) {
        QVERIFY(SaveOptionStr(u"History"_s, u"KeepHistory"_s, value));
        Q_EMIT OptionsEvents::Of().Saved();
    };
    WireHistory();
    StartHistory(false);
    const QList<JobWindow *> windows = begin(numbersOf(1, 12));
    QCOMPARE(stateOf(12), u"waits"_s);
    switchTo(u"0"_s);
    stop(windows.at(1));
    Ticks(4);
    switchTo(u"1"_s);
    QCOMPARE(namesOf(kept()), numbersOf(1, 12));
    QCOMPARE(namesOf(store().Unfinished()), QStringList());
    const QString switchedOff = u"The history was switched off before it was over."_s;
    for (const int n : {1, 2, 11, 12})
        QCOMPARE(stateOf(n), switchedOff);
    // What comes of the others is heard again.
    stop(windows.first());
    QCOMPARE(stateOf(1), u"Search Stopped By User .."_s);
    QCOMPARE(kept().size(), 12);
}

HALVANE_TEST(tst_NumbersInHistory)
#include "tst_NumbersInHistory.moc"
