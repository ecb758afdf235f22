#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"
#include "tables/ListUser.h"
#include "tables/RowFilter.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QToolButton>

#include <memory>

// Find in the rows of a list.

namespace {
/// Three rows that can be put in the opposite order, without a word about which row went where.
class TurningModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex &) const override { return static_cast<int>(names.size()); }
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(names[index.row()]) : QVariant();
    }
    void Turn()
    {
        Q_EMIT layoutAboutToBeChanged();
        std::reverse(names.begin(), names.end());
        Q_EMIT layoutChanged();
    }

private:
    QStringList names{u"smith"_s, u"jones"_s, u"brown"_s};
};

/// Counts how often a row is read while the header could paint.
class WatchfulModel : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        ++(header->updatesEnabled() ? paintingReads : quietReads);
        return QStringListModel::data(index, role);
    }

    const QHeaderView *header = nullptr;
    mutable int paintingReads = 0;
    mutable int quietReads = 0;
};
} // namespace

class tst_FindBar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void theKeyOpensItBelowTheList();
    void theKeyIsHeardFromTheListsNeighbours();
    void openingAgainMarksTheText();
    void typingShowsTheRowsThatMatch();
    void words_data();
    void words();
    void columnsThatCannotBeSeenDoNotMatch();
    void escapeInTheFieldShowsAll();
    void escapeInTheListShowsAll();
    void escapeWithoutTheBarIsNotTaken();
    void theCloseButtonShowsAll();
    void returnGoesToTheFirstRowShown();
    void downGoesToTheList();
    void arrowsPassOverHiddenRows();
    void rowsThatStreamInAreSifted();
    void aChangedCellIsLookedAtAgain();
    void rowNumbersStayTheEngines();
    void aSortedModelKeepsTheRightRowsHidden();
    void aModelThatMovesItsRowsSilently();
    void aModelThatBeginsAnew();
    void noHeaderPaintsWhileRowsAreHidden();
    void aClearedModel();
    void hiddenRowsAreNoLongerSelected();
    void theCurrentRowStaysWhenItIsShown();
    void tableInAGrid();
    void tableThatStandsFree();
    void twoTablesInOnePlace();
    void theBarGoesWithItsTable();
    void theCountIsAnnouncedToScreenReaders();
    void hundredThousandRows();

private:
    std::unique_ptr<ListUser> user;
};

void tst_FindBar::init()
{
    user = std::make_unique<ListUser>();
    user->Show();
    user->Fill({u"SMITH, JOHN"_s, u"SMYTHE, JOAN"_s, u"Smith & Sons"_s, u"JONES, MARY"_s});
    user->List->setFocus();
}

void tst_FindBar::theKeyOpensItBelowTheList()
{
    QVERIFY(!user->Bar()->isVisible());
    user->Find({});
    QVERIFY(user->Bar()->isVisible());
    QVERIFY(user->Field()->hasFocus());
    QCOMPARE(user->Count(), u"4 of 4 shown"_s);
    QTRY_VERIFY(user->Bar()->geometry().top() > user->List->geometry().bottom());
    QVERIFY(user->Bar()->geometry().bottom() < user->Other->geometry().top());
}

void tst_FindBar::theKeyIsHeardFromTheListsNeighbours()
{
    user->Other->setFocus();
    user->Find(u"jones"_s);
    QCOMPARE(user->Other->text(), QString());
    QCOMPARE(user->InSight(), QStringList{u"JONES, MARY"_s});
}

void tst_FindBar::openingAgainMarksTheText()
{
    user->Find(u"jones"_s);
    user->Find(u"smith"_s);
    QCOMPARE(user->Field()->text(), u"smith"_s);
    QCOMPARE(user->Count(), u"2 of 4 shown"_s);
}

void tst_FindBar::typingShowsTheRowsThatMatch()
{
    user->Find(u"s"_s);
    QCOMPARE(user->Count(), u"4 of 4 shown"_s);
    QTest::keyClicks(user->Field(), u"m"_s);
    QCOMPARE(user->Count(), u"3 of 4 shown"_s);
    QTest::keyClicks(user->Field(), u"ith"_s);
    QCOMPARE(user->Count(), u"2 of 4 shown"_s);
    QCOMPARE(user->InSight(), QStringList({u"SMITH, JOHN"_s, u"Smith & Sons"_s}));
    QTest::keyClick(user->Field(), Qt::Key_Backspace);
    QTest::keyClick(user->Field(), Qt::Key_Backspace);
    QTest::keyClick(user->Field(), Qt::Key_Backspace);
    QCOMPARE(user->Count(), u"3 of 4 shown"_s);
}

