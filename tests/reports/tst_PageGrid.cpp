#include "reports/PageGrid.h"
#include "support/HalvaneTest.h"

using namespace Qt::StringLiterals;

// Where pages stand in a view. Between them and around them are 14 pixels.

namespace {
constexpr Paper square{10000, 10000};
constexpr QSize view(528, 400);

PageGrid grid(int pages, PageArrangement arrangement, PageZoom zoom = PageZoom::FitWidth)
{
    return {square, pages, arrangement, zoom, 0.02, view};
}
} // namespace

class tst_PageGrid : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fitWidth()
    {
        const PageGrid places = grid(3, PageArrangement::OneBelowOther);
        QCOMPARE(places.PlaceOf(0), QRect(14, 14, 500, 500));
        QCOMPARE(places.PlaceOf(2), QRect(14, 14 + 2 * 514, 500, 500));
        QCOMPARE(places.Size(), QSize(528, 14 + 3 * 514));
    }

    void fitPage()
    {
        const PageGrid places = grid(3, PageArrangement::OneBelowOther, PageZoom::FitPage);
        QCOMPARE(places.PlaceOf(0), QRect(78, 14, 372, 372));
    }

    void freeZoom()
    {
        const PageGrid places = grid(3, PageArrangement::OneBelowOther, PageZoom::Free);
        QCOMPARE(places.PlaceOf(1), QRect(164, 228, 200, 200));
    }

    void facingPairs()
    {
        const PageGrid places = grid(4, PageArrangement::FacingPairs);
        const int width = (528 - 3 * 14) / 2;
        QCOMPARE(places.PlaceOf(0), QRect(28 + width, 14, width, width));
        QCOMPARE(places.PlaceOf(1), QRect(14, 28 + width, width, width));
        QCOMPARE(places.PlaceOf(2), QRect(28 + width, 28 + width, width, width));
        QCOMPARE(places.PlaceOf(3).left(), 14);
        QCOMPARE(places.Size().height(), 14 + 3 * (width + 14));
    }

    void allAtOnceAreInSight_data()
    {
        QTest::addColumn<int>("pages");
        QTest::addColumn<int>("width");
        QTest::newRow("one") << 1 << 372;
        QTest::newRow("side by side") << 2 << 243;
        QTest::newRow("two rows of three") << 5 << 157;
        QTest::newRow("three rows of four") << 12 << 114;
    }
    void allAtOnceAreInSight()
    {
        QFETCH(int, pages);
        const PageGrid places = grid(pages, PageArrangement::AllAtOnce);
        for (int page = 0; page < pages; ++page)
            QVERIFY(QRect(QPoint(), view).contains(places.PlaceOf(page)));
        QTEST(places.PlaceOf(0).width(), "width");
    }

    void manyAtOnceAreNotTooSmall()
    {
        const PageGrid places = grid(2000, PageArrangement::AllAtOnce);
        QCOMPARE(places.PlaceOf(0).width(), 90);
        QCOMPARE(places.Columns(), 4);
        QVERIFY(places.Size().height() > view.height());
        QVERIFY(places.Size().width() <= view.width());
    }

    void pagesInSight()
    {
        const PageGrid places = grid(100, PageArrangement::OneBelowOther);
        const PageGrid::Range first = places.PagesBetween(0, 399);
        QCOMPARE(first.First, 0);
        QCOMPARE(first.End, 1);
        const PageGrid::Range later = places.PagesBetween(14 + 40 * 514 - 20, 14 + 40 * 514 + 380);
        QCOMPARE(later.First, 39);
        QCOMPARE(later.End, 41);
        const PageGrid::Range last = places.PagesBetween(14 + 99 * 514, 14 + 100 * 514 + 300);
        QCOMPARE(last.First, 99);
        QCOMPARE(last.End, 100);
    }

    void pairsInSight()
    {
        const PageGrid places = grid(10, PageArrangement::FacingPairs);
        const int pitch = places.PlaceOf(1).top() - places.PlaceOf(0).top();
        QCOMPARE(places.PagesBetween(0, pitch).End, 1);
        QCOMPARE(places.PagesBetween(14 + pitch, 14 + pitch).First, 1);
        QCOMPARE(places.PagesBetween(14 + pitch, 14 + pitch).End, 3);
    }

    void viewWithoutRoom()
    {
        const PageGrid places(square, 3, PageArrangement::FacingPairs, PageZoom::FitPage, 0,
                              {1, 1});
        QVERIFY(places.PlaceOf(2).width() > 0);
    }
};

HALVANE_TEST(tst_PageGrid)
#include "tst_PageGrid.moc"
