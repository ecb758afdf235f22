#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>

// What a list asks of its rows while a hundred thousand of them come.

using namespace Qt::StringLiterals;

namespace {
/// Counts what a view asks of its cells.
class AskedDelegate : public QStyledItemDelegate
{
public:
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        ++paints;
        QStyledItemDelegate::paint(painter, option, index);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++sizes;
        return QStyledItemDelegate::sizeHint(option, index);
    }

    mutable int paints = 0;
    mutable int sizes = 0;
};
} // namespace

class tst_ManyRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aHundredThousandRowsCostAnInsertionATurnAndTheCellsInSight();
};

void tst_ManyRows::aHundredThousandRowsCostAnInsertionATurnAndTheCellsInSight()
{
    constexpr int rows = 100'000;
    constexpr int turns = 100;
    constexpr int mostCellsSeen = 100; // of a view of this size, at one time
    AskedDelegate asked;
    ResultListView view;
    view.setItemDelegate(&asked);
    view.SetColumns({{u"Name"_s, 3000}, {u"Case Number"_s, 1500}, {u"Amount"_s, 1207}});
    view.resize(500, 400);
    view.show();
    const QSignalSpy inserted(view.List(), &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < rows; ++i) {
        view.List()->AddRow({u"SMITH, JOHN"_s, QString::number(i), u"7"_s});
        if (i % (rows / turns) == 0) {
            QCoreApplication::processEvents();
            QVERIFY2(asked.sizes <= mostCellsSeen, qPrintable(QString::number(asked.sizes)));
        }
    }
    QCOMPARE(view.List()->Count(), rows);
    QTRY_COMPARE(view.List()->rowCount(), rows);
    view.scrollToBottom();
    QCoreApplication::processEvents();
    // What it costs is counted, for a clock knows how busy the machine is: at most one insertion a
    // turn, at most the cells in sight at each, and no row is asked how high it is.
    QVERIFY2(inserted.size() <= turns + 1, qPrintable(QString::number(inserted.size())));
    QVERIFY2(asked.paints <= (turns + 10) * mostCellsSeen,
             qPrintable(QString::number(asked.paints)));
    QVERIFY2(asked.sizes <= mostCellsSeen, qPrintable(QString::number(asked.sizes)));
    QCOMPARE(view.List()->Cell(rows - 1, 1), QString::number(rows - 1));
    QCOMPARE(view.rowAt(view.viewport()->height() - 3), rows - 1);
}

HALVANE_TEST(tst_ManyRows)
#include "tst_ManyRows.moc"
