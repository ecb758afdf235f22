#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace {
const QString none = u"---- NO SELECTION ----"_s;
const QStringList batch{u"click optSearchType_2"_s, u"click chkBulkSearch"_s};
const QStringList oregon{u"click optState_0"_s};
const QStringList district{u"click optState_0"_s, u"click optOrCDcourts_1"_s};
const QStringList idaho{u"click optState_3"_s};

QStringList row(int index, const QString &number, const QString &county)
{
    const QString suffix = u'_' + QString::number(index) + u' ';
    return {u"type Text1"_s + suffix + number, u"choose cbCty1"_s + suffix + county};
}

/// What the case window of a row is handed.
QStringList details(const QString &state, const QString &number, const QString &county,
                    const QString &courts, const QStringList &further)
{
    return QStringList{
               u"frmCaseDetails"_s,          u"caption Case Details ("_s + number + u')',
               u"lblState "_s + state,       u"lblCaseDetailsHdr Case Details ("_s + number + u')',
               u"txtCountyName "_s + county, u"lblCourtName "_s + county + u" County, "_s + courts}
           + further;
}

const QString washington = u"Washington Superior Courts"_s;

QStringList superior(const QString &number, const QString &county, bool autoPrint)
{
    QStringList further{u"txtCaseNumber "_s + number};
    if (autoPrint)
        further.append(u"chkAutoPrint"_s);
    further.append(u"tboxCaseNumberQueue WASUP¦SUMMARY¦"_s + number + u'¦');
    return details(u"WA"_s, number, county, washington, further);
}
} // namespace

/// Up to ten numbers at once: the rows, the five buttons, and the windows that they make.
class tst_Batch : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void theBatchTakesThePlaceOfTheSingleNumber();
    void tenFilledRowsYieldTenWindowsAndTenKeys();
    void emptyRowsInTheMiddleArePassedOver();
    void theButtonSaysWhetherToPrint_data();
    void theButtonSaysWhetherToPrint();
    void aRowIsHanded_data();
    void aRowIsHanded();
    void sameCountiesLeavesTheNumbers();
    void resetClearsTheRows();
    void theDefaultCountyIsSavedAndUsed_data();
    void theDefaultCountyIsSavedAndUsed();
    void theDefaultCountyMustBeOne();
    void aRowWithoutACountyStopsTheWholeBatch();
    void fieldNumbersCountTheRowsAsTheyStand_data();
    void fieldNumbersCountTheRowsAsTheyStand();
    void aNumberOfAnotherFormIsAskedFor();
    void numbersStandInTheCourtsFormAfterTheCheck();
    void oregonWarnsOfCountiesWithoutDistrictCourt_data();
    void oregonWarnsOfCountiesWithoutDistrictCourt();
    void beginSearchOnlyMovesTheFocusTwoControlsOn();
    void enterGoesToTheNextNumber();
    void nothingIsRememberedOfABatch();
    void theDisclaimerOfEveryStateIsAsked_data();
    void theDisclaimerOfEveryStateIsAsked();
    void aDeclinedDisclaimerStopsTheBatch();
    void withoutAlertsAllDisclaimersAreAccepted();
    void theLoginQuestionComesBeforeTheDisclaimer();
    void theCodeIsAskedForOnce();
    void aCharacterThatCannotBeSentIsReported();
    void aSessionThatEndsUnderTheClientCodeIsReported();
    void aSessionThatEndsUnderTheDisclaimerIsReported();
    void aCompulsoryCodeIsNotAskedFor();
    void anEmptyBatchStartsNothing();

private:
    QList<JobWindow *> run(const QString &button = u"cmdBatchSearch_4"_s)
    {
        return desk->NewWindows([&] { desk->Do({u"click "_s + button}); });
    }
    QStringList texts(const QString &array) const
    {
        QStringList all;
        for (int i = 0; i < 10; ++i) {
            const QByteArray name = (array + u'_' + QString::number(i)).toLatin1();
            const auto *box = qobject_cast<const QComboBox *>(desk->Control(name.constData()));
            all.append(box ? box->currentText() : desk->Text(name.constData()));
        }
        return all;
    }
};

void tst_Batch::theBatchTakesThePlaceOfTheSingleNumber()
{
    desk->Do(batch);
    QVERIFY(desk->Control("frameBulkSearch")->isVisible());
    QVERIFY(!desk->Control("Frame2")->isVisible());
    QVERIFY(!desk->Control("Frame11")->isVisible());
    QCOMPARE(desk->Form()->focusWidget()->objectName(), u"Text1_0"_s);
    QCOMPARE(texts(u"cbCty1"_s), QStringList(10, u"King"_s));
}

