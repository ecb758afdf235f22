#pragma once

#include "searchentry/SearchEntry.h"

#include <QRandomGenerator>

/// A person as most request tests search for one: Smith, John, middle initial Q.
inline SearchEntry SmithIn(CourtFamily court)
{
    SearchEntry entry;
    entry.Court = court;
    entry.Names = {QStringLiteral("SMITH"), QStringLiteral("JOHN"), QStringLiteral("Q"), QString()};
    return entry;
}

inline SearchEntry BusinessIn(CourtFamily court, const QString &name)
{
    SearchEntry entry;
    entry.Court = court;
    entry.Kind = SearchKind::Business;
    entry.Names[LastName] = name;
    return entry;
}

inline void SetRange(SearchEntry &entry, const QString &from, const QString &to)
{
    entry.YearRange = true;
    entry.FromYear = from;
    entry.ToYear = to;
}

/// A text that is likely to break a frame: bars, tildes, commas, line ends, marks, blanks.
inline QString HostileText(QRandomGenerator &random)
{
    static const QString characters = QStringLiteral("|~¦,^:\r\n AZaz09JU'&-\u00DC\u20AC\u4E2D");
    QString text;
    const int length = random.bounded(30);
    for (int i = 0; i < length; ++i)
        text += characters[random.bounded(static_cast<int>(characters.size()))];
    return text;
}
