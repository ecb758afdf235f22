#include "core/Log.h"

#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/GeneralDate.h"
#include "core/Platform.h"
#include "core/RunTimeError.h"
#include "core/Windows1252.h"

#include <QFile>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 rotationBytes = 1'024'000;

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

void rotate(const QString &path)
{
    const QString backup = AppFile(u"AppInfo.bak"_s);
    RenameOver(path, backup);
}
} // namespace

void WriteAppInfo(const QString &message)
{
    try {
        // Not through the case-blind look-up: the file is written for every token of a result.
        const QString path = AppFolder() + u"/AppInfo.txt"_s;
        const QByteArray bytes = headOfEntry() + ToWindows1252(message) + "\r\n";
        // The size is looked at before the writing, so that the file may exceed it by one entry.
        if (AppendOwnerOnly(path, bytes, rotationBytes) == AppendResult::TooLarge) {
            rotate(path);
            // Without a limit: a log that could not be rotated grows rather than falling silent.
            AppendOwnerOnly(path, bytes, std::numeric_limits<qint64>::max());
        }
    } catch (const RunTimeError &) {
        // No folder, no log: the caller goes on.
    }
}
