#include "searchentry/RecentEntries.h"

#include "core/AppFolder.h"
#include "support/ErrorOf.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"
#include "support/TestFolder.h"

#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QString persons = u"Individual Name"_s;
const QString acctgFile = u"MruAcctg.txt"_s;

QByteArray numberedLines(int count)
{
    QByteArray text;
    for (int i = 1; i <= count; ++i)
        text += "ENTRY " + QByteArray::number(i) + "\r\n";
    return text;
}
} // namespace

class tst_RecentEntries : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void theInstalledListsAreThereAndEmpty_data();
    void theInstalledListsAreThereAndEmpty();
    void eachTypeHasItsFile_data();
    void eachTypeHasItsFile();
    void anUnknownTypeHasNoFile();
    void theNewestStandsOnTop();
    void the32ndEntryDropsTheOldest();
    void anEntryKeepsItsOwnCase();
    void entriesAreTrimmedAsTheyAreCopied();
    void theTextIsNotComparedWithTheList();
    void theCodePageIsWindows1252();
    void aMissingFileIsError53_data();
    void aMissingFileIsError53();
    void anUnreadableFileIsError75_data();
    void anUnreadableFileIsError75();
    void aFullDiskLeavesTheOldListWhole_data();
    void aFullDiskLeavesTheOldListWhole();
    void theListsAreTheirOwnersOnly_data() { theInstalledListsAreThereAndEmpty_data(); }
    void theListsAreTheirOwnersOnly();

    void loadingPassesOverEmptyLines();
    void loadingShows31Entries();
    void aMissingListIsEmptyAndLogged_data();
    void aMissingListIsEmptyAndLogged();

    void aCodeMovesUpInsteadOfComingTwice_data();
    void aCodeMovesUpInsteadOfComingTwice();
    void anEmptyCodeIsNotRemembered_data();
    void anEmptyCodeIsNotRemembered();
    void aCodeOutsideTheCodePageComesOnce();
    void the32ndCodeDropsTheOldest();

    void trimmingTheFiles();
    void trimmingPassesOverAMissingFile();
    void aFileThatCannotBeTrimmedIsLogged();

    void whatIsRemembered_data();
    void whatIsRemembered();
    void theCallerTestsForDuplicates_data();
    void theCallerTestsForDuplicates();
    void choosingAPerson_data();
    void choosingAPerson();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_RecentEntries::theInstalledListsAreThereAndEmpty_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {"MruIName.txt", "MruBName.txt", "MruCases.txt", "MruAcctg.txt"})
        QTest::newRow(file) << QString::fromLatin1(file);
}

void tst_RecentEntries::theInstalledListsAreThereAndEmpty()
{
    QFETCH(QString, file);
    QVERIFY(QFile::exists(folder->Path(file)));
    QCOMPARE(folder->Read(file), QByteArray());
}

void tst_RecentEntries::eachTypeHasItsFile_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("file");
    QTest::newRow("person") << persons << u"MruIName.txt"_s;
    QTest::newRow("business") << u"Business Name"_s << u"MruBName.txt"_s;
    QTest::newRow("number") << u"Case Number"_s << u"MruCases.txt"_s;
}

