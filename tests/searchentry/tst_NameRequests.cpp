#include "courts/Counties.h"
#include "link/RequestLine.h"
#include "searchentry/Entries.h"
#include "searchentry/NameRequests.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int thisYear = 2005;

RequestContext contextOf(const QStringList &counties)
{
    return {counties, 500, thisYear, {}};
}

QStringList requests(const SearchEntry &entry)
{
    return NameRequests(entry, contextOf({}));
}

SearchEntry smith(CourtFamily court, const QStringList &counties, const QStringList &types)
{
    SearchEntry entry = SmithIn(court);
    entry.Counties = counties;
    entry.CaseTypes = types;
    return entry;
}

SearchEntry superior()
{
    return smith(CourtFamily::Superior, {u"King"_s}, {u"Civil"_s, u"Criminal"_s});
}

QStringList stateCounties(CourtFamily court)
{
    if (court == CourtFamily::Superior)
        return WaCountyNames();
    return court == CourtFamily::Oregon ? OrCountyNames() : IdCountyList();
}
} // namespace

class tst_NameRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void examples_data();
    void examples();
    void aPersonWithASuffixSendsTheSameLine();
    void aBusinessInSuperiorCourts();
    void anIndexSearchAlwaysCarriesYears();
    void howManyLines_data();
    void howManyLines();
    void statewideSuperiorIsEveryCountyInOrder();
    void statewideIndexHoldsEveryCounty();
    void aTemplateSearchesItsCounties();
    void statewideOregonHasNoCourtLetter();
    void theIndexIsWashingtonsOnly();
    void noCountyIsNoLine();
    void theCountyKeepsTheCaseOfItsList();
    void otherCourtsHaveNoNameLines();
    void caseTypeCodes_data();
    void caseTypeCodes();
    void indexCaseTypes_data();
    void indexCaseTypes();
    void theEventLoopGetsATurnAfterEachCounty_data();
    void theEventLoopGetsATurnAfterEachCounty();
    void listsThatChangeDuringATurnDoNotMatter();
    void thePageSizeIsTheLastFieldOfAnIndexLine();
    void anAccountingCodeKeepsTheEmptyYears();
    void aTildeInAnIndexNameIsLeftOut();
    void everyKindAndScopeHasItsFields_data();
    void everyKindAndScopeHasItsFields();
    void whateverIsEnteredEveryLineHasItsFields();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_NameRequests::initTestCase()
{
    folder = std::make_unique<TestFolder>();
    LoadIdCounties();
}

void tst_NameRequests::cleanupTestCase()
{
    folder.reset();
}

void tst_NameRequests::examples_data()
{
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<QString>("line");

    SearchEntry entry = superior();
    QTest::newRow("Superior, all years")
        << entry << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"_s;
    SetRange(entry, u"1990"_s, u"2002"_s);
    QTest::newRow("Superior, a range of years")
        << entry << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦1990¦2002¦"_s;

    entry = smith(CourtFamily::Superior, {u"Adams"_s, u"King"_s}, {u"Criminal"_s});
    entry.UseIndex = true;
    QTest::newRow("Index, two counties, all years")
        << entry << u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=1~UL=500~"_s;
    SetRange(entry, u"1990"_s, u"2002"_s);
    QTest::newRow("Index, a range of years")
        << entry << u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1990~2002~LL=1~UL=500~"_s;

    entry = smith(CourtFamily::Oregon, {u"Baker"_s}, {u"Civil"_s, u"Domestic"_s});
    SetRange(entry, u"1990"_s, u"2002"_s);
    QTest::newRow("Oregon, Baker, Circuit")
        << entry << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BAK C¦CV,DO,¦1990¦2002¦"_s;
    entry.Where = SearchScope::Statewide;
    QTest::newRow("Oregon statewide")
        << entry << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,DO,¦1990¦2002¦"_s;

    entry = smith(CourtFamily::Idaho, {u"Ada"_s}, {u"Civil"_s, u"Criminal"_s});
    QTest::newRow("Idaho by county") << entry << u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Ada,¦CV,CR,¦¦¦"_s;
    entry.Where = SearchScope::Statewide;
    QTest::newRow("Idaho statewide") << entry << u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,CR,¦¦¦"_s;
}

