#pragma once

#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"

// The wire of an index search, for the tests of its window.

/// The request for a page.
inline QString IndexLine(int lower = 1, int upper = 500)
{
    return u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=%1~UL=%2~"_s.arg(lower)
        .arg(upper);
}

inline QString IndexRow(const QString &name)
{
    return name + u"~02-1-02029-9~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"_s;
}

/// The warning behind a page that has a next one.
inline QString LimitRow(int last, int left)
{
    return u"WARNING~Reached Search Limit~%1~%2~"_s.arg(last).arg(left);
}
