#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>

// What the search form shows at each place a user can get to, written down once more and by hand:
// nothing here asks the form's own tables.

/// The court families, by the rows of the list of jurisdictions.
enum Family { Superior, Discis, Oregon, Idaho, Federal };

/// Where a user is on the form.
struct Place
{
    int Court = Superior;
    int Type = 0;        ///< the index of the chosen optSearchType
    int Where = 1;       ///< 1 counties, 2 templates, 3 statewide
    int DiscisWhere = 5; ///< 5 civil, 6 non-civil
    bool Batch = false;

    bool operator==(const Place &) const = default;
};

struct FamilyText
{
    int optState;
    const char *searchState;
    const char *currentCourt;
    const char *caption;
    const char *courtLabel; ///< "" when none is shown
    const char *statewide;  ///< "" where the form offers no statewide button
    const char *example;
    const char *caseTypes;
};
inline constexpr std::array<FamilyText, 5> familyTexts{{
    {1, "WA", "WASUP", "Search Entry Form - WA. Superior Courts", "[Current Court  -  WA Superior]",
     "State&wide (39 Counties)", "(ex. 09-2-02029-9)",
     "Civil,Criminal,Domestic,Judgment,Juvenile Offender,Probate"},
    {1, "WA", "WADISCIS", "Search Entry Form - WA. District & Municipal Courts",
     "[Current Court  -  WA District & Municipal]", "", "(ex. 3YH809020)", "NOT FOUND!!"},
    {0, "OR", "OR", "Search Entry Form - OR. Circuit/District Court", "",
     "State&wide (37 Counties)", "(ex. CV08060677)",
     "Civil,Domestic,Juvenile Offender,Offense,Probate,Small Claims"},
    {3, "ID", "IDSUP", "Search Entry Form - ID. District Courts", "", "State&wide (44 Counties)",
     "(ex. CR-1998-0002546-IN)", "Civil,Criminal,Juvenile"},
    {2, "FED", "FED", "Search Entry Form - Federal Bankruptcy Courts", "", "", "(ex. 99-20077)",
     "NOT FOUND!!"},
}};

struct TypeText
{
    const char *searchType;
    const char *step;
    std::array<const char *, 4> labels;
};
inline constexpr std::array<TypeText, 5> typeTexts{{
    {"Individual Name",
     " STEP 3:   Enter Name",
     {"Last Name:", "First Name:", "M.I.:", "Suffix (Jr. etc.):"}},
    {"Business Name", " STEP 3:   Enter Business Name", {"Business Name:", "", "", ""}},
    {"Case Number", " STEP 3:   Enter Number", {"Number:", "", "", ""}},
    {"Case Number", " STEP 3:   Enter Number", {"Tax ID Number:", "", "", ""}},
    {"Case Number", " STEP 3:   Enter Number", {"SSN Number:", "", "", ""}},
}};

inline constexpr std::array<const char *, 3> scopeLabels{
    "Select County (multiple selections allowed):",
    "Select the Template to use by Double-Clicking:",
    "Select County (Statewide Selected):",
};

/// Everything on the form that comes and goes.
inline const QList<QByteArray> comingAndGoing{
    "Frame14",
    "frameOrCDcourts",
    "chkUseIndex",
    "chkBulkSearch",
    "optSearchType_3",
    "optSearchType_4",
    "Frame2",
    "lblCaseNumEx",
    "lblMruList",
    "cboxLastBizOrCase",
    "cboxCaseMRUs",
    "frameBulkSearch",
    "Frame11",
    "Frame12",
    "Frame6",
    "lboxCountyOrProfile",
    "lboxSearchProfiles",
    "Frame8",
    "Frame9",
    "frameBK1",
    "Frame4",
    "optORjgmtsONLY",
    "Frame5",
    "frameBK2",
};

struct ShownRow
{
    int court;
    int type;
    bool batch;
    const char *shown;
};
inline constexpr std::array<ShownRow, 20> shownRows{{
    {Superior, 0, false,
     "Frame14 chkUseIndex Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 Frame5"},
    {Superior, 1, false,
     "Frame14 chkUseIndex Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 Frame5"},
    {Superior, 2, false,
     "Frame14 chkBulkSearch Frame2 lblCaseNumEx lblMruList cboxCaseMRUs Frame12"},
    {Superior, 2, true, "Frame14 chkBulkSearch frameBulkSearch"},
    {Discis, 0, false, "Frame14 Frame2 lblMruList cboxLastBizOrCase Frame8 Frame9"},
    {Discis, 1, false, "Frame14 Frame2 lblMruList cboxLastBizOrCase Frame8 Frame9"},
    {Discis, 2, false, "Frame14 Frame2 lblCaseNumEx lblMruList cboxCaseMRUs Frame8 Frame9"},
    {Oregon, 0, false,
     "frameOrCDcourts Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 optORjgmtsONLY Frame5"},
    {Oregon, 1, false,
     "frameOrCDcourts Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 optORjgmtsONLY Frame5"},
    {Oregon, 2, false,
     "frameOrCDcourts chkBulkSearch Frame2 lblCaseNumEx lblMruList cboxCaseMRUs Frame12"},
    {Oregon, 2, true, "frameOrCDcourts chkBulkSearch frameBulkSearch"},
    {Idaho, 0, false, "Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 Frame5"},
    {Idaho, 1, false, "Frame2 lblMruList cboxLastBizOrCase Frame11 Frame4 Frame5"},
    {Idaho, 2, false, "chkBulkSearch Frame2 lblCaseNumEx lblMruList cboxCaseMRUs Frame12"},
    {Idaho, 2, true, "chkBulkSearch frameBulkSearch"},
    {Federal, 0, false,
     "optSearchType_3 optSearchType_4 Frame2 lblMruList cboxLastBizOrCase frameBK1 frameBK2"},
    {Federal, 1, false,
     "optSearchType_3 optSearchType_4 Frame2 lblMruList cboxLastBizOrCase frameBK1 frameBK2"},
    {Federal, 2, false,
     "optSearchType_3 optSearchType_4 Frame2 lblCaseNumEx lblMruList cboxCaseMRUs frameBK1"},
    {Federal, 3, false,
     "optSearchType_3 optSearchType_4 Frame2 lblMruList cboxLastBizOrCase frameBK1 frameBK2"},
    {Federal, 4, false, "optSearchType_3 optSearchType_4 Frame2 frameBK1 frameBK2"},
}};

