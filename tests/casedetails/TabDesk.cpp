#include "casedetails/TabDesk.h"

#include "casedetails/frmCaseDetails.h"
#include "link/Comm.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {
const QString endMark = u"EOF~"_s;
const QString bankruptcySummary = u"BKRPT~SUMMARY~99-20077~"_s;
const QString runEnded = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
} // namespace

void TabTest::init()
{
    CaseTest::init();
    trail = std::make_unique<StatusTrail>("lblStatus");
}

void TabTest::cleanup()
{
    trail.reset();
    CaseTest::cleanup();
}

const FamilyMember &TabTest::Member()
{
    return *std::find_if(family.begin(), family.end(), [](const FamilyMember &row) {
        return qstrcmp(row.name, QTest::currentDataTag()) == 0;
    });
}

void TabTest::Members()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family)
        QTest::newRow(row.name) << 0;
}

frmCaseDetails *TabTest::WindowOf(const FamilyMember &member)
{
    if (member.state == u"WA")
        return Superior();
    if (member.state == u"OR")
        return OfState(u"OR"_s, u"CV0100001"_s);
    if (member.state == u"ID")
        return OfState(u"ID"_s, u"CV-2001-1"_s);
    return Bankruptcy(bankruptcySummary);
}

frmCaseDetails *TabTest::CaseWith(const FamilyMember &member)
{
    const QStringList captions{CaptionOf(member)};
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s})
        FetchAtOnce(section, captions);
    court->Expect(SummaryLineOf(member)).Reply(SummaryReplyOf(member));
    return WindowOf(member);
}

frmCaseDetails *TabTest::Retrieved(const FamilyMember &member, const QStringList &reply)
{
    frmCaseDetails *window = CaseWith(member);
    court->Expect(member.request.toString()).Reply(reply);
    Run(window);
    return window;
}

void TabTest::Retry(frmCaseDetails *window, const FamilyMember &member)
{
    ButtonOf(window, "cmdClearAll")->click();
    const QString box = u"chkTab_"_s + QString::number(CaseTabRowOf(member.tab).check);
    window->findChild<QCheckBox *>(box)->click();
    desk->Time.Run(0.05);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    desk->Time.Stop();
}

void TabTest::KeepSilent(const QString &request)
{
    desk->When([this, request] { return desk->Folder.Logged(u"SendReq: "_s + request); },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
}

QStringList TabTest::LogOf(const FamilyMember &member) const
{
    const QStringList log = desk->Folder.Log();
    const qsizetype first = log.indexOf(TextsOfMember(member).Retrieving);
    const qsizetype end = log.indexOf(runEnded);
    return log.mid(first, end < 0 ? -1 : end - first);
}

QStringList TabTest::LoggedReply(const FamilyMember &member, const QStringList &reply)
{
    const bool names = member.tab == CaseTab::Names;
    QStringList log;
    for (const QString &line : reply) {
        log += u"Current Response: --> "_s + line + (names ? u" Ret Val: 0"_s : u" 0"_s);
        const bool error = line.startsWith(u"ERROR") && member.tab != CaseTab::Documents;
        const bool progress = line.startsWith(u"searching", Qt::CaseInsensitive);
        if (!names && !error && !progress && !line.startsWith(endMark))
            log += u"Sent response to caller: "_s + line;
    }
    return log;
}

QStringList TabTest::WholeTable(const FamilyMember &member)
{
    return TableHead(member)
           + QStringList{TableRow(member, u"01/02/2003~First~"_s),
                         TableRow(member, u"01/03/2003~Second~"_s)};
}

QList<QStringList> TabTest::WholeCells(const FamilyMember &member)
{
    QList<QStringList> cells{
        {u"Date"_s, u"Entry"_s}, {u"01/02/2003"_s, u"First"_s}, {u"01/03/2003"_s, u"Second"_s}};
    if (member.lastFirst)
        cells.swapItemsAt(1, 2);
    return cells;
}

void TabTest::VerifyStatus(const QString &retrieving, const QString &ended, const QString &runEnd,
                           const FamilyMember &member)
{
    QStringList expected{retrieving, ended, runEnd};
    if (member.lastOfStrip)
        expected.removeAt(1);
    QCOMPARE(trail->Behind(u"Summary Complete .."_s), expected);
}

void TabTest::VerifyDone(const frmCaseDetails *window, const FamilyMember &member)
{
    const FamilyTexts texts = TextsOfMember(member);
    const CaseTabState &tab = window->Tab(member.tab);
    QVERIFY(tab.TabDone);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(!tab.TabIncomplete);
    VerifyStatus(texts.Retrieving, texts.Complete, u"Search Complete"_s, member);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isHidden());
}

void TabTest::VerifyIncomplete(const frmCaseDetails *window, const FamilyMember &member)
{
    const FamilyTexts texts = TextsOfMember(member);
    const CaseTabState &tab = window->Tab(member.tab);
    QVERIFY(!tab.TabDone);
    QVERIFY(tab.TabNotRetrieved);
    QVERIFY(tab.TabIncomplete);
    VerifyStatus(texts.Retrieving, texts.Incomplete, u"Search Incomplete!"_s, member);
    QCOMPARE(TextOf(window, "lblWarning"), texts.Warning);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isVisible());
}

QString TabTest::CaptionOf(const FamilyMember &member)
{
    return CaseTabRowOf(member.tab).caption.toString();
}

QString TabTest::SummaryLineOf(const FamilyMember &member)
{
    if (member.state == u"OR")
        return u"OREGON@SUMMARY,NAMES,DOCKET,@CV0100001@BAK C@"_s;
    if (member.state == u"ID")
        return u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-2001-1¦Ada¦"_s;
    if (member.state == u"WA")
        return SuperiorLine(u"SUMMARY"_s);
    return bankruptcySummary;
}

QStringList TabTest::SummaryReplyOf(const FamilyMember &member)
{
    if (member.state == u"WA")
        return {u"Case Type:~1~"_s, u"Court:~King County~"_s, u"Title:~A VS B~"_s,
                u"Date Filed:~03/04/2002~"_s, endMark};
    if (member.state == u"OR" || member.state == u"ID")
        return {u"NAMES DOCKET JUDGMENTS CHARGES ACCOUNTING FINANCE SENTENCE"_s,
                u"Court~Court of the County~"_s,
                u"Case~CV-2001-1~"_s,
                u"Title~A VS B~"_s,
                u"Four~4~"_s,
                u"Five~5~"_s,
                u"Filed~03/04/2002~"_s,
                endMark};
    return {u"TABDEF/RETRIEVECOMMAND="_s + member.request + u'/', u"Case Title~A~"_s,
            u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s, endMark};
}
