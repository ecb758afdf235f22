#include "practice/CourtTables.h"

#include <algorithm>

namespace Practice {
namespace {
constexpr std::array criminalTexts{
    u"Assault 2nd Degree",
    u"Assault 3rd Degree",
    u"Burglary 1st Degree",
    u"Burglary 2nd Degree",
    u"Residential Burglary",
    u"Theft 1st Degree",
    u"Theft 2nd Degree",
    u"Forgery",
    u"Identity Theft",
    u"Robbery 2nd Degree",
    u"Attempting To Elude",
    u"Possession Stolen Vehicle",
    u"Malicious Mischief",
    u"Bail Jumping",
    u"Unlawful Issuance Bank Checks",
    u"Felony DUI",
    u"Controlled Substance",
    u"Trafficking Stolen Property",
};
constexpr std::array civilTexts{
    u"Tort - Motor Vehicle",
    u"Tort - Other",
    u"Personal Injury",
    u"Commercial",
    u"Collection",
    u"Unlawful Detainer",
    u"Foreclosure",
    u"Quiet Title",
    u"Property Damage",
    u"Medical Malpractice",
    u"Condemnation",
    u"Injunction",
    u"Writ of Habeas Corpus",
    u"Change of Name",
    u"Administrative Law Review",
    u"Land Use Petition",
    u"Breach of Contract",
    u"Domestic Violence Protection",
};
constexpr std::array domesticTexts{
    u"Dissolution With Children",
    u"Dissolution No Children",
    u"Legal Separation",
    u"Paternity",
    u"Parenting Plan",
    u"Child Support Modification",
    u"Invalidity",
    u"Out-of-State Custody",
    u"Nonparental Custody",
};
constexpr std::array probateTexts{
    u"Estate",
    u"Will Only",
    u"Small Estate",
    u"Guardianship",
    u"Limited Guardianship",
    u"Trust",
    u"Minor Settlement",
    u"Adoption Inspection",
    u"Nonprobate Notice to Creditors",
};
constexpr std::array juvenileTexts{
    u"Theft 3rd Degree",    u"Assault 4th Degree",   u"Malicious Mischief 3rd Degree",
    u"Minor in Possession", u"Taking Motor Vehicle", u"Criminal Trespass",
    u"Harassment",
};
constexpr std::array judgmentTexts{
    u"Abstract of Judgment",       u"Foreign Judgment",  u"Tax Warrant",
    u"Transcript of Judgment",     u"L & I Tax Warrant", u"Employment Security",
    u"Certificate of Delinquency",
};

// A prosecutor is no party of ours: a search for the State would find a third of everything.
constexpr auto criminalParties = std::to_array<PartyKind>({
    {u"Defendant", 100, 1},
    {u"Co-Defendant", 12, 0},
});
constexpr auto civilParties = std::to_array<PartyKind>({
    {u"Plaintiff", 100, 35},
    {u"Defendant", 100, 25},
    {u"Defendant", 20, 20},
});
constexpr auto domesticParties = std::to_array<PartyKind>({
    {u"Petitioner", 100, 0},
    {u"Respondent", 100, 0},
});
constexpr auto probateParties = std::to_array<PartyKind>({
    {u"Decedent", 100, 0},
    {u"Personal Representative", 75, 2},
});
constexpr auto juvenileParties = std::to_array<PartyKind>({
    {u"Respondent", 100, 0},
    {u"Parent", 30, 0},
});
constexpr auto judgmentParties = std::to_array<PartyKind>({
    {u"Judgment Debtor", 100, 20},
    {u"Judgment Creditor", 100, 60},
});

constexpr std::array<CaseType, 6> types{{
    {1, u"Criminal", 21, criminalTexts, criminalParties},
    {2, u"Civil", 34, civilTexts, civilParties},
    {3, u"Domestic", 20, domesticTexts, domesticParties},
    {4, u"Probate", 9, probateTexts, probateParties},
    {8, u"Juvenile Offender", 6, juvenileTexts, juvenileParties},
    {9, u"Judgment", 10, judgmentTexts, judgmentParties},
}};
} // namespace

std::span<const CaseType> CaseTypes()
{
    return types;
}

const CaseType *CaseTypeOfDigit(int digit)
{
    const auto *found = std::find_if(types.begin(), types.end(),
                                     [&](const CaseType &type) { return type.digit == digit; });
    return found == types.end() ? nullptr : found;
}

const CaseType *CaseTypeOfWord(QStringView word)
{
    const auto *found = std::find_if(types.begin(), types.end(), [&](const CaseType &type) {
        return word.trimmed().compare(QStringView(type.word), Qt::CaseInsensitive) == 0;
    });
    return found == types.end() ? nullptr : found;
}
} // namespace Practice
