// The tabs of a case on the screen: which frame is shown, what an incomplete one asks and says, and
// what the window says of its tabs.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmOnDemand.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "link/Comm.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

namespace {
constexpr std::array<CaseTab, 10> tabsOfTheWindow{
    CaseTab::Summary, CaseTab::Names,    CaseTab::Docket,   CaseTab::Accounting, CaseTab::Judgments,
    CaseTab::Charges, CaseTab::Sentence, CaseTab::Schedule, CaseTab::Documents,  CaseTab::Finance};

QString captionOf(CaseTab tab)
{
    return CaseTabRowOf(tab).caption.toString();
}

/// A court has no tab for every caption: Oregon has no Schedule, Washington no Finance.
QString stateWith(CaseTab tab)
{
    return tab == CaseTab::Finance ? u"OR"_s : u"WA"_s;
}
} // namespace

Q_DECLARE_METATYPE(CaseTab)

class tst_CaseTabStrip : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void everyTabHasItsFrame_data();
    void everyTabHasItsFrame();
    void whatIsOutOfSightTakesNoPart();
    void captionsInAnyForm_data();
    void captionsInAnyForm();
    void anUnknownCaptionDoesNothing_data();
    void anUnknownCaptionDoesNothing();
    void whatIsOffShowsThePanel();
    void anIncompleteTabSaysSo_data();
    void anIncompleteTabSaysSo();
    void theAnswerDecidesWhatIsShown_data();
    void theAnswerDecidesWhatIsShown();
    void nothingIsAskedWithoutThePrompt();
    void oneQuestionAtATime();
    void aClickActivatesOnce();
    void byTheProgramNoClickComes();
    void aTabThatGoesTakesItsFrameAlong();
    void theWordOfATabIsFoundInAnyLetters();
    void aCaptionIsFoundLetterByLetter();

private:
    /// A window whose tabs are there and have all been fetched, without a run.
    frmCaseDetails *withTabs(const QString &state = u"WA"_s);
    /// A window whose run got no answer for this tab.
    frmCaseDetails *withIncomplete(CaseTab tab);
    static QString selected(const CaseWindow *window);
    void expectOnDemand(const char *button);
};

frmCaseDetails *tst_CaseTabStrip::withTabs(const QString &state)
{
    for (const QString &section : {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s}) {
        QStringList all;
        for (const CaseTab tab : tabsOfTheWindow)
            all.append(captionOf(tab));
        FetchAtOnce(section, all);
    }
    Global.bSearchInProgress = true;
    frmCaseDetails *window = state == u"WA" ? Superior() : OfState(state, u"02C12345"_s);
    Begin(window);
    [&] { QTRY_COMPARE(window->tmrBlink->interval(), 900); }();
    window->Timer1->stop();
    Global.bSearchInProgress = false;
    return window;
}

frmCaseDetails *tst_CaseTabStrip::withIncomplete(CaseTab tab)
{
    const bool oregon = stateWith(tab) == u"OR";
    FetchAtOnce(oregon ? u"OrCaseSearchTabs"_s : u"CaseSearchTabs"_s, {captionOf(tab)});
    const QStringList oregonSummary{u"TABS~FINANCE~"_s,    u"Court~BAKER~"_s, u"Case#~02C12345~"_s,
                                    u"Title~A VS B~"_s,    u"Judge~NONE~"_s,  u"Status~OPEN~"_s,
                                    u"Filed~03/04/2002~"_s};
    const QStringList summary =
        (oregon ? oregonSummary : SuperiorSummary()) + QStringList{u"EOF~"_s};
    const QString summaryLine =
        oregon ? u"OREGON@SUMMARY,NAMES,DOCKET,@02C12345@BAK C@"_s : SuperiorLine(u"SUMMARY"_s);
    QString line = summaryLine;
    if (tab == CaseTab::Documents)
        line = u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s;
    else if (oregon)
        line = u"OREGON@FINANCE,@02C12345@BAK C@"_s;
    else if (tab != CaseTab::Summary)
        line = SuperiorLine(captionOf(tab).toUpper());
    if (tab != CaseTab::Summary)
        court->Expect(summaryLine).Reply(summary);
    court->Expect(line).Reply({});
    // Only this reply is waited for in vain: no clock hurries the others.
    desk->When([this, line] { return desk->Folder.Logged(u"SendReq: "_s + line); },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
    frmCaseDetails *window = oregon ? OfState(u"OR"_s, u"02C12345"_s) : Superior();
    Run(window);
    return window;
}

QString tst_CaseTabStrip::selected(const CaseWindow *window)
{
    return window->findChild<TabStrip *>(u"TabStrip1"_s)->SelectedCaption();
}

void tst_CaseTabStrip::expectOnDemand(const char *button)
{
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [button](QDialog *dialog) {
        dialog->findChild<QPushButton *>(QLatin1StringView(button))->click();
    });
}

