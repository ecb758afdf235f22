#include "app/Termination.h"

#include "session/frmMain.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
std::array<int, 2> signalPipe{-1, -1};

/// All that may be done inside a signal: one byte into the pipe that the event loop watches.
extern "C" void passOn(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

void closeMainWindow()
{
    if (frmMain *main = frmMain::Form())
        main->Unload(UnloadMode::TaskManager);
}
} // namespace

void CloseOnTermination()
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier =
        new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] {
        char byte = 0;
        while (::read(signalPipe[0], &byte, 1) > 0) {
        }
        closeMainWindow();
    });
    struct sigaction action = {};
    action.sa_handler = &passOn;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(number, &action, nullptr);
}
#else
void CloseOnTermination() {}
#endif
