#include "casedetails/CaseTabs.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
/// Captions as they are read easily: in one line.
QString shortly(const QStringList &captions)
{
    return captions.join(u' ');
}
} // namespace

class tst_CaseTabs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void eachTab_data();
    void eachTab();
    void textsOfEachTab_data();
    void textsOfEachTab();
    void captionsInAnyForm_data();
    void captionsInAnyForm();
    void eachTypeDigit_data();
    void eachTypeDigit();
    void formsOfTheNumber_data();
    void formsOfTheNumber();
    void marksOfAWashingtonNumber_data();
    void marksOfAWashingtonNumber();
    void anArchivedNumberHasNoDocket();
    void aNumberOfType5HasSummaryNamesAndDocket();
    void aTypeThatIsALetterHasSummaryAlone();
    void tabsOfTheOtherCourts();
    void tabsThatTheSummaryNames_data();
    void tabsThatTheSummaryNames();
    void requestOrderOfEachState_data();
    void requestOrderOfEachState();
};

void tst_CaseTabs::eachTab_data()
{
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("check");
    QTest::addColumn<QString>("procedure");
    QTest::addColumn<QString>("review");
    const auto row = [](CaseTab tab, const QString &caption, int frame, int check,
                        const QString &procedure, const QString &review) {
        QTest::newRow(qPrintable(caption))
            << tab << caption << frame << check << procedure << review;
    };
    row(CaseTab::Summary, u"Summary"_s, 0, 0, u"DoSummarySearch"_s,
        u"Summary Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Names, u"Names"_s, 1, 1, u"DoNameSearch"_s,
        u"Names Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Docket, u"Docket"_s, 2, 2, u"DoDocketSearch"_s,
        u"Docket Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Accounting, u"Accounting"_s, 3, 6, u"DoAcctgSearch"_s,
        u"Accounting Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Judgments, u"Judgments"_s, 4, 3, u"DoJudgmentsSearch"_s,
        u"Judgments Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Charges, u"Charges"_s, 5, 4, u"DoChargesSearch"_s,
        u"Charges Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Sentence, u"Sentence"_s, 6, 5, u"DoSentenceSearch"_s,
        u"Sentence Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Schedule, u"Schedule"_s, 7, 7, u"DoScheduleSearch"_s,
        u"Schedule Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Documents, u"Documents"_s, 9, 8, u"DoDocumentSearch"_s,
        u"Document Information Not Retrieved. Click Tab to Retry."_s);
    row(CaseTab::Finance, u"Finance"_s, 10, 9, u"DoFinanceSearch"_s,
        u"Finance Information Not Retrieved. Click Tab to Retry."_s);
    row(CaseTab::Violations, u"Violations"_s, 5, 4, u"DoViolationsSearch"_s,
        u"Violations Information Incomplete! Click Tab to Review."_s);
}

void tst_CaseTabs::eachTab()
{
    QFETCH(CaseTab, tab);
    const CaseTabRow &row = CaseTabRowOf(tab);
    QCOMPARE(row.tab, tab);
    QTEST(row.caption.toString(), "caption");
    QTEST(row.frame, "frame");
    QTEST(row.check, "check");
    QTEST(row.procedure.toString(), "procedure");
    QTEST(row.review.toString(), "review");
}

