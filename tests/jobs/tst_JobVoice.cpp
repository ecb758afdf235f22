#include "controls/Notice.h"
#include "jobs/JobVoice.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "tables/ResultListView.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

class tst_JobVoice : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void notice_data();
    void notice();
    void noNoticeWhileTheWindowIsInFront();
    void noNoticeOfWhatTheUserStopped();
    void noticeBehindAnotherChildOfTheMainWindow();
    void noticeOfAMinimisedChild();
    void timeBeginsAnewWithTheNextPage();
    void overMidnight();
    void withoutATrayNothingBreaks();
    void stateIsSpoken();
    void rowsAreSpokenNowAndThen();
    void rowsAreSpokenWhileOthersStreamIn();
    void eachTableTellsItsOwnRows();
    void theEndIsAnAlert();

private:
    void addRows(int rows)
    {
        for (int i = 0; i < rows; ++i)
            list->List()->AddRow({u"SMITH"_s});
        list->List()->Flush();
    }
    void putInFront(QWidget *one)
    {
        one->show();
        one->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(one));
    }

    std::unique_ptr<TestClock> time;
    std::unique_ptr<QWidget> window;
    QLabel *status = nullptr;
    ResultListView *list = nullptr;
    JobVoice *voice = nullptr;
    std::unique_ptr<QWidget> other;
    QStringList notices;
    QStringList alerts;
};

void tst_JobVoice::init()
{
    time = std::make_unique<TestClock>();
    window = std::make_unique<QWidget>();
    window->setWindowTitle(u"SMITH in King County"_s);
    status = new QLabel(u"Pending .."_s, window.get());
    list = new ResultListView(window.get());
    list->SetColumns({{u"Name"_s, 1500}});
    voice = new JobVoice(window.get(), status, list);
    other = std::make_unique<QWidget>();
    notices.clear();
    ReplaceDesktopNotice([this](const QWidget *who, const QString &title, const QString &text) {
        notices.append(who->windowTitle() + u'/' + title + u'/' + text);
    });
    alerts.clear();
    ReplaceSpokenAlert(
        [this](const QWidget *control) { alerts.append(control->accessibleName()); });
}

void tst_JobVoice::cleanup()
{
    ReplaceSpokenAlert({});
    ReplaceDesktopNotice({});
    window.reset();
    other.reset();
    time.reset();
}

void tst_JobVoice::notice_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<bool>("noticed");
    QTest::newRow("at once") << 0.0 << false;
    QTest::newRow("20 seconds") << 20.0 << false;
    QTest::newRow("over 20 seconds") << 20.5 << true;
    QTest::newRow("an hour") << 3600.0 << true;
}

void tst_JobVoice::notice()
{
    QFETCH(double, seconds);
    QFETCH(bool, noticed);
    window->show();
    putInFront(other.get());
    time->Advance(seconds);
    status->setText(u"Search Complete:  7 Cases"_s);
    voice->Ended(false);
    QCOMPARE(notices, noticed ? QStringList{u"SMITH in King County/SMITH in King County/Search "
                                            "Complete: 7 Cases"_s}
                              : QStringList());
}

void tst_JobVoice::noNoticeWhileTheWindowIsInFront()
{
    putInFront(window.get());
    time->Advance(60);
    voice->Ended(false);
    QCOMPARE(notices, QStringList());
    window->showMinimized();
    voice->Ended(false);
    QCOMPARE(notices.size(), 1);
}

void tst_JobVoice::noNoticeOfWhatTheUserStopped()
{
    time->Advance(60);
    voice->Ended(true);
    QCOMPARE(notices, QStringList());
}

void tst_JobVoice::noticeBehindAnotherChildOfTheMainWindow()
{
    QMdiArea area;
    auto *child = window.release();
    QMdiSubWindow *frame = area.addSubWindow(child);
    QMdiSubWindow *next = area.addSubWindow(new QWidget);
    area.show();
    child->show();
    next->widget()->show();
    putInFront(&area);
    time->Advance(60);
    area.setActiveSubWindow(frame);
    voice->Ended(false);
    QCOMPARE(notices.size(), 0);
    area.setActiveSubWindow(next);
    voice->Ended(false);
    QCOMPARE(notices.size(), 1);
    QVERIFY(IsInFront(next->widget()));
}

