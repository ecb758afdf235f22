#pragma once

#include "controls/ResultListModel.h"

#include <QTableView>

class TableTools;

/// The columns of a list, and the kind of list they are of: columns of one kind keep the widths
/// that the user gives them.
struct ListLayout
{
    QString Kind;
    QList<ListColumn> Columns;
};

/// The list of a results window: whole rows are selected, columns have the widths of their table
/// (in twips), rows have one fixed height, so that a hundred thousand of them cost what ten do.
class ResultListView : public QTableView
{
    Q_OBJECT
public:
    explicit ResultListView(QWidget *parent = nullptr);

    ResultListModel *List() { return &list; }
    const ResultListModel *List() const { return &list; }

    /// What the user can do with the list: copy, export, find, widen columns.
    TableTools *Tools() const { return tools; }

    /// Makes the columns anew, with their widths or those that the user gave to this kind of list.
    void SetColumns(const ListLayout &layout);
    /// The same for columns of no kind.
    void SetColumns(const QList<ListColumn> &columns);

    /// Sets a column's width in twips. One that the user has changed stays as it is.
    void SetColumnTwips(int column, int twips);

    /// Puts the sort arrow on a column's header (show) or takes it away.
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);

private:
    ResultListModel list;
    TableTools *tools;
};
