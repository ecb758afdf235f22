#include "practice/OtherCaseTypes.h"

#include <array>

namespace Practice {
namespace {
constexpr std::array civilTexts{
    u"Contract",
    u"Personal Injury",
    u"Foreclosure",
    u"Property Damage",
    u"Forcible Entry and Detainer",
};
constexpr std::array domesticTexts{
    u"Dissolution",
    u"Legal Separation",
    u"Custody",
    u"Child Support",
};
constexpr std::array juvenileTexts{
    u"Delinquency",
    u"Curfew Violation",
    u"Minor in Possession",
};
constexpr std::array offenseTexts{
    u"Offense Felony",
    u"Offense Misdemeanor",
    u"Offense Violation",
};
constexpr std::array probateTexts{
    u"Estate",
    u"Guardianship",
    u"Conservatorship",
};
constexpr std::array smallClaimsTexts{
    u"Small Claims",
};
constexpr std::array felonyTexts{
    u"Burglary",
    u"Grand Theft",
    u"Forgery",
    u"Aggravated Battery",
};
constexpr std::array misdemeanorTexts{
    u"Petit Theft",
    u"Driving Under the Influence",
    u"Disturbing the Peace",
};
constexpr std::array infractionTexts{
    u"Speeding",
    u"Fail to Purchase License",
    u"Stop Sign Violation",
};
constexpr std::array statusTexts{
    u"OP",
    u"CL",
    u"DI",
};
constexpr std::array chapter7{u"Chapter 7"};
constexpr std::array chapter11{u"Chapter 11"};
constexpr std::array chapter13{u"Chapter 13"};

constexpr auto plaintiff = u"Plaintiff";
constexpr auto defendant = u"Defendant";
constexpr auto petitioner = u"Petitioner";
constexpr auto respondent = u"Respondent";
constexpr auto juvenile = u"Juvenile";
constexpr auto decedent = u"Decedent";
constexpr auto representative = u"Personal Rep";
constexpr auto debtor = u"Debtor";
constexpr auto creditor = u"Creditor";

using Type = OtherCaseType;

constexpr std::array<Type, 6> oregonTypes{{
    {u"CV", u"CV", u"", 28, true, false, plaintiff, defendant, civilTexts},
    {u"DO", u"DO", u"", 18, false, true, petitioner, respondent, domesticTexts},
    {u"JU", u"JU", u"", 6, false, true, juvenile, nullptr, juvenileTexts},
    {u"OF", u"OF", u"", 26, true, true, defendant, nullptr, offenseTexts},
    {u"PB", u"PB", u"", 8, false, true, decedent, representative, probateTexts},
    {u"SC", u"SC", u"", 14, true, false, plaintiff, defendant, smallClaimsTexts},
}};

constexpr std::array<Type, 6> idahoTypes{{
    {u"CV", u"CV-", u"OC", 30, false, false, plaintiff, defendant, civilTexts},
    {u"CV", u"CV-", u"DR", 18, false, true, petitioner, respondent, domesticTexts},
    {u"CR", u"CR-", u"FE", 10, false, true, defendant, nullptr, felonyTexts},
    {u"CR", u"CR-", u"MD", 16, false, true, defendant, nullptr, misdemeanorTexts},
    {u"CR", u"CR-", u"IN", 20, false, true, defendant, nullptr, infractionTexts},
    {u"JU", u"JV-", u"JV", 6, false, true, juvenile, nullptr, juvenileTexts},
}};

constexpr std::array<Type, 6> districtTypes{{
    {u"CV", u"CV", u"", 16, false, false, u"PLA", u"DEF", statusTexts},
    {u"CV", u"SC", u"", 14, false, false, u"PLA", u"DEF", statusTexts},
    {u"IN", u"IT", u"", 34, false, true, u"DEF", nullptr, statusTexts},
    {u"IN", u"IN", u"", 10, false, true, u"DEF", nullptr, statusTexts},
    {u"IN", u"CT", u"", 14, false, true, u"DEF", nullptr, statusTexts},
    {u"IN", u"CN", u"", 12, false, true, u"DEF", nullptr, statusTexts},
}};

constexpr std::array<Type, 3> bankruptcyTypes{{
    {u"*ALL", u"", u"", 68, false, false, debtor, creditor, chapter7},
    {u"*ALL", u"", u"", 6, false, false, debtor, creditor, chapter11},
    {u"*ALL", u"", u"", 26, false, true, debtor, creditor, chapter13},
}};
} // namespace

std::span<const OtherCaseType> CaseTypesOf(OtherFamily family)
{
    switch (family) {
    case OtherFamily::Oregon:
        return oregonTypes;
    case OtherFamily::Idaho:
        return idahoTypes;
    case OtherFamily::District:
        return districtTypes;
    case OtherFamily::Bankruptcy:
        break;
    }
    return bankruptcyTypes;
}
} // namespace Practice
