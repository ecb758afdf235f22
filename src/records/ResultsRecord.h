#pragma once

#include "records/RowTable.h"
#include "records/StatusLine.h"

#include <QList>
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
    QString lblState;        ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    QString Caption;         ///< of the window, "" before the criteria are known
    QString NameLabel;       ///< lblName; "" leaves what the window was designed with
    QString NameVal;         ///< lblNameVal
    QString CaseTypeVals;    ///< lblCaseTypeVals
    QString CountyList;      ///< txtCountyList
    QString CourtCounty;     ///< lblCourtCounty, District and Municipal Courts
    QString ClientAcctgCode; ///< upper case; may be empty
    bool IndexSearch = false;

    // What came
    ResultKind Kind = ResultKind::Superior; ///< of the columns
    QList<ListColumn> Columns;
    RowTable Rows;
    /// The columns gave way to one, which says that there was too much to be listed.
    bool NoteColumn = false;
    QList<ListColumn> NameColumns; ///< non-civil searches, as are the next
    RowTable Names;                ///< the people of one name
    bool DupesFound = false;       ///< some have come
    bool ShowingDupes = false;     ///< they are in front

    // How it went
    StatusLine SearchStatus;       ///< lblSearchStatus
    QString Count;                 ///< Label3
    QString SortColumnName;        ///< the header of the sort column
    bool SearchIncomplete = false; ///< a request failed in a way that loses results
    bool StopWarningFlag = false;  ///< nothing sets it: a stop shows in a report's closing line
    bool HasEnded = false;         ///< a run came to its end: there is something to be printed
};
