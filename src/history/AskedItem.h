#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// What can be asked of a court. The numbers are kept in the file of the history.
enum class AskedKind { Search = 0, Case = 1, Document = 2 };

/// How far it is.
enum class AskedState { Waiting = 0, Running = 1, Ended = 2 };

/// What a request was sent for. The numbers are kept in the file of the history.
enum class SentKind { Search = 0, CaseSummary = 1, Tab = 2, Document = 3, Other = 4 };

/// One search, case or document that was asked for.
struct AskedItem
{
    qint64 Id = 0; ///< given by HistoryStore::Begin; a later one is greater
    AskedKind Kind = AskedKind::Search;
    AskedState State = AskedState::Waiting;
    QDateTime When;     ///< local time, when it was asked for
    QString What;       ///< the name, number; the case; the document
    QString Where;      ///< courts, counties
    QString ClientCode; ///< "" for none
    QString Outcome;    ///< "" while it goes on
    int Count = -1;     ///< rows, tabs, pages; -1 unknown
    QByteArray Origin;  ///< JSON that can ask for it again
    int Requests = -1;  ///< how many were sent for it, where the account is asked; -1 otherwise
};

/// The word of a kind, as the windows of the history write it.
QString TextOfKind(AskedKind kind);
/// A moment as they write it, to the minute: texts of one width, which sort as they read.
QString TextOfMoment(const QDateTime &when);
