#pragma once

#include <QString>

/// What can be wrong with the file of the history.
enum class HistoryTrouble {
    None,
    Busy,       ///< another program holds it; it may be free in a moment
    Full,       ///< the disk has no room
    DiskFails,  ///< reading or writing fails for another reason
    Damaged,    ///< it is no database, or not a whole one
    Deleted,    ///< it has gone while it was open
    Newer,      ///< a later version of this program has made it
    CannotWrite ///< it cannot be made or written here
};

/// What the user is told of a trouble, once. `file` is the history; `aside` is where a damaged one
/// was put.
QString ProblemText(HistoryTrouble trouble, const QString &file, const QString &aside);
