#include "reports/ReportPdf.h"

#include "controls/Twips.h"
#include "core/AtomicFile.h"
#include "core/RunTimeError.h"
#include "core/Version.h"
#include "reports/ReportPainter.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Lets a PDF be written into a file that takes the place of another one once it is whole.
class ReplacementDevice : public QIODevice
{
public:
    explicit ReplacementDevice(const QString &path) : file(path) { open(QIODevice::WriteOnly); }

    bool isSequential() const override { return true; }
    bool HasFailed() const { return error.has_value(); }
    void Commit()
    {
        ThrowError();
        file.Commit();
    }
    void ThrowError() const
    {
        if (error)
            throw RunTimeError(*error);
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 length) override
    {
        // The writer of PDFs does not look whether its disk is full.
        if (!error) {
            try {
                file.Write({data, length});
            } catch (const RunTimeError &failure) {
                error = failure;
            }
        }
        return error ? -1 : length;
    }

private:
    FileReplacement file;
    std::optional<RunTimeError> error;
};

/// False when `progress` stopped it.
bool drawPages(PageLayout &layout, const ReportPainter &pages, QPdfWriter &writer,
               const ReplacementDevice &device, const PageProgress &progress)
{
    QPainter painter(&writer);
    if (!painter.isActive())
        throw RunTimeError::PermissionDenied();
    for (int i = 0; !device.HasFailed(); ++i) {
        ReportPage page;
        if (i < layout.PageCount())
            page = layout.Page(i);
        else if (!layout.AddPage(&page))
            break;
        if (i > 0)
            writer.newPage();
        pages.Draw(&painter, page);
        if (progress && !progress(i + 1))
            return false;
    }
    return true;
}
} // namespace

void WritePdf(const Report &report, const Paper &paper, const QString &path)
{
    const ReportPainter painter;
    PageLayout layout(report, paper, &painter);
    WritePdf(layout, painter, path, {});
}

bool WritePdf(PageLayout &layout, const ReportPainter &painter, const QString &path,
              const PageProgress &progress)
{
    ReplacementDevice device(path);
    QPdfWriter writer(&device);
    writer.setResolution(twipsPerInch);
    writer.setPageLayout(PageLayoutOf(layout.Sheet()));
    writer.setTitle(layout.Content().Title);
    writer.setCreator(u"Halvane "_s + ProgramVersion());
    if (!drawPages(layout, painter, writer, device, progress))
        return false;
    device.Commit();
    return true;
}

QPageLayout PageLayoutOf(const Paper &paper)
{
    const bool lying = paper.Width > paper.Height;
    const QSizeF points(static_cast<double>(paper.Width) / twipsPerPoint,
                        static_cast<double>(paper.Height) / twipsPerPoint);
    QPageLayout layout(QPageSize(lying ? points.transposed() : points, QPageSize::Point, {},
                                 QPageSize::FuzzyMatch),
                       lying ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
                       QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

Paper PaperOf(const QPageLayout &layout)
{
    const QSizeF points = layout.fullRect(QPageLayout::Point).size();
    return {qRound(points.width() * twipsPerPoint), qRound(points.height() * twipsPerPoint)};
}
