#include "controls/Notice.h"
#include "core/UserStore.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "namesearch/ResultColumns.h"
#include "support/HalvaneTest.h"
#include "tables/ColumnWidths.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTest>

// What the lists of the three results windows offer beyond their rows.

namespace {
constexpr double longSearchSeconds = 21.0;

} // namespace

class tst_ResultLists : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void theListHasItsMenuAndKeys_data() { EachResultsWindow(); }
    void theListHasItsMenuAndKeys();
    void aLongSearchTellsOfItsEnd_data() { EachResultsWindow(); }
    void aLongSearchTellsOfItsEnd();
    void aSearchThatBeginsSaysSo();
    void aStoppedSearchIsNoNews();
    void thePageBehindAStoppedOneIsNewsAgain();
    void aPendingSearchThatIsStoppedSaysSo();
    void theCasesOfNamesAreASearchOfTheirOwn();
    void widthsOfTheKind_data();
    void widthsOfTheKind();
    void namesOfTheKindsAreDifferent();
    void theDuplicateNamesHaveTheirOwnWidths();
    void idahosChangeOfWidthsLeavesTheUsersColumn();
    void tooManyResultsIsNoColumnOfTheKind();

private:
    NameResultsWindow *searched(
        Which which, const std::function<void()> &meanwhile = [] {});
};

/// A window with one row whose search is complete, after a long time.
NameResultsWindow *tst_ResultLists::searched(Which which, const std::function<void()> &meanwhile)
{
    const QString line = LineOf(which);
    const QString row = RowOf(which, u"=SMITH"_s);
    court->Expect(line).Reply({});
    NameResultsWindow *window = Begin(MakeWindow(which), {line});
    // One watcher for both: of two that wait for the same, either may be the first.
    desk->When([this] { return court->Requests().size() == 1; },
               [this, row, meanwhile] {
                   meanwhile();
                   desk->Time.Advance(longSearchSeconds);
                   court->SendTokens({row, u"EOF~"_s});
               });
    return desk->Finish(window) ? window : nullptr;
}

void tst_ResultLists::theListHasItsMenuAndKeys()
{
    QFETCH(Which, which);
    ReplaceDesktopNotice([](QWidget *, const QString &, const QString &) {});
    NameResultsWindow *window = searched(which);
    ReplaceDesktopNotice({});
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    ResultListView *list = ListOf(window);
    list->setFocus();
    list->selectRow(0);
    QTest::keySequence(list, QKeySequence::Copy);
    QVERIFY(QApplication::clipboard()->text().startsWith(u"'=SMITH\t"));
    const QPoint place = list->visualRect(list->List()->index(0, 0)).center();
    QContextMenuEvent asks(QContextMenuEvent::Mouse, place, list->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list->viewport(), &asks);
    auto *menu = list->findChild<QMenu *>(u"mnuList"_s);
    QVERIFY(menu->isVisible());
    menu->hide();
    ButtonOf(window, "cmdSearchResults_2")->setFocus();
    QTest::keySequence(window->focusWidget(), QKeySequence::Find);
    QTest::keyClicks(window->focusWidget(), u"nobody"_s);
    const QWidget *bar = window->focusWidget()->parentWidget();
    QCOMPARE(TextOf(bar, "lblFindCount"), u"0 of 1 shown"_s);
    QVERIFY(bar->isVisible());
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    QVERIFY(!list->isRowHidden(0));
    QVERIFY(list->accessibleDescription().endsWith(u" - 1 row"));
    QCOMPARE(window->findChild<QLabel *>(u"lblStatus"_s)->accessibleName(),
             TextOf(window, "lblStatus").simplified());
}

void tst_ResultLists::aLongSearchTellsOfItsEnd()
{
    QFETCH(Which, which);
    QStringList notices;
    ReplaceDesktopNotice([&notices](QWidget *who, const QString &title, const QString &text) {
        notices.append(title);
        notices.append(text);
        QCOMPARE(title, who->windowTitle());
    });
    // Somebody who works in another window meanwhile.
    QWidget other;
    const NameResultsWindow *window = searched(which, [&other] {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    });
    ReplaceDesktopNotice({});
    QVERIFY(window);
    QCOMPARE(notices.size(), 2);
    QCOMPARE(notices.last(), TextOf(window, "lblStatus").simplified());
    QVERIFY(notices.last().contains(u"Complete"));
}