void tst_FindBar::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rows");
    QTest::newRow("capital or small") << u"sMiTh"_s << u"0 2"_s;
    QTest::newRow("part of a word") << u"mit"_s << u"0 2"_s;
    QTest::newRow("in any order") << u"john smith"_s << u"0"_s;
    QTest::newRow("in different columns") << u"02-2-3 sons"_s << u"2"_s;
    QTest::newRow("each word must be there") << u"john sons"_s << QString();
    QTest::newRow("no pattern") << u".*"_s << QString();
    QTest::newRow("signs") << u"&"_s << u"2"_s;
    QTest::newRow("blanks around") << u"  jones  "_s << u"3"_s;
    QTest::newRow("blanks only") << u"   "_s << u"0 1 2 3"_s;
}

void tst_FindBar::words()
{
    QFETCH(QString, text);
    user->Find(text);
    QStringList shown;
    for (int row = 0; row < 4; ++row) {
        if (!user->List->isRowHidden(row))
            shown.append(QString::number(row));
    }
    QTEST(shown.join(u' '), "rows");
}

void tst_FindBar::columnsThatCannotBeSeenDoNotMatch()
{
    user->Find(u"secret"_s);
    QCOMPARE(user->Count(), u"0 of 4 shown"_s);
}

void tst_FindBar::escapeInTheFieldShowsAll()
{
    user->Find(u"jones"_s);
    QTest::keyClick(user->Field(), Qt::Key_Escape);
    QVERIFY(!user->Bar()->isVisible());
    QCOMPARE(user->InSight().size(), 4);
    QVERIFY(user->List->hasFocus());
    user->Find({});
    QCOMPARE(user->Field()->text(), QString());
}

void tst_FindBar::escapeInTheListShowsAll()
{
    user->Find(u"jones"_s);
    user->List->setFocus();
    QTest::keyClick(user->List, Qt::Key_Escape);
    QVERIFY(!user->Bar()->isVisible());
    QCOMPARE(user->InSight().size(), 4);
}

void tst_FindBar::escapeWithoutTheBarIsNotTaken()
{
    QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    key.ignore();
    QCoreApplication::sendEvent(user->List, &key);
    QVERIFY(!key.isAccepted());
}

void tst_FindBar::theCloseButtonShowsAll()
{
    user->Find(u"jones"_s);
    user->Bar()->findChild<QToolButton *>(u"cmdCloseFind"_s)->click();
    QVERIFY(!user->Bar()->isVisible());
    QCOMPARE(user->InSight().size(), 4);
}

void tst_FindBar::returnGoesToTheFirstRowShown()
{
    user->Find(u"sons"_s);
    QTest::keyClick(user->Field(), Qt::Key_Return);
    QVERIFY(user->List->hasFocus());
    QCOMPARE(user->List->currentIndex().row(), 2);
}

void tst_FindBar::downGoesToTheList()
{
    user->Find(u"jones"_s);
    QTest::keyClick(user->Field(), Qt::Key_Down);
    QVERIFY(user->List->hasFocus());
    QCOMPARE(user->List->currentIndex().row(), 3);
}

void tst_FindBar::arrowsPassOverHiddenRows()
{
    user->Find(u"smith"_s);
    QTest::keyClick(user->Field(), Qt::Key_Down);
    QCOMPARE(user->List->currentIndex().row(), 0);
    QTest::keyClick(user->List, Qt::Key_Down);
    QCOMPARE(user->List->currentIndex().row(), 2);
    QTest::keyClick(user->List, Qt::Key_Down);
    QCOMPARE(user->List->currentIndex().row(), 2);
}

void tst_FindBar::rowsThatStreamInAreSifted()
{
    user->Find(u"smith"_s);
    user->Fill({u"BROWN"_s, u"SMITHERS"_s});
    QCOMPARE(user->Count(), u"3 of 6 shown"_s);
    QVERIFY(user->List->isRowHidden(4));
    QVERIFY(!user->List->isRowHidden(5));
    QTest::keyClick(user->Field(), Qt::Key_Escape);
    QCOMPARE(user->InSight().size(), 6);
}

void tst_FindBar::aChangedCellIsLookedAtAgain()
{
    user->Find(u">>"_s);
    QCOMPARE(user->Count(), u"0 of 4 shown"_s);
    user->List->List()->SetCell(1, 1, u">>02-2-2"_s);
    QCOMPARE(user->Count(), u"1 of 4 shown"_s);
    QCOMPARE(user->InSight(), QStringList{u"SMYTHE, JOAN"_s});
}

void tst_FindBar::rowNumbersStayTheEngines()
{
    user->Find(u"jones"_s);
    const int row = user->List->rowAt(3);
    QCOMPARE(row, 3);
    user->Click(row);
    QCOMPARE(user->List->currentIndex().row(), 3);
    QCOMPARE(user->List->currentIndex().model(), user->List->List());
}

