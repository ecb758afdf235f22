#include "history/RowHashes.h"

#include <QtEndian>

namespace {
constexpr quint64 mixer = 0x9E3779B97F4A7C15ULL;
constexpr qsizetype hashBytes = sizeof(quint64);
constexpr qsizetype entryBytes = hashBytes + sizeof(quint32);

quint64 stirred(quint64 hash, quint64 word)
{
    hash = (hash ^ word) * mixer;
    return hash ^ (hash >> 29);
}

/// Four characters at a time: a case has twenty thousand rows.
quint64 hashOfText(quint64 hash, QStringView text)
{
    constexpr qsizetype step = 4;
    const char16_t *at = text.utf16();
    qsizetype left = text.size();
    for (; left >= step; left -= step, at += step)
        hash = stirred(hash, quint64{at[0]} | quint64{at[1]} << 16 | quint64{at[2]} << 32
                                 | quint64{at[3]} << 48);
    for (; left > 0; --left, ++at)
        hash = stirred(hash, *at);
    // Where a cell ends belongs to the row.
    return stirred(hash, mixer + static_cast<quint64>(text.size()));
}
} // namespace

quint64 HashOfCells(const QStringList &cells)
{
    quint64 hash = mixer;
    for (const QString &cell : cells)
        hash = hashOfText(hash, cell);
    return hash;
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
