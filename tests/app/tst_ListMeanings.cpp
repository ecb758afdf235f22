#include "app/PracticeCourt.h"
#include "app/PracticeUser.h"
#include "jobs/frmQueue.h"
#include "namesearch/DupesSearch.h"
#include "support/HalvaneTest.h"

#include <QPushButton>
#include <QTest>

#include <array>

// The names that mean something to the practice court, in each of its lists, on the real windows.

namespace {
constexpr int longestSearchMilliseconds = 60'000;

/// A family of courts: its window and a request of it for %1.
struct Family
{
    const char *name;
    NameResultsWindow *(*make)();
    const char16_t *line;
    bool district;
};

constexpr std::array<Family, 6> families{{
    {"Superior", [] { return static_cast<NameResultsWindow *>(new frmNameSearchResults(u"WA"_s)); },
     u"WASUP¦SEARCH¦%1¦¦¦King,¦Civil,¦¦¦", false},
    {"Oregon", [] { return static_cast<NameResultsWindow *>(new frmNameSearchResults(u"OR"_s)); },
     u"OREGON¦SEARCH¦%1¦¦¦MCR C¦CV,¦¦¦", false},
    {"Idaho", [] { return static_cast<NameResultsWindow *>(new frmNameSearchResults(u"ID"_s)); },
     u"IDSUP¦SEARCH¦%1¦¦¦Ada,¦CV,¦¦¦", false},
    {"Bankruptcy",
     [] { return static_cast<NameResultsWindow *>(new frmNameSearchResults(u"ORBK"_s)); },
     u"BKRPT~SEARCH~%1~~~OR~*ALL~1980~2026~", false},
    {"civil", [] { return MakeWindow(Which::Civil); }, u"WADISCIS¦SEARCH¦%1¦¦KSD¦CV¦CNCI¦", true},
    {"non-civil", [] { return MakeWindow(Which::NonCivil); }, u"WADISCIS¦SEARCH¦%1¦¦KSD¦IN¦CNCI¦",
     true},
}};

const QString indexLine = u"INDEX~SEARCH~%1~~~~King,~Criminal,~1970~2005~LL=1~UL=500~"_s;

/// In which way a search of a name ends.
enum class End { Completed, MaxNames, MaxResults, Incomplete, Stopped, Lost };

struct Meaning
{
    const char *words; ///< last and first name, a blank between them
    End end;
    End inDistrictCourts;
    int rows;        ///< that the status counts, or that are there when it does not
    int furtherRows; ///< of the client's own
};

constexpr std::array<Meaning, 10> meanings{{
    {"TOOMANY ", End::MaxNames, End::Incomplete, 25, 0},
    {"OVER200 ", End::MaxResults, End::MaxResults, 200, 1},
    {"OVER200 NONE", End::MaxResults, End::MaxResults, 0, 2},
    {"BADROW ", End::Incomplete, End::Incomplete, 6, 0},
    {"THEREOF ", End::Completed, End::Completed, 5, 0},
    {"STALL ", End::Stopped, End::Stopped, 5, 0},
    {"DROPLINK ", End::Lost, End::Lost, 5, 0},
    {"EMPTY ", End::Completed, End::Completed, 0, 0},
    {"MANY 500", End::Completed, End::Completed, 500, 0},
    {"PAGES 30", End::Completed, End::Completed, 30, 0},
}};

QString statusOf(End end, int rows)
{
    switch (end) {
    case End::Completed:
    case End::MaxNames:
        return u"Search Complete: %1 Cases Retrieved."_s.arg(rows);
    case End::MaxResults:
        return u"Search Stopped - Max Results Reached: %1 Cases Retrieved."_s.arg(rows);
    case End::Incomplete:
        return u"Search Incomplete!"_s;
    case End::Stopped:
        return u"Search Stopped By User: %1 Cases Retrieved."_s.arg(rows);
    case End::Lost:
        break;
    }
    return u"Search Stopped - Court Connection Lost!"_s;
}
} // namespace

class tst_ListMeanings : public PracticeTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void inEachFamily_data();
    void inEachFamily();
    void inTheIndex_data();
    void inTheIndex();
    void thePagesOfAnIndex();
    void peopleOfOneName_data();
    void peopleOfOneName();

private:
    /// A search of this window, whose key stands in the queue.
    void start(NameResultsWindow *window, const QString &line);
    static bool ended(const NameResultsWindow *window)
    {
        return !ButtonOf(window, "cmdStopSearching")->isEnabled() && !Global.bSearchInProgress
               && frmQueue::Form().FIFO.ListCount() == 0;
    }
    static bool waitForTheEnd(const NameResultsWindow *window)
    {
        return QTest::qWaitFor([window] { return ended(window); }, longestSearchMilliseconds);
    }
};

void tst_ListMeanings::init()
{
    PracticeTest::init();
    QVERIFY(LogInAs(u"quiet"_s));
}

void tst_ListMeanings::start(NameResultsWindow *window, const QString &line)
{
    Global.bShowAlerts = false;
    user->Desk.Enqueue(window, {line});
    window->Timer1->start(1);
}

void tst_ListMeanings::inEachFamily_data()
{
    QTest::addColumn<int>("family");
    QTest::addColumn<int>("meaning");
    for (size_t i = 0; i < families.size(); ++i) {
        for (size_t j = 0; j < meanings.size(); ++j)
            QTest::addRow("%s, %s", families.at(i).name, meanings.at(j).words)
                << static_cast<int>(i) << static_cast<int>(j);
    }
}

