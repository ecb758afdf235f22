#pragma once

#include <QString>
#include <QStringList>

// What stands in one line of a list of case numbers, before any court has looked at it.

/// The line as it is read: full-width characters, the dashes and blanks of other programs and the
/// quotes of a spreadsheet are the plain ones, and a dash has no blanks around it between digits.
QString PlainLine(const QString &line);

/// The words of a plain line that consist of letters, digits and dashes, without dates, amounts of
/// money and addresses.
QStringList NumberWords(const QString &plain);

/// The counties that a plain line names, in any case. One that is called a county ("King County",
/// "County of King") goes before names that may be somebody's.
QStringList CountiesNamedIn(const QString &plain, const QStringList &counties);
