#include "history/RowHashes.h"

#include <QVarLengthArray>
#include <QtEndian>

#include <algorithm>

namespace {
constexpr quint64 mixer = 0x9E3779B97F4A7C15ULL;
constexpr qsizetype hashBytes = sizeof(quint64);
constexpr qsizetype entryBytes = hashBytes + sizeof(quint32);

quint64 stirred(quint64 hash, quint64 word)
{
    hash = (hash ^ word) * mixer;
    return hash ^ (hash >> 29);
}
} // namespace

RowHash::RowHash() : hash(mixer) {}

/// Four characters at a time: a case has twenty thousand rows.
void RowHash::Add(QStringView cell)
{
    constexpr qsizetype step = 4;
    const char16_t *at = cell.utf16();
    qsizetype left = cell.size();
    for (; left >= step; left -= step, at += step)
        hash = stirred(hash, quint64{at[0]} | quint64{at[1]} << 16 | quint64{at[2]} << 32
                                 | quint64{at[3]} << 48);
    for (; left > 0; --left, ++at)
        hash = stirred(hash, *at);
    // Where a cell ends belongs to the row.
    hash = stirred(hash, mixer + static_cast<quint64>(cell.size()));
}

void RowHash::Add(QByteArrayView utf8)
{
    constexpr qsizetype usualCell = 256;
    constexpr unsigned char firstOfOthers = 0x80;
    QVarLengthArray<char16_t, usualCell> plain(utf8.size());
    unsigned char all = 0;
    std::transform(utf8.begin(), utf8.end(), plain.begin(), [&all](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        all |= code;
        return static_cast<char16_t>(code);
    });
    if (all < firstOfOthers)
        Add(QStringView(plain.constData(), plain.size()));
    else
        Add(QStringView(QString::fromUtf8(utf8)));
}

quint64 HashOfCells(const QStringList &cells)
{
    RowHash row;
    for (const QString &cell : cells)
        row.Add(QStringView(cell));
    return row.Value();
}

RowCounts CountsOf(const QList<quint64> &rows)
{
    RowCounts counts;
    counts.reserve(rows.size());
    for (const quint64 row : rows)
        ++counts[row];
    return counts;
}

RowCounts Joined(const RowCounts &counts, const RowCounts &more)
{
    RowCounts joined = counts;
    for (auto row = more.begin(); row != more.end(); ++row) {
        int &count = joined[row.key()];
        count = qMax(count, row.value());
    }
    return joined;
}

QByteArray PackedRows(const RowCounts &counts)
{
    QByteArray packed(counts.size() * entryBytes, Qt::Uninitialized);
    char *at = packed.data();
    for (auto row = counts.begin(); row != counts.end(); ++row, at += entryBytes) {
        qToLittleEndian(row.key(), at);
        qToLittleEndian(static_cast<quint32>(row.value()), at + hashBytes);
    }
    return packed;
}

RowCounts UnpackedRows(const QByteArray &packed)
{
    RowCounts counts;
    counts.reserve(packed.size() / entryBytes);
    for (qsizetype at = 0; at + entryBytes <= packed.size(); at += entryBytes)
        counts.insert(qFromLittleEndian<quint64>(packed.constData() + at),
                      qFromLittleEndian<qint32>(packed.constData() + at + hashBytes));
    return counts;
}

RowSet UnpackedRowSet(const QByteArray &packed)
{
    RowSet rows(packed.size() / entryBytes);
    for (qsizetype at = 0; at + entryBytes <= packed.size(); at += entryBytes)
        rows.Insert(qFromLittleEndian<quint64>(packed.constData() + at));
    return rows;
}
