#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "searchentry/Entries.h"
#include "searchentry/NameRequests.h"
#include "searchentry/OregonRequests.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
/// What Oregon can answer, county by county, written out by hand: its code, whether it has a
/// District Court, and whether it takes Juvenile Offender.
struct County
{
    QString name;
    QString code;
    bool district;
    bool juvenile;
};

const QList<County> counties{
    {u"Baker"_s, u"BAK"_s, false, true},
    {u"Benton"_s, u"BEN"_s, true, false},
    {u"City of Hermiston"_s, u"HER"_s, true, false},
    {u"Clackamas"_s, u"CLA"_s, true, true},
    {u"Clatsop"_s, u"CLT"_s, true, true},
    {u"Columbia"_s, u"COL"_s, true, true},
    {u"Coos"_s, u"COO"_s, true, true},
    {u"Crook"_s, u"CRO"_s, true, false},
    {u"Curry"_s, u"CUR"_s, true, true},
    {u"Deschutes"_s, u"DES"_s, true, true},
    {u"Douglas"_s, u"DOU"_s, true, true},
    {u"Gilliam"_s, u"GIL"_s, false, false},
    {u"Grant"_s, u"GRA"_s, false, true},
    {u"Harney"_s, u"HAR"_s, false, false},
    {u"Hood"_s, u"HOO"_s, true, true},
    {u"Jackson"_s, u"JAC"_s, true, true},
    {u"Jefferson"_s, u"JEF"_s, true, false},
    {u"Josephine"_s, u"JOS"_s, true, true},
    {u"Klamath"_s, u"KLA"_s, true, true},
    {u"Lake"_s, u"LAK"_s, true, true},
    {u"Lane"_s, u"LAN"_s, true, true},
    {u"Lincoln"_s, u"LNN"_s, true, true},
    {u"Linn"_s, u"LIN"_s, true, true},
    {u"Malheur"_s, u"MAL"_s, true, true},
    {u"Marion"_s, u"MAR"_s, true, true},
    {u"Morrow"_s, u"MOR"_s, true, false},
    {u"Multnomah"_s, u"MCR"_s, true, true},
    {u"Polk"_s, u"PLK"_s, true, true},
    {u"Sherman"_s, u"SHE"_s, false, false},
    {u"Tillamook"_s, u"TIL"_s, true, true},
    {u"Umatilla"_s, u"UMA"_s, true, true},
    {u"Union"_s, u"UNI"_s, true, true},
    {u"Wallowa"_s, u"WAL"_s, true, true},
    {u"Wasco"_s, u"WAS"_s, true, true},
    {u"Washington"_s, u"WSH"_s, true, false},
    {u"Wheeler"_s, u"WHE"_s, false, false},
    {u"Yamhill"_s, u"YAM"_s, true, true},
};

struct TypeCode
{
    QString word;
    QString code;
};
const QList<TypeCode> typeCodes{
    {u"Civil"_s, u"CV"_s},   {u"Domestic"_s, u"DO"_s}, {u"Juvenile Offender"_s, u"JU"_s},
    {u"Offense"_s, u"OF"_s}, {u"Probate"_s, u"PB"_s},  {u"Small Claims"_s, u"SC"_s}};

QString line(const QString &place, const QString &types, const QString &last = u"SMITH"_s)
{
    return u"OREGON¦SEARCH¦"_s + last + u"¦JOHN¦Q¦¦"_s + place + u'¦' + types + u"¦¦¦"_s;
}

SearchEntry search(const QStringList &names, const QStringList &types, bool district = false)
{
    SearchEntry entry = SmithIn(CourtFamily::Oregon);
    entry.Counties = names;
    entry.CaseTypes = types;
    entry.DistrictCourt = district;
    return entry;
}

QStringList requests(const SearchEntry &entry)
{
    return NameRequests(entry, {});
}
} // namespace

class tst_OregonRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void isOregonRequestValid_data();
    void isOregonRequestValid();
    void fixOregonRequest_data();
    void fixOregonRequest();
    void aLineThatCannotBeFixedIsLoggedAndComesBack_data();
    void aLineThatCannotBeFixedIsLoggedAndComesBack();
    void aLineThatIsFixedIsNotLogged();
    void everyCountyAndCourtWithEachCaseType_data();
    void everyCountyAndCourtWithEachCaseType();
    void bakerDistrictAloneYieldsNoLine();
    void bentonWithCivilAndJuvenileSendsCivilAlone();
    void juvenileStaysForMultnomah();
    void aSurnameJuddInCrookLosesItsJu();
    void aNameThatEndsInJuAndACommaCountsAsJuvenile();
    void onlyJuvenileInACountyWithoutItIsSkipped();
    void aCountyWithoutItsCourtIsSkippedAmongOthers();
    void hoodGoesByItsCode();
    void anUnknownCountyIsSkippedAndLogged();
    void noCaseTypeYieldsNoLine();
    void judgmentsOnlyIsACaseType();
    void fieldsOfTenThousandCharacters();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_OregonRequests::initTestCase()
{
    folder = std::make_unique<TestFolder>();
}

