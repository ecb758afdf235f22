// Stands between a program and its disk, for the sweeps: preloaded into a program of theirs, it
// counts the calls that have to do with files beneath one folder, and lets one of them fail. It is
// no part of anything that is installed.
//
//   HALVANE_DAY_ROOT   the folder; calls for other files are let through uncounted
//   HALVANE_DAY_TRACE  a file that gets a line for each counted call: "CALL PATH", the path beneath
//                      the folder
//   HALVANE_DAY_FAULT  "ERRNO NTH CALL PATH": the NTH of these calls fails with this number;
//   "short"
//                      in its place writes half of what it was given, "full" lets every later call
//                      that needs room fail, too, as on a disk that stays full, and "kill" ends the
//                      program in its stead
//
// Waiting for the disk is counted and left out: the machine does not lose its power here.

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {
constexpr size_t longestPath = 1024;
using Text = std::array<char, longestPath>;

/// What one call meets.
enum class Fate { Goes, Fails, Half };

enum class Needs { Nothing, Room };

struct Plan
{
    Text root{};
    int trace = -1;
    Text call{}; ///< "CALL PATH" of the call that fails
    int error = 0;
    bool half = false;
    bool staysFull = false;
    bool kills = false;
    int nth = 0;
};

std::atomic<int> seen = 0;
std::atomic<bool> full = false;

Plan planOfEnvironment()
{
    Plan plan;
    if (const char *root = ::getenv("HALVANE_DAY_ROOT"))
        std::snprintf(plan.root.data(), plan.root.size(), "%s/", root);
    if (const char *trace = ::getenv("HALVANE_DAY_TRACE"))
        plan.trace = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, trace,
                                                O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    if (const char *fault = ::getenv("HALVANE_DAY_FAULT")) {
        std::array<char, 16> what{};
        int begin = 0;
        if (std::sscanf(fault, "%15s %d %n", what.data(), &plan.nth, &begin) == 2) {
            const std::string_view kind(what.data());
            plan.half = kind == "short";
            plan.staysFull = kind == "full";
            plan.kills = kind == "kill";
            plan.error = plan.staysFull ? ENOSPC : std::atoi(what.data());
            std::snprintf(plan.call.data(), plan.call.size(), "%s", fault + begin);
        }
    }
    return plan;
}

const Plan &plan()
{
    static const Plan read = planOfEnvironment();
    return read;
}

/// The path beneath the folder, without what differs from run to run in the names of temporary
/// files; null for a path elsewhere.
const char *named(Text &path)
{
    const size_t root = std::strlen(plan().root.data());
    if (root == 0 || std::strncmp(path.data(), plan().root.data(), root) != 0)
        return nullptr;
    if (char *gone = std::strstr(path.data(), " (deleted)"))
        *gone = '\0';
    char *name = std::strrchr(path.data(), '/') + 1;
    constexpr ptrdiff_t random = 6;
    char *unfinished = std::strstr(name, ".unfinished");
    if (*name == '#')
        name[1] = '\0';
    else if (unfinished && unfinished - name > random)
        std::fill(unfinished - random, unfinished, 'X');
    return path.data() + root;
}

void note(const char *call, const char *suffix)
{
    if (plan().trace < 0)
        return;
    std::array<char, longestPath + 64> line{};
    const int length = std::snprintf(line.data(), line.size(), "%s%s\n", call, suffix);
    ::syscall(SYS_write, plan().trace, line.data(), static_cast<size_t>(length));
}

Fate fateOf(const char *kind, Text &path, Needs needs)
{
    const char *name = named(path);
    if (!name)
        return Fate::Goes;
    std::array<char, longestPath + 32> call{};
    std::snprintf(call.data(), call.size(), "%s %s", kind, name);
    note(call.data(), "");
    if (plan().nth == 0)
        return Fate::Goes;
    if (full && needs == Needs::Room) {
        errno = ENOSPC;
        return Fate::Fails;
    }
    if (std::strcmp(call.data(), plan().call.data()) != 0 || ++seen != plan().nth)
        return Fate::Goes;
    note(call.data(), " FAILED");
    if (plan().kills)
        ::kill(::getpid(), SIGKILL);
    full = plan().staysFull;
    errno = plan().error;
    return plan().half ? Fate::Half : Fate::Fails;
}

Fate fateOf(const char *kind, const char *path, Needs needs = Needs::Nothing)
{
    Text copy{};
    std::snprintf(copy.data(), copy.size(), "%s", path ? path : "");
    return fateOf(kind, copy, needs);
}

Fate fateOf(const char *kind, int file, Needs needs = Needs::Nothing)
{
    // Whoever closes a file that is gone expects the number that tells so.
    const int before = errno;
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    Text path{};
    const bool known = ::readlink(link.data(), path.data(), path.size() - 1) > 0;
    errno = before;
    return known ? fateOf(kind, path, needs) : Fate::Goes;
}

template<typename Function>
Function real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int openAs(int folder, const char *path, int flags, mode_t mode)
{
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    const bool isNew = (flags & (O_CREAT | O_TMPFILE)) != 0;
    // A file that has no name yet is opened by that of its folder.
    Text name{};
    std::snprintf(name.data(), name.size(), (flags & O_TMPFILE) == O_TMPFILE ? "%s/#" : "%s", path);
    const Fate fate = fateOf(writes ? "open" : "look", name, isNew ? Needs::Room : Needs::Nothing);
    return fate == Fate::Goes ? static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode))
                              : -1;
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}
} // namespace

