#include "searchentry/SearchRecords.h"

#include "core/CSetting.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QString iniFile = u"searches.ini"_s;
const QString failure = u"An Unknown Error Occurred While Writing Search Record to Ini File"_s;

enum RecordKind { Person, Business, Number };

SearchEntry twoCounties()
{
    SearchEntry entry;
    entry.Names = {u" SMITH "_s, u"JOHN"_s, u"Q"_s, u"JR"_s};
    entry.Counties = {u"Adams"_s, u"King"_s};
    entry.NumberCounty = u"Pierce"_s;
    entry.CaseTypes = {u"Civil"_s, u"Probate"_s};
    entry.YearRange = true;
    entry.FromYear = u"1990"_s;
    entry.ToYear = u"2002"_s;
    return entry;
}

SearchRecord recordOf(int kind, const SearchEntry &entry)
{
    if (kind == Person)
        return CreateWaINameSearchRecord(entry);
    return kind == Business ? CreateWaBNameSearchRecord(entry)
                            : CreateWaCaseNumberSearchRecord(entry);
}

bool save(int kind, const SearchRecord &record)
{
    if (kind == Person)
        return SaveINameRecordToIniFile(record, iniFile);
    return kind == Business ? SaveBNameRecordToIniFile(record, iniFile)
                            : SaveCaseNoRecordToIniFile(record, iniFile);
}
} // namespace

class tst_SearchRecords : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void theKeysOfARecord_data();
    void theKeysOfARecord();
    void anEmptyBoxIsBlank();
    void statewideAndAllYears_data();
    void statewideAndAllYears();
    void atMost512Jurisdictions();
    void eachRecordHasASectionOfItsOwn();
    void aFailureIsLogged_data();
    void aFailureIsLogged();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_SearchRecords::theKeysOfARecord_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("lines");
    const QStringList head{u"State=Washington"_s, u"StateAbbr=WA"_s,
                           u"CourtName=Superior Courts"_s};
    const QStringList counties{u"Jurisdictions=Adams, King"_s, u"CaseTypes=Civil, Probate"_s,
                               u"SearchFromYear=1990"_s, u"SearchToYear=2002"_s};
    QTest::newRow("person") << int(Person)
                            << head
                                   + QStringList{u"SearchType=Individual Name"_s,
                                                 u"LastName=SMITH"_s, u"FirstName=JOHN"_s,
                                                 u"MI=Q"_s, u"Suffix=JR"_s}
                                   + counties;
    QTest::newRow("business") << int(Business)
                              << head
                                     + QStringList{u"SearchType=Business Name"_s,
                                                   u"BusinessName=SMITH"_s}
                                     + counties;
    QTest::newRow("number") << int(Number)
                            << head
                                   + QStringList{u"SearchType=Case Number"_s, u"CaseNumber=SMITH"_s,
                                                 u"Jurisdictions=Pierce"_s};
}

void tst_SearchRecords::theKeysOfARecord()
{
    QFETCH(int, kind);
    QFETCH(QStringList, lines);
    TestClock clock;
    const SearchRecord record = recordOf(kind, twoCounties());
    // The moment of the saving, not that of the gathering.
    clock.Advance(3600);
    QVERIFY(save(kind, record));
    const QLocale locale = QLocale::system();
    lines.prepend(u'[' + record.Section + u']');
    lines.append(u"CreateDate="_s + locale.toString(clock.Now().date(), QLocale::ShortFormat));
    lines.append(u"CreateTime="_s + locale.toString(clock.Now().time(), QLocale::ShortFormat));
    QCOMPARE(QString::fromLatin1(folder->Read(iniFile)).split(u"\r\n"_s, Qt::SkipEmptyParts),
             lines);
    QVERIFY(QRegularExpression(u"^\\d{20}$"_s).match(record.Section).hasMatch());
    QCOMPARE(folder->Log(), QStringList());
}

