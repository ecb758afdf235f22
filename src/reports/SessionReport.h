#pragma once

#include "reports/Report.h"

/// The report of a session: who, how long, and `when` this is, as text.
Report SessionReport(const QString &userName, const QString &sessionTime, const QString &when);
