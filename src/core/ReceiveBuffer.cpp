#include "core/ReceiveBuffer.h"

#include <cstring>

namespace {
/// Consumed bytes are kept until there are this many: one memmove pays for thousands of tokens.
constexpr qsizetype compactionBytes = 256 * 1024;

qsizetype find(const QByteArray &bytes, qsizetype from, char delimiter)
{
    if (from >= bytes.size())
        return -1;
    const void *found =
        std::memchr(bytes.constData() + from, delimiter, static_cast<size_t>(bytes.size() - from));
    return found ? static_cast<const char *>(found) - bytes.constData() : -1;
}
} // namespace

void ReceiveBuffer::Append(QByteArrayView added)
{
    bytes.append(added);
}

void ReceiveBuffer::Clear()
{
    // Assigned, not cleared in place: a backlog of many megabytes gives its memory back.
    bytes = QByteArray();
    front = 0;
    scanned = -1;
    opening = -1;
}

std::optional<QByteArray> ReceiveBuffer::Extract(char delimiter)
{
    if (opening < 0 || scannedFor != delimiter) {
        opening = find(bytes, front, delimiter);
        scannedFor = delimiter;
        if (opening < 0)
            return std::nullopt;
        scanned = opening + 1;
    }
    const qsizetype closing = find(bytes, scanned, delimiter);
    if (closing < 0) {
        scanned = bytes.size();
        return std::nullopt;
    }
    QByteArray token(bytes.constData() + opening + 1, closing - opening - 1);
    dropFront(closing + 1);
    return token;
}

void ReceiveBuffer::dropFront(qsizetype newFront)
{
    front = newFront;
    opening = -1;
    scanned = -1;
    if (front == bytes.size()) {
        if (bytes.capacity() > 4 * compactionBytes)
            bytes = QByteArray();
        else
            bytes.resize(0);
        front = 0;
    } else if (front >= compactionBytes && front >= bytes.size() / 2) {
        bytes.remove(0, front);
        front = 0;
    }
}
