#include "searchentry/CaseNumbers.h"

#include "core/RunTimeError.h"
#include "core/Windows1252.h"
#include "courts/Counties.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int veryLong = 10000;

/// What a text becomes in each of the formats; "" where it is refused.
struct FormatRow
{
    QStringView text;
    QStringView scomis;
    QStringView bk;
    QStringView taxId;
    QStringView ubi;
    QStringView ssn;
};

constexpr std::array lengths{
    // clang-format off
    FormatRow{u"", u"", u"", u"", u"", u""},
    FormatRow{u"8", u"", u"", u"", u"8--8", u""},
    FormatRow{u"81", u"", u"", u"", u"81--81", u""},
    FormatRow{u"812", u"", u"", u"", u"812--812", u""},
    FormatRow{u"8123", u"", u"", u"", u"812-3-123", u""},
    FormatRow{u"81234", u"", u"", u"81-234", u"812-34-234", u""},
    FormatRow{u"812345", u"", u"", u"81-2345", u"812-345-345", u""},
    FormatRow{u"8123456", u"", u"81-23456", u"81-23456", u"812-345-456", u""},
    FormatRow{u"81234567", u"", u"", u"81-234567", u"812-345-567", u""},
    FormatRow{u"812345678", u"81-2-34567-8", u"812-345-678", u"81-2345678", u"812-345-678", u"812-34-5678"},
    FormatRow{u"8123456789", u"", u"8:12-34-56789", u"81-23456789", u"812-345-789", u""},
    FormatRow{u"81234567890", u"", u"", u"81-234567890", u"812-345-890", u""},
    FormatRow{u"812345678901", u"", u"", u"81-2345678901", u"812-345-901", u""},
    FormatRow{u"8123456789012", u"", u"", u"81-23456789012", u"812-345-012", u""},
    FormatRow{u"81234567890123", u"", u"", u"81-234567890123", u"812-345-123", u""},
    FormatRow{u"812345678901234", u"", u"", u"81-2345678901234", u"812-345-234", u""},
    FormatRow{u"8123456789012345", u"", u"", u"81-23456789012345", u"", u""},
    FormatRow{u"81234567890123456", u"", u"", u"81-234567890123456", u"", u""},
    FormatRow{u"812345678901234567", u"", u"", u"81-2345678901234567", u"", u""},
    FormatRow{u"8123456789012345678", u"", u"", u"81-23456789012345678", u"", u""},
    FormatRow{u"81234567890123456789", u"", u"", u"81-234567890123456789", u"", u""},
    // clang-format on
};

