#pragma once

#include "history/HistoryDatabase.h"

/// Whose the items are that a file has unfinished when it is opened: those of an earlier session,
/// which ended before them, or of this one, which opens its file again.
enum class Unfinished { IsLeftBehind, IsOurs };

/// Opens the file of the history for writing, making it when it is missing: readable for its owner
/// only from its first moment, whole, of this program's version, and ready to be read while it is
/// written. What is left behind is marked as that. None, or why it cannot be used; `database` is
/// closed then.
HistoryTrouble OpenHistoryFile(HistoryDatabase &database, const QString &path, int busyMilliseconds,
                               Unfinished items);

/// Gives a damaged history and what SQLite keeps beside it another name in the same folder. That
/// name; "" when it cannot be renamed.
QString PutAside(const QString &path);

/// Gives the room of what was deleted back when that is a large part of the file, and leaves
/// nothing of it in the journal. Outside of any transaction; that it fails harms nothing.
void TidyHistoryFile(HistoryDatabase &database);

/// Takes the file away, with what SQLite keeps beside it. False when something is left.
bool RemoveHistoryFile(const QString &path);

/// Takes away what PutAside has made of damaged files of this name. False when something is left.
bool RemoveDamagedHistories(const QString &path);