void tst_OregonRequests::init()
{
    folder->Remove(u"AppInfo.txt"_s);
}

void tst_OregonRequests::cleanupTestCase()
{
    folder.reset();
}

void tst_OregonRequests::isOregonRequestValid_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<bool>("valid");
    QTest::newRow("a Circuit line") << line(u"LAK C"_s, u"CV,"_s) << true;
    QTest::newRow("a District line") << line(u"LAK D"_s, u"CV,"_s) << true;
    QTest::newRow("with a range of years")
        << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAK C¦CV,¦1990¦2002¦"_s << true;
    QTest::newRow("more than its parts") << line(u"LAK C"_s, u"CV,"_s) + u"more¦"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("no delimiter") << u"OREGON SEARCH"_s << false;
    QTest::newRow("ten parts") << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAK C¦CV,¦1990¦2002"_s << false;
    QTest::newRow("eleven parts") << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAK C¦CV,¦1990¦2002¦"_s << true;
    QTest::newRow("field 6 empty") << line(u""_s, u"CV,"_s) << false;
    QTest::newRow("field 7 empty") << line(u"LAK C"_s, u""_s) << false;
    QTest::newRow("unknown code") << line(u"QQQ C"_s, u"CV,"_s) << false;
    QTest::newRow("no code") << line(u" C"_s, u"CV,"_s) << false;
    QTest::newRow("statewide is no county") << line(u"*ALL"_s, u"CV,"_s) << false;
    QTest::newRow("neither D nor C") << line(u"LAK X"_s, u"CV,"_s) << false;
    QTest::newRow("a small c is no C") << line(u"LAK c"_s, u"CV,"_s) << false;
    QTest::newRow("the code alone") << line(u"LAK"_s, u"CV,"_s) << false;
    QTest::newRow("District in Baker") << line(u"BAK D"_s, u"CV,"_s) << false;
    QTest::newRow("Circuit in Baker") << line(u"BAK C"_s, u"CV,"_s) << true;
    QTest::newRow("juvenile in Benton") << line(u"BEN C"_s, u"JU,"_s) << false;
    QTest::newRow("juvenile among others") << line(u"BEN C"_s, u"CV,JU,OF,"_s) << false;
    QTest::newRow("juvenile in small letters") << line(u"BEN C"_s, u"CV,ju,"_s) << false;
    QTest::newRow("juvenile in Lake") << line(u"LAK C"_s, u"JU,"_s) << true;
    QTest::newRow("juvenile in Multnomah") << line(u"MCR C"_s, u"JU,"_s) << true;
    QTest::newRow("JU without a comma") << line(u"BEN C"_s, u"CV,"_s, u"JUDD"_s) << true;
    QTest::newRow("JU and a comma in a name")
        << line(u"BEN C"_s, u"CV,"_s, u"KAJU, INC"_s) << false;
}

void tst_OregonRequests::isOregonRequestValid()
{
    QFETCH(QString, request);
    QFETCH(bool, valid);
    QCOMPARE(IsOregonRequestValid(request), valid);
}

