#include "jobs/frmQueue.h"
#include "namesearch/DupesSearch.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QLineEdit>

// Rows that Find hides in a results window: they are not opened, not checked, and not retrieved
// without a word. And what may happen under that word.

namespace {
const QString title = u"Halvane - Names Out of Sight"_s;
const QString oneOfTwo =
    u"1 of the 2 checked names is out of sight, because it does not match the words in Find. "
    "Retrieve the cases of all 2 names?"_s;

const QStringList firstNames{u"AMY"_s, u"BOB"_s, u"CAT"_s};

void find(const ResultListView *list, const QString &text)
{
    list->Tools()->OpenFind();
    qobject_cast<QLineEdit *>(list->window()->focusWidget())->setText(text);
}

/// What a retrieval would have changed.
QString stateOf(const frmDiscisNCNameResults *window)
{
    QStringList names;
    for (const QStringList &cells : NamesOf(window))
        names.append(cells[0]);
    return QDebug::toString(window->lboxQueue.Lines()) + QDebug::toString(names)
           + QDebug::toString(frmQueue::Form().FIFO.Lines()) + TextOf(window, "lblStatus")
           + TextOf(window, "lblSearchStatus")
           + QString::number(ButtonOf(window, "cmdSearchResults_0")->isEnabled())
           + QString::number(ButtonOf(window, "cmdStopSearching")->isEnabled())
           + QString::number(window->Timer1->isActive());
}

void setCell(const QPointer<frmDiscisNCNameResults> &window, int row, const QString &text)
{
    ListOf(window, "lvDupe")->List()->SetCell(row, 0, text);
}

/// What becomes otherwise under the question, and whether the names are retrieved after Yes.
struct UnderTheQuestion
{
    const char *name;
    void (*act)(const QPointer<frmDiscisNCNameResults> &window);
};
const std::array<UnderTheQuestion, 4> happenings{{
    {"the window is closed",
     [](const QPointer<frmDiscisNCNameResults> &window) {
         window->Unload(UnloadMode::SessionEnd);
     }},
    {"nothing is checked any more",
     [](const QPointer<frmDiscisNCNameResults> &window) {
         for (int row = 0; row < 3; ++row)
             ListOf(window, "lvDupe")->List()->SetChecked(row, false);
     }},
    {"the user has been logged out",
     [](const QPointer<frmDiscisNCNameResults> &) { Global.bLoggedIn = false; }},
    {"another name is out of sight",
     [](const QPointer<frmDiscisNCNameResults> &window) { setCell(window, 0, u"JONES"_s); }},
}};
} // namespace

class tst_OutOfSight : public DupesTest
{
    Q_OBJECT
private Q_SLOTS:
    void aHiddenCaseIsNotOpened_data() { EachResultsWindow(); }
    void aHiddenCaseIsNotOpened();
    void allThatIsSeenIsCheckedAndRetrieved();
    void theQuestion_data();
    void theQuestion();
    void noLeavesEverythingAsItWas();
    void theWorldChangesUnderTheQuestion_data();
    void theWorldChangesUnderTheQuestion();
    void aSearchBeginsUnderTheQuestion();
    void rowsThatArriveUnderTheQuestion();
    void withoutALogin_data();
    void withoutALogin();

private:
    /// Three people, AMY, BOB and CAT, of whom these are checked.
    frmDiscisNCNameResults *withChecked(const QList<int> &rows)
    {
        frmDiscisNCNameResults *window =
            Searched({PersonRow(u"AMY"_s), PersonRow(u"BOB"_s), PersonRow(u"CAT"_s), u"EOF~"_s});
        for (const int row : rows)
            CheckRow(window, row);
        return window;
    }
};

