#pragma once

#include <QString>

/// Appends one entry, date-time + " -- " + message, to AppInfo.txt in the application folder.
///
/// Never fails visibly: a full disk or a locked file loses the entry, since logging must not stop
/// the caller. The file is opened, appended to and closed for each entry; a file of more than
/// 1,024,000 bytes is first renamed to AppInfo.bak, in place of the one before. The file can hold
/// passwords and is its owner's only.
void WriteAppInfo(const QString &message);
