#include "searchentry/FormStates.h"

namespace {
constexpr std::array<CourtRow, 5> courtRows{{
    {CourtFamily::Superior, 1, 0, u"Search Entry Form - WA. Superior Courts",
     u"[Current Court  -  WA Superior]", u"State&wide (39 Counties)", u"(ex. 09-2-02029-9)"},
    {CourtFamily::Discis, 1, 1, u"Search Entry Form - WA. District & Municipal Courts",
     u"[Current Court  -  WA District & Municipal]", u"", u"(ex. 3YH809020)"},
    {CourtFamily::Oregon, 0, -1, u"Search Entry Form - OR. Circuit/District Court", u"",
     u"State&wide (37 Counties)", u"(ex. CV08060677)"},
    {CourtFamily::Idaho, 3, -1, u"Search Entry Form - ID. District Courts", u"",
     u"State&wide (44 Counties)", u"(ex. CR-1998-0002546-IN)"},
    {CourtFamily::Bankruptcy, 2, -1, u"Search Entry Form - Federal Bankruptcy Courts", u"", u"",
     u"(ex. 99-20077)"},
}};

constexpr QStringView enterNumber = u" STEP 3:   Enter Number";

constexpr std::array<KindRow, 5> kindRows{{
    {SearchKind::Person,
     u"Individual Name",
     u" STEP 3:   Enter Name",
     {u"Last Name:", u"First Name:", u"M.I.:", u"Suffix (Jr. etc.):"},
     true},
    {SearchKind::Business,
     u"Business Name",
     u" STEP 3:   Enter Business Name",
     {u"Business Name:", u"", u"", u""},
     true},
    {SearchKind::Number, u"Case Number", enterNumber, {u"Number:", u"", u"", u""}, false},
    {SearchKind::TaxId, u"Case Number", enterNumber, {u"Tax ID Number:", u"", u"", u""}, false},
    {SearchKind::Ssn, u"Case Number", enterNumber, {u"SSN Number:", u"", u"", u""}, false},
}};

constexpr std::array<ScopeRow, 3> scopeRows{{
    {SearchScope::Counties, u"Select County (multiple selections allowed):"},
    {SearchScope::Template, u"Select the Template to use by Double-Clicking:"},
    {SearchScope::Statewide, u"Select County (Statewide Selected):"},
}};

/// What a court shows for names, for case numbers, and for the two identifiers that only the U.S.
/// Courts know. Recent tax identifiers stand among the business names; for a social security number
/// nothing is offered.
struct PartsRow
{
    CourtFamily court;
    FormParts names;
    FormParts numbers;
    FormParts taxIds;
    FormParts ssns;
};

using enum FormPart;
constexpr FormParts namesOfCounties = Name | NameRecents | Jurisdictions | CaseTypes | Years;
constexpr FormParts numberOfCounty =
    Name | NumberExample | NumberRecents | OneJurisdiction | BatchEntry;
constexpr FormParts discisCourts = CourtSelection | Name | DiscisCaseType | DiscisCourtList;
constexpr FormParts bankruptcy = BankruptcyTypes | Name | BankruptcyCourts;

constexpr std::array<PartsRow, 5> partsRows{{
    {CourtFamily::Superior,
     namesOfCounties | CourtSelection | UseIndex,
     numberOfCounty | CourtSelection,
     {},
     {}},
    {CourtFamily::Discis,
     discisCourts | NameRecents,
     discisCourts | NumberExample | NumberRecents,
     {},
     {}},
    {CourtFamily::Oregon,
     namesOfCounties | OrCDcourts | JudgmentsOnly,
     numberOfCounty | OrCDcourts,
     {},
     {}},
    {CourtFamily::Idaho, namesOfCounties, numberOfCounty, {}, {}},
    {CourtFamily::Bankruptcy, bankruptcy | NameRecents | BankruptcyYears,
     bankruptcy | NumberExample | NumberRecents, bankruptcy | NameRecents | BankruptcyYears,
     bankruptcy | BankruptcyYears},
}};

/// What a batch of numbers takes the place of.
constexpr FormParts replacedByBatch = Name | OneJurisdiction | NumberExample | NumberRecents;

} // namespace

const std::array<CourtRow, 5> &CourtRows()
{
    return courtRows;
}

const CourtRow &CourtRowOf(CourtFamily court)
{
    return courtRows.at(static_cast<size_t>(court));
}

const KindRow &KindRowOf(SearchKind kind)
{
    return kindRows.at(static_cast<size_t>(kind));
}

const ScopeRow &ScopeRowOf(SearchScope where)
{
    return scopeRows.at(static_cast<size_t>(where) - 1);
}

CourtFamily FirstCourtOf(int stateIndex)
{
    for (const CourtRow &row : courtRows) {
        if (row.stateIndex == stateIndex)
            return row.court;
    }
    return CourtFamily::Superior;
}

bool IsIdentifier(SearchKind kind)
{
    return kind == SearchKind::TaxId || kind == SearchKind::Ssn;
}

FormState Settled(FormState state)
{
    if (state.Court != CourtFamily::Bankruptcy && IsIdentifier(state.Kind))
        state.Kind = SearchKind::Person;
    FormState single = state;
    single.Batch = false;
    state.Batch = state.Batch && ViewOf(single).testFlag(BatchEntry);
    state.TemplateApplied = state.TemplateApplied && state.Where == SearchScope::Template;
    return state;
}

FormParts ViewOf(const FormState &state)
{
    const PartsRow &row = partsRows.at(static_cast<size_t>(state.Court));
    const std::array<FormParts, 5> ofKind{row.names, row.names, row.numbers, row.taxIds, row.ssns};
    FormParts parts = ofKind.at(static_cast<size_t>(state.Kind));
    if (state.Batch)
        parts = (parts & ~replacedByBatch) | Batch;
    if (parts.testFlag(Jurisdictions)) {
        const bool templates = state.Where == SearchScope::Template && !state.TemplateApplied;
        parts |= templates ? TemplateList : CountyList;
        // One click for the commonest case, a search of one county. Washington's counties only.
        if (state.Court == CourtFamily::Superior && state.Where == SearchScope::Counties)
            parts |= CountyButtons;
    }
    return parts;
}
