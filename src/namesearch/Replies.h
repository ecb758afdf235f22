#pragma once

#include <QString>

/// What a reply in the stream of a search is. The order of the tests is part of the meaning; see
/// ClassifyReply.
enum class ReplyKind {
    EndOfReply,
    TooManyHits, ///< the server gave up counting; the reply goes on to its end
    Error,       ///< any other error; the reply goes on to its end
    Progress,    ///< tells how far the server is
    MaxResults,  ///< more than 200 results: the search ends here
    Row
};

/// Which of these a reply is, blind to case but for the word "ERROR" at its beginning.
///
/// A row may end in the word THEREOF and its delimiter, and must not count as an end mark.
ReplyKind ClassifyReply(const QString &reply);

/// What a progress reply shows, or "" when it is too short to show anything.
QString ProgressText(const QString &reply);

/// The request that tells the server to end the search of `state` (a value of lblState).
QString StopRequestOf(const QString &state);
