#pragma once

#include <QString>
#include <QStringList>
#include <QTest>

#include <functional>

// A test program holds the test classes of a folder, and runs the one that its command line names:
//
//     build/dev/tests/test_core tst_IniText [what Qt Test takes]
//
// ctest starts one for each class, so no class sees what another has left behind.

namespace HalvaneTest {

/// Runs one test class on the arguments for Qt Test; gives the number of failures.
using Runner = std::function<int(const QStringList &arguments)>;
/// What a test starts its own program for: takes the arguments behind the name, gives the exit
/// code.
using ChildRole = std::function<int(const QStringList &arguments)>;

/// Exists once for each test class of the program, from before main().
class Registered
{
public:
    Registered(const char *name, const Runner &run);
};

/// Exists once for each role that the program plays as the child of a test.
class RegisteredChild
{
public:
    RegisteredChild(const char *name, const ChildRole &play);
};

/// Does what the application's arguments say; gives the exit code. Without the name of a class it
/// prints the names and fails: nothing was tested.
int RunNamed(QStringList arguments);

template<typename Class>
int Run(const QStringList &arguments)
{
    Class test;
    return QTest::qExec(&test, arguments);
}
} // namespace HalvaneTest

/// Stands once in a test's source, where the framework's own main would: the program can run this
/// class.
#define HALVANE_TEST(Class)                                                                        \
    namespace {                                                                                    \
    const HalvaneTest::Registered registered##Class(#Class, HalvaneTest::Run<Class>);              \
    }

/// The program plays this role when its first argument is `name`.
#define HALVANE_TEST_CHILD(name, play)                                                             \
    namespace {                                                                                    \
    const HalvaneTest::RegisteredChild registeredChild##play(name, play);                          \
    }
