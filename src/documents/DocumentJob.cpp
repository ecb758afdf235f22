#include "documents/DocumentJob.h"

#include "core/Log.h"
#include "core/Platform.h"
#include "documents/DocumentItem.h"
#include "documents/DocumentName.h"
#include "documents/DocumentTalk.h"
#include "jobs/TurnTaking.h"
#include "link/Exchange.h"

#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

DocumentJob::DocumentJob() : TransferJob(JobKindName::Document) {}

void DocumentJob::Take(const DocumentStart &start)
{
    Start = start;
    txtDocRetrievalString = start.Command;
    txtPageQty = start.PageCount;
    sClientMatterText = start.ClientMatterText;
    matter = {start.Description, WhereOf(start)};
}

void DocumentJob::ProcessSearchRequests()
{
    // The run of a window that has gone meanwhile is over.
    const auto atEnd = qScopeGuard([this] {
        if (IsGivenUp())
            Withdraw();
    });
    lboxResponses.Clear();
    const TransferResult result = Transfer.GetDocument({.Line = txtDocRetrievalString,
                                                        .PageQty = txtPageQty,
                                                        .Folder = ReportsFolder(),
                                                        .Name = {},
                                                        .WantsSha256 = false});
    Retrieved = result.End == TransferEnd::Saved;
    Outcome = Retrieved ? u"Document Retrieved."_s : ReasonOf(result);
    bool closes = true;
    if (result.End == TransferEnd::Saved)
        closes = open(result);
    else if (result.End == TransferEnd::NotWanted)
        WriteAppInfo(u"DOCUMENT RETRIEVAL STOPPED - from GetDocument()."_s);
    else
        logFailure();
    DropRestOfReply();
    SetOver();
    ReleaseTurnOf(txtMasterKey);
    FreeLink();
    Q_EMIT Ended(StopRequested);
    tellFailure(result);
    if (closes)
        Q_EMIT CloseWanted();
}

/// Whether the window can go: it stays to say where a document is that nothing opens.
bool DocumentJob::open(const TransferResult &result)
{
    bool shown = false;
    bool closes = true;
    if (TransferWish() == Wish::Goes) {
        ShowTransferStatus(u"Status: Opening file .. "_s);
        shown = OpensByItself(Transfer.Stream().FileType()) && OpenByShell(result.Path);
        if (shown)
            WriteAppInfo(u"Document was opened for view/print by client."_s);
        closes = shown;
        ShowTransferStatus(shown ? u"Status: Document Retrieval Complete. Closing."_s
                                 : u"Status: Document Saved In Reports Folder, Not Opened: "_s
                                       + QFileInfo(result.Path).fileName());
    }
    Transfer.NoteTime();
    WriteAppInfo(u"Document Retrieval Successful. "_s + txtDocRetrievalString);
    if (shown)
        WriteAppInfo(u"Opening Document.."_s);
    return closes;
}

void DocumentJob::logFailure() const
{
    WriteAppInfo(u"ERROR *** frmDocTransfer: Timer1(). Requested Document Not Retrieved: "_s);
    WriteAppInfo(u"ERROR *** Requested Doc Command Was: "_s + txtDocRetrievalString);
}

/// Behind the run, which is over in every respect: the window may go while the user reads.
void DocumentJob::tellFailure(const TransferResult &result)
{
    if (result.End == TransferEnd::Saved || TransferWish() != Wish::Goes || !talk)
        return;
    if (result.IsDenied())
        talk->TellDenied();
    else
        talk->TellFailure();
}

void DocumentJob::ShowStopped(StopCase stopCase)
{
    ShowStoppedStatus();
    if (stopCase != StopCase::AllJobs)
        return;
    LogStoppedByAll();
    SetStatus(u"Search Stopped By User .. "_s);
    Q_EMIT Ended(true);
    Q_EMIT CloseWanted();
}

void DocumentJob::StopDone()
{
    if (HasTurn())
        return;
    Q_EMIT Ended(true);
    Q_EMIT CloseWanted();
}

void DocumentJob::GivenUp()
{
    talk = nullptr;
    // A run keeps its place until its reply has come: the next job would read what is left of it.
    if (!HasTurn())
        Withdraw();
}
