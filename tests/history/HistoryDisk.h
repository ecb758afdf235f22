#pragma once

#include <QList>

/// While it lives, writing to a file of the history fails in this way, whoever writes: 0 lets all
/// through.
class FailingHistoryDisk
{
public:
    explicit FailingHistoryDisk(int error);
    ~FailingHistoryDisk();
    FailingHistoryDisk(const FailingHistoryDisk &) = delete;
    FailingHistoryDisk &operator=(const FailingHistoryDisk &) = delete;
};

/// The permissions with which files of the history were made by this process so far.
QList<unsigned> PermissionsAtBirth();
