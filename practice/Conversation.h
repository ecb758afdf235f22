#pragma once

#include "practice/CaseTabs.h"
#include "practice/DocumentReply.h"
#include "practice/Population.h"
#include "practice/Reply.h"
#include "practice/Request.h"
#include "practice/SpecialCases.h"
#include "practice/SpecialLists.h"
#include "practice/SpecialNames.h"
#include "practice/TabRequest.h"

#include <QByteArrayView>
#include <QDate>

#include <memory>

namespace Practice {
/// What the court says to one client, request by request, without a socket: who is logged in, and
/// what each request is answered with.
class Conversation
{
public:
    /// `population` must outlive the conversation and its replies; `today` ends the years of a
    /// search for all of them. `memory` is what the court remembers beyond one connection.
    /// `documentPace` is in bytes a second; 0 for as fast as the client reads.
    Conversation(const Population &population, QDate today,
                 std::shared_ptr<TabMemory> memory = std::make_shared<TabMemory>(),
                 qint64 documentPace = 0);

    /// How a request is to be taken.
    enum class Turn : quint8 {
        Waits, ///< is answered when the replies before it are over
        Stops, ///< ends the running reply, at once
        Alive, ///< answers a ping
    };

    static Turn TurnOf(QByteArrayView request);

    /// The reply to a request that waited its turn.
    Reply Answer(QByteArrayView request);

private:
    // A row of the table of requests.
    struct Known;
    static const Known *find(const Request &request);

    Reply answerLogon(const Request &request);
    Reply answerParameters(const Request &request);
    Reply answerBroadcast(const Request &request);
    Reply answerPrivateMessages(const Request &request);
    Reply answerCourtStatus(const Request &request);
    Reply answerAccountingOption(const Request &request);
    Reply answerSuperior(const Request &request);
    Reply answerDocuments(const Request &request);
    Reply answerDocument(const DocumentAsked &asked) const;
    Reply answerOregon(const Request &request);
    Reply answerIdaho(const Request &request);
    Reply answerState(OtherFamily family, const Request &request);
    Reply answerDistrict(const Request &request);
    Reply answerIndex(const Request &request);
    Reply answerBankruptcy(const Request &request);

    TabContext context() const;
    Reply answerTab(CourtFamily family, const Request &request);

    const Population &people;
    QDate today;
    int thisYear;
    std::shared_ptr<TabMemory> memory;
    qint64 documentPace;
    SpecialLists lists;
    bool loggedIn = false;
    QString userName;
    UserKind user = UserKind::Ordinary;
};
} // namespace Practice