void tst_CaseTabs::textsOfEachTab_data()
{
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("Summary")
        << CaseTab::Summary
        << QStringList{u"Retrieving Summary .."_s,
                       u"Summary Complete .."_s,
                       u"Search Warnings - See Summary"_s,
                       u"Summary Information Incomplete! Please Retry Search."_s,
                       u"All Responses For SUMMARY were Received: "_s,
                       u"Summary Search Incomplete. Request: "_s,
                       u"Summary Search Result Was: "_s,
                       u"Exiting DoSummarySearch() via PROCERR in Case Details. Error: "_s,
                       u"NORMAL EXIT - from DoSummarySearch()."_s};
    QTest::newRow("Documents")
        << CaseTab::Documents
        << QStringList{
               u"Retrieving Documents Available List .."_s,
               u"Documents Complete .."_s,
               u"Document Incomplete .."_s,
               u"Document Info Incomplete! Click Tab to Retry."_s,
               u"All Responses For Document were Received: "_s,
               u"Document Search Incomplete. Request: "_s,
               u"Document Search Result Was: "_s,
               u"Exiting frmCaseDetails:DoDocumentSearch() via PROCERR in Case Details. Error: "_s,
               u"NORMAL EXIT - from DoDocumentSearch()."_s};
    struct Regular
    {
        CaseTab tab;
        QString word;
        QString procedure;
    };
    const QList<Regular> regular{
        {CaseTab::Names, u"Names"_s, u"DoNameSearch()"_s},
        {CaseTab::Docket, u"Docket"_s, u"DoDocketSearch()"_s},
        {CaseTab::Accounting, u"Accounting"_s, u"DoAcctgSearch()"_s},
        {CaseTab::Finance, u"Finance"_s, u"DoFinanceSearch()"_s},
        {CaseTab::Judgments, u"Judgments"_s, u"DoJudgmentsSearch()"_s},
        {CaseTab::Charges, u"Charges"_s, u"DoChargesSearch()"_s},
        {CaseTab::Sentence, u"Sentence"_s, u"DoSentenceSearch()"_s},
        {CaseTab::Schedule, u"Schedule"_s, u"DoScheduleSearch()"_s},
        {CaseTab::Violations, u"Violations"_s, u"DoViolationsSearch()"_s},
    };
    for (const Regular &row : regular) {
        QTest::newRow(qPrintable(row.word))
            << row.tab
            << QStringList{u"Retrieving %1 .."_s.arg(row.word),
                           u"%1 Complete .."_s.arg(row.word),
                           u"%1 Incomplete .."_s.arg(row.word),
                           u"%1 Information Incomplete! Click Tab to Retry."_s.arg(row.word),
                           u"All Responses For %1 were Received: "_s.arg(row.word),
                           u"%1 Search Incomplete. Request: "_s.arg(row.word),
                           u"%1 Search Result Was: "_s.arg(row.word),
                           u"Exiting %1 via PROCERR in Case Details. Error: "_s.arg(row.procedure),
                           u"NORMAL EXIT - from %1."_s.arg(row.procedure)};
    }
}

void tst_CaseTabs::textsOfEachTab()
{
    QFETCH(CaseTab, tab);
    const TabTexts texts = TextsOf(tab);
    const QStringList all{texts.Retrieving,   texts.Complete,    texts.Incomplete,
                          texts.Warning,      texts.AllReceived, texts.SearchIncomplete,
                          texts.SearchResult, texts.ProcError,   texts.NormalExit};
    QTEST(all, "texts");
}

void tst_CaseTabs::captionsInAnyForm_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<std::optional<CaseTab>>("tab");
    QTest::newRow("as it stands") << u"Docket"_s << std::optional(CaseTab::Docket);
    QTest::newRow("capitals") << u"ACCOUNTING"_s << std::optional(CaseTab::Accounting);
    QTest::newRow("access key") << u"&Names"_s << std::optional(CaseTab::Names);
    QTest::newRow("both") << u"&VIOLATIONS"_s << std::optional(CaseTab::Violations);
    QTest::newRow("unknown") << u"Claims"_s << std::optional<CaseTab>();
    QTest::newRow("the beginning of one") << u"Doc"_s << std::optional<CaseTab>();
    QTest::newRow("empty") << QString() << std::optional<CaseTab>();
    QTest::newRow("an access key alone") << u"&"_s << std::optional<CaseTab>();
}

void tst_CaseTabs::captionsInAnyForm()
{
    QFETCH(QString, caption);
    QTEST(CaseTabOf(caption), "tab");
}

