#include "namesearch/ResultRows.h"

#include "core/Windows1252.h"
#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QStringList sixCells{u"SMITH, JOHN"_s,
                           u"02-2-02029-9"_s,
                           u"01/02/2002"_s,
                           u"Civil"_s,
                           u"WA Superior Ct King County"_s,
                           u"Plaintiff"_s};
} // namespace

Q_DECLARE_METATYPE(ResultKind)

class tst_ResultRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theLastCharacterIsTheDelimiter_data();
    void theLastCharacterIsTheDelimiter();
    void everyByteCanBeTheDelimiter();
    void everyByteSurvivesInACell();
    void blanksAroundTheRowGo();
    void blanksInsideTheCellsStay();
    void tabsAreContent();
    void anEmptyRowHasNoCells_data();
    void anEmptyRowHasNoCells();
    void tooFewFieldsKeepTheCellsThatWere_data();
    void tooFewFieldsKeepTheCellsThatWere();
    void furtherFieldsAreIgnored();
    void aThousandFields();
    void fieldsThatNobodyNeedsCostNothing();
    void emptyFieldsAreEmptyCells();
    void aRowThatEndsInThereof();
    void endMarkInTheMiddle();
    void idahoHasTheSameFields();
    void cellsByKind_data();
    void cellsByKind();
    void tooFewFieldsByKind_data();
    void tooFewFieldsByKind();
    void districtRowsAreCutAtTheTilde();
    void duplicateName_data();
    void duplicateName();
    void columnsBySearch_data();
    void columnsBySearch();
    void columnsByKind_data();
    void columnsByKind();
};

void tst_ResultRows::theLastCharacterIsTheDelimiter_data()
{
    QTest::addColumn<QString>("delimiter");
    for (const QString &delimiter : {u"~"_s, u"|"_s, u"¦"_s, u";"_s, u"^"_s, u"\t"_s, u"\u00FF"_s})
        QTest::newRow(qPrintable(u"delimiter "_s + delimiter)) << delimiter;
}

void tst_ResultRows::theLastCharacterIsTheDelimiter()
{
    QFETCH(QString, delimiter);
    const ResultRow row =
        ParseResultRow(sixCells.join(delimiter) + delimiter, ResultKind::Superior);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells, sixCells);
}

void tst_ResultRows::everyByteCanBeTheDelimiter()
{
    for (int byte = 0; byte < 256; ++byte) {
        const QString delimiter = FromWindows1252(QByteArray(1, static_cast<char>(byte)));
        if (delimiter == u" ")
            continue;
        // Cells of a character that is not the delimiter.
        const QString cell = delimiter == u"x" ? u"y"_s : u"x"_s;
        const QStringList cells(6, cell);
        const ResultRow row =
            ParseResultRow(cells.join(delimiter) + delimiter, ResultKind::Superior);
        QVERIFY2(row.Complete, qPrintable(QString::number(byte)));
        QCOMPARE(row.Cells, cells);
    }
}

void tst_ResultRows::everyByteSurvivesInACell()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '~')
            bytes.append(static_cast<char>(byte));
    }
    const QString all = FromWindows1252(bytes);
    const ResultRow row = ParseResultRow(u"A~"_s + all + u"~B~C~D~E~"_s, ResultKind::Superior);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells[1], all);
    QCOMPARE(row.Cells[5], u"E"_s);
}

void tst_ResultRows::blanksAroundTheRowGo()
{
    QCOMPARE(ParseResultRow(u"   "_s + sixCells.join(u'~') + u"~   "_s, ResultKind::Superior).Cells,
             sixCells);
}

void tst_ResultRows::blanksInsideTheCellsStay()
{
    const ResultRow row = ParseResultRow(u"A ~ B~  ~D~E~F ~"_s, ResultKind::Superior);
    QCOMPARE(row.Cells, (QStringList{u"A "_s, u" B"_s, u"  "_s, u"D"_s, u"E"_s, u"F "_s}));
}

void tst_ResultRows::tabsAreContent()
{
    const ResultRow row = ParseResultRow(u"\tA~B~C~D~E~F~"_s, ResultKind::Superior);
    QCOMPARE(row.Cells[0], u"\tA"_s);
}

void tst_ResultRows::anEmptyRowHasNoCells_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QString();
    QTest::newRow("blanks") << u"     "_s;
}

void tst_ResultRows::anEmptyRowHasNoCells()
{
    QFETCH(QString, text);
    const ResultRow row = ParseResultRow(text, ResultKind::Superior);
    QVERIFY(!row.Complete);
    QCOMPARE(row.Cells, QStringList());
}

void tst_ResultRows::tooFewFieldsKeepTheCellsThatWere_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("cells");
    QTest::newRow("one character") << u"~"_s << QStringList{QString(), QString()};
    QTest::newRow("one letter") << u"X"_s << QStringList{QString(), QString()};
    QTest::newRow("one field") << u"A~"_s << QStringList{u"A"_s, QString()};
    QTest::newRow("no delimiter at the end")
        << u"A~B~C~D~E~F"_s << QStringList{u"A~B~C~D~E~"_s, QString()};
    QTest::newRow("four fields") << u"A~B~C~D~"_s
                                 << QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, QString()};
}

