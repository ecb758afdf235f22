#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <deque>
#include <functional>

namespace Practice {
/// One thing a reply does next.
struct ReplyStep
{
    enum class Kind : quint8 {
        Token,   ///< send `text` between bars
        Bytes,   ///< send `bytes` as they are
        Piece,   ///< the same, in one piece, apart from whatever comes before and behind it
        Pause,   ///< nothing for so many milliseconds
        Silence, ///< nothing more, and no end either
        Drop,    ///< close the connection
        End,     ///< the reply is over
    };

    Kind kind = Kind::End;
    QString text;
    int milliseconds = 0;
    QByteArray bytes = {};
};

/// A reply as a script: what it says, where it pauses, how it ends. It is written down at once and
/// acted as fast as the client reads: rows are made when they are asked for, so a reply of 200,000
/// rows takes no more memory than one of two.
class Reply
{
public:
    /// Gives row `number`, from 0.
    using RowMaker = std::function<QString(qint64 number)>;

    /// Gives so many bytes of a body from an offset on.
    using BytesMaker = std::function<QByteArray(qint64 offset, qint64 length)>;

    Reply &Say(QString token);
    Reply &Rows(qint64 count, RowMaker maker);
    Reply &Piece(QByteArray bytes);
    /// So many bytes, as fast as the client reads or, unless `pace` is 0, so many a second.
    Reply &Body(qint64 size, qint64 pace, BytesMaker maker);
    Reply &Pause(int milliseconds);
    Reply &Silence();
    Reply &Drop();

    /// Says the end mark.
    Reply &Finish();

    /// How it ends when the client stops it; with the end mark unless this says otherwise.
    Reply &StopsWith(QByteArray bytes);
    /// What is left of the reply once the client has stopped it.
    Reply Stopped() const;

    bool IsOver() const { return acts.empty(); }
    /// The next step; End for ever when nothing is left.
    ReplyStep Next();

private:
    struct BodyLeft
    {
        qint64 size = 0;
        qint64 made = 0;
        qint64 pace = 0;
        bool pauses = false; ///< before more of it
        BytesMaker maker;
    };
    struct Act
    {
        ReplyStep step;
        qint64 rowsLeft = 0;
        qint64 rowsMade = 0;
        RowMaker maker;
        BodyLeft body;
    };

    Reply &add(ReplyStep step);
    static ReplyStep nextOf(BodyLeft &body);

    std::deque<Act> acts;
    QByteArray stopTail;
};

/// The token that ends a reply.
inline constexpr auto endMark = u"EOF~";
} // namespace Practice
