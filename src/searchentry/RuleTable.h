#pragma once

#include "searchentry/FormTalk.h"
#include "searchentry/SearchEntry.h"

#include <QStringView>

#include <functional>

// The common parts of the tables in FieldRules*.cpp.

/// What the rules of one validation look at, and what they have found out so far.
struct RuleContext
{
    SearchEntry &entry;
    FormTalk &talk;
    QString *number = nullptr; ///< the case number under test
    QString county = {};       ///< the county that it should belong to
    size_t row = 0;            ///< its row in a batch
    QString scomis = {};       ///< the number in the form YY-T-NNNNN-C, "" when it has no such form
};

/// What happens when a rule is broken.
enum class Reaction {
    Refuse,    ///< its information box is shown, and the entries are refused
    Notify,    ///< the same with a message box
    Pass,      ///< nothing more is checked: the entries pass
    AskToGoOn, ///< its question is asked: on consent the next rule, otherwise as Refuse
    AskToPass, ///< its question is asked, and the answer is the result
};

/// The lines of an information box. "%n" stands for the number of the row in a batch, as the user
/// counts, and "%d" for the case type digit.
struct FieldErrorTexts
{
    QStringView what = {};
    QStringView why = {};
    QStringView action = {};
    QStringView caption = {};
};

/// A message box; the same marks stand for the same.
struct BoxTexts
{
    QStringView text = {};
    QStringView title = {};
    MessageIcon icon = MessageIcon::Information;
    QuestionButtons buttons = QuestionButtons::OkCancel; ///< of a question
};

/// Sets of search kinds and of court families, one bit each.
constexpr unsigned BitOf(SearchKind kind)
{
    return 1U << static_cast<unsigned>(kind);
}
constexpr unsigned BitOf(CourtFamily court)
{
    return 1U << static_cast<unsigned>(court);
}
constexpr unsigned anyKind = ~0U;
constexpr unsigned anyCourt = ~0U;

struct FieldRule
{
    unsigned kinds = anyKind;   ///< the searches that it concerns
    unsigned courts = anyCourt; ///< the courts that it concerns
    bool (*broken)(RuleContext &context) = nullptr;
    Reaction reaction = Reaction::Refuse;
    FieldErrorTexts error = {};
    BoxTexts box = {};
};

enum class Verdict { GoOn, Passed, Refused };

/// Tests one rule and does what it asks for when it is broken.
Verdict ApplyRule(const FieldRule &rule, RuleContext &context);

/// Runs a validation. A run-time error is logged under the procedure's name and is a refusal.
bool TrapRunTimeErrors(QStringView procedure, const std::function<bool()> &validation);

// Conditions that more than one table has.

/// Rewrites the number in the form of a SCOMIS number and keeps it; true when it cannot be one.
bool IsNoScomisNumber(RuleContext &context);
/// The number is of a case type that the courts keep closed.
bool IsRestrictedCaseType(RuleContext &context);
/// The county has a code, and the number's check digit is another county's.
bool HasWrongCheckDigit(RuleContext &context);

/// The question about searching Oregon's District Courts in counties that have none.
constexpr BoxTexts noDistrictCourtWarning{
    .text = u"One or more of the Counties you selected does not support District Court searches. "
            "The following counties Do NOT have District Court support.\r\n\r\n"
            "Baker, Gilliam, Grant, Harney, Sherman, and Wheeler.\r\n\r\n"
            "Select Yes to continue with the currrent search criteria (skipping counties without "
            "District Court).  Select No to refine the search criteria entered.\r\n\r\n"
            "Continue?",
    .title = u"Warning - No District Court Support ..",
    .icon = MessageIcon::Exclamation,
    .buttons = QuestionButtons::YesNo};
