#include "searchentry/Entries.h"
#include "searchentry/SearchTitles.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<CourtFamily, 5> courts{CourtFamily::Superior, CourtFamily::Discis,
                                            CourtFamily::Oregon, CourtFamily::Idaho,
                                            CourtFamily::Bankruptcy};

SearchEntry search(CourtFamily court, SearchKind kind)
{
    SearchEntry entry = SmithIn(court);
    entry.Kind = kind;
    return entry;
}
} // namespace

class tst_SearchTitles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void jurisdictions_data();
    void jurisdictions();
    void otherCourtsHaveNoTitle();
    void recentEntryText_data();
    void recentEntryText();
    void recentEntryType_data();
    void recentEntryType();
    void shownName_data();
    void shownName();
    void whatTheResultsWindowGets_data();
    void whatTheResultsWindowGets();
};

void tst_SearchTitles::jurisdictions_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("district");
    QTest::addColumn<int>("where");
    QTest::addColumn<QStringList>("counties");
    QTest::addColumn<QString>("title");
    const auto add = [](const char *name, CourtFamily court, bool district, SearchScope where,
                        const QStringList &counties, const QString &title) {
        QTest::newRow(name) << static_cast<int>(court) << district << int(where) << counties
                            << title;
    };
    const QStringList one{u"Lincoln"_s};
    const QStringList two{u"Lake"_s, u"Lincoln"_s};
    const QStringList all{u"(Statewide)"_s};
    const SearchScope where = SearchScope::Counties;
    const SearchScope state = SearchScope::Statewide;
    const CourtFamily wa = CourtFamily::Superior;
    add("Washington, statewide", wa, false, state, all,
        u"Statewide (All Counties) - Washington Superior Courts"_s);
    add("Washington, one county", wa, false, where, one,
        u"Lincoln County - Washington Superior Courts"_s);
    add("Washington, several read as one", wa, false, where, two,
        u"Lake, Lincoln County - Washington Superior Courts"_s);
    add("Washington, by template", wa, false, SearchScope::Template, one,
        u"Lincoln County - Washington Superior Courts"_s);
    add("Washington has no District choice", wa, true, where, one,
        u"Lincoln County - Washington Superior Courts"_s);
    const CourtFamily oregon = CourtFamily::Oregon;
    add("Oregon Circuit, statewide", oregon, false, state, all,
        u"Statewide (All Counties) - Oregon Circuit Courts"_s);
    add("Oregon Circuit, one county", oregon, false, where, one,
        u"Lincoln County - Oregon Circuit Courts"_s);
    add("Oregon Circuit, several read as one", oregon, false, where, two,
        u"Lake, Lincoln County - Oregon Circuit Courts"_s);
    add("Oregon District, statewide", oregon, true, state, all,
        u"Statewide (All Counties) - Oregon District Courts"_s);
    add("Oregon District, one county", oregon, true, where, one,
        u"Lincoln County - Oregon District Courts"_s);
    add("Oregon District, several read as one", oregon, true, where, two,
        u"Lake, Lincoln County - Oregon District Courts"_s);
    const CourtFamily idaho = CourtFamily::Idaho;
    add("Idaho, statewide", idaho, false, state, all,
        u"Statewide (All Counties) - Idaho District Courts"_s);
    add("Idaho, one county", idaho, false, where, one, u"Lincoln County - Idaho District Courts"_s);
    add("Idaho, several counties", idaho, false, where, two,
        u"Lake, Lincoln Counties - Idaho District Courts"_s);
    add("Idaho has no District choice", idaho, true, where, one,
        u"Lincoln County - Idaho District Courts"_s);
}

void tst_SearchTitles::jurisdictions()
{
    QFETCH(int, court);
    QFETCH(bool, district);
    QFETCH(int, where);
    QFETCH(QStringList, counties);
    QFETCH(QString, title);
    SearchEntry entry = SmithIn(static_cast<CourtFamily>(court));
    entry.DistrictCourt = district;
    entry.Where = static_cast<SearchScope>(where);
    entry.Counties = counties;
    QCOMPARE(JurisdictionsTitle(entry), title);
    QCOMPARE(NameResultsFieldsOf(entry).txtCountyList, title);
}

void tst_SearchTitles::otherCourtsHaveNoTitle()
{
    for (const CourtFamily court : {CourtFamily::Discis, CourtFamily::Bankruptcy}) {
        SearchEntry entry = SmithIn(court);
        entry.Counties = {u"King"_s};
        QCOMPARE(JurisdictionsTitle(entry), QString());
    }
}

void tst_SearchTitles::recentEntryText_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QString>("text");
    const auto add = [](const char *name, SearchKind kind, const QString &last,
                        const QString &first, const QString &middle, const QString &text) {
        QTest::newRow(name) << static_cast<int>(kind) << last << first << middle << text;
    };
    const SearchKind person = SearchKind::Person;
    add("a person", person, u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"SMITH, JOHN, Q"_s);
    add("without an initial", person, u"SMITH"_s, u"JOHN"_s, u""_s, u"SMITH, JOHN"_s);
    add("a last name", person, u"SMITH"_s, u""_s, u""_s, u"SMITH"_s);
    add("without a first name", person, u"SMITH"_s, u""_s, u"Q"_s, u"SMITH, Q"_s);
    add("upper case and trimmed", person, u" Smith "_s, u" john"_s, u" q"_s, u"SMITH, JOHN, Q"_s);
    add("a business", SearchKind::Business, u" Acme Inc "_s, u""_s, u""_s, u"ACME INC"_s);
    add("a business is its first box", SearchKind::Business, u"ACME"_s, u"LEFT"_s, u"OVER"_s,
        u"ACME"_s);
    add("a number", SearchKind::Number, u" 02-2-02029-9"_s, u"X"_s, u""_s, u"02-2-02029-9"_s);
    add("a tax identifier", SearchKind::TaxId, u"91-1234567"_s, u""_s, u""_s, u"91-1234567"_s);
    add("a social security number", SearchKind::Ssn, u"123-45-6789"_s, u""_s, u""_s,
        u"123-45-6789"_s);
}

