#pragma once

#include "history/AskedItem.h"
#include "history/HistoryWriter.h"

#include <QList>

// What is written to the history: each a command for the writer's thread, with all that it needs.

HistoryCommand WriteBegin(const AskedItem &item);
HistoryCommand WriteState(qint64 id, AskedState state);
HistoryCommand WriteEnd(qint64 id, const QString &outcome, int count);
HistoryCommand WriteSettled(const QList<qint64> &ids, const QString &outcome);
HistoryCommand WriteSent(qint64 id, SentKind kind, const QString &code, const QDateTime &when);

/// The rows of a tab. With `whole`, they take the place of those that were there; otherwise they
/// come to them, and the time of the last whole look stays.
HistoryCommand WriteLook(const QString &caseKey, const QString &tab, const QDateTime &when,
                         const QList<quint64> &rows, bool whole);
HistoryCommand WriteRun(const QString &searchKey, const QDateTime &when,
                        const QList<quint64> &rows);

HistoryCommand WriteNothingAnyMore();
/// Forgets what was asked for before, and with it its lines in the account.
HistoryCommand WriteForgotten(const QDateTime &before);
