#include "searchentry/RuleTable.h"

#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "searchentry/CaseNumbers.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype caseTypePosition = 3; ///< in YY-T-NNNNN-C
constexpr QStringView restrictedCaseTypes = u"567";

QString filledIn(QStringView text, const RuleContext &context)
{
    QString result = text.toString();
    result.replace(u"%n"_s, QString::number(context.row + 1));
    if (!context.scomis.isEmpty())
        result.replace(u"%d"_s, QString(context.scomis[caseTypePosition]));
    return result;
}

void showFieldError(const FieldErrorTexts &error, const RuleContext &context)
{
    context.talk.ShowFieldError(filledIn(error.what, context), filledIn(error.why, context),
                                filledIn(error.action, context), filledIn(error.caption, context));
}

bool ask(const BoxTexts &box, const RuleContext &context)
{
    return context.talk.Ask(filledIn(box.text, context), box.title.toString(), box.buttons,
                            box.icon);
}

bool concerns(const FieldRule &rule, const SearchEntry &entry)
{
    return (rule.kinds & BitOf(entry.Kind)) != 0 && (rule.courts & BitOf(entry.Court)) != 0;
}
} // namespace

Verdict ApplyRule(const FieldRule &rule, RuleContext &context)
{
    if (!concerns(rule, context.entry) || !rule.broken(context))
        return Verdict::GoOn;
    switch (rule.reaction) {
    case Reaction::Refuse:
        showFieldError(rule.error, context);
        break;
    case Reaction::Notify:
        context.talk.Notice(filledIn(rule.box.text, context), rule.box.title.toString(),
                            rule.box.icon);
        break;
    case Reaction::Pass:
        return Verdict::Passed;
    case Reaction::AskToGoOn:
        if (ask(rule.box, context))
            return Verdict::GoOn;
        showFieldError(rule.error, context);
        break;
    case Reaction::AskToPass:
        return ask(rule.box, context) ? Verdict::Passed : Verdict::Refused;
    }
    return Verdict::Refused;
}

bool TrapRunTimeErrors(QStringView procedure, const std::function<bool()> &validation)
{
    try {
        return validation();
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error in "_s + procedure + u"() - Error was: "_s + error.Description()
                     + u". Number: "_s + QString::number(error.Number()));
        return false;
    }
}

bool IsNoScomisNumber(RuleContext &context)
{
    QString number = TrimBlanks(*context.number);
    context.scomis.clear();
    if (!FormatScomisNumber(number))
        return true;
    context.scomis = number;
    *context.number = number;
    return false;
}

bool IsRestrictedCaseType(RuleContext &context)
{
    return !context.scomis.isEmpty()
           && restrictedCaseTypes.contains(context.scomis[caseTypePosition]);
}

bool HasWrongCheckDigit(RuleContext &context)
{
    if (context.scomis.isEmpty())
        return false;
    const QString code = ScomisCountyCode(context.county);
    return !code.isEmpty()
           && ComputeScomisCheckDigit(code, context.scomis) != context.scomis.back();
}
