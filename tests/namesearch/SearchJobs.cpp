#include "namesearch/SearchJobs.h"

#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "namesearch/CourtSearch.h"

#include <utility>

void SearchJobTest::cleanup()
{
    const QList<NameSearch *> gone = std::exchange(searches, {});
    for (NameSearch *search : gone)
        search->Release();
    LinkTest::cleanup();
}

void SearchJobTest::start(NameSearch *search, const QStringList &lines)
{
    searches.append(search);
    for (const QString &line : lines)
        search->lboxQueue.AddItem(line);
    search->txtMasterKey = MakeMasterKey();
    EnqueueKey(search->txtMasterKey);
    search->Timer1->start(1);
}

CourtSearch *SearchJobTest::Start(const QStringList &lines)
{
    return Start(new CourtSearch(u"WA"_s, false), lines);
}

bool SearchJobTest::Finish(const NameSearch *search)
{
    return LinkDesk::WaitUntil(
        [search] { return search->State() == JobState::Over && !Global.bSearchInProgress; });
}

QList<QStringList> SearchJobTest::RowsOf(const NameSearch *search)
{
    QList<QStringList> rows;
    for (int row = 0; row < search->RowCount(); ++row)
        rows.append(search->Record.Rows.Cells(row));
    return rows;
}

QString RequestLine(const QString &last, const QString &county)
{
    return u"WASUP¦SEARCH¦"_s + last + u"¦JOHN¦Q¦¦"_s + county + u",¦Civil,Criminal,¦¦¦"_s;
}

QString ResultLine(const QString &name, const QString &number)
{
    return name + u'~' + number + u"~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s;
}