void tst_NameRequests::examples()
{
    QFETCH(SearchEntry, entry);
    QFETCH(QString, line);
    QCOMPARE(requests(entry), QStringList{line});
}

void tst_NameRequests::aPersonWithASuffixSendsTheSameLine()
{
    for (const CourtFamily court :
         {CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho}) {
        for (const bool index : {false, true}) {
            SearchEntry entry = smith(court, {u"Lake"_s}, {u"Civil"_s});
            entry.UseIndex = index;
            const QStringList without = requests(entry);
            entry.Names[Suffix] = u"JR"_s;
            QCOMPARE(without.size(), 1);
            QCOMPARE(requests(entry), without);
            const QChar delimiter = without.first().back();
            QCOMPARE(without.first().split(delimiter).at(5), QString());
        }
    }
}

void tst_NameRequests::aBusinessInSuperiorCourts()
{
    SearchEntry entry = BusinessIn(CourtFamily::Superior, u"ACME INC"_s);
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    QCOMPARE(requests(entry), QStringList{u"WASUP¦SEARCH¦ACME INC¦¦¦¦King,¦Civil,¦¦¦"_s});
}

void tst_NameRequests::anIndexSearchAlwaysCarriesYears()
{
    SearchEntry entry = superior();
    QVERIFY(requests(entry).first().endsWith(u"¦¦¦"));
    entry.UseIndex = true;
    const QStringList fields = requests(entry).first().split(u'~');
    QCOMPARE(fields.at(8), u"1970"_s);
    QCOMPARE(fields.at(9), u"2005"_s);
}

void tst_NameRequests::howManyLines_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("index");
    QTest::addColumn<int>("where");
    QTest::addColumn<int>("lines");
    const auto add = [](const char *name, CourtFamily court, bool index, SearchScope where,
                        int lines) {
        QTest::newRow(name) << static_cast<int>(court) << index << int(where) << lines;
    };
    add("Superior, two counties", CourtFamily::Superior, false, SearchScope::Counties, 2);
    add("Superior, statewide", CourtFamily::Superior, false, SearchScope::Statewide, 39);
    add("Index, two counties", CourtFamily::Superior, true, SearchScope::Counties, 1);
    add("Index, statewide", CourtFamily::Superior, true, SearchScope::Statewide, 1);
    add("Oregon, two counties", CourtFamily::Oregon, false, SearchScope::Counties, 2);
    add("Oregon, statewide", CourtFamily::Oregon, false, SearchScope::Statewide, 1);
    add("Idaho, two counties", CourtFamily::Idaho, false, SearchScope::Counties, 2);
    add("Idaho, statewide", CourtFamily::Idaho, false, SearchScope::Statewide, 1);
}

void tst_NameRequests::howManyLines()
{
    QFETCH(int, court);
    QFETCH(bool, index);
    QFETCH(int, where);
    QFETCH(int, lines);
    const auto family = static_cast<CourtFamily>(court);
    SearchEntry entry = smith(family, stateCounties(family).mid(2, 2), {u"Civil"_s});
    entry.UseIndex = index;
    entry.Where = static_cast<SearchScope>(where);
    QCOMPARE(NameRequests(entry, contextOf(stateCounties(family))).size(), lines);
}

void tst_NameRequests::statewideSuperiorIsEveryCountyInOrder()
{
    SearchEntry entry = superior();
    entry.Where = SearchScope::Statewide;
    entry.Counties = {u"(Statewide)"_s};
    const QStringList lines = NameRequests(entry, contextOf(WaCountyNames()));
    QCOMPARE(lines.size(), 39);
    for (int i = 0; i < 39; ++i)
        QCOMPARE(lines[i].split(u'¦').at(6), WaCountyNames().at(i) + u',');
}

void tst_NameRequests::statewideIndexHoldsEveryCounty()
{
    SearchEntry entry = superior();
    entry.Where = SearchScope::Statewide;
    entry.UseIndex = true;
    const QStringList lines = NameRequests(entry, contextOf(WaCountyNames()));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().split(u'~').at(6), WaCountyNames().join(u',') + u',');
}

void tst_NameRequests::aTemplateSearchesItsCounties()
{
    SearchEntry entry = superior();
    entry.Where = SearchScope::Template;
    const QStringList lines = NameRequests(entry, contextOf(WaCountyNames()));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().split(u'¦').at(6), u"King,"_s);
}

