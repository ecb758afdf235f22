#include "core/Windows1252.h"
#include "support/HalvaneTest.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Windows1252 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void all256BytesRoundTrip();
    void upperCaseStaysInTheCodePage();
    void all256BytesAreDifferentCharacters();
    void characters_data();
    void characters();
    void charactersOutsideBecomeAQuestionMark_data();
    void charactersOutsideBecomeAQuestionMark();
    void charactersOutsideAreNamedOnce();
    void plainTextIsTheSame();
    void emptyStaysEmpty();
};

void tst_Windows1252::charactersOutsideAreNamedOnce()
{
    QCOMPARE(CharactersOutsideWindows1252(QStringLiteral("Jos\u00E9 \u20AC \u0081")),
             QStringList());
    QCOMPARE(
        CharactersOutsideWindows1252(QStringLiteral("\u0141u\u4E2Dk\U0001F600\u0141\U0001F600")),
        QStringList({u"\u0141"_s, u"\u4E2D"_s, u"\U0001F600"_s}));
}

void tst_Windows1252::upperCaseStaysInTheCodePage()
{
    QCOMPARE(FoldToUpper(QStringLiteral("smith-o'neil \u00E9\u0161\u00FF")),
             QStringLiteral("SMITH-O'NEIL \u00C9\u0160\u0178"));
    QCOMPARE(FoldToUpper(QStringLiteral("\u00DF\u00B5")), QStringLiteral("\u00DF\u00B5"));
}

void tst_Windows1252::all256BytesRoundTrip()
{
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        all.append(static_cast<char>(code));
    const QString text = FromWindows1252(all);
    QCOMPARE(text.size(), 256);
    QCOMPARE(ToWindows1252(text), all);
    QVERIFY(FitsWindows1252(text));
    for (int code = 0; code < 256; ++code) {
        const QChar character = AnsiCharacter(static_cast<quint8>(code));
        QCOMPARE(AnsiCode(character), code);
        QCOMPARE(FromWindows1252(QByteArray(1, static_cast<char>(code))), QString(character));
    }
}

void tst_Windows1252::all256BytesAreDifferentCharacters()
{
    QSet<QChar> characters;
    for (int code = 0; code < 256; ++code)
        characters.insert(AnsiCharacter(static_cast<quint8>(code)));
    QCOMPARE(characters.size(), 256);
}

void tst_Windows1252::characters_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("unicode");
    struct Row
    {
        int code;
        int unicode;
    };
    const QList<Row> rows{
        {0x00, 0x0000}, {0x41, 0x0041}, {0x7C, 0x007C}, {0x7F, 0x007F}, {0x80, 0x20AC},
        {0x81, 0x0081}, {0x82, 0x201A}, {0x83, 0x0192}, {0x84, 0x201E}, {0x85, 0x2026},
        {0x86, 0x2020}, {0x87, 0x2021}, {0x88, 0x02C6}, {0x89, 0x2030}, {0x8A, 0x0160},
        {0x8B, 0x2039}, {0x8C, 0x0152}, {0x8D, 0x008D}, {0x8E, 0x017D}, {0x8F, 0x008F},
        {0x90, 0x0090}, {0x91, 0x2018}, {0x92, 0x2019}, {0x93, 0x201C}, {0x94, 0x201D},
        {0x95, 0x2022}, {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x02DC}, {0x99, 0x2122},
        {0x9A, 0x0161}, {0x9B, 0x203A}, {0x9C, 0x0153}, {0x9D, 0x009D}, {0x9E, 0x017E},
        {0x9F, 0x0178}, {0xA0, 0x00A0}, {0xA6, 0x00A6}, {0xFF, 0x00FF},
    };
    for (const Row &row : rows)
        QTest::addRow("%02X", row.code) << row.code << row.unicode;
}

void tst_Windows1252::characters()
{
    QFETCH(int, code);
    QFETCH(int, unicode);
    QCOMPARE(int(AnsiCharacter(static_cast<quint8>(code)).unicode()), unicode);
    QCOMPARE(AnsiCode(QChar(unicode)), code);
}

void tst_Windows1252::charactersOutsideBecomeAQuestionMark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("Cyrillic") << u"a\u0410b"_s << QByteArray("a?b");
    QTest::newRow("a C1 control that has a character") << u"\u0080"_s << QByteArray("?");
    QTest::newRow("just above the page") << u"\u0100"_s << QByteArray("?");
    QTest::newRow("a surrogate pair is one") << u"a\U0001F600b"_s << QByteArray("a?b");
    QTest::newRow("two pairs") << u"\U0001F600\U0001F601"_s << QByteArray("??");
    QTest::newRow("a lone high surrogate") << QString(QChar(0xD83D)) + u'b' << QByteArray("?b");
    QTest::newRow("a high surrogate at the end")
        << u'a' + QString(QChar(0xD83D)) << QByteArray("a?");
    QTest::newRow("a lone low surrogate") << QString(QChar(0xDE00)) << QByteArray("?");
    QTest::newRow("a combining accent") << u"e\u0301"_s << QByteArray("e?");
}

void tst_Windows1252::charactersOutsideBecomeAQuestionMark()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(ToWindows1252(text), bytes);
    QVERIFY(!FitsWindows1252(text));
}

void tst_Windows1252::plainTextIsTheSame()
{
    QCOMPARE(ToWindows1252(u"SMITH¦JOHN"_s), QByteArray("SMITH\xA6JOHN"));
    QCOMPARE(FromWindows1252("SMITH\xA6JOHN"), u"SMITH¦JOHN"_s);
    QVERIFY(FitsWindows1252(u"SMITH¦JOHN"_s));
}

void tst_Windows1252::emptyStaysEmpty()
{
    QCOMPARE(ToWindows1252({}), QByteArray());
    QCOMPARE(FromWindows1252({}), QString());
    QVERIFY(FitsWindows1252({}));
}

HALVANE_TEST(tst_Windows1252)
#include "tst_Windows1252.moc"
