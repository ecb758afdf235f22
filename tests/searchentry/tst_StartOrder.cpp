#include "core/GlobalState.h"
#include "core/Options.h"
#include "courts/Counties.h"
#include "jobs/frmQueue.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/SearchEvents.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
const QStringList king{u"tick lboxCountyOrProfile King"_s, u"tick lboxCaseTypes Civil"_s};
const QStringList smith{u"type txtSearchName_0 smith"_s, u"type txtSearchName_1 john"_s,
                        u"type txtSearchName_2 q"_s, u"type txtSearchName_3 Jr."_s};
const QStringList oregon =
    QStringList{u"click optState_0"_s, u"type txtSearchName_0 smith"_s,
                u"tick lboxCountyOrProfile Lane"_s, u"tick lboxCaseTypes Civil"_s};
const QStringList idaho =
    QStringList{u"click optState_3"_s, u"type txtSearchName_0 smith"_s,
                u"tick lboxCountyOrProfile Ada"_s, u"tick lboxCaseTypes Civil"_s};
const QStringList federal =
    QStringList{u"click optState_2"_s, u"type txtSearchName_0 smith"_s, u"click chkBKcourt_0"_s};
const QString washingtonTitle = u"Washington State Courts"_s;
const QString oregonTitle = u"Oregon State Courts"_s;
} // namespace

/// What stands between a click on Start Search and the window: in which order it is asked, and that
/// whatever stops leaves the form as it was and starts nothing.
class tst_StartOrder : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void refusal_data();
    void refusal();
    void entriesAreFoldedBeforeTheyAreChecked();
    void aRefusalGoesBeforeTheDisclaimer();
    void disclaimerGoesBeforeTheLoginQuestion();
    void theLoginQuestionGoesBeforeTheClientCode();

    void disclaimerIsAskedOnceInASession();
    void eachStateHasItsOwnDisclaimer();
    void thereIsNoDisclaimer_data();
    void thereIsNoDisclaimer();
    void declinedDisclaimerEndsTheClickAndAsksAgain();
    void withoutAlertsThereIsNoDisclaimer();
    void aFormCancelledUnderTheDisclaimerStartsNothing();

    void notLoggedInDeclined();
    void notLoggedInShowsTheLogin();

    void theClientCodeIsAskedFor_data();
    void theClientCodeIsAskedFor();
    void theFoldedCodeGoesWithTheWindow();
    void cancelledClientCodeSearchesWithTheCodeInForce();
    void aCompulsoryCodeCannotBeCancelled();
    void theClientCodeTurnedOffSearchesWithoutOne();
    void aFormThatGoesUnderTheClientCodeStartsNothing();
    void aSessionThatEndsUnderTheClientCodeIsReported_data();
    void aSessionThatEndsUnderTheClientCodeIsReported();
    void aCodeOfASessionThatHasEndedIsNotInForce();

    void aCharacterThatCannotBeSentIsReported_data();
    void aCharacterThatCannotBeSentIsReported();
    void aFormThatGoesUnderTheLostCharactersStartsNothing();

    void twoSearchesStandInTheQueue();
    void nothingIsSentByTheForm();
    void stopRequestsOfTheSessionAreForgotten();
    void theFormStaysAsItWas();
    void statewideWalksTheListFile();

private:
    /// The click stops: no window, no key, and the form as it was.
    void startsNothing(const QStringList &names);
    bool starts() { return desk->StartOne<frmNameSearchResults>() != nullptr; }
};

void tst_StartOrder::startsNothing(const QStringList &names)
{
    const auto *combo = qobject_cast<const QComboBox *>(desk->Control("cboxLastBizOrCase"));
    const int entries = combo->count();
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Text("txtSearchName_0"), names.value(0));
    QCOMPARE(desk->Text("txtSearchName_1"), names.value(1));
    QCOMPARE(desk->Text("txtSearchName_2"), names.value(2));
    QCOMPARE(desk->Text("txtSearchName_3"), names.value(3));
    QVERIFY(desk->Control("cmdBeginSearch")->isEnabled());
    QCOMPARE(combo->count(), entries);
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), QByteArray());
}

