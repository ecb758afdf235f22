// Each of the ways in which the retrieval of a document fails or is stopped: what the user is told,
// what the log says, and that the link is free for the next job.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmDocTransfer.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"

#include <QDir>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {
const QByteArray notice = "|Searching~King County For Documents~|";
const QString noError = u"ERROR *** in GetDocument(). Err is:  #: 0"_s;
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;
} // namespace

class tst_TransferEnds : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() override;

    void badStreams_data();
    void badStreams();
    void goodStreams_data();
    void goodStreams();
    void sixBytesMore_data();
    void sixBytesMore();
    void thirteenNotices();
    void twelveNotices();
    void theLimitOfNoticesIsASetting();
    void theRequestCannotBeSent();
    void theServerFallsSilent();
    void dataKeepsTheClockFromRunningOut();
    void theLinkIsLost();
    void aPingInsideADocument();
    void theFileCannotBeReplaced();
    void theFolderCannotBeMade();
    void theStreamFileCannotBeMade();
    void theDiskIsFullWhileItComes();
    void theDiskIsFullAtTheEnd();

    void stopIsAsked();
    void stopIsDeclined();
    void stopWithoutAlerts();
    void stoppedBeforeItsTurn();
    void stoppedByALogout();
    void aCourtThatDoesNotStop();
    void aCourtThatIsSilentAfterAStop();
    void stopWhileTheLinkGoes();
    void closingIsRefusedWhileItComes();
    void closingBeforeItsTurn();
    void unloadedWhileItComes();
    void twoTransfersComeOneAfterTheOther();

private:
    /// A transfer that is stopped by the user once the first bytes have come.
    void stopWhenItComes();
    bool isShown(const QString &status) const
    {
        return window && TextOf(window, "lblStatus") == status;
    }
    /// The lines of a failure, behind those of its reason.
    QStringList failureLines(const QString &error = noError) const
    {
        return {error, u"ERROR *** frmDocTransfer: Timer1(). Requested Document Not Retrieved: "_s,
                u"ERROR *** Requested Doc Command Was: "_s + DocumentLine()};
    }
    /// What the log says behind the request, without what the socket notes.
    QStringList logged() const;
};

/// However one ended, the next document comes, over a new link if need be.
void tst_TransferEnds::cleanup()
{
    if (!QTest::currentTestFailed()) {
        const QString complaints = court->Complaints();
        QVERIFY(window.isNull() || window->IsUnloaded());
        QVERIFY(!Global.bSearchInProgress && !Global.bSendBusy);
        frmQueue::Form().FIFO.Clear();
        Global.bStopRequested = false;
        Global.bShowAlerts = false;
        QCOMPARE(complaints, QString());
        desk->Time.Stop();
        desk->Opened.clear();
        court->Expect(DocumentRequest(u"9"_s, u"NEXT"_s)).ReplyBytes(DocumentReply("next"));
        Retrieve(StartOf(u"9"_s, u"NEXT"_s));
        QVERIFY2(desk->Opened.size() == 1, qPrintable(desk->Folder.Log().join(u'\n')));
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    }
    DocumentTest::cleanup();
}

QStringList tst_TransferEnds::logged() const
{
    QStringList log = desk->Folder.Log();
    const qsizetype request = log.lastIndexOf(u"SendReq: "_s + DocumentRequest());
    log = log.mid(request + 1);
    log.removeAll(u"|EOD~||EOF~| found in Doc Server response"_s);
    return log;
}

