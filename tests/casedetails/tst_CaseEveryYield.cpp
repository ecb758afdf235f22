// A case is repeated with something done to it inside each of its yields in turn: whatever can be
// clicked meanwhile, and at whichever moment, its run ends in the way that is meant for it.

#include "casedetails/CaseDesk.h"
#include "casedetails/CaseYields.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/YieldDesk.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace {
constexpr YieldDesk::Walk walk{.fewestPending = 2, .fewestRunning = 15, .mostYields = 120};
/// A millisecond of the test is a pause between two tabs.
constexpr double secondsOfMillisecond = 0.2;

/// The key of a job behind the case, which nothing that happens to the case may touch.
const QString otherKey = u"00000000000000000001"_s;

const QString secondNumber = u"03-5-00456-7"_s;

enum class Kind { Superior, NonCivil, Civil };
constexpr std::array<const char *, 3> kindNames{"Superior", "District non-civil", "District civil"};

/// The tab that is asked for last.
CaseTab lastTab(Kind kind)
{
    switch (kind) {
    case Kind::NonCivil:
        return CaseTab::Violations;
    case Kind::Civil:
        return CaseTab::Judgments;
    case Kind::Superior:
        break;
    }
    return CaseTab::Docket;
}

QStringList answersTo(const QByteArray &frame)
{
    if (frame.contains("SUMMARY") || frame.contains("NCNCC") || frame.contains("CIVI\xA6"))
        return {u"Type:~5~"_s,           u"Court:~King~"_s,  u"Title:~A~"_s,
                u"Filed:~03/04/2002~"_s, u"CAUSE:~Theft~"_s, u"EOF~"_s};
    return {u"GRIDDEF~Date~Entry~20~80~"_s, u"01/02/2003~Complaint~"_s, u"EOF~"_s};
}

} // namespace

Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Kind)

class tst_CaseEveryYield : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void everyYield_data();
    void everyYield();
    void aSecondCaseOpenedAtEveryYield_data();
    void aSecondCaseOpenedAtEveryYield();
    void reportedAtEveryYield_data();
    void reportedAtEveryYield();

private:
    /// A new session in a program without windows.
    void connectAgain();
    /// A case with its key in the queue, its timers at a standstill.
    CaseWindow *makeCase(const QString &number = u"02-5-00123-4"_s);
    /// One case with this in its nth yield, or behind its end if it has no such yield.
    void runCase(int nth, const std::function<void()> &happens);
    void caseWith(int nth);
    void act();
    static bool isOver(const CaseWindow *ofCase);
    bool waitForTheEnd() const;
    Moment momentNow() const;
    /// How a run ends whose link goes now.
    CaseEnd endOfLostLink() const;
    QString endOf() const;
    void checkTexts(CaseEnd end) const;
    void checkControls(const ExpectedCase &expected) const;
    void closeAtLast(CaseEnd end);
    void openAgain();
    /// Shows and saves the report of the case.
    void report();
    void checkReport(const QByteArray &text) const;
    /// Does one case after the other, until it happens behind the end of one.
    void walkYields(const std::function<void(int)> &caseWithNth);

    Act what = Act::StopButton;
    Kind kind = Kind::Superior;
    std::unique_ptr<YieldDesk> yields;
    QPointer<CaseWindow> window;
    CaseEnd lostEnd = CaseEnd::None;
    QByteArrayList asked; ///< the frames that the court has got, but for those that stop it
};

void tst_CaseEveryYield::init()
{
    desk = std::make_unique<SearchDesk>();
    yields = std::make_unique<YieldDesk>(*desk);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    FetchAtOnce(u"NonCivilCaseTabs"_s, {u"Names"_s, u"Violations"_s});
    FetchAtOnce(u"CivilCaseTabs"_s, {u"Names"_s, u"Judgments"_s});
}

void tst_CaseEveryYield::cleanup()
{
    yields.reset();
    desk.reset();
}

