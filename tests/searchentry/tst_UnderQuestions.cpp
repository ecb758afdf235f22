#include "core/GlobalState.h"
#include "core/Options.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/frmSearchWA.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {
const QStringList smith{u"type txtSearchName_0 smith"_s, u"tick lboxCountyOrProfile King"_s,
                        u"tick lboxCaseTypes Civil"_s};
const QString smithLine = u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,¦¦¦"_s;

/// The keyboard's own repetition of a key that is held.
void hold(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    QTest::keyPress(widget, key, modifiers);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent again(QEvent::KeyPress, key, modifiers, text, true);
        QCoreApplication::sendEvent(widget, &again);
    }
    QTest::keyRelease(widget, key, modifiers);
}

/// A job that should not run waits for an answer that never comes: it ends with its link, soon.
void cutLater(FakeSocket *socket)
{
    QTimer::singleShot(20, socket, [socket] {
        if (Global.bSearchInProgress)
            socket->PeerCloses();
    });
}
} // namespace

/// What goes on beside the click on Start Search: under its questions, with the client code, with
/// the list of the session's searches, and with a key that is held.
class tst_UnderQuestions : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void theClientCodeIsChangedByItsButton_data();
    void theClientCodeIsChangedByItsButton();
    void theClientCodeIsSwitchedOffByItsButton();
    void noJobStartsWhileTheClientCodeIsAskedFor_data();
    void noJobStartsWhileTheClientCodeIsAskedFor();
    void theSecondCodeIsTakenAtOnce();

    void aRowIsAddedToTheListOfSearches();
    void aStartedSearchAddsNoRow();
    void afterClearFormTheCourtHasItsOldName();

    void anEntryChangedUnderAQuestionIsNotSent_data();
    void anEntryChangedUnderAQuestionIsNotSent();

    void aHeldKeyStartsOneSearch_data();
    void aHeldKeyStartsOneSearch();

private:
    /// The form comes up with these switches as they are.
    void showAgain()
    {
        frmSearchWA::HideForm();
        frmSearchWA::ShowForm();
    }
};

// ---- the client code ----

void tst_UnderQuestions::theClientCodeIsChangedByItsButton_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("compulsory");
    QTest::newRow("the user wants one") << true << false;
    QTest::newRow("the server wants one") << false << true;
}

void tst_UnderQuestions::theClientCodeIsChangedByItsButton()
{
    QFETCH(bool, enabled);
    QFETCH(bool, compulsory);
    QVERIFY(!desk->Control("cmdEditAcctID")->isEnabled());
    Global.bEnableAcctg = enabled;
    Global.bClientAcctgOpt = compulsory;
    showAgain();
    QVERIFY(desk->Control("cmdEditAcctID")->isEnabled());
    desk->ExpectCode(u"abc"_s);
    desk->Do({u"click cmdEditAcctID"_s});
    QCOMPARE(Global.ClientAcctgCode, u"abc"_s);
    QVERIFY(desk->Control("cmdEditAcctID")->isEnabled());
    QCOMPARE(Keys(), QStringList());
}

void tst_UnderQuestions::theClientCodeIsSwitchedOffByItsButton()
{
    Global.bEnableAcctg = true;
    Global.ClientAcctgCode = u"OLD"_s;
    showAgain();
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        dialog->findChild<QCheckBox *>(u"chkDontShowAgain"_s)->setChecked(true);
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    desk->Do({u"click cmdEditAcctID"_s});
    QVERIFY(!desk->Control("cmdEditAcctID")->isEnabled());
    QVERIFY(!Global.bEnableAcctg);
    QCOMPARE(Global.ClientAcctgCode, QString());
    QCOMPARE(GetOptionStr(u"Accounting"_s, u"EnableAcctg"_s), u"0"_s);
    showAgain();
    QVERIFY(!desk->Control("cmdEditAcctID")->isEnabled());
}

