#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The tabs of the case windows, and which of them a case has.

enum class CaseTab {
    Summary,
    Names,
    Docket,
    Accounting,
    Judgments,
    Charges,
    Sentence,
    Schedule,
    Documents,
    Finance,
    Violations
};
inline constexpr int caseTabCount = 11;

/// The three case windows.
enum class CaseKind {
    State,   ///< frmCaseDetails
    Civil,   ///< frmCivilCaseDetails
    NonCivil ///< frmNCCaseDetails
};

/// What a tab has of its own, wherever it appears.
struct CaseTabRow
{
    CaseTab tab;
    QStringView caption;   ///< in TabStrip1, and the key of its setting
    int frame;             ///< its element of frameTabs
    int check;             ///< its element of chkTab
    QStringView title;     ///< its word in the status line and in the log
    QStringView procedure; ///< without its brackets
    QStringView review;    ///< lblWarning when the tab is shown and is incomplete
};

const CaseTabRow &CaseTabRowOf(CaseTab tab);

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

/// The tab with this caption, in capitals or not, with a leading "&" or not.
std::optional<CaseTab> CaseTabOf(const QString &caption);

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
