#include "support/FailingDisk.h"

#include "support/FileCalls.h"

#include <cerrno>
#include <cstring>

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
    return IsOpenFile(file, &isOfReports);
}

/// Whether this call is one that fails.
bool fails(FailingDisk::Call call, int error)
{
    if (call != failing || ++calls < failsFrom || failsFrom == 0)
        return false;
    errno = error;
    return true;
}
} // namespace

bool MayOpen(const char *path, int flags, mode_t /*mode*/)
{
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    return !active || !isOfReports(path) || !writes || !fails(FailingDisk::Call::Open, EACCES);
}

extern "C" {
ssize_t write(int file, const void *bytes, size_t count)
{
    if (active && isOfReports(file) && fails(FailingDisk::Call::Write, ENOSPC))
        return -1;
    return RealCall<ssize_t (*)(int, const void *, size_t)>("write")(file, bytes, count);
}

int rename(const char *from, const char *to)
{
    if (active && isOfReports(to) && fails(FailingDisk::Call::Rename, EACCES))
        return -1;
    return RealCall<int (*)(const char *, const char *)>("rename")(from, to);
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