void tst_TransferEnds::badStreams_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QStringList>("lines"); // between the reading and the failure
    const QStringList unusable{
        u"Writing Document to File.."_s,
        u"ERROR *** Can't get size and/or type of document file. In GetDocument()"_s,
        u"ERROR *** Document File was not written."_s};
    const QStringList empty{u"Writing Document to File.."_s,
                            u"ERROR *** Unable to Write Document File. File is zero length."_s};
    const auto row = [](const char *name, const QByteArray &stream, const QStringList &lines) {
        QTest::newRow(name) << stream << lines;
    };
    row("an end mark alone", "|EOF~|", unusable);
    row("a message in its place", "|ERROR~no such document~||EOF~|", unusable);
    row("no length", "|TYPE=PDF~|body" + DocumentTail, unusable);
    row("an empty length", "|FILELEN=~TYPE=PDF~|body" + DocumentTail, unusable);
    row("a negative length", "|FILELEN=-4~TYPE=PDF~|body" + DocumentTail, unusable);
    row("a length that is no number", "|FILELEN=four~TYPE=PDF~|body" + DocumentTail, unusable);
    row("a length with a fraction", "|FILELEN=4.5~TYPE=PDF~|body" + DocumentTail, unusable);
    row("a length above 2 GB", "|FILELEN=2147483648~TYPE=PDF~|body" + DocumentTail, unusable);
    row("a length of 0", "|FILELEN=0~TYPE=PDF~|body" + DocumentTail, unusable);
    row("no type", "|FILELEN=4~|body" + DocumentTail, unusable);
    row("an empty type", "|FILELEN=4~TYPE=~|body" + DocumentTail, unusable);
    row("a type that is a path", "|FILELEN=4~TYPE=/../x~|body" + DocumentTail, unusable);
    row("a type that is too long", "|FILELEN=4~TYPE=ABCDEFGHIJK~|body" + DocumentTail, unusable);
    row("nothing between head and end mark", DocumentHead(4) + DocumentTail, empty);
    row("bytes without a head", QByteArray(1'000, 'x') + DocumentTail, unusable);
    row("too little", DocumentHead(100) + "body" + DocumentTail, {});
}

void tst_TransferEnds::badStreams()
{
    QFETCH(QByteArray, stream);
    QFETCH(QStringList, lines);
    court->Expect(DocumentRequest()).ReplyBytes(stream);
    QString status;
    ExpectFailureBox([&] { status = TextOf(window, "lblStatus"); });
    Retrieve();
    QCOMPARE(status, u"Status: Document Retrieval Failed. Please try again at a later time."_s);
    QCOMPARE(logged(), QStringList{u"All document data received."_s} + lines + failureLines());
    QCOMPARE(desk->Documents(), QStringList());
    QCOMPARE(desk->Opened, QStringList());
}

void tst_TransferEnds::goodStreams_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArray>("body");
    const QByteArray head = DocumentHead(4);
    const auto row = [](const char *name, const QByteArray &stream, const QByteArray &body) {
        QTest::newRow(name) << stream << body;
    };
    row("as usual", head + "body" + DocumentTail, "body");
    row("a notice ahead of it", notice + head + "body" + DocumentTail, "body");
    row("two notices", notice + "|Searching~King Superior Court~|" + head + "body" + DocumentTail,
        "body");
    row("more than its length", head + "body and more" + DocumentTail, "body");
    row("heads within it", head + "bo" + head + "dy" + DocumentTail, "body");
    row("an end mark within it", DocumentHead(8) + "abcd|EOD~||EOF~|efgh" + DocumentTail,
        "abcdefgh");
    row(
        "all values of a byte",
        DocumentHead(256) +
            [] {
                QByteArray bytes;
                for (int i = 0; i < 256; ++i)
                    bytes.append(static_cast<char>(i));
                return bytes;
            }()
            + DocumentTail,
        [] {
            QByteArray bytes;
            for (int i = 0; i < 256; ++i)
                bytes.append(static_cast<char>(i));
            return bytes;
        }());
    row("nothing behind its end mark counts", head + "body" + DocumentTail + "more", "body");
}

void tst_TransferEnds::goodStreams()
{
    QFETCH(QByteArray, stream);
    court->Expect(DocumentRequest()).ReplyBytes(stream);
    Retrieve();
    QTEST(desk->Document(DocumentFileName() + u".PDF"_s), "body");
}

void tst_TransferEnds::sixBytesMore_data()
{
    QTest::addColumn<int>("missing");
    QTest::newRow("what has come is its length and six") << 0;
    QTest::newRow("and five") << 1;
}

/// The frame counts as well: a length that is too great for its document by less than the frame is
/// long passes.
void tst_TransferEnds::sixBytesMore()
{
    QFETCH(int, missing);
    const QByteArray body(200, 'x');
    const qsizetype frame = DocumentHead(200).size() + DocumentTail.size();
    const qsizetype length = body.size() + frame - 6 + missing;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(length) + body + DocumentTail);
    if (missing > 0)
        ExpectFailureBox();
    Retrieve();
    QCOMPARE(desk->Documents().size(), missing > 0 ? 0 : 1);
    if (missing == 0)
        QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s), body);
}

