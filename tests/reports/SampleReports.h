#pragma once

#include "reports/Report.h"

/// A report as results windows print it, of so many rows; each row's name and number are of their
/// own.
Report SampleResults(int rows);