void tst_UnderQuestions::noJobStartsWhileTheClientCodeIsAskedFor_data()
{
    QTest::addColumn<QString>("step");
    QTest::newRow("before a search") << u"click cmdBeginSearch"_s;
    QTest::newRow("by its button") << u"click cmdEditAcctID"_s;
}

void tst_UnderQuestions::noJobStartsWhileTheClientCodeIsAskedFor()
{
    QFETCH(QString, step);
    FakeSocket *socket = desk->Desk.ConnectToNothing();
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    Global.bEnableAcctg = true;
    showAgain();
    desk->Do(smith);
    auto *waiting = desk->Desk.MakePending({RequestLine()});
    bool started = true;
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [&](QDialog *dialog) {
        waiting->Timer1->start(1);
        cutLater(socket);
        Ticks(30);
        started = Global.bSearchInProgress || !socket->sent.isEmpty();
        waiting->Timer1->stop();
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    desk->Do({step});
    QVERIFY(!started);
    QCOMPARE(Keys().value(0), waiting->txtMasterKey);
    QCOMPARE(socket->sent, QByteArrayList());
}

void tst_UnderQuestions::theSecondCodeIsTakenAtOnce()
{
    FakeSocket *socket = desk->Desk.ConnectToNothing();
    Global.bClientAcctgOpt = true;
    desk->Do(smith);
    desk->ExpectCode(u"one"_s);
    auto *first = desk->StartOne<frmNameSearchResults>();
    QVERIFY(first);
    first->Timer1->start(1);
    bool inTime = true;
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [&](QDialog *dialog) {
        dialog->findChild<QComboBox *>(u"cboxClientID"_s)->setEditText(u"two"_s);
        cutLater(socket);
        Ticks(30);
        inTime = socket->sent.isEmpty();
        first->Timer1->stop();
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    const auto *second = desk->StartOne<frmNameSearchResults>();
    QVERIFY(inTime);
    QVERIFY(second);
    QCOMPARE(first->ClientAcctgCode, u"ONE"_s);
    QCOMPARE(second->ClientAcctgCode, u"TWO"_s);
    QCOMPARE(Keys(), (QStringList{first->txtMasterKey, second->txtMasterKey}));
}

// ---- the list of the session's searches ----

void tst_UnderQuestions::aRowIsAddedToTheListOfSearches()
{
    desk->Do(smith);
    desk->Do({u"type txtSearchName_1 john"_s});
    QVERIFY(desk->Form()->SearchList().isEmpty());
    desk->Form()->AddRecordToSearchList();
    desk->Do({u"type txtSearchName_0 jones"_s});
    desk->Form()->AddRecordToSearchList();
    QCOMPARE(desk->Form()->SearchList().size(), 2);
    const SearchLogRow row = desk->Form()->SearchList().first();
    QCOMPARE(row[LogSearchItem], u"smith, john"_s);
    QCOMPARE(row[LogCourt], u"WA Superior Courts - "_s);
    QCOMPARE(row[LogJurisdictions], u"King"_s);
    QCOMPARE(row[LogCaseTypes], u"Civil"_s);
    QCOMPARE(row[LogYears], u"All Avail."_s);
    QCOMPARE(row[LogStatus], u"Pending .."_s);
    QCOMPARE(desk->Form()->SearchList().last()[LogSearchItem], u"jones, john"_s);
}

void tst_UnderQuestions::aStartedSearchAddsNoRow()
{
    desk->Do(smith);
    QVERIFY(desk->StartOne<frmNameSearchResults>());
    QVERIFY(desk->Form()->SearchList().isEmpty());
}

void tst_UnderQuestions::afterClearFormTheCourtHasItsOldName()
{
    desk->Do({u"click optState_0"_s});
    desk->Form()->AddRecordToSearchList();
    desk->Do({u"click cmdClearForm"_s});
    desk->Form()->AddRecordToSearchList();
    QCOMPARE(Global.strSearchState, u"OR"_s);
    QVERIFY(desk->Form()->SearchList().first()[LogCourt] != u"WA Superior Courts - "_s);
    QCOMPARE(desk->Form()->SearchList().last()[LogCourt], u"WA Superior Courts - "_s);
}

// ---- what is sent ----

void tst_UnderQuestions::anEntryChangedUnderAQuestionIsNotSent_data()
{
    QTest::addColumn<bool>("disclaimer");
    QTest::addColumn<QString>("change");
    for (const bool disclaimer : {true, false}) {
        const char *question = disclaimer ? "the disclaimer" : "the client code";
        for (const char *change : {"name", "county", "type", "index", "clear", "court"})
            QTest::addRow("%s under %s", change, question)
                << disclaimer << QString::fromLatin1(change);
    }
}

void tst_UnderQuestions::anEntryChangedUnderAQuestionIsNotSent()
{
    QFETCH(bool, disclaimer);
    QFETCH(QString, change);
    const auto press = [this](const char *name) {
        qobject_cast<QAbstractButton *>(desk->Control(name))->click();
    };
    const auto act = [this, change, press] {
        if (change == u"name")
            qobject_cast<QLineEdit *>(desk->Control("txtSearchName_0"))->setText(u"JONES"_s);
        else if (change == u"county")
            press("cmdCheckAll");
        else if (change == u"type")
            press("optSearchType_1");
        else if (change == u"index")
            press("chkUseIndex");
        else
            press(change == u"clear" ? "cmdClearForm" : "optState_0");
    };
    desk->Do(smith);
    if (disclaimer) {
        Global.bShowAlerts = true;
        desk->Desk.Boxes.Meanwhile(act);
        desk->Desk.Boxes.Expect(washingtonDisclaimer, u"Washington State Courts"_s,
                                MsgIcon::Exclamation, MsgAnswer::Yes);
    } else {
        SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
        desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [act](QDialog *dialog) {
            act();
            QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
        });
    }
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{smithLine});
    QCOMPARE(window->lblState, u"WA"_s);
    QVERIFY(!window->chkIndexSearch);
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "SMITH\r\n");
}

