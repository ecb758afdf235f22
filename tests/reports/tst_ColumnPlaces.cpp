#include "reports/ColumnPlaces.h"
#include "reports/PageLayout.h"
#include "support/HalvaneTest.h"

#include <QTest>

// Where the columns of a table stand on paper.

class tst_ColumnPlaces : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void yieldingColumnTakesWhatIsLeft();
    void yieldingColumnHasAFloor();
    void columnsWithoutAYieldingOneShrink();
    void columnsThatFitStayAsTheyAre();
    void sharesFollowThePaper();
    void sharesOfPaperThatIsTooNarrow();
};

void tst_ColumnPlaces::yieldingColumnTakesWhatIsLeft()
{
    const QList<ColumnPlace> places = PlaceColumns({{.Width = 4000, .Gap = 50},
                                                    {.Width = 9000, .Gap = 50, .Yields = true},
                                                    {.Width = 4000, .Gap = 50}},
                                                   Paper().PrintableWidth());
    QCOMPARE(places[1].Left, 4050.0);
    QCOMPARE(places[1].Width, 2700.0);
    QCOMPARE(places[1].WrapAt, 2620.0);
    QCOMPARE(places[2].WrapAt, 4000.0);
    QCOMPARE(places[2].Left, 6800.0);
    QCOMPARE(places[2].Right(), 10800.0);
}

void tst_ColumnPlaces::yieldingColumnHasAFloor()
{
    const QList<ColumnPlace> places =
        PlaceColumns({{.Width = 9400}, {.Width = 5000, .Yields = true}, {.Width = 9400}}, 10800);
    QCOMPARE(places[0].Width, 4700.0);
    QCOMPARE(places[1].Width, 1400.0);
    QCOMPARE(places[2].Right(), 10800.0);
    // What is less than that already stays as it is.
    QCOMPARE(PlaceColumns({{.Width = 10400}, {.Width = 800, .Yields = true}}, 10800)[1].Width,
             800.0);
}

void tst_ColumnPlaces::columnsWithoutAYieldingOneShrink()
{
    const QList<ColumnPlace> places =
        PlaceColumns({{.Width = 10000, .Gap = 1600}, {.Width = 10000, .Gap = 1600}}, 10800);
    QCOMPARE(places[0].Width, 5000.0);
    QCOMPARE(places[1].Left, 5800.0);
    QCOMPARE(places[1].Right(), 10800.0);
}

void tst_ColumnPlaces::columnsThatFitStayAsTheyAre()
{
    const QList<ColumnPlace> places = PlaceColumns(
        {{.Width = 5000, .Gap = 800}, {.Width = 5000, .Gap = 800, .Yields = true}}, 10800);
    QCOMPARE(places[0].Width, 5000.0);
    QCOMPARE(places[1].Width, 5000.0);
}

void tst_ColumnPlaces::sharesFollowThePaper()
{
    const QList<ColumnFormat> formats{{.Width = 2000, .Gap = 400, .Share = 0.2},
                                      {.Width = 8000, .Gap = 400, .Share = 0.8}};
    const auto widthsOn = [&formats](int printable) {
        const QList<ColumnPlace> places = PlaceColumns(formats, printable);
        return QList<double>{places[0].Width, places[1].Left, places[1].Width};
    };
    QCOMPARE(widthsOn(10800), (QList<double>{2000, 2400, 8000}));
    QCOMPARE(widthsOn(14400), (QList<double>{2720, 3120, 10880}));
    QCOMPARE(widthsOn(5800), (QList<double>{1000, 1400, 4000}));
}

void tst_ColumnPlaces::sharesOfPaperThatIsTooNarrow()
{
    const QList<ColumnPlace> places = PlaceColumns(
        {{.Width = 500, .Gap = 500, .Share = 0.5}, {.Width = 500, .Gap = 500, .Share = 0.5}}, 900);
    QCOMPARE(places[0].Width, 300.0);
    QCOMPARE(places[1].Right(), 900.0);
}

HALVANE_TEST(tst_ColumnPlaces)
#include "tst_ColumnPlaces.moc"
