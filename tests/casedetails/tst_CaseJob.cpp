// The first run of a case as a job by itself: what is asked for, in which order, and what the court
// asks in the middle of it.

#include "casedetails/CaseJobs.h"
#include "casedetails/DiscisCaseJob.h"
#include "casedetails/StateCaseJob.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(CaseTab)

namespace {
const QStringList wholeSummaryOfDistrict{
    u"Title~A VS B~"_s, u"Case~Y00012345~"_s, u"Court~Seattle~"_s,     u"Filed~01/02/2003~"_s,
    u"Cause~Money~"_s,  u"Amount~100~"_s,     u"Status~Open~Closed~"_s};

QString superior(const char *word)
{
    return SuperiorLine(QLatin1StringView(word));
}
} // namespace

class tst_CaseJob : public CaseJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void theStatesOfACase();
    void everyTabOfASuperiorCase();
    void everyTabOfAStateCase_data();
    void everyTabOfAStateCase();
    void everyTabOfADistrictCase_data();
    void everyTabOfADistrictCase();
    void aBankruptcyCase();
    void tabsThatAreOffAreNotAskedFor();
    void aPauseBeforeEachTab();
    void theClientCodeIsInTwoRequests();
    void theSummaryFillsTheHeader();
    void tabsThatTheSummaryDoesNotNameGo();
    void theArbitrationCourt_data();
    void theArbitrationCourt();
    void nobodyAnswersForTheArbitrationCourt();
    void whoHasGoneIsNotAskedAboutArbitration();
    void aStoppedCaseIsNotAskedAboutArbitration();
    void aStopUnderTheQuestionAsksForNothingMore();
    void anArchivedCaseReadsSo();
    void whatIsAskedForWhileItRuns();

private:
    /// Expects these requests; each but the first is answered with a table of its own.
    void expectTabs(const QStringList &lines, const QStringList &summary, bool tableForm);
};

void tst_CaseJob::expectTabs(const QStringList &lines, const QStringList &summary, bool tableForm)
{
    court->Expect(lines.first()).Reply(summary);
    for (const QString &line : lines.mid(1)) {
        const QString row = u"01/02/2003~"_s + line.section(u'¦', 1, 1) + u'~';
        court->Expect(line).Reply(tableForm ? QStringList{u"TABNAME~x~"_s, u"TABDEF~x~"_s,
                                                          u"COLDEF~Date~Entry~20~80~"_s,
                                                          u"COLALIGNMENT~L~L~"_s, row, u"EOF~"_s}
                                            : GridDef({row}));
    }
}

void tst_CaseJob::theStatesOfACase()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(superior("SUMMARY")).Reply(Whole(SuperiorSummary()));
    CaseJob *job = Superior();
    QList<JobState> states{job->State()};
    QStringList status{job->Status.Text};
    connect(job, &Job::StateChanged, this, [&] { states.append(job->State()); });
    connect(job, &Job::Changed, this, [&] { status.append(job->Status.Text); });
    const QSignalSpy ended(job, &Job::Ended);
    const QSignalSpy flash(job, &CaseJob::FlashWanted);
    Run(job);
    QCOMPARE(states, (QList<JobState>{JobState::Pending, JobState::Taken, JobState::Running,
                                      JobState::Over}));
    QCOMPARE(status, (QStringList{u"Pending .."_s, u"Searching .."_s, u"Retrieving Summary .."_s,
                                  u"Summary Complete .."_s, u"Search Complete"_s}));
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.at(0).at(0).toBool(), false);
    QCOMPARE(flash.size(), 1);
    QVERIFY(job->Record.CanPrint && job->Record.CanSearchNow);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJob::everyTabOfASuperiorCase()
{
    const QStringList captions{u"Summary"_s,    u"Names"_s,    u"Docket"_s,
                               u"Judgments"_s,  u"Charges"_s,  u"Sentence"_s,
                               u"Accounting"_s, u"Schedule"_s, u"Documents"_s};
    FetchAtOnce(u"CaseSearchTabs"_s, captions);
    expectTabs({superior("SUMMARY"), superior("NAMES"), superior("DOCKET"), superior("JUDGMENTS"),
                superior("CHARGES"), superior("SENTENCE"), superior("ACCOUNTING"),
                superior("SCHEDULE")},
               Whole(SuperiorSummary()), false);
    court->Expect(u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s)
        .Reply({u"Documents n/a for: King"_s, u"EOF~"_s});
    CaseJob *job = Superior();
    Run(job);
    QCOMPARE(job->Record.TabCaptions, captions);
    QStringList done = TabsWith(job, &CaseTabRecord::TabDone);
    done.sort();
    QStringList all = captions;
    all.sort();
    QCOMPARE(done, all);
    QCOMPARE(job->Record.Tab(CaseTab::Docket).Table.Rows,
             (QList<QStringList>{{u"01/02/2003"_s, u"DOCKET"_s}}));
    QCOMPARE(job->Record.Tab(CaseTab::Documents).Table.Rows,
             (QList<QStringList>{{u"Document Images Are Not Available From This County."_s}}));
    QCOMPARE(job->Status.Text, u"Search Complete"_s);
    QVERIFY(job->Record.lblWarning.Text.isEmpty());
}

