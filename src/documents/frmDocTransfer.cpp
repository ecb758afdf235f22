#include "documents/frmDocTransfer.h"

#include "controls/MsgBox.h"
#include "controls/WrappedText.h"
#include "documents/DocumentJob.h"
#include "ui_frmDocTransfer.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView failureTitle = u"Halvane Document Retrieval Error..";
}

frmDocTransfer::frmDocTransfer(QWidget *parent) : frmDocTransfer(new DocumentJob, parent) {}

frmDocTransfer::frmDocTransfer(DocumentJob *ownJob, QWidget *parent)
    : JobWindow(ownJob, &ownJob->lblState, &ownJob->sClientMatterText, parent), documentJob(ownJob),
      txtDocRetrievalString(ownJob->txtDocRetrievalString), txtPageQty(ownJob->txtPageQty),
      sClientMatterText(ownJob->sClientMatterText), lboxResponses(ownJob->lboxResponses),
      List1(ownJob->Transfer.List1), List2(ownJob->Transfer.List2), Text1(ownJob->Transfer.Text1),
      Text2(ownJob->Transfer.Text2), ui(std::make_unique<Ui::frmDocTransfer>())
{
    ui->setupUi(this);
    documentJob->UseTalk(this);
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    connect(documentJob, &Job::Changed, this, &frmDocTransfer::showTransfer);
    connect(documentJob, &DocumentJob::Contacting, this, [this] { StopBlinking(); });
    connect(documentJob, &DocumentJob::CloseWanted, this, &frmDocTransfer::closeUnasked);
    showTransfer();
    StartJob({.lblStatus = ui->lblStatus,
              .cmdStopSearching = ui->cmdStop,
              .rows = nullptr,
              .home = ui->cmdClose});
}

frmDocTransfer::~frmDocTransfer()
{
    documentJob->UseTalk(nullptr);
}

void frmDocTransfer::Take(const DocumentStart &start)
{
    documentJob->Take(start);
    setWindowTitle(u"Halvane - Case "_s + TitleText(start.CaseNumber)
                   + u" Retrieving Documents.."_s);
    ui->lblCaseNo->setText(u"Case #: "_s + start.CaseNumber);
    ui->lblCounty->setText(u"County: "_s + start.County);
    ui->lblDocDescription->setText(u"Description: "_s + start.Description);
    ui->lblPageCount->setText(u"Page Count: "_s + start.PageCount);
}

void frmDocTransfer::showTransfer()
{
    const DocumentTransfer &transfer = documentJob->Transfer;
    ui->Label1->setText(transfer.Label1);
    ui->lblFileType->setText(transfer.lblFileType);
    ui->lblProgress->setText(transfer.lblProgress);
    ui->ProgressBar1->setValue(transfer.ProgressBar1);
}

void frmDocTransfer::TellFailure()
{
    const RunScope scope(this);
    MsgBox(
        this,
        u"An error was encountered while retrieving this document. Please retry this search at a "
        "later time."_s,
        failureTitle.toString(), MsgButtons::Ok, MsgIcon::Exclamation);
}

void frmDocTransfer::TellDenied()
{
    const RunScope scope(this);
    MsgBox(this,
           u"Halvane Document Retrieval Error. File is already open in Viewer or exists on this PC "
           "in the reports folder already. \r\nPlease close the file if open or try opening within "
           "the Reports folder in My Computer."_s,
           failureTitle.toString(), MsgButtons::Ok, MsgIcon::Exclamation);
}

void frmDocTransfer::closeUnasked()
{
    closesUnasked = true;
    Unload();
}

bool frmDocTransfer::QueryUnload(UnloadMode mode)
{
    // What is over, or never came on the screen, has nothing that the user could lose.
    return closesUnasked || !wasShown || documentJob->State() == JobState::Over
           || MayClose(mode, u"Are you sure you want to close this form?\r\nThe document will not "
                             "be retrieved."_s);
}

void frmDocTransfer::showEvent(QShowEvent *event)
{
    wasShown = true;
    JobWindow::showEvent(event);
}
