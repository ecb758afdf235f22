#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/RequestLine.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/SearchJobs.h"
#include "support/HalvaneTest.h"

#include <QSignalSpy>
#include <QTest>

namespace {
const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
const QString king = RequestLine(u"SMITH"_s, u"King"_s);
const QString yakima = RequestLine(u"SMITH"_s, u"Yakima"_s);
const QStringList down{u"ERROR~Court is down~"_s, u"EOF~"_s};

QStringList courtsOf(const NameSearch *search)
{
    QStringList texts;
    for (const CourtAnswer &line : search->Record.Courts)
        texts.append(AnswerText(line));
    return texts;
}

QStringList firstCells(const NameSearch *search)
{
    QStringList cells;
    for (int row = 0; row < search->RowCount(); ++row)
        cells.append(search->Record.Rows.Cell(row, 0));
    return cells;
}

/// All that a search says of its end.
QStringList endOf(const NameSearch *search)
{
    return {search->Status.Text,
            search->Record.lblSearchStatus.Text,
            search->Record.Label3,
            search->Record.Caption,
            search->Record.SearchIncomplete ? u"incomplete"_s : QString(),
            search->WasStopped() ? u"stopped"_s : QString()};
}

QString pageLine(int lower, int upper)
{
    return u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Criminal,~1970~2005~LL=%1~UL=%2~"_s.arg(lower).arg(
        upper);
}

QString indexRow(const QString &name)
{
    return name + u"~02-1-02029-9~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"_s;
}
} // namespace

/// The retry of what failed in a search, without a window.
class tst_SearchRetry : public SearchJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void onlyWhatFailedIsAskedAgainInTheSameWords();
    void whatTheSearchSaidOfItsEndStays();
    void theRetryHasAKeyOfItsOwnAndGivesItBack();
    void nothingIsAskedWhileNothingIsMissing();
    void aRowThatIsThereDoesNotComeTwice();
    void aRowThatTheCourtSendsTwiceStaysTwo();
    void whatIsBehindTooManyCanBeAsked();
    void anEndlessListGivesWayToTheFirstRow();
    void theRunIsWholeWhenNothingIsMissing_data();
    void theRunIsWholeWhenNothingIsMissing();
    void aStopBeforeItsTurnLeavesItToBeTriedAgain();
    void aStopInTheMiddleLeavesTheRest();
    void aWishToLeaveBeforeItsTurnLeavesIt();
    void aLostLinkLeavesItToBeTriedAgain();
    void behindAClosedWindowItHoldsUpNobody();
    void whatComesTooLateIsThrownAway();
    void aPageThatFailedOffersTheNext();
    void aPageOnOfferStaysOnOffer();
    void theLastPageWithdrawsItsOffer();
    void peopleCannotBeRetrievedMeanwhile();
    void peopleWhoAreCheckedStayInFront();
    void anEmptyListGivesWayToThePeople();
    void aRetryOfPeopleAndOfTheFirstSearchAreOne();
    void aPersonAskedForAgainHasOneLine();

private:
    CourtSearch *searched(const QStringList &lines, const QString &code = {});
    void retry(NameSearch *search);
};

/// A search that has ended.
CourtSearch *tst_SearchRetry::searched(const QStringList &lines, const QString &code)
{
    desk->ConnectTo(*court);
    CourtSearch *search = Start(lines);
    search->Record.ClientAcctgCode = code;
    return Finish(search) ? search : nullptr;
}

void tst_SearchRetry::retry(NameSearch *search)
{
    search->RetryFailed();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
}

void tst_SearchRetry::onlyWhatFailedIsAskedAgainInTheSameWords()
{
    const QString coded = EmbedClientCode(king, u"M-12"_s);
    court->Expect(EmbedClientCode(adams, u"M-12"_s)).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(coded).Reply(down);
    court->Expect(EmbedClientCode(yakima, u"M-12"_s)).Reply({u"EOF~"_s});
    court->Expect(coded).Reply({ResultLine(u"B"_s), ResultLine(u"C"_s), u"EOF~"_s});
    CourtSearch *search = searched({adams, king, yakima}, u"M-12"_s);
    QVERIFY(search->CanRetry());
    retry(search);
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    QCOMPARE(courtsOf(search), (QStringList{u"1 case"_s, u"2 cases"_s, u"None"_s}));
    QCOMPARE(search->Record.RetryText, u"Retry ended: 1 of 1 answered, 2 rows added."_s);
    QVERIFY(!search->CanRetry());
}

