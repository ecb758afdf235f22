#include "casedetails/CaseAnswers.h"
#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmOnDemand.h"
#include "controls/TabStrip.h"
#include "support/HalvaneTest.h"

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

// The panel in the place of a tab that has not been retrieved, and the question ahead of it.

namespace {
enum class Answer { Yes, No, Escape };
/// What has become of a tab in the first run.
enum class Fate { Done, Off, Failed };

/// Without what stands beside the boxes, which tst_CaseAnswers looks at.
QStringList textsOf(const QWidget *widget)
{
    QStringList texts;
    for (const QLabel *label : widget->findChildren<QLabel *>()) {
        if (!label->objectName().startsWith(u"lblTab_"))
            texts.append(label->text());
    }
    return texts;
}

void give(QDialog *dialog, Answer answer)
{
    if (answer == Answer::Escape)
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        QTest::mouseClick(ButtonOf(dialog, answer == Answer::Yes ? "Command1" : "Command2"),
                          Qt::LeftButton);
}
} // namespace

Q_DECLARE_METATYPE(Answer)

class tst_OnDemandPanel : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void theFlagsAtLoad_data();
    void theFlagsAtLoad();
    void thePanelsTexts_data();
    void thePanelsTexts();
    void theTenBoxes();
    void theBoxesByWhatHasCome_data();
    void theBoxesByWhatHasCome();
    void everyCombinationOfACriminalCase();
    void selectAllAndClearAll_data();
    void selectAllAndClearAll();
    void aTabThatCameInTheFirstRunHasADisabledBox();
    void thePanelOffersAgainWhenItIsShownAgain();
    void duringTheFirstRunNothingCanBeStarted_data();
    void duringTheFirstRunNothingCanBeStarted();

    void thePromptsTexts();
    void thePrompt_data();
    void thePrompt();
    void theCheckBoxChangesNothing_data();
    void theCheckBoxChangesNothing();
    void thePromptReturnsAtEveryClickOnTheSelectedTab();
    void thePromptByTheKeyboard_data();
    void thePromptByTheKeyboard();
    void onlyAnIncompleteTabAsks();
    void noPromptWhileOneIsOpen();
    void noPromptWithoutTheFlag();
    void thePromptGoesWithItsWindow();
};

void tst_OnDemandPanel::theFlagsAtLoad_data()
{
    EachCaseWindow();
}

void tst_OnDemandPanel::theFlagsAtLoad()
{
    QFETCH(CaseWindowKind, kind);
    CaseAnswers.bOnDemandPrompt = false;
    CaseAnswers.bOnDemandRetry = false;
    const CaseWindow *window = AfterFirstRun(kind);
    QVERIFY(CaseAnswers.bOnDemandPrompt);
    QVERIFY(CaseAnswers.bOnDemandRetry);
    QVERIFY(!window->TmrSearchOnDemand->isActive());
}

void tst_OnDemandPanel::thePanelsTexts_data()
{
    EachCaseWindow();
}

void tst_OnDemandPanel::thePanelsTexts()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    const auto *panel = window->findChild<QGroupBox *>(u"frameTabs_8"_s);
    QVERIFY(panel->isVisible() && panel->isEnabled());
    QCOMPARE(panel->title(), u"Retrieve on Demand:"_s);
    QCOMPARE(
        textsOf(panel),
        (QStringList{
            u"The details for this tab have not been retrieved yet."_s,
            u"To Continue, choose the details to retrieve and select Search. "_s, u"TIP:"_s,
            u"You can also select other Case Details to include as part of this search."_s,
            u"Note:"_s,
            u"Only Case Details that have NOT been retrieved are available for this search."_s}));
}

void tst_OnDemandPanel::theTenBoxes()
{
    const CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    const QStringList captions{
        u"Summary"_s,  u"Names"_s,      u"Docket"_s,   u"Judgments"_s,           u"Charges"_s,
        u"Sentence"_s, u"Accounting"_s, u"Schedule"_s, u"Documents Available"_s, u"Finance"_s};
    for (int i = 0; i < captions.size(); ++i) {
        const auto *box = window->findChild<QCheckBox *>(u"chkTab_%1"_s.arg(i));
        QVERIFY(!box->isHidden());
        QCOMPARE(box->text(), captions[i]);
    }
}

