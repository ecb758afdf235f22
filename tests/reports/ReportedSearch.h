#pragma once

#include "records/ResultsRecord.h"
#include "reports/Report.h"

#include <QStringList>

#include <memory>

using namespace Qt::StringLiterals;

// Searches as they are when they are reported.

/// A search of the Superior Courts that has come to its end without a row.
inline std::unique_ptr<ResultsRecord> ReportedSearch(ResultKind kind = ResultKind::Superior)
{
    auto record = std::make_unique<ResultsRecord>();
    record->lblState = kind == ResultKind::Idaho ? u"ID"_s : u"WA"_s;
    record->Kind = kind;
    record->chkIndexSearch = kind == ResultKind::Index;
    record->lblNameVal = u"SMITH, JOHN"_s;
    record->lblCaseTypeVals = u"Civil, Criminal"_s;
    record->txtCountyList = u"King County - Washington Superior Courts"_s;
    record->SortColumnName = u" Participant Name"_s;
    return record;
}

inline ReportSituation OnAMorning()
{
    ReportSituation situation;
    situation.DatePrinted = u"3/10/2026 10:00:00 AM"_s;
    return situation;
}

/// A cell for each of the columns that a list of this kind can have, each of them different.
inline QStringList RowOf(ResultKind kind)
{
    const bool index = kind == ResultKind::Index;
    if (index)
        return {u"SMITH, JOHN A"_s,  u"02-2-00123-4"_s, u"01/02/2002"_s, u"TORT"_s,
                u"SMITH VS JONES"_s, u"KING"_s,         u"PLA"_s,        u"03/04/2002"_s};
    return {u"SMITH, JOHN A"_s, u"02-2-00123-4"_s, u"01/02/2002"_s, u"TORT"_s,
            u"KING"_s,          u"PLA"_s,          u"seven"_s,      u"eight"_s};
}
