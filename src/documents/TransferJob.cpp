#include "documents/TransferJob.h"

TransferJob::TransferJob(JobKindName name) : Job(name), Transfer(this) {}

TransferListener::Wish TransferJob::TransferWish() const
{
    if (StopRequested)
        return Wish::Stopped;
    return IsGivenUp() ? Wish::NobodyLooks : Wish::Goes;
}

void TransferJob::ShowTransferStatus(const QString &text)
{
    if (TransferWish() == Wish::Goes && text != Status.Text)
        SetStatus(text);
}
