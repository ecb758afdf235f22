// What a case says on the wire: its request lines byte for byte, in their order, by court, type of
// case and settings.

#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
const QStringList allTabs{u"Names"_s,    u"Docket"_s,   u"Judgments"_s,
                          u"Charges"_s,  u"Sentence"_s, u"Accounting"_s,
                          u"Schedule"_s, u"Finance"_s,  u"Documents"_s};

const QString oregonNumber = u"02C12345"_s;
const QString idahoNumber = u"CV-2002-12345"_s;

/// A summary of Oregon or Idaho that names these tabs in its first line.
QStringList stateSummary(const QString &tabs)
{
    return {u"TABS~"_s + tabs + u'~',   u"Court~BAKER~"_s, u"Case#~CV-2002-12345~"_s,
            u"Title~SMITH VS JONES~"_s, u"Judge~NONE~"_s,  u"Status~OPEN~"_s,
            u"Filed~03/04/2002~"_s,     u"EOF~"_s};
}

QStringList listOfDocuments()
{
    return {u"TABNAME~Documents~"_s, u"TABDEF~Documents~"_s, u"COLDEF~Date~20~Entry~80~"_s,
            u"COLALIGNMENT~L~"_s, u"EOF~"_s};
}

/// Words that stand for tabs in the requests of the Superior Courts.
QStringList superiorLines(const QStringList &words, const QString &number)
{
    QStringList lines;
    for (const QString &word : words)
        lines.append(word == u"DOCUMENTS" ? QString(u"WASUPDOC¦GETDOCTAB¦King¦"_s + number + u'¦')
                                          : SuperiorLine(word, number));
    return lines;
}

QStringList words(const char *list)
{
    return QString::fromLatin1(list).split(u' ', Qt::SkipEmptyParts);
}
} // namespace

class tst_CaseConversation : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void everyTypeOfASuperiorCase_data();
    void everyTypeOfASuperiorCase();
    void marksOfTheNumberStayAtHome_data();
    void marksOfTheNumberStayAtHome();
    void oregon_data();
    void oregon();
    void idaho();
    void theSummaryCutsTheTabs_data();
    void theSummaryCutsTheTabs();
    void bankruptcy();
    void aBankruptcyCaseEndsBehindItsDocket();
    void aBankruptcyCaseWithoutLinesAsksNothingMore();
    void bankruptcyLinesInSmallLetters();
    void everySectionOfTheSettings_data();
    void everySectionOfTheSettings();
    void onlyOneIsOn_data();
    void onlyOneIsOn();
    void linesAreKeptForTabsThatAreOff();
    void theQueueHoldsTheLinesInTheirOrder_data();
    void theQueueHoldsTheLinesInTheirOrder();
    void theClientCodeGoesWithSummaryAndNames();
    void aPauseBeforeEveryTab();
    void anArchivedCaseShowsItsMark_data();
    void anArchivedCaseShowsItsMark();
    void theHeadingOfAnArchivedCaseHasNoOtherMark();

private:
    /// The court answers a summary with `summary` and all other lines with tables.
    void expect(const QStringList &lines, const QStringList &summary);
};

void tst_CaseConversation::expect(const QStringList &lines, const QStringList &summary)
{
    court->Expect(lines.first()).Reply(summary);
    for (const QString &line : lines.sliced(1)) {
        const bool gridDef = line.startsWith(u"WASUP¦");
        court->Expect(line).Reply(gridDef ? GridDef({u"01/02/2003~A~"_s}) : listOfDocuments());
    }
}

void tst_CaseConversation::everyTypeOfASuperiorCase_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("archived");
    QTest::addColumn<QStringList>("requests");
    const char *const criminal =
        "NAMES DOCKET JUDGMENTS CHARGES SENTENCE ACCOUNTING SCHEDULE DOCUMENTS";
    const char *const civil = "NAMES DOCKET JUDGMENTS ACCOUNTING SCHEDULE DOCUMENTS";
    const char *const oldCriminal = "NAMES JUDGMENTS CHARGES SENTENCE SCHEDULE DOCUMENTS";
    const char *const oldCivil = "NAMES JUDGMENTS ACCOUNTING DOCUMENTS";
    const auto row = [](const char *type, bool archived, const char *list) {
        QTest::addRow("%s%s", archived ? "*" : "", type)
            << QString::fromLatin1(type) << archived << words("SUMMARY") + words(list);
    };
    for (const char *type : {"1", "8"}) {
        row(type, false, criminal);
        row(type, true, oldCriminal);
    }
    for (const char *type : {"2", "3", "4"}) {
        row(type, false, civil);
        row(type, true, oldCivil);
    }
    row("9", false, "NAMES DOCKET DOCUMENTS");
    row("9", true, "NAMES DOCKET DOCUMENTS");
    for (const char *type : {"0", "5", "6", "7"}) {
        row(type, false, "NAMES DOCKET");
        row(type, true, "NAMES");
    }
}