void tst_SearchRetry::whatTheSearchSaidOfItsEndStays()
{
    court->Expect(adams).Reply(down);
    court->Expect(king).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(adams).Reply({u"SEARCHING Adams County~"_s, ResultLine(u"B"_s)});
    CourtSearch *search = searched({adams, king});
    const QStringList end = endOf(search);
    QStringList pending;
    QStringList meanwhile;
    search->RetryFailed();
    pending = endOf(search);
    QCOMPARE(search->Record.RetryText, u"Retry: waiting .."_s);
    search->Timer1->start(1);
    desk->When([search] { return search->RowCount() == 2; },
               [&] {
                   meanwhile = endOf(search);
                   QCOMPARE(search->Record.RetryText, u"Retry: asking Adams (1 of 1) .."_s);
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(pending, end);
    QCOMPARE(meanwhile, end);
    QCOMPARE(endOf(search), end);
}

void tst_SearchRetry::theRetryHasAKeyOfItsOwnAndGivesItBack()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({u"EOF~"_s});
    CourtSearch *search = searched({king});
    const QString key = search->txtMasterKey;
    search->RetryFailed();
    QVERIFY(search->txtMasterKey != key);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{search->txtMasterKey});
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
}

void tst_SearchRetry::nothingIsAskedWhileNothingIsMissing()
{
    court->Expect(king).Reply({u"EOF~"_s});
    CourtSearch *search = searched({king});
    QVERIFY(!search->CanRetry());
    search->RetryFailed();
    QVERIFY(!search->IsRetrying());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
}

void tst_SearchRetry::aRowThatIsThereDoesNotComeTwice()
{
    court->Expect(king).Reply(
        {ResultLine(u"A"_s), ResultLine(u"B"_s), u"ERROR~down~"_s, u"EOF~"_s});
    court->Expect(king).Reply({ResultLine(u"A"_s), u"ERROR~down~"_s, u"EOF~"_s});
    court->Expect(king).Reply(
        {ResultLine(u"A"_s), ResultLine(u"B"_s), ResultLine(u"C"_s), u"EOF~"_s});
    CourtSearch *search = searched({king});
    retry(search);
    QCOMPARE(courtsOf(search), QStringList{u"Failed: down - 1 case came, others may be missing"_s});
    retry(search);
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    QCOMPARE(courtsOf(search), QStringList{u"3 cases"_s});
    QCOMPARE(search->Record.RetryText, u"Retry ended: 1 of 1 answered, 1 row added."_s);
}

void tst_SearchRetry::aRowThatTheCourtSendsTwiceStaysTwo()
{
    court->Expect(king).Reply({ResultLine(u"A"_s), u"ERROR~down~"_s, u"EOF~"_s});
    court->Expect(king).Reply({ResultLine(u"A"_s), ResultLine(u"A"_s), u"EOF~"_s});
    CourtSearch *search = searched({king});
    retry(search);
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"A"_s}));
}

void tst_SearchRetry::whatIsBehindTooManyCanBeAsked()
{
    court->Expect(adams).Reply({u"ERROR~too many hits~"_s, u"EOF~"_s});
    court->Expect(king).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    CourtSearch *search = searched({adams, king});
    retry(search);
    QCOMPARE(courtsOf(search), (QStringList{u"Too many to list"_s, u"1 case"_s}));
    QCOMPARE(search->Record.Label3, u"Max. Names Found!"_s);
}

