#pragma once

#include <QDate>
#include <QSet>

/// Which rows of a table were not there when the same was looked at before, and when that was.
/// Marks are data beside the rows: no text of a row is another for them, nor what is copied or
/// reported of it.
struct RowMarks
{
    QSet<int> Rows; ///< counted from 0, without the headers
    QDate Since;    ///< the day of the look before

    bool IsEmpty() const { return Rows.isEmpty(); }
    bool operator==(const RowMarks &) const = default;
};
