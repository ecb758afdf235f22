#include "reports/ReportFile.h"

#include "core/AtomicFile.h"
#include "core/Windows1252.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype pieceBytes = 1 << 16;

QByteArray lineBytes(QString line)
{
    for (QChar &c : line)
        if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
            || c.category() == QChar::Separator_Paragraph)
            c = u' ';
    return ToWindows1252(line);
}
} // namespace

void WriteReportFile(const QString &path, const QStringList &lines)
{
    FileReplacement file(path);
    QByteArray piece;
    for (const QString &line : lines) {
        piece += lineBytes(line) + "\r\n";
        if (piece.size() < pieceBytes)
            continue;
        file.Write(piece);
        piece.clear();
    }
    file.Write(piece);
    file.Commit();
}

QString ReportFileName(const QString &caption)
{
    return QString(caption).replace(u'/', u'-') + u".Txt"_s;
}
