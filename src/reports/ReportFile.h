#pragma once

#include "reports/ReportText.h"

#include <QString>

/// Writes a text report, replacing the file at `path`. Throws error 70 or 61 with the old file as
/// it was, see FileReplacement.
void WriteReportFile(const QString &path, const ReportText &text);

/// The name under which the report of a window is saved: its caption with each "/" turned into "-",
/// and the ending, with its dot, behind it.
QString ReportFileName(const QString &caption, const QString &ending = QStringLiteral(".Txt"));
