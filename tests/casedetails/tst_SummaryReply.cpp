#include "casedetails/SummaryReply.h"
#include "support/HalvaneTest.h"

using namespace Qt::StringLiterals;

namespace {
SummaryContext contextOf(const QString &state)
{
    return {state, u"King"_s, u"Pending .. "_s, u"Case Details (1)"_s, u"King County"_s};
}

GridTable cell(const QString &text)
{
    return {{{QString(), 100}}, {{text}}, false};
}

const QStringList summaryAlone{u"Summary"_s};
const QString located = u"This case was not located."_s;
const QString incomplete = u"Summary Incomplete. Some information may not have been retrieved."_s;

/// A reply of the Superior Courts with these lines behind its header.
QStringList washingtonReply(const QStringList &items)
{
    return QStringList{u"Case Number~02-2-00123-4~"_s, u"Court~King County  Superior Court~"_s,
                       u"Title~SMITH & SONS & CO VS DOE~"_s, u"Filed~01/02/2002~"_s}
           + items;
}

const QStringList stateReply{u"TABS~NAMES,DOCKET,ACCOUNTING,~"_s,
                             u"Court~Ada County~"_s,
                             u"Case Number~CR-1998-0002546~"_s,
                             u"Title~STATE & PEOPLE VS SMITH~"_s,
                             u"Status~Closed~"_s,
                             QString(),
                             u"Filed~05/08/1998~"_s,
                             u"Judge"_s};

const QString allUnavailable = u"This Court Is Currently Unavailable, Please Try Later"_s;
} // namespace

Q_DECLARE_METATYPE(SummaryLine)

class tst_SummaryReply : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void eachLine_data();
    void eachLine();
    void errorPhrases_data();
    void errorPhrases();
    void bothSpellingsOfAnErrorGiveTheSameReason();
    void theReasonOfARowIsWhatTheNextRowsSee();
    void firstTestThatHolds_data();
    void firstTestThatHolds();
    void onlyTheWholeLineSaysSo_data();
    void onlyTheWholeLineSaysSo();
    void anInvalidNumberIsShownByWashingtonOnly();
    void aTitleThatIsNotPendingStays();
    void idahoNotOnFileGivesTheCellAndOneTab();
    void anEmptyReplyEndsTheSearch();
    void washingtonHeader();
    void washingtonTypes_data();
    void washingtonTypes();
    void washingtonRows();
    void oregonHeader();
    void idahoHeader();
    void idahoTypesGoByTheHeadOfTheNumber();
    void idahoHasNoTabThatItsCourtsDoNotHave();
    void stateRows();
    void theCaptionOfAStateHasNoDoubleBlank();
    void fewerThanFourLines_data();
    void fewerThanFourLines();
    void aHeaderLineWithoutItsFieldReadsAsEmpty_data();
    void aHeaderLineWithoutItsFieldReadsAsEmpty();
    void aRowWithOneFieldHasAnEmptyCell();
    void bankruptcyCase();
    void bankruptcyTabs_data();
    void bankruptcyTabs();
    void aBankruptcyReplyWithoutTabsKeepsTheStrip();
    void theChapterGoesBehindTheTitleWhereverItStands();
    void bankruptcyItemsInAnyLetters();
    void bankruptcyList();
    void theListIsForBankruptcyCourtsOnly();
};

