#pragma once

#include "records/CaseTabs.h"

class CaseWindow;

/// A new window for this kind of case.
CaseWindow *MakeCaseWindow(CaseKind kind);
