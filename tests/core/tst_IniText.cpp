#include "core/IniText.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QByteArray sample = "; the head of the file\r\n"
                          "[Communications]\r\n"
                          "HVServerIP1=192.0.2.1\r\n"
                          "  ; a note between\r\n"
                          "HVServerPort = 85\r\n"
                          "\r\n"
                          "[Searching]\r\n"
                          "DefaultView=WA\r\n";
}

class tst_IniText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void valueOfAKey_data();
    void valueOfAKey();
    void aMissingKeyOrSectionHasNoValue_data();
    void aMissingKeyOrSectionHasNoValue();
    void writingAKeyThatExistsLeavesAllOtherLinesAsTheyWere();
    void writingANewKeyPutsItBehindTheLastLineOfItsSection();
    void writingANewSectionPutsItAtTheEnd();
    void writingIntoAnEmptyText();
    void aLastLineWithoutALineEndGetsOne();
    void theLineEndsOfTheFileAreKept_data();
    void theLineEndsOfTheFileAreKept();
    void lineEndsAndNulsInAValueBecomeBlanks();
    void aNameThatCannotBeReadChangesNothing_data();
    void aNameThatCannotBeReadChangesNothing();
    void aValueReadsBackAsItWasWritten_data();
    void aValueReadsBackAsItWasWritten();
    void deletingAKeyTakesItsLineOnly();
    void deletingASectionTakesItsLinesOnly();
    void deletingWhatIsNotThereChangesNothing();
};

void tst_IniText::valueOfAKey_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << QByteArray("[S]\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("section in another case") << QByteArray("[s]\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("key in another case") << QByteArray("[S]\r\nk=v\r\n") << u"v"_s;
    QTest::newRow("blanks around") << QByteArray(" [ S ] \r\n  K  =  v  \r\n") << u"v"_s;
    QTest::newRow("double quotes go") << QByteArray("[S]\r\nK=\" v \"\r\n") << u" v "_s;
    QTest::newRow("single quotes go") << QByteArray("[S]\r\nK=' v '\r\n") << u" v "_s;
    QTest::newRow("only one pair goes") << QByteArray("[S]\r\nK=\"\"v\"\"\r\n") << u"\"v\""_s;
    QTest::newRow("unlike quotes stay") << QByteArray("[S]\r\nK=\"v'\r\n") << u"\"v'"_s;
    QTest::newRow("a single quote stays") << QByteArray("[S]\r\nK=\"\r\n") << u"\""_s;
    QTest::newRow("empty") << QByteArray("[S]\r\nK=\r\n") << u""_s;
    QTest::newRow("equals signs in the value") << QByteArray("[S]\r\nK=a=b=c\r\n") << u"a=b=c"_s;
    QTest::newRow("a semicolon in the value") << QByteArray("[S]\r\nK=a;b\r\n") << u"a;b"_s;
    QTest::newRow("backslashes are no escapes")
        << QByteArray("[S]\r\nK=C:\\temp\\new\r\n") << u"C:\\temp\\new"_s;
    QTest::newRow("commas are no lists") << QByteArray("[S]\r\nK=a,b,c\r\n") << u"a,b,c"_s;
    QTest::newRow("no line end at the end") << QByteArray("[S]\r\nK=v") << u"v"_s;
    QTest::newRow("LF") << QByteArray("[S]\nK=v\n") << u"v"_s;
    QTest::newRow("CR") << QByteArray("[S]\rK=v\r") << u"v"_s;
    QTest::newRow("the first of two keys") << QByteArray("[S]\r\nK=v\r\nK=w\r\n") << u"v"_s;
    QTest::newRow("the first of two sections")
        << QByteArray("[S]\r\nK=v\r\n[S]\r\nK=w\r\n") << u"v"_s;
    QTest::newRow("a comment is no key") << QByteArray("[S]\r\n;K=w\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("another section before")
        << QByteArray("K=1\r\n[R]\r\nK=2\r\n[S]\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("an unclosed section line") << QByteArray("[S\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("high bytes") << QByteArray("[S]\r\nK=\xA6\x80\r\n") << u"¦\u20AC"_s;
}

void tst_IniText::valueOfAKey()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, value);
    const std::optional<QString> found = IniValue(text, u"S"_s, u"K"_s);
    QVERIFY(found.has_value());
    QCOMPARE(*found, value);
}

void tst_IniText::aMissingKeyOrSectionHasNoValue_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty text") << QByteArray();
    QTest::newRow("no section") << QByteArray("K=v\r\n");
    QTest::newRow("only in another section") << QByteArray("[S]\r\nL=1\r\n[T]\r\nK=v\r\n");
    QTest::newRow("only in a second section of the name")
        << QByteArray("[S]\r\nL=1\r\n[T]\r\n[S]\r\nK=v\r\n");
    QTest::newRow("a key that begins alike") << QByteArray("[S]\r\nKK=v\r\n");
    QTest::newRow("a line without an equals sign") << QByteArray("[S]\r\nK\r\n");
    QTest::newRow("commented out") << QByteArray("[S]\r\n; K=v\r\n");
}

void tst_IniText::aMissingKeyOrSectionHasNoValue()
{
    QFETCH(QByteArray, text);
    QVERIFY(!IniValue(text, u"S"_s, u"K"_s).has_value());
}

void tst_IniText::writingAKeyThatExistsLeavesAllOtherLinesAsTheyWere()
{
    const QByteArray changed =
        IniTextWithValue(sample, u"COMMUNICATIONS"_s, u"hvserverport"_s, u"80"_s);
    QByteArray expected = sample;
    expected.replace("HVServerPort = 85", "HVServerPort =80");
    QCOMPARE(changed, expected);
}

