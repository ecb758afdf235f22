#include "core/EventLoop.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"

#include <QRegularExpression>
#include <QSet>
#include <QStandardItemModel>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

class tst_TextUtilities : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void trimBlanks_data();
    void trimBlanks();
    void beginsWith();
    void oneLine_data();
    void oneLine();
    void padString_data();
    void padString();
    void replaceText_data();
    void replaceText();
    void wrapByLength_data();
    void wrapByLength();
    void wrapByWidth_data();
    void wrapByWidth();
    void wrapByWidthAsksTheMeasureForTheIndentToo();
    void wrappingAddsToWhatIsThere();
    void stripToFileChars_data();
    void stripToFileChars();
    void stripToFileCharsYieldsOnceForEachCharacter();
    void randomInRangeReachesBothEnds();
    void masterKeyBeginsWithTheTime_data();
    void masterKeyBeginsWithTheTime();
    void masterKeysOfTheSameMomentDiffer();
    void arrayCount_data();
    void arrayCount();
    void arrayCountBeyond16BitsShowsABox();
    void errorBoxWithoutWindowsIsNothing();
    void percentOfValue_data();
    void percentOfValue();
    void percentOfWhatIsNoNumberIsAnError_data();
    void percentOfWhatIsNoNumberIsAnError();
    void maxListColumnWidth();
};

void tst_TextUtilities::trimBlanks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("only blanks") << u"   "_s << u""_s;
    QTest::newRow("both ends") << u"  a b  "_s << u"a b"_s;
    QTest::newRow("tabs stay") << u" \ta\t "_s << u"\ta\t"_s;
    QTest::newRow("line ends stay") << u" a\r\n "_s << u"a\r\n"_s;
}

void tst_TextUtilities::trimBlanks()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QCOMPARE(TrimBlanks(text), trimmed);
}

void tst_TextUtilities::oneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("honest text") << u"94-1-00001-1 É"_s << u"94-1-00001-1 É"_s;
    QTest::newRow("a line end") << u"a\r\nb"_s << u"a  b"_s;
    QTest::newRow("a tab") << u"a\tb"_s << u"a b"_s;
    QTest::newRow("a NUL") << u"a\0b"_s << u"a b"_s;
    QTest::newRow("delete") << u"a\u007Fb"_s << u"a b"_s;
    QTest::newRow("an empty place of the code page") << u"a\u0081b"_s << u"a b"_s;
    QTest::newRow("separators") << u"a\u2028b\u2029c"_s << u"a b c"_s;
}

void tst_TextUtilities::oneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(OneLine(text), line);
}

void tst_TextUtilities::beginsWith()
{
    QVERIFY(BeginsWith(u"ERROR~x"_s, u"error"));
    QVERIFY(BeginsWith(u"error"_s, u"ERROR"));
    QVERIFY(!BeginsWith(u"ERR"_s, u"error"));
    QVERIFY(!BeginsWith(u"an error"_s, u"error"));
}

void tst_TextUtilities::padString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("padded");
    QTest::newRow("0 fills the end") << u"ab"_s << 5 << 0 << u"*"_s << u"ab***"_s;
    QTest::newRow("1 fills both sides") << u"ab"_s << 6 << 1 << u"*"_s << u"**ab**"_s;
    QTest::newRow("1 cuts the last character") << u"ab"_s << 5 << 1 << u"*"_s << u"**ab*"_s;
    QTest::newRow("2 fills the front") << u"ab"_s << 5 << 2 << u"*"_s << u"***ab"_s;
    QTest::newRow("3 leaves it") << u" ab "_s << 5 << 3 << u"*"_s << u"ab"_s;
    QTest::newRow("-1 leaves it") << u" ab "_s << 5 << -1 << u"*"_s << u"ab"_s;
    QTest::newRow("an empty pad is a blank") << u"ab"_s << 4 << 0 << u""_s << u"ab  "_s;
    QTest::newRow("trimmed first") << u"  ab  "_s << 3 << 0 << u"*"_s << u"ab*"_s;
    QTest::newRow("at the width") << u"abc"_s << 3 << 0 << u"*"_s << u"abc"_s;
    QTest::newRow("above the width, left") << u"abcd"_s << 3 << 0 << u"*"_s << u"abcd"_s;
    QTest::newRow("above the width, centred") << u"abcd"_s << 3 << 1 << u"*"_s << u"abcd"_s;
    QTest::newRow("above the width, right") << u"abcd"_s << 3 << 2 << u"*"_s << u"abcd"_s;
    QTest::newRow("a long pad overshoots, left") << u"ab"_s << 4 << 0 << u"xyz"_s << u"abxyz"_s;
    QTest::newRow("a long pad overshoots, right") << u"ab"_s << 4 << 2 << u"xyz"_s << u"xyzab"_s;
    QTest::newRow("a long pad, centred, loses one")
        << u"ab"_s << 4 << 1 << u"xyz"_s << u"xyzabxy"_s;
    QTest::newRow("an empty text") << u""_s << 3 << 0 << u"-"_s << u"---"_s;
    QTest::newRow("width 0") << u""_s << 0 << 0 << u"-"_s << u""_s;
    QTest::newRow("a negative width") << u"a"_s << -3 << 2 << u"-"_s << u"a"_s;
}

