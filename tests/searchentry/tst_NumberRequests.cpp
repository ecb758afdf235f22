#include "core/RunTimeError.h"
#include "searchentry/Entries.h"
#include "searchentry/NumberRequests.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
SearchEntry search(CourtFamily court, bool district, const QString &number, const QString &county)
{
    SearchEntry entry;
    entry.Court = court;
    entry.Kind = SearchKind::Number;
    entry.DistrictCourt = district;
    entry.Names[LastName] = number;
    entry.NumberCounty = county;
    return entry;
}
} // namespace

class tst_NumberRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void caseNumberRequest_data();
    void caseNumberRequest();
    void oneNumber_data();
    void oneNumber();
    void aBatch_data();
    void aBatch();
    void emptyRowsOfABatchArePassedOver();
    void tenRowsAreTenCases();
    void anEmptyBatchIsNoCase();
    void bankruptcy_data();
    void bankruptcy();
    void otherCourtsHaveNoSuchSearch_data();
    void otherCourtsHaveNoSuchSearch();
};

void tst_NumberRequests::caseNumberRequest_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("line");
    QTest::newRow("Superior") << u"02-2-02029-9"_s << u"WASUP¦SUMMARY¦02-2-02029-9¦"_s;
    QTest::newRow("Oregon") << u"CV08060677"_s << u"WASUP¦SUMMARY¦CV08060677¦"_s;
    QTest::newRow("Idaho") << u"CR-1998-0002546-IN"_s << u"WASUP¦SUMMARY¦CR-1998-0002546-IN¦"_s;
    QTest::newRow("blanks around") << u"  02-2-02029-9 "_s << u"WASUP¦SUMMARY¦02-2-02029-9¦"_s;
    QTest::newRow("small letters") << u"cv08060677"_s << u"WASUP¦SUMMARY¦CV08060677¦"_s;
    QTest::newRow("bars") << u"02|2¦9"_s << u"WASUP¦SUMMARY¦0229¦"_s;
    QTest::newRow("ten thousand characters")
        << QString(10'000, u'9') << QString(u"WASUP¦SUMMARY¦"_s + QString(10'000, u'9') + u'¦');
}

void tst_NumberRequests::caseNumberRequest()
{
    QFETCH(QString, number);
    QFETCH(QString, line);
    QCOMPARE(CaseNumberRequest(number), line);
}

void tst_NumberRequests::oneNumber_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("district");
    QTest::addColumn<QString>("lblState");
    QTest::addColumn<QString>("lblCourtName");
    QTest::addColumn<QString>("lblOrCourtType");
    const auto add = [](const char *name, CourtFamily court, bool district, const QString &state,
                        const QString &courtName, const QString &courtType) {
        QTest::newRow(name) << static_cast<int>(court) << district << state << courtName
                            << courtType;
    };
    add("Washington", CourtFamily::Superior, false, u"WA"_s,
        u"Lincoln County, Washington Superior Courts"_s, u""_s);
    add("Oregon, Circuit", CourtFamily::Oregon, false, u"OR"_s, u""_s, u"C"_s);
    add("Oregon, District", CourtFamily::Oregon, true, u"OR"_s, u""_s, u"D"_s);
    add("Idaho", CourtFamily::Idaho, false, u"ID"_s, u""_s, u""_s);
    add("Washington has no District choice", CourtFamily::Superior, true, u"WA"_s,
        u"Lincoln County, Washington Superior Courts"_s, u""_s);
}

void tst_NumberRequests::oneNumber()
{
    QFETCH(int, court);
    QFETCH(bool, district);
    QFETCH(QString, lblState);
    QFETCH(QString, lblCourtName);
    QFETCH(QString, lblOrCourtType);
    const CaseStart fields = NumberFields(
        search(static_cast<CourtFamily>(court), district, u" 02-2-02029-9"_s, u"Lincoln"_s));
    QCOMPARE(fields.lblState, lblState);
    QCOMPARE(fields.lblCaseDetailsHdr, u"Case Details (02-2-02029-9)"_s);
    QCOMPARE(fields.Caption, u"Case Details"_s);
    QCOMPARE(fields.txtCountyName, u"Lincoln"_s);
    QCOMPARE(fields.lblCourtName, lblCourtName);
    QCOMPARE(fields.lblOrCourtType, lblOrCourtType);
    QCOMPARE(fields.txtCaseNumber, u"02-2-02029-9"_s);
    QCOMPARE(fields.tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2-02029-9¦"_s);
    QVERIFY(!fields.chkBK);
}

void tst_NumberRequests::aBatch_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("district");
    QTest::addColumn<QString>("lblState");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("lblOrCourtType");
    QTest::addColumn<QString>("lblCourtName");
    const auto add = [](const char *name, CourtFamily court, bool district, const QString &state,
                        const QString &line, const QString &courtType, const QString &courtName) {
        QTest::newRow(name) << static_cast<int>(court) << district << state << line << courtType
                            << courtName;
    };
    add("Washington", CourtFamily::Superior, false, u"WA"_s, u"WASUP¦SUMMARY¦CV1¦"_s, u""_s,
        u"Lincoln County, Washington Superior Courts"_s);
    add("Oregon, Circuit", CourtFamily::Oregon, false, u"OR"_s, u""_s, u"C"_s,
        u"Lincoln County, Oregon Circuit Courts"_s);
    add("Oregon, District", CourtFamily::Oregon, true, u"OR"_s, u""_s, u"D"_s,
        u"Lincoln County, Oregon District Courts"_s);
    add("Idaho", CourtFamily::Idaho, false, u"ID"_s, u""_s, u""_s,
        u"Lincoln County, Idaho District Courts"_s);
}

