#include "core/CSetting.h"
#include "core/TextUtilities.h"
#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "courts/CourtTable.h"
#include "courts/DiscisCourts.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
struct CodeRow
{
    QString code;
    QString county;
};

/// The Washington counties by the code of district and municipal results.
const QList<CodeRow> waCodes{
    {u"s01"_s, u"Adams"_s},     {u"s02"_s, u"Asotin"_s},       {u"s03"_s, u"Benton"_s},
    {u"s04"_s, u"Chelan"_s},    {u"s05"_s, u"Clallam"_s},      {u"s06"_s, u"Clark"_s},
    {u"s07"_s, u"Columbia"_s},  {u"s08"_s, u"Cowlitz"_s},      {u"s09"_s, u"Douglas"_s},
    {u"s10"_s, u"Ferry"_s},     {u"s11"_s, u"Franklin"_s},     {u"s12"_s, u"Garfield"_s},
    {u"s13"_s, u"Grant"_s},     {u"s14"_s, u"Grays Harbor"_s}, {u"s15"_s, u"Island"_s},
    {u"s16"_s, u"Jefferson"_s}, {u"s17"_s, u"King"_s},         {u"s18"_s, u"Kitsap"_s},
    {u"s19"_s, u"Kittitas"_s},  {u"s20"_s, u"Klickitat"_s},    {u"s21"_s, u"Lewis"_s},
    {u"s22"_s, u"Lincoln"_s},   {u"s23"_s, u"Mason"_s},        {u"s24"_s, u"Okanogan"_s},
    {u"s25"_s, u"Pacific"_s},   {u"s26"_s, u"Pend Oreille"_s}, {u"s27"_s, u"Pierce"_s},
    {u"s28"_s, u"San Juan"_s},  {u"s29"_s, u"Skagit"_s},       {u"s30"_s, u"Skamania"_s},
    {u"s31"_s, u"Snohomish"_s}, {u"s32"_s, u"Spokane"_s},      {u"s33"_s, u"Stevens"_s},
    {u"s34"_s, u"Thurston"_s},  {u"s35"_s, u"Wahkiakum"_s},    {u"s36"_s, u"Walla Walla"_s},
    {u"s37"_s, u"Whatcom"_s},   {u"s38"_s, u"Whitman"_s},      {u"s39"_s, u"Yakima"_s},
};

/// The Oregon counties and what their courts call them, in list order.
const QList<CodeRow> orCodes{
    {u"BAK"_s, u"Baker"_s},     {u"BEN"_s, u"Benton"_s},     {u"HER"_s, u"City of Hermiston"_s},
    {u"CLA"_s, u"Clackamas"_s}, {u"CLT"_s, u"Clatsop"_s},    {u"COL"_s, u"Columbia"_s},
    {u"COO"_s, u"Coos"_s},      {u"CRO"_s, u"Crook"_s},      {u"CUR"_s, u"Curry"_s},
    {u"DES"_s, u"Deschutes"_s}, {u"DOU"_s, u"Douglas"_s},    {u"GIL"_s, u"Gilliam"_s},
    {u"GRA"_s, u"Grant"_s},     {u"HAR"_s, u"Harney"_s},     {u"HOO"_s, u"Hood"_s},
    {u"JAC"_s, u"Jackson"_s},   {u"JEF"_s, u"Jefferson"_s},  {u"JOS"_s, u"Josephine"_s},
    {u"KLA"_s, u"Klamath"_s},   {u"LAK"_s, u"Lake"_s},       {u"LAN"_s, u"Lane"_s},
    {u"LNN"_s, u"Lincoln"_s},   {u"LIN"_s, u"Linn"_s},       {u"MAL"_s, u"Malheur"_s},
    {u"MAR"_s, u"Marion"_s},    {u"MOR"_s, u"Morrow"_s},     {u"MCR"_s, u"Multnomah"_s},
    {u"PLK"_s, u"Polk"_s},      {u"SHE"_s, u"Sherman"_s},    {u"TIL"_s, u"Tillamook"_s},
    {u"UMA"_s, u"Umatilla"_s},  {u"UNI"_s, u"Union"_s},      {u"WAL"_s, u"Wallowa"_s},
    {u"WAS"_s, u"Wasco"_s},     {u"WSH"_s, u"Washington"_s}, {u"WHE"_s, u"Wheeler"_s},
    {u"YAM"_s, u"Yamhill"_s},
};

