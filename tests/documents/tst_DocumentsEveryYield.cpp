// A transfer, and all documents of a case, with something done to them inside each of their yields
// in turn: stopped, logged out, closed, left, joined by a second job. What may come of each is a
// table.

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/DocumentLines.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/YieldDesk.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString otherKey = u"another job's key"_s;
const QByteArray body = "|a body between bars|";

constexpr YieldDesk::Walk walkOfTransfer{
    .fewestPending = 1, .fewestRunning = 40, .mostYields = 400};
constexpr YieldDesk::Walk walkOfAll{.fewestPending = 1, .fewestRunning = 80, .mostYields = 800};

enum class Kind { Transfer, AllDocuments };
constexpr std::array<const char *, 2> kindNames{"a transfer", "all documents"};

/// What may be left of it.
struct Ends
{
    bool Saved; ///< every document came
    bool Less;  ///< one did not
    bool Box;   ///< a failure was shown
    bool WindowThere;
};

struct ExpectedEnds
{
    Act act;
    Moment moment;
    Ends transfer;
    Ends all;
};

// A transfer that has come is saved, whatever is done to it then.
constexpr std::array<ExpectedEnds, 27> expectedEnds{{
    {Act::StopButton, Moment::Pending, {false, true, false, false}, {false, true, false, true}},
    {Act::StopButton, Moment::Running, {true, true, false, false}, {true, true, false, true}},
    {Act::StopButton, Moment::Over, {true, false, false, false}, {true, false, false, true}},
    {Act::Logout, Moment::Pending, {false, true, true, false}, {false, true, false, true}},
    {Act::Logout, Moment::Running, {true, true, true, false}, {true, true, false, true}},
    {Act::Logout, Moment::Over, {true, false, false, false}, {true, false, false, true}},
    {Act::Disconnect, Moment::Pending, {false, true, true, false}, {false, true, false, true}},
    // Refused, but those that wait give up for whoever wants to leave.
    {Act::Disconnect, Moment::Running, {true, false, false, false}, {true, true, false, true}},
    {Act::Disconnect, Moment::Over, {true, false, false, false}, {true, false, false, true}},
    {Act::Exit, Moment::Pending, {false, true, false, false}, {false, true, false, true}},
    {Act::Exit, Moment::Running, {true, false, false, false}, {true, true, false, true}},
    {Act::Exit, Moment::Over, {true, false, false, false}, {true, false, false, true}},
    {Act::CloseMain, Moment::Pending, {false, true, false, false}, {false, true, false, true}},
    {Act::CloseMain, Moment::Running, {true, false, false, false}, {true, true, false, true}},
    {Act::CloseMain, Moment::Over, {true, false, false, false}, {true, false, false, true}},
    {Act::CloseFrame, Moment::Pending, {false, true, false, false}, {false, true, false, false}},
    {Act::CloseFrame, Moment::Running, {true, false, false, false}, {true, false, false, true}},
    {Act::CloseFrame, Moment::Over, {true, false, false, false}, {true, false, false, false}},
    {Act::UnloadByCode, Moment::Pending, {false, true, false, false}, {false, true, false, false}},
    {Act::UnloadByCode, Moment::Running, {true, false, false, false}, {true, false, false, true}},
    {Act::UnloadByCode, Moment::Over, {true, false, false, false}, {true, false, false, false}},
    {Act::SessionEnds, Moment::Pending, {false, true, false, false}, {false, true, false, false}},
    {Act::SessionEnds, Moment::Running, {true, true, false, false}, {true, true, false, false}},
    {Act::SessionEnds, Moment::Over, {true, false, false, false}, {true, false, false, false}},
    {Act::UnloadUnconditionally,
     Moment::Pending,
     {false, true, false, false},
     {false, true, false, false}},
    {Act::UnloadUnconditionally,
     Moment::Running,
     {true, true, false, false},
     {true, true, false, false}},
    {Act::UnloadUnconditionally,
     Moment::Over,
     {true, false, false, false},
     {true, false, false, false}},
}};

const ExpectedEnds &endsOf(Act act, Moment moment)
{
    return *std::find_if(expectedEnds.begin(), expectedEnds.end(), [&](const ExpectedEnds &one) {
        return one.act == act && one.moment == moment;
    });
}

QStringList answersTo(const QByteArray &)
{
    return {u"FILELEN=21~TYPE=PDF~"_s, u"a body between bars"_s, u"EOD~||EOF~"_s};
}
} // namespace

Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Kind)

