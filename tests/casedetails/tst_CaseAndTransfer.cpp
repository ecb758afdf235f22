#include "casedetails/DocumentsDesk.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"

namespace {
/// How a transfer ends.
enum class Outcome { Saved, TooShort, Stopped, Closed, TooManyNotices, Silent, DiskFull };

/// What a tab would take for a row of its own, and for its end.
const QByteArray strayRow = "|JONES~Of the document~|";

bool asksToStop(Outcome outcome)
{
    return outcome != Outcome::Saved && outcome != Outcome::TooShort;
}
} // namespace
Q_DECLARE_METATYPE(Outcome)

/// A case window and the transfers that it started, when something comes between.
class tst_CaseAndTransfer : public DocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void theCaseIsClosedWhileItsTransferRuns();
    void theCaseIsClosedWhileItsTransferWaits();
    void aSecondDoubleClickIsASecondTransfer();
    void aTransferWaitsForTheRunOfAnotherCase();
    void anotherCaseWaitsForATransfer();
    void theListIsReadAgainWhileATransferRuns();
    void theListIsStoppedAndStillOpensItsRows();
    void aTabBehindATransferHasItsOwnReply_data();
    void aTabBehindATransferHasItsOwnReply();

private:
    /// Has the court say what makes a transfer of the third document end so, and what it still
    /// says of it behind that.
    void expectTransfer(Outcome outcome);
    /// Does what makes it end so, in the middle of it.
    void act(Outcome outcome);
    /// Lets the court say the rest some turns after it was asked to stop.
    void answerLate();
    /// Expects the retrieval of the third document, whose second half comes when all has happened
    /// that is to happen meanwhile.
    void expectHalf()
    {
        body = DocumentBody(20'000);
        const QByteArray reply = DocumentReply(body, "pdf");
        court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(reply.first(9'000));
        rest = reply.mid(9'000);
    }
    /// Does this once half of the document has come, and lets the other half come.
    void halfway(const std::function<void()> &act)
    {
        const auto hasCome = [this] {
            return Global.bSearchInProgress && court->Requests().contains(requestOf(3, u"Answer"_s))
                   && desk->Folder.Read(u"Reports/Tempfile.bin"_s).size() >= 9'000;
        };
        desk->When(hasCome, [this, act] {
            act();
            court->Send(rest);
        });
    }
    QByteArray saved() const
    {
        return desk->Folder.Read(u"Reports/King 02-1-00123-4 01-02-2003 5 Pgs  Answer.pdf"_s);
    }

    QByteArray body;
    QByteArray rest;
    std::unique_ptr<FullDisk> disk;
};

void tst_CaseAndTransfer::theCaseIsClosedWhileItsTransferRuns()
{
    const QPointer<frmCaseDetails> window = listing();
    expectHalf();
    doubleClick(window, 3);
    halfway([&] {
        window->Unload();
        QVERIFY(window->IsUnloaded());
    });
    const QPointer<frmDocTransfer> transfer = transfers().first();
    letGo(transfer);
    QVERIFY(finished(transfer));
    QVERIFY(desk->AllHappened());
    QCOMPARE(saved(), body);
    QCOMPARE(opened.size(), 1);
}

void tst_CaseAndTransfer::theCaseIsClosedWhileItsTransferWaits()
{
    frmCaseDetails *window = listing();
    doubleClick(window, 3);
    window->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{transfers().first()->txtMasterKey});
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    const QPointer<frmDocTransfer> transfer = transfers().first();
    letGo(transfer);
    QVERIFY(finished(transfer));
    QCOMPARE(saved(), "%PDF");
}

void tst_CaseAndTransfer::aSecondDoubleClickIsASecondTransfer()
{
    const frmCaseDetails *window = listing();
    expectHalf();
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    doubleClick(window, 3);
    const QPointer<frmDocTransfer> first = transfers().first();
    QPointer<frmDocTransfer> second;
    QString statusOfSecond;
    halfway([&] {
        doubleClick(window, 3);
        second = transfers().last();
        letGo(second);
        desk->When([&] { return TextOf(second, "lblStatus") == u"Status: Pending.."; },
                   [&] { statusOfSecond = TextOf(second, "lblStatus"); });
    });
    letGo(first);
    QVERIFY(finished(first));
    QVERIFY(second);
    QVERIFY(first != second);
    QVERIFY(finished(second));
    // The later one takes the place of the other's file.
    QCOMPARE(saved(), "%PDF");
    QCOMPARE(opened.size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseAndTransfer::aTransferWaitsForTheRunOfAnotherCase()
{
    const frmCaseDetails *window = listing();
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-2-00456-7"_s)).Late();
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    frmCaseDetails *other = Superior(u"02-2-00456-7"_s);
    QPointer<frmDocTransfer> transfer;
    QStringList askedMeanwhile;
    desk->When([this] { return court->OwesAnswer(); },
               [&] {
                   doubleClick(window, 3);
                   transfer = transfers().first();
                   letGo(transfer);
                   desk->When([&] { return TextOf(transfer, "lblStatus") == u"Status: Pending.."; },
                              [&] {
                                  askedMeanwhile = court->Requests();
                                  court->AnswerNow();
                                  court->SendTokens(superiorReply());
                              });
               });
    desk->Time.Run(0.02);
    Begin(other);
    QVERIFY(Finished(other));
    QVERIFY(transfer);
    QVERIFY(finished(transfer));
    QVERIFY(!askedMeanwhile.contains(requestOf(3, u"Answer"_s)));
    QCOMPARE(saved(), "%PDF");
}

void tst_CaseAndTransfer::anotherCaseWaitsForATransfer()
{
    const frmCaseDetails *window = listing();
    expectHalf();
    doubleClick(window, 3);
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    frmCaseDetails *other = Superior(u"02-2-00456-7"_s);
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-2-00456-7"_s)).Reply(superiorReply());
    qsizetype askedMeanwhile = 0;
    halfway([&] {
        Begin(other);
        askedMeanwhile = court->Requests().size();
    });
    const QPointer<frmDocTransfer> transfer = transfers().first();
    letGo(transfer);
    QVERIFY(finished(transfer));
    desk->Time.Run(0.02);
    QVERIFY(Finished(other));
    QCOMPARE(court->Requests().size(), askedMeanwhile + 1);
    QCOMPARE(saved(), body);
    QVERIFY(other->Tab(CaseTab::Summary).TabDone);
}

/// The transfer has its own copy of what it was started with, and the later run waits.
void tst_CaseAndTransfer::theListIsReadAgainWhileATransferRuns()
{
    frmCaseDetails *window = listing();
    expectHalf();
    court->Expect(documentsLine())
        .Reply(definition() + QStringList{rowOf(7, u"Order"_s), u"EOF~"_s});
    doubleClick(window, 3);
    qsizetype rowsMeanwhile = 0;
    halfway([&] {
        // As a list that was cut short is asked for again.
        auto &record = const_cast<CaseRecord &>(window->Record());
        record.Tab(CaseTab::Documents).TabNotRetrieved = true;
        record.Tab(CaseTab::Documents).TabDone = false;
        ClickTab(window, u"Documents"_s);
        searchNow(window, 8);
        rowsMeanwhile = gridOf(window)->Rows();
    });
    const QPointer<frmDocTransfer> transfer = transfers().first();
    letGo(transfer);
    QVERIFY(finished(transfer));
    QCOMPARE(rowsMeanwhile, 4);
    QCOMPARE(saved(), body);
    desk->Time.Run(0.02);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    QCOMPARE(gridOf(window)->Rows(), 2);
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 1);
    QCOMPARE(transfers().last()->txtDocRetrievalString, rowOf(7, u"Order"_s));
}

/// The rows that have come are documents, whatever became of the rest.
void tst_CaseAndTransfer::theListIsStoppedAndStillOpensItsRows()
{
    frmCaseDetails *window = pending();
    Global.bShowAlerts = false;
    court->Expect(documentsLine()).Reply(definition() + threeDocuments());
    court->Expect(u"¦STOP"_s).Reply({u"EOF~"_s});
    desk->When([window] { return gridOf(window)->Rows() == 4; },
               [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    Run(window);
    QVERIFY(window->SearchStopped);
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 1);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(1, u"Complaint"_s));
}

void tst_CaseAndTransfer::expectTransfer(Outcome outcome)
{
    ScriptedCourt::Exchange &document = court->Expect(requestOf(3, u"Answer"_s));
    const QByteArray part = DocumentHead(5'000, "pdf") + "a part";
    if (outcome == Outcome::Saved)
        document.ReplyBytes(DocumentReply(body, "pdf"));
    else if (outcome == Outcome::TooManyNotices)
        document.ReplyBytes("|Searching~King County For Documents~|");
    else
        document.ReplyBytes(asksToStop(outcome) ? part : part + DocumentTail + strayRow + "|EOF~|");
    // The rest is under way for a while. By the time it comes the request of the tab has gone out,
    // or nobody means to send it yet.
    if (asksToStop(outcome))
        court->Expect(u"¦STOP"_s).ReplyBytes("the rest" + strayRow + DocumentTail).Late();
    const bool silently =
        outcome == Outcome::Saved || outcome == Outcome::Stopped || outcome == Outcome::Closed;
    if (!silently)
        desk->Boxes.Expect(u"An error was encountered while retrieving this document. Please retry "
                           "this search at a later time."_s,
                           u"Halvane Document Retrieval Error.."_s, MsgIcon::Exclamation);
}

void tst_CaseAndTransfer::act(Outcome outcome)
{
    frmDocTransfer *transfer = transfers().first();
    switch (outcome) {
    case Outcome::Stopped:
        ButtonOf(transfer, "cmdStop")->click();
        break;
    case Outcome::Closed:
        transfer->Unload(UnloadMode::MdiParent);
        break;
    case Outcome::Silent:
        desk->Time.Run(5.0);
        break;
    case Outcome::DiskFull:
        disk = std::make_unique<FullDisk>(1'000);
        court->Send(QByteArray(2'000, 'x'));
        break;
    case Outcome::Saved:
        court->Send(strayRow + "|EOF~|");
        break;
    case Outcome::TooShort:
    case Outcome::TooManyNotices:
        break;
    }
}

void tst_CaseAndTransfer::answerLate()
{
    desk->When([this] { return court->OwesAnswer(); },
               [this] {
                   disk.reset();
                   desk->Time.Stop();
               });
    desk->When([this, turns = 0]() mutable { return court->OwesAnswer() && ++turns > 20; },
               [this] { court->AnswerNow(); });
}

void tst_CaseAndTransfer::aTabBehindATransferHasItsOwnReply_data()
{
    QTest::addColumn<Outcome>("outcome");
    QTest::newRow("saved") << Outcome::Saved;
    QTest::newRow("too short") << Outcome::TooShort;
    QTest::newRow("stopped by the user") << Outcome::Stopped;
    QTest::newRow("its window closed") << Outcome::Closed;
    QTest::newRow("too many notices") << Outcome::TooManyNotices;
    QTest::newRow("silent") << Outcome::Silent;
    QTest::newRow("the disk full") << Outcome::DiskFull;
}

/// A tab that waits for its turn meanwhile asks when nothing of the document can come any more.
void tst_CaseAndTransfer::aTabBehindATransferHasItsOwnReply()
{
    QFETCH(Outcome, outcome);
    Global.bShowAlerts = false;
    Global.intSearchingMsgs = outcome == Outcome::TooManyNotices ? 0 : 12;
    // Large enough to be saved in several turns.
    body = DocumentBody(2'000'000);
    frmCaseDetails *window = listing();
    expectTransfer(outcome);
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"SMITH~Plaintiff~"_s}));
    doubleClick(window, 3);
    const QPointer<frmDocTransfer> transfer = transfers().first();
    ClickTab(window, u"Names"_s);
    searchNow(window, 1);
    const QString moment = outcome == Outcome::Saved ? u"Status: Saving File to Reports Folder.."_s
                                                     : u"Status: Retrieving Document."_s;
    if (outcome != Outcome::TooShort && outcome != Outcome::TooManyNotices)
        desk->When([&] { return TextOf(transfer, "lblStatus") == moment; }, [&] { act(outcome); });
    if (asksToStop(outcome))
        answerLate();
    letGo(transfer);
    QVERIFY(finished(transfer));
    desk->Time.Run(0.02);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    Global.intSearchingMsgs = 12;
    QCOMPARE(CellsOf(window, CaseTab::Names).mid(1),
             (QList<QStringList>{{u"SMITH"_s, u"Plaintiff"_s}}));
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(saved() == (outcome == Outcome::Saved ? body : QByteArray()));
}

HALVANE_TEST(tst_CaseAndTransfer)
#include "tst_CaseAndTransfer.moc"
