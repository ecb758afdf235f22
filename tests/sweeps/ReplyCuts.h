#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

/// What can happen to a reply on its way.
enum class Way {
    Closed,       ///< the server closes its side, once all before that was read
    ClosedAtOnce, ///< the same, in the same turn of the event loop as the bytes before it
    Reset,        ///< the connection breaks, once all before that was read
    Silent,       ///< nothing more comes
    Divided,      ///< it comes in two pieces
    Pinged,       ///< the server asks in the middle whether we are there, once all was read
    ByteByByte,
    BehindPing, ///< the server asks whether we are there, and then replies
    BehindJunk,
    BehindLateReply, ///< the reply to a request that was given up reaches us first
};
constexpr int wayCount = 10;

const char *NameOf(Way way);

/// One thing that happens to a reply, behind so many of its bytes.
struct Cut
{
    Way How = Way::Divided;
    qsizetype At = 0;
};

/// Everything that can happen to this reply in this way. Whole means that an exchange may end
/// before the last token; what comes behind it is its own affair.
QList<Cut> CutsOf(const QByteArray &reply, Way way);

/// What of a reply has come, by the rules of the wire.
struct Came
{
    qsizetype Tokens = 0;  ///< so many whole tokens were there to be read
    bool InPart = false;   ///< part of a further one came
    bool Lost = false;     ///< the link went then; otherwise the rest never came, or all was there
    QByteArrayList Pieces; ///< the bytes, as they came
};
Came CameOf(const QByteArray &reply, const Cut &cut);

/// The token that stands in front of a reply as the rest of another one.
inline constexpr const char *lateReply = "|LATE, ROW~02-2-99999-9~01/02/2002~Civil~"
                                         "WA Superior Ct King County~Plaintiff~||EOF~|";
