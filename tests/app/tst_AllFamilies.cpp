#include "app/PracticeCourt.h"
#include "app/PracticeUser.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "namesearch/NameResultsWindow.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
/// Who the practice court has whatever its seed.
const QStringList acme{u"click optSearchType_1"_s, u"type txtSearchName_0 Acme Plumbing Inc"_s};
const QStringList federal{u"click optState_2"_s, u"click chkBKcourt_2"_s};
const QStringList discis{u"click optCourtSelection_1"_s};
const QStringList seattle{u"choose cboxCountyList King"_s, u"click cmdClearCourtList"_s,
                          u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s};

QStringList county(const QString &name)
{
    return {u"tick lboxCountyOrProfile "_s + name};
}

QStringList types(const QStringList &words)
{
    QStringList steps;
    for (const QString &word : words)
        steps.append(u"tick lboxCaseTypes "_s + word);
    return steps;
}
} // namespace

/// Every family of courts, from the search form to the last row, against the practice court.
class tst_AllFamilies : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase_data() { PracticeCourts::AddRows(); }
    void initTestCase();
    void init() override;

    void aSearchCompletes_data();
    void aSearchCompletes();
    void anErrorAmongTheRowsLeavesTheRows_data();
    void anErrorAmongTheRowsLeavesTheRows();
    void severalWindowsTakeTheirTurns();
    void aCompulsoryCodeGoesAlong();
    void everyCountyOfTheStateIsAsked();

private:
    PracticeCourts court;
};

void tst_AllFamilies::initTestCase()
{
    QCOMPARE(court.Start(), QString());
}

void tst_AllFamilies::init()
{
    EntryTest::init();
    PointSessionAt(court.Port());
    LoadAppOptions();
    Global.bLoggedIn = false;
}

void tst_AllFamilies::aSearchCompletes_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("numbers");
    QTest::addColumn<QString>("status");
    const QString one = u"Search Complete: 1 Cases Retrieved."_s;
    const QString two = u"Search Complete: 2 Cases Retrieved."_s;
    const QStringList bankrupt{u"99-20077"_s};
    const QStringList civilAndCriminal = types({u"Civil"_s, u"Criminal"_s});
    QTest::newRow("Superior") << smithJohnQ + county(u"King"_s) + civilAndCriminal
                              << QStringList{u"94-1-00042-1"_s, u"98-2-00017-7"_s} << two;
    QTest::newRow("Index") << QStringList{u"click chkUseIndex"_s} + smithJohnQ + county(u"Adams"_s)
                                  + county(u"King"_s) + types({u"Criminal"_s, u"Judgment"_s})
                           << QStringList{u"94-1-00042-1"_s, u"*96-9-00005-9"_s} << two;
    QTest::newRow("Oregon, a county")
        << QStringList{u"click optState_0"_s} + smithJohnQ + county(u"Multnomah"_s)
               + types({u"Civil"_s, u"Domestic"_s})
               + QStringList{u"click optSearchYears_1"_s, u"choose cboxSearchStartYear 1990"_s,
                             u"choose cboxSearchEndYear 2008"_s}
        << QStringList{u"DO99120007"_s, u"CV08060677"_s} << two;
    QTest::newRow("Oregon, statewide, with judgments")
        << QStringList{u"click optState_0"_s, u"click optSearchWhere_2"_s} + smithJohnQ
               + types({u"Civil"_s, u"Small Claims"_s}) + QStringList{u"click optORjgmtsONLY"_s}
        << QStringList{u"SC97030044"_s} << one;
    QTest::newRow("Idaho") << QStringList{u"click optState_3"_s, u"click optSearchWhere_2"_s}
                                  + smithJohnQ + civilAndCriminal
                           << QStringList{u"CR-1998-0002546-IN"_s, u"CV-2004-0000711-OC"_s} << two;
    QTest::newRow("District, civil")
        << discis + smithJohnQ + seattle << QStringList{u"5KS000123"_s} << one;
    QTest::newRow("District, non-civil")
        << discis + QStringList{u"click optDiscisSearch_1"_s} + smithJohnQ + seattle
        << QStringList{u"3YH809020"_s} << u"Search Complete:    1 Case Retrieved."_s;
    QTest::newRow("District, statewide")
        << discis + QStringList{u"click optDiscisSearch_1"_s} + smithJohnQ
               + QStringList{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s}
        << QStringList{u"94-1-00042-1"_s, u"1TA004410"_s, u"3YH809020"_s}
        << u"Search Complete:    3 Cases Retrieved."_s;
    QTest::newRow("District, defendants with addresses")
        << discis + QStringList{u"click optDiscisSearch_1"_s} + smithJohnQ
               + QStringList{u"choose cboxCountyList -- SHOW ADDRESS/DEFS ONLY --"_s}
        << QStringList{u"94-1-00042-1"_s, u"1TA004410"_s, u"3YH809020"_s}
        << u"Search Complete:    3 Cases Retrieved."_s;
    QTest::newRow("Bankruptcy, a person") << federal + smithJohnQ << bankrupt << one;
    QTest::newRow("Bankruptcy, a business") << federal + acme << bankrupt << one;
    QTest::newRow("Bankruptcy, a tax identifier")
        << federal + QStringList{u"click optSearchType_3"_s, u"type txtSearchName_0 00-0000001"_s}
        << bankrupt << one;
    QTest::newRow("Bankruptcy, a social security number")
        << federal + QStringList{u"click optSearchType_4"_s, u"type txtSearchName_0 900-00-0001"_s}
        << bankrupt << one;
}

