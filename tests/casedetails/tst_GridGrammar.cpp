#include "casedetails/GridGrammar.h"
#include "casedetails/GridTexts.h"
#include "core/RunTimeError.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_GridGrammar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void countDelimiters_data();
    void countDelimiters();
    void definitionLine_data();
    void definitionLine();
    void gridDef_data();
    void gridDef();
    void gridDefLastFirst();
    void gridDefBehindNotes_data();
    void gridDefBehindNotes();
    void applyColDef_data();
    void applyColDef();
    void interleavedAndGroupedHeadersGiveTheSameGrid();
    void malformedColDefLeavesTheCountOfLineThree_data();
    void malformedColDefLeavesTheCountOfLineThree();
    void headersThenWidths_data();
    void headersThenWidths();
    void aWidthThatIsNoNumber_data();
    void aWidthThatIsNoNumber();
    void expandRows_data();
    void expandRows();
    void onlyBrokenRowsAreReported();
    void colDef_data();
    void colDef();
    void theWorkedExample();
    void fourLinesHoldNoRows();
    void names_data();
    void names();
    void messages();
};

namespace {
const QString fourLines = u"TABNAME~Docket~\nTABDEF~Docket~\nCOLDEF~Date~20~Entry~80~\n"
                          "COLALIGNMENT~L~L~"_s;
const QString namesLines = u"TABNAME~Names~\nTABDEF~Names~\nCOLDEF~Name~Role~60~40~\n"
                           "COLALIGNMENT~L~L~"_s;
} // namespace

void tst_GridGrammar::countDelimiters_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("count");
    QTest::newRow("an empty line") << QString() << 0;
    QTest::newRow("none") << u"abc"_s << 0;
    QTest::newRow("one a field") << u"a~b~c~"_s << 3;
    QTest::newRow("between fields") << u"a~b~c"_s << 2;
    QTest::newRow("nothing else") << u"~~~"_s << 3;
}

void tst_GridGrammar::countDelimiters()
{
    QFETCH(QString, line);
    QTEST(CountDelimiters(line, u'~'), "count");
    QCOMPARE(CountDelimiters(QString(line).replace(u'~', u'¦'), u'¦'), CountDelimiters(line, u'~'));
    QCOMPARE(CountDelimiters(line, u'^'), 0);
}

void tst_GridGrammar::definitionLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("defines");
    for (const QString &word :
         {u"COLALIGNMENT"_s, u"COLDEF"_s, u"TABDEF"_s, u"BREAKERS"_s, u"TABNAME"_s}) {
        const auto name = [&](const char *what) { return QString(word + QLatin1String(what)); };
        QTest::newRow(qPrintable(name(" alone"))) << word << true;
        QTest::newRow(qPrintable(name(" at the head"))) << word + u"~a~b~" << true;
        QTest::newRow(qPrintable(name(" within a row's text")))
            << u"01/02/2003~the "_s + word + u"x~" << true;
        QTest::newRow(qPrintable(name(" at the end"))) << u"a~"_s + word << true;
        QTest::newRow(qPrintable(name(" in lower case"))) << word.toLower() + u"~a~" << false;
        QTest::newRow(qPrintable(name(" cut short"))) << word.chopped(1) + u"~a~" << false;
    }
    QTest::newRow("the other grammar's word") << u"GRIDDEF~a~20~"_s << false;
    QTest::newRow("an empty line") << QString() << false;
}

void tst_GridGrammar::definitionLine()
{
    QFETCH(QString, line);
    QTEST(IsDefinitionLine(line), "defines");
}

