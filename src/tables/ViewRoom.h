#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QTableView;

/// Uses the room of a table that is neither a list of results nor a grid: each column is as wide as
/// the text that it is made for, and one whose texts in sight are cut gets what it lacks of the
/// room that the others leave. One column stretches, and gives first what it does not need.
///
/// Once the user has changed a width, all columns stay as they are: nothing moves under a user who
/// arranges columns.
class ViewRoom : public QObject
{
    Q_OBJECT
public:
    /// The table has its model already. `usualTexts` has the text that each column is made for;
    /// `stretching` is the column that follows the others and the window.
    ViewRoom(QTableView *table, const QList<QString> &usualTexts, int stretching);

    /// Other rows are in sight. The table's size, scrolling and changed cells are seen without it.
    void Share();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTableView *const view;
    const QList<QString> usual;
    const int stretchingColumn;
    QList<int> needed;     ///< of each column, in pixels, for its texts not to be cut
    bool arranged = false; ///< by the user, who keeps the widths
    bool sharing = false;
};
