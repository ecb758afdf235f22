#include "casedetails/DiscisSummary.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
GridTable cell(const QString &text)
{
    return {{{QString(), 100}}, {{text}}, false};
}

const QStringList nonCivilHeader{u"Name~SMITH, JOHN Q~"_s,    u"Sex~M~"_s,
                                 u"Case Number~5KS000123~"_s, u"Court~King District Seattle~"_s,
                                 u"Court Type~District~"_s,   u"Date Filed~01/11/2005~"_s};
const QStringList civilHeader{u"Title~SMITH  & SONS VS DOE~"_s,  u"Case Number~5KS000123~"_s,
                              u"Court~King District Seattle~"_s, u"Date Filed~01/11/2005~"_s,
                              u"Cause~Small Claims~"_s,          u"Suit Amount~1,250.00~"_s};

const QString notOnFile = u"Not on File"_s;
const QString noCase = u"This Case Was Not Located. No Summary Details Retrieved."_s;
const QString notLocatedSuffix = u" - This Case Was Not Located!"_s;
const QString notLocatedStatus = u"Search Stopped. Case Was Not Located."_s;
const QString notAssociated = u"Case Number not associated with this court"_s;
} // namespace

class tst_DiscisSummary : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void noLines_data();
    void noLines();
    void nonCivilPhrases_data();
    void nonCivilPhrases();
    void anArchivedCaseGivesTheNoteAndNoRows();
    void aPhraseMayHaveTheHeaderBehindIt();
    void nonCivilCase();
    void twoPairsInARow();
    void linesOfSeveralPairs_data();
    void linesOfSeveralPairs();
    void nonCivilWithNothingBehindTheHeader();
    void civilNotAssociatedStopsTheRun();
    void civilPhrasesOfTheOtherWindowAreHeaderLines();
    void civilCase();
    void civilItems();
    void civilWithNothingBehindTheHeader();
    void emptyFieldsAreNotOnFile_data();
    void emptyFieldsAreNotOnFile();
    void missingHeaderLinesAreEmptyFields();
    void anAmountThatIsNotOnFileHasNoDollarSign();
    void aSummaryThatHasComeLeavesNoNote();
    void aWordOfTheCourtInPlaceOfACaseIsNoError_data();
    void aWordOfTheCourtInPlaceOfACaseIsNoError();
};

void tst_DiscisSummary::noLines_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::newRow("non-civil") << CaseKind::NonCivil;
    QTest::newRow("civil") << CaseKind::Civil;
}

void tst_DiscisSummary::noLines()
{
    QFETCH(CaseKind, kind);
    const DiscisSummaryView view = ReadDiscisSummary(kind, {});
    QCOMPARE(view.Grid, cell(noCase));
    QCOMPARE(*view.Status, notLocatedStatus);
    QCOMPARE(*view.CaptionSuffix, notLocatedSuffix);
    QVERIFY(!view.Note);
    QVERIFY(!view.CaseNo);
}

void tst_DiscisSummary::nonCivilPhrases_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("note");
    const QString archived = u"Archived case, Summary information is not available"_s;
    const QString nonJis = u"Non-JIS case. Summary information not available"_s;
    QTest::newRow("archived") << archived << u"Archived Case. No Summary Information Found."_s
                              << QString(u"Note: "_s + archived);
    QTest::newRow("not associated")
        << notAssociated << u"Case Number not associated with this court."_s
        << QString(u"Note: "_s + notAssociated);
    QTest::newRow("non-JIS") << nonJis << u"Non-JIS case. Summary information not available."_s
                             << QString(u"Note: "_s + nonJis);
    QTest::newRow("with marks and words around it")
        << QString(u"NOTE~"_s + nonJis + u" since 1990~"_s)
        << u"Non-JIS case. Summary information not available."_s
        << QString(u"Note: NOTE "_s + nonJis + u" since 1990"_s);
    QTest::newRow("the first phrase decides")
        << QString(nonJis + u" "_s + archived) << u"Archived Case. No Summary Information Found."_s
        << QString(u"Note: "_s + nonJis + u" "_s + archived);
}

void tst_DiscisSummary::nonCivilPhrases()
{
    QFETCH(QString, line);
    QFETCH(QString, message);
    const DiscisSummaryView view = ReadDiscisSummary(CaseKind::NonCivil, {line});
    QCOMPARE(view.Grid, cell(message));
    QTEST(*view.Note, "note");
    QVERIFY(!view.Status);
    QVERIFY(!view.CaptionSuffix);
    QVERIFY(!view.CaseNo); // what the list of results said of the case stays
}