void tst_GridGrammar::gridDef_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("grid");
    const QString head = u"GRIDDEF~Date~Entry~20~80~\n"_s;
    const QString columns = u"Date 20|Entry 80"_s;

    QTest::newRow("headers, then widths") << u"GRIDDEF~Date~Entry~20~80~"_s << columns;
    QTest::newRow("one column") << u"GRIDDEF~All~100~"_s << u"All 100"_s;
    QTest::newRow("four columns") << u"GRIDDEF~A~B~C~D~10~20~30~40~"_s << u"A 10|B 20|C 30|D 40"_s;
    QTest::newRow("an empty reply") << QString() << u"no columns"_s;
    QTest::newRow("another head") << u"GRIDDEF;Date;20;\na~"_s << u"no columns"_s;
    QTest::newRow("the head in lower case") << u"griddef~Date~20~\na~"_s << u"no columns"_s;
    QTest::newRow("the head behind a blank") << u" GRIDDEF~Date~20~\na~"_s << u"no columns"_s;
    QTest::newRow("the head in the second line") << u"a~\nGRIDDEF~Date~20~"_s << u"no columns"_s;
    QTest::newRow("nothing behind the head") << u"GRIDDEF~\na~b~"_s << u"no columns"_s;

    // The elements less one, halved; halves go to the even neighbour.
    QTest::newRow("one element") << u"GRIDDEF~Date"_s << u"no columns"_s;
    QTest::newRow("two elements: half a column is none") << u"GRIDDEF~Date~20"_s << u"no columns"_s;
    QTest::newRow("three elements") << u"GRIDDEF~Date~20~"_s << u"Date 20"_s;
    QTest::newRow("four elements: one and a half are two")
        << u"GRIDDEF~Date~Entry~20~80"_s << columns;
    QTest::newRow("six elements: two and a half are two")
        << u"GRIDDEF~Date~Entry~20~80~~"_s << columns;
    QTest::newRow("eight elements: three and a half are four")
        << u"GRIDDEF~A~B~C~D~10~20~30~40"_s << u"A 10|B 20|C 30|D 40"_s;

    QTest::newRow("a width field that is empty counts as one percent")
        << u"GRIDDEF~Date~Entry~~80~"_s << u"Date 1|Entry 80"_s;
    QTest::newRow("a header that is empty") << u"GRIDDEF~~Entry~20~80~"_s << u" 20|Entry 80"_s;
    QTest::newRow("a header that is a number")
        << u"GRIDDEF~2001~Entry~20~80~"_s << u"2001 20|Entry 80"_s;
    QTest::newRow("a header keeps its blanks") << u"GRIDDEF~ Date ~20~"_s << u" Date  20"_s;
    QTest::newRow("blanks around a width") << u"GRIDDEF~Date~ 20 ~"_s << u"Date 20"_s;
    QTest::newRow("a fraction is cut") << u"GRIDDEF~Date~20.9~"_s << u"Date 20"_s;
    QTest::newRow("a width below nothing") << u"GRIDDEF~Date~-20~"_s << u"Date -20"_s;
    QTest::newRow("a width beyond the grid") << u"GRIDDEF~Date~2000000000~"_s << u"Date 2e+09"_s;

    QTest::newRow("rows in their order")
        << head + u"01/02~Filed~\n02/03~Heard~" << columns + u"\n01/02|Filed\n02/03|Heard";
    QTest::newRow("cells are trimmed")
        << head + u"  01/02 ~ Filed  ~" << columns + u"\n01/02|Filed";
    QTest::newRow("only blanks are trimmed")
        << head + u"\t01/02~\u00A0Filed~" << columns + u"\n\t01/02|\u00A0Filed";
    QTest::newRow("a surplus of fields")
        << head + u"01/02~Filed~here~too~" << columns + u"\n01/02|Filed";
    QTest::newRow("fewer fields") << u"GRIDDEF~A~B~C~10~20~30~\na~b"_s << u"A 10|B 20|C 30\na|b"_s;
    QTest::newRow("no closing delimiter") << head + u"01/02~Filed" << columns + u"\n01/02|Filed";
    QTest::newRow("an undivided line is the whole line in each cell")
        << head + u" No entries " << columns + u"\nNo entries|No entries";
    QTest::newRow("an undivided line with one delimiter")
        << head + u"No entries~" << columns + u"\nNo entries|";
    QTest::newRow("an empty line") << head + u"\na~b~" << columns + u"\n|\na|b";
    QTest::newRow("marks are text here")
        << head + u"a<BR>b~c<CR>d~" << columns + u"\na<BR>b|c<CR>d";
    QTest::newRow("the other grammar's words are text here")
        << head + u"COLDEF~TABNAME~" << columns + u"\nCOLDEF|TABNAME";
    QTest::newRow("a second definition is a row")
        << head + u"GRIDDEF~x~10~" << columns + u"\nGRIDDEF|x";
}

