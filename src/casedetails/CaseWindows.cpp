#include "casedetails/CaseWindows.h"

#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"

CaseWindow *MakeCaseWindow(CaseKind kind)
{
    switch (kind) {
    case CaseKind::Civil:
        return new frmCivilCaseDetails;
    case CaseKind::NonCivil:
        return new frmNCCaseDetails;
    case CaseKind::State:
        break;
    }
    return new frmCaseDetails;
}
