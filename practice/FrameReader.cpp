#include "practice/FrameReader.h"

#include <utility>

namespace Practice {
void FrameReader::Append(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && !tooLong) {
        const qsizetype bar = bytes.indexOf('|');
        const qsizetype end = bar < 0 ? bytes.size() : bar;
        if (inside) {
            if (started.size() + end > longestFrame) {
                tooLong = true;
                started.clear();
                return;
            }
            started.append(bytes.first(end));
        }
        if (bar < 0)
            return;
        if (inside && !started.isEmpty())
            whole.push_back(std::exchange(started, QByteArray()));
        inside = !inside;
        bytes = bytes.sliced(bar + 1);
    }
}

std::optional<QByteArray> FrameReader::Next()
{
    if (whole.empty())
        return std::nullopt;
    QByteArray frame = std::move(whole.front());
    whole.pop_front();
    return frame;
}
} // namespace Practice