void tst_SummaryReply::eachLine_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<SummaryLine>("kind");
    const auto row = [](const char *name, const QString &state, const QString &line,
                        SummaryLine kind) { QTest::newRow(name) << state << line << kind; };
    row("end", u"WA"_s, u"EOF~"_s, SummaryLine::EndOfReply);
    row("end behind text", u"WA"_s, u"Case~EOF~"_s, SummaryLine::EndOfReply);
    row("end goes before an error", u"WA"_s, u"ERROR~x~EOF~"_s, SummaryLine::EndOfReply);
    row("thereof in capitals is an end", u"WA"_s, u"Heirs THEREOF~"_s, SummaryLine::EndOfReply);
    row("thereof in small letters is data", u"WA"_s, u"Heirs thereof~"_s, SummaryLine::Data);
    row("end in small letters is data", u"WA"_s, u"eof~"_s, SummaryLine::Data);
    row("end at the head alone is data", u"WA"_s, u"EOF~more"_s, SummaryLine::Data);
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s})
        row(qPrintable(state + u" not found"_s), state, u"ERROR~Case Not Found~"_s,
            SummaryLine::BankruptcyNotFound);
    row("illegal number, small letters", u"ORBK"_s, u"error~ILLEGAL case number~"_s,
        SummaryLine::BankruptcyNotFound);
    row("another bankruptcy error", u"ORBK"_s, u"ERROR~Down~"_s, SummaryLine::Error);
    row("not found, but no error", u"ORBK"_s, u"Assets~not found~"_s, SummaryLine::Data);
    row("not found elsewhere", u"WA"_s, u"ERROR~Case Not Found~"_s, SummaryLine::Error);
    row("not found in Oregon", u"OR"_s, u"ERROR~Case Not Found~"_s, SummaryLine::Error);
    for (const QString &state : {u"OR"_s, u"ID"_s}) {
        row(qPrintable(state + u" requested"_s), state, u"ERROR~Requested case is not on file~"_s,
            SummaryLine::NotOnFile);
        row(qPrintable(state + u" request"_s), state, u"Error~request case is not on FILE~ x"_s,
            SummaryLine::NotOnFile);
        row(qPrintable(state + u" without its mark"_s), state,
            u"ERROR~Requested case is not on file"_s, SummaryLine::Error);
    }
    row("not on file in Washington", u"WA"_s, u"ERROR~Requested case is not on file~"_s,
        SummaryLine::Error);
    row("error", u"WA"_s, u"ERROR~Down~"_s, SummaryLine::Error);
    row("error without a mark", u"ID"_s, u"ERRORS were made"_s, SummaryLine::Error);
    row("error in small letters is data", u"WA"_s, u"error~Down~"_s, SummaryLine::Data);
    row("error not at the head is data", u"WA"_s, u" ERROR~Down~"_s, SummaryLine::Data);
    row("progress", u"WA"_s, u"SEARCHING~King~"_s, SummaryLine::Progress);
    row("progress in small letters", u"WA"_s, u"searching"_s, SummaryLine::Progress);
    row("question", u"WA"_s, u"USERQUESTION~Arbitration~"_s, SummaryLine::UserQuestion);
    row("question in small letters is data", u"WA"_s, u"userquestion"_s, SummaryLine::Data);
    row("data", u"WA"_s, u"Case Number~1~"_s, SummaryLine::Data);
    row("nothing is data", u"WA"_s, QString(), SummaryLine::Data);
}

void tst_SummaryReply::eachLine()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    QTEST(ClassifySummaryLine(state, line), "kind");
}

void tst_SummaryReply::errorPhrases_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("log");
    QTest::addColumn<bool>("warnings");
    for (const QString &phrase :
         {u"No Connection"_s, u"Error Occured"_s, u"Error occurred"_s, u"Unknown error"_s,
          u"UNKNOWN COMMAND"_s, u"connection lost"_s, u"SCOMIS was lost"_s,
          u"No Servers Available"_s, u"SCOMIS failed"_s}) {
        const QString line = u"ERROR~A "_s + phrase + u" here~"_s;
        const QString log = incomplete + u" - ~A "_s + phrase + u" here~"_s;
        QTest::newRow(qPrintable(phrase)) << line << incomplete << log << true;
    }
    for (const QString &phrase : {u"Not a valid case number"_s, u"CASE IS NOT ON FILE"_s}) {
        QTest::newRow(qPrintable(phrase))
            << QString(u"ERROR -- "_s + phrase + u" -- sorry"_s) << QString(phrase + u"sorry"_s)
            << QString(phrase + u"sorry"_s) << false;
    }
    const QString oregon = u"Search Incomplete. Oregon Courts Are Currently Unavailable."_s;
    QTest::newRow("Oregon") << u"ERROR~Oregon courts are currently unavailable, please try later~"_s
                            << oregon << oregon << true;
    const QString idaho = u"Search Incomplete. Idaho Courts Are Currently Unavailable."_s;
    QTest::newRow("Idaho") << u"ERROR~Idaho courts are currently unavailable, please try later~"_s
                           << idaho << idaho << true;
    QTest::newRow("no phrase") << u"ERROR~The roof is leaking~"_s << u"~The roof is leaking~"_s
                               << QString() << true;
    QTest::newRow("the word alone") << u"ERROR"_s << QString() << QString() << true;
}

