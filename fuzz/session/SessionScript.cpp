#include "session/SessionScript.h"

namespace {
constexpr int greatestNumber = 9999;

QByteArray unescaped(QByteArrayView text)
{
    QByteArray bytes;
    bool escaped = false;
    for (const char c : text) {
        if (!escaped && c == '\\') {
            escaped = true;
            continue;
        }
        bytes.append(escaped && c == 'n' ? '\n' : c);
        escaped = false;
    }
    return bytes;
}

/// Takes a number from the front of the line; 0 where there is none.
int takeNumber(QByteArrayView &line)
{
    while (line.startsWith(' '))
        line = line.sliced(1);
    int number = 0;
    while (!line.isEmpty() && line.front() >= '0' && line.front() <= '9') {
        number = qMin(greatestNumber, number * 10 + (line.front() - '0'));
        line = line.sliced(1);
    }
    return number;
}
} // namespace

SessionScript::SessionScript(QByteArrayView bytes) : rest(bytes) {}

std::optional<SessionMove> SessionScript::Next()
{
    if (AtEnd())
        return std::nullopt;
    ++taken;
    const qsizetype end = rest.indexOf('\n');
    QByteArrayView line = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
    SessionMove move;
    if (line.isEmpty())
        return move;
    move.Letter = line.front();
    line = line.sliced(1);
    if (move.Letter == '=') {
        move.Text = unescaped(line);
        return move;
    }
    move.First = takeNumber(line);
    move.Second = takeNumber(line);
    return move;
}
