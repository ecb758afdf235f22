#include "BareSocket.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
void sendAtOnce(int connection)
{
    const int on = 1;
    Require(setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) == 0);
}
} // namespace

BareServer::BareServer(QByteArray answer) : reply(std::move(answer)), thread([this] { serve(); }) {}

BareServer::~BareServer()
{
    listening.Stop();
    thread.join();
}

void BareServer::serve()
{
    for (;;) {
        const int connection = listening.Accept();
        if (connection < 0)
            return;
        sendAtOnce(connection);
        std::thread([this, connection] { converse(connection); }).detach();
    }
}

void BareServer::converse(int connection) const
{
    std::array<char, 4096> buffer{};
    int bars = 0;
    for (;;) {
        const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
        if (got <= 0)
            break;
        bars += static_cast<int>(std::count(buffer.begin(), buffer.begin() + got, '|'));
        for (; bars >= 2; bars -= 2)
            send(connection, reply.constData(), static_cast<size_t>(reply.size()), MSG_NOSIGNAL);
    }
    close(connection);
}

BareClient::BareClient(quint16 port) : connection(socket(AF_INET, SOCK_STREAM, 0))
{
    const sockaddr_in address = LoopbackAddress(port);
    Require(connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0);
    sendAtOnce(connection);
}

BareClient::~BareClient()
{
    close(connection);
}

void BareClient::Exchange(const QByteArray &frame, qsizetype replyBytes) const
{
    Require(send(connection, frame.constData(), static_cast<size_t>(frame.size()), 0)
            == frame.size());
    std::array<char, 4096> buffer{};
    while (replyBytes > 0) {
        const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
        Require(got > 0);
        replyBytes -= got;
    }
}

void BareClient::ReadTokens(const QByteArray &frame,
                            const std::function<bool(const QByteArray &token)> &take) const
{
    Require(send(connection, frame.constData(), static_cast<size_t>(frame.size()), 0)
            == frame.size());
    std::array<char, 64 * 1024> buffer{};
    QByteArray token;
    for (;;) {
        const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
        Require(got > 0);
        const auto *const end = buffer.data() + got;
        for (const char *from = buffer.data(); from != end;) {
            const auto *const bar = std::find(from, end, '|');
            token.append(from, bar - from);
            if (bar == end)
                break;
            from = bar + 1;
            // Between the closing bar of one token and the opening one of the next stands nothing.
            if (!token.isEmpty() && !take(token))
                return;
            token.resize(0);
        }
    }
}

void BareClient::ReadToFile(const QByteArray &frame, qsizetype replyBytes, const char *path) const
{
    Require(send(connection, frame.constData(), static_cast<size_t>(frame.size()), 0)
            == frame.size());
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    Require(file >= 0);
    std::array<char, 64 * 1024> buffer{};
    while (replyBytes > 0) {
        const ssize_t got = recv(connection, buffer.data(), buffer.size(), 0);
        Require(got > 0 && write(file, buffer.data(), static_cast<size_t>(got)) == got);
        replyBytes -= got;
    }
    close(file);
}

void BareLogLine(const char *path, const QByteArray &line)
{
    const int file = open(path, O_WRONLY | O_CREAT | O_APPEND, 0600);
    Require(write(file, line.constData(), static_cast<size_t>(line.size())) == line.size());
    close(file);
}
