// What a case is known by.

#include "casedetails/CaseIdentity.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
CaseStart superior(const QString &number, const QString &county = u"King"_s)
{
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCaseNumber = number;
    start.txtCountyName = county;
    return start;
}

CaseStart oregon(const QString &type)
{
    CaseStart start = superior(u"C02-123"_s, u"Baker"_s);
    start.lblState = u"OR"_s;
    start.lblOrCourtType = type;
    return start;
}

CaseStart bankruptcy(const QString &request, const QString &number = u"99-20077"_s)
{
    CaseStart start = superior(number, QString());
    start.lblState = u"ORBK"_s;
    start.TabRequests = {request};
    return start;
}

CaseStart district(CaseKind kind, const QString &code, const QString &type)
{
    CaseStart start(kind);
    start.txtCaseNumber = u"Y00012345"_s;
    start.txtCourtCode = code;
    start.txtCaseType = type;
    return start;
}
} // namespace

class tst_CaseIdentity : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSameCase_data();
    void theSameCase();
    void otherCases_data();
    void otherCases();
    void aCaseWithoutOne_data();
    void aCaseWithoutOne();
};

Q_DECLARE_METATYPE(CaseStart)

void tst_CaseIdentity::theSameCase_data()
{
    QTest::addColumn<CaseStart>("one");
    QTest::addColumn<CaseStart>("other");
    const CaseStart plain = superior(u"02-2-02029-9"_s);
    QTest::newRow("opened before") << plain << superior(u">>02-2-02029-9"_s);
    QTest::newRow("archived") << plain << superior(u">>*02-2-02029-9"_s);
    QTest::newRow("typed with blanks") << plain << superior(u" 02-2-02029-9 "_s);
    QTest::newRow("county in capitals") << plain << superior(u"02-2-02029-9"_s, u"KING"_s);
    QTest::newRow("small letters") << superior(u"cv-02-1"_s) << superior(u"CV-02-1"_s);
    CaseStart paid = plain;
    paid.ClientAcctgCode = u"ACME"_s;
    QTest::newRow("another client code") << plain << paid;
    QTest::newRow("bankruptcy, from a list and by number")
        << bankruptcy(u"RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~OR~"_s)
        << bankruptcy(u"BKRPT~SUMMARY~99-20077~OR~"_s, u"*99-20077"_s);
    QTest::newRow("district, code with blanks") << district(CaseKind::Civil, u"SEA"_s, u"CV"_s)
                                                << district(CaseKind::Civil, u"SEA "_s, u"CV"_s);
}

void tst_CaseIdentity::theSameCase()
{
    QFETCH(const CaseStart, one);
    QFETCH(const CaseStart, other);
    QVERIFY(!CaseIdentity(one).isEmpty());
    QCOMPARE(CaseIdentity(one), CaseIdentity(other));
}

void tst_CaseIdentity::otherCases_data()
{
    QTest::addColumn<CaseStart>("one");
    QTest::addColumn<CaseStart>("other");
    const CaseStart plain = superior(u"02-2-02029-9"_s);
    QTest::newRow("number") << plain << superior(u"02-2-02030-2"_s);
    QTest::newRow("county") << plain << superior(u"02-2-02029-9"_s, u"Pierce"_s);
    CaseStart idaho = plain;
    idaho.lblState = u"ID"_s;
    QTest::newRow("state") << plain << idaho;
    QTest::newRow("Oregon's courts") << oregon(u"C"_s) << oregon(u"D"_s);
    QTest::newRow("bankruptcy cases of one list") << bankruptcy(u"BKRPT~SUMMARY~99-20077~OR~"_s)
                                                  << bankruptcy(u"BKRPT~SUMMARY~01-20077~OR~"_s);
    QTest::newRow("district court") << district(CaseKind::Civil, u"SEA"_s, u"CV"_s)
                                    << district(CaseKind::Civil, u"TAC"_s, u"CV"_s);
    QTest::newRow("case type") << district(CaseKind::NonCivil, u"SEA"_s, u"IN"_s)
                               << district(CaseKind::NonCivil, u"SEA"_s, u"CT"_s);
}

void tst_CaseIdentity::otherCases()
{
    QFETCH(const CaseStart, one);
    QFETCH(const CaseStart, other);
    QVERIFY(CaseIdentity(one) != CaseIdentity(other));
}

void tst_CaseIdentity::aCaseWithoutOne_data()
{
    QTest::addColumn<CaseStart>("start");
    QTest::newRow("nothing") << CaseStart();
    QTest::newRow("no number") << superior(u">>"_s);
    QTest::newRow("no county") << superior(u"02-2-02029-9"_s, u" "_s);
    QTest::newRow("no request") << bankruptcy(QString());
    QTest::newRow("no court code") << district(CaseKind::Civil, QString(), u"CV"_s);
}

void tst_CaseIdentity::aCaseWithoutOne()
{
    QFETCH(const CaseStart, start);
    QCOMPARE(CaseIdentity(start), QString());
}

HALVANE_TEST(tst_CaseIdentity)
#include "tst_CaseIdentity.moc"
