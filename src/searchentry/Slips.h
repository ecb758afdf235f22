#pragma once

#include "searchentry/SearchEntry.h"

#include <QDateTime>

// What is hardly meant in an entry, although a search of it may go.

/// A sentence about the first of it; "" when there is nothing to say. The years count only where
/// they are asked for.
QString SlipIn(const SearchEntry &entry, bool withYears);

/// Notices a search that is started again at once, as by a second click.
class RepeatedStart
{
public:
    /// A search has been started. A sentence when it is the one before, started seconds ago.
    QString Note(const SearchEntry &entry, const QDateTime &now);

private:
    SearchEntry last;
    QDateTime at;
};
