// All documents of a case a second time: what is remembered of the first, what is asked for again,
// and what is left when that is stopped or fails.

#include "core/GlobalState.h"
#include "documents/AllDocumentsDesk.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QPushButton>
#include <QTest>

class tst_AllDocumentsAgain : public AllDocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void aNameBelongsToItsDocument();
    void aNameOfTheClockBelongsToItsDocument();
    void aFileThatIsGoneComesUnderItsName();
    void theListKeepsWhatIsNotInThisRun();
    void whatIsGivenOutAtLastIsInItOnce();
    void aFileBelongsToOneDocument();
    void aLineThatIsListedTwiceIsOneDocument();
    void aNameThatNobodyGaveIsNotKept_data();
    void aNameThatNobodyGaveIsNotKept();
    void whatWasHereStaysWhenItIsStopped();
    void whatWasHereStaysWhenItFails();
    void whatWasHereStaysInTheListWhileItWaits();

private:
    /// One that is there from an earlier run, in a window that has just found it.
    void present(const QList<DocumentStart> &starts, const QByteArray &body = "bytes");
    QByteArray fileOf(const QString &description, const QString &behind = {}) const
    {
        return desk->Document(caseFolder + DocumentFileName(u"5"_s, description) + behind
                              + u".PDF"_s);
    }
};

void tst_AllDocumentsAgain::present(const QList<DocumentStart> &starts, const QByteArray &body)
{
    for (const DocumentStart &start : starts)
        Serve(start, body);
    RunAll(starts);
    RunAnew(starts);
    QVERIFY(ButtonOf(all, "cmdRetrieveAgain")->isEnabled());
}

/// Whichever of two was in sight first.
void tst_AllDocumentsAgain::aNameBelongsToItsDocument()
{
    const DocumentStart first = StartOf(u"5"_s, u"ORDER"_s);
    const DocumentStart second = StartOf(u"5"_s, u"ORDER"_s, u"2"_s);
    Serve(second, "second");
    RunAll({second});
    Serve(first, "first");
    RunAnew({first, second});
    QCOMPARE(fileOf(u"ORDER"_s), QByteArray("second"));
    QCOMPARE(fileOf(u"ORDER"_s, u" 2"_s), QByteArray("first"));
    // Now both are there, in any order and alone.
    RunAnew({first});
    RunAnew({second, first});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
}

/// It would have another one at every other second.
void tst_AllDocumentsAgain::aNameOfTheClockBelongsToItsDocument()
{
    desk->Time.Set(QDateTime({2026, 3, 10}, {10, 0, 0}));
    DocumentStart start = StartOf();
    start.Command = u"RETRIEVEDOC=a,b,~x~1/2/03~7~D~"_s;
    Serve(start, "bytes");
    RunAll({start});
    desk->Time.Advance(3600);
    RunAnew({start});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 1 Documents Are Here."_s);
    QCOMPARE(desk->Documents(caseFolder),
             (QStringList{u"03-10-2026_100000.PDF"_s, u"documents.csv"_s}));
}

void tst_AllDocumentsAgain::aFileThatIsGoneComesUnderItsName()
{
    const DocumentStart first = StartOf(u"5"_s, u"ORDER"_s);
    const DocumentStart second = StartOf(u"5"_s, u"ORDER"_s, u"2"_s);
    Serve(first, "first");
    Serve(second, "second");
    RunAll({first, second});
    const QString file = DocumentFileName(u"5"_s, u"ORDER"_s) + u" 2.PDF"_s;
    desk->Folder.Remove(u"Reports/"_s + caseFolder + file);
    Serve(second, "again");
    RunAnew({second});
    QCOMPARE(fileOf(u"ORDER"_s), QByteArray("first"));
    QCOMPARE(fileOf(u"ORDER"_s, u" 2"_s), QByteArray("again"));
}

