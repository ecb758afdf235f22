#include "searchentry/NumberList.h"

#include "courts/Counties.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NumberListLine.h"
#include "searchentry/TalkRecorder.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// A list of case numbers out of a mail or a spreadsheet.

namespace {
const QString noNumber = u"There is no case number in this line."_s;
const QString wrongCounty = u"The case/judgment number is invalid for the county chosen."_s;
const QString unusual = u"It has not the form of a number of these courts."_s;

NumberListCourt courtOf(CourtFamily court, const QString &usual)
{
    switch (court) {
    case CourtFamily::Oregon:
        return {court, false, OrCountyNames(), usual};
    case CourtFamily::Idaho:
        LoadIdCounties();
        return {court, false, IdCountyList(), usual};
    default:
        return {court, false, WaCountyNames(), usual};
    }
}

/// "number|county|verdict" of each row.
QStringList read(const QString &text, const NumberListCourt &court)
{
    QStringList rows;
    const QList<ListedNumber> listed = ReadNumberList(text, court);
    for (const ListedNumber &one : listed)
        rows.append(one.Number + u'|' + one.County + u'|' + VerdictText(one));
    return rows;
}
} // namespace

class tst_NumberList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { folder = std::make_unique<TestFolder>(); }
    void cleanupTestCase() { folder.reset(); }

    void superior_data();
    void superior();
    void oregonAndIdaho_data();
    void oregonAndIdaho();
    void theDistrictCourtsOfOregon();
    void aCountyIsNamed_data();
    void aCountyIsNamed();
    void ofSeveralCountiesTheOneThatFits();
    void linesAreCountedAsTheyStand_data();
    void linesAreCountedAsTheyStand();
    void theSameNumberTwice();
    void aMail();
    void aSpreadsheet();
    void aLongListAndALineWithoutEnd();
    void whatIsValidPassesTheChecksOfABatch();
    void batchesOfTen();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_NumberList::superior_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("rows");
    const QString valid = u"05-2-02029-1|King|Valid"_s;
    const auto add = [](const char *name, const QString &line, const QStringList &rows) {
        QTest::newRow(name) << line << rows;
    };
    add("with dashes", u"05-2-02029-1"_s, {valid});
    add("without", u"052020291"_s, {valid});
    add("dashes elsewhere", u"0520-20291"_s, {valid});
    add("blanks around dashes", u"05 - 2 -02029- 1"_s, {valid});
    add("full-width", u"０５－２－０２０２９－１"_s, {valid});
    add("long dashes", u"05\u20132\u201402029\u22121"_s, {valid});
    add("soft hyphens and marks not seen", u"\uFEFF05-\u00AD2-02029\u200B-1"_s, {valid});
    add("in quotes", u"\"05-2-02029-1\""_s, {valid});
    add("as a spreadsheet keeps it", u"=\"05-2-02029-1\""_s, {valid});
    add("behind a list mark", u"* 05-2-02029-1"_s, {valid});
    add("numbered", u"1. 05-2-02029-1"_s, {valid});
    add("with a branch", u"05-2-02029-1 SEA"_s, {valid});
    add("with a branch at it", u"No. 05-2-02029-1KNT"_s, {valid});
    add("with a branch behind a dash", u"05-2-02029-1-SEA"_s, {valid});
    add("in a sentence", u"Please pull 05-2-02029-1, thanks."_s, {valid});
    add("in brackets", u"(05-2-02029-1)"_s, {valid});
    add("beside a date", u"filed 01/02/2005, 05-2-02029-1"_s, {valid});
    add("beside a telephone", u"206-555-0147 05-2-02029-1"_s, {valid});
    add("beside money", u"$123,456,789 05-2-02029-1"_s, {valid});
    add("beside an address", u"a052020298@x.example 05-2-02029-1"_s, {valid});
    add("two", u"05-2-02029-1, Adams 05-2-02029-8"_s,
        {u"05-2-02029-1|Adams|Refused: "_s + wrongCounty, u"05-2-02029-8|Adams|Valid"_s});
    add("another county's", u"05-2-02029-8"_s, {u"05-2-02029-8|King|Refused: "_s + wrongCounty});
    add("restricted", u"05-5-02029-0"_s,
        {u"05-5-02029-0|King|Refused: The Case Type Entered (5) is Restricted and Cannot be "
         "Retrieved From This Court."_s});
    add("of another form", u"a-17"_s, {u"A-17|King|Doubtful: "_s + unusual});
    add("of another form, with its county", u"A-17 Adams County"_s,
        {u"A-17|Adams|Doubtful: "_s + unusual});
    add("without its leading zero", u"5-2-02029-1"_s,
        {u"5-2-02029-1||Not understood: 5-2-02029-1 has 8 digits; a case number of these courts "
         "has 9."_s});
    add("too long", u"05-2-020299-1"_s,
        {u"05-2-020299-1||Not understood: 05-2-020299-1 has 10 digits; a case number of these "
         "courts has 9."_s});
    add("a social security number", u"123-45-6789"_s,
        {u"12-3-45678-9|King|Doubtful: It is written like a social security number."_s});
    add("a social security number, where it is no case number", u"123-45-6789 Adams"_s,
        {u"12-3-45678-9|Adams|Refused: "_s + wrongCounty});
    add("words", u"Dear all,"_s, {u"Dear all,||Not understood: "_s + noNumber});
    add("words with a number", u"the 3 of them"_s,
        {u"the 3 of them||Not understood: "_s + noNumber});
    add("digits of another script", u"٠٥٢٠٢٠٢٩١"_s, {u"٠٥٢٠٢٠٢٩١||Not understood: "_s + noNumber});
    add("nothing", {}, {});
    add("only signs", u"  ---- ,,;\t\"\" "_s, {});
}

