#pragma once

#include "records/CourtAnswer.h"
#include "records/RowTable.h"
#include "records/StatusLine.h"

#include <QByteArray>
#include <QString>

/// The kinds of result list, each with its own columns and row fields.
enum class ResultKind {
    Superior, ///< Oregon too
    Idaho,
    Bankruptcy,
    Index,
    DiscisCivil,
    DiscisStatewide, ///< non-civil cases, "SNCI"
    DiscisAddresses, ///< non-civil cases of defendants with addresses, "DND"
    NamesStatewide,  ///< the names that came more than once, "SNCI"
    NamesAddresses   ///< the same, "DND"
};

/// One search and what has come of it: what its window shows and its reports print.
struct ResultsRecord
{
    // What was searched for, in the words of the window
    QString lblState; ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    QString Caption;  ///< of the window
    QString lblNameVal;
    QString lblCaseTypeVals;
    QString txtCountyList;
    QString lblCourtCounty;  ///< District and Municipal Courts
    QString ClientAcctgCode; ///< upper case; may be empty
    bool chkIndexSearch = false;

    /// How the search was asked for, in a form that can ask for it again; nothing below the search
    /// form reads it. Empty for a search that was not entered there.
    QByteArray Origin;

    // What came
    ResultKind Kind = ResultKind::Superior; ///< of the columns
    RowTable Rows;
    /// The columns gave way to one, which says that there was too much to be listed.
    bool TooManyToList = false;

    // How it went; the job has lblStatus
    StatusLine lblSearchStatus;
    QString Label3;                ///< the count
    QString SortColumnName;        ///< the header of the sort column
    bool SearchIncomplete = false; ///< a request failed in a way that loses results
    bool StopWarningFlag = false;  ///< nothing sets it: a stop shows in a report's closing line
    bool Printable = false;        ///< a run has come to its end
    QList<CourtAnswer> Courts;     ///< each request of its runs, in the order of asking
    QString RetryText;             ///< how the retry of failed requests goes, "" before the first
};
