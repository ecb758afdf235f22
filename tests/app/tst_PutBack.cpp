// What had not run when the program ended is offered at the next login.

#include "app/ProgramTest.h"
#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "documents/DocumentLines.h"
#include "documents/frmDocTransfer.h"
#include "history/HistoryStore.h"
#include "jobs/frmQueue.h"
#include "namesearch/NameResultsWindow.h"
#include "records/StartText.h"
#include "searchentry/EntryText.h"
#include "searchentry/NumberListRun.h"
#include "session/SessionEvents.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QApplication>
#include <QTest>

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few
const QString title = u"History"_s;
const QString washingtonNotice =
    u"Neither the court nor clerk makes any representation as to the accuracy and completeness of "
    "the Washington Court data except for court purposes. \r\n\r\nDo you want to continue?"_s;

HistoryStore &store()
{
    return HistoryStore::Of();
}

AskedItem searchFor(const QString &name)
{
    SearchEntry entry;
    entry.Names[LastName] = name;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    AskedItem item;
    item.What = name;
    item.ClientCode = u"CODE "_s + name;
    item.Origin = TextOfEntry(AsAsked(entry));
    return item;
}

AskedItem caseOf(const QString &number)
{
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCountyName = u"King"_s;
    start.txtCaseNumber = number;
    AskedItem item;
    item.Kind = AskedKind::Case;
    item.What = number;
    item.ClientCode = u"CODE "_s + number;
    item.Origin = TextOfCaseStart(start);
    return item;
}

AskedItem document()
{
    AskedItem item;
    item.Kind = AskedKind::Document;
    item.What = u"document"_s;
    item.ClientCode = u"CODE document"_s;
    item.Origin = TextOfDocuments({StartOf()});
    return item;
}

/// A number that was entered for King county.
AskedItem numberOf(int n)
{
    const QString number = u"02-1-"_s + QString::number(n).rightJustified(5, u'0') + u"-1"_s;
    AskedItem item = caseOf(number);
    CaseStart start = *CaseStartOf(item.Origin);
    SearchEntry entry;
    entry.Kind = SearchKind::Number;
    entry.Names[LastName] = number;
    entry.NumberCounty = u"King"_s;
    start.Origin = TextOfEntry(AsAsked(entry));
    item.Origin = TextOfCaseStart(start);
    return item;
}

QList<AskedItem> numbersUpTo(int count)
{
    QList<AskedItem> items;
    for (int n = 1; n <= count; ++n)
        items.append(numberOf(n));
    return items;
}

QString nameOf(const JobWindow *window)
{
    if (const auto *search = qobject_cast<const NameResultsWindow *>(window))
        return search->lboxQueue.List(0).section(u'¦', 2, 2);
    if (const auto *ofCase = qobject_cast<const CaseWindow *>(window))
        return ofCase->txtCaseNumber;
    return qobject_cast<const frmDocTransfer *>(window) ? u"document"_s : QString();
}

/// What waits in the queue, with its client codes, in its order.
QStringList waiting()
{
    QStringList names;
    for (const QString &key : frmQueue::Form().FIFO.Lines()) {
        for (const Job *job : Job::All()) {
            const JobWindow *window = JobWindow::Of(job);
            if (job->txtMasterKey == key && window)
                names.append(nameOf(window) + u" for "_s + window->ClientAcctgCode);
        }
    }
    return names;
}

QString inShort(const AskedItem &item)
{
    return item.What + u": "_s + (item.State == AskedState::Ended ? item.Outcome : u"goes on"_s);
}
} // namespace

class tst_PutBack : public ProgramTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void threeArePutBackInTheirOrder();
    void oneIsPutBack();
    void aCaseThatWasToPrintStillIs();
    void numbersOfAListComeBackAsAList_data();
    void numbersOfAListComeBackAsAList();
    void aListWhoseNoticeIsDeclinedIsAskedAboutOnce();
    void noSettlesThem();
    void whatEndedIsNotOffered();
    void whatNobodyKnowsIsNotOffered();
    void theyAreOfferedOnce();
    void notWhileAnotherQuestionStands();
    void notWhenTheSessionIsGone();
    void aSessionThatEndsUnderTheQuestionLeavesThem();
    void aSessionThatEndsUnderANoticeLeavesTheRest();
    void aDeclinedNoticeLeavesItOut();
    void nothingRunsUnderTheQuestion();