constexpr std::array shapes{
    // clang-format off
    // dashes
    FormatRow{u"09-2-02029-4", u"09-2-02029-4", u"092-020-294", u"09-2020294", u"092-020-294", u"092-02-0294"},
    FormatRow{u"-0-9-2020294", u"09-2-02029-4", u"092-020-294", u"", u"092-020-294", u"092-02-0294"},
    FormatRow{u"092020294------", u"09-2-02029-4", u"092-020-294", u"09-2020294", u"092-020-294", u"092-02-0294"},
    FormatRow{u"0-9-2-0-2-0-2-9-4", u"09-2-02029-4", u"", u"", u"", u"092-02-0294"},
    FormatRow{u"123-45-6789", u"12-3-45678-9", u"123-456-789", u"12-3456789", u"123-456-789", u"123-45-6789"},
    FormatRow{u"---------", u"", u"", u"", u"--", u""},
    FormatRow{u"-", u"", u"", u"", u"--", u""},
    // colons
    FormatRow{u"1:99-02-20077", u"", u"1:99-02-20077", u"", u"1:9-902-077", u""},
    FormatRow{u"1990220077", u"", u"1:99-02-20077", u"19-90220077", u"199-022-077", u""},
    FormatRow{u"99:20077", u"", u"99-20077", u"99-:20077", u"99:-200-077", u""},
    FormatRow{u":::::::9920077", u"", u"99-20077", u"", u":::-:::-077", u""},
    FormatRow{u"::::::::9920077", u"", u"99-20077", u"", u":::-:::-077", u""},
    FormatRow{u":::::::::9920077", u"", u"", u"", u"", u""},
    FormatRow{u"99-2007", u"", u"", u"99-2007", u"992-007-007", u""},
    FormatRow{u"99-20077", u"", u"99-20077", u"99-20077", u"992-007-077", u""},
    // letters
    FormatRow{u"3YH809020", u"", u"3YH-809-020", u"", u"3YH-809-020", u""},
    FormatRow{u"CV08060677", u"", u"C:V0-80-60677", u"", u"CV0-806-677", u""},
    FormatRow{u"ABCDEFG", u"", u"AB-CDEFG", u"", u"ABC-DEF-EFG", u""},
    FormatRow{u"09202029X", u"", u"092-020-29X", u"09-202029X", u"092-020-29X", u""},
    FormatRow{u"98ABC", u"", u"", u"98-ABC", u"98A-BC-ABC", u""},
    FormatRow{u"8X12345", u"", u"8X-12345", u"", u"8X1-234-345", u""},
    // blanks are characters, except around a tax identifier
    FormatRow{u" 092020294", u"", u" :09-20-20294", u"09-2020294", u" 09-202-294", u""},
    FormatRow{u"0920 20294", u"", u"0:92-0 -20294", u"09-20 20294", u"092-0 2-294", u""},
    FormatRow{u"98123   ", u"", u"", u"98-123", u"981-23 -   ", u""},
    FormatRow{u"   9812 ", u"", u"", u"", u"   -981-12 ", u""},
    // digits of other scripts, and what only looks like a digit
    FormatRow{u"\u0660\u0669202029\u0664", u"", u"\u0660\u06692-020-29\u0664", u"", u"\u0660\u06692-020-29\u0664", u""},
    FormatRow{u"\uFF10\uFF19\uFF12\uFF10\uFF12\uFF10\uFF12\uFF19\uFF14", u"", u"\uFF10\uFF19\uFF12-\uFF10\uFF12\uFF10-\uFF12\uFF19\uFF14", u"", u"\uFF10\uFF19\uFF12-\uFF10\uFF12\uFF10-\uFF12\uFF19\uFF14", u""},
    FormatRow{u"09202029\u00B2", u"", u"092-020-29\u00B2", u"09-202029\u00B2", u"092-020-29\u00B2", u""},
    // clang-format on
};

/// A county's code and a number that is right in it, with the sum that gives its last digit:
/// (11 - sum % 11) % 10. Worked by hand from 7 T, 6 (N1 + 3), 5 (N2 + C1), 4 (N3 + C2),
/// 3 (N4 + Y1) and 2 (N5 + Y2).
struct CheckDigitRow
{
    QStringView code;
    QStringView number;
};

