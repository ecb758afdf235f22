#include "namesearch/ResultRows.h"

#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// Which field of the row each cell takes, in the order of the columns.
constexpr std::array<int, 6> courtFields{0, 1, 2, 3, 4, 5};
constexpr std::array<int, 8> indexFields{0, 1, 2, 3, 6, 4, 5, 7};
constexpr std::array<int, 8> discisFields{0, 1, 2, 3, 4, 5, 6, 7};
/// The role cell joins two fields, and the hidden last cell is the retrieval command.
constexpr std::array<int, 5> bankruptcyFields{0, 1, 3, 4, 5};
constexpr int bankruptcyRole = 6;
constexpr int bankruptcySecondRole = 7;
constexpr int bankruptcyCommand = 2;

bool isDiscis(ResultKind kind)
{
    return kind == ResultKind::DiscisCivil || kind == ResultKind::DiscisStatewide
           || kind == ResultKind::DiscisAddresses;
}

/// The fields that a row can have a use for, however many there are.
QList<QStringView> firstFields(QStringView row, QChar delimiter)
{
    constexpr qsizetype most = 8;
    QList<QStringView> fields;
    fields.reserve(most);
    for (qsizetype from = 0; fields.size() < most;) {
        const qsizetype end = row.indexOf(delimiter, from);
        if (end < 0) {
            fields.append(row.sliced(from));
            break;
        }
        fields.append(row.sliced(from, end - from));
        from = end + 1;
    }
    return fields;
}

ResultRow takeFields(const QList<QStringView> &fields, std::span<const int> order)
{
    ResultRow row;
    row.Cells.reserve(static_cast<qsizetype>(order.size()));
    for (const int field : order) {
        if (field >= fields.size()) {
            row.Complete = false;
            break;
        }
        row.Cells.append(fields[field].toString());
    }
    return row;
}

ResultRow bankruptcyRow(const QList<QStringView> &fields)
{
    ResultRow row = takeFields(fields, bankruptcyFields);
    if (!row.Complete || fields.size() <= bankruptcySecondRole) {
        row.Complete = false;
        return row;
    }
    row.Cells.append(fields[bankruptcyRole] + u" / "_s + fields[bankruptcySecondRole]);
    row.Cells.append(WithoutRetrieveCommand(fields[bankruptcyCommand].toString()));
    return row;
}
} // namespace

ResultRow ParseResultRow(const QString &row, ResultKind kind)
{
    const QString trimmed = TrimBlanks(row);
    if (trimmed.isEmpty())
        return {{}, false};
    if (isDiscis(kind))
        return takeFields(firstFields(trimmed, u'~'), discisFields);
    const QList<QStringView> fields = firstFields(trimmed, trimmed.back());
    switch (kind) {
    case ResultKind::Bankruptcy:
        return bankruptcyRow(fields);
    case ResultKind::Index:
        return takeFields(fields, indexFields);
    default:
        break;
    }
    return takeFields(fields, courtFields);
}

bool IsDuplicateName(const QString &row)
{
    const QString trimmed = TrimBlanks(row);
    return trimmed.startsWith(u"NCNMD") || trimmed.startsWith(u"NCDND");
}
