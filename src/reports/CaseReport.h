#pragma once

#include "records/CaseRecord.h"
#include "reports/Report.h"

#include <array>

// The report of a case: on paper, and as the lines of a text file.

/// The tabs in the order of a report.
inline constexpr std::array<CaseTab, caseTabCount> caseReportOrder{
    CaseTab::Summary, CaseTab::Names,      CaseTab::Docket,   CaseTab::Judgments,
    CaseTab::Charges, CaseTab::Violations, CaseTab::Sentence, CaseTab::Accounting,
    CaseTab::Finance, CaseTab::Schedule,   CaseTab::Documents};

/// Whether a report can have this tab of a case: it has come, or it has come in part and the user
/// looks at that. The Summary can always be had.
bool CanBeReported(const CaseRecord &record, CaseTab tab);
/// All of these, in the order of a report.
QList<CaseTab> TabsToReport(const CaseRecord &record);

/// What both reports of a case are called, at their head and in lists.
QString CaseReportTitle(const CaseRecord &record);

/// The report of these tabs, whatever order they are in; one that the case does not have is left
/// out. Columns have the shares of the record in a page of which `printableWidth` twips can be
/// printed, whatever the user has made of them on the screen.
Report ComposeCase(const CaseRecord &record, const QList<CaseTab> &tabs,
                   const ReportSituation &situation, int printableWidth);

/// The same as lines of a text file. A column is as wide as its longest cell; only a cell that is
/// much too long for that makes its own line longer, and not all the others.
QStringList CaseReportLines(const CaseRecord &record, const QList<CaseTab> &tabs,
                            const ReportSituation &situation);