void tst_NumberRequests::aBatch()
{
    QFETCH(int, court);
    QFETCH(bool, district);
    QFETCH(QString, lblState);
    QFETCH(QString, line);
    QFETCH(QString, lblOrCourtType);
    QFETCH(QString, lblCourtName);
    SearchEntry entry = search(static_cast<CourtFamily>(court), district, u"OTHER"_s, u"Other"_s);
    entry.Batch[0] = {u" cv1 "_s, u"Lincoln"_s};
    const QList<CaseStart> cases = BatchFields(entry);
    QCOMPARE(cases.size(), 1);
    QCOMPARE(cases[0].lblState, lblState);
    QCOMPARE(cases[0].lblCaseDetailsHdr, u"Case Details (CV1)"_s);
    QCOMPARE(cases[0].tboxCaseNumberQueue, line);
    QCOMPARE(cases[0].lblOrCourtType, lblOrCourtType);
    QCOMPARE(cases[0].lblCourtName, lblCourtName);
    QCOMPARE(cases[0].txtCaseNumber, u"CV1"_s);
    QCOMPARE(cases[0].txtCountyName, u"Lincoln"_s);
    QVERIFY(!cases[0].chkBK);
}

void tst_NumberRequests::emptyRowsOfABatchArePassedOver()
{
    SearchEntry entry = search(CourtFamily::Superior, false, {}, {});
    entry.Batch[1] = {u"ONE"_s, u"Adams"_s};
    entry.Batch[2] = {u"  "_s, u"Asotin"_s};
    entry.Batch[9] = {u"TWO"_s, u"Yakima"_s};
    const QList<CaseStart> cases = BatchFields(entry);
    QCOMPARE(cases.size(), 2);
    QCOMPARE(cases[0].txtCaseNumber, u"ONE"_s);
    QCOMPARE(cases[0].txtCountyName, u"Adams"_s);
    QCOMPARE(cases[1].txtCaseNumber, u"TWO"_s);
    QCOMPARE(cases[1].txtCountyName, u"Yakima"_s);
}

void tst_NumberRequests::tenRowsAreTenCases()
{
    SearchEntry entry = search(CourtFamily::Idaho, false, {}, {});
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        entry.Batch[i] = {QString::number(i), u"Ada"_s};
    const QList<CaseStart> cases = BatchFields(entry);
    QCOMPARE(cases.size(), 10);
    for (int i = 0; i < 10; ++i)
        QCOMPARE(cases[i].txtCaseNumber, QString::number(i));
}

void tst_NumberRequests::anEmptyBatchIsNoCase()
{
    for (const CourtFamily court : {CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho})
        QVERIFY(BatchFields(search(court, false, u"02-2-02029-9"_s, u"King"_s)).isEmpty());
}

void tst_NumberRequests::bankruptcy_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("lblState");
    QTest::addColumn<QString>("lblCourtName");
    QTest::newRow("0") << 0 << u"WAWBK"_s << u"Washington Bankruptcy Courts (Western)"_s;
    QTest::newRow("1") << 1 << u"WAEBK"_s << u"Washington Bankruptcy Courts (Eastern)"_s;
    QTest::newRow("2") << 2 << u"ORBK"_s << u"Oregon Bankruptcy Courts (Statewide)"_s;
    QTest::newRow("3") << 3 << u"IDBK"_s << u"Idaho Bankruptcy Courts (Statewide)"_s;
}

void tst_NumberRequests::bankruptcy()
{
    QFETCH(int, court);
    QFETCH(QString, lblState);
    QFETCH(QString, lblCourtName);
    const CaseStart fields =
        BkNumberFields(search(CourtFamily::Bankruptcy, false, u"99-20077"_s, {}), court);
    QCOMPARE(fields.lblState, lblState);
    QCOMPARE(fields.lblCaseDetailsHdr, u"Case Details (99-20077)"_s);
    QCOMPARE(fields.Caption, QString(u"99-20077 / "_s + lblCourtName));
    QCOMPARE(fields.lblCourtName, lblCourtName);
    QCOMPARE(fields.txtCaseNumber, u"99-20077"_s);
    QCOMPARE(fields.tboxCaseNumberQueue, QString());
    QVERIFY(fields.chkBK);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, BkNumberFields({}, 4));
}

void tst_NumberRequests::otherCourtsHaveNoSuchSearch_data()
{
    QTest::addColumn<int>("court");
    QTest::newRow("District") << static_cast<int>(CourtFamily::Discis);
    QTest::newRow("bankruptcy") << static_cast<int>(CourtFamily::Bankruptcy);
}

void tst_NumberRequests::otherCourtsHaveNoSuchSearch()
{
    QFETCH(int, court);
    SearchEntry entry = search(static_cast<CourtFamily>(court), false, u"1"_s, u"King"_s);
    entry.Batch[0] = {u"1"_s, u"King"_s};
    int number = 0;
    try {
        NumberFields(entry);
    } catch (const RunTimeError &error) {
        number = error.Number();
    }
    QCOMPARE(number, 9);
    QVERIFY(BatchFields(entry).isEmpty());
}

HALVANE_TEST(tst_NumberRequests)
#include "tst_NumberRequests.moc"
