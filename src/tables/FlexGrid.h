#pragma once

#include "tables/ColumnShares.h"
#include "tables/GridModel.h"

#include <QTableView>
#include <QTimer>

#include <vector>

class GridHeader;
class TableTools;

/// The grid of a tab: a table whose cells wrap, with columns in hundredths of its width and rows as
/// high as their text.
///
/// Finding out how high a row is takes longer than showing it. So only the rows in sight are
/// measured at once; the others follow while the program has nothing else to do, and get their
/// heights together, without moving what the user looks at.
class FlexGrid : public QTableView
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    /// Shows this table in the place of whatever was shown. The user's column widths are kept for
    /// all grids of this object name. A column whose width is 0 is out of sight, and with it for
    /// everything that works on what is shown: copying, exporting, finding.
    void Show(const GridTable &newTable);
    /// Shows the rows that this table has more than the one that is shown, of which it is the
    /// continuation. What the user has selected, and where the rows stand, stays as it is.
    void Grow(const GridTable &grown);
    const GridTable &Table() const { return content.Table(); }
    /// Marks rows of the table that is shown as new, and no others: a dot before each, their text
    /// in bold, and a line above the grid that counts them.
    void MarkRows(const RowMarks &marks);

    /// The number of rows, the headers included when there are any.
    int Rows() const;
    int Cols() const;
    /// The text of a cell. Row 0 is the headers, or the first row when there are none. Empty
    /// outside.
    QString Cell(int row, int column) const;

    /// Left and at the top until it is set; kept whatever is shown. A message in the place of a
    /// table stands left all the same.
    void SetColumnAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment ColumnAlignment(int column) const;

    /// What the user can do with the grid: copy, export, find, widen columns.
    TableTools *Tools() const { return tools; }

    /// How many rows have been measured for the columns as they are.
    int MeasuredRows() const { return measured; }

    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    void keyboardSearch(const QString &search) override;

Q_SIGNALS:
    /// A row was double-clicked, or Enter pressed on it; rows are counted as in Cell.
    void RowActivated(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// What of the rows is in sight, and is to stay there.
    struct Place
    {
        enum { AtTop, AtRow, AtEnd } Kind = AtTop;
        int Row = 0;
        int Y = 0;
    };

    void activate(int row);
    void sayRows();
    void showMarks();
    void layOut();
    QList<ColumnShare> shares() const;
    void hideColumns();
    void shareColumns();
    QList<int> columnWidths() const;
    void userChangedColumns(bool reset);

    void setLeastWidth();
    void measureAgain();
    void goOnMeasuring();
    void measureSight();
    void measureOnIdle();
    int measuredHeight(int row);
    int likelyHeight() const;
    void widthsMayHaveChanged();
    bool measureRowsInSight();
    void fitScrollBars();
    void applyAllHeights();
    void applyHeights(int first, int last);
    Place placeNow() const;
    void goTo(const Place &place);

    GridModel content;
    GridHeader *header = nullptr;
    TableTools *tools = nullptr;
    bool followsWindow = true; ///< the widths are not the user's yet
    bool layOutOnShow = true;
    bool settingHeights = false;
    std::vector<int> heights; ///< a row's height, 0 before it is measured
    int measured = 0;
    int nextRow = 0; ///< no row before it is left to measure
    QList<int> widthsMeasuredFor;
    QTimer idleTimer;
    QTimer settleTimer; ///< runs while the widths change
};