void tst_CaseJob::everyTabOfAStateCase_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QStringList>("lines");
    const auto oregon = [](const QString &word) {
        return QString(u"OREGON@"_s + word + u"@CV0100001@BAK C@"_s);
    };
    const auto idaho = [](const QString &word) {
        return QString(u"IDSUP¦"_s + word
                       + u"¦CV-2001-1¦"
                         "Ada¦"_s);
    };
    QTest::newRow("Oregon") << u"OR"_s << u"OrCaseSearchTabs"_s << u"CV0100001"_s
                            << QStringList{u"Summary"_s,   u"Names"_s,   u"Docket"_s,
                                           u"Judgments"_s, u"Charges"_s, u"Accounting"_s,
                                           u"Finance"_s,   u"Sentence"_s}
                            << QStringList{oregon(u"SUMMARY,NAMES,DOCKET,"_s),
                                           oregon(u"NAMES,"_s),
                                           oregon(u"DOCKET,"_s),
                                           oregon(u"JUDGMENTS,"_s),
                                           oregon(u"CHARGES,"_s),
                                           oregon(u"ACCOUNTING,"_s),
                                           oregon(u"FINANCE,"_s),
                                           oregon(u"SENTENCES,"_s)};
    QTest::newRow("Idaho") << u"ID"_s << u"IdCaseSearchTabs"_s << u"CV-2001-1"_s
                           << QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s, u"Judgments"_s,
                                          u"Charges"_s}
                           << QStringList{idaho(u"SUMMARY,NAMES,DOCKET,"_s), idaho(u"NAMES,"_s),
                                          idaho(u"DOCKET,"_s), idaho(u"JUDGMENTS,"_s),
                                          idaho(u"CHARGES,"_s)};
}

void tst_CaseJob::everyTabOfAStateCase()
{
    QFETCH(QString, state);
    QFETCH(QString, section);
    QFETCH(QString, number);
    QFETCH(QStringList, captions);
    QFETCH(QStringList, lines);
    FetchAtOnce(section, captions);
    expectTabs(lines,
               {u"summary~names~docket~judgments~charges~accounting~finance~sentence~"_s,
                u"Court~Baker~"_s, u"Number~"_s + number + u'~', u"Title~A VS B~"_s,
                u"Type~Civil~"_s, u"Status~Open~"_s, u"Filed~01/02/2003~"_s, u"EOF~"_s},
               true);
    CaseJob *job = OfState(state, number);
    Run(job);
    QCOMPARE(job->Record.TabCaptions, captions);
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabDone).size(), captions.size());
    QCOMPARE(job->Status.Text, u"Search Complete"_s);
}

void tst_CaseJob::everyTabOfADistrictCase_data()
{
    QTest::addColumn<bool>("civil");
    QTest::newRow("civil") << true;
    QTest::newRow("non-civil") << false;
}