constexpr std::array checkDigits{
    // clang-format off
    CheckDigitRow{u"01", u"00-1-00000-4"}, // 7*1 + 6*3 + 5*0 + 4*1 + 3*0 + 2*0 = 29 = 2*11 + 7
    CheckDigitRow{u"39", u"99-9-99999-6"}, // 7*9 + 6*12 + 5*12 + 4*18 + 3*18 + 2*18 = 357 = 32*11 + 5
    CheckDigitRow{u"17", u"09-2-02029-4"}, // 7*2 + 6*3 + 5*3 + 4*7 + 3*2 + 2*18 = 117 = 10*11 + 7
    CheckDigitRow{u"01", u"00-0-00000-1"}, // 7*0 + 6*3 + 5*0 + 4*1 + 3*0 + 2*0 = 22 = 2*11 + 0
    CheckDigitRow{u"10", u"10-1-00000-1"}, // 7*1 + 6*3 + 5*1 + 4*0 + 3*1 + 2*0 = 33 = 3*11 + 0
    CheckDigitRow{u"17", u"93-3-50514-0"}, // 7*3 + 6*8 + 5*1 + 4*12 + 3*10 + 2*7 = 166 = 15*11 + 1
    CheckDigitRow{u"27", u"75-2-28906-8"}, // 7*2 + 6*5 + 5*10 + 4*16 + 3*7 + 2*11 = 201 = 18*11 + 3
    CheckDigitRow{u"31", u"00-9-73751-7"}, // 7*9 + 6*10 + 5*6 + 4*8 + 3*5 + 2*1 = 202 = 18*11 + 4
    CheckDigitRow{u"34", u"75-9-33382-4"}, // 7*9 + 6*6 + 5*6 + 4*7 + 3*15 + 2*7 = 216 = 19*11 + 7
    CheckDigitRow{u"06", u"15-3-93112-9"}, // 7*3 + 6*12 + 5*3 + 4*7 + 3*2 + 2*7 = 156 = 14*11 + 2
    CheckDigitRow{u"37", u"89-1-38535-2"}, // 7*1 + 6*6 + 5*11 + 4*12 + 3*11 + 2*14 = 207 = 18*11 + 9
    CheckDigitRow{u"39", u"15-1-48002-8"}, // 7*1 + 6*7 + 5*11 + 4*9 + 3*1 + 2*7 = 157 = 14*11 + 3
    CheckDigitRow{u"01", u"75-1-55555-5"}, // 7*1 + 6*8 + 5*5 + 4*6 + 3*12 + 2*10 = 160 = 14*11 + 6
    CheckDigitRow{u"13", u"99-4-98602-1"}, // 7*4 + 6*12 + 5*9 + 4*9 + 3*9 + 2*11 = 230 = 20*11 + 10
    CheckDigitRow{u"20", u"84-4-67287-4"}, // 7*4 + 6*9 + 5*9 + 4*2 + 3*16 + 2*11 = 205 = 18*11 + 7
    CheckDigitRow{u"03", u"11-3-34999-1"}, // 7*3 + 6*6 + 5*4 + 4*12 + 3*10 + 2*10 = 175 = 15*11 + 10
    CheckDigitRow{u"22", u"20-1-60315-1"}, // 7*1 + 6*9 + 5*2 + 4*5 + 3*3 + 2*5 = 110 = 10*11 + 0
    CheckDigitRow{u"36", u"00-3-75724-1"}, // 7*3 + 6*10 + 5*8 + 4*13 + 3*2 + 2*4 = 187 = 17*11 + 0
    CheckDigitRow{u"28", u"99-8-00069-1"}, // 7*8 + 6*3 + 5*2 + 4*8 + 3*15 + 2*18 = 197 = 17*11 + 10
    CheckDigitRow{u"14", u"20-9-05962-7"}, // 7*9 + 6*3 + 5*6 + 4*13 + 3*8 + 2*2 = 191 = 17*11 + 4
    CheckDigitRow{u"17", u"98-1-12345-3"}, // 7*1 + 6*4 + 5*3 + 4*10 + 3*13 + 2*13 = 151 = 13*11 + 8
    // clang-format on
};

/// The check digit once more, from its definition and in another way than the program's.
QChar expectedCheckDigit(int county, const QString &number)
{
    const QList<int> weights{7, 6, 5, 4, 3, 2};
    const QList<int> added{
        0, 3, county / 10, county % 10, number[0].digitValue(), number[1].digitValue()};
    const QString digits = number[3] + number.mid(5, 5);
    int value = 0;
    for (qsizetype i = 0; i < weights.size(); ++i)
        value += weights[i] * (digits[i].digitValue() + added[i]);
    static const QString byRemainder = u"10987654321"_s; // 11 - 0 and 11 - 1 leave 1 and 0
    return byRemainder[value % 11];
}

/// FormatScomisNumber as the other formats are: the result, "" for a refusal. A refusal that
/// changes the text gives a result that no table has.
QString scomis(const QString &text)
{
    QString number = text;
    if (FormatScomisNumber(number))
        return number;
    return number == text ? QString() : u"changed although refused: "_s + number;
}

QByteArray iniWith(const QByteArray &value)
{
    return "[Cty2Code]\r\nKing=" + value + "\r\n";
}

/// The number of the error that a check digit ends in, 0 for none.
int errorOf(const QString &code, const QString &number)
{
    try {
        ComputeScomisCheckDigit(code, number);
        return 0;
    } catch (const RunTimeError &error) {
        return error.Number();
    }
}
} // namespace

