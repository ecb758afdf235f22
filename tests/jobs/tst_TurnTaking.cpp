#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "core/TurnHold.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmCDQueue.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString first = u"11111111111111111111"_s;
const QString second = u"22222222222222222222"_s;
const QString third = u"33333333333333333333"_s;

QStringList queue()
{
    return frmQueue::Form().FIFO.Lines();
}
} // namespace

class tst_TurnTaking : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void listBoxOperations();
    void theQueueIsEmptyWhenItIsLoaded();
    void theQueueIsOneForAll();
    void keysAreKeptInTheOrderOfTheirStart();
    void whoseTurn_data();
    void whoseTurn();
    void noTurnWhileAHoldLives();
    void holdsWithinHolds();
    void whatGoesBeforeAHold_data();
    void whatGoesBeforeAHold();
    void theKeyIsComparedExactly_data();
    void theKeyIsComparedExactly();
    void aKeyThatIsNotAtTheHeadWaitsOnAnIdleLink();
    void askingTakesNothing();
    void releasingRemovesTheHeadOnly();
    void releasingAnEmptyQueueIsNothing();
    void withdrawingRemovesTheKeyWhereverItStands_data();
    void withdrawingRemovesTheKeyWhereverItStands();
    void withdrawingAKeyThatIsNotThereIsNothing();
    void jobsRunInTheOrderOfTheirStart();
    void aRunningJobMayEnterItsKeyAgain();
    void aKeyThatWasLeftBehindHoldsTheQueue();
    void keysOfWindowsStartedInTheSameSecondDiffer();
    void nothingStandsInTheSpareQueue();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_TurnTaking::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_TurnTaking::cleanup()
{
    folder.reset();
}

void tst_TurnTaking::listBoxOperations()
{
    ListBox box;
    QCOMPARE(box.ListCount(), 0);
    box.AddItem(u"a"_s);
    box.AddItem(u"b"_s);
    box.AddItem(u"a"_s);
    QCOMPARE(box.ListCount(), 3);
    QCOMPARE(box.List(1), u"b"_s);
    QCOMPARE(box.List(3), QString());
    QCOMPARE(box.List(-1), QString());
    box.RemoveItem(0);
    QCOMPARE(box.Lines(), (QStringList{u"b"_s, u"a"_s}));
    box.Clear();
    QCOMPARE(box.ListCount(), 0);
}

void tst_TurnTaking::theQueueIsEmptyWhenItIsLoaded()
{
    EnqueueKey(first);
    frmQueue::Unload();
    QVERIFY(!frmQueue::IsLoaded());
    QCOMPARE(queue(), QStringList());
    QVERIFY(frmQueue::IsLoaded());
    QCOMPARE(frmQueue::Form().objectName(), u"frmQueue"_s);
    QCOMPARE(QString::fromLatin1(frmQueue::Caption), u"Never Show this form!!"_s);
    QCOMPARE(QString::fromLatin1(frmQueue::Label1),
             u"This is the search request queue implementation. Never show this form."_s);
}

void tst_TurnTaking::theQueueIsOneForAll()
{
    EnqueueKey(first);
    QCOMPARE(&frmQueue::Form(), &frmQueue::Form());
    QCOMPARE(queue(), QStringList{first});
}

void tst_TurnTaking::keysAreKeptInTheOrderOfTheirStart()
{
    EnqueueKey(second);
    EnqueueKey(first);
    EnqueueKey(third);
    QCOMPARE(queue(), (QStringList{second, first, third}));
}

void tst_TurnTaking::whoseTurn_data()
{
    QTest::addColumn<bool>("stopped");
    QTest::addColumn<bool>("searching");
    QTest::addColumn<bool>("atTheHead");
    QTest::addColumn<int>("turn");
    const auto row = [](const char *name, bool stopped, bool searching, bool head, Turn turn) {
        QTest::newRow(name) << stopped << searching << head << int(turn);
    };
    row("mine", false, false, true, Turn::Mine);
    row("another one's", false, false, false, Turn::NotYet);
    row("the link is taken, though I am at the head", false, true, true, Turn::Taken);
    row("the link is taken", false, true, false, Turn::Taken);
    row("stopped at the head", true, false, true, Turn::Stopped);
    row("stopped while waiting", true, false, false, Turn::Stopped);
    row("stopping goes before the running job", true, true, true, Turn::Stopped);
}

void tst_TurnTaking::whoseTurn()
{
    QFETCH(bool, stopped);
    QFETCH(bool, searching);
    QFETCH(bool, atTheHead);
    QFETCH(int, turn);
    EnqueueKey(atTheHead ? first : second);
    EnqueueKey(atTheHead ? second : first);
    Global.bStopRequested = stopped;
    Global.bSearchInProgress = searching;
    QCOMPARE(int(AskForTurn(first)), turn);
}

void tst_TurnTaking::noTurnWhileAHoldLives()
{
    EnqueueKey(first);
    {
        const TurnHold hold;
        QCOMPARE(AskForTurn(first), Turn::NotYet);
        QCOMPARE(queue(), QStringList{first});
    }
    QCOMPARE(AskForTurn(first), Turn::Mine);
}

void tst_TurnTaking::holdsWithinHolds()
{
    EnqueueKey(first);
    {
        const TurnHold outer;
        {
            const TurnHold inner;
            QCOMPARE(AskForTurn(first), Turn::NotYet);
        }
        QCOMPARE(AskForTurn(first), Turn::NotYet);
    }
    QCOMPARE(AskForTurn(first), Turn::Mine);
}