void tst_CaseJob::everyTabOfADistrictCase()
{
    QFETCH(bool, civil);
    const CaseKind kind = civil ? CaseKind::Civil : CaseKind::NonCivil;
    const QStringList words = civil ? QStringList{u"CIVI"_s, u"CVPAR"_s, u"CVCDK"_s, u"CVJI"_s}
                                    : QStringList{u"NCNCC"_s, u"NCPAR"_s, u"NCCDK"_s, u"NCVIO"_s};
    QStringList lines;
    for (const QString &word : words)
        lines.append(DistrictLine(kind, word));
    FetchAtOnce(civil ? u"CivilCaseTabs"_s : u"NonCivilCaseTabs"_s,
                {u"Names"_s, u"Docket"_s, u"Judgments"_s, u"Violations"_s});
    expectTabs(lines.mid(0, 3), Whole(wholeSummaryOfDistrict), false);
    court->Expect(lines.last())
        .Reply(QStringList{(civil ? u"CVJINOTE~of the court~"_s : u"NCVIONOTE~of the court~"_s)}
               + GridDef({u"01/02/2003~A~"_s}));
    CaseJob *job = District(kind);
    Run(job);
    const QString last = civil ? u"Judgments"_s : u"Violations"_s;
    QCOMPARE(job->Record.TabCaptions, (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s, last}));
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabDone), job->Record.TabCaptions);
    QCOMPARE(job->Record.Tab(civil ? CaseTab::Judgments : CaseTab::Violations).Notes,
             QStringList{u"of the court"_s});
    // What only one of the two has
    QCOMPARE(job->Record.lblSuitAmt, civil ? u"100"_s : QString());
    QCOMPARE(job->Record.lblName, civil ? QString() : u"A VS B"_s);
    QCOMPARE(job->Record.lblCaseTitle, civil ? u"A VS B"_s : QString());
    QCOMPARE(job->Record.lblCaseDetailsHdr, u"Case Details (Y00012345)"_s);
}

/// The Summary has brought the lines; the run is over behind the docket.
void tst_CaseJob::aBankruptcyCase()
{
    court->Expect(u"BKRPT~SUMMARY~99-20077~"_s)
        .Reply({u"TABDEF/RETRIEVECOMMAND=BKRPT~SUMMARY~1~/RETRIEVECOMMAND=BKRPT~NAMES~1~/"
                "RETRIEVECOMMAND=BKRPT~DOCKET~1~/"_s,
                u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Date Filed~01/02/1999~"_s, u"EOF~"_s});
    court->Expect(u"BKRPT~NAMES~1~"_s).Reply(TableForm({u"A~B~"_s}));
    court->Expect(u"BKRPT~DOCKET~1~"_s).Reply(TableForm({u"A~B~"_s}));
    CaseJob *job = OfState(u"WAWBK"_s, u"99-20077"_s);
    Run(job);
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabDone),
             (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s}));
    QVERIFY(job->Record.chkBK);
    QCOMPARE(job->Record.lblCaseTitle, u"SMITH (Chapter 7)"_s);
    QCOMPARE(job->Record.lblTopFrameCaseType, u"Bankruptcy"_s);
}

void tst_CaseJob::tabsThatAreOffAreNotAskedFor()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    expectTabs({superior("SUMMARY"), superior("DOCKET")}, Whole(SuperiorSummary()), false);
    CaseJob *job = Superior();
    Run(job);
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabDone), (QStringList{u"Summary"_s, u"Docket"_s}));
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabNotRetrieved).size(), 7);
    QCOMPARE(job->Record.Tab(CaseTab::Names).TabRequest, superior("NAMES"));
    // What is missing is on offer, and ticked.
    QCOMPARE(TabsWith(job, &CaseTabRecord::Offered), QStringList());
    job->ActivateTab(u"Names"_s);
    QVERIFY(job->Record.PanelInSight);
    QCOMPARE(TabsWith(job, &CaseTabRecord::Chosen), TabsWith(job, &CaseTabRecord::TabNotRetrieved));
}

