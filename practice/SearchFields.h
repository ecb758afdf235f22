#pragma once

#include "practice/Population.h"
#include "practice/Reply.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace Practice {
// What the searches of all court families have in common.

/// Years of filing, both ends included.
struct Years
{
    int from = 0;
    int to = 0;
};

/// The years of two fields; an empty one is open. nullopt when one is no year.
std::optional<Years> ParseYears(const QString &from, const QString &to, int firstYear,
                                int thisYear);

/// The name that three fields ask for.
NameQuery ParseName(const QString &last, const QString &first, const QString &middle);

/// The items of a field that holds a list, each with a comma behind it.
QStringList ParseList(const QString &field);

/// A reply that refuses a request.
Reply Refusal(const QString &reason);

/// A line of progress: "SEARCHING~King~County~Superior~Court~..".
QString ProgressLine(const QString &what);

/// What a search says while it looks names up in `places`.
void SayProgress(const QStringList &places, Reply &reply);

/// A date as the rows have it.
QString DateText(QDate date);
} // namespace Practice
