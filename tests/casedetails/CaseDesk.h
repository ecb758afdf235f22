#pragma once

#include "casedetails/CaseLines.h"
#include "casedetails/CaseWindow.h"
#include "namesearch/SearchDesk.h"

#include <QStringList>

class frmCaseDetails;
class frmCivilCaseDetails;
class frmNCCaseDetails;

/// A test of case windows: a desk, a court that holds the conversation written for it, and windows
/// that are filled as the results windows and the search form fill them.
class CaseTest : public SearchTest, protected CaseLines
{
    Q_OBJECT
protected:
    /// A case of the Superior Courts of King county, in the queue, its timer stopped, shown.
    frmCaseDetails *Superior(const QString &number = QStringLiteral("02-1-00123-4"));
    /// A case of another state's courts: "OR" (Baker, Circuit) or "ID" (Ada).
    frmCaseDetails *OfState(const QString &state, const QString &number);
    /// A bankruptcy case with this request line.
    frmCaseDetails *Bankruptcy(const QString &request);
    frmCivilCaseDetails *Civil(const QString &number = QStringLiteral("Y00012345"));
    frmNCCaseDetails *NonCivil(const QString &number = QStringLiteral("CR0012345"));

    /// Connects, lets the window take its turn, and waits until its run is over.
    void Run(CaseWindow *window);
    /// Lets the window ask for its turn.
    static void Begin(CaseWindow *window);
    /// True once the run has left the stack.
    bool Finished(CaseWindow *window);

    /// The cells of a grid, the headers first.
    static QList<QStringList> CellsOf(const CaseWindow *window, CaseTab tab);
    static QStringList CaptionsOf(const CaseWindow *window);
    /// The object name of the page of frameTabs that is shown.
    static QString ShownFrame(const CaseWindow *window);
    /// Clicks a tab, as the user does.
    static void ClickTab(CaseWindow *window, const QString &caption);
};
