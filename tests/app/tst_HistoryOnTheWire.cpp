// A court cannot tell whether the history is on.

#include "app/AskAgain.h"
#include "casedetails/CaseLines.h"
#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/DocumentLines.h"
#include "documents/frmDocTransfer.h"
#include "history/HistoryStore.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "searchentry/EntryDesk.h"
#include "session/NewWindow.h"
#include "support/AnsweringCourt.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QPointer>
#include <QTest>

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few
/// What a millisecond of a run counts, in seconds: the pauses between the tabs are short.
constexpr double pace = 0.02;

const QStringList allTabs{u"Names"_s,    u"Docket"_s,     u"Judgments"_s, u"Charges"_s,
                          u"Sentence"_s, u"Accounting"_s, u"Schedule"_s,  u"Documents"_s};

struct Searches
{
    const char *name;
    QStringList steps;
};

/// The form as it is at first, on Washington's Superior Courts.
const QStringList anew{u"click cmdClearForm"_s, u"click optState_3"_s, u"click optState_1"_s};

QList<Searches> searches()
{
    const QStringList smith{u"type txtSearchName_0 Smith"_s, u"type txtSearchName_1 John"_s};
    const QStringList types{u"tick lboxCaseTypes Civil"_s};
    const QStringList king{u"tick lboxCountyOrProfile King"_s};
    const QStringList adams{u"choose cboxCountyList Adams"_s};
    const QStringList byNumber{u"click optSearchType_2"_s};
    const QString number = u"05-2-02029-1"_s;
    return {
        {"Superior", smith + king + types},
        {"the index", smith + king + types + QStringList{u"click chkUseIndex"_s}},
        {"statewide", smith + QStringList{u"click optSearchWhere_2"_s} + types},
        {"District, civil", QStringList{u"click optCourtSelection_1"_s} + smith + adams},
        {"District, non-civil",
         QStringList{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s} + smith + adams},
        {"Oregon", QStringList{u"click optState_0"_s} + smith
                       + QStringList{u"tick lboxCountyOrProfile Lane"_s} + types},
        {"Idaho", QStringList{u"click optState_3"_s} + smith
                      + QStringList{u"tick lboxCountyOrProfile Ada"_s} + types},
        {"Bankruptcy", QStringList{u"click optState_2"_s} + smith
                           + QStringList{u"click chkBKcourt_0"_s, u"click chkBKcourt_3"_s}},
        {"a case", byNumber
                       + QStringList{u"type txtSearchName_0 "_s + number,
                                     u"tick lboxMultiJurisdiction King"_s}},
        {"a batch", byNumber
                        + QStringList{u"click chkBulkSearch"_s, u"type Text1_0 "_s + number,
                                      u"choose cbCty1_0 King"_s}},
        {"a bankruptcy case",
         QStringList{u"click optState_2"_s} + byNumber
             + QStringList{u"type txtSearchName_0 99-20077"_s, u"click chkBKcourt_0"_s}},
    };
}

/// What the court answers, whoever asks.
QStringList answersTo(const QByteArray &frame)
{
    if (frame.contains("SUMMARY"))
        return CaseLines::SuperiorSummary() + QStringList{u"EOF~"_s};
    if (frame.contains("SEARCH"))
        return {
            u"SMITH, JOHN~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s,
            u"EOF~"_s};
    return CaseLines::GridDef({u"01/02/2003~A~"_s});
}
} // namespace

class tst_HistoryOnTheWire : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void everyByteIsTheSame_data();
    void everyByteIsTheSame();
    void aDocument();
    void whatIsAskedAgainIsWhatWasAsked_data() { everyByteIsTheSame_data(); }
    void whatIsAskedAgainIsWhatWasAsked();

private:
    /// What goes out, byte for byte, from here on.
    QByteArrayList play(const QStringList &steps);
    void openHistory(bool on);
    static void startPlaying();
    static void finish(const QList<QPointer<JobWindow>> &windows);
    QList<QPointer<JobWindow>> launch(const QStringList &steps);
};

void tst_HistoryOnTheWire::init()
{
    EntryTest::init();
    CaseLines::FetchAtOnce(u"CaseSearchTabs"_s, allTabs);
    desk->Desk.Time.Run(pace);
    ReplaceShell([](const QString &) { return true; });
    Global.ClientAcctgCode.clear();
}

void tst_HistoryOnTheWire::cleanup()
{
    ReplaceShell({});
    HistoryStore::Of().Close();
    EntryTest::cleanup();
}

void tst_HistoryOnTheWire::openHistory(bool on)
{
    HistoryStore::Of().Close();
    if (!on)
        return;
    HistoryStore::Of().Open(desk->Desk.Folder.Path(u"history.db"_s));
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
}

