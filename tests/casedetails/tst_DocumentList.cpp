#include "casedetails/DocumentList.h"
#include "casedetails/GridGrammar.h"
#include "casedetails/GridTexts.h"
#include "support/HalvaneTest.h"

using namespace Qt::StringLiterals;

namespace {
const QString request = u"WASUPDOC¦GETDOCTAB¦King¦02-2-00123-4¦"_s;
const QStringList definition{u"TABNAME~"_s, u"TABDEF~"_s,
                             u"COLDEF~No~10~Date~20~Pages~10~Title~60~"_s,
                             u"COLALIGNMENT~L~L~L~L~"_s};

/// A record whose list of documents has these rows.
CaseRecord listed(const QStringList &rows, const QString &county = u"King"_s)
{
    CaseRecord record(CaseKind::State);
    record.txtCaseNumber = u"*02-2-00123-4"_s;
    record.txtCountyName = county;
    record.ClientAcctgCode = u"CODE"_s;
    record.DocumentLines = definition + rows;
    record.Tab(CaseTab::Documents).Table = DocumentsTable(record.DocumentLines);
    return record;
}

QStringList descriptionsOf(const QList<DocumentStart> &documents)
{
    QStringList texts;
    for (const DocumentStart &document : documents)
        texts.append(document.Description);
    return texts;
}
} // namespace

/// The list of documents of a case, and what its rows open.
class tst_DocumentList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void documents_data();
    void documents();
    void documentsBeforeTheyHaveAllCome();
    void noDocuments_data();
    void noDocuments();
    void fewerThanFourLinesFail_data();
    void fewerThanFourLinesFail();
    void aWidthThatIsTooGreatLeavesTheColumns();
    void aRowRemembersItsLine();
    void aRowOpensItsDocument();
    void aPageCountByCounty_data();
    void aPageCountByCounty();
    void whatOpensNothing_data();
    void whatOpensNothing();
    void aBrokenRowOpensItsDocument();
    void severalRowsAreOfEachDocumentOnce();
    void rowsThatAreGivenAreTheOnesOpened();
};

void tst_DocumentList::documents_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("grid");
    QTest::newRow("a document") << u"RETRIEVEDOC=x^~1~01/02/2003~7~Order~"_s
                                << u"\n1|01/02/2003|7|Order"_s;
    QTest::newRow("by the row's own last character")
        << u"RETRIEVEDOC=a~b^~c~;1;01/02/2003;7;Order~;\nRETRIEVEDOC=x^1^2^3^4^"_s
        << u"\n1|01/02/2003|7|Order~\n1|2|3|4"_s;
    QTest::newRow("one that cannot be retrieved")
        << u"1~01/02/2003~7~Order~"_s << u"\n1|01/02/2003|7|Order (Unavail.)"_s;
    QTest::newRow("the word within the command")
        << u"x RETRIEVEDOC=x^~1~2~3~4~"_s << u"\n1|2|3|4"_s;
    QTest::newRow("the word in lower case is none")
        << u"retrievedoc=x^~1~2~3~4~"_s << u"\nretrievedoc=x^|1|2|3 (Unavail.)"_s;
    QTest::newRow("the word in another field is none")
        << u"1~RETRIEVEDOC=~2~3~"_s << u"\n1|RETRIEVEDOC=|2|3 (Unavail.)"_s;
    QTest::newRow("a row in blanks") << u"  1~2~3~4~  "_s << u"\n1|2|3|4 (Unavail.)"_s;
    QTest::newRow("fewer fields") << u"RETRIEVEDOC=x^~1~2~\n1~2~"_s << u"\n1|2|\n1|2|"_s;
    QTest::newRow("a surplus of fields") << u"RETRIEVEDOC=x^~1~2~3~4~5~6~"_s << u"\n1|2|3|4"_s;
    QTest::newRow("a broken cell fills no other column")
        << u"RETRIEVEDOC=x^~1~2~3~a<BR>b<BR>c~\nRETRIEVEDOC=y^~5~6~7~8~"_s
        << u"\n1|2|3|a\n|||b\n|||c\n5|6|7|8"_s;
    QTest::newRow("two broken cells share the rows")
        << u"RETRIEVEDOC=x^~1~a<BR>b~3~c<BR>d<BR>e~"_s << u"\n1|a|3|c\n|b||d\n|||e"_s;
    QTest::newRow("a broken cell that cannot be retrieved")
        << u"1~2~3~a<BR>b~"_s << u"\n1|2|3|a\n|||b (Unavail.)"_s;
    QTest::newRow("a soft break") << u"RETRIEVEDOC=x^~1~2~3~a<CR>b~"_s << u"\n1|2|3|a b"_s;
    QTest::newRow("a row with a word of the definition stays")
        << u"RETRIEVEDOC=x^~1~2~3~TABDEF~"_s << u"\n1|2|3|TABDEF"_s;
    QTest::newRow("an empty line keeps its place")
        << u"\nRETRIEVEDOC=x^~1~2~3~4~"_s << u"\n\n1|2|3|4"_s;
    QTest::newRow("a single character") << u"~"_s << u"\n|"_s;
}

