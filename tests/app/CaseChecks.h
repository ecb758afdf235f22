#pragma once

#include "app/PracticeUser.h"

// What the tests of cases at the practice court have in common: how they are looked for, which tabs
// they have, and how a window shows one that has come to its end.

inline const QStringList discis{u"click optCourtSelection_1"_s};
inline const QStringList nonCivil{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s};
inline const QStringList federal{u"click optState_2"_s, u"click chkBKcourt_2"_s};

inline const QStringList firstTwo{u"Summary"_s, u"Names"_s};
inline const QStringList criminalTabs =
    firstTwo + QStringList{u"Docket"_s,     u"Judgments"_s, u"Charges"_s,  u"Sentence"_s,
                           u"Accounting"_s, u"Schedule"_s,  u"Documents"_s};
inline const QStringList civilTabs =
    firstTwo
    + QStringList{u"Docket"_s, u"Judgments"_s, u"Accounting"_s, u"Schedule"_s, u"Documents"_s};
inline const QStringList archivedCriminalTabs =
    firstTwo
    + QStringList{u"Judgments"_s, u"Charges"_s, u"Sentence"_s, u"Schedule"_s, u"Documents"_s};
inline const QStringList archivedCivilTabs =
    firstTwo + QStringList{u"Judgments"_s, u"Accounting"_s, u"Documents"_s};
inline const QStringList judgmentTabs = firstTwo + QStringList{u"Docket"_s, u"Documents"_s};
inline const QStringList discisTabs = firstTwo + QStringList{u"Docket"_s, u"Judgments"_s};
inline const QStringList everyTab = criminalTabs + QStringList{u"Finance"_s, u"Violations"_s};
inline const QStringList nonCivilTabs = firstTwo + QStringList{u"Docket"_s, u"Violations"_s};

/// A case as the list of results has it, and what its window must show.
struct Expected
{
    QString form;
    QString cell;   ///< the case number in the list, with its marks
    QString person; ///< in the Names grid
    QString court;  ///< in lblCourtName
    QStringList tabs;
};
Q_DECLARE_METATYPE(Expected)

/// Why the grid of a tab is no table that a court would send; "" when it is one. Nothing but a
/// message counts as one: a case need not have judgments.
QString TroubleWith(const CaseWindow *window, CaseTab tab);
bool HasCell(const CaseWindow *window, CaseTab tab, const QString &text);
/// The tabs of the window in the order of the strip.
QList<CaseTab> TabsOf(const CaseWindow *window);

/// Fails the test when the window is not complete, has another court or other tabs, or the person
/// is not among the names.
void CheckCase(const CaseWindow *window, const Expected &expected);
