#include "support/FailingDisk.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {
bool active = false;
FailingDisk::Call failing = FailingDisk::Call::Open;
int failsFrom = 0;
int calls = 0;

bool isOfReports(const char *path)
{
    return path && std::strstr(path, "/Reports");
}

bool isOfReports(int file)
{
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    std::array<char, 1024> path{};
    return ::readlink(link.data(), path.data(), path.size() - 1) > 0 && isOfReports(path.data());
}

/// Whether this call is one that fails.
bool fails(FailingDisk::Call call, int error)
{
    if (call != failing || ++calls < failsFrom || failsFrom == 0)
        return false;
    errno = error;
    return true;
}

template<typename Function>
Function real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

using Open = int (*)(const char *, int, ...);

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

int openWith(const char *name, const char *path, int flags, mode_t mode)
{
    if (active && isOfReports(path) && (flags & O_ACCMODE) != O_RDONLY
        && fails(FailingDisk::Call::Open, EACCES))
        return -1;
    return real<Open>(name)(path, flags, mode);
}
} // namespace

extern "C" {
int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith("open64", path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    if (active && isOfReports(file) && fails(FailingDisk::Call::Write, ENOSPC))
        return -1;
    return real<ssize_t (*)(int, const void *, size_t)>("write")(file, bytes, count);
}

int rename(const char *from, const char *to)
{
    if (active && isOfReports(to) && fails(FailingDisk::Call::Rename, EACCES))
        return -1;
    return real<int (*)(const char *, const char *)>("rename")(from, to);
}
}

FailingDisk::FailingDisk(Call call, int nth)
{
    failing = call;
    failsFrom = nth;
    calls = 0;
    active = true;
}

FailingDisk::~FailingDisk()
{
    active = false;
}

int FailingDisk::Calls() const
{
    return calls;
}