void tst_SearchRetry::anEndlessListGivesWayToTheFirstRow()
{
    court->Expect(adams).Reply({u"This search resulted in more than 200 results.~"_s});
    court->Expect(king).Reply({u"EOF~"_s});
    court->Expect(yakima).Reply(down);
    court->Expect(yakima).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    CourtSearch *search = searched({adams, king, yakima});
    QSignalSpy columns(search, &NameSearch::ColumnsChanged);
    retry(search);
    QVERIFY(search->Record.TooManyToList);
    QCOMPARE(search->RowCount(), 2);
    QCOMPARE(columns.count(), 0);
    retry(search);
    QVERIFY(!search->Record.TooManyToList);
    QCOMPARE(firstCells(search), QStringList{u"A"_s});
    QCOMPARE(columns.count(), 1);
    QCOMPARE(search->Record.RetryText, u"Retry ended: 1 of 1 answered, 1 row added."_s);
    QCOMPARE(search->Status.Text, u"Search Stopped - Max Results Reached: 0 Cases Retrieved."_s);
}

void tst_SearchRetry::theRunIsWholeWhenNothingIsMissing_data()
{
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<QStringList>("again");
    QTest::addColumn<bool>("whole");
    const QStringList some{ResultLine(u"A"_s), u"EOF~"_s};
    const QStringList endless{u"This search resulted in more than 200 results.~"_s};
    QTest::newRow("all has come") << some << some << true;
    QTest::newRow("it fails again") << some << down << false;
    QTest::newRow("another has too many to list") << endless << some << false;
}

void tst_SearchRetry::theRunIsWholeWhenNothingIsMissing()
{
    QFETCH(QStringList, first);
    QFETCH(QStringList, again);
    QFETCH(bool, whole);
    court->Expect(adams).Reply(first);
    // Too many end the search before the next court is asked.
    if (first.contains(u"EOF~"_s))
        court->Expect(king).Reply(down);
    court->Expect(king).Reply(again);
    CourtSearch *search = searched({adams, king});
    const QSignalSpy ends(search, &NameSearch::RunEnded);
    retry(search);
    QCOMPARE(ends.count(), 1);
    QCOMPARE(ends.first().first().toBool(), whole);
}

void tst_SearchRetry::aStopBeforeItsTurnLeavesItToBeTriedAgain()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({u"EOF~"_s});
    CourtSearch *search = searched({king});
    const QStringList end = endOf(search);
    search->RetryFailed();
    search->Stop();
    QCOMPARE(endOf(search), end);
    QCOMPARE(search->State(), JobState::Over);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    QCOMPARE(courtsOf(search), QStringList{u"Not asked"_s});
    QCOMPARE(search->Record.RetryText, u"Retry stopped: 0 of 1 answered, 0 rows added."_s);
    retry(search);
    QCOMPARE(courtsOf(search), QStringList{u"None"_s});
}