/// The row of a place; null for one that nobody can get to.
inline const ShownRow *ShownRowOf(const Place &place)
{
    for (const ShownRow &row : shownRows) {
        if (row.court == place.Court && row.type == place.Type && row.batch == place.Batch)
            return &row;
    }
    return nullptr;
}

/// What is seen of `comingAndGoing`, sorted. What the choice of counties shows goes by its scope.
inline QList<QByteArray> ShownAt(const Place &place, bool templateApplied = false)
{
    const ShownRow *row = ShownRowOf(place);
    QList<QByteArray> shown = row ? QByteArray(row->shown).split(' ') : QList<QByteArray>();
    if (shown.contains("Frame11")) {
        shown.append(place.Where == 2 && !templateApplied ? "lboxSearchProfiles"
                                                          : "lboxCountyOrProfile");
        if (place.Court == Superior && place.Where == 1)
            shown.append("Frame6");
    }
    std::sort(shown.begin(), shown.end());
    return shown;
}

inline bool ByCounty(int court)
{
    return court != Discis && court != Federal;
}

/// All places, each once. A number keeps the scope that was chosen for names, for the next name.
inline QList<Place> AllPlaces()
{
    QList<Place> all;
    for (const ShownRow &row : shownRows) {
        const Place place{row.court, row.type, 1, 5, row.batch};
        const int last = ByCounty(row.court) ? 3 : 1;
        for (int where = 1; where <= last; ++where) {
            Place one = place;
            one.Where = where;
            all.append(one);
        }
        if (row.court == Discis) {
            Place one = place;
            one.DiscisWhere = 6;
            all.append(one);
        }
    }
    return all;
}

inline QByteArray NameOf(const Place &place)
{
    return QByteArray(familyTexts[static_cast<size_t>(place.Court)].currentCourt) + " type "
           + QByteArray::number(place.Type) + " where "
           + QByteArray::number(place.Court == Discis ? place.DiscisWhere : place.Where)
           + (place.Batch ? " batch" : "");
}

// ---- where a click leads ----

inline void GoToCourt(Place &place, int court)
{
    if (place.Court == court)
        return;
    const int type = court != Federal && place.Type > 2 ? 0 : place.Type;
    place = {court, type, 1, 5, false};
}

/// A click on this control. A second one on the chosen button leads nowhere.
inline Place After(Place place, const QByteArray &control)
{
    const int index = control.right(1).toInt();
    const FamilyText &family = familyTexts[static_cast<size_t>(place.Court)];
    if (control.startsWith("optState_") && family.optState != index) {
        constexpr std::array<int, 4> firstOfState{Oregon, Superior, Federal, Idaho};
        GoToCourt(place, firstOfState[static_cast<size_t>(index)]);
    } else if (control.startsWith("optCourtSelection_")) {
        GoToCourt(place, index == 0 ? Superior : Discis);
    } else if (control.startsWith("lstJurisdictions_")) {
        GoToCourt(place, index);
    } else if (control.startsWith("optSearchType_") && place.Type != index) {
        place.Type = index;
        place.Batch = false;
    } else if (control.startsWith("optSearchWhere_")) {
        place.Where = index + 1;
    } else if (control.startsWith("optDiscisSearch_")) {
        place.DiscisWhere = 5 + index;
    } else if (control == "chkBulkSearch") {
        place.Batch = !place.Batch;
    } else if (control == "cmdClearForm") {
        place.Type = 0;
        place.Where = 1;
        place.Batch = false;
    }
    return place;
}

/// The clicks that lead from a place to another, whatever the first one is.
inline QList<QByteArray> WayTo(const Place &to)
{
    QList<QByteArray> clicks;
    const FamilyText &family = familyTexts[static_cast<size_t>(to.Court)];
    clicks.append("optState_" + QByteArray::number(family.optState));
    if (to.Court == Superior || to.Court == Discis)
        clicks.append(to.Court == Superior ? "optCourtSelection_0" : "optCourtSelection_1");
    if (ByCounty(to.Court)) {
        clicks.append(to.Type == 1 ? "optSearchType_1" : "optSearchType_0");
        clicks.append("optSearchWhere_" + QByteArray::number(to.Where - 1));
    }
    clicks.append("optSearchType_" + QByteArray::number(to.Type));
    if (to.Court == Discis)
        clicks.append(to.DiscisWhere == 5 ? "optDiscisSearch_0" : "optDiscisSearch_1");
    return clicks;
}
