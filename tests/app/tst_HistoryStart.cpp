// When the history is opened, what the options make of it, and how trouble with it is said.

#include "SessionFixture.h"
#include "app/HistoryStart.h"
#include "core/Clock.h"
#include "core/EndProgram.h"
#include "core/Options.h"
#include "history/HistoryStore.h"
#include "prefs/frmOpts.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few

AskedItem asked(const QString &what, const QDateTime &when)
{
    AskedItem item;
    item.What = what;
    item.When = when;
    return item;
}

HistoryStore &store()
{
    return HistoryStore::Of();
}

void ask(const QString &what, int daysAgo = 0)
{
    store().Begin(asked(what, Clock::Current().Now().addDays(-daysAgo)));
}

bool written()
{
    const bool all = store().WaitUntilWritten(longEnough);
    QCoreApplication::processEvents();
    return all;
}

void setOption(const QString &key, const QString &value)
{
    QVERIFY(SaveOptionStr(u"History"_s, key, value));
}
} // namespace

class tst_HistoryStart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { WireHistory(); }
    void init() { session = std::make_unique<SessionFixture>(); }
    void cleanup();

    void aSessionAndPracticeHaveEachTheirOwn();
    void withoutAHistoryNothingIsKept();
    void theOptionsOpenAndCloseIt();
    void whatIsTooOldIsForgottenAtTheStart();
    void whatHasBecomeTooOldIsForgottenAtTheNextLogin();
    void clearNowEmptiesAHistoryThatIsOpen();
    void clearNowTakesAwayOneThatIsOff();
    void aHistoryThatCannotBeRemovedIsSaid();
    void clearNowInTheOptionsAsksOnce();
    void theEndOfTheProgramWritesWhatIsQueued();
    void troubleIsSaidInTheStatusBarAndHoldsNothingUp();
    void theMenuOpensTheAccount();
    void aFileThatWasRefusedIsNotAskedAgainByOtherOptions();

private:
    std::unique_ptr<SessionFixture> session;
};

void tst_HistoryStart::cleanup()
{
    store().Close();
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_HistoryStart::aSessionAndPracticeHaveEachTheirOwn()
{
    StartHistory(false);
    ask(u"REAL"_s);
    QVERIFY(written());
    StartHistory(true);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 0);
    ask(u"PRACTICE"_s);
    QVERIFY(written());
    StartHistory(false);
    QVERIFY(written());
    QCOMPARE(store().CountOf(u"real"_s), 1);
    QCOMPARE(store().CountOf({}), 1);
    QVERIFY(QFile::exists(session->folder.Path(u"history.db"_s)));
    QVERIFY(QFile::exists(session->folder.Path(u"history-practice.db"_s)));
}

void tst_HistoryStart::withoutAHistoryNothingIsKept()
{
    setOption(u"KeepHistory"_s, u"0"_s);
    StartHistory(false);
    QVERIFY(!store().IsOpen());
    ask(u"DOE"_s);
    QVERIFY(!QFile::exists(session->folder.Path(u"history.db"_s)));
}

void tst_HistoryStart::theOptionsOpenAndCloseIt()
{
    StartHistory(false);
    ask(u"BEFORE"_s);
    setOption(u"KeepHistory"_s, u"0"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(!store().IsOpen());
    ask(u"MEANWHILE"_s);
    setOption(u"KeepHistory"_s, u"1"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 1);
    ask(u"OLD"_s, 50);
    QVERIFY(written());
    setOption(u"HistoryDays"_s, u"30"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 1);
}

void tst_HistoryStart::whatIsTooOldIsForgottenAtTheStart()
{
    setOption(u"HistoryDays"_s, u"10"_s);
    StartHistory(false);
    ask(u"OLD"_s, 11);
    ask(u"NEW"_s, 9);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 2);
    store().Close();
    StartHistory(false);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 1);
    QCOMPARE(store().CountOf(u"new"_s), 1);
}

void tst_HistoryStart::whatHasBecomeTooOldIsForgottenAtTheNextLogin()
{
    setOption(u"HistoryDays"_s, u"10"_s);
    StartHistory(false);
    ask(u"OLD"_s, 11);
    ask(u"NEW"_s, 9);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 2);
    Q_EMIT SessionEvents::Of().LoggedIn();
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 1);
    QCOMPARE(store().CountOf(u"new"_s), 1);
}

