#include "core/Log.h"

#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/GeneralDate.h"
#include "core/Platform.h"
#include "core/RunTimeError.h"
#include "core/Windows1252.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 rotationBytes = 1'024'000;
constexpr QByteArrayView lineEnd = "\r\n";

/// The present date and time, in the form of the system's locale, and what stands behind it, as
/// bytes of the log.
const QByteArray &headOfEntry()
{
    // A busy search logs thousands of lines a second: each second is formatted once.
    static qint64 formattedSecond = -1;
    static QByteArray formatted;
    const qint64 second = Clock::Current().EpochSeconds();
    if (second == formattedSecond)
        return formatted;
    formattedSecond = second;
    formatted = ToWindows1252(QString(GeneralDate(Clock::Current().Now()) + u" -- "_s));
    return formatted;
}

/// The log, and where it lies. Not through the case-blind look-up: it is written for every token
/// of a result.
struct LogFile
{
    QString folder;
    QString path;
    AppendedFile file;
};

LogFile logIn(const QString &folder)
{
    const QString path = folder + u"/AppInfo.txt"_s;
    return {folder, path, AppendedFile(path)};
}

LogFile &presentLog()
{
    static LogFile log = logIn(AppFolder());
    if (const QString folder = AppFolder(); folder != log.folder)
        log = logIn(folder);
    return log;
}

bool isControl(char byte)
{
    constexpr char deleted = 0x7F;
    return (static_cast<quint8>(byte) < ' ' && byte != '\t') || byte == deleted;
}

/// The bytes from `start` on, as part of one line. Honest text has no control characters, and is
/// left as it is.
void makeOneLine(QByteArray &entry, qsizetype start)
{
    if (std::none_of(entry.cbegin() + start, entry.cend(), isControl))
        return;
    const QByteArray text = entry.sliced(start);
    entry.truncate(start);
    for (const char byte : text) {
        if (isControl(byte))
            entry.append("\\x").append(QByteArray(1, byte).toHex().toUpper());
        else
            entry.append(byte);
    }
}

QByteArray entryOf(const QString &message, LogLines lines)
{
    const QByteArray &head = headOfEntry();
    QByteArray entry;
    entry.reserve(head.size() + message.size() + lineEnd.size());
    entry.append(head);
    AppendWindows1252(entry, message);
    if (lines == LogLines::One)
        makeOneLine(entry, head.size());
    entry.append(lineEnd);
    return entry;
}
} // namespace

void WriteAppInfo(const QString &message, LogLines lines)
{
    try {
        LogFile &log = presentLog();
        const QByteArray entry = entryOf(message, lines);
        // The size is looked at before the writing, so that the file may exceed it by one entry.
        if (log.file.Append(entry, rotationBytes) == AppendResult::TooLarge) {
            RenameOver(log.path, AppFile(u"AppInfo.bak"_s));
            // Without a limit: a log that could not be rotated grows rather than falling silent.
            log.file.Append(entry, std::numeric_limits<qint64>::max());
        }
    } catch (const RunTimeError &) {
        // No folder, no log: the caller goes on.
    }
}
