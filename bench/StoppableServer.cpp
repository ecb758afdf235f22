#include "StoppableServer.h"

#include <array>
#include <cstdlib>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
void require(bool success)
{
    if (!success)
        std::abort();
}

bool sendAll(int connection, const QByteArray &bytes)
{
    const char *from = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    while (left > 0) {
        const ssize_t sent = send(connection, from, left, MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        from += sent;
        left -= static_cast<size_t>(sent);
    }
    return true;
}
} // namespace

StoppableServer::StoppableServer(QByteArray rowsOfAll, std::chrono::milliseconds pauseBetween)
    : rows(std::move(rowsOfAll)), pause(pauseBetween), listening(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    require(bind(listening, generic, length) == 0 && listen(listening, 1) == 0);
    require(getsockname(listening, generic, &length) == 0);
    port = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
}

StoppableServer::~StoppableServer()
{
    shutdown(listening, SHUT_RDWR);
    thread.join();
    close(listening);
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
    const int connection = accept(listening, nullptr, nullptr);
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
    while (!stopped && sendAll(connection, rows)) {
        if (waiting && Clock::now() >= due) {
            waiting = false;
            clicked = Clock::now();
            click();
        }
        std::this_thread::sleep_for(pause);
    }
    sendAll(connection, "|EOF~|");
}
