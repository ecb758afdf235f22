#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "namesearch/DupesSearch.h"
#include "support/HalvaneTest.h"

// How a search ends in the windows of the District and Municipal Courts: whatever the end, all that
// the user sees of it, what is logged, and who comes next.

namespace {
const QString otherKey = u"22222222222222222222"_s;
const QString tooManyResults = u"This search resulted in more than 200 results.~"_s;
const QString courtIsDown = u"ERROR~Court is down~"_s;
const QString end = u"EOF~"_s;

/// What happens when all replies have come.
enum class Then { Nothing, Stop, Drop, Silence };

/// A label as it is seen.
QString seen(const QWidget *window, const char *label)
{
    return TextOf(window, label) + u", "_s + ColourOf(window, label)
           + (IsBold(window, label) ? u", bold"_s : u""_s);
}

struct Ending
{
    QStringList replies;
    Then then = Then::Nothing;
    QString log;
    QString status;
    QString searchStatus;
    QString count;
    bool incomplete = false;
};

const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString maxExit = u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts()."_s;
const QString incompleteExit = u"SEARCH Incomplete from ProcessSearchReqeusts."_s;
const QString stoppedExit = u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s;
const QString lostExit = u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s;

const QString someMissing =
    u"Search Incomplete. Some Results May Not Have Been Retrieved. Please Retry Search., blue, bold"_s;
const QString stoppedInRed =
    u"Search Stopped By User. Some results may not have been retrieved., red, bold"_s;
const QString retry =
    u"Search Stopped. Court Connection Lost. Please Close Form and Retry, blue, bold"_s;
// The place of the county in a request of other courts holds the kind of case here.
const QString refineCivil = u"Search Stopped on CV Cty. Refine Search and Try Again., blue, bold"_s;

QString maxStatus(int rows)
{
    return u"Search Stopped - Max Results Reached: %1 Cases Retrieved., blue, bold"_s.arg(rows);
}

QString stoppedStatus(int rows)
{
    return u"Search Stopped By User: %1 Cases Retrieved., red, bold"_s.arg(rows);
}

QString found(int rows)
{
    return u"Cases Found: "_s + QString::number(rows);
}
} // namespace

Q_DECLARE_METATYPE(Ending)

class tst_DistrictEnds : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void everyEnd_data();
    void everyEnd();
    void everyEndWithNames_data();
    void everyEndWithNames();
    void maxResultsSendNoFurtherLine_data() { eachDistrictWindow(); }
    void maxResultsSendNoFurtherLine();
    void maxResultsWithRowsAddAWarningRow_data() { eachDistrictWindow(); }
    void maxResultsWithRowsAddAWarningRow();
    void maxResultsWithoutRowsShowANote_data() { eachDistrictWindow(); }
    void maxResultsWithoutRowsShowANote();
    void aLineThatCannotBeSentLosesTheSearch_data() { eachDistrictWindow(); }
    void aLineThatCannotBeSentLosesTheSearch();
    void aWishToLeaveStopsAPendingSearch_data() { eachDistrictWindow(); }
    void aWishToLeaveStopsAPendingSearch();

private:
    static void eachDistrictWindow();
    /// Searches to this end, with another job's key waiting behind.
    NameResultsWindow *searchTo(const Ending &ending, NameResultsWindow *window,
                                const QString &line = DistrictLine());
    void checkEnd(const NameResultsWindow *window, const Ending &ending);
};

void tst_DistrictEnds::eachDistrictWindow()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