void tst_AllFamilies::aSearchCompletes()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, numbers);
    QFETCH(QString, status);
    QVERIFY(LogInAs(u"quiet"_s));
    desk->Do(steps);
    auto *window = desk->StartOne<NameResultsWindow>();
    QVERIFY(window);
    window->Timer1->start(1);
    QVERIFY(desk->Desk.Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), status);
    QStringList found;
    for (const QStringList &row : RowsOf(window))
        found.append(row.value(1));
    QCOMPARE(found, numbers);
    QCOMPARE(Keys(), QStringList());
    QVERIFY(!Global.bSearchInProgress);
}

void tst_AllFamilies::anErrorAmongTheRowsLeavesTheRows_data()
{
    QTest::addColumn<QStringList>("steps");
    const QStringList badRow{u"type txtSearchName_0 Badrow"_s};
    QTest::newRow("Superior") << badRow + county(u"King"_s) + types({u"Civil"_s});
    QTest::newRow("Idaho") << QStringList{u"click optState_3"_s, u"click optSearchWhere_2"_s}
                                  + badRow + types({u"Civil"_s});
    QTest::newRow("District, civil") << discis + badRow + seattle;
    QTest::newRow("Bankruptcy") << federal + badRow;
}

void tst_AllFamilies::anErrorAmongTheRowsLeavesTheRows()
{
    QFETCH(QStringList, steps);
    QVERIFY(LogInAs(u"quiet"_s));
    desk->Do(steps);
    auto *window = desk->StartOne<NameResultsWindow>();
    QVERIFY(window);
    window->Timer1->start(1);
    QVERIFY(desk->Desk.Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(RowsOf(window).size(), 6);
}

void tst_AllFamilies::severalWindowsTakeTheirTurns()
{
    QVERIFY(LogInAs(u"quiet"_s));
    desk->Do(QStringList{u"click optState_2"_s, u"click cmdSelBk_0"_s} + smithJohnQ);
    const QList<JobWindow *> windows = desk->Start();
    QCOMPARE(windows.size(), 4);
    for (JobWindow *window : windows)
        window->Timer1->start(1);
    QStringList ends;
    for (JobWindow *window : windows) {
        QVERIFY(desk->Desk.Finish(window));
        ends.append(TextOf(window, "lblStatus"));
    }
    QCOMPARE(ends, (QStringList{u"Search Complete: 0 Cases Retrieved."_s,
                                u"Search Complete: 0 Cases Retrieved."_s,
                                u"Search Complete: 1 Cases Retrieved."_s,
                                u"Search Complete: 0 Cases Retrieved."_s}));
    QCOMPARE(Keys(), QStringList());
}

void tst_AllFamilies::aCompulsoryCodeGoesAlong()
{
    QVERIFY(LogInAs(u"acctg"_s));
    QVERIFY(Global.bClientAcctgOpt);
    desk->Do(smithJohnQ + county(u"King"_s) + types({u"Civil"_s, u"Criminal"_s}));
    desk->ExpectCode(u"abc"_s);
    auto *window = desk->StartOne<NameResultsWindow>();
    QVERIFY(window);
    window->Timer1->start(1);
    QVERIFY(desk->Desk.Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
}

void tst_AllFamilies::everyCountyOfTheStateIsAsked()
{
    QVERIFY(LogInAs(u"quiet"_s));
    desk->Do(smithJohnQ + QStringList{u"click optSearchWhere_2"_s} + types({u"Civil"_s}));
    auto *window = desk->StartOne<NameResultsWindow>();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.ListCount(), 39);
    window->Timer1->start(1);
    QVERIFY(desk->Desk.Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QStringList found;
    for (const QStringList &row : RowsOf(window))
        found.append(row.value(1));
    QCOMPARE(found, (QStringList{u"98-2-00017-7"_s, u"05-2-00031-8"_s}));
}

HALVANE_TEST(tst_AllFamilies)
#include "tst_AllFamilies.moc"