void tst_AllDocumentsAgain::theListKeepsWhatIsNotInThisRun()
{
    Serve(u"COMPLAINT"_s, "complaint");
    RunAll({StartOf(), Unavailable(u"SEALED"_s)});
    const QList<QStringList> before = List();
    Serve(u"ORDER"_s, "order");
    RunAnew({StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 1 Documents Are Here."_s);
    QCOMPARE(List().size(), 4);
    QCOMPARE(List()[1][3], u"ORDER"_s);
    QCOMPARE(List().mid(2), before.mid(1));
    // Each is in it once, however often it is seen.
    RunAnew({StartOf(), Unavailable(u"SEALED"_s), StartOf(u"5"_s, u"ORDER"_s)});
    QCOMPARE(List().size(), 4);
    QCOMPARE(List().mid(0, 3), before);
}

void tst_AllDocumentsAgain::whatIsGivenOutAtLastIsInItOnce()
{
    DocumentStart sealed = StartOf();
    sealed.Command = u"1~01/02/2003~5~COMPLAINT~"_s;
    RunAll({sealed, Unavailable(u"OTHER"_s)});
    Serve(StartOf(), "bytes");
    RunAnew({StartOf()});
    QCOMPARE(List().size(), 3);
    QCOMPARE(List()[1][0], DocumentFileName() + u".PDF"_s);
    QCOMPARE(List()[2][3], u"OTHER"_s);
}

/// A list that somebody has edited may give it to two.
void tst_AllDocumentsAgain::aFileBelongsToOneDocument()
{
    const DocumentStart first = StartOf(u"5"_s, u"ORDER"_s);
    const DocumentStart second = StartOf(u"5"_s, u"ORDER"_s, u"2"_s);
    Serve(first, "first");
    Serve(second, "other");
    RunAll({first, second});
    QByteArray list = desk->Document(caseFolder + u"documents.csv"_s);
    list.replace("ORDER 2.PDF", "ORDER.PDF");
    desk->Folder.Write(u"Reports/"_s + caseFolder + u"documents.csv"_s, list);
    Serve(second, "second");
    RunAnew({first, second});
    QCOMPARE(fileOf(u"ORDER"_s), QByteArray("first"));
    QCOMPARE(fileOf(u"ORDER"_s, u" 2"_s), QByteArray("second"));
}

/// There is nothing to tell them apart by.
void tst_AllDocumentsAgain::aLineThatIsListedTwiceIsOneDocument()
{
    Serve(StartOf(), "bytes");
    // A bar is not sent.
    DocumentStart barred = StartOf();
    barred.Command.insert(barred.Command.size() - 1, u'|');
    RunAll({StartOf(), StartOf(), barred});
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 1 Documents Are Here."_s);
    QCOMPARE(List().size(), 2);
}

void tst_AllDocumentsAgain::aNameThatNobodyGaveIsNotKept_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("another folder") << u"../King.PDF"_s;
    QTest::newRow("an absolute path") << u"/King.PDF"_s;
    QTest::newRow("no type") << u"King"_s;
    QTest::newRow("nothing ahead of the type") << u".PDF"_s;
    QTest::newRow("a name that file systems refuse") << QString(300, u'K') + u".PDF"_s;
}

/// Somebody may have had the list in a spreadsheet.
void tst_AllDocumentsAgain::aNameThatNobodyGaveIsNotKept()
{
    QFETCH(QString, file);
    Serve(StartOf(), "bytes");
    RunAll({StartOf()});
    const QString listName = caseFolder + u"documents.csv"_s;
    QByteArray list = desk->Document(listName);
    const QString own = DocumentFileName() + u".PDF"_s;
    list.replace(own.toUtf8(), file.toUtf8());
    desk->Folder.Write(u"Reports/"_s + listName, list);
    desk->Folder.Write(u"Reports/King.PDF"_s, "other");
    Serve(StartOf(), "newer");
    RunAnew({StartOf()});
    QCOMPARE(desk->Documents(caseFolder), (QStringList{own, u"documents.csv"_s}));
    QCOMPARE(fileOf(u"COMPLAINT"_s), QByteArray("newer"));
    QCOMPARE(desk->Document(u"King.PDF"_s), QByteArray("other"));
}

void tst_AllDocumentsAgain::whatWasHereStaysWhenItIsStopped()
{
    present({StartOf()});
    const QStringList before = List().value(1);
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "a part");
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    ButtonOf(all, "cmdRetrieveAgain")->click();
    desk->When([this] { return TextOf(all, "lblStatus") == u"Status: Retrieving Document."; },
               [this] { ButtonOf(all, "cmdStop")->click(); });
    RunAll();
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 1 of 1 Documents Are Here."_s);
    const QString reason = u"The file of before was kept. It was stopped by the user."_s;
    QCOMPARE(Missing(), u"01/02/2003 COMPLAINT: "_s + reason);
    QCOMPARE(List().value(1).first(7), before.first(7));
    QCOMPARE(List().value(1)[7], reason);
    QVERIFY(!ButtonOf(all, "cmdRetryFailed")->isEnabled());
    QVERIFY(ButtonOf(all, "cmdRetrieveAgain")->isEnabled());
    // It is remembered.
    RunAnew({StartOf()});
    QCOMPARE(List().value(1), before);
    QCOMPARE(fileOf(u"COMPLAINT"_s), QByteArray("bytes"));
}

void tst_AllDocumentsAgain::whatWasHereStaysWhenItFails()
{
    present({StartOf()});
    court->Expect(DocumentRequest()).ReplyBytes(DocumentHead(500) + "too short" + DocumentTail);
    court->Expect(u"¦STOP"_s).ReplyBytes("|EOF~|");
    ButtonOf(all, "cmdRetrieveAgain")->click();
    RunAll();
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: 1 of 1 Documents Are Here."_s);
    QCOMPARE(Missing(), u"01/02/2003 COMPLAINT: The file of before was kept. It did not come "
                        "complete."_s);
    QCOMPARE(fileOf(u"COMPLAINT"_s), QByteArray("bytes"));
    Serve(StartOf(), "newer");
    ButtonOf(all, "cmdRetrieveAgain")->click();
    RunAll();
    QCOMPARE(Missing(), QString());
    QCOMPARE(fileOf(u"COMPLAINT"_s), QByteArray("newer"));
}

void tst_AllDocumentsAgain::whatWasHereStaysInTheListWhileItWaits()
{
    const QList<DocumentStart> both{StartOf(), StartOf(u"5"_s, u"ORDER"_s)};
    present(both);
    const QList<QStringList> before = List();
    Serve(both[0], "newer");
    ButtonOf(all, "cmdRetrieveAgain")->click();
    frmQueue::Form().FIFO.AddItem(u"another"_s);
    QStringList meanwhile;
    desk->When([] { return frmQueue::Form().FIFO.List(0) == u"another"; },
               [&] {
                   meanwhile = List().value(2);
                   ButtonOf(all, "cmdStop")->click();
               });
    RunAll();
    QCOMPARE(meanwhile.first(7), before[2].first(7));
    QCOMPARE(List().value(2).first(7), before[2].first(7));
    QCOMPARE(TextOf(all, "lblStatus"), u"Status: Stopped. 2 of 2 Documents Are Here."_s);
}

HALVANE_TEST(tst_AllDocumentsAgain)
#include "tst_AllDocumentsAgain.moc"
