#pragma once

#include "history/AskedItem.h"

#include <QObject>

/// What the window of the history asks of the windows above it.
class HistoryEvents : public QObject
{
    Q_OBJECT
public:
    static HistoryEvents &Of();

Q_SIGNALS:
    /// Put this search on the search form; nothing is sent.
    void FillWanted(const AskedItem &item);
    /// Ask for this once more.
    void AgainWanted(const AskedItem &item);
};