void tst_SummaryReply::errorPhrases()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    const SummaryError error = ReadSummaryError(line);
    QCOMPARE(error.Text, text);
    QCOMPARE(error.Response, text);
    QTEST(error.LogLine, "log");
    QTEST(error.Warnings, "warnings");
}

void tst_SummaryReply::bothSpellingsOfAnErrorGiveTheSameReason()
{
    QCOMPARE(ReadSummaryError(u"ERROR an error occured"_s).Text, incomplete);
    QCOMPARE(ReadSummaryError(u"ERROR an error occurred"_s).Text, incomplete);
}

void tst_SummaryReply::theReasonOfARowIsWhatTheNextRowsSee()
{
    // The second phrase would make it a normal reply, had the first one not replaced the text.
    const SummaryError error = ReadSummaryError(u"ERROR Unknown error: not a valid case number"_s);
    QCOMPARE(error.Text, incomplete);
    QCOMPARE(error.Response, incomplete);
    QCOMPARE(error.LogLine, incomplete + u" -  Unknown error: not a valid case number"_s);
    QVERIFY(error.Warnings);
    // And a second phrase of the first row finds the reason, not the text.
    QCOMPARE(ReadSummaryError(u"ERROR no connection, connection lost"_s).LogLine,
             incomplete + u" -  no connection, connection lost"_s);
}

void tst_SummaryReply::firstTestThatHolds_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("court"); ///< "" when it stays
    QTest::addColumn<bool>("closed");   ///< Summary is the only tab, and nothing is pending
    const auto row = [](const char *name, const QString &state, const QString &line,
                        const QString &message, const QString &court, bool closed) {
        QTest::newRow(name) << state << line << message << court << closed;
    };
    row("unavailable", u"WA"_s, u"The court is currently unavailable"_s, allUnavailable, {}, true);
    row("unavailable, bankruptcy", u"IDBK"_s, u"x currently unavailable x"_s, allUnavailable, {},
        true);
    row("unavailable goes before the text of Idaho", u"ID"_s,
        u"Idaho courts are currently unavailable"_s, allUnavailable, {}, true);
    row("Oregon", u"OR"_s, u"Case Not Found"_s, located, u"King County, Oregon Circuit Courts"_s,
        true);
    row("Idaho", u"ID"_s, u"Case Not Found"_s, located, u"King County, Idaho District Courts"_s,
        true);
    row("Idaho in other letters", u"ID"_s, u"Idaho Courts Are Currently Unavailable"_s,
        u"Idaho Courts are Currently Unavailable, Please Try Later"_s, {}, true);
    row("Idaho's text in Washington", u"WA"_s, u"Idaho Courts Are Currently Unavailable"_s, located,
        {}, false);
    row("Washington, number invalid", u"WA"_s, u"02-2-1 is Not a valid case number"_s,
        u"02-2-1 is Not a valid case number"_s, {}, false);
    row("bankruptcy, not found", u"WAWBK"_s, u"Case Not Found"_s, located, {}, false);
}

