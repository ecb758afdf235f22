#pragma once

#include "casedetails/CaseTabs.h"
#include "records/GridTable.h"

#include <QString>
#include <QStringList>

#include <optional>

// What the lines of a Summary reply mean, without a window. The run that reads them is in
// CaseSummary.cpp.

/// What a line of the reply is: the first kind that fits.
enum class SummaryLine {
    EndOfReply,
    BankruptcyNotFound, ///< the case is not there: the reply counts as "Case Not Found"
    NotOnFile,          ///< Oregon and Idaho: the same, and the reply ends here
    Error,
    Progress,
    UserQuestion, ///< the case is in an arbitration court
    Data
};
SummaryLine ClassifySummaryLine(const QString &state, const QString &line);

/// Whether a text of the court says that a number is none of a case.
bool IsInvalidNumber(const QString &text);
/// Whether an error line says that the court has no such case.
bool IsNotOnFile(const QString &text);

/// What an error line does.
struct SummaryError
{
    QString Text;     ///< the error text from now on, which is also the reason
    QString LogLine;  ///< "" when nothing is logged
    QString Response; ///< what is added to lboxResponses
    bool Warnings;    ///< the warnings flag and CaseInvalid are set
};
SummaryError ReadSummaryError(const QString &line);

/// What ShowSummaryResponse does to the window. A text that is not set is left as it is.
struct SummaryView
{
    std::optional<QString> CourtName;
    std::optional<QString> TopFrameCaseType;
    std::optional<QString>
        CaseTitle; ///< Superior Courts: with each "&" doubled, as a label takes it
    std::optional<QString> DateFiled;
    std::optional<QString> Caption;       ///< of the window
    std::optional<QString> CaptionSuffix; ///< added to the caption
    std::optional<QString> MultipleLabel; ///< Label1 index 2
    std::optional<GridTable> Grid;
    std::optional<QStringList> Tabs; ///< the strip is cut to, or made of, these
    QStringList TabRequests;         ///< bankruptcy: lines for lboxTabReqQueue
    QStringList List1;               ///< bankruptcy: each listed case's command^grid row^
    bool ActivateSummary = false;
    bool Multiple = false;      ///< several bankruptcy cases are on the screen
    bool InvalidNumber = false; ///< the court says that the number is none of a case
    bool NoSuchCase = false;    ///< the court says so
    bool NotLocated = false;    ///< the search is over: nothing came at all
};

/// What the window shows before the reply.
struct SummaryContext
{
    QString State; ///< lblState
    QString CountyName;
    QString CaseTitle;      ///< lblCaseTitle
    QString CaseDetailsHdr; ///< lblCaseDetailsHdr
    QString CourtName;      ///< lblCourtName
};

/// Reads a whole reply of the Superior, Oregon, Idaho or bankruptcy courts, whatever its lines
/// hold. A header line without its field has an empty one; in a reply that is too short for a case
/// it sets nothing, and the grid says so.
SummaryView ReadSummary(const SummaryContext &context, const QStringList &lines);