void addCodes(const QList<CodeRow> &rows)
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("county");
    for (const CodeRow &row : rows)
        QTest::newRow(qPrintable(row.code)) << row.code << row.county;
}
} // namespace

class tst_Catalogues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void washingtonNamesInOrder();
    void countyFromDiscisCode_data();
    void countyFromDiscisCode();
    void nineCodesAreKnownWithoutTheirZero();
    void otherDiscisCodesAreNoCounty_data();
    void otherDiscisCodesAreNoCounty();
    void oregonNamesInOrder();
    void oregonCodes_data();
    void oregonCodes();
    void hoodIsHoodRiverWhenItComesBack();
    void unknownOregonCountiesAreEmpty_data();
    void unknownOregonCountiesAreEmpty();
    void oregonLimits();
    void multnomahIsNotLimited();
    void oregonCountyFromList_data();
    void oregonCountyFromList();
    void caseTypesOfACourt_data();
    void caseTypesOfACourt();
    void washingtonCaseTypesAreTheLinesOfTheirFile();
    void caseTypeFromNumber_data();
    void caseTypeFromNumber();
    void bankruptcyCourts();
    void stopRequests_data();
    void stopRequests();
    void countyCount_data();
    void countyCount();
    void aCountThatFindsNothingShowsABox();
    void aCourtReadsAsItsNameAndCode();
    void aCodeThatComesTwiceEndsTheCatalogue();
    void installedListsAreWhole();
    void installedCountyCodesHaveTwoDigits();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_Catalogues::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_Catalogues::cleanup()
{
    folder.reset();
}

void tst_Catalogues::washingtonNamesInOrder()
{
    QStringList expected;
    for (const CodeRow &row : waCodes)
        expected.append(row.county);
    QCOMPARE(WaCountyNames(), expected);
    QCOMPARE(WaCountyNames().size(), 39);
}

void tst_Catalogues::countyFromDiscisCode_data()
{
    addCodes(waCodes);
}

void tst_Catalogues::countyFromDiscisCode()
{
    QFETCH(QString, code);
    QFETCH(QString, county);
    QCOMPARE(CountyFromDiscisCode(code), county);
}

void tst_Catalogues::nineCodesAreKnownWithoutTheirZero()
{
    for (int i = 1; i <= 9; ++i)
        QCOMPARE(CountyFromDiscisCode(u's' + QString::number(i)), waCodes[i - 1].county);
}

void tst_Catalogues::otherDiscisCodesAreNoCounty_data()
{
    QTest::addColumn<QString>("code");
    for (const QString &code : {u""_s, u"s"_s, u"s0"_s, u"s00"_s, u"s40"_s, u"s001"_s, u"01"_s,
                                u"t01"_s, u"s1 "_s, u"s-1"_s, u"s390"_s, u"King"_s})
        QTest::addRow("\"%s\"", qPrintable(code)) << code;
}

void tst_Catalogues::otherDiscisCodesAreNoCounty()
{
    QFETCH(QString, code);
    QCOMPARE(CountyFromDiscisCode(code), QString());
}

void tst_Catalogues::oregonNamesInOrder()
{
    QStringList expected;
    for (const CodeRow &row : orCodes)
        expected.append(row.county);
    QCOMPARE(OrCountyNames(), expected);
    QCOMPARE(OrCountyNames().size(), 37);
}

void tst_Catalogues::oregonCodes_data()
{
    addCodes(orCodes);
}

void tst_Catalogues::oregonCodes()
{
    QFETCH(QString, code);
    QFETCH(QString, county);
    QCOMPARE(GetOrCountyCode(county), code);
    QCOMPARE(GetOrCountyName(code), code == u"HOO" ? u"Hood River"_s : county);
}