void tst_TransferEnds::thirteenNotices()
{
    court->Expect(DocumentRequest());
    court->Expect(u"¦STOP"_s).ReplyBytes(DocumentTail);
    int sent = 0;
    // Each in a piece of its own: what has come before is seen first.
    for (int i = 0; i < 13; ++i)
        desk->When(
            [this, &sent, i] {
                return sent == i && window && window->List2.ListCount() == i
                       && TextOf(window, "lblStatus").contains(i == 0 ? u"Contact" : u"Retrieving");
            },
            [this, &sent] {
                ++sent;
                court->Send(notice);
            });
    ExpectFailureBox();
    Retrieve();
    QCOMPARE(sent, 13);
    QCOMPARE(desk->Documents(), QStringList());
    QVERIFY(logged().contains(u"SendReq: ¦STOP"_s));
}

void tst_TransferEnds::twelveNotices()
{
    court->Expect(DocumentRequest());
    int sent = 0;
    for (int i = 0; i < 13; ++i)
        desk->When(
            [this, &sent, i] {
                return sent == i && window && window->List2.ListCount() == i
                       && TextOf(window, "lblStatus").contains(i == 0 ? u"Contact" : u"Retrieving");
            },
            [this, &sent] {
                ++sent;
                court->Send(sent == 13 ? DocumentReply("body") : notice);
            });
    Retrieve();
    QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s), QByteArray("body"));
}

void tst_TransferEnds::theLimitOfNoticesIsASetting()
{
    Global.intSearchingMsgs = 1;
    court->Expect(DocumentRequest()).ReplyBytes(notice);
    court->Expect(u"¦STOP"_s).ReplyBytes(DocumentTail);
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] { court->Send(notice); });
    ExpectFailureBox();
    Retrieve();
    Global.intSearchingMsgs = 12;
}

void tst_TransferEnds::theRequestCannotBeSent()
{
    desk->ConnectToNothing()->state = SocketState::Closed;
    window = DocumentDesk::Pending();
    QStringList times;
    ExpectFailureBox([&] { times = window->List1.Lines(); });
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    QCOMPARE(logged(), failureLines());
    QCOMPARE(times, QStringList());
    frmWinsock::SetSocketFactory({});
    frmWinsock::Unload();
}

/// What it was about to send may still come: it is told to stop, and waited for a little.
void tst_TransferEnds::theServerFallsSilent()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("the rest" + DocumentTail).Late();
    desk->When([this] { return court->OwesAnswer(); }, [this] { court->AnswerNow(); });
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] { desk->Time.Run(5.0); });
    ExpectFailureBox();
    Retrieve();
    QCOMPARE(
        logged(),
        (QStringList{u"Timed Out waiting for response from Document Server. In ReadDocument()"_s,
                     u"SendReq: ¦STOP"_s}
         + failureLines()));
    // The stream is left as it was.
    QCOMPARE(desk->Folder.Read(u"Reports/Tempfile.bin"_s), DocumentHead(500) + "a part");
}

void tst_TransferEnds::dataKeepsTheClockFromRunningOut()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(6));
    int sent = 0;
    for (int i = 0; i < 4; ++i)
        desk->When(
            [this, &sent, i] { return sent == i && window && window->List2.ListCount() == i + 1; },
            [this, &sent] {
                ++sent;
                // The limit is a minute.
                desk->Time.Advance(50);
                court->Send(sent == 4 ? DocumentTail : QByteArray("xx"));
            });
    Retrieve();
    QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s), QByteArray("xxxxxx"));
}

void tst_TransferEnds::theLinkIsLost()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part").Drop();
    ExpectFailureBox();
    Retrieve();
    QStringList lines = logged();
    lines.removeAll(u"Client Connection was Closed"_s);
    QCOMPARE(lines,
             QStringList{u"Connection to Servers was dropped!. Document Download is Incomplete!"_s}
                 + failureLines());
    QCOMPARE(desk->Time.Sleeps(), QList<int>());
    QVERIFY(Global.bConnectionClosed);
}

/// The rule of the link: everything that waits goes with a ping.
void tst_TransferEnds::aPingInsideADocument()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(100'000));
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] {
                   court->Send("xx diag001 xx");
                   desk->When([this] { return court->Requests().last().startsWith(u"IMALIVE"); },
                              [this] { court->Send(QByteArray(100, 'x') + DocumentTail); });
               });
    ExpectFailureBox();
    Retrieve();
    QCOMPARE(desk->Documents(), QStringList());
}

void tst_TransferEnds::theFileCannotBeReplaced()
{
    QVERIFY(QDir().mkpath(desk->Folder.Path(u"Reports"_s)));
    const QString path = desk->Folder.Path(u"Reports/"_s + DocumentFileName() + u".PDF"_s);
    MakeUnreadable(path);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    ExpectDeniedBox();
    Retrieve();
    QCOMPARE(logged(),
             (QStringList{u"All document data received."_s, u"Writing Document to File.."_s}
              + failureLines(u"ERROR *** in GetDocument(). Err is: Permission denied #: 70"_s)));
}

