#pragma once

#include "records/CaseRecord.h"
#include "records/CaseTabs.h"

#include <QList>
#include <QString>
#include <QStringList>

// Which tabs a case has, and what is said while they come.

/// What the status line, lblWarning and the log say of one exchange of a tab.
struct TabTexts
{
    QString Retrieving; ///< the status line and the log
    QString Complete;
    QString Incomplete;
    QString Warning;          ///< lblWarning when the exchange failed
    QString AllReceived;      ///< logged with the request behind it, as is the next
    QString SearchIncomplete; ///< logged
    QString SearchResult;     ///< logged with the reason behind it
    QString ProcError;        ///< logged with the description of the error behind it
    QString NormalExit;       ///< logged
};
TabTexts TextsOf(CaseTab tab);

/// The captions of a case of the Superior Courts by the type digit of its number. Neither "*" nor
/// ">>" stands in front of the number any more.
QStringList GetTabsForCaseType(const QString &number, bool archived);

/// The same for the text of txtCaseNumber, whose marks tell whether the case is archived.
QStringList WashingtonTabs(const QString &caseNumber);

QStringList OregonTabs();
QStringList IdahoTabs();
/// What is left of these by the first line of the summary: only what the line names.
QStringList TabsOfSummary(const QString &firstLine);

/// The captions of a District or Municipal case.
QStringList DiscisTabs(CaseKind kind);

/// The order in which the tabs of a state's courts get their request lines; "WA", "OR" or "ID".
/// Summary is not in it: its line is always the first. Nothing for other courts.
QList<CaseTab> RequestOrder(const QString &state);

/// What is said of the tab in sight when its table may not be all: "" when nothing is.
QString NoticeOfTab(const CaseRecord &record);

/// What is said of a case whose run broke down, and what to do; "" when none did.
QString NoticeOfBreakdown(const CaseRecord &record);
