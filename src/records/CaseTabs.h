#pragma once

#include <QString>

#include <optional>

// The tabs that a case can have, in all three case windows.

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

/// The tab with this caption, in capitals or not, with a leading "&" or not.
std::optional<CaseTab> CaseTabOf(const QString &caption);