void tst_StartOrder::refusal_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("expected");
    const QStringList business{u"click optSearchType_1"_s};
    const QStringList name{u"type txtSearchName_0 smith"_s};
    const QString required = u"This is a required field and Has a Minimum Length of 1 Character."_s;
    const QStringList noLast{u"The LAST NAME Field Is Empty!"_s, required,
                             u"Please enter a Last Name or Select Cancel to Continue."_s};
    const QStringList noCounty{
        u"You Have Not Selected a County!"_s,
        u"At least one selection is required when searching County Jurisdictions."_s,
        u"Please Select a County(s) or Change Jurisidiction to Continue."_s};
    QTest::newRow("no last name") << king << noLast;
    QTest::newRow("only blanks as last name")
        << QStringList{u"type txtSearchName_0    "_s} + king << noLast;
    QTest::newRow("no business name")
        << business + king
        << QStringList{u"The BUSINESS NAME Field Is Empty!"_s, required,
                       u"Please enter a Business Name or Select Cancel to Continue."_s};
    QTest::newRow("middle initial without first name")
        << name + QStringList{u"type txtSearchName_2 q"_s} + king
        << QStringList{u"The FIRST NAME Field Is Empty!"_s,
                       u"This is a required field when a MIDDLE INITIAL is entered."_s,
                       u"Please enter a First Name or Remove the Middle Initial to Continue."_s};
    QTest::newRow("suffix without first name")
        << name + QStringList{u"type txtSearchName_3 Jr."_s} + king
        << QStringList{u"The FIRST NAME Field Is Empty!"_s,
                       u"This is a required field when a SUFFIX is entered."_s,
                       u"Please enter a First Name or Remove the Suffix to Continue."_s};
    QTest::newRow("no county") << name + QStringList{u"tick lboxCaseTypes Civil"_s} << noCounty;
    QTest::newRow("no case type")
        << name + QStringList{u"tick lboxCountyOrProfile King"_s}
        << QStringList{u"You Have Not Selected a Case Type!"_s,
                       u"At least one Case Type Must be Selected"_s,
                       u"Please Select a Case Type(s) to Continue with this Search."_s};
    QTest::newRow("the first failure only") << QStringList{} << noLast;
    QTest::newRow("no county for a business")
        << business + QStringList{u"type txtSearchName_0 acme"_s} << noCounty;
}

void tst_StartOrder::refusal()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, expected);
    desk->Do(steps);
    QStringList raised;
    connect(&SearchEvents::Of(), &SearchEvents::FieldErrorRaised, desk->Form(),
            [&raised](const QString &what, const QString &why, const QString &action) {
                raised = QStringList{what, why, action};
            });
    QStringList shown;
    desk->ExpectRefusal(&shown);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(raised, expected);
    QCOMPARE(shown, expected);
    QCOMPARE(Keys(), QStringList());
    QVERIFY(desk->Form()->isVisible());
}

void tst_StartOrder::entriesAreFoldedBeforeTheyAreChecked()
{
    desk->Do({u"type txtSearchName_0  smith "_s, u"type txtSearchName_1   "_s,
              u"type txtSearchName_2 q "_s, u"type txtSearchName_3  jr "_s});
    desk->ExpectRefusal();
    startsNothing({u"SMITH"_s, {}, u"Q"_s, u" jr "_s});
}

void tst_StartOrder::aRefusalGoesBeforeTheDisclaimer()
{
    Global.bShowAlerts = true;
    desk->ExpectRefusal();
    startsNothing({});
    QVERIFY(!Global.WaDisclaimerAccepted);
}

void tst_StartOrder::disclaimerGoesBeforeTheLoginQuestion()
{
    Global.bLoggedIn = false;
    Global.bShowAlerts = true;
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::Yes);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
}

void tst_StartOrder::theLoginQuestionGoesBeforeTheClientCode()
{
    Global.bLoggedIn = false;
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
}

void tst_StartOrder::disclaimerIsAskedOnceInASession()
{
    Global.bShowAlerts = true;
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::Yes);
    QVERIFY(starts());
    QVERIFY(Global.WaDisclaimerAccepted);
    QVERIFY(!Global.OrDisclaimerAccepted);
    QVERIFY(starts());
    QCOMPARE(desk->Desk.Boxes.Answered(), 1);
}

