#pragma once

#include "controls/GridModel.h"

#include <QTableView>

class TableTools;

/// The grid of a tab: a table whose cells wrap, with columns in hundredths of its width and rows as
/// high as their text.
class FlexGrid : public QTableView
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    /// Shows this table in the place of whatever was shown.
    void Show(const GridTable &newTable);
    void Clear();
    const GridTable &Table() const { return model.Table(); }

    /// The number of rows, the headers included when there are any.
    int Rows() const;
    int Cols() const;
    /// The text of a cell. Row 0 is the headers, or the first row when there are none. Empty
    /// outside.
    QString Cell(int row, int column) const;

    /// Left and at the top until it is set; kept whatever is shown.
    void SetColumnAlignment(int column, Qt::Alignment alignment);

    /// What the user can do with the grid: copy, export, find, widen columns.
    TableTools *Tools() const { return tools; }

Q_SIGNALS:
    /// A row was double-clicked, or Enter pressed on it; rows are counted as in Cell.
    void RowActivated(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void activate(int row);

    GridModel model;
    TableTools *tools = nullptr;
};
