#include "sweeps/ReplyCuts.h"

#include <array>

namespace {
constexpr std::array<const char *, wayCount> names{
    "closed", "closed at once", "reset",       "silent",      "divided",
    "pinged", "byte by byte",   "behind ping", "behind junk", "behind late reply"};

bool endsBetweenTokens(const QByteArray &reply, qsizetype at)
{
    return reply.left(at).count('|') % 2 == 0;
}
} // namespace

const char *NameOf(Way way)
{
    return names.at(static_cast<size_t>(way));
}

QList<Cut> CutsOf(const QByteArray &reply, Way way)
{
    QList<Cut> cuts;
    switch (way) {
    case Way::Closed:
    case Way::ClosedAtOnce:
    case Way::Reset:
        for (qsizetype at = 0; at <= reply.size(); ++at)
            cuts.append({way, at});
        break;
    case Way::Silent:
        for (qsizetype at = 0; at < reply.size(); ++at)
            cuts.append({way, at});
        break;
    case Way::Divided:
        for (qsizetype at = 1; at < reply.size(); ++at)
            cuts.append({way, at});
        break;
    case Way::Pinged:
        for (qsizetype at = 1; at < reply.size(); ++at) {
            if (endsBetweenTokens(reply, at))
                cuts.append({way, at});
        }
        break;
    case Way::ByteByByte:
    case Way::BehindPing:
    case Way::BehindJunk:
    case Way::BehindLateReply:
        cuts.append({way, 0});
        break;
    }
    return cuts;
}

Came CameOf(const QByteArray &reply, const Cut &cut)
{
    Came came{.Tokens = reply.count('|') / 2, .InPart = false, .Lost = false, .Pieces = {reply}};
    switch (cut.How) {
    case Way::Closed:
    case Way::Reset:
    case Way::ClosedAtOnce:
    case Way::Silent:
        came.Pieces = {reply.left(cut.At)};
        came.Tokens = came.Pieces[0].count('|') / 2;
        came.InPart = !endsBetweenTokens(reply, cut.At);
        came.Lost = cut.How != Way::Silent;
        // A token is read only while there is a link.
        if (cut.How == Way::ClosedAtOnce)
            came.Tokens = 0;
        break;
    case Way::Divided:
    case Way::Pinged:
        came.Pieces = {reply.left(cut.At), reply.mid(cut.At)};
        break;
    case Way::ByteByByte:
        came.Pieces.clear();
        for (const char byte : reply)
            came.Pieces.append(QByteArray(1, byte));
        break;
    case Way::BehindJunk:
        came.Pieces = {"junk" + reply};
        break;
    case Way::BehindPing:
    case Way::BehindLateReply:
        break;
    }
    return came;
}
