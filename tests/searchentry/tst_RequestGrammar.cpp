#include "searchentry/Entries.h"
#include "searchentry/RequestGrammar.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
RequestValues values()
{
    return {{u"PLACE"_s}, u"TYPES,"_s, 500, 2005};
}

SearchEntry ranged()
{
    SearchEntry entry = SmithIn(CourtFamily::Superior);
    SetRange(entry, u"1990"_s, u"2002"_s);
    return entry;
}
} // namespace

class tst_RequestGrammar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void eachRow_data();
    void eachRow();
    void everyRowHasATest();
    void withoutARange_data();
    void withoutARange();
    void yearsAreTrimmed();
    void thePageSizeHasNoLeadingZeros();
    void theSuffixIsNeverSent_data();
    void theSuffixIsNeverSent();
    void namesAreTrimmed();
    void aFieldNeverHoldsWhatFramesIt_data();
    void aFieldNeverHoldsWhatFramesIt();
    void aTildeStaysWhereItFramesNothing();
    void whatIsLeftOfATypedText_data();
    void whatIsLeftOfATypedText();
    void fieldsOfTenThousandCharacters();
    void whateverIsEnteredTheFrameHolds();
    void eachWithComma();
};

void tst_RequestGrammar::eachRow_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("request");
    const auto add = [](const char *name, RequestLine line, const QString &request) {
        QTest::newRow(name) << static_cast<int>(line) << request;
    };
    add("Superior", RequestLine::Superior,
        u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦PLACE,¦TYPES,¦1990¦2002¦"_s);
    add("Index", RequestLine::Index,
        u"INDEX~SEARCH~SMITH~JOHN~Q~~PLACE,~TYPES,~1990~2002~LL=1~UL=500~"_s);
    add("Oregon by county", RequestLine::OregonByCounty,
        u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦PLACE¦TYPES,¦1990¦2002¦"_s);
    add("Oregon statewide", RequestLine::OregonStatewide,
        u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦TYPES,¦1990¦2002¦"_s);
    add("Idaho by county", RequestLine::IdahoByCounty,
        u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦PLACE,¦TYPES,¦1990¦2002¦"_s);
    add("Idaho statewide", RequestLine::IdahoStatewide,
        u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦TYPES,¦1990¦2002¦"_s);
    add("non-civil statewide", RequestLine::DiscisStatewide,
        u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s);
    add("defendants with addresses", RequestLine::DiscisDefendants,
        u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦DND¦"_s);
    add("non-civil, one court", RequestLine::DiscisNonCivil,
        u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦PLACE¦IN¦CNCI¦"_s);
    add("civil, one court", RequestLine::DiscisCivil,
        u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦PLACE¦CV¦CNCI¦"_s);
    add("bankruptcy person", RequestLine::BkPerson,
        u"BKRPT~SEARCH~SMITH~JOHN~Q~~PLACE~*ALL~1990~2002~"_s);
    add("bankruptcy business", RequestLine::BkBusiness,
        u"BKRPT~SEARCHBUS~SMITH~PLACE~*ALL~1990~2002~"_s);
    add("bankruptcy number", RequestLine::BkNumber, u"BKRPT~SUMMARY~SMITH~PLACE~"_s);
    add("bankruptcy tax identifier", RequestLine::BkTaxId,
        u"BKRPT~SEARCHTID~SMITH~PLACE~*ALL~1990~2002~"_s);
    add("bankruptcy social security number", RequestLine::BkSsn,
        u"BKRPT~SEARCHSSN~SMITH~PLACE~*ALL~1990~2002~"_s);
    add("case number", RequestLine::CaseNumber, u"WASUP¦SUMMARY¦SMITH¦"_s);
}

void tst_RequestGrammar::eachRow()
{
    QFETCH(int, line);
    QFETCH(QString, request);
    QCOMPARE(ComposeRequest(static_cast<RequestLine>(line), ranged(), values()), request);
}

void tst_RequestGrammar::everyRowHasATest()
{
    QCOMPARE(RequestRows().size(), size_t(16));
    for (size_t i = 0; i < RequestRows().size(); ++i) {
        const auto line = static_cast<RequestLine>(i);
        QCOMPARE(RequestRows()[i].Line, line);
        QCOMPARE(&RequestRowOf(line), &RequestRows()[i]);
    }
}

void tst_RequestGrammar::withoutARange_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("end");
    const auto add = [](const char *name, RequestLine line, const QString &end) {
        QTest::newRow(name) << static_cast<int>(line) << end;
    };
    add("Superior", RequestLine::Superior, u"¦TYPES,¦¦¦"_s);
    add("Index", RequestLine::Index, u"~TYPES,~1970~2005~LL=1~UL=500~"_s);
    add("Oregon by county", RequestLine::OregonByCounty, u"¦TYPES,¦¦¦"_s);
    add("Oregon statewide", RequestLine::OregonStatewide, u"¦TYPES,¦¦¦"_s);
    add("Idaho by county", RequestLine::IdahoByCounty, u"¦TYPES,¦¦¦"_s);
    add("Idaho statewide", RequestLine::IdahoStatewide, u"¦TYPES,¦¦¦"_s);
    add("bankruptcy person", RequestLine::BkPerson, u"~*ALL~1980~2005~"_s);
    add("bankruptcy business", RequestLine::BkBusiness, u"~*ALL~1980~2005~"_s);
    add("bankruptcy tax identifier", RequestLine::BkTaxId, u"~*ALL~1980~2005~"_s);
    add("bankruptcy social security number", RequestLine::BkSsn, u"~*ALL~1980~2005~"_s);
}

void tst_RequestGrammar::withoutARange()
{
    QFETCH(int, line);
    QFETCH(QString, end);
    // What still stands in the boxes is read only with a range.
    SearchEntry entry = ranged();
    entry.YearRange = false;
    const QString request = ComposeRequest(static_cast<RequestLine>(line), entry, values());
    QVERIFY2(request.endsWith(end), qPrintable(request));
}

void tst_RequestGrammar::yearsAreTrimmed()
{
    SearchEntry entry = ranged();
    SetRange(entry, u" 1990 "_s, u"  2002"_s);
    QVERIFY(ComposeRequest(RequestLine::Superior, entry, values()).endsWith(u"¦1990¦2002¦"));
}

void tst_RequestGrammar::thePageSizeHasNoLeadingZeros()
{
    RequestValues small = values();
    small.PageSize = 25;
    QVERIFY(ComposeRequest(RequestLine::Index, ranged(), small).endsWith(u"~LL=1~UL=25~"));
}

void tst_RequestGrammar::theSuffixIsNeverSent_data()
{
    QTest::addColumn<int>("line");
    for (const RequestRow &row : RequestRows())
        QTest::addRow("line %d", static_cast<int>(row.Line)) << static_cast<int>(row.Line);
}

void tst_RequestGrammar::theSuffixIsNeverSent()
{
    QFETCH(int, line);
    SearchEntry entry = ranged();
    entry.Names[Suffix] = u"JR"_s;
    QCOMPARE(ComposeRequest(static_cast<RequestLine>(line), entry, values()),
             ComposeRequest(static_cast<RequestLine>(line), ranged(), values()));
}

void tst_RequestGrammar::namesAreTrimmed()
{
    SearchEntry entry = ranged();
    entry.Names = {u"  VAN DYKE "_s, u" MARY ANN "_s, u" "_s, QString()};
    QVERIFY(ComposeRequest(RequestLine::Superior, entry, values())
                .startsWith(u"WASUP¦SEARCH¦VAN DYKE¦MARY ANN¦¦¦"));
    QCOMPARE(ComposeRequest(RequestLine::CaseNumber, entry, values()),
             u"WASUP¦SUMMARY¦VAN DYKE¦"_s);
}

void tst_RequestGrammar::aFieldNeverHoldsWhatFramesIt_data()
{
    QTest::addColumn<int>("line");
    for (const RequestRow &row : RequestRows())
        QTest::addRow("line %d", static_cast<int>(row.Line)) << static_cast<int>(row.Line);
}

void tst_RequestGrammar::aFieldNeverHoldsWhatFramesIt()
{
    QFETCH(int, line);
    const auto kind = static_cast<RequestLine>(line);
    const QString delimiter = QChar(RequestRowOf(kind).Delimiter);
    SearchEntry clean = ranged();
    SearchEntry dirty = ranged();
    RequestValues dirtyValues = values();
    const QString bad = u"|¦\r\n"_s + delimiter;
    for (QString *text :
         {&dirty.Names[LastName], &dirty.Names[FirstName], &dirty.Names[MiddleInitial],
          &dirty.FromYear, &dirty.ToYear, &dirtyValues.CaseTypes, &dirtyValues.Places[0]})
        *text = bad + text->left(1) + bad + text->mid(1) + bad;
    QCOMPARE(ComposeRequest(kind, dirty, dirtyValues), ComposeRequest(kind, clean, values()));
}

void tst_RequestGrammar::aTildeStaysWhereItFramesNothing()
{
    SearchEntry entry = ranged();
    entry.Names[LastName] = u"SMI~TH"_s;
    QVERIFY(ComposeRequest(RequestLine::Superior, entry, values()).contains(u"¦SMI~TH¦"));
    QVERIFY(ComposeRequest(RequestLine::Index, entry, values()).contains(u"~SMITH~JOHN~"));
}

void tst_RequestGrammar::whatIsLeftOfATypedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("bar");
    QTest::addColumn<QString>("tilde");
    QTest::newRow("nothing to leave out") << u"ACME INC"_s << u"ACME INC"_s << u"ACME INC"_s;
    QTest::newRow("a tilde") << u"A~B"_s << u"A~B"_s << u"AB"_s;
    QTest::newRow("a broken bar") << u"A¦B"_s << u"AB"_s << u"AB"_s;
    QTest::newRow("a bar") << u"A|B"_s << u"AB"_s << u"AB"_s;
    QTest::newRow("line ends") << u"A\r\nB\n"_s << u"AB"_s << u"AB"_s;
    QTest::newRow("blanks behind a tilde") << u"~ A ~"_s << u"~ A ~"_s << u"A"_s;
    QTest::newRow("nothing else") << u"|~¦"_s << u"~"_s << u""_s;
    QTest::newRow("empty") << u""_s << u""_s << u""_s;
}

void tst_RequestGrammar::whatIsLeftOfATypedText()
{
    QFETCH(QString, text);
    QFETCH(QString, bar);
    QFETCH(QString, tilde);
    QCOMPARE(TypedFieldText(text, RequestLine::Superior), bar);
    QCOMPARE(TypedFieldText(text, RequestLine::BkPerson), tilde);
}

void tst_RequestGrammar::fieldsOfTenThousandCharacters()
{
    const QString longText(10'000, u'@');
    SearchEntry entry = ranged();
    entry.Names = {longText, longText, longText, longText};
    for (const RequestRow &row : RequestRows()) {
        const QString request = ComposeRequest(row.Line, entry, values());
        QCOMPARE(request.count(QChar(row.Delimiter)), qsizetype(row.Count));
        const auto typed = std::count_if(
            row.Fields.begin(), row.Fields.begin() + qsizetype(row.Count), [](const auto &field) {
                return field.Field == RequestField::Last || field.Field == RequestField::First
                       || field.Field == RequestField::MI || field.Field == RequestField::Number;
            });
        QVERIFY(typed > 0);
        QCOMPARE(request.count(u'@'), typed * longText.size());
    }
}

void tst_RequestGrammar::whateverIsEnteredTheFrameHolds()
{
    QRandomGenerator random(20051121);
    for (int round = 0; round < 2000; ++round) {
        SearchEntry entry;
        for (QString &name : entry.Names)
            name = HostileText(random);
        entry.YearRange = random.bounded(2) == 1;
        entry.FromYear = HostileText(random);
        entry.ToYear = HostileText(random);
        const RequestValues hostile{{HostileText(random), HostileText(random)},
                                    HostileText(random),
                                    static_cast<int>(random.bounded(30'000)),
                                    2005};
        for (const RequestRow &row : RequestRows()) {
            const QString request = ComposeRequest(row.Line, entry, hostile);
            QCOMPARE(request.count(QChar(row.Delimiter)), qsizetype(row.Count));
            QVERIFY(request.endsWith(QChar(row.Delimiter)));
            QCOMPARE(request.count(u'¦'), row.Delimiter == u'¦' ? qsizetype(row.Count) : 0);
            QVERIFY(!request.contains(u'|') && !request.contains(u'\r')
                    && !request.contains(u'\n'));
            const QStringList fields = request.split(QChar(row.Delimiter));
            for (size_t i = 0; i < row.Count; ++i) {
                const RequestFieldSpec &field = row.Fields[i];
                if (field.Field == RequestField::Literal)
                    QCOMPARE(fields[qsizetype(i)], field.Text);
                if (field.Field == RequestField::Empty)
                    QCOMPARE(fields[qsizetype(i)], QString());
            }
        }
    }
}

void tst_RequestGrammar::eachWithComma()
{
    QCOMPARE(EachWithComma({}), QString());
    QCOMPARE(EachWithComma({u"King"_s}), u"King,"_s);
    QCOMPARE(EachWithComma({u"Adams"_s, u"King"_s}), u"Adams,King,"_s);
}

HALVANE_TEST(tst_RequestGrammar)
#include "tst_RequestGrammar.moc"
