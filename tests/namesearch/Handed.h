#pragma once

#include "support/Wire.h"

#include <QStringList>

class JobWindow;

/// Everything a window was handed: its class, its caption, then each field that holds something, as
/// "name text". In the lines "/" stands for the broken bar.
QStringList Handed(const JobWindow *window);
