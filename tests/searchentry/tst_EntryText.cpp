// Searches that are kept as a text, and come back from it.

#include "searchentry/Entries.h"
#include "searchentry/EntryText.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

using Change = std::function<void(SearchEntry &entry)>;
Q_DECLARE_METATYPE(Change)

namespace {
const QString hostile = u"\"a\\b\"\r\n|~¦,^:\u00DC\u20AC\u4E2D"_s;

SearchEntry changed(const Change &change)
{
    SearchEntry entry;
    change(entry);
    return entry;
}

Change text(QString SearchEntry::*member)
{
    return [member](SearchEntry &entry) { entry.*member = hostile; };
}

Change flag(bool SearchEntry::*member)
{
    return [member](SearchEntry &entry) { entry.*member = true; };
}

Change list(QStringList SearchEntry::*member)
{
    return [member](SearchEntry &entry) { entry.*member = {u"King"_s, {}, hostile}; };
}

/// An entry in which every field holds something, as a form has it on which a user has been
/// everywhere.
SearchEntry everything(CourtFamily court, SearchKind kind)
{
    SearchEntry entry = SmithIn(court);
    entry.Kind = kind;
    entry.CourtName = u"Somewhere"_s;
    entry.Names[Suffix] = u"JR"_s;
    entry.Where = court == CourtFamily::Discis ? SearchScope::DiscisCivil : SearchScope::Template;
    entry.Counties = {u"King"_s};
    entry.NumberCounty = u"Pierce"_s;
    entry.CaseTypes = {u"Civil"_s};
    entry.JudgmentsOnly = true;
    entry.UseIndex = true;
    entry.DistrictCourt = true;
    entry.DiscisCountyIndex = 2;
    entry.DiscisCounty = u"Adams"_s;
    entry.DiscisItems = {u"Othello"_s};
    entry.DiscisSelected = {u"Othello"_s};
    entry.BkCourts = {true, false, true, false};
    SetRange(entry, u"2001"_s, u"2002"_s);
    entry.Batch[3] = {u"12-2-00001-1"_s, u"King"_s};
    entry.Batch[7] = {u"12-2-00002-1"_s, u"Lewis"_s};
    return entry;
}
} // namespace

class tst_EntryText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyFieldComesBack_data();
    void everyFieldComesBack();
    void everyChoiceComesBack();
    void whatIsDamagedGivesNothing_data();
    void whatIsDamagedGivesNothing();
    void cutAtAnyPlaceItGivesNothing();
    void whatIsOutOfSightIsNotAsked_data();
    void whatIsOutOfSightIsNotAsked();
    void oneCourtAndOneRowByThemselves();
    void askedTwiceIsAskedOnce();
};

void tst_EntryText::everyFieldComesBack_data()
{
    // A member that is added needs a row below, and a place in what is kept.
    const SearchEntry plain;
    const auto &[court, kind, courtName, where, names, counties, numberCounty, caseTypes, judgments,
                 index, district, discisIndex, discisCounty, discisItems, discisSelected, bkCourts,
                 range, from, to, inBatch, batch] = plain;
    Q_UNUSED(court)
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    row("plain", [](SearchEntry &) {});
    row("Court", [](SearchEntry &entry) { entry.Court = CourtFamily::Idaho; });
    row("Kind", [](SearchEntry &entry) { entry.Kind = SearchKind::Ssn; });
    row("CourtName", text(&SearchEntry::CourtName));
    row("Where", [](SearchEntry &entry) { entry.Where = SearchScope::DiscisNonCivil; });
    for (size_t i = 0; i < 4; ++i)
        QTest::addRow("Names %d", static_cast<int>(i))
            << Change([i](SearchEntry &entry) { entry.Names[i] = hostile; });
    row("Counties", list(&SearchEntry::Counties));
    row("NumberCounty", text(&SearchEntry::NumberCounty));
    row("CaseTypes", list(&SearchEntry::CaseTypes));
    row("JudgmentsOnly", flag(&SearchEntry::JudgmentsOnly));
    row("UseIndex", flag(&SearchEntry::UseIndex));
    row("DistrictCourt", flag(&SearchEntry::DistrictCourt));
    row("DiscisCountyIndex", [](SearchEntry &entry) { entry.DiscisCountyIndex = 3; });
    row("the first of the district counties",
        [](SearchEntry &entry) { entry.DiscisCountyIndex = 0; });
    row("DiscisCounty", text(&SearchEntry::DiscisCounty));
    row("DiscisItems", list(&SearchEntry::DiscisItems));
    row("DiscisSelected", list(&SearchEntry::DiscisSelected));
    for (size_t i = 0; i < 4; ++i)
        QTest::addRow("BkCourts %d", static_cast<int>(i))
            << Change([i](SearchEntry &entry) { entry.BkCourts[i] = true; });
    row("YearRange", flag(&SearchEntry::YearRange));
    row("FromYear", text(&SearchEntry::FromYear));
    row("ToYear", text(&SearchEntry::ToYear));
    row("InBatch", flag(&SearchEntry::InBatch));
    for (size_t i = 0; i < 10; ++i)
        QTest::addRow("Batch %d", static_cast<int>(i)) << Change([i](SearchEntry &entry) {
            entry.Batch[i] = {hostile, u"King"_s};
        });
    row("a county of the batch alone",
        [](SearchEntry &entry) { entry.Batch[9].County = noCountySelected.toString(); });
}

