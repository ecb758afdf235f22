#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QTemporaryFile>

/// A file that takes the place of the one at `path`, or comes new, once it is whole: whoever looks
/// before finds the old one, or none. One that is never committed leaves nothing behind, unless the
/// program is killed: RemoveUnfinishedFiles. A link stays a link: what it points at is what is
/// replaced.
///
/// Throws error 70 ("Permission denied") when the folder cannot be written, or the file not be
/// replaced or is there to be read only, and 61 ("Disk full") when it cannot be written to its end.
class FileReplacement
{
public:
    explicit FileReplacement(const QString &path);

    void Write(QByteArrayView bytes);

    /// Whether what was written has to survive a power cut, for which the disk has to be waited.
    enum class Survives { PowerCut, Crash };
    void Commit(Survives survives = Survives::PowerCut);

private:
    const QString target;
    QTemporaryFile file;
};

/// Takes away what a program that was killed has left in this folder of files that were not yet
/// whole (not in the folders beneath it). Nobody else may be writing there.
void RemoveUnfinishedFiles(const QString &folder);

/// Replaces the whole content of the file at `path`, or creates it. A crash or a full disk at any
/// point leaves the old file as it was. The file is readable by its owner only from the moment it
/// exists. Returns false, with the old file untouched, when it could not be done.
bool ReplaceFileContent(const QString &path, const QByteArray &content);

/// The content of the file at `path`. Throws error 53 when there is none, and 75 when it is there
/// and cannot be read.
QByteArray FileContent(const QString &path);
