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

    /// Shows what holds every word of this filter; all when it is empty. What is not found within
    /// some milliseconds comes as it is found: a key waits no longer than that, however large the
    /// history is and however many words there are.
    void SetFilter(const QString &words);
    /// All rows are there.
    bool IsCounted() const { return !timer.isActive() || looksAgain; }
    /// Something was written: shows what has come and what has changed, with a filter as soon as it
    /// is found. Rows that stay are the same to the view.
    void Refresh();
    /// The item of a row; one without an id when it is not there.
    AskedItem ItemAt(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// Rows have come since the filter was set, or all are there now.
    void RowsCame();

private:
    const QList<AskedItem> &page(int number) const;
    void forgetPages();
    void beginLook(bool again);
    bool lookOn();
    void goOn();
    void showMore();
    void showAgain();
    void refreshAll();

    QString filter;
    int rows = 0;
    QList<qint64> found;     ///< with a filter: what is shown
    QTimer timer;            ///< while a look goes on
    QList<qint64> looked;    ///< what it has found
    qint64 below = 0;        ///< where it goes on
    bool looksAgain = false; ///< for the same filter: what is shown stays until it is through
    bool changed = false;    ///< something was written meanwhile
    mutable QHash<int, QList<AskedItem>> pages;
    mutable QList<int> pageOrder; ///< of `pages`, the one that was fetched last at the end
};
