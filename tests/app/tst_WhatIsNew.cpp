#include "app/CaseChecks.h"
#include "casedetails/CaseIdentity.h"
#include "casedetails/CaseWindow.h"
#include "core/Clock.h"
#include "history/HistoryStore.h"
#include "history/NewRows.h"
#include "namesearch/NameResultsWindow.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"
#include "tables/FlexGrid.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

// What has become new between two looks, at the practice court and by clicks.

namespace {
constexpr int longEnough = 30'000;

constexpr const char *before = "Quick~Ada~B~King~Criminal~03/04/1999~Theft 3~Defendant\n";
constexpr const char *after = "Quick~Ada~B~King~Criminal~03/04/1999~Theft 3~Defendant\n"
                              "Quick~Ada~C~King~Criminal~05/06/2001~Forgery~Defendant\n";

const QStringList quick{u"type txtSearchName_0 Quick"_s, u"type txtSearchName_1 Ada"_s,
                        u"tick lboxCountyOrProfile King"_s, u"tick lboxCaseTypes Criminal"_s};

QLabel *lineOf(const QTableView *table)
{
    return table->parentWidget()->findChild<QLabel *>(u"lblNew"_s);
}

void askForMenu(QTableView *table)
{
    const QPoint place = table->visualRect(table->model()->index(0, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, table->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(table->viewport(), &event);
}
} // namespace

class tst_WhatIsNew : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void anEntryThatWasNotThere();
    void aPersonThatWasNotThere();

private:
    void begin(const PracticeCourt &court);
    /// The last look at the docket of this case was so many days ago, and lacked its newest rows.
    static void forgetNewest(const CaseWindow *window, int rows, int daysAgo);

    QTemporaryDir folder;
    QTemporaryFile people;
    QTemporaryFile morePeople;
    PracticeCourt court;
    PracticeCourt later;
    std::unique_ptr<PracticeUser> user;
};

void tst_WhatIsNew::initTestCase()
{
    QVERIFY(people.open() && morePeople.open());
    people.write(before);
    people.close();
    morePeople.write(after);
    morePeople.close();
    const QString program = ProgramPath(u"halvane-practice"_s);
    QVERIFY2(court.Start(program, {u"--data"_s, people.fileName()}), qPrintable(court.Error()));
    QVERIFY2(later.Start(program, {u"--data"_s, morePeople.fileName()}), qPrintable(later.Error()));
    HistoryStore::Of().Open(folder.filePath(u"history.db"_s));
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
}

void tst_WhatIsNew::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_WhatIsNew::begin(const PracticeCourt &at)
{
    user.reset();
    user = std::make_unique<PracticeUser>(at.Port());
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
}

void tst_WhatIsNew::forgetNewest(const CaseWindow *window, int rows, int daysAgo)
{
    const GridTable &docket = window->Record().Tab(CaseTab::Docket).Table;
    HistoryStore::Of().SaveLook(CaseIdentity(window->Record()), u"Docket"_s,
                                Clock::Current().Now().addDays(-daysAgo),
                                HashesOf(docket.Rows.sliced(rows)), true);
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
}

void tst_WhatIsNew::anEntryThatWasNotThere()
{
    begin(court);
    NameResultsWindow *results = user->Search(
        smithJohnQ
        + QStringList{u"tick lboxCountyOrProfile King"_s, u"tick lboxCaseTypes Criminal"_s});
    QVERIFY(results);
    CaseWindow *window = user->OpenRow(results, 0);
    QVERIFY(window);
    QVERIFY(user->Run(window));
    FlexGrid *grid = window->Tab(CaseTab::Docket).Grid;
    QVERIFY(lineOf(grid)->isHidden());
    forgetNewest(window, 4, 20);
    window->Unload(UnloadMode::MdiParent);

    // From another list: a case that a list has opened once is asked for as an archived one.
    results = user->Search({});
    QVERIFY(results);
    window = user->OpenRow(results, 0);
    QVERIFY(window);
    QVERIFY(user->Run(window));
    QVERIFY(ClickTab(window, u"Docket"_s));
    grid = window->Tab(CaseTab::Docket).Grid;
    QCOMPARE(lineOf(grid)->text(),
             u"4 entries since "_s
                 + Clock::Current().Now().addDays(-20).date().toString(u"MM/dd/yyyy"_s));
    QVERIFY(lineOf(grid)->isVisible());
    QVERIFY(grid->verticalHeader()->isVisible());
    const int all = grid->Rows() - 1;
    askForMenu(grid);
    QMenu *menu = grid->Tools()->Menu();
    auto *onlyNew = grid->findChild<QAction *>(u"mnuListOnlyNew"_s);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(onlyNew).center());
    QCOMPARE(all - grid->verticalHeader()->hiddenSectionCount(), 4);
    QVERIFY(ListOf(results)->NoteOf(0).startsWith(u"Opened before, last on "_s));
}

void tst_WhatIsNew::aPersonThatWasNotThere()
{
    begin(court);
    const NameResultsWindow *first = user->Search(quick);
    QVERIFY(first);
    QCOMPARE(first->Search().Record.Rows.NewCount(), 0);
    const int rows = first->RowCount();
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));

    begin(later);
    NameResultsWindow *second = user->Search(quick);
    QVERIFY(second);
    QCOMPARE(second->RowCount(), rows + 1);
    const RowTable &table = second->Search().Record.Rows;
    QCOMPARE(table.NewCount(), 1);
    QVERIFY(lineOf(ListOf(second))
                ->text()
                .startsWith(u"1 row is new since your last such search on "_s));
    for (int row = 0; row < table.Count(); ++row)
        QCOMPARE(table.IsNew(row), table.Cell(row, 2) == u"05/06/2001");
}

HALVANE_TEST(tst_WhatIsNew)
#include "tst_WhatIsNew.moc"
