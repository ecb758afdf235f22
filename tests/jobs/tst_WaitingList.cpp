// What the list of the queue says of each key, and what Skip takes away.

#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/Job.h"
#include "jobs/TurnTaking.h"
#include "jobs/WaitingList.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// A job for a name, whose run does what the test wants.
class SomeJob : public Job
{
public:
    explicit SomeJob(const QString &name, JobKindName kindName = JobKindName::NameSearch)
        : Job(kindName), Name(name)
    {
        Timer1->setInterval(1);
        txtMasterKey = MakeMasterKey();
        EnqueueKey(txtMasterKey);
        AnnounceLaunch();
    }

    JobMatter Matter() const override { return {Name, u"King"_s}; }
    void Rename(const QString &name)
    {
        Name = name;
        Q_EMIT Changed();
    }
    void EndRun()
    {
        SetOver();
        ReleaseTurnOf(txtMasterKey);
    }
    /// Asks for its turn once.
    void Tick() { QMetaObject::invokeMethod(Timer1, "timeout", Qt::DirectConnection); }
    void WaitAgain() { Restart(JobKindName::NameSearch, Timer1); }

    QString Name;
    std::function<void()> Run = [this] { EndRun(); };
    int Stops = 0; ///< how often it was shown as stopped

protected:
    void ProcessSearchRequests() override { Run(); }
    void ShowStopped(StopCase) override
    {
        ++Stops;
        ShowStoppedStatus();
    }
    QString StopRequest() const override { return {}; }
};

QStringList keysInQueue()
{
    return frmQueue::Form().FIFO.Lines();
}

/// The rows in one line each.
QStringList textsOf(const WaitingList &list)
{
    QStringList texts;
    for (const WaitingRow &row : list.Rows())
        texts.append(row.Text() + u" - "_s + StateText(row));
    return texts;
}
} // namespace

class tst_WaitingList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void nothing();
    void whatWaitsInOrder();
    void places_data();
    void places();
    void whatRunsIsNotCounted();
    void aStoppedRunThatReadsOn();
    void aStopThatCouldNotBeSentRunsOnWithoutAPlace();
    void aWindowClosedInTheMiddleOfTheRunEndsByItself();
    void aWindowClosedBeforeItsTurnHoldsTheQueue();
    void aKeyIsKnownWhenItsJobHasGone();
    void aRunThatBrokeDownHoldsTheQueue();
    void aRunThatWasStoppedAndBrokeDownHoldsTheQueue();
    void skippingWhatBrokeDownStopsIt();
    void skippingTwiceTakesNothingElse();
    void whatDoesNotHoldIsNotSkipped();
    void theNextRunsBehindASkippedKey();
    void aJobThatWaitsAgain();
    void theWordsOfAWaitingJobFollowIt();
    void oneChangeForWhatHappensTogether();
    void nothingHappensWhileNothingHappens();
    void anUnloadedQueueIsEmpty();

private:
    QString closeOne(const QString &name);
    void breakDown(SomeJob *job);

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<WaitingList> list;
};

void tst_WaitingList::init()
{
    folder = std::make_unique<TestFolder>();
    list = std::make_unique<WaitingList>();
}

void tst_WaitingList::cleanup()
{
    list.reset();
    folder.reset();
    QVERIFY(Job::All().isEmpty());
}

/// Leaves a key behind, as a window does that is closed without Stop. Gives the key.
QString tst_WaitingList::closeOne(const QString &name)
{
    auto *job = new SomeJob(name);
    const QString key = job->txtMasterKey;
    job->GiveUp();
    delete job;
    list->Refresh();
    return key;
}

void tst_WaitingList::breakDown(SomeJob *job)
{
    job->Run = [] {};
    job->Tick();
    list->Refresh();
}

void tst_WaitingList::nothing()
{
    QCOMPARE(textsOf(*list), QStringList());
    QCOMPARE(list->Summary(), QString());
    QVERIFY(!list->HeldUp());
}

void tst_WaitingList::whatWaitsInOrder()
{
    const SomeJob first(u"SMITH"_s);
    const SomeJob second(u"02-1-00123-4"_s, JobKindName::Case);
    const SomeJob third(u"Complaint"_s, JobKindName::Document);
    const SomeJob fourth(u"02-1-00123-4"_s, JobKindName::AllDocuments);
    list->Refresh();
    QCOMPARE(textsOf(*list), (QStringList{u"Search: SMITH (King) - Waits: next"_s,
                                          u"Case: 02-1-00123-4 (King) - Waits: 2nd"_s,
                                          u"Document: Complaint (King) - Waits: 3rd"_s,
                                          u"All documents: 02-1-00123-4 (King) - Waits: 4th"_s}));
    QCOMPARE(list->Summary(), u"4 waiting"_s);
}

