#include "records/RowTable.h"

#include <QStringEncoder>

#include <algorithm>
#include <utility>

namespace {
constexpr int lengthBits = 7;
constexpr qsizetype mostKept = 64 * 1024; ///< of the place where rows are packed
constexpr unsigned char moreFollows = 1U << lengthBits;

/// A number in as few bytes as it takes, seven bits in each.
void appendNumber(QByteArray &block, qsizetype number)
{
    auto left = static_cast<quint64>(number);
    for (; left >= moreFollows; left >>= lengthBits)
        block.append(static_cast<char>((left & (moreFollows - 1U)) | moreFollows));
    block.append(static_cast<char>(left));
}

qsizetype takeNumber(const char *&at)
{
    quint64 number = 0;
    for (int shift = 0;; shift += lengthBits) {
        const auto byte = static_cast<unsigned char>(*at++);
        number |= static_cast<quint64>(byte & (moreFollows - 1U)) << shift;
        if (byte < moreFollows)
            return static_cast<qsizetype>(number);
    }
}

/// How many bytes appendNumber makes of a number.
qsizetype bytesOfNumber(qsizetype number)
{
    qsizetype bytes = 1;
    for (auto left = static_cast<quint64>(number); left >= moreFollows; left >>= lengthBits)
        ++bytes;
    return bytes;
}

/// The cells as one block: how many there are, the length of each, and then their texts in UTF-8
/// with nothing between. A list of texts takes four times the memory, and there may be a hundred
/// thousand rows, of which the view shows thirty. Whoever asks for the lengths need not look
/// through the texts.
QByteArray packed(const QStringList &cells)
{
    // Encoded in a place of its own, so that what a row keeps is taken once, in its true size.
    static QByteArray texts;
    static std::vector<qsizetype> lengths;
    texts.resize(0);
    lengths.clear();
    qsizetype size = bytesOfNumber(cells.size());
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    for (const QString &cell : cells) {
        const qsizetype before = texts.size();
        texts.resize(before + encoder.requiredSpace(cell.size()));
        const char *const end = encoder.appendToBuffer(texts.data() + before, cell);
        texts.truncate(end - texts.constData());
        lengths.push_back(texts.size() - before);
        size += bytesOfNumber(lengths.back());
    }
    QByteArray block;
    block.reserve(size + texts.size());
    appendNumber(block, cells.size());
    for (const qsizetype length : lengths)
        appendNumber(block, length);
    block.append(texts);
    if (texts.capacity() > mostKept)
        texts = QByteArray();
    return block;
}

/// The cells of a block, one after the other.
class BlockReader
{
public:
    explicit BlockReader(const QByteArray &block) : length(block.constData())
    {
        left = takeNumber(length);
        text = length;
        for (qsizetype i = 0; i < left; ++i)
            takeNumber(text);
    }

    bool AtEnd() const { return left == 0; }
    QByteArrayView Next()
    {
        const QByteArrayView cell(text, takeNumber(length));
        text += cell.size();
        --left;
        return cell;
    }

private:
    const char *length; ///< of the next cell
    const char *text;   ///< the next cell
    qsizetype left = 0;
};

/// The text of a cell of this block, empty when the row has no such cell.
QString cellIn(const QByteArray &block, int column)
{
    BlockReader reader(block);
    for (int i = 0; i <= column && !reader.AtEnd(); ++i) {
        const QByteArrayView cell = reader.Next();
        if (i == column)
            return QString::fromUtf8(cell);
    }
    return {};
}
} // namespace

void RowTable::AddRow(const QStringList &cells, const QString &key)
{
    rows.push_back({.cells = packed(cells), .key = key, .arrival = Count()});
    for (int column = 0; column < cells.size(); ++column)
        note(column, cells.at(column));
    Q_EMIT RowAdded();
}

void RowTable::Clear()
{
    rows.clear();
    longest.clear();
    newCount = 0;
    Q_EMIT Cleared();
}

QString RowTable::Cell(int row, int column) const
{
    return cellIn(at(row).cells, column);
}

void RowTable::ViewCells(int row, std::span<QByteArrayView> cells) const
{
    BlockReader reader(at(row).cells);
    for (QByteArrayView &cell : cells)
        cell = reader.AtEnd() ? QByteArrayView() : reader.Next();
}

int RowTable::LongestCell(int column) const
{
    const auto index = static_cast<size_t>(column);
    return index < longest.size() ? static_cast<int>(longest[index]) : 0;
}

void RowTable::note(int column, const QString &cell)
{
    const auto index = static_cast<size_t>(column);
    if (index >= longest.size())
        longest.resize(index + 1);
    longest[index] = std::max(longest[index], cell.size());
}

void RowTable::SetCell(int row, int column, const QString &text)
{
    QStringList cells = Cells(row);
    const bool wasLongest = cells.value(column).size() == LongestCell(column);
    while (cells.size() <= column)
        cells.append(QString());
    cells[column] = text;
    at(row).cells = packed(cells);
    note(column, text);
    // Another one is the longest now, or several are.
    if (wasLongest && text.size() < LongestCell(column)) {
        longest[static_cast<size_t>(column)] = 0;
        for (int each = 0; each < Count(); ++each)
            note(column, Cell(each, column));
    }
    Q_EMIT CellChanged(row, column);
}

QStringList RowTable::Cells(int row) const
{
    QStringList cells;
    for (BlockReader reader(at(row).cells); !reader.AtEnd();)
        cells.append(QString::fromUtf8(reader.Next()));
    return cells;
}

QString RowTable::Key(int row) const
{
    return at(row).key;
}

bool RowTable::IsChecked(int row) const
{
    return at(row).checked;
}

void RowTable::SetChecked(int row, bool checked)
{
    at(row).checked = checked;
    Q_EMIT CheckChanged(row);
}

QList<int> RowTable::CheckedRows() const
{
    QList<int> checked;
    for (int row = 0; row < Count(); ++row) {
        if (IsChecked(row))
            checked.append(row);
    }
    return checked;
}

void RowTable::SetMarks(const RowMarks &marks)
{
    SetMarks(marks.Since, [&marks](int row) { return marks.Rows.contains(row); });
}

void RowTable::SetMarks(QDate since, const std::function<bool(int row)> &isNew)
{
    newCount = 0;
    newSince = since;
    for (int row = 0; row < Count(); ++row) {
        at(row).isNew = isNew(row);
        newCount += at(row).isNew ? 1 : 0;
    }
    Q_EMIT MarksChanged();
}

void RowTable::Rearrange(const std::vector<int> &order)
{
    std::vector<Row> moved;
    moved.reserve(rows.size());
    for (const int from : order)
        moved.push_back(std::move(at(from)));
    rows = std::move(moved);
}