void tst_CaseJob::aPauseBeforeEachTab()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    expectTabs({superior("SUMMARY"), superior("NAMES"), superior("DOCKET")},
               Whole(SuperiorSummary()), false);
    LinkDesk::ConnectTo(*court);
    CaseJob *job = Superior();
    QList<int> early;
    const auto after = [&](CaseTab tab) {
        desk->When([job, tab] { return job->Record.Tab(tab).TabDone; },
                   [&, asked = static_cast<int>(tab) + 1] {
                       desk->Time.Advance(0.1);
                       for (int turn = 0; turn < 50; ++turn)
                           Yield();
                       early.append(static_cast<int>(court->Requests().size()) - asked);
                       desk->Time.Run(0.06);
                   });
    };
    after(CaseTab::Summary);
    desk->When([&] { return court->Requests().size() == 2; },
               [&] {
                   desk->Time.Stop();
                   after(CaseTab::Names);
               });
    Begin(job);
    QVERIFY(Finished(job));
    QCOMPARE(early, (QList<int>{0, 0}));
}

void tst_CaseJob::theClientCodeIsInTwoRequests()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    const auto billed = [](QString line) { return line.insert(line.size() - 1, u"^^CAC:A1^^"_s); };
    expectTabs({billed(superior("SUMMARY")), billed(superior("NAMES")), superior("DOCKET")},
               Whole(SuperiorSummary()), false);
    CaseJob *job = Superior();
    job->Record.ClientAcctgCode = u"A1"_s;
    Run(job);
    QCOMPARE(job->Status.Text, u"Search Complete"_s);
}

void tst_CaseJob::theSummaryFillsTheHeader()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(superior("SUMMARY")).Reply(Whole(SuperiorSummary()));
    CaseJob *job = Superior();
    Run(job);
    const CaseRecord &record = job->Record;
    QCOMPARE(record.lblCourtName, u"King Co Superior Ct"_s);
    QCOMPARE(record.lblCaseTitle, u"STATE OF WASHINGTON VS SMITH & SON"_s);
    QCOMPARE(record.lblDateFiled, u"03/04/2002"_s);
    QCOMPARE(record.lblCaseDetailsHdr, u"Case Details (02-1-00123-4)"_s);
    QCOMPARE(record.Tab(CaseTab::Summary).Table.Rows,
             (QList<QStringList>{{u"Cause:"_s, u"Theft"_s},
                                 {u"Associated Case:"_s, u"02-2-00456-7"_s}}));
    QCOMPARE(record.Tab(CaseTab::Summary).FirstColumn, Qt::AlignRight | Qt::AlignTop);
    QVERIFY(!record.Archived && !record.NotLocated && !record.SearchStopped);
}

void tst_CaseJob::tabsThatTheSummaryDoesNotNameGo()
{
    FetchAtOnce(u"IdCaseSearchTabs"_s, {});
    court
        ->Expect(u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-2001-1¦"
                 "Ada¦"_s)
        .Reply({u"summary~names~"_s, u"Court~Ada~"_s, u"Number~CV-2001-1~"_s, u"Title~A~"_s,
                u"EOF~"_s})
        .Late();
    CaseJob *job = OfState(u"ID"_s, u"CV-2001-1"_s);
    // The user looks at a tab that goes away under them.
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->Sheet.Select(u"Charges"_s);
                   job->ActivateTab(u"Charges"_s);
                   QCOMPARE(job->Record.InSight, CaseTab::Charges);
                   QVERIFY(job->Record.PanelInSight);
                   court->AnswerNow();
               });
    Run(job);
    QCOMPARE(job->Record.TabCaptions, (QStringList{u"Summary"_s, u"Names"_s}));
    QCOMPARE(job->Record.SelectedTab, u"Summary"_s);
    QCOMPARE(job->Record.InSight, CaseTab::Summary);
    QVERIFY(!job->Record.PanelInSight);
}

void tst_CaseJob::theArbitrationCourt_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<QString>("answer");
    QTest::newRow("yes") << true << u" ARBITRATION"_s;
    QTest::newRow("no") << false << u" NOARBITRATION"_s;
}