void tst_DiscisSummary::anArchivedCaseGivesTheNoteAndNoRows()
{
    const DiscisSummaryView view = ReadDiscisSummary(
        CaseKind::NonCivil, {u"Archived case, Summary information is not available"_s});
    QCOMPARE(*view.Note, u"Note: Archived case, Summary information is not available"_s);
    QVERIFY(!view.Grid.HasHeader);
    QCOMPARE(view.Grid.Rows.size(), 1);
}

void tst_DiscisSummary::aPhraseMayHaveTheHeaderBehindIt()
{
    const DiscisSummaryView view =
        ReadDiscisSummary(CaseKind::NonCivil, QStringList{notAssociated} + nonCivilHeader);
    QCOMPARE(*view.Name, u"SMITH, JOHN Q"_s);
    QCOMPARE(*view.DateFiled, u"01/11/2005"_s);
    QCOMPARE(view.Grid, cell(u"Case Number not associated with this court."_s));
}

void tst_DiscisSummary::nonCivilCase()
{
    const DiscisSummaryView view = ReadDiscisSummary(
        CaseKind::NonCivil, nonCivilHeader + QStringList{u"Plea~Guilty~"_s, u"Bail~$100~"_s});
    QCOMPARE(*view.Name, u"SMITH, JOHN Q"_s);
    QCOMPARE(*view.Sex, u"M"_s);
    QCOMPARE(*view.CaseNo, u"5KS000123"_s);
    QCOMPARE(*view.CourtName, u"King District Seattle"_s);
    QCOMPARE(*view.CourtType, u"District"_s);
    QCOMPARE(*view.DateFiled, u"01/11/2005"_s);
    QVERIFY(!view.CaseTitle);
    QVERIFY(!view.Status);
    QVERIFY(!view.CaptionSuffix);
    const GridTable expected{
        {{u"Item"_s, 15}, {u"Description"_s, 35}, {u"Item"_s, 15}, {u"Description"_s, 35}},
        {{u"Plea"_s, u"Guilty"_s, u"Bail"_s, u"$100"_s}},
        true};
    QCOMPARE(view.Grid, expected);
}

void tst_DiscisSummary::twoPairsInARow()
{
    const DiscisSummaryView view = ReadDiscisSummary(
        CaseKind::NonCivil, nonCivilHeader + QStringList{u"A~1~"_s, QString(), u"B~2~"_s, u"C"_s});
    QCOMPARE(view.Grid.Rows,
             QList<QStringList>({{u"A"_s, u"1"_s, u"B"_s, u"2"_s}, {u"C"_s, QString()}}));
}

void tst_DiscisSummary::linesOfSeveralPairs_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("rows"); // cells between "/", rows between ";"
    using Items = QStringList;
    QTest::newRow("two pairs") << Items{u"Plea~Guilty~Finding~Committed~"_s}
                               << u"Plea/Guilty/Finding/Committed"_s;
    QTest::newRow("two pairs a line")
        << Items{u"A~1~B~2~"_s, u"C~3~D~4~"_s} << u"A/1/B/2;C/3/D/4"_s;
    QTest::newRow("the last without a mark") << Items{u"A~1~B~2"_s} << u"A/1/B/2"_s;
    QTest::newRow("an item alone behind a pair") << Items{u"A~1~B~"_s} << u"A/1/B/"_s;
    QTest::newRow("one, then two") << Items{u"A~1~"_s, u"B~2~C~3~"_s} << u"A/1;B/2/C/3"_s;
    QTest::newRow("two, then one")
        << Items{u"A~1~B~2~"_s, u"C~3~"_s, u"D~4~"_s} << u"A/1/B/2;C/3/D/4"_s;
    QTest::newRow("one on either side")
        << Items{u"A~1~"_s, u"B~2~C~3~"_s, u"D~4~"_s} << u"A/1;B/2/C/3;D/4"_s;
    QTest::newRow("three pairs") << Items{u"A~1~B~2~C~3~"_s, u"D~4~"_s} << u"A/1/B/2;C/3;D/4"_s;
    QTest::newRow("an empty second pair") << Items{u"A~1~~~"_s, u"B~2~"_s} << u"A/1/B/2"_s;
    QTest::newRow("an empty first pair") << Items{u"~ ~B~2~"_s} << u"B/2"_s;
    QTest::newRow("an item without a name") << Items{u"~1~B~2~"_s} << u"/1/B/2"_s;
    QTest::newRow("nothing between") << Items{u"A~1~"_s, u"~~~~"_s, u"B~2~"_s} << u"A/1/B/2"_s;
}

