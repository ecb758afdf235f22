#include "namesearch/CaseMemory.h"

#include <utility>

namespace {
CaseMemory &inUse()
{
    static CaseMemory memory;
    return memory;
}
} // namespace

void UseCaseMemory(CaseMemory memory)
{
    inUse() = std::move(memory);
}

std::optional<QDateTime> LastOpened(const QString &identity)
{
    return inUse() && !identity.isEmpty() ? inUse()(identity) : std::nullopt;
}
