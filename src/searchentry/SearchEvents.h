#pragma once

#include "core/HelpTopic.h"
#include "records/CaseStart.h"

#include <QObject>

/// What the search form asks of the windows beside it, and what becomes of numbers that wait where
/// no window shows them.
class SearchEvents : public QObject
{
    Q_OBJECT
public:
    static SearchEvents &Of();

Q_SIGNALS:
    /// An entry was refused: what is wrong, why, and what to do; an empty caption is the window's
    /// own. Shown before the signal returns.
    void FieldErrorRaised(const QString &what, const QString &why, const QString &action,
                          const QString &caption);
    /// Help on a step of the form is wanted.
    void HelpWanted(HelpTopic topic);

    /// A number of a list waits for its place among those that are asked for; its case starts with
    /// this. The ticket is its own until it is launched or given up.
    void NumberWaits(qint64 ticket, const CaseStart &start);
    /// The case that is launched next is its case.
    void NumberLaunches(qint64 ticket);
    /// It is not asked for any more, and why, in the words of the list. `wanted` when nobody but
    /// the end of the session or of the link was against it.
    void NumberGivenUp(qint64 ticket, const QString &outcome, bool wanted);
};
