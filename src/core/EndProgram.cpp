#include "core/EndProgram.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {
std::function<void(int)> replacement;
}

void EndProgram(int exitCode)
{
    if (replacement) {
        replacement(exitCode);
        return;
    }
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

void ReplaceEndProgram(std::function<void(int)> ending)
{
    replacement = std::move(ending);
}
