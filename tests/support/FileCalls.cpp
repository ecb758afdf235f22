#include "support/FileCalls.h"

#include <cstdarg>

#include <fcntl.h>

namespace {
int openWith(const char *name, const char *path, int flags, mode_t mode)
{
    if (!MayOpen(path, flags, mode))
        return -1;
    return RealCall<int (*)(const char *, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
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
}
