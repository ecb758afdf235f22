#include "namesearch/DupesSearch.h"
#include "support/HalvaneTest.h"
#include "tables/TableTools.h"

namespace {
const QString multipleNames = u"Multiple Names Match. Please Select Name(s) to retrieve."_s;
const QString checkNames = u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s;
const QString completeInView =
    u" Search Completed Successfully.   Double-Click on any Case to Retrieve Details."_s;
const QString howToOpen = u"To retrieve case details, either double-click on a case from the list, "
                          "or highlight it and click 'Retrieve Case Details'."_s;
const QString howToCheck = u"Mulitple Names Match Search Criteria. Check Name(s) to retrieve cases "
                           "for and click 'Retrieve Case(s)'"_s;
} // namespace

class tst_DupesWindow : public DupesTest
{
    Q_OBJECT
private Q_SLOTS:
    void columns_data();
    void columns();
    void onlyNamesHaveCheckBoxes();
    void aSearchThatReturnsOnlyDuplicateNamesEndsWithTheNamesInFront();
    void namesWithAddresses();
    void anAddressRowOfAnotherLengthIsADescription();
    void completion_data();
    void completion();
    void whatComesGoesInFront();
    void bothViews_data();
    void bothViews();
    void theFocusGoesWithTheLists();
    void markupInACellIsText();
    void aShortNameRowLosesTheSearch();
    void otherOutcomesLeaveBothListsToBeSeen_data();
    void otherOutcomesLeaveBothListsToBeSeen();
    void aLongNameDoesNotWidenTheWindow();
    void bothListsAreWrittenSmall();
};

void tst_DupesWindow::columns_data()
{
    QTest::addColumn<bool>("addresses");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("columns");
    QTest::newRow("cases, SNCI") << false << QByteArray("listview1")
                                 << u"Name 2400, Case No. 1100, L.E.A. 800, Court 1500, Type 700, "
                                    "Status 600, Party 600, Vio./File Date 1500"_s;
    QTest::newRow("cases, DND") << true << QByteArray("listview1")
                                << u"Name 2400, Case No. 1100, Court 1500, LEA 700, Type 700, "
                                   "Status 600, Party 600, Vio./File Date 1500"_s;
    QTest::newRow("names, SNCI") << false << QByteArray("lvDupe")
                                 << u"Name 2300, Sex 700, D.O.B. 1200, Race 700, Height 800, "
                                    "Weight 800, Physical Desc. 2300, Notes 900"_s;
    QTest::newRow("names, DND") << true << QByteArray("lvDupe")
                                << u"Name 2400, Sex 500, D.O.B. 1200, Adddress 2600, Race 500, "
                                   "Ht. 400, Wt. 400, Phys. Desc. 800"_s;
}

void tst_DupesWindow::columns()
{
    QFETCH(bool, addresses);
    QFETCH(QByteArray, list);
    const frmDiscisNCNameResults window(addresses ? DiscisDndSearch::Yes : DiscisDndSearch::No);
    QStringList columns;
    for (const ListColumn &column : ListOf(&window, list)->List()->Columns())
        columns.append(column.Header + u' ' + QString::number(column.Width));
    QTEST(columns.join(u", "_s), "columns");
}

void tst_DupesWindow::onlyNamesHaveCheckBoxes()
{
    const frmDiscisNCNameResults window;
    QVERIFY(ListOf(&window, "lvDupe")->List()->HasCheckBoxes());
    QVERIFY(!ListOf(&window, "listview1")->List()->HasCheckBoxes());
    QCOMPARE(TextOf(&window, "Label1"), howToOpen);
}

void tst_DupesWindow::aSearchThatReturnsOnlyDuplicateNamesEndsWithTheNamesInFront()
{
    court->Expect(StatewideLine()).Reply({PersonRow(u"A"_s), PersonRow(u"B"_s)});
    frmDiscisNCNameResults *window = Begun();
    QString meanwhile;
    desk->When([&] { return NamesOf(window).size() == 2; },
               [&] {
                   QTRY_COMPARE(TextOf(window, "Label3"), u"Cases Found: 2"_s);
                   meanwhile = TextOf(window, "lblSearchStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(meanwhile, multipleNames);
    QCOMPARE(FrontOf(window), u"names"_s);
    QVERIFY(window->DupesFound);
    QVERIFY(window->ShowingDupes);
    QCOMPARE(NamesOf(window), (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"01/02/1970"_s, u"W"_s,
                                                   u"510"_s, u"180"_s, u"BRO"_s, u"NONE"_s},
                                                  {u"SMITH, B"_s, u"M"_s, u"01/02/1970"_s, u"W"_s,
                                                   u"510"_s, u"180"_s, u"BRO"_s, u"NONE"_s}}));
    QCOMPARE(ListOf(window, "lvDupe")->List()->Key(1), u"I2"_s);
    QCOMPARE(window->RowCount(), 0);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    2 Duplicate Names Found."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), checkNames);
    QVERIFY(!ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdViewDupes")->text(), u"&View Cases"_s);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    QVERIFY(desk->Folder.Logged(u"NORMAL EXIT - from ProcessSearchReqeusts."_s));
}

void tst_DupesWindow::namesWithAddresses()
{
    const frmDiscisNCNameResults *window =
        Searched({AddressRow(u"A"_s, u"K1"_s), u"EOF~"_s}, u"DND"_s);
    QCOMPARE(NamesOf(window),
             (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"01/02/1970"_s, u"12 MAIN ST"_s, u"W"_s,
                                  u"510"_s, u"180"_s, u"BRO"_s}}));
    QCOMPARE(ListOf(window, "lvDupe")->List()->Key(0), u"K1/01/1"_s);
}

