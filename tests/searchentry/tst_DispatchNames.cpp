#include "core/GlobalState.h"
#include "core/Options.h"
#include "courts/Counties.h"
#include "namesearch/SearchCriteria.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QListWidget>
#include <QRegularExpression>
#include <QTest>

namespace {
const QStringList acme{u"click optSearchType_1"_s, u"type txtSearchName_0 Acme Inc"_s};
const QStringList years{u"click optSearchYears_1"_s, u"choose cboxSearchStartYear 1990"_s,
                        u"choose cboxSearchEndYear 2002"_s};
const QStringList useIndex{u"click chkUseIndex"_s};
const QStringList oregon{u"click optState_0"_s};
const QStringList district{u"click optState_0"_s, u"click optOrCDcourts_1"_s};
const QStringList idaho{u"click optState_3"_s};
const QStringList statewide{u"click optSearchWhere_2"_s};

QStringList ticks(const QString &list, const QStringList &items)
{
    QStringList steps;
    for (const QString &item : items)
        steps.append(u"tick "_s + list + u' ' + item);
    return steps;
}

QStringList counties(const QStringList &names)
{
    return ticks(u"lboxCountyOrProfile"_s, names);
}

QStringList types(const QStringList &words)
{
    return ticks(u"lboxCaseTypes"_s, words);
}

/// What a results window is handed: its state, its title, its flags and its lines. It shows at once
/// what they ask for.
QStringList results(const QString &state, const QString &title, const QStringList &flags,
                    const QStringList &lines)
{
    const bool index = flags.contains(u"chkIndexSearch"_s);
    const SearchCriteria shown = CriteriaOf(lines.first(), {state, index, title});
    QStringList handed{u"frmNameSearchResults"_s,
                       u"caption "_s + shown.Caption,
                       u"lblState "_s + state,
                       u"lblNameVal "_s + shown.Name,
                       u"lblCaseTypeVals "_s + shown.CaseTypes,
                       u"txtCountyList "_s + title,
                       u"lblName Name:"_s};
    handed += flags;
    for (const QString &line : lines)
        handed.append(u"line "_s + line);
    return handed;
}
} // namespace

/// Name searches of the state courts: from the clicks on the form to the window and to the wire.
class tst_DispatchNames : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void theWindowIsHanded_data();
    void theWindowIsHanded();
    void onTheWire_data();
    void onTheWire();

    void aSuffixSendsTheSameLine();
    void statewideSuperiorGivesThirtyNineLines();
    void statewideIndexGivesOneLine();
    void statewideOregonGivesOneLineWithoutACourtLetter_data();
    void statewideOregonGivesOneLineWithoutACourtLetter();
    void theIndexPageIsAsLongAsTheSettingSays();
    void anOregonDistrictSearchOfBakerAloneYieldsNoLine();
    void anOregonSearchOfBentonSendsCivilAlone();
    void juvenileStaysForMultnomah();
    void juvenileAloneInBentonYieldsNoLine();
    void theSurnameJuddGoesOutAsDdInCrook();
    void countiesWithoutDistrictCourtAreSkipped();
    void aRefusedWarningStartsNothing();
    void idahoSaysCountiesOnlyForSeveral();
    void aTemplateIsSearchedByItsCounties();
    void keysStandInTheOrderOfTheClicks();
    void oregonTakesTheIndexMarkAway();
    void windowsThatWaitHaveNamesOfTheirOwn();
};

void tst_DispatchNames::init()
{
    EntryTest::init();
    desk->Desk.Time.Set(QDateTime({2005, 6, 15}, {10, 0, 0}));
}

