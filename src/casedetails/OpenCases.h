#pragma once

#include "records/CaseStart.h"

class QWidget;

/// Whether this case is to be opened. A case that has a window already is offered in a question:
/// the user goes to that window, opens the case once more, or leaves it. Events run: after the
/// answer anything may have changed.
bool MayOpenCase(QWidget *asking, const CaseStart &start);
