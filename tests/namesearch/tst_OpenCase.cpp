#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "namesearch/Handed.h"
#include "namesearch/OpeningUser.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <tuple>

// From a row of results to the window of its case.

namespace {
const QString loginQuestion =
    u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to the "
    "Halvane Server.\r\n\r\nDo you want to Login Now?"_s;
const QString loginTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;

} // namespace

class tst_OpenCase : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachWayOpensTheCase_data();
    void eachWayOpensTheCase();
    void eachCourt_data();
    void eachCourt();
    void eachBankruptcyCourt_data();
    void eachBankruptcyCourt();
    void anIndexSearch();
    void eachDistrictCase_data();
    void eachDistrictCase();
    void aSuperiorCaseAmongTheNonCivil_data();
    void aSuperiorCaseAmongTheNonCivil();
    void theRowIsMarkedOnce();
    void anArchivedCaseKeepsItsMark();
    void theMarkDoesNotCutTheNumber();
    void notLoggedIn_data();
    void notLoggedIn();
    void nothingSelected();
    void theButtonFollowsTheSelection();
    void theMouseDownAloneSelects_data();
    void theMouseDownAloneSelects();
    void theNewWindowWaitsItsTurn();
    void aStopForAllJobsIsOver();
    void whileTheSearchStillRuns();
    void theClientCodeGoesAlong();
    void theOneOfSeveralSelectedRowsThatIsCurrent();
    void warningsAndTipsOpenNothing();
    void aRowThatWasCutShortDoesNotCrash_data();
    void aRowThatWasCutShortDoesNotCrash();
    void aSortedRowOpensItsOwnCase();

private:
    frmNameSearchResults *finished(const QStringList &rows, const QString &state = u"WA"_s,
                                   const QString &line = RequestLine());
    NameResultsWindow *finishedDistrict(Which which, const QString &line, const QStringList &rows);
};

frmNameSearchResults *tst_OpenCase::finished(const QStringList &rows, const QString &state,
                                             const QString &line)
{
    court->Expect(line).Reply(rows + QStringList{u"EOF~"_s});
    return Search(new frmNameSearchResults(state), {line});
}

NameResultsWindow *tst_OpenCase::finishedDistrict(Which which, const QString &line,
                                                  const QStringList &rows)
{
    court->Expect(line).Reply(rows + QStringList{u"EOF~"_s});
    return Search(MakeWindow(which), {line});
}

void tst_OpenCase::eachWayOpensTheCase_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<Way>("way");
    for (const auto &[name, which] :
         {std::pair{"name", Which::Name}, std::pair{"civil", Which::Civil},
          std::pair{"non-civil", Which::NonCivil}}) {
        QTest::addRow("%s, double click", name) << which << Way::DoubleClick;
        QTest::addRow("%s, Enter", name) << which << Way::Enter;
        QTest::addRow("%s, button", name) << which << Way::Button;
    }
}

void tst_OpenCase::eachWayOpensTheCase()
{
    QFETCH(Which, which);
    QFETCH(Way, way);
    const NameResultsWindow *window =
        finishedDistrict(which, LineOf(which), {RowOf(which), RowOf(which)});
    ChooseRow(window, 1, way);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QVERIFY(ListOf(window)->List()->Cell(1, 1).startsWith(u">>"));
    QVERIFY(!ListOf(window)->List()->Cell(0, 1).startsWith(u">>"));
}