void tst_OnDemandPanel::theBoxesByWhatHasCome_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<QList<int>>("fates");
    const auto add = [](CaseWindowKind kind, const QList<int> &fates) {
        QString name = QString::fromLatin1(caseWindowNames.at(static_cast<size_t>(kind)));
        for (const int fate : fates)
            name += QStringList{u" done"_s, u" off"_s, u" failed"_s}.at(fate);
        QTest::newRow(qPrintable(name)) << kind << fates;
    };
    // Three tabs in all combinations; the eight of a criminal case so that every two of them are
    // seen in all combinations.
    for (int row = 0; row < 27; ++row) {
        const int x = row % 3;
        const int y = row / 3 % 3;
        const int z = row / 9;
        add(CaseWindowKind::Civil, {x, y, z});
        add(CaseWindowKind::NonCivil, {x, y, z});
        // The documents' server cannot fail by a line.
        add(CaseWindowKind::Superior, {x, y, z, (x + y) % 3, (x + 2 * y) % 3, (x + z) % 3,
                                       (y + z) % 3, (x + y + z) % 3 > 0 ? 1 : 0});
    }
}

void tst_OnDemandPanel::theBoxesByWhatHasCome()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(QList<int>, fates);
    QStringList fetched;
    QStringList failing;
    CaseTab shown = CaseTab::Summary;
    for (int i = 0; i < fates.size(); ++i) {
        const CaseTab tab = TabsOf(kind).at(i);
        const Fate fate = static_cast<Fate>(fates[i]);
        if (fate == Fate::Done)
            fetched.append(CaptionOf(tab));
        else
            shown = tab;
        if (fate == Fate::Failed)
            failing.append(CaptionOf(tab));
    }
    CaseWindow *window = AfterFirstRun(kind, fetched, failing);
    if (window->Tab(shown).TabIncomplete)
        AnswerPrompt(true);
    ClickTab(window, CaptionOf(shown));
    if (shown == CaseTab::Summary) {
        QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
        return;
    }
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(!BoxOf(window, CaseTab::Summary)->isEnabled());
    QVERIFY(!BoxOf(window, CaseTab::Summary)->isChecked());
    for (int i = 0; i < fates.size(); ++i) {
        const QAbstractButton *box = BoxOf(window, TabsOf(kind).at(i));
        const bool missing = static_cast<Fate>(fates[i]) != Fate::Done;
        QCOMPARE(box->isEnabled(), missing);
        QCOMPARE(box->isChecked(), missing);
    }
    // A tab that the case does not have
    if (kind == CaseWindowKind::Superior) {
        QVERIFY(!BoxOf(window, CaseTab::Finance)->isEnabled());
        QVERIFY(!BoxOf(window, CaseTab::Finance)->isChecked());
    }
}

/// Without runs, of which there would be thousands.
void tst_OnDemandPanel::everyCombinationOfACriminalCase()
{
    struct Open : frmCaseDetails
    {
        CaseSheet &Sheet() { return caseJob->Sheet; }
    };
    const QList<CaseTab> tabs = TabsOf(CaseWindowKind::Superior);
    Open window;
    window.Sheet().SetTabs(GetTabsForCaseType(u"02-1-00123-4"_s, false));
    window.Sheet().Record.Tab(CaseTab::Summary).TabDone = true;
    // What asks about a tab that failed is tested above.
    CaseAnswers.bOnDemandPrompt = false;
    int combinations = 1;
    for (qsizetype i = 0; i < tabs.size(); ++i)
        combinations *= 3;
    // The first of all is that every tab is done: no panel then.
    for (int combination = 1; combination < combinations; ++combination) {
        CaseTab shown = CaseTab::Summary;
        int rest = combination;
        for (const CaseTab tab : tabs) {
            const auto fate = static_cast<Fate>(rest % 3);
            rest /= 3;
            CaseTabRecord &state = window.Sheet().Record.Tab(tab);
            state.TabDone = fate == Fate::Done;
            state.TabNotRetrieved = fate != Fate::Done;
            state.TabIncomplete = fate == Fate::Failed;
            if (fate != Fate::Done)
                shown = tab;
        }
        window.ActivateTab(CaptionOf(shown));
        QCOMPARE(ShownFrame(&window), u"frameTabs_8"_s);
        QString boxes;
        QString expected;
        for (const CaseTab tab : tabs) {
            const QAbstractButton *box = BoxOf(&window, tab);
            boxes += QString::number(int(box->isEnabledTo(box->parentWidget())))
                     + QString::number(int(box->isChecked())) + u' ';
            expected += window.Tab(tab).TabDone ? u"00 "_s : u"11 "_s;
        }
        QVERIFY2(boxes == expected,
                 qPrintable(QString::number(combination) + u": "_s + boxes + u"/ "_s + expected));
    }
}

void tst_OnDemandPanel::selectAllAndClearAll_data()
{
    EachCaseWindow();
}

