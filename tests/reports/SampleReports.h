#pragma once

#include "reports/Paper.h"
#include "reports/Report.h"

inline constexpr Paper letter{12240, 15840};
inline constexpr Paper letterLying{15840, 12240};

/// A report as results windows print it, of so many rows; each row's name and number are of their
/// own.
Report SampleResults(int rows);