void tst_StartOrder::eachStateHasItsOwnDisclaimer()
{
    Global.bShowAlerts = true;
    desk->Do(oregon);
    desk->Desk.Boxes.Expect(oregonDisclaimer, oregonTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    QVERIFY(starts());
    QVERIFY(Global.OrDisclaimerAccepted);
    QVERIFY(!Global.WaDisclaimerAccepted);
    desk->Do({u"click optState_1"_s});
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::Yes);
    QVERIFY(starts());
    QCOMPARE(desk->Desk.Boxes.Answered(), 2);
}

void tst_StartOrder::thereIsNoDisclaimer_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::newRow("for a single search in Idaho") << idaho;
    QTest::newRow("for the U.S. Courts") << federal;
}

void tst_StartOrder::thereIsNoDisclaimer()
{
    QFETCH(QStringList, steps);
    Global.bShowAlerts = true;
    desk->Do(steps);
    QVERIFY(starts());
    QVERIFY(!Global.IdDisclaimerAccepted);
    QVERIFY(!Global.WaDisclaimerAccepted);
}

void tst_StartOrder::declinedDisclaimerEndsTheClickAndAsksAgain()
{
    Global.bShowAlerts = true;
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::No);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
    QVERIFY(!Global.WaDisclaimerAccepted);
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::Yes);
    QVERIFY(starts());
}

void tst_StartOrder::withoutAlertsThereIsNoDisclaimer()
{
    desk->Do(smith + king);
    Global.bShowAlerts = false;
    QVERIFY(starts());
    QVERIFY(Global.WaDisclaimerAccepted);
    QVERIFY(Global.OrDisclaimerAccepted);
    QVERIFY(!Global.IdDisclaimerAccepted);
}

void tst_StartOrder::aFormCancelledUnderTheDisclaimerStartsNothing()
{
    Global.bShowAlerts = true;
    desk->Do(smith + king);
    desk->Desk.Boxes.Meanwhile([this] { desk->Form()->Unload(); });
    desk->Desk.Boxes.Expect(washingtonDisclaimer, washingtonTitle, MsgIcon::Exclamation,
                            MsgAnswer::Yes);
    QVERIFY(desk->Start().isEmpty());
    QTRY_VERIFY(!desk->Form());
    QCOMPARE(Keys(), QStringList());
}

void tst_StartOrder::notLoggedInDeclined()
{
    Global.bLoggedIn = false;
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
    QVERIFY(desk->Form()->isVisible());
    QVERIFY(!frmLogin::IsLoaded());
}

void tst_StartOrder::notLoggedInShowsTheLogin()
{
    FakeSocket::Install();
    Global.bLoggedIn = false;
    desk->Do(smith + king);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
    QVERIFY(frmLogin::IsLoaded());
    QVERIFY(!desk->Form()->isVisible());
}

void tst_StartOrder::theClientCodeIsAskedFor_data()
{
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<bool>("compulsory");
    QTest::addColumn<bool>("asked");
    QTest::newRow("nobody wants one") << u"0"_s << false << false;
    QTest::newRow("any other text is no") << u"yes"_s << false << false;
    QTest::newRow("the user wants one") << u"1"_s << false << true;
    QTest::newRow("the server wants one") << u"0"_s << true << true;
    QTest::newRow("both want one") << u"1"_s << true << true;
}

void tst_StartOrder::theClientCodeIsAskedFor()
{
    QFETCH(QString, enabled);
    QFETCH(bool, compulsory);
    QFETCH(bool, asked);
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, enabled);
    Global.bClientAcctgOpt = compulsory;
    Global.ClientAcctgCode = u"OLD"_s;
    desk->Do(smith + king);
    if (asked)
        desk->ExpectCode(u"new"_s);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, asked ? u"NEW"_s : QString());
}

void tst_StartOrder::theFoldedCodeGoesWithTheWindow()
{
    Global.bClientAcctgOpt = true;
    desk->Do(smith + king);
    desk->ExpectCode(u"  smith & co "_s);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, u"SMITH & CO"_s);
    QCOMPARE(desk->Desk.Folder.Read(u"MruAcctg.txt"_s), "smith & co\r\n");
}

void tst_StartOrder::cancelledClientCodeSearchesWithTheCodeInForce()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    Global.ClientAcctgCode = u"old"_s;
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        dialog->findChild<QComboBox *>(u"cboxClientID"_s)->setEditText(u"new"_s);
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
    });
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, u"OLD"_s);
}

