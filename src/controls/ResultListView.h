#pragma once

#include "controls/ResultListModel.h"

#include <QTableView>

/// The list of a results window: whole rows are selected, columns have the widths of their table
/// (in twips), rows have one fixed height, so that a hundred thousand of them cost what ten do.
class ResultListView : public QTableView
{
    Q_OBJECT
public:
    explicit ResultListView(QWidget *parent = nullptr);

    ResultListModel *List() { return &list; }
    const ResultListModel *List() const { return &list; }

    /// Makes the columns anew, with their widths.
    void SetColumns(const QList<ListColumn> &columns);

    /// Sets a column's width in twips.
    void SetColumnTwips(int column, int twips);

    /// Writes the cells as small as the headers, for columns that are narrow for what they hold.
    void UseSmallText();

    /// Puts the sort arrow on a column's header (show) or takes it away.
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);

protected:
    /// The space bar turns the check box of the current row, and gives the other selected rows the
    /// same, whatever column the cursor is in.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void turnCheckBoxes();

    ResultListModel list;
};
