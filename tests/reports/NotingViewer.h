#pragma once

#include "reports/Report.h"

#include <QList>

/// What has become of the reports of a test, over all windows.
struct ReportsSeen
{
    QList<Report> Shown;   ///< in a preview
    QList<Report> Printed; ///< without a question
    bool Printing = false; ///< the last print does not come to its end
    int Viewers = 0;       ///< that there are
    int Width = 10000;     ///< of the paper, twips
};

/// Every window that is loaded from now on has its reports noted in `seen`, and shown nowhere.
void NoteReports(ReportsSeen *seen);
