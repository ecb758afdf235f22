#include "core/Platform.h"

#include <QFile>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <io.h>
#endif

namespace {
std::filesystem::path nativePath(const QString &path)
{
    return std::filesystem::path(path.toStdU16String());
}
} // namespace

AppendResult AppendOwnerOnly(const QString &path, const QByteArray &bytes, qint64 largest)
{
#ifdef Q_OS_UNIX
    // The mode is given with the creation: there is no moment at which others could open the file.
    const int descriptor = ::open(QFile::encodeName(path).constData(),
                                  O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return AppendResult::Failed;
    struct stat info = {};
    if (::fstat(descriptor, &info) == 0 && (info.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        ::fchmod(descriptor, S_IRUSR | S_IWUSR);
    if (info.st_size > largest) {
        ::close(descriptor);
        return AppendResult::TooLarge;
    }
    const ssize_t written =
        ::write(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()));
    return ::close(descriptor) == 0 && written == bytes.size() ? AppendResult::Appended
                                                               : AppendResult::Failed;
#else
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return AppendResult::Failed;
    if (file.size() > largest)
        return AppendResult::TooLarge;
    return file.write(bytes) == bytes.size() ? AppendResult::Appended : AppendResult::Failed;
#endif
}

bool FlushToDisk(int fileDescriptor)
{
#ifdef Q_OS_UNIX
    return ::fsync(fileDescriptor) == 0;
#else
    return ::_commit(fileDescriptor) == 0;
#endif
}

bool RenameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return !error;
}

QString UserIdText()
{
#ifdef Q_OS_UNIX
    return QString::number(::getuid());
#else
    return qEnvironmentVariable("USERNAME");
#endif
}
