#include "support/HalvaneTest.h"
#include "support/Ticks.h"
#include "tables/ColumnShares.h"
#include "tables/ColumnWidths.h"
#include "tables/GridUser.h"

#include <QMenu>

#include <cmath>
#include <limits>
#include <memory>
#include <numeric>

// How wide the columns of a grid are: hundredths of it, until the user wants something else.

namespace {
constexpr int least = 40;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

QList<GridColumn> columnsOf(const QList<double> &percents)
{
    QList<GridColumn> columns;
    for (const double percent : percents)
        columns.append({u"Column "_s + QString::number(columns.size() + 1), percent});
    return columns;
}
} // namespace

class tst_GridColumns : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void shares_data();
    void shares();
    void sharesBesideFixedColumns_data();
    void sharesBesideFixedColumns();

    void hundredthsOfTheGrid();
    void hundredthsThatDoNotFillIt();
    void hundredthsBeyondTheGrid();
    void hundredthsAreNeverTooNarrowToRead();
    void aMessageHasTheWholeWidth();
    void columnsFollowTheWindow();
    void columnsAreSharedWhenTheGridIsSeen();

    void aDraggedColumnIsTheUsers();
    void afterADragNothingFollowsButTheLastColumn();
    void aDragIsRememberedForTheKind();
    void rememberedWidthsAreKeptWhileTheOthersFollow();
    void anotherKindHasItsOwn();
    void aGridWithoutANameRemembersNothing();
    void resetGoesBackToTheHundredths();
    void aDoubleClickFitsTheColumn();
    void anotherTableFollowsAgain();

private:
    void show(const QList<double> &percents)
    {
        user->Show();
        user->Grid->Show(TableOf(columnsOf(percents), {{u"a"_s, u"b"_s}}));
    }
    /// A drag, and the moment in which the last column takes what is left.
    void drag(int column, int pixels)
    {
        user->Drag(column, pixels);
        Ticks(1);
    }

    std::unique_ptr<GridUser> user;
};

void tst_GridColumns::init()
{
    GridUser::ForgetWidths();
    user = std::make_unique<GridUser>();
}

void tst_GridColumns::shares_data()
{
    QTest::addColumn<QList<double>>("percents");
    QTest::addColumn<QList<int>>("pixels"); // of 1000
    using Percents = QList<double>;
    using Pixels = QList<int>;
    QTest::addRow("two") << Percents{20, 80} << Pixels{200, 800};
    QTest::addRow("one") << Percents{100} << Pixels{1000};
    QTest::addRow("none") << Percents{} << Pixels{};
    QTest::addRow("thirds fill the grid") << Percents{33, 33, 33} << Pixels{333, 334, 333};
    QTest::addRow("a little too many") << Percents{35, 35, 34} << Pixels{337, 336, 327};
    QTest::addRow("half a grid") << Percents{10, 40} << Pixels{100, 400};
    QTest::addRow("just too few to fill") << Percents{50, 44} << Pixels{500, 440};
    QTest::addRow("more than a grid") << Percents{60, 60} << Pixels{600, 600};
    QTest::addRow("narrow at the expense of the rest") << Percents{1, 99} << Pixels{40, 960};
    QTest::addRow("two narrow ones") << Percents{1, 2, 97} << Pixels{40, 40, 920};
    QTest::addRow("narrow because others are")
        << Percents{1, 1, 1, 1, 4, 92} << Pixels{40, 40, 40, 40, 40, 800};
    QTest::addRow("zero") << Percents{0, 100} << Pixels{40, 960};
    QTest::addRow("negative") << Percents{-30, 100} << Pixels{40, 960};
    QTest::addRow("no number") << Percents{notANumber, 100} << Pixels{40, 960};
    QTest::addRow("endless") << Percents{std::numeric_limits<double>::infinity(), 10}
                             << Pixels{2000, 100};
    QTest::addRow("absurd") << Percents{2e9, 10} << Pixels{2000, 100};
    QTest::addRow("all zero") << Percents{0, 0} << Pixels{40, 40};
    QTest::addRow("no room for all") << QList<double>(50, 2.0) << QList<int>(50, least);
}

