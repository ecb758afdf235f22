#pragma once

#include "courts/CourtTable.h"
#include "documents/DocumentTransfer.h"
#include "jobs/Job.h"
#include "records/DocumentStart.h"

class DocumentTalk;

/// The retrieval of one document: takes its turn on the link, has it transferred and saved, and
/// opens it.
class DocumentJob : public Job, private TransferListener
{
    Q_OBJECT
public:
    DocumentJob();

    /// The user is told through this from now on, until the job is given up; null for nobody.
    void UseTalk(DocumentTalk *window) { talk = window; }
    /// Takes what the starter hands over.
    void Take(const DocumentStart &start);

    QString lblState = CourtOf(CourtFamily::Superior).State.toString(); ///< no other has any
    QString txtDocRetrievalString;                                      ///< the line of the list
    QString txtPageQty;
    QString sClientMatterText;
    ListBox lboxResponses;
    DocumentTransfer Transfer;

Q_SIGNALS:
    /// The court has the request: from here on the status changes by itself, and need not blink.
    void Contacting();
    /// The window is to go, and nobody is to be asked.
    void CloseWanted();

protected:
    void ProcessSearchRequests() override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void StopDone() override;
    void GivenUp() override;

private:
    Wish TransferWish() const override;
    void ShowTransferStatus(const QString &text) override;
    void TransferChanged() override { Q_EMIT Changed(); }
    void TransferContacting() override { Q_EMIT Contacting(); }

    bool open(const TransferResult &result);
    void logFailure() const;
    void tellFailure(const TransferResult &result);

    DocumentTalk *talk = nullptr;
};
