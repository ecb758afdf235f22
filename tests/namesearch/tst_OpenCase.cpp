#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/ResultListView.h"
#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "session/frmLogin.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

// From a row of results to the window of its case.

namespace {
const QString loginQuestion =
    u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to the "
    "Halvane Server.\r\n\r\nDo you want to Login Now?"_s;
const QString loginTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;

QString wire(const QString &text)
{
    return QString(text).replace(u'/', u'\u00A6');
}

ResultListView *listOf(const QWidget *window)
{
    return window->findChild<ResultListView *>(u"listview1"_s);
}

/// The case windows on the screen, the oldest first.
QList<CaseWindow *> caseWindows()
{
    QList<CaseWindow *> windows;
    for (const QString &key : frmQueue::Form().FIFO.Lines()) {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *window = qobject_cast<CaseWindow *>(widget);
            if (window && window->isVisible() && window->txtMasterKey == key)
                windows.append(window);
        }
    }
    return windows;
}

enum class Way { DoubleClick, Enter, Button };

void choose(const QWidget *window, int row, Way way = Way::DoubleClick)
{
    ResultListView *list = listOf(window);
    const QPoint where = list->visualRect(list->List()->index(row, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where);
    switch (way) {
    case Way::DoubleClick:
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, where);
        break;
    case Way::Enter:
        QTest::keyClick(list, Qt::Key_Return);
        break;
    case Way::Button:
        QTest::mouseClick(ButtonOf(window, "cmdSearchResults_0"), Qt::LeftButton);
        break;
    }
}
} // namespace

Q_DECLARE_METATYPE(Way)

class tst_OpenCase : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void eachWayOpensTheCase_data();
    void eachWayOpensTheCase();
    void eachCourt_data();
    void eachCourt();
    void anIndexSearch();
    void eachDistrictCase_data();
    void eachDistrictCase();
    void aSuperiorCaseAmongTheNonCivil();
    void theRowIsMarkedOnce();
    void anArchivedCaseKeepsItsMark();
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

void tst_OpenCase::init()
{
    SearchTest::init();
    LoadDiscisCourts();
}

