#pragma once

#include "history/HistoryReader.h"
#include "reports/Report.h"
#include "reports/ReportText.h"

// The account as tables and reports show it: a row for each client code and month, and a total.

/// The titles of the columns.
QStringList UsageHeads();
/// The cells of a line, in the order of the titles. No client code reads "(none)".
QStringList UsageCells(const HistoryUsage &line);
/// The sum of all lines; its month reads "Total".
HistoryUsage TotalUsage(const QList<HistoryUsage> &lines);

/// The account on paper.
Report ComposeUsage(const QList<HistoryUsage> &lines, const ReportSituation &situation);
/// The account as a text file.
ReportText UsageText(const QList<HistoryUsage> &lines, const ReportSituation &situation);