void tst_GridGrammar::gridDef()
{
    QFETCH(QString, reply);
    const GridTable table = GridDefTable(ReplyLines(reply), RowOrder::AsSent);
    QTEST(GridText(table), "grid");
    QVERIFY(table.HasHeader);
}

void tst_GridGrammar::gridDefLastFirst()
{
    const QStringList lines = ReplyLines(u"GRIDDEF~Date~20~\nfirst~\nsecond~\nthird~"_s);
    QCOMPARE(GridText(GridDefTable(lines, RowOrder::LastFirst)),
             u"Date 20\nthird\nsecond\nfirst"_s);
    QCOMPARE(GridText(GridDefTable(lines.mid(0, 1), RowOrder::LastFirst)), u"Date 20"_s);
}

void tst_GridGrammar::gridDefBehindNotes_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<QString>("grid");
    QTest::newRow("before the reply") << -1 << u"no columns"_s;
    QTest::newRow("at a note") << 0 << u"no columns"_s;
    QTest::newRow("at the definition") << 1 << u"Date 20\na\nb"_s;
    QTest::newRow("at a row") << 2 << u"no columns"_s;
    QTest::newRow("behind the reply") << 4 << u"no columns"_s;
}

void tst_GridGrammar::gridDefBehindNotes()
{
    QFETCH(int, first);
    const QStringList lines = ReplyLines(u"CDKNOTE~x~\nGRIDDEF~Date~20~\na~\nb~"_s);
    QTEST(GridText(GridDefTable(lines, RowOrder::AsSent, first)), "grid");
}

void tst_GridGrammar::applyColDef_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("columns"); // "" when the line is rejected
    const QString both = u"Date 20|Entry 80"_s;
    QTest::newRow("interleaved") << u"COLDEF~Date~20~Entry~80~"_s << both;
    QTest::newRow("grouped") << u"COLDEF~Date~Entry~20~80~"_s << both;
    QTest::newRow("widths first") << u"COLDEF~20~80~Date~Entry~"_s << both;
    QTest::newRow("one column") << u"COLDEF~Date~20~"_s << u"Date 20"_s;
    QTest::newRow("the last character goes, whatever it is")
        << u"COLDEF~Date~20x"_s << u"Date 20"_s;
    QTest::newRow("so does the one behind the head") << u"COLDEFxDate~20~"_s << u"Date 20"_s;
    QTest::newRow("without the closing delimiter a digit is lost")
        << u"COLDEF~Date~Entry~20~80"_s << u"Date 20|Entry 8"_s;

    // Half the elements; halves go to the even neighbour.
    QTest::newRow("three elements: one and a half are two")
        << u"COLDEF~Date~20~Entry~"_s << u"Date 20|Entry 1"_s;
    QTest::newRow("five elements: two and a half are two")
        << u"COLDEF~Date~20~Entry~80~More~"_s << both;
    QTest::newRow("seven elements: three and a half are four")
        << u"COLDEF~A~10~B~20~C~30~D~"_s << u"A 10|B 20|C 30|D 1"_s;

    QTest::newRow("a header that is a number counts as a width")
        << u"COLDEF~2001~20~Entry~80~"_s << u"Entry 2001| 20"_s;
    QTest::newRow("a width field that is empty counts as one percent")
        << u"COLDEF~Date~Entry~20~~"_s << u"Date 20|Entry 1"_s;
    QTest::newRow("a header that is empty") << u"COLDEF~~20~Entry~80~"_s << u" 20|Entry 80"_s;
    QTest::newRow("only headers") << u"COLDEF~A~B~C~D~"_s << u"A 1|B 1"_s;
    QTest::newRow("only widths") << u"COLDEF~10~20~30~40~"_s << u" 10| 20"_s;
    QTest::newRow("signs, points and blanks make numbers")
        << u"COLDEF~A~+20~B~-5~C~ 7.9 ~D~.5~"_s << u"A 20|B -5|C 7|D 0"_s;
    QTest::newRow("these are headers")
        << u"COLDEF~1E5~10~inf~20~nan~30~1.2.3~40~-~50~.~60~20%~70~1,000~80~"_s
        << u"1E5 10|inf 20|nan 30|1.2.3 40|- 50|. 60|20% 70|1,000 80"_s;

    QTest::newRow("rejected: an empty line") << QString() << QString();
    QTest::newRow("rejected: no delimiter") << u"COLDEF Date 20"_s << QString();
    QTest::newRow("rejected: another head") << u"COLDIF~Date~20~"_s << QString();
    QTest::newRow("rejected: in lower case") << u"coldef~Date~20~"_s << QString();
    QTest::newRow("rejected: behind a blank") << u" COLDEF~Date~20~"_s << QString();
    QTest::newRow("rejected: nothing defined") << u"COLDEF~"_s << QString();
    QTest::newRow("rejected: an empty field") << u"COLDEF~~"_s << QString();
    QTest::newRow("rejected: half a column is none") << u"COLDEF~Date~"_s << QString();
}

