#include "core/Windows1252.h"
#include "practice/CaseNumber.h"
#include "practice/Counties.h"
#include "practice/CourtTables.h"
#include "practice/MadeUpPeople.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QDate someDay(2026, 8, 19);

const Population &people()
{
    static const Population population = MakePopulation(1, someDay);
    return population;
}

/// Everything about a case and its parties, for comparing two populations.
QString tell(const Population &population, const Part &part)
{
    const CourtCase &courtCase = population.Cases()[part.courtCase];
    return NameText(population.People()[part.person]) + u' '
           + CountyName(courtCase.number.county).toString() + u' '
           + (courtCase.archived ? u"*"_s : u""_s) + CaseNumberText(courtCase.number) + u' '
           + courtCase.filed.toString(Qt::ISODate) + u' ' + courtCase.description + u' '
           + part.role;
}

/// The same without making texts of it.
bool same(const Population &one, const Population &other, std::size_t at)
{
    const Part &left = one.Parts()[at];
    const Part &right = other.Parts()[at];
    const CourtCase &leftCase = one.Cases()[left.courtCase];
    const CourtCase &rightCase = other.Cases()[right.courtCase];
    const Person &leftPerson = one.People()[left.person];
    const Person &rightPerson = other.People()[right.person];
    return left.role == right.role && leftCase.number == rightCase.number
           && leftCase.filed == rightCase.filed && leftCase.description == rightCase.description
           && leftCase.archived == rightCase.archived && leftPerson.last == rightPerson.last
           && leftPerson.first == rightPerson.first && leftPerson.middle == rightPerson.middle
           && leftPerson.business == rightPerson.business;
}
} // namespace

class tst_Population : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkDigit_data();
    void checkDigit();
    void aNumberIsReadBack_data();
    void aNumberIsReadBack();
    void theCaseTypesAndTheirDigits_data();
    void theCaseTypesAndTheirDigits();
    void thereAre39CountiesByNumber();
    void howManyThereAre();
    void everyCountyTypeAndYearHasCases();
    void casesAreInOrder();
    void everybodyHasACase();
    void everyCaseHasItsCertainParties();
    void theCaseKnowsItsParties();
    void commonNamesAreCommon();
    void textsFitTheWire();
    void theSeedSettlesEverything();
    void theDayOfTheYearChangesNoNumber();
    void theGuidesCaseIsThereWhateverTheSeed_data();
    void theGuidesCaseIsThereWhateverTheSeed();
    void find_data();
    void find();
    void findPersonKnowsTheWholeName();
};

void tst_Population::checkDigit_data()
{
    QTest::addColumn<int>("county");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("serial");
    QTest::addColumn<QString>("text");

    // 1x7 + (0+3)x6 + (0+0)x5 + (0+1)x4 + (0+7)x3 + (0+0)x2 = 50; 50 mod 11 = 6; 11 - 6 = 5
    QTest::newRow("Adams, the first of 1970") << 1 << 1970 << 1 << 0 << u"70-1-00000-5"_s;
    // 50 + 1x6 = 56; 56 mod 11 = 1; 11 - 1 = 10, as one digit 0
    QTest::newRow("ten is nought") << 1 << 1970 << 1 << 10'000 << u"70-1-10000-0"_s;
    // 50 + 1x5 = 55; 55 mod 11 = 0; 11 - 0 = 11, as one digit 1
    QTest::newRow("eleven is one") << 1 << 1970 << 1 << 1'000 << u"70-1-01000-1"_s;
    // 9x7 + (9+3)x6 + (9+3)x5 + (9+9)x4 + (9+9)x3 + (9+9)x2 = 357; 357 mod 11 = 5; 11 - 5 = 6
    QTest::newRow("Yakima, all nines") << 39 << 1999 << 9 << 99'999 << u"99-9-99999-6"_s;
    // 2x7 + (1+3)x6 + (2+1)x5 + (3+7)x4 + (4+0)x3 + (5+5)x2 = 125; 125 mod 11 = 4; 11 - 4 = 7
    QTest::newRow("King, every digit another") << 17 << 2005 << 2 << 12'345 << u"05-2-12345-7"_s;
    // 1x7 + (0+3)x6 + (0+1)x5 + (0+7)x4 + (4+9)x3 + (2+4)x2 = 109; 109 mod 11 = 10; 11 - 10 = 1
    QTest::newRow("King") << 17 << 1994 << 1 << 42 << u"94-1-00042-1"_s;
    // the same with (0+2)x5 = 114; 114 mod 11 = 4; 11 - 4 = 7
    QTest::newRow("Pierce, the same number") << 27 << 1994 << 1 << 42 << u"94-1-00042-7"_s;
}

