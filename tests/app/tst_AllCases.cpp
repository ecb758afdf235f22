#include "app/PracticeCourt.h"
#include "app/PracticeUser.h"
#include "casedetails/frmCaseDetails.h"
#include "controls/FlexGrid.h"
#include "controls/TabStrip.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "namesearch/NameResultsWindow.h"
#include "practice/ToldCases.h"
#include "searchentry/frmSearchWA.h"
#include "support/ProcessorTime.h"

#include <QDeadlineTimer>
#include <QDialog>
#include <QPushButton>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>

namespace {
const QString practice = QStringLiteral(HALVANE_BIN_DIR "/halvane-practice");

/// Cases that the practice court would make up only by chance.
constexpr const char *ownPeople = "Quick~Ada~B~King~Juvenile Offender~03/04/1999~Theft 3~Respondent\n"
                                  "Quick~Bert~C~King~Criminal~05/06/1981~Forgery~Defendant~*\n"
                                  "Quick~Cora~D~King~Civil~05/06/1981~Contract~Plaintiff~*\n"
                                  "Quick~Dirk~E~King~Probate~07/08/2001~Will~Petitioner\n"
                                  "Quick~Elsa~F~King~Judgment~07/08/2001~Tax Warrant~Judgment "
                                  "Debtor\n";

QStringList name(const QString &last, const QString &first, const QString &middle)
{
    return {u"type txtSearchName_0 "_s + last, u"type txtSearchName_1 "_s + first,
            u"type txtSearchName_2 "_s + middle};
}

/// Who the practice court has whatever its seed.
const QStringList smith = name(u"Smith"_s, u"John"_s, u"q"_s);
const QStringList discis{u"click optCourtSelection_1"_s};
const QStringList nonCivil{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s};
const QStringList statewide{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s};
const QStringList seattle{u"choose cboxCountyList King"_s, u"click cmdClearCourtList"_s,
                          u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s};
const QStringList federal{u"click optState_2"_s, u"click chkBKcourt_2"_s};
const QStringList byNumber{u"click optSearchType_2"_s};

QStringList county(const QString &name)
{
    return {u"tick lboxCountyOrProfile "_s + name};
}

QStringList type(const QString &word)
{
    return {u"tick lboxCaseTypes "_s + word};
}

/// One county in the list for a case number.
QStringList inCounty(const QString &name)
{
    return byNumber + QStringList{u"tick lboxMultiJurisdiction "_s + name};
}

const QStringList oneSeattle{u"choose cboxCountyList King"_s,
                             u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s};

const QStringList firstTwo{u"Summary"_s, u"Names"_s};
const QStringList criminalTabs =
    firstTwo + QStringList{u"Docket"_s,   u"Judgments"_s,  u"Charges"_s,  u"Sentence"_s,
                           u"Accounting"_s, u"Schedule"_s, u"Documents"_s};
const QStringList civilTabs = firstTwo + QStringList{u"Docket"_s, u"Judgments"_s, u"Accounting"_s,
                                                     u"Schedule"_s, u"Documents"_s};
const QStringList archivedCriminalTabs =
    firstTwo + QStringList{u"Judgments"_s, u"Charges"_s, u"Sentence"_s, u"Schedule"_s,
                           u"Documents"_s};
const QStringList archivedCivilTabs =
    firstTwo + QStringList{u"Judgments"_s, u"Accounting"_s, u"Documents"_s};
const QStringList judgmentTabs = firstTwo + QStringList{u"Docket"_s, u"Documents"_s};
const QStringList discisTabs = firstTwo + QStringList{u"Docket"_s, u"Judgments"_s};
const QStringList everyTab = criminalTabs + QStringList{u"Finance"_s, u"Violations"_s};
const QStringList nonCivilTabs = firstTwo + QStringList{u"Docket"_s, u"Violations"_s};

/// A case as the list of results has it, and what its window must show.
struct Expected
{
    QString form;
    QString cell;   ///< the case number in the list, with its marks
    QString person; ///< in the Names grid
    QString court;  ///< in lblCourtName
    QStringList tabs;
};

/// What a list of results says of a case.
struct CaseRow
{
    QString number;
    QString filed;
    QString title; ///< only the index has it
    QString surname;
};

QString bare(QString cell)
{
    while (cell.startsWith(u'>') || cell.startsWith(u'*'))
        cell.remove(0, 1);
    return cell;
}

bool isWord(const QString &header)
{
    return !header.trimmed().isEmpty() && header.front().isLetter() && !header.contains(u'~');
}

/// Why the grid is no table that a court would send; "" when it is one. Nothing but a message
/// counts as one: a case need not have judgments.
QString troubleWith(const CaseWindow *window, CaseTab tab)
{
    const GridTable &table = window->Tab(tab).Grid->Table();
    const QString caption = CaseTabRowOf(tab).caption.toString();
    if (table.Columns.isEmpty())
        return caption + u" has no grid"_s;
    if (table.Columns.size() == 1) {
        const QString message = table.Rows.value(table.Rows.size() - 1).value(0);
        const bool empty = message.startsWith(u"No ") || message.startsWith(u"Documents ");
        return empty ? QString() : caption + u" reads "_s + message;
    }
    double width = 0;
    for (const GridColumn &column : table.Columns) {
        if (!isWord(column.Header))
            return caption + u" has the header "_s + column.Header;
        width += column.Percent;
    }
    constexpr double whole = 100;
    constexpr double slack = 1.5;
    if (width < whole - slack || width > whole + slack)
        return caption + u" is so wide: "_s + QString::number(width);
    if (table.Rows.isEmpty())
        return caption + u" has no row"_s;
    for (const QStringList &row : table.Rows) {
        if (row.size() > table.Columns.size())
            return caption + u" has a wider row: "_s + row.join(u'~');
    }
    return {};
}

bool hasCell(const CaseWindow *window, CaseTab tab, const QString &text)
{
    const QList<QStringList> &rows = window->Tab(tab).Grid->Table().Rows;
    return std::any_of(rows.begin(), rows.end(),
                       [&](const QStringList &row) { return row.contains(text); });
}

/// The tabs of the window in the order of the strip.
QList<CaseTab> tabsOf(const CaseWindow *window)
{
    QList<CaseTab> tabs;
    for (const QString &caption : StripOf(window)->Captions())
        tabs.append(CaseTabOf(caption).value_or(CaseTab::Summary));
    return tabs;
}

/// The places and dates that a list calls so.
QString cellUnder(const NameResultsWindow *results, int row, const QString &header)
{
    const QStringList headers = HeadersOf(results);
    for (int column = 0; column < headers.size(); ++column) {
        if (headers[column].contains(header, Qt::CaseInsensitive))
            return RowsOf(results).value(row).value(column);
    }
    return {};
}

int rowOf(const NameResultsWindow *results, const QString &cell)
{
    const QList<QStringList> rows = RowsOf(results);
    for (int row = 0; row < rows.size(); ++row) {
        if (rows[row].value(1) == cell)
            return row;
    }
    return -1;
}

QString told(Practice::CourtFamily family, Practice::ToldCase meaning)
{
    for (const Practice::ToldCaseRow &row : Practice::toldCases) {
        if (row.meaning == meaning && (row.families & Practice::FamilyBit(family)) != 0)
            return Practice::ToldCaseNumber(family, row);
    }
    return {};
}
} // namespace

