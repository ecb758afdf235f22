#include "sweeps/FloodCourt.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr int pauseMilliseconds = 1;

void require(bool success, const char *what)
{
    if (!success)
        qFatal("the flooding court: %s", what);
}

/// The other side's machine has taken all of it.
bool isTaken(int connection)
{
    int waiting = 0;
    return ioctl(connection, SIOCOUTQ, &waiting) != 0 || waiting == 0;
}
} // namespace

FloodCourt::FloodCourt()
    : listening(socket(AF_INET, SOCK_STREAM, 0)), wakes(eventfd(0, EFD_NONBLOCK))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    // Of what nobody reads little is taken.
    const int littleBytes = 4096;
    setsockopt(listening, SOL_SOCKET, SO_RCVBUF, &littleBytes, sizeof littleBytes);
    require(bind(listening, generic, length) == 0 && listen(listening, 4) == 0, "cannot listen");
    require(getsockname(listening, generic, &length) == 0, "has no port");
    port = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
}

FloodCourt::~FloodCourt()
{
    over = true;
    shutdown(listening, SHUT_RDWR);
    wake();
    thread.join();
    close(listening);
    close(wakes);
}

void FloodCourt::wake()
{
    const quint64 one = 1;
    require(write(wakes, &one, sizeof one) == sizeof one, "cannot be woken");
}

void FloodCourt::Answer(const Flood &flood)
{
    const std::scoped_lock lock(mutex);
    answers.push_back(flood);
}

void FloodCourt::Send(const Flood &flood)
{
    ++busy;
    {
        const std::scoped_lock lock(mutex);
        unasked.push_back(flood);
    }
    wake();
}

QByteArrayList FloodCourt::Requests()
{
    const std::scoped_lock lock(mutex);
    return requests;
}

void FloodCourt::serve()
{
    while (!over) {
        client = accept(listening, nullptr, nullptr);
        if (client < 0)
            return;
        const int on = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        serveClient();
        close(client);
    }
}

void FloodCourt::serveClient()
{
    received.clear();
    out.clear();
    written = 0;
    flooding = false;
    for (;;) {
        next();
        const bool waits = current.Apart && flooding && written == out.size() && !isTaken(client);
        const short wanted = flooding && !waits ? POLLOUT : 0;
        const short heard = deaf ? 0 : POLLIN;
        std::array<pollfd, 2> polled{
            {{client, static_cast<short>(wanted | heard), 0}, {wakes, POLLIN, 0}}};
        poll(polled.data(), polled.size(), waits ? pauseMilliseconds : -1);
        quint64 count = 0;
        static_cast<void>(read(wakes, &count, sizeof count));
        if (over)
            break;
        if ((polled[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0 && !readOn())
            break;
        if ((polled[0].revents & POLLOUT) != 0 && !sendOn())
            break;
    }
    if (flooding)
        --busy;
    flooding = false;
}

void FloodCourt::begin(const Flood &flood)
{
    current = flood;
    flooding = true;
    number = 0;
    endQueued = false;
    out.clear();
    written = 0;
}

/// Whatever was to be sent unasked, when nothing else is.
void FloodCourt::next()
{
    const std::scoped_lock lock(mutex);
    if (flooding || unasked.empty())
        return;
    begin(unasked.front());
    unasked.pop_front();
}

/// False when the client has gone.
bool FloodCourt::sendOn()
{
    if (written == out.size()) {
        written = 0;
        if (number < current.Pieces) {
            out = current.Piece(number++);
        } else if (!endQueued) {
            out = current.End;
            endQueued = true;
        } else {
            flooding = false;
            --busy;
            return true;
        }
    }
    const ssize_t took =
        send(client, out.constData() + written, static_cast<size_t>(out.size() - written),
             MSG_NOSIGNAL | MSG_DONTWAIT);
    if (took < 0)
        return errno == EAGAIN || errno == EINTR;
    written += took;
    sent += took;
    return true;
}

bool FloodCourt::readOn()
{
    std::array<char, 4096> buffer{};
    const ssize_t got = recv(client, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (got < 0)
        return errno == EAGAIN || errno == EINTR;
    if (got == 0)
        return false;
    received.append(buffer.data(), got);
    for (;;) {
        const qsizetype open = received.indexOf('|');
        const qsizetype shut = open < 0 ? -1 : received.indexOf('|', open + 1);
        if (shut < 0)
            return true;
        hear(received.mid(open, shut + 1 - open));
        received.remove(0, shut + 1);
    }
}

void FloodCourt::hear(const QByteArray &frame)
{
    const std::scoped_lock lock(mutex);
    requests.append(frame);
    if (frame.startsWith("|IMALIVE"))
        return;
    if (flooding) {
        stopFlood();
        return;
    }
    ++busy;
    if (answers.empty()) {
        begin({});
        return;
    }
    begin(answers.front());
    answers.pop_front();
}

void FloodCourt::stopFlood()
{
    atStop = sent.load();
    if (current.PiecesBehindStop >= 0)
        current.Pieces = std::min(current.Pieces, number + current.PiecesBehindStop);
}
