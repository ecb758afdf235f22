// The retrieval of a document as a job by itself, without a window: its states, what it says one
// after the other, and to whom.

#include "core/GlobalState.h"
#include "core/Platform.h"
#include "core/TextUtilities.h"
#include "documents/DocumentJob.h"
#include "documents/DocumentLines.h"
#include "documents/DocumentTalk.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "support/LinkDesk.h"

#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {
class Listener : public DocumentTalk
{
public:
    void TellFailure() override
    {
        // The link is free while the user reads.
        said.append(Global.bSearchInProgress ? u"failure, not free"_s : u"failure"_s);
    }
    void TellDenied() override { said.append(u"denied"_s); }

    QStringList said;
};
} // namespace

class tst_DocumentJob : public LinkTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup() override;

    void theStates();
    void whatItSays();
    void starsBeginAgain();
    void theTimes();
    void aFailureIsShownOnce();
    void aHeadThatIsNeverSeen();
    void aDeniedFileHasItsOwnWords();
    void aStopIsNoFailure();
    void aRequestThatCannotBeSent();
    void aStopWhileItIsSaved();
    void nothingIsLeftInTheBuffer();
    void whoeverWantsToLeave();
    void aJobThatIsGivenUpEndsByItsOwnRules();
    void aJobThatIsGivenUpBeforeItsTurn();
    void aJobThatIsGivenUpAsItsDocumentEnds();

private:
    void run();
    bool isOver() const { return !Global.bSearchInProgress && !job->Timer1->isActive(); }

    DocumentJob *job = nullptr;
    Listener listener;
    QStringList opened;
};

void tst_DocumentJob::init()
{
    LinkTest::init();
    job = new DocumentJob;
    job->Take(StartOf());
    job->UseTalk(&listener);
    job->txtMasterKey = MakeMasterKey();
    EnqueueKey(job->txtMasterKey);
    listener.said.clear();
    opened.clear();
    ReplaceShell([this](const QString &path) {
        opened.append(path);
        return true;
    });
}

void tst_DocumentJob::cleanup()
{
    job->Release();
    ReplaceShell({});
    LinkTest::cleanup();
}

void tst_DocumentJob::run()
{
    LinkDesk::ConnectTo(*court);
    job->Timer1->start(1);
    QVERIFY(LinkDesk::WaitUntil([this] { return isOver(); }));
}

void tst_DocumentJob::theStates()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    QList<JobState> states{job->State()};
    connect(job, &Job::StateChanged, this, [&] { states.append(job->State()); });
    const QSignalSpy ended(job, &Job::Ended);
    const QSignalSpy close(job, &DocumentJob::CloseWanted);
    run();
    QCOMPARE(states, (QList<JobState>{JobState::Pending, JobState::Taken, JobState::Running,
                                      JobState::Over}));
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.at(0).at(0).toBool(), false);
    QCOMPARE(close.size(), 1);
    QCOMPARE(opened.size(), 1);
    QCOMPARE(listener.said, QStringList());
}

void tst_DocumentJob::whatItSays()
{
    const QByteArray reply = DocumentReply(DocumentBody(1000));
    court->Expect(DocumentRequest()).ReplyBytes(reply.left(500));
    QStringList seen{job->Status.Text};
    connect(job, &Job::Changed, this, [&] {
        if (seen.last() != job->Status.Text)
            seen.append(job->Status.Text);
    });
    desk->When([this] { return job->Status.Text == u"Status: Retrieving Document."; },
               [&] { court->Send(reply.mid(500)); });
    run();
    QCOMPARE(seen, (QStringList{u"Status: Pending .."_s, u"Retrieving Document.."_s,
                                u"Status: Contacting Halvane Document Server."_s,
                                u"Status: Retrieving Document."_s, u"Status: Saving Document."_s,
                                u"Status: Saving File to Reports Folder.."_s,
                                u"Status: Opening file .. "_s,
                                u"Status: Document Retrieval Complete. Closing."_s}));
}

void tst_DocumentJob::starsBeginAgain()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body")).Late();
    Global.intSearchTimeout = 60;
    qsizetype longest = 0;
    bool again = false;
    connect(job, &Job::Changed, this, [&] {
        if (!job->Status.Text.contains(u"Contact"))
            return;
        longest = qMax(longest, job->Status.Text.size());
        again = again || job->Status.Text == u"Status: Contacting Halvane Document Server. ";
    });
    desk->When([this] { return court->OwesAnswer(); }, [this] { desk->Time.Run(1.1); });
    desk->When([&] { return again; },
               [&] {
                   desk->Time.Stop();
                   court->AnswerNow();
               });
    run();
    QVERIFY2(longest > 140 && longest <= 150, qPrintable(QString::number(longest)));
}

void tst_DocumentJob::theTimes()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body")).Late();
    // The request can be with the court before its time is noted.
    desk->When([this] { return court->OwesAnswer() && job->Transfer.List1.ListCount() == 1; },
               [this] {
                   desk->Time.Advance(30);
                   court->AnswerNow();
               });
    run();
    QCOMPARE(job->Transfer.List1.Lines(),
             (QStringList{u"10:00:00"_s, u"Pages Retrieved:        5"_s,
                          u"End retrieval of doc:   10:00:30"_s, u"10:00:30"_s}));
    QCOMPARE(job->Transfer.Text1, u"00:00:30"_s);
}

void tst_DocumentJob::aFailureIsShownOnce()
{
    court->Expect(DocumentRequest()).ReplyBytes("|EOF~|");
    run();
    QCOMPARE(listener.said, QStringList{u"failure"_s});
    QCOMPARE(job->Status.Text,
             u"Status: Document Retrieval Failed. Please try again at a later time."_s);
}