void tst_DocumentList::documents()
{
    QFETCH(QString, rows);
    QFETCH(QString, grid);
    for (const QString &colDef : {u"COLDEF~No~10~Date~20~Pages~10~Title~60~"_s, u"COLDEF"_s}) {
        const QStringList lines =
            QStringList{u"TABNAME~"_s, u"TABDEF~"_s, colDef, u"COLALIGNMENT~L~L~L~L~"_s}
            + rows.split(u'\n');
        // Without a column definition the last of the lines counts the columns.
        const QString columns =
            colDef == u"COLDEF" ? u" 25| 25| 25| 25"_s : u"No 10|Date 20|Pages 10|Title 60"_s;
        QCOMPARE(GridText(DocumentsTable(lines)), columns + grid);
        const TabView view = ShowDocumentsResponse(lines, true, request);
        QCOMPARE(view.Grid, DocumentsTable(lines));
        QVERIFY(view.LogLines.isEmpty());
    }
}

void tst_DocumentList::documentsBeforeTheyHaveAllCome()
{
    const QStringList lines{u"TABNAME~"_s, u"TABDEF~"_s, u"COLDEF~No~10~Date~20~"_s,
                            u"BREAKERS~~~"_s, u"RETRIEVEDOC=x^~1~2~"_s};
    for (int count = 0; count < 4; ++count)
        QCOMPARE(DocumentsTable(lines.mid(0, count)), GridTable());
    QCOMPARE(GridText(DocumentsTable(lines.mid(0, 4))), u"No 10|Date 20"_s);
    QCOMPARE(GridText(DocumentsTable(lines)), u"No 10|Date 20\n1|2"_s);
    QCOMPARE(GridText(DocumentsTable({u"a~"_s, u"b~"_s, u"c~"_s, u"d"_s, u"e~"_s})),
             u"no columns"_s);
}

void tst_DocumentList::noDocuments_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    const QString none = u"No Document Images Available For This Case."_s;
    const QString noneLog = u"No Document Images Found For This Particular Case: "_s;
    const QString cut = u"Retrieval of Document Images Incomplete. Please Retry Search."_s;
    const QString cutLog = u"Incomplete Document Images Available Request: "_s;
    QTest::newRow("nothing came") << QString() << false << none << noneLog;
    QTest::newRow("nothing came in time") << QString() << true << cut << cutLog;
    QTest::newRow("incomplete, whatever the line says")
        << u"Court Documents N/A"_s << true << cut << cutLog;
    QTest::newRow("documents down")
        << u"Sorry: Court Documents N/A~"_s << false
        << u"Documents are not available at this time. Please try again later."_s
        << u"Documents are not available at this time. Please try again later: "_s;
    QTest::newRow("not from this county")
        << u"Documents n/a for: Asotin"_s << false
        << u"Document Images Are Not Available From This County."_s
        << u"Document Images Are Not Available From This County: "_s;
    QTest::newRow("a judgment")
        << u"Documents for this Judgment are available by searching its associated case."_s << false
        << u"Documents for this Judgment may be available by searching its associated case "
           u"number.\n"
           "The Summary Tab contains the associated case number for this judgment.\n"
           "Tip: Double-Clicking on the associated case number entry will start a new search."_s
        << u"No Document Images Found For This Judgment Search: "_s;
    QTest::newRow("in lower case") << u"court documents n/a"_s << false << none << noneLog;
    QTest::newRow("in the second line") << u"x\nCourt Documents N/A"_s << false << none << noneLog;
    QTest::newRow("four lines hold no documents")
        << u"a~\nb~\nCOLDEF~A~20~\nd~~"_s << false << none << noneLog;
}