class tst_DocumentsEveryYield : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyYield_data();
    void everyYield();
    void aSecondJobAtEveryYield_data();
    void aSecondJobAtEveryYield();

private:
    JobWindow *makeWindow(const QString &description = u"COMPLAINT"_s);
    void connectAgain();
    void run(int nth, const std::function<void()> &happens);
    void runWith(int nth);
    Moment momentNow() const;
    static bool isOver(const JobWindow *of);
    static bool endsWithTurns(const QPointer<JobWindow> &of);
    void checkFiles(const Ends &ends) const;
    void nextComes();
    QStringList documents() const;
    int wanted() const { return kind == Kind::Transfer ? 1 : 2; }

    Kind kind = Kind::Transfer;
    Act what = Act::StopButton;
    std::unique_ptr<SearchDesk> desk;
    std::unique_ptr<YieldDesk> yields;
    QPointer<JobWindow> window;
    int boxes = 0;
    QByteArrayList asked;
};

void tst_DocumentsEveryYield::init()
{
    desk = std::make_unique<SearchDesk>();
    yields = std::make_unique<YieldDesk>(*desk);
    desk->Boxes.Whenever(u"MsgBox"_s, [this](QDialog *box) {
        ++boxes;
        box->accept();
    });
    ReplaceShell([](const QString &) { return true; });
}

void tst_DocumentsEveryYield::cleanup()
{
    ReplaceShell({});
    yields.reset();
    desk.reset();
}

void tst_DocumentsEveryYield::connectAgain()
{
    asked.clear();
    yields->ConnectAgain(
        [this](const QByteArray &frame) {
            asked.append(frame);
            return answersTo(frame);
        },
        AnsweringCourt::EndMark::Whole);
}

JobWindow *tst_DocumentsEveryYield::makeWindow(const QString &description)
{
    JobWindow *made = nullptr;
    if (kind == Kind::Transfer) {
        auto *transfer = new frmDocTransfer;
        transfer->Take(StartOf(u"5"_s, description));
        made = transfer;
    } else {
        auto *all = new frmAllDocuments;
        all->Take({StartOf(u"5"_s, description), StartOf(u"6"_s, description)});
        made = all;
    }
    yields->Show(made);
    desk->Enqueue(made);
    return made;
}

bool tst_DocumentsEveryYield::isOver(const JobWindow *of)
{
    return !Global.bSearchInProgress && (!of || of->IsUnloaded() || !of->Timer1->isActive());
}

/// True when it is over. All documents wait behind the other job, and for their next tick, between
/// two of them: the other one has its turn then, and the tick comes at once.
bool tst_DocumentsEveryYield::endsWithTurns(const QPointer<JobWindow> &of)
{
    ListBox &queue = frmQueue::Form().FIFO;
    if (of && !of->IsUnloaded() && of->Timer1->isActive() && !Global.bSearchInProgress) {
        if (queue.ListCount() > 1 && queue.List(0) == otherKey)
            queue.RemoveItem(0);
        if (of->Timer1->interval() > 0)
            of->Timer1->start(0);
    }
    return isOver(of);
}

Moment tst_DocumentsEveryYield::momentNow() const
{
    if (!window || window->IsUnloaded() || !ButtonOf(window, "cmdStop")->isEnabled())
        return Moment::Over;
    return Global.bSearchInProgress ? Moment::Running : Moment::Pending;
}

QStringList tst_DocumentsEveryYield::documents() const
{
    QDir folder(desk->Folder.Path(u"Reports"_s));
    if (kind == Kind::AllDocuments)
        folder.cd(u"King 02-2-00123-4"_s);
    QStringList names = folder.entryList(QDir::Files | QDir::Hidden, QDir::Name);
    names.removeAll(u"Tempfile.bin"_s);
    names.removeAll(u"documents.csv"_s);
    QStringList paths;
    for (const QString &name : names)
        paths.append(folder.filePath(name));
    return paths;
}

