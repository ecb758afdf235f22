#include "documents/DocumentItem.h"

#include "core/TextUtilities.h"
#include "documents/DocumentName.h"
#include "tables/CsvText.h"

#include <QFileInfo>
#include <QSet>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
struct ReasonRow
{
    TransferEnd end;
    QStringView reason;
};

constexpr std::array<ReasonRow, 9> reasons{{
    {TransferEnd::NotWanted, u"It was stopped by the user."},
    {TransferEnd::NotSent, u"The request could not be sent to the server."},
    {TransferEnd::Silent, u"The server did not answer in time."},
    {TransferEnd::Lost, u"The connection to the server was lost."},
    {TransferEnd::TooManyNotices, u"The server searched for it for too long."},
    {TransferEnd::TooShort, u"It did not come complete."},
    {TransferEnd::Unusable, u"The server did not say its size, or a type that can be used."},
    {TransferEnd::Empty, u"There was nothing in it."},
    {TransferEnd::FileError, u"Its file could not be written: the disk is full."},
}};

enum Column {
    FileColumn,
    DateColumn,
    PagesColumn,
    DescriptionColumn,
    BytesColumn,
    HashColumn,
    WhenColumn,
    ReasonColumn,
    columnCount
};

const QStringList &headers()
{
    static const QStringList all{u"File"_s,  u"Date"_s,    u"Pages"_s,     u"Description"_s,
                                 u"Bytes"_s, u"SHA-256"_s, u"Retrieved"_s, u"Reason"_s};
    return all;
}

QStringList rowOf(const DocumentItem &item)
{
    const bool here = item.IsHere();
    const QString reason =
        item.State == ItemState::Waiting ? u"It has not been asked for yet."_s : item.Reason;
    return {here ? item.File : QString(),
            CellsOfDocument(item.Start.Command).Date,
            item.Start.PageCount,
            item.Start.Description,
            here ? QString::number(item.Bytes) : QString(),
            here ? item.Sha256 : QString(),
            here ? item.When : QString(),
            here ? QString() : reason};
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

bool isPresent(const QString &folder, const DocumentItem &item, const QStringList &row)
{
    if (row.size() != columnCount)
        return false;
    // A cell that a spreadsheet would take for a formula has an apostrophe in front.
    const QString &file = row[FileColumn];
    const qsizetype point = file.lastIndexOf(u'.');
    if (point < 0 || file.left(point) != HarmlessCell(item.Name)
        || !IsFileType(file.mid(point + 1).toUtf8()))
        return false;
    const QFileInfo info(folder + u'/' + item.Name + file.mid(point));
    return info.isFile() && QString::number(info.size()) == row[BytesColumn];
}
} // namespace

QString ReasonOf(const TransferResult &result)
{
    if (result.IsDenied())
        return u"Its file cannot be written. It may be open in another program."_s;
    return ReasonOf(result.End);
}

QString ReasonOf(TransferEnd end)
{
    for (const ReasonRow &row : reasons) {
        if (row.end == end)
            return row.reason.toString();
    }
    return {};
}

QList<DocumentItem> ItemsOf(const QList<DocumentStart> &starts)
{
    QList<DocumentItem> items;
    for (const DocumentStart &start : starts) {
        DocumentItem item;
        item.Start = start;
        if (!start.Command.contains(RetrieveHead)) {
            item.State = ItemState::Unavailable;
            item.Reason = u"The court does not give it out."_s;
        }
        items.append(item);
    }
    return items;
}

void NameItems(QList<DocumentItem> &items)
{
    // Some file systems do not tell capitals from small letters.
    QSet<QString> taken;
    for (DocumentItem &item : items) {
        if (item.State == ItemState::Unavailable)
            continue;
        const QString name = TrimBlanks(BuildDocFileName(item.Start.Command));
        item.Name = name;
        for (int number = 2; taken.contains(item.Name.toLower()); ++number)
            item.Name = name + u' ' + QString::number(number);
        taken.insert(item.Name.toLower());
    }
}

QString CaseFolder(const QString &county, const QString &caseNumber)
{
    constexpr qsizetype longestName = 100;
    const QString name =
        TrimBlanks(StripToFileChars(QString(county + u' ' + caseNumber).left(longestName)));
    return ReportsFolder() + u'/' + (name.isEmpty() ? u"Case"_s : name);
}

QByteArray DocumentsCsv(const QList<DocumentItem> &items)
{
    ShownTable table{.Headers = headers(), .Rows = {}};
    for (const DocumentItem &item : items)
        table.Rows.append(rowOf(item));
    return CsvText(table);
}

void FindPresent(const QString &folder, const QByteArray &csv, QList<DocumentItem> &items)
{
    const QList<QStringList> rows = rowsOfCsv(csv);
    for (DocumentItem &item : items) {
        for (const QStringList &row : rows) {
            if (item.State != ItemState::Waiting || !isPresent(folder, item, row))
                continue;
            item.State = ItemState::Present;
            item.File = item.Name + row[FileColumn].mid(row[FileColumn].lastIndexOf(u'.'));
            item.Bytes = row[BytesColumn].toLongLong();
            item.Sha256 = row[HashColumn];
            item.When = row[WhenColumn];
        }
    }
}