void tst_WaitingList::places_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("text");
    const QHash<int, QString> texts{
        {1, u"next"_s},  {2, u"2nd"_s},   {3, u"3rd"_s},     {4, u"4th"_s},    {10, u"10th"_s},
        {11, u"11th"_s}, {12, u"12th"_s}, {13, u"13th"_s},   {21, u"21st"_s},  {22, u"22nd"_s},
        {33, u"33rd"_s}, {40, u"40th"_s}, {101, u"101st"_s}, {111, u"111th"_s}};
    for (const auto &[place, text] : texts.asKeyValueRange())
        QTest::addRow("%d", place) << place << u"Waits: "_s + text;
}

void tst_WaitingList::places()
{
    QFETCH(int, place);
    WaitingRow row;
    row.Place = place;
    QTEST(StateText(row), "text");
}

void tst_WaitingList::whatRunsIsNotCounted()
{
    SomeJob running(u"A"_s);
    const SomeJob waiting(u"B"_s);
    QStringList seen;
    QString summary;
    running.Run = [&] {
        list->Refresh();
        seen = textsOf(*list);
        summary = list->Summary();
        running.EndRun();
    };
    running.Tick();
    QCOMPARE(seen,
             (QStringList{u"Search: A (King) - Runs"_s, u"Search: B (King) - Waits: next"_s}));
    QCOMPARE(summary, u"1 waiting"_s);
    list->Refresh();
    QCOMPARE(textsOf(*list), QStringList{u"Search: B (King) - Waits: next"_s});
}

void tst_WaitingList::aStoppedRunThatReadsOn()
{
    SomeJob running(u"A"_s);
    QStringList seen;
    running.Run = [&] {
        running.Stop();
        list->Refresh();
        seen = textsOf(*list);
        running.EndRun();
    };
    running.Tick();
    QCOMPARE(seen, QStringList{u"Search: A (King) - Stopped, its reply is still coming"_s});
}

void tst_WaitingList::aStopThatCouldNotBeSentRunsOnWithoutAPlace()
{
    SomeJob running(u"A"_s);
    const SomeJob waiting(u"B"_s);
    QStringList seen;
    running.Run = [&] {
        ReleaseTurnOf(running.txtMasterKey);
        list->Refresh();
        seen = textsOf(*list);
        running.EndRun();
    };
    running.Tick();
    QCOMPARE(seen,
             (QStringList{u"Search: A (King) - Runs"_s, u"Search: B (King) - Waits: next"_s}));
}

void tst_WaitingList::aWindowClosedInTheMiddleOfTheRunEndsByItself()
{
    SomeJob running(u"A"_s);
    QStringList seen;
    bool held = true;
    running.Run = [&] {
        running.GiveUp();
        list->Refresh();
        seen = textsOf(*list);
        held = list->HeldUp() || list->Skip(running.txtMasterKey);
        running.EndRun();
    };
    running.Tick();
    QCOMPARE(seen, QStringList{u"Search: A (King) - Closed, its reply is still coming"_s});
    QVERIFY(!held);
}

void tst_WaitingList::aWindowClosedBeforeItsTurnHoldsTheQueue()
{
    SomeJob closed(u"A"_s);
    const SomeJob waiting(u"B"_s);
    closed.GiveUp();
    QTRY_COMPARE(textsOf(*list),
                 (QStringList{u"Search: A (King) - Holds the queue: closed without Stop"_s,
                              u"Search: B (King) - Waits: next"_s}));
    QCOMPARE(list->Summary(), u"1 waiting, held up"_s);
}

void tst_WaitingList::aKeyIsKnownWhenItsJobHasGone()
{
    const QString key = closeOne(u"A"_s);
    QCOMPARE(textsOf(*list),
             QStringList{u"Search: A (King) - Holds the queue: closed without Stop"_s});
    QCOMPARE(list->Rows().first().Who, nullptr);
    QCOMPARE(list->Summary(), u"Held up"_s);
    // And is forgotten with its place.
    WithdrawKey(key);
    list->Refresh();
    EnqueueKey(key);
    list->Refresh();
    QCOMPARE(textsOf(*list), QStringList{u"Search - Holds the queue: closed without Stop"_s});
}

void tst_WaitingList::aRunThatBrokeDownHoldsTheQueue()
{
    SomeJob broken(u"A"_s);
    breakDown(&broken);
    QVERIFY(broken.KeepsPlace());
    QCOMPARE(textsOf(*list),
             QStringList{u"Search: A (King) - Holds the queue: its run broke down"_s});
}

