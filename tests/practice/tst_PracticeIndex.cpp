#include "practice/PracticeAsk.h"
#include "support/HalvaneTest.h"

#include <QRegularExpression>
#include <QTest>

#include <set>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString end = u"EOF~"_s;
const QString progressLine = u"SEARCHING~the~weekly~index~.."_s;
constexpr qsizetype columns = 8;

bool isRow(const QString &step)
{
    return step.count(u'~') == columns && step.endsWith(u'~');
}

QStringList rowsOf(QStringList script)
{
    script.removeIf([](const QString &step) { return !isRow(step); });
    return script;
}

QString indexOf(const QString &name, const QString &tail)
{
    return u"INDEX~SEARCH~%1~"_s.arg(name) + tail;
}

/// A page of everything about a name, LAST~FIRST~MI.
QString pageOf(const QString &name, int lower, int upper)
{
    return indexOf(name, u"~King,Pierce,Adams,~~1970~2026~LL=%1~UL=%2~"_s.arg(lower).arg(upper));
}

const QString johnSmith = u"SMITH~JOHN~Q"_s;
const QString criminalRow =
    u"SMITH, JOHN Q~94-1-00042-1~11/07/1994~Malicious Mischief~WA Superior Ct King County~"
    "Defendant~STATE OF WASHINGTON VS SMITH, JOHN Q~11/07/1994~"_s;
const QString judgmentRow =
    u"SMITH, JOHN Q~*96-9-00005-9~02/14/1996~Abstract of Judgment~WA Superior Ct Adams County~"
    "Judgment Debtor~IN RE SMITH, JOHN Q~02/09/1996~"_s;
const QString civilRow =
    u"SMITH, JOHN Q~98-2-00017-7~03/16/1998~Tort - Motor Vehicle~WA Superior Ct King County~"
    "Plaintiff~SMITH, JOHN Q VS ACME PLUMBING INC~03/16/1998~"_s;
const QString domesticRow =
    u"SMITH, JOHN Q~01-3-00008-9~06/12/2001~Dissolution With Children~WA Superior Ct King County~"
    "Petitioner~SMITH, JOHN Q AND SMITH, JANE R~06/12/2001~"_s;
const QString debtRow =
    u"SMITH, JOHN Q~05-2-00031-8~09/20/2005~Collection~WA Superior Ct Pierce County~Defendant~"
    "SMITH, JOHN Q VS ACME PLUMBING INC~09/20/2005~"_s;
} // namespace

class tst_PracticeIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filters_data();
    void filters();
    void everyCaseOfTheSuperiorCourtsIsInIt();
    void titles_data();
    void titles();
    void aJudgmentCountsFromBefore();
    void pagesOf1200Rows_data();
    void pagesOf1200Rows();
    void pagesMakeUpTheWhole_data();
    void pagesMakeUpTheWhole();
    void theLimitFits16Bits();
    void aLimitAtTheEndIsNone();
    void malformedSearches_data();
    void malformedSearches();
    void specialNames_data();
    void specialNames();
    void errorsKeepToThePage();
    void theTagChangesNothing();
};

void tst_PracticeIndex::filters_data()
{
    QTest::addColumn<QString>("tail"); // what follows the name
    QTest::addColumn<QStringList>("rows");

    const auto row = [](const char *name, const QString &tail, const QStringList &rows) {
        QTest::newRow(name) << tail << rows;
    };
    const QString page = u"LL=1~UL=500~"_s;
    row("a county", u"~King,~~1970~2026~"_s + page, {criminalRow, civilRow, domesticRow});
    row("all his counties", u"~Adams,King,Pierce,~~1970~2026~"_s + page,
        {criminalRow, judgmentRow, civilRow, domesticRow, debtRow});
    row("a county without him", u"~Garfield,~~1970~2026~"_s + page, {});
    row("no county of ours", u"~Baker,~~1970~2026~"_s + page, {});
    row("no county", u"~~~1970~2026~"_s + page, {});
    row("a type", u"~King,Pierce,~Civil,~1970~2026~"_s + page, {civilRow, debtRow});
    row("two types", u"~King,~Criminal,Domestic,~1970~2026~"_s + page, {criminalRow, domesticRow});
    row("all six types",
        u"~King,~Civil,Criminal,Domestic,Judgment,Juvenile Offender,Probate,~1970~2026~"_s + page,
        {criminalRow, civilRow, domesticRow});
    row("an unknown type", u"~King,~Sealed,~1970~2026~"_s + page, {});
    row("years at their bounds", u"~King,~~1994~1998~"_s + page, {criminalRow, civilRow});
    row("open years", u"~King,~~~~"_s + page, {criminalRow, civilRow, domesticRow});
    row("years the wrong way round", u"~King,~~2000~1995~"_s + page, {});
    row("limits in small letters", u"~King,~~1994~1994~ll=1~ul=500~"_s, {criminalRow});
}

