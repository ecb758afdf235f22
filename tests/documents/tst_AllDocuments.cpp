// All documents of a case in one go: where they go, what the list of them says, what could not be
// had and what is done about it.

#include "core/GlobalState.h"
#include "documents/AllDocumentsDesk.h"
#include "documents/frmDocTransfer.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QCryptographicHash>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {
QString hashOf(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}
} // namespace

class tst_AllDocuments : public AllDocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachIsSavedInTheFolderOfItsCase();
    void theListSaysWhatEachIs();
    void twoOfOneNameAreTwoFiles();
    void whatIsHereIsNotAskedForAgain();
    void whatIsNotWholeIsAskedForAgain();
    void whatIsHereIsRetrievedWhenTheUserSaysSo();
    void whatCouldNotBeHadIsSaidAndRetried();
    void anotherJobComesInBetween();
    void stoppedWithinADocument();
    void stoppedBetweenTwoDocuments();
    void stoppedWhileADocumentIsSaved();
    void theWindowGoesWithinADocument();
    void aStopIsNoError();
    void theNameIsThatOfASingleDocument();
    void theStatusDoesNotBlinkWhileItChanges();
    void stoppedForWhoeverWantsToLeave();
    void aLostLinkEndsThemAll();
    void theFolderIsOpened();
    void closedBetweenTwoDocuments();
    void nobodyIsLoggedInForTheRetry();
    void progressIsShown();
};