void tst_CaseTabs::eachTypeDigit_data()
{
    QTest::addColumn<QChar>("digit");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("archived");
    const QString criminal =
        u"Summary Names Docket Judgments Charges Sentence Accounting Schedule Documents"_s;
    const QString oldCriminal = u"Summary Names Judgments Charges Sentence Schedule Documents"_s;
    const QString civil = u"Summary Names Docket Judgments Accounting Schedule Documents"_s;
    const QString oldCivil = u"Summary Names Judgments Accounting Documents"_s;
    const QString judgment = u"Summary Names Docket Documents"_s;
    const QString other = u"Summary Names Docket"_s;
    const QString oldOther = u"Summary Names"_s;
    QTest::newRow("0") << QChar(u'0') << other << oldOther;
    QTest::newRow("1") << QChar(u'1') << criminal << oldCriminal;
    QTest::newRow("2") << QChar(u'2') << civil << oldCivil;
    QTest::newRow("3") << QChar(u'3') << civil << oldCivil;
    QTest::newRow("4") << QChar(u'4') << civil << oldCivil;
    QTest::newRow("5") << QChar(u'5') << other << oldOther;
    QTest::newRow("6") << QChar(u'6') << other << oldOther;
    QTest::newRow("7") << QChar(u'7') << other << oldOther;
    QTest::newRow("8") << QChar(u'8') << criminal << oldCriminal;
    QTest::newRow("9") << QChar(u'9') << judgment << judgment;
    QTest::newRow("letter") << QChar(u'A') << u"Summary"_s << u"Summary"_s;
    QTest::newRow("sign") << QChar(u'-') << u"Summary"_s << u"Summary"_s;
    QTest::newRow("a digit of another script") << QChar(u'\u0661') << u"Summary"_s << u"Summary"_s;
}

void tst_CaseTabs::eachTypeDigit()
{
    QFETCH(QChar, digit);
    // By itself the first character decides; in nine digits the third does.
    const QString alone = QString(digit) + u"X"_s;
    QTEST(shortly(GetTabsForCaseType(alone, false)), "current");
    QTEST(shortly(GetTabsForCaseType(alone, true)), "archived");
    if (digit < u'0' || digit > u'9')
        return;
    const QString whole = u"02-"_s + digit + u"-00123-4"_s;
    QTEST(shortly(GetTabsForCaseType(whole, false)), "current");
    QTEST(shortly(GetTabsForCaseType(whole, true)), "archived");
}

void tst_CaseTabs::formsOfTheNumber_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("tabs");
    const QString judgment = u"Summary Names Docket Documents"_s;
    const QString other = u"Summary Names Docket"_s;
    QTest::newRow("hyphens") << u"52-9-00123-4"_s << judgment;
    QTest::newRow("no hyphens") << u"529001234"_s << judgment;
    QTest::newRow("some hyphens") << u"52-9001234"_s << judgment;
    QTest::newRow("blanks around it") << u" 52-9-00123-4 "_s << judgment;
    QTest::newRow("eight digits") << u"52-9-00123"_s << other;
    QTest::newRow("ten digits") << u"52-9-00123-45"_s << other;
    QTest::newRow("a letter among nine") << u"52-9-0012A-4"_s << other;
    QTest::newRow("letters first") << u"CR-1998-1"_s << u"Summary"_s;
    QTest::newRow("a hyphen first") << u"-52900123"_s << u"Summary"_s;
    QTest::newRow("empty") << QString() << u"Summary"_s;
}

void tst_CaseTabs::formsOfTheNumber()
{
    QFETCH(QString, number);
    QTEST(shortly(GetTabsForCaseType(number, false)), "tabs");
}

