#pragma once

#include <QString>

#include <array>

// What tells one court from another is this one table, a row for each. Where a window, a request or
// a reply depends on the court, it asks its row; a new court begins with a new row.

/// The court families, in the order of the list of jurisdictions.
enum class CourtFamily { Superior, Discis, Oregon, Idaho, Bankruptcy };

/// The systems that answer requests, in the order of the table.
enum class CourtSystem {
    Superior,
    Index, ///< the weekly index of the Superior Courts
    DiscisNonCivil,
    DiscisCivil,
    Oregon,
    Idaho,
    WesternBankruptcy,
    EasternBankruptcy,
    OregonBankruptcy,
    IdahoBankruptcy
};

namespace CourtWire {
constexpr char16_t bar = u'\u00A6';
constexpr char16_t tilde = u'~';
constexpr char16_t at = u'@';
constexpr QStringView searchStop = u"STOP\u00A6";
constexpr QStringView caseStop = u"\u00A6STOP";
constexpr QStringView bankruptcyStop = u"BKRPT~STOP~";
} // namespace CourtWire

/// One system. A text that it has no use for is empty.
struct CourtFacts
{
    CourtSystem System;
    CourtFamily Family;

    QStringView State = u"";        ///< the state word of a job, lblState
    QStringView SearchState = u"";  ///< strSearchState, which all bankruptcy courts share
    QStringView CurrentCourt = u""; ///< strCurrentCourt, likewise

    // Names
    QStringView Display = u"";        ///< in the session's search log
    QStringView Courts = u"";         ///< behind a county
    QStringView DistrictCourts = u""; ///< the same where the District Courts were asked for
    QStringView OfNumber = u"";       ///< bankruptcy: of a case that was asked for by its number
    QStringView OfRow = u"";          ///< bankruptcy: of a case that was opened from a list
    QStringView OfList = u"";         ///< bankruptcy: in the heading of a list

    // The wire
    QStringView Word = u"";                    ///< the first field of a request
    QStringView Place = u"";                   ///< bankruptcy: the court, in the field of the place
    char16_t SearchDelimiter = CourtWire::bar; ///< behind each field of a search
    char16_t CaseDelimiter = CourtWire::bar;   ///< behind each field of a case's tab
    QStringView SearchStop = CourtWire::searchStop; ///< what stops a search
    QStringView CaseStop = CourtWire::caseStop;     ///< what stops the retrieval of a case
    QStringView DocumentsWord = u""; ///< the first field when the documents of a case are asked for
    QStringView TabsSection = u"";   ///< of options.ini: which tabs are fetched at once
};