void tst_TextUtilities::padString()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(int, alignment);
    QFETCH(QString, pad);
    QFETCH(QString, padded);
    QCOMPARE(PadString(text, width, static_cast<PadAlignment>(alignment), pad), padded);
    if (alignment == 0)
        QCOMPARE(PadString(text, width, PadAlignment::Left, pad), padded);
}

void tst_TextUtilities::replaceText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<int>("occurrence");
    QTest::addColumn<QString>("result");
    QTest::newRow("all") << u"abab"_s << u"a"_s << true << 0 << u"-b-b"_s;
    QTest::newRow("all, asked as -1") << u"abab"_s << u"a"_s << true << -1 << u"-b-b"_s;
    QTest::newRow("the first") << u"abab"_s << u"a"_s << true << 1 << u"-bab"_s;
    QTest::newRow("the second") << u"abab"_s << u"a"_s << true << 2 << u"ab-b"_s;
    QTest::newRow("one that is not there") << u"abab"_s << u"a"_s << true << 3 << u"abab"_s;
    QTest::newRow("nothing to find") << u"abab"_s << u"x"_s << true << 0 << u"abab"_s;
    QTest::newRow("resumes after a match") << u"aaa"_s << u"aa"_s << true << 0 << u"-a"_s;
    QTest::newRow("counts after a match") << u"aaaa"_s << u"aa"_s << true << 2 << u"aa-"_s;
    QTest::newRow("case counts") << u"aAaA"_s << u"A"_s << true << 0 << u"a-a-"_s;
    QTest::newRow("case does not count") << u"aAaA"_s << u"A"_s << false << 0 << u"----"_s;
    QTest::newRow("the n-th without case") << u"aAaA"_s << u"A"_s << false << 2 << u"a-aA"_s;
    QTest::newRow("an empty search") << u"ab"_s << u""_s << true << 0 << u"ab"_s;
    QTest::newRow("an empty search, the first") << u"ab"_s << u""_s << true << 1 << u"ab"_s;
    QTest::newRow("an empty text") << u""_s << u"a"_s << true << 1 << u""_s;
}

void tst_TextUtilities::replaceText()
{
    QFETCH(QString, text);
    QFETCH(QString, search);
    QFETCH(bool, caseSensitive);
    QFETCH(int, occurrence);
    QFETCH(QString, result);
    const auto compare = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    QCOMPARE(ReplaceText(text, search, u"-"_s, compare, occurrence), result);
}

void tst_TextUtilities::wrapByLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("it fits") << u"one two"_s << QStringList{u"one two"_s};
    QTest::newRow("it fits exactly") << u"0123456789"_s << QStringList{u"0123456789"_s};
    QTest::newRow("trimmed first") << u"  0123456789  "_s << QStringList{u"0123456789"_s};
    QTest::newRow("broken at blanks")
        << u"one two three four"_s << QStringList{u"one two"_s, u"three four"_s};
    QTest::newRow("a word longer than the limit")
        << u"a extraordinarily b"_s << QStringList{u"a"_s, u"extraordinarily"_s, u"b"_s};
    QTest::newRow("only one long word")
        << u"extraordinarily"_s << QStringList{u"extraordinarily"_s};
    QTest::newRow("empty") << u""_s << QStringList{u""_s};
}

void tst_TextUtilities::wrapByLength()
{
    QFETCH(QString, text);
    QFETCH(QStringList, lines);
    QStringList wrapped;
    WrapTextByLength(text, 10, wrapped);
    QCOMPARE(wrapped, lines);
}

