#include "practice/OtherFile.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// What a kind of case is about, and what a court calls such a case after its parties.
enum class TitleForm : quint8 { Against, And, State, InRe, Alone };

struct Kind
{
    Nature nature;
    TitleForm title;
};

constexpr Kind suit{Nature::Civil, TitleForm::Against};
constexpr Kind claim{Nature::SmallClaims, TitleForm::Against};
constexpr Kind divorce{Nature::Domestic, TitleForm::And};
constexpr Kind youth{Nature::Juvenile, TitleForm::State};
constexpr Kind crime{Nature::Criminal, TitleForm::State};
constexpr Kind estate{Nature::Probate, TitleForm::InRe};
constexpr Kind ticket{Nature::Infraction, TitleForm::State};
constexpr Kind bankrupt{Nature::Bankruptcy, TitleForm::Alone};

// In the order of the kinds of each family.
constexpr std::array<std::array<Kind, 6>, 4> kinds{{
    {suit, divorce, youth, crime, estate, claim},
    {suit, divorce, crime, crime, ticket, youth},
    {suit, claim, ticket, ticket, crime, crime},
    {bankrupt, bankrupt, bankrupt, bankrupt, bankrupt, bankrupt},
}};

const Kind &kindOf(OtherFamily family, int type)
{
    return kinds[static_cast<std::size_t>(family)][static_cast<std::size_t>(type)];
}

LawBook lawsOf(OtherFamily family)
{
    switch (family) {
    case OtherFamily::Oregon:
        return LawBook::Oregon;
    case OtherFamily::Idaho:
        return LawBook::Idaho;
    case OtherFamily::District:
    case OtherFamily::Bankruptcy:
        break;
    }
    return LawBook::Washington;
}

constexpr QStringView openStatus = u"OP";

QString stateOf(OtherFamily family)
{
    switch (family) {
    case OtherFamily::Oregon:
        return u"STATE OF OREGON"_s;
    case OtherFamily::Idaho:
        return u"STATE OF IDAHO"_s;
    case OtherFamily::District:
    case OtherFamily::Bankruptcy:
        break;
    }
    return u"STATE OF WASHINGTON"_s;
}

QString titleOf(OtherFamily family, TitleForm form, const std::vector<CaseParty> &parties)
{
    const QString one = NameText(parties.front().person);
    const QString two = parties.size() > 1 ? NameText(parties[1].person) : QString();
    const bool alone = two.isEmpty();
    switch (form) {
    case TitleForm::Against:
        return alone ? u"IN RE %1"_s.arg(one) : u"%1 VS %2"_s.arg(one, two);
    case TitleForm::And:
        return alone ? u"IN RE %1"_s.arg(one) : u"%1 AND %2"_s.arg(one, two);
    case TitleForm::State:
        return u"%1 VS %2"_s.arg(stateOf(family), one);
    case TitleForm::InRe:
        return u"IN RE THE ESTATE OF %1"_s.arg(one);
    case TitleForm::Alone:
        break;
    }
    return one;
}

/// The place where people live who have to do with the court.
QString placeOf(const OtherCourt &court)
{
    QString place = court.place;
    for (const QString &behind : {u" County"_s, u" District"_s, u" ("_s, u" Bankruptcy"_s})
        place = place.section(behind, 0, 0);
    return place;
}

/// Fills what follows from the part that the list row tells.
void complete(const TabContext &context, OtherFamily family, OtherFile &found)
{
    const OtherCase &one = found.courtCase;
    const Kind &kind = kindOf(family, one.type);
    const OtherCourt &court = CourtOf(family, one);
    CaseFile &file = found.file;
    file.number = one.number;
    file.filed = one.filed;
    file.nature = kind.nature;
    file.laws = lawsOf(family);
    file.archived = one.archived;
    file.judgment = one.judgment;
    file.court = court.place;
    file.county = placeOf(court);
    file.cause = one.text;
    // A district court's list has a status in that place.
    if (family == OtherFamily::District) {
        file.cause.clear();
        file.stillOpen = one.text == openStatus;
        file.judgment = one.judgment && !file.stillOpen;
    }
    if (file.nature == Nature::Criminal && one.text.endsWith(u"Violation"))
        file.nature = Nature::Infraction;
    file.title = titleOf(family, kind.title, file.parties);
    file.seed = SeedOfCase(context.people, court.code, one.number);
}

/// The people whom the list of a name with a meaning names.
std::vector<OtherParty> partiesOfHit(OtherFamily family, const OtherHit &hit)
{
    std::vector<OtherParty> parties{{hit.person, hit.courtCase}};
    const OtherCaseType &type = CaseTypesOf(family)[static_cast<std::size_t>(hit.courtCase.type)];
    if (!hit.courtCase.otherParty.isEmpty() && type.otherRole != nullptr) {
        OtherCase other = hit.courtCase;
        other.role = QString::fromUtf16(type.otherRole);
        parties.push_back({{hit.courtCase.otherParty, {}, {}, true}, other});
    }
    return parties;
}
} // namespace

const OtherCourt &CourtOf(OtherFamily family, const OtherCase &courtCase)
{
    return CourtsOf(family)[static_cast<std::size_t>(courtCase.court)];
}

std::optional<OtherFile> FindOtherFile(const TabContext &context, OtherFamily family,
                                       const QString &number)
{
    std::vector<OtherParty> parties = PartiesOfOtherCase(context.people, family, number);
    const std::optional<OtherHit> hit = context.lists.FindOther(family, number);
    if (hit && (parties.empty() || context.lists.AreLatest(CourtFamilyOf(family))))
        parties = partiesOfHit(family, *hit);
    if (parties.empty())
        return std::nullopt;
    OtherFile found;
    found.courtCase = parties.front().courtCase;
    for (const OtherParty &party : parties)
        found.file.parties.push_back({party.person, party.courtCase.role});
    complete(context, family, found);
    return found;
}

OtherFile SpecialOtherFile(const TabTask &task, OtherFamily family)
{
    constexpr int firstNonCivil = 2;
    OtherFile found{SpecialCaseFile(task), {}};
    OtherCase &one = found.courtCase;
    const bool nonCivil = family == OtherFamily::District && !task.asked.civil;
    one.court = FindCourt(family, SpecialCaseCourt(task.asked.family)).value_or(0);
    one.type = nonCivil ? firstNonCivil : 0;
    one.number = found.file.number;
    one.filed = found.file.filed;
    const OtherCaseType &type = CaseTypesOf(family)[static_cast<std::size_t>(one.type)];
    one.text = family == OtherFamily::District ? u"CL"_s : QString::fromUtf16(type.texts.front());
    one.role = QString::fromUtf16(type.role);
    one.judgment = true;
    found.file.parties.front().role = one.role;
    if (type.otherRole == nullptr)
        found.file.parties.pop_back();
    else
        found.file.parties.back().role = QString::fromUtf16(type.otherRole);
    complete(task.context, family, found);
    return found;
}
} // namespace Practice
