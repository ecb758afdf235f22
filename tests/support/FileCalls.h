#pragma once

#include <array>
#include <cstdio>

#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

// For a test program that stands in for the system's calls for files: what is the same for each of
// them. FileCalls.cpp stands in for open() and open64().

/// The system's own function of this name.
template<typename Function>
Function RealCall(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// Whether the path of an open file is one that `isMeant` takes.
inline bool IsOpenFile(int file, bool (*isMeant)(const char *path))
{
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    std::array<char, 1024> path{};
    return ::readlink(link.data(), path.data(), path.size() - 1) > 0 && isMeant(path.data());
}

/// Asked before open() and open64(); each program has its own. False, with errno set, when the call
/// fails; otherwise the system's own is called.
bool MayOpen(const char *path, int flags, mode_t mode);
