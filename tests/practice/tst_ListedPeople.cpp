#include "namesearch/DuplicateNames.h"
#include "namesearch/ResultRows.h"
#include "practice/ListedPeople.h"
#include "practice/PracticeAsk.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <set>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString end = u"EOF~"_s;

/// A search for `name`, which is LAST, FIRST and MI with bars between them.
QString request(const QString &name, const QString &place, const QString &wanted)
{
    return u"WADISCIS¦SEARCH¦%1¦%2¦%3¦"_s.arg(name, place, wanted);
}

QString statewide(const QString &name, const QString &search)
{
    return request(name, u"*SW¦IN"_s, search);
}

/// The reply with "n" for a name and "c" for a case.
QString shapeOf(const QStringList &script)
{
    QString shape;
    for (const QString &step : script)
        shape += step == end ? u"." : IsDuplicateName(step) ? u"n" : u"c";
    return shape;
}

ResultKind casesOf(const QString &search)
{
    return search == u"DND" ? ResultKind::DiscisAddresses : ResultKind::DiscisStatewide;
}
} // namespace

class tst_ListedPeople : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rows_data();
    void rows();
    void shapes_data();
    void shapes();
    void othersFindNothing_data();
    void othersFindNothing();
    void casesOfEachPerson_data();
    void casesOfEachPerson();
    void aMarkedNameIsTheSamePerson();
    void nobodyIsMeant_data();
    void nobodyIsMeant();
};

void tst_ListedPeople::rows_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("row");
    QTest::newRow("SNCI") << u"SNCI"_s << 0
                          << u"NCNMD~DUPES, JOHN A~M~01/15/1940~W~506~145~BRO/BRO~~"_s;
    QTest::newRow("SNCI, a note and no height")
        << u"SNCI"_s << 1 << u"NCNMD~DUPES, JOHN B~M~09/22/1940~B~Unknown~162~BLN/BLU~Alias~"_s;
    QTest::newRow("SNCI, no date of birth")
        << u"SNCI"_s << 2 << u"NCNMD~DUPES, JOHN C~M~Unknown~H~508~179~BLK/BRO~~"_s;
    QTest::newRow("DND") << u"DND"_s << 0
                         << u"NCDND~DUPES, JOHN A~M~506~W~145~01/15/1940~BRO/BRO~700401~01~"
                            "1200 MAIN ST SPOKANE~"_s;
}

void tst_ListedPeople::rows()
{
    QFETCH(QString, search);
    QFETCH(int, place);
    QTEST(Search(statewide(u"DUPES¦¦"_s, search)).value(place), "row");
}

void tst_ListedPeople::shapes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shape");
    QTest::addColumn<QString>("last"); // the name in the last row that names somebody
    QTest::newRow("names only") << u"DUPES¦¦"_s << u"nnnnn."_s << u"DUPES, JOHN E"_s;
    QTest::newRow("names between cases") << u"MIXED¦¦"_s << u"cnnnnnc."_s << u"MIXED, JOHN E"_s;
    QTest::newRow("so many") << u"DUPES¦12¦"_s << u"nnnnnnnnnnnn."_s << u"DUPES, JOHN L"_s;
    QTest::newRow("none") << u"DUPES¦0¦"_s << u"."_s << QString();
    QTest::newRow("fewer than none") << u"DUPES¦-1¦"_s << u"."_s << QString();
    QTest::newRow("too many") << u"dupes¦500¦"_s << QString(90, u'n') + u'.' << u"DUPES, JOHN L"_s;
    QTest::newRow("cases only") << u"MIXED¦0¦"_s << u"cc."_s << QString();
    QTest::newRow("a first name") << u"DUPES¦MARY¦"_s << u"nnnnn."_s << u"DUPES, MARY E"_s;
    QTest::newRow("a middle initial") << u"DUPES¦MARY¦Q"_s << u"nnnnn."_s << u"DUPES, MARY Q"_s;
}

void tst_ListedPeople::shapes()
{
    QFETCH(QString, name);
    for (const QString &search : {u"SNCI"_s, u"DND"_s}) {
        const QStringList script = Search(statewide(name, search));
        QTEST(shapeOf(script), "shape");
        QString last;
        for (const QString &step : script) {
            if (IsDuplicateName(step))
                last = step.section(u'~', 1, 1);
        }
        QTEST(last, "last");
    }
}

