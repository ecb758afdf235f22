#include "namesearch/SearchOutcomes.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(SearchOutcome)
Q_DECLARE_METATYPE(StatusStyle)

class tst_Outcomes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void row_data();
    void row();
    void text_data();
    void text();
};

void tst_Outcomes::row_data()
{
    QTest::addColumn<SearchOutcome>("outcome");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("status");
    QTest::addColumn<StatusStyle>("statusStyle");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<StatusStyle>("searchStatusStyle");
    QTest::addColumn<QString>("count");
    QTest::addColumn<bool>("swaps");
    QTest::addColumn<bool>("incomplete");
    const QString unchanged = u"unchanged"_s;
    const auto normal = StatusStyle::NormalBold;
    const auto trouble = StatusStyle::TroubleBold;
    const auto asItIs = StatusStyle::Unchanged;
    QTest::newRow("Completed")
        << SearchOutcome::Completed << u"NORMAL EXIT - from ProcessSearchReqeusts."_s
        << u"Search Complete: 7 Cases Retrieved."_s << normal
        << u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s
        << normal << QString() << true << false;
    QTest::newRow("Max names")
        << SearchOutcome::MaxNames << u"NORMAL EXIT - from ProcessSearchReqeusts."_s
        << u"Search Complete: 7 Cases Retrieved."_s << normal
        << u"The Max. Number of Names were retrieved. More cases exist. Please refine search criteria."_s
        << normal << u"Max. Names Found!"_s << true << false;
    QTest::newRow("Max results")
        << SearchOutcome::MaxResults
        << u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts()."_s
        << u"Search Stopped - Max Results Reached: 7 Cases Retrieved."_s << asItIs
        << u"Search Stopped on King Cty. Refine Search and Try Again."_s << asItIs << QString()
        << true << false;
    QTest::newRow("Incomplete")
        << SearchOutcome::Incomplete << u"SEARCH Incomplete from ProcessSearchReqeusts."_s
        << u"Search Incomplete!"_s << trouble
        << u"Search Incomplete. Some Results May Not Have Been Retrieved. Please Retry Search."_s
        << asItIs << unchanged << true << true;
    QTest::newRow("Stopped")
        << SearchOutcome::Stopped
        << u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s
        << u"Search Stopped By User: 7 Cases Retrieved."_s << trouble
        << u"Search Stopped By User. Some results may not have been retrieved."_s << trouble
        << unchanged << false << false;
    QTest::newRow("Connection lost")
        << SearchOutcome::ConnectionLost
        << u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s
        << u"Search Stopped - Court Connection Lost!"_s << trouble
        << u"Search Stopped. Court Connection Lost. Please Close Form and Retry"_s << asItIs
        << unchanged << false << true;
}

void tst_Outcomes::row()
{
    QFETCH(SearchOutcome, outcome);
    const OutcomeRow &actual = OutcomeRowOf(outcome);
    QCOMPARE(actual.outcome, outcome);
    QTEST(actual.log.toString(), "log");
    QTEST(OutcomeText(actual.status, 7, u"King"_s), "status");
    QTEST(actual.statusStyle, "statusStyle");
    QTEST(OutcomeText(actual.searchStatus, 7, u"King"_s), "searchStatus");
    QTEST(actual.searchStatusStyle, "searchStatusStyle");
    QTEST(actual.setsCount ? actual.count.toString() : u"unchanged"_s, "count");
    QTEST(actual.swapsButtons, "swaps");
    QTEST(actual.setsIncomplete, "incomplete");
}

void tst_Outcomes::text_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << u"King"_s << u"3 in King"_s;
    QTest::newRow("none") << QString() << u"3 in "_s;
    QTest::newRow("a county like the mark of the number") << u"%n"_s << u"3 in %n"_s;
    QTest::newRow("a county like its own mark") << u"%c"_s << u"3 in %c"_s;
    QTest::newRow("a county like an argument") << u"%1"_s << u"3 in %1"_s;
}

void tst_Outcomes::text()
{
    QFETCH(QString, county);
    QTEST(OutcomeText(u"%n in %c", 3, county), "shown");
}

HALVANE_TEST(tst_Outcomes)
#include "tst_Outcomes.moc"