void tst_SummaryReply::firstTestThatHolds()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    QFETCH(QString, message);
    QFETCH(QString, court);
    QFETCH(bool, closed);
    const SummaryView view = ReadSummary(contextOf(state), {line});
    QCOMPARE(*view.Grid, cell(message));
    QCOMPARE(view.CourtName.value_or(QString()), court);
    QCOMPARE(view.ActivateSummary, closed);
    QCOMPARE(view.Tabs.value_or(QStringList()), closed ? summaryAlone : QStringList());
    QCOMPARE(view.CaseTitle.value_or(QString()), closed ? u"Pending .."_s : QString());
    QCOMPARE(view.DateFiled.value_or(QString()), closed ? u"N/A"_s : QString());
    QCOMPARE(view.TopFrameCaseType.value_or(QString()), closed ? u"N/A"_s : QString());
    QVERIFY(!view.NotLocated);
}

void tst_SummaryReply::onlyTheWholeLineSaysSo_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::newRow("Oregon") << u"OR"_s << u"Case Not Found yet"_s;
    QTest::newRow("Oregon, in other letters") << u"OR"_s << u"Case not found"_s;
    QTest::newRow("Idaho") << u"ID"_s << u"The Case Not Found"_s;
    QTest::newRow("Idaho is down") << u"ID"_s << u"Idaho Courts Are Currently Unavailable today"_s;
    QTest::newRow("several cases") << u"IDBK"_s << u"MULTIPLE CASES"_s;
}

void tst_SummaryReply::onlyTheWholeLineSaysSo()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    const SummaryView view = ReadSummary(contextOf(state), {line});
    QCOMPARE(*view.Grid, cell(located));
    QVERIFY(!view.ActivateSummary);
    QVERIFY(!view.CourtName);
    QVERIFY(!view.Multiple);
}

void tst_SummaryReply::anInvalidNumberIsShownByWashingtonOnly()
{
    const QStringList lines{u"02-2-1~is not a valid case number~"_s};
    QCOMPARE(*ReadSummary(contextOf(u"WA"_s), lines).Grid, cell(lines.first()));
    for (const QString &state : {u"OR"_s, u"ID"_s, u"WAWBK"_s})
        QCOMPARE(*ReadSummary(contextOf(state), lines).Grid, cell(located));
}

void tst_SummaryReply::aTitleThatIsNotPendingStays()
{
    SummaryContext context = contextOf(u"OR"_s);
    context.CaseTitle = u"SMITH VS DOE"_s;
    const SummaryView view = ReadSummary(context, {u"Case Not Found"_s});
    QVERIFY(!view.CaseTitle);
    QVERIFY(!view.DateFiled);
    QVERIFY(!view.TopFrameCaseType);
}

void tst_SummaryReply::idahoNotOnFileGivesTheCellAndOneTab()
{
    QCOMPARE(ClassifySummaryLine(u"ID"_s, u"ERROR~Requested case is not on file~"_s),
             SummaryLine::NotOnFile);
    const SummaryView view = ReadSummary(contextOf(u"ID"_s), {u"Case Not Found"_s});
    QCOMPARE(*view.Grid, cell(located));
    QCOMPARE(*view.Tabs, summaryAlone);
}

void tst_SummaryReply::anEmptyReplyEndsTheSearch()
{
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u"ORBK"_s}) {
        const SummaryView view = ReadSummary(contextOf(state), {});
        QVERIFY(view.NotLocated);
        QCOMPARE(*view.Grid, cell(located));
        QCOMPARE(*view.CaptionSuffix, u" - This Case Was Not Located!"_s);
        QVERIFY(!view.Tabs);
        QVERIFY(!view.CaseTitle);
    }
}

void tst_SummaryReply::washingtonHeader()
{
    const SummaryView view = ReadSummary(contextOf(u"WA"_s), washingtonReply({u"Status~Open~"_s}));
    QCOMPARE(*view.TopFrameCaseType, u"Civil"_s);
    QCOMPARE(*view.CourtName, u"King County Superior Court"_s);
    QCOMPARE(*view.Caption, u"02-2-00123-4 -- King County Superior Court"_s);
    QCOMPARE(*view.CaseTitle, u"SMITH && SONS && CO VS DOE"_s);
    QCOMPARE(*view.DateFiled, u"01/02/2002"_s);
    QVERIFY(!view.Tabs);
    QVERIFY(!view.ActivateSummary);
}

