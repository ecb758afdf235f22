#include "reports/NotingViewer.h"

#include "reports/ReportViewer.h"

namespace {
class NotingViewer : public ReportViewer
{
public:
    explicit NotingViewer(ReportsSeen *reports) : seen(reports) { ++seen->Viewers; }
    ~NotingViewer() override { --seen->Viewers; }

    int PrintableWidth() const override { return seen->Width; }
    void Show(const Report &report) override { seen->Shown.append(report); }
    void PrintAndClose(const Report &report) override { seen->Printed.append(report); }
    bool IsPrinting() const override { return seen->Printing; }

private:
    ReportsSeen *seen;
};
} // namespace

void NoteReports(ReportsSeen *seen)
{
    ReplaceReportViewer([seen](QWidget *) { return std::make_unique<NotingViewer>(seen); });
}