void tst_OpenCase::eachCourt_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("handed");
    QTest::addColumn<QString>("log");
    // Archived cases: their "*" goes into the number and the heading, and into nothing else.
    const auto row = [](const char *name, const QString &state, const QString &number,
                        const QString &location, const QString &caption, const QString &log,
                        const QStringList &own, const QString &line) {
        QStringList handed{u"frmCaseDetails"_s, u"caption "_s + caption, u"lblState "_s + state,
                           u"lblCaseDetailsHdr Case Details (*"_s + number + u')'};
        handed += own;
        handed.append(u"tboxCaseNumberQueue "_s + line);
        QTest::newRow(name) << state
                            << QString(u"SMITH~*"_s + number + u"~01/02/2002~Civil~"_s + location
                                       + u"~Plaintiff~"_s)
                            << handed << QString(log + line);
    };
    const QString pending = u"lblCaseTitle Pending .. "_s;
    const QString filed = u"lblDateFiled 01/02/2002"_s;
    row("Washington", u"WA"_s, u"02-2-02029-9"_s, u"WA Superior Ct Walla Walla County"_s,
        u"02-2-02029-9 - Walla Walla County Superior Courts"_s, u"Washington Summary Request: "_s,
        {u"txtCountyName Walla Walla"_s,
         u"lblCourtName Walla Walla County, Washington Superior Courts"_s,
         u"txtCaseNumber *02-2-02029-9"_s, pending, filed},
        u"WASUP¦SUMMARY¦02-2-02029-9¦Walla Walla¦¦"_s);
    for (const auto &[name, place, courts, type] :
         {std::tuple{"Oregon, circuit", u"Linn Co Cir Ct"_s, u"Circuit"_s, u"C"_s},
          std::tuple{"Oregon, district", u"Linn Co Dist Ct"_s, u"District"_s, u"D"_s}}) {
        row(name, u"OR"_s, u"02C17"_s, u"OR "_s + place, u"Case Details (02C17)"_s,
            u"Oregon Summary Request: "_s,
            {u"txtCountyName Linn"_s,
             u"lblCourtName Linn County, Oregon "_s + courts + u" Courts"_s,
             u"lblOrCourtType "_s + type, u"txtCaseNumber *02C17"_s, pending, filed},
            u"OREGON¦SUMMARY,NAMES,DOCKET,¦02C17¦LIN "_s + type + u'¦');
    }
    for (const auto &[name, head, type] : {std::tuple{"Idaho, civil", u"CV"_s, u"Civil"_s},
                                           std::tuple{"Idaho, criminal", u"CR"_s, u"Criminal"_s},
                                           std::tuple{"Idaho, juvenile", u"JV"_s, u"Juvenile"_s}}) {
        const QString number = head + u"-2002-17"_s;
        row(name, u"ID"_s, number, u"ID District Ct Ada County"_s,
            u"Case Details ("_s + number + u')', u"Idaho Summary Request: "_s,
            {u"txtCountyName Ada"_s, u"lblCourtName Ada County, Idaho District Courts"_s,
             u"txtCaseNumber *"_s + number, pending, filed,
             u"lblTopFrameCaseType "_s + type + u"/Plaintiff"_s},
            u"IDSUP¦SUMMARY,NAMES,DOCKET,¦"_s + number + u"¦Ada¦"_s);
    }
}

void tst_OpenCase::eachCourt()
{
    QFETCH(QString, state);
    QFETCH(QString, row);
    QFETCH(QString, log);
    const frmNameSearchResults *window = finished({row}, state);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QTEST(Handed(CaseWindowsInQueue().constFirst()), "handed");
    QCOMPARE(TextOf(CaseWindowsInQueue().constFirst(), "lblStatus"), u"Pending .."_s);
    QVERIFY(desk->Folder.Logged(log));
}

void tst_OpenCase::eachBankruptcyCourt_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("courtName");
    const auto row = [](const char *state, const QString &courtName) {
        QTest::newRow(state) << QString::fromLatin1(state) << courtName;
    };
    row("ORBK", u"Oregon Bankruptcy Court (Statewide)"_s);
    row("WAWBK", u"Washington Western Bankruptcy Courts"_s);
    row("WAEBK", u"Washington Eastern Bankruptcy Courts"_s);
    row("IDBK", u"Idaho Bankruptcy Court (Statewide)"_s);
}

void tst_OpenCase::eachBankruptcyCourt()
{
    QFETCH(QString, state);
    QFETCH(QString, courtName);
    const frmNameSearchResults *window = finished(
        {u"SMITH~*05-1~RETRIEVECOMMAND=BKRPT-SUMMARY-05~01/02/2002~Chapter 7~Seattle~Debtor~X~"_s},
        state);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(Handed(CaseWindowsInQueue().constFirst()),
             (QStringList{u"frmCaseDetails"_s, u"caption Case Details (05-1)"_s,
                          u"lblState "_s + state, u"lblCaseDetailsHdr Case Details (*05-1)"_s,
                          u"lblCourtName "_s + courtName, u"txtCaseNumber *05-1"_s,
                          u"lblCaseTitle Pending .. "_s, u"lblDateFiled 01/02/2002"_s, u"chkBK"_s,
                          u"tboxCaseNumberQueue 05-1"_s, u"lboxTabReqQueue BKRPT-SUMMARY-05"_s}));
    QVERIFY(desk->Folder.Logged(u"Bankruptcy Request: BKRPT-SUMMARY-05"_s));
}

void tst_OpenCase::anIndexSearch()
{
    const QString line = u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,~~~LL=1~UL=500~"_s;
    court->Expect(line).Reply(
        {u"SMITH~02-2~01/02/2002~Civil~WA Superior Ct King County~Role~A title~01/03/2002~"_s,
         u"EOF~"_s});
    auto *window = Search(new frmNameSearchResults(u"WA"_s, true), {line});
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(CaseWindowsInQueue().constFirst()->tboxCaseNumberQueue,
             u"WASUP¦SUMMARY¦02-2¦King¦¦"_s);
}

