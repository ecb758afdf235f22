// A column of no width: it holds what the user is not to see.

#include "controls/SaveDialog.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "tables/ColumnWidths.h"
#include "tables/GridUser.h"
#include "tables/RowFilter.h"

#include <QClipboard>
#include <QScopeGuard>

#include <memory>

namespace {
constexpr int taller = 3; ///< a row of several lines is so many times as high as its text

GridTable tableOf(const QList<double> &percents)
{
    GridTable table{{}, {{u"ADAMS"_s, u"secret"_s, u"Filed"_s}, {u"BAKER"_s, u"x"_s, u"Heard"_s}}};
    for (const double percent : percents)
        table.Columns.append({u"Column "_s + QString::number(table.Columns.size() + 1), percent});
    return table;
}
} // namespace

class tst_HiddenColumns : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void aWidthOfZeroHidesTheColumn_data();
    void aWidthOfZeroHidesTheColumn();
    void theOthersFollowTheWindow();
    void theLastColumnInSightTakesTheRest();
    void theNextTableHasItsOwn();
    void allColumnsShowWhenAllWidthsAreZero();
    void itIsNotCopied();
    void itIsNotExported();
    void nothingIsFoundInIt();
    void theWordsOfOneTableAreSoughtInTheNext();
    void itsTextMakesNoRowHigher();
    void theKeyboardPassesItBy();
    void aWidthOfTheUsersDoesNotBringItBack();
    void resetDoesNotBringItBack();

private:
    void show(const QList<double> &percents)
    {
        user->Show();
        user->Grid->Show(tableOf(percents));
    }
    QList<bool> seen() const
    {
        QList<bool> columns;
        for (int column = 0; column < user->Grid->Cols(); ++column)
            columns.append(!user->Grid->isColumnHidden(column));
        return columns;
    }
    QAction *action(const QString &name) const { return user->Grid->findChild<QAction *>(name); }

    std::unique_ptr<GridUser> user;
};

void tst_HiddenColumns::init()
{
    GridUser::ForgetWidths();
    user = std::make_unique<GridUser>();
}

void tst_HiddenColumns::aWidthOfZeroHidesTheColumn_data()
{
    QTest::addColumn<QList<double>>("percents");
    QTest::addColumn<QList<int>>("pixels");
    using Percents = QList<double>;
    using Pixels = QList<int>;
    QTest::addRow("in the middle") << Percents{20, 0, 80} << Pixels{120, 0, 480};
    QTest::addRow("the first") << Percents{0, 25, 75} << Pixels{0, 150, 450};
    QTest::addRow("the last") << Percents{20, 80, 0} << Pixels{120, 480, 0};
    QTest::addRow("all but one") << Percents{0, 100, 0} << Pixels{0, 600, 0};
    QTest::addRow("beside columns that do not fill the grid")
        << Percents{20, 0, 30} << Pixels{120, 0, 180};
}

void tst_HiddenColumns::aWidthOfZeroHidesTheColumn()
{
    QFETCH(const QList<double>, percents);
    show(percents);
    QTEST(user->Widths(), "pixels");
    for (int column = 0; column < percents.size(); ++column)
        QCOMPARE(seen()[column], percents[column] > 0.0);
    // The cells are there for whoever asks by their place.
    QCOMPARE(user->Grid->Cell(1, 1), u"secret"_s);
}

void tst_HiddenColumns::theOthersFollowTheWindow()
{
    show({20, 0, 80});
    user->Window.resize(1000, 400);
    QTRY_COMPARE(user->Widths(), QList<int>({200, 0, 800}));
}

void tst_HiddenColumns::theLastColumnInSightTakesTheRest()
{
    show({20, 80, 0});
    user->Drag(0, 60);
    QTRY_COMPARE(user->Widths(), QList<int>({180, 420, 0}));
    user->Window.resize(800, 400);
    QTRY_COMPARE(user->Widths(), QList<int>({180, 620, 0}));
    // It has no width of the user's: in the next grid it takes the rest again.
    GridUser next;
    next.Show();
    next.Grid->Show(tableOf({20, 80, 0}));
    QCOMPARE(next.Widths(), QList<int>({180, 420, 0}));
}

void tst_HiddenColumns::theNextTableHasItsOwn()
{
    show({20, 0, 80});
    user->Grid->Show(tableOf({20, 30, 50}));
    QCOMPARE(user->Widths(), QList<int>({120, 180, 300}));
    user->Grid->Show(tableOf({0, 50, 50}));
    QCOMPARE(user->Widths(), QList<int>({0, 300, 300}));
    user->Grid->Show(TableOf({{QString(), 100}}, {{u"No Charges Were Found For This Case."_s}}));
    QCOMPARE(user->Widths(), QList<int>{600});
}

