// The window of one document: what it shows while the document comes, where the file is, what opens
// it, and each of the ways in which it fails.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmDocTransfer.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTest>

class tst_DocTransfer : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void aDocumentIsSavedAndOpened();
    void whatTheStarterHandsOverIsShown();
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

HALVANE_TEST(tst_DocTransfer)
#include "tst_DocTransfer.moc"
