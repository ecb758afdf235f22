#include "reports/ReportPrinter.h"

#include "controls/ModalDialog.h"
#include "controls/Twips.h"
#include "core/Version.h"
#include "reports/ReportPainter.h"
#include "reports/ReportPaper.h"

#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
using PrinterQuestion = std::function<bool(QPrinter &)>;

PrinterQuestion &dialogReplacement()
{
    static PrinterQuestion dialog;
    return dialog;
}

PrinterQuestion &defaultReplacement()
{
    static PrinterQuestion taking;
    return taking;
}

/// The pages that a printer was asked to print, counted from 0.
struct PagesWanted
{
    int First = 0;
    int Last = std::numeric_limits<int>::max();
};

PagesWanted pagesWanted(const QPrinter &printer)
{
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1)
        return {};
    return {printer.fromPage() - 1, printer.toPage() - 1};
}

/// The page of this index, all those ahead of which have been found, as far as the report has one.
bool takePage(PageLayout &layout, int index, ReportPage &page)
{
    if (index < layout.PageCount()) {
        page = layout.Page(index);
        return true;
    }
    return layout.AddPage(&page);
}

/// A printer at work on one copy after the other.
class PrintRun
{
public:
    PrintRun(QPrinter &printerToUse, PageLayout &layoutToPrint, const ReportPainter &pagePainter,
             const PageProgress &pageProgress)
        : printer(printerToUse), layout(layoutToPrint), pages(pagePainter), progress(pageProgress)
    {
    }

    PrintEnd Run()
    {
        if (!painter.begin(&printer))
            return PrintEnd::Failed;
        const double unitsPerTwip = static_cast<double>(printer.resolution()) / twipsPerInch;
        painter.scale(unitsPerTwip, unitsPerTwip);
        const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
        for (int copy = 0; copy < copies; ++copy) {
            const PrintEnd end = printCopy();
            if (end != PrintEnd::Printed)
                return end;
        }
        return painter.end() ? PrintEnd::Printed : PrintEnd::Failed;
    }

private:
    PrintEnd printCopy()
    {
        const PagesWanted wanted = pagesWanted(printer);
        while (layout.PageCount() < wanted.First && layout.AddPage())
            if (!goesOn(layout.PageCount()))
                return PrintEnd::Stopped;
        ReportPage page;
        for (int i = wanted.First; i <= wanted.Last && takePage(layout, i, page); ++i) {
            if (printed > 0 && !printer.newPage())
                return PrintEnd::Failed;
            pages.Draw(&painter, std::exchange(page, {}));
            ++printed;
            if (!goesOn(printed))
                return PrintEnd::Stopped;
        }
        return PrintEnd::Printed;
    }

    bool goesOn(int pagesDone)
    {
        if (!progress || progress(pagesDone))
            return true;
        printer.abort();
        return false;
    }

    QPrinter &printer;
    PageLayout &layout;
    const ReportPainter &pages;
    const PageProgress &progress;
    QPainter painter;
    int printed = 0;
};
} // namespace

void PreparePrinter(QPrinter &printer, const Paper &paper)
{
    printer.setPageLayout(PageLayoutOf(paper));
    printer.setFullPage(true);
    printer.setDocName(u"Halvane Report"_s);
    printer.setCreator(u"Halvane "_s + ProgramVersion());
}

bool AskForPrinter(QWidget *window, QPrinter &printer)
{
    if (dialogReplacement())
        return dialogReplacement()(printer);
    ModalDialog<QPrintDialog> dialog(&printer, window);
    dialog->setObjectName(u"PrintDialog"_s);
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange
                       | QAbstractPrintDialog::PrintShowPageSize
                       | QAbstractPrintDialog::PrintCollateCopies);
    return dialog.Run() == QDialog::Accepted;
}

bool TakeDefaultPrinter(QPrinter &printer)
{
    if (defaultReplacement())
        return defaultReplacement()(printer);
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (standard.isNull())
        return false;
    printer.setPrinterName(standard.printerName());
    return printer.isValid();
}

void AskForPaper(QWidget *window)
{
    QPrinter printer;
    PreparePrinter(printer, ReportPaper::Of().Current());
    ModalDialog<QPageSetupDialog> dialog(&printer, window);
    dialog->setObjectName(u"PageSetup"_s);
    dialog->setWindowTitle(u"Page Setup"_s);
    if (dialog.Run() == QDialog::Accepted)
        ReportPaper::Of().Set(PaperOf(printer.pageLayout()));
}

PrintEnd PrintPages(QPrinter &printer, PageLayout &layout, const ReportPainter &painter,
                    const PageProgress &progress)
{
    printer.setFullPage(true);
    return PrintRun(printer, layout, painter, progress).Run();
}

void ReplacePrintDialog(std::function<bool(QPrinter &)> dialog)
{
    dialogReplacement() = std::move(dialog);
}

void ReplaceDefaultPrinter(std::function<bool(QPrinter &)> taking)
{
    defaultReplacement() = std::move(taking);
}
