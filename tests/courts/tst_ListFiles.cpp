#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "courts/ListFile.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
QByteArray numberedLines(int count)
{
    QByteArray text;
    for (int i = 1; i <= count; ++i)
        text += "Line " + QByteArray::number(i) + "\r\n";
    return text;
}
} // namespace

class tst_ListFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void linesOfAFile_data();
    void linesOfAFile();
    void theNameIsMatchedWithoutRegardToCase();
    void aMissingFileIsLoggedAndHasNoLines();
    void anUnreadableFileIsLoggedAndHasNoLines();
    void aFileAtItsLimitIsWhole_data();
    void aFileAtItsLimitIsWhole();
    void aLineBeyondTheLimitIsAnErrorOfTheReading_data();
    void aLineBeyondTheLimitIsAnErrorOfTheReading();
    void emptyLinesDoNotCount();
    void aShortFileIsNoError();
    void loadingAgainReplacesTheList();

    void fieldsOfACourt();
    void municipalAnywhereInTheLine_data();
    void municipalAnywhereInTheLine();
    void fieldsAreTrimmed();
    void moreFieldsThanFiveAreIgnored();
    void aLineOfTooFewFieldsEndsTheReading_data();
    void aLineOfTooFewFieldsEndsTheReading();
    void thereIsNoLimitOfCourts();
    void aMissingCatalogueIsEmpty();
    void aCodeThatComesTwiceFindsTheFirst();
    void anUnknownCodeFindsNothing();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_ListFiles::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_ListFiles::cleanup()
{
    folder.reset();
}

void tst_ListFiles::linesOfAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("LF") << QByteArray("a\nb\n") << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("no line end at the end") << QByteArray("a\r\nb") << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("an empty file") << QByteArray() << QStringList();
    QTest::newRow("blanks are content") << QByteArray(" a b \r\n") << QStringList{u" a b "_s};
    QTest::newRow("the code page") << QByteArray("Ca\xF1on\r\n") << QStringList{u"Ca\u00F1on"_s};
    QTest::newRow("duplicates stay") << QByteArray("a\r\na\r\n") << QStringList{u"a"_s, u"a"_s};
}

void tst_ListFiles::linesOfAFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, lines);
    folder->Write(u"list.txt"_s, content);
    QCOMPARE(ReadListFile(u"list.txt"_s, 0), lines);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_ListFiles::theNameIsMatchedWithoutRegardToCase()
{
    folder->Write(u"LIST.TXT"_s, "a\r\n");
    QCOMPARE(ReadListFile(u"list.txt"_s, 0), QStringList{u"a"_s});
}

void tst_ListFiles::aMissingFileIsLoggedAndHasNoLines()
{
    QCOMPARE(ReadListFile(u"none.txt"_s, 0), QStringList());
    QCOMPARE(folder->Log(), QStringList{u"Error reading none.txt: File not found"_s});
}

void tst_ListFiles::anUnreadableFileIsLoggedAndHasNoLines()
{
    MakeUnreadable(folder->Path(u"wactylst.txt"_s));
    QCOMPARE(LoadWaCounties(), 0);
    QCOMPARE(WaCountyList(), QStringList());
    QCOMPARE(folder->Log(), QStringList{u"Error reading wactylst.txt: Path/File access error"_s});
}

void tst_ListFiles::aFileAtItsLimitIsWhole_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("most");
    QTest::newRow("Washington counties") << u"wactylst.txt"_s << 40;
    QTest::newRow("Washington case types") << u"WaSCases.txt"_s << 65;
    QTest::newRow("Oregon counties") << u"OrCtyLst.txt"_s << 38;
    QTest::newRow("Idaho counties") << u"IdCtyLst.txt"_s << 44;
}

namespace {
int load(const QString &file)
{
    if (file == u"wactylst.txt")
        return LoadWaCounties();
    if (file == u"WaSCases.txt")
        return LoadWaCaseTypes();
    return file == u"OrCtyLst.txt" ? LoadOrCounties() : LoadIdCounties();
}
} // namespace