void tst_DispatchNames::theWindowIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("handed");
    const QString king = u"King County - Washington Superior Courts"_s;
    const QStringList two = types({u"Civil"_s, u"Criminal"_s});
    const QStringList civil = types({u"Civil"_s});
    const QStringList kingOnly = counties({u"King"_s});
    QTest::newRow("Superior, a person, two types, a range of years")
        << smithJohnQ + kingOnly + two + years
        << results(u"WA"_s, king, {},
                   {u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦1990¦2002¦"_s});
    QTest::newRow("Superior, a person, all years")
        << smithJohnQ + kingOnly + two
        << results(u"WA"_s, king, {}, {u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"_s});
    QTest::newRow("Superior, a business has its name in the last name's place")
        << acme + kingOnly + civil
        << results(u"WA"_s, king, {}, {u"WASUP¦SEARCH¦ACME INC¦¦¦¦King,¦Civil,¦¦¦"_s});
    QTest::newRow("Superior, several counties, a line each in list order")
        << smithJohnQ + counties({u"Yakima"_s, u"Adams"_s}) + civil
        << results(u"WA"_s, u"Adams, Yakima County - Washington Superior Courts"_s, {},
                   {u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Adams,¦Civil,¦¦¦"_s,
                    u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Yakima,¦Civil,¦¦¦"_s});
    QTest::newRow("Index, two counties, all years")
        << useIndex + smithJohnQ + counties({u"Adams"_s, u"King"_s}) + types({u"Criminal"_s})
        << results(u"WA"_s, u"Adams, King County - Washington Superior Courts"_s,
                   {u"chkIndexSearch"_s},
                   {u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=1~UL=500~"_s});
    QTest::newRow("Index, a range of years")
        << useIndex + smithJohnQ + kingOnly + two + years
        << results(u"WA"_s, king, {u"chkIndexSearch"_s},
                   {u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,Criminal,~1990~2002~LL=1~UL=500~"_s});
    QTest::newRow("Index, a business")
        << useIndex + acme + kingOnly + civil
        << results(u"WA"_s, king, {u"chkIndexSearch"_s},
                   {u"INDEX~SEARCH~ACME INC~~~~King,~Civil,~1970~2005~LL=1~UL=500~"_s});
    QTest::newRow("Oregon Circuit, a person, a range of years")
        << oregon + smithJohnQ + counties({u"Baker"_s}) + types({u"Civil"_s, u"Domestic"_s}) + years
        << results(u"OR"_s, u"Baker County - Oregon Circuit Courts"_s, {},
                   {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BAK C¦CV,DO,¦1990¦2002¦"_s});
    QTest::newRow("Oregon Circuit, every case type")
        << oregon + smithJohnQ + counties({u"Lane"_s}) + QStringList{u"click cmdSelAll"_s}
        << results(u"OR"_s, u"Lane County - Oregon Circuit Courts"_s, {},
                   {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN C¦CV,DO,JU,OF,PB,SC,¦¦¦"_s});
    QTest::newRow("Oregon Circuit, a business in two counties")
        << oregon + acme + counties({u"Lane"_s, u"Linn"_s}) + civil
        << results(u"OR"_s, u"Lane, Linn County - Oregon Circuit Courts"_s, {},
                   {u"OREGON¦SEARCH¦ACME INC¦¦¦¦LAN C¦CV,¦¦¦"_s,
                    u"OREGON¦SEARCH¦ACME INC¦¦¦¦LIN C¦CV,¦¦¦"_s});
    QTest::newRow("Oregon District")
        << district + smithJohnQ + counties({u"Lane"_s}) + civil
        << results(u"OR"_s, u"Lane County - Oregon District Courts"_s, {},
                   {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN D¦CV,¦¦¦"_s});
    QTest::newRow("Oregon, judgments only")
        << oregon + smithJohnQ + counties({u"Lane"_s}) + QStringList{u"click optORjgmtsONLY"_s}
        << results(u"OR"_s, u"Lane County - Oregon Circuit Courts"_s, {u"ORchkboxJGMcasetype"_s},
                   {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN C¦JG,¦¦¦"_s});
    QTest::newRow("Oregon, a case type with judgments")
        << oregon + smithJohnQ + counties({u"Lane"_s}) + civil
               + QStringList{u"click optORjgmtsONLY"_s}
        << results(u"OR"_s, u"Lane County - Oregon Circuit Courts"_s, {u"ORchkboxJGMcasetype"_s},
                   {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN C¦CV,JG,¦¦¦"_s});
    QTest::newRow("Idaho, one county")
        << idaho + smithJohnQ + counties({u"Ada"_s}) + two
        << results(u"ID"_s, u"Ada County - Idaho District Courts"_s, {},
                   {u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Ada,¦CV,CR,¦¦¦"_s});
    QTest::newRow("Idaho, a business, a range of years")
        << idaho + acme + counties({u"Bear Lake"_s}) + types({u"Juvenile"_s}) + years
        << results(u"ID"_s, u"Bear Lake County - Idaho District Courts"_s, {},
                   {u"IDSUP¦SEARCH¦ACME INC¦¦¦¦Bear Lake,¦JU,¦1990¦2002¦"_s});
    QTest::newRow("Idaho statewide")
        << idaho + smithJohnQ + statewide + two
        << results(u"ID"_s, u"Statewide (All Counties) - Idaho District Courts"_s,
                   {u"IdStatewide"_s}, {u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,CR,¦¦¦"_s});
}

void tst_DispatchNames::theWindowIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QCOMPARE(Handed(window), handed);
    QVERIFY(window->isVisible());
    QCOMPARE(TextOf(window, "txtCountyList"), window->txtCountyList());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
    // Nothing has changed on the form: the same search could be started at once.
    QVERIFY(desk->Form()->isVisible());
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()), handed);
}

void tst_DispatchNames::onTheWire_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("requests");
    const QStringList civil = types({u"Civil"_s});
    QTest::newRow("Superior, two counties")
        << smithJohnQ + counties({u"King"_s, u"Adams"_s}) + civil
        << QStringList{u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Adams,¦Civil,¦¦^^CAC:ABC^^¦"_s,
                       u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦^^CAC:ABC^^¦"_s};
    QTest::newRow("Superior, a range of years")
        << acme + counties({u"King"_s}) + civil + years
        << QStringList{u"WASUP¦SEARCH¦ACME INC¦¦¦¦King,¦Civil,¦1990¦2002^^CAC:ABC^^¦"_s};
    QTest::newRow("Index") << useIndex + smithJohnQ + counties({u"Adams"_s, u"King"_s}) + civil
                           << QStringList{u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Civil,~1970~"
                                          "2005~LL=1~UL=500^^CAC:ABC^^~"_s};
    QTest::newRow("Oregon") << oregon + smithJohnQ + counties({u"Baker"_s}) + civil
                            << QStringList{
                                   u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BAK C¦CV,¦¦^^CAC:ABC^^¦"_s};
    QTest::newRow("Idaho statewide")
        << idaho + smithJohnQ + statewide + civil
        << QStringList{u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,¦¦^^CAC:ABC^^¦"_s};
}

void tst_DispatchNames::onTheWire()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, requests);
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    SearchWithCode(steps, requests);
}

void tst_DispatchNames::aSuffixSendsTheSameLine()
{
    desk->Do(smithJohnQ + counties({u"King"_s}) + types({u"Civil"_s}));
    const auto *without = desk->StartOne<frmNameSearchResults>();
    desk->Do({u"type txtSearchName_3 Jr."_s});
    const auto *with = desk->StartOne<frmNameSearchResults>();
    QVERIFY(without && with);
    QCOMPARE(with->lboxQueue.List(0), u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s);
    QCOMPARE(with->lboxQueue.Lines(), without->lboxQueue.Lines());
    QCOMPARE(desk->Text("txtSearchName_3"), u"Jr."_s);
}

void tst_DispatchNames::statewideSuperiorGivesThirtyNineLines()
{
    desk->Do(smithJohnQ + statewide + types({u"Civil"_s}));
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QStringList lines;
    const QStringList all = WaCountyNames();
    for (const QString &county : all)
        lines.append(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦"_s + county + u",¦Civil,¦¦¦"_s);
    QCOMPARE(lines.size(), 39);
    QCOMPARE(
        Handed(window),
        results(u"WA"_s, u"Statewide (All Counties) - Washington Superior Courts"_s, {}, lines));
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
}

void tst_DispatchNames::statewideIndexGivesOneLine()
{
    desk->Do(useIndex + smithJohnQ + statewide + types({u"Civil"_s}));
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QCOMPARE(Handed(window),
             results(u"WA"_s, u"Statewide (All Counties) - Washington Superior Courts"_s,
                     {u"chkIndexSearch"_s},
                     {u"INDEX~SEARCH~SMITH~JOHN~Q~~"_s + WaCountyNames().join(u',')
                      + u",~Civil,~1970~2005~LL=1~UL=500~"_s}));
}

void tst_DispatchNames::statewideOregonGivesOneLineWithoutACourtLetter_data()
{
    QTest::addColumn<QStringList>("court");
    QTest::addColumn<QString>("title");
    QTest::newRow("Circuit") << oregon << u"Statewide (All Counties) - Oregon Circuit Courts"_s;
    QTest::newRow("District") << district << u"Statewide (All Counties) - Oregon District Courts"_s;
}

void tst_DispatchNames::statewideOregonGivesOneLineWithoutACourtLetter()
{
    QFETCH(QStringList, court);
    QFETCH(QString, title);
    desk->Do(court + smithJohnQ + statewide + types({u"Civil"_s}));
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()),
             results(u"OR"_s, title, {u"OrStatewide"_s},
                     {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,¦¦¦"_s}));
}

void tst_DispatchNames::theIndexPageIsAsLongAsTheSettingSays()
{
    Global.CasesPerPage = 75;
    desk->Do(useIndex + smithJohnQ + counties({u"King"_s}) + types({u"Civil"_s}));
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QVERIFY(window->lboxQueue.List(0).endsWith(u"~LL=1~UL=75~"));
    QCOMPARE(desk->Control("cmdBeginSearch")->isEnabled(), true);
}

namespace {
const QString noDistrict =
    u"One or more of the Counties you selected does not support District Court searches. The "
    "following counties Do NOT have District Court support.\r\n\r\nBaker, Gilliam, Grant, Harney, "
    "Sherman, and Wheeler.\r\n\r\nSelect Yes to continue with the currrent search criteria "
    "(skipping counties without District Court).  Select No to refine the search criteria "
    "entered.\r\n\r\nContinue?"_s;
const QString noDistrictTitle = u"Warning - No District Court Support .."_s;
const QString noJuvenile =
    u"One or more of the Counties you selected does not support Juvenile Offender Searches. The "
    "following counties Do NOT support Juvenile Offender Searches.\r\n\r\nBenton, Crook, Gilliam, "
    "Harney, City of Hermiston, Jefferson, Morrow, Multinomah (civil), Sherman, Washington, and "
    "Wheeler.\r\n\r\nSelect Yes to continue with the currrent search criteria (skipping counties "
    "without Juvenile Offender Support).  Select No to refine the search criteria "
    "entered.\r\n\r\nContinue?"_s;
const QString noJuvenileTitle = u"Warning - No Juvenile Offender Support .."_s;
const QStringList civilAndJuvenile{u"Civil"_s, u"Juvenile Offender"_s};
} // namespace

void tst_DispatchNames::anOregonDistrictSearchOfBakerAloneYieldsNoLine()
{
    desk->Do(district + smithJohnQ + counties({u"Baker"_s}) + types({u"Civil"_s}));
    desk->Desk.Boxes.Expect(noDistrict, noDistrictTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    desk->Desk.Boxes.Expect(noRequests, noRequestsTitle, MsgIcon::Critical);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Text("txtSearchName_0"), u"SMITH"_s);
    // It is the county that is at fault: with another one the search starts.
    desk->Do(counties({u"Baker"_s, u"Lane"_s}));
    QVERIFY(desk->StartOne<frmNameSearchResults>());
}

void tst_DispatchNames::anOregonSearchOfBentonSendsCivilAlone()
{
    desk->Do(oregon + smithJohnQ + counties({u"Benton"_s, u"Lane"_s}) + types(civilAndJuvenile));
    desk->Desk.Boxes.Expect(noJuvenile, noJuvenileTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()),
             results(u"OR"_s, u"Benton, Lane County - Oregon Circuit Courts"_s, {},
                     {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BEN C¦CV,¦¦¦"_s,
                      u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN C¦CV,JU,¦¦¦"_s}));
}

void tst_DispatchNames::juvenileStaysForMultnomah()
{
    desk->Do(oregon + smithJohnQ + counties({u"Multnomah"_s}) + types(civilAndJuvenile));
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()),
             results(u"OR"_s, u"Multnomah County - Oregon Circuit Courts"_s, {},
                     {u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,JU,¦¦¦"_s}));
}

void tst_DispatchNames::juvenileAloneInBentonYieldsNoLine()
{
    desk->Do(oregon + smithJohnQ + counties({u"Benton"_s}) + types({u"Juvenile Offender"_s}));
    desk->Desk.Boxes.Expect(noJuvenile, noJuvenileTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    desk->Desk.Boxes.Expect(noRequests, noRequestsTitle, MsgIcon::Critical);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

void tst_DispatchNames::theSurnameJuddGoesOutAsDdInCrook()
{
    desk->Do(oregon + counties({u"Crook"_s}) + types(civilAndJuvenile)
             + QStringList{u"type txtSearchName_0 Judd"_s});
    desk->Desk.Boxes.Expect(noJuvenile, noJuvenileTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.List(0), u"OREGON¦SEARCH¦DD¦¦¦¦CRO C¦CV,¦¦¦"_s);
    QCOMPARE(desk->Text("txtSearchName_0"), u"JUDD"_s);
    QCOMPARE(desk->ItemsOf("cboxLastBizOrCase"), QStringList{u"JUDD"_s});
}

void tst_DispatchNames::countiesWithoutDistrictCourtAreSkipped()
{
    desk->Do(district + smithJohnQ + QStringList{u"click cmdCheckAll"_s} + types({u"Civil"_s}));
    desk->Desk.Boxes.Expect(noDistrict, noDistrictTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.ListCount(), 37 - 6);
    QCOMPARE(window->lboxQueue.List(0), u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦BEN D¦CV,¦¦¦"_s);
    QVERIFY(window->txtCountyList().startsWith(u"Baker, Benton, "));
}

void tst_DispatchNames::aRefusedWarningStartsNothing()
{
    desk->Do(oregon + smithJohnQ + counties({u"Benton"_s}) + types(civilAndJuvenile));
    desk->Desk.Boxes.Expect(noJuvenile, noJuvenileTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QVERIFY(desk->Form()->isVisible());
}

void tst_DispatchNames::idahoSaysCountiesOnlyForSeveral()
{
    desk->Do(idaho + smithJohnQ + counties({u"Ada"_s, u"Bear Lake"_s}) + types({u"Civil"_s}));
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()),
             results(u"ID"_s, u"Ada, Bear Lake Counties - Idaho District Courts"_s, {},
                     {u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Ada,¦CV,¦¦¦"_s,
                      u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Bear Lake,¦CV,¦¦¦"_s}));
    desk->Do(counties({u"Bear Lake"_s}));
    QCOMPARE(desk->StartOne<frmNameSearchResults>()->txtCountyList(),
             u"Ada County - Idaho District Courts"_s);
}

void tst_DispatchNames::aTemplateIsSearchedByItsCounties()
{
    desk->Desk.Folder.Write(u"templates.ini"_s,
                            "[WaSup]\r\na=Sound\r\n[Sound]\r\nJuris=King,Nowhere,Island\r\n"
                            "Cases=Civil,Judgment\r\n");
    desk->Do(smithJohnQ
             + QStringList{u"click optSearchWhere_1"_s, u"tick lboxSearchProfiles Sound"_s});
    const auto *list = qobject_cast<QListWidget *>(desk->Control("lboxSearchProfiles"));
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       list->visualItemRect(list->item(0)).center());
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(2));
    QCOMPARE(Handed(desk->StartOne<frmNameSearchResults>()),
             results(u"WA"_s, u"Island, King County - Washington Superior Courts"_s, {},
                     {u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Island,¦Civil,Judgment,¦¦¦"_s,
                      u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Judgment,¦¦¦"_s}));
}

void tst_DispatchNames::keysStandInTheOrderOfTheClicks()
{
    desk->Do(smithJohnQ + counties({u"King"_s}) + types({u"Civil"_s}));
    const auto *first = desk->StartOne<frmNameSearchResults>();
    desk->Do(idaho + smithJohnQ + statewide + types({u"Civil"_s}));
    const auto *second = desk->StartOne<frmNameSearchResults>();
    QVERIFY(first && second);
    QCOMPARE(Keys(), (QStringList{first->txtMasterKey, second->txtMasterKey}));
    QVERIFY(first->txtMasterKey != second->txtMasterKey);
    static const QRegularExpression twentyDigits(u"^[0-9]{20}$"_s);
    for (const QString &key : {first->txtMasterKey, second->txtMasterKey})
        QVERIFY2(twentyDigits.match(key).hasMatch(), qPrintable(key));
}

void tst_DispatchNames::oregonTakesTheIndexMarkAway()
{
    desk->Do(useIndex + oregon + smithJohnQ + counties({u"Lane"_s}) + types({u"Civil"_s}));
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QVERIFY(!window->chkIndexSearch);
    QCOMPARE(window->lboxQueue.List(0), u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦LAN C¦CV,¦¦¦"_s);
}

/// What a window asks for can be read before it has had a turn, or even asked for one.
void tst_DispatchNames::windowsThatWaitHaveNamesOfTheirOwn()
{
    desk->Do(smithJohnQ + counties({u"King"_s}) + types({u"Civil"_s}));
    const auto *king = desk->StartOne<frmNameSearchResults>();
    desk->Do(oregon + acme + counties({u"Lane"_s}) + types({u"Civil"_s}));
    const auto *lane = desk->StartOne<frmNameSearchResults>();
    QVERIFY(king && lane);
    QCOMPARE(king->windowTitle(), u"SMITH, JOHN, Q in King County, Washington Superior Courts"_s);
    QCOMPARE(lane->windowTitle(), u"ACME INC in Lane County, Oregon Circuit/District Courts"_s);
    QCOMPARE(TextOf(lane, "lblNameVal"), u"ACME INC"_s);
    QCOMPARE(TextOf(lane, "lblCaseTypeVals"), u"Civil"_s);
    QCOMPARE(TextOf(lane, "lblStatus"), u"Pending .."_s);
    QCOMPARE(AnswersInShort(lane->Search().Record.Courts), u"Lane - Circuit Court: Waiting"_s);
}

HALVANE_TEST(tst_DispatchNames)
#include "tst_DispatchNames.moc"
