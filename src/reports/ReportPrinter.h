#pragma once

#include "reports/ReportPdf.h"

#include <functional>

class QPrinter;
class QWidget;

/// A printer set to this sheet. Whoever looks at the queue of a print server reads what each job is
/// called: it says that it is a report, and not of whom.
void PreparePrinter(QPrinter &printer, const Paper &paper);

/// Asks on which printer to print. False when the user does not want to, or the window is gone.
bool AskForPrinter(QWidget *window, QPrinter &printer);

/// Takes the printer that is used without a question; false when there is none.
bool TakeDefaultPrinter(QPrinter &printer);

/// Asks for the paper of all reports of the session.
void AskForPaper(QWidget *window);

enum class PrintEnd { Printed, Stopped, Failed };

/// Prints the pages that the printer was asked for, as many times as it was asked for.
PrintEnd PrintPages(QPrinter &printer, PageLayout &layout, const ReportPainter &painter,
                    const PageProgress &progress);

/// Puts something else in the place of the print dialog, and of the default printer: it may set the
/// printer, and says whether to print on it. An empty function puts the real one back.
void ReplacePrintDialog(std::function<bool(QPrinter &)> dialog);
void ReplaceDefaultPrinter(std::function<bool(QPrinter &)> taking);
