#pragma once

#include <QString>
#include <QStringList>

// The county catalogues. Washington's and Oregon's names are built in and lie in files too; Idaho's
// are data only. The built-in names fill the lists of the search form, the files are what a
// statewide search walks.

/// The 39 Washington counties, in order.
QStringList WaCountyNames();

/// The 37 Oregon counties, in order.
QStringList OrCountyNames();

/// The county of a court code in a district or municipal result, "s01" to "s39"; "s1" to "s9" too.
/// "" for any other text.
QString CountyFromDiscisCode(const QString &code);

/// The three letters by which the Oregon courts call a county, "" when it is unknown. "Hood River"
/// is known as well as "Hood".
QString GetOrCountyCode(const QString &name);

/// The county of such a code: "Hood River" for "HOO". "" when it is unknown.
QString GetOrCountyName(const QString &code);

/// The first county of the Oregon list file that stands in the text with a blank on either side.
QString GetOrCountyFromList(const QString &text);

/// Counties without a District Court, and counties without Juvenile Offender support, as texts to
/// search in. The spellings are what the searches were agreed on.
QString OrCountiesWithoutDistrictCourt();
QString OrCountiesWithoutJuvenile();

/// What LoadWaCounties, LoadOrCounties and LoadIdCounties read from the files beside the program;
/// they answer the number of names.
const QStringList &WaCountyList();
const QStringList &OrCountyList();
const QStringList &IdCountyList();
int LoadWaCounties();
int LoadOrCounties();
int LoadIdCounties();

/// The number of counties of a state, "wa" or "wa." in any case, loaded now. A load that finds
/// nothing shows a box. 0 for any other state.
int GetCountyCount(const QString &state);
