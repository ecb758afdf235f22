#pragma once

#include "casedetails/frmCaseDetails.h"

// Windows of cases as their starters make them, without a search before them.

/// A case of a state's courts.
inline CaseWindow *MadeStateCase(const QString &state, const QString &number, const QString &county)
{
    auto *window = new frmCaseDetails;
    window->lblState = state;
    window->txtCaseNumber = number;
    window->txtCountyName = county;
    window->lblOrCourtType = QStringLiteral("C");
    window->SetCaseDetailsHdr(QStringLiteral("Case Details (") + number + u')');
    return window;
}

/// A case of Oregon's bankruptcy court.
inline CaseWindow *MadeBankruptcyCase(const QString &number)
{
    CaseWindow *window = MadeStateCase(QStringLiteral("ORBK"), number, {});
    window->chkBK = true;
    window->lboxTabReqQueue.AddItem(QStringLiteral("BKRPT~SUMMARY~") + number
                                    + QStringLiteral("~OR~"));
    return window;
}

/// A case of the district court in Seattle, in a frmCivilCaseDetails or a frmNCCaseDetails.
template<typename Window>
CaseWindow *MadeDistrictCase(const QString &number, const QString &type)
{
    auto *window = new Window;
    window->txtCaseNumber = number;
    window->txtCountyName = QStringLiteral("King");
    window->txtCourtCode = QStringLiteral("KSD");
    window->txtCaseType = type;
    return window;
}