void tst_CaseEveryYield::connectAgain()
{
    asked.clear();
    yields->ConnectAgain([this](const QByteArray &frame) {
        asked.append(frame);
        return answersTo(frame);
    });
}

CaseWindow *tst_CaseEveryYield::makeCase(const QString &number)
{
    CaseWindow *made = nullptr;
    if (kind == Kind::Superior) {
        made = new frmCaseDetails;
        made->lblState = u"WA"_s;
    } else {
        if (kind == Kind::Civil)
            made = new frmCivilCaseDetails;
        else
            made = new frmNCCaseDetails;
        made->txtCourtCode = u"SED"_s;
        made->txtCaseType = kind == Kind::Civil ? u"CV"_s : u"IN"_s;
    }
    made->txtCaseNumber = number;
    made->txtCountyName = u"King"_s;
    yields->Show(made);
    desk->Enqueue(made);
    return made;
}

Moment tst_CaseEveryYield::momentNow() const
{
    if (!ButtonOf(window, "cmdStopSearching")->isEnabled())
        return Moment::Over;
    return Global.bSearchInProgress ? Moment::Running : Moment::Pending;
}

CaseEnd tst_CaseEveryYield::endOfLostLink() const
{
    const QString status = TextOf(window, "lblStatus");
    const bool summary = status == TextsOf(CaseTab::Summary).Retrieving;
    const bool last = status == TextsOf(lastTab(kind)).Retrieving;
    // What is being read is incomplete, and with it the case, unless there is more to ask for.
    if (!Global.bSendBusy && (summary || last))
        return CaseEnd::Incomplete;
    return summary ? CaseEnd::Error : CaseEnd::BrokenDown;
}

void tst_CaseEveryYield::act()
{
    lostEnd = endOfLostLink();
    yields->Do(what, momentNow());
}

/// A run that is on the stack is below whoever asks: then there is a job in progress, or a timer
/// that has not come.
bool tst_CaseEveryYield::isOver(const CaseWindow *ofCase)
{
    return !Global.bSearchInProgress
           && (!ofCase || ofCase->IsUnloaded() || !ofCase->Timer1->isActive());
}

