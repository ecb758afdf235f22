#pragma once

#include <QStringList>

/// The names of the program's classes of windows, as its headers have them: a window that is new is
/// among them before anybody tells a test about it. Those that others are made from are not.
QStringList WindowClasses();