class tst_CaseNumbers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void formats_data();
    void formats();
    void everyLengthIsInTheTable();
    void aNumberWithOrWithoutDashesIsTheSame();
    void onlyDigitsAreNumeric();
    void veryLongTexts();
    void nineDigitsAmongThousandsOfDashes();

    void taxYears_data();
    void taxYears();
    void aTaxIdNeedsMoreThanFourCharacters();
    void taxYearLaterThanThisYearIsRefused();
    void aTaxIdBeginningWith79IsReadAsAUbi();

    void checkDigit_data();
    void checkDigit();
    void checkDigitOfEveryCounty();
    void checkDigitOfWhatIsNoNumber_data();
    void checkDigitOfWhatIsNoNumber();

    void everyCountyHasItsCode();
    void countyNamesAreTrimmedAndCaseBlind();
    void countiesWithoutACode_data();
    void countiesWithoutACode();
    void valuesOfACode_data();
    void valuesOfACode();
    void withoutTheFileNoCountyHasACode();
    void anUnreadableFileIsLoggedAndGivesNoCode();
    void aFileOfRubbishGivesNoCode();
};

void tst_CaseNumbers::formats_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("scomisNumber");
    QTest::addColumn<QString>("bk");
    QTest::addColumn<QString>("taxId");
    QTest::addColumn<QString>("ubi");
    QTest::addColumn<QString>("ssn");
    const auto add = [](const FormatRow &row) {
        QTest::addRow("'%s'", qPrintable(row.text.toString()))
            << row.text.toString() << row.scomis.toString() << row.bk.toString()
            << row.taxId.toString() << row.ubi.toString() << row.ssn.toString();
    };
    std::for_each(lengths.begin(), lengths.end(), add);
    std::for_each(shapes.begin(), shapes.end(), add);
}

void tst_CaseNumbers::formats()
{
    QFETCH(QString, text);
    QFETCH(QString, scomisNumber);
    QFETCH(QString, bk);
    QFETCH(QString, taxId);
    QFETCH(QString, ubi);
    QFETCH(QString, ssn);
    const TestClock clock;
    QCOMPARE(scomis(text), scomisNumber);
    QCOMPARE(FormatBkCaseNumber(text), bk);
    QCOMPARE(FormatTaxId(text), taxId);
    QCOMPARE(IsTaxId(text), !taxId.isEmpty());
    QCOMPARE(FormatUbi(text), ubi);
    QCOMPARE(FormatSsn(text), ssn);
}

void tst_CaseNumbers::everyLengthIsInTheTable()
{
    for (size_t i = 0; i < lengths.size(); ++i)
        QCOMPARE(lengths[i].text.size(), static_cast<qsizetype>(i));
    QCOMPARE(lengths.size(), size_t(21));
}

void tst_CaseNumbers::aNumberWithOrWithoutDashesIsTheSame()
{
    QCOMPARE(scomis(u"092020294"_s), u"09-2-02029-4"_s);
    QCOMPARE(scomis(u"09-2-02029-4"_s), u"09-2-02029-4"_s);
    QCOMPARE(FormatBkCaseNumber(u"9920077"_s), FormatBkCaseNumber(u"99-20077"_s));
    QCOMPARE(FormatBkCaseNumber(u"1990220077"_s), FormatBkCaseNumber(u"1:99-02-20077"_s));
    QCOMPARE(FormatSsn(u"123456789"_s), FormatSsn(u"123-45-6789"_s));
}

void tst_CaseNumbers::onlyDigitsAreNumeric()
{
    const TestClock clock;
    for (int byte = 0; byte < 256; ++byte) {
        const QChar character = AnsiCharacter(static_cast<quint8>(byte));
        const bool numeric = byte >= '0' && byte <= '9';
        for (qsizetype place = 0; place < 9; ++place) {
            QString text = u"812345678"_s;
            text[place] = character;
            QCOMPARE(!scomis(text).isEmpty(), numeric);
            QCOMPARE(!FormatSsn(text).isEmpty(), numeric);
            QCOMPARE(scomis(text).startsWith(u"changed"_s), false);
        }
        // The first digit tells the century, and only four do.
        // (A blank is trimmed, and the digit behind it is looked at.)
        const bool century =
            byte == ' ' || byte == '8' || byte == '9' || byte == '0' || byte == '1';
        QCOMPARE(IsTaxId(character + u"11111"_s), century);
        QCOMPARE(IsTaxId(u'8' + QString(character) + u"1111"_s), numeric);
        // The bankruptcy courts' numbers and the UBI may hold anything.
        const bool dropped = byte == '-' || byte == ':';
        QCOMPARE(FormatBkCaseNumber(u"81234567"_s + character).isEmpty(), dropped);
        QCOMPARE(FormatUbi(QString(character)).isEmpty(), false);
    }
}

