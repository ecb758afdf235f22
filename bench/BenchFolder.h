#pragma once

#include <QTemporaryDir>

/// An application folder for one benchmark program, so that its log goes nowhere that matters.
class BenchFolder
{
public:
    BenchFolder();

private:
    QTemporaryDir dir;
};
