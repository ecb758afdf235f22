#include "core/ReceiveBuffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

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

void ReceiveBuffer::TakeOver(const QByteArray &added)
{
    if (bytes.isEmpty())
        bytes = added;
    else
        bytes.append(added);
}

void ReceiveBuffer::Clear()
{
    // Assigned, not cleared in place: a backlog of many megabytes gives its memory back.
    bytes = QByteArray();
    front = 0;
    content = -1;
    searched = 0;
    afterEmpty = '\0';
}

QByteArray ReceiveBuffer::TakeAll()
{
    if (front > 0)
        bytes.remove(0, front);
    const QByteArray all = std::exchange(bytes, {});
    Clear();
    return all;
}

std::optional<QByteArray> ReceiveBuffer::Extract(char delimiter)
{
    if (content < 0 || searchedFor != delimiter) {
        // Behind an empty token something that is no delimiter begins a token: the closing
        // delimiter of the empty one was the opening one of this.
        const bool opened =
            afterEmpty == delimiter && front < bytes.size() && bytes[front] != delimiter;
        const qsizetype from = searchedFor == delimiter ? std::max(front, searched) : front;
        const qsizetype opening = opened ? front - 1 : find(bytes, from, delimiter);
        if (!opened && opening < 0) {
            content = -1;
            searched = bytes.size();
            searchedFor = delimiter;
            return std::nullopt;
        }
        content = opening + 1;
        searched = content;
        searchedFor = delimiter;
    }
    const qsizetype closing = find(bytes, searched, delimiter);
    if (closing < 0) {
        searched = bytes.size();
        return std::nullopt;
    }
    QByteArray token(bytes.constData() + content, closing - content);
    afterEmpty = token.isEmpty() ? delimiter : '\0';
    dropFront(closing + 1);
    return token;
}

void ReceiveBuffer::dropFront(qsizetype newFront)
{
    front = newFront;
    content = -1;
    searched = 0;
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
