#include "casedetails/AutomaticPrinting.h"

#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
constexpr int askAgain = 500; ///< milliseconds
} // namespace

AutomaticPrinting &AutomaticPrinting::Of()
{
    static AutomaticPrinting printing;
    return printing;
}

AutomaticPrinting::AutomaticPrinting() : TmrReports(new QTimer(this))
{
    TmrReports->setObjectName(u"TmrReports"_s);
    TmrReports->setInterval(askAgain);
    connect(TmrReports, &QTimer::timeout, this, &AutomaticPrinting::TmrReports_Tick);
}

void AutomaticPrinting::Add(CaseWindow *window)
{
    waiting.append(window);
    TmrReports->start();
}

/// The timer stands still while the user is asked for the tabs of a case: there is one such
/// question at a time.
void AutomaticPrinting::TmrReports_Tick()
{
    TmrReports->stop();
    dropClosed();
    if (!waiting.isEmpty() && mayPrint()) {
        last = waiting.takeFirst();
        last->PrintWaiting();
        dropClosed();
    }
    if (!waiting.isEmpty())
        TmrReports->start();
}

void AutomaticPrinting::dropClosed()
{
    waiting.removeIf(
        [](const QPointer<CaseWindow> &window) { return window.isNull() || window->IsUnloaded(); });
}

bool AutomaticPrinting::mayPrint() const
{
    return !Global.bSearchInProgress && Job::AllAtRest() && !TurnHold::IsHeld()
           && !QApplication::activeModalWidget() && !QApplication::activePopupWidget()
           && !(last && last->IsPrinting());
}