frmNameSearchResults *tst_OpenCase::finished(const QStringList &rows, const QString &state,
                                             const QString &line)
{
    court->Expect(line).Reply(rows + QStringList{u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({line}, state);
    if (!desk->Finish(window))
        qFatal("the search does not end");
    return window;
}

NameResultsWindow *tst_OpenCase::finishedDistrict(Which which, const QString &line,
                                                  const QStringList &rows)
{
    court->Expect(line).Reply(rows + QStringList{u"EOF~"_s});
    desk->ConnectTo(*court);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {line});
    window->Timer1->start(1);
    if (!desk->Finish(window))
        qFatal("the search does not end");
    return window;
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
    const QString line = which == Which::Name ? RequestLine() : DistrictLine(u"BED"_s, u"IN"_s);
    const QString row = which == Which::Name ? ResultLine(u"SMITH"_s) : CaseRow(u"SMITH"_s);
    NameResultsWindow *window = finishedDistrict(which, line, {row, row});
    choose(window, 1, way);
    QCOMPARE(caseWindows().size(), 1);
    QVERIFY(listOf(window)->List()->Cell(1, 1).startsWith(u">>"));
    QVERIFY(!listOf(window)->List()->Cell(0, 1).startsWith(u">>"));
}

void tst_OpenCase::eachCourt_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("type");
    const auto row = [](const char *name, const QString &state, const QString &number,
                        const QString &location, const QString &line, const QString &log,
                        const QString &title, const QString &courtName, const QString &type = {}) {
        QTest::newRow(name) << state
                            << QString(u"SMITH~"_s + number + u"~01/02/2002~Civil~"_s + location
                                       + u"~Plaintiff~"_s)
                            << wire(line) << log << title << courtName << type;
    };
    row("Washington", u"WA"_s, u"02-2-02029-9"_s, u"WA Superior Ct King County"_s,
        u"WASUP/SUMMARY/02-2-02029-9/King//"_s, u"Washington Summary Request: "_s,
        u"02-2-02029-9 - King County Superior Courts"_s,
        u"King County, Washington Superior Courts"_s);
    row("Oregon, circuit", u"OR"_s, u"02C17"_s, u"OR Linn Co Cir Ct"_s,
        u"OREGON/SUMMARY,NAMES,DOCKET,/02C17/LIN C/"_s, u"Oregon Summary Request: "_s,
        u"Case Details (02C17)"_s, u"Linn County, Oregon Circuit Courts"_s);
    row("Oregon, district", u"OR"_s, u"02C17"_s, u"OR Linn Co Dist Ct"_s,
        u"OREGON/SUMMARY,NAMES,DOCKET,/02C17/LIN D/"_s, u"Oregon Summary Request: "_s,
        u"Case Details (02C17)"_s, u"Linn County, Oregon District Courts"_s);
    row("Idaho, civil", u"ID"_s, u"CV-2002-17"_s, u"ID District Ct Ada County"_s,
        u"IDSUP/SUMMARY,NAMES,DOCKET,/CV-2002-17/Ada/"_s, u"Idaho Summary Request: "_s,
        u"Case Details (CV-2002-17)"_s, u"Ada County, Idaho District Courts"_s,
        u"Civil/Plaintiff"_s);
    row("Idaho, criminal", u"ID"_s, u"CR-2002-17"_s, u"ID District Ct Ada County"_s,
        u"IDSUP/SUMMARY,NAMES,DOCKET,/CR-2002-17/Ada/"_s, u"Idaho Summary Request: "_s,
        u"Case Details (CR-2002-17)"_s, u"Ada County, Idaho District Courts"_s,
        u"Criminal/Plaintiff"_s);
    row("Idaho, juvenile", u"ID"_s, u"JV-2002-17"_s, u"ID District Ct Ada County"_s,
        u"IDSUP/SUMMARY,NAMES,DOCKET,/JV-2002-17/Ada/"_s, u"Idaho Summary Request: "_s,
        u"Case Details (JV-2002-17)"_s, u"Ada County, Idaho District Courts"_s,
        u"Juvenile/Plaintiff"_s);
    const auto bankruptcy = [](const QString &state, const QString &courtName) {
        QTest::newRow(qPrintable(state))
            << state
            << u"SMITH~05-1~RETRIEVECOMMAND=BKRPT-SUMMARY-05~01/02/2002~Chapter 7~Seattle~Debtor~X~"_s
            << u"05-1"_s << u"Bankruptcy Request: BKRPT-SUMMARY-05"_s << u"Case Details (05-1)"_s
            << courtName << QString();
    };
    bankruptcy(u"ORBK"_s, u"Oregon Bankruptcy Court (Statewide)"_s);
    bankruptcy(u"WAWBK"_s, u"Washington Western Bankruptcy Courts"_s);
    bankruptcy(u"WAEBK"_s, u"Washington Eastern Bankruptcy Courts"_s);
    bankruptcy(u"IDBK"_s, u"Idaho Bankruptcy Court (Statewide)"_s);
}

void tst_OpenCase::eachCourt()
{
    QFETCH(QString, state);
    QFETCH(QString, row);
    QFETCH(QString, line);
    QFETCH(QString, log);
    const frmNameSearchResults *window = finished({row}, state);
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    const auto *opened = qobject_cast<frmCaseDetails *>(caseWindows().constFirst());
    QVERIFY(opened);
    QCOMPARE(opened->lblState, state);
    QCOMPARE(opened->tboxCaseNumberQueue, line);
    QTEST(opened->windowTitle(), "title");
    QTEST(TextOf(opened, "lblCourtName"), "court");
    QTEST(TextOf(opened, "lblTopFrameCaseType"), "type");
    QCOMPARE(TextOf(opened, "lblCaseTitle"), u"Pending .. "_s);
    QCOMPARE(TextOf(opened, "lblDateFiled"), u"01/02/2002"_s);
    QCOMPARE(TextOf(opened, "lblStatus"), u"Pending .."_s);
    const bool bankruptcy = state.endsWith(u"BK");
    QVERIFY(desk->Folder.Logged(bankruptcy ? log : QString(log + line)));
    QCOMPARE(opened->chkBK, bankruptcy);
    QCOMPARE(opened->lboxTabReqQueue.Lines(),
             bankruptcy ? QStringList{u"BKRPT-SUMMARY-05"_s} : QStringList());
}

