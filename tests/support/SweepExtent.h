#pragma once

#include <QByteArray>
#include <QtGlobal>

/// How much of a sweep is run.
enum class Extent {
    Short, ///< with the tests: some seconds
    Ci,    ///< what every change has to stand: some minutes
    Whole, ///< every case there is
};

/// As HALVANE_SWEEP says ("ci", "whole"); without it, the part that belongs to the tests.
inline Extent SweepExtent()
{
    const QByteArray wanted = qgetenv("HALVANE_SWEEP");
    return wanted == "whole" ? Extent::Whole : wanted == "ci" ? Extent::Ci : Extent::Short;
}
