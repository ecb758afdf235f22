#pragma once

#include "records/StatusLine.h"

#include <QString>
#include <QStringView>

/// How a search can end.
enum class SearchOutcome {
    Completed,
    MaxNames,
    MaxResults,
    Incomplete,
    Stopped,
    ConnectionLost,
    ServerMessage, ///< an index search was ended by a warning; ServerMessages.h has its table
};

/// What the window shows and does when a search ends so. "%n" stands for the number of rows, "%c"
/// for the county of the last request.
struct OutcomeRow
{
    SearchOutcome outcome;
    QStringView log;
    QStringView status; ///< lblStatus
    StatusStyle statusStyle;
    QStringView searchStatus; ///< lblSearchStatus
    StatusStyle searchStatusStyle;
    bool setsCount;    ///< whether Label3 changes
    QStringView count; ///< Label3
    bool swapsButtons; ///< Save takes its place again, Get Next goes, and the server's texts go
    bool setsIncomplete;
};

/// The row of an outcome; ServerMessage has none.
const OutcomeRow &OutcomeRowOf(SearchOutcome outcome);

/// The text with its "%n" and "%c" filled in.
QString OutcomeText(QStringView text, int rows, const QString &county);
