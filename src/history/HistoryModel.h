#pragma once

#include "history/AskedItem.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QTimer>

/// What was asked for as a table shows it, newest first. It fetches a page when one of its rows is
/// wanted, and keeps the last few, so that a hundred thousand rows cost no more than those in
/// sight.
class HistoryModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { When, Kind, What, Where, ClientCode, Outcome, Count, Columns };

    explicit HistoryModel(QObject *parent = nullptr);

    /// Shows what holds every word of this filter; all when it is empty.
    void SetFilter(const QString &words);
    /// All rows are there. Those beyond the first page of what a filter finds come a moment later:
    /// counting them takes as long as finding them, and nobody wants it while typing.
    bool IsCounted() const { return !countTimer.isActive(); }
    /// Something was written: shows what has come and what has changed. Rows that stay are the same
    /// to the view.
    void Refresh();
    /// The item of a row; one without an id when it is not there.
    AskedItem ItemAt(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// All rows are there now.
    void Counted();

private:
    const QList<AskedItem> &page(int number) const;
    int count(const QList<AskedItem> &firstPage) const;
    void countRest();

    QString filter;
    QTimer countTimer;
    int rows = 0;
    mutable QHash<int, QList<AskedItem>> pages;
    mutable QList<int> pageOrder; ///< of `pages`, the one that was fetched last at the end
};
