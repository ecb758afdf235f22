#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "namesearch/CourtNames.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/SearchJobs.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
const QString king = RequestLine(u"SMITH"_s, u"King"_s);
const QString yakima = RequestLine(u"SMITH"_s, u"Yakima"_s);

/// What happens while the second of three courts is asked.
enum class Event { Replies, Stops, Drops, TimesOut, Leaves };

/// The states of all requests, line by line.
QStringList statesOf(const NameSearch *search)
{
    QStringList texts;
    for (const CourtAnswer &line : search->Record.Courts)
        texts.append(line.Court + u": "_s + AnswerText(line));
    return texts;
}

QString indexLine(int lower)
{
    return u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=%1~UL=%2~"_s.arg(lower)
        .arg(lower + 499);
}

const QString indexRow =
    u"SMITH~02-1-02029-9~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"_s;
} // namespace

Q_DECLARE_METATYPE(Event)

/// What the record of a search says of each of its requests, for each way in which a run goes.
class tst_CourtRecord : public SearchJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachOutcomeIsSaidOfTheCourtThatHadIt_data();
    void eachOutcomeIsSaidOfTheCourtThatHadIt();
    void everyCourtWaitsBeforeTheFirstTurn();
    void aStopBeforeTheTurnAsksNobody();
    void aWishToLeaveBeforeTheTurnAsksNobody();
    void theTimeIsThatOfTheAnswer();
    void aCourtWithoutALinkIsNotAsked();
    void anIndexThatIsStoppedHasRowsMissing();
    void anIndexSaysWhatIsWrongAlthoughItIsComplete();
    void eachPageOfAnIndexHasALine();
    void aPersonHasALineOfTheirOwn();
    void aCourtReadsAsTheUserKnowsIt_data();
    void aCourtReadsAsTheUserKnowsIt();

private:
    CourtSearch *startIndex(const QStringList &replies);
};

void tst_CourtRecord::eachOutcomeIsSaidOfTheCourtThatHadIt_data()
{
    const QString last = u"EOF~"_s;
    const QString row = ResultLine(u"A"_s);
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<Event>("event");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("third");
    const QString none = u"None"_s;
    const QString notAsked = u"Not asked"_s;
    const auto add = [](const char *name, const QStringList &reply, Event event,
                        const QString &second, const QString &third) {
        QTest::newRow(name) << reply << event << second << third;
    };
    add("nothing", {last}, Event::Replies, none, none);
    add("a case", {row, last}, Event::Replies, u"1 case"_s, none);
    add("cases", {row, ResultLine(u"B"_s), last}, Event::Replies, u"2 cases"_s, none);
    add("an error", {u"ERROR~Court is down~"_s, last}, Event::Replies, u"Failed: Court is down"_s,
        none);
    add("an error behind a case", {row, u"ERROR~<b>down</b>~"_s, last}, Event::Replies,
        u"Failed: <b>down</b> - 1 case came, others may be missing"_s, none);
    add("an error without a word", {u"ERROR"_s, last}, Event::Replies,
        u"Failed: the court gave no reason"_s, none);
    add("too many hits", {u"ERROR~too many hits~"_s, row, last}, Event::Replies,
        u"Too many to list - 1 case came"_s, notAsked);
    add("more than 200", {u"This search resulted in more than 200 results.~"_s}, Event::Replies,
        u"Too many to list"_s, notAsked);
    add("a row cut short", {u"bad row~"_s}, Event::Replies,
        u"Failed: the answer cannot be read (Subscript out of range) - 1 case came, others may be "
        "missing"_s,
        notAsked);
    add("a lost link", {row}, Event::Drops,
        u"Failed: the connection was lost - 1 case came, others may be missing"_s, notAsked);
    add("silence", {row}, Event::TimesOut,
        u"Failed: no answer came in time - 1 case came, others may be missing"_s, notAsked);
    add("a stop", {row}, Event::Stops, u"Stopped - 1 case came, others may be missing"_s, notAsked);
    add("a wish to leave", {row}, Event::Leaves, u"Stopped - 1 case came, others may be missing"_s,
        notAsked);
}

