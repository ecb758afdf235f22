#include "namesearch/ResultColumns.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<ResultColumn, 6> superiorColumns{{
    {u"Participant Name", 1700},
    {u"Case Number", 1900},
    {u"Date Filed", 1300},
    {u"Description", 1800},
    {u"Location", 1700},
    {u"Role", 1100},
}};

constexpr std::array<ResultColumn, 6> idahoColumns{{
    {u"Participant Name", 1700},
    {u"Case Number", 1200},
    {u"Date Filed", 1300},
    {u"Description", 1800},
    {u"Location", 1000},
    {u"Role", 1100},
}};

constexpr std::array<ResultColumn, 7> bankruptcyColumns{{
    {u"Participant Name", 1700},
    {u"Case Number", 1900},
    {u"Date Filed", 1300},
    {u"Description", 1200},
    {u"Location", 2100},
    {u"Role/Parties", 1100},
    {u"Search String", 30},
}};

constexpr std::array<ResultColumn, 8> indexColumns{{
    {u"Participant Name", 1700},
    {u"Case Number", 1900},
    {u"Date Filed", 1300},
    {u"Description", 900},
    {u"Case Title", 1700},
    {u"Location", 900},
    {u"Role", 700},
    {u"Eff. Dt.", 900},
}};

constexpr std::array<QStringView, 4> bankruptcyStates{u"IDBK", u"WAEBK", u"WAWBK", u"ORBK"};
} // namespace

ResultKind ResultKindOf(const QString &state, bool indexSearch, bool bankruptcy)
{
    if (bankruptcy
        || std::any_of(bankruptcyStates.begin(), bankruptcyStates.end(),
                       [&](QStringView known) { return state == known; }))
        return ResultKind::Bankruptcy;
    if (indexSearch)
        return ResultKind::Index;
    return state == u"ID" ? ResultKind::Idaho : ResultKind::Superior;
}

std::span<const ResultColumn> ResultColumnsOf(ResultKind kind)
{
    switch (kind) {
    case ResultKind::Idaho:
        return idahoColumns;
    case ResultKind::Bankruptcy:
        return bankruptcyColumns;
    case ResultKind::Index:
        return indexColumns;
    case ResultKind::Superior:
        break;
    }
    return superiorColumns;
}