void tst_GridGrammar::applyColDef()
{
    QFETCH(QString, line);
    QFETCH(QString, columns);
    const auto applied = ApplyColDef(line);
    QCOMPARE(applied.has_value(), !columns.isEmpty());
    if (applied)
        QCOMPARE(GridText({*applied, {}}), columns);
}

void tst_GridGrammar::interleavedAndGroupedHeadersGiveTheSameGrid()
{
    QStringList interleaved = ReplyLines(fourLines + u"\n01/02/2003~Filed~");
    QStringList grouped = interleaved;
    grouped[2] = u"COLDEF~Date~Entry~20~80~"_s;
    QCOMPARE(ColDefTable(interleaved), ColDefTable(grouped));
    QCOMPARE(GridText(ColDefTable(grouped)), u"Date 20|Entry 80\n01/02/2003|Filed"_s);
}

void tst_GridGrammar::malformedColDefLeavesTheCountOfLineThree_data()
{
    QTest::addColumn<QString>("colDef");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QString>("names");
    const QString two = u" 50| 50\na|b"_s;
    // Without its word the line is a row as well. The reader of names takes any first field as
    // head.
    QTest::newRow("another head") << u"COLDIF~Date~20~"_s << u"~~"_s
                                  << u" 50| 50\nCOLDIF|Date\na|b"_s << u"Date 20\nCOLDIF\na"_s;
    QTest::newRow("half a column") << u"COLDEF~Date~"_s << u"~~"_s << two << u"Date 1\na"_s;
    QTest::newRow("no column") << u"COLDEF~"_s << u"~~"_s << two << two;
    QTest::newRow("no delimiter") << u"COLDEF Date 20"_s << u"~~"_s << two << two;
    QTest::newRow("empty") << QString() << u"~~"_s << u" 50| 50\n\na|b"_s << u" 50| 50\n\na|b"_s;
    QTest::newRow("four columns") << u"COLDEF"_s << u"~L~L~L~"_s << u" 25| 25| 25| 25\na|b|"_s
                                  << u" 25| 25| 25| 25\na|b|"_s;
    QTest::newRow("nothing in line three either")
        << u"COLDEF"_s << QString() << u"no columns"_s << u"no columns"_s;
}

void tst_GridGrammar::malformedColDefLeavesTheCountOfLineThree()
{
    QFETCH(QString, colDef);
    QFETCH(QString, count);
    const QStringList lines{u"TABNAME~"_s, u"TABDEF~"_s, colDef, u"BREAKERS"_s + count, u"a~b~"_s};
    QTEST(GridText(ColDefTable(lines)), "grid");
    QTEST(GridText(NamesTable(lines)), "names");
}