void tst_ListFiles::aFileAtItsLimitIsWhole()
{
    QFETCH(QString, file);
    QFETCH(int, most);
    folder->Write(file, numberedLines(most));
    QCOMPARE(load(file), most);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_ListFiles::aLineBeyondTheLimitIsAnErrorOfTheReading_data()
{
    aFileAtItsLimitIsWhole_data();
}

void tst_ListFiles::aLineBeyondTheLimitIsAnErrorOfTheReading()
{
    QFETCH(QString, file);
    QFETCH(int, most);
    folder->Write(file, numberedLines(most + 1));
    QCOMPARE(load(file), most);
    QCOMPARE(folder->Log(),
             QStringList{u"Error reading "_s + file + u": Subscript out of range"_s});
}

void tst_ListFiles::emptyLinesDoNotCount()
{
    folder->Write(u"IdCtyLst.txt"_s, "\r\n" + numberedLines(44) + "\r\n  \r\n");
    QCOMPARE(LoadIdCounties(), 44);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_ListFiles::aShortFileIsNoError()
{
    folder->Write(u"wactylst.txt"_s, "King\r\n");
    QCOMPARE(LoadWaCounties(), 1);
    QCOMPARE(WaCountyList(), QStringList{u"King"_s});
    QCOMPARE(WaCountyNames().size(), 39);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_ListFiles::loadingAgainReplacesTheList()
{
    LoadIdCounties();
    folder->Write(u"IdCtyLst.txt"_s, "Ada\r\n");
    QCOMPARE(LoadIdCounties(), 1);
    QCOMPARE(IdCountyList(), QStringList{u"Ada"_s});
    folder->Remove(u"IdCtyLst.txt"_s);
    QCOMPARE(LoadIdCounties(), 0);
    QCOMPARE(IdCountyList(), QStringList());
}

void tst_ListFiles::fieldsOfACourt()
{
    folder->Write(u"wadisciscts.txt"_s, "7,King,SEA,Seattle,Seattle Municipal (Municipal)\r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    const clsDiscisCourts court = DiscisCourts().first();
    QCOMPARE(court.CourtIndex, u"7"_s);
    QCOMPARE(court.CourtCounty, u"King"_s);
    QCOMPARE(court.CourtCode, u"SEA"_s);
    QCOMPARE(court.CourtCity, u"Seattle"_s);
    QCOMPARE(court.CourtName, u"Seattle Municipal (Municipal)"_s);
    QCOMPARE(court.CourtType, u"Municipal"_s);
    QCOMPARE(court.ListText(), u"Seattle Municipal (Municipal) (SEA)"_s);
}

void tst_ListFiles::municipalAnywhereInTheLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("type");
    QTest::newRow("nowhere") << QByteArray("1,King,AAA,City,Court") << u"District"_s;
    QTest::newRow("in the name") << QByteArray("1,King,AAA,City,Court (Municipal)")
                                 << u"Municipal"_s;
    QTest::newRow("in the city") << QByteArray("1,King,AAA,City (Municipal),Court")
                                 << u"Municipal"_s;
    QTest::newRow("in a sixth field")
        << QByteArray("1,King,AAA,City,Court,(Municipal)") << u"Municipal"_s;
    QTest::newRow("without brackets")
        << QByteArray("1,King,AAA,City,Court Municipal") << u"District"_s;
}

void tst_ListFiles::municipalAnywhereInTheLine()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, type);
    folder->Write(u"wadisciscts.txt"_s, line + "\r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    QCOMPARE(DiscisCourts().first().CourtType, type);
}

void tst_ListFiles::fieldsAreTrimmed()
{
    folder->Write(u"wadisciscts.txt"_s, " 1 , King , AAA , City , The Court \r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    const clsDiscisCourts court = DiscisCourts().first();
    QCOMPARE((QStringList{court.CourtIndex, court.CourtCounty, court.CourtCode, court.CourtCity,
                          court.CourtName}),
             (QStringList{u"1"_s, u"King"_s, u"AAA"_s, u"City"_s, u"The Court"_s}));
}

void tst_ListFiles::moreFieldsThanFiveAreIgnored()
{
    folder->Write(u"wadisciscts.txt"_s, "1,King,AAA,City,Court,more,and more\r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    QCOMPARE(DiscisCourts().first().CourtName, u"Court"_s);
}

void tst_ListFiles::aLineOfTooFewFieldsEndsTheReading_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("three fields") << QByteArray("2,King,BBB");
    QTest::newRow("four fields") << QByteArray("2,King,BBB,City");
    QTest::newRow("no comma") << QByteArray("King");
}

void tst_ListFiles::aLineOfTooFewFieldsEndsTheReading()
{
    QFETCH(QByteArray, line);
    folder->Write(u"wadisciscts.txt"_s,
                  "1,King,AAA,City,Court\r\n" + line + "\r\n3,King,CCC,City,Court\r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    QCOMPARE(DiscisCourts().size(), 1);
    QCOMPARE(DiscisCourts().first().CourtCode, u"AAA"_s);
    QCOMPARE(folder->Log(),
             QStringList{u"Error in LoadDiscisCourts() after 1 courts: Subscript out of range"_s});
}

void tst_ListFiles::thereIsNoLimitOfCourts()
{
    QByteArray text;
    for (int i = 0; i < 1000; ++i)
        text += QByteArray::number(i) + ",King," + QByteArray::number(i) + ",City,Court\r\n";
    folder->Write(u"wadisciscts.txt"_s, text);
    QCOMPARE(LoadDiscisCourts(), 1000);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_ListFiles::aMissingCatalogueIsEmpty()
{
    LoadDiscisCourts();
    folder->Remove(u"wadisciscts.txt"_s);
    QCOMPARE(LoadDiscisCourts(), 0);
    QVERIFY(DiscisCourts().isEmpty());
    QCOMPARE(folder->Log(), QStringList{u"Error reading wadisciscts.txt: File not found"_s});
}

void tst_ListFiles::aCodeThatComesTwiceFindsTheFirst()
{
    folder->Write(u"wadisciscts.txt"_s, "1,King,AAA,City,First\r\n2,King,AAA,City,Second\r\n");
    LoadDiscisCourts();
    const clsDiscisCourts *court = DiscisCourtByCode(u"AAA"_s);
    QVERIFY(court);
    QCOMPARE(court->CourtName, u"First"_s);
}

void tst_ListFiles::anUnknownCodeFindsNothing()
{
    LoadDiscisCourts();
    QVERIFY(DiscisCourtByCode(DiscisCourts().last().CourtCode));
    QVERIFY(!DiscisCourtByCode(u"???"_s));
    QVERIFY(!DiscisCourtByCode({}));
}

HALVANE_TEST(tst_ListFiles)
#include "tst_ListFiles.moc"