void tst_NameRequests::statewideOregonHasNoCourtLetter()
{
    SearchEntry entry = smith(CourtFamily::Oregon, {u"(Statewide)"_s}, {u"Civil"_s});
    entry.Where = SearchScope::Statewide;
    for (const bool district : {false, true}) {
        entry.DistrictCourt = district;
        QCOMPARE(NameRequests(entry, contextOf(OrCountyNames())),
                 QStringList{u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,¦¦¦"_s});
    }
}

void tst_NameRequests::theIndexIsWashingtonsOnly()
{
    for (const CourtFamily court : {CourtFamily::Oregon, CourtFamily::Idaho}) {
        SearchEntry entry = smith(court, {u"Lake"_s}, {u"Civil"_s});
        const QStringList without = requests(entry);
        entry.UseIndex = true;
        QVERIFY(!IsIndexSearch(entry));
        QCOMPARE(requests(entry), without);
    }
    SearchEntry number = superior();
    number.UseIndex = true;
    QVERIFY(IsIndexSearch(number));
    number.Kind = SearchKind::Number;
    QVERIFY(!IsIndexSearch(number));
}

void tst_NameRequests::noCountyIsNoLine()
{
    for (const CourtFamily court : {CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho})
        QCOMPARE(requests(smith(court, {}, {u"Civil"_s})), QStringList());
}

void tst_NameRequests::theCountyKeepsTheCaseOfItsList()
{
    SearchEntry entry = superior();
    entry.Counties = {u"kInG"_s};
    QCOMPARE(requests(entry).first().split(u'¦').at(6), u"kInG,"_s);
}

void tst_NameRequests::otherCourtsHaveNoNameLines()
{
    for (const CourtFamily court : {CourtFamily::Discis, CourtFamily::Bankruptcy})
        QCOMPARE(requests(smith(court, {u"King"_s}, {u"Civil"_s})), QStringList());
}

void tst_NameRequests::caseTypeCodes_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<bool>("judgmentsOnly");
    QTest::addColumn<QString>("field");
    const auto add = [](const char *name, CourtFamily court, const QStringList &types,
                        const QString &field, bool judgmentsOnly = false) {
        QTest::newRow(name) << static_cast<int>(court) << types << judgmentsOnly << field;
    };
    const CourtFamily wa = CourtFamily::Superior;
    add("Washington, none", wa, {}, u""_s);
    add("Washington sends the words", wa, {u"Civil"_s, u"Juvenile Offender"_s, u"Probate"_s},
        u"Civil,Juvenile Offender,Probate,"_s);
    add("Washington keeps any word", wa, {u"Adoption"_s}, u"Adoption,"_s);
    add("Washington knows no judgments only", wa, {u"Civil"_s}, u"Civil,"_s, true);
    const CourtFamily oregon = CourtFamily::Oregon;
    add("Oregon, none", oregon, {}, u""_s);
    add("Oregon Offense", oregon, {u"Offense"_s}, u"OF,"_s);
    add("Oregon Civil", oregon, {u"Civil"_s}, u"CV,"_s);
    add("Oregon Domestic", oregon, {u"Domestic"_s}, u"DO,"_s);
    add("Oregon Juvenile Offender", oregon, {u"Juvenile Offender"_s}, u"JU,"_s);
    add("Oregon Probate", oregon, {u"Probate"_s}, u"PB,"_s);
    add("Oregon Small Claims", oregon, {u"Small Claims"_s}, u"SC,"_s);
    add("Oregon Judgment", oregon, {u"Judgment"_s}, u"JG,"_s);
    add("Oregon, all", oregon,
        {u"Civil"_s, u"Domestic"_s, u"Juvenile Offender"_s, u"Offense"_s, u"Probate"_s,
         u"Small Claims"_s},
        u"CV,DO,JU,OF,PB,SC,"_s);
    add("Oregon, judgments only", oregon, {}, u"JG,"_s, true);
    add("Oregon, judgments come last", oregon, {u"Civil"_s, u"Small Claims"_s}, u"CV,SC,JG,"_s,
        true);
    add("Oregon, over the whole field", oregon, {u"Civil and Civil"_s}, u"CV and CV,"_s);
    const CourtFamily idaho = CourtFamily::Idaho;
    add("Idaho, none", idaho, {}, u""_s);
    add("Idaho Civil", idaho, {u"Civil"_s}, u"CV,"_s);
    add("Idaho Criminal", idaho, {u"Criminal"_s}, u"CR,"_s);
    add("Idaho Juvenile", idaho, {u"Juvenile"_s}, u"JU,"_s);
    add("Idaho, all", idaho, {u"Civil"_s, u"Criminal"_s, u"Juvenile"_s}, u"CV,CR,JU,"_s);
    add("Idaho has no other codes", idaho, {u"Probate"_s}, u"Probate,"_s);
    add("Idaho knows no judgments only", idaho, {u"Civil"_s}, u"CV,"_s, true);
}

void tst_NameRequests::caseTypeCodes()
{
    QFETCH(int, court);
    QFETCH(QStringList, types);
    QFETCH(bool, judgmentsOnly);
    QFETCH(QString, field);
    SearchEntry entry = smith(static_cast<CourtFamily>(court), {u"Lake"_s}, types);
    entry.JudgmentsOnly = judgmentsOnly;
    QCOMPARE(CaseTypeField(entry), field);
}

void tst_NameRequests::indexCaseTypes_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("field");
    for (const QString &word : {u"Criminal"_s, u"Civil"_s, u"Domestic"_s, u"Probate"_s,
                                u"Judgment"_s, u"Juvenile Offender"_s})
        QTest::newRow(qPrintable(word)) << QStringList{word} << word + u',';
    QTest::newRow("none") << QStringList() << u""_s;
    QTest::newRow("another wording repeats the word before it")
        << QStringList{u"Civil"_s, u"Guardianship"_s, u"Probate"_s} << u"Civil,Civil,Probate,"_s;
    QTest::newRow("two of another wording")
        << QStringList{u"Civil"_s, u"Guardianship"_s, u"Paternity"_s} << u"Civil,Civil,Civil,"_s;
    QTest::newRow("another case of letters is another wording")
        << QStringList{u"Civil"_s, u"PROBATE"_s} << u"Civil,Civil,"_s;
    QTest::newRow("nothing before it to repeat")
        << QStringList{u"Adoption"_s, u"Civil"_s} << u"Civil,"_s;
}

