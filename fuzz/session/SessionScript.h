#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// One move of the world: a letter, up to two numbers behind it, and the text behind a "=".
struct SessionMove
{
    char Letter = '.';
    int First = 0;
    int Second = 0;
    QByteArray Text;
};

/// An input of the fuzzer, read as a list of moves, one a line. What the letters mean is in
/// SessionWorld.cpp. Any bytes are a script.
///
///     n 3        a window is opened, the fourth kind of those that there are
///     =|EOF~|    these bytes arrive; "\n" is a line end among them, "\\" a backslash
class SessionScript
{
public:
    explicit SessionScript(QByteArrayView bytes);

    /// The next move; nothing when there are no more, or so many that the rest is left out.
    std::optional<SessionMove> Next();
    bool AtEnd() const { return rest.isEmpty() || taken >= mostMoves; }

private:
    static constexpr int mostMoves = 300;

    QByteArrayView rest;
    int taken = 0;
};
