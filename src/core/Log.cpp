#include "core/Log.h"

#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/Platform.h"
#include "core/RunTimeError.h"
#include "core/Windows1252.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 rotationBytes = 1'024'000;

QString generalDate(const QDateTime &moment)
{
    static const QLocale locale = QLocale::system();
    // The long time without its zone: a log is read by people who know where it was written.
    static const QString timeFormat = locale.timeFormat(QLocale::LongFormat).remove(u't').trimmed();
    // A busy search logs thousands of lines a second: the second is formatted once.
    static qint64 formattedSecond = -1;
    static QString formatted;
    const qint64 second = moment.toSecsSinceEpoch();
    if (second != formattedSecond) {
        formattedSecond = second;
        formatted = locale.toString(moment.date(), QLocale::ShortFormat) + u' '
                    + locale.toString(moment.time(), timeFormat);
    }
    return formatted;
}

void rotate(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() || info.size() <= rotationBytes)
        return;
    const QString backup = AppFile(u"AppInfo.bak"_s);
    QFile::remove(backup);
    QFile::rename(path, backup);
}
} // namespace

void WriteAppInfo(const QString &message)
{
    try {
        // Not through the case-blind look-up: the file is written for every token of a result.
        const QString path = AppFolder() + u"/AppInfo.txt"_s;
        rotate(path);
        const QString entry = generalDate(Clock::Current().Now()) + u" -- "_s + message + u"\r\n"_s;
        AppendOwnerOnly(path, ToWindows1252(entry));
    } catch (const RunTimeError &) {
        // No folder, no log: the caller goes on.
    }
}
