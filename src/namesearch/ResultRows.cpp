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

ResultRow takeFields(const QStringList &fields, std::span<const int> order)
{
    ResultRow row;
    for (const int field : order) {
        if (field >= fields.size()) {
            row.Complete = false;
            break;
        }
        row.Cells.append(fields[field]);
    }
    return row;
}

ResultRow bankruptcyRow(const QStringList &fields)
{
    ResultRow row = takeFields(fields, bankruptcyFields);
    if (!row.Complete || fields.size() <= bankruptcySecondRole) {
        row.Complete = false;
        return row;
    }
    row.Cells.append(fields[bankruptcyRole] + u" / "_s + fields[bankruptcySecondRole]);
    row.Cells.append(WithoutRetrieveCommand(fields[bankruptcyCommand]));
    return row;
}
} // namespace

ResultRow ParseResultRow(const QString &row, ResultKind kind)
{
    const QString trimmed = TrimBlanks(row);
    if (trimmed.isEmpty())
        return {{}, false};
    if (isDiscis(kind))
        return takeFields(trimmed.split(u'~'), discisFields);
    const QStringList fields = trimmed.split(trimmed.back());
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
