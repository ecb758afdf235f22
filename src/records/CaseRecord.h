#pragma once

#include "records/CaseStart.h"
#include "records/CourtAnswer.h"
#include "records/GridTable.h"
#include "records/RowMarks.h"
#include "records/StatusLine.h"

#include <QStringList>

#include <array>

/// A tab of a case, and what has come of it.
struct CaseTabRecord
{
    bool Exists = false; ///< the windows of this kind of case have it

    QString TabRequest;           ///< the complete request line
    bool TabNotRetrieved = false; ///< no data was asked for: the tab shows the on-demand panel
    bool TabIncomplete = false;   ///< its exchange ended in a time-out, an error reply or a failure
    bool TabDone = false;         ///< its exchange ended as it should

    /// How far the court is with it. A reply that ended with a stop is whole as far as anyone knows
    /// (TabDone), and Stopped here.
    AnswerState Answer = AnswerState::NotAsked;
    QString Reason; ///< why it failed

    GridTable Table;
    RowMarks New; ///< rows of it that were not there at an earlier look
    Qt::Alignment FirstColumn = Qt::AlignLeft | Qt::AlignTop; ///< how its cells stand
    QStringList Notes; ///< what the court put ahead of the table, at most two

    // Its box on the on-demand panel
    bool Offered = false; ///< can be ticked
    bool Chosen = false;  ///< is ticked
};

/// One case and what has come of it: what its window shows and its reports print. All that was
/// handed over is in it, as the replies have mended it since.
struct CaseRecord : CaseStart
{
    explicit CaseRecord(CaseKind kind);

    CaseTabRecord &Tab(CaseTab tab) { return Tabs.at(static_cast<size_t>(tab)); }
    const CaseTabRecord &Tab(CaseTab tab) const { return Tabs.at(static_cast<size_t>(tab)); }

    /// Whether the strip has a tab with this caption, in capitals or not.
    bool TabExists(const QString &word) const;
    bool TabExists(CaseTab tab) const;
    /// Whether a tab of the strip did not come as it should.
    bool AnyTabIncomplete() const;
    /// Whether the case is one of a Federal Bankruptcy Court.
    bool IsBankruptcy() const;

    // The header fields that only one kind of window has
    QString MultipleLabel; ///< Label1_2, "" while there is nothing to say
    QString lblCause;      ///< civil, as is the next
    QString lblSuitAmt;
    QString lblName; ///< non-civil, as are the next
    QString lblSex;
    QString lblCourtType;

    std::array<CaseTabRecord, caseTabCount> Tabs;
    QStringList TabCaptions;            ///< of the strip, in order
    QString SelectedTab;                ///< the caption that is selected there
    CaseTab InSight = CaseTab::Summary; ///< the tab in the place below the strip,
    bool PanelInSight = false;          ///< or the on-demand panel instead of it

    bool chkBKYass = false; ///< the list of several bankruptcy cases is on the screen
    QStringList List1;      ///< of these: the retrieval command of each row, in order

    /// The reply of the Documents tab, whose lines the rows of its table name. Any later run
    /// empties the list of responses; what a row opens must stay.
    QStringList DocumentLines;

    StatusLine lblWarning;      ///< out of sight while it is empty
    bool CanPrint = false;      ///< there is something to be printed
    bool CanSearchNow = false;  ///< no run waits or goes on: the panel can start one
    bool SearchStopped = false; ///< the case was not asked for to its end
    bool NotLocated = false;    ///< the court has no such case
    bool NoSuchCase = false;    ///< so it has, or it says so in one of its other ways
    QString Breakdown;          ///< the error that broke a run down, "" when none has
    bool HoldsQueue = false;    ///< that run has kept its place: what waits behind it is held up
};
