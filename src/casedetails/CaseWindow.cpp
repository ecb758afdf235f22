#include "casedetails/CaseWindow.h"

#include "controls/StatusColour.h"
#include "core/Log.h"
#include "jobs/TurnTaking.h"

#include <QFontInfo>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr JobPace casePace{2000, 500, 900, 700};
constexpr double headerScale = 1.2;

constexpr std::array<QStringView, 4> bankruptcyStates{u"WAWBK", u"WAEBK", u"IDBK", u"ORBK"};

bool isBankruptcy(const QString &state)
{
    return std::find(bankruptcyStates.begin(), bankruptcyStates.end(), state)
           != bankruptcyStates.end();
}
} // namespace

CaseWindow::CaseWindow(QWidget *parent) : JobWindow(casePace, parent) {}

void CaseWindow::load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails)
{
    SetStatusStyle(lblStatus, StatusColour::Normal, true);
    QFont large = header->font();
    large.setBold(true);
    large.setPointSizeF(QFontInfo(large).pointSizeF() * headerScale);
    header->setFont(large);
    connect(cmdCloseDetails, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    StartJob(lblStatus, cmdStopSearching);
}

void CaseWindow::SetCaseDetailsHdr(const QString &text)
{
    header->setText(text);
}

QString CaseWindow::lblCaseDetailsHdr() const
{
    return header->text();
}

void CaseWindow::SetCourtName(const QString &text)
{
    courtName->setText(text);
}

QString CaseWindow::lblCourtName() const
{
    return courtName->text();
}

void CaseWindow::SetCaseTitle(const QString &text)
{
    caseTitle->setText(text);
}

QString CaseWindow::lblCaseTitle() const
{
    return caseTitle->text();
}

void CaseWindow::SetDateFiled(const QString &text)
{
    dateFiled->setText(text);
}

QString CaseWindow::lblDateFiled() const
{
    return dateFiled->text();
}

void CaseWindow::BeginTick()
{
    setWindowTitle(u"Case Details ("_s + txtCaseNumber + u')');
    if (isBankruptcy(lblState))
        chkBK = true;
}

QString CaseWindow::WorkingText() const
{
    return u"Searching .."_s;
}

void CaseWindow::ProcessSearchRequests()
{
    EndJob();
    lblStatus->setText(u"Case details come with a later version."_s);
    WriteAppInfo(u"Case details were not asked for: they come with a later version."_s);
    ReleaseTurn();
}

QString CaseWindow::StopRequest() const
{
    return isBankruptcy(lblState) ? u"BKRPT~STOP~"_s : u"\u00A6STOP"_s;
}

void CaseWindow::StopPressed()
{
    // Before the question, and not taken back when it is declined: one press, one question.
    StopButton()->setEnabled(false);
    StopBlinking();
}

void CaseWindow::ShowStopped(StopCase stopCase)
{
    SearchStopped = true;
    ShowStoppedStatus();
    if (stopCase != StopCase::AllJobs)
        return;
    WriteAppInfo(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s);
    SetStatusStyle(lblWarning, StatusColour::Trouble, true);
    lblWarning->setText(u"Search Stopped .."_s);
}

bool CaseWindow::QueryUnload(UnloadMode mode)
{
    // A window that never came on the screen has nothing that the user could lose.
    return !wasShown
           || MayClose(mode, u"Are you sure you want to close this form?\r\nAny data that has not "
                             "been printed or saved will be lost!"_s);
}

void CaseWindow::Unloading()
{
    JobWindow::Unloading();
    WithdrawKey(txtMasterKey);
}

void CaseWindow::showEvent(QShowEvent *event)
{
    wasShown = true;
    JobWindow::showEvent(event);
}
