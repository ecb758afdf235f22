#include "support/FakeCourt.h"

#include "support/FakeSocket.h"

#include <QTimer>

FakeCourt &FakeCourt::Current()
{
    static FakeCourt court;
    return court;
}

void FakeCourt::Install()
{
    Current() = FakeCourt();
    FakeSocket::Install([](FakeSocket *socket) {
        socket->state = SocketState::Closed;
        socket->refuses = Current().refuses;
        socket->connects = Current().connects;
        socket->dialled = [socket] { Current().connectedTo.append(socket->connectedTo.last()); };
        socket->heard = [socket](const QByteArray &frame) { Current().hear(socket, frame); };
    });
}

void FakeCourt::hear(FakeSocket *socket, const QByteArray &frame)
{
    const bool drops = requests.size() == dropsBehind;
    requests.append(frame);
    if (onRequest)
        onRequest();
    const QByteArray reply = replies.isEmpty() ? QByteArray() : replies.takeFirst();
    QTimer::singleShot(0, socket, [socket, reply, drops] {
        if (!reply.isEmpty())
            socket->Arrive(reply);
        if (drops)
            QTimer::singleShot(0, socket, [socket] { socket->PeerCloses(); });
    });
}
