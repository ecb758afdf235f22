#include "namesearch/SortKeys.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_SortKeys : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void columns_data();
    void columns();
    void dates_data();
    void dates();
    void caseNumbers_data();
    void caseNumbers();
    void invertedDigits_data();
    void invertedDigits();
    void orders_data();
    void orders();
};

void tst_SortKeys::columns_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<int>("as");
    const auto row = [](const QString &header, SortAs as) {
        QTest::newRow(qPrintable(header)) << header << static_cast<int>(as);
    };
    row(u"Case Number"_s, SortAs::CaseNumber);
    row(u"Case No."_s, SortAs::CaseNumber);
    row(u"Date Filed"_s, SortAs::Date);
    row(u"Vio./File Date"_s, SortAs::Date);
    row(u"D.O.B."_s, SortAs::Date);
    row(u"Eff. Dt."_s, SortAs::Text);
    row(u"Participant Name"_s, SortAs::Text);
    row(u"case number"_s, SortAs::Text);
    row(u"Location"_s, SortAs::Text);
}

void tst_SortKeys::columns()
{
    QFETCH(QString, header);
    QTEST(static_cast<int>(SortAsOf(header)), "as");
}

void tst_SortKeys::dates_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QString &cell, const QString &text) {
        QTest::newRow(name) << cell << text;
    };
    row("a date", u"01/02/2002"_s, u"20020102000000"_s);
    row("one digit each", u"1/2/2002"_s, u"20020102000000"_s);
    row("blanks around it", u" 12/31/1999 "_s, u"19991231000000"_s);
    row("a leap day", u"02/29/2000"_s, u"20000229000000"_s);
    row("time of day", u"01/02/2002 13:04"_s, u"20020102130400"_s);
    row("seconds", u"01/02/2002 13:04:05"_s, u"20020102130405"_s);
    row("afternoon", u"01/02/2002 1:04:05 PM"_s, u"20020102130405"_s);
    row("after midnight", u"01/02/2002 12:30 am"_s, u"20020102003000"_s);
    row("noon", u"01/02/2002 12:00 PM"_s, u"20020102120000"_s);
    for (const char *text :
         {"", "N/A", "n/a", "02/30/2002", "02/29/1900", "13/01/2002", "00/01/2002", "01/02/02",
          "01/02", "01/02/2002x", "2002-01-02", "01/02/20022", "01/02/2002 25:00",
          "01/02/2002 13:00 PM", "01/02/2002 1:60", "01/02/2002 1:00 XM", "01/02/2002 1",
          "-1/2/2002", "**Warning**"}) {
        const QString cell = QString::fromLatin1(text);
        row(cell.isEmpty() ? "empty" : text, cell, cell);
    }
}

void tst_SortKeys::dates()
{
    QFETCH(QString, cell);
    QTEST(DateSortText(cell), "text");
}

