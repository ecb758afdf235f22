#include "practice/CourtServer.h"

#include "practice/CourtConnection.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace Practice {
CourtServer::CourtServer(const Population &population, const Switches &switches)
    : people(population), faults(switches)
{
    connect(&server, &QTcpServer::newConnection, this, &CourtServer::welcome);
}

bool CourtServer::Listen()
{
    return server.listen(QHostAddress::LocalHost, faults.port);
}

void CourtServer::welcome()
{
    while (QTcpSocket *socket = server.nextPendingConnection()) {
        if (faults.refuse) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        new CourtConnection(*socket, people, faults, memory, this);
    }
}
} // namespace Practice
