// The checks of the state courts.

#include "searchentry/FieldRules.h"

#include "core/TextUtilities.h"
#include "courts/Counties.h"
#include "searchentry/RuleTable.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr unsigned person = BitOf(SearchKind::Person);
constexpr unsigned business = BitOf(SearchKind::Business);
constexpr unsigned name = person | business;
constexpr unsigned number = anyKind & ~name;

constexpr unsigned superior = BitOf(CourtFamily::Superior);
constexpr unsigned discis = BitOf(CourtFamily::Discis);
constexpr unsigned oregon = BitOf(CourtFamily::Oregon);
constexpr unsigned idaho = BitOf(CourtFamily::Idaho);

template<NameBox Box>
bool isEmpty(RuleContext &context)
{
    return TrimBlanks(context.entry.Names[Box]).isEmpty();
}

template<NameBox Box>
bool lacksFirstName(RuleContext &context)
{
    return !isEmpty<Box>(context) && isEmpty<FirstName>(context);
}

bool lacksCounty(RuleContext &context)
{
    const SearchEntry &entry = context.entry;
    return (entry.Where == SearchScope::Counties || entry.Where == SearchScope::Template)
           && entry.Counties.isEmpty();
}

bool lacksCaseType(RuleContext &context)
{
    return context.entry.CaseTypes.isEmpty() && !context.entry.JudgmentsOnly;
}

bool lacksDiscisCourt(RuleContext &context)
{
    return context.entry.DiscisSelected.isEmpty();
}

bool lacksCivilDiscisCourt(RuleContext &context)
{
    return context.entry.Where == SearchScope::DiscisCivil && lacksDiscisCourt(context);
}

bool lacksNumberCounty(RuleContext &context)
{
    return TrimBlanks(context.entry.NumberCounty).isEmpty();
}

bool always(RuleContext &)
{
    return true;
}

bool searchesMissingDistrictCourt(RuleContext &context)
{
    return context.entry.DistrictCourt && HasCountyWithoutDistrictCourt(context.entry.Counties);
}

bool searchesMissingJuvenile(RuleContext &context)
{
    return context.entry.CaseTypes.contains(u"Juvenile Offender")
           && HasCountyWithoutJuvenile(context.entry.Counties);
}

constexpr FieldErrorTexts noCounty{
    .what = u"You Have Not Selected a County!",
    .why = u"At least one selection is required when searching County Jurisdictions.",
    .action = u"Please Select a County(s) or Change Jurisidiction to Continue."};

constexpr FieldErrorTexts noCountyForNumber{
    .what = u"You Have Not Selected a County!",
    .why = u"A County selection is required for this type of search.",
    .action = u"Please Select a County or Change Jurisidiction to Continue."};

