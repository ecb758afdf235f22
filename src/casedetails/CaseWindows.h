#pragma once

#include "records/CaseTabs.h"

#include <QList>

class CaseWindow;

/// A new window for this kind of case.
CaseWindow *MakeCaseWindow(CaseKind kind);

/// Every case window that there is, in the order in which they were made.
const QList<CaseWindow *> &AllCaseWindows();
