#pragma once

#include "casedetails/DistrictDesk.h"

class QAbstractButton;

// The second pass of a case: which of the three windows, and what its tabs are asked for.

enum class CaseWindowKind { Superior, Civil, NonCivil };
Q_DECLARE_METATYPE(CaseWindowKind)

inline constexpr std::array<const char *, 3> caseWindowNames{"Superior", "civil", "non-civil"};
/// The key of a job of another window.
const QString otherKey = u"00000000000000000001"_s;

/// A test whose windows have been through their first run.
class OnDemandTest : public DistrictTest
{
    Q_OBJECT
protected:
    /// The tabs behind the Summary, in the order of the strip and of the boxes.
    static QList<CaseTab> TabsOf(CaseWindowKind kind);
    static QString LineOf(CaseWindowKind kind, CaseTab tab);
    static QStringList ReplyOf(CaseTab tab);
    /// A data row for each of the three windows.
    static void EachCaseWindow();

    /// A window in the queue.
    CaseWindow *MakeCase(CaseWindowKind kind);
    /// The same, whose Summary and whose tabs of these captions are fetched at once.
    CaseWindow *Pending(CaseWindowKind kind, const QStringList &fetched = {},
                        const QStringList &failing = {});
    /// The same behind its run.
    CaseWindow *AfterFirstRun(CaseWindowKind kind, const QStringList &fetched = {},
                              const QStringList &failing = {});
    /// Runs a case whose Summary the court does not answer.
    CaseWindow *WithoutSummary(CaseWindowKind kind);
    /// The whole reply of a Summary that comes.
    static QStringList SummaryReplyOf(CaseWindowKind kind);
    /// Lets the clock run, so that a wait comes to its end.
    void UntilTimeOut(CaseWindow *window);
    void ExpectTab(CaseWindowKind kind, CaseTab tab);
    /// Not for the documents, whose server has no line for an error.
    void ExpectFailingTab(CaseWindowKind kind, CaseTab tab);

    /// The next prompt is answered with this button.
    void AnswerPrompt(bool yes);
    /// Ticks these tabs on the panel and no others. The panel must be in sight.
    static void Tick(const CaseWindow *window, const QList<CaseTab> &tabs);
    static QAbstractButton *BoxOf(const CaseWindow *window, CaseTab tab);
    /// Presses SEARCH NOW; the run does not begin before its timer is started.
    static void SearchNow(CaseWindow *window);
    /// The whole of a later run.
    void SearchNowToTheEnd(CaseWindow *window);
    static bool CommandsEnabled(const CaseWindow *window);
    static QString CaptionOf(CaseTab tab) { return CaseTabRowOf(tab).caption.toString(); }
    static QString FrameOf(CaseTab tab);
};