void tst_SearchRetry::aStopInTheMiddleLeavesTheRest()
{
    court->Expect(adams).Reply(down);
    court->Expect(king).Reply(down);
    court->Expect(adams).Reply({ResultLine(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    court->Expect(adams).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(king).Reply({u"EOF~"_s});
    CourtSearch *search = searched({adams, king});
    const QStringList end = endOf(search);
    desk->When([search] { return search->RowCount() == 1; }, [search] { search->Stop(); });
    retry(search);
    QCOMPARE(endOf(search), end);
    QCOMPARE(courtsOf(search),
             (QStringList{u"Stopped - 1 case came, others may be missing"_s, u"Not asked"_s}));
    QCOMPARE(search->Record.RetryText, u"Retry stopped: 0 of 2 answered, 1 row added."_s);
    retry(search);
    QCOMPARE(courtsOf(search), (QStringList{u"1 case"_s, u"None"_s}));
    QCOMPARE(search->RowCount(), 1);
}

void tst_SearchRetry::aWishToLeaveBeforeItsTurnLeavesIt()
{
    court->Expect(king).Reply(down);
    CourtSearch *search = searched({king});
    const QStringList end = endOf(search);
    search->RetryFailed();
    Global.bStopRequested = true;
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QCOMPARE(endOf(search), end);
    QCOMPARE(courtsOf(search), QStringList{u"Not asked"_s});
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    QVERIFY(search->CanRetry());
}

void tst_SearchRetry::aLostLinkLeavesItToBeTriedAgain()
{
    court->Expect(adams).Reply(down);
    court->Expect(king).Reply(down);
    court->Expect(adams).Reply({ResultLine(u"A"_s)}).Drop();
    CourtSearch *search = searched({adams, king});
    const QStringList end = endOf(search);
    retry(search);
    QCOMPARE(endOf(search), end);
    QCOMPARE(courtsOf(search),
             (QStringList{u"Failed: the connection was lost - 1 case came, others may be missing"_s,
                          u"Not asked"_s}));
    QVERIFY(search->CanRetry());
}

void tst_SearchRetry::behindAClosedWindowItHoldsUpNobody()
{
    court->Expect(king).Reply(down);
    CourtSearch *search = searched({king});
    search->RetryFailed();
    search->GiveUp();
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    QVERIFY(!search->CanRetry());
}

void tst_SearchRetry::whatComesTooLateIsThrownAway()
{
    court->Expect(king).Reply(down);
    court->Expect(king).Reply({u"EOF~"_s, u"too late~"_s});
    CourtSearch *search = searched({king});
    retry(search);
    QCOMPARE(Global.strRecvBuffer.Size(), 0);
    QCOMPARE(search->RowCount(), 0);
}

void tst_SearchRetry::aPageThatFailedOffersTheNext()
{
    court->Expect(pageLine(1, 500)).Reply({indexRow(u"A"_s)}).Drop();
    desk->ConnectTo(*court);
    auto *search = Start(new CourtSearch(u"WA"_s, true), {pageLine(1, 500)});
    QVERIFY(Finish(search));
    QVERIFY(!search->PageOffered());
    const QStringList end = endOf(search);
    court->Expect(pageLine(1, 500))
        .Reply({indexRow(u"A"_s), indexRow(u"B"_s), u"WARNING~Reached Search Limit~500~200~"_s});
    desk->ConnectTo(*court);
    retry(search);
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"B"_s}));
    QVERIFY(search->CanTakePage());
    QCOMPARE(search->PageCount(), u"200"_s);
    QCOMPARE(search->lboxQueue.Lines(), QStringList{pageLine(501, 700)});
    QCOMPARE(endOf(search), end);
}

