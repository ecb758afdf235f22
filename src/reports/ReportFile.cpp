#include "reports/ReportFile.h"

#include "core/AtomicFile.h"

void WriteReportFile(const QString &path, const ReportText &text)
{
    FileReplacement file(path);
    file.Write(text.Bytes());
    file.Commit();
}

QString ReportFileName(const QString &caption, const QString &ending)
{
    return QString(caption).replace(u'/', u'-') + ending;
}
