#include "core/EndProgram.h"

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {
std::function<void(int)> replacement;

std::vector<std::function<void()>> &duties()
{
    static std::vector<std::function<void()>> all;
    return all;
}
} // namespace

void EndProgram(int exitCode)
{
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

void AtEndOfProgram(const std::function<void()> &duty)
{
    duties().push_back(duty);
}

void ReplaceEndProgram(std::function<void(int)> ending)
{
    replacement = std::move(ending);
}