void tst_ResultLists::aSearchThatBeginsSaysSo()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    QString said;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   said = ListOf(window)->accessibleDescription();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(said, u"Searching .. - 0 rows"_s);
}

void tst_ResultLists::aStoppedSearchIsNoNews()
{
    int notices = 0;
    ReplaceDesktopNotice([&](QWidget *, const QString &, const QString &) { ++notices; });
    court->Expect(RequestLine()).Reply({});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QWidget other;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   other.show();
                   other.activateWindow();
                   desk->Time.Advance(longSearchSeconds);
                   ButtonOf(window, "cmdStopSearching")->click();
               });
    QVERIFY(desk->Finish(window));
    QTRY_VERIFY(TextOf(window, "lblStatus").startsWith(u"Search Stopped By User: "));
    ReplaceDesktopNotice({});
    QCOMPARE(notices, 0);
    QVERIFY(ListOf(window)->accessibleDescription().startsWith(u"Search Stopped By User"));
}

void tst_ResultLists::thePageBehindAStoppedOneIsNewsAgain()
{
    int notices = 0;
    ReplaceDesktopNotice([&](QWidget *, const QString &, const QString &) { ++notices; });
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Reply({});
    auto *window = Begin(new frmNameSearchResults(u"WA"_s, true), {IndexLine()});
    desk->When([window] { return window->RowCount() == 1; },
               [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    QTRY_VERIFY(ButtonOf(window, "cmdSearchResults_4")->isVisible());
    QVERIFY(desk->Finish(window));
    QCOMPARE(notices, 0);
    QWidget other;
    desk->When([this] { return court->Requests().size() == 3; },
               [&] {
                   other.show();
                   other.activateWindow();
                   desk->Time.Advance(longSearchSeconds);
                   court->SendTokens({u"EOF~"_s});
               });
    ButtonOf(window, "cmdSearchResults_4")->click();
    QVERIFY(desk->Finish(window));
    ReplaceDesktopNotice({});
    QVERIFY(window->StopRequested);
    QCOMPARE(notices, 1);
}

void tst_ResultLists::aPendingSearchThatIsStoppedSaysSo()
{
    const frmNameSearchResults *window = desk->MakePending({RequestLine()});
    QCOMPARE(ListOf(window)->accessibleDescription(), u"Pending .. - 0 rows"_s);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(ListOf(window)->accessibleDescription(), u"Search Stopped By User .. - 0 rows"_s);
}

void tst_ResultLists::theCasesOfNamesAreASearchOfTheirOwn()
{
    int notices = 0;
    ReplaceDesktopNotice([&](QWidget *, const QString &, const QString &) { ++notices; });
    court->Expect(StatewideLine()).Reply({PersonRow(u"A"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH"_s), u"EOF~"_s});
    const frmDiscisNCNameResults *window = Search(new frmDiscisNCNameResults, {StatewideLine()});
    QCOMPARE(ListOf(window, "lvDupe")->accessibleDescription(),
             u"Search Complete: 1 Duplicate Names Found. - 1 row"_s);
    // How long the user looks at the names is no matter.
    desk->Time.Advance(longSearchSeconds);
    CheckRow(window, 0);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(ListOf(window, "lvDupe")->accessibleDescription(), u"Pending .. - 1 row"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(desk->Finish(window));
    ReplaceDesktopNotice({});
    QCOMPARE(notices, 0);
    QCOMPARE(ListOf(window)->accessibleDescription(),
             u"Search Complete: 1 Case Retrieved. - 1 row"_s);
}

void tst_ResultLists::widthsOfTheKind_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("index");
    QTest::addColumn<QString>("kind");
    QTest::newRow("Washington") << u"WA"_s << false << u"Superior"_s;
    QTest::newRow("Oregon") << u"OR"_s << false << u"Superior"_s;
    QTest::newRow("Idaho") << u"ID"_s << false << u"Idaho"_s;
    QTest::newRow("Bankruptcy") << u"ORBK"_s << false << u"Bankruptcy"_s;
    QTest::newRow("index") << u"WA"_s << true << u"Index"_s;
    QTest::newRow("civil") << u"civil"_s << false << u"DiscisCivil"_s;
    QTest::newRow("non-civil") << u"non-civil"_s << false << u"DiscisStatewide"_s;
}

void tst_ResultLists::widthsOfTheKind()
{
    QFETCH(QString, state);
    QFETCH(bool, index);
    QFETCH(QString, kind);
    const QString name = state.endsWith(u"civil") ? u"Name"_s : u"Participant%20Name"_s;
    SaveUserStoreValue(u"ColumnWidths"_s, kind, name + u"=3000"_s);
    const auto make = [&]() -> std::unique_ptr<NameResultsWindow> {
        if (state.endsWith(u"civil"))
            return std::unique_ptr<NameResultsWindow>(
                MakeWindow(state == u"civil" ? Which::Civil : Which::NonCivil));
        return std::make_unique<frmNameSearchResults>(state, index);
    };
    const auto window = make();
    QCOMPARE(ListOf(window.get())->columnWidth(0), 200);
    ListOf(window.get())->Tools()->Widths()->Reset();
    QVERIFY(ListOf(window.get())->columnWidth(0) < 200);
    QCOMPARE(ListOf(make().get())->columnWidth(0), ListOf(window.get())->columnWidth(0));
}

void tst_ResultLists::namesOfTheKindsAreDifferent()
{
    QSet<QString> names;
    for (int kind = 0; kind <= static_cast<int>(ResultKind::NamesAddresses); ++kind)
        names.insert(ResultKindName(static_cast<ResultKind>(kind)));
    QCOMPARE(names.size(), 9);
    QCOMPARE(ResultKindName(ResultKind::Superior), u"Superior"_s);
    QCOMPARE(ResultKindName(ResultKind::NamesAddresses), u"NamesAddresses"_s);
}

void tst_ResultLists::theDuplicateNamesHaveTheirOwnWidths()
{
    SaveUserStoreValue(u"ColumnWidths"_s, u"NamesStatewide"_s, u"Name=3000"_s);
    const frmDiscisNCNameResults window;
    QCOMPARE(ListOf(&window, "lvDupe")->columnWidth(0), 200);
    QCOMPARE(ListOf(&window)->columnWidth(0), 160);
    ListOf(&window, "lvDupe")->Tools()->Widths()->Reset();
}

void tst_ResultLists::idahosChangeOfWidthsLeavesTheUsersColumn()
{
    SaveUserStoreValue(u"ColumnWidths"_s, u"Idaho"_s, u"Case%20Number=3000"_s);
    frmNameSearchResults window(u"ID"_s);
    ResultListView *list = ListOf(&window);
    window.AddResultRow(ResultLine(u"SMITH"_s));
    QCOMPARE(list->columnWidth(1), 200);
    QCOMPARE(list->columnWidth(4), 80);
    // Back to the usual width, and that is what the first row has changed it to.
    list->Tools()->Widths()->Reset();
    QCOMPARE(list->columnWidth(1), 113);
    QCOMPARE(list->columnWidth(4), 80);
}

void tst_ResultLists::tooManyResultsIsNoColumnOfTheKind()
{
    SaveUserStoreValue(u"ColumnWidths"_s, u"Superior"_s, u"Participant%20Name=3000"_s);
    court->Expect(RequestLine()).Reply({u"This search resulted in more than 200 results.~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(HeadersOf(window).size(), 1);
    QVERIFY(!ListOf(window)->Tools()->Widths()->ChangedByUser());
    SaveUserStoreValue(u"ColumnWidths"_s, u"Superior"_s, QString());
}

HALVANE_TEST(tst_ResultLists)
#include "tst_ResultLists.moc"