void tst_OpenCase::eachDistrictCase_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("requestType");
    QTest::addColumn<bool>("civil");
    QTest::newRow("civil window") << Which::Civil << u"CV"_s << true;
    QTest::newRow("non-civil window") << Which::NonCivil << u"IN"_s << false;
    QTest::newRow("non-civil window, civil request") << Which::NonCivil << u"CV"_s << true;
}

void tst_OpenCase::eachDistrictCase()
{
    QFETCH(Which, which);
    QFETCH(QString, requestType);
    QFETCH(bool, civil);
    const NameResultsWindow *window =
        finishedDistrict(which, DistrictLine(u"BED"_s, requestType),
                         {u"SMITH~*C0012345~BED~Benton District~IT~OPN~DEF~01/02/2002~"_s});
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    const QString line =
        u"WADISCIS¦¦¦¦C0012345¦IT¦BED¦"_s + (civil ? u"CV¦CIVI¦¦"_s : u"IN¦NCC¦¦"_s);
    // A person has a name there, a case a title.
    const QStringList title = civil ? QStringList{u"lblCaseTitle Pending .. "_s} : QStringList();
    QCOMPARE(Handed(CaseWindowsInQueue().constFirst()),
             (QStringList{civil ? u"frmCivilCaseDetails"_s : u"frmNCCaseDetails"_s,
                          u"caption C0012345 - Benton District Cty. / Benton"_s, u"lblState WA"_s,
                          u"lblCaseDetailsHdr Case Details"_s, u"txtCountyName Benton"_s,
                          u"lblCourtName Benton Cty. - Benton District"_s,
                          u"txtCaseNumber C0012345"_s, u"txtCourtCode BED"_s, u"txtCaseType IT"_s,
                          civil ? u"lblCaseType CIVIL  CV"_s : u"lblCaseType NON-CIVIL"_s,
                          u"lblCaseNo C0012345"_s}
              + title
              + QStringList{u"lblDateFiled 01/02/2002"_s, u"tboxCaseNumberQueue "_s + line}));
    QVERIFY(desk->Folder.Logged(
        (civil ? u"Discis CIVI Search Request: "_s : u"Discis NCC Search Request: "_s) + line));
    QCOMPARE(RowsOf(window)[0][1], u">>*C0012345"_s);
}

void tst_OpenCase::aSuperiorCaseAmongTheNonCivil_data()
{
    QTest::addColumn<QString>("requestType");
    QTest::newRow("non-civil request") << u"IN"_s;
    QTest::newRow("civil request") << u"CV"_s;
}

void tst_OpenCase::aSuperiorCaseAmongTheNonCivil()
{
    QFETCH(QString, requestType);
    const NameResultsWindow *window =
        finishedDistrict(Which::NonCivil, DistrictLine(u"*SW"_s, requestType),
                         {u"SMITH~02-1-00017-3~S17~King~FEL~OPN~DEF~01/02/2002~"_s});
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    const QString line = u"WASUP¦SUMMARY¦02-1-00017-3¦King¦¦"_s;
    QCOMPARE(Handed(CaseWindowsInQueue().constFirst()),
             (QStringList{
                 u"frmCaseDetails"_s, u"caption 02-1-00017-3 - King County Superior Courts"_s,
                 u"lblState WA"_s, u"lblCaseDetailsHdr Case Details (02-1-00017-3)"_s,
                 u"txtCountyName King"_s, u"lblCourtName King County, Washington Superior Courts"_s,
                 u"txtCaseNumber 02-1-00017-3"_s, u"lblCaseTitle Pending .. "_s,
                 u"lblDateFiled 01/02/2002"_s, u"tboxCaseNumberQueue "_s + line}));
    QVERIFY(desk->Folder.Logged(u"Summary Request: "_s + line));
}

void tst_OpenCase::theRowIsMarkedOnce()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-02029-9"_s);
    for (int again = 0; again < 2; ++again) {
        desk->Boxes.ExpectChoice(IsOpenQuestion(u"02-2-02029-9 - King County Superior Courts"_s),
                                 isOpenTitle, u"Open Again"_s);
        ChooseRow(window, 0);
    }
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-02029-9"_s);
    QCOMPARE(CaseWindowsInQueue().size(), 3);
    for (const CaseWindow *opened : CaseWindowsInQueue()) {
        QCOMPARE(opened->windowTitle(), u"02-2-02029-9 - King County Superior Courts"_s);
        QCOMPARE(opened->tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2-02029-9¦King¦¦"_s);
    }
}