// The heads of the system declare what may not throw; here they are written as they are called.
extern "C" {
int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs(AT_FDCWD, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs(AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs(folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAs(folder, path, flags, mode);
}

ssize_t read(int file, void *bytes, size_t count)
{
    if (fateOf("read", file) != Fate::Goes)
        return -1;
    return ::syscall(SYS_read, file, bytes, count);
}

ssize_t pread64(int file, void *bytes, size_t count, off64_t at)
{
    if (fateOf("read", file) != Fate::Goes)
        return -1;
    return ::syscall(SYS_pread64, file, bytes, count, at);
}

ssize_t pread(int file, void *bytes, size_t count, off_t at)
{
    return pread64(file, bytes, count, at);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    const Fate fate = fateOf("write", file, Needs::Room);
    if (fate == Fate::Fails)
        return -1;
    return ::syscall(SYS_write, file, bytes, fate == Fate::Half ? count / 2 : count);
}

ssize_t pwrite64(int file, const void *bytes, size_t count, off64_t at)
{
    const Fate fate = fateOf("write", file, Needs::Room);
    if (fate == Fate::Fails)
        return -1;
    return ::syscall(SYS_pwrite64, file, bytes, fate == Fate::Half ? count / 2 : count, at);
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t at)
{
    return pwrite64(file, bytes, count, at);
}

int fsync(int file)
{
    return fateOf("fsync", file, Needs::Room) == Fate::Goes ? 0 : -1;
}

int fdatasync(int file)
{
    return fateOf("fsync", file, Needs::Room) == Fate::Goes ? 0 : -1;
}

int ftruncate64(int file, off64_t size) noexcept
{
    return fateOf("truncate", file) == Fate::Goes
               ? static_cast<int>(::syscall(SYS_ftruncate, file, size))
               : -1;
}

int ftruncate(int file, off_t size) noexcept
{
    return ftruncate64(file, size);
}

int rename(const char *from, const char *to) noexcept
{
    if (fateOf("rename", to) != Fate::Goes)
        return -1;
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned int flags) noexcept
{
    if (fateOf("rename", to) != Fate::Goes)
        return -1;
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    if (fateOf("link", to, Needs::Room) != Fate::Goes)
        return -1;
    return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int link(const char *from, const char *to) noexcept
{
    return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int unlink(const char *path) noexcept
{
    if (fateOf("unlink", path) != Fate::Goes)
        return -1;
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

int mkdir(const char *path, mode_t mode) noexcept
{
    // Of a folder that is there the system says just that, however the disk is.
    struct stat there = {};
    const bool isNew = ::syscall(SYS_newfstatat, AT_FDCWD, path, &there, 0) != 0;
    if (isNew && fateOf("mkdir", path, Needs::Room) != Fate::Goes)
        return -1;
    return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int close(int file)
{
    // Whatever it answers, the file is closed: that is how the system does it.
    const Fate fate = fateOf("close", file);
    const int error = errno;
    const int closed = static_cast<int>(::syscall(SYS_close, file));
    if (fate == Fate::Goes)
        return closed;
    errno = error;
    return -1;
}
}