void tst_DiscisSummary::linesOfSeveralPairs()
{
    QFETCH(QStringList, items);
    const GridTable grid = ReadDiscisSummary(CaseKind::NonCivil, nonCivilHeader + items).Grid;
    QStringList rows;
    for (const QStringList &row : grid.Rows)
        rows.append(row.join(u'/'));
    QTEST(rows.join(u';'), "rows");
}

void tst_DiscisSummary::nonCivilWithNothingBehindTheHeader()
{
    const GridTable expected = cell(u"No Additional Summary Details Available."_s);
    QCOMPARE(ReadDiscisSummary(CaseKind::NonCivil, nonCivilHeader).Grid, expected);
    for (const QString &line : {QString(), u"~"_s, u"~ ~~~"_s})
        QCOMPARE(ReadDiscisSummary(CaseKind::NonCivil, nonCivilHeader + QStringList{line}).Grid,
                 expected);
}

void tst_DiscisSummary::civilNotAssociatedStopsTheRun()
{
    const DiscisSummaryView view =
        ReadDiscisSummary(CaseKind::Civil, QStringList{notAssociated + u'~'} + civilHeader);
    QCOMPARE(*view.Note, u"Note: Case Number not associated with this court"_s);
    QCOMPARE(*view.Status, u"Search Stopped. Case Number not associated with this court."_s);
    QCOMPARE(*view.CaptionSuffix, u" - Case Number not associated with this court!"_s);
    QCOMPARE(view.Grid,
             cell(u"Case Number not associated with this court! No Summary Details Retrieved."_s));
    QVERIFY(!view.CaseNo);
}

void tst_DiscisSummary::civilPhrasesOfTheOtherWindowAreHeaderLines()
{
    const DiscisSummaryView view = ReadDiscisSummary(
        CaseKind::Civil, {u"Title~Archived case, Summary information is not available~"_s});
    QCOMPARE(*view.CaseTitle, u"Archived case, Summary information is not available"_s);
}

void tst_DiscisSummary::civilCase()
{
    const DiscisSummaryView view =
        ReadDiscisSummary(CaseKind::Civil, civilHeader + QStringList{u"Status~Open~since 2006~"_s});
    QCOMPARE(*view.CaseTitle, u"SMITH && SONS VS DOE"_s);
    QCOMPARE(*view.CaseNo, u"5KS000123"_s);
    QCOMPARE(*view.CourtName, u"King District Seattle"_s);
    QCOMPARE(*view.DateFiled, u"01/11/2005"_s);
    QCOMPARE(*view.Cause, u"Small Claims"_s);
    QCOMPARE(*view.SuitAmt, u"1,250.00"_s);
    QVERIFY(!view.Name);
    QVERIFY(!view.Status);
    const GridTable expected{
        {{u"Summary Item"_s, 25}, {u"Item Description"_s, 50}, {u"Notes"_s, 25}},
        {{u"Case Type: "_s, u"Civil"_s, u"WA State District/Municipal Cts."_s},
         {u"Court Location: "_s, u"King District Seattle"_s},
         {u"Date Filed: "_s, u"01/11/2005"_s},
         {u"Suit Amount: "_s, u"$1,250.00"_s},
         {u"Status"_s, u"Open"_s, u"since 2006"_s}},
        true};
    QCOMPARE(view.Grid, expected);
}

void tst_DiscisSummary::civilItems()
{
    const DiscisSummaryView view = ReadDiscisSummary(
        CaseKind::Civil, civilHeader + QStringList{u"A"_s, QString(), u"B~2~"_s, u"C~3~x~y~"_s});
    constexpr qsizetype fixedRows = 4;
    QCOMPARE(view.Grid.Rows.sliced(fixedRows),
             QList<QStringList>({{u"A"_s}, {u"B"_s, u"2"_s, QString()}, {u"C"_s, u"3"_s, u"x"_s}}));
}

void tst_DiscisSummary::civilWithNothingBehindTheHeader()
{
    QCOMPARE(ReadDiscisSummary(CaseKind::Civil, civilHeader).Grid,
             cell(u"This case was not located."_s));
}

void tst_DiscisSummary::emptyFieldsAreNotOnFile_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("value");
    for (const int line : {0, 1, 2, 3, 4, 5}) {
        for (const QString &value : {u"X~~"_s, u"no mark"_s}) {
            QTest::addRow("non-civil %d, %s", line, qPrintable(value))
                << CaseKind::NonCivil << line << value;
            QTest::addRow("civil %d, %s", line, qPrintable(value))
                << CaseKind::Civil << line << value;
        }
    }
    QTest::addRow("blanks") << CaseKind::Civil << 4 << u"X~  ~"_s;
    QTest::addRow("an empty line") << CaseKind::NonCivil << 1 << QString();
}