void tst_ListedPeople::othersFindNothing_data()
{
    QTest::addColumn<QString>("request");
    for (const QString &name : {u"DUPES"_s, u"MIXED"_s}) {
        const auto row = [&](const char *court, const QString &text) {
            QTest::addRow("%s, %s", qPrintable(name), court) << text.arg(name);
        };
        row("one court", u"WADISCIS¦SEARCH¦%1¦¦¦KSD¦IN¦CNCI¦"_s);
        row("civil", u"WADISCIS¦SEARCH¦%1¦¦¦*SW¦CV¦SNCI¦"_s);
        row("a court by the words for the state", u"WADISCIS¦SEARCH¦%1¦¦¦KSD¦IN¦SNCI¦"_s);
        row("Superior", u"WASUP¦SEARCH¦%1¦¦¦¦King,¦¦¦¦"_s);
        row("Oregon", u"OREGON¦SEARCH¦%1¦¦¦¦*ALL¦¦¦¦"_s);
        row("bankruptcy", u"BKRPT~SEARCH~%1~~~~WAW~*ALL~1980~2026~"_s);
        row("index", u"INDEX~SEARCH~%1~~~~King,~Criminal,~1970~2005~LL=1~UL=9~"_s);
    }
}

void tst_ListedPeople::othersFindNothing()
{
    QFETCH(QString, request);
    QCOMPARE(Search(request), QStringList{end});
}

void tst_ListedPeople::casesOfEachPerson_data()
{
    QTest::addColumn<QString>("search");
    QTest::newRow("SNCI") << u"SNCI"_s;
    QTest::newRow("DND") << u"DND"_s;
}

/// What the program reads of a list, and asks for, is understood by the court.
void tst_ListedPeople::casesOfEachPerson()
{
    QFETCH(QString, search);
    std::set<QString> numbers;
    size_t cases = 0;
    int place = 0;
    for (const QString &row : Search(statewide(u"MIXED¦500¦"_s, search))) {
        if (!IsDuplicateName(row))
            continue;
        const NameRow name = ParseNameRow(row, place);
        QVERIFY(name.Complete);
        const QStringList script =
            Search(CasesOfNameRequest(search, u"MIXED, 500"_s, name.Cells, name.Key));
        QCOMPARE(shapeOf(script), QString(ListedCases(place), u'c') + u'.');
        for (const QString &text : script.first(script.size() - 1)) {
            const ResultRow parsed = ParseResultRow(text, casesOf(search));
            QVERIFY2(parsed.Complete, qPrintable(text));
            QCOMPARE(parsed.Cells[0], name.Cells[0]);
            QCOMPARE(parsed.Cells[6], u"DEF"_s);
            numbers.insert(parsed.Cells[1]);
            ++cases;
        }
        ++place;
    }
    QCOMPARE(place, static_cast<int>(mostListedPeople));
    QCOMPARE(numbers.size(), cases);
}

void tst_ListedPeople::aMarkedNameIsTheSamePerson()
{
    NameRow name = ParseNameRow(Search(statewide(u"DUPES¦¦"_s, u"SNCI"_s)).first(), 0);
    const QString before = CasesOfNameRequest(u"SNCI"_s, u"DUPES"_s, name.Cells, name.Key);
    name.Cells[0] = MarkedAsRetrieved(name.Cells[0]);
    QCOMPARE(CasesOfNameRequest(u"SNCI"_s, u"DUPES"_s, name.Cells, name.Key), before);
    QCOMPARE(shapeOf(Search(before)), u"c."_s);
}

void tst_ListedPeople::nobodyIsMeant_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("error");
    const QString nobody = u"ERROR~Nobody was listed so~"_s;
    const QString fields = u"ERROR~Wrong number of fields~"_s;
    QTest::newRow("another date of birth")
        << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦01/16/1940¦W¦506¦145¦x¦¦1¦SNCINMD¦"_s << nobody;
    QTest::newRow("another name")
        << u"WADISCIS¦SEARCH¦DUPES¦SMITH, JOHN A¦M¦01/15/1940¦W¦506¦145¦x¦¦1¦SNCINMD¦"_s << nobody;
    QTest::newRow("a name with another meaning")
        << u"WADISCIS¦SEARCH¦MANY¦MANY, JOHN A¦M¦01/15/1940¦W¦506¦145¦x¦¦1¦SNCINMD¦"_s << nobody;
    QTest::newRow("another number")
        << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦¦700400¦01¦DNDND¦"_s << nobody;
    QTest::newRow("another part") << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦¦700401¦02¦DNDND¦"_s
                                  << nobody;
    QTest::newRow("no number") << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦¦I1¦¦DNDND¦"_s << nobody;
    QTest::newRow("SNCINMD, one too few")
        << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦01/15/1940¦W¦506¦145¦x¦1¦SNCINMD¦"_s << fields;
    QTest::newRow("DNDND, one too many")
        << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN A¦M¦¦700401¦01¦1¦DNDND¦"_s << fields;
    QTest::newRow("SNCINMD alone") << u"WADISCIS¦SEARCH¦SNCINMD¦"_s << fields;
}

void tst_ListedPeople::nobodyIsMeant()
{
    QFETCH(QString, request);
    QFETCH(QString, error);
    QCOMPARE(Search(request), (QStringList{error, end}));
}

HALVANE_TEST(tst_ListedPeople)
#include "tst_ListedPeople.moc"
