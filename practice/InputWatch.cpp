#include "practice/InputWatch.h"

#include <QtGlobal>

#include <array>
#include <utility>

#ifdef Q_OS_WIN
#include <QTimer>

#include <windows.h>
#else
#include <QSocketNotifier>

#include <cerrno>
#include <unistd.h>
#endif

namespace Practice {
#ifdef Q_OS_WIN
void WatchInput(QObject *owner, std::function<void()> ended)
{
    // A pipe cannot be waited for beside a socket here, so it is looked at now and then.
    auto *timer = new QTimer(owner);
    QObject::connect(timer, &QTimer::timeout, owner, [timer, ended = std::move(ended)] {
        HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
        DWORD waiting = 0;
        std::array<char, 4096> rubbish{};
        DWORD got = 0;
        const bool open = PeekNamedPipe(input, nullptr, 0, nullptr, &waiting, nullptr) != 0
                          && (waiting == 0
                              || ReadFile(input, rubbish.data(), static_cast<DWORD>(rubbish.size()),
                                          &got, nullptr)
                                     != 0);
        if (open)
            return;
        timer->stop();
        ended();
    });
    timer->start(200);
}
#else
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
#endif
} // namespace Practice