void tst_NumberList::superior()
{
    QFETCH(const QString, line);
    QTEST(read(line, courtOf(CourtFamily::Superior, u"King"_s)), "rows");
}

void tst_NumberList::oregonAndIdaho_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("rows");
    const int oregon = static_cast<int>(CourtFamily::Oregon);
    const int idaho = static_cast<int>(CourtFamily::Idaho);
    QTest::newRow("Oregon") << oregon << u"cv08060677 Lane County"_s
                            << QStringList{u"CV08060677|Lane|Valid"_s};
    QTest::newRow("Oregon, beside other numbers")
        << oregon << u"16CR12345\t97301\t03/04/2016\t503-555-0147\tMarion"_s
        << QStringList{u"16CR12345|Marion|Valid"_s};
    QTest::newRow("Oregon, digits alone")
        << oregon << u"070102345"_s << QStringList{u"070102345|Lane|Valid"_s};
    QTest::newRow("Oregon, which of them")
        << oregon << u"070102345 97301"_s
        << QStringList{u"070102345 97301||Not understood: There are several numbers in this line, "
                       "and none has the letters of a case number."_s};
    QTest::newRow("Oregon, Hood River")
        << oregon << u"CV08060677 Hood River County"_s << QStringList{u"CV08060677|Hood|Valid"_s};
    QTest::newRow("Oregon, a city") << oregon << u"CV08060677, City of Hermiston"_s
                                    << QStringList{u"CV08060677|City of Hermiston|Valid"_s};
    QTest::newRow("Idaho") << idaho << u"cr-1998-0002546-in, Bear Lake"_s
                           << QStringList{u"CR-1998-0002546-IN|Bear Lake|Valid"_s};
    QTest::newRow("Idaho, the state beside the county")
        << idaho << u"CR-1998-0002546-IN Ada County, Idaho"_s
        << QStringList{u"CR-1998-0002546-IN|Ada|Valid"_s};
    QTest::newRow("Idaho, no number")
        << idaho << u"see below"_s << QStringList{u"see below||Not understood: "_s + noNumber};
}

void tst_NumberList::oregonAndIdaho()
{
    QFETCH(const int, court);
    QFETCH(const QString, line);
    QTEST(read(line, courtOf(static_cast<CourtFamily>(court), u"Lane"_s)), "rows");
}

void tst_NumberList::theDistrictCourtsOfOregon()
{
    NumberListCourt court = courtOf(CourtFamily::Oregon, u"Baker"_s);
    QCOMPARE(read(u"CV08060677"_s, court), QStringList{u"CV08060677|Baker|Valid"_s});
    court.DistrictCourt = true;
    QCOMPARE(read(u"CV08060677\nCV08060677 Lane"_s, court),
             (QStringList{u"CV08060677|Baker|Doubtful: This county has no District Court."_s,
                          u"CV08060677|Lane|Valid"_s}));
}

