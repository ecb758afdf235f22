// The window of one document: what it shows from its first moment to its last, where the file is
// and what opens it.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmDocTransfer.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {
const QString note =
    u"Note: This is a very large document and may take a few minutes to retrieve."_s;
}

class tst_DocTransfer : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void aDocumentIsSavedAndOpened();
    void whatTheStarterHandsOverIsShown();
    void theLogOfATransfer();
    void anotherJobUsesTheLink();
    void theLargeDocumentNote_data();
    void theLargeDocumentNote();
    void starsWhileTheServerIsContacted();
    void whatIsShownWhileItComes();
    void theTypeThatCannotBeUsedIsNotShown();
    void theReceiveLog();
    void theReceiveLogStaysShort();
    void itDoesNotBlinkWhileTheServerIsContacted();
    void zerosAheadOfTheLength();
    void anOlderFileIsReplaced();
    void typesThatNothingOpens_data();
    void typesThatNothingOpens();
    void aDesktopThatOpensNothing();
    void theReportFolderOfTheSettingsIsNotUsed();
    void noClientCodeGoesWithIt();
    void aDocumentLargerThanTheBacklog();
};

void tst_DocTransfer::aDocumentIsSavedAndOpened()
{
    const QByteArray body = DocumentBody(70'000);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply(body));
    Retrieve();
    QVERIFY(window.isNull());
    const QString file = DocumentFileName() + u".PDF"_s;
    QCOMPARE(desk->Documents(), QStringList{file});
    QCOMPARE(desk->Document(file), body);
    QCOMPARE(desk->Opened, QStringList{desk->Folder.Path(u"Reports/"_s + file)});
    QCOMPARE(desk->Folder.Read(u"Reports/Tempfile.bin"_s), DocumentReply(body));
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_DocTransfer::whatTheStarterHandsOverIsShown()
{
    window = DocumentDesk::Pending(StartOf(u"100"_s));
    QCOMPARE(window->windowTitle(), u"Halvane - Case 02-2-00123-4 Retrieving Documents.."_s);
    QCOMPARE(TextOf(window, "lblCaseNo"), u"Case #: 02-2-00123-4"_s);
    QCOMPARE(TextOf(window, "lblCounty"), u"County: King"_s);
    QCOMPARE(TextOf(window, "lblDocDescription"), u"Description: COMPLAINT"_s);
    QCOMPARE(TextOf(window, "lblPageCount"), u"Page Count: 100"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Status: Pending .."_s);
    QCOMPARE(window->txtPageQty, u"100"_s);
    QCOMPARE(window->txtDocRetrievalString, DocumentLine(u"100"_s));
    const auto *bar = window->findChild<QProgressBar *>(u"ProgressBar1"_s);
    QCOMPARE(bar->minimum(), 1);
    QCOMPARE(bar->maximum(), 100);
    QCOMPARE(bar->value(), 1);
    QVERIFY(window->Timer1->interval() == 1500 && window->tmrBlink->interval() == 1000);
}

void tst_DocTransfer::theLogOfATransfer()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    DocumentDesk::ConnectTo(*court);
    desk->Folder.Remove(u"AppInfo.txt"_s);
    window = DocumentDesk::Pending();
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    QCOMPARE(desk->Folder.Log(),
             (QStringList{
                 u"SendReq: "_s + DocumentRequest(), u"|EOD~||EOF~| found in Doc Server response"_s,
                 u"All document data received."_s, u"Writing Document to File.."_s,
                 u"Saved document to file: "_s
                     + desk->Folder.Path(u"Reports/"_s + DocumentFileName() + u".PDF"_s),
                 u"Document was opened for view/print by client."_s,
                 u"Document Retrieval Successful. "_s + DocumentLine(), u"Opening Document.."_s}));
}

void tst_DocTransfer::anotherJobUsesTheLink()
{
    window = DocumentDesk::Pending();
    Global.bSearchInProgress = true;
    DocumentDesk::Begin(window);
    QVERIFY(LinkDesk::WaitUntil(
        [this] { return TextOf(window, "lblStatus") == u"Status: Pending.."; }));
    QVERIFY(window->tmrBlink->isActive());
    QVERIFY(ButtonOf(window, "cmdStop")->isEnabled());
    Global.bSearchInProgress = false;
}

void tst_DocTransfer::theLargeDocumentNote_data()
{
    QTest::addColumn<QString>("pages");
    QTest::addColumn<QString>("shown");
    QTest::newRow("99") << u"99"_s << QString();
    QTest::newRow("100") << u"100"_s << note;
    QTest::newRow("no number") << u"many"_s << QString();
    QTest::newRow("none") << QString() << QString();
}

void tst_DocTransfer::theLargeDocumentNote()
{
    QFETCH(QString, pages);
    court->Expect(DocumentRequest(pages)).ReplyBytes(DocumentReply("body")).Late();
    QString seen;
    desk->When([this] { return court->OwesAnswer(); },
               [&] {
                   seen = TextOf(window, "Label1");
                   court->AnswerNow();
               });
    Retrieve(StartOf(pages));
    QTEST(seen, "shown");
}

void tst_DocTransfer::starsWhileTheServerIsContacted()
{
    const QString contacting = u"Status: Contacting Halvane Document Server."_s;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body")).Late();
    QString early;
    int rounds = 0;
    const auto reads = [this](const QString &text) {
        return [this, text] { return window && TextOf(window, "lblStatus") == text; };
    };
    desk->When(reads(contacting), [this] { desk->Time.Advance(1.1); });
    desk->When(reads(contacting + u" *"_s), [&] {
        // Less than a second brings none, however often the reading goes round.
        desk->Time.Advance(0.5);
        desk->When([&rounds] { return ++rounds > 5; },
                   [&] {
                       early = TextOf(window, "lblStatus");
                       desk->Time.Advance(0.6);
                   });
    });
    desk->When(reads(contacting + u" * *"_s), [this] { court->AnswerNow(); });
    Retrieve();
    QCOMPARE(early, contacting + u" *"_s);
}

void tst_DocTransfer::whatIsShownWhileItComes()
{
    const QByteArray body = DocumentBody(10'000);
    court->Expect(DocumentRequest())
        .ReplyBytes(DocumentHead(body.size(), "tif") + body.left(4'000));
    QStringList seen;
    desk->When(
        [this] { return window && TextOf(window, "lblStatus") == u"Status: Retrieving Document."; },
        [&] {
            seen = {TextOf(window, "lblProgress"), TextOf(window, "lblFileType"),
                    QString::number(window->findChild<QProgressBar *>()->value())};
            court->Send(body.mid(4'000, 4'000));
        });
    desk->When([this] { return window && window->List2.ListCount() == 2; },
               [&] {
                   seen += {TextOf(window, "lblProgress"),
                            QString::number(window->findChild<QProgressBar *>()->value())};
                   court->Send(body.mid(8'000) + DocumentTail);
               });
    Retrieve();
    // The words say how far it was before.
    QCOMPARE(seen, (QStringList{u"  Progress: (1%)"_s, u"File Type: TIF"_s, u"40"_s,
                                u"  Progress: (40%)"_s, u"80"_s}));
    QCOMPARE(desk->Documents(), QStringList{DocumentFileName() + u".tif"_s});
}

void tst_DocTransfer::theTypeThatCannotBeUsedIsNotShown()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(10'000, "../<b>x"));
    QString seen;
    desk->When(
        [this] { return window && TextOf(window, "lblStatus") == u"Status: Retrieving Document."; },
        [&] {
            seen = TextOf(window, "lblFileType");
            court->Send(QByteArray(10'000, 'x') + DocumentTail);
        });
    ExpectFailureBox();
    Retrieve();
    QCOMPARE(seen, u"File Type: N/A"_s);
}

void tst_DocTransfer::theReceiveLog()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(8) + "body");
    QStringList log;
    qint64 last = 0;
    desk->When(
        [this] { return window && TextOf(window, "lblStatus") == u"Status: Retrieving Document."; },
        [&] {
            log = window->List2.Lines();
            last = window->Text2;
            court->Send("body" + DocumentTail);
        });
    Retrieve();
    const qsizetype bytes = DocumentHead(8).size() + 4;
    QCOMPARE(log, QStringList{u"10:00:00Rx:   Len:"_s + QString::number(bytes)});
    QCOMPARE(last, bytes);
}

/// Ten thousand lines and one; then it begins again.
void tst_DocTransfer::theReceiveLogStaysShort()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(8) + "body");
    QList<int> lines;
    desk->When([this] { return window && window->List2.ListCount() == 1; },
               [this] {
                   while (window->List2.ListCount() < 10'000)
                       window->List2.AddItem(u"another"_s);
                   court->Send("bo");
               });
    desk->When([this] { return window && window->List2.ListCount() > 10'000; },
               [&] {
                   lines.append(window->List2.ListCount());
                   court->Send("d");
               });
    desk->When([&] { return !lines.isEmpty() && window && window->List2.ListCount() != lines[0]; },
               [&] {
                   lines.append(window->List2.ListCount());
                   court->Send("y" + DocumentTail);
               });
    Retrieve();
    QCOMPARE(lines, (QList<int>{10'001, 1}));
}

void tst_DocTransfer::itDoesNotBlinkWhileTheServerIsContacted()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body")).Late();
    bool blinks = true;
    desk->When(
        [this] {
            return court->OwesAnswer() && TextOf(window, "lblStatus").contains(u"Contacting");
        },
        [&] {
            blinks = window->tmrBlink->isActive()
                     || window->findChild<QWidget *>(u"lblStatus"_s)->isHidden();
            court->AnswerNow();
        });
    Retrieve();
    QVERIFY(!blinks);
}

void tst_DocTransfer::zerosAheadOfTheLength()
{
    court->Expect(DocumentRequest()).ReplyBytes("|FILELEN=00004~TYPE=PDF~|body" + DocumentTail);
    Retrieve();
    QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s), QByteArray("body"));
}

void tst_DocTransfer::anOlderFileIsReplaced()
{
    for (const QByteArray &body : {QByteArray("the first"), QByteArray("2nd")}) {
        court->Expect(DocumentRequest()).ReplyBytes(DocumentReply(body));
        Retrieve();
        QCOMPARE(desk->Documents(), QStringList{DocumentFileName() + u".PDF"_s});
        QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s), body);
    }
}

void tst_DocTransfer::typesThatNothingOpens_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char *type : {"EXE", "sh", "desktop", "html", "docm", "0", "ABCDEFGHIJ"})
        QTest::newRow(type) << QByteArray(type);
}

void tst_DocTransfer::typesThatNothingOpens()
{
    QFETCH(QByteArray, type);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body", type));
    Retrieve();
    const QString file = DocumentFileName() + u'.' + QString::fromLatin1(type);
    QCOMPARE(desk->Documents(), QStringList{file});
    QCOMPARE(desk->Opened, QStringList());
    QVERIFY(!desk->Folder.Logged(u"Opening Document.."_s));
    QVERIFY(!desk->Folder.Logged(u"Document was opened for view/print by client."_s));
    // It stays to say where the document is.
    QVERIFY(window && window->isVisible());
    QCOMPARE(TextOf(window, "lblStatus"),
             u"Status: Document Saved In Reports Folder, Not Opened: "_s + file);
    QVERIFY(!ButtonOf(window, "cmdStop")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    Global.bShowAlerts = true;
    ButtonOf(window, "cmdClose")->click();
    QTRY_VERIFY(window.isNull());
}

void tst_DocTransfer::aDesktopThatOpensNothing()
{
    desk->ShellOpens = false;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    Retrieve();
    QCOMPARE(desk->Opened.size(), 1);
    QVERIFY(window && window->isVisible());
    QCOMPARE(TextOf(window, "lblStatus"),
             u"Status: Document Saved In Reports Folder, Not Opened: "_s + DocumentFileName()
                 + u".PDF"_s);
}

void tst_DocTransfer::theReportFolderOfTheSettingsIsNotUsed()
{
    Global.strReportFolder = desk->Folder.Path(u"elsewhere"_s);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    Retrieve();
    QCOMPARE(desk->Documents().size(), 1);
}

void tst_DocTransfer::noClientCodeGoesWithIt()
{
    Global.ClientAcctgCode = u"A1"_s;
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply("body"));
    DocumentStart start = StartOf();
    start.ClientMatterText = u"A1"_s;
    Retrieve(start);
    QCOMPARE(desk->Documents().size(), 1);
}

/// What the receive buffer does not take stays in the socket, and is taken up as room comes.
void tst_DocTransfer::aDocumentLargerThanTheBacklog()
{
    const QByteArray body = DocumentBody(40 * 1024 * 1024);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentReply(body));
    Retrieve();
    QCOMPARE(desk->Document(DocumentFileName() + u".PDF"_s).size(), body.size());
    QVERIFY(desk->Document(DocumentFileName() + u".PDF"_s) == body);
}

HALVANE_TEST(tst_DocTransfer)
#include "tst_DocTransfer.moc"
