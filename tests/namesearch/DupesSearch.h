#pragma once

#include "core/GlobalState.h"
#include "namesearch/DistrictSearch.h"
#include "tables/ResultListView.h"

#include <QPushButton>
#include <QTest>

// What the tests of searches that find people of one name have in common.

/// The request line of a statewide search, as the search form makes it.
inline QString StatewideLine(const QString &search = u"SNCI"_s)
{
    return u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦%1¦"_s.arg(search);
}

/// A person without an address, of the name SMITH and this first name.
inline QString PersonRow(const QString &first)
{
    return u"NCNMD~SMITH, %1~M~01/02/1970~W~510~180~BRO~NONE~"_s.arg(first);
}

/// A person with an address.
inline QString AddressRow(const QString &first, const QString &number)
{
    return u"NCDND~SMITH, %1~M~510~W~180~01/02/1970~BRO~%2~01~12 MAIN ST~"_s.arg(first, number);
}

/// The second search for the person in this row, of the name SMITH and this first name.
inline QString CasesLine(const QString &first, int row,
                         const QString &searched = u"SMITH, JOHN, Q"_s)
{
    return u"WADISCIS¦SEARCH¦%1¦SMITH, %2¦M¦01/02/1970¦W¦510¦180¦BRO¦NONE¦%3¦SNCINMD¦"_s
        .arg(searched, first)
        .arg(row);
}

inline QList<QStringList> NamesOf(const QWidget *window)
{
    return RowsOf(window, "lvDupe");
}

inline QString FrontOf(const QWidget *window)
{
    const bool cases = ListOf(window, "listview1")->isVisible();
    const bool names = ListOf(window, "lvDupe")->isVisible();
    return cases == names ? u"one list must be in front"_s : names ? u"names"_s : u"cases"_s;
}

/// Clicks the check box of a row.
inline void CheckRow(const QWidget *window, int row)
{
    ResultListView *list = ListOf(window, "lvDupe");
    const QRect cell = list->visualRect(list->List()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      QPoint(cell.left() + 10, cell.center().y()));
}

/// A test whose functions each make a statewide search, and a second one of its people.
class DupesTest : public SearchTest
{
protected:
    frmDiscisNCNameResults *Begun(const QString &search = u"SNCI"_s)
    {
        desk->ConnectTo(*court);
        Global.bShowAlerts = false;
        auto *window = new frmDiscisNCNameResults(search == u"DND" ? DiscisDndSearch::Yes
                                                                   : DiscisDndSearch::No);
        window->SetCourtCounty(u"Statewide - All Counties"_s);
        desk->Enqueue(window, {StatewideLine(search)});
        window->Timer1->start(1);
        return window;
    }

    /// A finished statewide search with these replies.
    frmDiscisNCNameResults *Searched(const QStringList &replies, const QString &search = u"SNCI"_s)
    {
        court->Expect(StatewideLine(search)).Reply(replies);
        frmDiscisNCNameResults *window = Begun(search);
        return desk->Finish(window) ? window : nullptr;
    }

    /// Runs the second search to its end.
    void Retrieve(frmDiscisNCNameResults *window)
    {
        ButtonOf(window, "cmdSearchResults_0")->click();
        QVERIFY(desk->Finish(window));
    }
};
