#pragma once

#include "casedetails/CaseTabs.h"
#include "records/GridTable.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the Summary reply of a District or Municipal case does to its window. A text that is not
/// set is left as it is.
struct DiscisSummaryView
{
    std::optional<QString> Name;      ///< lblName, non-civil
    std::optional<QString> Sex;       ///< lblSex, non-civil
    std::optional<QString> CaseTitle; ///< civil
    std::optional<QString> Cause;     ///< civil
    std::optional<QString> SuitAmt;   ///< civil
    std::optional<QString> CaseNo;
    std::optional<QString> CourtName;
    std::optional<QString> CourtType; ///< non-civil
    std::optional<QString> DateFiled;
    std::optional<QString> Note;     ///< lblNote
    std::optional<QString> SumNote2; ///< lblSumNote2, non-civil: emptied by a case that has come
    std::optional<QString> CaptionSuffix;
    std::optional<QString> Status; ///< lblStatus, when the reply ends the run
    GridTable Grid;
};

/// Reads the reply, whatever its lines hold. A header line that is missing or lacks its field
/// counts as empty.
DiscisSummaryView ReadDiscisSummary(CaseKind kind, const QStringList &lines);
