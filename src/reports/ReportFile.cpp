#include "reports/ReportFile.h"

#include "core/AtomicFile.h"

using namespace Qt::StringLiterals;

void WriteReportFile(const QString &path, const ReportText &text)
{
    FileReplacement file(path);
    file.Write(text.Bytes());
    file.Commit();
}

QString ReportFileName(const QString &caption)
{
    return QString(caption).replace(u'/', u'-') + u".Txt"_s;
}