void tst_CaseTabStrip::everyTabHasItsFrame_data()
{
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QString>("frame");
    const std::array<int, 10> frames{0, 1, 2, 3, 4, 5, 6, 7, 9, 10};
    for (size_t i = 0; i < tabsOfTheWindow.size(); ++i)
        QTest::newRow(qPrintable(captionOf(tabsOfTheWindow.at(i))))
            << tabsOfTheWindow.at(i) << u"frameTabs_%1"_s.arg(frames.at(i));
}

void tst_CaseTabStrip::everyTabHasItsFrame()
{
    QFETCH(CaseTab, tab);
    frmCaseDetails *window = withTabs(stateWith(tab));
    ClickTab(window, captionOf(tab));
    // The first is selected already, and a click on it changes nothing.
    QTEST(ShownFrame(window), "frame");
    QCOMPARE(selected(window), captionOf(tab));
    window->ActivateTab(u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    window->ActivateTab(captionOf(tab));
    QTEST(ShownFrame(window), "frame");
    QCOMPARE(selected(window), captionOf(tab));
    QVERIFY(window->Tab(tab).Grid->isVisible());
}

void tst_CaseTabStrip::whatIsOutOfSightTakesNoPart()
{
    frmCaseDetails *window = withTabs();
    const auto *frames = window->findChild<QStackedWidget *>(u"frameTabs"_s);
    QCOMPARE(frames->count(), 11);
    for (const QString &caption : CaptionsOf(window)) {
        window->ActivateTab(caption);
        for (int i = 0; i < frames->count(); ++i) {
            const bool shown = frames->widget(i) == frames->currentWidget();
            QCOMPARE(frames->widget(i)->isEnabled(), shown);
            QCOMPARE(frames->widget(i)->isVisible(), shown);
        }
    }
}

void tst_CaseTabStrip::captionsInAnyForm_data()
{
    QTest::addColumn<QString>("caption");
    for (const QString &caption :
         {u"Docket"_s, u"DOCKET"_s, u"docket"_s, u"&Docket"_s, u"&DOCKET"_s})
        QTest::newRow(qPrintable(caption)) << caption;
}

void tst_CaseTabStrip::captionsInAnyForm()
{
    QFETCH(QString, caption);
    frmCaseDetails *window = withTabs();
    window->ActivateTab(caption);
    QCOMPARE(ShownFrame(window), u"frameTabs_2"_s);
    QCOMPARE(selected(window), u"Docket"_s);
}

void tst_CaseTabStrip::anUnknownCaptionDoesNothing_data()
{
    QTest::addColumn<QString>("caption");
    for (const QString &caption : {u"Dockets"_s, u""_s, u"&"_s, u"&&Docket"_s, u"Violations"_s})
        QTest::addRow("'%s'", qPrintable(caption)) << caption;
}

void tst_CaseTabStrip::anUnknownCaptionDoesNothing()
{
    QFETCH(QString, caption);
    frmCaseDetails *window = withTabs();
    window->ActivateTab(u"Names"_s);
    window->ActivateTab(caption);
    QCOMPARE(ShownFrame(window), u"frameTabs_1"_s);
    QVERIFY(window->findChild<QWidget *>(u"frameTabs_1"_s)->isEnabled());
    QCOMPARE(selected(window), u"Names"_s);
}

void tst_CaseTabStrip::whatIsOffShowsThePanel()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"01/02/2003~A~"_s}));
    frmCaseDetails *window = Superior();
    Run(window);
    for (const QString &caption : CaptionsOf(window)) {
        const bool fetched = caption == u"Summary" || caption == u"Names";
        ClickTab(window, caption);
        QCOMPARE(ShownFrame(window) == u"frameTabs_8", !fetched);
        QCOMPARE(window->findChild<QWidget *>(u"frameTabs_8"_s)->isEnabled(), !fetched);
        QCOMPARE(selected(window), caption);
    }
}

void tst_CaseTabStrip::anIncompleteTabSaysSo_data()
{
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QString>("review");
    const auto row = [](CaseTab tab, const QString &review) {
        QTest::newRow(qPrintable(captionOf(tab))) << tab << review;
    };
    row(CaseTab::Finance, u"Finance Information Not Retrieved. Click Tab to Retry."_s);
    row(CaseTab::Documents, u"Document Information Not Retrieved. Click Tab to Retry."_s);
    row(CaseTab::Schedule, u"Schedule Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Sentence, u"Sentence Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Charges, u"Charges Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Judgments, u"Judgments Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Accounting, u"Accounting Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Docket, u"Docket Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Names, u"Names Information Incomplete! Click Tab to Review."_s);
    row(CaseTab::Summary, u"Summary Information Incomplete! Click Tab to Review."_s);
}

void tst_CaseTabStrip::anIncompleteTabSaysSo()
{
    QFETCH(CaseTab, tab);
    QFETCH(QString, review);
    frmCaseDetails *window = withIncomplete(tab);
    QVERIFY(window->Tab(tab).TabIncomplete);
    QVERIFY(window->AnyTabIncomplete());
    QVERIFY(TextOf(window, "lblWarning") != review);
    expectOnDemand("Command2");
    window->ActivateTab(captionOf(tab));
    QCOMPARE(TextOf(window, "lblWarning"), review);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(window->findChild<QWidget *>(u"lblWarning"_s)->isVisible());
}