Q_DECLARE_METATYPE(Expected)

/// Every kind of case, from the search form to the last tab, against the practice court.
class tst_AllCases : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aCaseOfAList_data();
    void aCaseOfAList();
    void aCaseThatWasOpenedBeforeCountsAsArchived();
    void aCaseByItsNumber_data();
    void aCaseByItsNumber();
    void severalBankruptcyCasesOfOneNumber();
    void aCaseInArbitration_data();
    void aCaseInArbitration();
    void aBatch();
    void aDocketOfTwentyThousandEntries_data();
    void aDocketOfTwentyThousandEntries();
    void threeCasesAtRestUseNoProcessorTime();

private:
    static void checkCase(const CaseWindow *window, const Expected &expected);
    static void checkRow(const CaseWindow *window, const CaseRow &row);
    void expectNotScomis();
    CaseWindow *startNumber(const QStringList &steps, const QString &number, bool asks);

    QTemporaryFile people;
    PracticeCourt court;
    std::unique_ptr<PracticeUser> user;
};

void tst_AllCases::initTestCase()
{
    QVERIFY(people.open());
    people.write(ownPeople);
    people.close();
    QVERIFY2(court.Start(practice, {u"--data"_s, people.fileName()}), qPrintable(court.Error()));
}

void tst_AllCases::init()
{
    user = std::make_unique<PracticeUser>(court.Port());
}

