#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>

// What the model of a table says of a row that is new, the same in a list and in a grid.

/// A row's header gives true for it when the row is new.
constexpr int newRowRole = Qt::UserRole + 1;

/// The roles of a cell that are others once its row is marked.
QList<int> NewCellRoles();
/// What a cell of a new row gives for such a role. `first` is the text of the row's first cell, and
/// nothing for another one: a screen reader says of a row once that it is new.
QVariant NewCellData(int role, const QString &first);
/// What the header of a new row gives, `since` being the day of the look before.
QVariant NewHeaderData(int role, const QDate &since);

/// The day as it is written wherever something is new: 11/02/2026.
QString DayInWords(const QDate &day);
