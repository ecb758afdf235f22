#include "namesearch/Replies.h"

#include <QStringMatcher>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype shortestProgress = 10;

bool isEndMark(const QString &reply, EndMark where)
{
    if (where == EndMark::AtTheBeginning)
        return reply.startsWith(u"EOF~", Qt::CaseInsensitive);
    return reply.endsWith(u"EOF~", Qt::CaseInsensitive)
           && reply.right(8).compare(u"THEREOF~", Qt::CaseInsensitive) != 0;
}

/// Looked for in every row: with a table of skips, which looks at two or three characters of one.
bool tellsOfMoreResults(const QString &reply)
{
    static const QStringMatcher matcher(u"This search resulted in more than 200 results."_s,
                                        Qt::CaseInsensitive);
    return matcher.indexIn(reply) >= 0;
}
} // namespace

ReplyKind ClassifyReply(const QString &reply, const ReplyRules &rules)
{
    if (isEndMark(reply, rules.endMark))
        return ReplyKind::EndOfReply;
    if (reply.startsWith(u"ERROR")) {
        const bool tooMany =
            rules.tellsTooManyHits && reply.contains(u"error~too many hits", Qt::CaseInsensitive);
        return tooMany ? ReplyKind::TooManyHits : ReplyKind::Error;
    }
    if (reply.startsWith(u"SEARCHING", Qt::CaseInsensitive))
        return ReplyKind::Progress;
    if (tellsOfMoreResults(reply))
        return ReplyKind::MaxResults;
    return ReplyKind::Row;
}

IndexReplyKind ClassifyIndexReply(const QString &reply)
{
    if (reply.startsWith(u"SEARCHING", Qt::CaseInsensitive))
        return IndexReplyKind::Progress;
    if (reply == u"EOF~" || reply == u"EOF~|")
        return IndexReplyKind::EndOfSearch;
    if (reply.startsWith(u"ERROR~"))
        return IndexReplyKind::Error;
    if (reply.startsWith(u"WARNING~"))
        return IndexReplyKind::Warning;
    return IndexReplyKind::Row;
}

QString ProgressText(const QString &reply, bool asItIs)
{
    if (reply.size() < shortestProgress)
        return {};
    if (asItIs)
        return reply;
    QString text = reply;
    return text.replace(u'~', u' ');
}
