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

/// Where the end mark "EOF~" of a reply stands.
enum class EndMark {
    AtTheEnd, ///< but not in a row that ends in the word THEREOF and its delimiter
    AtTheBeginning
};

/// How the courts differ.
struct ReplyRules
{
    EndMark endMark = EndMark::AtTheEnd;
    bool tellsTooManyHits = true; ///< too many hits is no error; otherwise it is one like any other
};

/// Which of these a reply is, blind to case but for the word "ERROR" at its beginning.
ReplyKind ClassifyReply(const QString &reply, const ReplyRules &rules = {});

/// What a reply in the stream of an index search is.
enum class IndexReplyKind {
    Progress,
    EndOfSearch, ///< of the page, and of the whole search with it
    Error,       ///< kept; the reply goes on
    Warning,     ///< ends the search
    Row
};

/// Which of these a reply is. The end mark is the whole reply, unlike that of the other searches,
/// and the words stand in capitals; only progress is recognised in any case.
IndexReplyKind ClassifyIndexReply(const QString &reply);

/// What a progress reply shows, or "" when it is too short to show anything. `asItIs` leaves each
/// "~" as it stands; otherwise it becomes a blank.
QString ProgressText(const QString &reply, bool asItIs = false);
