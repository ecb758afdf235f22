#pragma once

#include "tables/ResultListModel.h"

#include <QTableView>

#include <functional>
#include <utility>

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

    /// Widens a column until this cell is not cut, unless the user has set its width.
    void WidenForCell(int row, int column);

    /// What a row's tool tip says besides the text of a cell that is cut; "" for nothing. It is
    /// asked when the tip is wanted.
    using RowNote = std::function<QString(int row)>;
    void SetRowNote(RowNote note) { rowNote = std::move(note); }
    QString NoteOf(int row) const { return rowNote ? rowNote(row) : QString(); }

    /// Writes the cells as small as the headers, for columns that are narrow for what they hold.
    void UseSmallText();

    /// Puts the sort arrow on a column's header (show) or takes it away from this column. There is
    /// one arrow: it goes from where it was.
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);

    /// Sorts the rows by their keys, one key a row.
    void SortRows(const std::vector<QString> &keys, Qt::SortOrder order);
    /// The order of the last sorting, ascending at first.
    Qt::SortOrder SortOrder() const { return sortOrder; }

    /// The selected row, -1 when there is none; of several, the current one. It is in sight.
    int SelectedRow() const;

    void keyboardSearch(const QString &search) override;

Q_SIGNALS:
    void HeaderClicked(int column);
    /// A row was double-clicked, or Enter pressed on it.
    void RowChosen(int row);
    /// Another row is selected, or none.
    void SelectedRowChanged();

protected:
    /// Enter chooses a row. The space bar turns the check box of the current row, and gives the
    /// other selected rows the same, whatever column the cursor is in.
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void connectHeader();
    void showMarks();
    void followFont();
    void orderColumns();
    void fitTitles(const QList<ListColumn> &columns);
    void showArrow();
    void turnCheckBoxes();

    ResultListModel list;
    RowNote rowNote;
    QFont largeFont; ///< what the cells would have if they were not written small
    bool smallText = false;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    int arrowColumn = -1;
    Qt::SortOrder arrowOrder = Qt::AscendingOrder;
    TableTools *tools = nullptr;
};
