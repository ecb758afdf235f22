#pragma once

#include "practice/CommandLine.h"
#include "practice/Population.h"
#include "practice/SpecialCases.h"

#include <QString>
#include <QTcpServer>

#include <memory>

namespace Practice {
/// Listens on this machine only and gives each client a connection of its own.
class CourtServer : public QObject
{
public:
    /// `population` must outlive the server.
    CourtServer(const Population &population, const Switches &switches);

    /// False, with the reason in ErrorText(), when the port cannot be had.
    bool Listen();

    quint16 Port() const { return server.serverPort(); }
    QString ErrorText() const { return server.errorString(); }

private:
    void welcome();

    const Population &people;
    Switches faults;
    /// What connections that were closed must not forget.
    std::shared_ptr<TabMemory> memory = std::make_shared<TabMemory>();
    QTcpServer server;
};
} // namespace Practice