void tst_SummaryReply::washingtonTypes_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("type");
    QTest::newRow("criminal") << u"02-1-00123-4"_s << u"Criminal"_s;
    QTest::newRow("domestic") << u"02-3-00123-4"_s << u"Domestic"_s;
    QTest::newRow("judgment") << u"029001234"_s << u"Judgment"_s;
    QTest::newRow("nothing said") << QString() << QString();
}

void tst_SummaryReply::washingtonTypes()
{
    QFETCH(QString, number);
    QStringList lines = washingtonReply({});
    lines[0] = u"Case Number~"_s + number + u'~';
    QTEST(*ReadSummary(contextOf(u"WA"_s), lines).TopFrameCaseType, "type");
}

void tst_SummaryReply::washingtonRows()
{
    const SummaryView view =
        ReadSummary(contextOf(u"WA"_s),
                    washingtonReply({u"Cause: ~Tort~more~"_s, QString(), u"Other cause:s~Tax~"_s,
                                     u"Associated Case:~01-2-00001-1~"_s, u"Status~Open~"_s}));
    const GridTable expected{{{u"Item"_s, 30}, {u"Description"_s, 70}},
                             {{u"Cause:"_s, u"Tort"_s},
                              {u"Cause:"_s, u"Tax"_s},
                              {u"Associated Case:"_s, u"01-2-00001-1"_s},
                              {u"Status"_s, u"Open"_s}},
                             true};
    QCOMPARE(view.Grid->Rows, expected.Rows);
    QCOMPARE(*view.Grid, expected);
}

void tst_SummaryReply::oregonHeader()
{
    const SummaryView view = ReadSummary(contextOf(u"OR"_s), stateReply);
    QCOMPARE(*view.CourtName, u"Oregon State - Ada County"_s);
    QCOMPARE(*view.TopFrameCaseType, u"N/A"_s);
    QCOMPARE(*view.CaseTitle, u"STATE & PEOPLE VS SMITH"_s);
    QCOMPARE(*view.DateFiled, u"05/08/1998"_s);
    QCOMPARE(*view.Caption, u"Case Details (1) -- Oregon State - Ada County"_s);
    QCOMPARE(*view.Tabs, QStringList({u"Summary"_s, u"Names"_s, u"Docket"_s, u"Accounting"_s}));
    QVERIFY(!view.ActivateSummary);
}

void tst_SummaryReply::idahoHeader()
{
    const SummaryView view = ReadSummary(contextOf(u"ID"_s), stateReply);
    QCOMPARE(*view.CourtName, u"Ada County"_s);
    QCOMPARE(*view.TopFrameCaseType, u"Criminal"_s);
    QCOMPARE(*view.CaseTitle, u"STATE & PEOPLE VS SMITH"_s);
    QCOMPARE(*view.DateFiled, u"05/08/1998"_s);
    QCOMPARE(*view.Caption, u"Case Details (1) -- Ada County"_s);
}

/// Its head tells, not the digit that would tell in Washington.
void tst_SummaryReply::idahoTypesGoByTheHeadOfTheNumber()
{
    QStringList lines = stateReply;
    lines[2] = u"Case Number~JV-1999-0000012~"_s;
    QCOMPARE(*ReadSummary(contextOf(u"ID"_s), lines).TopFrameCaseType, u"Juvenile"_s);
}

void tst_SummaryReply::idahoHasNoTabThatItsCourtsDoNotHave()
{
    const SummaryView view = ReadSummary(contextOf(u"ID"_s), stateReply);
    QCOMPARE(*view.Tabs, QStringList({u"Summary"_s, u"Names"_s, u"Docket"_s}));
}

