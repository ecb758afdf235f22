#pragma once

#include <QString>
#include <QStringList>

/// Writes the lines of a text report, replacing the file at `path`: Windows-1252, each line ended
/// by CR LF. A line end or another control character within a line would make lines of its own, and
/// is written as a blank. Throws error 70 or 61 with the old file as it was, see FileReplacement.
void WriteReportFile(const QString &path, const QStringList &lines);

/// The name under which the report of a window is saved: its caption with each "/" turned into "-",
/// and ".Txt" behind it.
QString ReportFileName(const QString &caption);