void tst_ResultRows::tooFewFieldsKeepTheCellsThatWere()
{
    QFETCH(QString, text);
    const ResultRow row = ParseResultRow(text, ResultKind::Superior);
    QVERIFY(!row.Complete);
    QTEST(row.Cells, "cells");
}

void tst_ResultRows::furtherFieldsAreIgnored()
{
    QCOMPARE(ParseResultRow(sixCells.join(u'~') + u"~G~H~"_s, ResultKind::Superior).Cells,
             sixCells);
}

void tst_ResultRows::aThousandFields()
{
    QString text;
    for (int i = 0; i < 1000; ++i)
        text += QString::number(i) + u'~';
    const ResultRow row = ParseResultRow(text, ResultKind::Superior);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells, (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
}

void tst_ResultRows::fieldsThatNobodyNeedsCostNothing()
{
    constexpr qsizetype length = 2'000'000;
    const auto costOf = [](const QString &row) {
        const double before = ProcessorSeconds();
        for (int i = 0; i < 5; ++i)
            ParseResultRow(row, ResultKind::Superior);
        return ProcessorSeconds() - before;
    };
    const QString many(length, u'~');
    const QString few = u"A~B~C~D~E~"_s + QString(length, u'x') + u'~';
    costOf(few);
    const double cost = costOf(many);
    QVERIFY2(cost <= 3.0 * costOf(few) + 0.01, qPrintable(QString::number(cost)));
}

void tst_ResultRows::emptyFieldsAreEmptyCells()
{
    const ResultRow row = ParseResultRow(u"~~~~~~"_s, ResultKind::Superior);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells, QStringList(6, QString()));
    // The delimiter closes the last field, and an empty one stands behind it.
    QVERIFY(ParseResultRow(u"~~~~~"_s, ResultKind::Superior).Complete);
    QVERIFY(!ParseResultRow(u"~~~~"_s, ResultKind::Superior).Complete);
}

void tst_ResultRows::aRowThatEndsInThereof()
{
    const ResultRow row = ParseResultRow(u"A~B~C~D~E~HEIRS THEREOF~"_s, ResultKind::Superior);
    QCOMPARE(row.Cells[5], u"HEIRS THEREOF"_s);
}

void tst_ResultRows::endMarkInTheMiddle()
{
    const ResultRow row = ParseResultRow(u"A~EOF~C~D~E~F~"_s, ResultKind::Superior);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells[1], u"EOF"_s);
}

void tst_ResultRows::idahoHasTheSameFields()
{
    QCOMPARE(ParseResultRow(sixCells.join(u'~') + u'~', ResultKind::Idaho).Cells, sixCells);
}

void tst_ResultRows::cellsByKind_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("cells");
    QTest::newRow("index") << ResultKind::Index << u"n~c~d~desc~loc~role~title~eff~"_s
                           << u"n/c/d/desc/title/loc/role/eff"_s;
    QTest::newRow("bankruptcy") << ResultKind::Bankruptcy
                                << u"n~c~RETRIEVECOMMAND=BKRPT-1~d~desc~loc~debtor~joint~"_s
                                << u"n/c/d/desc/loc/debtor / joint/BKRPT-1"_s;
    QTest::newRow("bankruptcy, in other letters")
        << ResultKind::Bankruptcy << u"n~c~RetrieveCommand=BKRPT-1~d~desc~loc~debtor~joint~"_s
        << u"n/c/d/desc/loc/debtor / joint/BKRPT-1"_s;
    for (const ResultKind kind :
         {ResultKind::DiscisCivil, ResultKind::DiscisStatewide, ResultKind::DiscisAddresses}) {
        QTest::newRow(qPrintable(u"District "_s + QString::number(static_cast<int>(kind))))
            << kind << u"  n~1~2~3~4~5~6~7~ "_s << u"n/1/2/3/4/5/6/7"_s;
    }
}

void tst_ResultRows::cellsByKind()
{
    QFETCH(ResultKind, kind);
    QFETCH(QString, row);
    const ResultRow parsed = ParseResultRow(row, kind);
    QVERIFY(parsed.Complete);
    QTEST(parsed.Cells.join(u'/'), "cells");
}

void tst_ResultRows::tooFewFieldsByKind_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("row");
    QTest::newRow("index") << ResultKind::Index << u"n~c~d~desc~loc~role~"_s;
    QTest::newRow("bankruptcy") << ResultKind::Bankruptcy << u"n~c~r~d~desc~loc~"_s;
    QTest::newRow("District") << ResultKind::DiscisCivil << u"n~1~2~3~4~5~"_s;
    QTest::newRow("District, another delimiter")
        << ResultKind::DiscisCivil << u"n;1;2;3;4;5;6;7;"_s;
    QTest::newRow("District, nothing") << ResultKind::DiscisCivil << QString();
}

