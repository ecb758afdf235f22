#include "practice/OtherCourts.h"
#include "practice/PracticeAsk.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>
#include <set>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString end = u"EOF~"_s;

/// The fields of a row; its last character parts them.
QStringList fieldsOf(const QString &row)
{
    QStringList fields = row.split(row.back());
    fields.removeLast();
    return fields;
}

/// The rows of a reply that says nothing else but its end.
QList<QStringList> rowsOf(const QStringList &script)
{
    QList<QStringList> rows;
    for (const QString &step : script) {
        if (step != end)
            rows.append(fieldsOf(step));
    }
    return rows;
}

/// A search of each family for `name`, which is LAST, a broken bar and FIRST.
QString stateWide(const QString &family, const QString &name)
{
    const QString last = name.section(u'¦', 0, 0);
    const QString first = name.section(u'¦', 1, 1);
    if (family == u"OREGON" || family == u"IDSUP")
        return u"%1¦SEARCH¦%2¦%3¦¦¦*ALL¦¦¦¦"_s.arg(family, last, first);
    if (family == u"BKRPT")
        return u"BKRPT~SEARCH~%1~%2~~~WAW~*ALL~1980~2026~"_s.arg(last, first);
    return u"WADISCIS¦SEARCH¦%1¦%2¦¦*SW¦IN¦%3¦"_s.arg(last, first, family);
}

/// A search, and the case numbers that it finds.
void addFilter(const char *name, const QString &request, const QStringList &numbers)
{
    QTest::newRow(name) << request << numbers;
}

void addFamilies()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<qsizetype>("fields");
    QTest::newRow("Oregon") << u"OREGON"_s << qsizetype{6};
    QTest::newRow("Idaho") << u"IDSUP"_s << qsizetype{6};
    QTest::newRow("district courts") << u"SNCI"_s << qsizetype{8};
    QTest::newRow("with addresses") << u"DND"_s << qsizetype{8};
    QTest::newRow("bankruptcy") << u"BKRPT"_s << qsizetype{8};
}
} // namespace

class tst_PracticeFamilies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filters_data();
    void filters();
    void filtersOfOtherCourts_data();
    void filtersOfOtherCourts() { filters(); }
    void rowsHaveTheirFields_data() { addFamilies(); }
    void rowsHaveTheirFields();
    void rowsAreInOrder_data() { addFamilies(); }
    void rowsAreInOrder();
    void stateWideIsAllCourtsTogether_data();
    void stateWideIsAllCourtsTogether();
    void stateWideBringsFelonies();
    void noNameIsListedAsADuplicate();
    void aBankruptcyRowHoldsItsRequest();
    void judgmentsOnly();
    void progress_data();
    void progress();
    void theTagChangesNothing_data() { addFamilies(); }
    void theTagChangesNothing();
    void theSameCourtAnswersTheSame_data() { addFamilies(); }
    void theSameCourtAnswersTheSame();
    void malformedSearches_data();
    void malformedSearches();
    void specialNames_data();
    void specialNames();
    void theIndexsOwnNamesFindNothing_data() { addFamilies(); }
    void theIndexsOwnNamesFindNothing();
    void specialRowsPassTheFilters_data();
    void specialRowsPassTheFilters();
};

