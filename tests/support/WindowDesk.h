#pragma once

#include "support/BoxAnswers.h"
#include "support/LinkDesk.h"

class JobWindow;

/// A program with a user at it: what LinkDesk has, announced boxes, and windows, which are closed
/// with it.
class WindowDesk : public LinkDesk
{
public:
    WindowDesk() = default;
    ~WindowDesk() override;

    /// Makes a window pending: a key at the end of the queue, its timer stopped, shown.
    static void Enqueue(JobWindow *window);

    QString Complaints() const override;

    BoxAnswers Boxes;

protected:
    /// For a desk with something that its windows need until they are gone.
    static void closeWindows();
};
