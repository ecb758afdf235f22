#include "searchentry/RecentEntries.h"

#include "core/AppFolder.h"
#include "core/AtomicFile.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/ListFile.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct MruFile
{
    QStringView searchType;
    QStringView fileName;
    QStringList MruLists::*list;
};
constexpr std::array<MruFile, 3> mruFiles{{
    {u"Individual Name", u"MruIName.txt", &MruLists::Persons},
    {u"Business Name", u"MruBName.txt", &MruLists::Businesses},
    {u"Case Number", u"MruCases.txt", &MruLists::Numbers},
}};
constexpr QStringView acctgFile = u"MruAcctg.txt";

constexpr QStringView partSeparator = u", ";

const MruFile *fileOf(const QString &searchType)
{
    const auto *found = std::find_if(mruFiles.begin(), mruFiles.end(), [&](const MruFile &file) {
        return file.searchType == searchType;
    });
    return found == mruFiles.end() ? nullptr : found;
}

/// All lines of a file, trimmed. Throws error 53 when there is none.
QStringList linesOf(QStringView fileName)
{
    QStringList lines;
    const QList<QByteArray> raw = FileContent(AppFile(fileName.toString())).split('\n');
    for (const QByteArray &bytes : raw) {
        QString line = FromWindows1252(bytes);
        if (line.endsWith(u'\r'))
            line.chop(1);
        lines.append(TrimBlanks(line));
    }
    // Behind the last line end there is no line.
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

void writeLines(QStringView fileName, const QStringList &lines)
{
    QString text;
    for (const QString &line : lines.first(std::min(lines.size(), longestMruList)))
        text += line + u"\r\n"_s;
    // The whole file at once: on a full disk, and after a crash, the old list is still there.
    if (!ReplaceFileContent(AppFile(fileName.toString()), ToWindows1252(text)))
        throw RunTimeError::PathFileAccess();
}

QStringList entriesOf(QStringView fileName)
{
    QStringList entries = ReadListFile(fileName.toString(), 0);
    for (QString &entry : entries)
        entry = TrimBlanks(entry);
    return entries.first(std::min(entries.size(), longestMruList));
}

bool sameEntry(const QString &left, const QString &right)
{
    return FoldToUpper(TrimBlanks(left)) == FoldToUpper(TrimBlanks(right));
}

void trimFile(QStringView fileName)
{
    if (!QFileInfo::exists(AppFile(fileName.toString())))
        return;
    try {
        QStringList lines = linesOf(fileName);
        lines.removeAll(QString());
        writeLines(fileName, lines);
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error writing "_s + fileName + u": "_s + error.Description());
    }
}
} // namespace

QStringList MruLists::Of(const QString &searchType) const
{
    const MruFile *file = fileOf(searchType);
    return file ? this->*file->list : QStringList();
}

MruLists LoadMruLists()
{
    MruLists lists;
    for (const MruFile &file : mruFiles)
        lists.*file.list = entriesOf(file.fileName);
    return lists;
}

void AddToMruList(const QString &searchType, const QString &text)
{
    const MruFile *file = fileOf(searchType);
    if (!file)
        throw RunTimeError::FileNotFound();
    writeLines(file->fileName, QStringList{TrimBlanks(text)} + linesOf(file->fileName));
}

QStringList LoadAcctgMru()
{
    return entriesOf(acctgFile);
}

void AddAcctgToMru(const QString &code)
{
    // As the file will hold it, or a code with a character outside the code page would never be
    // found there again.
    const QString entry = FromWindows1252(ToWindows1252(TrimBlanks(code)));
    if (entry.isEmpty())
        return;
    QStringList lines = linesOf(acctgFile);
    lines.removeIf([&](const QString &line) { return sameEntry(line, entry); });
    writeLines(acctgFile, QStringList{entry} + lines);
}

void TrimMruFiles()
{
    for (const MruFile &file : mruFiles)
        trimFile(file.fileName);
    trimFile(acctgFile);
}

QString MruPersonName(const std::array<QString, 4> &names)
{
    QString text = TrimBlanks(names[LastName]);
    for (const NameBox box : {FirstName, MiddleInitial}) {
        const QString part = TrimBlanks(names[box]);
        if (!part.isEmpty())
            text += partSeparator + part;
    }
    return text;
}

QString MruText(const SearchEntry &entry)
{
    return entry.Kind == SearchKind::Person ? MruPersonName(entry.Names)
                                            : TrimBlanks(entry.Names[LastName]);
}

bool IsInMruList(const QStringList &items, const QString &text)
{
    return std::any_of(items.begin(), items.end(),
                       [&](const QString &item) { return sameEntry(item, text); });
}

void RememberEntry(const QString &searchType, const QString &text, ShownRecents &shown)
{
    // As the file can hold it: what the code page has not is a question mark there.
    const QString entry = FromWindows1252(ToWindows1252(text));
    if (IsInMruList(shown.Entries, entry)
        || (searchType != shown.Type && IsInMruList(LoadMruLists().Of(searchType), entry)))
        return;
    AddToMruList(searchType, entry);
    if (searchType != shown.Type)
        return;
    shown.Entries.prepend(entry);
    shown.Entries = shown.Entries.first(std::min(shown.Entries.size(), longestMruList));
}

std::array<QString, 3> MruNameParts(const QString &item)
{
    const QStringList parts = item.split(partSeparator.toString());
    return {parts.value(0), parts.value(1), parts.value(2)};
}