void tst_Population::checkDigit()
{
    QFETCH(int, county);
    QFETCH(int, year);
    QFETCH(int, type);
    QFETCH(int, serial);
    QFETCH(QString, text);

    const CaseNumber number{county, year, type, serial};
    QCOMPARE(CaseNumberText(number), text);
    QCOMPARE(CheckDigit(number), text.back().digitValue());
}

void tst_Population::aNumberIsReadBack_data()
{
    QTest::addColumn<int>("county");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("year"); // 0: refused
    QTest::addColumn<int>("serial");

    QTest::newRow("as written") << 17 << u"94-1-00042-1"_s << 1994 << 42;
    QTest::newRow("without dashes") << 17 << u"941000421"_s << 1994 << 42;
    QTest::newRow("archived") << 17 << u"*94-1-00042-1"_s << 1994 << 42;
    QTest::newRow("this century") << 17 << u"05-2-12345-7"_s << 2005 << 12'345;
    QTest::newRow("the first year") << 1 << u"70-1-00000-5"_s << 1970 << 0;
    QTest::newRow("wrong check digit") << 17 << u"94-1-00042-2"_s << 0 << 0;
    QTest::newRow("another county's digit") << 17 << u"94-1-00042-7"_s << 0 << 0;
    QTest::newRow("too short") << 17 << u"94-1-0042-1"_s << 0 << 0;
    QTest::newRow("too long") << 17 << u"94-1-00042-11"_s << 0 << 0;
    QTest::newRow("a letter") << 17 << u"94-1-0004A-1"_s << 0 << 0;
    QTest::newRow("nothing") << 17 << QString() << 0 << 0;
}

void tst_Population::aNumberIsReadBack()
{
    QFETCH(int, county);
    QFETCH(QString, text);
    QFETCH(int, year);
    QFETCH(int, serial);

    const std::optional<CaseNumber> number = ParseCaseNumber(county, text);
    QCOMPARE(number.has_value(), year != 0);
    if (number) {
        QCOMPARE(number->county, county);
        QCOMPARE(number->year, year);
        QCOMPARE(number->serial, serial);
    }
}

void tst_Population::theCaseTypesAndTheirDigits_data()
{
    QTest::addColumn<int>("digit");
    QTest::addColumn<QString>("word");

    QTest::newRow("1") << 1 << u"Criminal"_s;
    QTest::newRow("2") << 2 << u"Civil"_s;
    QTest::newRow("3") << 3 << u"Domestic"_s;
    QTest::newRow("4") << 4 << u"Probate"_s;
    QTest::newRow("8") << 8 << u"Juvenile Offender"_s;
    QTest::newRow("9") << 9 << u"Judgment"_s;
}

void tst_Population::theCaseTypesAndTheirDigits()
{
    QFETCH(int, digit);
    QFETCH(QString, word);

    const CaseType *type = CaseTypeOfDigit(digit);
    QVERIFY(type != nullptr);
    QCOMPARE(QString::fromUtf16(type->word), word);
    QCOMPARE(CaseTypeOfWord(word.toLower()), type);
    QCOMPARE(CaseTypes().size(), std::size_t{6});
}

void tst_Population::thereAre39CountiesByNumber()
{
    QCOMPARE(counties.size(), std::size_t{39});
    QCOMPARE(CountyName(1), u"Adams");
    QCOMPARE(CountyName(17), u"King");
    QCOMPARE(CountyName(39), u"Yakima");
    for (int number = 1; number <= 39; ++number)
        QCOMPARE(CountyNumber(CountyName(number)), number);
    QCOMPARE(CountyNumber(u" walla walla "), 36);
    QCOMPARE(CountyNumber(u"Baker"), std::nullopt);
    QVERIFY(std::is_sorted(counties.begin(), counties.end(),
                           [](const County &left, const County &right) {
                               return QStringView(left.name) < QStringView(right.name);
                           }));
}