void tst_FindBar::aSortedModelKeepsTheRightRowsHidden()
{
    QTableView view;
    QStandardItemModel model(3, 1);
    const QStringList names{u"C"_s, u"A smith"_s, u"B"_s};
    for (int row = 0; row < 3; ++row)
        model.setItem(row, 0, new QStandardItem(names[row]));
    view.setModel(&model);
    auto *tools = new TableTools(&view);
    tools->Filter()->SetText(u"smith"_s);
    QVERIFY(view.isRowHidden(0) && !view.isRowHidden(1) && view.isRowHidden(2));
    model.sort(0);
    QVERIFY(!view.isRowHidden(0) && view.isRowHidden(1) && view.isRowHidden(2));
    model.removeRow(1);
    QCOMPARE(tools->Filter()->Loaded(), 2);
    QCOMPARE(tools->Filter()->Shown(), 1);
}

void tst_FindBar::aModelThatMovesItsRowsSilently()
{
    TurningModel model;
    QTableView view;
    view.setModel(&model);
    auto *tools = new TableTools(&view);
    tools->Filter()->SetText(u"smith"_s);
    QVERIFY(!view.isRowHidden(0) && view.isRowHidden(1) && view.isRowHidden(2));
    model.Turn();
    QVERIFY(view.isRowHidden(0) && view.isRowHidden(1) && !view.isRowHidden(2));
}

void tst_FindBar::aModelThatBeginsAnew()
{
    QStringListModel model({u"smith"_s, u"jones"_s});
    QTableView view;
    view.setModel(&model);
    auto *tools = new TableTools(&view);
    tools->Filter()->SetText(u"smith"_s);
    model.setStringList({u"brown"_s, u"smith"_s, u"jones"_s});
    QVERIFY(view.isRowHidden(0) && !view.isRowHidden(1) && view.isRowHidden(2));
}

void tst_FindBar::noHeaderPaintsWhileRowsAreHidden()
{
    WatchfulModel model({u"smith"_s, u"jones"_s, u"brown"_s});
    QTableView view;
    model.header = view.verticalHeader();
    view.setModel(&model);
    auto *tools = new TableTools(&view);
    model.quietReads = 0;
    model.paintingReads = 0;
    tools->Filter()->SetText(u"smith"_s);
    QCOMPARE(model.quietReads, 3);
    QCOMPARE(model.paintingReads, 0);
    QVERIFY(view.verticalHeader()->updatesEnabled());
}

void tst_FindBar::aClearedModel()
{
    user->Find(u"smith"_s);
    user->List->List()->Clear();
    QCOMPARE(user->Count(), u"0 of 0 shown"_s);
    user->Fill({u"JONES"_s, u"SMITH"_s});
    QCOMPARE(user->Count(), u"1 of 2 shown"_s);
    QCOMPARE(user->InSight(), QStringList{u"SMITH"_s});
}

void tst_FindBar::hiddenRowsAreNoLongerSelected()
{
    user->Click(0);
    user->Click(3, Qt::ShiftModifier);
    QCOMPARE(user->List->selectionModel()->selectedRows().size(), 4);
    user->Find(u"smith"_s);
    QList<int> selected;
    const QModelIndexList indexes = user->List->selectionModel()->selectedRows();
    for (const QModelIndex &index : indexes)
        selected.append(index.row());
    std::sort(selected.begin(), selected.end());
    QCOMPARE(selected, QList<int>({0, 2}));
    // What is out of sight is not what a button below the list would act on.
    QVERIFY(!user->List->currentIndex().isValid());
}

void tst_FindBar::theCurrentRowStaysWhenItIsShown()
{
    user->Click(2);
    user->Find(u"smith"_s);
    QCOMPARE(user->List->currentIndex().row(), 2);
    QVERIFY(user->List->selectionModel()->isRowSelected(2, {}));
}

void tst_FindBar::tableInAGrid()
{
    QWidget window;
    auto *grid = new QGridLayout(&window);
    auto *list = new ResultListView(&window);
    list->SetColumns({{u"Name"_s, 3000}});
    grid->addWidget(new QLabel(u"beside"_s, &window), 0, 0);
    grid->addWidget(list, 0, 1);
    window.resize(400, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    list->setFocus();
    QTest::keySequence(list, QKeySequence::Find);
    auto *bar = window.findChild<QWidget *>(u"FindBar"_s);
    QVERIFY(bar->isVisible() && list->isVisible());
    const auto below = [&] {
        return bar->mapTo(&window, QPoint()).y() - list->mapTo(&window, QPoint()).y();
    };
    QTRY_VERIFY(list->height() > 100 && below() >= list->height());
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    QVERIFY(!bar->isVisible() && list->hasFocus());
    QTest::keySequence(list, QKeySequence::Find);
    QVERIFY(bar->isVisible());
}

void tst_FindBar::tableThatStandsFree()
{
    ResultListView list;
    list.SetColumns({{u"Name"_s, 3000}});
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setFocus();
    QTest::keySequence(&list, QKeySequence::Find);
    const auto *bar = list.findChild<QWidget *>(u"FindBar"_s);
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->geometry().bottom(), list.rect().bottom());
    QCOMPARE(bar->width(), list.width());
}

