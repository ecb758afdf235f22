#pragma once

#include "core/RunTimeError.h"

#include <functional>

/// The number of the error that `act` throws, 0 when it throws none.
inline int ErrorOf(const std::function<void()> &act)
{
    try {
        act();
    } catch (const RunTimeError &error) {
        return error.Number();
    }
    return 0;
}