void tst_GridColumns::shares()
{
    QFETCH(const QList<double>, percents);
    QList<ColumnShare> shares;
    for (const double percent : percents)
        shares.append(ColumnShare{percent});
    QTEST(ColumnPixels(shares, 1000, least), "pixels");
}

void tst_GridColumns::sharesBesideFixedColumns_data()
{
    QTest::addColumn<QList<int>>("fixed"); // of columns of 20, 60 and 20 hundredths
    QTest::addColumn<QList<int>>("pixels");
    using Pixels = QList<int>;
    QTest::addRow("none") << Pixels{-1, -1, -1} << Pixels{200, 600, 200};
    QTest::addRow("wider") << Pixels{400, -1, -1} << Pixels{400, 450, 150};
    QTest::addRow("narrower") << Pixels{-1, 200, -1} << Pixels{400, 200, 400};
    QTest::addRow("narrower than the least") << Pixels{10, -1, -1} << Pixels{10, 743, 247};
    QTest::addRow("all") << Pixels{100, 100, 100} << Pixels{100, 100, 100};
    QTest::addRow("no room left") << Pixels{990, -1, -1} << Pixels{990, 40, 40};
    QTest::addRow("more than there is") << Pixels{-1, 1500, -1} << Pixels{40, 1500, 40};
}

void tst_GridColumns::sharesBesideFixedColumns()
{
    QFETCH(const QList<int>, fixed);
    QList<ColumnShare> shares{{20, fixed[0]}, {60, fixed[1]}, {20, fixed[2]}};
    QTEST(ColumnPixels(shares, 1000, least), "pixels");
}

void tst_GridColumns::hundredthsOfTheGrid()
{
    show({20, 50, 30});
    QCOMPARE(user->Widths(), QList<int>({120, 300, 180}));
    QVERIFY(!user->Grid->horizontalScrollBar()->isVisible());
}

void tst_GridColumns::hundredthsThatDoNotFillIt()
{
    show({20, 30});
    QCOMPARE(user->Widths(), QList<int>({120, 180}));
}

void tst_GridColumns::hundredthsBeyondTheGrid()
{
    show({60, 90});
    QCOMPARE(user->Widths(), QList<int>({360, 540}));
    QTRY_VERIFY(user->Grid->horizontalScrollBar()->isVisible());
}

void tst_GridColumns::hundredthsAreNeverTooNarrowToRead()
{
    show({1, 99});
    const QList<int> widths = user->Widths();
    QVERIFY(widths[0] >= user->Grid->fontMetrics().horizontalAdvance(u"0000"_s));
    QCOMPARE(widths[0] + widths[1], 600);
    // Nor does the user make them so.
    drag(0, -200);
    QCOMPARE(user->Widths(), widths);
}

void tst_GridColumns::aMessageHasTheWholeWidth()
{
    user->Show();
    user->Grid->Show(TableOf({{QString(), 100}}, {{u"No Charges Were Found For This Case."_s}}));
    QCOMPARE(user->Widths(), QList<int>{600});
    user->Window.resize(431, 400);
    QTRY_COMPARE(user->Widths(), QList<int>{431});
}

void tst_GridColumns::columnsFollowTheWindow()
{
    show({20, 50, 30});
    for (const int width : {700, 1200, 250, 1001}) {
        user->Window.resize(width, 400);
        QCoreApplication::sendPostedEvents();
        const QList<int> widths = user->Widths();
        QCOMPARE(std::accumulate(widths.begin(), widths.end(), 0), width);
        QVERIFY(std::abs(widths[0] - width * 0.2) <= 1.0);
        QVERIFY(std::abs(widths[1] - width * 0.5) <= 1.0);
    }
}

void tst_GridColumns::columnsAreSharedWhenTheGridIsSeen()
{
    user->Grid->Show(TableOf(columnsOf({20, 80}), {{u"a"_s, u"b"_s}}));
    user->Show();
    QCOMPARE(user->Widths(), QList<int>({120, 480}));
    user->Grid->hide();
    user->Window.resize(800, 400);
    user->Grid->show();
    QTRY_COMPARE(user->Widths(), QList<int>({160, 640}));
}

