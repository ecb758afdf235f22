#include "practice/SendGate.h"

#include <algorithm>
#include <limits>

namespace Practice {
namespace {
constexpr qint64 wholeByte = 1'000;

// What a drip may save up while nothing is to be sent, in parts of a second.
constexpr qint64 savedParts = 20;
} // namespace

SendGate::SendGate(const Switches &switches) : faults(switches) {}

qint64 SendGate::left() const
{
    constexpr qint64 noEnd = std::numeric_limits<qint64>::max();
    const qint64 end =
        std::min(faults.dropAfter.value_or(noEnd), faults.stallAfter.value_or(noEnd));
    return end == noEnd ? noEnd : end - sent;
}

qint64 SendGate::Allowance(qint64 waiting, qint64 now)
{
    qint64 allowed = std::min(waiting, left());
    if (faults.split)
        allowed = std::min(allowed, *faults.split);
    if (faults.drip) {
        const qint64 rate = *faults.drip;
        const qint64 most = std::max(wholeByte, rate * wholeByte / savedParts);
        const qint64 passed = lastTime < 0 ? 0 : std::min<qint64>(now - lastTime, wholeByte);
        credit = std::min(most, credit + rate * passed);
        lastTime = now;
        allowed = std::min(allowed, credit / wholeByte);
    }
    return allowed;
}

void SendGate::Sent(qint64 bytes)
{
    sent += bytes;
    if (faults.drip)
        credit -= bytes * wholeByte;
}

int SendGate::Wait() const
{
    if (!faults.drip || credit >= wholeByte)
        return 0;
    return static_cast<int>((wholeByte - credit) / *faults.drip + 1);
}

bool SendGate::MustDrop() const
{
    return faults.dropAfter && sent >= *faults.dropAfter;
}

bool SendGate::Stalled() const
{
    return faults.stallAfter && sent >= *faults.stallAfter;
}
} // namespace Practice
