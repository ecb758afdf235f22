#include "casedetails/OpenCases.h"

#include "casedetails/CaseIdentity.h"
#include "casedetails/CaseWindow.h"
#include "casedetails/CaseWindows.h"
#include "controls/MsgBox.h"
#include "controls/WindowPlace.h"
#include "session/frmMain.h"

#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The newest window of this case, null when it has none.
CaseWindow *windowOf(const QString &identity)
{
    const QList<CaseWindow *> &all = AllCaseWindows();
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const CaseWindow *window) {
        return !window->IsUnloaded() && CaseIdentity(window->Record()) == identity;
    });
    return identity.isEmpty() || found == all.rend() ? nullptr : *found;
}

/// What its window is called: not before its first tick has every case a caption of its own.
QString nameOf(const CaseRecord &record)
{
    return record.Caption == CaseStart().Caption ? record.lblCaseDetailsHdr : record.Caption;
}

void goTo(CaseWindow *window)
{
    if (frmMain *main = frmMain::Form())
        main->ShowChildAgain(window);
    else
        BringToFront(window);
}
} // namespace

bool MayOpenCase(QWidget *asking, const CaseStart &start)
{
    const QPointer<CaseWindow> open = windowOf(CaseIdentity(start));
    if (!open)
        return true;
    const QString text = u"This case is open already, in the window\n\n"_s + nameOf(open->Record())
                         + u"\n\nOpening it again asks the court for all of it once more."_s;
    const int answer = MsgBoxChoice(asking, text, u"Halvane - Case Is Open"_s, MsgIcon::Question,
                                    {u"&Go To It"_s, u"&Open Again"_s});
    constexpr int goToIt = 0;
    constexpr int openAgain = 1;
    if (answer == goToIt && open && !open->IsUnloaded())
        goTo(open);
    return answer == openAgain;
}
