#include "support/HalvaneTest.h"
#include "tables/CsvText.h"
#include "tables/StoredWidths.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_CsvText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void harmlessCell_data();
    void harmlessCell();
    void caseNumberHeaders_data();
    void caseNumberHeaders();
    void caseNumberCell_data();
    void caseNumberCell();
    void csvCell_data();
    void csvCell();
    void csvFile();
    void csvOfNoRowsHasItsHeaders();
    void clipboard();
    void clipboardWithHeaders();
    void fileName_data();
    void fileName();
    void widthsAsText_data();
    void widthsAsText();
    void brokenWidths_data();
    void brokenWidths();
};

void tst_CsvText::harmlessCell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("harmless");
    const auto row = [](const char *name, const QString &text, const QString &harmless) {
        QTest::newRow(name) << text << harmless;
    };
    row("empty", {}, {});
    row("name", u"SMITH, JOHN"_s, u"SMITH, JOHN"_s);
    row("equals", u"=1+1"_s, u"'=1+1"_s);
    row("plus", u"+cmd|' /C calc'!A0"_s, u"'+cmd|' /C calc'!A0"_s);
    row("minus", u"-2+3+cmd"_s, u"'-2+3+cmd"_s);
    row("at", u"@SUM(A1)"_s, u"'@SUM(A1)"_s);
    row("blanks before it", u"  =1"_s, u"'  =1"_s);
    row("tab before it", u"\t=1"_s, u"'\t=1"_s);
    row("line end before it", u"\r\n@A"_s, u"'\r\n@A"_s);
    row("sign alone", u"-"_s, u"'-"_s);
    row("negative amount", u"-1,250.00"_s, u"-1,250.00"_s);
    row("positive number", u"+5"_s, u"+5"_s);
    row("two signs", u"--5"_s, u"'--5"_s);
    row("a sum", u"-5+5"_s, u"'-5+5"_s);
    row("equals and a number", u"=5"_s, u"'=5"_s);
    row("at and a number", u"@5"_s, u"'@5"_s);
    row("sign inside", u"A=B"_s, u"A=B"_s);
    row("mark of an opened case", u">>02-2"_s, u">>02-2"_s);
}

void tst_CsvText::harmlessCell()
{
    QFETCH(QString, text);
    QTEST(HarmlessCell(text), "harmless");
}

void tst_CsvText::caseNumberHeaders_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<bool>("caseNumbers");
    QTest::newRow("of most lists") << u"Case Number"_s << true;
    QTest::newRow("of district courts") << u"Case No."_s << true;
    QTest::newRow("title") << u"Case Title"_s << false;
    QTest::newRow("name") << u"Name"_s << false;
    QTest::newRow("none") << QString() << false;
}

void tst_CsvText::caseNumberHeaders()
{
    QFETCH(QString, header);
    QTEST(HoldsCaseNumbers(header), "caseNumbers");
}

void tst_CsvText::caseNumberCell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cell");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("like a date") << u"1-2-03"_s << u"=\"1-2-03\""_s;
    QTest::newRow("leading zeros") << u"0012345"_s << u"=\"0012345\""_s;
    QTest::newRow("like a power of ten") << u"3E809020"_s << u"=\"3E809020\""_s;
    QTest::newRow("with its marks") << u">>*02-2-02029-9"_s << u"=\">>*02-2-02029-9\""_s;
    QTest::newRow("formula") << u"=1+1"_s << u"=\"=1+1\""_s;
    QTest::newRow("a quote does not end the text")
        << u"1\"&HYPERLINK(\"x"_s << u"=\"1\"\"&HYPERLINK(\"\"x\""_s;
    QTest::newRow("line ends") << u"1\r\n2"_s << u"=\"1  2\""_s;
    const QString longest(255, u'1');
    QTest::newRow("as long as a text in a formula may be") << longest << u"=\""_s + longest + u'"';
    QTest::newRow("longer") << u'=' + longest << u"'="_s + longest;
}

void tst_CsvText::caseNumberCell()
{
    QFETCH(QString, text);
    QTEST(CaseNumberCell(text), "cell");
}

void tst_CsvText::csvCell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cell");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("plain") << u"SMITH"_s << u"SMITH"_s;
    QTest::newRow("comma") << u"SMITH, JOHN"_s << u"\"SMITH, JOHN\""_s;
    QTest::newRow("quotes are doubled") << u"a \"b\" c"_s << u"\"a \"\"b\"\" c\""_s;
    QTest::newRow("line feed") << u"a\nb"_s << u"\"a\nb\""_s;
    QTest::newRow("carriage return") << u"a\rb"_s << u"\"a\rb\""_s;
    QTest::newRow("blank in front") << u" a"_s << u"\" a\""_s;
    QTest::newRow("blank behind") << u"a "_s << u"\"a \""_s;
}

