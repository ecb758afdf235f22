#pragma once

#include "practice/CommandLine.h"

namespace Practice {
/// Decides how many bytes of a reply may go out now on one connection: where the faults of the
/// command line act. It keeps no clock and no socket; whoever sends tells it the time and what went
/// out.
class SendGate
{
public:
    explicit SendGate(const Switches &switches);

    /// How many of `waiting` bytes may be sent in one write at time `now`, in milliseconds.
    qint64 Allowance(qint64 waiting, qint64 now);

    /// So many bytes went out.
    void Sent(qint64 bytes);

    /// When Allowance() said 0 because of the drip: milliseconds until there is a byte to send.
    int Wait() const;

    /// All that may ever be sent has been; the connection is to be closed, or is to stay silent.
    bool MustDrop() const;
    bool Stalled() const;

private:
    qint64 left() const;

    Switches faults;
    qint64 sent = 0;
    qint64 credit = 0; ///< of the drip, in thousandths of a byte
    qint64 lastTime = -1;
};
} // namespace Practice