void tst_AllCases::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_AllCases::aCaseOfAList_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<Expected>("expected");
    struct Row
    {
        const char *name;
        QStringList steps;
        Expected expected;
    };
    const QStringList oregon{u"click optState_0"_s};
    const QStringList idaho{u"click optState_3"_s, u"click optSearchWhere_2"_s};
    const QString state = u"frmCaseDetails"_s;
    const QString king = u"King County"_s;
    const QString john = u"SMITH, JOHN Q"_s;
    const QList<Row> rows{
        {"Superior, criminal", smith + county(u"King"_s) + type(u"Criminal"_s),
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Superior, civil", smith + county(u"King"_s) + type(u"Civil"_s),
         {state, u"98-2-00017-7"_s, john, king, civilTabs}},
        {"Superior, a judgment", smith + county(u"Adams"_s) + type(u"Judgment"_s),
         {state, u"*96-9-00005-9"_s, john, u"Adams County"_s, judgmentTabs}},
        {"Superior, juvenile",
         name(u"Quick"_s, u"Ada"_s, u"B"_s) + county(u"King"_s) + type(u"Juvenile Offender"_s),
         {state, {}, u"QUICK, ADA B"_s, king, criminalTabs}},
        {"Superior, archived, criminal",
         name(u"Quick"_s, u"Bert"_s, u"C"_s) + county(u"King"_s) + type(u"Criminal"_s),
         {state, {}, u"QUICK, BERT C"_s, king, archivedCriminalTabs}},
        {"Superior, archived, civil",
         name(u"Quick"_s, u"Cora"_s, u"D"_s) + county(u"King"_s) + type(u"Civil"_s),
         {state, {}, u"QUICK, CORA D"_s, king, archivedCivilTabs}},
        {"Superior, probate",
         name(u"Quick"_s, u"Dirk"_s, u"E"_s) + county(u"King"_s) + type(u"Probate"_s),
         {state, {}, u"QUICK, DIRK E"_s, king, civilTabs}},
        {"Index", QStringList{u"click chkUseIndex"_s} + smith + county(u"King"_s)
                      + type(u"Criminal"_s),
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Oregon Circuit, domestic", oregon + smith + county(u"Multnomah"_s) + type(u"Domestic"_s),
         {state, u"DO99120007"_s, john, u"Oregon State - Multnomah"_s, {}}},
        {"Oregon Circuit, civil", oregon + smith + county(u"Multnomah"_s) + type(u"Civil"_s),
         {state, u"CV08060677"_s, john, u"Oregon State - Multnomah"_s, {}}},
        {"Oregon District",
         oregon + QStringList{u"click optSearchWhere_2"_s} + smith + type(u"Small Claims"_s),
         {state, u"SC97030044"_s, john, u"Oregon State - Washington"_s, {}}},
        {"Idaho, criminal", idaho + smith + type(u"Criminal"_s),
         {state, u"CR-1998-0002546-IN"_s, john, u"Ada"_s, {}}},
        {"Idaho, civil", idaho + smith + type(u"Civil"_s),
         {state, u"CV-2004-0000711-OC"_s, john, u"Kootenai"_s, {}}},
        {"District, civil", discis + smith + seattle,
         {u"frmCivilCaseDetails"_s, u"5KS000123"_s, john, u"King District Seattle"_s, discisTabs}},
        {"District, non-civil", nonCivil + smith + seattle,
         {u"frmNCCaseDetails"_s, u"3YH809020"_s, john, u"King District Seattle"_s, nonCivilTabs}},
        {"Municipal, non-civil, statewide", nonCivil + smith + statewide,
         {u"frmNCCaseDetails"_s, u"1TA004410"_s, john, u"Tacoma"_s, nonCivilTabs}},
        {"Superior, in a list of non-civil cases", nonCivil + smith + statewide,
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Bankruptcy", federal + smith,
         {state, u"99-20077"_s, john, u"Oregon Bankruptcy"_s,
          firstTwo + QStringList{u"Docket"_s}}},
    };
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.steps << row.expected;
}

