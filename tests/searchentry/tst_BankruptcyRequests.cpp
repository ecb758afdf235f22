#include "core/RunTimeError.h"
#include "searchentry/BankruptcyRequests.h"
#include "searchentry/Entries.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int thisYear = 2005;

SearchEntry search(SearchKind kind, const QString &text)
{
    SearchEntry entry;
    entry.Court = CourtFamily::Bankruptcy;
    entry.Kind = kind;
    entry.Names[LastName] = text;
    return entry;
}

struct Court
{
    const char *code;
    const char *lblState;
    const char *txtCountyList;
    const char *suffix;
    const char *lblCourtName;
};
const std::array<Court, 4> courts{{
    {"WAW", "WAWBK", "Washington Western Bankruptcy", " / Washington Bankruptcy Courts (Western)",
     "Washington Bankruptcy Courts (Western)"},
    {"WAE", "WAEBK", "Washington Eastern Bankruptcy", " / Washington Bankruptcy Courts (Eastern)",
     "Washington Bankruptcy Courts (Eastern)"},
    {"OR", "ORBK", "Oregon Bankruptcy", " / Oregon Bankruptcy Courts (Statewide)",
     "Oregon Bankruptcy Courts (Statewide)"},
    {"ID", "IDBK", "Idaho Bankruptcy", " / Idaho Bankruptcy Courts (Statewide)",
     "Idaho Bankruptcy Courts (Statewide)"},
}};
} // namespace

class tst_BankruptcyRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void examples_data();
    void examples();
    void everyKindInEveryCourt_data();
    void everyKindInEveryCourt();
    void aRangeOfYears_data();
    void aRangeOfYears();
    void aPersonWithASuffixSendsTheSameLine();
    void theCourts_data();
    void theCourts();
    void aCourtThatThereIsNot_data();
    void aCourtThatThereIsNot();
    void whatTheResultsWindowGets_data();
    void whatTheResultsWindowGets();
    void aTildeTypedBeforeTheCourtWasChosenIsLeftOut();
    void nothingLeftToLookForIsNoRequest_data();
    void nothingLeftToLookForIsNoRequest();
    void fieldsOfTenThousandCharacters();
    void whateverIsEnteredEveryLineHasItsFields();
};

void tst_BankruptcyRequests::examples_data()
{
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("line");
    SearchEntry smith = SmithIn(CourtFamily::Bankruptcy);
    QTest::newRow("person") << smith << 0 << u"BKRPT~SEARCH~SMITH~JOHN~Q~~WAW~*ALL~1980~2005~"_s;
    QTest::newRow("social security number") << search(SearchKind::Ssn, u"123456789"_s) << 3
                                            << u"BKRPT~SEARCHSSN~123456789~ID~*ALL~1980~2005~"_s;
    QTest::newRow("case number") << search(SearchKind::Number, u"99-20077"_s) << 2
                                 << u"BKRPT~SUMMARY~99-20077~OR~"_s;
}

void tst_BankruptcyRequests::examples()
{
    QFETCH(SearchEntry, entry);
    QFETCH(int, court);
    QFETCH(QString, line);
    QCOMPARE(BkRequest(entry, court, thisYear), std::optional(line));
}

void tst_BankruptcyRequests::everyKindInEveryCourt_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("head");
    QTest::addColumn<QString>("tail");
    const auto add = [](const char *name, SearchKind kind, const QString &head,
                        const QString &tail) {
        QTest::newRow(name) << static_cast<int>(kind) << head << tail;
    };
    const QString years = u"~*ALL~1980~2005~"_s;
    add("person", SearchKind::Person, u"BKRPT~SEARCH~SMITH~JOHN~Q~~"_s, years);
    add("business", SearchKind::Business, u"BKRPT~SEARCHBUS~SMITH~"_s, years);
    add("case number", SearchKind::Number, u"BKRPT~SUMMARY~SMITH~"_s, u"~"_s);
    add("tax identifier", SearchKind::TaxId, u"BKRPT~SEARCHTID~SMITH~"_s, years);
    add("social security number", SearchKind::Ssn, u"BKRPT~SEARCHSSN~SMITH~"_s, years);
}

void tst_BankruptcyRequests::everyKindInEveryCourt()
{
    QFETCH(int, kind);
    QFETCH(QString, head);
    QFETCH(QString, tail);
    SearchEntry entry = SmithIn(CourtFamily::Bankruptcy);
    entry.Kind = static_cast<SearchKind>(kind);
    for (int i = 0; i < bkCourtCount; ++i)
        QCOMPARE(BkRequest(entry, i, thisYear),
                 std::optional<QString>(head + QString::fromLatin1(courts[size_t(i)].code) + tail));
}

void tst_BankruptcyRequests::aRangeOfYears_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("end");
    QTest::newRow("person") << 0 << u"~WAE~*ALL~1990~2002~"_s;
    QTest::newRow("business") << 1 << u"~WAE~*ALL~1990~2002~"_s;
    QTest::newRow("case number has no years") << 2 << u"~SMITH~WAE~"_s;
    QTest::newRow("tax identifier") << 3 << u"~WAE~*ALL~1990~2002~"_s;
    QTest::newRow("social security number") << 4 << u"~WAE~*ALL~1990~2002~"_s;
}

void tst_BankruptcyRequests::aRangeOfYears()
{
    QFETCH(int, kind);
    QFETCH(QString, end);
    SearchEntry entry = SmithIn(CourtFamily::Bankruptcy);
    entry.Kind = static_cast<SearchKind>(kind);
    SetRange(entry, u" 1990"_s, u"2002 "_s);
    QVERIFY(BkRequest(entry, 1, thisYear).value_or(QString()).endsWith(end));
}