void tst_CaseConversation::everyTypeOfASuperiorCase()
{
    QFETCH(QString, type);
    QFETCH(bool, archived);
    QFETCH(QStringList, requests);
    FetchAtOnce(u"CaseSearchTabs"_s, allTabs);
    const QString number = u"02-"_s + type + u"-00123-4"_s;
    expect(superiorLines(requests, number), SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior((archived ? u"*"_s : QString()) + number);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QStringList captions;
    for (const QString &word : requests)
        captions.append(word.at(0) + word.mid(1).toLower());
    QCOMPARE(CaptionsOf(window), captions);
}

void tst_CaseConversation::marksOfTheNumberStayAtHome_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QStringList>("requests");
    QTest::newRow("archived") << u"*02-2-00123-4"_s << u"02-2-00123-4"_s
                              << words("SUMMARY NAMES JUDGMENTS ACCOUNTING DOCUMENTS");
    QTest::newRow("opened before") << u">>02-2-00123-4"_s << u"02-2-00123-4"_s
                                   << words("SUMMARY NAMES JUDGMENTS ACCOUNTING DOCUMENTS");
    QTest::newRow("opened before, with a blank")
        << u">> 02-2-00123-4"_s << u"02-2-00123-4"_s
        << words("SUMMARY NAMES JUDGMENTS ACCOUNTING DOCUMENTS");
    QTest::newRow("both") << u">>*02-2-00123-4"_s << u"02-2-00123-4"_s
                          << words("SUMMARY NAMES JUDGMENTS ACCOUNTING DOCUMENTS");
    QTest::newRow("no digit for a type") << u"A2-2-0012"_s << u"A2-2-0012"_s << words("SUMMARY");
}

