// What the system tells a program from outside: that it is to end, that its input has ended, and
// whether there is a display to show windows on.

#include "core/Platform.h"

#include <QCoreApplication>

#include <array>
#include <utility>

#ifdef Q_OS_UNIX
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

#ifdef Q_OS_WIN
#include <QTimer>

#include <windows.h>
#endif

#ifdef Q_OS_UNIX
namespace {
std::array<int, 2> signalPipe{-1, -1};

/// All that may be done inside a signal: one byte into the pipe that the event loop watches.
extern "C" void passOn(int)
{
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = before;
}
} // namespace

void OnTermination(std::function<void()> wanted)
{
    if (::pipe(signalPipe.data()) != 0)
        return;
    for (const int end : signalPipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto *notifier =
        new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [wanted = std::move(wanted)] {
        char byte = 0;
        while (::read(signalPipe[0], &byte, 1) > 0) {
        }
        wanted();
    });
    struct sigaction action = {};
    action.sa_handler = &passOn;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(number, &action, nullptr);
}

void WatchInput(QObject *owner, std::function<void()> ended)
{
    auto *notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner,
                     [notifier, ended = std::move(ended)] {
                         std::array<char, 4096> rubbish{};
                         const ssize_t got = ::read(STDIN_FILENO, rubbish.data(), rubbish.size());
                         if (got > 0 || (got < 0 && (errno == EAGAIN || errno == EINTR)))
                             return;
                         notifier->setEnabled(false);
                         ended();
                     });
}
#else
void OnTermination(std::function<void()>) {}
#endif

#ifdef Q_OS_WIN
void WatchInput(QObject *owner, std::function<void()> ended)
{
    // A pipe cannot be waited for beside a socket here, so it is looked at now and then.
    auto *timer = new QTimer(owner);
    QObject::connect(timer, &QTimer::timeout, owner, [timer, ended = std::move(ended)] {
        HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
        DWORD waiting = 0;
        std::array<char, 4096> rubbish{};
        DWORD got = 0;
        const bool open = ::PeekNamedPipe(input, nullptr, 0, nullptr, &waiting, nullptr) != 0
                          && (waiting == 0
                              || ::ReadFile(input, rubbish.data(),
                                            static_cast<DWORD>(rubbish.size()), &got, nullptr)
                                     != 0);
        if (open)
            return;
        timer->stop();
        ended();
    });
    timer->start(200);
}
#endif

bool HasDisplay()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
#else
    return true;
#endif
}
