// The tour's reports: of a list of results and of a case, in the preview, as PDF and as text.

#include "app/Tour.h"
#include "app/WindowFinder.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {
const QString previewWindow = u"PreviewDoc"_s;
} // namespace

/// Prints the list of a search as far as the preview, and saves it.
void Tour::addResultsReportSteps()
{
    const QString results = u"frmNameSearchResults"_s;
    steps.push_back({u"The results are to be printed"_s,
                     [results] { return CanClick(results, u"cmdSearchResults_2"_s); },
                     [results] { ClickOn(results, u"cmdSearchResults_2"_s); }});
    addPreviewSteps(u"results-report"_s);
    steps.push_back({u"The results are saved as text"_s,
                     [results] { return CanClick(results, u"cmdSearchResults_6"_s); },
                     [results] { ClickOn(results, u"cmdSearchResults_6"_s); }});
    steps.push_back({u"The text is there"_s,
                     [this] { return !reportWithEnding(u"Txt"_s).isEmpty(); },
                     [this] { showReport(u"Txt"_s, "Halvane Search Results for: "); }});
}

/// The same for a case, of which the user chooses what goes into the report.
void Tour::addCaseReportSteps()
{
    const QString window = u"frmCaseDetails"_s;
    const QString dialog = u"dlgPrintMgr"_s;
    steps.push_back({u"The case is to be printed"_s,
                     [window] { return CanClick(window, u"cmdPrintDetails"_s); },
                     [window] { ClickOn(window, u"cmdPrintDetails"_s); }});
    steps.push_back({u"What goes into the report is chosen"_s,
                     [dialog] { return CanClick(dialog, u"OKButton"_s); },
                     [this, dialog] {
                         say(WindowNamed(dialog)->windowTitle());
                         picture(WindowNamed(dialog), u"print-manager"_s);
                         ClickOn(dialog, u"OKButton"_s);
                     }});
    addPreviewSteps(u"case-report"_s);
}

/// Looks at a report that is about to come into sight, saves it as PDF and puts it away.
void Tour::addPreviewSteps(const QString &name)
{
    steps.push_back({u"The report is looked at"_s,
                     [] { return CanClick(previewWindow, u"cmdSavePdf"_s); },
                     [this, name] {
                         say(WindowNamed(previewWindow)->windowTitle());
                         say(LabelText(previewWindow, u"lblPage"_s));
                         picture(WindowNamed(previewWindow), name);
                         ClickOn(previewWindow, u"cmdSavePdf"_s);
                     }});
    steps.push_back({u"It is saved as PDF"_s,
                     [this] { return !reportWithEnding(u"pdf"_s).isEmpty(); },
                     [this] {
                         showReport(u"pdf"_s, "%PDF-");
                         ClickOn(previewWindow, u"cmdClose"_s);
                     }});
    steps.push_back({u"The preview is put away"_s,
                     [] { return WindowNamed(previewWindow) == nullptr; }, [] {}});
}

/// The report with this ending that has not been shown yet; "" while there is none.
QString Tour::reportWithEnding(const QString &ending) const
{
    const QStringList files = QDir(output).entryList({u"*."_s + ending}, QDir::Files);
    for (const QString &file : files)
        if (!reports.contains(file))
            return file;
    return {};
}

void Tour::showReport(const QString &ending, const QByteArray &beginning)
{
    const QString name = reportWithEnding(ending);
    reports.append(name);
    QFile report(output + u'/' + name);
    say(u"   report: "_s + report.fileName());
    if (!report.open(QIODevice::ReadOnly) || !report.readAll().startsWith(beginning))
        fail(u"This is no report: "_s + name);
}