void tst_PracticeIndex::filters()
{
    QFETCH(QString, tail);
    QFETCH(QStringList, rows);

    Conversation conversation = LoggedIn();
    QCOMPARE(Ask(conversation, indexOf(johnSmith, tail)),
             QStringList{progressLine} + rows + QStringList{end});
}

void tst_PracticeIndex::everyCaseOfTheSuperiorCourtsIsInIt()
{
    const QStringList superior =
        Search(u"WASUP¦SEARCH¦SMITH¦J¦¦¦King,Pierce,Adams,¦¦1970¦2026¦"_s, 5'000);
    QStringList index = Search(pageOf(u"SMITH~J~"_s, 1, 5'000), 5'000);
    QVERIFY(index.size() > 50);
    QCOMPARE(index.size(), superior.size());
    for (qsizetype i = 0; i + 1 < index.size(); ++i)
        QCOMPARE(index[i].section(u'~', 0, 5), superior[i].section(u'~', 0, 5));
}

void tst_PracticeIndex::titles_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("title"); // as a pattern, * for a name

    QTest::newRow("Criminal") << u"Criminal"_s << u"STATE OF WASHINGTON VS *"_s;
    QTest::newRow("Civil") << u"Civil"_s << u"* VS *"_s;
    QTest::newRow("Domestic") << u"Domestic"_s << u"* AND *"_s;
    QTest::newRow("Probate") << u"Probate"_s << u"IN RE *"_s;
    QTest::newRow("Juvenile Offender") << u"Juvenile Offender"_s << u"STATE OF WASHINGTON VS *"_s;
    QTest::newRow("Judgment") << u"Judgment"_s << u"* VS *"_s;
}

void tst_PracticeIndex::titles()
{
    QFETCH(QString, type);
    QFETCH(QString, title);

    const QRegularExpression pattern(QRegularExpression::wildcardToRegularExpression(title));
    qsizetype seen = 0;
    const QString tail = u"~~~King,~%1,~1970~2026~LL=1~UL=500~"_s.arg(type);
    for (const QString &row : rowsOf(Search(indexOf(u"JONES"_s, tail)))) {
        const QStringList fields = row.split(u'~');
        if (fields[6] == u"IN RE " + fields[0] && type != u"Probate")
            continue; // nobody else is known
        ++seen;
        QVERIFY2(pattern.match(fields[6]).hasMatch(), qPrintable(row));
        // A co-defendant or a parent stands in no title, nor does a second executor.
        if (fields[5] == u"Plaintiff" || fields[5] == u"Petitioner"
            || fields[5] == u"Judgment Creditor")
            QVERIFY2(fields[6].startsWith(fields[0]), qPrintable(row));
        if (fields[5] == u"Judgment Debtor")
            QVERIFY2(fields[6].endsWith(fields[0]), qPrintable(row));
    }
    QVERIFY(seen > 5);
}

void tst_PracticeIndex::aJudgmentCountsFromBefore()
{
    std::set<qint64> days;
    const QString tail = u"~~~King,~%1,~1970~2026~LL=1~UL=500~"_s;
    for (const QString &row : rowsOf(Search(indexOf(u"SMITH"_s, tail.arg(u"Judgment"_s))))) {
        const QStringList fields = row.split(u'~');
        days.insert(QDate::fromString(fields[7], u"MM/dd/yyyy"_s)
                        .daysTo(QDate::fromString(fields[2], u"MM/dd/yyyy"_s)));
    }
    QVERIFY(days.size() > 10);
    QVERIFY(*days.begin() >= 0 && *days.rbegin() < 60);
    for (const QString &row : rowsOf(Search(indexOf(u"SMITH"_s, tail.arg(u"Civil"_s)))))
        QCOMPARE(row.section(u'~', 7, 7), row.section(u'~', 2, 2));
}

void tst_PracticeIndex::pagesOf1200Rows_data()
{
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("upper");
    QTest::addColumn<qsizetype>("rows");
    QTest::addColumn<QString>("last");

    const auto row = [](const char *name, int lower, int upper, qsizetype rows,
                        const QString &last) {
        QTest::newRow(name) << lower << upper << rows << last;
    };
    row("the first", 1, 500, 500, u"WARNING~Reached Search Limit~500~700~"_s);
    row("the second", 501, 1'000, 500, u"WARNING~Reached Search Limit~1000~200~"_s);
    row("the third", 1'001, 1'200, 200, end);
    row("the third, longer than what is left", 1'001, 1'500, 200, end);
    row("up to the last but one", 1, 1'199, 1'199, u"WARNING~Reached Search Limit~1199~1~"_s);
    row("the last row", 1'200, 1'200, 1, end);
    row("one row", 7, 7, 1, u"WARNING~Reached Search Limit~7~1193~"_s);
    row("behind the last row", 1'201, 1'700, 0, end);
    row("all at once", 1, 30'000, 1'200, end);
}

/// The warning that more rows are left stands in place of the end mark.
void tst_PracticeIndex::pagesOf1200Rows()
{
    QFETCH(int, lower);
    QFETCH(int, upper);
    QFETCH(qsizetype, rows);
    QFETCH(QString, last);

    const QStringList script = Search(pageOf(u"PAGES~~"_s, lower, upper), 5'000);
    QCOMPARE(script.size(), rows + 1);
    QCOMPARE(rowsOf(script).size(), rows);
    QCOMPARE(script.last(), last);
}

void tst_PracticeIndex::pagesMakeUpTheWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");

    QTest::newRow("PAGES") << u"PAGES~~"_s << 500;
    QTest::newRow("PAGES 30") << u"PAGES~30~"_s << 7;
    QTest::newRow("MANY 100") << u"MANY~100~"_s << 33;
    QTest::newRow("OVER200") << u"OVER200~~"_s << 90;
    QTest::newRow("somebody") << u"SMITH~~"_s << 100;
}

void tst_PracticeIndex::pagesMakeUpTheWhole()
{
    QFETCH(QString, name);
    QFETCH(int, size);

    const QStringList whole = rowsOf(Search(pageOf(name, 1, 30'000), 5'000));
    QVERIFY(whole.size() > size);
    QCOMPARE(std::set<QString>(whole.begin(), whole.end()).size(),
             static_cast<std::size_t>(whole.size()));
    QStringList together;
    for (int lower = 1; lower <= whole.size(); lower += size) {
        const QStringList script = Search(pageOf(name, lower, lower + size - 1), 5'000);
        together += rowsOf(script);
        const qsizetype left = whole.size() - together.size();
        QCOMPARE(script.last(),
                 left == 0
                     ? end
                     : u"WARNING~Reached Search Limit~%1~%2~"_s.arg(lower + size - 1).arg(left));
    }
    QCOMPARE(together, whole);
}

void tst_PracticeIndex::theLimitFits16Bits()
{
    const QString many = u"MANY~200000~"_s;
    QCOMPARE(Search(pageOf(many, 1, 500)).last(), u"WARNING~Reached Search Limit~500~32267~"_s);
    QCOMPARE(Search(pageOf(many, 32'766, 32'766)).last(),
             u"WARNING~Reached Search Limit~32766~1~"_s);
    QCOMPARE(Search(pageOf(many, 32'767, 33'266)).last(), end);
    QCOMPARE(rowsOf(Search(pageOf(many, 32'767, 33'266))).size(), 1);
    QCOMPARE(Search(pageOf(many, 32'768, 33'267)), QStringList{end});
    const QString beyond = u"MANY~200000~~~King,~~1970~2026~LL=1~UL=9223372036854775807~"_s;
    QCOMPARE(Search(u"INDEX~SEARCH~"_s + beyond, 50'000).size(), 32'768);
}

void tst_PracticeIndex::aLimitAtTheEndIsNone()
{
    QCOMPARE(Search(pageOf(johnSmith, 1, 5)).last(), end);
    QCOMPARE(Search(pageOf(johnSmith, 1, 4)).last(), u"WARNING~Reached Search Limit~4~1~"_s);
}

void tst_PracticeIndex::malformedSearches_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("error");

    const QString fields = u"ERROR~Wrong number of fields~"_s;
    const QString page = u"ERROR~Not a page~"_s;
    QTest::newRow("too few") << u"INDEX~SEARCH~"_s << fields;
    QTest::newRow("no page") << u"INDEX~SEARCH~SMITH~~~~King,~~1970~2005~"_s << fields;
    QTest::newRow("one too many") << u"INDEX~SEARCH~SMITH~~~~King,~~1970~2005~LL=1~UL=5~~"_s
                                  << fields;
    QTest::newRow("no name") << u"INDEX~SEARCH~ ~~~~King,~~1970~2005~LL=1~UL=5~"_s
                             << u"ERROR~No name~"_s;
    QTest::newRow("no year") << u"INDEX~SEARCH~SMITH~~~~King,~~x~2005~LL=1~UL=5~"_s
                             << u"ERROR~Not a year~"_s;
    const auto limits = [&](const char *name, const QString &text) {
        QTest::newRow(name) << indexOf(u"SMITH"_s, u"~~~King,~~1970~2005~"_s + text) << page;
    };
    limits("from nought", u"LL=0~UL=5~"_s);
    limits("from less", u"LL=-1~UL=5~"_s);
    limits("the wrong way round", u"LL=6~UL=5~"_s);
    limits("the wrong names", u"UL=1~LL=5~"_s);
    limits("no names", u"1~5~"_s);
    limits("no numbers", u"LL=~UL=~"_s);
    limits("words", u"LL=one~UL=five~"_s);
    limits("more than a number holds", u"LL=1~UL=9223372036854775808~"_s);
}

void tst_PracticeIndex::malformedSearches()
{
    QFETCH(QString, request);
    QFETCH(QString, error);
    QCOMPARE(Search(request), (QStringList{error, end}));
}

void tst_PracticeIndex::specialNames_data()
{
    QTest::addColumn<QString>("name");  // LAST~FIRST
    QTest::addColumn<QString>("shape"); // r: a row, else the step itself

    const QString rows5 = u"r r r r r "_s;
    const QString stopped = u" WARNING~Search stopped~"_s;
    QTest::newRow("FIRSTNAME") << u"FIRSTNAME~"_s
                               << QString(u"r r r ERROR~More than 500 names match the First Name~"
                                          + stopped);
    QTest::newRow("ILLEGALROLE") << u"ILLEGALROLE~"_s
                                 << QString(u"r r r ERROR~Illegal Role~" + stopped);
    QTest::newRow("INDEXERROR") << u"INDEXERROR~"_s
                                << QString(u"r r r ERROR~A court record could not be read~"
                                           + stopped);
    QTest::newRow("SECONDNAME") << u"SECONDNAME~"_s
                                << u"r r r WARNING~More than 500 names match the Second Name~"_s;
    QTest::newRow("INDEXWARNING") << u"INDEXWARNING~"_s
                                  << u"r r r WARNING~The index is being rebuilt~"_s;
    QTest::newRow("BADLIMIT") << u"BADLIMIT~"_s
                              << u"r r r WARNING~Reached Search Limit~some~more~"_s;
    QTest::newRow("TOOMANY") << u"TOOMANY~"_s
                             << QString(rows5.repeated(5) + u"ERROR~Too many hits~" + stopped);
    QTest::newRow("OVER200") << u"OVER200~"_s << QString(rows5.repeated(40) + end);
    QTest::newRow("OVER200 NONE") << u"OVER200~NONE"_s << end;
    QTest::newRow("BADROW") << u"BADROW~"_s
                            << u"r r r ERROR~A court record could not be read~ r r r EOF~"_s;
    QTest::newRow("THEREOF") << u"THEREOF~"_s << u"r r t r r EOF~"_s;
    QTest::newRow("STALL") << u"STALL~"_s << QString(rows5 + u"<silence>");
    QTest::newRow("DROPLINK") << u"DROPLINK~"_s << QString(rows5 + u"<drop>");
    QTest::newRow("EMPTY") << u"EMPTY~"_s << end;
    QTest::newRow("SLOW 2") << u"SLOW~2"_s << u"<pause 1000> <pause 1000> r r r EOF~"_s;
}

void tst_PracticeIndex::specialNames()
{
    QFETCH(QString, name);
    QFETCH(QString, shape);

    QStringList found;
    for (const QString &step : Search(pageOf(name + u'~', 1, 500))) {
        if (!isRow(step))
            found.append(step);
        else
            found.append(step.endsWith(u"~Heirs THEREOF~"_s) ? u"t"_s : u"r"_s);
    }
    QCOMPARE(found.join(u' '), shape);
}

void tst_PracticeIndex::errorsKeepToThePage()
{
    QCOMPARE(rowsOf(Search(pageOf(u"TOOMANY~~"_s, 1, 10))).size(), 10);
    QCOMPARE(rowsOf(Search(pageOf(u"FIRSTNAME~~"_s, 5, 6))).size(), 2);
    QCOMPARE(rowsOf(Search(pageOf(u"SECONDNAME~~"_s, 1, 1))).size(), 1);
}

void tst_PracticeIndex::theTagChangesNothing()
{
    const QString request = pageOf(johnSmith, 2, 3);
    const QStringList script = Search(request);
    QCOMPARE(script, (QStringList{judgmentRow, civilRow, u"WARNING~Reached Search Limit~3~2~"_s}));
    for (const QString &tag : {u"^^CAC:ABC^^"_s, u"^^CAC:^^"_s})
        QCOMPARE(Search(request.chopped(1) + tag + u'~'), script);
}

HALVANE_TEST(tst_PracticeIndex)
#include "tst_PracticeIndex.moc"
