#pragma once

#include "courts/CourtTable.h"

#include <QString>
#include <QStringList>

#include <array>

/// What a search looks for, in the order of the search type buttons.
enum class SearchKind { Person, Business, Number, TaxId, Ssn };

/// Where a search looks: the values of intSearchWhere.
enum class SearchScope : qint16 {
    Counties = 1,
    Template = 2, ///< counties too, chosen by a template
    Statewide = 3,
    DiscisCivil = 5,
    DiscisNonCivil = 6
};

/// The boxes of a name: the order of txtSearchName.
enum NameBox : size_t { LastName, FirstName, MiddleInitial, Suffix };

/// One row of a batch of numbers.
struct BatchRow
{
    QString Number;
    QString County; ///< the text of its county box, "---- NO SELECTION ----" included

    bool operator==(const BatchRow &) const = default;
};

/// What an unset county box of the batch reads.
constexpr QStringView noCountySelected = u"---- NO SELECTION ----";

/// What the user entered, as it stands on the search form: read once at the start of a search, so
/// that nothing that happens while a search is being built can change it.
struct SearchEntry
{
    CourtFamily Court = CourtFamily::Superior;
    SearchKind Kind = SearchKind::Person;
    QString CourtName; ///< how the court is called in the session's list of searches
    SearchScope Where = SearchScope::Counties;

    std::array<QString, 4> Names; ///< box 0 holds the business name or the number as well

    QStringList Counties;       ///< chosen in lboxCountyOrProfile, in list order
    QString NumberCounty;       ///< chosen in lboxMultiJurisdiction; "" when none is
    QStringList CaseTypes;      ///< chosen in lboxCaseTypes, in list order
    bool JudgmentsOnly = false; ///< optORjgmtsONLY
    bool UseIndex = false;      ///< chkUseIndex
    bool DistrictCourt = false; ///< optOrCDcourts item 1: Oregon's District, not Circuit

    int DiscisCountyIndex = -1; ///< the list index of cboxCountyList
    QString DiscisCounty;       ///< its text
    QStringList DiscisItems;    ///< all of lboxDiscisCourtNames
    QStringList DiscisSelected; ///< the chosen ones, in list order

    std::array<bool, 4> BkCourts{}; ///< chkBKcourt

    bool YearRange = false; ///< "Range", in the years frame of this court
    QString FromYear;       ///< the texts of that frame's boxes; read only with YearRange
    QString ToYear;

    std::array<BatchRow, 10> Batch;

    bool operator==(const SearchEntry &) const = default;
};
