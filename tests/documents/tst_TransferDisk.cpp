// A disk that fails at any open, write or rename of a transfer: the user is told once, nothing half
// is under a final name, an older document stays, and the next one comes.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/DiskWaits.h"
#include "support/FailingDisk.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using Call = FailingDisk::Call;
Q_DECLARE_METATYPE(Call)

namespace {
constexpr qsizetype documentBytes = 1'200'000;

const QByteArray &body()
{
    static const QByteArray bytes = DocumentBody(documentBytes);
    return bytes;
}

/// In pieces, one a turn of the event loop.
QByteArrayList pieces()
{
    constexpr qsizetype size = 200'000;
    QByteArrayList all{DocumentHead(documentBytes)};
    for (qsizetype at = 0; at < documentBytes; at += size)
        all.append(body().mid(at, size));
    all.append(DocumentTail);
    return all;
}
} // namespace

class tst_TransferDisk : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void anyCallFails_data();
    void anyCallFails();
    void anyCallFailsOnTheWayToAllDocuments_data();
    void anyCallFailsOnTheWayToAllDocuments();
    void nothingWaitsForTheDisk();

private:
    void connectAgain();
    void transfer();
    QString onlyFile() const { return DocumentFileName() + u".PDF"_s; }

    QStringList seenTexts; ///< of the boxes
};

/// A court without a network that sends the document for every request, and an end mark for a stop.
void tst_TransferDisk::connectAgain()
{
    CloseServerLink();
    FakeSocket *socket = DocumentDesk::ConnectToNothing();
    connect(socket, &ServerSocket::SendComplete, this, [socket] {
        const QByteArray last = socket->sent.value(socket->sent.size() - 1);
        socket->ArriveLater(last.contains("STOP") ? QByteArrayList{"|EOF~|"} : pieces());
    });
}

void tst_TransferDisk::transfer()
{
    connectAgain();
    window = DocumentDesk::Pending();
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    QVERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TransferDisk::anyCallFails_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("fewest");
    QTest::addColumn<bool>("denied");
    QTest::newRow("open") << Call::Open << 2 << true;
    QTest::newRow("write") << Call::Write << 8 << false;
    QTest::newRow("rename") << Call::Rename << 1 << true;
}

void tst_TransferDisk::anyCallFails()
{
    QFETCH(Call, call);
    QFETCH(int, fewest);
    QFETCH(bool, denied);
    transfer();
    desk->Folder.Write(u"Reports/"_s + onlyFile(), "an older one");
    int failures = 0;
    for (int nth = 1;; ++nth, ++failures) {
        desk->Folder.Remove(u"AppInfo.txt"_s);
        desk->Opened.clear();
        const int answered = desk->Boxes.Answered();
        desk->Boxes.Whenever(u"MsgBox"_s, [&](QDialog *box) {
            seenTexts.append(box->property("text").toString());
            box->accept();
        });
        seenTexts.clear();
        bool failed = false;
        {
            const FailingDisk disk(call, nth);
            transfer();
            failed = disk.Calls() >= nth;
        }
        QCOMPARE(desk->Boxes.Answered(), answered);
        if (!failed)
            break;
        QCOMPARE(seenTexts.size(), 1);
        QCOMPARE(seenTexts.first().contains(u"File is already open in Viewer"), denied);
        QVERIFY(desk->Folder.Logged(
            denied ? u"ERROR *** in GetDocument(). Err is: Permission denied #: 70"_s
                   : u"ERROR *** in GetDocument(). Err is: Disk full #: 61"_s));
        QCOMPARE(desk->Documents(), QStringList{onlyFile()});
        QCOMPARE(desk->Document(onlyFile()), QByteArray("an older one"));
        QCOMPARE(desk->Opened, QStringList());
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(nth)));
    }
    // The last one met no failure.
    QVERIFY2(failures >= fewest, qPrintable(QString::number(failures)));
    QVERIFY(desk->Document(onlyFile()) == body());
    QCOMPARE(desk->Opened.size(), 1);
}

void tst_TransferDisk::anyCallFailsOnTheWayToAllDocuments_data()
{
    anyCallFails_data();
}

/// Without a box: the window says what could not be had, and Retry Failed gets it.
void tst_TransferDisk::anyCallFailsOnTheWayToAllDocuments()
{
    QFETCH(Call, call);
    const QList<DocumentStart> starts{StartOf(), StartOf(u"5"_s, u"ORDER"_s)};
    const QString folder = u"King 02-2-00123-4/"_s;
    for (int nth = 1;; ++nth) {
        connectAgain();
        frmAllDocuments all;
        all.Take(starts);
        DocumentDesk::Enqueue(&all);
        const auto isOver = [&all] { return !Global.bSearchInProgress && !all.Timer1->isActive(); };
        bool failed = false;
        {
            const FailingDisk disk(call, nth);
            DocumentDesk::Begin(&all);
            QVERIFY(LinkDesk::WaitUntil(isOver));
            failed = disk.Calls() >= nth;
        }
        const QString missing = all.findChild<QPlainTextEdit *>()->toPlainText();
        QCOMPARE(missing.isEmpty(), !failed);
        const QStringList files = desk->Documents(folder);
        for (const QString &file : files)
            QVERIFY2(file == u"documents.csv"
                         || desk->Document(folder + file).size() == documentBytes,
                     qPrintable(file));
        if (!failed)
            break;
        connectAgain();
        if (ButtonOf(&all, "cmdRetryFailed")->isEnabled()) {
            ButtonOf(&all, "cmdRetryFailed")->click();
            DocumentDesk::Begin(&all);
            QVERIFY(LinkDesk::WaitUntil(isOver));
        }
        QCOMPARE(TextOf(&all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
        QVERIFY(QDir(desk->Folder.Path(u"Reports/"_s + folder)).removeRecursively());
    }
    QCOMPARE(desk->Documents(folder).size(), 3);
}

/// A slow one would hold up the window behind each document: all of it can be had again.
void tst_TransferDisk::nothingWaitsForTheDisk()
{
    const int before = DiskWaits();
    transfer();
    connectAgain();
    frmAllDocuments all;
    all.Take({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    DocumentDesk::Enqueue(&all);
    DocumentDesk::Begin(&all);
    QVERIFY(LinkDesk::WaitUntil(
        [&all] { return !Global.bSearchInProgress && !all.Timer1->isActive(); }));
    QCOMPARE(TextOf(&all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
    QCOMPARE(DiskWaits(), before);
}

HALVANE_TEST(tst_TransferDisk)
#include "tst_TransferDisk.moc"
