// The window of the history: what it shows and finds, and what is asked for again from it.

#include "app/HistoryWindowTest.h"
#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "history/HistoryModel.h"
#include "jobs/frmQueue.h"
#include "namesearch/NameResultsWindow.h"
#include "namesearch/OpeningUser.h"
#include "records/StartText.h"
#include "searchentry/EntryText.h"
#include "session/SessionEvents.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

class tst_frmHistory : public HistoryWindowTest
{
    Q_OBJECT
private Q_SLOTS:
    void whatWasAskedForStandsNewestFirst();
    void theListFollowsWhatHappens();
    void theChosenRowStaysChosen();
    void itFindsAsOneTypes();
    void rowsComePageByPage();
    void aLargeHistoryIsLookedThroughBitByBit();
    void whatIsFoundFollowsWhatHappens();
    void aDoubleClickPutsASearchOnTheForm();
    void aDoubleClickOnACaseAsksNothing();
    void aNumberGoesBackOnTheForm();
    void withTheKeyboardAlone();
    void aRowGoesToTheClipboard();
    void aScreenReaderHearsTheCells();
    void aTipIsNoMarkup();
    void nothingIsCutWhileThereIsRoom();
    void aColumnOfTheUsersStays();
    void anEmptyHistorySaysSo();
    void thereIsOneSuchWindow();

private:
    void doubleClick(int row) const;
};

void tst_frmHistory::doubleClick(int row) const
{
    const QModelIndex index = table()->model()->index(row, HistoryModel::What);
    const QPoint middle = table()->visualRect(index).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, middle);
}

void tst_frmHistory::whatWasAskedForStandsNewestFirst()
{
    store().End(askFor(u"SMITH"_s), u"Search Complete: 2 Cases Retrieved."_s, 2);
    store().Runs(askFor(u"JONES"_s));
    askForCase(u"02-1-00123-4"_s);
    open();
    QCOMPARE(column(HistoryModel::What), (QStringList{u"02-1-00123-4"_s, u"JONES"_s, u"SMITH"_s}));
    QCOMPARE(column(HistoryModel::Kind), (QStringList{u"Case"_s, u"Search"_s, u"Search"_s}));
    QCOMPARE(
        column(HistoryModel::Outcome),
        (QStringList{u"Waiting .."_s, u"Running .."_s, u"Search Complete: 2 Cases Retrieved."_s}));
    QCOMPARE(column(HistoryModel::Count), (QStringList{QString(), QString(), u"2"_s}));
    QCOMPARE(cell(2, HistoryModel::When), u"11/02/2026 09:05"_s);
    QCOMPARE(cell(2, HistoryModel::Where), u"King County - Washington Superior Courts"_s);
    QCOMPARE(cell(2, HistoryModel::ClientCode), u"CODE"_s);
    QCOMPARE(TextOf(window, "lblCount"), u"3 entries"_s);
}

void tst_frmHistory::theListFollowsWhatHappens()
{
    const qint64 smith = askFor(u"SMITH"_s);
    open();
    store().End(smith, u"Search Complete"_s, 7);
    askFor(u"JONES"_s);
    QTRY_COMPARE(column(HistoryModel::What), (QStringList{u"JONES"_s, u"SMITH"_s}));
    QTRY_COMPARE(cell(1, HistoryModel::Count), u"7"_s);
    store().ClearAll();
    QTRY_COMPARE(TextOf(window, "lblCount"), u"Nothing was asked for yet."_s);
    QVERIFY(!ButtonOf(window, "cmdAgain")->isEnabled());
}

void tst_frmHistory::theChosenRowStaysChosen()
{
    askFor(u"SMITH"_s);
    askFor(u"JONES"_s);
    open();
    table()->selectRow(1);
    askFor(u"DOE"_s);
    QTRY_COMPARE(table()->model()->rowCount(), 3);
    QCOMPARE(table()->currentIndex().row(), 2);
    QCOMPARE(cell(2, HistoryModel::What), u"SMITH"_s);
}

