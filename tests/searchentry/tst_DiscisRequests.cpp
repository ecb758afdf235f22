#include "courts/DiscisCourts.h"
#include "searchentry/DiscisRequests.h"
#include "searchentry/Entries.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString logText = u"Error Loading Discis Name Search Strings into Form's queue. Exiting "
                        "Function False."_s;
const QString numberLogText = u"Error Loading Discis Case Number Search Strings into Form's "
                              "queue. Exiting Function False."_s;
const QString statewideItem = u"Statewide (all counties/jurisdictions)"_s;
const QString defendantsItem = u"Statewide Defendant Name Search with Addresses"_s;

SearchEntry smith(SearchScope where)
{
    SearchEntry entry = SmithIn(CourtFamily::Discis);
    entry.Where = where;
    return entry;
}

SearchEntry inCounty(SearchScope where, const QString &county, const QStringList &items)
{
    SearchEntry entry = smith(where);
    entry.DiscisCountyIndex = 2;
    entry.DiscisCounty = county;
    entry.DiscisItems = items;
    entry.DiscisSelected = items;
    return entry;
}

SearchEntry statewide(SearchScope where, int index, const QString &item)
{
    SearchEntry entry = inCounty(where, u"-- ALL COUNTIES/STATEWIDE --"_s, {item});
    entry.DiscisCountyIndex = index;
    return entry;
}

DiscisRequests requests(const SearchEntry &entry)
{
    return DiscisNameRequests(entry, {});
}
} // namespace

class tst_DiscisRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void statewideNonCivil_data();
    void statewideNonCivil();
    void nonCivilInACounty();
    void civilInACounty();
    void theFirstCountyIsNotTheWholeState();
    void theCivilExample();
    void everyCourtInCatalogueOrder();
    void civilStatewideNeedsItsOneItem_data();
    void civilStatewideNeedsItsOneItem();
    void civilGoesByTheItemNotByTheIndex();
    void onlySelectedCourtsAreSearched();
    void aNameThatOccursTwiceGivesALineForEachCode();
    void aCourtThatIsNotInTheCatalogueGivesNoLine();
    void neitherCivilNorNonCivil_data();
    void neitherCivilNorNonCivil();
    void theShownName();
    void aBusiness();
    void theEventLoopGetsATurnAfterEachCourt();
    void aCatalogueReadAnewDuringATurnDoesNotMatter();
    void dndSearch_data();
    void dndSearch();
    void numberFields_data();
    void numberFields();
    void aNumberWithNeitherCivilNorNonCivil();
    void aNumberNeedsACourt_data();
    void aNumberNeedsACourt();
    void courtNameAndCodeOfAnItem_data();
    void courtNameAndCodeOfAnItem();
    void everyCatalogueItemGivesItsNameAndCode();
    void whateverIsEnteredEveryLineHasItsFields();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_DiscisRequests::init()
{
    folder = std::make_unique<TestFolder>();
    QCOMPARE(LoadDiscisCourts(), 173);
}

void tst_DiscisRequests::cleanup()
{
    folder.reset();
}

void tst_DiscisRequests::statewideNonCivil_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("title");
    QTest::newRow("all counties") << 0 << statewideItem << u"SNCI"_s
                                  << u"Statewide - All Counties"_s;
    QTest::newRow("defendants with addresses")
        << 1 << defendantsItem << u"DND"_s
        << u"Statewide - All Counties - Defendants and Addresses"_s;
    QTest::newRow("the item decides, not the index")
        << 1 << statewideItem << u"SNCI"_s << u"Statewide - All Counties"_s;
}

void tst_DiscisRequests::statewideNonCivil()
{
    QFETCH(int, index);
    QFETCH(QString, item);
    QFETCH(QString, end);
    QFETCH(QString, title);
    const DiscisRequests made = requests(statewide(SearchScope::DiscisNonCivil, index, item));
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines, QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦"_s + end + u'¦'});
    QCOMPARE(made.CourtCounty, title);
    QCOMPARE(made.CaseTypeVals, QString());
    QCOMPARE(made.CountyList, QString());
    QCOMPARE(made.NameVal, u"SMITH, JOHN Q"_s);
}

