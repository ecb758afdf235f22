#pragma once

#include "casedetails/CaseTabs.h"

#include <QString>

// The request lines of a case's tabs.

/// What a case window knows of its case when it asks for it.
struct CaseOfRequest
{
    CaseKind Kind = CaseKind::State;
    QString State;       ///< "WA", "OR" or "ID"
    QString CaseNumber;  ///< txtCaseNumber, with its marks
    QString CountyName;  ///< txtCountyName
    QString OrCourtType; ///< lblOrCourtType
    QString CaseType;    ///< txtCaseType: "CV" or "IN", District and Municipal Courts
    QString CourtCode;   ///< txtCourtCode, District and Municipal Courts
};

/// The request line of a tab, "" when the courts of this state have no such tab. No field can break
/// the line: what frames it is left out.
QString CaseTabRequest(const CaseOfRequest &ofCase, CaseTab tab);

/// The section of options.ini that says which tabs are fetched at once.
QString CaseTabsSection(CaseKind kind, const QString &state);

/// ArbitrationMode: what the user said when the court asked.
enum class ArbitrationMode { NotAsked = 0, Arbitration = 1, NoArbitration = 2 };

/// The request line with the answer: all but its last two characters, the answer, and "¦¦". The
/// line as it stands when nothing was asked.
QString WithArbitration(const QString &request, ArbitrationMode mode);

/// The line that the court has given for this tab of a bankruptcy case in its Summary: the first of
/// these that holds the tab's caption, "" when none does.
QString BankruptcyRequest(const QStringList &lines, CaseTab tab);
