#include "BulkServer.h"

#include <QString>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <random>

#include <linux/sockios.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
void require(bool success)
{
    if (!success)
        std::abort();
}

bool sendAll(int connection, const char *data, qsizetype size)
{
    while (size > 0) {
        const ssize_t sent = send(connection, data, static_cast<size_t>(size), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        data += sent;
        size -= sent;
    }
    return true;
}

/// Until the other side's system has all of it. Whoever reads may be a moment behind.
void waitUntilTaken(int connection)
{
    int waiting = 1;
    while (ioctl(connection, SIOCOUTQ, &waiting) == 0 && waiting > 0)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

/// Bytes of any value, as those of a compressed page.
const QByteArray &block()
{
    static const QByteArray bytes = [] {
        QByteArray made(1024 * 1024, '\0');
        std::mt19937 random(1);
        std::generate(made.begin(), made.end(), [&random] { return static_cast<char>(random()); });
        return made;
    }();
    return bytes;
}
} // namespace

BulkServer::BulkServer(qsizetype documentBytes)
    : head("|FILELEN=" + QByteArray::number(documentBytes) + "~TYPE=PDF~|"), tail("|EOD~||EOF~|"),
      bytes(documentBytes), listening(socket(AF_INET, SOCK_STREAM, 0))
{
    block();
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    require(bind(listening, generic, length) == 0 && listen(listening, 4) == 0);
    require(getsockname(listening, generic, &length) == 0);
    port = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
}

BulkServer::~BulkServer()
{
    shutdown(listening, SHUT_RDWR);
    thread.join();
    close(listening);
}

/// One client at a time.
void BulkServer::serve()
{
    for (;;) {
        const int connection = accept(listening, nullptr, nullptr);
        if (connection < 0)
            return;
        std::array<char, 4096> buffer{};
        int bars = 0;
        for (;;) {
            const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
            if (got <= 0)
                break;
            bars += static_cast<int>(std::count(buffer.begin(), buffer.begin() + got, '|'));
            for (; bars >= 2; bars -= 2)
                answer(connection);
        }
        close(connection);
    }
}

void BulkServer::answer(int connection) const
{
    if (!sendAll(connection, head.constData(), head.size()))
        return;
    waitUntilTaken(connection);
    for (qsizetype left = bytes; left > 0; left -= block().size()) {
        if (!sendAll(connection, block().constData(), std::min(left, block().size())))
            return;
    }
    waitUntilTaken(connection);
    sendAll(connection, tail.constData(), tail.size());
}