NameResultsWindow *tst_DistrictEnds::searchTo(const Ending &ending, NameResultsWindow *window,
                                              const QString &line)
{
    ScriptedCourt::Exchange &exchange = court->Expect(line).Reply(ending.replies);
    if (ending.then == Then::Drop)
        exchange.Drop();
    if (ending.then == Then::Stop)
        court->Expect(u"STOP¦"_s).Reply({end});
    Begin(window, {line});
    EnqueueKey(otherKey);
    const auto allCame = [this, came = ending.replies.size()] {
        return desk->Folder.Log().filter(u"Current Response"_s).size() == came
               && Global.strRecvBuffer.IsEmpty() && Global.bSearchInProgress;
    };
    if (ending.then == Then::Stop)
        desk->When(allCame, [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    if (ending.then == Then::Silence)
        desk->When(allCame, [this] { desk->Time.Run(1.0); });
    // A stopped run holds no turn and reads on: only its last line in the log ends it.
    if (!QTest::qWaitFor([&] { return desk->Folder.Logged(ending.log); }) || !desk->Finish(window))
        qWarning("the search does not end");
    desk->Time.Stop();
    return window;
}

void tst_DistrictEnds::checkEnd(const NameResultsWindow *window, const Ending &ending)
{
    QCOMPARE(desk->Folder.TimesLogged(ending.log), 1);
    QCOMPARE(seen(window, "lblStatus"), ending.status);
    QCOMPARE(seen(window, "lblSearchStatus"), ending.searchStatus);
    QCOMPARE(TextOf(window, "Label3"), ending.count);
    QCOMPARE(window->SearchIncomplete, ending.incomplete);
    QCOMPARE(window->StopRequested, ending.then == Then::Stop);
    QVERIFY(!window->StopWarningFlag);

    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    for (const char *always : {"cmdSearchResults_1", "cmdSearchResults_3", "cmdPrintMoreInfo"})
        QVERIFY(ButtonOf(window, always)->isEnabled());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!window->Timer1->isActive());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
}

void tst_DistrictEnds::everyEnd_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<Ending>("ending");
    const QString row = CaseRow(u"SMITH"_s);
    const auto add = [](const char *name, const Ending &ending) {
        QTest::addRow("civil, %s", name) << Which::Civil << ending;
        QTest::addRow("non-civil, %s", name) << Which::NonCivil << ending;
    };
    const QString completeInBlue = complete + u", blue, bold"_s;
    QTest::newRow("civil, completed")
        << Which::Civil
        << Ending{{row, end},     Then::Nothing,
                  normalExit,     u"Search Complete: 1 Cases Retrieved., blue, bold"_s,
                  completeInBlue, {}};
    QTest::newRow("non-civil, completed")
        << Which::NonCivil
        << Ending{{row, end},     Then::Nothing,
                  normalExit,     u"Search Complete:    1 Case Retrieved., blue, bold"_s,
                  completeInBlue, {}};
    // The warning among the rows comes after they are counted.
    add("max results with rows",
        {{row, row, tooManyResults}, Then::Nothing, maxExit, maxStatus(2), refineCivil, {}});
    add("max results without rows",
        {{tooManyResults}, Then::Nothing, maxExit, maxStatus(0), refineCivil, {}});
    const QString incomplete = u"Search Incomplete!, red, bold"_s;
    add("an error", {{row, courtIsDown, end},
                     Then::Nothing,
                     incompleteExit,
                     incomplete,
                     someMissing,
                     found(1),
                     true});
    // These courts have no end of their own for too many names.
    add("too many hits", {{row, u"ERROR~too many hits~"_s, row, end},
                          Then::Nothing,
                          incompleteExit,
                          incomplete,
                          someMissing,
                          found(2),
                          true});
    add("stopped with a row",
        {{row}, Then::Stop, stoppedExit, stoppedStatus(1), stoppedInRed, QString()});
    add("stopped with an error", {{row, courtIsDown},
                                  Then::Stop,
                                  stoppedExit,
                                  stoppedStatus(1),
                                  stoppedInRed,
                                  QString(),
                                  true});
    const QString lost = u"Search Stopped - Court Connection Lost!, red, bold"_s;
    add("the connection is dropped", {{row}, Then::Drop, lostExit, lost, retry, found(1), true});
    add("no answer in time", {{row}, Then::Silence, lostExit, lost, retry, found(1), true});
    add("a row that was cut short",
        {{row, u"SMITH~1~2~"_s, end}, Then::Nothing, lostExit, lost, retry, found(1), true});
}

