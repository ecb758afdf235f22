#include "reports/ReportViewer.h"

#include "reports/PreviewDoc.h"
#include "reports/ReportPaper.h"

#include <QPointer>

#include <utility>

namespace {
ReportViewerMaker &replacement()
{
    static ReportViewerMaker maker;
    return maker;
}

/// The preview of a window, which is not made before there is something to be shown: most windows
/// are closed without.
class PreviewViewer : public ReportViewer
{
public:
    explicit PreviewViewer(QWidget *window) : owner(window) {}
    ~PreviewViewer() override
    {
        if (preview)
            preview->Unload();
    }

    int PrintableWidth() const override { return ReportPaper::Of().Current().PrintableWidth(); }
    void Show(const Report &report) override { loaded()->ShowReport(report); }
    void PrintAndClose(const Report &report) override
    {
        ++*printing;
        loaded()->PrintAndClose(report);
    }
    bool IsPrinting() const override { return preview && *printing > 0; }

private:
    PreviewDoc *loaded()
    {
        if (preview)
            return preview;
        preview = PreviewDoc::Of(owner);
        QObject::connect(preview, &PreviewDoc::PrintingOver, preview,
                         [count = printing] { --*count; });
        return preview;
    }

    QWidget *const owner;
    QPointer<PreviewDoc> preview;
    const std::shared_ptr<int> printing = std::make_shared<int>(0); ///< reports on their way
};
} // namespace

std::unique_ptr<ReportViewer> MakeReportViewer(QWidget *owner)
{
    return replacement() ? replacement()(owner) : std::make_unique<PreviewViewer>(owner);
}

void ReplaceReportViewer(ReportViewerMaker maker)
{
    replacement() = std::move(maker);
}