void tst_OpenCase::anArchivedCaseKeepsItsMark()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s, u"*02-2-02029-9"_s)});
    ChooseRow(window, 0);
    QCOMPARE(RowsOf(window)[0][1], u">>*02-2-02029-9"_s);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    const CaseWindow *opened = CaseWindowsInQueue().constFirst();
    QCOMPARE(opened->txtCaseNumber, u"*02-2-02029-9"_s);
    QCOMPARE(opened->lblCaseDetailsHdr(), u"Case Details (*02-2-02029-9)"_s);
}

void tst_OpenCase::theMarkDoesNotCutTheNumber()
{
    const NameResultsWindow *window =
        finishedDistrict(Which::NonCivil, DistrictLine(u"BED"_s, u"IN"_s), {CaseRow(u"SMITH"_s)});
    const ResultListView *list = ListOf(window);
    const int before = list->columnWidth(1);
    ChooseRow(window, 0);
    QVERIFY(list->columnWidth(1) > before);
    QVERIFY(list->columnWidth(1) >= list->sizeHintForIndex(list->List()->index(0, 1)).width());
}

void tst_OpenCase::notLoggedIn_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<Way>("way");
    QTest::addColumn<bool>("login");
    QTest::newRow("double click, no") << Which::Name << Way::DoubleClick << false;
    QTest::newRow("double click, yes") << Which::Name << Way::DoubleClick << true;
    QTest::newRow("button") << Which::Name << Way::Button << false;
    QTest::newRow("civil") << Which::Civil << Way::DoubleClick << false;
    QTest::newRow("non-civil") << Which::NonCivil << Way::Enter << true;
}

void tst_OpenCase::notLoggedIn()
{
    QFETCH(Which, which);
    QFETCH(Way, way);
    QFETCH(bool, login);
    const NameResultsWindow *window = finishedDistrict(which, LineOf(which), {RowOf(which)});
    Global.bLoggedIn = false;
    desk->Boxes.Expect(loginQuestion, loginTitle, MsgIcon::Exclamation,
                       login ? MsgAnswer::Yes : MsgAnswer::No);
    ChooseRow(window, 0, way);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(frmLogin::IsLoaded(), login);
    QCOMPARE(CaseWindowsInQueue().size(), 0);
    QVERIFY(!RowsOf(window)[0][1].startsWith(u">>"));
}

void tst_OpenCase::nothingSelected()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ResultListView *list = ListOf(window);
    Global.bLoggedIn = false;
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       QPoint(20, list->viewport()->height() - 4));
    QTest::keyClick(list, Qt::Key_Return);
    ButtonOf(window, "cmdSearchResults_0")->setEnabled(true);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(CaseWindowsInQueue().size(), 0);
    QCOMPARE(RowsOf(window)[0][1], u"02-2-02029-9"_s);
}

void tst_OpenCase::theButtonFollowsTheSelection()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    const QPushButton *button = ButtonOf(window, "cmdSearchResults_0");
    QVERIFY(!button->isEnabled());
    ListOf(window)->selectRow(0);
    QVERIFY(button->isEnabled());
    ListOf(window)->clearSelection();
    QVERIFY(!button->isEnabled());
}

void tst_OpenCase::theMouseDownAloneSelects_data()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("name") << Which::Name;
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

void tst_OpenCase::theMouseDownAloneSelects()
{
    QFETCH(Which, which);
    const QString line = which == Which::Name ? RequestLine() : DistrictLine(u"BED"_s, u"IN"_s);
    const QString row = which == Which::Name ? ResultLine(u"SMITH"_s) : CaseRow(u"SMITH"_s);
    const NameResultsWindow *window = finishedDistrict(which, line, {row, row, row});
    ResultListView *list = ListOf(window);
    QCOMPARE(list->SelectedRow(), -1);
    for (const int pressed : {1, 2, 0}) {
        QTest::mousePress(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->List()->index(pressed, 0)).center());
        QCOMPARE(list->SelectedRow(), pressed);
        QCOMPARE(list->selectionModel()->selectedRows().size(), 1);
        QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {},
                            list->visualRect(list->List()->index(pressed, 0)).center());
    }
    QCOMPARE(CaseWindowsInQueue().size(), 0);
}

