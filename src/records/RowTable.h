#pragma once

#include "records/RowMarks.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <span>
#include <vector>

/// A column of a list, its width in twips.
struct ListColumn
{
    QString Header;
    int Width = 0;
    Qt::Alignment Alignment = Qt::AlignLeft;

    bool operator==(const ListColumn &) const = default;
};

/// The rows of a list of results, as they came from the server, with what the user has done to
/// them. Whoever shows them follows the signals; nobody has to.
class RowTable : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Adds a row with its cells, from the first column on; missing cells are empty. The key is not
    /// shown; it goes with the row.
    void AddRow(const QStringList &cells, const QString &key = {});
    void Clear();

    int Count() const { return static_cast<int>(rows.size()); }
    QString Cell(int row, int column) const;
    void SetCell(int row, int column, const QString &text);
    QStringList Cells(int row) const;
    /// The first cells of a row in UTF-8, as many as there is room for; empty ones for those that
    /// it does not have. No text is made, for the sake of whoever goes through all rows. They are
    /// good until the row changes.
    void ViewCells(int row, std::span<QByteArrayView> cells) const;
    QString Key(int row) const;
    /// How many rows came before this one, wherever it stands now: whoever heard of a row when it
    /// came knows it again by that.
    int Arrival(int row) const { return at(row).arrival; }
    /// The number of characters of the longest cell of a column; 0 without one. It is known at any
    /// time, and nothing is looked through.
    int LongestCell(int column) const;

    bool IsChecked(int row) const;
    void SetChecked(int row, bool checked);
    /// The rows that are checked, in the order of the list.
    QList<int> CheckedRows() const;

    /// Marks these rows as new, and no others. A mark goes with its row; rows that are added have
    /// none.
    void SetMarks(const RowMarks &marks);
    /// The same for the rows of which this holds, which is asked for each once.
    void SetMarks(QDate since, const std::function<bool(int row)> &isNew);
    bool IsNew(int row) const { return at(row).isNew; }
    /// How many rows are marked, and the day since which they are new.
    int NewCount() const { return newCount; }
    QDate NewSince() const { return newSince; }

    /// Puts the rows into this order: row n is what row order[n] has been. This raises no
    /// signal: who shows the rows has to know of it before and after, and is the one who sorts
    /// them.
    void Rearrange(const std::vector<int> &order);

Q_SIGNALS:
    void RowAdded();
    void CellChanged(int row, int column);
    void CheckChanged(int row);
    void MarksChanged();
    void Cleared();

private:
    /// All that belongs to a row moves with it.
    struct Row
    {
        QByteArray cells; ///< in one block, see packed()
        QString key;
        bool checked = false;
        bool isNew = false;
        int arrival = 0;
    };

    const Row &at(int row) const { return rows.at(static_cast<size_t>(row)); }
    Row &at(int row) { return rows.at(static_cast<size_t>(row)); }

    void note(int column, const QString &cell);

    std::vector<Row> rows;
    int newCount = 0;
    QDate newSince;
    std::vector<qsizetype> longest; ///< of each column, in characters
};
