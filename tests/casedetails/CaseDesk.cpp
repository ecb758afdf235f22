#include "casedetails/CaseDesk.h"

#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "tables/FlexGrid.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

frmCaseDetails *CaseTest::Superior(const QString &number)
{
    auto *window = new frmCaseDetails;
    window->lblState = u"WA"_s;
    window->txtCaseNumber = number;
    window->txtCountyName = u"King"_s;
    window->SetCaseDetailsHdr(u"Case Details ("_s + number + u')');
    window->SetCourtName(u"King County, Washington Superior Courts"_s);
    window->SetCaseTitle(u"Pending .. "_s);
    desk->Enqueue(window);
    return window;
}

frmCaseDetails *CaseTest::OfState(const QString &state, const QString &number)
{
    auto *window = new frmCaseDetails;
    window->lblState = state;
    window->txtCaseNumber = number;
    window->txtCountyName = state == u"OR" ? u"Baker"_s : u"Ada"_s;
    window->lblOrCourtType = state == u"OR" ? u"C"_s : QString();
    window->SetCaseDetailsHdr(u"Case Details ("_s + number + u')');
    desk->Enqueue(window);
    return window;
}

frmCaseDetails *CaseTest::Bankruptcy(const QString &request)
{
    auto *window = new frmCaseDetails;
    window->lblState = u"WAWBK"_s;
    window->chkBK = true;
    window->txtCaseNumber = u"99-20077"_s;
    window->SetCaseDetailsHdr(u"Case Details (99-20077)"_s);
    window->lboxTabReqQueue.AddItem(request);
    desk->Enqueue(window);
    return window;
}

namespace {
template<typename Window>
Window *districtCase(const QString &number, const QString &type)
{
    auto *window = new Window;
    window->txtCaseNumber = number;
    window->txtCountyName = u"King"_s;
    window->txtCourtCode = u"SED"_s;
    window->txtCaseType = type;
    window->SetCaseNo(number);
    return window;
}
} // namespace

frmCivilCaseDetails *CaseTest::Civil(const QString &number)
{
    auto *window = districtCase<frmCivilCaseDetails>(number, u"CV"_s);
    window->SetCaseType(u"CIVIL  CV"_s);
    desk->Enqueue(window);
    return window;
}

frmNCCaseDetails *CaseTest::NonCivil(const QString &number)
{
    auto *window = districtCase<frmNCCaseDetails>(number, u"IN"_s);
    window->SetCaseType(u"NON-CIVIL"_s);
    desk->Enqueue(window);
    return window;
}

void CaseTest::Begin(CaseWindow *window)
{
    window->Timer1->setInterval(1);
    window->TmrSearchOnDemand->setInterval(1);
    window->Timer1->start();
}

void CaseTest::Run(CaseWindow *window)
{
    desk->ConnectTo(*court);
    // The pauses between the tabs; no reply may seem late by it.
    desk->Time.Run(0.02);
    Begin(window);
    QVERIFY(Finished(window));
    desk->Time.Stop();
}

bool CaseTest::Finished(CaseWindow *window)
{
    return desk->Finish(window);
}

QList<QStringList> CaseTest::CellsOf(const CaseWindow *window, CaseTab tab)
{
    const FlexGrid *grid = window->Tab(tab).Grid;
    QList<QStringList> cells;
    for (int row = 0; row < grid->Rows(); ++row) {
        QStringList line;
        for (int column = 0; column < grid->Cols(); ++column)
            line.append(grid->Cell(row, column));
        cells.append(line);
    }
    return cells;
}

QStringList CaseTest::CaptionsOf(const CaseWindow *window)
{
    return window->findChild<TabStrip *>(u"TabStrip1"_s)->Captions();
}

QString CaseTest::ShownFrame(const CaseWindow *window)
{
    return window->findChild<QStackedWidget *>(u"frameTabs"_s)->currentWidget()->objectName();
}

void CaseTest::ClickTab(CaseWindow *window, const QString &caption)
{
    auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    const qsizetype index = strip->Captions().indexOf(caption);
    QVERIFY2(index >= 0, qPrintable(caption));
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(static_cast<int>(index)).center());
}