void tst_SummaryReply::stateRows()
{
    const GridTable expected{{{u"Item"_s, 30}, {u"Description"_s, 70}},
                             {{u"Court: "_s, u"Ada County"_s},
                              {u"Case Number: "_s, u"CR-1998-0002546"_s},
                              {u"Title: "_s, u"STATE & PEOPLE VS SMITH"_s},
                              {u"Status: "_s, u"Closed"_s},
                              {u"Filed: "_s, u"05/08/1998"_s},
                              {u"Judge: "_s, QString()}},
                             true};
    for (const QString &state : {u"OR"_s, u"ID"_s})
        QCOMPARE(*ReadSummary(contextOf(state), stateReply).Grid, expected);
}

void tst_SummaryReply::theCaptionOfAStateHasNoDoubleBlank()
{
    QStringList lines = stateReply;
    lines[1] = u"Court~ Ada County~"_s;
    QCOMPARE(*ReadSummary(contextOf(u"ID"_s), lines).Caption, u"Case Details (1) -- Ada County"_s);
    // Ahead of the court, that is, and nowhere else.
    lines[1] = u"Court~Ada  County~"_s;
    QCOMPARE(*ReadSummary(contextOf(u"ID"_s), lines).Caption, u"Case Details (1) -- Ada  County"_s);
    // A reply too short for a court leaves that of the window.
    QCOMPARE(*ReadSummary(contextOf(u"ID"_s), {u"nothing"_s}).Caption,
             u"Case Details (1) -- King County"_s);
}

void tst_SummaryReply::fewerThanFourLines_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("court");
    const QStringList none{u"nothing"_s};
    QTest::newRow("Washington") << u"WA"_s << none << QString();
    QTest::newRow("Washington, three lines")
        << u"WA"_s << washingtonReply({}).first(3) << u"King County Superior Court"_s;
    QTest::newRow("Oregon") << u"OR"_s << none << QString();
    QTest::newRow("Idaho, three lines") << u"ID"_s << stateReply.first(3) << u"Ada County"_s;
    QTest::newRow("bankruptcy") << u"IDBK"_s << none << QString();
    QTest::newRow("bankruptcy, three lines")
        << u"IDBK"_s << QStringList{u"TABDEF~"_s, u"a~b~"_s, u"c~d~"_s} << QString();
}

void tst_SummaryReply::fewerThanFourLines()
{
    QFETCH(QString, state);
    QFETCH(QStringList, lines);
    const SummaryView view = ReadSummary(contextOf(state), lines);
    QCOMPARE(*view.Grid, cell(located));
    QTEST(view.CourtName.value_or(QString()), "court");
    QVERIFY(!view.NotLocated);
}

void tst_SummaryReply::aHeaderLineWithoutItsFieldReadsAsEmpty_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("line");
    for (const int line : {0, 1, 2, 3})
        QTest::addRow("Washington %d", line) << u"WA"_s << line;
    for (const int line : {1, 2, 3, 6}) {
        QTest::addRow("Oregon %d", line) << u"OR"_s << line;
        QTest::addRow("Idaho %d", line) << u"ID"_s << line;
    }
}

void tst_SummaryReply::aHeaderLineWithoutItsFieldReadsAsEmpty()
{
    QFETCH(QString, state);
    QFETCH(int, line);
    QStringList lines = state == u"WA" ? washingtonReply({u"Status~Open~"_s}) : stateReply;
    QStringList empty = lines;
    lines[line] = u"no mark"_s;
    empty[line] = u"no mark~~"_s;
    const SummaryView view = ReadSummary(contextOf(state), lines);
    const SummaryView asEmpty = ReadSummary(contextOf(state), empty);
    QVERIFY(view.Grid->HasHeader && *view.Grid == *asEmpty.Grid);
    QCOMPARE(view.CaseTitle, asEmpty.CaseTitle);
    QCOMPARE(view.CourtName, asEmpty.CourtName);
    QCOMPARE(view.DateFiled, asEmpty.DateFiled);
    QCOMPARE(view.TopFrameCaseType, asEmpty.TopFrameCaseType);
    QCOMPARE(view.Caption, asEmpty.Caption);
}

