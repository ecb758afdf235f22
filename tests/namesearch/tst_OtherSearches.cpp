#include "core/GlobalState.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// The searches of frmNameSearchResults besides those of the Superior Courts and of the index:
// Oregon, Idaho and Bankruptcy.

namespace {
const QString bankruptcyLine = u"BKRPT~SEARCH~SMITH~JOHN~Q~~WAW~*ALL~1980~2005~"_s;
const QString bankruptcyRow = u"SMITH~05-1~RETRIEVECOMMAND=BKRPT-SUMMARY-05~01/02/2005~Chapter 7~"
                              "Seattle~Debtor~Attorney~"_s;
} // namespace

class tst_OtherSearches : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void columnsOfEachState_data();
    void columnsOfEachState();
    void onlyTheIndexIsWrittenSmall();
    void whatTheStarterHandsOver();
    void searchOfEachState_data();
    void searchOfEachState();
    void everyBankruptcyCourtKeepsWhatItWasGiven_data();
    void everyBankruptcyCourtKeepsWhatItWasGiven();
    void aStoppedBankruptcySearch_data();
    void aStoppedBankruptcySearch();
    void anIndexMarkTakenBackGivesCourtRows();
};

void tst_OtherSearches::columnsOfEachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("lastHeader");
    QTest::addColumn<bool>("bankruptcy");
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::newRow(qPrintable(state)) << state << 6 << u"Role"_s << false;
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"ORBK"_s, u"IDBK"_s})
        QTest::newRow(qPrintable(state)) << state << 7 << u"Search String"_s << true;
}

void tst_OtherSearches::columnsOfEachState()
{
    QFETCH(QString, state);
    const frmNameSearchResults window(state);
    QTEST(static_cast<int>(HeadersOf(&window).size()), "columns");
    QTEST(HeadersOf(&window).last(), "lastHeader");
    QTEST(window.chkBK, "bankruptcy");
}

void tst_OtherSearches::onlyTheIndexIsWrittenSmall()
{
    const frmNameSearchResults direct(u"WA"_s);
    const frmNameSearchResults index(u"WA"_s, true);
    const auto size = [](const QWidget &window) { return ListOf(&window)->font().pointSizeF(); };
    QCOMPARE(size(direct), direct.font().pointSizeF());
    QVERIFY(size(index) < index.font().pointSizeF());
}

void tst_OtherSearches::whatTheStarterHandsOver()
{
    frmNameSearchResults window(u"WAWBK"_s);
    QVERIFY(!window.ORchkboxJGMcasetype);
    QCOMPARE(TextOf(&window, "lblName"), u"Name:"_s);
    window.SetLabelName(u"Tax ID#:"_s);
    window.SetNameVal(u"12-3456789"_s);
    window.SetCaseTypeVals(u"Bankruptcy"_s);
    window.SetTxtCountyList(u"Washington Western Bankruptcy"_s);
    QCOMPARE(TextOf(&window, "lblName"), u"Tax ID#:"_s);
    QCOMPARE(TextOf(&window, "lblNameVal"), u"12-3456789"_s);
    QCOMPARE(window.lblNameVal(), u"12-3456789"_s);
    QCOMPARE(TextOf(&window, "lblCaseTypeVals"), u"Bankruptcy"_s);
    QCOMPARE(window.txtCountyList(), u"Washington Western Bankruptcy"_s);
    // A long list is seen from its beginning.
    QCOMPARE(window.findChild<QLineEdit *>(u"txtCountyList"_s)->cursorPosition(), 0);
}