void tst_DupesWindow::anAddressRowOfAnotherLengthIsADescription()
{
    const frmDiscisNCNameResults *window = Searched(
        {u"NCDND~SMITH, A~M~unknown~W~unknown~180~unknown~unknown~"_s, u"EOF~"_s}, u"DND"_s);
    QCOMPARE(NamesOf(window),
             (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"n/a"_s, u"W"_s, u"n/a"_s, u"180"_s,
                                  u"unknown"_s, u"unknown"_s}}));
    QCOMPARE(ListOf(window, "lvDupe")->List()->Key(0), u"I1"_s);
}

void tst_DupesWindow::completion_data()
{
    QTest::addColumn<QString>("rows"); // n: a name, c: a case
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("other"); // cmdViewDupes
    QTest::addColumn<bool>("otherEnabled");

    const QString viewCases = u"&View Cases"_s;
    const QString viewDupes = u"&View Duplicates"_s;
    const auto row = [](const char *name, const QString &rows, const QString &front,
                        const QString &found, const QString &other, bool enabled) {
        QTest::newRow(name) << rows << front << QString(u"Search Complete:    "_s + found)
                            << (front == u"names" ? checkNames : complete) << other << enabled;
    };
    row("nothing", {}, u"cases"_s, u"0 Cases Retrieved."_s, viewDupes, false);
    row("one case", u"c"_s, u"cases"_s, u"1 Case Retrieved."_s, viewDupes, false);
    row("cases", u"cc"_s, u"cases"_s, u"2 Cases Retrieved."_s, viewDupes, false);
    row("one name", u"n"_s, u"names"_s, u"1 Duplicate Names Found."_s, viewCases, false);
    row("names", u"nnn"_s, u"names"_s, u"3 Duplicate Names Found."_s, viewCases, false);
    row("names before a case", u"nnc"_s, u"cases"_s, u"1 Case Retrieved."_s, viewDupes, true);
    row("names before cases", u"ncc"_s, u"cases"_s, u"2 Cases Retrieved."_s, viewDupes, true);
    row("cases before names", u"ccn"_s, u"names"_s, u"1 Duplicate Names Found."_s, viewCases, true);
    row("mixed", u"ncncn"_s, u"names"_s, u"3 Duplicate Names Found."_s, viewCases, true);
}

void tst_DupesWindow::completion()
{
    QFETCH(QString, rows);
    QStringList replies;
    for (const QChar kind : rows)
        replies.append(kind == u'n' ? PersonRow(u"A"_s) : CaseRow(u"SMITH"_s));
    const frmDiscisNCNameResults *window = Searched(replies << u"EOF~"_s);
    QTEST(FrontOf(window), "front");
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(ButtonOf(window, "cmdViewDupes")->text(), "other");
    QTEST(ButtonOf(window, "cmdViewDupes")->isEnabled(), "otherEnabled");
    QCOMPARE(NamesOf(window).size(), rows.count(u'n'));
    QCOMPARE(window->RowCount(), static_cast<int>(rows.count(u'c')));
    QCOMPARE(TextOf(window, "Label3"), QString());
    for (const char *label : {"lblStatus", "lblSearchStatus"}) {
        QCOMPARE(ColourOf(window, label), u"blue"_s);
        QVERIFY(IsBold(window, label));
    }
}

void tst_DupesWindow::whatComesGoesInFront()
{
    court->Expect(StatewideLine());
    frmDiscisNCNameResults *window = Begun();
    const QStringList rows{PersonRow(u"A"_s), PersonRow(u"B"_s), CaseRow(u"C"_s), PersonRow(u"D"_s),
                           u"EOF~"_s};
    // What is in front, and its count, with so many rows.
    const QStringList front{u"cases, Cases Found: 0"_s, u"names, Cases Found: 1"_s,
                            u"names, Cases Found: 2"_s, u"cases, Cases Found: 1"_s,
                            u"names, Cases Found: 3"_s};
    for (int came = 0; came < rows.size(); ++came) {
        desk->When(
            [&, came] {
                return !court->Requests().isEmpty()
                       && NamesOf(window).size() + window->RowCount() == came;
            },
            [&, came] {
                QTRY_COMPARE(FrontOf(window) + u", "_s + TextOf(window, "Label3"), front[came]);
                court->SendTokens({rows[came]});
            });
    }
    QVERIFY(desk->Finish(window));
}