void tst_TransferEnds::theFolderCannotBeMade()
{
    desk->Folder.Write(u"Reports"_s, "a file in its place");
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    court->Expect(u"¦STOP"_s);
    ExpectDeniedBox();
    Retrieve();
    QVERIFY(logged().contains(u"ERROR *** in GetDocument(). Err is: Permission denied #: 70"_s));
    desk->Folder.Remove(u"Reports"_s);
}

void tst_TransferEnds::theStreamFileCannotBeMade()
{
    QVERIFY(QDir().mkpath(desk->Folder.Path(u"Reports"_s)));
    MakeUnreadable(desk->Folder.Path(u"Reports/Tempfile.bin"_s));
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    court->Expect(u"¦STOP"_s);
    ExpectDeniedBox();
    Retrieve();
    QCOMPARE(desk->Documents(), QStringList());
    QVERIFY(QDir().rmdir(desk->Folder.Path(u"Reports/Tempfile.bin"_s)));
}

void tst_TransferEnds::theDiskIsFullWhileItComes()
{
    std::unique_ptr<FullDisk> disk;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(200'000) + QByteArray(10'000, 'x'));
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [&] {
                   disk = std::make_unique<FullDisk>(20'000);
                   court->Send(QByteArray(50'000, 'x'));
               });
    ExpectFailureBox([&] { disk.reset(); });
    Retrieve();
    QVERIFY(logged().contains(u"ERROR *** in GetDocument(). Err is: Disk full #: 61"_s));
    QCOMPARE(desk->Documents(), QStringList());
}

/// All has come, and there is nothing to be stopped any more.
void tst_TransferEnds::theDiskIsFullAtTheEnd()
{
    std::unique_ptr<FullDisk> disk;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(50'000) + QByteArray(50'000, 'x'));
    desk->When([this] { return window && window->findChild<QProgressBar *>()->value() == 100; },
               [&] {
                   disk = std::make_unique<FullDisk>(50'000);
                   court->Send(DocumentTail);
               });
    ExpectFailureBox([&] { disk.reset(); });
    Retrieve();
    QVERIFY(logged().contains(u"ERROR *** in GetDocument(). Err is: Disk full #: 61"_s));
    QCOMPARE(desk->Documents(), QStringList());
}

void tst_TransferEnds::stopWhenItComes()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] { ButtonOf(window, "cmdStop")->click(); });
}

void tst_TransferEnds::stopIsAsked()
{
    Global.bShowAlerts = true;
    stopWhenItComes();
    court->Expect(u"¦STOP"_s).ReplyBytes("what was under way|EOD~||EOF~|");
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    Retrieve();
    QVERIFY(window.isNull());
    QCOMPARE(logged().last(), u"DOCUMENT RETRIEVAL STOPPED - from GetDocument()."_s);
    QCOMPARE(desk->Documents(), QStringList());
    QCOMPARE(desk->Opened, QStringList());
}

void tst_TransferEnds::stopIsDeclined()
{
    Global.bShowAlerts = true;
    stopWhenItComes();
    desk->Boxes.Meanwhile([this] { court->Send(QByteArray(494, 'x') + DocumentTail); });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    Retrieve();
    QCOMPARE(desk->Documents().size(), 1);
}

void tst_TransferEnds::stopWithoutAlerts()
{
    stopWhenItComes();
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|").Late();
    QStringList seen;
    desk->When([this] { return court->OwesAnswer() && !Global.bSearchInProgress; },
               [&] {
                   seen = {TextOf(window, "lblStatus"),
                           ButtonOf(window, "cmdStop")->isEnabled() ? u"on"_s : u"off"_s};
                   QVERIFY(!window->Timer1->isActive() && !window->tmrBlink->isActive());
                   court->AnswerNow();
               });
    Retrieve();
    QVERIFY(LinkDesk::WaitUntil([this] { return window.isNull(); }));
    QCOMPARE(seen, (QStringList{u"Search Stopped By User.. "_s, u"off"_s}));
}

void tst_TransferEnds::stoppedBeforeItsTurn()
{
    window = DocumentDesk::Pending();
    Global.bSearchInProgress = true;
    DocumentDesk::Begin(window);
    ButtonOf(window, "cmdStop")->click();
    QVERIFY(window->IsUnloaded());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    Global.bSearchInProgress = false;
}