void tst_OtherSearches::searchOfEachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("cells");
    const QString courtRow = u"SMITH~1~01/02/2002~Civil~Baker Co Cir Ct~Plaintiff~"_s;
    const QString courtCells = u"SMITH/1/01~02~2002/Civil/Baker Co Cir Ct/Plaintiff"_s;
    const QString oregon = u"OREGON¦SEARCH¦SMITH¦JOHN¦¦¦BAK C¦CV,DO,¦1990¦2002¦"_s;
    const QString idaho = u"IDSUP¦SEARCH¦SMITH¦JOHN¦¦¦Ada,¦CV,CR,¦¦¦¦"_s;
    QTest::newRow("Oregon") << u"OR"_s << oregon << courtRow
                            << u"SMITH, JOHN in Baker County, Oregon Circuit/District Courts"_s
                            << u"Civil, Domestic"_s << courtCells;
    QTest::newRow("Idaho") << u"ID"_s << idaho << courtRow << u"SMITH, JOHN in the list"_s
                           << u"Civil, Criminal"_s << courtCells;
    const QString cells =
        u"SMITH/05-1/01~02~2005/Chapter 7/Seattle/Debtor + Attorney/BKRPT-SUMMARY-05"_s;
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"ORBK"_s}) {
        QTest::newRow(qPrintable(state))
            << state << bankruptcyLine << bankruptcyRow << u"given name in the list"_s
            << u"given types"_s << cells;
    }
}

void tst_OtherSearches::searchOfEachState()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    QFETCH(QString, row);
    court->Expect(line).Reply({row, u"EOF~"_s});
    auto *window = new frmNameSearchResults(state);
    window->SetNameVal(u"given name"_s);
    window->SetCaseTypeVals(u"given types"_s);
    window->SetTxtCountyList(u"the list"_s);
    Search(window, {line});
    QTEST(window->windowTitle(), "title");
    QTEST(TextOf(window, "lblCaseTypeVals"), "types");
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QStringList cells = RowsOf(window)[0];
    cells.replaceInStrings(u" / "_s, u" + "_s).replaceInStrings(u"/"_s, u"~"_s);
    QTEST(cells.join(u'/'), "cells");
    QCOMPARE(TextOf(window, "Label2"), u"Search Results"_s);
}

void tst_OtherSearches::everyBankruptcyCourtKeepsWhatItWasGiven_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"ORBK"_s, u"IDBK"_s})
        QTest::newRow(qPrintable(state)) << state;
}

void tst_OtherSearches::everyBankruptcyCourtKeepsWhatItWasGiven()
{
    QFETCH(QString, state);
    court->Expect(bankruptcyLine).Reply({bankruptcyRow, u"EOF~"_s});
    auto *window = new frmNameSearchResults(state);
    window->SetNameVal(u"given name"_s);
    window->SetCaseTypeVals(u"Bankruptcy"_s);
    window->SetTxtCountyList(u"A court"_s);
    Search(window, {bankruptcyLine});
    QCOMPARE(window->windowTitle(), u"given name in A court"_s);
    QCOMPARE(TextOf(window, "lblNameVal"), u"given name"_s);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"Bankruptcy"_s);
    QVERIFY(desk->Folder.Log().filter(u"Cannot show the search criteria"_s).isEmpty());
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_OtherSearches::aStoppedBankruptcySearch_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("stop");
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"ORBK"_s})
        QTest::newRow(qPrintable(state)) << state << u"BKRPT~STOP~"_s;
    QTest::newRow("IDBK") << u"IDBK"_s << u"STOP¦"_s;
}

void tst_OtherSearches::aStoppedBankruptcySearch()
{
    QFETCH(QString, state);
    QFETCH(QString, stop);
    court->Expect(bankruptcyLine).Reply({bankruptcyRow});
    court->Expect(stop).Reply({u"EOF~"_s});
    auto *window = Begin(new frmNameSearchResults(state), {bankruptcyLine});
    desk->When([&] { return window->RowCount() == 1; },
               [&] { ButtonOf(window, "cmdStopSearching")->click(); });
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User: 1 Cases Retrieved."_s);
    QVERIFY(desk->Finish(window));
}

void tst_OtherSearches::anIndexMarkTakenBackGivesCourtRows()
{
    // The search form copies its index mark into every window, and takes it back for Oregon.
    const QString line = u"OREGON¦SEARCH¦SMITH¦JOHN¦¦¦BAK C¦CV,¦1990¦2002¦"_s;
    court->Expect(line).Reply({u"A~1~2~3~4~5~"_s, u"EOF~"_s});
    auto *window = new frmNameSearchResults(u"OR"_s, true);
    window->chkIndexSearch = false;
    Search(window, {line});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

HALVANE_TEST(tst_OtherSearches)
#include "tst_OtherSearches.moc"