void tst_CaseJob::theArbitrationCourt()
{
    QFETCH(bool, wanted);
    QFETCH(QString, answer);
    const auto answered = [&answer](const char *word) {
        return QString(superior(word).chopped(2) + answer + u"¦¦"_s);
    };
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s});
    expectTabs({answered("SUMMARY"), answered("NAMES")}, Whole(SuperiorSummary()), false);
    CaseJob *job = Superior();
    CaseListener listener(job);
    listener.Arbitration = wanted;
    Run(job);
    QCOMPARE(listener.Said(), QStringList{u"arbitration"_s});
    QCOMPARE(job->Record.Tab(CaseTab::Summary).TabRequest, answered("SUMMARY"));
    // A tab that was not asked for has its line as it was; the documents have it always.
    QCOMPARE(job->Record.Tab(CaseTab::Docket).TabRequest, answered("DOCKET"));
    QVERIFY(!job->Record.Tab(CaseTab::Documents).TabRequest.contains(answer));
    QCOMPARE(job->Status.Text, u"Search Complete"_s);
}

void tst_CaseJob::nobodyAnswersForTheArbitrationCourt()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s});
    court->Expect(superior("SUMMARY").chopped(2) + u" NOARBITRATION¦¦"_s)
        .Reply(Whole(SuperiorSummary()));
    CaseJob *job = Superior();
    Run(job);
    QVERIFY(job->Record.Tab(CaseTab::Summary).TabDone);
}

void tst_CaseJob::whoHasGoneIsNotAskedAboutArbitration()
{
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s}).Late();
    CaseJob *job = Superior();
    CaseListener listener(job);
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->GiveUp();
                   court->AnswerNow();
               });
    Run(job);
    QCOMPARE(listener.Said(), QStringList());
    QVERIFY(!job->Record.Tab(CaseTab::Summary).TabDone);
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJob::aStoppedCaseIsNotAskedAboutArbitration()
{
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s}).Late();
    CaseJob *job = Superior();
    CaseListener listener(job);
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->StopRequested = true;
                   court->AnswerNow();
               });
    Run(job);
    QCOMPARE(listener.Said(), QStringList());
    QCOMPARE(job->Status.Text, u"Search Stopped by User .."_s);
}

void tst_CaseJob::aStopUnderTheQuestionAsksForNothingMore()
{
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s});
    CaseJob *job = Superior();
    CaseListener listener(job);
    listener.Meanwhile = [job] { job->StopRequested = true; };
    Run(job);
    QCOMPARE(listener.Said(), QStringList{u"arbitration"_s});
    QCOMPARE(court->Requests().size(), 1);
    QVERIFY(!job->Record.Tab(CaseTab::Summary).TabDone);
}

void tst_CaseJob::anArchivedCaseReadsSo()
{
    court->Expect(superior("SUMMARY")).Reply(Whole(SuperiorSummary()));
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    CaseJob *job = Superior(u">>*02-1-00123-4"_s);
    QVERIFY(job->Record.Archived);
    Run(job);
    QCOMPARE(job->Record.lblCaseDetailsHdr, u"Case Details (*02-1-00123-4)"_s);
    QCOMPARE(job->Record.Caption, u"Case Details (*02-1-00123-4)"_s);
    QVERIFY(!job->Record.TabExists(CaseTab::Docket));
}

/// What is shown at each moment is the record, and each change of it is announced.
void tst_CaseJob::whatIsAskedForWhileItRuns()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    expectTabs({superior("SUMMARY"), superior("DOCKET")}, Whole(SuperiorSummary()), false);
    CaseJob *job = Superior();
    QList<CaseTab> tables;
    QStringList titles;
    QList<QStringList> strips;
    connect(&job->Sheet, &CaseSheet::TabChanged, this, [&](CaseTab tab) { tables.append(tab); });
    connect(&job->Sheet, &CaseSheet::TabsChanged, this,
            [&] { strips.append(job->Record.TabCaptions.mid(0, 3)); });
    connect(&job->Sheet, &CaseSheet::HeaderChanged, this, [&] {
        if (titles.isEmpty() || titles.last() != job->Record.lblCaseTitle)
            titles.append(job->Record.lblCaseTitle);
    });
    Run(job);
    QCOMPARE(tables, (QList<CaseTab>{CaseTab::Summary, CaseTab::Docket}));
    QCOMPARE(strips, (QList<QStringList>{{u"Summary"_s, u"Names"_s, u"Docket"_s}}));
    QCOMPARE(titles, (QStringList{QString(), u"STATE OF WASHINGTON VS SMITH & SON"_s}));
}

HALVANE_TEST(tst_CaseJob)
#include "tst_CaseJob.moc"
