#include "sweeps/DaysFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
/// What of a file may be otherwise than in a day without a fault.
enum class Sort {
    Exact,     ///< the old one or the new one
    Settings,  ///< each line is of the old one or of the new one
    Recents,   ///< the old entries in their order, and among them some of the new ones
    Documents, ///< the list of a case's documents, with what became of each
    Log,
    History, ///< read by itself
    Stream,  ///< what has come of a document; nobody but the program looks at it
};

struct SortRow
{
    QStringView Begins; ///< the name
    QStringView Ends;
    Sort How;
};
constexpr std::array<SortRow, 6> sorts{{
    {u"options", u".ini", Sort::Settings},
    {u"Mru", u".txt", Sort::Recents},
    {u"documents", u".csv", Sort::Documents},
    {u"AppInfo", u"", Sort::Log},
    {u"history.db", u"", Sort::History},
    {u"Tempfile", u".bin", Sort::Stream},
}};

Sort sortOf(const QString &path)
{
    const QString name = path.section(u'/', -1);
    for (const SortRow &row : sorts) {
        if (name.startsWith(row.Begins) && name.endsWith(row.Ends))
            return row.How;
    }
    return Sort::Exact;
}

/// Without what is another at every writing: when a PDF was made.
QByteArray timeless(const QByteArray &bytes)
{
    static const QRegularExpression moment(u"/CreationDate ?\\([^)]*\\)"_s);
    return bytes.startsWith("%PDF-") ? QString::fromLatin1(bytes).replace(moment, u"*"_s).toLatin1()
                                     : bytes;
}

QByteArrayList linesOf(const QByteArray &text)
{
    return text.split('\n');
}

QString complaintOfSettings(const QByteArray &before, const QByteArray &after,
                            const QByteArray &left)
{
    const QByteArrayList old = linesOf(before);
    const QByteArrayList fresh = linesOf(after);
    const QByteArrayList lines = linesOf(left);
    for (const QByteArray &line : lines) {
        if (!old.contains(line) && !fresh.contains(line))
            return u"a line of its own: "_s + QString::fromLatin1(line);
    }
    for (const QByteArray &line : old) {
        if (fresh.contains(line)
            && lines.count(line) < std::min(old.count(line), fresh.count(line)))
            return u"a line is lost: "_s + QString::fromLatin1(line);
    }
    return {};
}

QString complaintOfRecents(const QByteArray &before, const QByteArray &after,
                           const QByteArray &left)
{
    QByteArrayList old = linesOf(before);
    const QByteArrayList fresh = linesOf(after);
    const QByteArrayList lines = linesOf(left);
    for (const QByteArray &line : lines) {
        if (!old.isEmpty() && line == old.first())
            old.removeFirst();
        else if (!fresh.contains(line))
            return u"an entry of its own: "_s + QString::fromLatin1(line);
    }
    return old.isEmpty() ? QString() : u"an entry is lost: "_s + QString::fromLatin1(old.first());
}

QString complaintOfDocuments(const QByteArray &after, const QByteArray &left)
{
    const QByteArrayList wanted = linesOf(after);
    const QByteArrayList lines = linesOf(left);
    return lines.size() == wanted.size() && lines.first() == wanted.first()
                   && lines.last().isEmpty()
               ? QString()
               : u"it is not whole"_s;
}

const QRegularExpression &headOfEntry()
{
    static const QRegularExpression head(u"\\d+ \\w+ \\d{4} \\d\\d:\\d\\d:\\d\\d -- "_s);
    return head;
}

/// The lines without the time.
QStringList entriesOf(const QByteArray &log)
{
    return QString::fromLatin1(log).split(u"\r\n"_s);
}

QString withoutTime(QString line)
{
    return line.replace(headOfEntry(), QString());
}

/// What the log may say: everything that it has said in the day without a fault, and whole lines
/// about the fault.
QString complaintOfLog(const QSet<QString> &known, const QByteArray &left)
{
    const QStringList lines = entriesOf(left);
    if (!lines.last().isEmpty())
        return u"it ends within a line: "_s + lines.last();
    for (const QString &line : lines) {
        const QString text = withoutTime(line);
        if (known.contains(text))
            continue;
        const QRegularExpressionMatch head = headOfEntry().match(line);
        if (head.capturedStart() != 0 || headOfEntry().match(line, head.capturedEnd()).hasMatch())
            return u"no entry: "_s + line;
        const bool half = std::any_of(known.begin(), known.end(), [&text](const QString &whole) {
            return whole.startsWith(text);
        });
        if (half)
            return u"half an entry: "_s + line;
    }
    return {};
}

