#include "sweeps/FolderWatch.h"

#include "core/Clock.h"
#include "core/GeneralDate.h"
#include "core/Windows1252.h"
#include "sweeps/WindowWatch.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// What may be new beneath the folder: its own files by name, and anything plain beneath Reports.
const QRegularExpression &ownFiles()
{
    static const QRegularExpression names(
        u"^(AppInfo\\.(txt|bak)|history\\.db(-wal|-shm)?|(options|templates)\\.ini|"
        "Mru\\w+\\.txt|Reports/[^/]+(/[^/]+)?)$"_s);
    return names;
}

bool isPlainName(const QString &path)
{
    return std::all_of(
               path.begin(), path.end(),
               [](QChar c) { return c.isPrint() && !QStringView(u"<>:\"\\|?*").contains(c); })
           && !path.contains(u"..");
}

bool isControl(char c)
{
    const auto byte = static_cast<quint8>(c);
    return (byte < ' ' && byte != '\t') || byte == 0x7F;
}
} // namespace

QByteArray WholeFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList IniKeys(const QByteArray &text)
{
    QStringList keys;
    QString section;
    QByteArray all = text;
    all.replace('\r', '\n');
    for (const QByteArray &raw : all.split('\n')) {
        const QString line = FromWindows1252(raw.trimmed());
        if (line.startsWith(u'['))
            section = line;
        else if (line.contains(u'=') && !line.startsWith(u';'))
            keys.append(section + u'/' + line.section(u'=', 0, 0).trimmed());
    }
    return keys;
}

FolderWatch::FolderWatch(const QString &path)
    : folder(path), filesBefore(FilesIn(path)), keysBefore(keysNow())
{
}

QStringList FolderWatch::FilesIn(const QString &path)
{
    QStringList files;
    QDirIterator walk(path, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(QDir(path).relativeFilePath(walk.next()));
    files.sort();
    return files;
}

QStringList FolderWatch::keysNow() const
{
    return IniKeys(WholeFile(folder + u"/options.ini"_s));
}

QStringList FolderWatch::Complaints(const QStringList &changedKeys) const
{
    QStringList complaints = fileComplaints();
    for (const QString &name : {u"AppInfo.txt"_s, u"AppInfo.bak"_s})
        complaints.append(logComplaints(name));
    const QStringList keys = keysNow();
    for (const QString &key : keys) {
        if (!keysBefore.contains(key) && !changedKeys.contains(key))
            complaints.append(u"options.ini has the key "_s + Legible(key));
    }
    for (const QString &key : keysBefore) {
        if (!keys.contains(key))
            complaints.append(u"options.ini has lost the key "_s + Legible(key));
    }
    return complaints;
}

QStringList FolderWatch::logComplaints(const QString &name) const
{
    // The day of the test's clock: an entry of any other day is none of ours.
    const QString day = GeneralDate(Clock::Current().Now()).section(u' ', 0, -2);
    const QString date = day.contains(u':') ? day.section(u' ', 0, -2) : day;
    const QByteArray log = WholeFile(folder + u'/' + name);
    if (log.isEmpty())
        return {};
    if (!log.endsWith("\r\n"))
        return {name + u" does not end with a line"_s};
    QStringList complaints;
    qsizetype from = 0;
    for (qsizetype end = log.indexOf("\r\n"); end >= 0; end = log.indexOf("\r\n", from)) {
        const QByteArray line = log.sliced(from, end - from);
        from = end + 2;
        const QString text = FromWindows1252(line.left(200));
        if (!text.startsWith(date) || !text.contains(u" -- "_s))
            complaints.append(name + u" has a line that is no entry: "_s + Legible(text));
        else if (std::any_of(line.begin(), line.end(), isControl))
            complaints.append(name + u" has control characters: "_s + Legible(text));
    }
    return complaints.mid(0, 3);
}

QStringList FolderWatch::fileComplaints() const
{
    QStringList complaints;
    const QStringList files = FilesIn(folder);
    for (const QString &file : files) {
        const QFileInfo info(folder + u'/' + file);
        constexpr QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        if (filesBefore.contains(file))
            continue;
        if (!ownFiles().match(file).hasMatch() || !isPlainName(file))
            complaints.append(u"there is a file "_s + Legible(file));
        if (info.permissions() & others)
            complaints.append(u"others may read the file "_s + Legible(file));
    }
    return complaints;
}
