#include "searchentry/FieldRules.h"

namespace {
enum NameBox { LastName, FirstName, MiddleInitial, Suffix };

constexpr std::array<FieldRule, 6> rules{{
    {[](const FormEntries &e) { return !e.Business && e.Names[LastName].isEmpty(); },
     u"The LAST NAME Field Is Empty!",
     u"This is a required field and Has a Minimum Length of 1 Character.",
     u"Please enter a Last Name or Select Cancel to Continue."},
    {[](const FormEntries &e) { return e.Business && e.Names[LastName].isEmpty(); },
     u"The BUSINESS NAME Field Is Empty!",
     u"This is a required field and Has a Minimum Length of 1 Character.",
     u"Please enter a Business Name or Select Cancel to Continue."},
    {[](const FormEntries &e) {
         return !e.Names[MiddleInitial].isEmpty() && e.Names[FirstName].isEmpty();
     },
     u"The FIRST NAME Field Is Empty!",
     u"This is a required field when a MIDDLE INITIAL is entered.",
     u"Please enter a First Name or Remove the Middle Initial to Continue."},
    {[](const FormEntries &e) {
         return !e.Names[Suffix].isEmpty() && e.Names[FirstName].isEmpty();
     },
     u"The FIRST NAME Field Is Empty!", u"This is a required field when a SUFFIX is entered.",
     u"Please enter a First Name or Remove the Suffix to Continue."},
    {[](const FormEntries &e) { return e.ByCounty && e.Counties.isEmpty(); },
     u"You Have Not Selected a County!",
     u"At least one selection is required when searching County Jurisdictions.",
     u"Please Select a County(s) or Change Jurisidiction to Continue."},
    {[](const FormEntries &e) { return e.CaseTypes.isEmpty(); },
     u"You Have Not Selected a Case Type!", u"At least one Case Type Must be Selected",
     u"Please Select a Case Type(s) to Continue with this Search."},
}};
} // namespace

const FieldRule *FirstBrokenRule(const FormEntries &entries)
{
    for (const FieldRule &rule : rules) {
        if (rule.fails(entries))
            return &rule;
    }
    return nullptr;
}