private:
    /// The session before this one, which was killed with these on their way.
    void leave(const QList<AskedItem> &items);
    /// Starts the program and logs in; `announce` says which boxes come then.
    void beginSession(const std::function<void()> &announce = {});
    QStringList kept();
    /// From the question on, for a test that counts what waits.
    std::unique_ptr<TurnHold> nothingBegins;
    /// Lets the offer come, or not.
    static void settle() { Ticks(300); }
    /// Until the question has been answered.
    void untilAsked(int boxes) { QTRY_COMPARE(desk->Boxes.Answered(), boxes); }
};

void tst_PutBack::init()
{
    ProgramTest::init();
}

void tst_PutBack::beginSession(const std::function<void()> &announce)
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    StartProgram();
    Global.bShowAlerts = false;
    if (announce)
        announce();
    LogIn();
}

void tst_PutBack::cleanup()
{
    nothingBegins.reset();
    store().Close();
    qDeleteAll(qApp->findChildren<NumberListRun *>());
    ProgramTest::cleanup();
}

void tst_PutBack::leave(const QList<AskedItem> &items)
{
    store().Open(desk->Folder.Path(u"history.db"_s));
    for (const AskedItem &item : items)
        store().Begin(item);
    QVERIFY(store().WaitUntilWritten(longEnough));
    store().Close();
}

QStringList tst_PutBack::kept()
{
    if (!store().WaitUntilWritten(longEnough))
        return {u"nothing is open"_s};
    QStringList items;
    for (const AskedItem &item : store().Items({}, 0, 100))
        items.prepend(inShort(item));
    return items;
}

