#include "core/AtomicFile.h"

#include "core/Platform.h"
#include "core/RunTimeError.h"

#include <QFile>
#include <QFileInfo>

namespace {
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
    : target(targetOf(path)), file(target + QStringLiteral(".XXXXXX"))
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
