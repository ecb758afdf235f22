#pragma once

#include "core/TextUtilities.h"
#include "records/ResultsRecord.h"
#include "reports/Report.h"
#include "reports/ReportText.h"

/// The list of a search that is reported: its cases, or the people of one name.
struct ReportedList
{
    const RowTable *Rows;
    ResultKind Kind; ///< of its columns
};

/// The cases of a search, in the order in which they are listed.
ReportedList CasesOf(const ResultsRecord &record);

/// The printed report of a search. Every row of the list is in it, those too that Find hides.
/// `textWidth` measures the writing of the rows, in twips.
Report ComposeResults(const ResultsRecord &record, const ReportedList &list,
                      const ReportSituation &situation, const TextMeasure &textWidth);

/// The same as a text file.
ReportText ResultsText(const ResultsRecord &record, const ReportedList &list,
                       const ReportSituation &situation);