void tst_ListMeanings::inEachFamily()
{
    QFETCH(int, family);
    QFETCH(int, meaning);
    const Family &asked = families.at(static_cast<size_t>(family));
    const Meaning &expected = meanings.at(static_cast<size_t>(meaning));
    NameResultsWindow *window = asked.make();
    const QString line = QString::fromUtf16(asked.line);
    const QChar delimiter = line.back();
    start(window, line.arg(QString::fromLatin1(expected.words).replace(u' ', delimiter)));
    const End end = asked.district ? expected.inDistrictCourts : expected.end;
    if (end == End::Stopped)
        user->Desk.When([&] { return window->RowCount() == expected.rows; },
                        [&] { ButtonOf(window, "cmdStopSearching")->click(); });
    QVERIFY(waitForTheEnd(window));
    // A district court's words for a search that is complete have more blanks.
    QCOMPARE(TextOf(window, "lblStatus").simplified(), statusOf(end, expected.rows));
    // Rows that come together with the end of the link are not read.
    if (end == End::Lost)
        QVERIFY(window->RowCount() <= expected.rows);
    else
        QCOMPARE(RowsOf(window).size(), expected.rows + expected.furtherRows);
    QCOMPARE(window->SearchIncomplete, end == End::Incomplete || end == End::Lost);
}

void tst_ListMeanings::inTheIndex_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("status");
    QTest::addColumn<int>("rows");
    const auto row = [](const char *name, const QString &status, int rows) {
        QTest::newRow(name) << QString::fromLatin1(name) << status << rows;
    };
    const QString tooMany = u"Warning - Too Many Results For First Name!"_s;
    row("TOOMANY", u"Error - Unexpected Search Results."_s, 25);
    row("OVER200", statusOf(End::Completed, 200), 200);
    row("BADROW", statusOf(End::Completed, 6), 6);
    row("THEREOF", statusOf(End::Completed, 5), 5);
    row("EMPTY", statusOf(End::Completed, 0), 0);
    row("FIRSTNAME", tooMany, 3);
    row("SECONDNAME", tooMany, 3);
    row("ILLEGALROLE", u"Error - Invalid Role Assignment!"_s, 3);
    row("INDEXERROR", u"Error - Unexpected Search Results."_s, 3);
    row("INDEXWARNING", u"Searching .."_s, 3);
}

void tst_ListMeanings::inTheIndex()
{
    QFETCH(QString, name);
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    start(window, indexLine.arg(name));
    QVERIFY(waitForTheEnd(window));
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(static_cast<int>(RowsOf(window).size()), "rows");
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isVisible());
}

void tst_ListMeanings::thePagesOfAnIndex()
{
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    start(window, indexLine.arg(u"PAGES"_s));
    QPushButton *next = ButtonOf(window, "cmdSearchResults_4");
    QVERIFY(waitForTheEnd(window));
    QCOMPARE(window->RowCount(), 500);
    QCOMPARE(next->text(), u"Get Next 500 Cases"_s);
    next->click();
    QVERIFY(waitForTheEnd(window));
    QCOMPARE(window->RowCount(), 1000);
    QCOMPARE(next->text(), u"Get Next 200 Cases"_s);
    next->click();
    QVERIFY(waitForTheEnd(window));
    QCOMPARE(TextOf(window, "lblStatus"), statusOf(End::Completed, 1200));
    QVERIFY(!next->isVisible());
}

void tst_ListMeanings::peopleOfOneName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("cases"); ///< of the first search
    for (const char *search : {"SNCI", "DND"}) {
        QTest::addRow("names only, %s", search) << u"DUPES"_s << QString::fromLatin1(search) << 0;
        QTest::addRow("names between cases, %s", search)
            << u"MIXED"_s << QString::fromLatin1(search) << 2;
    }
}

/// The second person has two cases, the third three.
void tst_ListMeanings::peopleOfOneName()
{
    QFETCH(QString, name);
    QFETCH(QString, search);
    QFETCH(int, cases);
    auto *window =
        new frmDiscisNCNameResults(search == u"DND" ? DiscisDndSearch::Yes : DiscisDndSearch::No);
    start(window, u"WADISCIS¦SEARCH¦%1¦¦¦*SW¦IN¦%2¦"_s.arg(name, search));
    QVERIFY(waitForTheEnd(window));
    QCOMPARE(NamesOf(window).size(), 5);
    QCOMPARE(window->RowCount(), cases);
    if (cases > 0)
        ButtonOf(window, "cmdViewDupes")->click();
    QCOMPARE(FrontOf(window), u"names"_s);
    CheckRow(window, 1);
    CheckRow(window, 2);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(window->lboxQueue.ListCount(), 2);
    QVERIFY(waitForTheEnd(window));
    QCOMPARE(TextOf(window, "lblStatus").simplified(), statusOf(End::Completed, cases + 5));
    QCOMPARE(FrontOf(window), u"cases"_s);
    QStringList marked;
    for (const QStringList &row : NamesOf(window)) {
        if (row[0].startsWith(u">>"))
            marked.append(row[0].right(1));
    }
    QCOMPARE(marked, (QStringList{u"B"_s, u"C"_s}));
}

HALVANE_TEST(tst_ListMeanings)
#include "tst_ListMeanings.moc"
