#include "searchentry/SearchLogRow.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
SearchEntry person()
{
    SearchEntry entry;
    entry.CourtName = u"WA Superior Courts"_s;
    entry.Names = {u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"JR"_s};
    entry.Counties = {u"Adams"_s, u"King"_s};
    entry.NumberCounty = u"Pierce"_s;
    entry.CaseTypes = {u"Civil"_s, u"Probate"_s};
    return entry;
}

QStringList rowOf(const SearchEntry &entry)
{
    const SearchLogRow row = AddRecordToSearchList(entry);
    return {row.begin(), row.end()};
}
} // namespace

class tst_SearchLogRow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aPersonByCounty();
    void aBusinessStatewideInARangeOfYears();
    void aNumberHasNoTypesAndNoYears_data();
    void aNumberHasNoTypesAndNoYears();
    void theCourt();
    void theJurisdictions_data();
    void theJurisdictions();
};

void tst_SearchLogRow::aPersonByCounty()
{
    QCOMPARE(rowOf(person()),
             (QStringList{u"SMITH, JOHN, Q"_s, u"WA Superior Courts - "_s, u"Adams, King"_s,
                          u"Civil, Probate"_s, u"All Avail."_s, u"Pending .."_s}));
}

void tst_SearchLogRow::aBusinessStatewideInARangeOfYears()
{
    SearchEntry entry = person();
    entry.Kind = SearchKind::Business;
    entry.Names = {u" ACME INC "_s, {}, {}, {}};
    entry.Where = SearchScope::Statewide;
    entry.YearRange = true;
    entry.FromYear = u"1990"_s;
    entry.ToYear = u"2002"_s;
    QCOMPARE(rowOf(entry),
             (QStringList{u"ACME INC"_s, u"WA Superior Courts - "_s, u"Statewide (All Counties)"_s,
                          u"Civil, Probate"_s, u"1990 - 2002"_s, u"Pending .."_s}));
}

void tst_SearchLogRow::aNumberHasNoTypesAndNoYears_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("case number") << static_cast<int>(SearchKind::Number);
    QTest::newRow("tax identifier") << static_cast<int>(SearchKind::TaxId);
    QTest::newRow("social security number") << static_cast<int>(SearchKind::Ssn);
}

void tst_SearchLogRow::aNumberHasNoTypesAndNoYears()
{
    QFETCH(int, kind);
    SearchEntry entry = person();
    entry.Kind = static_cast<SearchKind>(kind);
    entry.Names = {u"09-2-02029-9"_s, {}, {}, {}};
    entry.YearRange = true;
    entry.FromYear = u"1990"_s;
    entry.ToYear = u"2002"_s;
    QCOMPARE(rowOf(entry), (QStringList{u"09-2-02029-9"_s, u"WA Superior Courts - "_s, u"Pierce"_s,
                                        u"N/A"_s, u"N/A"_s, u"Pending .."_s}));
}

void tst_SearchLogRow::theCourt()
{
    SearchEntry entry = person();
    entry.CourtName = u"OR Circuit/District Courts"_s;
    QCOMPARE(GetSearchCourts(entry), u"OR Circuit/District Courts"_s);
    QCOMPARE(AddRecordToSearchList(entry)[LogCourt], u"OR Circuit/District Courts - "_s);
}

void tst_SearchLogRow::theJurisdictions_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("statewide");
    QTest::addColumn<QString>("text");
    QTest::newRow("Oregon counties")
        << static_cast<int>(CourtFamily::Oregon) << false << u"Adams, King"_s;
    QTest::newRow("Oregon statewide")
        << static_cast<int>(CourtFamily::Oregon) << true << u"Statewide (All Counties)"_s;
    QTest::newRow("district courts")
        << static_cast<int>(CourtFamily::Discis) << false << u"Kent (KNT), Auburn (AUB)"_s;
    QTest::newRow("bankruptcy courts") << static_cast<int>(CourtFamily::Bankruptcy) << false
                                       << u"Washington (Eastern), Idaho (Statewide)"_s;
}

void tst_SearchLogRow::theJurisdictions()
{
    QFETCH(int, court);
    QFETCH(bool, statewide);
    QFETCH(QString, text);
    SearchEntry entry = person();
    entry.Court = static_cast<CourtFamily>(court);
    if (statewide)
        entry.Where = SearchScope::Statewide;
    entry.DiscisItems = {u"Kent (KNT)"_s, u"Seattle (SEA)"_s, u"Auburn (AUB)"_s};
    entry.DiscisSelected = {u"Kent (KNT)"_s, u"Auburn (AUB)"_s};
    entry.BkCourts = {false, true, false, true};
    QCOMPARE(GetJurisdictions(entry), text);
}

HALVANE_TEST(tst_SearchLogRow)

#include "tst_SearchLogRow.moc"