void tst_Batch::tenFilledRowsYieldTenWindowsAndTenKeys()
{
    desk->Do(batch);
    QStringList keys;
    for (int i = 0; i < 10; ++i)
        desk->Do(row(i, u"052020291"_s, u"King"_s));
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 10);
    for (const JobWindow *window : windows) {
        QCOMPARE(Handed(window), superior(u"05-2-02029-1"_s, u"King"_s, false));
        QVERIFY(window->isVisible());
        QVERIFY(window->Timer1->isActive());
        keys.append(window->txtMasterKey);
    }
    QCOMPARE(Keys(), keys);
    keys.removeDuplicates();
    QCOMPARE(keys.size(), 10);
}

void tst_Batch::emptyRowsInTheMiddleArePassedOver()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(4, u"052020298"_s, u"Adams"_s)
             + row(5, u"   "_s, none) + row(9, u"05-2-02029-1"_s, u"King"_s));
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 3);
    QCOMPARE(Handed(windows[0]), superior(u"05-2-02029-1"_s, u"King"_s, false));
    QCOMPARE(Handed(windows[1]), superior(u"05-2-02029-8"_s, u"Adams"_s, false));
    QCOMPARE(Handed(windows[2]), superior(u"05-2-02029-1"_s, u"King"_s, false));
    QCOMPARE(Keys().size(), 3);
}

void tst_Batch::theButtonSaysWhetherToPrint_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("prints");
    QTest::newRow("Retrieve and Print All") << u"cmdBatchSearch_0"_s << true;
    QTest::newRow("Retrieve (selective print)") << u"cmdBatchSearch_4"_s << false;
}

void tst_Batch::theButtonSaysWhetherToPrint()
{
    QFETCH(QString, button);
    QFETCH(bool, prints);
    QCOMPARE(desk->Text(button.toLatin1().constData()),
             QString::fromLatin1(QTest::currentDataTag()));
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(1, u"052020298"_s, u"Adams"_s));
    const QList<JobWindow *> windows = run(button);
    QCOMPARE(windows.size(), 2);
    QCOMPARE(Handed(windows[0]), superior(u"05-2-02029-1"_s, u"King"_s, prints));
    QCOMPARE(Handed(windows[1]), superior(u"05-2-02029-8"_s, u"Adams"_s, prints));
}

void tst_Batch::aRowIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("handed");
    QTest::newRow("Washington") << batch + row(2, u"052020291"_s, u"King"_s)
                                << superior(u"05-2-02029-1"_s, u"King"_s, false);
    QTest::newRow("Oregon Circuit")
        << oregon + batch + row(2, u"cv08060677"_s, u"Baker"_s)
        << details(u"OR"_s, u"CV08060677"_s, u"Baker"_s, u"Oregon Circuit Courts"_s,
                   {u"lblOrCourtType C"_s, u"txtCaseNumber CV08060677"_s});
    QTest::newRow("Oregon District")
        << district + batch + QStringList{u"choose cbCty1_0 Lane"_s, u"click cmdBatchSearch_1"_s}
               + row(2, u"cv08060677"_s, u"Lane"_s)
        << details(u"OR"_s, u"CV08060677"_s, u"Lane"_s, u"Oregon District Courts"_s,
                   {u"lblOrCourtType D"_s, u"txtCaseNumber CV08060677"_s});
    QTest::newRow("Idaho") << idaho + batch + row(2, u"cr-1998-0002546-in"_s, u"Ada"_s)
                           << details(u"ID"_s, u"CR-1998-0002546-IN"_s, u"Ada"_s,
                                      u"Idaho District Courts"_s,
                                      {u"txtCaseNumber CR-1998-0002546-IN"_s});
}

void tst_Batch::aRowIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 1);
    QCOMPARE(Handed(windows[0]), handed);
    QCOMPARE(Keys(), QStringList{windows[0]->txtMasterKey});
}

void tst_Batch::sameCountiesLeavesTheNumbers()
{
    desk->Do(batch + row(0, u"1"_s, u"Yakima"_s) + row(3, u"2"_s, u"Adams"_s)
             + QStringList{u"click cmdBatchSearch_1"_s});
    QCOMPARE(texts(u"cbCty1"_s), QStringList(10, u"Yakima"_s));
    QCOMPARE(texts(u"Text1"_s), (QStringList{u"1"_s, {}, {}, u"2"_s, {}, {}, {}, {}, {}, {}}));
}

