#include "core/AtomicFile.h"

#include "core/Platform.h"
#include "core/RunTimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

bool ReplaceFileContent(const QString &path, const QByteArray &content)
{
    const QFileInfo info(path);
    if (info.isDir())
        return false;
    // A link stays a link: what it points at is what is replaced.
    const QString target =
        info.isSymLink() && info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    // QTemporaryFile creates its file with mode 0600, in the target's own folder, so that the
    // renaming stays within one file system.
    QTemporaryFile file(target + QStringLiteral(".XXXXXX"));
    if (!file.open())
        return false;
    const bool written =
        file.write(content) == content.size() && file.flush() && FlushToDisk(file.handle());
    file.close();
    if (!written || file.error() != QFileDevice::NoError)
        return false;
    if (!RenameOver(file.fileName(), target))
        return false;
    file.setAutoRemove(false);
    return true;
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
