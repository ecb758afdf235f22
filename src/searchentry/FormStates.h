#pragma once

#include "searchentry/SearchEntry.h"

#include <QFlags>
#include <QStringView>

// The states of the search form and what each one shows, as tables: the form asks ViewOf what to
// show after every click and does nothing else about visibility. So what is seen depends on where
// the user is and never on the way there.

/// What can come and go on the form.
enum class FormPart : quint32 {
    CourtSelection = 1U << 0,    ///< Frame14 with optCourtSelection
    OrCDcourts = 1U << 1,        ///< optOrCDcourts
    UseIndex = 1U << 2,          ///< chkUseIndex
    BatchEntry = 1U << 3,        ///< chkBulkSearch
    BankruptcyTypes = 1U << 4,   ///< optSearchType 3 and 4
    Name = 1U << 5,              ///< Frame2
    Batch = 1U << 6,             ///< frameBulkSearch
    Jurisdictions = 1U << 7,     ///< Frame11
    OneJurisdiction = 1U << 8,   ///< Frame12
    CountyButtons = 1U << 9,     ///< Frame6
    DiscisCaseType = 1U << 10,   ///< Frame8
    DiscisCourtList = 1U << 11,  ///< Frame9
    BankruptcyCourts = 1U << 12, ///< frameBK1
    CaseTypes = 1U << 13,        ///< Frame4
    JudgmentsOnly = 1U << 14,    ///< optORjgmtsONLY
    Years = 1U << 15,            ///< Frame5
    BankruptcyYears = 1U << 16,  ///< frameBK2
    NumberExample = 1U << 17,    ///< lblCaseNumEx
    NameRecents = 1U << 18,      ///< cboxLastBizOrCase, when recent entries are offered at all
    NumberRecents = 1U << 19,    ///< cboxCaseMRUs, likewise
    CountyList = 1U << 20,       ///< lboxCountyOrProfile
    TemplateList = 1U << 21      ///< lboxSearchProfiles
};
Q_DECLARE_FLAGS(FormParts, FormPart)
Q_DECLARE_OPERATORS_FOR_FLAGS(FormParts)

/// What the form shows of one court family, beside what the table of courts says.
struct CourtRow
{
    CourtFamily court;
    int stateIndex;            ///< of optState
    int courtIndex;            ///< of optCourtSelection; -1 when the family has no button there
    QStringView caption;       ///< of the form
    QStringView courtLabel;    ///< lblCurrentCourt; empty hides it
    QStringView statewide;     ///< caption of optSearchWhere 2; empty leaves it
    QStringView numberExample; ///< lblCaseNumEx
};

/// One search type.
struct KindRow
{
    SearchKind kind;
    QStringView type;                  ///< strCurrentSearchType
    QStringView step;                  ///< title of Frame2
    std::array<QStringView, 4> labels; ///< of the name boxes; an empty one of 1 to 3 hides its box
    bool empties;                      ///< choosing it empties the name boxes
};

/// One scope of a search by county.
struct ScopeRow
{
    SearchScope where;
    QStringView label; ///< lblCountyOrProfile
};

/// Where the user is on the form.
struct FormState
{
    CourtFamily Court = CourtFamily::Superior;
    SearchKind Kind = SearchKind::Person;
    SearchScope Where = SearchScope::Counties; ///< of the county courts: 1, 2 or 3
    bool Batch = false;
    bool TemplateApplied = false; ///< the counties of a template stand in the county list

    bool operator==(const FormState &) const = default;
};

const std::array<CourtRow, 5> &CourtRows();
const CourtRow &CourtRowOf(CourtFamily court);
const KindRow &KindRowOf(SearchKind kind);
const ScopeRow &ScopeRowOf(SearchScope where);

/// The first court family of a state, by the index of its button.
CourtFamily FirstCourtOf(int stateIndex);

/// Whether it looks for a tax identifier or a social security number.
bool IsIdentifier(SearchKind kind);

/// The state with impossible combinations put right: tax identifiers and social security numbers
/// exist for the U.S. Courts only, a batch for numbers of the three states' own courts only.
FormState Settled(FormState state);

/// What the form shows in this state.
FormParts ViewOf(const FormState &state);
