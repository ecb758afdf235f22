#include "namesearch/ResultColumns.h"

#include "courts/CourtTable.h"

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

constexpr std::array<ResultColumn, 8> discisCivilColumns{{
    {u"Name", 2300},
    {u"Case No.", 1100},
    {u"Court Code", 1000},
    {u"Court Location", 1800},
    {u"Type", 500},
    {u"Status", 700},
    {u"Party", 800},
    {u"Vio./File Date", 1500},
}};

constexpr std::array<ResultColumn, 8> discisStatewideColumns{{
    {u"Name", 2400},
    {u"Case No.", 1100},
    {u"L.E.A.", 800},
    {u"Court", 1500},
    {u"Type", 700},
    {u"Status", 600},
    {u"Party", 600},
    {u"Vio./File Date", 1500},
}};

constexpr std::array<ResultColumn, 8> discisAddressColumns{{
    {u"Name", 2400},
    {u"Case No.", 1100},
    {u"Court", 1500},
    {u"LEA", 700},
    {u"Type", 700},
    {u"Status", 600},
    {u"Party", 600},
    {u"Vio./File Date", 1500},
}};

constexpr std::array<ResultColumn, 8> namesStatewideColumns{{
    {u"Name", 2300},
    {u"Sex", 700},
    {u"D.O.B.", 1200},
    {u"Race", 700},
    {u"Height", 800},
    {u"Weight", 800},
    {u"Physical Desc.", 2300},
    {u"Notes", 900},
}};

// "Adddress" is what the column has always been called.
constexpr std::array<ResultColumn, 8> namesAddressColumns{{
    {u"Name", 2400},
    {u"Sex", 500},
    {u"D.O.B.", 1200},
    {u"Adddress", 2600},
    {u"Race", 500},
    {u"Ht.", 400},
    {u"Wt.", 400},
    {u"Phys. Desc.", 800},
}};

// In the order of ResultKind.
constexpr std::array<QStringView, 9> kindNames{
    u"Superior",        u"Idaho",           u"Bankruptcy",     u"Index",         u"DiscisCivil",
    u"DiscisStatewide", u"DiscisAddresses", u"NamesStatewide", u"NamesAddresses"};
} // namespace

QString ResultKindName(ResultKind kind)
{
    return kindNames.at(static_cast<size_t>(kind)).toString();
}

ResultKind ResultKindOf(const QString &state, bool indexSearch, bool bankruptcy)
{
    if (bankruptcy || IsBankruptcyCourt(state))
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
    case ResultKind::DiscisCivil:
        return discisCivilColumns;
    case ResultKind::DiscisStatewide:
        return discisStatewideColumns;
    case ResultKind::DiscisAddresses:
        return discisAddressColumns;
    case ResultKind::NamesStatewide:
        return namesStatewideColumns;
    case ResultKind::NamesAddresses:
        return namesAddressColumns;
    case ResultKind::Superior:
        break;
    }
    return superiorColumns;
}