void tst_DiscisRequests::nonCivilInACounty()
{
    const DiscisRequests made =
        requests(inCounty(SearchScope::DiscisNonCivil, u"Adams"_s,
                          {u"Othello District (OTD)"_s, u"Ritzville District (RID)"_s}));
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines, (QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦IN¦CNCI¦"_s,
                                      u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦RID¦IN¦CNCI¦"_s}));
    QCOMPARE(made.CourtCounty, u"Adams District/Municipal Courts"_s);
    QCOMPARE(made.CaseTypeVals, QString());
    QCOMPARE(made.CountyList, u"Othello District (OTD), Ritzville District (RID)"_s);
}

void tst_DiscisRequests::civilInACounty()
{
    SearchEntry entry = inCounty(SearchScope::DiscisCivil, u"Asotin"_s,
                                 {u"Asotin District (ASD)"_s, u"Clarkston (Municipal) (CLA)"_s});
    // The list has no defendants' entry for civil cases: the first county has index 1.
    entry.DiscisCountyIndex = 1;
    const DiscisRequests made = requests(entry);
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines, (QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦ASD¦CV¦CNCI¦"_s,
                                      u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦CLA¦CV¦CNCI¦"_s}));
    QCOMPARE(made.CourtCounty, u"Asotin District/Municipal Courts"_s);
    QCOMPARE(made.CaseTypeVals, u"CIVIL"_s);
    QCOMPARE(made.CountyList, u"Asotin District (ASD), Clarkston (Municipal) (CLA)"_s);
}

void tst_DiscisRequests::theFirstCountyIsNotTheWholeState()
{
    // Even where a court of it were called so.
    const DiscisRequests made = requests(statewide(SearchScope::DiscisNonCivil, 2, statewideItem));
    QVERIFY(!made.Lines.join(u' ').contains(u"*SW"_s));
}

void tst_DiscisRequests::theCivilExample()
{
    folder->Write(u"wadisciscts.txt"_s, "1,King,AAA,Seattle,Example District\r\n");
    QCOMPARE(LoadDiscisCourts(), 1);
    QCOMPARE(requests(inCounty(SearchScope::DiscisCivil, u"King"_s, {u"Example District (AAA)"_s}))
                 .Lines,
             QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦AAA¦CV¦CNCI¦"_s});
}

void tst_DiscisRequests::everyCourtInCatalogueOrder()
{
    const DiscisRequests made = requests(statewide(SearchScope::DiscisCivil, 0, statewideItem));
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines.size(), 173);
    QStringList names;
    for (int i = 0; i < 173; ++i) {
        const clsDiscisCourts &court = DiscisCourts().at(i);
        QCOMPARE(made.Lines.at(i),
                 u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦"_s + court.CourtCode + u"¦CV¦CNCI¦"_s);
        names.append(court.CourtName + u" ("_s + court.CourtCode + u')');
    }
    QCOMPARE(made.CourtCounty, u"Statewide - All Courts / 173 Jurisdictions"_s);
    QCOMPARE(made.CountyList, names.join(u", "_s));
}

void tst_DiscisRequests::civilStatewideNeedsItsOneItem_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("lines");
    QTest::newRow("the one item") << QStringList{statewideItem} << 173;
    QTest::newRow("in any case of letters") << QStringList{u"STATEWIDE"_s} << 173;
    QTest::newRow("inside another text") << QStringList{u"the Statewide list"_s} << 173;
    QTest::newRow("one of two") << QStringList{statewideItem, u"Othello District (OTD)"_s} << 1;
    QTest::newRow("a court") << QStringList{u"Othello District (OTD)"_s} << 1;
    QTest::newRow("none") << QStringList() << 0;
}

void tst_DiscisRequests::civilStatewideNeedsItsOneItem()
{
    QFETCH(QStringList, items);
    QFETCH(int, lines);
    const DiscisRequests made = requests(inCounty(SearchScope::DiscisCivil, u"Adams"_s, items));
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines.size(), lines);
    QCOMPARE(made.CourtCounty, lines == 173 ? u"Statewide - All Courts / 173 Jurisdictions"_s
                                            : u"Adams District/Municipal Courts"_s);
    QVERIFY(!made.CountyList.endsWith(u','));
}

void tst_DiscisRequests::civilGoesByTheItemNotByTheIndex()
{
    SearchEntry entry =
        inCounty(SearchScope::DiscisCivil, u"Adams"_s, {u"Othello District (OTD)"_s});
    for (const int index : {-1, 0, 1, 2}) {
        entry.DiscisCountyIndex = index;
        QCOMPARE(requests(entry).Lines,
                 QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI¦"_s});
    }
}

void tst_DiscisRequests::onlySelectedCourtsAreSearched()
{
    SearchEntry entry = inCounty(SearchScope::DiscisNonCivil, u"Adams"_s,
                                 {u"Othello District (OTD)"_s, u"Ritzville District (RID)"_s});
    entry.DiscisSelected = {u"Ritzville District (RID)"_s};
    const DiscisRequests made = requests(entry);
    QCOMPARE(made.Lines, QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦RID¦IN¦CNCI¦"_s});
    QCOMPARE(made.CountyList, u"Ritzville District (RID)"_s);
}

void tst_DiscisRequests::aNameThatOccursTwiceGivesALineForEachCode()
{
    folder->Write(u"wadisciscts.txt"_s, "1,King,AAA,Seattle,Twin Court\r\n"
                                        "2,King,BBB,Seattle,Other Court\r\n"
                                        "3,Pierce,CCC,Tacoma,Twin Court\r\n");
    QCOMPARE(LoadDiscisCourts(), 3);
    const QString head = u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦"_s;
    const DiscisRequests one =
        requests(inCounty(SearchScope::DiscisCivil, u"King"_s, {u"Twin Court (AAA)"_s}));
    QCOMPARE(one.Lines, (QStringList{head + u"AAA¦CV¦CNCI¦"_s, head + u"CCC¦CV¦CNCI¦"_s}));
    QCOMPARE(one.CountyList, u"Twin Court (AAA), Twin Court (CCC)"_s);
    // The name decides: each of two items brings both courts.
    const DiscisRequests both = requests(inCounty(SearchScope::DiscisNonCivil, u"King"_s,
                                                  {u"Twin Court (AAA)"_s, u"Twin Court (CCC)"_s}));
    QCOMPARE(both.Lines, (QStringList{head + u"AAA¦IN¦CNCI¦"_s, head + u"CCC¦IN¦CNCI¦"_s,
                                      head + u"AAA¦IN¦CNCI¦"_s, head + u"CCC¦IN¦CNCI¦"_s}));
}

void tst_DiscisRequests::aCourtThatIsNotInTheCatalogueGivesNoLine()
{
    const DiscisRequests made =
        requests(inCounty(SearchScope::DiscisCivil, u"Adams"_s, {u"Nowhere (NOW)"_s}));
    QVERIFY(made.Ok);
    QCOMPARE(made.Lines, QStringList());
    QCOMPARE(made.CountyList, QString());
}

void tst_DiscisRequests::neitherCivilNorNonCivil_data()
{
    QTest::addColumn<int>("where");
    QTest::newRow("counties") << int(SearchScope::Counties);
    QTest::newRow("template") << int(SearchScope::Template);
    QTest::newRow("statewide") << int(SearchScope::Statewide);
}

void tst_DiscisRequests::neitherCivilNorNonCivil()
{
    QFETCH(int, where);
    const DiscisRequests made =
        requests(inCounty(static_cast<SearchScope>(where), u"Adams"_s, {statewideItem}));
    QVERIFY(!made.Ok);
    QCOMPARE(made.Lines, QStringList());
    QCOMPARE(folder->Log(), QStringList{logText});
}

void tst_DiscisRequests::theShownName()
{
    SearchEntry entry = inCounty(SearchScope::DiscisCivil, u"Adams"_s, {});
    entry.Names = {u" Smith "_s, u" John"_s, u"q "_s, u"JR"_s};
    QCOMPARE(requests(entry).NameVal, u"SMITH, JOHN Q"_s);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_DiscisRequests::aBusiness()
{
    SearchEntry entry =
        inCounty(SearchScope::DiscisCivil, u"Adams"_s, {u"Othello District (OTD)"_s});
    entry.Kind = SearchKind::Business;
    entry.Names = {u"ACME INC"_s, {}, {}, {}};
    const DiscisRequests made = requests(entry);
    QCOMPARE(made.Lines, QStringList{u"WADISCIS¦SEARCH¦ACME INC¦¦¦OTD¦CV¦CNCI¦"_s});
    QCOMPARE(made.NameVal, u"ACME INC,  "_s);
}

void tst_DiscisRequests::theEventLoopGetsATurnAfterEachCourt()
{
    int turns = 0;
    const auto turn = [&turns] { ++turns; };
    DiscisNameRequests(statewide(SearchScope::DiscisCivil, 0, statewideItem), turn);
    QCOMPARE(turns, 173);
    turns = 0;
    DiscisNameRequests(inCounty(SearchScope::DiscisNonCivil, u"Adams"_s,
                                {u"Othello District (OTD)"_s, u"Ritzville District (RID)"_s}),
                       turn);
    QCOMPARE(turns, 2);
}

void tst_DiscisRequests::aCatalogueReadAnewDuringATurnDoesNotMatter()
{
    folder->Remove(u"wadisciscts.txt"_s);
    const DiscisRequests made = DiscisNameRequests(
        statewide(SearchScope::DiscisCivil, 0, statewideItem), [] { LoadDiscisCourts(); });
    QCOMPARE(DiscisCourts().size(), 0);
    QCOMPARE(made.Lines.size(), 173);
}

void tst_DiscisRequests::dndSearch_data()
{
    QTest::addColumn<int>("where");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<bool>("dnd");
    const auto add = [](const char *name, SearchScope where, SearchKind kind,
                        const QStringList &items, bool dnd) {
        QTest::newRow(name) << int(where) << static_cast<int>(kind) << items << dnd;
    };
    const SearchScope nonCivil = SearchScope::DiscisNonCivil;
    add("defendants", nonCivil, SearchKind::Person, {defendantsItem}, true);
    add("statewide", nonCivil, SearchKind::Person, {statewideItem}, false);
    add("a court", nonCivil, SearchKind::Person, {u"Othello District (OTD)"_s}, false);
    add("no item", nonCivil, SearchKind::Person, {}, false);
    add("a business", nonCivil, SearchKind::Business, {defendantsItem}, false);
    add("civil", SearchScope::DiscisCivil, SearchKind::Person, {defendantsItem}, false);
}

void tst_DiscisRequests::dndSearch()
{
    QFETCH(int, where);
    QFETCH(int, kind);
    QFETCH(QStringList, items);
    QFETCH(bool, dnd);
    SearchEntry entry = smith(static_cast<SearchScope>(where));
    entry.Kind = static_cast<SearchKind>(kind);
    entry.DiscisItems = items;
    QCOMPARE(IsDndSearch(entry), dnd);
}

void tst_DiscisRequests::numberFields_data()
{
    QTest::addColumn<int>("where");
    QTest::addColumn<QString>("lblCaseType");
    QTest::addColumn<QString>("txtCaseType");
    QTest::newRow("civil") << int(SearchScope::DiscisCivil) << u"CIVIL  CV"_s << u"CV"_s;
    QTest::newRow("non-civil") << int(SearchScope::DiscisNonCivil) << u"NON-CIVIL"_s << u"IN"_s;
}

void tst_DiscisRequests::numberFields()
{
    QFETCH(int, where);
    QFETCH(QString, lblCaseType);
    QFETCH(QString, txtCaseType);
    SearchEntry entry = inCounty(static_cast<SearchScope>(where), u"Adams"_s,
                                 {u"Othello District (OTD)"_s, u"Ritzville District (RID)"_s});
    entry.Kind = SearchKind::Number;
    entry.Names = {u" 3YH809020 "_s, {}, {}, {}};
    const std::optional<CaseStart> fields = DiscisNumberFields(entry);
    QVERIFY(fields.has_value());
    QCOMPARE(fields->Caption, u"3YH809020 - Case Details"_s);
    QCOMPARE(fields->lblCaseType, lblCaseType);
    QCOMPARE(fields->txtCaseType, txtCaseType);
    QCOMPARE(fields->lblCourtName, u"Adams Cty. - Othello District (OTD)"_s);
    QCOMPARE(fields->txtCaseNumber, u"3YH809020"_s);
    QCOMPARE(fields->lblCaseNo, u"3YH809020"_s);
    QCOMPARE(fields->txtCourtCode, u"OTD"_s);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_DiscisRequests::aNumberWithNeitherCivilNorNonCivil()
{
    const SearchEntry entry =
        inCounty(SearchScope::Counties, u"Adams"_s, {u"Othello District (OTD)"_s});
    QVERIFY(!DiscisNumberFields(entry));
    QCOMPARE(folder->Log(), QStringList{numberLogText});
}

void tst_DiscisRequests::aNumberNeedsACourt_data()
{
    QTest::addColumn<QStringList>("selected");
    QTest::newRow("none") << QStringList();
    QTest::newRow("statewide is no court") << QStringList{statewideItem};
}

void tst_DiscisRequests::aNumberNeedsACourt()
{
    QFETCH(QStringList, selected);
    QVERIFY(!DiscisNumberFields(inCounty(SearchScope::DiscisCivil, u"Adams"_s, selected)));
    QCOMPARE(folder->Log(), QStringList{numberLogText});
}

void tst_DiscisRequests::courtNameAndCodeOfAnItem_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("code");
    QTest::newRow("a court") << u"Othello District (OTD)"_s << u"Othello District"_s << u"OTD"_s;
    QTest::newRow("brackets in the name")
        << u"Clarkston (Municipal) (CLA)"_s << u"Clarkston (Municipal)"_s << u"CLA"_s;
    QTest::newRow("only a code") << u"(CLA)"_s << u""_s << u"CLA"_s;
    QTest::newRow("no code") << u"Clarkston (Municipal)"_s << u"Clarkston (Munic"_s << u""_s;
    QTest::newRow("short") << u"abc"_s << u""_s << u""_s;
    QTest::newRow("empty") << u""_s << u""_s << u""_s;
}

void tst_DiscisRequests::courtNameAndCodeOfAnItem()
{
    QFETCH(QString, item);
    QFETCH(QString, name);
    QFETCH(QString, code);
    QCOMPARE(DiscisCourtNameOf(item), name);
    QCOMPARE(DiscisCourtCodeOf(item), code);
}

void tst_DiscisRequests::everyCatalogueItemGivesItsNameAndCode()
{
    for (const clsDiscisCourts &court : DiscisCourts()) {
        QCOMPARE(DiscisCourtNameOf(court.ListText()), court.CourtName);
        QCOMPARE(DiscisCourtCodeOf(court.ListText()), court.CourtCode);
    }
}

void tst_DiscisRequests::whateverIsEnteredEveryLineHasItsFields()
{
    QRandomGenerator random(173);
    for (int round = 0; round < 300; ++round) {
        SearchEntry entry = inCounty(
            random.bounded(2) == 1 ? SearchScope::DiscisCivil : SearchScope::DiscisNonCivil,
            HostileText(random), {u"Othello District (OTD)"_s, HostileText(random)});
        entry.DiscisCountyIndex = random.bounded(4);
        for (QString &name : entry.Names)
            name = HostileText(random);
        const DiscisRequests made = requests(entry);
        QVERIFY(!made.Lines.isEmpty());
        for (const QString &line : made.Lines) {
            QCOMPARE(line.count(u'¦'), 8);
            QVERIFY(line.endsWith(u'¦'));
            QVERIFY(!line.contains(u'|') && !line.contains(u'\n') && !line.contains(u'\r'));
        }
    }
}

HALVANE_TEST(tst_DiscisRequests)
#include "tst_DiscisRequests.moc"
