#include "practice/MadeUpPeople.h"
#include "practice/OtherCases.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <map>
#include <set>

using namespace Practice;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(Practice::OtherFamily)

namespace {
const QDate someDay(2026, 8, 19);

const Population &people()
{
    static const Population population = MakePopulation(1, someDay);
    return population;
}

/// The lines of one of the program's own lists.
QStringList dataLines(const QString &name)
{
    QFile file(DataPath(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

const OtherCourt &courtAt(OtherFamily family, int place)
{
    return CourtsOf(family)[static_cast<std::size_t>(place)];
}

QString tell(const OtherCase &one)
{
    return QStringList{QString::number(one.court),
                       QString::number(one.type),
                       one.number,
                       one.filed.toString(Qt::ISODate),
                       one.text,
                       one.role,
                       one.otherParty,
                       one.judgment ? u"J"_s : u""_s,
                       one.archived ? u"*"_s : u""_s}
        .join(u'/');
}

constexpr std::array families{OtherFamily::Oregon, OtherFamily::Idaho, OtherFamily::District,
                              OtherFamily::Bankruptcy};

void addFamilies()
{
    QTest::addColumn<OtherFamily>("family");
    QTest::newRow("Oregon") << OtherFamily::Oregon;
    QTest::newRow("Idaho") << OtherFamily::Idaho;
    QTest::newRow("district courts") << OtherFamily::District;
    QTest::newRow("bankruptcy") << OtherFamily::Bankruptcy;
}
} // namespace

class tst_OtherCases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oregonsCountiesAreThoseOfTheProgram();
    void oregonsDistrictCourts_data();
    void oregonsDistrictCourts();
    void idahosCountiesAreThoseOfTheProgram();
    void districtCourtsAreThoseOfTheProgram();
    void courtsAreFound_data();
    void courtsAreFound();
    void numberTexts_data();
    void numberTexts();
    void numbersHaveTheirForm_data() { addFamilies(); }
    void numbersHaveTheirForm();
    void bothPartiesShareTheCase_data() { addFamilies(); }
    void bothPartiesShareTheCase();
    void manyHaveCasesAndManyHaveNone_data();
    void manyHaveCasesAndManyHaveNone();
    void smallCourtsHearSmallMatters();
    void businessesHaveNoPersonalCases();
    void textsFitTheWire();
    void theSeedSettlesEverything();
    void theDayOfTheYearChangesNothing();
    void peopleOfOnesOwnHaveNone();
    void personalNumbers_data();
    void personalNumbers();
};

void tst_OtherCases::oregonsCountiesAreThoseOfTheProgram()
{
    // As the program reads a location: the first county of its list that stands there in blanks.
    const QStringList counties = dataLines(u"OrCtyLst.txt"_s);
    QCOMPARE(counties.size(), 37);
    QStringList found;
    for (const OtherCourt &court : CourtsOf(OtherFamily::Oregon)) {
        const auto county =
            std::find_if(counties.begin(), counties.end(), [&](const QString &name) {
                return court.location.contains(u' ' + name + u' ');
            });
        QVERIFY2(county != counties.end(), qPrintable(court.location));
        found.append(*county);
        // And the two courts by these words.
        QCOMPARE(court.location.toLower().contains(u"co cir ct"_s), court.code.endsWith(u" C"_s));
        QCOMPARE(court.lesser, court.code.endsWith(u" D"_s));
    }
    found.removeDuplicates();
    QCOMPARE(found, counties);
}

void tst_OtherCases::oregonsDistrictCourts_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<bool>("has");

    for (const char *county : {"BAK", "GIL", "GRA", "HAR", "SHE", "WHE"})
        QTest::newRow(county) << QString::fromLatin1(county) << false;
    for (const char *county : {"BEN", "HER", "HOO", "MCR", "LNN", "LIN", "YAM"})
        QTest::newRow(county) << QString::fromLatin1(county) << true;
}

void tst_OtherCases::oregonsDistrictCourts()
{
    QFETCH(QString, county);
    QFETCH(bool, has);
    QVERIFY(FindCourt(OtherFamily::Oregon, u"%1 C"_s.arg(county)).has_value());
    QCOMPARE(FindCourt(OtherFamily::Oregon, u"%1 D"_s.arg(county)).has_value(), has);
}

void tst_OtherCases::idahosCountiesAreThoseOfTheProgram()
{
    QStringList found;
    for (const OtherCourt &court : CourtsOf(OtherFamily::Idaho)) {
        found.append(court.code);
        QCOMPARE(court.location, u"ID District Ct %1 County"_s.arg(court.code));
    }
    QCOMPARE(found.size(), 44);
    QCOMPARE(found, dataLines(u"IdCtyLst.txt"_s));
}

void tst_OtherCases::districtCourtsAreThoseOfTheProgram()
{
    QStringList found;
    for (const OtherCourt &court : CourtsOf(OtherFamily::District)) {
        found.append(court.code + u',' + court.location);
        QVERIFY(court.weight > 0);
    }
    QStringList wanted;
    for (const QString &line : dataLines(u"wadisciscts.txt"_s))
        wanted.append(line.section(u',', 2, 2) + u',' + line.section(u',', 4, 4));
    QCOMPARE(found.size(), 173);
    QCOMPARE(found, wanted);
}

void tst_OtherCases::courtsAreFound_data()
{
    QTest::addColumn<OtherFamily>("family");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("location"); // empty: there is none

    using enum OtherFamily;
    QTest::newRow("circuit") << Oregon << u"BAK C"_s << u"OR Baker Co Cir Ct"_s;
    QTest::newRow("district") << Oregon << u"WSH D"_s << u"OR Washington Co Dist Ct"_s;
    QTest::newRow("a code of its own") << Oregon << u"MCR C"_s << u"OR Multnomah Co Cir Ct"_s;
    QTest::newRow("Linn") << Oregon << u"LIN C"_s << u"OR Linn Co Cir Ct"_s;
    QTest::newRow("Lincoln") << Oregon << u"LNN C"_s << u"OR Lincoln Co Cir Ct"_s;
    QTest::newRow("Hood River") << Oregon << u"HOO D"_s << u"OR Hood River Co Dist Ct"_s;
    QTest::newRow("a county alone") << Oregon << u"BAK"_s << QString();
    QTest::newRow("a court of no kind") << Oregon << u"BAK X"_s << QString();
    QTest::newRow("Idaho") << Idaho << u" nez perce "_s << u"ID District Ct Nez Perce County"_s;
    QTest::newRow("not in Idaho") << Idaho << u"King"_s << QString();
    QTest::newRow("municipal") << District << u"SEA"_s << u"Seattle (Municipal)"_s;
    QTest::newRow("no such court") << District << u"AAA"_s << QString();
    QTest::newRow("bankruptcy") << Bankruptcy << u"WAE"_s << u"WA Eastern Bankruptcy Ct"_s;
    QTest::newRow("nothing") << Bankruptcy << QString() << QString();
}

void tst_OtherCases::courtsAreFound()
{
    QFETCH(OtherFamily, family);
    QFETCH(QString, code);
    QFETCH(QString, location);

    const std::optional<int> court = FindCourt(family, code);
    QCOMPARE(court ? courtAt(family, *court).location : QString(), location);
}

void tst_OtherCases::numberTexts_data()
{
    QTest::addColumn<OtherFamily>("family");
    QTest::addColumn<QString>("court");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");

    using enum OtherFamily;
    QTest::newRow("Oregon") << Oregon << u"BAK C"_s << 0 << 2008 << 50'677 << u"CV08060677"_s;
    QTest::newRow("Oregon, first") << Oregon << u"BAK C"_s << 3 << 1970 << 0 << u"OF70010000"_s;
    QTest::newRow("Oregon, last") << Oregon << u"BAK C"_s << 5 << 1999 << 119'999
                                  << u"SC99129999"_s;
    QTest::newRow("Idaho, infraction")
        << Idaho << u"Ada"_s << 4 << 1998 << 2'545 << u"CR-1998-0002546-IN"_s;
    QTest::newRow("Idaho, civil") << Idaho << u"Ada"_s << 0 << 2004 << 0 << u"CV-2004-0000001-OC"_s;
    QTest::newRow("Idaho, juvenile")
        << Idaho << u"Ada"_s << 5 << 2004 << 199'999 << u"JV-2004-0200000-JV"_s;
    QTest::newRow("district") << District << u"YAD"_s << 2 << 2003 << 809'020 << u"3YA809020"_s;
    QTest::newRow("bankruptcy") << Bankruptcy << u"OR"_s << 0 << 1999 << 20'077 << u"99-20077"_s;
    QTest::newRow("bankruptcy, first") << Bankruptcy << u"OR"_s << 0 << 2000 << 0 << u"00-00000"_s;
}

void tst_OtherCases::numberTexts()
{
    QFETCH(OtherFamily, family);
    QFETCH(QString, court);
    QFETCH(int, type);
    QFETCH(int, year);
    QFETCH(int, value);
    QFETCH(QString, text);
    QCOMPARE(OtherNumberText(family, FindCourt(family, court).value(), type, year, value), text);
}

void tst_OtherCases::numbersHaveTheirForm()
{
    QFETCH(OtherFamily, family);

    static const std::map<OtherFamily, QRegularExpression> forms{
        {OtherFamily::Oregon, QRegularExpression(u"^(CV|DO|JU|OF|PB|SC)\\d{8}$"_s)},
        {OtherFamily::Idaho,
         QRegularExpression(u"^(CV-\\d{4}-\\d{7}-(OC|DR)|CR-\\d{4}-\\d{7}-(FE|MD|IN)|"
                            "JV-\\d{4}-\\d{7}-JV)$"_s)},
        {OtherFamily::District, QRegularExpression(u"^\\d[A-Z]{2}\\d{6}$"_s)},
        {OtherFamily::Bankruptcy, QRegularExpression(u"^\\d{2}-\\d{5}$"_s)},
    };
    qsizetype seen = 0;
    for (quint32 person = 0; person < 5'000; ++person) {
        for (const OtherCase &one : OtherCasesOf(people(), person, family)) {
            ++seen;
            QVERIFY2(forms.at(family).match(one.number).hasMatch(), qPrintable(one.number));
            QVERIFY2(one.filed.isValid(), qPrintable(tell(one)));
            QVERIFY2(one.filed.year() >= FirstYearOf(family) && one.filed.year() <= 2025,
                     qPrintable(tell(one)));
            const QString shortYear = one.filed.toString(u"yy"_s);
            if (family == OtherFamily::Oregon)
                QCOMPARE(one.number.mid(2, 4), shortYear + one.filed.toString(u"MM"_s));
            else if (family == OtherFamily::Idaho)
                QCOMPARE(one.number.mid(3, 4), one.filed.toString(u"yyyy"_s));
            else if (family == OtherFamily::District)
                QCOMPARE(one.number.first(1), shortYear.last(1));
            else
                QCOMPARE(one.number.first(2), shortYear);
        }
    }
    QVERIFY(seen > 500);
}

/// A number stands for one case: whoever it is found by names the other party of it, too.
void tst_OtherCases::bothPartiesShareTheCase()
{
    QFETCH(OtherFamily, family);

    struct Seen
    {
        QString name;
        OtherCase one;
        int parties = 1;
    };
    std::map<QString, Seen> seen;
    qsizetype shared = 0;
    for (quint32 person = 0; person < people().People().size(); ++person) {
        const QString name = NameText(people().People()[person]);
        for (const OtherCase &one : OtherCasesOf(people(), person, family)) {
            const auto [before, isNew] = seen.insert({one.number, {name, one}});
            if (isNew)
                continue;
            ++shared;
            ++before->second.parties;
            QCOMPARE(before->second.one.otherParty, name);
            QCOMPARE(one.otherParty, before->second.name);
            QVERIFY(one.role != before->second.one.role);
            QCOMPARE(one.court, before->second.one.court);
            QCOMPARE(one.filed, before->second.one.filed);
        }
    }
    QVERIFY(shared > 1'000);
    for (const auto &[number, one] : seen)
        QCOMPARE(one.parties, one.one.otherParty.isEmpty() ? 1 : 2);
}

void tst_OtherCases::manyHaveCasesAndManyHaveNone_data()
{
    QTest::addColumn<OtherFamily>("family");
    QTest::addColumn<int>("least"); // people in a hundred
    QTest::addColumn<int>("most");

    QTest::newRow("Oregon") << OtherFamily::Oregon << 30 << 60;
    QTest::newRow("Idaho") << OtherFamily::Idaho << 20 << 50;
    QTest::newRow("district courts") << OtherFamily::District << 40 << 70;
    QTest::newRow("bankruptcy") << OtherFamily::Bankruptcy << 10 << 25;
}

void tst_OtherCases::manyHaveCasesAndManyHaveNone()
{
    QFETCH(OtherFamily, family);
    QFETCH(int, least);
    QFETCH(int, most);

    int have = 0;
    for (quint32 person = 0; person < madeUpPeople; ++person)
        have += OtherCasesOf(people(), person, family).empty() ? 0 : 1;
    const int share = have * 100 / madeUpPeople;
    QVERIFY2(share >= least && share <= most, qPrintable(QString::number(share)));
}

void tst_OtherCases::smallCourtsHearSmallMatters()
{
    std::set<QString> heard;
    for (quint32 person = 0; person < 10'000; ++person) {
        for (const OtherCase &one : OtherCasesOf(people(), person, OtherFamily::Oregon)) {
            if (courtAt(OtherFamily::Oregon, one.court).lesser)
                heard.insert(one.number.first(2));
        }
    }
    QCOMPARE(heard, (std::set<QString>{u"CV"_s, u"OF"_s, u"SC"_s}));
}

void tst_OtherCases::businessesHaveNoPersonalCases()
{
    qsizetype seen = 0;
    for (quint32 person = 0; person < madeUpPeople; ++person) {
        if (!people().People()[person].business)
            continue;
        for (const OtherFamily family : families) {
            for (const OtherCase &one : OtherCasesOf(people(), person, family)) {
                ++seen;
                QVERIFY2(!CaseTypesOf(family)[static_cast<std::size_t>(one.type)].personal,
                         qPrintable(tell(one)));
            }
        }
    }
    QVERIFY(seen > 100);
}

void tst_OtherCases::textsFitTheWire()
{
    for (const OtherFamily family : families) {
        for (const OtherCourt &court : CourtsOf(family)) {
            const QString text = court.code + court.location + court.place;
            QVERIFY2(!text.contains(u'|') && !text.contains(u'~') && !text.contains(u'¦'),
                     qPrintable(text));
        }
        for (const OtherCaseType &type : CaseTypesOf(family)) {
            for (const char16_t *text : type.texts) {
                QVERIFY(*text != u'\0');
                QVERIFY(QStringView(text).indexOf(u'~') < 0);
            }
        }
    }
}

void tst_OtherCases::theSeedSettlesEverything()
{
    const Population again = MakePopulation(1, someDay);
    const Population other = MakePopulation(2, someDay);
    qsizetype alike = 0;
    qsizetype seen = 0;
    for (quint32 person = 0; person < 2'000; ++person) {
        for (const OtherFamily family : families) {
            const std::vector<OtherCase> cases = OtherCasesOf(people(), person, family);
            const std::vector<OtherCase> same = OtherCasesOf(again, person, family);
            const std::vector<OtherCase> others = OtherCasesOf(other, person, family);
            QCOMPARE(same.size(), cases.size());
            for (std::size_t i = 0; i < cases.size(); ++i) {
                ++seen;
                QCOMPARE(tell(same[i]), tell(cases[i]));
                if (i < others.size() && tell(others[i]) == tell(cases[i]))
                    ++alike;
            }
        }
    }
    QVERIFY(seen > 1'000);
    QVERIFY(alike < 10);
}

void tst_OtherCases::theDayOfTheYearChangesNothing()
{
    const Population early = MakePopulation(1, QDate(2026, 1, 2));
    for (quint32 person = 0; person < 2'000; ++person) {
        for (const OtherFamily family : families) {
            const std::vector<OtherCase> cases = OtherCasesOf(people(), person, family);
            const std::vector<OtherCase> same = OtherCasesOf(early, person, family);
            QCOMPARE(same.size(), cases.size());
            for (std::size_t i = 0; i < cases.size(); ++i)
                QCOMPARE(tell(same[i]), tell(cases[i]));
        }
    }
}

void tst_OtherCases::peopleOfOnesOwnHaveNone()
{
    Population population = MakePopulation(1, someDay);
    const quint32 person = population.AddPerson({u"HALVORSEN"_s, u"TILDE"_s, {}, false});
    for (const OtherFamily family : families)
        QVERIFY(OtherCasesOf(population, person, family).empty());
}

void tst_OtherCases::personalNumbers_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<bool>("business");
    QTest::addColumn<QString>("name"); // empty: nobody; "#5": the sixth of the made-up people

    QTest::newRow("the guide's person") << u"900-00-0001"_s << false << u"SMITH, JOHN Q"_s;
    QTest::newRow("without dashes") << u"900000001"_s << false << u"SMITH, JOHN Q"_s;
    QTest::newRow("the guide's business") << u"00-0000001"_s << true << u"ACME PLUMBING INC"_s;
    QTest::newRow("written in threes") << u"000-000-001"_s << true << u"ACME PLUMBING INC"_s;
    QTest::newRow("a person's is no tax number") << u"900-00-0001"_s << true << QString();
    QTest::newRow("a tax number is no person's") << u"00-0000001"_s << false << QString();
    QTest::newRow("nobody's") << u"123-45-6789"_s << false << QString();
    QTest::newRow("before the first") << u"900-00-9999"_s << false << QString();
    QTest::newRow("behind the last") << u"900-06-0000"_s << false << QString();
    QTest::newRow("too short") << u"90001000"_s << false << QString();
    QTest::newRow("too long") << u"9000100000"_s << false << QString();
    QTest::newRow("a letter") << u"90001000A"_s << false << QString();
    QTest::newRow("nothing") << QString() << true << QString();
    const auto isBusiness = [](const Person &person) { return person.business; };
    const auto &all = people().People();
    const auto business = std::find_if(all.begin(), all.end(), isBusiness) - all.begin();
    const auto person = std::find_if_not(all.begin(), all.end(), isBusiness) - all.begin();
    QTest::newRow("a made-up person")
        << QString::number(900'010'000 + person) << false << u"#%1"_s.arg(person);
    QTest::newRow("a made-up business")
        << u"00%1"_s.arg(10'000 + business, 7, 10, QChar(u'0')) << true << u"#%1"_s.arg(business);
    QTest::newRow("a business has none")
        << QString::number(900'010'000 + business) << false << QString();
}

void tst_OtherCases::personalNumbers()
{
    QFETCH(QString, digits);
    QFETCH(bool, business);
    QFETCH(QString, name);

    const std::optional<quint32> found = FindByPersonalNumber(people(), digits, business);
    if (name.startsWith(u'#'))
        QCOMPARE(found, name.mid(1).toUInt());
    else
        QCOMPARE(found ? NameText(people().People()[*found]) : QString(), name);
}

HALVANE_TEST(tst_OtherCases)
#include "tst_OtherCases.moc"
