#pragma once

#include <QString>

#include <functional>

// The exchange of a tab, as far as all tabs have it in common.

/// Why a tab is incomplete to which no end mark came.
inline constexpr QStringView ReplyTimedOut =
    u"Search Error! Reason: Timed Out Waiting For Response from Server.";

/// Sends the request of a tab, with the client accounting code unless that is empty. One that does
/// not leave is thrown, as a lost link is: the tab breaks down.
void SendTabRequest(const QString &request, const QString &clientCode);

/// Reads the lines of a reply, each logged with its status, until `take` says that it was the last.
/// False when the server fell silent. Throws when the link was lost.
bool ReadTabReply(QStringView beforeStatus, const std::function<bool(const QString &line)> &take);
