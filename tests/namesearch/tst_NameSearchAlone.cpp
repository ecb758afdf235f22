// A search as a job by itself: its states, its stop, its turn, and what happens when nobody looks.

#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/SearchJobs.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {
const QString stopRequest = u"STOP¦"_s;
const QString otherKey = u"22222222222222222222"_s;

QString indexLine(const QString &limits)
{
    return u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Criminal,~1970~2005~"_s + limits;
}

/// Takes note of what a search has to say.
class Listener : public SearchTalk
{
public:
    explicit Listener(NameSearch *talking) : search(talking) { search->UseTalk(this); }
    void TellEmptyQueue() override { said.append(u"empty"_s); }
    void CloseUnasked() override
    {
        said.append(u"closed"_s);
        search->GiveUp();
    }

    QStringList said;

private:
    NameSearch *search;
};
} // namespace

class tst_NameSearchAlone : public SearchJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void theStatesOfASearch();
    void whoHasTheLink();
    void stoppedBeforeItsTurn();
    void stoppedInTheMiddle();
    void stoppedForAll();
    void pagesOfAnIndex();
    void anEmptyListIsReportedOnce();
    void nobodyLooksBeforeItsTurn();
    void nobodyLooksInTheMiddle();
    void itGoesWhenItsRunHasEnded();
    void peopleOfOneName();
};

void tst_NameSearchAlone::theStatesOfASearch()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    LinkDesk::ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QList<JobState> states{search->State()};
    QStringList status{search->Status.Text};
    connect(search, &Job::StateChanged, this, [&] {
        states.append(search->State());
        status.append(search->Status.Text);
    });
    const QSignalSpy ended(search, &Job::Ended);
    QVERIFY(search->CanBeStopped());
    QVERIFY(Finish(search));
    QCOMPARE(states, (QList<JobState>{JobState::Pending, JobState::Taken, JobState::Running,
                                      JobState::Over}));
    QCOMPARE(status,
             (QStringList{u"Pending .."_s, u"Pending .."_s, u"Searching .."_s, u"Searching .."_s}));
    QVERIFY(!search->CanBeStopped() && !search->HasTurn());
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.at(0).at(0).toBool(), false);
}

void tst_NameSearchAlone::whoHasTheLink()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(RequestLine(u"SMYTHE"_s)).Reply({u"EOF~"_s});
    LinkDesk::ConnectTo(*court);
    const CourtSearch *first = Start({RequestLine()});
    const CourtSearch *second = Start({RequestLine(u"SMYTHE"_s)});
    bool sawIt = false;
    desk->When([&] { return second->LinkWasTaken(); },
               [&] {
                   sawIt = first->HasTurn() && !second->HasTurn() && Global.bSearchInProgress;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(first) && Finish(second));
    QVERIFY(sawIt);
    QVERIFY(!second->LinkWasTaken());
}

void tst_NameSearchAlone::stoppedBeforeItsTurn()
{
    CourtSearch *search = Start({RequestLine()});
    search->Stop();
    QCOMPARE(search->State(), JobState::Over);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!search->Timer1->isActive());
    QCOMPARE(search->Record.lblSearchStatus.Text,
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QVERIFY(search->StopRequested && Global.bUserStoppedSearch);
}

void tst_NameSearchAlone::stoppedInTheMiddle()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    court->Expect(stopRequest).Reply({ResultLine(u"B"_s), u"EOF~"_s});
    LinkDesk::ConnectTo(*court);
    CourtSearch *search = Start({RequestLine(), RequestLine(u"SMYTHE"_s)});
    JobState afterStop = JobState::Pending;
    desk->When([&] { return search->RowCount() == 1; },
               [&] {
                   search->Stop();
                   afterStop = search->State();
                   QVERIFY(!Global.bSearchInProgress);
                   QVERIFY(search->HasTurn());
               });
    QVERIFY(Finish(search));
    QCOMPARE(afterStop, JobState::Stopping);
    QCOMPARE(search->Status.Text, u"Search Stopped By User: 2 Cases Retrieved."_s);
    QVERIFY(search->Status.Trouble);
}

