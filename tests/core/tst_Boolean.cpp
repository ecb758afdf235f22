#include "core/Boolean.h"
#include "support/HalvaneTest.h"

#include <QTest>

class tst_Boolean : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void trueIsStoredAsMinusOne();
    void falseIsStoredAsZeroAndIsTheDefault();
    void comparesWithMinusOneAndWithZero();
    void comparesWithTruth();
    void twoOfThemCompare();
    void takesUpATruthValue();
};

void tst_Boolean::trueIsStoredAsMinusOne()
{
    QCOMPARE(int(Boolean(true).Stored()), -1);
    QCOMPARE(sizeof(Boolean), sizeof(qint16));
}

void tst_Boolean::falseIsStoredAsZeroAndIsTheDefault()
{
    QCOMPARE(int(Boolean().Stored()), 0);
    QCOMPARE(int(Boolean(false).Stored()), 0);
}

void tst_Boolean::comparesWithMinusOneAndWithZero()
{
    QVERIFY(Boolean(true) == -1);
    QVERIFY(!(Boolean(true) == 1));
    QVERIFY(Boolean(true) != 0);
    QVERIFY(Boolean(false) == 0);
    QVERIFY(Boolean(false) != -1);
}

void tst_Boolean::comparesWithTruth()
{
    const Boolean yes(true);
    const Boolean no(false);
    QVERIFY(yes == true);
    QVERIFY(no == false);
    QVERIFY(yes != false);
    QVERIFY(yes);
    QVERIFY(!no);
}

void tst_Boolean::twoOfThemCompare()
{
    QVERIFY(Boolean(true) == Boolean(true));
    QVERIFY(Boolean(false) == Boolean(false));
    QVERIFY(Boolean(true) != Boolean(false));
}

void tst_Boolean::takesUpATruthValue()
{
    Boolean flag;
    flag = 3 > 2;
    QCOMPARE(int(flag.Stored()), -1);
    flag = false;
    QCOMPARE(int(flag.Stored()), 0);
    QCOMPARE(flag ? 1 : 2, 2);
}

HALVANE_TEST(tst_Boolean)
#include "tst_Boolean.moc"