void tst_NameRequests::indexCaseTypes()
{
    QFETCH(QStringList, types);
    QFETCH(QString, field);
    SearchEntry entry = smith(CourtFamily::Superior, {u"King"_s}, types);
    entry.UseIndex = true;
    QCOMPARE(requests(entry).first().split(u'~').at(7), field);
}

void tst_NameRequests::theEventLoopGetsATurnAfterEachCounty_data()
{
    howManyLines_data();
}

void tst_NameRequests::theEventLoopGetsATurnAfterEachCounty()
{
    QFETCH(int, court);
    QFETCH(bool, index);
    QFETCH(int, where);
    QFETCH(int, lines);
    const auto family = static_cast<CourtFamily>(court);
    SearchEntry entry = smith(family, stateCounties(family).mid(2, 2), {u"Civil"_s});
    entry.UseIndex = index;
    entry.Where = static_cast<SearchScope>(where);
    int turns = 0;
    RequestContext context = contextOf(stateCounties(family));
    context.Turn = [&turns] { ++turns; };
    NameRequests(entry, context);
    QCOMPARE(turns, lines > 1 ? lines : 0);
}

void tst_NameRequests::listsThatChangeDuringATurnDoNotMatter()
{
    SearchEntry entry = superior();
    entry.Where = SearchScope::Statewide;
    RequestContext context = contextOf({u"Adams"_s, u"King"_s, u"Yakima"_s});
    context.Turn = [&context] { context.StateCounties.clear(); };
    QCOMPARE(NameRequests(entry, context).size(), 3);
}

void tst_NameRequests::thePageSizeIsTheLastFieldOfAnIndexLine()
{
    SearchEntry entry = superior();
    entry.UseIndex = true;
    RequestContext context = contextOf({});
    context.PageSize = 50;
    QVERIFY(NameRequests(entry, context).first().endsWith(u"~LL=1~UL=50~"));
}

