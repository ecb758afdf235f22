#pragma once

#include "documents/DocumentTalk.h"
#include "jobs/JobWindow.h"

#include <memory>

class DocumentJob;
class ListBox;
struct DocumentStart;

namespace Ui {
class frmDocTransfer;
}

/// The small window of one document on its way: says what is retrieved and how far it is, and goes
/// by itself. It stays when nothing opens the document, to say where it is.
class frmDocTransfer : public JobWindow, private DocumentTalk
{
    Q_OBJECT
    DocumentJob *const documentJob;

public:
    explicit frmDocTransfer(QWidget *parent = nullptr);
    ~frmDocTransfer() override;

    /// Takes what the starter hands over.
    void Take(const DocumentStart &start);

    // What the starter hands over, besides the members of every job
    QString &txtDocRetrievalString;
    QString &txtPageQty;
    QString &sClientMatterText;

    ListBox &lboxResponses;
    ListBox &List1; ///< times
    ListBox &List2; ///< what has come, and when
    QString &Text1; ///< how long it took
    qint64 &Text2;  ///< bytes of the last piece

protected:
    bool QueryUnload(UnloadMode mode) override;
    void showEvent(QShowEvent *event) override;

private:
    explicit frmDocTransfer(DocumentJob *ownJob, QWidget *parent);
    void showTransfer();
    void closeUnasked();

    void TellFailure() override;
    void TellDenied() override;

    const std::unique_ptr<Ui::frmDocTransfer> ui;
    bool closesUnasked = false;
    bool wasShown = false;
};