void tst_HistoryStart::clearNowEmptiesAHistoryThatIsOpen()
{
    session->folder.Write(u"history-damaged-2026-01-02.db"_s, "names");
    StartHistory(false);
    ask(u"DOE"_s);
    Q_EMIT OptionsEvents::Of().ClearHistoryWanted();
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 0);
    ask(u"AFTER"_s);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 1);
    QVERIFY(!QFile::exists(session->folder.Path(u"history-damaged-2026-01-02.db"_s)));
}

void tst_HistoryStart::clearNowTakesAwayOneThatIsOff()
{
    StartHistory(false);
    ask(u"DOE"_s);
    QVERIFY(written());
    setOption(u"KeepHistory"_s, u"0"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(QFile::exists(session->folder.Path(u"history.db"_s)));
    Q_EMIT OptionsEvents::Of().ClearHistoryWanted();
    const QDir folder(session->folder.Path());
    QCOMPARE(folder.entryList({u"history*"_s}), QStringList());
}

void tst_HistoryStart::aHistoryThatCannotBeRemovedIsSaid()
{
    setOption(u"KeepHistory"_s, u"0"_s);
    const QString path = session->folder.Path(u"history.db"_s);
    QVERIFY(QDir().mkpath(path + u"/something"_s));
    StartHistory(false);
    session->boxes.Expect(
        u"The history cannot be cleared, because its file cannot be removed. It is "_s + path,
        u"Clear the History"_s, MsgIcon::Exclamation);
    Q_EMIT OptionsEvents::Of().ClearHistoryWanted();
    QCOMPARE(session->boxes.Answered(), 1);
}

/// One question, and nothing is said when all is well.
void tst_HistoryStart::clearNowInTheOptionsAsksOnce()
{
    StartHistory(false);
    ask(u"DOE"_s);
    QVERIFY(written());
    frmOpts window;
    window.setVisible(true);
    session->boxes.Expect(u"Forget all searches, cases and documents of the history, and the usage "
                          "by client code? This cannot be undone."_s,
                          u"Clear the History"_s, MsgAnswer::Yes);
    Click(&window, "cmdClearHistory");
    QCOMPARE(session->boxes.Answered(), 1);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), 0);
}

void tst_HistoryStart::theEndOfTheProgramWritesWhatIsQueued()
{
    ReplaceEndProgram([](int) {});
    StartHistory(false);
    QVERIFY(written());
    constexpr int many = 2'000;
    for (int i = 0; i < many; ++i)
        ask(u"LAST"_s);
    EndProgram();
    QVERIFY(!store().IsOpen());
    StartHistory(false);
    QVERIFY(written());
    QCOMPARE(store().CountOf({}), many);
}

void tst_HistoryStart::troubleIsSaidInTheStatusBarAndHoldsNothingUp()
{
    QTest::failOnWarning(QRegularExpression(u"QStatusBar"_s));
    session->folder.Write(u"history.db"_s, QByteArray(5'000, 'x'));
    frmMain *main = session->ShowMain();
    StartHistory(false);
    QVERIFY(written());
    auto *button = main->findChild<QToolButton *>(u"cmdHistoryProblem"_s);
    QVERIFY(button && button->isVisible());
    QVERIFY(main->statusBar()->isAncestorOf(button));
    const QString text = button->toolTip();
    QVERIFY(text.startsWith(u"The history was damaged and could not be read. It was put aside as"));
    QCOMPARE(session->folder.TimesLogged(text), 1);
    session->boxes.Expect(text, u"Halvane - History"_s, MsgIcon::Exclamation);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(session->boxes.Answered(), 1);
    QVERIFY(!button->isVisible());
}

void tst_HistoryStart::theMenuOpensTheAccount()
{
    frmMain *main = session->ShowMain();
    Choose(main, "mnuSearchUsage");
    auto *window = Shown(u"frmUsage"_s);
    QVERIFY(window);
    QVERIFY(TextOf(window, "lblNote").startsWith(u"The history is off"));
}

void tst_HistoryStart::aFileThatWasRefusedIsNotAskedAgainByOtherOptions()
{
    QVERIFY(QDir().mkpath(session->folder.Path(u"history.db"_s)));
    StartHistory(false);
    QVERIFY(!written());
    QVERIFY(!store().IsOpen());
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(!store().IsOpen());
    setOption(u"KeepHistory"_s, u"0"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(QDir().rmdir(session->folder.Path(u"history.db"_s)));
    setOption(u"KeepHistory"_s, u"1"_s);
    Q_EMIT OptionsEvents::Of().Saved();
    QVERIFY(written());
}

HALVANE_TEST(tst_HistoryStart)
#include "tst_HistoryStart.moc"
