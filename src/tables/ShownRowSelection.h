#pragma once

#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QPointer>

class QHeaderView;
class QTableView;

/// The selection of a table in which rows may be hidden: it never holds one of those. Whatever
/// selects, a key, a click, a drag or the program, gets those of its rows that can be seen, and a
/// row that is hidden later is given up. So nobody acts on a row that the user does not see, and
/// rows that come into sight again are not selected.
class ShownRowSelection : public QItemSelectionModel
{
    Q_OBJECT
public:
    /// Takes the place of the selection that the table has.
    explicit ShownRowSelection(QTableView *table);

    using QItemSelectionModel::select;
    void select(const QItemSelection &selection, SelectionFlags command) override;
    /// A row that cannot be seen does not become the current one.
    void setCurrentIndex(const QModelIndex &index, SelectionFlags command) override;

    /// Gives up the rows that have been hidden since they were selected, the current one too.
    void LeaveHiddenRows();

Q_SIGNALS:
    /// Several rows are about to be selected at once, and it has to be known which are hidden.
    void SelectingMany();

private:
    bool isHidden(int row) const;
    QItemSelection shownPartOf(const QItemSelection &selection) const;
    void selectShown(const QItemSelection &selection, SelectionFlags command);

    /// Gone before the view itself, which hears of its model's end afterwards.
    QPointer<QHeaderView> rows;
    /// Where Shift goes on from when the row at which the selection began has been hidden: the
    /// view, which does not know that, would go on from its upper edge. Invalid otherwise.
    QPersistentModelIndex anchor;
};