void tst_GridColumns::aDraggedColumnIsTheUsers()
{
    show({20, 50, 30});
    QVERIFY(!user->Grid->Tools()->Widths()->ChangedByUser());
    drag(0, 60);
    QCOMPARE(user->Widths(), QList<int>({180, 300, 120}));
    QVERIFY(user->Grid->Tools()->Widths()->ChangedByUser());
}

void tst_GridColumns::afterADragNothingFollowsButTheLastColumn()
{
    show({20, 50, 30});
    drag(0, 60);
    user->Window.resize(800, 400);
    QTRY_COMPARE(user->Widths(), QList<int>({180, 300, 320}));
}

void tst_GridColumns::aDragIsRememberedForTheKind()
{
    show({20, 50, 30});
    drag(0, 60);
    GridUser next;
    next.Show();
    next.Grid->Show(TableOf(columnsOf({20, 50, 30}), {{u"a"_s}}));
    // The others share what is left by their own hundredths.
    QCOMPARE(next.Widths(), QList<int>({180, 263, 157}));
}

void tst_GridColumns::rememberedWidthsAreKeptWhileTheOthersFollow()
{
    show({20, 50, 30});
    drag(0, 60);
    GridUser next;
    next.Show();
    next.Grid->Show(TableOf(columnsOf({20, 50, 30}), {{u"a"_s}}));
    next.Window.resize(980, 400);
    QTRY_COMPARE(next.Widths(), QList<int>({180, 500, 300}));
}

void tst_GridColumns::anotherKindHasItsOwn()
{
    show({20, 50, 30});
    drag(0, 60);
    GridUser other({600, 400}, u"GridNames"_s);
    other.Show();
    other.Grid->Show(TableOf(columnsOf({20, 50, 30}), {{u"a"_s}}));
    QCOMPARE(other.Widths(), QList<int>({120, 300, 180}));
}

void tst_GridColumns::aGridWithoutANameRemembersNothing()
{
    user = std::make_unique<GridUser>(QSize(600, 400), QString());
    show({20, 80});
    drag(0, 60);
    QCOMPARE(user->Widths(), QList<int>({180, 420}));
    user->Grid->Show(TableOf(columnsOf({20, 80}), {{u"a"_s}}));
    QCOMPARE(user->Widths(), QList<int>({120, 480}));
}

void tst_GridColumns::resetGoesBackToTheHundredths()
{
    show({20, 50, 30});
    drag(0, 60);
    user->Window.resize(800, 400);
    user->Grid->findChild<QAction *>(u"mnuListResetWidths"_s)->trigger();
    QTRY_COMPARE(user->Widths(), QList<int>({160, 400, 240}));
    user->Window.resize(600, 400);
    QTRY_COMPARE(user->Widths(), QList<int>({120, 300, 180}));
}

void tst_GridColumns::aDoubleClickFitsTheColumn()
{
    user->Show();
    const QString name = u"ANDERSON, CHRISTOPHER JONATHAN"_s;
    user->Grid->Show(TableOf(columnsOf({10, 90}), {{name, u"b"_s}}));
    const int tall = user->Grid->rowHeight(0);
    const QPoint edge = user->Edge(0);
    QWidget *header = user->Grid->horizontalHeader()->viewport();
    QTest::mouseClick(header, Qt::LeftButton, {}, edge);
    QTest::mouseDClick(header, Qt::LeftButton, {}, edge);
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge);
    QVERIFY(user->Widths()[0] >= user->Grid->fontMetrics().horizontalAdvance(name));
    QVERIFY(user->Grid->rowHeight(0) < tall);
    QCOMPARE(user->MisfitInSight(), QString());
}

void tst_GridColumns::anotherTableFollowsAgain()
{
    show({20, 50, 30});
    drag(0, 60);
    user->Grid->Show(TableOf({{u"Other"_s, 40}, {u"Names"_s, 60}}, {{u"a"_s, u"b"_s}}));
    QCOMPARE(user->Widths(), QList<int>({240, 360}));
    user->Window.resize(1000, 400);
    QTRY_COMPARE(user->Widths(), QList<int>({400, 600}));
}

HALVANE_TEST(tst_GridColumns)
#include "tst_GridColumns.moc"