void tst_GridGrammar::headersThenWidths_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("columns");
    const QString both = u"Name 60|Role 40"_s;
    QTest::newRow("headers, then widths") << u"COLDEF~Name~Role~60~40~"_s << both;
    QTest::newRow("without the closing delimiter") << u"COLDEF~Name~Role~60~40"_s << both;
    QTest::newRow("one column") << u"COLDEF~Name~60~"_s << u"Name 60"_s;
    QTest::newRow("one column, not closed") << u"COLDEF~Name~60"_s << u"Name 60"_s;
    QTest::newRow("three columns") << u"COLDEF~A~B~C~10~20~30~"_s << u"A 10|B 20|C 30"_s;
    QTest::newRow("three columns, not closed") << u"COLDEF~A~B~C~10~20~30"_s << u"A 10|B 20|C 30"_s;
    QTest::newRow("a header that is a number")
        << u"COLDEF~2001~Role~60~40~"_s << u"2001 60|Role 40"_s;
    QTest::newRow("a width field that is empty counts as one percent")
        << u"COLDEF~Name~Role~~40~"_s << u"Name 1|Role 40"_s;
    QTest::newRow("blanks around the head") << u"  COLDEF ~Name~60~  "_s << u"Name 60"_s;
    QTest::newRow("the word goes wherever it stands")
        << u"COLDEF~The COLDEF~60~"_s << u"The   60"_s;
    QTest::newRow("a surplus element")
        << u"COLDEF~Name~Role~60~40~x~"_s << u"error 13"_s; // three columns: "60" is a header
    QTest::newRow("a head alone") << u"COLDEF~"_s << u"no columns"_s;
    QTest::newRow("one field") << u"COLDEF~Name"_s << u"no columns"_s;
    QTest::newRow("an empty line") << QString() << u"no columns"_s;
    QTest::newRow("interleaved") << u"COLDEF~Name~60~Role~40~"_s << u"error 13"_s;
}

void tst_GridGrammar::headersThenWidths()
{
    QFETCH(QString, line);
    QString columns;
    try {
        columns = GridText({SetGridColsAndNamesAndWidths(line), {}});
    } catch (const RunTimeError &error) {
        columns = u"error "_s + QString::number(error.Number());
    }
    QTEST(columns, "columns");
}

void tst_GridGrammar::aWidthThatIsNoNumber_data()
{
    QTest::addColumn<QString>("width");
    QTest::addColumn<int>("error");
    QTest::addColumn<bool>("inColDef");
    QTest::newRow("a word") << u"wide"_s << 13 << false;
    QTest::newRow("a percent sign") << u"20%"_s << 13 << false;
    QTest::newRow("nan") << u"nan"_s << 13 << false;
    QTest::newRow("inf") << u"inf"_s << 6 << false;
    QTest::newRow("too great") << u"99999999999"_s << 6 << true;
    QTest::newRow("far too great") << QString(400, u'9') << 13 << true;
}

void tst_GridGrammar::aWidthThatIsNoNumber()
{
    QFETCH(QString, width);
    QFETCH(int, error);
    QFETCH(bool, inColDef);
    const auto errorOf = [](const auto &procedure) {
        try {
            procedure();
        } catch (const RunTimeError &thrown) {
            return thrown.Number();
        }
        return 0;
    };
    QCOMPARE(errorOf([&] { GridDefTable({u"GRIDDEF~Date~"_s + width + u'~'}, RowOrder::AsSent); }),
             error);
    QCOMPARE(errorOf([&] { SetGridColsAndNamesAndWidths(u"COLDEF~Date~"_s + width + u'~'); }),
             error);
    // Here it would be a header, were it no number.
    QCOMPARE(errorOf([&] { ApplyColDef(u"COLDEF~Date~"_s + width + u'~'); }), inColDef ? error : 0);
}