void tst_AllCases::checkCase(const CaseWindow *window, const Expected &expected)
{
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(!window->AnyTabIncomplete());
    const QStringList captions = StripOf(window)->Captions();
    if (!expected.tabs.isEmpty())
        QCOMPARE(captions, expected.tabs);
    QCOMPARE(captions.first(3), firstTwo + QStringList{captions.value(2)});
    for (const CaseTab tab : tabsOf(window)) {
        const QString caption = CaseTabRowOf(tab).caption.toString();
        QVERIFY2(window->Tab(tab).TabDone, qPrintable(caption));
        QCOMPARE(troubleWith(window, tab), QString());
        QVERIFY(ClickTab(window, caption));
        QVERIFY2(!ShowsPanel(window), qPrintable(caption));
        QVERIFY2(window->Tab(tab).Grid->isVisible(), qPrintable(caption));
    }
    QVERIFY2(hasCell(window, CaseTab::Names, expected.person), qPrintable(expected.person));
    QVERIFY2(window->lblCourtName().contains(expected.court), qPrintable(window->lblCourtName()));
    QCOMPARE(Keys(), QStringList());
    QVERIFY(!Global.bSearchInProgress);
}

void tst_AllCases::checkRow(const CaseWindow *window, const CaseRow &row)
{
    QCOMPARE(window->lblDateFiled(), row.filed);
    QCOMPARE(bare(window->txtCaseNumber), row.number);
    QVERIFY2(window->lblCaseDetailsHdr().contains(row.number),
             qPrintable(window->lblCaseDetailsHdr()));
    QVERIFY2(window->windowTitle().contains(row.number), qPrintable(window->windowTitle()));
    // A non-civil case has the name of its defendant in the place of a title.
    const QString title = window->objectName() == u"frmNCCaseDetails" ? TextOf(window, "lblName")
                                                                      : window->lblCaseTitle();
    QVERIFY2(row.title.isEmpty() ? title.contains(row.surname) : title == row.title,
             qPrintable(title));
}

void tst_AllCases::aCaseOfAList()
{
    QFETCH(QStringList, steps);
    QFETCH(Expected, expected);
    QVERIFY(LogInAs(u"quiet"_s));
    NameResultsWindow *results = user->Search(steps);
    QVERIFY(results);
    const int index = expected.cell.isEmpty() ? 0 : rowOf(results, expected.cell);
    QVERIFY2(index >= 0 && index < results->RowCount(), qPrintable(TextOf(results, "lblStatus")));
    const CaseRow row{bare(RowsOf(results).at(index).at(1)), cellUnder(results, index, u"Fil"_s),
                      cellUnder(results, index, u"Title"_s), expected.person.section(u',', 0, 0)};

    FetchAtOnce(everyTab);
    CaseWindow *window = user->OpenRow(results, index);
    QVERIFY(window);
    QCOMPARE(window->objectName(), expected.form);
    QVERIFY(user->Run(window));
    checkCase(window, expected);
    checkRow(window, row);

    // Once more with nothing fetched at first, from a list in which it has not been opened.
    FetchAtOnce({});
    NameResultsWindow *again = user->Search({});
    QVERIFY(again && again != results);
    CaseWindow *second = user->OpenRow(again, index);
    QVERIFY(second && second != window);
    QVERIFY(user->Run(second));
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(StripOf(second)->Captions(), StripOf(window)->Captions());
    // The bankruptcy courts have no settings: the Summary says what there is.
    if (!second->chkBK) {
        for (const QString &caption : StripOf(second)->Captions().sliced(1)) {
            QVERIFY(ClickTab(second, caption));
            QVERIFY2(ShowsPanel(second), qPrintable(caption));
        }
        QVERIFY(user->FetchOnDemand(second));
    }
    checkCase(second, expected);
    checkRow(second, row);
    for (const CaseTab tab : tabsOf(window))
        QVERIFY2(second->Tab(tab).Grid->Table() == window->Tab(tab).Grid->Table(),
                 qPrintable(CaseTabRowOf(tab).caption.toString()));
}

