#pragma once

#include <QString>

/// While it lives, no file of this process can grow beyond so many bytes: what a full disk does to
/// a write, for real and for root too.
class FullDisk
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    qint64 before;
};

/// Puts a folder in the place of a file: nobody can open it for reading or writing.
void MakeUnreadable(const QString &path);
