#include "prefs/RtfText.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
QString textOf(const QList<RtfRun> &runs)
{
    QString text;
    for (const RtfRun &run : runs)
        text += run.Text;
    return text;
}

/// Long enough for a slow machine, and far from what anything quadratic would take.
constexpr qint64 mostMilliseconds = 20'000;
} // namespace

class tst_RtfText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void text_data();
    void text();
    void look_data();
    void look();
    void badInput_data();
    void badInput();
    void everyCutOfAFileShowsTheBeginning();
    void nestedTenThousandDeep();
    void tenMegabytes_data();
    void tenMegabytes();
    void theHelpFileReadsWhole();
};

void tst_RtfText::text_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *rtf, const QString &text) {
        QTest::newRow(name) << QByteArray(rtf) << text;
    };
    row("plain words", R"({\rtf1 one two})", u"one two"_s);
    row("paragraphs", R"({\rtf1 one\par two\par})", u"one\ntwo\n"_s);
    row("a line", R"({\rtf1 one\line two})", u"one\u2028two"_s);
    row("a tab", R"({\rtf1 one\tab two})", u"one\ttwo"_s);
    row("a bullet", R"({\rtf1\bullet  one})", u"\u2022 one"_s);
    row("dashes and quotes", R"({\rtf1\lquote a\rquote\ldblquote b\rdblquote\endash\emdash})",
        u"\u2018a\u2019\u201Cb\u201D\u2013\u2014"_s);
    row("pard is no text", R"({\rtf1\pard one\pard two})", u"onetwo"_s);
    row("line ends of the file are no text", "{\\rtf1 one\r\ntwo\nthree}", u"onetwothree"_s);
    row("a line end behind a backslash is a paragraph", "{\\rtf1 one\\\ntwo}", u"one\ntwo"_s);
    row("escapes", R"({\rtf1 \\ \{ \}})", u"\\ { }"_s);
    row("a blank that does not break", R"({\rtf1 a\~b})", u"a\u00A0b"_s);
    row("a hyphen that does not break", R"({\rtf1 a\_b})", u"a\u2011b"_s);
    row("a place to hyphenate is nothing", R"({\rtf1 a\-b})", u"ab"_s);
    row("one blank ends a word, the next one is text", R"({\rtf1\b  x})", u" x"_s);
    row("hexadecimal in Windows-1252", R"({\rtf1 \'80\'e9\'A6})", u"\u20AC\u00E9¦"_s);
    row("bytes in Windows-1252", "{\\rtf1 \x80\xE9}", u"\u20AC\u00E9"_s);
    row("hexadecimal that is none", R"({\rtf1 \'zz})", u"zz"_s);
    row("unicode with its substitute", R"({\rtf1 a\u8211?b})", u"a\u2013b"_s);
    row("unicode with a substitute in hexadecimal", R"({\rtf1 a\u8211\'96b})", u"a\u2013b"_s);
    row("unicode with a word for a substitute", R"({\rtf1 a\u8211\endash b})", u"a\u2013b"_s);
    row("unicode without a substitute", R"({\rtf1\uc0 a\u8211 b})", u"a\u2013b"_s);
    row("unicode with two characters", R"({\rtf1\uc2 a\u8211 --b})", u"a\u2013b"_s);
    row("a group ends a substitute", R"({\rtf1{\u8211}b})", u"\u2013b"_s);
    row("negative unicode", R"({\rtf1\u-10179?\u-8694?})", u"\U0001F60A"_s);
    row("half a surrogate pair", R"({\rtf1\u-10179?x})", u"\uFFFDx"_s);
    row("a character that is none", R"({\rtf1 a\u-1?b})", u"ab"_s);
    row("font table", R"({\rtf1{\fonttbl{\f0 Arial;}{\f1 Times;}}one})", u"one"_s);
    row("colour table", R"({\rtf1{\colortbl;\red0\green0\blue0;}one})", u"one"_s);
    row("style sheet and information", R"({\rtf1{\stylesheet{\s0 A;}}{\info{\title B}}one})",
        u"one"_s);
    row("picture", R"({\rtf1{\pict\wmetafile8 0102aabb}one})", u"one"_s);
    row("unknown destination", R"({\rtf1{\*\unheardof x{\b y}}one})", u"one"_s);
    row("a star ends with its group", R"({\rtf1{\*}\b one})", u"one"_s);
    row("unknown word", R"({\rtf1\unheardof7 one})", u"one"_s);
    row("binary data are passed over", R"({\rtf1{\pict\bin3 }}{}one})", u"one"_s);
    row("more binary data than there are", R"({\rtf1 one\bin99999999 two})", u"one"_s);
    row("a negative count of binary data", R"({\rtf1 one\bin-5 two})", u"onetwo"_s);
    row("no RTF at all", "one\r\n\\b two", u"one\n\\b two"_s);
    row("nothing", "", QString());
}