void tst_NameRequests::anAccountingCodeKeepsTheEmptyYears()
{
    SearchEntry entry = superior();
    entry.CaseTypes = {u"Civil"_s};
    QCOMPARE(EmbedClientCode(requests(entry).first(), u"ABC"_s),
             u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦^^CAC:ABC^^¦"_s);
}

void tst_NameRequests::aTildeInAnIndexNameIsLeftOut()
{
    SearchEntry entry = superior();
    entry.Names[LastName] = u"SM~ITH"_s;
    QVERIFY(requests(entry).first().startsWith(u"WASUP¦SEARCH¦SM~ITH¦"));
    entry.UseIndex = true;
    QVERIFY(requests(entry).first().startsWith(u"INDEX~SEARCH~SMITH~JOHN~"));
}

void tst_NameRequests::everyKindAndScopeHasItsFields_data()
{
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<int>("fields");
    QTest::addColumn<QString>("head");
    struct Family
    {
        const char *name;
        CourtFamily court;
        bool index;
        int fields;
        QString head;
    };
    const QList<Family> families{{"Superior", CourtFamily::Superior, false, 10, u"WASUP¦SEARCH¦"_s},
                                 {"Index", CourtFamily::Superior, true, 12, u"INDEX~SEARCH~"_s},
                                 {"Oregon", CourtFamily::Oregon, false, 10, u"OREGON¦SEARCH¦"_s},
                                 {"Idaho", CourtFamily::Idaho, false, 10, u"IDSUP¦SEARCH¦"_s}};
    for (const Family &family : families) {
        for (const bool business : {false, true}) {
            for (const SearchScope where :
                 {SearchScope::Counties, SearchScope::Template, SearchScope::Statewide}) {
                SearchEntry entry =
                    business ? BusinessIn(family.court, u"ACME"_s) : SmithIn(family.court);
                entry.Counties = {u"Lake"_s, u"Lincoln"_s};
                entry.CaseTypes = {u"Civil"_s};
                entry.UseIndex = family.index;
                entry.Where = where;
                QTest::addRow("%s, %s, %d", family.name, business ? "business" : "person",
                              int(where))
                    << entry << family.fields
                    << QString(family.head + (business ? u"ACME"_s : u"SMITH"_s));
            }
        }
    }
}

void tst_NameRequests::everyKindAndScopeHasItsFields()
{
    QFETCH(SearchEntry, entry);
    QFETCH(int, fields);
    QFETCH(QString, head);
    const QStringList lines = NameRequests(entry, contextOf(stateCounties(entry.Court)));
    QVERIFY(!lines.isEmpty());
    for (const QString &line : lines) {
        const QChar delimiter = head[5] == u'~' ? u'~' : u'¦';
        QVERIFY2(line.startsWith(head + delimiter), qPrintable(line));
        QCOMPARE(line.count(delimiter), fields);
        QVERIFY(line.endsWith(delimiter));
    }
}

void tst_NameRequests::whateverIsEnteredEveryLineHasItsFields()
{
    QRandomGenerator random(4711);
    for (int round = 0; round < 1000; ++round) {
        const CourtFamily court = std::array{CourtFamily::Superior, CourtFamily::Oregon,
                                             CourtFamily::Idaho}[size_t(random.bounded(3))];
        SearchEntry entry = SmithIn(court);
        for (QString &name : entry.Names)
            name = HostileText(random);
        entry.UseIndex = random.bounded(2) == 1;
        entry.Where = random.bounded(4) == 0 ? SearchScope::Statewide : SearchScope::Counties;
        entry.DistrictCourt = random.bounded(2) == 1;
        entry.YearRange = random.bounded(2) == 1;
        entry.FromYear = HostileText(random);
        entry.ToYear = HostileText(random);
        entry.Counties = {u"Benton"_s, HostileText(random), u"Lake"_s};
        entry.CaseTypes = {u"Civil"_s, u"Juvenile Offender"_s, HostileText(random)};
        const bool index = IsIndexSearch(entry);
        const QChar delimiter = index ? u'~' : u'¦';
        for (const QString &line : NameRequests(entry, contextOf(stateCounties(court)))) {
            QCOMPARE(line.count(delimiter), index ? 12 : 10);
            QVERIFY(line.endsWith(delimiter));
            QCOMPARE(line.split(delimiter).at(5), QString());
            QVERIFY(!line.contains(u'|') && !line.contains(u'\n') && !line.contains(u'\r'));
        }
    }
}

HALVANE_TEST(tst_NameRequests)
#include "tst_NameRequests.moc"