void tst_CaseConversation::marksOfTheNumberStayAtHome()
{
    QFETCH(QString, cell);
    QFETCH(QString, number);
    QFETCH(QStringList, requests);
    FetchAtOnce(u"CaseSearchTabs"_s, allTabs);
    expect(superiorLines(requests, number), SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior(cell);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseConversation::oregon_data()
{
    QTest::addColumn<QString>("courtType");
    QTest::addColumn<QString>("letter");
    QTest::newRow("Circuit") << u"C"_s << u"C"_s;
    QTest::newRow("Circuit, small") << u"c"_s << u"C"_s;
    QTest::newRow("District") << u"D"_s << u"D"_s;
    QTest::newRow("nothing said") << QString() << u"D"_s;
}

void tst_CaseConversation::oregon()
{
    QFETCH(QString, courtType);
    QFETCH(QString, letter);
    FetchAtOnce(u"OrCaseSearchTabs"_s, allTabs);
    QStringList lines;
    for (const QString &word :
         {u"SUMMARY,NAMES,DOCKET,"_s, u"NAMES,"_s, u"DOCKET,"_s, u"JUDGMENTS,"_s, u"CHARGES,"_s,
          u"ACCOUNTING,"_s, u"FINANCE,"_s, u"SENTENCES,"_s})
        lines.append(u"OREGON@"_s + word + u"@02C12345@BAK "_s + letter + u'@');
    expect(lines, stateSummary(u"Sentence,Finance,Names,Docket,Judgments,Charges,Accounting"_s));
    frmCaseDetails *window = OfState(u"OR"_s, oregonNumber);
    window->lblOrCourtType = courtType;
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseConversation::idaho()
{
    FetchAtOnce(u"IdCaseSearchTabs"_s, allTabs);
    QStringList lines;
    for (const QString &word :
         {u"SUMMARY,NAMES,DOCKET,"_s, u"NAMES,"_s, u"DOCKET,"_s, u"JUDGMENTS,"_s, u"CHARGES,"_s})
        lines.append(QString(u"IDSUP¦"_s + word + u"¦CV-2002-12345¦Ada¦"_s));
    expect(lines, stateSummary(u"Charges,Judgments,Docket,Names"_s));
    frmCaseDetails *window = OfState(u"ID"_s, idahoNumber);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseConversation::theSummaryCutsTheTabs_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("named");
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("Oregon, one") << u"OR"_s << u"FINANCE"_s << words("Summary Finance")
                                 << words("FINANCE,");
    QTest::newRow("Oregon, in any letters")
        << u"OR"_s << u"docket names"_s << words("Summary Names Docket") << words("NAMES, DOCKET,");
    QTest::newRow("Oregon, none") << u"OR"_s << QString() << words("Summary") << QStringList();
    QTest::newRow("Idaho, two") << u"ID"_s << u"Judgments~Docket"_s
                                << words("Summary Docket Judgments") << words("DOCKET, JUDGMENTS,");
}

void tst_CaseConversation::theSummaryCutsTheTabs()
{
    QFETCH(QString, state);
    QFETCH(QString, named);
    QFETCH(QStringList, asked);
    FetchAtOnce(u"OrCaseSearchTabs"_s, allTabs);
    FetchAtOnce(u"IdCaseSearchTabs"_s, allTabs);
    QStringList lines;
    for (const QString &word : QStringList{u"SUMMARY,NAMES,DOCKET,"_s} + asked)
        lines.append(state == u"OR" ? u"OREGON@"_s + word + u"@02C12345@BAK C@"_s
                                    : QString(u"IDSUP¦"_s + word + u"¦02C12345¦Ada¦"_s));
    expect(lines, stateSummary(named));
    frmCaseDetails *window = OfState(state, oregonNumber);
    Run(window);
    QTEST(CaptionsOf(window), "captions");
    QTEST(window->TabCaptions(), "captions");
}

void tst_CaseConversation::bankruptcy()
{
    const QStringList summary{
        u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s,
        u"TABDEF^RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~^RETRIEVECOMMAND=BKRPT~NAMES~99-20077~^"
        "RETRIEVECOMMAND=BKRPT~DOCKET~99-20077~^"_s,
        u"EOF~"_s};
    expect({u"BKRPT~CASE~99-20077~"_s, u"BKRPT~NAMES~99-20077~"_s, u"BKRPT~DOCKET~99-20077~"_s},
           summary);
    frmCaseDetails *window = Bankruptcy(u"  BKRPT~CASE~99-20077~ "_s);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CaptionsOf(window), words("Summary Names Docket"));
    QCOMPARE(window->Tab(CaseTab::Summary).TabRequest, u"BKRPT~CASE~99-20077~"_s);
}

void tst_CaseConversation::aBankruptcyCaseEndsBehindItsDocket()
{
    const QStringList summary{u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s,
                              u"TABDEF^RETRIEVECOMMAND=BKRPT~DOCKET~1~^"
                              "RETRIEVECOMMAND=BKRPT~NAMES~1~^"_s,
                              u"EOF~"_s};
    expect({u"BKRPT~CASE~1~"_s, u"BKRPT~DOCKET~1~"_s}, summary);
    frmCaseDetails *window = Bankruptcy(u"BKRPT~CASE~1~"_s);
    Run(window);
    QCOMPARE(CaptionsOf(window), words("Summary Docket Names"));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseConversation::aBankruptcyCaseWithoutLinesAsksNothingMore()
{
    expect({u"BKRPT~CASE~1~"_s}, {u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Judge~A~"_s,
                                  u"Date Filed~03/04/2002~"_s, u"EOF~"_s});
    frmCaseDetails *window = Bankruptcy(u"BKRPT~CASE~1~"_s);
    Run(window);
    QCOMPARE(CaptionsOf(window), words("Summary"));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseConversation::bankruptcyLinesInSmallLetters()
{
    const QStringList summary{u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s,
                              u"TABDEF^RETRIEVECOMMAND=bkrpt~names~1~^"_s, u"EOF~"_s};
    expect({u"BKRPT~CASE~1~"_s, u"bkrpt~names~1~"_s}, summary);
    frmCaseDetails *window = Bankruptcy(u"BKRPT~CASE~1~"_s);
    Run(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
}

void tst_CaseConversation::everySectionOfTheSettings_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("section");
    QTest::newRow("Washington") << u"WA"_s << u"CaseSearchTabs"_s;
    QTest::newRow("Oregon") << u"OR"_s << u"OrCaseSearchTabs"_s;
    QTest::newRow("Idaho") << u"ID"_s << u"IdCaseSearchTabs"_s;
}

void tst_CaseConversation::everySectionOfTheSettings()
{
    QFETCH(QString, state);
    QFETCH(QString, section);
    // A tab is off by default, and what other courts have set is no matter.
    for (const QString &other : words("CaseSearchTabs OrCaseSearchTabs IdCaseSearchTabs")) {
        if (other != section)
            FetchAtOnce(other, allTabs);
    }
    CSetting settings;
    settings.Init(u"options.ini"_s);
    settings.SaveSettingStr(section, u"Docket"_s, u"1"_s);
    Global.bSearchInProgress = true;
    frmCaseDetails *window = state == u"WA" ? Superior() : OfState(state, oregonNumber);
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QCOMPARE(window->lboxTabReqQueue.ListCount(), 2);
    QCOMPARE(window->lboxTabReqQueue.List(1), window->Tab(CaseTab::Docket).TabRequest);
    QVERIFY(!window->Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(window->Tab(CaseTab::Names).TabNotRetrieved);
    QVERIFY(!window->Tab(CaseTab::Summary).TabNotRetrieved);
    Global.bSearchInProgress = false;
}

void tst_CaseConversation::onlyOneIsOn_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("on");
    for (const QString &value : {u"0"_s, u""_s, u"2"_s, u"on"_s, u"True"_s, u"01"_s})
        QTest::addRow("'%s'", qPrintable(value)) << value << false;
    QTest::newRow("'1'") << u"1"_s << true;
}

void tst_CaseConversation::onlyOneIsOn()
{
    QFETCH(QString, value);
    QFETCH(bool, on);
    CSetting settings;
    settings.Init(u"options.ini"_s);
    settings.SaveSettingStr(u"CaseSearchTabs"_s, u"Docket"_s, value);
    QStringList lines{SuperiorLine(u"SUMMARY"_s)};
    if (on)
        lines.append(SuperiorLine(u"DOCKET"_s));
    expect(lines, SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(window->Tab(CaseTab::Docket).TabNotRetrieved, !on);
    QCOMPARE(window->Tab(CaseTab::Docket).TabDone, on);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), on ? u"frameTabs_2"_s : u"frameTabs_8"_s);
}

void tst_CaseConversation::linesAreKeptForTabsThatAreOff()
{
    expect({SuperiorLine(u"SUMMARY"_s)}, SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior();
    Run(window);
    const QList<CaseTab> off{CaseTab::Names,     CaseTab::Docket,  CaseTab::Accounting,
                             CaseTab::Judgments, CaseTab::Charges, CaseTab::Sentence,
                             CaseTab::Schedule};
    for (const CaseTab tab : off) {
        QCOMPARE(window->Tab(tab).TabRequest,
                 SuperiorLine(CaseTabRowOf(tab).caption.toString().toUpper()));
        QVERIFY(window->Tab(tab).TabNotRetrieved);
    }
    QCOMPARE(window->Tab(CaseTab::Documents).TabRequest,
             u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s);
    // This court has no such tab.
    QCOMPARE(window->Tab(CaseTab::Finance).TabRequest, QString());
}

void tst_CaseConversation::theQueueHoldsTheLinesInTheirOrder_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("tabs");
    QTest::newRow("Washington")
        << u"WA"_s
        << words("Names Docket Accounting Judgments Charges Sentence Schedule Documents");
    QTest::newRow("Oregon") << u"OR"_s
                            << words("Names Docket Accounting Finance Judgments Charges Sentence");
    QTest::newRow("Idaho") << u"ID"_s << words("Names Docket Judgments Charges");
}

void tst_CaseConversation::theQueueHoldsTheLinesInTheirOrder()
{
    QFETCH(QString, state);
    QFETCH(QStringList, tabs);
    for (const QString &section : words("CaseSearchTabs OrCaseSearchTabs IdCaseSearchTabs"))
        FetchAtOnce(section, allTabs);
    Global.bSearchInProgress = true;
    frmCaseDetails *window = state == u"WA" ? Superior() : OfState(state, oregonNumber);
    window->lboxTabReqQueue.AddItem(u"left over"_s);
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QStringList lines = window->lboxTabReqQueue.Lines();
    QVERIFY(lines.takeFirst().contains(u"SUMMARY"));
    QStringList expected;
    for (const QString &tab : tabs)
        expected.append(window->Tab(CaseTabOf(tab).value()).TabRequest);
    QCOMPARE(lines, expected);
    Global.bSearchInProgress = false;
}

void tst_CaseConversation::theClientCodeGoesWithSummaryAndNames()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s, u"Documents"_s});
    expect({u"WASUP¦SUMMARY¦02-9-00123-4¦King¦^^CAC:ACME 7^^¦"_s,
            u"WASUP¦NAMES¦02-9-00123-4¦King¦^^CAC:ACME 7^^¦"_s,
            u"WASUP¦DOCKET¦02-9-00123-4¦King¦¦"_s, u"WASUPDOC¦GETDOCTAB¦King¦02-9-00123-4¦"_s},
           SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior(u"02-9-00123-4"_s);
    window->ClientAcctgCode = u"ACME 7"_s;
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    // The lines themselves stay as they are.
    QCOMPARE(window->Tab(CaseTab::Names).TabRequest, SuperiorLine(u"NAMES"_s, u"02-9-00123-4"_s));
}

void tst_CaseConversation::aPauseBeforeEveryTab()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-5-00123-4"_s))
        .Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"DOCKET"_s, u"02-5-00123-4"_s)).Reply({});
    frmCaseDetails *window = Superior(u"02-5-00123-4"_s);
    desk->ConnectTo(*court);
    QDateTime summaryDone;
    QDateTime docketBegun;
    desk->When([&] { return window->Tab(CaseTab::Summary).TabDone; },
               [&] { summaryDone = desk->Time.Now(); });
    // Not when the request comes: how long it is on its way is no matter here.
    desk->When([&] { return TextOf(window, "lblStatus") == u"Retrieving Docket .."; },
               [&] { docketBegun = desk->Time.Now(); });
    desk->When([&] { return court->Requests().size() == 2; },
               [&] { court->SendTokens(GridDef({u"01/02/2003~A~"_s})); });
    desk->Time.Run(0.01);
    Begin(window);
    QVERIFY(Finished(window));
    // Names is off, and waited for all the same: twice 0.15 seconds up to the Docket.
    const qint64 waited = summaryDone.msecsTo(docketBegun);
    QVERIFY2(waited >= 290 && waited <= 420, qPrintable(QString::number(waited)));
}

