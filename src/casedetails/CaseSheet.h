#pragma once

#include "records/CaseRecord.h"

#include <QObject>

/// The record of a case, and word of each change of it, there and then. Who shows it writes back
/// what the user chose.
class CaseSheet : public QObject
{
    Q_OBJECT
public:
    explicit CaseSheet(CaseKind kind);

    /// Takes what the starter hands over. The kind of the case stays.
    void Take(const CaseStart &start);
    /// A text of the header that is nothing but a text.
    void SetHeader(QString CaseRecord::*field, const QString &text);
    void SetHeading(const QString &text);
    void SetTitle(const QString &text);
    void SetWarning(const QString &text, StatusStyle style = StatusStyle::TroubleBold);

    /// Cuts the strip to these captions, or extends it to them.
    void SetTabs(const QStringList &captions);
    /// Only the Summary is left.
    void RemoveAllTabsButFirst();
    void ShowTable(CaseTab tab, const GridTable &table);
    /// Marks rows of the tab's table as new, until it has another one.
    void MarkNew(CaseTab tab, const RowMarks &marks);
    /// A line of the list of documents has come, the last of these. The table begins with the
    /// lines that define it; whatever was in it stays until then.
    void AddDocumentLine(const QStringList &lines);
    /// All of them have come: what stands in place of a list, if there is none.
    void EndDocuments(const QStringList &lines, bool incomplete, const QString &request);
    /// A tab's table stands as it does when it is new.
    void ToBegin(CaseTab tab);
    /// Brings the tab below the strip, or the on-demand panel in its place.
    void BringIntoSight(CaseTab tab);

    /// What has become of a tab; `reason` says why it failed.
    void SetAnswer(CaseTab tab, AnswerState state, const QString &reason = {});
    /// A reply that did not end, or ended in an error: behind a stop that is the stop's doing.
    void EndFailed(CaseTab tab, const QString &reason, bool stopped);
    /// Nothing more is asked for: what waits is not asked, and what was asked has been stopped. The
    /// error is that with which the run broke down, or "".
    void EndAnswers(const QString &error, bool holdsQueue);
    /// A run broke down, and keeps its place in the queue or not; "" when that is over.
    void SetBreakdown(const QString &error, bool holdsQueue);

    /// The user selected this tab in the strip.
    void Select(const QString &caption) { Record.SelectedTab = caption; }
    /// The user ticked a box of the on-demand panel, or took its tick away.
    void Choose(CaseTab tab, bool chosen) { Record.Tab(tab).Chosen = chosen; }
    /// Every tab that has not come is offered and ticked on the panel; what is missing stays as it
    /// is ticked where the ticks are to be kept.
    void OfferMissing(bool keepTicks);
    /// The same. Only while a run waits or goes on are the ticks what the user has made them:
    /// looking at another tab must not add to what is fetched.
    void SetOnDemandPanel() { OfferMissing(ChoiceStands); }
    void AllowSearchNow(bool allowed);
    void AllowPrint(bool allowed);
    /// A later run is over: what is still missing can be asked for again.
    void OfferOnDemand();

    CaseRecord Record;
    bool ChoiceStands = false; ///< a later run waits or goes on: its ticks are the user's

Q_SIGNALS:
    void HeaderChanged(); ///< the caption of the window, or a text of its header
    void WarningChanged();
    void TabsChanged(); ///< the strip has other captions
    /// What is below the strip, or selected in it, is another, or is to be shown afresh.
    void SightChanged();
    void TabChanged(CaseTab tab);   ///< it has another table
    void MarksChanged(CaseTab tab); ///< other rows of its table are new
    void RowsAdded();               ///< the list of documents has more rows
    void RowsComplete();            ///< and has all of them now
    void TabToBegin(CaseTab tab);
    void AnswersChanged(); ///< what has become of a tab, or of a run that broke down
    void OfferChanged();   ///< what the panel offers, or whether something can be printed
};