void tst_PracticeFamilies::filters_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("numbers");

    const QString contract = u"CV08060677"_s;
    const QString divorce = u"DO99120007"_s;
    const QString claim = u"SC97030044"_s;
    const QString oregon = u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦"_s;
    addFilter("Oregon", oregon + u"*ALL¦¦¦¦", {claim, divorce, contract});
    addFilter("Oregon, circuit", oregon + u"MCR C¦¦¦¦", {divorce, contract});
    addFilter("Oregon, district", oregon + u"WSH D¦¦¦¦", {claim});
    addFilter("Oregon, circuit of the same county", oregon + u"WSH C¦¦¦¦", {});
    addFilter("Oregon, no such court", oregon + u"XXA C¦¦¦¦", {});
    addFilter("Oregon, no court", oregon + u"¦¦¦¦", {});
    addFilter("Oregon, a type", oregon + u"*ALL¦CV,¦¦¦", {contract});
    addFilter("Oregon, two types", oregon + u"*ALL¦DO,SC,¦¦¦", {claim, divorce});
    addFilter("Oregon, all types", oregon + u"*ALL¦CV,DO,JU,OF,PB,SC,¦¦¦",
              {claim, divorce, contract});
    addFilter("Oregon, a type of none", oregon + u"*ALL¦JU,¦¦¦", {});
    addFilter("Oregon, an unknown type", oregon + u"*ALL¦XX,¦¦¦", {});
    addFilter("Oregon, judgments", oregon + u"*ALL¦CV,SC,JG,¦¦¦", {claim});
    addFilter("Oregon, judgments of any type", oregon + u"*ALL¦JG,¦¦¦", {claim});
    addFilter("Oregon, judgments of another type", oregon + u"*ALL¦CV,JG,¦¦¦", {});
    addFilter("Oregon, years at their bounds", oregon + u"*ALL¦¦1997¦1999¦", {claim, divorce});
    addFilter("Oregon, from a year", oregon + u"*ALL¦¦1998¦¦", {divorce, contract});
    addFilter("Oregon, years the wrong way round", oregon + u"*ALL¦¦2008¦1997¦", {});
    addFilter("Oregon, a business", u"OREGON¦SEARCH¦ACME¦¦¦¦*ALL¦¦¦¦"_s, {claim, contract});

    const QString speeding = u"CR-1998-0002546-IN"_s;
    const QString owed = u"CV-2004-0000711-OC"_s;
    const QString idaho = u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦"_s;
    addFilter("Idaho", idaho + u"*ALL¦¦¦¦", {speeding, owed});
    addFilter("Idaho, a county", idaho + u"Ada,¦¦¦¦", {speeding});
    addFilter("Idaho, a county in capitals", idaho + u"KOOTENAI,¦¦¦¦", {owed});
    addFilter("Idaho, two counties", idaho + u"Kootenai,Ada,¦¦¦¦", {speeding, owed});
    addFilter("Idaho, a county of Washington", idaho + u"King,¦¦¦¦", {});
    addFilter("Idaho, a type", idaho + u"*ALL¦CR,¦¦¦", {speeding});
    addFilter("Idaho, all types", idaho + u"*ALL¦CV,CR,JU,¦¦¦", {speeding, owed});
    addFilter("Idaho, a type of none", idaho + u"*ALL¦JU,¦¦¦", {});
    addFilter("Idaho, no judgments", idaho + u"*ALL¦JG,¦¦¦", {});
    addFilter("Idaho, years", idaho + u"*ALL¦¦2000¦2004¦", {owed});
}