void tst_AllCases::aCaseThatWasOpenedBeforeCountsAsArchived()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    NameResultsWindow *results = user->Search(smith + county(u"King"_s) + type(u"Criminal"_s));
    QVERIFY(results);
    QVERIFY(user->Run(user->OpenRow(results, 0)));
    QCOMPARE(RowsOf(results).at(0).at(1), u">>94-1-00042-1"_s);
    CaseWindow *second = user->OpenRow(results, 0);
    QVERIFY(second);
    QVERIFY(user->Run(second));
    checkCase(second, {{},
                       u"94-1-00042-1"_s,
                       u"SMITH, JOHN Q"_s,
                       u"King County"_s,
                       archivedCriminalTabs});
}

void tst_AllCases::expectNotScomis()
{
    user->Desk.Boxes.Expect(u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo "
                            "continue the search using this number click OK."_s,
                            u"Halvane Form Field Validation"_s, MsgIcon::Exclamation,
                            MsgAnswer::Ok, MsgButtons::OkCancel);
}

/// Enters a number and starts its search; the window of its case.
CaseWindow *tst_AllCases::startNumber(const QStringList &steps, const QString &number, bool asks)
{
    user->Do(steps + QStringList{u"type txtSearchName_0 "_s + number});
    if (asks)
        expectNotScomis();
    return user->StartOne<CaseWindow>();
}

void tst_AllCases::aCaseByItsNumber_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<Expected>("expected");
    QTest::addColumn<QString>("filed");
    const QString state = u"frmCaseDetails"_s;
    const QString john = u"SMITH, JOHN Q"_s;
    const QString seattleName = u"King District Seattle"_s;
    QTest::newRow("Superior") << inCounty(u"King"_s) << false
                              << Expected{state, u"94-1-00042-1"_s, john, u"King County"_s,
                                          criminalTabs}
                              << u"11/07/1994"_s;
    QTest::newRow("Superior, a judgment")
        << inCounty(u"Adams"_s) << false
        << Expected{state, u"96-9-00005-9"_s, john, u"Adams County"_s, judgmentTabs}
        << u"02/14/1996"_s;
    QTest::newRow("Oregon Circuit")
        << QStringList{u"click optState_0"_s} + inCounty(u"Multnomah"_s) << true
        << Expected{state, u"DO99120007"_s, john, u"Oregon State - Multnomah"_s, {}}
        << u"12/06/1999"_s;
    QTest::newRow("Oregon District")
        << QStringList{u"click optState_0"_s, u"click optOrCDcourts_1"_s}
               + inCounty(u"Washington"_s)
        << true << Expected{state, u"SC97030044"_s, john, u"Oregon State - Washington"_s, {}}
        << u"03/04/1997"_s;
    QTest::newRow("Idaho") << QStringList{u"click optState_3"_s} + inCounty(u"Ada"_s) << false
                           << Expected{state, u"CR-1998-0002546-IN"_s, john, u"Ada"_s, {}}
                           << u"05/08/1998"_s;
    QTest::newRow("District, civil")
        << discis + byNumber + oneSeattle << true
        << Expected{u"frmCivilCaseDetails"_s, u"5KS000123"_s, john, seattleName, discisTabs}
        << u"01/11/2005"_s;
    QTest::newRow("District, non-civil")
        << nonCivil + byNumber + oneSeattle << true
        << Expected{u"frmNCCaseDetails"_s, u"3YH809020"_s, john, seattleName, nonCivilTabs}
        << u"08/09/2003"_s;
    QTest::newRow("Bankruptcy")
        << federal + byNumber << false
        << Expected{state, u"99-20077"_s, john, u"Oregon Bankruptcy"_s,
                    firstTwo + QStringList{u"Docket"_s}}
        << u"03/16/1999"_s;
}

