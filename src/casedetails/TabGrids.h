#pragma once

#include "casedetails/CaseTabs.h"
#include "records/GridTable.h"

#include <QString>
#include <QStringList>

// From the reply of a tab to its grid: one reader for all tabs but Summary and Documents.

/// What a tab shows for its reply.
struct TabView
{
    GridTable Grid;
    /// District and Municipal Courts: the notes ahead of the table, at most two.
    QStringList Notes;
    QStringList LogLines; ///< in order, complete
};

/// `state` is lblState; `request` goes into the log lines. Throws error 6 or 13 when a width is no
/// number. Nothing for Summary and Documents.
TabView ShowTabResponse(CaseKind kind, const QString &state, CaseTab tab, const QStringList &lines,
                        bool incomplete, const QString &request);

/// What a line of a tab's reply is: the first kind that fits. Not for Summary.
enum class TabLine {
    EndOfReply,
    Error, ///< not stored; its text is the reason why the tab is incomplete
    Progress,
    Data
};
TabLine ClassifyTabLine(CaseTab tab, const QString &line);