void tst_PutBack::threeArePutBackInTheirOrder()
{
    leave({searchFor(u"SMITH"_s), caseOf(u"02-1-00123-4"_s), document()});
    beginSession([this] {
        desk->Boxes.Expect(u"3 searches had not run. Put them back?"_s, title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting().size(), 3);
    QCOMPARE(waiting(),
             (QStringList{u"SMITH for CODE SMITH"_s, u"02-1-00123-4 for CODE 02-1-00123-4"_s,
                          u"document for CODE document"_s}));
    const QString old = u": Had not run when the program ended. Put back."_s;
    QCOMPARE(kept().first(3),
             (QStringList{u"SMITH"_s + old, u"02-1-00123-4"_s + old, u"document"_s + old}));
    // Each has a line of its own in this session.
    QCOMPARE(kept().size(), 6);
    QVERIFY(kept().last().endsWith(u"goes on"));
}

void tst_PutBack::oneIsPutBack()
{
    leave({searchFor(u"SMITH"_s)});
    beginSession([this] {
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting(), QStringList{u"SMITH for CODE SMITH"_s});
}

/// It has not been printed yet, unlike one that is opened once more.
void tst_PutBack::aCaseThatWasToPrintStillIs()
{
    AskedItem printed = caseOf(u"02-1-00123-4"_s);
    CaseStart start = *CaseStartOf(printed.Origin);
    start.chkAutoPrint = true;
    printed.Origin = TextOfCaseStart(start);
    leave({printed, caseOf(u"02-1-00124-2"_s)});
    beginSession([this] {
        desk->Boxes.Meanwhile([this] { nothingBegins = std::make_unique<TurnHold>(); });
        desk->Boxes.Expect(u"2 searches had not run. Put them back?"_s, title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting().size(), 2);
    for (const Job *job : Job::All()) {
        const auto *window = qobject_cast<const CaseWindow *>(JobWindow::Of(job));
        QVERIFY(window);
        QCOMPARE(window->chkAutoPrint, window->txtCaseNumber == u"02-1-00123-4");
    }
}

void tst_PutBack::numbersOfAListComeBackAsAList_data()
{
    QTest::addColumn<int>("numbers");
    QTest::addColumn<bool>("isList");
    QTest::newRow("ten, each by itself") << 10 << false;
    QTest::newRow("more than ten") << 12 << true;
}

/// A window for each number of a long list would be more than anybody can use.
void tst_PutBack::numbersOfAListComeBackAsAList()
{
    QFETCH(const int, numbers);
    QFETCH(const bool, isList);
    constexpr int most = 10;
    leave(QList<AskedItem>{searchFor(u"SMITH"_s)} + numbersUpTo(numbers));
    beginSession([this, numbers] {
        desk->Boxes.Meanwhile([this] { nothingBegins = std::make_unique<TurnHold>(); });
        desk->Boxes.Expect(QString::number(numbers + 1)
                               + u" searches had not run. Put them back?"_s,
                           title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting().size(), most + 1);
    QCOMPARE(waiting().value(0), u"SMITH for CODE SMITH"_s);
    for (int n = 1; n <= most; ++n) {
        const QString what = numberOf(n).What;
        QCOMPARE(waiting().value(n), what + u" for CODE "_s + what);
    }
    QCOMPARE(Shown(u"frmNumberList"_s) != nullptr, isList);
    // Those that wait behind the ten have a line of their own, too.
    const QStringList lines = kept();
    QCOMPARE(lines.size(), 2 * (numbers + 1));
    QCOMPARE(lines.filter(u"Put back."_s).size(), numbers + 1);
    QCOMPARE(lines.last(), numberOf(numbers).What + u": goes on"_s);
    QVERIFY(store().Unfinished().isEmpty());
}

void tst_PutBack::aListWhoseNoticeIsDeclinedIsAskedAboutOnce()
{
    leave(numbersUpTo(12));
    beginSession([this] {
        desk->Boxes.Meanwhile([] { Global.bShowAlerts = true; });
        desk->Boxes.Expect(u"12 searches had not run. Put them back?"_s, title, MsgAnswer::Yes);
        desk->Boxes.Expect(washingtonNotice, u"Washington State Courts"_s, MsgIcon::Exclamation,
                           MsgAnswer::No, MsgButtons::YesNo);
    });
    QTRY_COMPARE(kept().filter(u"Had not run"_s).size(), 12);
    QCOMPARE(waiting(), QStringList());
    QVERIFY(!Shown(u"frmNumberList"_s));
}

void tst_PutBack::noSettlesThem()
{
    leave({searchFor(u"SMITH"_s), searchFor(u"JONES"_s)});
    beginSession([this] {
        desk->Boxes.Expect(u"2 searches had not run. Put them back?"_s, title, MsgAnswer::No);
    });
    untilAsked(2);
    settle();
    QCOMPARE(waiting(), QStringList());
    const QString outcome = u": Had not run when the program ended."_s;
    QCOMPARE(kept(), (QStringList{u"SMITH"_s + outcome, u"JONES"_s + outcome}));
    QVERIFY(store().Unfinished().isEmpty());
}

void tst_PutBack::whatEndedIsNotOffered()
{
    store().Open(desk->Folder.Path(u"history.db"_s));
    store().End(store().Begin(searchFor(u"SMITH"_s)), u"Search Complete"_s, 2);
    QVERIFY(store().WaitUntilWritten(longEnough));
    store().Close();
    beginSession();
    settle();
    QCOMPARE(waiting(), QStringList());
}

/// Such as what a later version of the program has written.
void tst_PutBack::whatNobodyKnowsIsNotOffered()
{
    AskedItem unknown = searchFor(u"SMITH"_s);
    unknown.Origin = R"({"Search":99})";
    leave({unknown, searchFor(u"JONES"_s)});
    beginSession([this] {
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting(), QStringList{u"JONES for CODE JONES"_s});
    QVERIFY(kept().size() == 3);
    QVERIFY(store().Unfinished().isEmpty());
}

void tst_PutBack::theyAreOfferedOnce()
{
    leave({searchFor(u"SMITH"_s)});
    beginSession([this] {
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::No);
    });
    untilAsked(2);
    QCOMPARE(kept().size(), 1);
    Q_EMIT SessionEvents::Of().LoggedIn();
    settle();
    QCOMPARE(desk->Boxes.Answered(), 2);
}

void tst_PutBack::notWhileAnotherQuestionStands()
{
    leave({searchFor(u"SMITH"_s)});
    // One that came with the login, and stands for a while.
    const QObject first;
    connect(&SessionEvents::Of(), &SessionEvents::LoggedIn, &first, [this] {
        MsgBox(Main, u"First?"_s, u"Halvane"_s, MsgButtons::YesNo, MsgIcon::Question);
    });
    beginSession([this] {
        desk->Boxes.Meanwhile([this] {
            settle();
            // The one about connecting, and this one.
            QCOMPARE(desk->Boxes.Answered(), 2);
        });
        desk->Boxes.Expect(u"First?"_s, u"Halvane"_s, MsgAnswer::No);
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::Yes);
    });
    QTRY_COMPARE(waiting().size(), 1);
}

void tst_PutBack::notWhenTheSessionIsGone()
{
    leave({searchFor(u"SMITH"_s)});
    beginSession();
    Global.bLoggedIn = false;
    settle();
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(store().Unfinished().size(), 1);
}

void tst_PutBack::aSessionThatEndsUnderTheQuestionLeavesThem()
{
    leave({searchFor(u"SMITH"_s)});
    beginSession([this] {
        desk->Boxes.Meanwhile([] { Global.bLoggedIn = false; });
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::Yes);
    });
    untilAsked(2);
    settle();
    QCOMPARE(waiting(), QStringList());
    QCOMPARE(store().Unfinished().size(), 1);
}

void tst_PutBack::aSessionThatEndsUnderANoticeLeavesTheRest()
{
    leave({document(), searchFor(u"SMITH"_s), caseOf(u"02-1-00123-4"_s)});
    beginSession([this] {
        desk->Boxes.Meanwhile([] { Global.bShowAlerts = true; });
        desk->Boxes.Expect(u"3 searches had not run. Put them back?"_s, title, MsgAnswer::Yes);
        desk->Boxes.Meanwhile([] { Global.bLoggedIn = false; });
        desk->Boxes.Expect(washingtonNotice, u"Washington State Courts"_s, MsgIcon::Exclamation,
                           MsgAnswer::Yes, MsgButtons::YesNo);
    });
    untilAsked(3);
    settle();
    QCOMPARE(waiting(), QStringList{u"document for CODE document"_s});
    // What was put back is not offered once more.
    QCOMPARE(store().WaitUntilWritten(longEnough), true);
    QCOMPARE(store().Unfinished().size(), 2);
}

void tst_PutBack::aDeclinedNoticeLeavesItOut()
{
    leave({searchFor(u"SMITH"_s), caseOf(u"02-1-00123-4"_s)});
    beginSession([this] {
        desk->Boxes.Meanwhile([] { Global.bShowAlerts = true; });
        desk->Boxes.Expect(u"2 searches had not run. Put them back?"_s, title, MsgAnswer::Yes);
        desk->Boxes.Expect(washingtonNotice, u"Washington State Courts"_s, MsgIcon::Exclamation,
                           MsgAnswer::No, MsgButtons::YesNo);
    });
    QTRY_COMPARE(waiting(), QStringList{u"02-1-00123-4 for CODE 02-1-00123-4"_s});
    QCOMPARE(kept().value(0), u"SMITH: Had not run when the program ended."_s);
}

void tst_PutBack::nothingRunsUnderTheQuestion()
{
    leave({searchFor(u"SMITH"_s)});
    beginSession([this] {
        desk->Boxes.Meanwhile([] { QVERIFY(TurnHold::IsHeld()); });
        desk->Boxes.Expect(u"1 search had not run. Put it back?"_s, title, MsgAnswer::No);
    });
    untilAsked(2);
    QVERIFY(!TurnHold::IsHeld());
}

HALVANE_TEST(tst_PutBack)
#include "tst_PutBack.moc"