void tst_Catalogues::hoodIsHoodRiverWhenItComesBack()
{
    QVERIFY(OrCountyNames().contains(u"Hood"_s));
    QVERIFY(!OrCountyNames().contains(u"Hood River"_s));
    QCOMPARE(GetOrCountyCode(u"Hood"_s), u"HOO"_s);
    QCOMPARE(GetOrCountyCode(u"Hood River"_s), u"HOO"_s);
    QCOMPARE(GetOrCountyName(u"HOO"_s), u"Hood River"_s);
}

void tst_Catalogues::unknownOregonCountiesAreEmpty_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("of another state") << u"King"_s;
    QTest::newRow("the misspelling of the limits") << u"Multinomah"_s;
    QTest::newRow("a code that is none") << u"QQQ"_s;
}

void tst_Catalogues::unknownOregonCountiesAreEmpty()
{
    QFETCH(QString, text);
    QCOMPARE(GetOrCountyCode(text), QString());
    QCOMPARE(GetOrCountyName(text), QString());
}

void tst_Catalogues::oregonLimits()
{
    QCOMPARE(OrCountiesWithoutDistrictCourt(), u" Baker Gilliam Grant Harney Sherman Wheeler "_s);
    QCOMPARE(OrCountiesWithoutJuvenile(),
             u" Benton Crook Gilliam Harney City of Hermiston Jefferson Morrow Multinomah Sherman "
             "Washington Wheeler "_s);
}

void tst_Catalogues::multnomahIsNotLimited()
{
    QVERIFY(!OrCountiesWithoutJuvenile().contains(u" Multnomah "_s, Qt::CaseInsensitive));
    QVERIFY(OrCountiesWithoutJuvenile().contains(u" MORROW "_s, Qt::CaseInsensitive));
}

void tst_Catalogues::oregonCountyFromList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("county");
    QTest::newRow("in the middle") << u"Circuit Court Lane County"_s << u"Lane"_s;
    QTest::newRow("between blanks") << u" Lane "_s << u"Lane"_s;
    QTest::newRow("at the beginning is not found") << u"Lane County"_s << u""_s;
    QTest::newRow("at the end is not found") << u"Court of Lane"_s << u""_s;
    QTest::newRow("inside a word") << u"the Laneway road"_s << u""_s;
    QTest::newRow("the first of the list, not of the text") << u"x Yamhill Baker x"_s << u"Baker"_s;
    QTest::newRow("a name of several words")
        << u"in City of Hermiston today"_s << u"City of Hermiston"_s;
    QTest::newRow("none") << u"a b c"_s << u""_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void tst_Catalogues::oregonCountyFromList()
{
    QFETCH(QString, text);
    QFETCH(QString, county);
    LoadOrCounties();
    QCOMPARE(GetOrCountyFromList(text), county);
}

void tst_Catalogues::caseTypesOfACourt_data()
{
    QTest::addColumn<QString>("court");
    QTest::addColumn<QStringList>("types");
    QTest::newRow("Oregon") << u"OR"_s
                            << QStringList{u"Civil"_s,   u"Domestic"_s, u"Juvenile Offender"_s,
                                           u"Offense"_s, u"Probate"_s,  u"Small Claims"_s};
    QTest::newRow("Idaho") << u"IDSUP"_s << QStringList{u"Civil"_s, u"Criminal"_s, u"Juvenile"_s};
    QTest::newRow("district and municipal") << u"WADISCIS"_s << QStringList{u"NOT FOUND!!"_s};
    QTest::newRow("bankruptcy") << u"FED"_s << QStringList{u"NOT FOUND!!"_s};
    QTest::newRow("empty") << u""_s << QStringList{u"NOT FOUND!!"_s};
}

void tst_Catalogues::caseTypesOfACourt()
{
    QFETCH(QString, court);
    QFETCH(QStringList, types);
    QCOMPARE(CaseTypesOf(court), types);
}