void tst_DistrictEnds::everyEnd()
{
    QFETCH(Which, which);
    QFETCH(Ending, ending);
    const NameResultsWindow *window = searchTo(ending, MakeWindow(which));
    checkEnd(window, ending);
    // Nothing is selected, so there is no case to retrieve; no other list is there.
    QVERIFY(!ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    if (which == Which::NonCivil)
        QVERIFY(!ButtonOf(window, "cmdViewDupes")->isEnabled());
    // A connection that breaks inside the wait reads like a wait in vain.
    const bool reported = ending.then == Then::Drop || ending.then == Then::Silence;
    QCOMPARE(
        desk->Folder.Log().filter(u"Search Error! Reason: "_s),
        reported
            ? QStringList{u"Search Error! Reason: Timed Out Waiting For Response from Server."_s}
            : QStringList());
}

void tst_DistrictEnds::everyEndWithNames_data()
{
    QTest::addColumn<Ending>("ending");
    QTest::addColumn<bool>("otherEnabled"); // cmdViewDupes
    const QString row = CaseRow(u"SMITH"_s);
    const QString name = PersonRow(u"A"_s);
    const QString incomplete = u"Search Incomplete!, red, bold"_s;
    const QString lost = u"Search Stopped - Court Connection Lost!, red, bold"_s;
    QString refine = refineCivil;
    refine.replace(u"CV"_s, u"IN"_s);
    QTest::newRow("completed") << Ending{
        {row, name, end},
        Then::Nothing,
        normalExit,
        u"Search Complete:    1 Duplicate Names Found., blue, bold"_s,
        u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases., blue, bold"_s,
        {}} << true;
    // The numbers are those of the cases, as everywhere.
    QTest::newRow("max results") << Ending{{row, name, name, tooManyResults},
                                           Then::Nothing,
                                           maxExit,
                                           maxStatus(1),
                                           refine,
                                           {}}
                                 << true;
    QTest::newRow("an error") << Ending{{name, name, courtIsDown, end},
                                        Then::Nothing,
                                        incompleteExit,
                                        incomplete,
                                        someMissing,
                                        found(2),
                                        true}
                              << false;
    QTest::newRow("stopped") << Ending{{row, name},      Then::Stop,   stoppedExit,
                                       stoppedStatus(1), stoppedInRed, QString()}
                             << true;
    QTest::newRow("the connection is dropped")
        << Ending{{name}, Then::Drop, lostExit, lost, retry, found(1), true} << false;
}

void tst_DistrictEnds::everyEndWithNames()
{
    QFETCH(Ending, ending);
    const NameResultsWindow *window = searchTo(ending, new frmDiscisNCNameResults, StatewideLine());
    checkEnd(window, ending);
    QCOMPARE(FrontOf(window), u"names"_s);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdSearchResults_0")->text(), u"Retrieve Case(s)"_s);
    QTEST(ButtonOf(window, "cmdViewDupes")->isEnabled(), "otherEnabled");
    QCOMPARE(ButtonOf(window, "cmdViewDupes")->text(), u"&View Cases"_s);
}

void tst_DistrictEnds::maxResultsSendNoFurtherLine()
{
    QFETCH(Which, which);
    court->Expect(DistrictLine(u"BED"_s)).Reply({tooManyResults});
    Search(MakeWindow(which), {DistrictLine(u"BED"_s), DistrictLine(u"OTD"_s)});
    QCOMPARE(court->Requests(), QStringList{DistrictLine(u"BED"_s)});
}

void tst_DistrictEnds::maxResultsWithRowsAddAWarningRow()
{
    QFETCH(Which, which);
    court->Expect(DistrictLine()).Reply({CaseRow(u"SMITH"_s), tooManyResults});
    const NameResultsWindow *window = Search(MakeWindow(which), {DistrictLine()});
    const QString warning = u"**Warning**"_s;
    QCOMPARE(RowsOf(window).size(), 2);
    QCOMPARE(RowsOf(window)[1],
             (QStringList{warning, warning, warning,
                          u"Too many results. Refine criteria and search again."_s, u"CV Cty"_s,
                          warning, QString(), QString()}));
}

void tst_DistrictEnds::maxResultsWithoutRowsShowANote()
{
    QFETCH(Which, which);
    court->Expect(DistrictLine()).Reply({tooManyResults});
    const NameResultsWindow *window = Search(MakeWindow(which), {DistrictLine()});
    QCOMPARE(HeadersOf(window),
             QStringList{
                 u"NOTE:    This Search Returned More Than The Maximum Number Allowed (200)."_s});
    QCOMPARE(RowsOf(window),
             (QList<QStringList>{{u"More than 200 results were found for this name search. Please "
                                  "retry your search."_s},
                                 {u"Tip: Be sure to include a full first name and/or middle "
                                  "initial in the search criteria."_s}}));
}

void tst_DistrictEnds::aLineThatCannotBeSentLosesTheSearch()
{
    QFETCH(Which, which);
    NameResultsWindow *window = Begin(MakeWindow(which), {DistrictLine()});
    EnqueueKey(otherKey);
    CloseServerLink();
    QVERIFY(desk->Finish(window));
    checkEnd(window, {{},
                      Then::Nothing,
                      lostExit,
                      u"Search Stopped - Court Connection Lost!, red, bold"_s,
                      retry,
                      found(0),
                      true});
}

void tst_DistrictEnds::aWishToLeaveStopsAPendingSearch()
{
    QFETCH(Which, which);
    NameResultsWindow *window = Begin(MakeWindow(which), {DistrictLine()});
    EnqueueKey(otherKey);
    Global.bStopRequested = true;
    QTRY_VERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s));
    QCOMPARE(seen(window, "lblStatus"), u"Search Stopped By User .. , red, bold"_s);
    QCOMPARE(seen(window, "lblSearchStatus"),
             u"Search Stopped By User: 0 Cases Retrieved., red, bold"_s);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
}

HALVANE_TEST(tst_DistrictEnds)
#include "tst_DistrictEnds.moc"
