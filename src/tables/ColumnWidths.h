#pragma once

#include "tables/StoredWidths.h"

#include <QList>
#include <QObject>

class QTableView;

/// The last column of a table that is not hidden: the one that takes the room that is left, where
/// one does. -1 when there is none.
int LastColumnInSight(const QTableView *table);

/// The widths of a table's columns: the usual ones, until the user drags a column; from then on
/// that column has the user's width in every list of this kind, today and after the next start.
class ColumnWidths : public QObject
{
    Q_OBJECT
public:
    explicit ColumnWidths(QTableView *table);

    /// The columns have just been made; `usual` are their widths in twips. Without a name for the
    /// kind nothing is remembered beyond this table.
    void Begin(const QString &kind, const QList<int> &usual);

    /// Sets a column's usual width. It shows unless the user gave the column one.
    void SetUsual(int column, int twips);

    /// Whether a column has a width of the user's.
    bool ChangedByUser() const { return !users.isEmpty(); }
    bool IsUsers(int column) const;
    /// Whether the user may be about to change one.
    bool InHand() const { return !atPress.isEmpty(); }

    /// Goes back to the usual widths, for good.
    void Reset();

Q_SIGNALS:
    /// The user has just given columns a width, or gone back to the usual ones (reset).
    void UserChanged(bool reset);
    /// The user has let go of the header, whatever came of it.
    void Released();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString nameOf(int column) const;
    bool isStretched(int column) const;
    QList<int> widths() const;
    void takeUserWidths();

    QTableView *view;
    QString kindName;
    QList<int> usualTwips;
    StoredWidths users;
    QList<int> atPress; ///< in pixels, while a mouse button is down on the header
    int fitted = -1;    ///< the column that a double click has just fitted to its texts
};
