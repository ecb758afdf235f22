#pragma once

#include "core/HelpTopic.h"

#include <QObject>

/// What the search form asks of the windows beside it.
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
};
