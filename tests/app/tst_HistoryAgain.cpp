// Search Again, in the window of the history.

#include "app/HistoryWindowTest.h"
#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "history/HistoryEvents.h"
#include "namesearch/OpeningUser.h"
#include "records/StartText.h"
#include "searchentry/EntryText.h"
#include "support/HalvaneTest.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>

class tst_HistoryAgain : public HistoryWindowTest
{
    Q_OBJECT
private Q_SLOTS:
    void searchAgainAsksAtOnce_data();
    void searchAgainAsksAtOnce();
    void aDoubleClickOnSearchAgainAsksOnce_data();
    void aDoubleClickOnSearchAgainAsksOnce();
    void aCaseThatIsOpenedAgainDoesNotPrint();
    void aCaseThatIsOpenIsOffered_data();
    void aCaseThatIsOpenIsOffered();
    void whoIsNotLoggedInIsAsked_data();
    void whoIsNotLoggedInIsAsked();
    void whatIsNotOfferedAnyMoreIsSaid();
    void whatNobodyKnowsCannotBeAsked();
};

void tst_HistoryAgain::searchAgainAsksAtOnce_data()
{
    QTest::addColumn<bool>("isCase");
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("a search") << false << false;
    QTest::newRow("a search, by the menu") << false << true;
    QTest::newRow("a case") << true << false;
    QTest::newRow("a case, by the menu") << true << true;
}

void tst_HistoryAgain::searchAgainAsksAtOnce()
{
    QFETCH(bool, isCase);
    QFETCH(bool, byMenu);
    if (isCase)
        askForCase(u"02-1-00123-4"_s);
    else
        askFor(u"SMITH"_s);
    open();
    const SearchEntry before = desk->Form()->Entry();
    const QList<JobWindow *> made = desk->NewWindows([this, byMenu] {
        if (byMenu)
            action(window, "mnuSearchAgain")->trigger();
        else
            Click(window, "cmdAgain");
    });
    QCOMPARE(made.size(), 1);
    QCOMPARE(made[0]->ClientAcctgCode, u"CODE"_s);
    QCOMPARE(Keys(), QStringList{made[0]->txtMasterKey});
    QCOMPARE(qobject_cast<CaseWindow *>(made[0]) != nullptr, isCase);
    QVERIFY(desk->Form()->Entry() == before);
    // It has a line of its own.
    QTRY_COMPARE(table()->model()->rowCount(), 2);
}

void tst_HistoryAgain::aDoubleClickOnSearchAgainAsksOnce_data()
{
    QTest::addColumn<double>("takes");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<bool>("another");
    QTest::addColumn<int>("windows");
    const double interval = QGuiApplication::styleHints()->mouseDoubleClickInterval() / 1000.0;
    QTest::newRow("at once") << 0.0 << 0.0 << false << 1;
    QTest::newRow("within a double click") << 0.0 << interval * 0.9 << false << 1;
    QTest::newRow("a click that waited for the first") << 10.0 << 0.0 << false << 1;
    QTest::newRow("later") << 0.0 << interval * 1.1 << false << 2;
    QTest::newRow("another one") << 0.0 << 0.0 << true << 2;
    // The clock of the machine was set meanwhile.
    QTest::newRow("an hour before") << 0.0 << -3600.0 << false << 2;
}

/// Each would be a search of its own, which the provider bills.
void tst_HistoryAgain::aDoubleClickOnSearchAgainAsksOnce()
{
    QFETCH(const double, takes);
    QFETCH(const double, seconds);
    QFETCH(const bool, another);
    QFETCH(const int, windows);
    askFor(u"SMITH"_s);
    askFor(u"JONES"_s);
    open();
    connect(&HistoryEvents::Of(), &HistoryEvents::AgainWanted, window,
            [&] { desk->Desk.Time.Advance(takes); });
    const QList<JobWindow *> made = desk->NewWindows([&] {
        Click(window, "cmdAgain");
        // The row that was chosen stays chosen below the new one.
        written();
        QTRY_COMPARE(table()->model()->rowCount(), 3);
        if (another)
            table()->selectRow(2);
        desk->Desk.Time.Advance(seconds);
        Click(window, "cmdAgain");
    });
    QCOMPARE(made.size(), windows);
}