void tst_NumberList::aCountyIsNamed_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("named");
    const auto add = [](const char *name, const QString &line, const QStringList &named) {
        QTest::newRow(name) << line << named;
    };
    add("none", u"Kingston"_s, {});
    add("alone", u"king"_s, {u"King"_s});
    add("with its word", u"KING COUNTY"_s, {u"King"_s});
    add("shortened", u"King Co."_s, {u"King"_s});
    add("behind its word", u"County of King"_s, {u"King"_s});
    add("in a column", u"x\tKing\ty"_s, {u"King"_s});
    add("of two words", u"walla  walla"_s, {u"Walla Walla"_s});
    add("as a name beside a county", u"Clark v. King, Pierce County"_s, {u"Pierce"_s});
    add("two", u"King, Pierce"_s, {u"Pierce"_s, u"King"_s});
    add("twice the same", u"King County King"_s, {u"King"_s});
}

void tst_NumberList::aCountyIsNamed()
{
    QFETCH(const QString, line);
    QTEST(CountiesNamedIn(PlainLine(line), WaCountyNames()), "named");
}

void tst_NumberList::ofSeveralCountiesTheOneThatFits()
{
    const NumberListCourt court = courtOf(CourtFamily::Superior, {});
    QCOMPARE(read(u"05-2-02029-1 Adams v. King"_s, court),
             QStringList{u"05-2-02029-1|King|Valid"_s});
    QCOMPARE(read(u"A-17 Adams County and King County"_s, court),
             QStringList{u"A-17||Refused: This line names several counties: Adams, King."_s});
    QCOMPARE(read(u"05-2-02029-1"_s, court),
             QStringList{u"05-2-02029-1||Refused: No county is named in this line, and none is "
                         "chosen."_s});
}

void tst_NumberList::linesAreCountedAsTheyStand_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("Unix") << u"\n"_s;
    QTest::newRow("Windows") << u"\r\n"_s;
    QTest::newRow("Mac") << u"\r"_s;
    QTest::newRow("of a word processor") << u"\u2028"_s;
    QTest::newRow("of a soft break") << u"\v"_s;
}

void tst_NumberList::linesAreCountedAsTheyStand()
{
    QFETCH(const QString, end);
    const QStringList lines{u"052020291"_s, {}, u"x"_s, u"   "_s, u"052020298 Adams"_s};
    QList<int> numbers;
    const QList<ListedNumber> rows =
        ReadNumberList(lines.join(end), courtOf(CourtFamily::Superior, u"King"_s));
    for (const ListedNumber &row : rows)
        numbers.append(row.Line);
    QCOMPARE(numbers, QList<int>({1, 3, 5}));
}

void tst_NumberList::theSameNumberTwice()
{
    QCOMPARE(read(u"052020291\n05-2-02029-1 KING\nA-1\nA-1\nA-1 Adams"_s,
                  courtOf(CourtFamily::Superior, u"King"_s)),
             (QStringList{u"05-2-02029-1|King|Valid"_s,
                          u"05-2-02029-1|King|Duplicate: It stands in the list already."_s,
                          u"A-1|King|Doubtful: "_s + unusual,
                          u"A-1|King|Duplicate: It stands in the list already."_s,
                          u"A-1|Adams|Doubtful: "_s + unusual}));
}

void tst_NumberList::aMail()
{
    const QString mail = u"Hi Ann,\r\n\r\ncould you get these by 5 pm?\r\n\r\n"
                         "  - 05-2-02029-1 (Smith v. Jones), King County\r\n"
                         "> 05-2-02029-8, Adams Co.\r\n\r\nThanks\r\nBob 206-555-0147\r\n"_s;
    QStringList valid;
    const QStringList rows = read(mail, courtOf(CourtFamily::Superior, {}));
    for (const QString &row : rows) {
        if (row.endsWith(u"|Valid"))
            valid.append(row);
    }
    QCOMPARE(valid, (QStringList{u"05-2-02029-1|King|Valid"_s, u"05-2-02029-8|Adams|Valid"_s}));
    QCOMPARE(rows.size(), 6);
}

void tst_NumberList::aSpreadsheet()
{
    QCOMPARE(read(u"Case Number\tCounty\tOpened\n\"05-2-02029-1\"\t\"KING\"\t3/4/2005\n"
                  "052020298\tadams\t2005-03-04\n"_s,
                  courtOf(CourtFamily::Superior, {})),
             (QStringList{u"Case Number County Opened||Not understood: "_s + noNumber,
                          u"05-2-02029-1|King|Valid"_s, u"05-2-02029-8|Adams|Valid"_s}));
}