void tst_DiscisSummary::emptyFieldsAreNotOnFile()
{
    QFETCH(CaseKind, kind);
    QFETCH(int, line);
    QFETCH(QString, value);
    const bool civil = kind == CaseKind::Civil;
    QStringList lines = (civil ? civilHeader : nonCivilHeader) + QStringList{u"A~1~"_s};
    lines[line] = value;
    const DiscisSummaryView view = ReadDiscisSummary(kind, lines);
    const QStringList labels = civil
                                   ? QStringList{*view.CaseTitle, *view.CaseNo, *view.CourtName,
                                                 *view.DateFiled, *view.Cause,  *view.SuitAmt}
                                   : QStringList{*view.Name,      *view.Sex,       *view.CaseNo,
                                                 *view.CourtName, *view.CourtType, *view.DateFiled};
    for (int label = 0; label < labels.size(); ++label)
        QCOMPARE(labels[label] == notOnFile, label == line);
}

void tst_DiscisSummary::missingHeaderLinesAreEmptyFields()
{
    const DiscisSummaryView view = ReadDiscisSummary(CaseKind::NonCivil, nonCivilHeader.first(2));
    QCOMPARE(*view.Sex, u"M"_s);
    QCOMPARE(*view.CaseNo, notOnFile);
    QCOMPARE(*view.DateFiled, notOnFile);
    QCOMPARE(view.Grid, cell(u"No Additional Summary Details Available."_s));
}

void tst_DiscisSummary::anAmountThatIsNotOnFileHasNoDollarSign()
{
    QStringList lines = civilHeader + QStringList{u"A~1~"_s};
    lines[5] = u"Suit Amount~~"_s;
    const DiscisSummaryView view = ReadDiscisSummary(CaseKind::Civil, lines);
    QVERIFY(view.Grid.Rows.contains(QStringList({u"Suit Amount: "_s, notOnFile})));
}

void tst_DiscisSummary::aSummaryThatHasComeLeavesNoNote()
{
    const DiscisSummaryView nonCivil = ReadDiscisSummary(CaseKind::NonCivil, nonCivilHeader);
    QCOMPARE(nonCivil.Note, std::optional(QString()));
    QCOMPARE(nonCivil.SumNote2, std::optional(QString()));
    QCOMPARE(ReadDiscisSummary(CaseKind::Civil, civilHeader).Note, std::optional(QString()));
}

void tst_DiscisSummary::aWordOfTheCourtInPlaceOfACaseIsNoError_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("shown");
    const CaseKind nonCivil = CaseKind::NonCivil;
    const CaseKind civil = CaseKind::Civil;
    const QString nothing = u"No Additional Summary Details Available."_s;
    const QString notLocated = u"This case was not located."_s;
    const QString word = u"Case is not on file"_s;
    QTest::newRow("non-civil") << nonCivil << QStringList{word} << nothing;
    QTest::newRow("civil") << civil << QStringList{word} << notLocated;
    QTest::newRow("non-civil, in two lines") << nonCivil << QStringList{word, word} << nothing;
    QTest::newRow("civil, behind a title")
        << civil << QStringList{u"Title~~"_s, word} << notLocated;
    QTest::newRow("non-civil, behind a phrase")
        << nonCivil << QStringList{u"Non-JIS case. Summary information not available"_s, word}
        << u"Non-JIS case. Summary information not available."_s;
    // What only the other window knows
    for (const QString &phrase : {u"Archived case, Summary information is not available"_s,
                                  u"Non-JIS case. Summary information not available"_s})
        QTest::newRow(qPrintable(u"civil, "_s + phrase))
            << civil << QStringList{phrase} << notLocated;
}

void tst_DiscisSummary::aWordOfTheCourtInPlaceOfACaseIsNoError()
{
    QFETCH(CaseKind, kind);
    QFETCH(QStringList, lines);
    QFETCH(QString, shown);
    const DiscisSummaryView view = ReadDiscisSummary(kind, lines);
    QCOMPARE(view.Grid, cell(shown));
    QCOMPARE(*view.CaseNo, notOnFile);
    QCOMPARE(*view.DateFiled, notOnFile);
    QCOMPARE(*(kind == CaseKind::Civil ? view.CaseTitle : view.Name), notOnFile);
    QVERIFY(!view.Status);
}

HALVANE_TEST(tst_DiscisSummary)
#include "tst_DiscisSummary.moc"
