#pragma once

#include "namesearch/SearchDesk.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"

// What the tests of the District and Municipal Courts' windows have in common.

/// Which of the results windows a data row is about.
enum class Which { Name, Civil, NonCivil };
Q_DECLARE_METATYPE(Which)

inline NameResultsWindow *MakeWindow(Which which)
{
    switch (which) {
    case Which::Civil:
        return new frmDiscisNameResults;
    case Which::NonCivil:
        return new frmDiscisNCNameResults;
    case Which::Name:
        break;
    }
    return new frmNameSearchResults(u"WA"_s);
}

/// A request line, as the search form makes it.
inline QString DistrictLine(const QString &court = u"BED"_s, const QString &kind = u"CV"_s)
{
    return u"WADISCIS/SEARCH/SMITH/JOHN/Q/%1/%2/CNCI/"_s.arg(court, kind).replace(u'/', u'\u00A6');
}

inline QString CaseRow(const QString &name)
{
    return name + u"~C0012345~BED~Benton District~CV~OPN~DEF~01/02/2002~"_s;
}

const QString inProgress =
    u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s;
const QString complete =
    u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s;