void tst_FindBar::twoTablesInOnePlace()
{
    auto *second = new ResultListView(&user->Window);
    second->SetColumns({{u"Name"_s, 3000}});
    user->Window.layout()->addWidget(second);
    second->hide();
    const auto tableAbove = [this]() -> const QWidget * {
        QTest::keySequence(user->Window.focusWidget(), QKeySequence::Find);
        const QWidget *bar = user->Window.focusWidget()->parentWidget();
        const QLayout *layout = user->Window.layout();
        const QWidget *above = layout->itemAt(layout->indexOf(bar) - 1)->widget();
        QTest::keyClick(user->Window.focusWidget(), Qt::Key_Escape);
        return above;
    };
    user->Other->setFocus();
    QCOMPARE(tableAbove(), user->List);
    // The two change places.
    second->show();
    user->List->hide();
    user->Other->setFocus();
    QCOMPARE(tableAbove(), second);
    // Both in sight: the one with the focus.
    user->List->show();
    for (int i = 0; i < 3; ++i) {
        user->List->setFocus();
        QCOMPARE(tableAbove(), user->List);
        second->setFocus();
        QCOMPARE(tableAbove(), second);
    }
}

void tst_FindBar::theBarGoesWithItsTable()
{
    user->Find(u"smith"_s);
    const QWidget *bar = user->Field()->parentWidget();
    QVERIFY(user->List->Tools()->HoldsFocus());
    user->List->hide();
    QVERIFY(!bar->isVisible());
    user->Fill({u"SMITHERS"_s});
    user->List->show();
    QVERIFY(bar->isVisible());
    QCOMPARE(user->Count(), u"3 of 5 shown"_s);
    user->Other->setFocus();
    QVERIFY(!user->List->Tools()->HoldsFocus());
    // One that was closed does not come.
    QTest::keyClick(user->Field(), Qt::Key_Escape);
    user->List->hide();
    user->List->show();
    QVERIFY(!bar->isVisible());
}

void tst_FindBar::theCountIsAnnouncedToScreenReaders()
{
    user->Find(u"smith"_s);
    QCOMPARE(user->Field()->accessibleName(), u"Find in the loaded rows"_s);
    QCOMPARE(user->Field()->accessibleDescription(), u"2 of 4 shown"_s);
}

void tst_FindBar::hundredThousandRows()
{
    constexpr int rows = 100'000;
    // Of the processor, which is the same on a busy machine: it takes less than one.
    constexpr double mostSeconds = 20;
    for (int i = 0; i < rows; ++i)
        user->List->List()->AddRow({i % 1000 == 7 ? u"JONES"_s : u"SMITH"_s, QString::number(i)});
    user->List->List()->Flush();
    user->List->selectAll();
    const double before = ProcessorSeconds();
    user->Find(u"smith"_s);
    QTRY_COMPARE(user->Count(), u"99902 of 100004 shown"_s);
    QTest::keySequence(user->Field(), QKeySequence::SelectAll);
    QTest::keyClicks(user->Field(), u"jones"_s);
    QTRY_COMPARE(user->Count(), u"101 of 100004 shown"_s);
    QCoreApplication::processEvents();
    user->List->verticalScrollBar()->setValue(user->List->verticalScrollBar()->maximum());
    QCOMPARE(user->List->rowAt(user->List->viewport()->height() - 3), 99'011);
    // Rows go on streaming in.
    for (int i = 0; i < 50; ++i) {
        for (int k = 0; k < 20; ++k)
            user->List->List()->AddRow({k == 0 ? u"JONES"_s : u"SMITH"_s});
        user->List->List()->Flush();
    }
    QTRY_COMPARE(user->Count(), u"151 of 101004 shown"_s);
    QTest::keyClick(user->Field(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(user->List->rowAt(0) >= 0, true);
    const double used = ProcessorSeconds() - before;
    QVERIFY2(used < mostSeconds, qPrintable(QString::number(used)));
}

HALVANE_TEST(tst_FindBar)
#include "tst_FindBar.moc"