void tst_IniText::writingANewKeyPutsItBehindTheLastLineOfItsSection()
{
    const QByteArray changed =
        IniTextWithValue(sample, u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    QByteArray expected = sample;
    expected.replace("HVServerPort = 85\r\n", "HVServerPort = 85\r\nShowAlerts=0\r\n");
    QCOMPARE(changed, expected);
}

void tst_IniText::writingANewSectionPutsItAtTheEnd()
{
    QCOMPARE(IniTextWithValue(sample, u"security"_s, u"RememberPwd"_s, u"1"_s),
             sample + "[security]\r\nRememberPwd=1\r\n");
}

void tst_IniText::writingIntoAnEmptyText()
{
    QCOMPARE(IniTextWithValue({}, u"S"_s, u"K"_s, u"v"_s), QByteArray("[S]\r\nK=v\r\n"));
}

void tst_IniText::aLastLineWithoutALineEndGetsOne()
{
    QCOMPARE(IniTextWithValue("[S]\r\nA=1", u"S"_s, u"K"_s, u"v"_s),
             QByteArray("[S]\r\nA=1\r\nK=v\r\n"));
    QCOMPARE(IniTextWithValue("[S]\r\nA=1", u"S"_s, u"A"_s, u"2"_s), QByteArray("[S]\r\nA=2"));
}

void tst_IniText::theLineEndsOfTheFileAreKept_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("CR LF") << QByteArray("\r\n");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR") << QByteArray("\r");
}

void tst_IniText::theLineEndsOfTheFileAreKept()
{
    QFETCH(QByteArray, end);
    const QByteArray text = "[S]" + end + "A=1" + end;
    QCOMPARE(IniTextWithValue(text, u"S"_s, u"A"_s, u"2"_s), "[S]" + end + "A=2" + end);
    QCOMPARE(IniTextWithValue(text, u"S"_s, u"K"_s, u"v"_s), text + "K=v" + end);
    QCOMPARE(IniTextWithValue(text, u"T"_s, u"K"_s, u"v"_s), text + "[T]" + end + "K=v" + end);
}

void tst_IniText::lineEndsAndNulsInAValueBecomeBlanks()
{
    const QByteArray text =
        IniTextWithValue({}, u"S"_s, u"K"_s, u"a\r\nEvil=1\nb"_s + QChar::Null + u'c');
    QCOMPARE(text, QByteArray("[S]\r\nK=a  Evil=1 b c\r\n"));
    QVERIFY(!IniValue(text, u"S"_s, u"Evil"_s).has_value());
}

void tst_IniText::aValueReadsBackAsItWasWritten_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("a word") << u"King"_s;
    QTest::newRow("a phrase") << u"--Enter a Name or Phrase to include on the 1st page--"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("a path") << u"C:\\temp\\new"_s;
    QTest::newRow("brackets") << u"[x]"_s;
    QTest::newRow("percent") << u"%s%n"_s;
    QTest::newRow("the code page") << u"\u20AC¦\u00FF\u0153"_s;
}

void tst_IniText::aValueReadsBackAsItWasWritten()
{
    QFETCH(QString, value);
    const QByteArray text = IniTextWithValue(sample, u"Searching"_s, u"New"_s, value);
    QCOMPARE(IniValue(text, u"Searching"_s, u"New"_s).value_or(u"none"_s), value);
    QVERIFY(text.startsWith(sample));
}

/// A server names what it changes. None of it may come to stand for other lines of the file.
void tst_IniText::aNameThatCannotBeReadChangesNothing_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    const QString known = u"Communications"_s;
    QTest::newRow("a key like a section") << known << u"[Security]"_s;
    QTest::newRow("half a section") << known << u" [Security"_s;
    QTest::newRow("a section behind a line end") << known << u"\r\n[Security]"_s;
    QTest::newRow("a section behind a tab") << known << u"\t\v[Security]"_s;
    QTest::newRow("a comment") << known << u";HVServerIP1"_s;
    QTest::newRow("a key with a sign of equality") << known << u"a=b"_s;
    QTest::newRow("a section that ends early") << u"Communications]x"_s << u"HVServerIP1"_s;
}

void tst_IniText::aNameThatCannotBeReadChangesNothing()
{
    QFETCH(QString, section);
    QFETCH(QString, key);
    QCOMPARE(IniTextWithValue(sample, section, key, u"x"_s), sample);
}

void tst_IniText::deletingAKeyTakesItsLineOnly()
{
    QByteArray expected = sample;
    expected.replace("HVServerPort = 85\r\n", "");
    QCOMPARE(IniTextWithoutKey(sample, u"communications"_s, u"HVSERVERPORT"_s), expected);
}

void tst_IniText::deletingASectionTakesItsLinesOnly()
{
    QCOMPARE(IniTextWithoutSection(sample, u"communications"_s),
             QByteArray("; the head of the file\r\n[Searching]\r\nDefaultView=WA\r\n"));
    QCOMPARE(IniTextWithoutSection("[A]\r\nX=1\r\n[B]\r\nY=2\r\n[A]\r\nX=3\r\n", u"A"_s),
             QByteArray("[B]\r\nY=2\r\n[A]\r\nX=3\r\n"));
}

void tst_IniText::deletingWhatIsNotThereChangesNothing()
{
    QCOMPARE(IniTextWithoutKey(sample, u"Searching"_s, u"HVServerPort"_s), sample);
    QCOMPARE(IniTextWithoutKey(sample, u"None"_s, u"DefaultView"_s), sample);
    QCOMPARE(IniTextWithoutSection(sample, u"None"_s), sample);
}

HALVANE_TEST(tst_IniText)
#include "tst_IniText.moc"
