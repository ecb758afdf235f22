#pragma once

#include "reports/ReportText.h"

#include <QString>

#include <functional>

class QWidget;

/// Tells the user that a report could not be saved to `path`.
void SayNotSaved(QWidget *parent, const QString &path);

/// Makes the text of a report and writes it to `path`. Whatever fails, the user reads that the
/// file could not be saved, and a file that was there before is as it was. True when it is written.
bool SaveReport(QWidget *parent, const QString &path, const std::function<ReportText()> &text);

/// Opens a mail with the report that SaveReport has just written to `path`. When that fails the
/// user reads why, and can have the folder shown in which the report is.
void SendResultsByMail(QWidget *window, const QString &path, const QString &name);

/// Asks where to save the report of a window with this caption, in the folder of reports. With the
/// answer comes the call of `save`, unless the user does not want to or the window is gone by then.
void AskWhereToSaveReport(QWidget *window, const QString &caption,
                          const std::function<void(const QString &path)> &save);
