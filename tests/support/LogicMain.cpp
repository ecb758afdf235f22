#include "support/HalvaneTest.h"

#include <QCoreApplication>

/// The test programs of what needs no window.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return HalvaneTest::RunNamed(QCoreApplication::arguments());
}