void tst_WaitingList::aRunThatWasStoppedAndBrokeDownHoldsTheQueue()
{
    SomeJob broken(u"A"_s);
    broken.Run = [&broken] { broken.Stop(); };
    broken.Tick();
    list->Refresh();
    QCOMPARE(keysInQueue(), QStringList{broken.txtMasterKey});
    QCOMPARE(textsOf(*list),
             QStringList{u"Search: A (King) - Holds the queue: its run broke down"_s});
    QVERIFY(list->Skip(broken.txtMasterKey));
    QCOMPARE(keysInQueue(), QStringList());
    QCOMPARE(broken.State(), JobState::Over);
}

void tst_WaitingList::skippingWhatBrokeDownStopsIt()
{
    SomeJob broken(u"A"_s);
    breakDown(&broken);
    QVERIFY(broken.CanBeStopped());
    QVERIFY(list->Skip(broken.txtMasterKey));
    QCOMPARE(keysInQueue(), QStringList());
    QCOMPARE(broken.Stops, 1);
    QCOMPARE(broken.State(), JobState::Over);
    QVERIFY(!broken.CanBeStopped());
    QVERIFY(!broken.KeepsPlace());
    // Nothing was using the link, and nobody is told that it is free.
    QVERIFY(!Global.bSearchInProgress);
}

void tst_WaitingList::skippingTwiceTakesNothingElse()
{
    const QString key = closeOne(u"A"_s);
    const SomeJob waiting(u"B"_s);
    QVERIFY(list->Skip(key));
    QVERIFY(!list->Skip(key));
    QCOMPARE(keysInQueue(), QStringList{waiting.txtMasterKey});
}

void tst_WaitingList::whatDoesNotHoldIsNotSkipped()
{
    SomeJob running(u"A"_s);
    const SomeJob waiting(u"B"_s);
    QList<bool> skipped;
    running.Run = [&] {
        skipped = {list->Skip(running.txtMasterKey), list->Skip(waiting.txtMasterKey),
                   list->Skip(u"no such key"_s)};
        running.EndRun();
    };
    running.Tick();
    QCOMPARE(skipped, (QList<bool>{false, false, false}));
    QCOMPARE(keysInQueue(), QStringList{waiting.txtMasterKey});
    // Over by the ordinary way, it keeps no place.
    QVERIFY(!running.KeepsPlace());
    QCOMPARE(running.Stops, 0);
}

void tst_WaitingList::theNextRunsBehindASkippedKey()
{
    const QString key = closeOne(u"A"_s);
    SomeJob waiting(u"B"_s);
    bool ran = false;
    waiting.Run = [&] {
        ran = true;
        waiting.EndRun();
    };
    waiting.Tick();
    QVERIFY(!ran);
    QVERIFY(list->Skip(key));
    waiting.Tick();
    QVERIFY(ran);
}

void tst_WaitingList::aJobThatWaitsAgain()
{
    SomeJob job(u"A"_s);
    job.Tick();
    list->Refresh();
    QCOMPARE(textsOf(*list), QStringList());
    job.WaitAgain();
    QTRY_COMPARE(textsOf(*list), QStringList{u"Search: A (King) - Waits: next"_s});
}

void tst_WaitingList::theWordsOfAWaitingJobFollowIt()
{
    SomeJob job(u"A"_s);
    QCoreApplication::processEvents();
    job.Rename(u"SMITH, JOHN"_s);
    QTRY_COMPARE(textsOf(*list), QStringList{u"Search: SMITH, JOHN (King) - Waits: next"_s});
}

void tst_WaitingList::oneChangeForWhatHappensTogether()
{
    const QSignalSpy changes(list.get(), &WaitingList::Changed);
    const SomeJob first(u"A"_s);
    const SomeJob second(u"B"_s);
    SomeJob third(u"C"_s);
    third.Stop();
    QCOMPARE(changes.size(), 0);
    QTRY_COMPARE(changes.size(), 1);
    QCOMPARE(list->Waiting(), 2);
}

void tst_WaitingList::nothingHappensWhileNothingHappens()
{
    const SomeJob first(u"A"_s);
    SomeJob second(u"B"_s);
    list->Refresh();
    QCoreApplication::processEvents();
    const QSignalSpy changes(list.get(), &WaitingList::Changed);
    QCOMPARE(list->findChildren<QTimer *>().size(), 0);
    // It asks for its turn, in vain.
    second.Tick();
    second.Tick();
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 0);
}

void tst_WaitingList::anUnloadedQueueIsEmpty()
{
    EnqueueKey(u"x"_s);
    list->Refresh();
    QCOMPARE(list->Rows().size(), 1);
    frmQueue::Unload();
    list->Refresh();
    QCOMPARE(list->Rows().size(), 0);
    QVERIFY(!frmQueue::IsLoaded());
}

HALVANE_TEST(tst_WaitingList)
#include "tst_WaitingList.moc"
