#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// Received bytes that nobody has consumed yet: appended at the end, tokens cut off at the front.
///
/// Taking a token costs the length of the token, whatever stands behind it: the front is an offset,
/// and the consumed bytes are thrown away in large pieces. Neither a token that is still incomplete
/// nor what stands before one is searched again from its beginning when more arrives.
class ReceiveBuffer
{
public:
    void Append(QByteArrayView bytes);
    /// The same; an empty buffer takes them over as they are.
    void TakeOver(const QByteArray &bytes);
    void Clear();

    bool IsEmpty() const { return front == bytes.size(); }
    qsizetype Size() const { return bytes.size() - front; }

    /// The unconsumed bytes. Valid until the next change.
    QByteArrayView View() const { return QByteArrayView(bytes).sliced(front); }

    /// Takes all of it out.
    QByteArray TakeAll();

    /// Takes the first token out: the bytes between the first delimiter and the next one. What
    /// stands before the first delimiter is discarded with it. Without two delimiters nothing is
    /// taken, nothing changes, and the answer is empty (nullopt).
    std::optional<QByteArray> Extract(char delimiter);

private:
    void dropFront(qsizetype newFront);

    QByteArray bytes;
    qsizetype front = 0;
    /// Where the content of the open token begins, or -1 when there is none; and how far its
    /// closing delimiter, or without a token the opening one, has been looked for. Both are counted
    /// from the start of `bytes`.
    qsizetype content = -1;
    qsizetype searched = 0;
    char searchedFor = '\0';
    char afterEmpty = '\0'; ///< the delimiter of the last token taken, if that was an empty one
};
