#include "reports/SaveReport.h"

#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "reports/ReportFile.h"

#include <QDir>
#include <QWidget>

using namespace Qt::StringLiterals;

void SayNotSaved(QWidget *parent, const QString &path)
{
    MsgBox(parent,
           u"Unable to Save this file: "_s + path
               + u" - This may be because there are no results to save or print."_s,
           u"Halvane - Save to File Error"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

bool SaveReport(QWidget *parent, const QString &path, const std::function<QStringList()> &lines)
{
    try {
        WriteReportFile(path, lines());
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