void tst_RecentEntries::eachTypeHasItsFile()
{
    QFETCH(QString, type);
    QFETCH(QString, file);
    AddToMruList(type, u"ENTRY"_s);
    QCOMPARE(folder->Read(file), QByteArray("ENTRY\r\n"));
    const MruLists lists = LoadMruLists();
    QCOMPARE(lists.Of(type), QStringList{u"ENTRY"_s});
    QCOMPARE(lists.Persons.size() + lists.Businesses.size() + lists.Numbers.size(), 1);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_RecentEntries::anUnknownTypeHasNoFile()
{
    QCOMPARE(ErrorOf([] { AddToMruList(u"Index"_s, u"ENTRY"_s); }), 53);
    AddToMruList(persons, u"ENTRY"_s);
    QCOMPARE(LoadMruLists().Of(u"Index"_s), QStringList());
}

void tst_RecentEntries::theNewestStandsOnTop()
{
    AddToMruList(persons, u"SMITH, JOHN"_s);
    AddToMruList(persons, u"  JONES  "_s);
    QCOMPARE(folder->Read(u"MruIName.txt"_s), QByteArray("JONES\r\nSMITH, JOHN\r\n"));
    QCOMPARE(LoadMruLists().Persons, (QStringList{u"JONES"_s, u"SMITH, JOHN"_s}));
}

void tst_RecentEntries::the32ndEntryDropsTheOldest()
{
    for (int i = 1; i <= 31; ++i)
        AddToMruList(persons, u"ENTRY "_s + QString::number(i));
    QStringList list = LoadMruLists().Persons;
    QCOMPARE(list.size(), 31);
    QCOMPARE(list.last(), u"ENTRY 1"_s);
    AddToMruList(persons, u"ENTRY 32"_s);
    list = LoadMruLists().Persons;
    QCOMPARE(folder->Read(u"MruIName.txt"_s).count('\n'), 31);
    QCOMPARE(list.size(), 31);
    QCOMPARE(list.first(), u"ENTRY 32"_s);
    QCOMPARE(list.last(), u"ENTRY 2"_s);
}

void tst_RecentEntries::anEntryKeepsItsOwnCase()
{
    AddToMruList(persons, u"McDonald, Ann"_s);
    QCOMPARE(LoadMruLists().Persons, QStringList{u"McDonald, Ann"_s});
}

void tst_RecentEntries::entriesAreTrimmedAsTheyAreCopied()
{
    folder->Write(u"MruIName.txt"_s, "  OLD  \nOLDER");
    AddToMruList(persons, u"NEW"_s);
    QCOMPARE(folder->Read(u"MruIName.txt"_s), QByteArray("NEW\r\nOLD\r\nOLDER\r\n"));
}

void tst_RecentEntries::theTextIsNotComparedWithTheList()
{
    AddToMruList(persons, u"SMITH"_s);
    AddToMruList(persons, u"SMITH"_s);
    QCOMPARE(LoadMruLists().Persons, (QStringList{u"SMITH"_s, u"SMITH"_s}));
}

void tst_RecentEntries::theCodePageIsWindows1252()
{
    AddToMruList(persons, u"NU\u00D1EZ \u2019"_s);
    QCOMPARE(folder->Read(u"MruIName.txt"_s), QByteArray("NU\xD1"
                                                         "EZ \x92\r\n"));
    QCOMPARE(LoadMruLists().Persons, QStringList{u"NU\u00D1EZ \u2019"_s});
}

void tst_RecentEntries::aMissingFileIsError53_data()
{
    eachTypeHasItsFile_data();
    QTest::newRow("client code") << u""_s << acctgFile;
}

void tst_RecentEntries::aMissingFileIsError53()
{
    QFETCH(QString, type);
    QFETCH(QString, file);
    folder->Remove(file);
    QCOMPARE(ErrorOf([&] {
                 if (type.isEmpty())
                     AddAcctgToMru(u"ABC"_s);
                 else
                     AddToMruList(type, u"ENTRY"_s);
             }),
             53);
    QVERIFY(!QFile::exists(folder->Path(file)));
}

void tst_RecentEntries::anUnreadableFileIsError75_data()
{
    aMissingFileIsError53_data();
}

void tst_RecentEntries::anUnreadableFileIsError75()
{
    QFETCH(QString, type);
    QFETCH(QString, file);
    MakeUnreadable(folder->Path(file));
    QCOMPARE(ErrorOf([&] {
                 if (type.isEmpty())
                     AddAcctgToMru(u"ABC"_s);
                 else
                     AddToMruList(type, u"ENTRY"_s);
             }),
             75);
}

void tst_RecentEntries::aFullDiskLeavesTheOldListWhole_data()
{
    aMissingFileIsError53_data();
}

void tst_RecentEntries::aFullDiskLeavesTheOldListWhole()
{
    QFETCH(QString, type);
    QFETCH(QString, file);
    const QByteArray before = numberedLines(20);
    folder->Write(file, before);
    {
        const FullDisk full(100);
        QCOMPARE(ErrorOf([&] {
                     if (type.isEmpty())
                         AddAcctgToMru(u"ABC"_s);
                     else
                         AddToMruList(type, u"NEW"_s);
                 }),
                 75);
    }
    QCOMPARE(folder->Read(file), before);
}

/// The persons' list can hold social security numbers.
void tst_RecentEntries::theListsAreTheirOwnersOnly()
{
    QFETCH(QString, file);
    const auto isOwnersOnly = [&] {
        const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup
                                                | QFileDevice::ReadOther | QFileDevice::WriteOther;
        return !(QFile::permissions(folder->Path(file)) & others);
    };
    const auto openToAll = [&] {
        QFile::setPermissions(folder->Path(file), QFileDevice::Permissions(0x6666));
        return !isOwnersOnly();
    };
    folder->Remove(file);
    CopyMissingDataFiles(DataPath());
    QVERIFY(isOwnersOnly());
    // One that came otherwise is put right by every start, and by the next entry.
    QVERIFY(openToAll());
    TrimMruFiles();
    QVERIFY(isOwnersOnly());
    QVERIFY(openToAll());
    if (file == acctgFile)
        AddAcctgToMru(u"ABC"_s);
    else
        AddToMruList(file == u"MruIName.txt"   ? persons
                     : file == u"MruBName.txt" ? u"Business Name"_s
                                               : u"Case Number"_s,
                     u"900-00-0001"_s);
    QVERIFY(isOwnersOnly());
}

void tst_RecentEntries::loadingPassesOverEmptyLines()
{
    folder->Write(u"MruIName.txt"_s, "\r\n  SMITH \r\n \r\n\r\nJONES");
    QCOMPARE(LoadMruLists().Persons, (QStringList{u"SMITH"_s, u"JONES"_s}));
}

void tst_RecentEntries::loadingShows31Entries()
{
    folder->Write(u"MruCases.txt"_s, numberedLines(40));
    folder->Write(acctgFile, numberedLines(40));
    for (const QStringList &list : {LoadMruLists().Numbers, LoadAcctgMru()}) {
        QCOMPARE(list.size(), 31);
        QCOMPARE(list.first(), u"ENTRY 1"_s);
        QCOMPARE(list.last(), u"ENTRY 31"_s);
    }
}

void tst_RecentEntries::aMissingListIsEmptyAndLogged_data()
{
    theInstalledListsAreThereAndEmpty_data();
}

void tst_RecentEntries::aMissingListIsEmptyAndLogged()
{
    QFETCH(QString, file);
    folder->Write(u"MruIName.txt"_s, "SMITH\r\n");
    folder->Write(acctgFile, "ABC\r\n");
    folder->Remove(file);
    const MruLists lists = LoadMruLists();
    QCOMPARE(lists.Persons.size(), file == u"MruIName.txt" ? 0 : 1);
    QCOMPARE(LoadAcctgMru().size(), file == acctgFile ? 0 : 1);
    QCOMPARE(folder->Log(),
             QStringList{QString(u"Error reading "_s + file + u": File not found"_s)});
}

void tst_RecentEntries::aCodeMovesUpInsteadOfComingTwice_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("list");
    QTest::newRow("a new one") << u"D"_s << QStringList{u"D"_s, u"A"_s, u"B"_s, u"C"_s};
    QTest::newRow("the first") << u"A"_s << QStringList{u"A"_s, u"B"_s, u"C"_s};
    QTest::newRow("the last") << u"C"_s << QStringList{u"C"_s, u"A"_s, u"B"_s};
    QTest::newRow("in another case") << u"b"_s << QStringList{u"b"_s, u"A"_s, u"C"_s};
    QTest::newRow("with blanks around") << u" B "_s << QStringList{u"B"_s, u"A"_s, u"C"_s};
}

