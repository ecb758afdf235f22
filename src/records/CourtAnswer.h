#pragma once

#include <QList>
#include <QString>

/// How far the court is with one thing that it is asked for: a request of a search, or a tab of a
/// case.
enum class AnswerState {
    Waiting,
    Asking,
    Found,
    None,    ///< the court has nothing
    TooMany, ///< the court has more than it lists
    Stopped, ///< in the middle of its answer
    NotAsked,
    Failed
};

/// One request of a search, and what has become of it.
struct CourtAnswer
{
    QString Court;   ///< as the user knows it
    QString Request; ///< the line, without a client code
    AnswerState State = AnswerState::Waiting;
    int Cases = 0;       ///< that have come
    int Names = 0;       ///< people of one name, in place of cases or beside them
    QString Reason = {}; ///< why it failed
    float Seconds = 0;   ///< from the request to the end of the answer; 0 before that

    bool operator==(const CourtAnswer &) const = default;
};

/// The words for a state; those of a failure have the reason with them.
QString AnswerWords(AnswerState state, const QString &reason = {});

/// The state of a request, with what has come of it.
QString AnswerText(const CourtAnswer &answer);

/// How long the answer took, "" when it has not come to its end.
QString AnswerTime(const CourtAnswer &answer);

/// Whether asking again can bring what is missing.
bool IsMissing(AnswerState state);

/// All of them in one line: of several how many are where, of one its state.
QString AnswersInShort(const QList<CourtAnswer> &answers);

/// Cases and names as one reads them: "1 case, 2 names".
QString FoundText(int cases, int names);

/// What a court says of a failure, as a line of plain text: its replies have "~" between words and
/// at their ends.
QString CourtWords(const QString &reply);
