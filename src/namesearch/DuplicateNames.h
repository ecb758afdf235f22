#pragma once

#include <QString>
#include <QStringList>

/// A person as a row of the list of duplicate names.
struct NameRow
{
    QStringList Cells;
    QString Key;          ///< tells the person apart from all others in the list
    bool Complete = true; ///< false when a field was missing; Cells then ends before it
};

/// Cuts a row for which IsDuplicateName holds into the cells of the list. `rowCount` is the number
/// of rows that the list has already.
NameRow ParseNameRow(const QString &row, int rowCount);

/// The text of a row whose cases were retrieved, or are about to be: with a mark before it, once.
QString MarkedAsRetrieved(const QString &text);

/// The question whether so many checked people, some of them out of sight, are to be retrieved.
QString OutOfSightQuestion(qsizetype outOfSight, qsizetype checked);

/// The request for the cases of one person of the list. `search` is "SNCI" or "DND", `nameVal` what
/// was searched for, `cells` and `key` those of the person's row.
QString CasesOfNameRequest(const QString &search, const QString &nameVal, const QStringList &cells,
                           const QString &key);