void tst_HistoryAgain::aCaseThatIsOpenedAgainDoesNotPrint()
{
    askForCase(u"02-1-00123-4"_s);
    open();
    const QList<JobWindow *> made = desk->NewWindows([this] { Click(window, "cmdAgain"); });
    QVERIFY(!qobject_cast<CaseWindow *>(made.value(0))->chkAutoPrint);
}

void tst_HistoryAgain::aCaseThatIsOpenIsOffered_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("windows");
    QTest::newRow("go to it") << u"Go To It"_s << 0;
    QTest::newRow("open again") << u"Open Again"_s << 1;
    QTest::newRow("cancel") << u"Cancel"_s << 0;
}

void tst_HistoryAgain::aCaseThatIsOpenIsOffered()
{
    QFETCH(QString, answer);
    QFETCH(int, windows);
    askForCase(u"02-1-00123-4"_s);
    open();
    const QList<JobWindow *> made = desk->NewWindows([this] { Click(window, "cmdAgain"); });
    const auto *first = qobject_cast<CaseWindow *>(made.value(0));
    QVERIFY(first);
    desk->Desk.Boxes.ExpectChoice(IsOpenQuestion(first->windowTitle()), isOpenTitle, answer);
    desk->Desk.Time.Advance(2.0);
    QCOMPARE(desk->NewWindows([this] { Click(window, "cmdAgain"); }).size(), windows);
}

void tst_HistoryAgain::whoIsNotLoggedInIsAsked_data()
{
    QTest::addColumn<bool>("isCase");
    QTest::addColumn<QString>("text");
    QTest::newRow("a search") << false << notLoggedIn;
    QTest::newRow("a case") << true
                            << u"This Search Cannot be Started!\r\nThis is because you are not "
                               "currently Logged-In to the Halvane Server.\r\n\r\nDo you want to "
                               "Login Now?"_s;
}

void tst_HistoryAgain::whoIsNotLoggedInIsAsked()
{
    QFETCH(bool, isCase);
    QFETCH(QString, text);
    if (isCase)
        askForCase(u"02-1-00123-4"_s);
    else
        askFor(u"SMITH"_s);
    open();
    Global.bLoggedIn = false;
    desk->Desk.Boxes.Expect(text, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No,
                            MsgButtons::YesNo);
    Click(window, "cmdAgain");
    QCOMPARE(Keys(), QStringList());
}

void tst_HistoryAgain::whatIsNotOfferedAnyMoreIsSaid()
{
    AskedItem item;
    SearchEntry entry = smithInKing(u"SMITH"_s);
    entry.Counties = {u"King"_s, u"Atlantis"_s};
    item.Origin = TextOfEntry(entry);
    store().Begin(item);
    open();
    desk->Desk.Boxes.Expect(
        u"Not all of this search can be put on the form: something that was chosen is not offered "
        "any more. Please look it through before you start it."_s,
        u"History"_s, MsgIcon::Exclamation);
    Click(window, "cmdFill");
    QCOMPARE(desk->Form()->Entry().Counties, QStringList{u"King"_s});
}

void tst_HistoryAgain::whatNobodyKnowsCannotBeAsked()
{
    AskedItem item;
    item.What = u"from a later version"_s;
    item.Origin = R"({"Search":99})";
    store().Begin(item);
    item.What = u"from nowhere"_s;
    item.Origin.clear();
    store().Begin(item);
    open();
    QVERIFY(!ButtonOf(window, "cmdAgain")->isEnabled());
    QVERIFY(!action(window, "mnuSearchAgain")->isEnabled());
    QCOMPARE(TextOf(window, "lblHint"), u"It is not known how this was asked for."_s);
    table()->selectRow(1);
    for (const char *button : {"cmdAgain", "cmdFill"}) {
        desk->Desk.Boxes.Expect(
            u"This cannot be asked for again, because it is not known any more how it was asked "
            "for. Please enter it on the search form."_s,
            u"History"_s, MsgIcon::Exclamation);
        Click(window, button);
    }
}

HALVANE_TEST(tst_HistoryAgain)
#include "tst_HistoryAgain.moc"
