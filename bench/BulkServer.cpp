#include "BulkServer.h"

#include <QString>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>

#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
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
      bytes(documentBytes)
{
    block();
    thread = std::thread([this] { serve(); });
}

BulkServer::~BulkServer()
{
    listening.Stop();
    thread.join();
}

/// One client at a time.
void BulkServer::serve()
{
    for (;;) {
        const int connection = listening.Accept();
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
    if (!SendAll(connection, head))
        return;
    waitUntilTaken(connection);
    for (qsizetype left = bytes; left > 0; left -= block().size()) {
        if (!SendAll(connection, QByteArrayView(block()).first(std::min(left, block().size()))))
            return;
    }
    waitUntilTaken(connection);
    SendAll(connection, tail);
}
