#pragma once

#include <QStringList>

/// The lines of a list file beside the program, without their line ends; empty lines are passed
/// over. A file that is missing or cannot be read is logged and gives no lines. A line beyond
/// `most` is logged too: the lines before it are what the list holds. `most` of 0 is no limit.
QStringList ReadListFile(const QString &fileName, qsizetype most);