void tst_OutOfSight::aHiddenCaseIsNotOpened()
{
    QFETCH(Which, which);
    LoadDiscisCourts();
    court->Expect(LineOf(which))
        .Reply({RowOf(which, u"SMITH, A"_s), RowOf(which, u"JONES, B"_s), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    ResultListView *list = ListOf(window);
    list->selectRow(1);
    find(list, u"smith"_s);
    const QPushButton *retrieve = ButtonOf(window, "cmdSearchResults_0");
    QVERIFY(!retrieve->isEnabled());
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(RowsOf(window)[1][1], QString(RowsOf(window)[1][1]).remove(u">>"_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    // A sorting moves the hidden row to where the other one was.
    ClickHeader(list, 0);
    ClickHeader(list, 0);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, {20, list->height() / 2});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    list->selectAll();
    QVERIFY(retrieve->isEnabled());
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    for (const QStringList &cells : RowsOf(window))
        QCOMPARE(cells[1].startsWith(u">>"), cells[0] == u"SMITH, A");
}

void tst_OutOfSight::allThatIsSeenIsCheckedAndRetrieved()
{
    frmDiscisNCNameResults *window = withChecked({});
    ResultListView *names = ListOf(window, "lvDupe");
    find(names, u"bob"_s);
    QTest::keySequence(names, QKeySequence::SelectAll);
    QTest::keyClick(names, Qt::Key_Space);
    court->Expect(CasesLine(u"BOB"_s, 2)).Reply({CaseRow(u"SMITH, BOB"_s), u"EOF~"_s});
    Retrieve(window);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{CasesLine(u"BOB"_s, 2)});
}

void tst_OutOfSight::theQuestion_data()
{
    QTest::addColumn<QList<int>>("checked");
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("alerts");
    QTest::addColumn<QString>("question");
    QTest::newRow("none out of sight") << QList<int>{1} << u"bob"_s << true << QString();
    QTest::newRow("one of two") << QList<int>{0, 1} << u"bob"_s << true << oneOfTwo;
    QTest::newRow("asked without alerts, too") << QList<int>{0, 1} << u"bob"_s << false << oneOfTwo;
    QTest::newRow("the only one")
        << QList<int>{0} << u"bob"_s << false
        << u"The checked name is out of sight, because it does not match the words in Find. "
           "Retrieve its cases?"_s;
    QTest::newRow("two of three")
        << QList<int>{0, 1, 2} << u"bob"_s << false
        << u"2 of the 3 checked names are out of sight, because they do not match the words in "
           "Find. Retrieve the cases of all 3 names?"_s;
    QTest::newRow("all of them")
        << QList<int>{0, 1, 2} << u"nobody"_s << false
        << u"All 3 checked names are out of sight, because they do not match the words in Find. "
           "Retrieve the cases of all 3 names?"_s;
}

void tst_OutOfSight::theQuestion()
{
    QFETCH(QList<int>, checked);
    QFETCH(QString, words);
    QFETCH(bool, alerts);
    QFETCH(QString, question);
    frmDiscisNCNameResults *window = withChecked(checked);
    Global.bShowAlerts = alerts;
    find(ListOf(window, "lvDupe"), words);
    if (!question.isEmpty())
        desk->Boxes.Expect(question, title, MsgAnswer::Yes);
    QStringList lines;
    for (const int row : checked) {
        lines.append(CasesLine(firstNames[row], row + 1));
        court->Expect(lines.last()).Reply({CaseRow(u"SMITH"_s), u"EOF~"_s});
    }
    Retrieve(window);
    QCOMPARE(window->lboxQueue.Lines(), lines);
}

void tst_OutOfSight::noLeavesEverythingAsItWas()
{
    const frmDiscisNCNameResults *window = withChecked({0, 1});
    find(ListOf(window, "lvDupe"), u"bob"_s);
    Global.bStopRequested = true;
    const QString before = stateOf(window);
    desk->Boxes.Expect(oneOfTwo, title, MsgAnswer::No);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(stateOf(window), before);
    QVERIFY(Global.bStopRequested);
    QCOMPARE(ListOf(window, "lvDupe")->List()->CheckedRows(), QList<int>({0, 1}));
}

void tst_OutOfSight::theWorldChangesUnderTheQuestion_data()
{
    QTest::addColumn<int>("happening");
    for (size_t i = 0; i < happenings.size(); ++i)
        QTest::newRow(happenings.at(i).name) << static_cast<int>(i);
}

void tst_OutOfSight::theWorldChangesUnderTheQuestion()
{
    QFETCH(int, happening);
    const QPointer<frmDiscisNCNameResults> window = withChecked({0, 2});
    find(ListOf(window, "lvDupe"), u"amy"_s);
    const auto act = happenings.at(static_cast<size_t>(happening)).act;
    desk->Boxes.Meanwhile([&] { act(window); });
    desk->Boxes.Expect(oneOfTwo, title, MsgAnswer::Yes);
    // The next question is about how it is now.
    if (happening == 1)
        desk->Boxes.Expect(u"No Name(s) Selected. Please place a checkmark next to the name(s) to "
                           "retrieve."_s,
                           u"Halvane - Invalid Request .."_s);
    if (happening == 2)
        desk->Boxes.Expect(u"This Search Cannot be Started!\r\nThis is because you are not "
                           "currently Logged-In to the Halvane Server.\r\n\r\nDo you want to "
                           "Login Now?"_s,
                           u"Cannot Perform Search! Not Logged In to Halvane"_s,
                           MsgIcon::Exclamation, MsgAnswer::No);
    if (happening == 3)
        desk->Boxes.Expect(u"All 2 checked names are out of sight, because they do not match the "
                           "words in Find. Retrieve the cases of all 2 names?"_s,
                           title, MsgAnswer::No);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window || window->lboxQueue.Lines() == QStringList{StatewideLine()});
    QVERIFY(!window || !NamesOf(window)[2][0].startsWith(u">>"));
}

void tst_OutOfSight::aSearchBeginsUnderTheQuestion()
{
    frmDiscisNCNameResults *window = withChecked({0, 2});
    window->Timer1->setInterval(1'000'000);
    find(ListOf(window, "lvDupe"), u"amy"_s);
    QString begun;
    desk->Boxes.Meanwhile([&] {
        find(ListOf(window, "lvDupe"), {});
        window->RetrieveCheckedNames();
        begun = stateOf(window);
    });
    desk->Boxes.Expect(oneOfTwo, title, MsgAnswer::Yes);
    ButtonOf(window, "cmdSearchResults_0")->click();
    // One search of the two, and not both.
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    QCOMPARE(stateOf(window), begun);
}

void tst_OutOfSight::rowsThatArriveUnderTheQuestion()
{
    frmDiscisNCNameResults *window = withChecked({0, 2});
    find(ListOf(window, "lvDupe"), u"amy"_s);
    desk->Boxes.Meanwhile([&] { window->AddDupeRow(PersonRow(u"D"_s)); });
    desk->Boxes.Expect(oneOfTwo, title, MsgAnswer::Yes);
    court->Expect(CasesLine(u"AMY"_s, 1)).Reply({u"EOF~"_s});
    court->Expect(CasesLine(u"CAT"_s, 3)).Reply({u"EOF~"_s});
    Retrieve(window);
}

void tst_OutOfSight::withoutALogin_data()
{
    QTest::addColumn<bool>("logsIn");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void tst_OutOfSight::withoutALogin()
{
    QFETCH(bool, logsIn);
    const frmDiscisNCNameResults *window = withChecked({0, 2});
    find(ListOf(window, "lvDupe"), u"amy"_s);
    Global.bLoggedIn = false;
    const QString before = stateOf(window);
    desk->Boxes.Expect(u"This Search Cannot be Started!\r\nThis is because you are not currently "
                       "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
                       u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
                       logsIn ? MsgAnswer::Yes : MsgAnswer::No);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(stateOf(window), before);
    QCOMPARE(frmLogin::IsLoaded(), logsIn);
}

HALVANE_TEST(tst_OutOfSight)
#include "tst_OutOfSight.moc"