void tst_TurnTaking::whatGoesBeforeAHold_data()
{
    QTest::addColumn<bool>("stopped");
    QTest::addColumn<bool>("searching");
    QTest::addColumn<Turn>("turn");
    QTest::newRow("stopped") << true << false << Turn::Stopped;
    QTest::newRow("another job at the link") << false << true << Turn::Taken;
    QTest::newRow("both") << true << true << Turn::Stopped;
}

void tst_TurnTaking::whatGoesBeforeAHold()
{
    QFETCH(bool, stopped);
    QFETCH(bool, searching);
    EnqueueKey(first);
    const TurnHold hold;
    Global.bStopRequested = stopped;
    Global.bSearchInProgress = searching;
    QTEST(AskForTurn(first), "turn");
}

void tst_TurnTaking::theKeyIsComparedExactly_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("another case") << u"KEYA"_s;
    QTest::newRow("a blank more") << u"keya "_s;
    QTest::newRow("the beginning") << u"key"_s;
    QTest::newRow("empty") << u""_s;
}

void tst_TurnTaking::theKeyIsComparedExactly()
{
    QFETCH(QString, key);
    EnqueueKey(u"keya"_s);
    QCOMPARE(AskForTurn(key), Turn::NotYet);
    QCOMPARE(AskForTurn(u"keya"_s), Turn::Mine);
    WithdrawKey(key);
    QCOMPARE(queue(), QStringList{u"keya"_s});
}

void tst_TurnTaking::aKeyThatIsNotAtTheHeadWaitsOnAnIdleLink()
{
    EnqueueKey(first);
    EnqueueKey(second);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(AskForTurn(second), Turn::NotYet);
    QVERIFY(!Global.bSearchInProgress);
    frmQueue::Unload();
    QCOMPARE(AskForTurn(QString()), Turn::NotYet);
}

void tst_TurnTaking::askingTakesNothing()
{
    EnqueueKey(first);
    AskForTurn(first);
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(queue(), QStringList{first});
    Global.bStopRequested = true;
    AskForTurn(first);
    QCOMPARE(queue(), QStringList{first});
}

void tst_TurnTaking::releasingRemovesTheHeadOnly()
{
    EnqueueKey(first);
    EnqueueKey(second);
    ReleaseTurn();
    QCOMPARE(queue(), QStringList{second});
}

void tst_TurnTaking::releasingAnEmptyQueueIsNothing()
{
    ReleaseTurn();
    QCOMPARE(queue(), QStringList());
}

void tst_TurnTaking::withdrawingRemovesTheKeyWhereverItStands_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("at the head") << first << QStringList{second, third};
    QTest::newRow("in the middle") << second << QStringList{first, third};
    QTest::newRow("at the end") << third << QStringList{first, second};
}

void tst_TurnTaking::withdrawingRemovesTheKeyWhereverItStands()
{
    QFETCH(QString, key);
    QFETCH(QStringList, left);
    for (const QString &each : {first, second, third})
        EnqueueKey(each);
    WithdrawKey(key);
    QCOMPARE(queue(), left);
}

void tst_TurnTaking::withdrawingAKeyThatIsNotThereIsNothing()
{
    WithdrawKey(first);
    EnqueueKey(second);
    WithdrawKey(first);
    QCOMPARE(queue(), QStringList{second});
}

void tst_TurnTaking::jobsRunInTheOrderOfTheirStart()
{
    const QStringList started{second, third, first};
    for (const QString &key : started)
        EnqueueKey(key);
    QStringList ran;
    for (int tick = 0; tick < 10; ++tick) {
        for (const QString &key : {first, second, third}) {
            if (AskForTurn(key) != Turn::Mine)
                continue;
            Global.bSearchInProgress = true;
            // Every other window's timer comes while this one is at the link.
            for (const QString &other : started)
                QCOMPARE(AskForTurn(other), Turn::Taken);
            ran.append(key);
            ReleaseTurn();
            Global.bSearchInProgress = false;
        }
    }
    QCOMPARE(ran, started);
    QCOMPARE(queue(), QStringList());
}

void tst_TurnTaking::aRunningJobMayEnterItsKeyAgain()
{
    EnqueueKey(first);
    EnqueueKey(second);
    EnqueueKey(first);
    ReleaseTurn();
    QCOMPARE(queue(), (QStringList{second, first}));
}

void tst_TurnTaking::aKeyThatWasLeftBehindHoldsTheQueue()
{
    EnqueueKey(first);
    EnqueueKey(second);
    QCOMPARE(AskForTurn(second), Turn::NotYet);
    WithdrawKey(first);
    QCOMPARE(AskForTurn(second), Turn::Mine);
}

void tst_TurnTaking::keysOfWindowsStartedInTheSameSecondDiffer()
{
    const TestClock clock;
    const QString one = MakeMasterKey();
    const QString two = MakeMasterKey();
    QCOMPARE(one.size(), 20);
    QVERIFY(one != two);
}

void tst_TurnTaking::nothingStandsInTheSpareQueue()
{
    const frmCDQueue spare;
    EnqueueKey(first);
    QCOMPARE(AskForTurn(first), Turn::Mine);
    ReleaseTurn();
    QCOMPARE(spare.FIFO.ListCount(), 0);
    QCOMPARE(spare.objectName(), u"frmCDQueue"_s);
    QCOMPARE(QString::fromLatin1(frmCDQueue::Label1), u"Never Show This Form!!!"_s);
}

HALVANE_TEST(tst_TurnTaking)
#include "tst_TurnTaking.moc"
