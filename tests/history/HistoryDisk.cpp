#include "HistoryDisk.h"

#include <QMutex>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

// The calls of the process to its files come through here: SQLite is not ours to be replaced, but
// what it calls is.

namespace {
std::atomic<int> failing = 0;
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
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    std::array<char, 1024> path{};
    return ::readlink(link.data(), path.data(), path.size() - 1) > 0 && isHistory(path.data());
}

template<typename Function>
Function real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool fails(int file)
{
    const int error = failing;
    if (error == 0 || !isHistory(file))
        return false;
    errno = error;
    return true;
}

int openNoting(const char *name, const char *path, int flags, mode_t mode)
{
    if ((flags & O_CREAT) != 0 && isHistory(path) && ::access(path, F_OK) != 0) {
        const QMutexLocker locker(&birthsMutex);
        births().append(mode);
    }
    return real<int (*)(const char *, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

using Write = ssize_t (*)(int, const void *, size_t, off_t);
} // namespace

extern "C" {
int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNoting("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNoting("open64", path, flags, mode);
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t offset)
{
    return fails(file) ? -1 : real<Write>("pwrite")(file, bytes, count, offset);
}

ssize_t pwrite64(int file, const void *bytes, size_t count, off64_t offset)
{
    return fails(file) ? -1 : real<Write>("pwrite64")(file, bytes, count, offset);
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

QList<unsigned> PermissionsAtBirth()
{
    const QMutexLocker locker(&birthsMutex);
    return births();
}