/// In the order in which they are tested. A question whose answer is the result ends the check, so
/// the Oregon warnings stand last and at most one of them is asked.
constexpr std::array rules{
    FieldRule{.kinds = person,
              .broken = isEmpty<LastName>,
              .error = {.what = u"The LAST NAME Field Is Empty!",
                        .why = u"This is a required field and Has a Minimum Length of 1 Character.",
                        .action = u"Please enter a Last Name or Select Cancel to Continue."}},
    FieldRule{.kinds = business,
              .broken = isEmpty<LastName>,
              .error = {.what = u"The BUSINESS NAME Field Is Empty!",
                        .why = u"This is a required field and Has a Minimum Length of 1 Character.",
                        .action = u"Please enter a Business Name or Select Cancel to Continue."}},
    FieldRule{.kinds = name,
              .broken = lacksFirstName<MiddleInitial>,
              .error = {.what = u"The FIRST NAME Field Is Empty!",
                        .why = u"This is a required field when a MIDDLE INITIAL is entered.",
                        .action = u"Please enter a First Name or Remove the Middle Initial to "
                                  "Continue."}},
    FieldRule{.kinds = name,
              .broken = lacksFirstName<Suffix>,
              .error = {.what = u"The FIRST NAME Field Is Empty!",
                        .why = u"This is a required field when a SUFFIX is entered.",
                        .action = u"Please enter a First Name or Remove the Suffix to Continue."}},
    FieldRule{.kinds = name, .courts = superior | oregon, .broken = lacksCounty, .error = noCounty},
    FieldRule{.kinds = name,
              .courts = superior | oregon,
              .broken = lacksCaseType,
              .error = {.what = u"You Have Not Selected a Case Type!",
                        .why = u"At least one Case Type Must be Selected",
                        .action = u"Please Select a Case Type(s) to Continue with this Search."}},
    FieldRule{.kinds = name, .courts = discis, .broken = lacksCivilDiscisCourt, .error = noCounty},
    FieldRule{.kinds = number,
              .broken = isEmpty<LastName>,
              .error = {.what = u"The NUMBER Field Is Empty!",
                        .why = u"This is a required field and Has a Minimum Length of 1 Character.",
                        .action = u"Please enter a NUMBER or Select Cancel to Continue."}},
    // Without one an Oregon request names no court, and the answer would be that there is no such
    // case.
    FieldRule{.kinds = number,
              .courts = superior | oregon,
              .broken = lacksNumberCounty,
              .error = noCountyForNumber},
    // Idaho's numbers have no form that could be tested.
    FieldRule{.kinds = number, .courts = idaho, .broken = always, .reaction = Reaction::Pass},
    FieldRule{
        .kinds = number,
        .broken = IsNoScomisNumber,
        .reaction = Reaction::AskToGoOn,
        .error = {.what = u"This case number appears to be a non-SCOMIS number.",
                  .why = u"Searching of Non-Scomis Case Numbers is Supported, but you Must Answer "
                         "OK When Prompted to Continue Searching With a Non-Scomis Case Number.",
                  .action = u"Please Correct the Case Number or Answer OK When Prompted to "
                            "Continue Searching With a Non-Scomis Case Number."},
        .box = {.text = u"This case number appears to be a non-SCOMIS number.\r\n\r\n"
                        "To continue the search using this number click OK.",
                .title = u"Halvane Form Field Validation",
                .icon = MessageIcon::Exclamation}},
    FieldRule{
        .kinds = number,
        .broken = IsRestrictedCaseType,
        .error = {.what = u"The Case Type Entered (%d) is Restricted and Cannot be Retrieved From "
                          "This Court.",
                  .why = u"The Case Type Entered Cannot be '5' (Adoption), '6' (Mental Illness), "
                         "or '7' (Juvenile Dependency).",
                  .action = u"Please Correct the Case Type and Select Start Search to Continue."}},
    FieldRule{.kinds = number,
              .broken = HasWrongCheckDigit,
              .error = {.what = u"The case number is invalid for the county chosen.",
                        .why = u"Washington Superior Court cases have unique case numbers in each "
                               "county.",
                        .action = u"Check the case number and the county.",
                        .caption = u"Case Number not found in this county."}},
    FieldRule{
        .kinds = number, .courts = discis, .broken = lacksDiscisCourt, .error = noCountyForNumber},
    FieldRule{.kinds = name,
              .courts = oregon,
              .broken = searchesMissingDistrictCourt,
              .reaction = Reaction::AskToPass,
              .box = noDistrictCourtWarning},
    FieldRule{.kinds = name,
              .courts = oregon,
              .broken = searchesMissingJuvenile,
              .reaction = Reaction::AskToPass,
              .box = {.text =
                          u"One or more of the Counties you selected does not support Juvenile "
                          "Offender Searches. The following counties Do NOT support Juvenile "
                          "Offender Searches.\r\n\r\n"
                          "Benton, Crook, Gilliam, Harney, City of Hermiston, Jefferson, Morrow, "
                          "Multinomah (civil), Sherman, Washington, and Wheeler.\r\n\r\n"
                          "Select Yes to continue with the currrent search criteria (skipping "
                          "counties without Juvenile Offender Support).  Select No to refine the "
                          "search criteria entered.\r\n\r\n"
                          "Continue?",
                      .title = u"Warning - No Juvenile Offender Support ..",
                      .icon = MessageIcon::Exclamation,
                      .buttons = QuestionButtons::YesNo}},
};

/// True when one of the counties stands in the list, a blank on either side, in any case.
bool anyStandsIn(const QString &list, const QStringList &counties)
{
    const QString upperList = list.toUpper();
    return std::any_of(counties.begin(), counties.end(), [&upperList](const QString &county) {
        return upperList.contains(u' ' + TrimBlanks(county).toUpper() + u' ');
    });
}
} // namespace

QString LostCharactersText(const QStringList &characters)
{
    const QString all = u'"' + characters.join(u"\", \""_s) + u'"';
    if (characters.size() == 1)
        return u"The character "_s + all + u" cannot be sent. A question mark goes in its place."_s;
    return u"The characters "_s + all + u" cannot be sent. Question marks go in their place."_s;
}

bool HasCountyWithoutDistrictCourt(const QStringList &counties)
{
    return anyStandsIn(OrCountiesWithoutDistrictCourt(), counties);
}

bool HasCountyWithoutJuvenile(const QStringList &counties)
{
    return anyStandsIn(OrCountiesWithoutJuvenile(), counties);
}

bool ValidateAllFormFields(SearchEntry &entry, FormTalk &talk)
{
    return TrapRunTimeErrors(u"ValidateAllFormFields", [&] {
        RuleContext context{entry, talk, &entry.Names[LastName], entry.NumberCounty};
        for (const FieldRule &rule : rules) {
            const Verdict verdict = ApplyRule(rule, context);
            if (verdict != Verdict::GoOn)
                return verdict == Verdict::Passed;
        }
        return true;
    });
}
