#pragma once

#include <QString>
#include <QStringList>

/// Reads the case type words of the Washington Superior Courts; answers their number.
int LoadWaCaseTypes();

/// The case types that a court's searches can be limited to, sorted. `court` is one of "WASUP",
/// "OR" and "IDSUP"; anything else has the one item "NOT FOUND!!".
QStringList CaseTypesOf(const QString &court);

/// The kind of case that a number tells: by its third digit in Washington (`court` begins "WA"), by
/// its first letters in Idaho; "" when it tells nothing.
QString GetCaseTypeFromNumber(const QString &number, const QString &court);