void tst_CourtRecord::eachOutcomeIsSaidOfTheCourtThatHadIt()
{
    QFETCH(const QStringList, reply);
    QFETCH(const Event, event);
    QFETCH(const QString, second);
    QFETCH(const QString, third);
    court->Expect(adams).Reply({ResultLine(u"FIRST"_s), u"EOF~"_s});
    court->Expect(king).Reply(reply);
    if (event == Event::Stops)
        court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    if (third == u"None")
        court->Expect(yakima).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, king, yakima});
    const auto rowCame = [search] { return search->RowCount() == 2; };
    if (event == Event::Stops)
        desk->When(rowCame, [search] { search->Stop(); });
    if (event == Event::Drops)
        desk->When(rowCame, [this] { court->DropClient(); });
    if (event == Event::Leaves)
        desk->When(rowCame, [] { Global.bStopRequested = true; });
    if (event == Event::TimesOut || event == Event::Leaves)
        desk->When(rowCame, [this] { desk->Time.Run(30); });
    QVERIFY(Finish(search));
    QCOMPARE(statesOf(search),
             (QStringList{u"Adams: 1 case"_s, u"King: "_s + second, u"Yakima: "_s + third}));
}

void tst_CourtRecord::everyCourtWaitsBeforeTheFirstTurn()
{
    LinkDesk::ConnectToNothing();
    Global.bSearchInProgress = true;
    CourtSearch *search = Start({adams, king});
    search->ShowCriteria();
    QCOMPARE(statesOf(search), (QStringList{u"Adams: Waiting"_s, u"King: Waiting"_s}));
    QVERIFY(!search->CanRetry());
    Global.bSearchInProgress = false;
}

void tst_CourtRecord::aStopBeforeTheTurnAsksNobody()
{
    CourtSearch *search = Start({adams, king});
    search->ShowCriteria();
    search->Stop();
    QCOMPARE(statesOf(search), (QStringList{u"Adams: Not asked"_s, u"King: Not asked"_s}));
    QVERIFY(search->CanRetry());
}

void tst_CourtRecord::aWishToLeaveBeforeTheTurnAsksNobody()
{
    Global.bStopRequested = true;
    CourtSearch *search = Start({adams});
    QVERIFY(Finish(search));
    QCOMPARE(statesOf(search), QStringList{u"Adams: Not asked"_s});
}

