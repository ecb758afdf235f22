#pragma once

#include "jobs/ListBox.h"

#include <QObject>

/// Holds the turn queue of the whole program: one key a job, in the order in which the jobs were
/// started. The job whose key stands on line 0 may use the link. A service without a window.
class frmQueue : public QObject
{
    Q_OBJECT
public:
    /// The one instance, loaded now, with an empty queue, if it was not.
    static frmQueue &Form();
    static bool IsLoaded();
    static void Unload();

    ListBox FIFO;

    static constexpr auto Caption = "Never Show this form!!";
    static constexpr auto Label1 =
        "This is the search request queue implementation. Never show this form.";

private:
    frmQueue();
};
