#include "courts/ListFile.h"

#include "core/AppFolder.h"
#include "core/AtomicFile.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Windows1252.h"

using namespace Qt::StringLiterals;

QStringList ReadListFile(const QString &fileName, qsizetype most)
{
    QStringList lines;
    try {
        const QList<QByteArray> raw = FileContent(AppFile(fileName)).split('\n');
        for (const QByteArray &bytes : raw) {
            QString line = FromWindows1252(bytes);
            if (line.endsWith(u'\r'))
                line.chop(1);
            if (line.trimmed().isEmpty())
                continue;
            if (most > 0 && lines.size() == most)
                throw RunTimeError::SubscriptOutOfRange();
            lines.append(line);
        }
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error reading "_s + fileName + u": "_s + error.Description());
    }
    return lines;
}