void tst_PracticeFamilies::filtersOfOtherCourts_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("numbers");

    const QString ticket = u"3YH809020"_s;
    const QString driving = u"1TA004410"_s;
    const QString owing = u"5KS000123"_s;
    const QString felony = u"94-1-00042-1"_s;
    const QString district = u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦"_s;
    addFilter("civil", district + u"KSD¦CV¦CNCI¦", {owing});
    addFilter("civil, another court", district + u"TAC¦CV¦CNCI¦", {});
    addFilter("civil, no such court", district + u"AAA¦CV¦CNCI¦", {});
    addFilter("civil, of a business", u"WADISCIS¦SEARCH¦ACME¦¦¦KSD¦CV¦CNCI¦"_s, {owing});
    addFilter("non-civil", district + u"KSD¦IN¦CNCI¦", {ticket});
    addFilter("non-civil, another court", district + u"TAC¦IN¦CNCI¦", {driving});
    addFilter("statewide", district + u"*SW¦IN¦SNCI¦", {felony, driving, ticket});
    addFilter("with addresses", district + u"*SW¦IN¦DND¦", {felony, driving, ticket});
    addFilter("one court is not the state", district + u"KSD¦IN¦SNCI¦", {});
    addFilter("the state is not one court", district + u"*SW¦IN¦CNCI¦", {});
    addFilter("no civil cases statewide", district + u"*SW¦CV¦SNCI¦", {});
    addFilter("no such kind", district + u"KSD¦XX¦CNCI¦", {});

    const QString chapter = u"99-20077"_s;
    const QString bankruptcy = u"BKRPT~SEARCH~SMITH~JOHN~Q~~"_s;
    addFilter("bankruptcy", bankruptcy + u"OR~*ALL~1980~2005~", {chapter});
    addFilter("bankruptcy, another court", bankruptcy + u"WAW~*ALL~1980~2005~", {});
    addFilter("bankruptcy, no such court", bankruptcy + u"AK~*ALL~1980~2005~", {});
    addFilter("bankruptcy, no court", bankruptcy + u"~*ALL~1980~2005~", {});
    addFilter("bankruptcy, years at their bounds", bankruptcy + u"OR~*ALL~1999~1999~", {chapter});
    addFilter("bankruptcy, later years", bankruptcy + u"OR~*ALL~2000~2005~", {});
    addFilter("bankruptcy, open years", bankruptcy + u"OR~*ALL~~~", {chapter});
    addFilter("bankruptcy, other types", bankruptcy + u"OR~CV,~~~", {});
    addFilter("a business", u"BKRPT~SEARCHBUS~PLUMBING ACME~OR~*ALL~1980~2005~"_s, {chapter});
    addFilter("no person is a business", u"BKRPT~SEARCHBUS~SMITH~OR~*ALL~1999~1999~"_s, {});
    addFilter("a tax number", u"BKRPT~SEARCHTID~00-0000001~OR~*ALL~1980~2005~"_s, {chapter});
    addFilter("another tax number", u"BKRPT~SEARCHTID~00-0000002~OR~*ALL~1980~2005~"_s, {});
    addFilter("a social security number", u"BKRPT~SEARCHSSN~900-00-0001~OR~*ALL~1980~2005~"_s,
              {chapter});
    addFilter("one in another court", u"BKRPT~SEARCHSSN~900-00-0001~ID~*ALL~1980~2005~"_s, {});
    addFilter("nobody's", u"BKRPT~SEARCHSSN~123456789~OR~*ALL~1980~2005~"_s, {});
}

void tst_PracticeFamilies::filters()
{
    QFETCH(QString, request);
    QFETCH(QStringList, numbers);

    const QStringList script = Search(request);
    QCOMPARE(script.last(), end);
    QStringList found;
    for (const QStringList &row : rowsOf(script))
        found.append(row[1]);
    QCOMPARE(found, numbers);
}

