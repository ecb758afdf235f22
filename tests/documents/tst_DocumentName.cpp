// The name of a document's file, and where it goes.

#include "core/AppFolder.h"
#include "core/RunTimeError.h"
#include "documents/DocumentLines.h"
#include "documents/DocumentName.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QTest>

class tst_DocumentName : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theName_data();
    void theName();
    void noNameIsTooLong();
    void whatIsAskedFor();
    void theFolderIsMade();
    void aFolderThatCannotBeMade();
};

void tst_DocumentName::theName_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    const QString byClock = u"03-10-2026_100000"_s;
    const auto row = [](const char *name, const QString &line, const QString &file) {
        QTest::newRow(name) << line << file;
    };
    row("two blanks behind Pgs", DocumentLine(),
        u"King 02-2-00123-4 01-02-2003 5 Pgs  COMPLAINT"_s);
    row("the date keeps its order", u"RETRIEVEDOC=a,b,c,d,~x~3/4/05~1~D~"_s,
        u"c d 3-4-05 1 Pgs  D"_s);
    row("a stroke and an ampersand in the description go",
        DocumentLine(u"5"_s, u"MOTION/ORDER & MORE"_s),
        u"King 02-2-00123-4 01-02-2003 5 Pgs  MOTIONORDER  MORE"_s);
    row("other delimiters", u"RETRIEVEDOC=a@b@c@d@^x^1/2/03^7^D^"_s, u"c d 1-2-03 7 Pgs  D"_s);
    row("empty fields", u"RETRIEVEDOC=,,,,~~~~~"_s, u"    Pgs  "_s);
    row("a path in every field", u"RETRIEVEDOC=.,.,../..,/etc,~~../..~/~..\\..\\passwd~"_s,
        u" etc -  Pgs  passwd"_s);
    row("no description", u"RETRIEVEDOC=a,b,c,d,~x~1/2/03~7~"_s, u"c d 1-2-03 7 Pgs  "_s);
    row("no pages", u"RETRIEVEDOC=a,b,c,d,~x~1/2/03~"_s, byClock);
    row("two fields of the case", u"RETRIEVEDOC=a,b,~x~1/2/03~7~D~"_s, byClock);
    row("no case", u"RETRIEVEDOC=~x~1/2/03~7~D~"_s, byClock);
    row("a head alone", u"RETRIEVEDOC="_s, byClock);
    row("nothing", QString(), byClock);
}

void tst_DocumentName::theName()
{
    QFETCH(QString, line);
    const TestFolder folder;
    const TestClock clock(QDateTime({2026, 3, 10}, {10, 0, 0}));
    QTEST(BuildDocFileName(line), "name");
}

void tst_DocumentName::noNameIsTooLong()
{
    const TestFolder folder;
    const QString name = BuildDocFileName(DocumentLine(u"5"_s, QString(10'000, u'A')));
    QCOMPARE(name.size(), 200);
    QVERIFY(name.startsWith(u"King 02-2-00123-4 01-02-2003 5 Pgs  AAA"_s));
}

void tst_DocumentName::whatIsAskedFor()
{
    QCOMPARE(RetrievalRequest(DocumentLine()), DocumentRequest());
    QCOMPARE(RetrievalRequest(u"RETRIEVEDOC=a|b"_s), u"ab"_s);
    QCOMPARE(RetrievalRequest(u"a"_s), u"a"_s);
}

void tst_DocumentName::theFolderIsMade()
{
    const TestFolder folder;
    QCOMPARE(ReportsFolder(), AppFolder() + u"/Reports"_s);
    CreateReportsFolder(ReportsFolder());
    QVERIFY(QDir(folder.Path(u"Reports"_s)).exists());
    CreateReportsFolder(ReportsFolder());
}

void tst_DocumentName::aFolderThatCannotBeMade()
{
    const TestFolder folder;
    folder.Write(u"Reports"_s, "a file in its place");
    try {
        CreateReportsFolder(ReportsFolder());
        QFAIL("no error");
    } catch (const RunTimeError &error) {
        QCOMPARE(error.Number(), 70);
    }
}

HALVANE_TEST(tst_DocumentName)
#include "tst_DocumentName.moc"