void tst_Batch::resetClearsTheRows()
{
    desk->Do(batch + row(0, u"1"_s, u"Yakima"_s) + row(9, u"2"_s, none)
             + QStringList{u"click cmdBatchSearch_2"_s});
    QCOMPARE(texts(u"cbCty1"_s), QStringList(10, u"King"_s));
    QCOMPARE(texts(u"Text1"_s), QStringList(10, QString()));
}

void tst_Batch::theDefaultCountyIsSavedAndUsed_data()
{
    QTest::addColumn<QStringList>("state");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("county");
    QTest::newRow("Washington") << QStringList{} << u"DefaultWaCounty"_s << u"Pierce"_s;
    QTest::newRow("Oregon") << oregon << u"DefaultOrCounty"_s << u"Lane"_s;
    QTest::newRow("Idaho") << idaho << u"DefaultIdCounty"_s << u"Bear Lake"_s;
}

void tst_Batch::theDefaultCountyIsSavedAndUsed()
{
    QFETCH(QStringList, state);
    QFETCH(QString, key);
    QFETCH(QString, county);
    desk->Do(state + batch
             + QStringList{u"choose cbCty1_0 "_s + county, u"click cmdBatchSearch_3"_s});
    QCOMPARE(GetOptionStr(u"Searching"_s, key), county);
    QVERIFY(desk->Desk.Folder.Read(u"options.ini"_s)
                .toLower()
                .contains((key + u'=' + county).toLower().toLatin1()));
    desk->Do({u"click cmdBatchSearch_2"_s});
    QCOMPARE(texts(u"cbCty1"_s), QStringList(10, county));
    // The other states have their own.
    const QHash<QString, QString> defaults{{u"DefaultWaCounty"_s, u"King"_s},
                                           {u"DefaultOrCounty"_s, u"Multnomah"_s},
                                           {u"DefaultIdCounty"_s, u"Ada"_s}};
    for (auto other = defaults.begin(); other != defaults.end(); ++other)
        QCOMPARE(GetOptionStr(u"Searching"_s, other.key()),
                 other.key() == key ? county : other.value());
}

void tst_Batch::theDefaultCountyMustBeOne()
{
    desk->Do(batch + QStringList{u"choose cbCty1_0 "_s + none});
    desk->Desk.Boxes.Expect(u"You must select a valid county!"_s, u"Invalid County Selected .."_s,
                            MsgIcon::Critical);
    desk->Do({u"click cmdBatchSearch_3"_s});
    QCOMPARE(GetOptionStr(u"Searching"_s, u"DefaultWaCounty"_s), u"King"_s);
    QCOMPARE(Global.strDefaultWaCounty, u"King"_s);
}

void tst_Batch::aRowWithoutACountyStopsTheWholeBatch()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(1, u"052020291"_s, none));
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(run().isEmpty());
    QCOMPARE(said, (QStringList{u"Invalid County Selection for field 2."_s,
                                u"You must select a valid County for each number entered."_s,
                                u"Remove the number entered or select a county for that "
                                "number."_s}));
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(texts(u"Text1"_s).at(1), u"052020291"_s);
}

void tst_Batch::fieldNumbersCountTheRowsAsTheyStand_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no county") << idaho + batch + row(6, u"1"_s, none)
                               << u"Invalid County Selection for field 7."_s;
    QTest::newRow("a restricted case type")
        << batch + row(6, u"055020290"_s, u"King"_s)
        << u"The Case Type Entered (5) in FIELD 7 is Restricted and Cannot be Retrieved From This "
           "Court."_s;
    QTest::newRow("another county's number")
        << batch + row(6, u"052020291"_s, u"Adams"_s)
        << u"The case/judgment number in FIELD 7 is invalid for the county chosen."_s;
}

void tst_Batch::fieldNumbersCountTheRowsAsTheyStand()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, expected);
    desk->Do(steps);
    QStringList lines;
    desk->ExpectRefusal(&lines);
    QVERIFY(run().isEmpty());
    QCOMPARE(lines.value(0), expected);
}