void tst_SearchRetry::aPageOnOfferStaysOnOffer()
{
    const QString limit = u"WARNING~Reached Search Limit~500~700~"_s;
    court->Expect(pageLine(1, 500)).Reply({indexRow(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({limit});
    court->Expect(pageLine(1, 500)).Reply({indexRow(u"A"_s), indexRow(u"B"_s), limit});
    court->Expect(pageLine(501, 1000)).Reply({indexRow(u"C"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new CourtSearch(u"WA"_s, true), {pageLine(1, 500)});
    desk->When([search] { return search->RowCount() == 1; }, [search] { search->Stop(); });
    QVERIFY(Finish(search));
    QVERIFY(search->CanTakePage());
    search->RetryFailed();
    QVERIFY(!search->CanTakePage());
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QVERIFY(search->CanTakePage());
    search->GetNextPage();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    QCOMPARE(courtsOf(search), (QStringList{u"2 cases"_s, u"1 case"_s}));
}

void tst_SearchRetry::theLastPageWithdrawsItsOffer()
{
    court->Expect(pageLine(1, 500))
        .Reply({indexRow(u"A"_s), u"WARNING~Reached Search Limit~500~200~"_s});
    court->Expect(pageLine(501, 700)).Reply({u"ERROR~down~"_s, u"WARNING~down~"_s});
    court->Expect(pageLine(501, 700)).Reply({indexRow(u"B"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new CourtSearch(u"WA"_s, true), {pageLine(1, 500)});
    QVERIFY(Finish(search));
    search->GetNextPage();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QVERIFY(search->PageOffered());
    QCOMPARE(courtsOf(search), (QStringList{u"1 case"_s, u"Failed: down"_s}));
    retry(search);
    QVERIFY(!search->PageOffered());
    QCOMPARE(firstCells(search), (QStringList{u"A"_s, u"B"_s}));
}

namespace {
const QString statewide = u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s;
const QString district = u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦BED¦IN¦CNCI¦"_s;
const QString caseRow = u"SMITH~C0012345~BED~Benton District~IN~OPN~DEF~01/02/2002~"_s;

QString person(const QString &first)
{
    return u"NCNMD~SMITH, %1~M~01/02/1970~W~510~180~BRO~NONE~"_s.arg(first);
}

QString casesOf(const QString &first, int row)
{
    return u"WADISCIS¦SEARCH¦SMITH, JOHN, Q¦SMITH, %1¦M¦01/02/1970¦W¦510¦180¦BRO¦NONE¦%2¦SNCINMD¦"_s
        .arg(first)
        .arg(row);
}
} // namespace

void tst_SearchRetry::peopleCannotBeRetrievedMeanwhile()
{
    court->Expect(statewide).Reply({person(u"ANN"_s), u"ERROR~down~"_s, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new NonCivilSearch(DiscisDndSearch::No), {statewide});
    QVERIFY(Finish(search));
    QVERIFY(search->NamesRetrievable());
    search->RetryFailed();
    QVERIFY(!search->NamesRetrievable());
    search->Stop();
    QVERIFY(search->NamesRetrievable());
}

void tst_SearchRetry::peopleWhoAreCheckedStayInFront()
{
    court->Expect(statewide).Reply({person(u"ANN"_s), person(u"BEA"_s), u"EOF~"_s});
    court->Expect(district).Reply(down);
    court->Expect(district).Reply({caseRow, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new NonCivilSearch(DiscisDndSearch::No), {statewide, district});
    QVERIFY(Finish(search));
    search->Names.SetChecked(1, true);
    const QStringList end = endOf(search);
    QVERIFY(!search->CanToggle());
    retry(search);
    QVERIFY(search->ShowingDupes);
    QCOMPARE(search->Names.CheckedRows(), QList<int>{1});
    QCOMPARE(search->RowCount(), 1);
    QVERIFY(search->CanToggle());
    QVERIFY(search->NamesRetrievable());
    QCOMPARE(endOf(search), end);
}

void tst_SearchRetry::anEmptyListGivesWayToThePeople()
{
    court->Expect(statewide).Reply(down);
    court->Expect(statewide).Reply({person(u"ANN"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new NonCivilSearch(DiscisDndSearch::No), {statewide});
    QVERIFY(Finish(search));
    const QStringList end = endOf(search);
    QVERIFY(!search->ShowingDupes);
    retry(search);
    QVERIFY(search->ShowingDupes);
    QCOMPARE(courtsOf(search), QStringList{u"1 name"_s});
    QCOMPARE(endOf(search), end);
}

void tst_SearchRetry::aRetryOfPeopleAndOfTheFirstSearchAreOne()
{
    court->Expect(statewide).Reply({person(u"ANN"_s), u"EOF~"_s});
    court->Expect(district).Reply(down);
    court->Expect(casesOf(u"ANN"_s, 1)).Reply(down);
    court->Expect(district).Reply({caseRow, u"EOF~"_s});
    court->Expect(casesOf(u"ANN"_s, 1)).Reply({caseRow, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new NonCivilSearch(DiscisDndSearch::No), {statewide, district});
    QVERIFY(Finish(search));
    search->Names.SetChecked(0, true);
    search->RetrieveCheckedNames();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    retry(search);
    QCOMPARE(courtsOf(search), (QStringList{u"1 name"_s, u"1 case"_s, u"1 case"_s}));
    QCOMPARE(search->RowCount(), 2);
}

void tst_SearchRetry::aPersonAskedForAgainHasOneLine()
{
    court->Expect(statewide).Reply({person(u"ANN"_s), u"EOF~"_s});
    court->Expect(casesOf(u"ANN"_s, 1)).Reply({caseRow, u"ERROR~down~"_s, u"EOF~"_s});
    court->Expect(casesOf(u"ANN"_s, 1)).Reply({caseRow, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = Start(new NonCivilSearch(DiscisDndSearch::No), {statewide});
    QVERIFY(Finish(search));
    search->Names.SetChecked(0, true);
    for (int time = 0; time < 2; ++time) {
        search->RetrieveCheckedNames();
        search->Timer1->start(1);
        QVERIFY(Finish(search));
    }
    QCOMPARE(courtsOf(search), (QStringList{u"1 name"_s, u"1 case"_s}));
    QCOMPARE(search->RowCount(), 2);
    QVERIFY(!search->CanRetry());
}

HALVANE_TEST(tst_SearchRetry)
#include "tst_SearchRetry.moc"