void tst_CaseTabStrip::theAnswerDecidesWhatIsShown_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("frame");
    QTest::newRow("yes") << QByteArray("Command1") << u"frameTabs_8"_s;
    QTest::newRow("no") << QByteArray("Command2") << u"frameTabs_2"_s;
}

void tst_CaseTabStrip::theAnswerDecidesWhatIsShown()
{
    QFETCH(QByteArray, button);
    frmCaseDetails *window = withIncomplete(CaseTab::Docket);
    expectOnDemand(button.constData());
    ClickTab(window, u"Docket"_s);
    QTEST(ShownFrame(window), "frame");
    QCOMPARE(window->Tab(CaseTab::Docket).TabNotRetrieved, button == "Command1");
    QCOMPARE(selected(window), u"Docket"_s);
}

void tst_CaseTabStrip::nothingIsAskedWithoutThePrompt()
{
    frmCaseDetails *window = withIncomplete(CaseTab::Docket);
    CaseAnswers.bOnDemandPrompt = false;
    CaseAnswers.bOnDemandRetry = false;
    ClickTab(window, u"Docket"_s);
    // As its exchange left it.
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseTabStrip::oneQuestionAtATime()
{
    frmCaseDetails *window = withIncomplete(CaseTab::Docket);
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [window](QDialog *dialog) {
        QVERIFY(frmOnDemand::IsLoaded());
        // No second one comes over it.
        window->ActivateTab(u"Docket"_s);
        QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
        dialog->findChild<QPushButton *>(u"Command2"_s)->click();
    });
    window->ActivateTab(u"Docket"_s);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QVERIFY(!frmOnDemand::IsLoaded());
    QCOMPARE(ShownFrame(window), u"frameTabs_2"_s);
}

void tst_CaseTabStrip::aClickActivatesOnce()
{
    // Were it activated a second time, a second question would come that nobody expects.
    frmCaseDetails *window = withIncomplete(CaseTab::Docket);
    const QSignalSpy clicks(window->findChild<TabStrip *>(u"TabStrip1"_s), &TabStrip::TabClicked);
    expectOnDemand("Command2");
    ClickTab(window, u"Docket"_s);
    QCOMPARE(clicks.count(), 1);
}

void tst_CaseTabStrip::byTheProgramNoClickComes()
{
    frmCaseDetails *window = withTabs();
    const QSignalSpy clicks(window->findChild<TabStrip *>(u"TabStrip1"_s), &TabStrip::TabClicked);
    for (const QString &caption : CaptionsOf(window))
        window->ActivateTab(caption);
    QCOMPARE(clicks.count(), 0);
}

void tst_CaseTabStrip::aTabThatGoesTakesItsFrameAlong()
{
    // Somebody looks at Finance already when the Summary says that the case has none.
    FetchAtOnce(u"OrCaseSearchTabs"_s, {});
    court->Expect(u"OREGON@SUMMARY,NAMES,DOCKET,@02C12345@BAK C@"_s).Reply({});
    frmCaseDetails *window = OfState(u"OR"_s, u"02C12345"_s);
    QString before;
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   ClickTab(window, u"Finance"_s);
                   before = ShownFrame(window);
                   court->SendTokens({u"TABS~DOCKET~"_s, u"Court~BAKER~"_s, u"Case#~02C12345~"_s,
                                      u"Title~A VS B~"_s, u"Judge~NONE~"_s, u"Status~OPEN~"_s,
                                      u"Filed~03/04/2002~"_s, u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(before, u"frameTabs_8"_s);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Docket"_s}));
    QCOMPARE(selected(window), u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
}

void tst_CaseTabStrip::theWordOfATabIsFoundInAnyLetters()
{
    frmCaseDetails *window = withTabs();
    for (const QString &word : {u"Docket"_s, u"DOCKET"_s, u"docket"_s})
        QVERIFY(window->TabExists(word));
    for (const QString &word : {u"Finance"_s, u"Dock"_s, u"&Docket"_s, u""_s})
        QVERIFY(!window->TabExists(word));
    QVERIFY(!window->AnyTabIncomplete());
    QVERIFY(window->TabExists(CaseTab::Documents));
    QVERIFY(!window->TabExists(CaseTab::Finance));
}

void tst_CaseTabStrip::aCaptionIsFoundLetterByLetter()
{
    frmCaseDetails *window = withTabs();
    QVERIFY(window->IsTabCaption(u"Docket"_s));
    for (const QString &word : {u"DOCKET"_s, u"docket"_s, u"Dock"_s, u"Finance"_s, u""_s})
        QVERIFY(!window->IsTabCaption(word));
}

HALVANE_TEST(tst_CaseTabStrip)
#include "tst_CaseTabStrip.moc"