void tst_frmHistory::itFindsAsOneTypes()
{
    askFor(u"SMITH"_s);
    askFor(u"SMYTHE"_s);
    askFor(u"JONES"_s);
    open();
    auto *words = Child<QLineEdit>(window, "txtFilter");
    QVERIFY(words->hasFocus());
    QTest::keyClicks(words, u"sm"_s);
    QCOMPARE(column(HistoryModel::What), (QStringList{u"SMYTHE"_s, u"SMITH"_s}));
    QTest::keyClicks(words, u"i king"_s);
    QCOMPARE(column(HistoryModel::What), QStringList{u"SMITH"_s});
    QCOMPARE(TextOf(window, "lblCount"), u"1 entry"_s);
    QCOMPARE(table()->currentIndex().row(), 0);
    QTest::keyClicks(words, u" pierce"_s);
    QCOMPARE(column(HistoryModel::What), QStringList());
    QCOMPARE(TextOf(window, "lblCount"), u"Nothing is found."_s);
    words->clear();
    QCOMPARE(table()->model()->rowCount(), 3);
}

/// Far more than are ever kept in memory, and in each the right one.
void tst_frmHistory::rowsComePageByPage()
{
    constexpr int many = 2'550;
    for (int i = 0; i < many; ++i)
        askFor(u"N"_s + QString::number(i));
    open();
    QCOMPARE(table()->model()->rowCount(), many);
    for (const int row : {0, 99, 100, 1'234, many - 1, 50, 2'499, 0})
        QCOMPARE(cell(row, HistoryModel::What), u"N"_s + QString::number(many - 1 - row));
    QCOMPARE(column(HistoryModel::What).last(), u"N0"_s);
    Child<QLineEdit>(window, "txtFilter")->setText(u"n1"_s);
    constexpr int found = 1'111;
    QTRY_COMPARE(TextOf(window, "lblCount"), QLocale::system().toString(found) + u" entries"_s);
    QCOMPARE(table()->model()->rowCount(), found);
    QCOMPARE(cell(0, HistoryModel::What), u"N1999"_s);
    QCOMPARE(cell(found - 1, HistoryModel::What), u"N1"_s);
}

