// What a results window does with the report of its list: print it, save it, mail it.

#include "core/GlobalState.h"
#include "namesearch/NameResultsWindow.h"
#include "reports/ReportFile.h"
#include "reports/ReportPainter.h"
#include "reports/SaveReport.h"

#include <QDir>
#include <QPushButton>

using namespace Qt::StringLiterals;

void NameResultsWindow::ConnectReportButtons(QPushButton *save, QPushButton *email)
{
    connect(save, &QPushButton::clicked, this, &NameResultsWindow::SaveResultsDialog);
    connect(email, &QPushButton::clicked, this, &NameResultsWindow::EmailResults);
}

/// While a run goes on the report says of itself that it is not whole.
ReportSituation NameResultsWindow::situation() const
{
    return SituationNow(search->WasStopped(), search->State() != JobState::Over);
}

void NameResultsWindow::PrintDirect()
{
    PrintResults();
}

void NameResultsWindow::PrintResults()
{
    const ReportPainter ruler;
    preview->Show(ComposeResults(search->Record, Reported(), situation(),
                                 [&](const QString &text) { return ruler.Width(text, {}); }));
}

void NameResultsWindow::PrintToFile(const QString &path)
{
    const RunScope scope(this);
    saveReport(path);
}

bool NameResultsWindow::saveReport(const QString &path)
{
    return SaveReport(this, path,
                      [this] { return ResultsText(search->Record, Reported(), situation()); });
}

QString NameResultsWindow::caption() const
{
    // A search that has not begun has none of its own yet.
    return search->Record.Caption.isEmpty() ? u"Name Search Results"_s : search->Record.Caption;
}

void NameResultsWindow::SaveResultsDialog()
{
    AskWhereToSaveReport(this, caption(), [this](const QString &path) { PrintToFile(path); });
}

/// Nothing is mailed but what has just been written.
void NameResultsWindow::EmailResults()
{
    const RunScope scope(this);
    const QString name = ReportFileName(caption());
    const QString path = QDir(Global.strReportFolder).filePath(name);
    if (saveReport(path))
        SendResultsByMail(this, path, name);
}