void tst_SortKeys::caseNumbers_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("text");
    const QString zeros(30, u'0');
    const auto filled = [&](const QString &whole, const QString &fraction = {}) -> QString {
        return zeros.first(30 - whole.size()) + whole + u'.' + fraction
               + zeros.first(30 - fraction.size());
    };
    const auto row = [](const char *name, const QString &cell, const QString &text) {
        QTest::newRow(name) << cell << text;
    };
    row("a number", u"99-2-02029-9"_s, filled(u"992020299"_s));
    row("zero-led numbers get a 1", u"02-2-02029-9"_s, filled(u"1022020299"_s));
    row("zero alone", u"0"_s, filled(u"10"_s));
    row("archived", u"*99-2-02029-9"_s, filled(u"992020299"_s));
    row("opened", u">>99-2-02029-9"_s, filled(u"992020299"_s));
    row("opened and archived", u">>*02-2-02029-9"_s, filled(u"1022020299"_s));
    row("every mark goes", u"1*2>>3-4"_s, filled(u"1234"_s));
    row("one half of the mark stays", u">12"_s, u">12"_s);
    row("a hyphen is no sign", u"-12"_s, filled(u"12"_s));
    row("a fraction", u"12.5"_s, filled(u"12"_s, u"5"_s));
    row("fraction of more than thirty digits", u"1."_s + u"7"_s.repeated(40),
        filled(u"1"_s, u"7"_s.repeated(30)));
    row("a fraction alone", u".5"_s, filled({}, u"5"_s));
    row("a point at the end", u"12."_s, filled(u"12"_s));
    row("more than thirty digits", u"1"_s.repeated(40), u"1"_s.repeated(40) + u'.' + zeros);
    const QString nines(30, u'9');
    row("negative", u"(12)"_s, u'&' + nines.first(28) + u"87."_s + nines);
    row("negative and archived", u"*(12)"_s, u'&' + nines.first(28) + u"87."_s + nines);
    row("thousands", u"1,234"_s, filled(u"1234"_s));
    row("millions and a fraction", u"1,234,567.25"_s, filled(u"1234567"_s, u"25"_s));
    row("thousands with a point at the end", u"1,234."_s, filled(u"1234"_s));
    row("thousands, zero-led", u"0,123"_s, filled(u"10123"_s));
    row("archived thousands", u"*1,234"_s, filled(u"1234"_s));
    row("thousands in hyphens", u"1-2,345"_s, filled(u"12345"_s));
    row("plus", u"+5"_s, filled(u"5"_s));
    row("plus, zero-led", u"+05"_s, filled(u"05"_s));
    row("plus before thousands", u"+1,234.5"_s, filled(u"1234"_s, u"5"_s));
    row("plus between blanks", u" +5 "_s, filled(u"5"_s));
    row("opened, plus", u">>+5"_s, filled(u"5"_s));
    row("negative thousands", u"(1,234)"_s, u'&' + nines.first(26) + u"8765."_s + nines);
    row("too few thousands", u"1,23"_s, u"1,23"_s);
    row("too many thousands", u"1,2345"_s, u"1,2345"_s);
    row("too many before the thousands", u"1234,567"_s, u"1234,567"_s);
    row("thousands only once", u"1234567,890"_s, u"1234567,890"_s);
    row("nothing before the thousands", u",123"_s, u",123"_s);
    row("a comma at the end", u"123,"_s, u"123,"_s);
    row("two commas", u"1,,234"_s, u"1,,234"_s);
    row("thousands cut short by the point", u"1,23.4"_s, u"1,23.4"_s);
    row("thousands behind the point", u"1.234,567"_s, u"1.234,567"_s);
    row("a comma alone", u","_s, u","_s);
    row("plus alone", u"+"_s, u"+"_s);
    row("two pluses", u"++5"_s, u"++5"_s);
    row("plus at the end", u"5+"_s, u"5+"_s);
    row("plus before a blank", u"+ 5"_s, u"+ 5"_s);
    row("plus in brackets", u"(+5)"_s, u"(+5)"_s);
    row("plus before brackets", u"+(5)"_s, u"+(5)"_s);
    row("no less than zero", u"(0)"_s, filled(u"0"_s));
    row("letters", u"C0012345"_s, u"C0012345"_s);
    row("letters behind a year", u"CV-2002-17"_s, u"CV200217"_s);
    row("letters behind a zero", u"02E17"_s, u"102E17"_s);
    row("two points", u"1.2.3"_s, u"1.2.3"_s);
    row("a point alone", u"."_s, u"."_s);
    row("empty brackets", u"()"_s, u"()"_s);
    row("a bracket alone", u"("_s, u"("_s);
    row("empty", {}, {});
    row("a mark alone", u"*"_s, {});
    row("a warning", u"**Warning**"_s, u"Warning"_s);
}

void tst_SortKeys::caseNumbers()
{
    QFETCH(QString, cell);
    QTEST(CaseNumberSortText(cell), "text");
}

void tst_SortKeys::invertedDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inverted");
    QTest::newRow("every digit") << u"0123456789"_s << u"9876543210"_s;
    QTest::newRow("hyphens become blanks") << u"-1-2-"_s << u" 8 7 "_s;
    QTest::newRow("all else stays") << u"A.b+&\u00E9"_s << u"A.b+&\u00E9"_s;
    QTest::newRow("empty") << QString() << QString();
}

void tst_SortKeys::invertedDigits()
{
    QFETCH(QString, text);
    QTEST(InvertDigits(text), "inverted");
}

void tst_SortKeys::orders_data()
{
    QTest::addColumn<int>("as");
    QTest::addColumn<QStringList>("inOrder");
    QTest::newRow("text, blind to case")
        << static_cast<int>(SortAs::Text)
        << QStringList{{}, u"10"_s, u"9"_s, u"adams"_s, u"Baker"_s, u"BAKER, A"_s, u"clark"_s};
    QTest::newRow("dates among other texts")
        << static_cast<int>(SortAs::Date)
        << QStringList{{}, u"12/31/1999"_s, u"01/02/2002"_s, u"02/01/2002"_s, u"n/a"_s, u"N/B"_s};
    QTest::newRow("case numbers") << static_cast<int>(SortAs::CaseNumber)
                                  << QStringList{
                                         u"(12)"_s,          u"(9)"_s,          u"9"_s,
                                         u"+10"_s,           u"12"_s,           u"1233"_s,
                                         u"1,234"_s,         u"1235"_s,         u"98-2-02029-9"_s,
                                         u"*99-2-02029-9"_s, u"00-2-02029-9"_s, u">>02-2-02029-9"_s,
                                         u"c0012345"_s,      u"C0012346"_s};
}

void tst_SortKeys::orders()
{
    QFETCH(int, as);
    QFETCH(QStringList, inOrder);
    for (qsizetype i = 1; i < inOrder.size(); ++i) {
        const QString left = SortKeyOf(inOrder[i - 1], static_cast<SortAs>(as));
        const QString right = SortKeyOf(inOrder[i], static_cast<SortAs>(as));
        QVERIFY2(left < right, qPrintable(left + u" is not before "_s + right));
    }
}

HALVANE_TEST(tst_SortKeys)
#include "tst_SortKeys.moc"