void tst_Catalogues::washingtonCaseTypesAreTheLinesOfTheirFile()
{
    folder->Write(u"WaSCases.txt"_s, "Probate\r\nCivil\r\nJuvenile Offender\r\n");
    QCOMPARE(LoadWaCaseTypes(), 3);
    QCOMPARE(CaseTypesOf(u"WASUP"_s),
             (QStringList{u"Civil"_s, u"Juvenile Offender"_s, u"Probate"_s}));
    folder->Remove(u"WaSCases.txt"_s);
    QCOMPARE(LoadWaCaseTypes(), 0);
    QCOMPARE(CaseTypesOf(u"WASUP"_s), QStringList());
}

void tst_Catalogues::caseTypeFromNumber_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("type");
    const auto wa = [](const char *name, const QString &number, const QString &type) {
        QTest::newRow(name) << number << u"WASUP"_s << type;
    };
    wa("0 says nothing", u"02-0-02029-9"_s, u""_s);
    wa("1", u"02-1-02029-9"_s, u"Criminal"_s);
    wa("2", u"02-2-02029-9"_s, u"Civil"_s);
    wa("3", u"02-3-02029-9"_s, u"Domestic"_s);
    wa("4", u"02-4-02029-9"_s, u"Probate"_s);
    wa("5", u"02-5-02029-9"_s, u"Sealed"_s);
    wa("6", u"02-6-02029-9"_s, u"Sealed"_s);
    wa("7", u"02-7-02029-9"_s, u"Sealed"_s);
    wa("8", u"02-8-02029-9"_s, u"Juvenile Offender"_s);
    wa("9", u"02-9-02029-9"_s, u"Judgment"_s);
    wa("without dashes", u"022020299"_s, u"Civil"_s);
    wa("blanks around", u"  02-2-02029-9 "_s, u"Civil"_s);
    wa("a letter", u"02-A-02029-9"_s, u""_s);
    wa("too short", u"02-"_s, u""_s);
    wa("empty", u""_s, u""_s);
    QTest::newRow("any court of Washington") << u"021"_s << u"WA"_s << u"Criminal"_s;
    const auto idaho = [](const char *name, const QString &number, const QString &type) {
        QTest::newRow(name) << number << u"IDSUP"_s << type;
    };
    idaho("CR-", u"CR-2002-1"_s, u"Criminal"_s);
    idaho("CV-", u"CV-2002-1"_s, u"Civil"_s);
    idaho("JV-", u"JV-2002-1"_s, u"Juvenile"_s);
    idaho("Idaho in lower case", u" cr-2002-1"_s, u"Criminal"_s);
    idaho("Idaho without the dash", u"CR2002"_s, u""_s);
    idaho("Idaho not at the beginning", u"XCR-2"_s, u""_s);
    QTest::newRow("Oregon says nothing") << u"CV-021"_s << u"OR"_s << u""_s;
    QTest::newRow("no court") << u"02-2-1"_s << u""_s << u""_s;
}

void tst_Catalogues::caseTypeFromNumber()
{
    QFETCH(QString, number);
    QFETCH(QString, court);
    QFETCH(QString, type);
    QCOMPARE(GetCaseTypeFromNumber(number, court), type);
}

void tst_Catalogues::bankruptcyCourts()
{
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s})
        QVERIFY2(IsBankruptcyCourt(state), qPrintable(state));
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u""_s, u"BK"_s, u"orbk"_s, u"ORBK "_s})
        QVERIFY2(!IsBankruptcyCourt(state), qPrintable(state));
}

void tst_Catalogues::stopRequests_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("ofCase");
    const auto row = [](const QString &state, const QString &search, const QString &ofCase) {
        QTest::addRow("state %s", qPrintable(state)) << state << search << ofCase;
    };
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, QString(), u"wawbk"_s})
        row(state, u"STOP¦"_s, u"¦STOP"_s);
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"ORBK"_s})
        row(state, u"BKRPT~STOP~"_s, u"BKRPT~STOP~"_s);
    row(u"IDBK"_s, u"STOP¦"_s, u"BKRPT~STOP~"_s);
}

void tst_Catalogues::stopRequests()
{
    QFETCH(QString, state);
    QTEST(SearchStopOf(state), "search");
    QTEST(CaseStopOf(state), "ofCase");
}