void tst_AllCases::aCaseByItsNumber()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, asks);
    QFETCH(Expected, expected);
    QFETCH(QString, filed);
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    CaseWindow *window = startNumber(steps, expected.cell, asks);
    QVERIFY(window);
    QCOMPARE(window->objectName(), expected.form);
    QVERIFY(user->Run(window));
    checkCase(window, expected);
    QCOMPARE(window->lblDateFiled(), filed);
    QVERIFY2(window->lblCaseDetailsHdr().contains(expected.cell),
             qPrintable(window->lblCaseDetailsHdr()));
}

void tst_AllCases::severalBankruptcyCasesOfOneNumber()
{
    QVERIFY(LogInAs(u"quiet"_s));
    const QString number = told(Practice::CourtFamily::Bankruptcy, Practice::ToldCase::Multiple);
    CaseWindow *list = startNumber(federal + byNumber, number, false);
    QVERIFY(list);
    QVERIFY(user->Run(list));
    QCOMPARE(TextOf(list, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(StripOf(list)->Captions(), QStringList{u"Summary"_s});
    QCOMPARE(list->lblCaseTitle(), u"Multiple Matching Cases Found for the Number Entered"_s);
    const FlexGrid *grid = list->Tab(CaseTab::Summary).Grid;
    QCOMPARE(grid->Rows(), 1 + Practice::multipleCases);
    QCOMPARE(grid->Cell(0, 0), u"Case#"_s);

    const QString second = number + u"-2"_s;
    QCOMPARE(grid->Cell(2, 0), second);
    const QModelIndex index = grid->model()->index(1, 0);
    const QList<JobWindow *> windows = user->NewWindows([&] {
        const QPoint where = grid->visualRect(index).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, where);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, where);
    });
    QCOMPARE(windows.size(), 1);
    auto *window = qobject_cast<CaseWindow *>(windows.first());
    QVERIFY(window);
    QVERIFY(user->Run(window));
    checkCase(window, {{},
                       second,
                       u"PRACTICE, JAMES A"_s,
                       u"Oregon Bankruptcy"_s,
                       firstTwo + QStringList{u"Docket"_s}});
    QVERIFY(hasCell(window, CaseTab::Summary, second));
}

void tst_AllCases::aCaseInArbitration_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("arbitration");
    QTest::newRow("yes") << u"Command1"_s << true;
    QTest::newRow("no") << u"Command2"_s << false;
}

void tst_AllCases::aCaseInArbitration()
{
    QFETCH(QString, button);
    QFETCH(bool, arbitration);
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    const QString number = told(Practice::CourtFamily::Superior, Practice::ToldCase::Arbitration);
    CaseWindow *window = startNumber(inCounty(u"King"_s), number, false);
    QVERIFY(window);
    user->Desk.Boxes.ExpectDialog(u"frmArbPrompt"_s, [button](QDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
    });
    QVERIFY(user->Run(window));
    checkCase(window, {{}, number, u"PRACTICE, JAMES A"_s, u"King County"_s, civilTabs});
    QCOMPARE(window->lblCourtName().contains(u"Arbitration"_s), arbitration);
    // The tabs are of the same part of the case as its summary.
    const QList<QStringList> &docket = window->Tab(CaseTab::Docket).Grid->Table().Rows;
    const bool speaksOfIt =
        std::any_of(docket.begin(), docket.end(), [](const QStringList &row) {
            return row.join(u' ').contains(u"Arbitration"_s, Qt::CaseInsensitive);
        });
    QCOMPARE(speaksOfIt, arbitration);
}

void tst_AllCases::aBatch()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    struct Row
    {
        QString number;
        QString county;
        QStringList tabs;
    };
    const QList<Row> rows{{u"94-1-00042-1"_s, u"King"_s, criminalTabs},
                          {u"98-2-00017-7"_s, u"King"_s, civilTabs},
                          {u"05-2-00031-8"_s, u"Pierce"_s, civilTabs}};
    QStringList steps = byNumber + QStringList{u"click chkBulkSearch"_s};
    for (int i = 0; i < rows.size(); ++i) {
        const QString suffix = u'_' + QString::number(i) + u' ';
        steps += QStringList{u"type Text1"_s + suffix + rows[i].number,
                             u"choose cbCty1"_s + suffix + rows[i].county};
    }
    user->Do(steps);
    const QList<JobWindow *> windows =
        user->NewWindows([this] { user->Do({u"click cmdBatchSearch_4"_s}); });
    QCOMPARE(windows.size(), rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        auto *window = qobject_cast<CaseWindow *>(windows[i]);
        QVERIFY(window);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
        QVERIFY(user->Run(window));
        QCOMPARE(Keys().size(), rows.size() - i - 1);
    }
    for (int i = 0; i < rows.size(); ++i)
        checkCase(qobject_cast<CaseWindow *>(windows[i]),
                  {{},
                   rows[i].number,
                   u"SMITH, JOHN Q"_s,
                   rows[i].county + u" County"_s,
                   rows[i].tabs});
}