/// What is not found within a key's time comes as it is found, and nothing of it twice.
void tst_frmHistory::aLargeHistoryIsLookedThroughBitByBit()
{
    constexpr int many = 20'000;
    askFor(u"RARE"_s);
    for (int i = 0; i < many; ++i)
        askFor(u"ENTRY "_s + QString::number(i));
    askFor(u"OTHER"_s);
    written();
    const FoundIds stretch = store().Found(u"entry"_s, std::numeric_limits<qint64>::max());
    QVERIFY(!stretch.AtEnd);
    QVERIFY(stretch.Ids.size() < many / 2);
    open();
    auto *words = Child<QLineEdit>(window, "txtFilter");
    words->setText(u"entry"_s);
    // The last page is not full before the next rows come.
    const int here = table()->model()->rowCount();
    QCOMPARE(cell(here - 1, HistoryModel::What), u"ENTRY "_s + QString::number(many - here));
    QTRY_COMPARE(TextOf(window, "lblCount"), QLocale::system().toString(many) + u" entries"_s);
    QCOMPARE(table()->model()->rowCount(), many);
    for (const int row : {0, 99, here - 1, here, here + 1, 16'050, many - 1})
        QCOMPARE(cell(row, HistoryModel::What), u"ENTRY "_s + QString::number(many - 1 - row));
    words->setText(u"rare"_s);
    QTRY_COMPARE(column(HistoryModel::What), QStringList{u"RARE"_s});
    QTRY_COMPARE(TextOf(window, "lblCount"), u"1 entry"_s);
    QCOMPARE(table()->currentIndex().row(), 0);
}

/// What is written while words stand in the field is found, or is found no more.
void tst_frmHistory::whatIsFoundFollowsWhatHappens()
{
    askFor(u"SMITH"_s);
    const qint64 waits = askFor(u"JONES"_s);
    open();
    Child<QLineEdit>(window, "txtFilter")->setText(u"complete"_s);
    QCOMPARE(column(HistoryModel::What), QStringList());
    store().End(waits, u"Search Complete"_s, 2);
    QTRY_COMPARE(column(HistoryModel::What), QStringList{u"JONES"_s});
    QCOMPARE(table()->currentIndex().row(), 0);
    QCOMPARE(TextOf(window, "lblCount"), u"1 entry"_s);
    store().End(askFor(u"DOE"_s), u"Search Complete"_s, 1);
    QTRY_COMPARE(column(HistoryModel::What), (QStringList{u"DOE"_s, u"JONES"_s}));
    // The one that was chosen stays it.
    QCOMPARE(table()->currentIndex().row(), 1);
    store().End(waits, u"Search Stopped"_s, 2);
    QTRY_COMPARE(column(HistoryModel::What), QStringList{u"DOE"_s});
    QCOMPARE(table()->currentIndex().row(), 0);
}

void tst_frmHistory::aDoubleClickPutsASearchOnTheForm()
{
    askFor(u"SMITH"_s);
    open();
    desk->Do({u"click optState_3"_s, u"type txtSearchName_0 Other"_s});
    window->activateWindow();
    QCOMPARE(desk->NewWindows([this] { doubleClick(0); }).size(), 0);
    QVERIFY(AsAsked(desk->Form()->Entry()) == smithInKing(u"SMITH"_s));
    QVERIFY(desk->Form()->isVisible());
    QCOMPARE(Keys(), QStringList());
    // From there the user starts it.
    QVERIFY(desk->StartOne<NameResultsWindow>());
}

/// It costs a request: only the button does that, and has the keyboard now.
void tst_frmHistory::aDoubleClickOnACaseAsksNothing()
{
    askForCase(u"02-1-00123-4"_s);
    open();
    const SearchEntry before = desk->Form()->Entry();
    QCOMPARE(desk->NewWindows([this] { doubleClick(0); }).size(), 0);
    QVERIFY(desk->Form()->Entry() == before);
    QVERIFY(ButtonOf(window, "cmdAgain")->hasFocus());
    QVERIFY(!ButtonOf(window, "cmdFill")->isEnabled());
    QCOMPARE(TextOf(window, "lblHint"),
             u"Search Again opens this case again, and asks the court for it."_s);
}

void tst_frmHistory::aNumberGoesBackOnTheForm()
{
    SearchEntry entry;
    entry.Kind = SearchKind::Number;
    entry.Names[LastName] = u"05-2-02029-1"_s;
    entry.NumberCounty = u"King"_s;
    askForCase(u"05-2-02029-1"_s, TextOfEntry(AsAsked(entry)));
    open();
    Click(window, "cmdFill");
    QVERIFY(AsAsked(desk->Form()->Entry()) == AsAsked(entry));
}

void tst_frmHistory::withTheKeyboardAlone()
{
    askFor(u"SMITH"_s);
    askFor(u"JONES"_s);
    open();
    auto *words = Child<QLineEdit>(window, "txtFilter");
    QTest::keyClick(words, Qt::Key_Down);
    QVERIFY(table()->hasFocus());
    QTest::keyClick(table(), Qt::Key_Down);
    QTest::keyClick(table(), Qt::Key_Return);
    QCOMPARE(desk->Form()->Entry().Names[LastName], u"SMITH"_s);
    window->activateWindow();
    // From the list Tab goes to the buttons, not along the cells.
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Tab);
    QVERIFY(ButtonOf(window, "cmdFill")->hasFocus());
    QTest::keyClick(window, Qt::Key_Escape);
    QVERIFY(window->IsUnloaded());
}

void tst_frmHistory::aRowGoesToTheClipboard()
{
    store().End(askFor(u"SMITH"_s), u"Search Complete"_s, 2);
    open();
    table()->setFocus();
    QTest::keySequence(table(), QKeySequence::Copy);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             u"11/02/2026 09:05\tSearch\tSMITH\tKing County - Washington Superior "
             "Courts\tCODE\tSearch Complete\t2"_s);
}

