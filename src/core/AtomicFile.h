#pragma once

#include <QByteArray>
#include <QString>

/// Replaces the whole content of the file at `path`, or creates it. A crash or a full disk at any
/// point leaves the old file as it was. The file is readable by its owner only from the moment it
/// exists. Returns false, with the old file untouched, when it could not be done.
bool ReplaceFileContent(const QString &path, const QByteArray &content);

/// The content of the file at `path`. Throws error 53 when there is none, and 75 when it is there
/// and cannot be read.
QByteArray FileContent(const QString &path);