void tst_OpenCase::anIndexSearch()
{
    const QString line = u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,~~~LL=1~UL=500~"_s;
    court->Expect(line).Reply(
        {u"SMITH~02-2~01/02/2002~Civil~WA Superior Ct King County~Role~A title~01/03/2002~"_s,
         u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    desk->Enqueue(window, {line});
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(caseWindows().constFirst()->tboxCaseNumberQueue, wire(u"WASUP/SUMMARY/02-2/King//"_s));
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
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    const auto *opened = qobject_cast<DiscisCaseWindow *>(caseWindows().constFirst());
    QVERIFY(opened);
    QCOMPARE(opened->objectName(), civil ? u"frmCivilCaseDetails"_s : u"frmNCCaseDetails"_s);
    const QString line = wire(civil ? u"WADISCIS////C0012345/IT/BED/CV/CIVI//"_s
                                    : u"WADISCIS////C0012345/IT/BED/IN/NCC//"_s);
    QCOMPARE(opened->tboxCaseNumberQueue, line);
    QVERIFY(desk->Folder.Logged(
        (civil ? u"Discis CIVI Search Request: "_s : u"Discis NCC Search Request: "_s) + line));
    QCOMPARE(opened->windowTitle(), u"C0012345 - Benton District Cty. / Benton"_s);
    QCOMPARE(opened->txtCourtCode, u"BED"_s);
    QCOMPARE(opened->txtCaseType, u"IT"_s);
    QCOMPARE(opened->txtCaseNumber, u"C0012345"_s);
    QCOMPARE(opened->txtCountyName, u"Benton"_s);
    QCOMPARE(opened->lblCaseNo(), u"C0012345"_s);
    QCOMPARE(TextOf(opened, "lblCaseTitle"), u"Pending .. "_s);
    QCOMPARE(TextOf(opened, "lblDateFiled"), u"01/02/2002"_s);
    QCOMPARE(opened->lblCaseType(), civil ? u"CIVIL  CV"_s : u"NON-CIVIL"_s);
    QCOMPARE(RowsOf(window)[0][1], u">>*C0012345"_s);
}

void tst_OpenCase::aSuperiorCaseAmongTheNonCivil()
{
    const NameResultsWindow *window =
        finishedDistrict(Which::NonCivil, DistrictLine(u"*SW"_s, u"IN"_s),
                         {u"SMITH~02-1-00017-3~S17~King~FEL~OPN~DEF~01/02/2002~"_s});
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    const auto *opened = qobject_cast<frmCaseDetails *>(caseWindows().constFirst());
    QVERIFY(opened);
    QCOMPARE(opened->lblState, u"WA"_s);
    QCOMPARE(opened->txtCountyName, u"King"_s);
    QCOMPARE(opened->windowTitle(), u"02-1-00017-3 - King County Superior Courts"_s);
    QVERIFY(
        desk->Folder.Logged(u"Summary Request: "_s + wire(u"WASUP/SUMMARY/02-1-00017-3/King//"_s)));
}

void tst_OpenCase::theRowIsMarkedOnce()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    choose(window, 0);
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-02029-9"_s);
    choose(window, 0);
    choose(window, 0);
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-02029-9"_s);
    QCOMPARE(caseWindows().size(), 3);
    for (const CaseWindow *opened : caseWindows()) {
        QCOMPARE(opened->windowTitle(), u"02-2-02029-9 - King County Superior Courts"_s);
        QCOMPARE(opened->tboxCaseNumberQueue, wire(u"WASUP/SUMMARY/02-2-02029-9/King//"_s));
    }
}

void tst_OpenCase::anArchivedCaseKeepsItsMark()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s, u"*02-2-02029-9"_s)});
    choose(window, 0);
    QCOMPARE(RowsOf(window)[0][1], u">>*02-2-02029-9"_s);
    QCOMPARE(caseWindows().size(), 1);
    const CaseWindow *opened = caseWindows().constFirst();
    QCOMPARE(opened->txtCaseNumber, u"*02-2-02029-9"_s);
    QCOMPARE(opened->lblCaseDetailsHdr(), u"Case Details (*02-2-02029-9)"_s);
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
    const QString line = which == Which::Name ? RequestLine() : DistrictLine();
    const QString row = which == Which::Name ? ResultLine(u"SMITH"_s) : CaseRow(u"SMITH"_s);
    const NameResultsWindow *window = finishedDistrict(which, line, {row});
    Global.bLoggedIn = false;
    desk->Boxes.Expect(loginQuestion, loginTitle, MsgIcon::Exclamation,
                       login ? MsgAnswer::Yes : MsgAnswer::No);
    choose(window, 0, way);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(frmLogin::IsLoaded(), login);
    QCOMPARE(caseWindows().size(), 0);
    QVERIFY(!RowsOf(window)[0][1].startsWith(u">>"));
}

void tst_OpenCase::nothingSelected()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ResultListView *list = listOf(window);
    Global.bLoggedIn = false;
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       QPoint(20, list->viewport()->height() - 4));
    QTest::keyClick(list, Qt::Key_Return);
    ButtonOf(window, "cmdSearchResults_0")->setEnabled(true);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(caseWindows().size(), 0);
    QCOMPARE(RowsOf(window)[0][1], u"02-2-02029-9"_s);
}

