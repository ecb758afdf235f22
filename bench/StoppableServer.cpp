#include "StoppableServer.h"

#include <array>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

StoppableServer::StoppableServer(QByteArray rowsOfAll, std::chrono::milliseconds pauseBetween)
    : rows(std::move(rowsOfAll)), pause(pauseBetween), thread([this] { serve(); })
{
}

StoppableServer::~StoppableServer()
{
    listening.Stop();
    thread.join();
}

void StoppableServer::ClickLater(std::chrono::milliseconds after, std::function<void()> newClick)
{
    delay = after;
    click = std::move(newClick);
}

double StoppableServer::SecondsFromClickToStop()
{
    return seconds;
}

/// Every other frame of the connection is a search, and every other one the request to stop it.
void StoppableServer::serve()
{
    const int connection = listening.Accept();
    if (connection < 0)
        return;
    std::thread streaming;
    std::array<char, 4096> buffer{};
    bool searching = false;
    while (recv(connection, buffer.data(), buffer.size(), 0) > 0) {
        if (searching) {
            seconds = std::chrono::duration<double>(Clock::now() - clicked).count();
            stopped = true;
            streaming.join();
        } else {
            stopped = false;
            streaming = std::thread([this, connection] { stream(connection); });
        }
        searching = !searching;
    }
    stopped = true;
    if (streaming.joinable())
        streaming.join();
    close(connection);
}

void StoppableServer::stream(int connection)
{
    const auto due = Clock::now() + delay;
    bool waiting = true;
    while (!stopped && SendAll(connection, rows)) {
        if (waiting && Clock::now() >= due) {
            waiting = false;
            clicked = Clock::now();
            click();
        }
        std::this_thread::sleep_for(pause);
    }
    SendAll(connection, "|EOF~|");
}