void tst_CaseNumbers::veryLongTexts()
{
    for (const QChar character : {u'1', u'-', u':', u'A', u' ', u'8'}) {
        const QString text(veryLong, character);
        QCOMPARE(scomis(text), QString());
        QCOMPARE(FormatBkCaseNumber(text), QString());
        QCOMPARE(FormatUbi(text), QString());
        QCOMPARE(FormatSsn(text), QString());
        QCOMPARE(FormatTaxId(text).size(),
                 character == u'1' || character == u'8' ? veryLong + 1 : 0);
    }
}

void tst_CaseNumbers::nineDigitsAmongThousandsOfDashes()
{
    const QString dashes(veryLong, u'-');
    QCOMPARE(scomis(dashes + u"09202"_s + dashes + u"0294"_s), u"09-2-02029-4"_s);
    QCOMPARE(FormatSsn(dashes + u"09202"_s + dashes + u"0294"_s), u"092-02-0294"_s);
}

void tst_CaseNumbers::taxYears_data()
{
    QTest::addColumn<int>("thisYear");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taxId");
    QTest::newRow("80 is the earliest: 1980") << 2026 << u"80-12345"_s << true;
    QTest::newRow("79") << 2026 << u"79-12345"_s << false;
    QTest::newRow("99") << 2026 << u"99-12345"_s << true;
    QTest::newRow("00") << 2026 << u"00-12345"_s << true;
    QTest::newRow("09") << 2026 << u"09-12345"_s << true;
    QTest::newRow("10") << 2026 << u"10-12345"_s << true;
    QTest::newRow("19") << 2026 << u"19-12345"_s << true;
    QTest::newRow("20 begins with no century") << 2026 << u"20-12345"_s << false;
    QTest::newRow("26 of this very year") << 2026 << u"26-12345"_s << false;
    QTest::newRow("30") << 2026 << u"30-12345"_s << false;
    QTest::newRow("40") << 2026 << u"40-12345"_s << false;
    QTest::newRow("50") << 2026 << u"50-12345"_s << false;
    QTest::newRow("60") << 2026 << u"60-12345"_s << false;
    QTest::newRow("70") << 2026 << u"70-12345"_s << false;
    QTest::newRow("this year") << 2015 << u"15-12345"_s << true;
    QTest::newRow("next year") << 2015 << u"16-12345"_s << false;
    QTest::newRow("last year") << 2015 << u"14-12345"_s << true;
    QTest::newRow("the century's first year") << 2000 << u"00-12345"_s << true;
    QTest::newRow("one before it") << 1999 << u"00-12345"_s << false;
    QTest::newRow("a clock that is wrong") << 1970 << u"80-12345"_s << false;
}

void tst_CaseNumbers::taxYears()
{
    QFETCH(int, thisYear);
    QFETCH(QString, text);
    QFETCH(bool, taxId);
    const TestClock clock(QDateTime({thisYear, 6, 1}, {12, 0}));
    QCOMPARE(IsTaxId(text), taxId);
    QCOMPARE(FormatTaxId(text), taxId ? text : QString());
}

void tst_CaseNumbers::aTaxIdNeedsMoreThanFourCharacters()
{
    const TestClock clock;
    QVERIFY(!IsTaxId(u"9812"_s));
    QVERIFY(!IsTaxId(u"   9812   "_s));
    QVERIFY(IsTaxId(u"98123"_s));
    QVERIFY(IsTaxId(u"98-12"_s));
    QVERIFY(!IsTaxId(QString()));
}

void tst_CaseNumbers::taxYearLaterThanThisYearIsRefused()
{
    const TestClock clock(QDateTime({2010, 12, 31}, {23, 59}));
    QVERIFY(IsTaxId(u"10-1234567"_s));
    QVERIFY(!IsTaxId(u"11-1234567"_s));
    QCOMPARE(FormatTaxId(u"11-1234567"_s), QString());
}

