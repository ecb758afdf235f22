#pragma once

#include "records/CaseRecord.h"

#include <optional>

// What the rows of a case's tables open: other cases. Rows are counted as the grids count them, the
// headers being row 0.

/// The case that a row of a list of several bankruptcy cases opens. Nothing for a row that is no
/// case, and where there is no such list.
std::optional<CaseStart> ListedCase(const CaseRecord &record, int row);

/// The number of the associated case that a row of the Summary names, "" for other rows.
QString AssociatedCase(const CaseRecord &record, int row);

/// The number of the Superior Courts that a row of the judgments names, "" when none of its cells
/// reads like one, and in other courts.
QString CaseOfJudgment(const CaseRecord &record, int row);

/// A case of the Superior Courts in the county of the one that names it.
CaseStart CaseOfCounty(const CaseRecord &record, const QString &number);
