#include "reports/ResultsTables.h"

#include <array>

namespace {
using CourtColumns = std::array<ReportColumn, 6>;
using DiscisColumns = std::array<ReportColumn, 8>;

/// The state courts and the bankruptcy courts differ in the width of a case number, in the head of
/// the role, and in which cells the last two columns are.
constexpr CourtColumns courtColumns(QStringView numberFormat, QStringView roleHead, int location,
                                    int role)
{
    return {{
        {0, u"Participant Name", u"Participant Name", u"l 3000;50"},
        {1, u"Case Number", u"Case Number", numberFormat},
        {2, u"Date Filed", u"Date Filed", u"l 1250;25"},
        {3, u"Description", u"Description", {}},
        {location, u"Location", u"Location", u"l 2000;50"},
        {role, roleHead, u"Role", u"l 1500;50"},
    }};
}

constexpr CourtColumns superior = courtColumns(u"l 1400;50", u"Role", 4, 5);
constexpr CourtColumns idaho = courtColumns(u"l 1800;50", u"Role", 4, 5);
constexpr CourtColumns bankruptcy = courtColumns(u"l 1400;50", u"Role/Parties", 4, 5);
constexpr CourtColumns indexed = courtColumns(u"l 1400;50", u"Role", 5, 6);

constexpr DiscisColumns discisCivil{{
    {0, u"Name", u"Participant Name", u"l 2700;50"},
    {1, u"Case No.", u"Case Number", u"l 1200;50"},
    {2, u"LEA", u"LEA", u"l 700;50"},
    {3, u"Court", u"Court", u"l 2000;50"},
    {4, u"Type", u"Type", u"l 600;25"},
    {5, u"Status", u"Status", u"l 800;25"},
    {6, u"Party", u"Party", u"l 800;25"},
    {7, u"Vio./File Date", u"Date Filed", u"l 1250;50"},
}};

/// A list of defendants with addresses has the court ahead of the agency; their report does not.
constexpr DiscisColumns discisNonCivil(int agency, int court)
{
    return {{
        {0, u"Participant Name", u"Participant Name", u"l 2800;50"},
        {1, u"Case Number", u"Case Number", u"l 1600;50"},
        {agency, u"L.E.A.", u"L.E.A.", u"l 1200;50"},
        {court, u"Court", u"Court", u"l 1200;50"},
        {4, u"Type", u"Type", u"l 700;25"},
        {5, u"Status", u"Status", u"l 700;25"},
        {6, u"Party", u"Party", u"l 700;25"},
        {7, u"Vio./File Date", u"Date Filed", u"l 1250;25"},
    }};
}

constexpr DiscisColumns discisStatewide = discisNonCivil(2, 3);
constexpr DiscisColumns discisAddresses = discisNonCivil(3, 2);

constexpr DiscisColumns namesStatewide{{
    {0, u"Participant Name", u"Participant Name", u"l 2800;50"},
    {1, u"Sex", u"Sex", u"l 600;50"},
    {2, u"D.O.B.", u"D.O.B.", u"l 1150;50"},
    {3, u"Race", u"Race", u"l 800;50"},
    {4, u"Height", u"Height", u"l 800;50"},
    {5, u"Weight", u"Weight", u"l 800;50"},
    {6, u"Physical Desc.", u"Physical Desc.", u"l 1900;50"},
    {7, u"Notes", u"Notes", u"l 1200;25"},
}};

constexpr DiscisColumns namesAddresses{{
    {0, u"Participant Name", u"Participant Name", u"l 2700;50"},
    {1, u"Sex", u"Sex", u"l 600;50"},
    {2, u"D.O.B.", u"D.O.B.", u"l 1150;50"},
    {3, u"Adddress", u"Adddress", u"l 2400;50"},
    {4, u"Race", u"Race", u"l 700;50"},
    {5, u"Ht.", u"Ht.", u"l 600;50"},
    {6, u"Wt.", u"Wt.", u"l 600;50"},
    {7, u"Phys. Desc.", u"Phys. Desc.", u"l 1300;25"},
}};
} // namespace

std::span<const ReportColumn> ReportColumnsOf(ResultKind kind)
{
    switch (kind) {
    case ResultKind::Idaho:
        return idaho;
    case ResultKind::Bankruptcy:
        return bankruptcy;
    case ResultKind::Index:
        return indexed;
    case ResultKind::DiscisCivil:
        return discisCivil;
    case ResultKind::DiscisStatewide:
        return discisStatewide;
    case ResultKind::DiscisAddresses:
        return discisAddresses;
    case ResultKind::NamesStatewide:
        return namesStatewide;
    case ResultKind::NamesAddresses:
        return namesAddresses;
    case ResultKind::Superior:
        break;
    }
    return superior;
}