void tst_OnDemandPanel::selectAllAndClearAll()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind, {u"Names"_s});
    ClickTab(window, u"Docket"_s);
    const auto ticked = [&] {
        QList<CaseTab> tabs;
        for (const CaseTab tab : TabsOf(kind)) {
            if (BoxOf(window, tab)->isChecked())
                tabs.append(tab);
        }
        return tabs;
    };
    ButtonOf(window, "cmdClearAll")->click();
    QCOMPARE(ticked(), QList<CaseTab>());
    BoxOf(window, CaseTab::Docket)->click();
    QCOMPARE(ticked(), QList<CaseTab>{CaseTab::Docket});
    ButtonOf(window, "cmdSelectAll")->click();
    // The names have come.
    QCOMPARE(ticked(), TabsOf(kind).sliced(1));
    QVERIFY(!BoxOf(window, CaseTab::Summary)->isChecked());
}

void tst_OnDemandPanel::aTabThatCameInTheFirstRunHasADisabledBox()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {u"Docket"_s});
    ClickTab(window, u"Names"_s);
    QVERIFY(!BoxOf(window, CaseTab::Docket)->isEnabled());
    QTest::mouseClick(BoxOf(window, CaseTab::Docket), Qt::LeftButton);
    QVERIFY(!BoxOf(window, CaseTab::Docket)->isChecked());
}

void tst_OnDemandPanel::thePanelOffersAgainWhenItIsShownAgain()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    ButtonOf(window, "cmdClearAll")->click();
    ClickTab(window, u"Judgments"_s);
    QVERIFY(BoxOf(window, CaseTab::Docket)->isChecked());
}

void tst_OnDemandPanel::duringTheFirstRunNothingCanBeStarted_data()
{
    EachCaseWindow();
}

void tst_OnDemandPanel::duringTheFirstRunNothingCanBeStarted()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = Pending(kind, {u"Names"_s});
    QVERIFY(!CommandsEnabled(window));
    const QString key = window->txtMasterKey;
    bool enabled = true;
    // In the pause ahead of the names, which lasts as long as the clock stands still.
    desk->When([window] { return window->Tab(CaseTab::Summary).TabDone; },
               [&] {
                   ClickTab(window, u"Docket"_s);
                   enabled = CommandsEnabled(window);
                   QVERIFY(BoxOf(window, CaseTab::Names)->isChecked());
                   BoxOf(window, CaseTab::Docket)->click();
                   ButtonOf(window, "cmdSearchNow")->click();
                   desk->Time.Run(0.05);
               });
    desk->ConnectTo(*court);
    Begin(window);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    QVERIFY(!enabled);
    QCOMPARE(window->txtMasterKey, key);
    // The panel is in sight still: what has come leaves it, the rest is as the user has left it.
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!BoxOf(window, CaseTab::Names)->isEnabled()
            && !BoxOf(window, CaseTab::Names)->isChecked());
    QVERIFY(BoxOf(window, CaseTab::Docket)->isEnabled());
    QVERIFY(!BoxOf(window, CaseTab::Docket)->isChecked());
}

void tst_OnDemandPanel::thePromptsTexts()
{
    frmOnDemand form;
    QCOMPARE(form.windowTitle(), u"Halvane - On Demand Search"_s);
    const QStringList texts = textsOf(&form);
    QCOMPARE(
        texts.first(4),
        (QStringList{u"This search is incomplete. Some results may not have been retrieved."_s,
                     u"Try Retrieval Again?"_s, u"Click 'YES' to allow a retry of this search."_s,
                     u"Click 'NO' to review/print any incomplete results."_s}));
    QVERIFY(texts.value(4).contains(u"wait for the current search to complete"));
    QVERIFY(texts.value(4).contains(u"\"SEARCH NOW\""));
    QCOMPARE(TextOf(&form, "Command1").remove(u'&'), u"YES"_s);
    QCOMPARE(TextOf(&form, "Command2").remove(u'&'), u"NO"_s);
    QCOMPARE(TextOf(&form, "chkDontDemandThisSession"),
             u"Don't show me this again during this session"_s);
}

void tst_OnDemandPanel::thePrompt_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<Answer>("answer");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        const auto kind = static_cast<CaseWindowKind>(i);
        QTest::addRow("%s, YES", caseWindowNames.at(i)) << kind << Answer::Yes;
        QTest::addRow("%s, NO", caseWindowNames.at(i)) << kind << Answer::No;
        QTest::addRow("%s, Esc", caseWindowNames.at(i)) << kind << Answer::Escape;
    }
}