void tst_BankruptcyRequests::aPersonWithASuffixSendsTheSameLine()
{
    SearchEntry entry = SmithIn(CourtFamily::Bankruptcy);
    entry.Names[Suffix] = u"JR"_s;
    QCOMPARE(BkRequest(entry, 0, thisYear),
             std::optional(u"BKRPT~SEARCH~SMITH~JOHN~Q~~WAW~*ALL~1980~2005~"_s));
}

void tst_BankruptcyRequests::theCourts_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < bkCourtCount; ++i)
        QTest::newRow(courts[size_t(i)].code) << i;
}

void tst_BankruptcyRequests::theCourts()
{
    QFETCH(int, index);
    const Court &expected = courts[size_t(index)];
    const CourtFacts &row = BkCourt(index);
    QCOMPARE(row.Place, QString::fromLatin1(expected.code));
    QCOMPARE(row.State, QString::fromLatin1(expected.lblState));
    QCOMPARE(row.OfList, QString::fromLatin1(expected.txtCountyList));
    QCOMPARE(QString(u" / "_s + row.OfNumber), QString::fromLatin1(expected.suffix));
    QCOMPARE(row.OfNumber, QString::fromLatin1(expected.lblCourtName));
}

void tst_BankruptcyRequests::aCourtThatThereIsNot_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("below") << -1;
    QTest::newRow("above") << 4;
}

void tst_BankruptcyRequests::aCourtThatThereIsNot()
{
    QFETCH(int, index);
    QCOMPARE(BkRequest(SmithIn(CourtFamily::Bankruptcy), index, thisYear), std::nullopt);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, BkCourt(index));
}

void tst_BankruptcyRequests::whatTheResultsWindowGets_data()
{
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("lblName");
    QTest::newRow("person") << SmithIn(CourtFamily::Bankruptcy) << u"SMITH, JOHN, Q"_s << u""_s;
    QTest::newRow("business") << search(SearchKind::Business, u"ACME INC"_s) << u"ACME INC"_s
                              << u""_s;
    QTest::newRow("tax identifier")
        << search(SearchKind::TaxId, u"91-1234567"_s) << u"91-1234567"_s << u"Tax ID#:"_s;
    QTest::newRow("social security number")
        << search(SearchKind::Ssn, u"123-45-6789"_s) << u"123-45-6789"_s << u"SSN#"_s;
}

void tst_BankruptcyRequests::whatTheResultsWindowGets()
{
    QFETCH(SearchEntry, entry);
    QFETCH(QString, shown);
    QFETCH(QString, lblName);
    for (int i = 0; i < bkCourtCount; ++i) {
        const BkResultsFields fields = BkResultsFieldsOf(entry, i);
        QCOMPARE(fields.lblState, QString::fromLatin1(courts[size_t(i)].lblState));
        QCOMPARE(fields.txtCountyList, QString::fromLatin1(courts[size_t(i)].txtCountyList));
        QCOMPARE(fields.lblCaseTypeVals, u"Bankruptcy"_s);
        QCOMPARE(fields.lblNameVal, shown);
        QCOMPARE(fields.lblName, lblName);
    }
}

void tst_BankruptcyRequests::aTildeTypedBeforeTheCourtWasChosenIsLeftOut()
{
    QCOMPARE(BkRequest(search(SearchKind::Business, u"AC~ME ~"_s), 2, thisYear),
             std::optional(u"BKRPT~SEARCHBUS~ACME~OR~*ALL~1980~2005~"_s));
}

void tst_BankruptcyRequests::nothingLeftToLookForIsNoRequest_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("blanks") << u"  "_s;
    QTest::newRow("only what frames a field") << u"~ ~|"_s;
}

void tst_BankruptcyRequests::nothingLeftToLookForIsNoRequest()
{
    QFETCH(QString, text);
    for (const SearchKind kind : {SearchKind::Person, SearchKind::Business, SearchKind::Number,
                                  SearchKind::TaxId, SearchKind::Ssn})
        QCOMPARE(BkRequest(search(kind, text), 0, thisYear), std::nullopt);
}

void tst_BankruptcyRequests::fieldsOfTenThousandCharacters()
{
    const QString name(10'000, u'X');
    QCOMPARE(BkRequest(search(SearchKind::Business, name), 0, thisYear),
             std::optional<QString>(u"BKRPT~SEARCHBUS~"_s + name + u"~WAW~*ALL~1980~2005~"_s));
}

void tst_BankruptcyRequests::whateverIsEnteredEveryLineHasItsFields()
{
    constexpr std::array<int, 5> fields{10, 7, 4, 7, 7};
    QRandomGenerator random(1980);
    int made = 0;
    for (int round = 0; round < 2000; ++round) {
        SearchEntry entry = search(static_cast<SearchKind>(random.bounded(5)), {});
        for (QString &name : entry.Names)
            name = HostileText(random);
        entry.YearRange = random.bounded(2) == 1;
        entry.FromYear = HostileText(random);
        entry.ToYear = HostileText(random);
        const std::optional<QString> line = BkRequest(entry, random.bounded(4), thisYear);
        if (!line)
            continue;
        ++made;
        QCOMPARE(line->count(u'~'), fields[static_cast<size_t>(entry.Kind)]);
        QVERIFY(line->endsWith(u'~'));
        QVERIFY(!line->contains(u'¦') && !line->contains(u'|') && !line->contains(u'\n'));
    }
    QVERIFY(made > 1000);
}

HALVANE_TEST(tst_BankruptcyRequests)
#include "tst_BankruptcyRequests.moc"
