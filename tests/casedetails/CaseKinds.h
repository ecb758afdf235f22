#pragma once

#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"

#include <QMetaType>
#include <QString>
#include <QTest>

#include <array>

// The three case windows, for tests of what they have in common.

enum class Which { Case, Civil, NonCivil };
Q_DECLARE_METATYPE(Which)

inline constexpr std::array<Which, 3> allWindows{Which::Case, Which::Civil, Which::NonCivil};

inline const char *NameOf(Which which)
{
    switch (which) {
    case Which::Civil:
        return "civil";
    case Which::NonCivil:
        return "non-civil";
    case Which::Case:
        break;
    }
    return "case";
}

/// A row for each window.
inline void EachWindow()
{
    QTest::addColumn<Which>("which");
    for (const Which which : allWindows)
        QTest::newRow(NameOf(which)) << which;
}

/// A window as it is loaded.
inline CaseWindow *MakeCase(Which which)
{
    switch (which) {
    case Which::Civil:
        return new frmCivilCaseDetails;
    case Which::NonCivil:
        return new frmNCCaseDetails;
    case Which::Case:
        break;
    }
    return new frmCaseDetails;
}

/// A test of what the three windows have in common.
class CaseKindsTest : public CaseTest
{
protected:
    /// A case in the queue, its timer stopped, shown.
    CaseWindow *pending(Which which = Which::Case)
    {
        switch (which) {
        case Which::Civil:
            return Civil();
        case Which::NonCivil:
            return NonCivil();
        case Which::Case:
            break;
        }
        return Superior();
    }
};