void tst_SearchRecords::anEmptyBoxIsBlank()
{
    SearchEntry entry = twoCounties();
    entry.Names = {u"SMITH"_s, u""_s, u"  "_s, {}};
    const SearchRecord record = CreateWaINameSearchRecord(entry);
    QCOMPARE(record.LastName, u"SMITH"_s);
    QCOMPARE(record.FirstName, u"(blank)"_s);
    QCOMPARE(record.MI, u"(blank)"_s);
    QCOMPARE(record.Suffix, u"(blank)"_s);
    entry.Names[LastName].clear();
    QCOMPARE(CreateWaINameSearchRecord(entry).LastName, u"(blank)"_s);
    QCOMPARE(CreateWaBNameSearchRecord(entry).BusinessName, QString());
    QCOMPARE(CreateWaCaseNumberSearchRecord(entry).CaseNumber, QString());
}

void tst_SearchRecords::statewideAndAllYears_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("person") << int(Person);
    QTest::newRow("business") << int(Business);
}

void tst_SearchRecords::statewideAndAllYears()
{
    QFETCH(int, kind);
    SearchEntry entry = twoCounties();
    entry.Where = SearchScope::Statewide;
    entry.YearRange = false;
    const SearchRecord record = recordOf(kind, entry);
    QCOMPARE(record.Jurisdictions, u"Statewide (All Counties)"_s);
    QCOMPARE(record.SearchFromYear, u"All Available Years"_s);
    QCOMPARE(record.SearchToYear, u"All Available Years"_s);
}

void tst_SearchRecords::atMost512Jurisdictions()
{
    SearchEntry entry = twoCounties();
    entry.Counties.clear();
    for (int i = 1; i <= 513; ++i)
        entry.Counties.append(QString::number(i));
    const QStringList kept = CreateWaINameSearchRecord(entry).Jurisdictions.split(u", "_s);
    QCOMPARE(kept.size(), 512);
    QCOMPARE(kept.last(), u"512"_s);
}

void tst_SearchRecords::eachRecordHasASectionOfItsOwn()
{
    const SearchRecord first = CreateWaINameSearchRecord(twoCounties());
    const SearchRecord second = CreateWaBNameSearchRecord(twoCounties());
    QVERIFY(first.Section != second.Section);
    QVERIFY(SaveINameRecordToIniFile(first, iniFile));
    QVERIFY(SaveBNameRecordToIniFile(second, iniFile));
    CSetting setting;
    setting.Init(iniFile, true);
    QCOMPARE(setting.GetSettingStr(first.Section, u"SearchType"_s, {}), u"Individual Name"_s);
    QCOMPARE(setting.GetSettingStr(second.Section, u"SearchType"_s, {}), u"Business Name"_s);
}

void tst_SearchRecords::aFailureIsLogged_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("room");
    QTest::newRow("person, no file") << int(Person) << 0;
    QTest::newRow("business, no file") << int(Business) << 0;
    QTest::newRow("number, no file") << int(Number) << 0;
    QTest::newRow("person, the disk full half way") << int(Person) << 200;
    QTest::newRow("business, the disk full half way") << int(Business) << 200;
    QTest::newRow("number, the disk full half way") << int(Number) << 120;
}

void tst_SearchRecords::aFailureIsLogged()
{
    QFETCH(int, kind);
    QFETCH(int, room);
    const SearchRecord record = recordOf(kind, twoCounties());
    if (room == 0) {
        MakeUnreadable(folder->Path(iniFile));
        QVERIFY(!save(kind, record));
        QCOMPARE(folder->TimesLogged(failure), 1);
        return;
    }
    {
        const FullDisk full(room);
        QVERIFY(!save(kind, record));
    }
    // The record as far as there was room for it.
    CSetting setting;
    setting.Init(iniFile, true);
    QCOMPARE(setting.GetSettingStr(record.Section, u"State"_s, {}), u"Washington"_s);
    QCOMPARE(setting.GetSettingStr(record.Section, u"CreateTime"_s, u"none"_s), u"none"_s);
}

HALVANE_TEST(tst_SearchRecords)

#include "tst_SearchRecords.moc"
