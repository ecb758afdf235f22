#pragma once

#include "searchentry/SearchEntry.h"

#include <QList>

// A list of case numbers out of a mail or a spreadsheet: each line is read for a number and for the
// county that it names.

/// The courts that the numbers belong to.
struct NumberListCourt
{
    CourtFamily Court = CourtFamily::Superior;
    bool DistrictCourt = false; ///< Oregon's District, not Circuit
    QStringList Counties;
    QString UsualCounty; ///< of a line that names none; "" when there is none
};

enum class NumberVerdict {
    Valid,
    Doubtful,     ///< can be asked for, but is hardly meant
    Duplicate,    ///< an earlier line has the same number and county
    Refused,      ///< the checks of a batch would refuse it
    NotUnderstood ///< there is no number in the line
};

/// A number of the list, or a line without one.
struct ListedNumber
{
    int Line = 0;   ///< where it stands, from 1
    QString Number; ///< in the court's own form; the words of the line when it has no number
    QString County; ///< "" when none is known
    NumberVerdict Verdict = NumberVerdict::NotUnderstood;
    QString Reason; ///< a sentence, "" for a valid one

    bool CanStart() const
    {
        return Verdict == NumberVerdict::Valid || Verdict == NumberVerdict::Doubtful;
    }
};

/// Reads the text. Lines without a letter or digit are passed over; the order is that of the text.
/// Of a text or a line without end the first part is read, and what was left is said in a row.
QList<ListedNumber> ReadNumberList(const QString &text, const NumberListCourt &court);

/// The part of a text that is read of it, and no more than it takes to see that there is more.
QString ReadablePart(const QString &text);

/// "Valid", or what is wrong with it.
QString VerdictText(const ListedNumber &listed);

/// The entries of these numbers: batches of ten, in their order.
QList<SearchEntry> BatchesOf(const QList<ListedNumber> &numbers, const NumberListCourt &court);
