#pragma once

#include "jobs/WaitingList.h"

#include <QAbstractTableModel>

/// The rows of the waiting list as a table shows them.
class WaitingModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { State, Kind, What, Where, Columns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows these rows. Those that stay keep their place in the view.
    void Show(const QList<WaitingRow> &newRows);
    /// The row of the list that a row of the table shows; null without one.
    const WaitingRow *RowAt(int row) const;
    /// Where the row of this key is, -1 when it is not there.
    int IndexOf(const QString &key) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool sameKeys(const QList<WaitingRow> &others) const;

    QList<WaitingRow> rows;
};
