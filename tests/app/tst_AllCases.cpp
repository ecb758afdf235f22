#include "app/CaseChecks.h"
#include "app/PracticeCourt.h"
#include "casedetails/CaseWindow.h"
#include "controls/TabStrip.h"
#include "core/EventLoop.h"
#include "namesearch/NameResultsWindow.h"
#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"
#include "tables/FlexGrid.h"

#include <QDeadlineTimer>
#include <QTemporaryFile>
#include <QTest>

namespace {
/// Cases that the practice court would make up only by chance.
constexpr const char *ownPeople =
    "Quick~Ada~B~King~Juvenile Offender~03/04/1999~Theft 3~Respondent\n"
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

const QStringList statewide{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s};
const QStringList seattle{u"choose cboxCountyList King"_s, u"click cmdClearCourtList"_s,
                          u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s};

QStringList county(const QString &name)
{
    return {u"tick lboxCountyOrProfile "_s + name};
}

QStringList type(const QString &word)
{
    return {u"tick lboxCaseTypes "_s + word};
}

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

constexpr double restSeconds = 0.3;

/// What the process uses in so many seconds in which nothing happens.
double processorSecondsAtRest()
{
    const double before = ProcessorSeconds();
    const QDeadlineTimer rest(static_cast<qint64>(restSeconds * 1000.0));
    while (!rest.hasExpired())
        YieldUntilEvent(static_cast<double>(rest.remainingTime()) / 1000.0);
    return ProcessorSeconds() - before;
}
} // namespace

/// Every kind of case, from a list of results to its last tab, against the practice court.
class tst_AllCases : public PracticeTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() override;

    void aCaseOfAList_data();
    void aCaseOfAList();
    void aCaseThatWasOpenedBeforeCountsAsArchived();
    void threeCasesAtRestUseNoProcessorTime();

private:
    static void checkRow(const CaseWindow *window, const CaseRow &row);

    QTemporaryFile people;
};

void tst_AllCases::initTestCase()
{
    QVERIFY(people.open());
    people.write(ownPeople);
    people.close();
    QCOMPARE(court.Start({u"--data"_s, people.fileName()}), QString());
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
        {"Superior, criminal",
         smithJohnQ + county(u"King"_s) + type(u"Criminal"_s),
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Superior, civil",
         smithJohnQ + county(u"King"_s) + type(u"Civil"_s),
         {state, u"98-2-00017-7"_s, john, king, civilTabs}},
        {"Superior, a judgment",
         smithJohnQ + county(u"Adams"_s) + type(u"Judgment"_s),
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
        {"Index",
         QStringList{u"click chkUseIndex"_s} + smithJohnQ + county(u"King"_s) + type(u"Criminal"_s),
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Oregon Circuit, domestic",
         oregon + smithJohnQ + county(u"Multnomah"_s) + type(u"Domestic"_s),
         {state, u"DO99120007"_s, john, u"Oregon State - Multnomah"_s, {}}},
        {"Oregon Circuit, civil",
         oregon + smithJohnQ + county(u"Multnomah"_s) + type(u"Civil"_s),
         {state, u"CV08060677"_s, john, u"Oregon State - Multnomah"_s, {}}},
        {"Oregon District",
         oregon + QStringList{u"click optSearchWhere_2"_s} + smithJohnQ + type(u"Small Claims"_s),
         {state, u"SC97030044"_s, john, u"Oregon State - Washington"_s, {}}},
        {"Idaho, criminal",
         idaho + smithJohnQ + type(u"Criminal"_s),
         {state, u"CR-1998-0002546-IN"_s, john, u"Ada"_s, {}}},
        {"Idaho, civil",
         idaho + smithJohnQ + type(u"Civil"_s),
         {state, u"CV-2004-0000711-OC"_s, john, u"Kootenai"_s, {}}},
        {"District, civil",
         discis + smithJohnQ + seattle,
         {u"frmCivilCaseDetails"_s, u"5KS000123"_s, john, u"King District Seattle"_s, discisTabs}},
        {"District, non-civil",
         nonCivil + smithJohnQ + seattle,
         {u"frmNCCaseDetails"_s, u"3YH809020"_s, john, u"King District Seattle"_s, nonCivilTabs}},
        {"Municipal, non-civil, statewide",
         nonCivil + smithJohnQ + statewide,
         {u"frmNCCaseDetails"_s, u"1TA004410"_s, john, u"Tacoma"_s, nonCivilTabs}},
        {"Superior, in a list of non-civil cases",
         nonCivil + smithJohnQ + statewide,
         {state, u"94-1-00042-1"_s, john, king, criminalTabs}},
        {"Bankruptcy",
         federal + smithJohnQ,
         {state, u"99-20077"_s, john, u"Oregon Bankruptcy"_s, firstTwo + QStringList{u"Docket"_s}}},
    };
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.steps << row.expected;
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
    CheckCase(window, expected);
    checkRow(window, row);

    // Once more with nothing fetched at first, from a list in which it has not been opened.
    FetchAtOnce({});
    NameResultsWindow *again = user->Search({});
    QVERIFY(again && again != results);
    CaseWindow *second = user->OpenRowAgain(again, index);
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
    CheckCase(second, expected);
    checkRow(second, row);
    for (const CaseTab tab : TabsOf(window))
        QVERIFY2(second->Tab(tab).Grid->Table() == window->Tab(tab).Grid->Table(),
                 qPrintable(CaseTabRowOf(tab).caption.toString()));
}

void tst_AllCases::aCaseThatWasOpenedBeforeCountsAsArchived()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    NameResultsWindow *results = user->Search(smithJohnQ + county(u"King"_s) + type(u"Criminal"_s));
    QVERIFY(results);
    QVERIFY(user->Run(user->OpenRow(results, 0)));
    QCOMPARE(RowsOf(results).at(0).at(1), u">>94-1-00042-1"_s);
    CaseWindow *second = user->OpenRowAgain(results, 0);
    QVERIFY(second);
    QVERIFY(user->Run(second));
    CheckCase(second,
              {{}, u"94-1-00042-1"_s, u"SMITH, JOHN Q"_s, u"King County"_s, archivedCriminalTabs});
}

void tst_AllCases::threeCasesAtRestUseNoProcessorTime()
{
    FetchAtOnce(everyTab);
    QVERIFY(LogInAs(u"quiet"_s));
    // The desk looks for boxes a thousand times a second, which is not the program's doing.
    const double alone = processorSecondsAtRest();
    NameResultsWindow *results = user->Search(smithJohnQ + county(u"King"_s) + type(u"Criminal"_s));
    QVERIFY(results);
    QList<CaseWindow *> windows;
    for (int i = 0; i < 3; ++i) {
        windows.append(i == 0 ? user->OpenRow(results, 0) : user->OpenRowAgain(results, 0));
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
    const double used = processorSecondsAtRest();
    QVERIFY2(used < 2.0 * alone + 0.1 * restSeconds, qPrintable(QString::number(used)));
}

HALVANE_TEST(tst_AllCases)
#include "tst_AllCases.moc"
