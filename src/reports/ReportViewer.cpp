#include "reports/ReportViewer.h"

#include <utility>

namespace {
ReportViewerMaker &maker()
{
    static ReportViewerMaker used;
    return used;
}
} // namespace

std::unique_ptr<ReportViewer> MakeReportViewer(QWidget *owner)
{
    return maker() ? maker()(owner) : nullptr;
}

void UseReportViewer(ReportViewerMaker newMaker)
{
    maker() = std::move(newMaker);
}
