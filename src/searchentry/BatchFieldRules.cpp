// The checks of a batch of numbers.

#include "core/TextUtilities.h"
#include "searchentry/FieldRules.h"
#include "searchentry/RuleTable.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr unsigned superior = BitOf(CourtFamily::Superior);
constexpr unsigned oregon = BitOf(CourtFamily::Oregon);

/// The counties of all rows are tested before the first number is, and the batch as a whole last.
enum class Stage { CountyOfRow, NumberOfRow, Batch };
constexpr std::array stages{Stage::CountyOfRow, Stage::NumberOfRow, Stage::Batch};

struct BatchRule
{
    Stage stage;
    FieldRule rule;
};

bool lacksCounty(RuleContext &context)
{
    const QString county = TrimBlanks(context.county);
    return county.isEmpty() || county == noCountySelected;
}

/// All ten county boxes count, also beside an empty number.
bool searchesMissingDistrictCourt(RuleContext &context)
{
    if (!context.entry.DistrictCourt)
        return false;
    QStringList counties;
    for (const BatchRow &row : context.entry.Batch)
        counties.append(row.County);
    return HasCountyWithoutDistrictCourt(counties);
}

/// Within a stage in the order in which they are tested, row by row.
constexpr std::array rules{
    BatchRule{
        Stage::CountyOfRow,
        {.broken = lacksCounty,
         .error = {.what = u"Invalid County Selection for field %n.",
                   .why = u"You must select a valid County for each number entered.",
                   .action = u"Remove the number entered or select a county for that number."}}},
    BatchRule{
        Stage::NumberOfRow,
        {.courts = superior,
         .broken = IsNoScomisNumber,
         .reaction = Reaction::AskToGoOn,
         .error = {.what = u"The number in FIELD %n appears to be a non-SCOMIS number.",
                   .why = u"Searching of Non-Scomis Case Numbers is Supported, but you Must Answer "
                          "OK When Prompted to Continue Searching With a Non-Scomis Case Number.",
                   .action = u"Please Correct the Case Number or Answer OK When Prompted to "
                             "Continue Searching With a Non-Scomis Case Number."},
         .box = {.text = u"The case/judgment number in FIELD %n appears to be a non-SCOMIS "
                         "number.\r\n\r\n"
                         "To continue the search using this number click OK.",
                 .icon = MessageIcon::Exclamation}}},
    BatchRule{
        Stage::NumberOfRow,
        {.courts = superior,
         .broken = IsRestrictedCaseType,
         .error = {.what = u"The Case Type Entered (%d) in FIELD %n is Restricted and Cannot be "
                           "Retrieved From This Court.",
                   .why = u"The Case Type Entered Cannot be '5' (Adoption), '6' (Mental Illness), "
                          "or '7' (Juvenile Dependency).",
                   .action = u"Please Correct the Case Type and Try this Search Again."}}},
    BatchRule{
        Stage::NumberOfRow,
        {.courts = superior,
         .broken = HasWrongCheckDigit,
         .error = {.what = u"The case/judgment number in FIELD %n is invalid for the county "
                           "chosen.",
                   .why = u"Washington Superior Court cases have unique case/judgment numbers in "
                          "each county.",
                   .action = u"Check the case number and the county.",
                   .caption = u"Case Number not found in this county."}}},
    BatchRule{Stage::Batch,
              {.courts = oregon,
               .broken = searchesMissingDistrictCourt,
               .reaction = Reaction::AskToPass,
               .box = noDistrictCourtWarning}},
};

Verdict applyStage(Stage stage, RuleContext &context)
{
    for (const BatchRule &row : rules) {
        if (row.stage != stage)
            continue;
        const Verdict verdict = ApplyRule(row.rule, context);
        if (verdict != Verdict::GoOn)
            return verdict;
    }
    return Verdict::GoOn;
}

Verdict applyToRows(Stage stage, RuleContext &context)
{
    for (size_t i = 0; i < context.entry.Batch.size(); ++i) {
        BatchRow &row = context.entry.Batch[i];
        if (TrimBlanks(row.Number).isEmpty())
            continue;
        context.row = i;
        context.number = &row.Number;
        context.county = row.County;
        const Verdict verdict = applyStage(stage, context);
        if (verdict != Verdict::GoOn)
            return verdict;
    }
    return Verdict::GoOn;
}
} // namespace

bool ValidateBatchSearchFields(SearchEntry &entry, FormTalk &talk)
{
    return TrapRunTimeErrors(u"ValidateBatchSearchFields", [&] {
        RuleContext context{entry, talk};
        for (const Stage stage : stages) {
            const Verdict verdict =
                stage == Stage::Batch ? applyStage(stage, context) : applyToRows(stage, context);
            if (verdict != Verdict::GoOn)
                return verdict == Verdict::Passed;
        }
        return true;
    });
}
