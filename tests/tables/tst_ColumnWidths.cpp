#include "core/UserStore.h"
#include "support/HalvaneTest.h"
#include "tables/ColumnWidths.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QHeaderView>
#include <QMenu>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
ListLayout layoutOf(const QString &kind)
{
    return {
        kind,
        {{u"Name"_s, 1500}, {u"Role/Parties"_s, 1500}, {u"Role/Parties"_s, 1500}, {u"L"_s, 900}}};
}
} // namespace

class tst_ColumnWidths : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void usualWidthsUntilTheUserDrags();
    void draggedWidthIsRememberedForTheKind();
    void otherKindsKeepTheirs();
    void doubleClickOnTheEdgeIsRemembered();
    void aNewUsualWidthReachesWhoChangedNothing();
    void aNewUsualWidthLeavesTheUsersColumn();
    void resetGoesBackToTheUsualWidthsOfNow();
    void resetIsForGood();
    void resetFromTheMenu();
    void aChangeByItselfDuringADragIsNotTheUsers();
    void clickOnAHeaderChangesNothing();
    void theLastColumnFollowsTheOthers();
    void twoListsOfAKindAddToEachOther();
    void columnsOfNoKindAreNotRemembered();
    void widthStaysWithItsColumnWhenColumnsChange();
    void brokenStoreIsNoWidth();
    void aTitleWithoutEndIsNotKeptWhole();

private:
    static std::unique_ptr<ResultListView> makeList(const QString &kind = u"Superior"_s)
    {
        auto list = std::make_unique<ResultListView>();
        list->SetColumns(layoutOf(kind));
        list->resize(800, 200);
        list->show();
        return list;
    }
    static QPoint edgeOf(const ResultListView *list, int column)
    {
        const QHeaderView *header = list->horizontalHeader();
        return {header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                header->height() / 2};
    }
    static void press(ResultListView *list, int column)
    {
        QTest::mousePress(list->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          edgeOf(list, column));
    }
    static void drag(ResultListView *list, int column, int pixels)
    {
        const QPoint edge = edgeOf(list, column);
        QWidget *header = list->horizontalHeader()->viewport();
        QTest::mousePress(header, Qt::LeftButton, {}, edge);
        QTest::mouseMove(header, edge + QPoint(pixels / 2, 0));
        QTest::mouseMove(header, edge + QPoint(pixels, 0));
        QTest::mouseRelease(header, Qt::LeftButton, {}, edge + QPoint(pixels, 0));
    }
};

void tst_ColumnWidths::init()
{
    for (const QString &kind : {u"Superior"_s, u"Idaho"_s})
        SaveUserStoreValue(u"ColumnWidths"_s, kind, QString());
}

void tst_ColumnWidths::usualWidthsUntilTheUserDrags()
{
    const auto list = makeList();
    QCOMPARE(list->columnWidth(0), 100);
    QCOMPARE(list->columnWidth(2), 100);
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
}

void tst_ColumnWidths::draggedWidthIsRememberedForTheKind()
{
    const auto first = makeList();
    drag(first.get(), 1, 40);
    QCOMPARE(first->columnWidth(1), 140);
    QVERIFY(first->Tools()->Widths()->ChangedByUser());
    const auto next = makeList();
    QCOMPARE(next->columnWidth(0), 100);
    QCOMPARE(next->columnWidth(1), 140);
    // Another column of the same name is another column.
    QCOMPARE(next->columnWidth(2), 100);
    drag(next.get(), 2, -30);
    QCOMPARE(makeList()->columnWidth(2), 70);
    QCOMPARE(makeList()->columnWidth(1), 140);
}

void tst_ColumnWidths::otherKindsKeepTheirs()
{
    const auto list = makeList();
    drag(list.get(), 0, 40);
    QCOMPARE(makeList(u"Idaho"_s)->columnWidth(0), 100);
    QCOMPARE(makeList()->columnWidth(0), 140);
}

void tst_ColumnWidths::doubleClickOnTheEdgeIsRemembered()
{
    const auto list = makeList();
    list->List()->AddRow({u"A NAME THAT IS LONGER THAN ITS COLUMN"_s});
    list->List()->Flush();
    const QPoint edge = edgeOf(list.get(), 0);
    QWidget *header = list->horizontalHeader()->viewport();
    QTest::mouseDClick(header, Qt::LeftButton, {}, edge);
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge);
    const int fitting = list->columnWidth(0);
    QVERIFY(fitting > 100);
    QCOMPARE(makeList()->columnWidth(0), fitting);
}

void tst_ColumnWidths::aNewUsualWidthReachesWhoChangedNothing()
{
    const auto list = makeList(u"Idaho"_s);
    list->SetColumnTwips(1, 1800);
    QCOMPARE(list->columnWidth(1), 120);
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
    QCOMPARE(makeList(u"Idaho"_s)->columnWidth(1), 100);
}

void tst_ColumnWidths::aNewUsualWidthLeavesTheUsersColumn()
{
    const auto list = makeList(u"Idaho"_s);
    drag(list.get(), 1, 40);
    list->SetColumnTwips(1, 1800);
    QCOMPARE(list->columnWidth(1), 140);
    list->SetColumnTwips(0, 1800);
    QCOMPARE(list->columnWidth(0), 120);
}