void tst_RecentEntries::aCodeMovesUpInsteadOfComingTwice()
{
    QFETCH(QString, code);
    QFETCH(QStringList, list);
    folder->Write(acctgFile, "A\r\n B\r\nC\r\n");
    AddAcctgToMru(code);
    QCOMPARE(LoadAcctgMru(), list);
}

void tst_RecentEntries::anEmptyCodeIsNotRemembered_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("only blanks") << u"   "_s;
}

void tst_RecentEntries::anEmptyCodeIsNotRemembered()
{
    QFETCH(QString, code);
    folder->Write(acctgFile, "A\r\n");
    AddAcctgToMru(code);
    QCOMPARE(folder->Read(acctgFile), QByteArray("A\r\n"));
}

void tst_RecentEntries::aCodeOutsideTheCodePageComesOnce()
{
    AddAcctgToMru(u"\u0141-1"_s);
    AddAcctgToMru(u"\u0141-1"_s);
    QCOMPARE(folder->Read(acctgFile), QByteArray("?-1\r\n"));
}

void tst_RecentEntries::the32ndCodeDropsTheOldest()
{
    folder->Write(acctgFile, numberedLines(31));
    AddAcctgToMru(u"NEW"_s);
    const QStringList list = LoadAcctgMru();
    QCOMPARE(folder->Read(acctgFile).count('\n'), 31);
    QCOMPARE(list.first(), u"NEW"_s);
    QCOMPARE(list.last(), u"ENTRY 30"_s);
}

void tst_RecentEntries::trimmingTheFiles()
{
    folder->Write(u"MruIName.txt"_s, " SMITH \n\n   \nJONES");
    folder->Write(u"MruBName.txt"_s, "\r\n\r\n");
    folder->Write(u"MruCases.txt"_s, numberedLines(40));
    folder->Write(acctgFile, "A \r\n");
    TrimMruFiles();
    QCOMPARE(folder->Read(u"MruIName.txt"_s), QByteArray("SMITH\r\nJONES\r\n"));
    QCOMPARE(folder->Read(u"MruBName.txt"_s), QByteArray());
    QCOMPARE(folder->Read(u"MruCases.txt"_s), numberedLines(31));
    QCOMPARE(folder->Read(acctgFile), QByteArray("A\r\n"));
    QCOMPARE(folder->Log(), QStringList());
}

