#pragma once

#include <QString>
#include <QStringList>

/// What the user entered for a name search, as it stands on the form.
struct NameSearchEntry
{
    QString LastOrBusinessName;
    QString FirstName;
    QString MiddleInitial;
    QStringList Counties;  ///< in list order
    QStringList CaseTypes; ///< in list order
    bool Statewide = false;
    bool YearRange = false;
    QString FromYear; ///< read only with YearRange
    QString ToYear;
};

/// The request lines of a Washington Superior search, one a county. Statewide is no special case:
/// it is every county. Every field is followed by the broken bar, the last one too.
QStringList SuperiorNameRequests(const NameSearchEntry &entry);

/// The words in which the results window names the jurisdictions of such a search.
QString SuperiorJurisdictions(const NameSearchEntry &entry);
