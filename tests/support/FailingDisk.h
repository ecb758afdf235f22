#pragma once

/// While it lives, the nth call of one kind that has to do with a file beneath a folder named
/// Reports fails, and so does every later one: what a full disk or a lost permission does to
/// whoever calls at that moment. A program that links this has its calls counted; others are let
/// through.
class FailingDisk
{
public:
    enum class Call { Open, Write, Rename };

    /// `nth` counts from 1; 0 fails none.
    FailingDisk(Call call, int nth);
    ~FailingDisk();
    FailingDisk(const FailingDisk &) = delete;
    FailingDisk &operator=(const FailingDisk &) = delete;

    /// How many calls of this kind there were.
    int Calls() const;
};