void tst_OpenCase::theNewWindowWaitsItsTurn()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), ResultLine(u"B"_s, u"02-2-02030-2"_s)});
    court->Expect(u"WASUP¦SUMMARY¦02-2-02029-9¦King¦¦"_s).Reply({u"EOF~"_s});
    court->Expect(u"WASUP¦SUMMARY¦02-2-02030-2¦King¦¦"_s).Reply({u"EOF~"_s});
    ChooseRow(window, 0);
    ChooseRow(window, 1);
    const QList<CaseWindow *> opened = CaseWindowsInQueue();
    QCOMPARE(opened.size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
    QVERIFY(opened[0]->txtMasterKey != opened[1]->txtMasterKey);
    QCOMPARE(opened[0]->txtMasterKey.size(), 20);
    for (CaseWindow *one : opened) {
        QVERIFY(one->Timer1->isActive());
        one->Timer1->setInterval(1);
    }
    QTRY_COMPARE(TextOf(opened[1], "lblStatus"), u"Search Stopped. Case Not Located."_s);
    QCOMPARE(TextOf(opened[0], "lblStatus"), u"Search Stopped. Case Not Located."_s);
    QCOMPARE(opened[0]->windowTitle(),
             u"Case Details (02-2-02029-9) - This Case Was Not Located!"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OpenCase::aStopForAllJobsIsOver()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    Global.bStopRequested = true;
    ChooseRow(window, 0);
    QVERIFY(!Global.bStopRequested);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_OpenCase::whileTheSearchStillRuns()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return RowsOf(window).size() == 1; },
               [&] {
                   ChooseRow(window, 0);
                   court->SendTokens({ResultLine(u"B"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->RowCount(), 2);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.List(0), CaseWindowsInQueue().constFirst()->txtMasterKey);
}

void tst_OpenCase::theClientCodeGoesAlong()
{
    frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    window->ClientAcctgCode = u"ABC"_s;
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(CaseWindowsInQueue().constFirst()->ClientAcctgCode, u"ABC"_s);
}

void tst_OpenCase::theOneOfSeveralSelectedRowsThatIsCurrent()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), ResultLine(u"B"_s), ResultLine(u"C"_s)});
    ResultListView *list = ListOf(window);
    list->selectAll();
    list->selectionModel()->setCurrentIndex(list->List()->index(1, 0),
                                            QItemSelectionModel::NoUpdate);
    QTest::mouseClick(ButtonOf(window, "cmdSearchResults_0"), Qt::LeftButton);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(RowsOf(window)[1][1], u">>02-2-02029-9"_s);
}

void tst_OpenCase::warningsAndTipsOpenNothing()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), u"This search resulted in more than 200 results."_s});
    ChooseRow(window, 1);
    QCOMPARE(CaseWindowsInQueue().size(), 0);
    QCOMPARE(RowsOf(window)[1][1], u"**Warning**"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_OpenCase::aRowThatWasCutShortDoesNotCrash_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("line");
    QTest::newRow("Superior, number only")
        << Which::Name << u"SMITH~02-2~"_s << u"WASUP¦SUMMARY¦02-2¦¦¦"_s;
    QTest::newRow("Superior, no location")
        << Which::Name << u"SMITH~02-2~01/02/2002~Civil~"_s << u"WASUP¦SUMMARY¦02-2¦¦¦"_s;
    QTest::newRow("civil") << Which::Civil << u"SMITH~C1~"_s << u"WADISCIS¦¦¦¦C1¦¦¦CV¦CIVI¦¦"_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"SMITH~C1~BED~"_s
                               << u"WADISCIS¦¦¦¦C1¦¦BED¦IN¦NCC¦¦"_s;
}

void tst_OpenCase::aRowThatWasCutShortDoesNotCrash()
{
    QFETCH(Which, which);
    QFETCH(QString, row);
    QFETCH(QString, line);
    const QString request = which == Which::Name ? RequestLine() : DistrictLine(u"BED"_s, u"IN"_s);
    const NameResultsWindow *window = finishedDistrict(which, request, {row});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(window->RowCount(), 1);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(CaseWindowsInQueue().constFirst()->tboxCaseNumberQueue, line);
}

void tst_OpenCase::aSortedRowOpensItsOwnCase()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s, u"02-2-00001-1"_s), ResultLine(u"B"_s, u"02-2-00002-1"_s)});
    ResultListView *list = ListOf(window);
    list->SortRows({u"2"_s, u"1"_s}, Qt::AscendingOrder);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(CaseWindowsInQueue().constFirst()->txtCaseNumber, u"02-2-00002-1"_s);
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-00002-1"_s);
}

HALVANE_TEST(tst_OpenCase)
#include "tst_OpenCase.moc"