void tst_DocumentsEveryYield::run(int nth, const std::function<void()> &happens)
{
    connectAgain();
    QDir(desk->Folder.Path(u"Reports"_s)).removeRecursively();
    window = makeWindow();
    yields->Watch(window);
    boxes = 0;
    desk->Time.Run(0.2);
    yields->Begin(window->Timer1, nth, happens);
    QVERIFY(YieldDesk::WaitFor([this] { return endsWithTurns(window); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    YieldDesk::StopWatching();
    if (!yields->When)
        happens();
}

void tst_DocumentsEveryYield::checkFiles(const Ends &ends) const
{
    const QStringList paths = documents();
    for (const QString &path : paths) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(file.readAll() == body, qPrintable(path));
    }
    const bool saved = paths.size() == wanted();
    QVERIFY2(saved ? ends.Saved : ends.Less, qPrintable(QString::number(paths.size())));
}

void tst_DocumentsEveryYield::runWith(int nth)
{
    run(nth, [this] {
        EnqueueKey(otherKey);
        const Moment now = momentNow();
        if (window && !window->IsUnloaded())
            yields->Do(what, now);
        else
            yields->Note(now);
    });
    const ExpectedEnds &expected = endsOf(what, *yields->When);
    const Ends &ends = kind == Kind::Transfer ? expected.transfer : expected.all;
    if ((ends.WindowThere || *yields->When == Moment::Pending) && yields->Endings == 0
        && (what == Act::Exit || what == Act::CloseMain) && *yields->When != Moment::Running)
        QVERIFY(yields->WaitForTheEnding());
    QVERIFY(YieldDesk::WaitFor([this] { return endsWithTurns(window); }));
    // The other one's key is left, unless it has had its turn.
    ListBox &queue = frmQueue::Form().FIFO;
    if (queue.List(0) == otherKey)
        queue.RemoveItem(0);
    QCOMPARE(queue.Lines(), QStringList());
    QVERIFY(!Global.bSearchInProgress && !Global.bSendBusy);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window != nullptr, ends.WindowThere);
    QVERIFY(ends.Box || boxes == 0);
    QCOMPARE(desk->Boxes.Complaints(), QString());
    checkFiles(ends);
}

void tst_DocumentsEveryYield::nextComes()
{
    delete window;
    if (yields->Endings > 0)
        yields->Main.reset();
    run(0, [] {});
    QCOMPARE(documents().size(), wanted());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    delete window;
}

void tst_DocumentsEveryYield::everyYield_data()
{
    QTest::addColumn<Kind>("ofKind");
    QTest::addColumn<Act>("happening");
    for (size_t i = 0; i < kindNames.size(); ++i) {
        for (const Act act :
             {Act::StopButton, Act::Logout, Act::Disconnect, Act::Exit, Act::CloseMain,
              Act::CloseFrame, Act::UnloadByCode, Act::SessionEnds, Act::UnloadUnconditionally})
            QTest::addRow("%s: %s", kindNames.at(i), qPrintable(nameOf(act, actNames)))
                << static_cast<Kind>(i) << act;
    }
}

void tst_DocumentsEveryYield::everyYield()
{
    QFETCH(Kind, ofKind);
    QFETCH(Act, happening);
    kind = ofKind;
    what = happening;
    yields->WalkYields(kind == Kind::Transfer ? walkOfTransfer : walkOfAll, [this](int nth) {
        runWith(nth);
        if (!QTest::currentTestFailed()) {
            const std::optional<Moment> when = yields->When;
            nextComes();
            yields->When = when;
        }
    });
}

void tst_DocumentsEveryYield::aSecondJobAtEveryYield_data()
{
    QTest::addColumn<Kind>("ofKind");
    for (size_t i = 0; i < kindNames.size(); ++i)
        QTest::newRow(kindNames.at(i)) << static_cast<Kind>(i);
}

void tst_DocumentsEveryYield::aSecondJobAtEveryYield()
{
    QFETCH(Kind, ofKind);
    yields->WalkYields(ofKind == Kind::Transfer ? walkOfTransfer : walkOfAll, [&](int nth) {
        kind = ofKind;
        QPointer<JobWindow> second;
        run(nth, [&] {
            yields->Note(momentNow());
            kind = Kind::Transfer;
            second = makeWindow(u"SECOND"_s);
            kind = ofKind;
            second->Timer1->start(0);
        });
        QVERIFY(YieldDesk::WaitFor([&] { return endsWithTurns(second) && endsWithTurns(window); }));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(second.isNull());
        QCOMPARE(asked.size(), wanted() + 1);
        QCOMPARE(documents().size(), 2);
        QVERIFY(QFile::exists(
            desk->Folder.Path(u"Reports/"_s + DocumentFileName(u"5"_s, u"SECOND"_s) + u".PDF"_s)));
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
        delete window;
    });
}

HALVANE_TEST(tst_DocumentsEveryYield)
#include "tst_DocumentsEveryYield.moc"