QSet<QString> knownEntries(const DaysFiles &day)
{
    QSet<QString> known;
    for (const FolderImage &image : {day.Before, day.After}) {
        for (const QString &name : {u"AppInfo.txt"_s, u"AppInfo.bak"_s}) {
            const QStringList lines = entriesOf(image.value(name));
            for (const QString &line : lines)
                known.insert(withoutTime(line));
        }
    }
    return known;
}

QString complaintOf(const QString &path, const DaysFiles &day, const QByteArray &left)
{
    const QByteArray before = day.Before.value(path);
    const QByteArray after = day.After.value(path, before);
    switch (sortOf(path)) {
    case Sort::Exact:
        return timeless(left) == timeless(after)
                       || (day.Before.contains(path) && timeless(left) == timeless(before))
                   ? QString()
                   : u"neither the old one nor the new one"_s;
    case Sort::Settings:
        return complaintOfSettings(before, after, left);
    case Sort::Recents:
        return complaintOfRecents(before, after, left);
    case Sort::Documents:
        return complaintOfDocuments(after, left);
    case Sort::Log: {
        static QSet<QString> known;
        if (known.isEmpty())
            known = knownEntries(day);
        return complaintOfLog(known, left);
    }
    case Sort::History:
    case Sort::Stream:
        break;
    }
    return {};
}

/// What a file is called while it is being written.
bool isNameForTheMoment(const QString &path)
{
    return path.endsWith(u".unfinished");
}
} // namespace

FolderImage ReadFolder(const QString &path)
{
    FolderImage image;
    const QDir folder(path);
    QDirIterator files(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QByteArray content = file.readAll();
        // The settings and the log name the folder, and each day has one of its own.
        if (file.fileName().endsWith(u".ini") || file.fileName().endsWith(u".txt"))
            content.replace(path.toUtf8(), "FOLDER");
        image.insert(folder.relativeFilePath(file.fileName()), content);
    }
    return image;
}

void WriteFolder(const QString &path, const FolderImage &image)
{
    QDir(path).removeRecursively();
    QDir().mkpath(path);
    for (auto one = image.cbegin(); one != image.cend(); ++one) {
        QFile file(path + u'/' + one.key());
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(one.value()) != one.value().size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
}

QString ComplaintOfFiles(const DaysFiles &day, const FolderImage &left, DaysEnd end)
{
    QStringList complaints;
    for (auto one = left.cbegin(); one != left.cend(); ++one) {
        if (end == DaysEnd::Killed && isNameForTheMoment(one.key()))
            continue;
        const bool known = day.Before.contains(one.key()) || day.After.contains(one.key())
                           || sortOf(one.key()) == Sort::History;
        const QString complaint =
            known ? complaintOf(one.key(), day, one.value()) : u"it is left over"_s;
        if (!complaint.isEmpty())
            complaints.append(one.key() + u": "_s + complaint);
    }
    for (auto one = day.Before.cbegin(); one != day.Before.cend(); ++one) {
        const Sort sort = sortOf(one.key());
        // A log that has just been put aside comes anew with the next entry.
        const bool mayGo = sort == Sort::Stream || (sort == Sort::Log && end == DaysEnd::Killed);
        if (!left.contains(one.key()) && !mayGo)
            complaints.append(one.key() + u": it is gone"_s);
    }
    return complaints.join(u"; "_s);
}

QStringList FilesNotWritten(const DaysFiles &day, const FolderImage &left)
{
    QStringList missing;
    for (auto one = day.After.cbegin(); one != day.After.cend(); ++one) {
        if (one.key().startsWith(u"Reports/") && sortOf(one.key()) != Sort::Stream
            && timeless(left.value(one.key())) != timeless(one.value()))
            missing.append(one.key());
    }
    // What the options were asked to keep; what else is kept there nobody has asked for.
    const QByteArray chosen = "PrintHdrVal=What the day has chosen";
    if (!left.value(u"options.ini"_s).contains(chosen))
        missing.append(u"options.ini"_s);
    return missing;
}

QString ComplaintOfHistory(const QString &path)
{
    QString complaint = u"it cannot be opened"_s;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"sweep"_s);
        database.setDatabaseName(path);
        if (database.open()) {
            QSqlQuery query(u"PRAGMA integrity_check"_s, database);
            const QString answer = query.next() ? query.value(0).toString() : u"no answer"_s;
            complaint = answer == u"ok" ? QString() : answer;
        }
    }
    QSqlDatabase::removeDatabase(u"sweep"_s);
    return complaint;
}