void tst_CaseTabs::marksOfAWashingtonNumber_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("tabs");
    const QString current = u"Summary Names Docket Judgments Accounting Schedule Documents"_s;
    const QString archived = u"Summary Names Judgments Accounting Documents"_s;
    QTest::newRow("no mark") << u"92-2-00123-4"_s << current;
    QTest::newRow("archived") << u"*92-2-00123-4"_s << archived;
    QTest::newRow("opened and archived") << u">>*92-2-00123-4"_s << archived;
    QTest::newRow("opened, a blank") << u">> 92-2-00123-4"_s << archived;
    QTest::newRow("opened, and no digit is lost") << u">>92-2-00123-4"_s << archived;
}

void tst_CaseTabs::marksOfAWashingtonNumber()
{
    QFETCH(QString, number);
    QTEST(shortly(WashingtonTabs(number)), "tabs");
}

void tst_CaseTabs::anArchivedNumberHasNoDocket()
{
    const QStringList tabs = WashingtonTabs(u"*02-1-00123-4"_s);
    QCOMPARE(shortly(tabs), u"Summary Names Judgments Charges Sentence Schedule Documents"_s);
}

void tst_CaseTabs::aNumberOfType5HasSummaryNamesAndDocket()
{
    QCOMPARE(shortly(WashingtonTabs(u"02-5-00123-4"_s)), u"Summary Names Docket"_s);
}

void tst_CaseTabs::aTypeThatIsALetterHasSummaryAlone()
{
    QCOMPARE(shortly(WashingtonTabs(u"A2-1-00123-4"_s)), u"Summary"_s);
}

void tst_CaseTabs::tabsOfTheOtherCourts()
{
    QCOMPARE(shortly(OregonTabs()),
             u"Summary Names Docket Judgments Accounting Finance Charges Sentence"_s);
    QCOMPARE(shortly(IdahoTabs()), u"Summary Names Docket Judgments Charges"_s);
    QCOMPARE(shortly(DiscisTabs(CaseKind::Civil)), u"Summary Names Docket Judgments"_s);
    QCOMPARE(shortly(DiscisTabs(CaseKind::NonCivil)), u"Summary Names Docket Violations"_s);
}

void tst_CaseTabs::tabsThatTheSummaryNames_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("tabs");
    QTest::newRow("all, in another order")
        << u"TABS~SENTENCE~FINANCE~ACCOUNTING~CHARGES~JUDGMENTS~DOCKET~NAMES~SUMMARY~"_s
        << u"Summary Names Docket Judgments Charges Accounting Finance Sentence"_s;
    QTest::newRow("some, in small letters") << u"docket,names"_s << u"Summary Names Docket"_s;
    QTest::newRow("in a longer word") << u"SENTENCES"_s << u"Summary Sentence"_s;
    QTest::newRow("schedule and documents are not asked about")
        << u"SCHEDULE~DOCUMENTS~VIOLATIONS~"_s << u"Summary"_s;
    QTest::newRow("none") << QString() << u"Summary"_s;
}

void tst_CaseTabs::tabsThatTheSummaryNames()
{
    QFETCH(QString, line);
    QTEST(shortly(TabsOfSummary(line)), "tabs");
}

void tst_CaseTabs::requestOrderOfEachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("order");
    const QString common =
        u"Names Docket Accounting Finance Judgments Charges Sentence Schedule Documents"_s;
    QTest::newRow("Washington") << u"WA"_s << common;
    QTest::newRow("Oregon") << u"OR"_s << common;
    QTest::newRow("Idaho") << u"ID"_s << u"Names Docket Judgments Charges"_s;
    QTest::newRow("bankruptcy") << u"WAWBK"_s << QString();
}

void tst_CaseTabs::requestOrderOfEachState()
{
    QFETCH(QString, state);
    QStringList order;
    for (const CaseTab tab : RequestOrder(state))
        order += CaseTabRowOf(tab).caption.toString();
    QTEST(shortly(order), "order");
}

HALVANE_TEST(tst_CaseTabs)
#include "tst_CaseTabs.moc"