void tst_SearchTitles::recentEntryText()
{
    QFETCH(int, kind);
    QFETCH(QString, last);
    QFETCH(QString, first);
    QFETCH(QString, middle);
    QFETCH(QString, text);
    for (const CourtFamily court : courts) {
        SearchEntry entry = search(court, static_cast<SearchKind>(kind));
        entry.Names = {last, first, middle, u"JR"_s};
        QCOMPARE(RecentEntryText(entry), text);
    }
}

void tst_SearchTitles::recentEntryType_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    for (const CourtFamily court :
         {CourtFamily::Superior, CourtFamily::Discis, CourtFamily::Oregon, CourtFamily::Idaho}) {
        const int family = static_cast<int>(court);
        QTest::addRow("court %d, person", family) << family << 0 << u"Individual Name"_s;
        QTest::addRow("court %d, business", family) << family << 1 << u"Business Name"_s;
        QTest::addRow("court %d, number", family) << family << 2 << u"Case Number"_s;
    }
    const int bankruptcy = static_cast<int>(CourtFamily::Bankruptcy);
    QTest::newRow("bankruptcy person") << bankruptcy << 0 << u"Individual Name"_s;
    QTest::newRow("bankruptcy business files with the persons")
        << bankruptcy << 1 << u"Individual Name"_s;
    QTest::newRow("bankruptcy number") << bankruptcy << 2 << u"Case Number"_s;
    QTest::newRow("bankruptcy tax identifier files with the businesses")
        << bankruptcy << 3 << u"Business Name"_s;
    QTest::newRow("bankruptcy social security number") << bankruptcy << 4 << u"Individual Name"_s;
}

void tst_SearchTitles::recentEntryType()
{
    QFETCH(int, court);
    QFETCH(int, kind);
    QFETCH(QString, type);
    QCOMPARE(
        RecentEntryType(search(static_cast<CourtFamily>(court), static_cast<SearchKind>(kind))),
        type);
}

void tst_SearchTitles::shownName_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("shown");
    for (const CourtFamily court : courts)
        QTest::addRow("court %d", static_cast<int>(court))
            << static_cast<int>(court)
            << (court == CourtFamily::Discis ? u"SMITH, JOHN Q"_s : u"SMITH, JOHN, Q"_s);
}

void tst_SearchTitles::shownName()
{
    QFETCH(int, court);
    QFETCH(QString, shown);
    SearchEntry entry = SmithIn(static_cast<CourtFamily>(court));
    entry.Names = {u" smith"_s, u"john "_s, u"q"_s, u"JR"_s};
    QCOMPARE(ShownName(entry), shown);
}

void tst_SearchTitles::whatTheResultsWindowGets_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("lblState");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("orStatewide");
    QTest::addColumn<int>("idStatewide");
    QTest::addColumn<int>("judgments");
    QTest::newRow("Washington") << static_cast<int>(CourtFamily::Superior) << u"WA"_s << 1 << 0 << 0
                                << 0;
    QTest::newRow("Oregon") << static_cast<int>(CourtFamily::Oregon) << u"OR"_s << 0 << 1 << 0 << 1;
    QTest::newRow("Idaho") << static_cast<int>(CourtFamily::Idaho) << u"ID"_s << 0 << 0 << 1 << 0;
}

void tst_SearchTitles::whatTheResultsWindowGets()
{
    QFETCH(int, court);
    QFETCH(QString, lblState);
    QFETCH(int, index);
    QFETCH(int, orStatewide);
    QFETCH(int, idStatewide);
    QFETCH(int, judgments);
    // With everything asked for, each court takes what is its own ...
    SearchEntry entry = SmithIn(static_cast<CourtFamily>(court));
    entry.Where = SearchScope::Statewide;
    entry.UseIndex = true;
    entry.JudgmentsOnly = true;
    NameResultsFields fields = NameResultsFieldsOf(entry);
    QCOMPARE(fields.lblState, lblState);
    QCOMPARE(int(fields.chkIndexSearch), index);
    QCOMPARE(int(fields.OrStatewide), orStatewide);
    QCOMPARE(int(fields.IdStatewide), idStatewide);
    QCOMPARE(int(fields.ORchkboxJGMcasetype), judgments);
    // ... and without, nothing.
    fields = NameResultsFieldsOf(SmithIn(static_cast<CourtFamily>(court)));
    QVERIFY(!fields.chkIndexSearch && !fields.OrStatewide && !fields.IdStatewide
            && !fields.ORchkboxJGMcasetype);
}

HALVANE_TEST(tst_SearchTitles)
#include "tst_SearchTitles.moc"
