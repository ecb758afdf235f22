#pragma once

#include "Loopback.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

/// A server in threads of its own that answers a search with the same rows again and again, with a
/// pause in between, until it is asked to stop.
class StoppableServer
{
public:
    StoppableServer(QByteArray rows, std::chrono::milliseconds pause);
    ~StoppableServer();

    quint16 Port() const { return listening.Port(); }

    /// Makes the click so long after the next search has begun.
    void ClickLater(std::chrono::milliseconds after, std::function<void()> click);

    /// Of the last search: from the click until the request to stop was read from the socket.
    double SecondsFromClickToStop();

private:
    using Clock = std::chrono::steady_clock;

    void serve();
    void stream(int connection);

    QByteArray rows;
    std::chrono::milliseconds pause;
    std::chrono::milliseconds delay{0};
    std::function<void()> click;
    Clock::time_point clicked;
    std::atomic<double> seconds{0.0};
    std::atomic<bool> stopped{true};
    ListeningSocket listening;
    std::thread thread;
};