void tst_SummaryReply::aRowWithOneFieldHasAnEmptyCell()
{
    const SummaryView view = ReadSummary(contextOf(u"WA"_s), washingtonReply({u"Sealed"_s}));
    QCOMPARE(view.Grid->Rows, QList<QStringList>({{u"Sealed"_s, QString()}}));
}

void tst_SummaryReply::bankruptcyCase()
{
    const QString tabs =
        u"TabDef¦RETRIEVECOMMAND=BKRPT~SUMMARY~1~OR~¦retrievecommand= BKRPT~NAMES~1~OR~¦"
        "Other¦RETRIEVECOMMAND=BKRPT~DOCKET~1~OR~¦"_s;
    const SummaryView view =
        ReadSummary(contextOf(u"ORBK"_s), {u"Case Title~SMITH & DOE~"_s, tabs, u"Chapter~7~"_s,
                                           QString(), u"Date Filed~03/16/1999~"_s, u"Judge"_s});
    QCOMPARE(view.TabRequests, QStringList({u"BKRPT~SUMMARY~1~OR~"_s, u"BKRPT~NAMES~1~OR~"_s,
                                            u"BKRPT~DOCKET~1~OR~"_s}));
    QCOMPARE(*view.Tabs, QStringList({u"Summary"_s, u"Names"_s, u"Docket"_s}));
    QCOMPARE(*view.CaseTitle, u"SMITH & DOE (Chapter 7)"_s);
    QCOMPARE(*view.DateFiled, u"03/16/1999"_s);
    const GridTable expected{{{u"Item"_s, 30}, {u"Description"_s, 70}},
                             {{u"Case Title: "_s, u"SMITH & DOE"_s},
                              {u"Chapter: "_s, u"7"_s},
                              {u"Date Filed: "_s, u"03/16/1999"_s},
                              {u"Judge: "_s, QString()}},
                             true};
    QCOMPARE(*view.Grid, expected);
    QVERIFY(!view.Multiple);
    QVERIFY(!view.CourtName);
}

void tst_SummaryReply::bankruptcyTabs_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("tabs");
    QTest::addColumn<int>("requests");
    QTest::newRow("a summary of claims is no tab")
        << u"TABDEF¦RETRIEVECOMMAND=BKRPT~CLAIMS SUMMARY~1~¦RETRIEVECOMMAND=BKRPT~DOCKET~1~¦"_s
        << QStringList{u"Summary"_s, u"Docket"_s} << 2;
    QTest::newRow("unless of something else, too")
        << u"TABDEF¦RETRIEVECOMMAND=BKRPT~DOCKET AND CLAIMS SUMMARY~1~¦"_s
        << QStringList{u"Summary"_s, u"Docket"_s} << 1;
    QTest::newRow("Summary is first") << u"TABDEF¦RETRIEVECOMMAND=BKRPT~DOCKET~1~¦"
                                         "RETRIEVECOMMAND=BKRPT~SUMMARY~1~¦"_s
                                      << QStringList{u"Summary"_s, u"Docket"_s} << 2;
    QTest::newRow("a tab stands once") << u"TABDEF¦RETRIEVECOMMAND=BKRPT~NAMES~1~¦"
                                          "RETRIEVECOMMAND=BKRPT~NAMES~2~¦"_s
                                       << QStringList{u"Summary"_s, u"Names"_s} << 2;
    QTest::newRow("no commands") << u"TABDEF¦Names¦Docket¦"_s << summaryAlone << 0;
    QTest::newRow("another delimiter") << u"TABDEF#RETRIEVECOMMAND=BKRPT~NAMES~1~#"_s
                                       << QStringList{u"Summary"_s, u"Names"_s} << 1;
}

void tst_SummaryReply::bankruptcyTabs()
{
    QFETCH(QString, line);
    const SummaryView view =
        ReadSummary(contextOf(u"WAEBK"_s), {line, u"a~b~"_s, u"c~d~"_s, u"e~f~"_s});
    QTEST(*view.Tabs, "tabs");
    QTEST(static_cast<int>(view.TabRequests.size()), "requests");
    QCOMPARE(view.Grid->Rows.size(), 3);
}