void tst_CaseNumbers::aTaxIdBeginningWith79IsReadAsAUbi()
{
    const TestClock clock;
    QCOMPARE(FormatTaxId(u"79-1234567"_s), QString());
    QCOMPARE(FormatUbi(u"79-1234567"_s), u"791-234-567"_s);
    QCOMPARE(FormatUbi(u"791234567"_s), u"791-234-567"_s);
}

void tst_CaseNumbers::checkDigit_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("number");
    for (const CheckDigitRow &row : checkDigits)
        QTest::addRow("%s in %s", qPrintable(row.number.toString()),
                      qPrintable(row.code.toString()))
            << row.code.toString() << row.number.toString();
}

void tst_CaseNumbers::checkDigit()
{
    QFETCH(QString, code);
    QFETCH(QString, number);
    QCOMPARE(ComputeScomisCheckDigit(code, number), number.back());
    // The last digit of the number itself has no part in it.
    for (const QChar last : u"0123456789"_s)
        QCOMPARE(ComputeScomisCheckDigit(code, number.chopped(1) + last), number.back());
}

void tst_CaseNumbers::checkDigitOfEveryCounty()
{
    const TestFolder folder;
    const QStringList counties = WaCountyNames();
    QCOMPARE(counties.size(), 39);
    QRandomGenerator random(20260310);
    for (int county = 1; county <= counties.size(); ++county) {
        const QString code = ScomisCountyCode(counties[county - 1]);
        for (int i = 0; i < 100; ++i) {
            QString number = QString::number(random.bounded(1000000000)).rightJustified(9, u'0');
            QVERIFY(FormatScomisNumber(number));
            const QChar digit = ComputeScomisCheckDigit(code, number);
            if (digit != expectedCheckDigit(county, number))
                QFAIL(qPrintable(counties[county - 1] + u' ' + number + u": "_s + digit));
        }
    }
}

void tst_CaseNumbers::checkDigitOfWhatIsNoNumber_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("number");
    const QString number = u"09-2-02029-4"_s;
    QTest::newRow("no code") << QString() << number;
    QTest::newRow("one digit") << u"7"_s << number;
    QTest::newRow("three digits") << u"017"_s << number;
    QTest::newRow("letters") << u"AB"_s << number;
    QTest::newRow("a sign") << u"-1"_s << number;
    QTest::newRow("superscripts") << u"\u00B9\u00B2"_s << number;
    QTest::newRow("no number") << u"17"_s << QString();
    QTest::newRow("a number without dashes") << u"17"_s << u"092020294"_s;
    QTest::newRow("dashes in other places") << u"17"_s << u"092-02-029-4"_s;
    QTest::newRow("a dash behind") << u"17"_s << u"09-2-02029-4-"_s;
    QTest::newRow("a letter") << u"17"_s << u"09-A-02029-4"_s;
    QTest::newRow("too short") << u"17"_s << u"09-2-02029"_s;
    QTest::newRow("too long") << u"17"_s << u"09-2-02029-44"_s;
    QTest::newRow("10,000 characters") << QString(veryLong, u'1') << QString(veryLong, u'1');
}

void tst_CaseNumbers::checkDigitOfWhatIsNoNumber()
{
    QFETCH(QString, code);
    QFETCH(QString, number);
    QCOMPARE(errorOf(code, number), 13);
    QCOMPARE(errorOf(u"17"_s, u"09-2-02029-4"_s), 0);
}

void tst_CaseNumbers::everyCountyHasItsCode()
{
    const TestFolder folder;
    const QStringList counties = WaCountyNames();
    for (int i = 0; i < counties.size(); ++i)
        QCOMPARE(ScomisCountyCode(counties[i]), QString::number(i + 1).rightJustified(2, u'0'));
}

void tst_CaseNumbers::countyNamesAreTrimmedAndCaseBlind()
{
    const TestFolder folder;
    QCOMPARE(ScomisCountyCode(u"  King "_s), u"17"_s);
    QCOMPARE(ScomisCountyCode(u"KING"_s), u"17"_s);
    QCOMPARE(ScomisCountyCode(u" walla walla"_s), u"36"_s);
}

