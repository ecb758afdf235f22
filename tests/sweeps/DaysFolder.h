#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

// The files of an application folder, and what a day that was broken may have left of them.

/// Every file beneath a folder, by its path beneath it. Where a text names the folder, "FOLDER"
/// stands in its place.
using FolderImage = QMap<QString, QByteArray>;

FolderImage ReadFolder(const QString &path);
/// The folder has these files then, and nothing else.
void WriteFolder(const QString &path, const FolderImage &image);

/// What a day begins with, and what it leaves when nothing is broken.
struct DaysFiles
{
    FolderImage Before;
    FolderImage After;
};

/// How a day came to its end.
enum class DaysEnd {
    ByItself,
    Killed, ///< a file may have its name for the moment still, and the history its journal
};

/// What is wrong with the files that a broken day has left: each has to be the old one or the new
/// one, a list has to have whole lines, and there is to be nothing else. "" when all is well.
QString ComplaintOfFiles(const DaysFiles &day, const FolderImage &left, DaysEnd end);

/// The files that are not as the day leaves them when nothing is broken, though the user has asked
/// for them: somebody has to have said so.
QStringList FilesNotWritten(const DaysFiles &day, const FolderImage &left);

/// What is wrong with a history that is not open; "" when it can be read to its end.
QString ComplaintOfHistory(const QString &path);