void tst_OregonRequests::fixOregonRequest_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("fixed");
    const auto same = [](const char *name, const QString &request) {
        QTest::newRow(name) << request << request;
    };
    same("a line with nothing to fix", line(u"LAK C"_s, u"CV,JU,"_s));
    same("juvenile in Multnomah", line(u"MCR D"_s, u"JU,"_s));
    same("a surname in JU without the case type", line(u"CRO C"_s, u"CV,"_s, u"JUDD"_s));
    QTest::newRow("District in Baker loses its code")
        << line(u"BAK D"_s, u"CV,"_s) << line(u" D"_s, u"CV,"_s);
    QTest::newRow("the code goes from the whole line")
        << line(u"BAK D"_s, u"CV,"_s, u"BAKER"_s) << line(u" D"_s, u"CV,"_s, u"ER"_s);
    QTest::newRow("juvenile last") << line(u"BEN C"_s, u"CV,JU,"_s) << line(u"BEN C"_s, u"CV,"_s);
    QTest::newRow("juvenile first") << line(u"BEN C"_s, u"JU,OF,"_s) << line(u"BEN C"_s, u"OF,"_s);
    QTest::newRow("juvenile in the middle")
        << line(u"BEN C"_s, u"DO,JU,OF,"_s) << line(u"BEN C"_s, u"DO,OF,"_s);
    QTest::newRow("juvenile alone") << line(u"BEN C"_s, u"JU,"_s) << line(u"BEN C"_s, u""_s);
    QTest::newRow("a surname loses its JU")
        << line(u"CRO C"_s, u"CV,JU,"_s, u"JUDD"_s) << line(u"CRO C"_s, u"CV,"_s, u"DD"_s);
    QTest::newRow("every JU of a name")
        << line(u"CRO C"_s, u"CV,JU,"_s, u"JUJUBE"_s) << line(u"CRO C"_s, u"CV,"_s, u"BE"_s);
    QTest::newRow("commas in a name close up")
        << line(u"CRO C"_s, u"CV,JU,"_s, u"A,,B"_s) << line(u"CRO C"_s, u"CV,"_s, u"A,B"_s);
    QTest::newRow("a comma that begins a name goes")
        << line(u"CRO C"_s, u"CV,JU,"_s, u",INC"_s) << line(u"CRO C"_s, u"CV,"_s, u"INC"_s);
    QTest::newRow("neither court nor case type")
        << line(u"WHE D"_s, u"CV,JU,"_s) << line(u" D"_s, u"CV,"_s);
}

void tst_OregonRequests::fixOregonRequest()
{
    QFETCH(QString, request);
    QFETCH(QString, fixed);
    QCOMPARE(FixOregonRequest(request), fixed);
}

void tst_OregonRequests::aLineThatCannotBeFixedIsLoggedAndComesBack_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("no delimiter") << u"OREGON SEARCH BAK D JU,"_s;
    QTest::newRow("too few parts") << u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BAK D¦JU,"_s;
    QTest::newRow("no court") << line(u""_s, u"JU,"_s);
    QTest::newRow("an unknown code") << line(u"QQQ D"_s, u"JU,"_s);
    QTest::newRow("no case type") << line(u"BAK D"_s, u""_s);
    QTest::newRow("neither D nor C") << line(u"BAK X"_s, u"JU,"_s);
}

void tst_OregonRequests::aLineThatCannotBeFixedIsLoggedAndComesBack()
{
    QFETCH(QString, request);
    QCOMPARE(FixOregonRequest(request), request);
    QCOMPARE(folder->Log(), QStringList{u"Error Fixing Oregon Search Request "_s + request});
}

void tst_OregonRequests::aLineThatIsFixedIsNotLogged()
{
    FixOregonRequest(line(u"BAK D"_s, u"CV,"_s));
    FixOregonRequest(line(u"BEN C"_s, u"CV,JU,"_s));
    QCOMPARE(folder->Log(), QStringList());
}

void tst_OregonRequests::everyCountyAndCourtWithEachCaseType_data()
{
    QTest::addColumn<int>("county");
    QTest::addColumn<bool>("district");
    QCOMPARE(counties.size(), 37);
    for (int i = 0; i < counties.size(); ++i) {
        for (const bool district : {false, true})
            QTest::addRow("%s %s", qPrintable(counties[i].name), district ? "D" : "C")
                << i << district;
    }
}

void tst_OregonRequests::everyCountyAndCourtWithEachCaseType()
{
    QFETCH(int, county);
    QFETCH(bool, district);
    const County &row = counties[county];
    QCOMPARE(OrCountyNames().at(county), row.name);
    const bool answers = !district || row.district;
    const QString head =
        u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦"_s + row.code + (district ? u" D¦"_s : u" C¦"_s);
    QString all;
    for (const TypeCode &type : typeCodes) {
        const bool sent = answers && (type.code != u"JU" || row.juvenile);
        const QStringList expected =
            sent ? QStringList{head + type.code + u",¦¦¦"_s} : QStringList();
        QCOMPARE(requests(search({row.name}, {type.word}, district)), expected);
        if (type.code != u"JU" || row.juvenile)
            all += type.code + u',';
    }
    const QStringList expected = answers ? QStringList{head + all + u"¦¦¦"_s} : QStringList();
    QCOMPARE(requests(search({row.name}, CaseTypesOf(u"OR"_s), district)), expected);
}

