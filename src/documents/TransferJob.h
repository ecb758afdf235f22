#pragma once

#include "courts/CourtTable.h"
#include "documents/DocumentTransfer.h"
#include "jobs/Job.h"

/// A job that has documents transferred: what one document and all documents of a case have in
/// common. It says to the transfer whether the document is still wanted, and shows how it goes on.
class TransferJob : public Job, private TransferListener
{
    Q_OBJECT
public:
    QString lblState = CourtOf(CourtFamily::Superior).State.toString(); ///< no other has any
    QString sClientMatterText;
    DocumentTransfer Transfer;

Q_SIGNALS:
    /// The court has a request: from here on the status changes by itself, and need not blink.
    void Contacting();

protected:
    using Wish = TransferListener::Wish;

    /// `name` is the kind of the first run.
    explicit TransferJob(JobKindName name);

    QString StopRequest() const override { return Transfer.StopRequest(); }
    Wish TransferWish() const override;
    void ShowTransferStatus(const QString &text) override;

private:
    void TransferChanged() override { Q_EMIT Changed(); }
    void TransferContacting() override { Q_EMIT Contacting(); }
};