void tst_Catalogues::countyCount_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("count");
    QTest::newRow("wa") << u"wa"_s << 39;
    QTest::newRow("WA") << u"WA"_s << 39;
    QTest::newRow("Wa.") << u"Wa."_s << 39;
    QTest::newRow("OR") << u"OR"_s << 0;
    QTest::newRow("empty") << u""_s << 0;
}

void tst_Catalogues::countyCount()
{
    QFETCH(QString, state);
    QFETCH(int, count);
    QStringList boxes;
    SetErrorBox([&](const QString &text) { boxes.append(text); });
    QCOMPARE(GetCountyCount(state), count);
    SetErrorBox({});
    QCOMPARE(boxes, QStringList());
}

void tst_Catalogues::aCountThatFindsNothingShowsABox()
{
    folder->Remove(u"wactylst.txt"_s);
    QStringList boxes;
    SetErrorBox([&](const QString &text) { boxes.append(text); });
    QCOMPARE(GetCountyCount(u"WA"_s), 0);
    SetErrorBox({});
    QCOMPARE(boxes, QStringList{u"Error Loading WA Counties From File."_s});
}

void tst_Catalogues::aCourtReadsAsItsNameAndCode()
{
    clsDiscisCourts court;
    court.CourtName = u"Othello District"_s;
    court.CourtCode = u"OTD"_s;
    QCOMPARE(court.ListText(), u"Othello District (OTD)"_s);
}

void tst_Catalogues::aCodeThatComesTwiceEndsTheCatalogue()
{
    folder->Write(u"wadisciscts.txt"_s, "1,Adams,OTD,Othello,Othello District\r\n"
                                        "2,Adams,RID,Ritzville,Ritzville District\r\n"
                                        "3,King,OTD,Bellevue,King County District\r\n"
                                        "4,Asotin,ASD,Asotin,Asotin District\r\n");
    QCOMPARE(LoadDiscisCourts(), 2);
    QCOMPARE(DiscisCourts().size(), 2);
    QVERIFY(DiscisCourtByCode(u"OTD"_s));
    QCOMPARE(DiscisCourtByCode(u"OTD"_s)->CourtCounty, u"Adams"_s);
    QVERIFY(DiscisCourtByCode(u"RID"_s));
    QVERIFY(!DiscisCourtByCode(u"ASD"_s));
    QVERIFY(folder->Logged(
        u"Error in LoadDiscisCourts() after 2 courts: Two courts have the code OTD"_s));
}

void tst_Catalogues::installedListsAreWhole()
{
    QCOMPARE(LoadWaCounties(), 39);
    QCOMPARE(WaCountyList(), WaCountyNames());
    QCOMPARE(LoadOrCounties(), 37);
    QCOMPARE(OrCountyList(), OrCountyNames());
    QCOMPARE(LoadIdCounties(), 44);
    QCOMPARE(IdCountyList().size(), 44);
    QVERIFY(LoadWaCaseTypes() > 0);
    QCOMPARE(LoadDiscisCourts(), 173);
    QCOMPARE(discisCourtsShown, 173);
    QSet<QString> codes;
    for (const clsDiscisCourts &court : DiscisCourts()) {
        QCOMPARE(court.CourtCode.size(), 3);
        QVERIFY2(WaCountyNames().contains(court.CourtCounty), qPrintable(court.CourtCounty));
        codes.insert(court.CourtCode);
    }
    QCOMPARE(codes.size(), 173);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Catalogues::installedCountyCodesHaveTwoDigits()
{
    CSetting codes;
    codes.Init(u"waCtyCds.ini"_s, true);
    const QRegularExpression twoDigits(u"^\\d\\d$"_s);
    QSet<QString> seen;
    for (const QString &county : WaCountyNames()) {
        const QString code = codes.GetSettingStr(u"Cty2Code"_s, county, u"0"_s);
        QVERIFY2(twoDigits.match(code).hasMatch(), qPrintable(county + u' ' + code));
        seen.insert(code);
    }
    QCOMPARE(seen.size(), 39);
    QCOMPARE(codes.GetSettingStr(u"Cty2Code"_s, u"Nowhere"_s, u"0"_s), u"0"_s);
}

HALVANE_TEST(tst_Catalogues)
#include "tst_Catalogues.moc"
