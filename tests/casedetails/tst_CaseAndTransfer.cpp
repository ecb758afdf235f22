#include "casedetails/DocumentsDesk.h"
#include "support/HalvaneTest.h"

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

private:
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

HALVANE_TEST(tst_CaseAndTransfer)
#include "tst_CaseAndTransfer.moc"