void tst_DupesWindow::bothViews_data()
{
    QTest::addColumn<int>("clicks"); // on cmdViewDupes, with the cases in front
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("retrieve");
    QTest::addColumn<QString>("other");
    QTest::newRow("to names") << 1 << u"names"_s << howToCheck << multipleNames
                              << u"Retrieve Case(s)"_s << u"&View Cases"_s;
    QTest::newRow("to cases") << 2 << u"cases"_s << howToOpen << completeInView
                              << u"Retrieve Case Details"_s << u"&View Duplicates"_s;
    QTest::newRow("to names again") << 3 << u"names"_s << howToCheck << multipleNames
                                    << u"Retrieve Case(s)"_s << u"&View Cases"_s;
}

void tst_DupesWindow::bothViews()
{
    QFETCH(int, clicks);
    const frmDiscisNCNameResults *window =
        Searched({PersonRow(u"A"_s), CaseRow(u"SMITH"_s), u"EOF~"_s});
    const QString status = TextOf(window, "lblStatus");
    const bool opens = ButtonOf(window, "cmdSearchResults_0")->isEnabled();
    for (int i = 0; i < clicks; ++i)
        ButtonOf(window, "cmdViewDupes")->click();
    QTEST(FrontOf(window), "front");
    QCOMPARE(window->ShowingDupes, FrontOf(window) == u"names");
    QTEST(TextOf(window, "Label1"), "instruction");
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(ButtonOf(window, "cmdSearchResults_0")->text(), "retrieve");
    QTEST(ButtonOf(window, "cmdViewDupes")->text(), "other");
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdSearchResults_0")->isEnabled(), window->ShowingDupes || opens);
    QCOMPARE(TextOf(window, "lblStatus"), status);
}

void tst_DupesWindow::theFocusGoesWithTheLists()
{
    frmDiscisNCNameResults *window = Searched({CaseRow(u"SMITH"_s), PersonRow(u"A"_s), u"EOF~"_s});
    QCOMPARE(window->focusWidget()->objectName(), u"lvDupe"_s);
    window->ToggleDupesView();
    QCOMPARE(window->focusWidget()->objectName(), u"listview1"_s);
    // Whoever looks for words in a list that goes is in the other one then.
    ListOf(window)->Tools()->OpenFind();
    QCOMPARE(window->focusWidget()->objectName(), u"txtFind"_s);
    window->ToggleDupesView();
    QCOMPARE(window->focusWidget()->objectName(), u"lvDupe"_s);
    window->ToggleDupesView();
    ButtonOf(window, "cmdViewDupes")->setFocus();
    window->ToggleDupesView();
    QCOMPARE(window->focusWidget()->objectName(), u"cmdViewDupes"_s);
}

void tst_DupesWindow::markupInACellIsText()
{
    const QString name = u"<b>SMITH</b> &amp; <img src=x>"_s;
    const frmDiscisNCNameResults *window =
        Searched({u"NCNMD~%1~M~2~3~4~5~6~7~"_s.arg(name), u"EOF~"_s});
    const ResultListView *list = ListOf(window, "lvDupe");
    const QVariant shown = list->model()->index(0, 0).data();
    QCOMPARE(shown.typeId(), QMetaType::QString);
    QCOMPARE(shown.toString(), name);
}

void tst_DupesWindow::aShortNameRowLosesTheSearch()
{
    const frmDiscisNCNameResults *window = Searched({u"NCNMD~SMITH~M~"_s, u"EOF~"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(window->DupesFound);
}

void tst_DupesWindow::otherOutcomesLeaveBothListsToBeSeen_data()
{
    QTest::addColumn<QString>("rows"); // n: a name, c: a case
    QTest::addColumn<bool>("otherEnabled");
    QTest::newRow("names and cases") << u"ncn"_s << true;
    QTest::newRow("cases and names") << u"nc"_s << true;
    QTest::newRow("names") << u"n"_s << false;
    QTest::newRow("cases") << u"c"_s << false;
}

void tst_DupesWindow::otherOutcomesLeaveBothListsToBeSeen()
{
    QFETCH(QString, rows);
    QStringList replies;
    for (const QChar kind : rows)
        replies.append(kind == u'n' ? PersonRow(u"A"_s) : CaseRow(u"SMITH"_s));
    const frmDiscisNCNameResults *window = Searched(replies << u"ERROR~x~"_s << u"EOF~"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QTEST(ButtonOf(window, "cmdViewDupes")->isEnabled(), "otherEnabled");
    if (window->ShowingDupes)
        QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
}

void tst_DupesWindow::aLongNameDoesNotWidenTheWindow()
{
    frmDiscisNCNameResults window;
    const int width = window.minimumSizeHint().width();
    window.SetNameVal(QStringList(20, u"SMITH, JOHN"_s).join(u", "_s));
    QCOMPARE(window.minimumSizeHint().width(), width);
}

/// Nine characters of a case number, or three of a height, fit their columns only so.
void tst_DupesWindow::bothListsAreWrittenSmall()
{
    const frmDiscisNCNameResults window;
    for (const char *name : {"listview1", "lvDupe"})
        QVERIFY(ListOf(&window, name)->font().pointSizeF() < window.font().pointSizeF());
}

HALVANE_TEST(tst_DupesWindow)
#include "tst_DupesWindow.moc"
