#pragma once

#include "courts/DiscisCourts.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"

#include <QTest>

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
    return u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦%1¦%2¦CNCI¦"_s.arg(court, kind);
}

inline QString CaseRow(const QString &name)
{
    return name + u"~C0012345~BED~Benton District~CV~OPN~DEF~01/02/2002~"_s;
}

/// The line of a search in such a window.
inline QString LineOf(Which which)
{
    return which == Which::Name ? RequestLine() : DistrictLine();
}

/// A row of the court, for such a window and this name.
inline QString RowOf(Which which, const QString &name = u"SMITH"_s)
{
    return which == Which::Name ? ResultLine(name) : CaseRow(name);
}

/// Data rows of a test that is about all three windows, by the column "which".
inline void EachResultsWindow()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("name search") << Which::Name;
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

/// A test whose functions know the courts of the catalogue.
class DistrictSearchTest : public SearchTest
{
protected:
    void init() override
    {
        SearchTest::init();
        LoadDiscisCourts();
    }
};

const QString inProgress =
    u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s;
const QString complete =
    u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s;