void tst_RecentEntries::trimmingPassesOverAMissingFile()
{
    folder->Remove(u"MruIName.txt"_s);
    folder->Write(acctgFile, "A \r\n");
    TrimMruFiles();
    QVERIFY(!QFile::exists(folder->Path(u"MruIName.txt"_s)));
    QCOMPARE(folder->Read(acctgFile), QByteArray("A\r\n"));
    QCOMPARE(folder->Log(), QStringList());
}

void tst_RecentEntries::aFileThatCannotBeTrimmedIsLogged()
{
    MakeUnreadable(folder->Path(u"MruIName.txt"_s));
    folder->Write(acctgFile, "A \r\n");
    TrimMruFiles();
    QCOMPARE(folder->Read(acctgFile), QByteArray("A\r\n"));
    QCOMPARE(folder->Log(), QStringList{u"Error writing MruIName.txt: Path/File access error"_s});
}

void tst_RecentEntries::whatIsRemembered_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QString>("text");
    const int person = static_cast<int>(SearchKind::Person);
    QTest::newRow("last name") << person << QStringList{u" SMITH "_s, {}, {}, {}} << u"SMITH"_s;
    QTest::newRow("last and first")
        << person << QStringList{u"SMITH"_s, u"JOHN"_s, {}, {}} << u"SMITH, JOHN"_s;
    QTest::newRow("with initial") << person << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s, {}}
                                  << u"SMITH, JOHN, Q"_s;
    QTest::newRow("initial without first")
        << person << QStringList{u"SMITH"_s, {}, u"Q"_s, {}} << u"SMITH, Q"_s;
    QTest::newRow("the suffix is left out")
        << person << QStringList{u"SMITH"_s, u"JOHN"_s, {}, u"JR"_s} << u"SMITH, JOHN"_s;
    QTest::newRow("business") << static_cast<int>(SearchKind::Business)
                              << QStringList{u" ACME INC "_s, u"X"_s, u"Y"_s, {}} << u"ACME INC"_s;
    QTest::newRow("number") << static_cast<int>(SearchKind::Number)
                            << QStringList{u"09-2-02029-9"_s, u"X"_s, {}, {}} << u"09-2-02029-9"_s;
    QTest::newRow("tax identifier")
        << static_cast<int>(SearchKind::TaxId) << QStringList{u"123"_s, u"X"_s, {}, {}} << u"123"_s;
}

void tst_RecentEntries::whatIsRemembered()
{
    QFETCH(int, kind);
    QFETCH(QStringList, boxes);
    QFETCH(QString, text);
    SearchEntry entry;
    entry.Kind = static_cast<SearchKind>(kind);
    std::copy(boxes.begin(), boxes.end(), entry.Names.begin());
    QCOMPARE(MruText(entry), text);
}

void tst_RecentEntries::theCallerTestsForDuplicates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    QTest::newRow("the same") << u"SMITH, JOHN"_s << true;
    QTest::newRow("in another case") << u"Smith, John"_s << true;
    QTest::newRow("an item with blanks around") << u"JONES"_s << true;
    QTest::newRow("only the beginning") << u"SMITH"_s << false;
    QTest::newRow("longer") << u"SMITH, JOHN, Q"_s << false;
}

void tst_RecentEntries::theCallerTestsForDuplicates()
{
    QFETCH(QString, text);
    QFETCH(bool, found);
    QCOMPARE(IsInMruList({u"smith, John"_s, u" Jones "_s}, text), found);
}

void tst_RecentEntries::choosingAPerson_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("three parts") << u"SMITH, JOHN, Q"_s
                                 << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s};
    QTest::newRow("a missing initial")
        << u"SMITH, JOHN"_s << QStringList{u"SMITH"_s, u"JOHN"_s, u""_s};
    QTest::newRow("only a last name") << u"SMITH"_s << QStringList{u"SMITH"_s, u""_s, u""_s};
    QTest::newRow("nothing") << u""_s << QStringList{u""_s, u""_s, u""_s};
    QTest::newRow("a comma without a blank")
        << u"SMITH,JOHN"_s << QStringList{u"SMITH,JOHN"_s, u""_s, u""_s};
    QTest::newRow("a fourth part") << u"A, B, C, D"_s << QStringList{u"A"_s, u"B"_s, u"C"_s};
}

void tst_RecentEntries::choosingAPerson()
{
    QFETCH(QString, item);
    QFETCH(QStringList, parts);
    const std::array<QString, 3> split = MruNameParts(item);
    QCOMPARE(QStringList(split.begin(), split.end()), parts);
}

HALVANE_TEST(tst_RecentEntries)

#include "tst_RecentEntries.moc"