void tst_AllDocuments::eachIsSavedInTheFolderOfItsCase()
{
    Serve(u"COMPLAINT"_s, DocumentBody(70'000));
    Serve(u"ORDER"_s, "a short one");
    RunAll(
        {StartOf(u"5"_s, u"COMPLAINT"_s), Unavailable(u"SEALED"_s), StartOf(u"5"_s, u"ORDER"_s)});
    const QString first = DocumentFileName(u"5"_s, u"COMPLAINT"_s) + u".PDF"_s;
    const QString second = DocumentFileName(u"5"_s, u"ORDER"_s) + u".PDF"_s;
    QCOMPARE(desk->Documents(caseFolder), (QStringList{first, second, u"documents.csv"_s}));
    QCOMPARE(desk->Document(caseFolder + first), DocumentBody(70'000));
    QCOMPARE(desk->Document(caseFolder + second), QByteArray("a short one"));
    QCOMPARE(desk->Opened, QStringList());
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
    QCOMPARE(Missing(), u"01/02/2003 SEALED: The court does not give it out."_s);
    QVERIFY(!ButtonOf(all, "cmdRetryFailed")->isEnabled());
    QVERIFY(!ButtonOf(all, "cmdRetrieveAgain")->isEnabled());
    QVERIFY(ButtonOf(all, "cmdOpenFolder")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_AllDocuments::theListSaysWhatEachIs()
{
    desk->Time.Set(QDateTime({2026, 3, 10}, {10, 0, 0}));
    Serve(u"COMPLAINT"_s, "bytes");
    RunAll({StartOf(u"5"_s, u"COMPLAINT"_s), Unavailable(u"SEALED"_s)});
    QCOMPARE(List(), (QList<QStringList>{
                         {u"File"_s, u"Date"_s, u"Pages"_s, u"Description"_s, u"Bytes"_s,
                          u"SHA-256"_s, u"Retrieved"_s, u"Reason"_s},
                         {DocumentFileName() + u".PDF"_s, u"01/02/2003"_s, u"5"_s, u"COMPLAINT"_s,
                          u"5"_s, hashOf("bytes"), u"2026-03-10 10:00:00"_s, QString()},
                         {QString(), u"01/02/2003"_s, u"3"_s, u"SEALED"_s, QString(), QString(),
                          QString(), u"The court does not give it out."_s}}));
}

void tst_AllDocuments::twoOfOneNameAreTwoFiles()
{
    const QList<DocumentStart> both{StartOf(u"5"_s, u"ORDER"_s),
                                    StartOf(u"5"_s, u"ORDER"_s, u"2"_s)};
    Serve(both[0], "first");
    Serve(both[1], "second");
    RunAll(both);
    const QString name = DocumentFileName(u"5"_s, u"ORDER"_s);
    QCOMPARE(desk->Document(caseFolder + name + u".PDF"_s), QByteArray("first"));
    QCOMPARE(desk->Document(caseFolder + name + u" 2.PDF"_s), QByteArray("second"));
}

void tst_AllDocuments::whatIsHereIsNotAskedForAgain()
{
    Serve(u"COMPLAINT"_s, "bytes");
    RunAll({StartOf()});
    const QList<QStringList> before = List();
    delete all;
    desk->Time.Advance(3600);
    Serve(u"ORDER"_s, "more");
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
    // When it was retrieved is kept.
    QCOMPARE(List().value(1), before.value(1));
    QVERIFY(ButtonOf(all, "cmdRetrieveAgain")->isEnabled());
}

void tst_AllDocuments::whatIsNotWholeIsAskedForAgain()
{
    Serve(u"COMPLAINT"_s, "bytes");
    RunAll({StartOf()});
    delete all;
    const QString file = DocumentFileName() + u".PDF"_s;
    desk->Folder.Write(u"Reports/"_s + caseFolder + file, "byt");
    Serve(u"COMPLAINT"_s, "bytes");
    RunAll({StartOf()});
    QCOMPARE(desk->Document(caseFolder + file), QByteArray("bytes"));
    QVERIFY(!ButtonOf(all, "cmdRetrieveAgain")->isEnabled());
}

void tst_AllDocuments::whatIsHereIsRetrievedWhenTheUserSaysSo()
{
    Serve(u"COMPLAINT"_s, "bytes");
    RunAll({StartOf()});
    delete all;
    RunAll({StartOf()});
    Serve(u"COMPLAINT"_s, "newer");
    ButtonOf(all, "cmdRetrieveAgain")->click();
    QVERIFY(ButtonOf(all, "cmdStop")->isEnabled());
    RunAll();
    QCOMPARE(desk->Document(caseFolder + DocumentFileName() + u".PDF"_s), QByteArray("newer"));
}

void tst_AllDocuments::whatCouldNotBeHadIsSaidAndRetried()
{
    court->Expect(DocumentRequest(u"5"_s, u"COMPLAINT"_s))
        .ReplyBytes("|ERROR~no such thing||EOF~|");
    Serve(u"ORDER"_s, "order");
    court->Expect(DocumentRequest(u"5"_s, u"NOTICE"_s))
        .ReplyBytes(DocumentHead(500) + "too short" + DocumentTail);
    // A stop that finds no reply running is not answered.
    court->Expect(u"¦STOP"_s);
    desk->When([this] { return court->Requests().size() == 4; }, [this] { desk->Time.Run(0.5); });
    const QList<DocumentStart> starts{StartOf(), StartOf(u"5"_s, u"ORDER"_s),
                                      StartOf(u"5"_s, u"NOTICE"_s)};
    RunAll(starts);
    desk->Time.Stop();
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 3 Documents Are Here."_s);
    QCOMPARE(Missing(), u"01/02/2003 COMPLAINT: The server did not say its size, or a type that "
                        "can be used.\n01/02/2003 NOTICE: It did not come complete."_s);
    QCOMPARE(List().value(3).value(7), u"It did not come complete."_s);
    Serve(u"COMPLAINT"_s, "complaint");
    Serve(u"NOTICE"_s, "notice");
    ButtonOf(all, "cmdRetryFailed")->click();
    RunAll();
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 3 of 3 Documents Are Here."_s);
    QCOMPARE(Missing(), QString());
    QCOMPARE(desk->Documents(caseFolder).size(), 4);
    QCOMPARE(List().value(3).value(7), QString());
}

void tst_AllDocuments::anotherJobComesInBetween()
{
    Serve(u"COMPLAINT"_s, "complaint");
    court->Expect(DocumentRequest(u"1"_s, u"ALONE"_s)).ReplyBytes(DocumentReply("alone"));
    Serve(u"ORDER"_s, "order");
    DocumentDesk::ConnectTo(*court);
    Pending({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    window = DocumentDesk::Pending(StartOf(u"1"_s, u"ALONE"_s));
    DocumentDesk::Begin(window);
    DocumentDesk::Begin(all);
    desk->When([this] { return window.isNull(); }, [this] { all->Timer1->start(1); });
    QVERIFY(LinkDesk::WaitUntil([this] { return window.isNull() && IsOver(); }));
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
}

void tst_AllDocuments::stoppedWithinADocument()
{
    Serve(u"COMPLAINT"_s, "complaint");
    court->Expect(DocumentRequest(u"5"_s, u"ORDER"_s)).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    desk->When(
        [this] {
            return all && TextOf(all, "lblStatus") == u"Status: Retrieving Document."
                   && TextOf(all, "lblProgress") == u"1 of 3 Documents";
        },
        [this] { ButtonOf(all, "cmdStop")->click(); });
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s), StartOf(u"5"_s, u"NOTICE"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 1 of 3 Documents Are Here."_s);
    QCOMPARE(desk->Documents(caseFolder),
             (QStringList{DocumentFileName() + u".PDF"_s, u"documents.csv"_s}));
    QCOMPARE(Missing(), u"01/02/2003 ORDER: It was stopped by the user.\n01/02/2003 NOTICE: It was "
                        "stopped by the user."_s);
    QVERIFY(ButtonOf(all, "cmdRetryFailed")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_AllDocuments::stoppedBetweenTwoDocuments()
{
    Serve(u"COMPLAINT"_s, "complaint");
    DocumentDesk::ConnectTo(*court);
    Pending({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    // Somebody else has the next turn.
    frmQueue::Form().FIFO.AddItem(u"another"_s);
    QString reasonBefore;
    desk->When([] { return frmQueue::Form().FIFO.List(0) == u"another"; },
               [&] {
                   reasonBefore = List().value(2).value(7);
                   ButtonOf(all, "cmdStop")->click();
               });
    DocumentDesk::Begin(all);
    QVERIFY(FinishAll());
    QCOMPARE(reasonBefore, u"It has not been asked for yet."_s);
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 1 of 2 Documents Are Here."_s);
    QCOMPARE(List().value(2).value(7), u"It was stopped by the user."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"another"_s});
}

/// It has come: there is nothing left to be stopped at the court.
void tst_AllDocuments::stoppedWhileADocumentIsSaved()
{
    const QByteArray body = DocumentBody(2'000'000);
    Serve(u"COMPLAINT"_s, body);
    desk->When(
        [this] {
            return all && TextOf(all, "lblStatus") == u"Status: Saving File to Reports Folder.."_s;
        },
        [this] { ButtonOf(all, "cmdStop")->click(); });
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 1 of 2 Documents Are Here."_s);
    QVERIFY(desk->Document(caseFolder + DocumentFileName() + u".PDF"_s) == body);
    QCOMPARE(Missing(), u"01/02/2003 ORDER: It was stopped by the user."_s);
    QCOMPARE(List().value(1)[5], hashOf(body));
    QCOMPARE(court->Requests(), QStringList{DocumentRequest()});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_AllDocuments::theWindowGoesWithinADocument()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    DocumentDesk::ConnectTo(*court);
    Pending({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    desk->When([this] { return TextOf(all, "lblStatus") == u"Status: Retrieving Document."; },
               [this] { all->Unload(UnloadMode::MdiParent); });
    DocumentDesk::Begin(all);
    QVERIFY(LinkDesk::WaitUntil(
        [this] { return !Global.bSearchInProgress && (all.isNull() || all->IsUnloaded()); }));
    const QString reason = u"It was stopped because the window was closed."_s;
    QCOMPARE(List().value(1).value(7), reason);
    QCOMPARE(List().value(2).value(7), reason);
    QVERIFY(!desk->Folder.Read(u"AppInfo.txt"_s).contains("ERROR ***"));
}

void tst_AllDocuments::aStopIsNoError()
{
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    desk->When(
        [this] { return all && TextOf(all, "lblStatus") == u"Status: Retrieving Document."_s; },
        [this] { ButtonOf(all, "cmdStop")->click(); });
    RunAll({StartOf()});
    QCOMPARE(Missing(), u"01/02/2003 COMPLAINT: It was stopped by the user."_s);
    QVERIFY(desk->Folder.Logged(u"All Documents: "_s + DocumentFileName()
                                + u" Not Retrieved: It was stopped by the user."_s));
    QVERIFY(!desk->Folder.Read(u"AppInfo.txt"_s).contains("ERROR ***"));
}

/// Blanks at its end, too, where a description is empty or ends in a sign that a name does not
/// have.
void tst_AllDocuments::theNameIsThatOfASingleDocument()
{
    const DocumentStart start = StartOf(u"5"_s, u"ORDER &"_s);
    Serve(start, "bytes");
    Retrieve(start);
    const QStringList single = desk->Documents();
    QCOMPARE(single, QStringList{DocumentFileName(u"5"_s, u"ORDER "_s) + u".PDF"_s});
    Serve(start, "bytes");
    RunAll({start});
    QCOMPARE(desk->Documents(caseFolder), single + QStringList{u"documents.csv"_s});
    RunAnew({start});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 1 Documents Are Here."_s);
}

void tst_AllDocuments::theStatusDoesNotBlinkWhileItChanges()
{
    court->Expect(DocumentRequest()).Late();
    DocumentDesk::ConnectTo(*court);
    Pending({StartOf()});
    QVERIFY(all->tmrBlink->isActive());
    bool blinks = true;
    // The court may have the request before the sender is back from sending it.
    const auto contacting = [this] {
        return court->OwesAnswer() && TextOf(all, "lblStatus").startsWith(u"Status: Contacting"_s);
    };
    desk->When(contacting, [&] {
        blinks = all->tmrBlink->isActive();
        court->AnswerNow();
        court->Send(DocumentReply("bytes"));
    });
    RunAll();
    QVERIFY(!blinks);
    QVERIFY(!all->tmrBlink->isActive());
}

void tst_AllDocuments::stoppedForWhoeverWantsToLeave()
{
    Serve(u"COMPLAINT"_s, "complaint");
    desk->When([this] { return court->Requests().size() == 1; },
               [] { Global.bStopRequested = true; });
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Search Stopped By User .. "_s);
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - All Documents."_s));
    QCOMPARE(List().value(1).value(0), DocumentFileName() + u".PDF"_s);
    QCOMPARE(Missing(), u"01/02/2003 ORDER: It was stopped because the session was to end."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_AllDocuments::aLostLinkEndsThemAll()
{
    Serve(u"COMPLAINT"_s, "complaint");
    court->Expect(DocumentRequest(u"5"_s, u"ORDER"_s))
        .ReplyBytes(DocumentHead(500) + "a part")
        .Drop();
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s), StartOf(u"5"_s, u"NOTICE"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 3 Documents Are Here."_s);
    QCOMPARE(Missing(), u"01/02/2003 ORDER: The connection to the server was lost.\n01/02/2003 "
                        "NOTICE: The connection to the server was lost."_s);
}

void tst_AllDocuments::theFolderIsOpened()
{
    RunAll({Unavailable(u"SEALED"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 0 of 0 Documents Are Here."_s);
    ButtonOf(all, "cmdOpenFolder")->click();
    QCOMPARE(desk->Opened, QStringList{desk->Folder.Path(u"Reports/King 02-2-00123-4"_s)});
    desk->ShellOpens = false;
    desk->Boxes.Expect(u"The folder cannot be opened here. The documents are in "_s
                           + desk->Folder.Path(u"Reports/King 02-2-00123-4"_s),
                       u"Halvane"_s);
    ButtonOf(all, "cmdOpenFolder")->click();
}

void tst_AllDocuments::closedBetweenTwoDocuments()
{
    Serve(u"COMPLAINT"_s, "complaint");
    Global.bShowAlerts = true;
    DocumentDesk::ConnectTo(*court);
    Pending({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    frmQueue::Form().FIFO.AddItem(u"another"_s);
    desk->Boxes.Expect(u"Are you sure you want to close this form?\nDocuments that have not come "
                       "yet will not be retrieved."_s,
                       u"Close Search Form .."_s, MsgAnswer::Yes);
    desk->When([] { return frmQueue::Form().FIFO.List(0) == u"another"; },
               [this] { all->close(); });
    DocumentDesk::Begin(all);
    QVERIFY(LinkDesk::WaitUntil([this] { return all.isNull() || all->IsUnloaded(); }));
    QCOMPARE(List().value(2).value(7), u"It was stopped because the window was closed."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"another"_s});
}

void tst_AllDocuments::nobodyIsLoggedInForTheRetry()
{
    court->Expect(DocumentRequest()).Drop();
    RunAll({StartOf()});
    Global.bLoggedIn = false;
    desk->Boxes.Expect(u"This Search Cannot be Started!\nThis is because you are not currently "
                       "Logged-In to the Halvane Server.\n\nDo you want to Login Now?"_s,
                       u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
                       MsgAnswer::No);
    ButtonOf(all, "cmdRetryFailed")->click();
    QVERIFY(IsOver());
    QVERIFY(ButtonOf(all, "cmdRetryFailed")->isEnabled());
}

void tst_AllDocuments::progressIsShown()
{
    Serve(u"COMPLAINT"_s, DocumentBody(2'000));
    court->Expect(DocumentRequest(u"5"_s, u"ORDER"_s))
        .ReplyBytes(DocumentHead(10'000) + QByteArray(5'000, 'x'));
    QStringList seen;
    desk->When(
        [this] { return all && TextOf(all, "lblStatus") == u"Status: Retrieving Document."; },
        [this, &seen] {
            seen = {TextOf(all, "lblProgress"), TextOf(all, "lblBytes"),
                    TextOf(all, "lblDocDescription"),
                    QString::number(all->findChild<QProgressBar *>()->value()),
                    QString::number(all->findChild<QProgressBar *>()->maximum())};
            court->Send(QByteArray(5'000, 'x') + DocumentTail);
        });
    RunAll({StartOf(), StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(seen, (QStringList{u"1 of 2 Documents"_s, u"7.0 kB"_s,
                                u"Document: "_s + DocumentFileName(u"5"_s, u"ORDER"_s)
                                    + u"  Progress: (1%)"_s,
                                u"150"_s, u"200"_s}));
}

HALVANE_TEST(tst_AllDocuments)
#include "tst_AllDocuments.moc"