void tst_CaseConversation::anArchivedCaseShowsItsMark_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("header");
    QTest::addColumn<QString>("caption");
    const QString marked = u"Case Details (*02-1-00123-4)"_s;
    const QString ofCourt = u"1 -- King Co Superior Ct"_s;
    QTest::newRow("archived") << u"*02-1-00123-4"_s << marked << marked;
    QTest::newRow("archived and opened before") << u">>*02-1-00123-4"_s << marked << marked;
    QTest::newRow("neither") << u"02-1-00123-4"_s << u"Case Details (02-1-00123-4)"_s << ofCourt;
    // It has the tabs of an archived case, but nothing says that it is one.
    QTest::newRow("opened before")
        << u">>02-1-00123-4"_s << u"Case Details (02-1-00123-4)"_s << ofCourt;
}

void tst_CaseConversation::anArchivedCaseShowsItsMark()
{
    QFETCH(QString, cell);
    QFETCH(QString, header);
    expect({SuperiorLine(u"SUMMARY"_s)}, SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior(cell);
    window->SetCaseDetailsHdr(header);
    Run(window);
    QCOMPARE(window->lblCaseDetailsHdr(), header);
    QTEST(window->windowTitle(), "caption");
}

void tst_CaseConversation::theHeadingOfAnArchivedCaseHasNoOtherMark()
{
    expect({SuperiorLine(u"SUMMARY"_s)}, SuperiorSummary() + QStringList{u"EOF~"_s});
    frmCaseDetails *window = Superior(u">>*02-1-00123-4"_s);
    window->SetCaseDetailsHdr(u"Case Details (>>*02-1-00123-4)"_s);
    Run(window);
    QCOMPARE(window->lblCaseDetailsHdr(), u"Case Details (*02-1-00123-4)"_s);
}

HALVANE_TEST(tst_CaseConversation)
#include "tst_CaseConversation.moc"