void tst_ColumnWidths::resetGoesBackToTheUsualWidthsOfNow()
{
    const auto list = makeList(u"Idaho"_s);
    drag(list.get(), 0, 40);
    drag(list.get(), 1, 40);
    list->SetColumnTwips(1, 1800);
    list->Tools()->Widths()->Reset();
    QCOMPARE(list->columnWidth(0), 100);
    QCOMPARE(list->columnWidth(1), 120);
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
    list->SetColumnTwips(0, 600);
    QCOMPARE(list->columnWidth(0), 40);
}

void tst_ColumnWidths::resetIsForGood()
{
    const auto list = makeList();
    drag(list.get(), 0, 40);
    const auto idaho = makeList(u"Idaho"_s);
    drag(idaho.get(), 0, 20);
    list->Tools()->Widths()->Reset();
    QCOMPARE(makeList()->columnWidth(0), 100);
    QCOMPARE(makeList(u"Idaho"_s)->columnWidth(0), 120);
}

void tst_ColumnWidths::resetFromTheMenu()
{
    const auto list = makeList();
    drag(list.get(), 0, 40);
    list->findChild<QAction *>(u"mnuListResetWidths"_s)->trigger();
    QCOMPARE(list->columnWidth(0), 100);
}

void tst_ColumnWidths::aChangeByItselfDuringADragIsNotTheUsers()
{
    const auto list = makeList(u"Idaho"_s);
    press(list.get(), 0);
    list->SetColumnTwips(1, 1800);
    QTest::mouseRelease(list->horizontalHeader()->viewport(), Qt::LeftButton, {},
                        edgeOf(list.get(), 0));
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
    QCOMPARE(makeList(u"Idaho"_s)->columnWidth(1), 100);
}

void tst_ColumnWidths::clickOnAHeaderChangesNothing()
{
    const auto list = makeList();
    QTest::mouseClick(list->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(50, 8));
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
}

void tst_ColumnWidths::theLastColumnFollowsTheOthers()
{
    const auto list = makeList();
    const int last = list->columnWidth(3);
    drag(list.get(), 0, 40);
    QCOMPARE(list->columnWidth(3), last - 40);
    QCOMPARE(UserStoreValue(u"ColumnWidths"_s, u"Superior"_s, {}), u"Name=2100"_s);
}

void tst_ColumnWidths::twoListsOfAKindAddToEachOther()
{
    const auto first = makeList();
    const auto second = makeList();
    drag(first.get(), 0, 40);
    drag(second.get(), 1, 20);
    const auto next = makeList();
    QCOMPARE(next->columnWidth(0), 140);
    QCOMPARE(next->columnWidth(1), 120);
}

void tst_ColumnWidths::columnsOfNoKindAreNotRemembered()
{
    const auto list = makeList(QString());
    drag(list.get(), 0, 40);
    QCOMPARE(list->columnWidth(0), 140);
    QCOMPARE(makeList(QString())->columnWidth(0), 100);
    list->Tools()->Widths()->Reset();
    QCOMPARE(list->columnWidth(0), 100);
}

void tst_ColumnWidths::widthStaysWithItsColumnWhenColumnsChange()
{
    const auto list = makeList();
    drag(list.get(), 1, 40);
    list->SetColumns(ListLayout{
        u"Superior"_s,
        {{u"New"_s, 1500}, {u"Name"_s, 1500}, {u"Role/Parties"_s, 1500}, {u"L"_s, 900}}});
    QCOMPARE(list->columnWidth(1), 100);
    QCOMPARE(list->columnWidth(2), 140);
}

void tst_ColumnWidths::brokenStoreIsNoWidth()
{
    SaveUserStoreValue(u"ColumnWidths"_s, u"Superior"_s, u"Name=0 Role%2FParties=x L"_s);
    const auto list = makeList();
    QCOMPARE(list->columnWidth(0), 100);
    QCOMPARE(list->columnWidth(1), 100);
    QVERIFY(!list->Tools()->Widths()->ChangedByUser());
}

/// A court can send one, and the settings of the user are read at every start.
void tst_ColumnWidths::aTitleWithoutEndIsNotKeptWhole()
{
    const ListLayout layout{u"Endless"_s,
                            {{QString(1'000'000, u'W'), 1500}, {u"Name"_s, 1500}, {u"L"_s, 900}}};
    ResultListView list;
    list.SetColumns(layout);
    list.resize(800, 200);
    list.show();
    drag(&list, 0, 40);
    const int width = list.columnWidth(0);
    const QString kept = UserStoreValue(u"ColumnWidths"_s, u"Endless"_s, QString());
    QVERIFY(!kept.isEmpty());
    QVERIFY2(kept.size() < 1'000, qPrintable(QString::number(kept.size())));
    ResultListView next;
    next.SetColumns(layout);
    QCOMPARE(next.columnWidth(0), width);
}

HALVANE_TEST(tst_ColumnWidths)
#include "tst_ColumnWidths.moc"