void tst_StartOrder::aCompulsoryCodeCannotBeCancelled()
{
    Global.bClientAcctgOpt = true;
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [this](QDialog *dialog) {
        // The box about it comes up inside this click.
        desk->Desk.Boxes.Expect(u"You are required to enter a client accounting code. This code "
                                "appears on the invoice each month."_s,
                                u"Halvane - Required Field is Empty"_s, MsgIcon::Exclamation);
        desk->ExpectCode(u"abc"_s);
        QMetaObject::invokeMethod(ButtonOf(dialog, "cmdCancel"), "click", Qt::QueuedConnection);
    });
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, u"ABC"_s);
}

void tst_StartOrder::theClientCodeTurnedOffSearchesWithoutOne()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    Global.ClientAcctgCode = u"OLD"_s;
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        dialog->findChild<QCheckBox *>(u"chkDontShowAgain"_s)->setChecked(true);
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, QString());
    QVERIFY(!desk->Control("cmdEditAcctID")->isEnabled());
    // And it is not asked for again.
    QVERIFY(starts());
}

void tst_StartOrder::aFormThatGoesUnderTheClientCodeStartsNothing()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [this](QDialog *dialog) {
        desk->Form()->Unload();
        dialog->reject();
    });
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

void tst_StartOrder::aSessionThatEndsUnderTheClientCodeIsReported_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::newRow("no") << MsgAnswer::No;
    QTest::newRow("log in again") << MsgAnswer::Yes;
}

void tst_StartOrder::aSessionThatEndsUnderTheClientCodeIsReported()
{
    QFETCH(MsgAnswer, answer);
    FakeSocket::Install();
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        Global.bLoggedIn = false;
        dialog->reject();
    });
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, answer);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
    QCOMPARE(frmLogin::IsLoaded(), answer == MsgAnswer::Yes);
}

void tst_StartOrder::aCodeOfASessionThatHasEndedIsNotInForce()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(smith + king);
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        // A logout takes the code of its session along.
        Global.bLoggedIn = false;
        Global.ClientAcctgCode.clear();
        dialog->findChild<QComboBox *>(u"cboxClientID"_s)->setEditText(u"abc"_s);
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    startsNothing({u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"Jr."_s});
    QCOMPARE(Global.ClientAcctgCode, QString());
    // It is offered the next time.
    QCOMPARE(desk->Desk.Folder.Read(u"MruAcctg.txt"_s), "abc\r\n");
}

void tst_StartOrder::aCharacterThatCannotBeSentIsReported_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    const QString one =
        u"The character \"%1\" cannot be sent. A question mark goes in its place."_s;
    const QStringList number{u"click optSearchType_2"_s, u"tick lboxMultiJurisdiction King"_s};
    QTest::newRow("last name") << smith + king << u"txtSearchName_0"_s << u"\u0141ukasz"_s
                               << one.arg(u"\u0141"_s);
    QTest::newRow("first name") << smith + king << u"txtSearchName_1"_s << u"\u0160te\u0159"_s
                                << one.arg(u"\u0159"_s);
    QTest::newRow("initial") << smith + king << u"txtSearchName_2"_s << u"\u0416"_s
                             << one.arg(u"\u0416"_s);
    QTest::newRow("several, each once")
        << smith + king << u"txtSearchName_0"_s << u"\u4E2D\u0141\u4E2D\U0001F600"_s
        << u"The characters \"\u4E2D\", \"\u0141\", \"\U0001F600\" cannot be sent. Question "
           "marks go in their place."_s;
    QTest::newRow("a suffix, which is not sent")
        << smith + king << u"txtSearchName_3"_s << u"\u0141"_s << QString();
    QTest::newRow("an accent by itself")
        << smith + king << u"txtSearchName_0"_s << u"Jose\u0301"_s << QString();
    QTest::newRow("business") << QStringList{u"click optSearchType_1"_s} + king
                              << u"txtSearchName_0"_s << u"\u017B"_s << one.arg(u"\u017B"_s);
    QTest::newRow("bankruptcy") << federal << u"txtSearchName_0"_s << u"\u0141"_s
                                << one.arg(u"\u0141"_s);
    QTest::newRow("Idaho") << idaho << u"txtSearchName_0"_s << u"\u0141"_s << one.arg(u"\u0141"_s);
}

