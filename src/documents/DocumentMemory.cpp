#include "documents/DocumentMemory.h"

#include "core/TextUtilities.h"
#include "documents/DocumentName.h"
#include "tables/CsvText.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// A name of a run has at most 200 characters, and a number behind it.
constexpr qsizetype longestListedName = 220;

enum Column {
    FileColumn,
    DateColumn,
    PagesColumn,
    DescriptionColumn,
    BytesColumn,
    HashColumn,
    WhenColumn,
    ReasonColumn,
    CommandColumn,
    columnCount
};

const QStringList &headers()
{
    static const QStringList all{u"File"_s,        u"Date"_s,   u"Pages"_s,
                                 u"Description"_s, u"Bytes"_s,  u"SHA-256"_s,
                                 u"Retrieved"_s,   u"Reason"_s, u"Command Hash"_s};
    return all;
}

/// What stands for a command in the list: it is the same in every program that has had the list
/// open, whatever characters the command has.
QString hashOf(const QString &command)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(command.toUtf8(), QCryptographicHash::Sha256).toHex());
}

QString commandHash(const DocumentItem &item)
{
    return hashOf(RetrievalRequest(item.Start.Command));
}

/// What stood for it while the court did not give it out, and its line had cells alone.
QString hashBefore(const DocumentItem &item)
{
    const QString &line = item.Start.Command;
    return line.isEmpty() ? QString() : hashOf(line.mid(line.indexOf(line.back()) + 1));
}

QStringList cellsOf(const DocumentItem &item)
{
    const bool here = item.HasFile();
    const bool waits = item.State == ItemState::Waiting && !here;
    return {item.File,
            item.Start.Date,
            item.Start.PageCount,
            item.Start.Description,
            here ? QString::number(item.Bytes) : QString(),
            here ? item.Sha256 : QString(),
            here ? item.When : QString(),
            waits ? u"It has not been asked for yet."_s : item.Reason,
            commandHash(item)};
}

/// The rows of a CSV text, quoted cells and all; what is broken in it gives cells that fit nothing.
QList<QStringList> rowsOfCsv(const QByteArray &csv)
{
    QList<QStringList> rows{{}};
    QString cell;
    bool quoted = false;
    const QString text = QString::fromUtf8(csv);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted && c == u'"' && i + 1 < text.size() && text[i + 1] == u'"') {
            cell += text[++i];
        } else if (c == u'"') {
            quoted = !quoted;
        } else if (!quoted && (c == u',' || c == u'\n')) {
            rows.last().append(std::exchange(cell, {}));
            if (c == u'\n')
                rows.append(QStringList());
        } else if (quoted || (c != u'\r' && c != QChar(QChar::ByteOrderMark))) {
            cell += c;
        }
    }
    return rows;
}

/// The name of a file without its type.
QString nameOf(const QString &file)
{
    return file.left(file.lastIndexOf(u'.'));
}

/// Whether a run may have named a file so.
bool isNameOfRun(const QString &file)
{
    const QString name = nameOf(file);
    return !name.isEmpty() && name.size() <= longestListedName && name.size() < file.size()
           && std::all_of(name.begin(), name.end(), IsFileCharacter)
           && IsFileType(file.mid(name.size() + 1).toUtf8());
}

QString numbered(const QString &name, const QSet<QString> &taken)
{
    QString free = name;
    for (int number = 2; taken.contains(free.toLower()); ++number)
        free = name + u' ' + QString::number(number);
    return free;
}
} // namespace

DocumentMemory::DocumentMemory(const QByteArray &csv)
{
    QSet<QString> names;
    for (QStringList &row : rowsOfCsv(csv)) {
        if (row.size() != columnCount || row == headers())
            continue;
        // A cell that a spreadsheet would take for a formula has an apostrophe in front.
        QString &file = row[FileColumn];
        if (file.startsWith(u'\''))
            file.remove(0, 1);
        const QString name = nameOf(file).toLower();
        if (!file.isEmpty() && (!isNameOfRun(file) || names.contains(name)))
            continue;
        names.insert(name);
        rows.append(row);
    }
}

/// Cells that are empty for one that is not remembered.
QStringList DocumentMemory::rowOf(const DocumentItem &item) const
{
    const QString hash = commandHash(item);
    const auto found = std::find_if(rows.begin(), rows.end(), [&hash](const QStringList &row) {
        return row[CommandColumn] == hash;
    });
    return found == rows.end() ? QStringList(columnCount) : *found;
}

void DocumentMemory::NameItems(QList<DocumentItem> &items) const
{
    // Some file systems do not tell capitals from small letters.
    QSet<QString> taken;
    for (const QStringList &row : rows)
        taken.insert(nameOf(row[FileColumn]).toLower());
    for (DocumentItem &item : items) {
        if (item.State == ItemState::Unavailable)
            continue;
        item.Name = nameOf(rowOf(item)[FileColumn]);
        if (item.Name.isEmpty())
            item.Name = numbered(BuildDocFileName(item.Start.Command), taken);
        taken.insert(item.Name.toLower());
    }
}

void DocumentMemory::FindPresent(const QString &folder, QList<DocumentItem> &items) const
{
    for (DocumentItem &item : items) {
        const QStringList row = rowOf(item);
        const QFileInfo info(folder + u'/' + row[FileColumn]);
        if (item.State != ItemState::Waiting || row[FileColumn].isEmpty() || !info.isFile()
            || QString::number(info.size()) != row[BytesColumn])
            continue;
        item.State = ItemState::Present;
        item.File = row[FileColumn];
        item.Bytes = info.size();
        item.Sha256 = row[HashColumn];
        item.When = row[WhenColumn];
    }
}

QByteArray DocumentMemory::Csv(const QList<DocumentItem> &items) const
{
    ShownTable table{.Headers = headers(), .Rows = {}};
    QSet<QString> seen;
    for (const DocumentItem &item : items) {
        table.Rows.append(cellsOf(item));
        seen.insert(commandHash(item));
        if (item.State != ItemState::Unavailable)
            seen.insert(hashBefore(item));
    }
    for (const QStringList &row : rows) {
        if (!seen.contains(row[CommandColumn]))
            table.Rows.append(row);
    }
    return CsvText(table);
}
