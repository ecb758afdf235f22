#pragma once

#include "reports/Report.h"

#include <functional>
#include <memory>

class QWidget;

/// Shows the reports of a window to the user. Each window that can print has one from its loading
/// to its unloading.
class ReportViewer
{
public:
    ReportViewer() = default;
    virtual ~ReportViewer() = default;
    Q_DISABLE_COPY_MOVE(ReportViewer)

    /// How much of a page's width can be printed, in twips.
    virtual int PrintableWidth() const = 0;
    /// Opens the preview.
    virtual void Show(const Report &report) = 0;
    /// Prints without a question, and leaves nothing open.
    virtual void PrintAndClose(const Report &report) = 0;
    /// Whether such a print has not come to its end.
    virtual bool IsPrinting() const = 0;
};

/// Makes the viewer of a window.
using ReportViewerMaker = std::function<std::unique_ptr<ReportViewer>(QWidget *owner)>;

std::unique_ptr<ReportViewer> MakeReportViewer(QWidget *owner);
/// Every window that is loaded from now on has such a viewer; an empty function puts the preview
/// back.
void ReplaceReportViewer(ReportViewerMaker maker);