void tst_ResultRows::tooFewFieldsByKind()
{
    QFETCH(ResultKind, kind);
    QFETCH(QString, row);
    QVERIFY(!ParseResultRow(row, kind).Complete);
}

void tst_ResultRows::districtRowsAreCutAtTheTilde()
{
    // The last character is no delimiter there.
    const ResultRow row = ParseResultRow(u"A~1~2~3~4~5~6~7"_s, ResultKind::DiscisStatewide);
    QVERIFY(row.Complete);
    QCOMPARE(row.Cells.last(), u"7"_s);
}

void tst_ResultRows::duplicateName_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("name");
    QTest::newRow("NCNMD") << u"NCNMD~SMITH~M~"_s << true;
    QTest::newRow("NCDND") << u"NCDND~SMITH~M~"_s << true;
    QTest::newRow("behind blanks") << u"  NCNMD~SMITH~M~"_s << true;
    QTest::newRow("a case") << u"SMITH~1~2~3~4~5~6~7~"_s << false;
    QTest::newRow("not at the beginning") << u"SMITH~NCNMD~"_s << false;
    QTest::newRow("nothing") << QString() << false;
}

void tst_ResultRows::duplicateName()
{
    QFETCH(QString, row);
    QTEST(IsDuplicateName(row), "name");
}

void tst_ResultRows::columnsByKind_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("columns");
    QTest::newRow("civil") << ResultKind::DiscisCivil
                           << u"Name 2300, Case No. 1100, Court Code 1000, Court Location 1800, "
                              "Type 500, Status 700, Party 800, Vio./File Date 1500"_s;
    QTest::newRow("SNCI") << ResultKind::DiscisStatewide
                          << u"Name 2400, Case No. 1100, L.E.A. 800, Court 1500, Type 700, "
                             "Status 600, Party 600, Vio./File Date 1500"_s;
    QTest::newRow("DND") << ResultKind::DiscisAddresses
                         << u"Name 2400, Case No. 1100, Court 1500, LEA 700, Type 700, Status 600, "
                            "Party 600, Vio./File Date 1500"_s;
    QTest::newRow("names, SNCI")
        << ResultKind::NamesStatewide
        << u"Name 2300, Sex 700, D.O.B. 1200, Race 700, Height 800, Weight 800, "
           "Physical Desc. 2300, Notes 900"_s;
    QTest::newRow("names, DND") << ResultKind::NamesAddresses
                                << u"Name 2400, Sex 500, D.O.B. 1200, Adddress 2600, Race 500, "
                                   "Ht. 400, Wt. 400, Phys. Desc. 800"_s;
}

void tst_ResultRows::columnsByKind()
{
    QFETCH(ResultKind, kind);
    QStringList columns;
    for (const ResultColumn &column : ResultColumnsOf(kind))
        columns.append(column.header.toString() + u' ' + QString::number(column.width));
    QTEST(columns.join(u", "_s), "columns");
}

void tst_ResultRows::columnsBySearch_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("index");
    QTest::addColumn<bool>("bankruptcy");
    QTest::addColumn<QString>("columns");
    const QString superior = u"Participant Name 1700, Case Number 1900, Date Filed 1300, "
                             "Description 1800, Location 1700, Role 1100"_s;
    const QString idaho = u"Participant Name 1700, Case Number 1200, Date Filed 1300, "
                          "Description 1800, Location 1000, Role 1100"_s;
    const QString bankrupt =
        u"Participant Name 1700, Case Number 1900, Date Filed 1300, "
        "Description 1200, Location 2100, Role/Parties 1100, Search String 30"_s;
    const QString index = u"Participant Name 1700, Case Number 1900, Date Filed 1300, "
                          "Description 900, Case Title 1700, Location 900, Role 700, "
                          "Eff. Dt. 900"_s;
    QTest::newRow("Washington") << u"WA"_s << false << false << superior;
    QTest::newRow("Oregon") << u"OR"_s << false << false << superior;
    QTest::newRow("Idaho") << u"ID"_s << false << false << idaho;
    QTest::newRow("index") << u"WA"_s << true << false << index;
    for (const QString &state : {u"IDBK"_s, u"WAEBK"_s, u"WAWBK"_s, u"ORBK"_s})
        QTest::newRow(qPrintable(state)) << state << false << false << bankrupt;
    QTest::newRow("while a bankruptcy window loads") << u"WA"_s << false << true << bankrupt;
}

void tst_ResultRows::columnsBySearch()
{
    QFETCH(QString, state);
    QFETCH(bool, index);
    QFETCH(bool, bankruptcy);
    QStringList columns;
    for (const ResultColumn &column : ResultColumnsOf(ResultKindOf(state, index, bankruptcy)))
        columns.append(column.header.toString() + u' ' + QString::number(column.width));
    QTEST(columns.join(u", "_s), "columns");
}

HALVANE_TEST(tst_ResultRows)
#include "tst_ResultRows.moc"