void tst_Batch::aNumberOfAnotherFormIsAskedFor()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(8, u"a-17"_s, u"King"_s));
    const QString question = u"The case/judgment number in FIELD 9 appears to be a non-SCOMIS "
                             u"number.\r\n\r\nTo continue "
                             "the search using this number click OK."_s;
    desk->Desk.Boxes.Expect(question, u"Halvane"_s, MsgIcon::Exclamation, MsgAnswer::Cancel,
                            MsgButtons::OkCancel);
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(run().isEmpty());
    QCOMPARE(said.value(0), u"The number in FIELD 9 appears to be a non-SCOMIS number."_s);
    desk->Desk.Boxes.Expect(question, u"Halvane"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
                            MsgButtons::OkCancel);
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 2);
    QCOMPARE(Handed(windows[1]), superior(u"A-17"_s, u"King"_s, false));
}

void tst_Batch::numbersStandInTheCourtsFormAfterTheCheck()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(2, u"05-202029 1"_s, none));
    desk->ExpectRefusal();
    QVERIFY(run().isEmpty());
    desk->Do({u"click cmdBatchSearch_2"_s});
    desk->Do(row(0, u"052020291"_s, u"King"_s));
    QCOMPARE(run().size(), 1);
    QCOMPARE(texts(u"Text1"_s).first(), u"05-2-02029-1"_s);
}

void tst_Batch::oregonWarnsOfCountiesWithoutDistrictCourt_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("windows");
    QTest::newRow("Yes goes on, with that county too") << int(MsgAnswer::Yes) << 1;
    QTest::newRow("No stops") << int(MsgAnswer::No) << 0;
}

void tst_Batch::oregonWarnsOfCountiesWithoutDistrictCourt()
{
    QFETCH(int, answer);
    QFETCH(int, windows);
    desk->Do(district + batch + row(0, u"CV1"_s, u"Baker"_s));
    desk->Desk.Boxes.Expect(
        u"One or more of the Counties you selected does not support District Court searches. The "
        "following counties Do NOT have District Court support.\r\n\r\nBaker, Gilliam, Grant, "
        "Harney, Sherman, and Wheeler.\r\n\r\nSelect Yes to continue with the currrent search "
        "criteria (skipping counties without District Court).  Select No to refine the search "
        "criteria entered.\r\n\r\nContinue?"_s,
        u"Warning - No District Court Support .."_s, MsgIcon::Exclamation,
        static_cast<MsgAnswer>(answer));
    QCOMPARE(run().size(), windows);
}

void tst_Batch::beginSearchOnlyMovesTheFocusTwoControlsOn()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    // From the button that was clicked.
    QCOMPARE(desk->Form()->focusWidget()->objectName(), u"cmdCancel"_s);
    QCOMPARE(texts(u"Text1"_s).first(), u"052020291"_s);
}

void tst_Batch::enterGoesToTheNextNumber()
{
    // In the main window, whose tool bar and menus must not get the focus.
    desk->Form()->Unload();
    frmMain main;
    main.show();
    frmSearchWA::ShowForm();
    frmSearchWA &form = frmSearchWA::Form();
    const auto click = [&form](const char *name) {
        auto *control = form.findChild<QWidget *>(QLatin1StringView(name));
        QTest::mouseClick(control, Qt::LeftButton, {}, {10, control->height() / 2});
    };
    click("optSearchType_2");
    click("chkBulkSearch");
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(main.focusWidget()->objectName(), u"Text1_"_s + QString::number(i));
        QTest::keyClick(main.focusWidget(), Qt::Key_Return);
    }
    form.Unload();
}

void tst_Batch::nothingIsRememberedOfABatch()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    QCOMPARE(run().size(), 1);
    for (const QString &name : {u"MruIName.txt"_s, u"MruBName.txt"_s, u"MruCases.txt"_s})
        QCOMPARE(desk->Desk.Folder.Read(name), QByteArray());
    // Not even the lists are needed.
    desk->Desk.Folder.Remove(u"MruCases.txt"_s);
    QCOMPARE(run().size(), 1);
}

void tst_Batch::theDisclaimerOfEveryStateIsAsked_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("Washington") << batch + row(0, u"052020291"_s, u"King"_s) << washingtonDisclaimer
                                << u"Washington State Courts"_s;
    QTest::newRow("Oregon") << oregon + batch + row(0, u"CV1"_s, u"Lane"_s) << oregonDisclaimer
                            << u"Oregon State Courts"_s;
    QTest::newRow("Idaho") << idaho + batch + row(0, u"CV1"_s, u"Ada"_s) << idahoDisclaimer
                           << u"Idaho State Courts"_s;
}