void tst_SummaryReply::aBankruptcyReplyWithoutTabsKeepsTheStrip()
{
    const SummaryView view =
        ReadSummary(contextOf(u"WAEBK"_s), {u"a~b~"_s, u"c~d~"_s, u"e~f~"_s, u"g~h~"_s});
    QVERIFY(!view.Tabs);
    QVERIFY(view.TabRequests.isEmpty());
    QVERIFY(!view.CaseTitle);
    QCOMPARE(view.Grid->Rows.size(), 4);
}

void tst_SummaryReply::theChapterGoesBehindTheTitleWhereverItStands()
{
    QStringList lines{u"Chapter~13~"_s, u"a~b~"_s, u"c~d~"_s, u"CASE TITLE~SMITH~"_s};
    QCOMPARE(*ReadSummary(contextOf(u"IDBK"_s), lines).CaseTitle, u"SMITH (Chapter 13)"_s);
    // Without a title it is the one on the screen that gets it.
    lines.removeLast();
    lines += u"e~f~"_s;
    SummaryContext context = contextOf(u"IDBK"_s);
    context.CaseTitle = u"DOE"_s;
    QCOMPARE(*ReadSummary(context, lines).CaseTitle, u"DOE (Chapter 13)"_s);
}

void tst_SummaryReply::bankruptcyItemsInAnyLetters()
{
    const SummaryView view =
        ReadSummary(contextOf(u"IDBK"_s), {u"The cAsE tItLe is~SMITH~"_s, u"Under cHaPtEr~13~"_s,
                                           u"DATE FILED on~03/16/1999~"_s, u"Judge~NONE~"_s});
    QCOMPARE(*view.CaseTitle, u"SMITH (Chapter 13)"_s);
    QCOMPARE(*view.DateFiled, u"03/16/1999"_s);
}

void tst_SummaryReply::bankruptcyList()
{
    const SummaryView view = ReadSummary(
        contextOf(u"IDBK"_s),
        {u"MULTIPLE"_s, u" 99-1 ¦RETRIEVECOMMAND=BKRPT~SUMMARY~99-1~ID~¦ bk ¦ SMITH ¦"_s,
         u"a line of another kind~"_s, u"99-2¦RETRIEVECOMMAND=BKRPT~SUMMARY~99-2~ID~¦"_s});
    const GridTable expected{{{u"Case#"_s, 15}, {u"Type"_s, 10}, {u"Title"_s, 74}},
                             {{u"99-1"_s, u"bk"_s, u"SMITH"_s}, {u"99-2"_s, QString(), QString()}},
                             true};
    QCOMPARE(*view.Grid, expected);
    QCOMPARE(view.List1, QStringList({u"RETRIEVECOMMAND=BKRPT~SUMMARY~99-1~ID~^1^"_s,
                                      u"RETRIEVECOMMAND=BKRPT~SUMMARY~99-2~ID~^2^"_s}));
    QVERIFY(view.Multiple);
    QCOMPARE(*view.MultipleLabel, u"Multiple Cases Found for Number Entered. Double-Click on a "
                                  "Case# to Retrieve Details."_s);
    QCOMPARE(*view.CaseTitle, u"Multiple Matching Cases Found for the Number Entered"_s);
    QCOMPARE(*view.DateFiled, u"N/A"_s);
    QCOMPARE(*view.TopFrameCaseType, u"N/A"_s);
    QVERIFY(!view.Tabs);
}

void tst_SummaryReply::theListIsForBankruptcyCourtsOnly()
{
    const SummaryView view = ReadSummary(contextOf(u"WA"_s), {u"MULTIPLE"_s});
    QVERIFY(!view.Multiple && *view.Grid == cell(located));
}

HALVANE_TEST(tst_SummaryReply)
#include "tst_SummaryReply.moc"
