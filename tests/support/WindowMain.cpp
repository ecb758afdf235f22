#include "support/HalvaneTest.h"

#include <QApplication>

/// The test programs of windows.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    return HalvaneTest::RunNamed(QCoreApplication::arguments());
}