void tst_GridGrammar::expandRows_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("rows");
    QTest::newRow("a row as it stands") << u" a ~b~c"_s << u" a ~b~c"_s;
    QTest::newRow("an undivided row") << u"No entries"_s << u"No entries"_s;
    QTest::newRow("a definition line") << u"COLALIGNMENT~L~L~"_s << u"(none)"_s;
    QTest::newRow("a row that holds one of the words")
        << u"01/02~ORDER ON TABDEF~"_s << u"(none)"_s;
    QTest::newRow("a row with the word and a break") << u"COLDEF<BR>x~y~"_s << u"(none)"_s;
    QTest::newRow("a soft break") << u"a<CR>b<CR><CR>c~d~"_s << u"a b  c~d~"_s;
    QTest::newRow("marks in lower case are text") << u"a<br>b~c<cr>d~"_s << u"a<br>b~c<cr>d~"_s;
    QTest::newRow("a break") << u"01/02~Filed<BR>Answer~"_s << u"01/02~Filed~\n ~Answer~"_s;
    QTest::newRow("a row of four fields with a break in the second and three pieces")
        << u"a~b1<BR>b2<BR>b3~c~d~"_s << u"a~b1~c~d~\n ~b2~ ~ ~\n ~b3~ ~ ~"_s;
    QTest::newRow("a break in the first field") << u"a1<BR>a2~b~"_s << u"a1~b~\na2~ ~"_s;
    QTest::newRow("a break at either end of a field") << u"<BR>a<BR>~b~"_s << u"~b~\na~ ~\n~ ~"_s;
    QTest::newRow("a break and a soft break") << u"a<CR>x~b1<BR>b<CR>2~"_s << u"a x~b1~\n ~b 2~"_s;
    QTest::newRow("two fields with breaks: once for each")
        << u"a1<BR>a2~b1<BR>b2~"_s << u"a1~b1<BR>b2~\na2~ ~\na1<BR>a2~b1~\n ~b2~"_s;
    QTest::newRow("what is not closed is no field") << u"a1<BR>a2~b"_s << u"a1~\na2~"_s;
    QTest::newRow("a break that only stands in what is not closed")
        << u"a~b1<BR>b2"_s << u"(none)"_s;
    QTest::newRow("an empty line") << QString() << QString();
}

void tst_GridGrammar::expandRows()
{
    QFETCH(QString, line);
    QFETCH(QString, rows);
    QStringList expected{u"before~"_s};
    if (rows != u"(none)")
        expected += rows.split(u'\n');
    expected += u"behind~"_s;
    QCOMPARE(ExpandGridRows({u"before~"_s, line, u"behind~"_s}), expected);
}

void tst_GridGrammar::onlyBrokenRowsAreReported()
{
    const QStringList lines{u"a~<CR>~"_s, u"b~c<BR>d~"_s, u"e~"_s, u"f<BR>g<CR>h~i~"_s};
    const QStringList broken{u"b~c~"_s, u" ~d~"_s, u"f~i~"_s, u"g h~ ~"_s};
    QStringList expanded{u"what was there"_s};
    ExpandGridRows(lines, &expanded);
    QCOMPARE(expanded, QStringList{u"what was there"_s} + broken);
    expanded.clear();
    ColDefTable(fourLines.split(u'\n') + lines, &expanded);
    QCOMPARE(expanded, broken);
}

void tst_GridGrammar::colDef_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("grid");
    QTest::newRow("rows in their order") << u"1~a~\n2~b~"_s << u"\n1|a\n2|b"_s;
    QTest::newRow("cells are trimmed") << u"  1 ~ a  ~"_s << u"\n1|a"_s;
    QTest::newRow("a cell of a blank") << u" ~a~"_s << u"\n|a"_s;
    QTest::newRow("fewer fields") << u"1"_s << u"\n1"_s;
    QTest::newRow("a surplus of fields") << u"1~a~b~c~"_s << u"\n1|a"_s;
    QTest::newRow("an undivided row stands in the first cell")
        << u" No entries "_s << u"\nNo entries"_s;
    QTest::newRow("a row of four fields with a break in the second and three pieces")
        << u"1~ b1 <BR> b2<BR>b3 ~3~4~"_s << u"\n1|b1\n |b2\n |b3"_s;
    QTest::newRow("a broken first cell") << u"a1<BR>a2~b~"_s << u"\na1|b\na2| "_s;
    QTest::newRow("a piece of a blank") << u"a~b<BR> ~"_s << u"\na|b\n |"_s;
    QTest::newRow("a row with a word of the definition is dropped")
        << u"1~TABNAME~\n2~b~"_s << u"\n2|b"_s;
    QTest::newRow("only such a row") << u"1~BREAKERS~"_s << u""_s;
}