void tst_StartOrder::aCharacterThatCannotBeSentIsReported()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    desk->Do(steps);
    auto *field = desk->Form()->findChild<QLineEdit *>(box);
    field->setText(typed);
    const QString text =
        expected
        + u"\r\n\r\nTo search all the same click OK. To change what you entered click Cancel."_s;
    const auto expect = [&](MsgAnswer answer) {
        desk->Desk.Boxes.Expect(text, u"Halvane Form Field Validation"_s, MsgIcon::Exclamation,
                                answer, MsgButtons::OkCancel);
    };
    if (!expected.isEmpty()) {
        desk->Control("cmdBeginSearch")->setFocus();
        expect(MsgAnswer::Cancel);
        QVERIFY(desk->Start().isEmpty());
        QCOMPARE(desk->Form()->focusWidget(), field);
        QCOMPARE(field->selectedText(), field->text());
        expect(MsgAnswer::Ok);
    }
    const QList<JobWindow *> windows = desk->Start();
    QCOMPARE(windows.size(), 1);
    // "Jose" and an accent are "Jos\u00E9" in the request.
    if (typed.startsWith(u"Jose"))
        QVERIFY(qobject_cast<NameResultsWindow *>(windows[0])
                    ->lboxQueue.List(0)
                    .contains(u"JOS\u00C9"));
}

void tst_StartOrder::aFormThatGoesUnderTheLostCharactersStartsNothing()
{
    Global.bShowAlerts = true;
    desk->Do(smith + king);
    desk->Form()->findChild<QLineEdit *>(u"txtSearchName_0"_s)->setText(u"\u0141"_s);
    desk->Desk.Boxes.Meanwhile([this] { desk->Form()->Unload(); });
    desk->Desk.Boxes.Expect(
        u"The character \"\u0141\" cannot be sent. A question mark goes in its place.\r\n\r\nTo "
        "search all the same click OK. To change what you entered click Cancel."_s,
        u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
        MsgButtons::OkCancel);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

void tst_StartOrder::twoSearchesStandInTheQueue()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    desk->Do(smith + king);
    const auto *first = desk->StartOne<frmNameSearchResults>();
    const auto *second = desk->StartOne<frmNameSearchResults>();
    QVERIFY(first && second);
    QCOMPARE(Keys(),
             (QStringList{u"11111111111111111111"_s, first->txtMasterKey, second->txtMasterKey}));
}

void tst_StartOrder::nothingIsSentByTheForm()
{
    const FakeSocket *socket = desk->Desk.ConnectToNothing();
    desk->Do(smith + king);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    window->Timer1->stop();
    Ticks(20);
    QCOMPARE(socket->sent, QByteArrayList());
}

void tst_StartOrder::stopRequestsOfTheSessionAreForgotten()
{
    Global.bStopRequested = true;
    desk->Do(smith + king);
    QVERIFY(starts());
    QVERIFY(!Global.bStopRequested);
}

void tst_StartOrder::theFormStaysAsItWas()
{
    desk->Do(smith + king);
    QVERIFY(starts());
    QVERIFY(desk->Form()->isVisible());
    QCOMPARE(desk->Text("txtSearchName_0"), u"SMITH"_s);
    QCOMPARE(desk->Text("txtSearchName_3"), u"Jr."_s);
    QCOMPARE(desk->Form()->Entry().Counties, QStringList{u"King"_s});
    QCOMPARE(desk->Form()->Entry().CaseTypes, QStringList{u"Civil"_s});
    QVERIFY(desk->Control("cmdBeginSearch")->isEnabled());
}

void tst_StartOrder::statewideWalksTheListFile()
{
    desk->Desk.Folder.Write(u"wactylst.txt"_s, "King\r\nPierce\r\n");
    desk->Do({u"type txtSearchName_0 smith"_s, u"click optSearchWhere_2"_s,
              u"tick lboxCaseTypes Civil"_s});
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(window->lboxQueue.Lines(),
             (QStringList{u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,¦¦¦"_s,
                          u"WASUP¦SEARCH¦SMITH¦¦¦¦Pierce,¦Civil,¦¦¦"_s}));
}

HALVANE_TEST(tst_StartOrder)
#include "tst_StartOrder.moc"
