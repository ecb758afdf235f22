// The checks of the bankruptcy courts.

#include "core/TextUtilities.h"
#include "searchentry/CaseNumbers.h"
#include "searchentry/FieldRules.h"
#include "searchentry/RuleTable.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr unsigned person = BitOf(SearchKind::Person);
constexpr unsigned business = BitOf(SearchKind::Business);
constexpr unsigned caseNumber = BitOf(SearchKind::Number);
constexpr unsigned taxId = BitOf(SearchKind::TaxId);
constexpr unsigned ssn = BitOf(SearchKind::Ssn);

constexpr qsizetype longestTaxId = 15;

QString entered(const RuleContext &context)
{
    return TrimBlanks(context.entry.Names[LastName]);
}

bool isEmpty(RuleContext &context)
{
    return entered(context).isEmpty();
}

bool lacksFirstName(RuleContext &context)
{
    return !TrimBlanks(context.entry.Names[MiddleInitial]).isEmpty()
           && TrimBlanks(context.entry.Names[FirstName]).isEmpty();
}

/// A number that has the courts' form is rewritten in it.
bool isNoBkNumber(RuleContext &context)
{
    const QString formatted = FormatBkCaseNumber(entered(context));
    if (formatted.isEmpty())
        return true;
    context.entry.Names[LastName] = formatted;
    return false;
}

bool hasTaxIdLength(const QString &text)
{
    return !text.isEmpty() && text.size() <= longestTaxId;
}

/// The box keeps what was typed: only whether it could be formatted counts.
bool isNoTaxIdOrUbi(RuleContext &context)
{
    const QString text = entered(context);
    return !hasTaxIdLength(FormatTaxId(text)) && !hasTaxIdLength(FormatUbi(text));
}

bool isNoSsn(RuleContext &context)
{
    return FormatSsn(entered(context)).isEmpty();
}

bool lacksCourt(RuleContext &context)
{
    const auto &courts = context.entry.BkCourts;
    return std::none_of(courts.begin(), courts.end(), [](bool checked) { return checked; });
}

/// In the order in which they are tested.
constexpr std::array rules{
    FieldRule{.kinds = person,
              .broken = isEmpty,
              .reaction = Reaction::Notify,
              .box = {.text = u"The LAST NAME Field Is Empty! Please enter a Last Name.",
                      .title = u"Halvane - Search Entry Form Field Error.."}},
    FieldRule{.kinds = person,
              .broken = lacksFirstName,
              .reaction = Reaction::Notify,
              .box = {.text = u"The FIRST NAME Field Is Empty! This is a required field when a "
                              "MIDDLE INITIAL is entered. Please enter a First Name or Remove the "
                              "Middle Initial to Continue."}},
    FieldRule{.kinds = business,
              .broken = isEmpty,
              .reaction = Reaction::Notify,
              .box = {.text = u"The BUSINESS NAME Field Is Empty! Please enter a NAME."}},
    FieldRule{.kinds = caseNumber,
              .broken = isEmpty,
              .reaction = Reaction::Notify,
              .box = {.text = u"The NUMBER Field Is Empty! Please enter a NUMBER to continue.",
                      .title = u"Halvane - Invalid Number Entered. Verify Number.."}},
    FieldRule{
        .kinds = caseNumber,
        .broken = isNoBkNumber,
        .reaction = Reaction::AskToPass,
        .box = {.text = u"The NUMBER entered appears invalid or incorrectly formatted! "
                        "\r\n\r\n"
                        "Proper formats are like: YY-Nnnnn or n:yy-tt-Nnnnn.     NOTE: Dashes and "
                        "colons are not required when entering numbers.\r\n\r\n"
                        "To try using this number anyway - select OK. To stop and check this "
                        "number without searching - select Cancel.",
                .title = u"Halvane - Invalid Number Entered. Please Verify Number..",
                .icon = MessageIcon::Question}},
    FieldRule{.kinds = taxId,
              .broken = isEmpty,
              .error = {.what = u"The Tax ID Field Is Empty!",
                        .action = u"Please enter a Tax ID to Continue."}},
    FieldRule{
        .kinds = taxId,
        .broken = isNoTaxIdOrUbi,
        .error = {.what = u"The Tax ID or UBI Number Entered is Invalid or Improperly Formatted!",
                  .why =
                      u"Dashes are optional but the 1st 2 numbers in a Tax ID must be between 80 "
                      "and last 2 digits of this year. If number is a UBI THEN IT MUST BE EXACT "
                      "INCLUDING DASHES!!",
                  .action = u"Please Correct the Number to Continue. (NN-Nnnnnnnn or "
                            "NNN-NNN-NNN)"}},
    FieldRule{.kinds = ssn,
              .broken = isEmpty,
              .error = {.what = u"The SSN Field Is Empty!",
                        .action = u"Please enter a SSN to Continue."}},
    FieldRule{
        .kinds = ssn,
        .broken = isNoSsn,
        .error = {.what = u"The SSN Number Entered is Invalid or Improperly Formatted!",
                  .why = u"Dashes are optional but there must be exactly 9 numbers in the SSN",
                  .action = u"Please Correct the SSN to Continue. (000-00-0000 or 123456789)"}},
    FieldRule{.broken = lacksCourt,
              .reaction = Reaction::Notify,
              .box = {.text = u"No Court Selected! Please select a U.S. Court to continue."}},
};
} // namespace

bool ValidateBkFormFields(SearchEntry &entry, FormTalk &talk)
{
    return TrapRunTimeErrors(u"ValidateBkFormFields", [&] {
        RuleContext context{entry, talk};
        for (const FieldRule &rule : rules) {
            const Verdict verdict = ApplyRule(rule, context);
            if (verdict != Verdict::GoOn)
                return verdict == Verdict::Passed;
        }
        return true;
    });
}