void tst_DocumentList::noDocuments()
{
    QFETCH(QString, reply);
    QFETCH(bool, incomplete);
    QFETCH(QString, message);
    QFETCH(QString, log);
    const TabView view = ShowDocumentsResponse(ReplyLines(reply), incomplete, request);
    QCOMPARE(GridText(view.Grid), u" 100\n"_s + message);
    QCOMPARE(view.LogLines, QStringList{log + request});
    QVERIFY(view.Notes.isEmpty());
}

void tst_DocumentList::fewerThanFourLinesFail_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("made");
    for (int count = 0; count <= 5; ++count)
        QTest::addRow("%d", count) << count << (count >= 4);
}

void tst_DocumentList::fewerThanFourLinesFail()
{
    QFETCH(int, count);
    QFETCH(bool, made);
    const QStringList lines = definition + QStringList{u"1~2~3~4~"_s};
    GridTable table = MessageTable(u"what stood there"_s);
    const std::optional<QString> failure = InitDocGrid(lines.first(count), table);
    QCOMPARE(GridText(table), made ? u"No 10|Date 20|Pages 10|Title 60"_s : u"no columns"_s);
    QCOMPARE(failure.has_value(), !made);
    if (!made)
        QCOMPARE(*failure,
                 u"Error *** frmCaseDetails::InitDocGrid(): Error: Subscript out of range"_s);
}

void tst_DocumentList::aWidthThatIsTooGreatLeavesTheColumns()
{
    QStringList lines = definition + QStringList{u"RETRIEVEDOC=x^~1~2~3~4~"_s};
    lines[2] = u"COLDEF~A~99999999999~"_s;
    QCOMPARE(GridText(DocumentsTable(lines)), u" 25| 25| 25| 25\n1|2|3|4"_s);
    GridTable table;
    QCOMPARE(InitDocGrid(lines, table),
             u"Error *** frmCaseDetails::InitDocGrid(): Error: Overflow"_s);
}

void tst_DocumentList::aRowRemembersItsLine()
{
    const GridTable table = DocumentsTable(
        definition
        + QStringList{u"RETRIEVEDOC=x^~1~2~3~4~"_s, u"1~2~3~4~"_s, QString(),
                      u"RETRIEVEDOC=y^~1~a<BR>b~3~c<BR>d<BR>e~"_s, u"RETRIEVEDOC=z^~1~2~3~4~"_s});
    QCOMPARE(table.RowData, (QList<qsizetype>{4, 5, 6, 7, 7, 7, 8}));
    QCOMPARE(table.Rows.size(), table.RowData.size());
}

void tst_DocumentList::aRowOpensItsDocument()
{
    const CaseRecord record =
        listed({u"1~01/02/2003~7~Order~"_s, u"RETRIEVEDOC=a/b/~2~01/03/2003~12~Answer & more~"_s});
    const std::optional<DocumentStart> start = DocumentOfRow(record, 2);
    QVERIFY(start);
    QCOMPARE(start->Command, u"RETRIEVEDOC=a/b/~2~01/03/2003~12~Answer & more~"_s);
    QCOMPARE(start->CaseNumber, u"*02-2-00123-4"_s);
    QCOMPARE(start->County, u"King"_s);
    QCOMPARE(start->Description, u"Answer & more"_s);
    QCOMPARE(start->PageCount, u"12"_s);
    QCOMPARE(start->ClientMatterText, u"CODE"_s);
}

