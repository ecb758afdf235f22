#pragma once

#include "records/RowTable.h"

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <vector>

/// The rows of a results list, as they come from the server.
///
/// Rows are taken at any speed and shown at most every 40 ms: an insertion and a repaint for each
/// row would hold the stream back. Count and cells know every row at once; only the view is late,
/// by that much.
class ResultListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit ResultListModel(QObject *parent = nullptr);

    void SetColumns(const QList<ListColumn> &newColumns);
    const QList<ListColumn> &Columns() const { return columns; }

    /// Shows these rows from now on, which are somebody's record; they have to be there for as long
    /// as they are shown. At first the list has rows of its own.
    void UseRows(RowTable *table);
    RowTable *Rows() const { return rows; }

    // The rows, with those that the view does not know of yet
    void AddRow(const QStringList &cells, const QString &key = {}) { rows->AddRow(cells, key); }
    int Count() const { return rows->Count(); }
    QString Cell(int row, int column) const { return rows->Cell(row, column); }
    void SetCell(int row, int column, const QString &text) { rows->SetCell(row, column, text); }
    QStringList Cells(int row) const { return rows->Cells(row); }
    QString Key(int row) const { return rows->Key(row); }
    bool IsChecked(int row) const { return rows->IsChecked(row); }
    void SetChecked(int row, bool checked) { rows->SetChecked(row, checked); }
    QList<int> CheckedRows() const { return rows->CheckedRows(); }
    void Clear() { rows->Clear(); }

    /// Puts a check box before the text of each row.
    void SetCheckBoxes(bool on);
    bool HasCheckBoxes() const { return checkBoxes; }

    /// Puts the rows into the order of their keys, one key a row, compared as texts. Rows with
    /// equal keys stay in their order, either way. Selected and current rows stay so at their new
    /// places; rows that are added afterwards stand below.
    void SortRows(const std::vector<QString> &keys, Qt::SortOrder order);

    /// Shows every row now.
    void Flush();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// The view has just learned of new rows: labels that count them may follow now.
    void Flushed();
    /// Other rows are marked as new now, or none is.
    void MarksChanged();

private:
    void movePersistentIndexes(const std::vector<int> &newPlaces);

    void showMarks();
    void flushSoon();
    void forgetRows();

    QList<ListColumn> columns;
    RowTable ownRows;
    RowTable *rows = nullptr;
    bool checkBoxes = false;
    int shownRows = 0;
    QTimer flushTimer;
};