void tst_PracticeFamilies::rowsHaveTheirFields()
{
    QFETCH(QString, family);
    QFETCH(qsizetype, fields);

    const QStringList script = Search(stateWide(family, u"SMITH"_s), 5'000);
    QVERIFY(script.size() > 30);
    QCOMPARE(script.last(), end);
    for (const QStringList &row : rowsOf(script)) {
        QVERIFY2(row.size() == fields, qPrintable(row.join(u'/')));
        QVERIFY2(!row.contains(QString()) || family == u"BKRPT", qPrintable(row.join(u'/')));
        // Where its family has the date.
        const qsizetype place = fields == 6 ? 2 : family == u"BKRPT" ? 3 : 7;
        QVERIFY2(QDate::fromString(row[place], u"MM/dd/yyyy"_s).isValid(),
                 qPrintable(row.join(u'/')));
        QVERIFY(row[0].contains(u"SMITH"_s));
    }
}

void tst_PracticeFamilies::rowsAreInOrder()
{
    QFETCH(QString, family);
    const QList<QStringList> rows = rowsOf(Search(stateWide(family, u"SMITH"_s), 5'000));
    const qsizetype place = family == u"BKRPT" ? 3 : rows.first().size() == 6 ? 2 : 7;
    const auto key = [&](const QStringList &row) {
        return std::make_pair(row[0], QDate::fromString(row[place], u"MM/dd/yyyy"_s));
    };
    for (qsizetype i = 1; i < rows.size(); ++i)
        QVERIFY2(key(rows[i - 1]) <= key(rows[i]), qPrintable(rows[i].join(u'/')));
}

void tst_PracticeFamilies::stateWideIsAllCourtsTogether_data()
{
    QTest::addColumn<QString>("stateWide");
    QTest::addColumn<QString>("oneCourt");
    QTest::addColumn<int>("family");

    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦JONES¦¦¦¦*ALL¦¦¦¦"_s
                            << u"OREGON¦SEARCH¦JONES¦¦¦¦%1¦¦¦¦"_s
                            << static_cast<int>(OtherFamily::Oregon);
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦JONES¦¦¦¦*ALL¦CV,CR,JU,¦¦¦"_s
                           << u"IDSUP¦SEARCH¦JONES¦¦¦¦%1,¦CV,CR,JU,¦¦¦"_s
                           << static_cast<int>(OtherFamily::Idaho);
    QTest::newRow("district courts")
        << u"WADISCIS¦SEARCH¦JONES¦¦¦*SW¦IN¦SNCI¦"_s << u"WADISCIS¦SEARCH¦JONES¦¦¦%1¦IN¦CNCI¦"_s
        << static_cast<int>(OtherFamily::District);
}

void tst_PracticeFamilies::stateWideIsAllCourtsTogether()
{
    QFETCH(QString, stateWide);
    QFETCH(QString, oneCourt);
    QFETCH(int, family);

    QStringList together;
    for (const OtherCourt &court : CourtsOf(static_cast<OtherFamily>(family)))
        together += Search(oneCourt.arg(court.code));
    together.removeAll(end);
    QStringList all = Search(stateWide);
    all.removeAll(end);
    all.removeIf([](const QString &row) { return row.contains(u" Superior~"_s); });
    QVERIFY(all.size() > 50);
    together.sort();
    all.sort();
    QCOMPARE(all, together);
}

/// The program opens such a row as a case of the Superior Courts.
void tst_PracticeFamilies::stateWideBringsFelonies()
{
    QCOMPARE(Search(u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s).first(),
             u"SMITH, JOHN Q~94-1-00042-1~S17~King Superior~S1~CL~DEF~11/07/1994~"_s);
    QCOMPARE(Search(u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦DND¦"_s).first(),
             u"SMITH, JOHN Q~94-1-00042-1~S17~KIP~S1~CL~DEF~11/07/1994~"_s);
    std::set<QString> codes;
    for (const QStringList &row : rowsOf(Search(stateWide(u"SNCI"_s, u"SMITH"_s), 5'000))) {
        if (row[1].contains(u'-'))
            codes.insert(row[2]);
        else
            QVERIFY(FindCourt(OtherFamily::District, row[2]).has_value());
    }
    QVERIFY(codes.size() > 10);
    for (const QString &code : codes)
        QVERIFY2(code.size() == 3 && code.startsWith(u'S') && code.mid(1).toInt() <= 39,
                 qPrintable(code));
}

void tst_PracticeFamilies::noNameIsListedAsADuplicate()
{
    for (const QString &wanted : {u"SNCI"_s, u"DND"_s}) {
        for (const QString &row : Search(stateWide(wanted, u"SMITH"_s), 5'000)) {
            QVERIFY2(!row.startsWith(u"NCNMD"_s) && !row.startsWith(u"NCDND"_s), qPrintable(row));
        }
    }
}

void tst_PracticeFamilies::aBankruptcyRowHoldsItsRequest()
{
    for (const QString &court : {u"WAW"_s, u"WAE"_s, u"OR"_s, u"ID"_s}) {
        const QString request = u"BKRPT~SEARCH~SMITH~~~~%1~*ALL~~~"_s.arg(court);
        const QStringList script = Search(request);
        QVERIFY(script.size() > 5);
        for (const QStringList &row : rowsOf(script)) {
            QCOMPARE(row[2], u"RETRIEVECOMMAND=BKRPT~SUMMARY~%1~%2~"_s.arg(row[1], court));
            QVERIFY(row[6] == u"Debtor" || row[6] == u"Creditor");
        }
    }
}

void tst_PracticeFamilies::judgmentsOnly()
{
    const QStringList all = Search(u"OREGON¦SEARCH¦SMITH¦¦¦¦*ALL¦CV,¦¦¦"_s);
    const QStringList only = Search(u"OREGON¦SEARCH¦SMITH¦¦¦¦*ALL¦CV,JG,¦¦¦"_s);
    QStringList wanted = all;
    wanted.removeIf(
        [](const QString &row) { return row != end && !row.contains(u" (Judgment)~"_s); });
    QCOMPARE(only, wanted);
    QVERIFY(only.size() > 5 && only.size() < all.size() - 5);
}

void tst_PracticeFamilies::progress_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("places");

    QTest::newRow("Oregon, circuit")
        << u"OREGON¦SEARCH¦X¦¦¦¦BAK C¦¦¦¦"_s << QStringList{u"Baker~County~Circuit~Court"_s};
    QTest::newRow("Oregon, district")
        << u"OREGON¦SEARCH¦X¦¦¦¦HOO D¦¦¦¦"_s << QStringList{u"Hood~River~County~District~Court"_s};
    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦X¦¦¦¦*ALL¦¦¦¦"_s
                            << QStringList{u"all~Oregon~Courts"_s};
    QTest::newRow("Idaho, two counties")
        << u"IDSUP¦SEARCH¦X¦¦¦¦Bear Lake,Ada,¦¦¦¦"_s
        << QStringList{u"Bear~Lake~County~District~Court"_s, u"Ada~County~District~Court"_s};
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦X¦¦¦¦*ALL¦¦¦¦"_s << QStringList{u"all~Idaho~Courts"_s};
    QTest::newRow("a district court")
        << u"WADISCIS¦SEARCH¦X¦¦¦OTD¦CV¦CNCI¦"_s << QStringList{u"Othello~District~Court"_s};
    QTest::newRow("district courts") << u"WADISCIS¦SEARCH¦X¦¦¦*SW¦IN¦DND¦"_s
                                     << QStringList{u"all~District~and~Municipal~Courts"_s};
    QTest::newRow("bankruptcy") << u"BKRPT~SEARCH~X~~~~WAE~*ALL~~~"_s
                                << QStringList{u"Washington~Eastern~Bankruptcy~Court"_s};
    QTest::newRow("nowhere") << u"BKRPT~SEARCH~X~~~~AK~*ALL~~~"_s << QStringList{};
}

void tst_PracticeFamilies::progress()
{
    QFETCH(QString, request);
    QFETCH(QStringList, places);

    QStringList script;
    for (const QString &place :
         places + QStringList{u"the~index~of~names"_s, u"the~index~of~cases"_s})
        script.append(u"SEARCHING~%1~.."_s.arg(place));
    Conversation conversation = LoggedIn();
    QCOMPARE(Ask(conversation, request), script + QStringList{end});
}

void tst_PracticeFamilies::theTagChangesNothing()
{
    QFETCH(QString, family);
    const QString request = stateWide(family, u"SMITH¦JO"_s);
    const QStringList script = Search(request);
    QVERIFY(script.size() > 2);
    for (const QString &tag : {u"^^CAC:ABC^^"_s, u"^^CAC:^^"_s})
        QCOMPARE(Search(request.chopped(1) + tag + request.back()), script);
}

void tst_PracticeFamilies::theSameCourtAnswersTheSame()
{
    QFETCH(QString, family);
    const Population again = MakePopulation(1, someDay);
    const Population other = MakePopulation(2, someDay);
    const QString request = stateWide(family, u"SMITH"_s);
    const QStringList script = Search(request);
    Conversation same = LoggedIn(u"ann"_s, again);
    QCOMPARE(WithoutProgress(Ask(same, request)), script);
    Conversation others = LoggedIn(u"ann"_s, other);
    QVERIFY(WithoutProgress(Ask(others, request)) != script);
}

void tst_PracticeFamilies::malformedSearches_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("error");

    const QString fields = u"ERROR~Wrong number of fields~"_s;
    const QString name = u"ERROR~No name~"_s;
    const QString year = u"ERROR~Not a year~"_s;
    QTest::newRow("Oregon, too few") << u"OREGON¦SEARCH¦"_s << fields;
    QTest::newRow("Oregon, one too few") << u"OREGON¦SEARCH¦SMITH¦¦¦¦*ALL¦¦¦"_s << fields;
    QTest::newRow("Oregon, one too many") << u"OREGON¦SEARCH¦SMITH¦¦¦¦*ALL¦¦¦¦¦"_s << fields;
    QTest::newRow("Oregon, no name") << u"OREGON¦SEARCH¦ ¦¦¦¦*ALL¦¦¦¦"_s << name;
    QTest::newRow("Oregon, no year") << u"OREGON¦SEARCH¦SMITH¦¦¦¦*ALL¦¦x¦¦"_s << year;
    QTest::newRow("Idaho, too few") << u"IDSUP¦SEARCH¦SMITH¦"_s << fields;
    QTest::newRow("Idaho, no name") << u"IDSUP¦SEARCH¦¦¦¦¦*ALL¦¦¦¦"_s << name;
    QTest::newRow("Idaho, no year") << u"IDSUP¦SEARCH¦SMITH¦¦¦¦*ALL¦¦¦x¦"_s << year;
    QTest::newRow("district, too few") << u"WADISCIS¦SEARCH¦"_s << fields;
    QTest::newRow("district, one too few") << u"WADISCIS¦SEARCH¦SMITH¦¦¦KSD¦CNCI¦"_s << fields;
    QTest::newRow("district, one too many") << u"WADISCIS¦SEARCH¦SMITH¦¦¦¦KSD¦CV¦CNCI¦"_s << fields;
    QTest::newRow("district, no name") << u"WADISCIS¦SEARCH¦ ¦¦¦KSD¦CV¦CNCI¦"_s << name;
    QTest::newRow("district, unknown")
        << u"WADISCIS¦SEARCH¦SMITH¦¦¦KSD¦CV¦XNCI¦"_s << u"ERROR~Unknown request~"_s;
    QTest::newRow("bankruptcy, too few") << u"BKRPT~SEARCH~"_s << fields;
    QTest::newRow("bankruptcy, a business with a first name")
        << u"BKRPT~SEARCHBUS~SMITH~JOHN~Q~~WAW~*ALL~1980~2005~"_s << fields;
    QTest::newRow("bankruptcy, a name in one field")
        << u"BKRPT~SEARCH~SMITH~WAW~*ALL~1980~2005~"_s << fields;
    QTest::newRow("bankruptcy, no name") << u"BKRPT~SEARCHBUS~ ~WAW~*ALL~1980~2005~"_s << name;
    QTest::newRow("bankruptcy, no number") << u"BKRPT~SEARCHSSN~~WAW~*ALL~1980~2005~"_s << name;
    QTest::newRow("bankruptcy, no year") << u"BKRPT~SEARCHTID~1~WAW~*ALL~1980~x~"_s << year;
}

void tst_PracticeFamilies::malformedSearches()
{
    QFETCH(QString, request);
    QFETCH(QString, error);
    QCOMPARE(Search(request), (QStringList{error, end}));
}

void tst_PracticeFamilies::specialNames_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("name");  // LAST¦FIRST
    QTest::addColumn<QString>("shape"); // r: a row, else the step itself

    const QString rows5 = u"r r r r r "_s;
    const QString over = u"This search resulted in more than 200 results. EOF~"_s;
    for (const QString &family : {u"OREGON"_s, u"IDSUP"_s, u"SNCI"_s, u"DND"_s, u"BKRPT"_s}) {
        const auto row = [&](const QString &name, const QString &shape) {
            QTest::newRow(qPrintable(family + u' ' + name)) << family << name << shape;
        };
        row(u"TOOMANY¦"_s, rows5.repeated(5) + u"ERROR~Too many hits~ EOF~");
        row(u"OVER200¦"_s, rows5.repeated(40) + over);
        row(u"OVER200¦NONE"_s, over);
        row(u"BADROW¦"_s, u"r r r ERROR~A court record could not be read~ r r r EOF~"_s);
        row(u"THEREOF¦"_s, u"r r t r r EOF~"_s);
        row(u"STALL¦"_s, rows5 + u"<silence>");
        row(u"DROPLINK¦"_s, rows5 + u"<drop>");
        row(u"EMPTY¦"_s, u"EOF~"_s);
        row(u"MANY¦5"_s, rows5 + u"EOF~");
        row(u"PAGES¦5"_s, rows5 + u"EOF~");
        row(u"PAGES¦"_s, rows5.repeated(240) + u"EOF~");
        row(u"SLOW¦2"_s, u"<pause 1000> <pause 1000> r r r EOF~"_s);
    }
}

void tst_PracticeFamilies::specialNames()
{
    QFETCH(QString, family);
    QFETCH(QString, name);
    QFETCH(QString, shape);

    QStringList found;
    for (const QString &step : Search(stateWide(family, name), 5'000)) {
        const bool row = step.startsWith(name.section(u'¦', 0, 0) + u", ");
        found.append(!row ? step : fieldsOf(step).last() == u"Heirs THEREOF" ? u"t"_s : u"r"_s);
    }
    QCOMPARE(found.join(u' '), shape);
}

void tst_PracticeFamilies::theIndexsOwnNamesFindNothing()
{
    QFETCH(QString, family);
    for (const QString &name : {u"FIRSTNAME"_s, u"ILLEGALROLE"_s, u"INDEXERROR"_s, u"SECONDNAME"_s,
                                u"INDEXWARNING"_s, u"BADLIMIT"_s})
        QCOMPARE(Search(stateWide(family, name)), QStringList{end});
}

void tst_PracticeFamilies::specialRowsPassTheFilters_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<qsizetype>("place"); // of the court
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("beginning"); // of the number
    QTest::addColumn<int>("rows");

    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦MANY¦300¦¦¦BAK C¦DO,¦1990¦1990¦"_s << qsizetype{4}
                            << u"OR Baker Co Cir Ct"_s << u"DO90"_s << 300;
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦MANY¦300¦¦¦Ada,¦JU,¦1990¦1990¦"_s << qsizetype{4}
                           << u"ID District Ct Ada County"_s << u"JV-1990-"_s << 300;
    QTest::newRow("district") << u"WADISCIS¦SEARCH¦MANY¦300¦¦KSD¦CV¦CNCI¦"_s << qsizetype{2}
                              << u"KSD"_s << QString() << 300;
    QTest::newRow("bankruptcy") << u"BKRPT~SEARCH~MANY~300~~~WAE~*ALL~1990~1990~"_s << qsizetype{5}
                                << u"WA Eastern Bankruptcy Ct"_s << u"90-"_s << 300;
    const QString none;
    QTest::newRow("Oregon, no court")
        << u"OREGON¦SEARCH¦MANY¦300¦¦¦¦¦¦¦"_s << qsizetype{0} << none << none << 0;
    QTest::newRow("Oregon, no type")
        << u"OREGON¦SEARCH¦MANY¦300¦¦¦*ALL¦XX,¦¦¦"_s << qsizetype{0} << none << none << 0;
    QTest::newRow("Idaho, no years")
        << u"IDSUP¦SEARCH¦THEREOF¦¦¦¦*ALL¦¦2001¦2000¦"_s << qsizetype{0} << none << none << 0;
    QTest::newRow("Idaho, years to come")
        << u"IDSUP¦SEARCH¦MANY¦5¦¦¦*ALL¦¦2030¦2040¦"_s << qsizetype{0} << none << none << 0;
    QTest::newRow("district, no court")
        << u"WADISCIS¦SEARCH¦SLOW¦0¦¦AAA¦IN¦CNCI¦"_s << qsizetype{0} << none << none << 0;
    QTest::newRow("bankruptcy, before its years")
        << u"BKRPT~SEARCH~MANY~5~~~WAE~*ALL~1970~1979~"_s << qsizetype{0} << none << none << 0;
}

void tst_PracticeFamilies::specialRowsPassTheFilters()
{
    QFETCH(QString, request);
    QFETCH(qsizetype, place);
    QFETCH(QString, court);
    QFETCH(QString, beginning);
    QFETCH(int, rows);

    const QList<QStringList> found = rowsOf(Search(request));
    QCOMPARE(found.size(), rows);
    std::set<QString> numbers;
    for (const QStringList &row : found) {
        QCOMPARE(row[place], court);
        QVERIFY2(row[1].startsWith(beginning), qPrintable(row[1]));
        numbers.insert(row[1]);
    }
    QCOMPARE(numbers.size(), static_cast<std::size_t>(rows));
}

HALVANE_TEST(tst_PracticeFamilies)
#include "tst_PracticeFamilies.moc"