void tst_JobVoice::noticeOfAMinimisedChild()
{
    QMdiArea area;
    auto *child = window.release();
    QMdiSubWindow *frame = area.addSubWindow(child);
    area.show();
    child->show();
    putInFront(&area);
    QVERIFY(IsInFront(child));
    frame->showMinimized();
    time->Advance(60);
    voice->Ended(false);
    QCOMPARE(notices.size(), 1);
}

void tst_JobVoice::timeBeginsAnewWithTheNextPage()
{
    time->Advance(60);
    voice->Started();
    time->Advance(10);
    voice->Ended(false);
    QCOMPARE(notices, QStringList());
}

void tst_JobVoice::overMidnight()
{
    time->Set(QDateTime({2026, 3, 10}, {23, 59, 50}));
    voice->Started();
    time->Set(QDateTime({2026, 3, 11}, {0, 0, 15}));
    voice->Ended(false);
    QCOMPARE(notices.size(), 1);
}

void tst_JobVoice::withoutATrayNothingBreaks()
{
    ReplaceDesktopNotice({});
    time->Advance(60);
    voice->Ended(false);
    QVERIFY(QApplication::allWindows().size() <= 3);
}

void tst_JobVoice::stateIsSpoken()
{
    QCOMPARE(list->accessibleDescription(), u"Pending .. - 0 rows"_s);
    status->setText(u"  Searching .."_s);
    voice->SayState();
    QCOMPARE(status->accessibleName(), u"Searching .."_s);
    QCOMPARE(list->accessibleDescription(), u"Searching .. - 0 rows"_s);
    addRows(1);
    voice->SayState();
    QCOMPARE(list->accessibleDescription(), u"Searching .. - 1 row"_s);
    QCOMPARE(alerts, QStringList());
}

void tst_JobVoice::rowsAreSpokenNowAndThen()
{
    auto *pause = voice->findChild<QTimer *>();
    QCOMPARE(pause->interval(), 5000);
    for (int i = 0; i < 10; ++i)
        addRows(1);
    QVERIFY(pause->isActive());
    QCOMPARE(list->accessibleDescription(), u"Pending .. - 0 rows"_s);
    pause->setInterval(1);
    addRows(1);
    QTRY_COMPARE(list->accessibleDescription(), u"Pending .. - 11 rows"_s);
    QVERIFY(!pause->isActive());
}

void tst_JobVoice::rowsAreSpokenWhileOthersStreamIn()
{
    voice->findChild<QTimer *>()->setInterval(200);
    const QString before = list->accessibleDescription();
    const QDeadlineTimer deadline(20'000);
    // Each row comes long before the pause is over, which must not begin anew with it.
    while (list->accessibleDescription() == before && !deadline.hasExpired()) {
        addRows(1);
        QTest::qWait(1);
    }
    QVERIFY(list->accessibleDescription() != before);
}

void tst_JobVoice::eachTableTellsItsOwnRows()
{
    auto *second = new ResultListView(window.get());
    second->SetColumns({{u"Name"_s, 1500}});
    voice->AlsoFills(second);
    QCOMPARE(second->accessibleDescription(), u"Pending .. - 0 rows"_s);
    second->List()->AddRow({u"JONES"_s});
    second->List()->Flush();
    // Its rows are news as those of the first are.
    QVERIFY(voice->findChild<QTimer *>()->isActive());
    status->setText(u"Searching .."_s);
    voice->SayState();
    QCOMPARE(list->accessibleDescription(), u"Searching .. - 0 rows"_s);
    QCOMPARE(second->accessibleDescription(), u"Searching .. - 1 row"_s);
}

void tst_JobVoice::theEndIsAnAlert()
{
    addRows(2);
    status->setText(u"Search Complete"_s);
    voice->Ended(true);
    QCOMPARE(alerts, QStringList{u"Search Complete"_s});
    QCOMPARE(list->accessibleDescription(), u"Search Complete - 2 rows"_s);
    QVERIFY(!voice->findChild<QTimer *>()->isActive());
}

HALVANE_TEST(tst_JobVoice)
#include "tst_JobVoice.moc"
