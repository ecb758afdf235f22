#include "reports/SaveReport.h"

#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "core/RunTimeError.h"
#include "reports/ReportFile.h"
#include "reports/ReportMail.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {
/// True when the user wants to see the folder of the report.
bool tellMailFailure(QWidget *parent, const RunTimeError &failure)
{
    return MsgBoxOffering(parent,
                          u"Error sending email. Err: "_s + failure.Description() + u" #: "_s
                              + QString::number(failure.Number()),
                          u"Halvane - Email"_s, MsgIcon::Exclamation, u"Show &Folder"_s);
}
} // namespace

void SayNotSaved(QWidget *parent, const QString &path)
{
    MsgBox(parent,
           u"Unable to Save this file: "_s + path
               + u" - This may be because there are no results to save or print."_s,
           u"Halvane - Save to File Error"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

bool SaveReport(QWidget *parent, const QString &path, const std::function<ReportText()> &text)
{
    try {
        WriteReportFile(path, text());
        return true;
    } catch (const RunTimeError &) {
        SayNotSaved(parent, path);
        return false;
    }
}

void AskWhereToSaveReport(QWidget *window, const QString &caption,
                          const std::function<void(const QString &path)> &save)
{
    AskWhereToSave(window,
                   {.Title = u"Save Halvane Report"_s,
                    .Suggested = QDir(Global.strReportFolder).filePath(ReportFileName(caption)),
                    .Ending = u"txt"_s,
                    .Filters = {u"Text Files (*.txt)"_s, u"All Files (*.*)"_s}},
                   window, save);
}

void SendResultsByMail(QWidget *window, const QString &path, const QString &name)
{
    const QPointer<QWidget> parent(window);
    // Of the program: whoever closed the window meanwhile still hears that no mail will come.
    SendReport(path, name, QCoreApplication::instance(),
               [parent, path](const std::optional<RunTimeError> &failure) {
                   if (failure && tellMailFailure(parent, *failure))
                       OpenByShell(QFileInfo(path).absolutePath());
               });
}