// ---- a key that is held ----

void tst_UnderQuestions::aHeldKeyStartsOneSearch_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    const int none = Qt::NoModifier;
    QTest::newRow("Return in a box") << u"txtSearchName_0"_s << int(Qt::Key_Return) << none;
    QTest::newRow("Enter in a box") << u"txtSearchName_0"_s << int(Qt::Key_Enter) << none;
    QTest::newRow("Return in a list") << u"lboxCaseTypes"_s << int(Qt::Key_Return) << none;
    QTest::newRow("Return on the button") << u"cmdBeginSearch"_s << int(Qt::Key_Return) << none;
    QTest::newRow("Enter on the button") << u"cmdBeginSearch"_s << int(Qt::Key_Enter) << none;
    QTest::newRow("Space on the button") << u"cmdBeginSearch"_s << int(Qt::Key_Space) << none;
    QTest::newRow("Alt+S") << u"txtSearchName_0"_s << int(Qt::Key_S) << int(Qt::AltModifier);
}

void tst_UnderQuestions::aHeldKeyStartsOneSearch()
{
    QFETCH(QString, name);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    desk->Do(smith);
    auto *widget = desk->Form()->findChild<QWidget *>(name);
    widget->setFocus();
    const QString text = key == Qt::Key_S ? u"s"_s : key == Qt::Key_Space ? u" "_s : u"\r"_s;
    const QList<JobWindow *> windows = desk->NewWindows(
        [&] { hold(widget, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers), text); });
    QCOMPARE(windows.size(), 1);
    QCOMPARE(Keys().size(), 1);
    QCOMPARE(desk->Text("txtSearchName_0"), u"SMITH"_s);
}

HALVANE_TEST(tst_UnderQuestions)
#include "tst_UnderQuestions.moc"
