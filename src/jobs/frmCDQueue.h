#pragma once

#include "jobs/ListBox.h"

#include <QObject>

/// A spare twin of frmQueue. Nothing adds to it or reads from it: every job, case windows too,
/// takes its turn in frmQueue. It must not be wired to anything.
class frmCDQueue : public QObject
{
    Q_OBJECT
public:
    frmCDQueue();

    ListBox FIFO;

    static constexpr auto Label1 = "Never Show This Form!!!";
};