void tst_DocumentList::aPageCountByCounty_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("pages");
    QTest::newRow("King") << u"King"_s << u"12"_s;
    QTest::newRow("Pierce") << u"Pierce"_s << u"7"_s;
    QTest::newRow("in capitals") << u"PIERCE"_s << u"7"_s;
    QTest::newRow("another that begins so") << u"Pierce County"_s << u"12"_s;
    QTest::newRow("none") << QString() << u"12"_s;
}

void tst_DocumentList::aPageCountByCounty()
{
    QFETCH(QString, county);
    const CaseRecord record = listed({u"RETRIEVEDOC=x^~1~7~12~Order~"_s}, county);
    QTEST(DocumentOfRow(record, 1)->PageCount, "pages");
}

void tst_DocumentList::whatOpensNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("the headers") << 0;
    QTest::newRow("a row that is unavailable") << 1;
    QTest::newRow("a row of nothing") << 2;
    QTest::newRow("behind the last") << 4;
    QTest::newRow("before the first") << -1;
}

void tst_DocumentList::whatOpensNothing()
{
    QFETCH(int, row);
    CaseRecord record = listed({u"1~2~3~4~"_s, QString(), u"RETRIEVEDOC=x^~1~2~3~4~"_s});
    QVERIFY(!DocumentOfRow(record, row));
    QVERIFY(DocumentOfRow(record, 3));
    // A message has a single column, and is no document whatever the lines say.
    record.Tab(CaseTab::Documents).Table.Columns.resize(1);
    QVERIFY(!DocumentOfRow(record, 3));
    record.Tab(CaseTab::Documents).Table =
        ShowDocumentsResponse({u"RETRIEVEDOC=x"_s}, false, request).Grid;
    QVERIFY(!DocumentOfRow(record, 1));
}

void tst_DocumentList::aBrokenRowOpensItsDocument()
{
    const CaseRecord record =
        listed({u"RETRIEVEDOC=x^~1~2~3~a<BR>b~"_s, u"RETRIEVEDOC=y^~1~2<BR>2~5~c~"_s,
                u"RETRIEVEDOC=z^~1~2~6~d~"_s});
    const auto opened = [&](int row) {
        const std::optional<DocumentStart> start = DocumentOfRow(record, row);
        return start ? start->Command.section(u'^', 0, 0) + start->PageCount + start->Description
                     : QString();
    };
    QCOMPARE(opened(1), u"RETRIEVEDOC=x3a"_s);
    QCOMPARE(opened(2), u"RETRIEVEDOC=x3b"_s);
    QCOMPARE(opened(3), u"RETRIEVEDOC=y5c"_s);
    QCOMPARE(opened(4), u"RETRIEVEDOC=y5c"_s);
    QCOMPARE(opened(5), u"RETRIEVEDOC=z6d"_s);
}

void tst_DocumentList::severalRowsAreOfEachDocumentOnce()
{
    const CaseRecord record = listed({u"RETRIEVEDOC=x^~1~2~3~a<BR>b~"_s, u"1~2~3~c~"_s, QString(),
                                      u"RETRIEVEDOC=y^~1~2~3~d~"_s});
    const QList<DocumentStart> documents = DocumentsOfRows(record, {0, 1, 2, 3, 4, 5, 6});
    QCOMPARE(descriptionsOf(documents), (QStringList{u"a"_s, u"c (Unavail.)"_s, u"d"_s}));
    QVERIFY(IsRetrievable(documents[0]) && IsRetrievable(documents[2]));
    QVERIFY(!IsRetrievable(documents[1]));
}

void tst_DocumentList::rowsThatAreGivenAreTheOnesOpened()
{
    const CaseRecord record = listed({u"RETRIEVEDOC=x^~1~2~3~a<BR>b~"_s,
                                      u"RETRIEVEDOC=y^~1~2~3~c~"_s, u"RETRIEVEDOC=z^~1~2~3~d~"_s});
    QCOMPARE(descriptionsOf(DocumentsOfRows(record, {2, 4})), (QStringList{u"b"_s, u"d"_s}));
    QCOMPARE(descriptionsOf(DocumentsOfRows(record, {})), QStringList());
}

HALVANE_TEST(tst_DocumentList)
#include "tst_DocumentList.moc"
