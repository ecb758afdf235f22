// All documents of a case behind a reply that did not end as it should: the next one is asked for
// only when nothing of the one before can be taken for it.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmAllDocuments.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"

#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

class tst_DocumentAfterDocument : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() override;

    void silentToTheEnd();
    void silentUntilItIsStopped();
    void tooManyNotices();
    void anEndMarkWithinADocument();
    void anEndMarkWithinADocumentWhoseRestStalls();
    void aDocumentThatIsTooShort();
    void aFullDiskAndACourtThatDoesNotEnd();
    void aStopWhileOneIsSaved();
    void nothingIsLeftInTheBuffer();
    void itDoesNotBlinkWhileTheServerIsContacted();

private:
    DocumentStart first() const { return StartOf(u"5"_s, u"COMPLAINT"_s); }
    DocumentStart second() const { return StartOf(u"5"_s, u"ORDER"_s); }
    ScriptedCourt::Exchange &expectFirst() { return court->Expect(DocumentRequest()); }
    void serveSecond()
    {
        court->Expect(DocumentRequest(u"5"_s, u"ORDER"_s)).ReplyBytes(DocumentReply("order"));
    }
    void runBoth();
    bool reads(const QString &status) const { return all && TextOf(all, "lblStatus") == status; }
    QString missing() const { return all->findChild<QPlainTextEdit *>()->toPlainText(); }
    QByteArray saved(const QString &description) const
    {
        return desk->Document(u"King 02-2-00123-4/"_s + DocumentFileName(u"5"_s, description)
                              + u".PDF"_s);
    }
    /// The second one is what was asked for, and the first one is not there.
    void checkSecond(const QString &reason) const;
    /// Neither is there, and the second one was not asked for.
    void checkNeither(const QString &reason) const;

    QPointer<frmAllDocuments> all;
};

void tst_DocumentAfterDocument::cleanup()
{
    delete all;
    DocumentTest::cleanup();
}

