#pragma once

#include "documents/TransferJob.h"
#include "records/DocumentStart.h"

class DocumentTalk;

/// The retrieval of one document: takes its turn on the link, has it transferred and saved, and
/// opens it.
class DocumentJob : public TransferJob
{
    Q_OBJECT
public:
    DocumentJob();

    /// The user is told through this from now on, until the job is given up; null for nobody.
    void UseTalk(DocumentTalk *window) { talk = window; }
    /// Takes what the starter hands over.
    void Take(const DocumentStart &start);
    JobMatter Matter() const override { return matter; }

    DocumentStart Start; ///< what the starter has handed over
    /// How the last run came out: "Document Retrieved.", or why it is not here; "" before.
    QString Outcome;
    bool Retrieved = false; ///< the document is in the folder of reports

    QString txtDocRetrievalString; ///< the line of the list
    QString txtPageQty;
    ListBox lboxResponses;

Q_SIGNALS:
    /// The window is to go, and nobody is to be asked.
    void CloseWanted();

protected:
    void ProcessSearchRequests() override;
    void ShowStopped(StopCase stopCase) override;
    void StopDone() override;
    void GivenUp() override;

private:
    bool open(const TransferResult &result);
    void logFailure() const;
    void tellFailure(const TransferResult &result);

    DocumentTalk *talk = nullptr;
    JobMatter matter;
};