void tst_AllCases::aDocketOfTwentyThousandEntries_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("family");
    using Practice::CourtFamily;
    const auto add = [](const char *name, const QStringList &steps, CourtFamily family) {
        QTest::newRow(name) << steps << static_cast<int>(family);
    };
    add("Superior", inCounty(u"King"_s), CourtFamily::Superior);
    add("Oregon", QStringList{u"click optState_0"_s} + inCounty(u"Multnomah"_s),
        CourtFamily::Oregon);
    add("Idaho", QStringList{u"click optState_3"_s} + inCounty(u"Ada"_s), CourtFamily::Idaho);
    add("District, civil", discis + byNumber + oneSeattle, CourtFamily::District);
    add("District, non-civil", nonCivil + byNumber + oneSeattle, CourtFamily::District);
    add("Bankruptcy", federal + byNumber, CourtFamily::Bankruptcy);
}

void tst_AllCases::aDocketOfTwentyThousandEntries()
{
    QFETCH(QStringList, steps);
    QFETCH(int, family);
    const auto courts = static_cast<Practice::CourtFamily>(family);
    FetchAtOnce({u"Docket"_s});
    QVERIFY(LogInAs(u"quiet"_s));
    CaseWindow *window = startNumber(steps, told(courts, Practice::ToldCase::LongDocket),
                                     courts == Practice::CourtFamily::Oregon
                                         || courts == Practice::CourtFamily::District);
    QVERIFY(window);
    QVERIFY(user->Run(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(ClickTab(window, u"Docket"_s));
    const FlexGrid *grid = window->Tab(CaseTab::Docket).Grid;
    QVERIFY(grid->isVisible());
    QCOMPARE(grid->Rows(), static_cast<int>(Practice::longDocketEntries) + 1);
    QCOMPARE(troubleWith(window, CaseTab::Docket), QString());
}

void tst_AllCases::threeCasesAtRestUseNoProcessorTime()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    NameResultsWindow *results = user->Search(smith + county(u"King"_s) + type(u"Criminal"_s));
    QVERIFY(results);
    QList<CaseWindow *> windows;
    for (int i = 0; i < 3; ++i) {
        windows.append(user->OpenRow(results, 0));
        QVERIFY(windows.last());
        QVERIFY(user->Run(windows.last()));
    }
    // What is measured of the grids, and what announces the end of a run, comes to its end first.
    const auto busy = [&] {
        QStringList running;
        for (const CaseWindow *window : windows) {
            const QList<QTimer *> timers = window->findChildren<QTimer *>();
            for (const QTimer *timer : timers) {
                if (timer->isActive())
                    running.append(timer->parent()->objectName() + u'.' + timer->objectName());
            }
        }
        return running;
    };
    QTRY_COMPARE(busy(), QStringList());
    constexpr double restSeconds = 0.3;
    const double before = ProcessorSeconds();
    const QDeadlineTimer rest(static_cast<qint64>(restSeconds * 1000.0));
    while (!rest.hasExpired())
        YieldUntilEvent(static_cast<double>(rest.remainingTime()) / 1000.0);
    const double used = ProcessorSeconds() - before;
    // The desk looks for boxes a thousand times a second, which is not the program's doing.
    constexpr double allowed = 0.1 * restSeconds;
    QVERIFY2(used < allowed, qPrintable(QString::number(used)));
}

QTEST_MAIN(tst_AllCases)
#include "tst_AllCases.moc"