void tst_NameSearchAlone::stoppedForAll()
{
    Global.bStopRequested = true;
    const CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Record.lblSearchStatus.Text, u"Search Stopped By User: 0 Cases Retrieved."_s);
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearchAlone::pagesOfAnIndex()
{
    court->Expect(indexLine(u"LL=1~UL=500~"_s)).Reply({u"WARNING~Reached Search Limit~500~200~"_s});
    court->Expect(indexLine(u"LL=501~UL=700~"_s)).Reply({u"EOF~"_s});
    LinkDesk::ConnectTo(*court);
    CourtSearch *search = Start(new CourtSearch(u"WA"_s, true), {indexLine(u"LL=1~UL=500~"_s)});
    QVERIFY(Finish(search));
    QVERIFY(search->PageOffered() && !search->PageTaken());
    QCOMPARE(search->PageCount(), u"200"_s);
    Global.bStopRequested = true;
    search->Timer1->setInterval(1);
    search->GetNextPage();
    QCOMPARE(search->State(), JobState::Pending);
    QVERIFY(search->PageTaken() && !Global.bStopRequested);
    QVERIFY(Finish(search));
    QVERIFY(!search->PageOffered());
    QCOMPARE(search->SearchRunCount, qint16(2));
}

void tst_NameSearchAlone::anEmptyListIsReportedOnce()
{
    CourtSearch *search = Start(QStringList());
    const Listener listener(search);
    frmQueue::Form().FIFO.AddItem(otherKey);
    QTRY_COMPARE(listener.said, (QStringList{u"empty"_s, u"closed"_s}));
    QTRY_VERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QCOMPARE(desk->Folder.Log().last(),
             u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
}

/// Closing is not stopping: its key stays where it is.
void tst_NameSearchAlone::nobodyLooksBeforeItsTurn()
{
    CourtSearch *search = Start({RequestLine()});
    search->GiveUp();
    QVERIFY(!search->Timer1->isActive());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{search->txtMasterKey});
}

/// What is being said is heard to its end; the rest would be billed, and seen by nobody.
void tst_NameSearchAlone::nobodyLooksInTheMiddle()
{
    court->Expect(RequestLine()).Reply({});
    LinkDesk::ConnectTo(*court);
    CourtSearch *search = Start({RequestLine(), RequestLine(u"SMYTHE"_s)});
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   search->GiveUp();
                   court->SendTokens({ResultLine(u"A"_s), u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(search->RowCount(), 1);
    QVERIFY(
        desk->Folder.Logged(u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearchAlone::itGoesWhenItsRunHasEnded()
{
    court->Expect(RequestLine()).Reply({});
    LinkDesk::ConnectTo(*court);
    QPointer<CourtSearch> search(new CourtSearch(u"WA"_s, false));
    search->lboxQueue.AddItem(RequestLine());
    search->txtMasterKey = otherKey;
    frmQueue::Form().FIFO.AddItem(otherKey);
    search->Timer1->start(1);
    bool livesOn = false;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   search->GiveUp();
                   search->Release();
                   QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                   livesOn = !search.isNull();
                   court->SendTokens({u"EOF~"_s});
               });
    QTRY_VERIFY(search.isNull());
    QVERIFY(livesOn);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_NameSearchAlone::peopleOfOneName()
{
    const QString person = u"NCSNCI1~SMITH, JOHN~M~01/02/1970~W~600~180~n~o~k~"_s;
    NonCivilSearch search(DiscisDndSearch::No);
    search.AddDupeRow(person);
    QCOMPARE(search.Names.Count(), 1);
    QVERIFY(!search.NamesRetrievable());
    const QSignalSpy toggled(&search, &NonCivilSearch::Toggled);
    search.ToggleDupesView();
    QCOMPARE(toggled.size(), 1);
    QVERIFY(search.ShowingDupes);
    QCOMPARE(search.Record.lblSearchStatus.Text,
             u"Multiple Names Match. Please Select Name(s) to retrieve."_s);
}

HALVANE_TEST(tst_NameSearchAlone)
#include "tst_NameSearchAlone.moc"