void tst_GridGrammar::colDef()
{
    QFETCH(QString, rows);
    QFETCH(QString, grid);
    const GridTable table = ColDefTable(ReplyLines(fourLines + u'\n' + rows));
    QCOMPARE(GridText(table), u"Date 20|Entry 80"_s + grid);
    QVERIFY(table.HasHeader);
}

void tst_GridGrammar::theWorkedExample()
{
    const GridTable table =
        ColDefTable({u"TABNAME~Docket~"_s, u"TABDEF~Docket~"_s, u"COLDEF~Date~20~Entry~80~"_s,
                     u"COLALIGNMENT~L~L~"_s, u"01/02/2003~Filed<BR>Answer~"_s});
    const GridTable expected{{{u"Date"_s, 20}, {u"Entry"_s, 80}},
                             {{u"01/02/2003"_s, u"Filed"_s}, {u" "_s, u"Answer"_s}},
                             true};
    QCOMPARE(table, expected);
}

void tst_GridGrammar::fourLinesHoldNoRows()
{
    for (int count = 0; count < 5; ++count) {
        QCOMPARE(ColDefTable(fourLines.split(u'\n').mid(0, count)), GridTable());
        QCOMPARE(NamesTable(namesLines.split(u'\n').mid(0, count)), GridTable());
    }
    QCOMPARE(ColDefTable({QString(), QString(), QString(), QString()}), GridTable());
}

void tst_GridGrammar::names_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("grid");
    QTest::newRow("rows in their order")
        << u"SMITH, JOHN~PLA~\nROE, RICHARD~DEF~"_s << u"\nSMITH, JOHN|PLA\nROE, RICHARD|DEF"_s;
    QTest::newRow("each row by its own last character")
        << u"SMITH; JOHN~PLA~\nROE~RICHARD;DEF;\nDOE¦WIT¦"_s
        << u"\nSMITH; JOHN|PLA\nROE~RICHARD|DEF\nDOE|WIT"_s;
    QTest::newRow("cells are trimmed") << u" SMITH ~ PLA ~ "_s << u"\nSMITH|PLA"_s;
    QTest::newRow("fewer fields") << u"SMITH~"_s << u"\nSMITH|"_s;
    QTest::newRow("a surplus of fields") << u"SMITH~PLA~x~y~"_s << u"\nSMITH|PLA"_s;
    QTest::newRow("a row that is not closed is cut at its last letter")
        << u"SMITH~ROLE"_s << u"\nSMITH~ROL|"_s;
    QTest::newRow("a break") << u"SMITH;PLA<BR>DEF;"_s << u"\nSMITH|PLA\n |DEF"_s;
    QTest::newRow("two breaks") << u"S<BR>T;PLA<BR>DEF;"_s
                                << u"\nS|PLA<BR>DEF\nT| \nS<BR>T|PLA\n |DEF"_s;
    QTest::newRow("a soft break") << u"SMITH<CR>JOHN;PLA;"_s << u"\nSMITH JOHN|PLA"_s;
    QTest::newRow("a row with a word of the definition is dropped")
        << u"COLDEF~PLA~\nROE~DEF~"_s << u"\nROE|DEF"_s;
    QTest::newRow("an empty line") << u"\nROE~DEF~"_s << u"\n\nROE|DEF"_s;
    QTest::newRow("a delimiter alone") << u"~"_s << u"\n|"_s;
}

void tst_GridGrammar::names()
{
    QFETCH(QString, rows);
    QFETCH(QString, grid);
    const GridTable table = NamesTable(ReplyLines(namesLines + u'\n' + rows));
    QCOMPARE(GridText(table), u"Name 60|Role 40"_s + grid);
    QVERIFY(table.HasHeader);
}

void tst_GridGrammar::messages()
{
    QCOMPARE(GridText(MessageTable(u"No Names"_s)), u" 100\nNo Names"_s);
    QCOMPARE(GridText(OneCellTable(u"No Names"_s)), u"no header\n 100\nNo Names"_s);
}

HALVANE_TEST(tst_GridGrammar)
#include "tst_GridGrammar.moc"