/// A new link, to a court that answers.
void tst_HistoryOnTheWire::startPlaying()
{
    frmWinsock::Unload();
    AnsweringCourt::Install(&answersTo, {}, AnsweringCourt::EndMark::Whole);
    frmWinsock::Form();
    Global.bLoggedIn = true;
}

QList<QPointer<JobWindow>> tst_HistoryOnTheWire::launch(const QStringList &steps)
{
    desk->Do(anew + steps);
    const char *button = desk->Form()->Entry().InBatch ? "cmdBatchSearch_4" : "cmdBeginSearch";
    QList<QPointer<JobWindow>> windows;
    const QList<JobWindow *> made = desk->NewWindows(
        [this, button] { qobject_cast<QAbstractButton *>(desk->Control(button))->click(); });
    for (JobWindow *window : made)
        windows.append(window);
    return windows;
}

void tst_HistoryOnTheWire::finish(const QList<QPointer<JobWindow>> &windows)
{
    for (const QPointer<JobWindow> &window : windows)
        window->Timer1->start(1);
    for (const QPointer<JobWindow> &window : windows)
        QVERIFY(LinkDesk::WaitUntil([&window] {
            return !Global.bSearchInProgress
                   && (!window || window->ShownJob()->State() == JobState::Over);
        }));
}

QByteArrayList tst_HistoryOnTheWire::play(const QStringList &steps)
{
    startPlaying();
    const QList<QPointer<JobWindow>> windows = launch(steps);
    if (windows.isEmpty())
        return {};
    finish(windows);
    const QByteArrayList sent = FakeSocket::Last()->sent;
    for (const QPointer<JobWindow> &window : windows)
        window->Unload(UnloadMode::MdiParent);
    return sent;
}

void tst_HistoryOnTheWire::everyByteIsTheSame_data()
{
    QTest::addColumn<QStringList>("steps");
    for (const Searches &row : searches())
        QTest::newRow(row.name) << row.steps;
}

void tst_HistoryOnTheWire::everyByteIsTheSame()
{
    QFETCH(QStringList, steps);
    openHistory(false);
    const QByteArrayList without = play(steps);
    openHistory(true);
    const QByteArrayList with = play(steps);
    QVERIFY(!without.isEmpty());
    QCOMPARE(with, without);
    // It was on.
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
    QCOMPARE(HistoryStore::Of().Usage().value(0).Requests, static_cast<int>(with.size()));
}

void tst_HistoryOnTheWire::aDocument()
{
    QByteArrayList sent[2];
    for (const bool on : {false, true}) {
        openHistory(on);
        frmWinsock::Unload();
        FakeSocket::Install([](FakeSocket *socket) {
            socket->heard = [socket](const QByteArray &) {
                socket->ArriveLater({DocumentReply(DocumentBody(500), "pdf")});
            };
        });
        frmWinsock::Form();
        NewWindow form(new frmDocTransfer);
        form->Take(StartOf());
        form.GiveKey();
        form.Launch();
        const QPointer<JobWindow> window(&*form);
        finish({window});
        sent[on ? 1 : 0] = FakeSocket::Last()->sent;
        if (window)
            window->Unload(UnloadMode::MdiParent);
    }
    QCOMPARE(sent[0].size(), 1);
    QCOMPARE(sent[1], sent[0]);
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
    QCOMPARE(HistoryStore::Of().Usage().value(0).Documents, 1);
}

/// A search that comes out of the history asks for what it asked for when it was entered.
void tst_HistoryOnTheWire::whatIsAskedAgainIsWhatWasAsked()
{
    QFETCH(QStringList, steps);
    openHistory(false);
    const QByteArrayList first = play(steps);
    openHistory(true);
    startPlaying();
    const QList<QPointer<JobWindow>> windows = launch(steps);
    QVERIFY(HistoryStore::Of().WaitUntilWritten(longEnough));
    const auto count = static_cast<int>(windows.size());
    const QList<AskedItem> items = HistoryStore::Of().Items({}, 0, count);
    const QList<AskedItem> oldestFirst(items.crbegin(), items.crend());
    for (const QPointer<JobWindow> &window : windows)
        window->Unload(UnloadMode::MdiParent);
    frmQueue::Form().FIFO.Clear();
    const QList<JobWindow *> again = desk->NewWindows([&oldestFirst] {
        for (const AskedItem &item : oldestFirst)
            AskAgain(item);
    });
    QCOMPARE(again.size(), count);
    finish({again.begin(), again.end()});
    QCOMPARE(FakeSocket::Last()->sent, first);
    for (JobWindow *window : again)
        window->Unload(UnloadMode::MdiParent);
}

HALVANE_TEST(tst_HistoryOnTheWire)
#include "tst_HistoryOnTheWire.moc"
