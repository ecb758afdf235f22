#pragma once

#include <QAbstractTableModel>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <vector>

/// A column of a list, its width in twips.
struct ListColumn
{
    QString Header;
    int Width = 0;
    Qt::Alignment Alignment = Qt::AlignLeft;
};

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

    /// Adds a row with its cells, from the first column on; missing cells are empty. The key is not
    /// shown; it goes with the row.
    void AddRow(const QStringList &cells, const QString &key = {});

    /// All rows, those that the view has not been told of included.
    int Count() const { return static_cast<int>(rows.size()); }
    QString Cell(int row, int column) const;
    void SetCell(int row, int column, const QString &text);
    QStringList Cells(int row) const;
    QString Key(int row) const;

    /// Puts a check box before the text of each row.
    void SetCheckBoxes(bool on);
    bool HasCheckBoxes() const { return checkBoxes; }
    bool IsChecked(int row) const;
    void SetChecked(int row, bool checked);
    /// The rows that are checked, in the order of the list.
    QList<int> CheckedRows() const;

    void Clear();

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
    /// The view has just been told of new rows: labels that count them may follow now.
    void Flushed();

private:
    /// All that belongs to a row moves with it.
    struct Row
    {
        QByteArray cells; ///< in one block, see packed()
        QString key;
        bool checked = false;
    };

    void movePersistentIndexes(const std::vector<int> &newPlaces);

    const Row &at(int row) const { return rows.at(static_cast<size_t>(row)); }

    QList<ListColumn> columns;
    std::vector<Row> rows;
    bool checkBoxes = false;
    int shownRows = 0;
    QTimer flushTimer;
};
