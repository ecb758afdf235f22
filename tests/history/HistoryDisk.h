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

/// While it lives, one reading of a file of the history fails as that of a bad disk does: the nth,
/// counted from 1.
class FailingHistoryRead
{
public:
    explicit FailingHistoryRead(int nth);
    ~FailingHistoryRead();
    FailingHistoryRead(const FailingHistoryRead &) = delete;
    FailingHistoryRead &operator=(const FailingHistoryRead &) = delete;

    /// Whether so many were made.
    bool HasFailed() const;
};

/// The permissions with which files of the history were made by this process so far.
QList<unsigned> PermissionsAtBirth();
