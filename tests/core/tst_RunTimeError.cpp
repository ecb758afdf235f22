#include "core/RunTimeError.h"
#include "support/ErrorOf.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_RunTimeError : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void numbersAndDescriptions_data();
    void numbersAndDescriptions();
    void fieldAt();
    void fieldAtBeyondTheListIsAnError_data();
    void fieldAtBeyondTheListIsAnError();
    void toInteger_data();
    void toInteger();
    void toIntegerOfNoNumber_data();
    void toIntegerOfNoNumber();
};

void tst_RunTimeError::numbersAndDescriptions_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("made");
    QTest::addColumn<QString>("text");
    const auto row = [](int number, const QString &description, const RunTimeError &error) {
        QTest::addRow("%d", number)
            << number << description << error.Number() << error.Description();
        QCOMPARE(QString::fromUtf8(error.what()), description);
    };
    row(6, u"Overflow"_s, RunTimeError::Overflow());
    row(9, u"Subscript out of range"_s, RunTimeError::SubscriptOutOfRange());
    row(13, u"Type mismatch"_s, RunTimeError::TypeMismatch());
    row(53, u"File not found"_s, RunTimeError::FileNotFound());
    row(70, u"Permission denied"_s, RunTimeError::PermissionDenied());
    row(75, u"Path/File access error"_s, RunTimeError::PathFileAccess());
    row(76, u"Path not found"_s, RunTimeError::PathNotFound());
}

void tst_RunTimeError::numbersAndDescriptions()
{
    QFETCH(int, number);
    QFETCH(QString, description);
    QFETCH(int, made);
    QFETCH(QString, text);
    QCOMPARE(made, number);
    QCOMPARE(text, description);
}

void tst_RunTimeError::fieldAt()
{
    const QStringList fields{u"a"_s, u""_s, u"c"_s};
    QCOMPARE(FieldAt(fields, 0), u"a"_s);
    QCOMPARE(FieldAt(fields, 1), u""_s);
    QCOMPARE(FieldAt(fields, 2), u"c"_s);
}

void tst_RunTimeError::fieldAtBeyondTheListIsAnError_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<int>("index");
    QTest::newRow("behind the last") << QStringList{u"a"_s} << 1;
    QTest::newRow("before the first") << QStringList{u"a"_s} << -1;
    QTest::newRow("of no fields") << QStringList() << 0;
}

void tst_RunTimeError::fieldAtBeyondTheListIsAnError()
{
    QFETCH(QStringList, fields);
    QFETCH(int, index);
    QCOMPARE(ErrorOf([&] { FieldAt(fields, index); }), 9);
}

void tst_RunTimeError::toInteger_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("a number") << u"12"_s << 12;
    QTest::newRow("blanks around") << u" 12 "_s << 12;
    QTest::newRow("negative") << u"-7"_s << -7;
    QTest::newRow("the least") << u"-32768"_s << -32768;
    QTest::newRow("the greatest") << u"32767"_s << 32767;
    QTest::newRow("rounded down") << u"2.4"_s << 2;
    QTest::newRow("rounded up") << u"2.6"_s << 3;
    QTest::newRow("a half to the even neighbour below") << u"2.5"_s << 2;
    QTest::newRow("a half to the even neighbour above") << u"3.5"_s << 4;
    QTest::newRow("rounded into the range") << u"32767.4"_s << 32767;
}

void tst_RunTimeError::toInteger()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(int(ToInteger(text)), number);
}

void tst_RunTimeError::toIntegerOfNoNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("empty") << u""_s << 13;
    QTest::newRow("a word") << u"abc"_s << 13;
    QTest::newRow("digits, then letters") << u"12a"_s << 13;
    QTest::newRow("two numbers") << u"1 2"_s << 13;
    QTest::newRow("nan") << u"nan"_s << 13;
    QTest::newRow("too great") << u"32768"_s << 6;
    QTest::newRow("too small") << u"-32769"_s << 6;
    QTest::newRow("far too great") << u"1e300"_s << 6;
    QTest::newRow("infinite") << u"inf"_s << 6;
}

void tst_RunTimeError::toIntegerOfNoNumber()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(ErrorOf([&] { ToInteger(text); }), number);
}

HALVANE_TEST(tst_RunTimeError)
#include "tst_RunTimeError.moc"