void tst_TextUtilities::wrapByWidth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("it fits") << u"one two"_s << QStringList{u"one two"_s};
    QTest::newRow("trimmed first") << u"  one two  "_s << QStringList{u"one two"_s};
    QTest::newRow("continued with two blanks")
        << u"one two three four"_s << QStringList{u"one two"_s, u"  three"_s, u"  four"_s};
    QTest::newRow("the indent counts")
        << u"0123456789 abcdef gh"_s << QStringList{u"0123456789"_s, u"  abcdef"_s, u"  gh"_s};
    QTest::newRow("an over-long word is broken")
        << u"a extraordinarily b"_s
        << QStringList{u"a"_s, u"  extraord"_s, u"  inarily"_s, u"  b"_s};
    QTest::newRow("what is left of it goes on with the next")
        << u"extraordinarily it is"_s << QStringList{u"extraordin"_s, u"  arily it"_s, u"  is"_s};
    QTest::newRow("a word that is exactly as long")
        << u"a 01234567"_s << QStringList{u"a 01234567"_s};
    QTest::newRow("a word of several lines")
        << u"0123456789abcdefghijklmnopqrs"_s
        << QStringList{u"0123456789"_s, u"  abcdefgh"_s, u"  ijklmnop"_s, u"  qrs"_s};
    QTest::newRow("a word that is longer by two signs")
        << u"0123456789ab c"_s << QStringList{u"0123456789"_s, u"  ab c"_s};
    QTest::newRow("a word that is longer by one sign")
        << u"0123456789a bc"_s << QStringList{u"0123456789"_s, u"  a bc"_s};
    QTest::newRow("a sign of two units stays whole")
        << u"123456789\U0001F600b"_s << QStringList{u"123456789"_s, u"  \U0001F600b"_s};
    QTest::newRow("an accent stays with its letter")
        << u"123456789e\u0301b"_s << QStringList{u"123456789"_s, u"  e\u0301b"_s};
    QTest::newRow("empty") << u""_s << QStringList{u""_s};
}

void tst_TextUtilities::wrapByWidth()
{
    QFETCH(QString, text);
    QFETCH(QStringList, lines);
    QStringList wrapped;
    const TextMeasure tenTwipsALetter = [](const QString &line) {
        return 10.0 * static_cast<double>(line.size());
    };
    WrapTextByWidth(text, 100.0, tenTwipsALetter, wrapped);
    QCOMPARE(wrapped, lines);
}

void tst_TextUtilities::wrapByWidthAsksTheMeasureForTheIndentToo()
{
    QStringList asked;
    QStringList wrapped;
    WrapTextByWidth(
        u"aa bb cc"_s, 4.0,
        [&](const QString &line) {
            asked.append(line);
            return static_cast<double>(line.size());
        },
        wrapped);
    QCOMPARE(asked,
             (QStringList{u"aa bb cc"_s, u"aa"_s, u"aa bb"_s, u"  bb"_s, u"  bb cc"_s, u"  cc"_s}));
}

void tst_TextUtilities::wrappingAddsToWhatIsThere()
{
    QStringList lines{u"first"_s};
    WrapTextByLength(u"second"_s, 10, lines);
    QCOMPARE(lines, (QStringList{u"first"_s, u"second"_s}));
}

void tst_TextUtilities::stripToFileChars_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kept");
    QTest::newRow("all that is kept") << u" -_azAZ09"_s << u" -_azAZ09"_s;
    QTest::newRow("a path") << u"..\\a/b:c*?\"<>|"_s << u"abc"_s;
    QTest::newRow("accents and other letters") << u"\u00E9\u00C9\u0410a"_s << u"a"_s;
    QTest::newRow("controls") << u"a\tb\nc"_s + QChar::Null << u"abc"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void tst_TextUtilities::stripToFileChars()
{
    QFETCH(QString, text);
    QFETCH(QString, kept);
    QCOMPARE(StripToFileChars(text), kept);
}

void tst_TextUtilities::stripToFileCharsYieldsOnceForEachCharacter()
{
    const unsigned long long before = YieldCount();
    StripToFileChars(u"a/b/c"_s);
    QCOMPARE(YieldCount() - before, 5ULL);
}

void tst_TextUtilities::randomInRangeReachesBothEnds()
{
    QSet<int> seen;
    for (int i = 0; i < 2000; ++i) {
        const int number = RandomInRange(1, 9);
        QVERIFY(number >= 1 && number <= 9);
        seen.insert(number);
    }
    QCOMPARE(seen.size(), 9);
    QCOMPARE(RandomInRange(5, 5), 5);
    QVERIFY(RandomInRange(-3, -1) < 0);
}

void tst_TextUtilities::masterKeyBeginsWithTheTime_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("head");
    QTest::newRow("no leading zeros") << QTime(1, 2, 3) << u"1232026"_s;
    QTest::newRow("midnight") << QTime(0, 0, 0) << u"0002026"_s;
    QTest::newRow("two digits each") << QTime(23, 59, 58) << u"2359582026"_s;
}

