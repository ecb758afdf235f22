#include "casedetails/SummaryDesk.h"

#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

namespace {
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;

/// A reply of five lines or more in which every line counts, without the end mark.
QStringList replyOf(const QString &state)
{
    if (state == u"WA")
        return {u"Case#:~02-1-00123-4~"_s, u"Court:~King Co Superior Ct~"_s,
                u"Title:~STATE VS SMITH~"_s, u"Date Filed:~03/04/2002~"_s,
                u"Orig cause: Theft~Theft~"_s};
    if (state == u"OR" || state == u"ID")
        return {u"TABS~NAMES,DOCKET,~"_s,     u"Court~Ada County~"_s,
                u"Case Number~DO99120007~"_s, u"Title~SMITH VS SMITH~"_s,
                u"Case Type~Dissolution~"_s,  u"Status~Closed~"_s,
                u"Date Filed~12/06/1999~"_s};
    return {u"Case Title~SMITH~"_s, u"Case Number~99-20077~"_s, u"Chapter~7~"_s,
            u"Date Filed~03/16/1999~"_s};
}
} // namespace

/// Summaries that a court sends otherwise than usual.
class tst_OddSummaries : public SummaryTest
{
    Q_OBJECT
private Q_SLOTS:
    void aLineWithoutAMarkLosesNoCase_data();
    void aLineWithoutAMarkLosesNoCase();
    void aMissingFieldReadsAsEmpty_data();
    void aMissingFieldReadsAsEmpty();
    void aSuperiorCaseThatIsNotOnFile();
};

void tst_OddSummaries::aLineWithoutAMarkLosesNoCase_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("line");
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u"WAWBK"_s}) {
        for (int line = 0; line < replyOf(state).size(); ++line)
            QTest::addRow("%s, line %d", qPrintable(state), line) << state << line;
    }
}

void tst_OddSummaries::aLineWithoutAMarkLosesNoCase()
{
    QFETCH(QString, state);
    QFETCH(int, line);
    QStringList reply = replyOf(state);
    reply[line] = u"Case DO99120007"_s;
    const frmCaseDetails *window = summarised(state, reply + QStringList{u"EOF~"_s});
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(desk->Folder.Logged(normalExit));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    const QList<QStringList> cells = summaryCells(window);
    QCOMPARE(cells.first(), (QStringList{u"Item"_s, u"Description"_s}));
    // In Oregon and Idaho the first line names the tabs and is no row; of a Superior case the first
    // four are the header.
    const qsizetype header = state == u"WA" ? 4 : state == u"WAWBK" ? 0 : 1;
    QCOMPARE(cells.size(), 1 + reply.size() - header);
}

void tst_OddSummaries::aMissingFieldReadsAsEmpty_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("reads");
    const auto row = [](const QString &state, int line, const char *label, const QString &reads) {
        QTest::addRow("%s, %s", qPrintable(state), label)
            << state << line << QByteArray(label) << reads;
    };
    row(u"WA"_s, 0, "lblTopFrameCaseType", {});
    row(u"WA"_s, 1, "lblCourtName", {});
    row(u"WA"_s, 2, "lblCaseTitle", {});
    row(u"WA"_s, 3, "lblDateFiled", {});
    row(u"OR"_s, 1, "lblCourtName", u"Oregon State - "_s);
    row(u"OR"_s, 2, "lblTopFrameCaseType", u"N/A"_s);
    row(u"ID"_s, 1, "lblCourtName", {});
    row(u"ID"_s, 2, "lblTopFrameCaseType", {});
    row(u"ID"_s, 3, "lblCaseTitle", {});
    row(u"ID"_s, 6, "lblDateFiled", {});
}

void tst_OddSummaries::aMissingFieldReadsAsEmpty()
{
    QFETCH(QString, state);
    QFETCH(int, line);
    QFETCH(QByteArray, label);
    QStringList reply = replyOf(state);
    reply[line] = u"no field"_s;
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(requestOf(state)).Reply(reply + QStringList{u"EOF~"_s});
    frmCaseDetails *window = windowOf(state);
    // What the list of results said, and this reply takes back.
    window->SetDateFiled(u"01/01/2001"_s);
    window->SetTopFrameCaseType(u"Civil"_s);
    window->SetCourtName(u"A court"_s);
    window->SetCaseTitle(u"A VS B"_s);
    Run(window);
    QTEST(TextOf(window, label.constData()), "reads");
}

/// The court does not end the case with it: the reply is an ordinary one, too short for a case, and
/// what else the court has of the number is asked for.
void tst_OddSummaries::aSuperiorCaseThatIsNotOnFile()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s))
        .Reply({u"ERROR -- The Case is not on file"_s, u"EOF~"_s});
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"SMITH, JOHN~Defendant~"_s}));
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({u"ERROR -- no such case"_s, u"EOF~"_s});
    frmCaseDetails *window = Superior();
    const QStringList captions = WashingtonTabs(window->txtCaseNumber);
    Run(window);
    QCOMPARE(summaryCells(window), QList<QStringList>{{u"This case was not located."_s}});
    QVERIFY(desk->Folder.Logged(u"The Case is not on file"_s));
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(CaptionsOf(window), captions);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(window->Tab(CaseTab::Docket).TabIncomplete);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QVERIFY(desk->Folder.Logged(normalExit));
    QVERIFY(!window->windowTitle().contains(u"Not Located"));
    // What the list of results said of the case stays.
    QCOMPARE(TextOf(window, "lblCourtName"), u"King County, Washington Superior Courts"_s);
}

HALVANE_TEST(tst_OddSummaries)
#include "tst_OddSummaries.moc"