bool tst_CaseEveryYield::waitForTheEnd() const
{
    const bool ended = YieldDesk::WaitFor([this] { return isOver(window); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ended;
}

QString tst_CaseEveryYield::endOf() const
{
    QStringList ends;
    const QStringList log = desk->Folder.Log();
    for (const QString &line : log) {
        for (const CaseEndLine &row : caseEndLines) {
            if (line.startsWith(row.line))
                ends.append(nameOf(row.end, caseEndNames));
        }
    }
    if (ends == QStringList{nameOf(CaseEnd::Completed, caseEndNames)} && window
        && window->AnyTabIncomplete())
        return nameOf(CaseEnd::Incomplete, caseEndNames);
    if (!ends.isEmpty())
        return ends.join(u" and "_s);
    const bool stopped = window && !ButtonOf(window, "cmdStopSearching")->isEnabled();
    return nameOf(stopped ? CaseEnd::StoppedPending : CaseEnd::None, caseEndNames);
}

void tst_CaseEveryYield::checkTexts(CaseEnd end) const
{
    const auto *const texts =
        std::find_if(caseEndTexts.begin(), caseEndTexts.end(),
                     [end](const CaseEndTexts &row) { return row.end == end; });
    QVERIFY(texts != caseEndTexts.end());
    const QString status = TextOf(window, "lblStatus");
    const QString warning = TextOf(window, "lblWarning");
    QVERIFY2(status.startsWith(texts->status), qPrintable(status));
    QVERIFY2(texts->warning.isEmpty() || warning.startsWith(texts->warning), qPrintable(warning));
    const CaseTabState &last = window->Tab(lastTab(kind));
    if (end == CaseEnd::Completed) {
        QVERIFY2(warning.isEmpty(), qPrintable(warning));
        QVERIFY(window->Tab(CaseTab::Summary).TabDone && window->Tab(CaseTab::Names).TabDone);
        QVERIFY(last.TabDone && !last.TabNotRetrieved);
        QCOMPARE(CellsOf(window, lastTab(kind)).size(), 2);
    }
    QCOMPARE(window->SearchStopped, end == CaseEnd::Stopped || end == CaseEnd::StoppedPending
                                        || end == CaseEnd::AllJobsStopped);
    // What a stop has cut off can be fetched later.
    if (end == CaseEnd::Stopped || end == CaseEnd::AllJobsStopped)
        QVERIFY(last.TabDone != last.TabNotRetrieved);
}

void tst_CaseEveryYield::checkControls(const ExpectedCase &expected) const
{
    const bool broken = expected.end == CaseEnd::BrokenDown;
    QVERIFY(!window->Timer1->isActive());
    QCOMPARE(window->tmrBlink->isActive(), broken);
    QCOMPARE(ButtonOf(window, "cmdStopSearching")->isEnabled(), broken);
    // The main window, and the case in it, is hidden when the program has ended.
    QCOMPARE(window->isVisible(), !expected.endsProgram);
    QVERIFY(!window->IsUnloaded());
}

void tst_CaseEveryYield::runCase(int nth, const std::function<void()> &happens)
{
    connectAgain();
    window = makeCase();
    yields->Watch(window);
    desk->Folder.Remove(u"AppInfo.txt"_s);
    desk->Time.Run(secondsOfMillisecond);
    yields->Begin(window->Timer1, nth, happens);
    QVERIFY(waitForTheEnd());
    YieldDesk::StopWatching();
    if (!yields->When)
        happens();
}

void tst_CaseEveryYield::caseWith(int nth)
{
    runCase(nth, [this] {
        EnqueueKey(otherKey);
        act();
    });
    ExpectedCase expected = expectedCaseOf(what, *yields->When);
    if (expected.end == CaseEnd::BrokenDown)
        expected.end = lostEnd;
    // A pending window sees the wish to leave before the program ends, and with it the queue.
    if (expected.end == CaseEnd::AllJobsStopped && yields->Endings == 0)
        QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    if (expected.endsProgram)
        QVERIFY(yields->WaitForTheEnding());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList queue;
    if (expected.end == CaseEnd::BrokenDown)
        queue.append(window->txtMasterKey);
    // The queue is unloaded at the very end.
    if (!expected.endsProgram)
        queue.append(otherKey);
    const StateLeft left{endOf(),          window.isNull(),       frmQueue::Form().FIFO.Lines(),
                         Global.bLoggedIn, Global.bStopRequested, yields->Endings == 1};
    const StateLeft meant{nameOf(expected.end, caseEndNames),
                          expected.gone,
                          queue,
                          expected.staysLoggedIn,
                          expected.stopsOthers,
                          expected.endsProgram};
    QCOMPARE(left.Line(), meant.Line());
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bSendBusy);
    QCOMPARE(desk->Boxes.Complaints(), QString());
    if (window) {
        checkTexts(expected.end);
        checkControls(expected);
    }
    closeAtLast(expected.end);
}

/// A run that broke down gives its place back when its window closes.
void tst_CaseEveryYield::closeAtLast(CaseEnd end)
{
    if (end != CaseEnd::BrokenDown)
        return;
    QVERIFY(window->Unload());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QTRY_VERIFY(window.isNull());
}

void tst_CaseEveryYield::openAgain()
{
    delete window;
    if (yields->Endings > 0)
        yields->Main.reset();
    connectAgain();
    window = makeCase();
    yields->Watch(window);
    window->Timer1->start(0);
    QVERIFY(waitForTheEnd());
    checkTexts(CaseEnd::Completed);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
    delete window;
}

void tst_CaseEveryYield::walkYields(const std::function<void(int)> &caseWithNth)
{
    yields->WalkYields(walk, [&](int nth) {
        caseWithNth(nth);
        if (!QTest::currentTestFailed())
            openAgain();
    });
}

void tst_CaseEveryYield::everyYield_data()
{
    QTest::addColumn<Kind>("ofKind");
    QTest::addColumn<Act>("happening");
    for (size_t i = 0; i < kindNames.size(); ++i) {
        for (const Act happening : caseActs)
            QTest::addRow("%s: %s", kindNames.at(i), qPrintable(nameOf(happening, actNames)))
                << static_cast<Kind>(i) << happening;
    }
}

void tst_CaseEveryYield::everyYield()
{
    QFETCH(Kind, ofKind);
    QFETCH(Act, happening);
    kind = ofKind;
    what = happening;
    walkYields([this](int nth) { caseWith(nth); });
}

void tst_CaseEveryYield::aSecondCaseOpenedAtEveryYield_data()
{
    QTest::addColumn<Kind>("ofKind");
    for (size_t i = 0; i < kindNames.size(); ++i)
        QTest::newRow(kindNames.at(i)) << static_cast<Kind>(i);
}

void tst_CaseEveryYield::aSecondCaseOpenedAtEveryYield()
{
    QFETCH(Kind, ofKind);
    kind = ofKind;
    walkYields([this](int nth) {
        QPointer<CaseWindow> second;
        QString statusOfSecond;
        runCase(nth, [&] {
            yields->Note(momentNow());
            second = makeCase(secondNumber);
            second->Timer1->start(0);
            statusOfSecond = TextOf(second, "lblStatus");
        });
        QVERIFY(YieldDesk::WaitFor([&] { return isOver(second); }));
        QCOMPARE(statusOfSecond, u"Pending .."_s);
        QCOMPARE(endOf(), u"completed and completed"_s);
        checkTexts(CaseEnd::Completed);
        // The lines of the second come behind all lines of the first.
        QCOMPARE(asked.size(), 6);
        for (qsizetype i = 0; i < asked.size(); ++i)
            QCOMPARE(asked[i].contains(secondNumber.toLatin1()), i >= 3);
        QVERIFY(!second->Timer1->isActive());
        QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete"_s);
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
        delete second;
    });
}

/// What has come by now, marked as not whole while more may come.
void tst_CaseEveryYield::report()
{
    yields->Note(momentNow());
    for (int i = 0; i < 2; ++i)
        desk->Boxes.ExpectDialog(u"dlgPrintMgr"_s,
                                 [](QDialog *dialog) { Click(dialog, "OKButton"); });
    window->PrintDirect();
    auto *preview = Shown(u"PreviewDoc"_s);
    QVERIFY(preview);
    preview->close();
    window->PrintToFile(desk->Folder.Path(u"saved.txt"_s));
    checkReport(desk->Folder.Read(u"saved.txt"_s));
}

void tst_CaseEveryYield::checkReport(const QByteArray &text) const
{
    QVERIFY(text.startsWith("Halvane Case Details for: "));
    QVERIFY(text.endsWith("\r\n<------ End of Report ------>\r\n"));
    QCOMPARE(text.contains("WARNING:  This Search was NOT completed. "),
             yields->When != Moment::Over);
    const QByteArray heading =
        "\r\n" + CaseTabRowOf(lastTab(kind)).caption.toString().toLatin1() + "\r\n";
    QCOMPARE(text.contains(heading), window->Tab(lastTab(kind)).TabDone);
}

void tst_CaseEveryYield::reportedAtEveryYield_data()
{
    aSecondCaseOpenedAtEveryYield_data();
}

void tst_CaseEveryYield::reportedAtEveryYield()
{
    QFETCH(Kind, ofKind);
    kind = ofKind;
    walkYields([this](int nth) {
        runCase(nth, [this] { report(); });
        QCOMPARE(endOf(), nameOf(CaseEnd::Completed, caseEndNames));
        checkTexts(CaseEnd::Completed);
        QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList());
        QCOMPARE(desk->Boxes.Complaints(), QString());
    });
}

HALVANE_TEST(tst_CaseEveryYield)
#include "tst_CaseEveryYield.moc"