void tst_OnDemandPanel::thePrompt()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(Answer, answer);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Docket"_s});
    CaseAnswers.bOnDemandRetry = answer != Answer::Yes;
    bool loaded = false;
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [&](QDialog *dialog) {
        loaded = frmOnDemand::IsLoaded();
        // Either answer sets it.
        CaseAnswers.bOnDemandPrompt = false;
        give(dialog, answer);
    });
    ClickTab(window, u"Docket"_s);
    const bool yes = answer == Answer::Yes;
    QVERIFY(loaded && !frmOnDemand::IsLoaded());
    QVERIFY(CaseAnswers.bOnDemandPrompt);
    QCOMPARE(CaseAnswers.bOnDemandRetry, yes);
    QCOMPARE(window->Tab(CaseTab::Docket).TabNotRetrieved, yes);
    QCOMPARE(ShownFrame(window), yes ? u"frameTabs_8"_s : u"frameTabs_2"_s);
    // With NO what there is can be looked at.
    QCOMPARE(CellsOf(window, CaseTab::Docket).at(1).at(0),
             u"Docket Information Incomplete. Please Retry Search."_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Docket Information Incomplete! Click Tab to Review."_s);
    QCOMPARE(window->findChild<TabStrip *>(u"TabStrip1"_s)->SelectedCaption(), u"Docket"_s);
}

void tst_OnDemandPanel::theCheckBoxChangesNothing_data()
{
    thePrompt_data();
}

void tst_OnDemandPanel::theCheckBoxChangesNothing()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(Answer, answer);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Docket"_s});
    for (int i = 0; i < 2; ++i) {
        desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [&](QDialog *dialog) {
            auto *box = dialog->findChild<QCheckBox *>(u"chkDontDemandThisSession"_s);
            QVERIFY(!box->isChecked());
            box->click();
            give(dialog, answer);
        });
        ClickTab(window, u"Docket"_s);
        QVERIFY(CaseAnswers.bOnDemandPrompt);
        ClickTab(window, u"Summary"_s);
    }
    QCOMPARE(desk->Boxes.Answered(), 2);
}

void tst_OnDemandPanel::thePromptReturnsAtEveryClickOnTheSelectedTab()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {}, {u"Docket"_s});
    AnswerPrompt(false);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_2"_s);
    AnswerPrompt(true);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QCOMPARE(desk->Boxes.Answered(), 2);
}

void tst_OnDemandPanel::thePromptByTheKeyboard_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Enter of the number pad") << static_cast<int>(Qt::Key_Enter);
    QTest::newRow("space bar") << static_cast<int>(Qt::Key_Space);
}

void tst_OnDemandPanel::thePromptByTheKeyboard()
{
    QFETCH(int, key);
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil, {}, {u"Names"_s});
    auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    AnswerPrompt(false);
    QTest::keyClick(strip, Qt::Key_Right);
    QCOMPARE(ShownFrame(window), u"frameTabs_1"_s);
    AnswerPrompt(true);
    QTest::keyClick(strip, static_cast<Qt::Key>(key));
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QCOMPARE(desk->Boxes.Answered(), 2);
}

void tst_OnDemandPanel::onlyAnIncompleteTabAsks()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil, {u"Names"_s});
    for (const QString &caption : {u"Names"_s, u"Docket"_s, u"Judgments"_s, u"Summary"_s})
        ClickTab(window, caption);
    QCOMPARE(desk->Boxes.Answered(), 0);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
}

void tst_OnDemandPanel::noPromptWhileOneIsOpen()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil, {}, {u"Docket"_s});
    {
        const frmOnDemand other;
        ClickTab(window, u"Docket"_s);
        // As the failure has left it.
        QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    }
    AnswerPrompt(false);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(desk->Boxes.Answered(), 1);
}

void tst_OnDemandPanel::noPromptWithoutTheFlag()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil, {}, {u"Docket"_s});
    CaseAnswers.bOnDemandPrompt = false;
    ClickTab(window, u"Docket"_s);
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_OnDemandPanel::thePromptGoesWithItsWindow()
{
    const QPointer<CaseWindow> window = AfterFirstRun(CaseWindowKind::Civil, {}, {u"Docket"_s});
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s,
                             [&](QDialog *) { window->Unload(UnloadMode::MdiParent); });
    ClickTab(window, u"Docket"_s);
    QVERIFY(!frmOnDemand::IsLoaded());
    QTRY_VERIFY(window.isNull());
}

HALVANE_TEST(tst_OnDemandPanel)
#include "tst_OnDemandPanel.moc"
