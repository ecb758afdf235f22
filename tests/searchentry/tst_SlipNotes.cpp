#include "searchentry/EntryDesk.h"
#include "searchentry/Slips.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QTest>

/// What is hardly meant is said on the form, and goes all the same.
class tst_SlipNotes : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void yearsInTheWrongOrder_data();
    void yearsInTheWrongOrder();
    void aDistrictNumberWithoutOneCourt();
    void theSameSearchTwice();
    void theSameBatchTwice();
    void anotherSearchOrALaterOne();
    void whatIsNotAskedForIsNotSpokenOf();

private:
    /// What the form says, once it has looked.
    QString note()
    {
        Ticks(2);
        return desk->Text("lblSlip");
    }
};

void tst_SlipNotes::yearsInTheWrongOrder_data()
{
    QTest::addColumn<QStringList>("court");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("state courts") << smithJohnQ
                                         + QStringList{u"tick lboxCountyOrProfile King"_s,
                                                       u"tick lboxCaseTypes Civil"_s}
                                  << QString();
    QTest::newRow("bankruptcy courts")
        << QStringList{u"click optState_2"_s} + smithJohnQ + QStringList{u"click chkBKcourt_0"_s}
        << u"1"_s;
}

void tst_SlipNotes::yearsInTheWrongOrder()
{
    QFETCH(const QStringList, court);
    QFETCH(const QString, suffix);
    desk->Do(court + QStringList{u"click optSearchYears"_s + suffix + u"_1"_s});
    QCOMPARE(note(), QString());
    desk->Do({u"choose cboxSearchStartYear"_s + suffix + u" 2010"_s,
              u"choose cboxSearchEndYear"_s + suffix + u" 2005"_s});
    QCOMPARE(note(), u"The years run backwards: from 2010 to 2005."_s);
    QCOMPARE(desk->Start().size(), 1);
    desk->Do({u"choose cboxSearchEndYear"_s + suffix + u" 2010"_s});
    QCOMPARE(note(), QString());
    desk->Do({u"choose cboxSearchEndYear"_s + suffix + u" 2005"_s});
    QVERIFY(!note().isEmpty());
    // All years are asked for then.
    desk->Do({u"click optSearchYears"_s + suffix + u"_0"_s});
    QCOMPARE(note(), QString());
}

void tst_SlipNotes::aDistrictNumberWithoutOneCourt()
{
    desk->Do({u"click optCourtSelection_1"_s, u"click optSearchType_2"_s,
              u"choose cboxCountyList King"_s});
    QCOMPARE(note(), QString());
    desk->Do({u"type txtSearchName_0 3YH809020"_s});
    QCOMPARE(note(), u"Select the one court whose number this is."_s);
    desk->Do({u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s});
    QCOMPARE(note(), QString());
    desk->Do({u"click cmdSelectAllCourts"_s});
    QVERIFY2(note().startsWith(u"A number is one court's: of the "), qPrintable(note()));
    desk->Do({u"click cmdClearForm"_s});
    QCOMPARE(note(), QString());
}

void tst_SlipNotes::theSameSearchTwice()
{
    desk->Do(smithJohnQ
             + QStringList{u"tick lboxCountyOrProfile King"_s, u"tick lboxCaseTypes Civil"_s});
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(note(), QString());
    desk->Desk.Time.Advance(3);
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(note(), u"The same search was started a moment ago. It has been started again."_s);
    desk->Do({u"type txtSearchName_0 Jones"_s});
    QCOMPARE(note(), QString());
}

void tst_SlipNotes::theSameBatchTwice()
{
    desk->Do({u"click optSearchType_2"_s, u"click chkBulkSearch"_s, u"type Text1_0 052020291"_s,
              u"choose cbCty1_0 King"_s});
    const auto retrieve = [this] {
        return desk->NewWindows([this] { desk->Do({u"click cmdBatchSearch_4"_s}); }).size();
    };
    QCOMPARE(retrieve(), 1);
    QCOMPARE(note(), QString());
    QCOMPARE(retrieve(), 1);
    QVERIFY(note().startsWith(u"The same search"));
}

void tst_SlipNotes::anotherSearchOrALaterOne()
{
    const QDateTime now({2026, 3, 10}, {10, 0, 0});
    SearchEntry smith;
    smith.Names[LastName] = u"SMITH"_s;
    SearchEntry jones = smith;
    jones.Names[LastName] = u"JONES"_s;
    RepeatedStart starts;
    QCOMPARE(starts.Note(smith, now), QString());
    QVERIFY(!starts.Note(smith, now.addSecs(9)).isEmpty());
    QCOMPARE(starts.Note(smith, now.addSecs(19)), QString());
    QCOMPARE(starts.Note(jones, now.addSecs(20)), QString());
    QCOMPARE(starts.Note(smith, now.addSecs(21)), QString());
    // A clock that was put back says nothing.
    QCOMPARE(starts.Note(smith, now), QString());
}

void tst_SlipNotes::whatIsNotAskedForIsNotSpokenOf()
{
    SearchEntry entry;
    entry.FromYear = u"2010"_s;
    entry.ToYear = u"2005"_s;
    QCOMPARE(SlipIn(entry, true), QString());
    entry.YearRange = true;
    QVERIFY(!SlipIn(entry, true).isEmpty());
    QCOMPARE(SlipIn(entry, false), QString());
    entry.Kind = SearchKind::Number;
    entry.Names[LastName] = u"1"_s;
    QCOMPARE(SlipIn(entry, false), QString());
}

HALVANE_TEST(tst_SlipNotes)
#include "tst_SlipNotes.moc"
