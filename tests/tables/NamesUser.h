#pragma once

#include "tables/FlexGrid.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"
#include "tables/TableUser.h"

#include <QApplication>
#include <QClipboard>

using namespace Qt::StringLiterals;

// What the tests of hidden rows have in common: a list or a grid with a user at it.

inline const QStringList fiveNames{u"SMITH, A"_s, u"JONES, B"_s, u"SMITH, C"_s, u"JONES, D"_s,
                                   u"SMITH, E"_s};

/// A window with one table of one column, and a user at it.
class NamesUser : public TableUser
{
public:
    explicit NamesUser(bool isGrid)
    {
        if (isGrid)
            Table = Grid = new FlexGrid(&Window);
        else
            Table = List = new ResultListView(&Window);
        stack->addWidget(Table);
        Window.resize(400, 400);
        Window.setWindowTitle(u"names"_s);
        if (List)
            List->SetColumns({{u"Name"_s, 3000}});
        Window.show();
        Fill(fiveNames);
        Table->setFocus();
    }

    /// A list gets them below the rows that it has, a grid in their place.
    void Fill(const QStringList &texts) const
    {
        GridTable table{{{u"Name"_s, 100}}, {}, true};
        for (const QString &text : texts) {
            table.Rows.append({text});
            if (List)
                List->List()->AddRow({text});
        }
        if (Grid)
            Grid->Show(table);
        if (List)
            List->List()->Flush();
    }

    void Find(const QString &text) const
    {
        Tools()->OpenFind();
        Window.findChild<QLineEdit *>(u"txtFind"_s)->setText(text);
        Table->setFocus();
    }
    TableTools *Tools() const { return Grid ? Grid->Tools() : List->Tools(); }

    void Drag(int from, int to) const
    {
        QTest::mousePress(Table->viewport(), Qt::LeftButton, {}, Place(from));
        for (int row = from; row <= to; ++row) {
            if (!Table->isRowHidden(row))
                QTest::mouseMove(Table->viewport(), Place(row));
        }
        QTest::mouseRelease(Table->viewport(), Qt::LeftButton, {}, Place(to));
    }
    void Trigger(const QString &action) const { Table->findChild<QAction *>(action)->trigger(); }
    QString Copied(const QString &action) const
    {
        QApplication::clipboard()->setText(u"nothing"_s);
        Trigger(action);
        return QApplication::clipboard()->text();
    }

    /// The names in the rows that are opened meanwhile.
    template<typename Act>
    QStringList Opened(Act act) const
    {
        QStringList opened;
        const QObject context;
        if (Grid)
            QObject::connect(Grid, &FlexGrid::RowActivated, &context,
                             [&](int row) { opened.append(Grid->Cell(row, 0)); });
        else
            QObject::connect(List, &ResultListView::RowChosen, &context,
                             [&](int row) { opened.append(List->List()->Cell(row, 0)); });
        act();
        return opened;
    }

    /// The rows that are selected by all that Qt knows.
    QString Selected() const
    {
        QStringList rows;
        for (int row = 0; row < Table->model()->rowCount(); ++row) {
            if (Table->selectionModel()->isRowSelected(row))
                rows.append(QString::number(row));
        }
        return rows.join(u' ');
    }

    ResultListView *List = nullptr;
    FlexGrid *Grid = nullptr;
};

/// Data rows of a test that is about both, by the column "isGrid".
inline void eachTable()
{
    QTest::addColumn<bool>("isGrid");
    QTest::newRow("list") << false;
    QTest::newRow("grid") << true;
}
