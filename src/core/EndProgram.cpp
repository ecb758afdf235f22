#include "core/EndProgram.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

namespace {
std::function<void(int)> replacement;
int holds = 0;
std::optional<int> heldCode; ///< of the end that waits

std::vector<std::function<void()>> &duties()
{
    static std::vector<std::function<void()>> all;
    return all;
}
} // namespace

void EndProgram(int exitCode)
{
    if (holds > 0) {
        heldCode = exitCode;
        return;
    }
    const std::vector<std::function<void()>> due = std::exchange(duties(), {});
    for (const std::function<void()> &duty : due)
        duty();
    if (replacement) {
        replacement(exitCode);
        return;
    }
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

ProgramHold::ProgramHold()
{
    ++holds;
}

ProgramHold::~ProgramHold()
{
    if (--holds > 0 || !heldCode)
        return;
    EndProgram(*std::exchange(heldCode, std::nullopt));
}

void AtEndOfProgram(const std::function<void()> &duty)
{
    duties().push_back(duty);
}

void ReplaceEndProgram(std::function<void(int)> ending)
{
    replacement = std::move(ending);
}