void tst_OregonRequests::bakerDistrictAloneYieldsNoLine()
{
    QCOMPARE(requests(search({u"Baker"_s}, {u"Civil"_s}, true)), QStringList());
}

void tst_OregonRequests::bentonWithCivilAndJuvenileSendsCivilAlone()
{
    QCOMPARE(requests(search({u"Benton"_s}, {u"Civil"_s, u"Juvenile Offender"_s})),
             QStringList{line(u"BEN C"_s, u"CV,"_s)});
}

void tst_OregonRequests::juvenileStaysForMultnomah()
{
    QCOMPARE(requests(search({u"Multnomah"_s}, {u"Civil"_s, u"Juvenile Offender"_s})),
             QStringList{line(u"MCR C"_s, u"CV,JU,"_s)});
}

void tst_OregonRequests::aSurnameJuddInCrookLosesItsJu()
{
    SearchEntry entry = search({u"Crook"_s, u"Lake"_s}, {u"Civil"_s, u"Juvenile Offender"_s});
    entry.Names[LastName] = u"JUDD"_s;
    // In Lake, which takes Juvenile Offender, she keeps her name.
    QCOMPARE(requests(entry), (QStringList{line(u"CRO C"_s, u"CV,"_s, u"DD"_s),
                                           line(u"LAK C"_s, u"CV,JU,"_s, u"JUDD"_s)}));
    entry.CaseTypes = {u"Civil"_s};
    QCOMPARE(requests(entry).first(), line(u"CRO C"_s, u"CV,"_s, u"JUDD"_s));
}

void tst_OregonRequests::aNameThatEndsInJuAndACommaCountsAsJuvenile()
{
    SearchEntry entry = search({u"Benton"_s}, {u"Civil"_s});
    entry.Names[LastName] = u"KAJU, INC"_s;
    QCOMPARE(requests(entry), QStringList{line(u"BEN C"_s, u"CV,"_s, u"KA, INC"_s)});
}

void tst_OregonRequests::onlyJuvenileInACountyWithoutItIsSkipped()
{
    QCOMPARE(requests(search({u"Benton"_s}, {u"Juvenile Offender"_s})), QStringList());
}

void tst_OregonRequests::aCountyWithoutItsCourtIsSkippedAmongOthers()
{
    const QStringList lines =
        requests(search({u"Baker"_s, u"Lake"_s, u"Wheeler"_s, u"Yamhill"_s}, {u"Civil"_s}, true));
    QCOMPARE(lines, (QStringList{line(u"LAK D"_s, u"CV,"_s), line(u"YAM D"_s, u"CV,"_s)}));
}

void tst_OregonRequests::hoodGoesByItsCode()
{
    for (const QString &name : {u"Hood"_s, u"Hood River"_s})
        QCOMPARE(requests(search({name}, {u"Civil"_s, u"Juvenile Offender"_s}, true)),
                 QStringList{line(u"HOO D"_s, u"CV,JU,"_s)});
}

void tst_OregonRequests::anUnknownCountyIsSkippedAndLogged()
{
    QCOMPARE(requests(search({u"Multinomah"_s, u"Lake"_s}, {u"Civil"_s})),
             QStringList{line(u"LAK C"_s, u"CV,"_s)});
    QCOMPARE(folder->Log(),
             QStringList{u"Error Fixing Oregon Search Request "_s + line(u" C"_s, u"CV,"_s)});
}

void tst_OregonRequests::noCaseTypeYieldsNoLine()
{
    QCOMPARE(requests(search({u"Lake"_s}, {})), QStringList());
}

void tst_OregonRequests::judgmentsOnlyIsACaseType()
{
    SearchEntry entry = search({u"Lake"_s}, {});
    entry.JudgmentsOnly = true;
    QCOMPARE(requests(entry), QStringList{line(u"LAK C"_s, u"JG,"_s)});
}

void tst_OregonRequests::fieldsOfTenThousandCharacters()
{
    SearchEntry entry = search({u"Crook"_s}, {u"Civil"_s, u"Juvenile Offender"_s});
    entry.Names[LastName] = u"JUX"_s.repeated(10'000);
    QCOMPARE(requests(entry), QStringList{line(u"CRO C"_s, u"CV,"_s, QString(10'000, u'X'))});
}

HALVANE_TEST(tst_OregonRequests)
#include "tst_OregonRequests.moc"
