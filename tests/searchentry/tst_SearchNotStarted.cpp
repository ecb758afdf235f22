#include "app/Startup.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <functional>

namespace {
const QString requestError =
    u"An error was encountered while attempting to search Halvane! Please review the search "
    "criteria and retry the search."_s;

QList<frmNameSearchResults *> resultsWindows()
{
    QList<frmNameSearchResults *> windows;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (auto *window = qobject_cast<frmNameSearchResults *>(widget))
            windows.append(window);
    }
    return windows;
}

/// Fails once, at the first moment at which a results window is in the making.
class FailingClock : public TestClock
{
public:
    QDateTime Now() const override
    {
        if (failing && !resultsWindows().isEmpty()) {
            failing = false;
            throw RunTimeError::TypeMismatch();
        }
        return TestClock::Now();
    }

    mutable bool failing = true;
};

/// Fails when a results window is about to be shown for the first time.
class FailingShow : public QObject
{
public:
    FailingShow() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (failing && event->type() == QEvent::Show
            && qobject_cast<frmNameSearchResults *>(watched)) {
            failing = false;
            keysThen = frmQueue::Form().FIFO.ListCount();
            throw RunTimeError::TypeMismatch();
        }
        return false;
    }

    bool failing = true;
    int keysThen = -1;
};
} // namespace

/// A click on Start Search behind which nothing may be left.
class tst_SearchNotStarted : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void anErrorWhileTheSearchIsBuilt_data();
    void anErrorWhileTheSearchIsBuilt();
    void theNextSearchAfterAnErrorStarts();
    void declinedLoginDoesNothingLater();
    void aMissingCountyListIsReportedOnce();
    void enterOnAButtonPressesThatButton_data();
    void enterOnAButtonPressesThatButton();

private:
    void click(const char *name) const
    {
        auto *button = form->findChild<QWidget *>(QLatin1StringView(name));
        QTest::mouseClick(button, Qt::LeftButton, {}, {10, button->height() / 2});
    }
    void expectError()
    {
        desk->Boxes.Expect(requestError + u"\r\n\r\nError Was: Type mismatch"_s,
                           u"Halvane Search Request Error"_s, MsgIcon::Exclamation);
    }

    std::unique_ptr<SearchDesk> desk;
    QPointer<frmSearchWA> form;
};

void tst_SearchNotStarted::initTestCase()
{
    WireWindows();
}

void tst_SearchNotStarted::init()
{
    desk = std::make_unique<SearchDesk>();
    Global.bLoggedIn = true;
    // With alerts a results window asks before it closes, unless it is set not to.
    Global.bShowAlerts = true;
    Global.WaDisclaimerAccepted = true;
    frmSearchWA::ShowForm();
    form = &frmSearchWA::Form();
    form->findChild<QLineEdit *>(u"txtSearchName_0"_s)->setText(u"Smith"_s);
    click("cmdCheckAll");
    click("cmdSelAll");
}

void tst_SearchNotStarted::cleanup()
{
    const QString boxes = desk->Boxes.Complaints();
    if (frmSearchWA::IsLoaded())
        frmSearchWA::Form().Unload();
    desk.reset();
    QCOMPARE(boxes, QString());
}

void tst_SearchNotStarted::anErrorWhileTheSearchIsBuilt_data()
{
    QTest::addColumn<bool>("keyIsQueued");
    QTest::newRow("while its key is made") << false;
    QTest::newRow("while it is shown, its key queued") << true;
}

void tst_SearchNotStarted::anErrorWhileTheSearchIsBuilt()
{
    QFETCH(bool, keyIsQueued);
    const QString other = u"11111111111111111111"_s;
    frmQueue::Form().FIFO.AddItem(other);
    expectError();
    bool failed = false;
    if (keyIsQueued) {
        const FailingShow show;
        click("cmdBeginSearch");
        failed = !show.failing;
        QCOMPARE(show.keysThen, 2);
    } else {
        const FailingClock clock;
        click("cmdBeginSearch");
        failed = !clock.failing;
    }
    QVERIFY(failed);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{other});
    QTRY_VERIFY(resultsWindows().isEmpty());
    QCOMPARE(desk->Folder.TimesLogged(requestError + u" Error Was: Type mismatch"_s), 1);
    QVERIFY(form->isVisible());
}

void tst_SearchNotStarted::theNextSearchAfterAnErrorStarts()
{
    expectError();
    {
        const FailingShow show;
        click("cmdBeginSearch");
    }
    QTRY_VERIFY(resultsWindows().isEmpty());
    click("cmdBeginSearch");
    QCOMPARE(resultsWindows().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{resultsWindows().first()->txtMasterKey});
}

void tst_SearchNotStarted::declinedLoginDoesNothingLater()
{
    const FakeSocket *socket = desk->ConnectToNothing();
    Global.bLoggedIn = false;
    desk->Boxes.Expect(u"This Search Cannot be Started!\r\n\r\nThis is because you are not "
                       "currently Logged-In to the Halvane Server.\r\n\r\nDo you want to Login "
                       "Now?"_s,
                       u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
                       MsgAnswer::No);
    click("cmdBeginSearch");
    QVERIFY(!frmLogin::IsLoaded());
    // Not even when the user logs in behind it.
    Global.bLoggedIn = true;
    Ticks(50);
    QVERIFY(resultsWindows().isEmpty());
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(socket->sent, QByteArrayList());
    QCOMPARE(desk->Boxes.Answered(), 1);
}

void tst_SearchNotStarted::aMissingCountyListIsReportedOnce()
{
    desk->Folder.Remove(u"wactylst.txt"_s);
    click("optSearchWhere_2");
    desk->Boxes.Expect(u"Error Loading WA Counties From File."_s, u"Halvane"_s, MsgIcon::Critical);
    click("cmdBeginSearch");
    Ticks(20);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(resultsWindows().size(), 1);
    QCOMPARE(resultsWindows().first()->lboxQueue.ListCount(), 0);
}

void tst_SearchNotStarted::enterOnAButtonPressesThatButton_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    for (const char *name :
         {"cmdCheckAll", "cmdUnCheckAll", "cmdSelAll", "cmdClrAll", "cmdClearForm", "cmdCancel"}) {
        QTest::addRow("Return on %s", name) << QString::fromLatin1(name) << int(Qt::Key_Return);
        QTest::addRow("Enter on %s", name) << QString::fromLatin1(name) << int(Qt::Key_Enter);
    }
}

void tst_SearchNotStarted::enterOnAButtonPressesThatButton()
{
    QFETCH(QString, name);
    QFETCH(int, key);
    QStringList pressed;
    const QList<QPushButton *> buttons = form->findChildren<QPushButton *>();
    for (const QPushButton *button : buttons) {
        connect(button, &QPushButton::clicked, this,
                [&pressed, which = button->objectName()] { pressed.append(which); });
    }
    auto *focused = form->findChild<QPushButton *>(name);
    focused->setFocus();
    QTest::keyClick(focused, static_cast<Qt::Key>(key));
    QCOMPARE(pressed, QStringList{name});
    QVERIFY(resultsWindows().isEmpty());
}

HALVANE_TEST(tst_SearchNotStarted)
#include "tst_SearchNotStarted.moc"