void tst_CourtRecord::theTimeIsThatOfTheAnswer()
{
    court->Expect(adams).Reply({ResultLine(u"A"_s)});
    court->Expect(king).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, king});
    QString meanwhile;
    desk->When([search] { return search->RowCount() == 1; },
               [&] {
                   meanwhile = AnswerTime(search->Record.Courts.at(0));
                   desk->Time.Advance(4.5);
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(meanwhile, QString());
    QCOMPARE(AnswerTime(search->Record.Courts.at(0)), u"4.5 s"_s);
    QCOMPARE(AnswerTime(search->Record.Courts.at(1)), u"0.0 s"_s);
}

void tst_CourtRecord::aCourtWithoutALinkIsNotAsked()
{
    CourtSearch *search = Start({adams, king});
    QVERIFY(Finish(search));
    QCOMPARE(statesOf(search),
             (QStringList{u"Adams: Failed: there is no connection to the court server"_s,
                          u"King: Not asked"_s}));
}

CourtSearch *tst_CourtRecord::startIndex(const QStringList &replies)
{
    court->Expect(indexLine(1)).Reply(replies);
    desk->ConnectTo(*court);
    auto *search = new CourtSearch(u"WA"_s, true);
    search->SetText(&ResultsRecord::txtCountyList,
                    u"Adams, King County - Washington Superior Courts"_s);
    return Start(search, {indexLine(1)});
}

void tst_CourtRecord::anIndexThatIsStoppedHasRowsMissing()
{
    CourtSearch *search = startIndex({indexRow});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    desk->When([search] { return search->RowCount() == 1; }, [search] { search->Stop(); });
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(AnswerText(search->Record.Courts.at(0)),
             u"Stopped - 1 case came, others may be missing"_s);
}

void tst_CourtRecord::anIndexSaysWhatIsWrongAlthoughItIsComplete()
{
    CourtSearch *search = startIndex({u"ERROR~Index is being built~"_s, u"EOF~"_s});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Complete: 0 Cases Retrieved."_s);
    QCOMPARE(AnswerText(search->Record.Courts.at(0)), u"Failed: Index is being built"_s);
}

void tst_CourtRecord::eachPageOfAnIndexHasALine()
{
    CourtSearch *search = startIndex({indexRow, u"WARNING~Reached Search Limit~500~700~"_s});
    court->Expect(indexLine(501)).Reply({indexRow, indexRow, u"EOF~"_s});
    QVERIFY(Finish(search));
    search->GetNextPage();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    const QString place = u"Adams, King County - Washington Superior Courts, rows "_s;
    QCOMPARE(statesOf(search),
             (QStringList{place + u"1 to 500: 1 case"_s, place + u"501 to 1000: 2 cases"_s}));
}

void tst_CourtRecord::aPersonHasALineOfTheirOwn()
{
    const QString line = u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s;
    const QString second =
        u"WADISCIS¦SEARCH¦SMITH, JOHN, Q¦SMITH, ANN¦F¦01/02/1970¦W¦510¦180¦BRO¦NONE¦1¦SNCINMD¦"_s;
    court->Expect(line).Reply({u"NCNMD~SMITH, ANN~F~01/02/1970~W~510~180~BRO~NONE~"_s, u"EOF~"_s});
    court->Expect(second).Reply({u"ERROR~Court is down~"_s, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *search = new NonCivilSearch(DiscisDndSearch::No);
    search->SetText(&ResultsRecord::lblCourtCounty, u"Statewide - All Counties"_s);
    Start(search, {line});
    QVERIFY(Finish(search));
    search->Names.SetChecked(0, true);
    search->RetrieveCheckedNames();
    search->Timer1->start(1);
    QVERIFY(Finish(search));
    QCOMPARE(statesOf(search), (QStringList{u"Statewide - All Counties: 1 name"_s,
                                            u"SMITH, ANN: Failed: Court is down"_s}));
}

void tst_CourtRecord::aCourtReadsAsTheUserKnowsIt_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    const auto add = [](const char *name, const QString &state, ResultKind kind,
                        const QString &line, const QString &shown) {
        QTest::newRow(name) << state << static_cast<int>(kind) << line << shown;
    };
    add("Superior", u"WA"_s, ResultKind::Superior, king, u"King"_s);
    add("Oregon", u"OR"_s, ResultKind::Superior, u"OREGON¦SEARCH¦S¦¦¦¦MCR C¦CV,¦¦¦"_s,
        u"Multnomah - Circuit Court"_s);
    add("Oregon District", u"OR"_s, ResultKind::Superior, u"OREGON¦SEARCH¦S¦¦¦¦HOO D¦CV,¦¦¦"_s,
        u"Hood River - District Court"_s);
    add("all of Oregon", u"OR"_s, ResultKind::Superior, u"OREGON¦SEARCH¦S¦¦¦¦*ALL¦CV,¦¦¦"_s,
        u"the counties of the window"_s);
    add("Idaho", u"ID"_s, ResultKind::Idaho, u"IDSUP¦SEARCH¦S¦¦¦¦Ada,¦CV,¦¦¦"_s, u"Ada"_s);
    add("bankruptcy", u"WAWBK"_s, ResultKind::Bankruptcy, u"BKRPT~SEARCH~S~~~~WAW~*ALL~~~"_s,
        u"the counties of the window"_s);
    add("District", u"WA"_s, ResultKind::DiscisCivil, u"WADISCIS¦SEARCH¦S¦¦¦BED¦CV¦CNCI¦"_s,
        u"Benton District (BED)"_s);
    add("all District", u"WA"_s, ResultKind::DiscisStatewide, u"WADISCIS¦SEARCH¦S¦¦¦*SW¦IN¦SNCI¦"_s,
        u"the words of the window"_s);
    add("a broken line", u"WA"_s, ResultKind::Superior, u"WASUP¦"_s,
        u"the counties of the window"_s);
}

void tst_CourtRecord::aCourtReadsAsTheUserKnowsIt()
{
    QFETCH(const QString, state);
    QFETCH(const int, kind);
    QFETCH(const QString, line);
    QFETCH(const QString, name);
    LoadDiscisCourts();
    ResultsRecord record;
    record.lblState = state;
    record.Kind = static_cast<ResultKind>(kind);
    record.txtCountyList = u"the counties of the window"_s;
    record.lblCourtCounty = u"the words of the window"_s;
    QCOMPARE(CourtOfLine(line, record), name);
}

HALVANE_TEST(tst_CourtRecord)
#include "tst_CourtRecord.moc"