void tst_CaseNumbers::countiesWithoutACode_data()
{
    QTest::addColumn<QString>("county");
    QTest::newRow("none") << QString();
    QTest::newRow("blanks") << u"   "_s;
    QTest::newRow("unset county box") << u"---- NO SELECTION ----"_s;
    QTest::newRow("Oregon only") << u"Multnomah"_s;
    QTest::newRow("part of a name") << u"Walla"_s;
    QTest::newRow("a comment") << u"; The two-digit number"_s;
    QTest::newRow("a section") << u"[Cty2Code]"_s;
    QTest::newRow("name and value") << u"King=17"_s;
    QTest::newRow("line ends") << u"King\r\nKing"_s;
    QTest::newRow("10,000 characters") << QString(veryLong, u'K');
}

void tst_CaseNumbers::countiesWithoutACode()
{
    QFETCH(QString, county);
    const TestFolder folder;
    // A line without a key must not become the code of a county without a name.
    folder.Write(u"waCtyCds.ini"_s, folder.Read(u"waCtyCds.ini"_s) + "\r\n=55\r\n");
    QCOMPARE(ScomisCountyCode(county), QString());
    QCOMPARE(ScomisCountyCode(u"King"_s), u"17"_s);
}

void tst_CaseNumbers::valuesOfACode_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("code");
    QTest::newRow("two digits") << QByteArray("17") << u"17"_s;
    QTest::newRow("blanks around") << QByteArray("  17  ") << u"17"_s;
    QTest::newRow("quoted") << QByteArray("\"17\"") << u"17"_s;
    QTest::newRow("one digit") << QByteArray("7") << u"07"_s;
    QTest::newRow("0") << QByteArray("0") << QString();
    QTest::newRow("00") << QByteArray("00") << QString();
    QTest::newRow("empty") << QByteArray("") << QString();
    QTest::newRow("three digits") << QByteArray("117") << QString();
    QTest::newRow("negative") << QByteArray("-7") << QString();
    QTest::newRow("letters") << QByteArray("AB") << QString();
    QTest::newRow("digit and letter") << QByteArray("1A") << QString();
    QTest::newRow("superscripts") << QByteArray("\xB9\xB2") << QString();
    QTest::newRow("a NUL behind") << QByteArray("17\0xyz", 6) << u"17"_s;
    QTest::newRow("a NUL before") << QByteArray("\0"
                                                "17",
                                                3)
                                  << QString();
    QTest::newRow("10,000 digits") << QByteArray(veryLong, '1') << QString();
}

void tst_CaseNumbers::valuesOfACode()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, code);
    const TestFolder folder;
    folder.Write(u"waCtyCds.ini"_s, iniWith(value));
    QCOMPARE(ScomisCountyCode(u"King"_s), code);
}

void tst_CaseNumbers::withoutTheFileNoCountyHasACode()
{
    const TestFolder folder;
    QCOMPARE(ScomisCountyCode(u"King"_s), u"17"_s);
    folder.Remove(u"waCtyCds.ini"_s);
    for (const QString &county : WaCountyNames())
        QCOMPARE(ScomisCountyCode(county), QString());
    QCOMPARE(folder.Log(), QStringList());
}

void tst_CaseNumbers::anUnreadableFileIsLoggedAndGivesNoCode()
{
    const TestFolder folder;
    MakeUnreadable(folder.Path(u"waCtyCds.ini"_s));
    QCOMPARE(ScomisCountyCode(u"King"_s), QString());
    QCOMPARE(folder.Log(),
             QStringList{u"Error reading Setting Cty2Code, King - CSetting.GetSettingStr"_s});
}

void tst_CaseNumbers::aFileOfRubbishGivesNoCode()
{
    const TestFolder folder;
    QRandomGenerator random(39);
    for (int i = 0; i < 200; ++i) {
        QByteArray rubbish = i % 2 == 0 ? QByteArray() : QByteArray("[Cty2Code]\nKing=");
        for (int n = 0; n < 300; ++n)
            rubbish.append(static_cast<char>(random.bounded(256)));
        folder.Write(u"waCtyCds.ini"_s, rubbish);
        const QString code = ScomisCountyCode(u"King"_s);
        // Rubbish that happens to be a code is one; nothing else may come out.
        if (!code.isEmpty())
            QCOMPARE(errorOf(code, u"09-2-02029-4"_s), 0);
    }
}

HALVANE_TEST(tst_CaseNumbers)
#include "tst_CaseNumbers.moc"
