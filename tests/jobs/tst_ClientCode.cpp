#include "link/RequestLine.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_ClientCode : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void formatClientCode_data();
    void formatClientCode();
    void embedClientCode_data();
    void embedClientCode();
};

void tst_ClientCode::formatClientCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("tag");
    QTest::newRow("a code") << u"ABC"_s << u"^^CAC:ABC^^"_s;
    QTest::newRow("trimmed") << u"  A B  "_s << u"^^CAC:A B^^"_s;
    QTest::newRow("empty") << u""_s << u"^^CAC:^^"_s;
    QTest::newRow("only blanks") << u"   "_s << u"^^CAC:^^"_s;
    QTest::newRow("the case stays") << u"abc"_s << u"^^CAC:abc^^"_s;
}

void tst_ClientCode::formatClientCode()
{
    QFETCH(QString, code);
    QFETCH(QString, tag);
    QCOMPARE(FormatClientCode(code), tag);
}

void tst_ClientCode::embedClientCode_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("tagged");
    QTest::newRow("two empty year fields stay")
        << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s << u"ABC"_s
        << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦^^CAC:ABC^^¦"_s;
    QTest::newRow("a tilde family") << u"BKRPT~SUMMARY~99-20077~OR~"_s << u"ABC"_s
                                    << u"BKRPT~SUMMARY~99-20077~OR^^CAC:ABC^^~"_s;
    QTest::newRow("an index line")
        << u"INDEX~SEARCH~A~~~~King,~~1970~2005~LL=1~UL=500~"_s << u"X1"_s
        << u"INDEX~SEARCH~A~~~~King,~~1970~2005~LL=1~UL=500^^CAC:X1^^~"_s;
    QTest::newRow("an empty code") << u"A¦B¦"_s << u""_s << u"A¦B^^CAC:^^¦"_s;
    QTest::newRow("the code is trimmed") << u"A¦"_s << u" ABC "_s << u"A^^CAC:ABC^^¦"_s;
    QTest::newRow("the line is trimmed") << u"  A¦B¦  "_s << u"ABC"_s << u"A¦B^^CAC:ABC^^¦"_s;
    QTest::newRow("one character") << u"¦"_s << u"ABC"_s << u"^^CAC:ABC^^¦"_s;
    QTest::newRow("only blanks stay") << u"   "_s << u"ABC"_s << u"   "_s;
    QTest::newRow("empty stays") << u""_s << u"ABC"_s << u""_s;
}

void tst_ClientCode::embedClientCode()
{
    QFETCH(QString, line);
    QFETCH(QString, code);
    QFETCH(QString, tagged);
    QCOMPARE(EmbedClientCode(line, code), tagged);
}

HALVANE_TEST(tst_ClientCode)
#include "tst_ClientCode.moc"
