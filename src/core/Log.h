#pragma once

#include <QString>

/// Whose the line ends in a message are: somebody else's, who must not begin an entry, or its own.
enum class LogLines { One, Own };

/// Appends one entry, date-time + " -- " + message, to AppInfo.txt in the application folder.
///
/// Never fails visibly: a full disk or a locked file loses the entry, since logging must not stop
/// the caller. The file is opened, appended to and closed for each entry; a file of more than
/// 1,024,000 bytes is first renamed to AppInfo.bak, in place of the one before. The file can hold
/// passwords and is its owner's only.
///
/// An entry is one line: most messages repeat what a server said, and a line end in that would
/// begin an entry that the program never wrote. Control characters but the tab are written as
/// "\x0D". The line ends of a message stay as they are only where the caller says that they are its
/// own.
void WriteAppInfo(const QString &message, LogLines lines = LogLines::One);
