#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

/// How much of the time of day is written.
enum class ClockTime { WithSeconds, ToTheMinute };

/// The "General Date" of a moment: its date and its time in the short and plain form of a locale.
///
/// The order, the separators and the words are the locale's. The year has four digits, digits are
/// those of Windows-1252, and no time zone is named. Where the locale has characters that
/// the code page does not have, they are left out: a date is then its numbers in their order, a
/// time HH:MM:SS.
QString GeneralDate(const QDateTime &moment, ClockTime time = ClockTime::WithSeconds,
                    const QLocale &locale = QLocale::system());