void tst_HiddenColumns::allColumnsShowWhenAllWidthsAreZero()
{
    show({0, 0, 0});
    QCOMPARE(user->Widths(), QList<int>({200, 200, 200}));
}

void tst_HiddenColumns::itIsNotCopied()
{
    show({20, 0, 80});
    user->Click(0);
    QTest::keySequence(user->Grid, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"ADAMS\tFiled"_s);
    user->Grid->Tools()->Copy(true);
    QCOMPARE(QApplication::clipboard()->text().section(u'\r', 0, 0).section(u'\n', 0, 0),
             u"Column 1\tColumn 3"_s);
}

void tst_HiddenColumns::itIsNotExported()
{
    const TestFolder folder;
    const QString path = folder.Path(u"out.csv"_s);
    const auto standard = qScopeGuard([] { ReplaceSaveDialog({}); });
    ReplaceSaveDialog([path](const QString &) { return path; });
    show({20, 0, 80});
    user->Grid->Tools()->ExportCsv();
    QCOMPARE(QString::fromUtf8(folder.Read(u"out.csv"_s)).remove(u'\uFEFF'),
             u"Column 1,Column 3\r\nADAMS,Filed\r\nBAKER,Heard\r\n"_s);
}

void tst_HiddenColumns::nothingIsFoundInIt()
{
    show({20, 0, 80});
    user->Grid->Tools()->Filter()->SetText(u"secret"_s);
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 0);
    user->Grid->Tools()->Filter()->SetText(u"adams filed"_s);
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 1);
}

/// A tab that is fetched again while the bar of words is open, and twice while another is looked
/// at.
void tst_HiddenColumns::theWordsOfOneTableAreSoughtInTheNext()
{
    show({20, 20, 60});
    user->Grid->Tools()->Filter()->SetText(u"secret"_s);
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 1);
    user->Grid->Show(tableOf({20, 0, 80}));
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 0);
    user->Grid->Show(tableOf({20, 20, 60}));
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 1);
    user->Grid->hide();
    user->Grid->Show(tableOf({20, 0, 80}));
    user->Grid->Show(tableOf({20, 20, 60}));
    user->Grid->show();
    QCOMPARE(user->Grid->Tools()->Filter()->Shown(), 1);
}

void tst_HiddenColumns::itsTextMakesNoRowHigher()
{
    user->Show();
    GridTable table = tableOf({20, 0, 80});
    table.Rows[0][1] = u"word after word "_s.repeated(100);
    user->Grid->Show(table);
    QTRY_VERIFY(user->AllMeasured());
    QVERIFY(user->Grid->rowHeight(0) < taller * user->Grid->fontMetrics().height());
    QCOMPARE(user->Grid->rowHeight(0), user->Grid->rowHeight(1));
    // Nor while it is not measured yet.
    QVERIFY(user->Grid->verticalHeader()->defaultSectionSize()
            < taller * user->Grid->fontMetrics().height());
}

void tst_HiddenColumns::theKeyboardPassesItBy()
{
    show({0, 20, 80});
    user->Click(0);
    QTest::keyClick(user->Grid, Qt::Key_Home);
    QVERIFY(!user->Grid->isColumnHidden(user->Grid->currentIndex().column()));
    QTest::keyClick(user->Grid, Qt::Key_Left);
    QVERIFY(!user->Grid->isColumnHidden(user->Grid->currentIndex().column()));
}

void tst_HiddenColumns::aWidthOfTheUsersDoesNotBringItBack()
{
    show({20, 30, 50});
    user->Drag(1, 60);
    QVERIFY(user->Grid->Tools()->Widths()->ChangedByUser());
    GridUser next;
    next.Show();
    next.Grid->Show(tableOf({20, 0, 80}));
    QVERIFY(next.Grid->isColumnHidden(1));
    QCOMPARE(next.Widths(), QList<int>({120, 0, 480}));
    QTRY_COMPARE(next.Widths(), QList<int>({120, 0, 480}));
    // The width is still the user's where the column is seen.
    next.Grid->Show(tableOf({20, 30, 50}));
    QCOMPARE(next.Widths()[1], 240);
}

void tst_HiddenColumns::resetDoesNotBringItBack()
{
    show({20, 0, 80});
    user->Drag(0, 60);
    QTRY_COMPARE(user->Widths(), QList<int>({180, 0, 420}));
    action(u"mnuListResetWidths"_s)->trigger();
    QTRY_COMPARE(user->Widths(), QList<int>({120, 0, 480}));
    QVERIFY(user->Grid->isColumnHidden(1));
}

HALVANE_TEST(tst_HiddenColumns)
#include "tst_HiddenColumns.moc"
