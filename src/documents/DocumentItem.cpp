#include "documents/DocumentItem.h"

#include "core/TextUtilities.h"
#include "documents/DocumentName.h"

#include <QSet>

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct ReasonRow
{
    TransferEnd end;
    QStringView reason;
};

constexpr int diskFull = 61;

constexpr std::array<ReasonRow, 9> reasons{{
    {TransferEnd::NotWanted, u"It was stopped by the user."},
    {TransferEnd::NotSent, u"The request could not be sent to the server."},
    {TransferEnd::Silent, u"The server did not answer in time."},
    {TransferEnd::Lost, u"The connection to the server was lost."},
    {TransferEnd::TooManyNotices, u"The server searched for it for too long."},
    {TransferEnd::TooShort, u"It did not come complete."},
    {TransferEnd::Unusable, u"The server did not say its size, or a type that can be used."},
    {TransferEnd::Empty, u"There was nothing in it."},
    {TransferEnd::FileError, u"Its file could not be read or written."},
}};
} // namespace

QString ReasonOf(const TransferResult &result)
{
    if (result.IsDenied())
        return u"Its file cannot be written. It may be open in another program."_s;
    if (result.End == TransferEnd::FileError && result.Error && result.Error->Number() == diskFull)
        return u"Its file could not be written: the disk is full."_s;
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

void DocumentItem::Fail(const QString &reason)
{
    State = HasFile() ? ItemState::Present : ItemState::Failed;
    Reason = HasFile() ? u"The file of before was kept. "_s + reason : reason;
}

QList<DocumentItem> ItemsOf(const QList<DocumentStart> &starts)
{
    QList<DocumentItem> items;
    QSet<QString> asked;
    for (const DocumentStart &start : starts) {
        DocumentItem item;
        item.Start = start;
        if (!start.Command.contains(RetrieveHead)) {
            item.State = ItemState::Unavailable;
            item.Reason = u"The court does not give it out."_s;
        } else if (asked.contains(RetrievalRequest(start.Command))) {
            continue;
        }
        asked.insert(RetrievalRequest(start.Command));
        items.append(item);
    }
    return items;
}

QString WhereOf(const DocumentStart &start)
{
    QStringList parts{start.CaseNumber, start.County};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

QString CaseFolder(const QString &county, const QString &caseNumber)
{
    constexpr qsizetype longestName = 100;
    QString name;
    for (const QChar character : QString(county + u' ' + caseNumber).left(longestName)) {
        if (IsFileCharacter(character))
            name += character;
    }
    name = TrimBlanks(name);
    return ReportsFolder() + u'/' + (name.isEmpty() ? u"Case"_s : name);
}
