#pragma once

#include "reports/PageLayout.h"

#include <functional>

class QPageLayout;
class ReportPainter;

/// Called behind each page, with how many are done; and behind each that has to be found first,
/// since others are wanted. False stops.
using PageProgress = std::function<bool(int done)>;

/// Writes a report as PDF to `path`: text that can be searched, with the report's title and the
/// program in its properties. Throws error 70 or 61 with the old file as it was, see
/// FileReplacement.
void WritePdf(const Report &report, const Paper &paper, const QString &path);

/// The same for a report that is being laid out. False, with the old file as it was, when
/// `progress` stopped it.
bool WritePdf(PageLayout &layout, const ReportPainter &painter, const QString &path,
              const PageProgress &progress);

/// The sheet as the platform's printing describes it, whole, without the printer's margins; and the
/// other way round.
QPageLayout PageLayoutOf(const Paper &paper);
Paper PaperOf(const QPageLayout &layout);
