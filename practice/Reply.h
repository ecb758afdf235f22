#pragma once

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
        Pause,   ///< nothing for so many milliseconds
        Silence, ///< nothing more, and no end either
        Drop,    ///< close the connection
        End,     ///< the reply is over
    };

    Kind kind = Kind::End;
    QString text;
    int milliseconds = 0;
};

/// A reply as a script: what it says, where it pauses, how it ends. It is written down at once and
/// acted as fast as the client reads: rows are made when they are asked for, so a reply of 200,000
/// rows takes no more memory than one of two.
class Reply
{
public:
    /// Gives row `number`, from 0.
    using RowMaker = std::function<QString(qint64 number)>;

    Reply &Say(QString token);
    Reply &Rows(qint64 count, RowMaker maker);
    Reply &Pause(int milliseconds);
    Reply &Silence();
    Reply &Drop();

    /// Says the end mark.
    Reply &Finish();

    /// The next step; End for ever when nothing is left.
    ReplyStep Next();

private:
    struct Act
    {
        ReplyStep step;
        qint64 rowsLeft = 0;
        qint64 rowsMade = 0;
        RowMaker maker;
    };

    Reply &add(ReplyStep step);

    std::deque<Act> acts;
};

/// The token that ends a reply.
inline constexpr auto endMark = u"EOF~";
} // namespace Practice
