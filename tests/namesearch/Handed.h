#pragma once

#include <QStringList>

class JobWindow;

/// Everything a window was handed: its class, its caption, then each field that holds something, as
/// "name text".
QStringList Handed(const JobWindow *window);