void tst_TextUtilities::masterKeyBeginsWithTheTime()
{
    QFETCH(QTime, time);
    QFETCH(QString, head);
    const TestClock clock(QDateTime({2026, 3, 10}, time));
    const QRegularExpression digits(u"^\\d{20}$"_s);
    for (int i = 0; i < 200; ++i) {
        const QString key = MakeMasterKey();
        QVERIFY(digits.match(key).hasMatch());
        QVERIFY(key.startsWith(head));
        const QString rest = key.mid(head.size());
        const int first = rest.left(5).toInt();
        QVERIFY(first >= 10000 && first <= 50000);
        const int second = rest.mid(5, 4).toInt();
        QVERIFY(second >= 1000 && second <= 9000);
        QVERIFY(!rest.mid(9).contains(u'0'));
    }
}

void tst_TextUtilities::masterKeysOfTheSameMomentDiffer()
{
    const TestClock clock;
    QSet<QString> keys;
    for (int i = 0; i < 100; ++i)
        keys.insert(MakeMasterKey());
    QCOMPARE(keys.size(), 100);
}

void tst_TextUtilities::arrayCount_data()
{
    QTest::addColumn<int>("elements");
    QTest::newRow("never filled") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("five") << 5;
    QTest::newRow("the greatest") << 32767;
}

void tst_TextUtilities::arrayCount()
{
    QFETCH(int, elements);
    QStringList boxes;
    SetErrorBox([&](const QString &text) { boxes.append(text); });
    QCOMPARE(int(ArrayCount(elements)), elements);
    SetErrorBox({});
    QCOMPARE(boxes, QStringList());
}

void tst_TextUtilities::arrayCountBeyond16BitsShowsABox()
{
    QStringList boxes;
    SetErrorBox([&](const QString &text) { boxes.append(text); });
    QCOMPARE(int(ArrayCount(32768)), 0);
    SetErrorBox({});
    QCOMPARE(boxes, QStringList{u"Error:6-Overflow"_s});
}

void tst_TextUtilities::errorBoxWithoutWindowsIsNothing()
{
    SetErrorBox({});
    ShowErrorBox(u"nobody sees this"_s);
    QCOMPARE(int(ArrayCount(40000)), 0);
}

void tst_TextUtilities::percentOfValue_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<double>("percent");
    QTest::addColumn<double>("result");
    QTest::newRow("half") << u"200"_s << 50.0 << 100.0;
    QTest::newRow("blanks around") << u" 200 "_s << 25.0 << 50.0;
    QTest::newRow("empty counts as 1") << u""_s << 50.0 << 0.5;
    QTest::newRow("the whole number only") << u"10.9"_s << 10.0 << 1.0;
    QTest::newRow("negative") << u"-10"_s << 10.0 << -1.0;
    QTest::newRow("zero percent") << u"500"_s << 0.0 << 0.0;
}

void tst_TextUtilities::percentOfValue()
{
    QFETCH(QString, value);
    QFETCH(double, percent);
    QFETCH(double, result);
    QCOMPARE(PercentOfValue(value, percent), result);
}

void tst_TextUtilities::percentOfWhatIsNoNumberIsAnError_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("number");
    QTest::newRow("a word") << u"wide"_s << 13;
    QTest::newRow("digits and letters") << u"12x"_s << 13;
    QTest::newRow("nan") << u"nan"_s << 13;
    QTest::newRow("no whole number is that great") << u"1e300"_s << 6;
    QTest::newRow("infinite") << u"inf"_s << 6;
}

void tst_TextUtilities::percentOfWhatIsNoNumberIsAnError()
{
    QFETCH(QString, value);
    QFETCH(int, number);
    int caught = 0;
    try {
        PercentOfValue(value, 50.0);
    } catch (const RunTimeError &error) {
        caught = error.Number();
    }
    QCOMPARE(caught, number);
}

void tst_TextUtilities::maxListColumnWidth()
{
    QStandardItemModel list;
    QCOMPARE(int(MaxListColumnWidth(list, 0)), 0);
    list.appendRow({new QStandardItem(u"ab"_s), new QStandardItem(u"x"_s)});
    list.appendRow({new QStandardItem(u"abcde"_s), new QStandardItem(u"xyz"_s)});
    list.appendRow({new QStandardItem(u""_s), new QStandardItem()});
    QCOMPARE(int(MaxListColumnWidth(list, 0)), 5);
    QCOMPARE(int(MaxListColumnWidth(list, 1)), 3);
    QCOMPARE(int(MaxListColumnWidth(list, 2)), 0);
    QCOMPARE(int(MaxListColumnWidth(list, -1)), 0);
    list.appendRow(new QStandardItem(QString(40000, u'x')));
    QCOMPARE(int(MaxListColumnWidth(list, 0)), int(std::numeric_limits<qint16>::max()));
}

HALVANE_TEST(tst_TextUtilities)
#include "tst_TextUtilities.moc"
