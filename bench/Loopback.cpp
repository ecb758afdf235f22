#include "Loopback.h"

#include <cstdlib>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr int backlog = 4;
}

void Require(bool success)
{
    if (!success)
        std::abort();
}

sockaddr_in LoopbackAddress(quint16 port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

bool SendAll(int connection, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t sent =
            send(connection, bytes.data(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes = bytes.sliced(sent);
    }
    return true;
}

ListeningSocket::ListeningSocket() : listening(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address = LoopbackAddress(0);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    Require(bind(listening, generic, length) == 0 && listen(listening, backlog) == 0);
    Require(getsockname(listening, generic, &length) == 0);
    port = ntohs(address.sin_port);
}

ListeningSocket::~ListeningSocket()
{
    close(listening);
}

int ListeningSocket::Accept() const
{
    return accept(listening, nullptr, nullptr);
}

void ListeningSocket::Stop() const
{
    shutdown(listening, SHUT_RDWR);
}