void tst_Batch::theDisclaimerOfEveryStateIsAsked()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, text);
    QFETCH(QString, title);
    Global.bShowAlerts = true;
    desk->Do(steps);
    desk->Desk.Boxes.Expect(text, title, MsgIcon::Exclamation, MsgAnswer::Yes);
    QCOMPARE(run().size(), 1);
    // Once a session.
    QCOMPARE(run().size(), 1);
    QCOMPARE(desk->Desk.Boxes.Answered(), 1);
}

void tst_Batch::aDeclinedDisclaimerStopsTheBatch()
{
    Global.bShowAlerts = true;
    desk->Do(idaho + batch + row(0, u"CV1"_s, u"Ada"_s));
    desk->Desk.Boxes.Expect(idahoDisclaimer, u"Idaho State Courts"_s, MsgIcon::Exclamation,
                            MsgAnswer::No);
    QVERIFY(run().isEmpty());
    QVERIFY(!Global.IdDisclaimerAccepted);
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(texts(u"Text1"_s).first(), u"CV1"_s);
}

void tst_Batch::withoutAlertsAllDisclaimersAreAccepted()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    Global.bShowAlerts = false;
    QCOMPARE(run().size(), 1);
    QVERIFY(Global.WaDisclaimerAccepted);
    QVERIFY(Global.OrDisclaimerAccepted);
    QVERIFY(Global.IdDisclaimerAccepted);
}

void tst_Batch::theLoginQuestionComesBeforeTheDisclaimer()
{
    Global.bShowAlerts = true;
    Global.bLoggedIn = false;
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(run().isEmpty());
    QVERIFY(!Global.WaDisclaimerAccepted);
    QCOMPARE(Keys(), QStringList());
}

void tst_Batch::theCodeIsAskedForOnce()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    Global.ClientAcctgCode = u"OLD"_s;
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(1, u"052020298"_s, u"Adams"_s));
    desk->ExpectCode(u" abc"_s);
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 2);
    for (const JobWindow *window : windows)
        QCOMPARE(window->ClientAcctgCode, u"ABC"_s);
}

void tst_Batch::aCharacterThatCannotBeSentIsReported()
{
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s) + row(3, {}, u"King"_s));
    auto *box = desk->Form()->findChild<QLineEdit *>(u"Text1_3"_s);
    const auto expect = [&](MsgAnswer answer) {
        box->setText(u"CV\u0141"_s);
        desk->Desk.Boxes.Expect(u"The case/judgment number in FIELD 4 appears to be a non-SCOMIS "
                                "number.\r\n\r\nTo continue the search using this number click "
                                "OK."_s,
                                u"Halvane"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
                                MsgButtons::OkCancel);
        desk->Desk.Boxes.Expect(u"The character \"\u0141\" cannot be sent. A question mark goes "
                                "in its place.\r\n\r\nTo search all the same click OK. To change "
                                "what you entered click Cancel."_s,
                                u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, answer,
                                MsgButtons::OkCancel);
    };
    expect(MsgAnswer::Cancel);
    QVERIFY(run().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Form()->focusWidget(), box);
    expect(MsgAnswer::Ok);
    QCOMPARE(run().size(), 2);
}

void tst_Batch::aSessionThatEndsUnderTheClientCodeIsReported()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    desk->Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [](QDialog *dialog) {
        Global.bLoggedIn = false;
        dialog->reject();
    });
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(run().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

void tst_Batch::aSessionThatEndsUnderTheDisclaimerIsReported()
{
    Global.bShowAlerts = true;
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    desk->Desk.Boxes.Meanwhile([] { Global.bLoggedIn = false; });
    desk->Desk.Boxes.Expect(washingtonDisclaimer, u"Washington State Courts"_s,
                            MsgIcon::Exclamation, MsgAnswer::Yes);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(run().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

void tst_Batch::aCompulsoryCodeIsNotAskedFor()
{
    Global.bClientAcctgOpt = true;
    Global.ClientAcctgCode = u"OLD"_s;
    desk->Do(batch + row(0, u"052020291"_s, u"King"_s));
    const QList<JobWindow *> windows = run();
    QCOMPARE(windows.size(), 1);
    QCOMPARE(windows[0]->ClientAcctgCode, QString());
    QCOMPARE(Global.ClientAcctgCode, QString());
}

void tst_Batch::anEmptyBatchStartsNothing()
{
    desk->Do(batch);
    QVERIFY(run().isEmpty());
    QCOMPARE(Keys(), QStringList());
}

HALVANE_TEST(tst_Batch)
#include "tst_Batch.moc"