void tst_NumberList::aLongListAndALineWithoutEnd()
{
    const NumberListCourt court = courtOf(CourtFamily::Superior, u"King"_s);
    QString list;
    for (int i = 0; i < 10'000; ++i)
        list += u"05-2-"_s + QString::number(i).rightJustified(5, u'0') + u"-1 King\n"_s;
    QCOMPARE(ReadNumberList(list.chopped(1), court).size(), 10'000);
    const QList<ListedNumber> longer = ReadNumberList(list + u"052020291\n052020291"_s, court);
    QCOMPARE(longer.size(), 10'001);
    QCOMPARE(longer.last().Reason, u"The list is not read from this line on: it is too long."_s);
    QCOMPARE(longer.last().Line, 10'001);
    const QString endless = u"052020291 "_s + QString(1'000'000, u'7');
    QCOMPARE(read(endless, court),
             (QStringList{u"05-2-02029-1|King|Valid"_s,
                          u"||Not understood: The rest of this line is not read: it has more than "
                          "2,000 characters."_s}));
}

/// Lines put together at random out of what lists are made of: nothing is lost on the way, and what
/// is called valid would pass as a row of a batch.
void tst_NumberList::whatIsValidPassesTheChecksOfABatch()
{
    const QStringList pieces{u"05-2-02029-1"_s,
                             u"052020298"_s,
                             u"05-5-02029-0"_s,
                             u"King"_s,
                             u"Adams County"_s,
                             u"\t"_s,
                             u"\""_s,
                             u"-"_s,
                             u"－"_s,
                             u"７"_s,
                             u" "_s,
                             u"\n"_s,
                             u"\r\n"_s,
                             u"v."_s,
                             u"123-45-6789"_s,
                             u"9"_s,
                             u"CV08060677"_s,
                             u"01/02/2003"_s,
                             u"=\""_s,
                             u"\u200B"_s,
                             QString(QChar(0xD800)),
                             QString(QChar(0)),
                             u"Straße"_s,
                             u"%n\\1"_s};
    constexpr quint32 seed = 20261102;
    QRandomGenerator random(seed);
    int valid = 0;
    for (int round = 0; round < 300; ++round) {
        QString text;
        for (int i = 0; i < 60; ++i)
            text += pieces[random.bounded(static_cast<int>(pieces.size()))];
        for (const CourtFamily family :
             {CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho}) {
            const NumberListCourt court = courtOf(family, u"Lincoln"_s);
            const QList<ListedNumber> rows = ReadNumberList(text, court);
            int line = 0;
            for (const ListedNumber &row : rows) {
                QVERIFY(row.Line >= line);
                line = row.Line;
                QCOMPARE(row.Reason.isEmpty(), row.Verdict == NumberVerdict::Valid);
                if (!row.CanStart())
                    continue;
                ++valid;
                QVERIFY2(court.Counties.contains(row.County), qPrintable(row.County));
                SearchEntry entry = BatchesOf({row}, court).first();
                TalkRecorder talk;
                QVERIFY2(row.Verdict != NumberVerdict::Valid
                             || (ValidateBatchSearchFields(entry, talk) && talk.Said.isEmpty()),
                         qPrintable(row.Number));
                QCOMPARE(entry.Batch[0].Number, row.Number);
            }
        }
    }
    QVERIFY(valid > 1000);
}

void tst_NumberList::batchesOfTen()
{
    QList<ListedNumber> numbers;
    for (int i = 0; i < 23; ++i)
        numbers.append({i, QString::number(i), u"King"_s, NumberVerdict::Valid, {}});
    NumberListCourt court = courtOf(CourtFamily::Oregon, {});
    court.DistrictCourt = true;
    const QList<SearchEntry> batches = BatchesOf(numbers, court);
    QCOMPARE(batches.size(), 3);
    QCOMPARE(batches[2].Court, CourtFamily::Oregon);
    QVERIFY(batches[2].DistrictCourt);
    QCOMPARE(batches[1].Batch[9].Number, u"19"_s);
    QCOMPARE(batches[2].Batch[2].Number, u"22"_s);
    QCOMPARE(batches[2].Batch[3].Number, QString());
    QCOMPARE(BatchesOf({}, court).size(), 0);
}

HALVANE_TEST(tst_NumberList)
#include "tst_NumberList.moc"
