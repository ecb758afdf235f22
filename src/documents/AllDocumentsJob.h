#pragma once

#include "documents/DocumentItem.h"
#include "documents/DocumentMemory.h"
#include "documents/TransferJob.h"

/// The retrieval of all documents of a case into a folder of its own, with a list of what came of
/// each. Each document has a turn of its own, so that other jobs come in between.
class AllDocumentsJob : public TransferJob
{
    Q_OBJECT
public:
    AllDocumentsJob();

    /// Takes what the starter hands over: the documents of one case, retrievable and not.
    void Take(const QList<DocumentStart> &starts);

    JobMatter Matter() const override { return {CaseNumber, County}; }

    /// Takes other documents of the same case once it is through, and retrieves these.
    void RetrieveOthers(const QList<DocumentStart> &starts);
    /// Tries again what could not be had.
    void RetryFailed();
    /// Retrieves what was here already.
    void RetrieveAgain();

    const QList<DocumentItem> &Items() const { return items; }
    int CountOf(ItemState state) const;
    /// How many there are that can be retrieved, and how many of these have been seen to.
    int Retrievable() const
    {
        return static_cast<int>(items.size()) - CountOf(ItemState::Unavailable);
    }
    int Done() const { return Retrievable() - CountOf(ItemState::Waiting); }
    /// The bytes of all that are here.
    qint64 Bytes() const;
    /// The one on its way; "" while there is none.
    QString PresentFile() const { return presentFile; }
    /// Where they go; "" until the first turn.
    QString Folder() const { return folder; }
    /// Where the documents of its case go.
    QString FolderOfCase() const { return CaseFolder(County, CaseNumber); }
    /// A line for each that is not here, or not as it was asked for, with the reason.
    QStringList Missing() const;
    bool IsOver() const { return State() == JobState::Over; }

    QString CaseNumber;
    QString County;

protected:
    void BeginTick() override;
    void ProcessSearchRequests() override;
    void ShowStopped(StopCase stopCase) override;
    void StopDone() override;
    void GivenUp() override;

private:
    void prepare();
    DocumentItem *nextWaiting();
    void retrieve(DocumentItem &item);
    void note(DocumentItem &item, const TransferResult &result) const;
    void goOn();
    void failRest(const QString &reason);
    void writeList();
    void finish();
    void showEnd();
    void startAnew(ItemState state);
    void waitAgain();
    QString reasonOf(const TransferResult &result) const;
    QString reasonNotWanted() const;

    QList<DocumentItem> items;
    DocumentMemory memory; ///< of earlier runs
    QString folder;
    QString presentFile;
    bool listFailed = false; ///< documents.csv could not be written
};