constexpr std::array<CourtFacts, 10> courtTable{{
    {.System = CourtSystem::Superior,
     .Family = CourtFamily::Superior,
     .State = u"WA",
     .SearchState = u"WA",
     .CurrentCourt = u"WASUP",
     .Display = u"WA Superior Courts",
     .Courts = u"Washington Superior Courts",
     .DistrictCourts = u"Washington Superior Courts",
     .Word = u"WASUP",
     .DocumentsWord = u"WASUPDOC",
     .TabsSection = u"CaseSearchTabs"},
    {.System = CourtSystem::Index,
     .Family = CourtFamily::Superior,
     .State = u"WA",
     .SearchState = u"WA",
     .CurrentCourt = u"WASUP",
     .Display = u"WA Superior Courts",
     .Courts = u"Washington Superior Courts",
     .DistrictCourts = u"Washington Superior Courts",
     .Word = u"INDEX",
     .SearchDelimiter = CourtWire::tilde,
     .DocumentsWord = u"WASUPDOC",
     .TabsSection = u"CaseSearchTabs"},
    {.System = CourtSystem::DiscisNonCivil,
     .Family = CourtFamily::Discis,
     .State = u"WA",
     .SearchState = u"WA",
     .CurrentCourt = u"WADISCIS",
     .Display = u"WA District & Municipal Courts",
     .Word = u"WADISCIS",
     .TabsSection = u"NonCivilCaseTabs"},
    {.System = CourtSystem::DiscisCivil,
     .Family = CourtFamily::Discis,
     .State = u"WA",
     .SearchState = u"WA",
     .CurrentCourt = u"WADISCIS",
     .Display = u"WA District & Municipal Courts",
     .Word = u"WADISCIS",
     .TabsSection = u"CivilCaseTabs"},
    {.System = CourtSystem::Oregon,
     .Family = CourtFamily::Oregon,
     .State = u"OR",
     .SearchState = u"OR",
     .CurrentCourt = u"OR",
     .Display = u"OR Circuit/District Courts",
     .Courts = u"Oregon Circuit Courts",
     .DistrictCourts = u"Oregon District Courts",
     .Word = u"OREGON",
     .CaseDelimiter = CourtWire::at,
     .TabsSection = u"OrCaseSearchTabs"},
    {.System = CourtSystem::Idaho,
     .Family = CourtFamily::Idaho,
     .State = u"ID",
     .SearchState = u"ID",
     .CurrentCourt = u"IDSUP",
     .Display = u"ID District Courts",
     .Courts = u"Idaho District Courts",
     .DistrictCourts = u"Idaho District Courts",
     .Word = u"IDSUP",
     .TabsSection = u"IdCaseSearchTabs"},
    {.System = CourtSystem::WesternBankruptcy,
     .Family = CourtFamily::Bankruptcy,
     .State = u"WAWBK",
     .SearchState = u"FED",
     .CurrentCourt = u"FED",
     .Display = u"Federal Bankruptcy Courts",
     .OfNumber = u"Washington Bankruptcy Courts (Western)",
     .OfRow = u"Washington Western Bankruptcy Courts",
     .OfList = u"Washington Western Bankruptcy",
     .Word = u"BKRPT",
     .Place = u"WAW",
     .SearchDelimiter = CourtWire::tilde,
     .CaseDelimiter = CourtWire::tilde,
     .SearchStop = CourtWire::bankruptcyStop,
     .CaseStop = CourtWire::bankruptcyStop},
    {.System = CourtSystem::EasternBankruptcy,
     .Family = CourtFamily::Bankruptcy,
     .State = u"WAEBK",
     .SearchState = u"FED",
     .CurrentCourt = u"FED",
     .Display = u"Federal Bankruptcy Courts",
     .OfNumber = u"Washington Bankruptcy Courts (Eastern)",
     .OfRow = u"Washington Eastern Bankruptcy Courts",
     .OfList = u"Washington Eastern Bankruptcy",
     .Word = u"BKRPT",
     .Place = u"WAE",
     .SearchDelimiter = CourtWire::tilde,
     .CaseDelimiter = CourtWire::tilde,
     .SearchStop = CourtWire::bankruptcyStop,
     .CaseStop = CourtWire::bankruptcyStop},
    {.System = CourtSystem::OregonBankruptcy,
     .Family = CourtFamily::Bankruptcy,
     .State = u"ORBK",
     .SearchState = u"FED",
     .CurrentCourt = u"FED",
     .Display = u"Federal Bankruptcy Courts",
     .OfNumber = u"Oregon Bankruptcy Courts (Statewide)",
     .OfRow = u"Oregon Bankruptcy Court (Statewide)",
     .OfList = u"Oregon Bankruptcy",
     .Word = u"BKRPT",
     .Place = u"OR",
     .SearchDelimiter = CourtWire::tilde,
     .CaseDelimiter = CourtWire::tilde,
     .SearchStop = CourtWire::bankruptcyStop,
     .CaseStop = CourtWire::bankruptcyStop},
    // A search of Idaho's bankruptcy court is stopped as those of the states are.
    {.System = CourtSystem::IdahoBankruptcy,
     .Family = CourtFamily::Bankruptcy,
     .State = u"IDBK",
     .SearchState = u"FED",
     .CurrentCourt = u"FED",
     .Display = u"Federal Bankruptcy Courts",
     .OfNumber = u"Idaho Bankruptcy Courts (Statewide)",
     .OfRow = u"Idaho Bankruptcy Court (Statewide)",
     .OfList = u"Idaho Bankruptcy",
     .Word = u"BKRPT",
     .Place = u"ID",
     .SearchDelimiter = CourtWire::tilde,
     .CaseDelimiter = CourtWire::tilde,
     .SearchStop = CourtWire::searchStop,
     .CaseStop = CourtWire::bankruptcyStop},
}};

constexpr bool courtTableStandsInOrder()
{
    for (size_t i = 0; i < courtTable.size(); ++i) {
        if (courtTable.at(i).System != static_cast<CourtSystem>(i))
            return false;
    }
    return true;
}
static_assert(courtTableStandsInOrder());

constexpr const CourtFacts &CourtOf(CourtSystem system)
{
    return courtTable.at(static_cast<size_t>(system));
}

/// The first court of a family: what all of the family share.
constexpr const CourtFacts &CourtOf(CourtFamily family)
{
    size_t i = 0;
    while (courtTable.at(i).Family != family)
        ++i;
    return courtTable.at(i);
}

/// The court of a job by its state word; nullptr for any other text. "WA" is the Superior Courts:
/// which of the others is meant, the kind of window says.
const CourtFacts *CourtOfState(QStringView state);

/// The family of a job's court. A word that no court has counts as Washington's.
CourtFamily FamilyOfState(QStringView state);

/// Whether the state of a job is one of the bankruptcy courts: "WAWBK", "WAEBK", "IDBK" or "ORBK".
bool IsBankruptcyCourt(QStringView state);

/// The courts of a county, as windows name them: "King County, Washington Superior Courts".
QString CourtsOfCounty(const QString &county, CourtFamily family, bool districtCourts = false);

/// What stops a search, or the retrieval of a case, of a court. A word that no court has is stopped
/// as Washington's.
QString SearchStopOf(QStringView state);
QString CaseStopOf(QStringView state);