void tst_CsvText::csvCell()
{
    QFETCH(QString, text);
    QTEST(CsvCell(text), "cell");
}

void tst_CsvText::csvFile()
{
    const ShownTable table{{u"Name"_s, u"Case Number"_s, u"Amount"_s},
                           {{u"SMITH, JOHN"_s, u"02-2"_s, u"-5"_s},
                            {u"=1+1"_s, u""_s},
                            {u"MU\u00D1OZ"_s + QChar::Null, u"1"_s + QChar::Null, u"x"_s}}};
    QCOMPARE(CsvText(table), QByteArray("\xEF\xBB\xBF"
                                        "Name,Case Number,Amount\r\n"
                                        "\"SMITH, JOHN\",\"=\"\"02-2\"\"\",-5\r\n"
                                        "'=1+1,\r\n"
                                        "MU\xC3\x91OZ,\"=\"\"1\"\"\",x\r\n"));
}

void tst_CsvText::csvOfNoRowsHasItsHeaders()
{
    QCOMPARE(CsvText({{u"@Name"_s, u"a,b"_s}, {}}), QByteArray("\xEF\xBB\xBF'@Name,\"a,b\"\r\n"));
}

void tst_CsvText::clipboard()
{
    // A case number is copied as it is: it may go into an entry field.
    const ShownTable table{{u"Name"_s, u"Case Number"_s},
                           {{u"A\tB\nC"_s, u"02-2"_s}, {u"=1"_s, u"3"_s}}};
    QCOMPARE(ClipboardText(table, false), u"A B C\t02-2\n'=1\t3"_s);
    // Whoever pastes may take this for the end.
    QCOMPARE(ClipboardText({{}, {{u"A"_s + QChar::Null + u"B"_s}}}, false), u"AB"_s);
}

void tst_CsvText::clipboardWithHeaders()
{
    QCOMPARE(ClipboardText({{u"Name"_s, u"Case Number"_s}, {{u"A"_s, u"1"_s}}}, true),
             u"Name\tCase Number\nA\t1"_s);
}

void tst_CsvText::fileName_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"SMITH, JOHN in King County"_s << u"SMITH, JOHN in King County"_s;
    QTest::newRow("no caption") << QString() << u"List"_s;
    QTest::newRow("a path") << u"../../etc/passwd"_s << u"etcpasswd"_s;
    QTest::newRow("what systems refuse") << u"a<b>c:d\"e/f\\g|h?i*j"_s << u"abcdefghij"_s;
    QTest::newRow("nothing left") << u" .. "_s << u"List"_s;
    QTest::newRow("points behind") << u"Searching .."_s << u"Searching"_s;
    QTest::newRow("control characters") << u"a\nb\tc"_s << u"abc"_s;
    QTest::newRow("too long") << QString(300, u'x') << QString(100, u'x');
}

void tst_CsvText::fileName()
{
    QFETCH(QString, caption);
    QTEST(FileNameOf(caption), "name");
}

void tst_CsvText::widthsAsText_data()
{
    QTest::addColumn<StoredWidths>("widths");
    QTest::newRow("none") << StoredWidths{};
    QTest::newRow("two") << StoredWidths{{u"Name"_s, 1700}, {u"Case Number"_s, 1905}};
    QTest::newRow("names with signs")
        << StoredWidths{{u"Role/Parties"_s, 1100}, {u"a=b c%20"_s, 30}, {u"MU\u00D1OZ"_s, 60'000}};
    QTest::newRow("a column without a name") << StoredWidths{{QString(), 450}};
}

void tst_CsvText::widthsAsText()
{
    QFETCH(StoredWidths, widths);
    QCOMPARE(WidthsOfText(WidthsText(widths)), widths);
}

void tst_CsvText::brokenWidths_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", "=", "Name", "Name=", "Name=wide", "Name=29", "Name=-1700",
                             "Name=60001", "Name=99999999999", "  "})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_CsvText::brokenWidths()
{
    QFETCH(QString, text);
    QCOMPARE(WidthsOfText(text), StoredWidths());
    QCOMPARE(WidthsOfText(text + u" Role=1100"_s), (StoredWidths{{u"Role"_s, 1100}}));
}

HALVANE_TEST(tst_CsvText)
#include "tst_CsvText.moc"