void tst_frmHistory::aScreenReaderHearsTheCells()
{
    askFor(u"SMITH"_s);
    open();
    const QAbstractItemModel *model = table()->model();
    QCOMPARE(model->index(0, HistoryModel::What).data(Qt::AccessibleTextRole).toString(),
             u"What: SMITH"_s);
    QCOMPARE(model->index(0, HistoryModel::Count).data(Qt::AccessibleTextRole).toString(),
             u"Count: none"_s);
    QCOMPARE(table()->accessibleName(), u"What was asked for, newest first"_s);
    QCOMPARE(Child<QLineEdit>(window, "txtFilter")->accessibleName(),
             u"Words to find in the history"_s);
}

/// What a court has sent is in it.
void tst_frmHistory::aTipIsNoMarkup()
{
    askFor(u"<b>SMITH</b>"_s);
    open();
    const QAbstractItemModel *model = table()->model();
    QCOMPARE(model->index(0, HistoryModel::What).data(Qt::ToolTipRole).toString(),
             u"<qt>&lt;b&gt;SMITH&lt;/b&gt;"_s);
    QCOMPARE(model->index(0, HistoryModel::Count).data(Qt::ToolTipRole).toString(), QString());
}

void tst_frmHistory::nothingIsCutWhileThereIsRoom()
{
    askFor(u"MONTGOMERY, ALEXANDER CONSTANTINE, JUNIOR"_s);
    open();
    window->resize(1600, 400);
    const auto needed = [this] {
        return table()->sizeHintForIndex(table()->model()->index(0, HistoryModel::What)).width();
    };
    QTRY_VERIFY(table()->columnWidth(HistoryModel::What) >= needed());
    // What comes while it is open, too.
    const int before = needed();
    askFor(u"MONTGOMERY, ALEXANDER CONSTANTINE MAXIMILIAN, JUNIOR"_s);
    written();
    QTRY_VERIFY(needed() > before);
    QTRY_VERIFY(table()->columnWidth(HistoryModel::What) >= needed());
    QVERIFY(!table()->horizontalScrollBar()->isVisible());
}

void tst_frmHistory::aColumnOfTheUsersStays()
{
    askFor(u"MONTGOMERY, ALEXANDER CONSTANTINE, JUNIOR"_s);
    open();
    table()->setColumnWidth(HistoryModel::What, 90);
    window->resize(1600, 400);
    QTRY_COMPARE(window->width(), 1600);
    QCoreApplication::processEvents();
    QCOMPARE(table()->columnWidth(HistoryModel::What), 90);
}

void tst_frmHistory::anEmptyHistorySaysSo()
{
    open();
    QCOMPARE(TextOf(window, "lblCount"), u"Nothing was asked for yet."_s);
    QVERIFY(!ButtonOf(window, "cmdAgain")->isEnabled());
    window->Unload();
    Ticks(1);
    store().Close();
    Q_EMIT SessionEvents::Of().HistoryWanted();
    QCOMPARE(TextOf(Shown(u"frmHistory"_s), "lblCount"), u"The history is off."_s);
    delete Shown(u"frmHistory"_s);
}

void tst_frmHistory::thereIsOneSuchWindow()
{
    open();
    const frmHistory *first = window;
    open();
    QCOMPARE(window, first);
}

HALVANE_TEST(tst_frmHistory)
#include "tst_frmHistory.moc"
