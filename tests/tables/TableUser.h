#pragma once

#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

/// A window with one table, and a user at it; what the tests of lists and of grids have in common.
class TableUser
{
public:
    TableUser() : stack(new QVBoxLayout(&Window)) {}

    void Show()
    {
        Window.show();
        QVERIFY(QTest::qWaitForWindowActive(&Window));
    }

    QPoint Place(int row, int column = 0) const
    {
        return Table->visualRect(Table->model()->index(row, column)).center();
    }
    void Click(int row, Qt::KeyboardModifiers keys = {},
               Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(Table->viewport(), button, keys, Place(row));
    }
    void DoubleClick(int row, Qt::MouseButton button = Qt::LeftButton) const
    {
        Click(row);
        QTest::mouseDClick(Table->viewport(), button, {}, Place(row));
    }

    /// The first cells of the rows that can be seen.
    QStringList InSight() const
    {
        QStringList inSight;
        for (int row = 0; row < Table->model()->rowCount(); ++row) {
            if (!Table->isRowHidden(row))
                inSight.append(Table->model()->index(row, 0).data().toString());
        }
        return inSight;
    }

    QWidget Window;
    QTableView *Table = nullptr;

protected:
    QVBoxLayout *stack;
};
