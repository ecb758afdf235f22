#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <deque>
#include <optional>

namespace Practice {
/// Cuts requests out of what a client sends. A request stands between two bars; what stands before
/// an opening bar is dropped, an empty one is passed over, and a started one waits for its rest.
class FrameReader
{
public:
    /// No client has a reason to send a request longer than this, in bytes.
    static constexpr qsizetype longestFrame = 1024 * 1024;

    void Append(QByteArrayView bytes);

    /// The next whole request, without its bars.
    std::optional<QByteArray> Next();

    /// A request has grown past the longest one: the client is not one of ours. Nothing is taken in
    /// any more.
    bool TooLong() const { return tooLong; }

private:
    std::deque<QByteArray> whole;
    QByteArray started;
    bool inside = false;
    bool tooLong = false;
};
} // namespace Practice