void tst_EntryText::everyFieldComesBack()
{
    QFETCH(Change, change);
    const SearchEntry entry = changed(change);
    const std::optional<SearchEntry> back = EntryOf(TextOfEntry(entry));
    QVERIFY(back);
    QVERIFY(*back == entry);
}

void tst_EntryText::everyChoiceComesBack()
{
    for (int court = 0; court < 5; ++court) {
        for (int kind = 0; kind < 5; ++kind) {
            const SearchEntry entry =
                everything(static_cast<CourtFamily>(court), static_cast<SearchKind>(kind));
            QVERIFY(EntryOf(TextOfEntry(entry)) == entry);
        }
    }
    for (const int where : {1, 2, 3, 5, 6}) {
        SearchEntry entry;
        entry.Where = static_cast<SearchScope>(where);
        QVERIFY(EntryOf(TextOfEntry(entry)) == entry);
    }
}

void tst_EntryText::whatIsDamagedGivesNothing_data()
{
    const QByteArray good =
        R"({"Search":1,"Court":"Oregon","Kind":"Person","Where":"Counties","Names":["A"]})";
    QVERIFY(EntryOf(good));
    QTest::addColumn<QByteArray>("text");
    const auto instead = [&good](const char *name, const char *before, const char *after) {
        QTest::newRow(name) << QByteArray(good).replace(before, after);
    };
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("Search");
    QTest::newRow("a list") << QByteArray("[]");
    QTest::newRow("a case") << QByteArray(R"({"Case":1,"Kind":0})");
    instead("a newer version", "1", "2");
    instead("no version", R"("Search":1,)", "");
    instead("an unknown court", "Oregon", "Alaska");
    instead("no court", R"("Court":"Oregon",)", "");
    instead("a number of a court", R"("Oregon")", "2");
    instead("an unknown kind", "Person", "Ship");
    instead("an unknown scope", "Counties", "World");
    instead("names that are no list", R"(["A"])", R"("A")");
    instead("names that are no texts", R"("A")", "1");
    instead("five names", R"("A")", R"("A","B","C","D","E")");
    instead("an unknown key", "}", R"(,"Until":"2030"})");
    instead("a number for a text", "}", R"(,"FromYear":2001})");
    instead("a text for a flag", "}", R"(,"UseIndex":"1"})");
    instead("a text for a list", "}", R"(,"Counties":"King"})");
    instead("a court that there is not", "}", R"(,"BkCourts":[4]})");
    instead("a court that is no number", "}", R"(,"BkCourts":["x"]})");
    instead("courts that are no list", "}", R"(,"BkCourts":2})");
    instead("an eleventh row", "}", R"(,"Batch":[[10,"1","King"]]})");
    instead("a row that is too short", "}", R"(,"Batch":[[1,"1"]]})");
    instead("a row of numbers", "}", R"(,"Batch":[[1,1,"King"]]})");
    instead("rows that are no list", "}", R"(,"Batch":"1"})");
}

void tst_EntryText::whatIsDamagedGivesNothing()
{
    QFETCH(QByteArray, text);
    QVERIFY(!EntryOf(text));
}

void tst_EntryText::cutAtAnyPlaceItGivesNothing()
{
    const QByteArray text = TextOfEntry(everything(CourtFamily::Superior, SearchKind::Person));
    for (qsizetype size = 0; size < text.size(); ++size)
        QVERIFY(!EntryOf(text.first(size)));
}

