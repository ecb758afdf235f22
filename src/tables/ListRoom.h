#pragma once

#include "records/RowTable.h"
#include "tables/WidestTexts.h"

#include <QObject>
#include <QTimer>

class ColumnWidths;
class ResultListView;

/// Uses the room of a list: where the list is wider than its columns, those whose text is cut get
/// what they lack of it. The last column, which takes whatever is left, gives first what it does
/// not need. Without room every column has the width of its table.
///
/// A column with a width of the user's keeps it. Once the user has changed one, the others stay as
/// they are too, until the list is made anew or goes back to its usual widths: nothing moves under
/// a user who arranges columns.
class ListRoom : public QObject
{
    Q_OBJECT
public:
    ListRoom(ResultListView *list, ColumnWidths *columnWidths);

    /// The columns have just been made.
    void Begin(const QString &kind, const QList<ListColumn> &columns);
    /// The width of a column in its table, in twips, is another from now on.
    void SetUsual(int column, int twips);

    /// Texts have another size.
    void MeasureAgain();
    /// The list has another size, or has come into sight.
    void Share();
    /// What a column needs for none of its texts to be cut, in pixels, as far as its rows have been
    /// looked at.
    int Needed(int column) const;

private:
    void lookAtRows();
    bool lookAtRow(int row);
    void lookAgain();
    void lookFrom(int row);
    void cellsChanged(int firstRow, int lastRow);
    void shareSoon();
    bool isSeen(int column) const;

    ResultListView *view;
    ColumnWidths *widths;
    QList<int> usualTwips;
    WidestTexts widest;
    WidestTexts widestBold; ///< of the rows that are marked as new
    QList<int> needed;      ///< of each column, in pixels
    int looked = 0;         ///< so many rows, from the first on
    bool arranged = false;
    QTimer shareTimer;
    QTimer lookTimer;
};