void tst_OpenCase::theButtonFollowsTheSelection()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    const QPushButton *button = ButtonOf(window, "cmdSearchResults_0");
    QVERIFY(!button->isEnabled());
    listOf(window)->selectRow(0);
    QVERIFY(button->isEnabled());
    listOf(window)->clearSelection();
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
    ResultListView *list = listOf(window);
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
    QCOMPARE(caseWindows().size(), 0);
}

void tst_OpenCase::theNewWindowWaitsItsTurn()
{
    const frmNameSearchResults *window = finished({ResultLine(u"A"_s), ResultLine(u"B"_s)});
    choose(window, 0);
    choose(window, 1);
    const QList<CaseWindow *> opened = caseWindows();
    QCOMPARE(opened.size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
    QVERIFY(opened[0]->txtMasterKey != opened[1]->txtMasterKey);
    QCOMPARE(opened[0]->txtMasterKey.size(), 20);
    for (CaseWindow *one : opened) {
        QVERIFY(one->Timer1->isActive());
        one->Timer1->setInterval(1);
    }
    QTRY_COMPARE(TextOf(opened[1], "lblStatus"), u"Case details come with a later version."_s);
    QCOMPARE(TextOf(opened[0], "lblStatus"), u"Case details come with a later version."_s);
    QCOMPARE(opened[0]->windowTitle(), u"Case Details (02-2-02029-9)"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OpenCase::aStopForAllJobsIsOver()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    Global.bStopRequested = true;
    choose(window, 0);
    QVERIFY(!Global.bStopRequested);
    QCOMPARE(caseWindows().size(), 1);
}

void tst_OpenCase::whileTheSearchStillRuns()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return RowsOf(window).size() == 1; },
               [&] {
                   choose(window, 0);
                   court->SendTokens({ResultLine(u"B"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->RowCount(), 2);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.List(0), caseWindows().constFirst()->txtMasterKey);
}

void tst_OpenCase::theClientCodeGoesAlong()
{
    frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    window->ClientAcctgCode = u"ABC"_s;
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(caseWindows().constFirst()->ClientAcctgCode, u"ABC"_s);
}

void tst_OpenCase::theOneOfSeveralSelectedRowsThatIsCurrent()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), ResultLine(u"B"_s), ResultLine(u"C"_s)});
    ResultListView *list = listOf(window);
    list->selectAll();
    list->selectionModel()->setCurrentIndex(list->List()->index(1, 0),
                                            QItemSelectionModel::NoUpdate);
    QTest::mouseClick(ButtonOf(window, "cmdSearchResults_0"), Qt::LeftButton);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(RowsOf(window)[1][1], u">>02-2-02029-9"_s);
}

void tst_OpenCase::warningsAndTipsOpenNothing()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), u"This search resulted in more than 200 results."_s});
    choose(window, 1);
    QCOMPARE(caseWindows().size(), 0);
    QCOMPARE(RowsOf(window)[1][1], u"**Warning**"_s);
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
}

void tst_OpenCase::aRowThatWasCutShortDoesNotCrash_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("line");
    QTest::newRow("Superior, number only")
        << Which::Name << u"SMITH~02-2~"_s << u"WASUP/SUMMARY/02-2///"_s;
    QTest::newRow("Superior, no location")
        << Which::Name << u"SMITH~02-2~01/02/2002~Civil~"_s << u"WASUP/SUMMARY/02-2///"_s;
    QTest::newRow("civil") << Which::Civil << u"SMITH~C1~"_s << u"WADISCIS////C1///CV/CIVI//"_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"SMITH~C1~BED~"_s
                               << u"WADISCIS////C1//BED/IN/NCC//"_s;
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
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(caseWindows().constFirst()->tboxCaseNumberQueue, wire(line));
}

void tst_OpenCase::aSortedRowOpensItsOwnCase()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s, u"02-2-00001-1"_s), ResultLine(u"B"_s, u"02-2-00002-1"_s)});
    ResultListView *list = listOf(window);
    list->SortRows({u"2"_s, u"1"_s}, Qt::AscendingOrder);
    choose(window, 0);
    QCOMPARE(caseWindows().size(), 1);
    QCOMPARE(caseWindows().constFirst()->txtCaseNumber, u"02-2-00002-1"_s);
    QCOMPARE(RowsOf(window)[0][1], u">>02-2-00002-1"_s);
}

QTEST_MAIN(tst_OpenCase)
#include "tst_OpenCase.moc"