void tst_RtfText::text()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);
    QCOMPARE(textOf(ReadRtf(rtf)), text);
}

void tst_RtfText::look_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QList<RtfRun>>("runs");
    const auto row = [](const char *name, const char *rtf, const QList<RtfRun> &runs) {
        QTest::newRow(name) << QByteArray(rtf) << runs;
    };
    const RtfRun a{.Text = u"a"_s};
    const RtfRun c{.Text = u"c"_s};
    row("bold", R"({\rtf1 a\b b\b0 c})", {a, {.Text = u"b"_s, .Bold = true}, c});
    row("bold in a group", R"({\rtf1 a{\b b}c})", {a, {.Text = u"b"_s, .Bold = true}, c});
    row("italic", R"({\rtf1 a\i b\i0 c})", {a, {.Text = u"b"_s, .Italic = true}, c});
    row("underline", R"({\rtf1 a\ul b\ul0 c})", {a, {.Text = u"b"_s, .Underline = true}, c});
    row("underline none", R"({\rtf1 a\ul b\ulnone c})",
        {a, {.Text = u"b"_s, .Underline = true}, c});
    row("size", R"({\rtf1 a\fs40 b\fs24 c})", {a, {.Text = u"b"_s, .HalfPoints = 40}, c});
    row("size without a number", R"({\rtf1\fs40 b\fs c})", {{.Text = u"b"_s, .HalfPoints = 40}, c});
    row("absurd sizes", R"({\rtf1\fs999999999999 a\fs-3 c})",
        {{.Text = u"a"_s, .HalfPoints = 96}, {.Text = u"c"_s, .HalfPoints = 12}});
    row("plain", R"({\rtf1 a\b\i\ul\fs40 b\plain c})",
        {a,
         {.Text = u"b"_s, .Bold = true, .Italic = true, .Underline = true, .HalfPoints = 40},
         c});
    row("plain does not bring skipped text back", R"({\rtf1 a{\*\x\plain b}})", {a});
    row("one look, one run", R"({\rtf1{a}{\fonttbl x}\b\b0})", {a});
}

void tst_RtfText::look()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QList<RtfRun>, runs);
    QCOMPARE(ReadRtf(rtf), runs);
}

void tst_RtfText::badInput_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    QTest::newRow("a group that does not end") << QByteArray(R"({\rtf1 one{\b two)") << u"onetwo"_s;
    QTest::newRow("more ends than groups") << QByteArray(R"({\rtf1 one}}}}two)") << u"onetwo"_s;
    QTest::newRow("ends in a backslash") << QByteArray("{\\rtf1 one\\") << u"one"_s;
    QTest::newRow("ends in half a character") << QByteArray(R"({\rtf1 one\'4)") << u"one"_s;
    QTest::newRow("ends in a word") << QByteArray(R"({\rtf1 one\pa)") << u"one"_s;
    QTest::newRow("ends in a number") << QByteArray(R"({\rtf1 one\u82)") << u"one"_s;
    QTest::newRow("ends in a minus") << QByteArray(R"({\rtf1 one\u-)") << u"one-"_s;
    QByteArray rubbish;
    for (int i = 0; i < 256; ++i)
        rubbish += static_cast<char>(i);
    QTest::newRow("binary rubbish")
        << rubbish
        << QString(u"\t\n"_s
                   + u" !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                     u"abcdefghijklmnopqrstuvwxyz{|}~"_s
                   + u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"_s
                   + u"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
                     u"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"_s);
}

