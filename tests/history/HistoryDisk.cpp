#include "HistoryDisk.h"

#include "support/FileCalls.h"

#include <QMutex>

#include <atomic>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

// The calls of the process to its files come through here: SQLite is not ours to be replaced, but
// what it calls is.

namespace {
std::atomic<int> failing = 0;
std::atomic<int> readsToFailure = 0; ///< 0: none fails
QMutex birthsMutex;

QList<unsigned> &births()
{
    static QList<unsigned> all;
    return all;
}

bool isHistory(const char *path)
{
    return path && std::strstr(path, "history") && std::strstr(path, ".db");
}

bool isHistory(int file)
{
    return IsOpenFile(file, &isHistory);
}

bool fails(int file)
{
    const int error = failing;
    if (error == 0 || !isHistory(file))
        return false;
    errno = error;
    return true;
}

bool readFails(int file)
{
    if (readsToFailure == 0 || !isHistory(file) || --readsToFailure != 0)
        return false;
    errno = EIO;
    return true;
}

using Read = ssize_t (*)(int, void *, size_t, off_t);
using Write = ssize_t (*)(int, const void *, size_t, off_t);
} // namespace

bool MayOpen(const char *path, int flags, mode_t mode)
{
    if ((flags & O_CREAT) != 0 && isHistory(path) && ::access(path, F_OK) != 0) {
        const QMutexLocker locker(&birthsMutex);
        births().append(mode);
    }
    return true;
}

extern "C" {
ssize_t pread(int file, void *bytes, size_t count, off_t offset)
{
    return readFails(file) ? -1 : RealCall<Read>("pread")(file, bytes, count, offset);
}

ssize_t pread64(int file, void *bytes, size_t count, off64_t offset)
{
    return readFails(file) ? -1 : RealCall<Read>("pread64")(file, bytes, count, offset);
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t offset)
{
    return fails(file) ? -1 : RealCall<Write>("pwrite")(file, bytes, count, offset);
}

ssize_t pwrite64(int file, const void *bytes, size_t count, off64_t offset)
{
    return fails(file) ? -1 : RealCall<Write>("pwrite64")(file, bytes, count, offset);
}
}

FailingHistoryDisk::FailingHistoryDisk(int error)
{
    failing = error;
}

FailingHistoryDisk::~FailingHistoryDisk()
{
    failing = 0;
}

FailingHistoryRead::FailingHistoryRead(int nth)
{
    readsToFailure = nth;
}

FailingHistoryRead::~FailingHistoryRead()
{
    readsToFailure = 0;
}

bool FailingHistoryRead::HasFailed() const
{
    return readsToFailure == 0;
}

QList<unsigned> PermissionsAtBirth()
{
    const QMutexLocker locker(&birthsMutex);
    return births();
}
