#include "core/AtomicFile.h"

#include "core/Platform.h"
#include "core/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
/// What is behind the name of a file while it is written: six letters that nobody else has, and a
/// word that tells what it is.
constexpr QStringView randomLetters = u".XXXXXX";
constexpr QStringView unfinished = u".unfinished";

QString targetOf(const QString &path)
{
    const QFileInfo info(path);
    return info.isSymLink() && info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

/// That nobody may write it: a renaming would not ask.
bool isReadOnly(const QString &path)
{
    constexpr QFile::Permissions write = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const QFileInfo info(path);
    return info.exists() && !(info.permissions() & write);
}
} // namespace

// QTemporaryFile creates its file with mode 0600, in the target's own folder, so that the renaming
// stays within one file system.
FileReplacement::FileReplacement(const QString &path)
    : target(targetOf(path)), file(target + randomLetters + unfinished)
{
    if (QFileInfo(target).isDir() || isReadOnly(target) || !file.open())
        throw RunTimeError::PermissionDenied();
}

void FileReplacement::Write(QByteArrayView bytes)
{
    if (file.write(bytes.data(), bytes.size()) != bytes.size())
        throw RunTimeError::DiskFull();
}

void FileReplacement::Commit(Survives survives)
{
    const bool written =
        file.flush() && (survives == Survives::Crash || FlushToDisk(file.handle()));
    file.close();
    if (!written || file.error() != QFileDevice::NoError)
        throw RunTimeError::DiskFull();
    if (!RenameOver(file.fileName(), target))
        throw RunTimeError::PermissionDenied();
    file.setAutoRemove(false);
}

void RemoveUnfinishedFiles(const QString &folder)
{
    QString pattern = u'*' + randomLetters + unfinished;
    QDir dir(folder);
    const QStringList names =
        dir.entryList({pattern.replace(u'X', u'?')}, QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names)
        dir.remove(name);
}

bool ReplaceFileContent(const QString &path, const QByteArray &content)
{
    try {
        FileReplacement file(path);
        file.Write(content);
        file.Commit();
        return true;
    } catch (const RunTimeError &) {
        return false;
    }
}

QByteArray FileContent(const QString &path)
{
    if (!QFileInfo::exists(path))
        throw RunTimeError::FileNotFound();
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw RunTimeError::PathFileAccess();
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw RunTimeError::PathFileAccess();
    return content;
}