void tst_RtfText::badInput()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);
    QCOMPARE(textOf(ReadRtf(rtf)), text);
}

void tst_RtfText::everyCutOfAFileShowsTheBeginning()
{
    const QByteArray rtf(R"({\rtf1{\fonttbl{\f0 Arial;}}one{\b two}\uc1\u8211? three\par four})");
    const QString whole = textOf(ReadRtf(rtf));
    QCOMPARE(whole, u"onetwo\u2013 three\nfour"_s);
    // Before the sixth byte nothing says that it is RTF.
    for (qsizetype length = 6; length < rtf.size(); ++length)
        QVERIFY2(whole.startsWith(textOf(ReadRtf(rtf.first(length)))), rtf.first(length));
}

void tst_RtfText::nestedTenThousandDeep()
{
    constexpr int depth = 10'000;
    QByteArray rtf = "{\\rtf1 a{\\b b}";
    for (int i = 0; i < depth; ++i)
        rtf += "{\\i ";
    rtf += "c";
    rtf += QByteArray(depth, '}');
    rtf += "d}";
    const QList<RtfRun> runs = ReadRtf(rtf);
    QCOMPARE(textOf(runs), u"abcd"_s);
    QCOMPARE(runs.last(), (RtfRun{.Text = u"d"_s}));
}

void tst_RtfText::tenMegabytes_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char *piece : {"{", "}", "x", "\\", "\\par ", "\\b a\\b0 c", "\\'e9", "\\u8211?",
                              "{\\*\\x ", "\\bin1 ", "9", "\xFF"})
        QTest::newRow(piece) << QByteArray(piece);
    QTest::newRow("NUL") << QByteArray(1, '\0');
}

void tst_RtfText::tenMegabytes()
{
    QFETCH(QByteArray, piece);
    constexpr qsizetype size = 10'000'000;
    const QByteArray rtf = "{\\rtf1 one" + piece.repeated(size / piece.size());
    QElapsedTimer timer;
    timer.start();
    const QString text = textOf(ReadRtf(rtf));
    QVERIFY(timer.elapsed() < mostMilliseconds);
    QVERIFY(text.startsWith(u"one"_s));
    QVERIFY(text.size() <= mostRtfCharacters);
    QVERIFY(ReadRtf(rtf).size() <= mostRtfRuns);
}

void tst_RtfText::theHelpFileReadsWhole()
{
    QFile file(DataPath(u"Helpstep2.Rtf"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<RtfRun> runs = ReadRtf(file.readAll());
    QVERIFY(!runs.isEmpty());
    const QString text = textOf(runs);
    QCOMPARE(runs.first(),
             (RtfRun{.Text = u"A search in steps"_s, .Bold = true, .HalfPoints = 28}));
    for (int step = 1; step <= 6; ++step)
        QVERIFY(text.contains(u"\nStep "_s + QString::number(step) + u":  "_s));
    for (const QString &number : {u"09-2-02029-9"_s, u"3YH809020"_s, u"CV08060677"_s,
                                  u"CR-1998-0002546-IN"_s, u"99-20077"_s})
        QVERIFY2(text.contains(u"  "_s + number + u'\n'), qPrintable(number));
    QVERIFY(text.contains(u"\u201C>>\u201D"_s));
    QVERIFY2(!text.contains(u'\\') && !text.contains(u'{'), "a mark of the format is in the text");
}

HALVANE_TEST(tst_RtfText)
#include "tst_RtfText.moc"
