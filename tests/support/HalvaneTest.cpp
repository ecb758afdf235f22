#include "support/HalvaneTest.h"

#include "support/DiskWaits.h"

#include <QMap>

#include <cstdio>

namespace {
int diskWaits = 0;
}

int DiskWaits()
{
    return diskWaits;
}

// A test never waits for a disk: its files are gone at its end, and only a machine that loses its
// power would see the difference. Half the time of a test that saves settings went this way.
extern "C" {
int fsync(int /*file*/)
{
    ++diskWaits;
    return 0;
}

int fdatasync(int /*file*/)
{
    ++diskWaits;
    return 0;
}
}

namespace HalvaneTest {
namespace {
// Functions, since the classes are registered before main(), in no order.
QMap<QString, Runner> &classes()
{
    static QMap<QString, Runner> all;
    return all;
}

QMap<QString, ChildRole> &roles()
{
    static QMap<QString, ChildRole> all;
    return all;
}

int sayWhatThereIs(const QString &program)
{
    std::fprintf(stderr, "Usage: %s CLASS [what Qt Test takes]\n", qPrintable(program));
    for (auto one = classes().cbegin(); one != classes().cend(); ++one)
        std::fprintf(stderr, "  %s\n", qPrintable(one.key()));
    return 2;
}
} // namespace

Registered::Registered(const char *name, const Runner &run)
{
    const QString key = QString::fromLatin1(name);
    if (classes().contains(key))
        qFatal("Two test classes of one program have the name %s", name);
    classes().insert(key, run);
}

RegisteredChild::RegisteredChild(const char *name, const ChildRole &play)
{
    roles().insert(QString::fromLatin1(name), play);
}

int RunNamed(QStringList arguments)
{
    const QString program = arguments.takeFirst();
    const QString name = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (roles().contains(name))
        return roles().value(name)(arguments);
    if (!classes().contains(name))
        return sayWhatThereIs(program);
    // Qt Test skips the first, as the name of the program.
    arguments.prepend(program);
    return classes().value(name)(arguments);
}
} // namespace HalvaneTest