void tst_DocumentAfterDocument::runBoth()
{
    DocumentDesk::ConnectTo(*court);
    all = new frmAllDocuments;
    all->Take({first(), second()});
    DocumentDesk::Enqueue(all);
    DocumentDesk::Begin(all);
    QVERIFY(LinkDesk::WaitUntil(
        [this] { return !Global.bSearchInProgress && !all->Timer1->isActive(); }));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_DocumentAfterDocument::checkSecond(const QString &reason) const
{
    QCOMPARE(missing(), u"01/02/2003 COMPLAINT: "_s + reason);
    QCOMPARE(saved(u"COMPLAINT"_s), QByteArray());
    QCOMPARE(saved(u"ORDER"_s), QByteArray("order"));
}

void tst_DocumentAfterDocument::checkNeither(const QString &reason) const
{
    QCOMPARE(missing(),
             u"01/02/2003 COMPLAINT: "_s + reason
                 + u"\n01/02/2003 ORDER: The server was still busy with the document before it."_s);
    QCOMPARE(saved(u"COMPLAINT"_s), QByteArray());
    QCOMPARE(saved(u"ORDER"_s), QByteArray());
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 0 of 2 Documents Are Here."_s);
    QVERIFY(ButtonOf(all, "cmdRetryFailed")->isEnabled());
}

/// Its document may come at any time, and nothing in it says which it is.
void tst_DocumentAfterDocument::silentToTheEnd()
{
    expectFirst();
    court->Expect(u"¦STOP"_s);
    desk->When([this] { return court->Requests().size() == 1; }, [this] { desk->Time.Run(5.0); });
    runBoth();
    checkNeither(u"The server did not answer in time."_s);
}

void tst_DocumentAfterDocument::silentUntilItIsStopped()
{
    expectFirst();
    court->Expect(u"¦STOP"_s).ReplyBytes(DocumentReply("complaint")).Late();
    serveSecond();
    desk->When([this] { return court->Requests().size() == 1; }, [this] { desk->Time.Run(5.0); });
    desk->When([this] { return court->OwesAnswer(); },
               [this] {
                   desk->Time.Stop();
                   court->AnswerNow();
               });
    runBoth();
    checkSecond(u"The server did not answer in time."_s);
}

void tst_DocumentAfterDocument::tooManyNotices()
{
    Global.intSearchingMsgs = 0;
    expectFirst().ReplyBytes("|Searching~King County For Documents~|");
    court->Expect(u"¦STOP"_s).ReplyBytes("the rest" + DocumentTail).Late();
    serveSecond();
    // By then the next request has gone out, or nobody means to send one.
    int turns = 0;
    desk->When([&] { return court->OwesAnswer() && ++turns > 20; }, [this] { court->AnswerNow(); });
    runBoth();
    Global.intSearchingMsgs = 12;
    checkSecond(u"The server searched for it for too long."_s);
}

void tst_DocumentAfterDocument::anEndMarkWithinADocument()
{
    expectFirst().ReplyBytes(DocumentHead(5'000) + "a part|EOF~|");
    court->Expect(u"¦STOP"_s).ReplyBytes("and more of it" + DocumentTail).Late();
    serveSecond();
    int turns = 0;
    desk->When([&] { return court->OwesAnswer() && ++turns > 20; }, [this] { court->AnswerNow(); });
    runBoth();
    checkSecond(u"It did not come complete."_s);
}

void tst_DocumentAfterDocument::anEndMarkWithinADocumentWhoseRestStalls()
{
    expectFirst().ReplyBytes(DocumentHead(5'000) + "a part|EOF~|");
    court->Expect(u"¦STOP"_s).ReplyBytes("and more of it");
    desk->When([this] { return court->Requests().size() == 2; }, [this] { desk->Time.Run(0.5); });
    runBoth();
    checkNeither(u"It did not come complete."_s);
}

/// A stop that finds no reply running is not answered.
void tst_DocumentAfterDocument::aDocumentThatIsTooShort()
{
    expectFirst().ReplyBytes(DocumentHead(5'000) + "all there is" + DocumentTail);
    court->Expect(u"¦STOP"_s);
    serveSecond();
    desk->When([this] { return court->Requests().size() == 2; }, [this] { desk->Time.Run(0.5); });
    desk->When([this] { return court->Requests().size() == 3; }, [this] { desk->Time.Stop(); });
    runBoth();
    checkSecond(u"It did not come complete."_s);
}

void tst_DocumentAfterDocument::aFullDiskAndACourtThatDoesNotEnd()
{
    std::unique_ptr<FullDisk> disk;
    expectFirst().ReplyBytes(DocumentHead(200'000) + QByteArray(10'000, 'x'));
    court->Expect(u"¦STOP"_s);
    desk->When([this] { return reads(u"Status: Retrieving Document."_s); },
               [&] {
                   disk = std::make_unique<FullDisk>(20'000);
                   court->Send(QByteArray(50'000, 'x'));
               });
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   disk.reset();
                   desk->Time.Run(0.5);
               });
    runBoth();
    checkNeither(u"Its file could not be written: the disk is full."_s);
}

/// It has come, and is kept.
void tst_DocumentAfterDocument::aStopWhileOneIsSaved()
{
    const QByteArray body = DocumentBody(2'000'000);
    expectFirst().ReplyBytes(DocumentReply(body));
    desk->When([this] { return reads(u"Status: Saving File to Reports Folder.."_s); },
               [this] { ButtonOf(all, "cmdStop")->click(); });
    runBoth();
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 1 of 2 Documents Are Here."_s);
    QVERIFY(saved(u"COMPLAINT"_s) == body);
    QCOMPARE(missing(), u"01/02/2003 ORDER: It was stopped by the user."_s);
}

/// What comes behind an end mark is nobody's.
void tst_DocumentAfterDocument::nothingIsLeftInTheBuffer()
{
    expectFirst().ReplyBytes(DocumentReply("complaint"));
    court->Expect(DocumentRequest(u"5"_s, u"ORDER"_s))
        .ReplyBytes(DocumentReply(DocumentBody(2'000'000)));
    desk->When(
        [this] {
            return reads(u"Status: Saving File to Reports Folder.."_s)
                   && TextOf(all, "lblProgress") == u"1 of 2 Documents";
        },
        [] { Global.strRecvBuffer.Append("what nobody asked for"); });
    runBoth();
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_DocumentAfterDocument::itDoesNotBlinkWhileTheServerIsContacted()
{
    expectFirst().ReplyBytes(DocumentReply("complaint")).Late();
    serveSecond();
    bool blinks = true;
    desk->When(
        [this] {
            return reads(u"Status: Contacting Halvane Document Server."_s) && court->OwesAnswer();
        },
        [&] {
            blinks =
                all->tmrBlink->isActive() || all->findChild<QWidget *>(u"lblStatus"_s)->isHidden();
            court->AnswerNow();
        });
    runBoth();
    QVERIFY(!blinks);
}

HALVANE_TEST(tst_DocumentAfterDocument)
#include "tst_DocumentAfterDocument.moc"
