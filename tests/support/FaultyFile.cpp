#include "support/FaultyFile.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/resource.h>

FullDisk::FullDisk(qint64 bytes)
{
    // Writing beyond the limit then fails with an error, as it does on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    before = static_cast<qint64>(limit.rlim_cur);
    limit.rlim_cur = static_cast<rlim_t>(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = static_cast<rlim_t>(before);
    setrlimit(RLIMIT_FSIZE, &limit);
}

void MakeUnreadable(const QString &path)
{
    QFile::remove(path);
    QDir().mkpath(path);
}