void tst_TransferEnds::stoppedByALogout()
{
    window = DocumentDesk::Pending();
    Global.bStopRequested = true;
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    QVERIFY(window.isNull());
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// A court that sends on is read to its end mark, and nothing of it kept.
void tst_TransferEnds::aCourtThatDoesNotStop()
{
    stopWhenItComes();
    court->Expect(u"¦STOP"_s).ReplyBytes(QByteArray(494, 'x') + DocumentTail);
    Retrieve();
    QVERIFY(LinkDesk::WaitUntil([this] { return window.isNull(); }));
    QCOMPARE(desk->Documents(), QStringList());
}

void tst_TransferEnds::aCourtThatIsSilentAfterAStop()
{
    stopWhenItComes();
    court->Expect(u"¦STOP"_s);
    float waited = 0.0F;
    desk->When([this] { return court->Requests().size() == 2 && !Global.bSendBusy; },
               [&] {
                   waited = desk->Time.SecondsOfDay();
                   desk->Time.Run(0.5);
               });
    Retrieve();
    QVERIFY(LinkDesk::WaitUntil([this] { return window.isNull(); }));
    desk->Time.Stop();
    waited = desk->Time.SecondsOfDay() - waited;
    QVERIFY2(waited >= 14.0F && waited < 40.0F,
             qPrintable(QString::number(static_cast<double>(waited))));
}

void tst_TransferEnds::stopWhileTheLinkGoes()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] {
                   Global.sckServer->Close();
                   ButtonOf(window, "cmdStop")->click();
               });
    Retrieve();
    QVERIFY(LinkDesk::WaitUntil([this] { return window.isNull(); }));
    QVERIFY(desk->Folder.Logged(
        u"Exiting Doc Retrieval. In frmDocTransfer:StopCurrentSearch(). Error: "_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TransferEnds::closingIsRefusedWhileItComes()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    desk->Boxes.Expect(u"This form cannot be closed until the current search completes."_s,
                       u"Stop Current Search .."_s);
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] {
                   QVERIFY(!window->close());
                   court->Send(QByteArray(494, 'x') + DocumentTail);
               });
    Retrieve();
    QCOMPARE(desk->Documents().size(), 1);
}

void tst_TransferEnds::closingBeforeItsTurn()
{
    Global.bShowAlerts = true;
    window = DocumentDesk::Pending();
    const QString question =
        u"Are you sure you want to close this form?\nThe document will not be retrieved."_s;
    desk->Boxes.Expect(question, u"Close Search Form .."_s, MsgAnswer::No);
    QVERIFY(!window->close());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    desk->Boxes.Expect(question, u"Close Search Form .."_s, MsgAnswer::Yes);
    ButtonOf(window, "cmdClose")->click();
    QVERIFY(window->IsUnloaded());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TransferEnds::unloadedWhileItComes()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    desk->When([this] { return isShown(u"Status: Retrieving Document."_s); },
               [this] { QVERIFY(window->Unload(UnloadMode::SessionEnd)); });
    Retrieve();
    QVERIFY(LinkDesk::WaitUntil([] { return frmQueue::Form().FIFO.ListCount() == 0; }));
    QCOMPARE(desk->Documents(), QStringList());
}

void tst_TransferEnds::twoTransfersComeOneAfterTheOther()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("first")).Late();
    court->Expect(DocumentRequest(u"1"_s, u"OTHER"_s)).ReplyBytes(DocumentReply("second"));
    DocumentDesk::ConnectTo(*court);
    window = DocumentDesk::Pending();
    const QPointer<frmDocTransfer> other(DocumentDesk::Pending(StartOf(u"1"_s, u"OTHER"_s)));
    desk->When([this] { return court->OwesAnswer(); },
               [&] {
                   DocumentDesk::Begin(other);
                   desk->When([&] { return TextOf(other, "lblStatus") == u"Status: Pending.."; },
                              [this] { court->AnswerNow(); });
               });
    DocumentDesk::Begin(window);
    QVERIFY(LinkDesk::WaitUntil([&] { return window.isNull() && other.isNull(); }));
    QCOMPARE(desk->Documents().size(), 2);
    QCOMPARE(desk->Document(DocumentFileName(u"1"_s, u"OTHER"_s) + u".PDF"_s),
             QByteArray("second"));
}

HALVANE_TEST(tst_TransferEnds)
#include "tst_TransferEnds.moc"