/// Until the court says its length it is what so many pages have. What is shorter is not written.
void tst_DocumentJob::aHeadThatIsNeverSeen()
{
    court->Expect(DocumentRequest()).ReplyBytes("no head");
    desk->When([this] { return job->Status.Text == u"Status: Retrieving Document."; },
               [this] { court->Send("and no document" + DocumentTail); });
    run();
    QCOMPARE(listener.said, QStringList{u"failure"_s});
    QVERIFY(desk->Folder.Logged(u"All document data received."_s));
    QVERIFY(!desk->Folder.Logged(u"Writing Document to File.."_s));
    QVERIFY(!desk->Folder.Logged(u"ERROR *** Document File was not written."_s));
}

void tst_DocumentJob::aDeniedFileHasItsOwnWords()
{
    QVERIFY(QDir().mkpath(desk->Folder.Path(u"Reports/"_s + DocumentFileName() + u".PDF"_s)));
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    run();
    QCOMPARE(listener.said, QStringList{u"denied"_s});
}

void tst_DocumentJob::aStopIsNoFailure()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("rest of it|EOF~|");
    desk->When([this] { return job->Status.Text == u"Status: Retrieving Document."; },
               [this] { job->Stop(); });
    const QSignalSpy ended(job, &Job::Ended);
    const QSignalSpy close(job, &DocumentJob::CloseWanted);
    run();
    QVERIFY(LinkDesk::WaitUntil([&] { return !close.isEmpty(); }));
    QCOMPARE(listener.said, QStringList());
    QCOMPARE(ended.at(0).at(0).toBool(), true);
    QVERIFY(desk->Folder.Logged(u"DOCUMENT RETRIEVAL STOPPED - from GetDocument()."_s));
    QCOMPARE(job->Status.Text, u"Search Stopped By User.. "_s);
    QVERIFY(job->Status.Trouble);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// Nothing has been retrieved, and nothing is about to be saved.
void tst_DocumentJob::aRequestThatCannotBeSent()
{
    QStringList said;
    connect(job, &Job::Changed, this, [&] { said.append(job->Status.Text); });
    Global.bLoggedIn = true;
    job->Timer1->start(1);
    QVERIFY(LinkDesk::WaitUntil([this] { return isOver(); }));
    QCOMPARE(listener.said, QStringList{u"failure"_s});
    QCOMPARE(job->Transfer.List1.Lines(), QStringList());
    QCOMPARE(said.filter(u"Saving"_s), QStringList());
    QVERIFY(
        said.contains(u"Status: Document Retrieval Failed. Please try again at a later time."_s));
}

/// All of it has come: it is kept, and nothing is opened.
void tst_DocumentJob::aStopWhileItIsSaved()
{
    const QByteArray body = DocumentBody(2'000'000);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply(body));
    desk->When([this] { return job->Status.Text == u"Status: Saving File to Reports Folder.."; },
               [this] { job->Stop(); });
    const QSignalSpy close(job, &DocumentJob::CloseWanted);
    run();
    QVERIFY(LinkDesk::WaitUntil([&] { return !close.isEmpty(); }));
    QVERIFY(desk->Folder.Read(u"Reports/"_s + DocumentFileName() + u".PDF"_s) == body);
    QVERIFY(desk->Folder.Logged(u"Document Retrieval Successful. "_s + DocumentLine()));
    QVERIFY(!desk->Folder.Logged(u"Opening Document.."_s));
    QCOMPARE(opened, QStringList());
}

/// What comes behind the end mark is nobody's.
void tst_DocumentJob::nothingIsLeftInTheBuffer()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply(DocumentBody(2'000'000)));
    desk->When([this] { return job->Status.Text == u"Status: Saving File to Reports Folder.."; },
               [] { Global.strRecvBuffer.Append("what nobody asked for"); });
    run();
    QCOMPARE(opened.size(), 1);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_DocumentJob::whoeverWantsToLeave()
{
    const QSignalSpy ended(job, &Job::Ended);
    const QSignalSpy close(job, &DocumentJob::CloseWanted);
    Global.bStopRequested = true;
    job->Timer1->start(1);
    QVERIFY(LinkDesk::WaitUntil([this] { return isOver(); }));
    QCOMPARE(job->Status.Text, u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(close.size(), 1);
}

/// The court is asked to stop, and what it still sends is nobody else's.
void tst_DocumentJob::aJobThatIsGivenUpEndsByItsOwnRules()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("rest of it|EOF~|");
    bool keptItsPlace = false;
    desk->When([this] { return job->Status.Text == u"Status: Retrieving Document."; },
               [&, this] {
                   job->GiveUp();
                   keptItsPlace = frmQueue::Form().FIFO.List(0) == job->txtMasterKey;
               });
    run();
    QVERIFY(keptItsPlace);
    QCOMPARE(listener.said, QStringList());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(opened, QStringList());
}

void tst_DocumentJob::aJobThatIsGivenUpBeforeItsTurn()
{
    job->GiveUp();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!job->Timer1->isActive());
}

/// Nothing is said to a court that has nothing to stop any more.
void tst_DocumentJob::aJobThatIsGivenUpAsItsDocumentEnds()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    desk->When([this] { return job->Status.Text == u"Status: Retrieving Document."; },
               [this] {
                   const QByteArray rest = QByteArray(494, 'x') + DocumentTail;
                   Global.strRecvBuffer.Append(rest);
                   job->GiveUp();
               });
    run();
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(opened, QStringList());
}

HALVANE_TEST(tst_DocumentJob)
#include "tst_DocumentJob.moc"