void tst_Population::howManyThereAre()
{
    // The made-up ones, and SMITH, JOHN Q, SMITH, JANE R and ACME PLUMBING INC.
    QCOMPARE(people().People().size(), std::size_t{50'003});
    QVERIFY(people().Cases().size() > 60'000);
    QVERIFY(people().Parts().size() > people().Cases().size());
    const auto businesses = std::count_if(people().People().begin(), people().People().end(),
                                          [](const Person &person) { return person.business; });
    QVERIFY(businesses > 2'000 && businesses < 3'000);
}

void tst_Population::everyCountyTypeAndYearHasCases()
{
    std::set<int> inCounties;
    std::set<int> types;
    std::set<int> years;
    qsizetype archived = 0;
    for (const CourtCase &courtCase : people().Cases()) {
        inCounties.insert(courtCase.number.county);
        types.insert(courtCase.number.type);
        years.insert(courtCase.number.year);
        archived += courtCase.archived ? 1 : 0;
    }
    QCOMPARE(inCounties.size(), std::size_t{39});
    QCOMPARE(types, (std::set<int>{1, 2, 3, 4, 8, 9}));
    QCOMPARE(years.size(), std::size_t{2026 - 1970 + 1});
    QCOMPARE(*years.begin(), 1970);
    QCOMPARE(*years.rbegin(), 2026);
    QVERIFY(archived > 1'000);
}

/// Within a county, type and year, numbers rise with the days, and no two cases share one.
void tst_Population::casesAreInOrder()
{
    std::vector<const CourtCase *> cases;
    for (const CourtCase &courtCase : people().Cases()) {
        cases.push_back(&courtCase);
        QCOMPARE(courtCase.filed.year(), courtCase.number.year);
        QVERIFY(courtCase.filed <= someDay);
        QVERIFY(courtCase.number.serial > 0 && courtCase.number.serial <= lastSerial);
        QCOMPARE(people().FindCase(courtCase.number),
                 static_cast<quint32>(&courtCase - people().Cases().data()));
    }
    const auto key = [](const CourtCase *one) {
        const CaseNumber &number = one->number;
        return std::tie(number.county, number.type, number.year, number.serial);
    };
    std::sort(cases.begin(), cases.end(), [&](const CourtCase *left, const CourtCase *right) {
        return key(left) < key(right);
    });
    for (std::size_t i = 1; i < cases.size(); ++i) {
        QVERIFY(key(cases[i - 1]) < key(cases[i]));
        const CaseNumber &one = cases[i - 1]->number;
        const CaseNumber &two = cases[i]->number;
        // The fixed cases stand below 100 and have days of their own.
        if (one.serial >= 100 && one.county == two.county && one.type == two.type
            && one.year == two.year)
            QVERIFY(cases[i - 1]->filed <= cases[i]->filed);
    }
}

void tst_Population::everybodyHasACase()
{
    for (quint32 person = 0; person < people().People().size(); ++person)
        QVERIFY(!people().PartsOf(person).empty());
    std::vector<std::size_t> counts;
    for (quint32 person = 0; person < people().People().size(); ++person)
        counts.push_back(people().PartsOf(person).size());
    QVERIFY(*std::max_element(counts.begin(), counts.end()) > 3);
}

void tst_Population::everyCaseHasItsCertainParties()
{
    std::map<quint32, std::vector<QString>> rolesOf;
    for (const Part &part : people().Parts())
        rolesOf[part.courtCase].push_back(part.role);
    QCOMPARE(rolesOf.size(), people().Cases().size());
    for (const auto &[courtCase, roles] : rolesOf) {
        const CourtCase &found = people().Cases()[courtCase];
        if (found.number.serial < 100) // a fixed case shows only who the guide speaks of
            continue;
        for (const PartyKind &kind : CaseTypeOfDigit(found.number.type)->parties) {
            if (kind.chance == 100)
                QVERIFY(std::count(roles.begin(), roles.end(), QString::fromUtf16(kind.role)) > 0);
        }
    }
}

void tst_Population::theCaseKnowsItsParties()
{
    std::map<quint32, std::vector<quint32>> partiesOf;
    for (quint32 part = 0; part < people().Parts().size(); ++part)
        partiesOf[people().Parts()[part].courtCase].push_back(part);
    for (const auto &[courtCase, parties] : partiesOf)
        QCOMPARE(people().PartiesOf(courtCase), parties);

    Population population;
    const quint32 lonely = population.AddCase({});
    QVERIFY(population.PartiesOf(lonely).empty());
}

void tst_Population::commonNamesAreCommon()
{
    std::map<QString, int> count;
    for (const Person &person : people().People())
        ++count[person.business ? QString() : person.last];
    QVERIFY(count.size() > 300);
    QVERIFY(count[u"SMITH"_s] > 500);
    QVERIFY(count[u"SMITH"_s] > 4 * count[u"HARRISON"_s]);
    QVERIFY(count[u"HARRISON"_s] > count[u"XIONG"_s]);
    QVERIFY(count[u"XIONG"_s] > 10);
}

void tst_Population::textsFitTheWire()
{
    for (const Part &part : people().Parts()) {
        const QString text = tell(people(), part);
        QVERIFY2(FitsWindows1252(text), qPrintable(text));
        QVERIFY2(!text.contains(u'|') && !text.contains(u'~') && !text.contains(u'¦'),
                 qPrintable(text));
        QVERIFY2(!text.contains(u"DIAG001"_s, Qt::CaseInsensitive), qPrintable(text));
        QVERIFY2(!text.endsWith(u"EOF"_s, Qt::CaseInsensitive), qPrintable(text));
        QVERIFY2(!text.startsWith(u"ERROR"_s) && !text.startsWith(u"SEARCHING"_s),
                 qPrintable(text));
    }
}

void tst_Population::theSeedSettlesEverything()
{
    const Population again = MakePopulation(1, someDay);
    const Population other = MakePopulation(2, someDay);
    QCOMPARE(again.Parts().size(), people().Parts().size());
    std::size_t alike = 0;
    for (std::size_t i = 0; i < again.Parts().size(); ++i) {
        QVERIFY2(same(again, people(), i), qPrintable(tell(again, again.Parts()[i])));
        if (i < other.Parts().size() && same(other, people(), i))
            ++alike;
    }
    QVERIFY(alike < 100); // the cases of fixed number are
}

void tst_Population::theDayOfTheYearChangesNoNumber()
{
    const QDate earlier(2026, 1, 2);
    const Population early = MakePopulation(1, earlier);
    QCOMPARE(early.Cases().size(), people().Cases().size());
    for (std::size_t i = 0; i < early.Cases().size(); ++i) {
        QCOMPARE(early.Cases()[i].number, people().Cases()[i].number);
        QVERIFY(early.Cases()[i].filed <= earlier);
        if (early.Cases()[i].number.year < 2026)
            QCOMPARE(early.Cases()[i].filed, people().Cases()[i].filed);
    }
}

void tst_Population::theGuidesCaseIsThereWhateverTheSeed_data()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {0U, 1U, 2U, 3U, 12'345U, 4'294'967'295U})
        QTest::addRow("%u", seed) << seed;
}

void tst_Population::theGuidesCaseIsThereWhateverTheSeed()
{
    QFETCH(quint32, seed);
    const Population population = MakePopulation(seed, someDay);
    const std::vector<quint32> found = population.Find({u"SMITH"_s, u"JOHN"_s, u"Q"_s});
    QCOMPARE(found.size(), std::size_t{1});
    QStringList texts;
    for (const quint32 part : population.PartsOf(found.front()))
        texts.append(tell(population, population.Parts()[part]));
    QCOMPARE(
        texts,
        (QStringList{
            u"SMITH, JOHN Q King 94-1-00042-1 1994-11-07 Malicious Mischief Defendant"_s,
            u"SMITH, JOHN Q King 98-2-00017-7 1998-03-16 Tort - Motor Vehicle Plaintiff"_s,
            u"SMITH, JOHN Q King 01-3-00008-9 2001-06-12 Dissolution With Children Petitioner"_s,
            u"SMITH, JOHN Q Pierce 05-2-00031-8 2005-09-20 Collection Defendant"_s,
            u"SMITH, JOHN Q Adams *96-9-00005-9 1996-02-14 Abstract of Judgment "
            "Judgment Debtor"_s,
        }));
}

void tst_Population::find_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QStringList>("found");

    const QString smith = u"SMITH"_s;
    QTest::newRow("all of a surname, and businesses of that word")
        << smith << QString() << QString()
        << QStringList{u"SMITH, JO ANN"_s, u"SMITH, JOHN Q"_s, u"SMITH, JOHNNY"_s, u"SMITH"_s,
                       u"SMITH & SONS ROOFING LLC"_s};
    QTest::newRow("a first name finds longer ones")
        << smith << u"JOHN"_s << QString() << QStringList{u"SMITH, JOHN Q"_s, u"SMITH, JOHNNY"_s};
    QTest::newRow("a middle initial")
        << smith << u"JOHN"_s << u"Q"_s << QStringList{u"SMITH, JOHN Q"_s};
    QTest::newRow("only its first letter counts")
        << smith << u"JOHN"_s << u"QUINCY"_s << QStringList{u"SMITH, JOHN Q"_s};
    QTest::newRow("another initial") << smith << u"JOHN"_s << u"R"_s << QStringList{};
    QTest::newRow("a surname is meant as a whole")
        << u"SMIT"_s << QString() << QString() << QStringList{};
    QTest::newRow("a longer surname")
        << u"SMITHSON"_s << QString() << QString() << QStringList{u"SMITHSON, JOHN"_s};
    QTest::newRow("words of a business in any order")
        << u"ROOFING SMITH"_s << QString() << QString()
        << QStringList{u"SMITH & SONS ROOFING LLC"_s};
    QTest::newRow("a word that is not there")
        << u"SMITH PLUMBING"_s << QString() << QString() << QStringList{};
    QTest::newRow("part of a word") << u"ROOF"_s << QString() << QString() << QStringList{};
    QTest::newRow("a business has no first name")
        << u"ROOFING"_s << u"JOHN"_s << QString() << QStringList{};
    QTest::newRow("nothing but signs") << u"--"_s << QString() << QString() << QStringList{};
}

void tst_Population::find()
{
    QFETCH(QString, last);
    QFETCH(QString, first);
    QFETCH(QString, middle);
    QFETCH(QStringList, found);

    Population population;
    population.AddPerson({u"SMITH"_s, u"JO ANN"_s, {}, false});
    population.AddPerson({u"SMITH"_s, u"JOHN"_s, u"Q"_s, false});
    population.AddPerson({u"SMITH"_s, u"JOHNNY"_s, {}, false});
    population.AddPerson({u"SMITHSON"_s, u"JOHN"_s, {}, false});
    population.AddPerson({u"SMITH"_s, {}, {}, false});
    population.AddPerson({u"SMITH & SONS ROOFING LLC"_s, {}, {}, true});

    QStringList names;
    for (const quint32 person : population.Find({last, first, middle}))
        names.append(NameText(population.People()[person]));
    QCOMPARE(names, found);
}

void tst_Population::findPersonKnowsTheWholeName()
{
    Population population;
    population.AddPerson({u"SMITH"_s, u"JOHN"_s, u"Q"_s, false});
    population.AddPerson({u"SMITH"_s, {}, {}, true});
    QCOMPARE(population.FindPerson({u"SMITH"_s, u"JOHN"_s, u"Q"_s, false}), quint32{0});
    QCOMPARE(population.FindPerson({u"SMITH"_s, {}, {}, true}), quint32{1});
    QCOMPARE(population.FindPerson({u"SMITH"_s, u"JOHN"_s, {}, false}), std::nullopt);
    QCOMPARE(population.FindPerson({u"SMITH"_s, u"JO"_s, u"Q"_s, false}), std::nullopt);
}

HALVANE_TEST(tst_Population)
#include "tst_Population.moc"