void tst_EntryText::whatIsOutOfSightIsNotAsked_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("batch");
    QTest::addColumn<QByteArrayList>("keys");
    const auto row = [](const char *name, CourtFamily court, SearchKind kind, bool batch,
                        QByteArrayList keys) {
        keys += {"Court", "Kind", "Names", "Search", "Where"};
        std::sort(keys.begin(), keys.end());
        QTest::newRow(name) << static_cast<int>(court) << static_cast<int>(kind) << batch << keys;
    };
    using enum CourtFamily;
    const QByteArrayList years{"FromYear", "ToYear", "YearRange"};
    const QByteArrayList counties = years + QByteArrayList{"CaseTypes", "Counties"};
    const QByteArrayList discis{"DiscisCounty", "DiscisCountyIndex", "DiscisItems",
                                "DiscisSelected"};
    row("Superior, a person", Superior, SearchKind::Person, false,
        counties + QByteArrayList{"UseIndex"});
    row("Superior, a business", Superior, SearchKind::Business, false,
        counties + QByteArrayList{"UseIndex"});
    row("Superior, a number", Superior, SearchKind::Number, false, {"NumberCounty"});
    row("Superior, a batch", Superior, SearchKind::Number, true, {"Batch", "InBatch"});
    row("District, a person", Discis, SearchKind::Person, false, discis);
    row("District, a number", Discis, SearchKind::Number, false, discis);
    row("Oregon, a person", Oregon, SearchKind::Person, false,
        counties + QByteArrayList{"DistrictCourt", "JudgmentsOnly"});
    row("Oregon, a number", Oregon, SearchKind::Number, false, {"DistrictCourt", "NumberCounty"});
    row("Oregon, a batch", Oregon, SearchKind::Number, true, {"Batch", "DistrictCourt", "InBatch"});
    row("Idaho, a person", Idaho, SearchKind::Person, false, counties);
    row("Idaho, a number", Idaho, SearchKind::Number, false, {"NumberCounty"});
    row("Bankruptcy, a person", Bankruptcy, SearchKind::Person, false,
        years + QByteArrayList{"BkCourts"});
    row("Bankruptcy, a number", Bankruptcy, SearchKind::Number, false, {"BkCourts"});
    row("Bankruptcy, a tax identifier", Bankruptcy, SearchKind::TaxId, false,
        years + QByteArrayList{"BkCourts"});
}

void tst_EntryText::whatIsOutOfSightIsNotAsked()
{
    QFETCH(int, court);
    QFETCH(int, kind);
    QFETCH(bool, batch);
    QFETCH(QByteArrayList, keys);
    SearchEntry entry = everything(static_cast<CourtFamily>(court), static_cast<SearchKind>(kind));
    entry.InBatch = batch;
    const QByteArray text = TextOfEntry(AsAsked(entry));
    QByteArrayList found;
    for (const QByteArray &part : text.split('"')) {
        if (text.contains(QByteArray(QByteArray("\"") + part + QByteArray("\":"))))
            found.append(part);
    }
    std::sort(found.begin(), found.end());
    QCOMPARE(found, keys);
    const bool person = entry.Kind == SearchKind::Person;
    QCOMPARE(AsAsked(entry).Names[LastName], batch ? QString() : u"SMITH"_s);
    QCOMPARE(AsAsked(entry).Names[FirstName], person ? u"JOHN"_s : QString());
}

void tst_EntryText::oneCourtAndOneRowByThemselves()
{
    const SearchEntry courts = everything(CourtFamily::Bankruptcy, SearchKind::Person);
    QCOMPARE(AsAskedOf(courts, 2).BkCourts, (std::array<bool, 4>{false, false, true, false}));
    const SearchEntry rows = everything(CourtFamily::Superior, SearchKind::Number);
    const SearchEntry one = AsAskedInRow(rows, 7);
    QVERIFY(one.InBatch);
    QVERIFY(one.Batch[0] == (BatchRow{u"12-2-00002-1"_s, u"Lewis"_s}));
    for (size_t i = 1; i < one.Batch.size(); ++i)
        QVERIFY(one.Batch[i] == BatchRow());
}

/// Two searches for the same are known by their texts, whatever the user did on the form before.
void tst_EntryText::askedTwiceIsAskedOnce()
{
    const SearchEntry entry = everything(CourtFamily::Superior, SearchKind::Person);
    SearchEntry other = entry;
    other.Batch[0].Number = u"left over"_s;
    other.BkCourts = {};
    other.DiscisCounty.clear();
    other.NumberCounty.clear();
    other.CourtName.clear();
    QCOMPARE(TextOfEntry(AsAsked(other)), TextOfEntry(AsAsked(entry)));
    QVERIFY(AsAsked(AsAsked(entry)) == AsAsked(entry));
    other.Names[FirstName] = u"JANE"_s;
    QVERIFY(TextOfEntry(AsAsked(other)) != TextOfEntry(AsAsked(entry)));
}

HALVANE_TEST(tst_EntryText)
#include "tst_EntryText.moc"
