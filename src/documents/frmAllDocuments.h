#pragma once

#include "jobs/JobWindow.h"

#include <QList>

#include <memory>

class AllDocumentsJob;
struct DocumentStart;

namespace Ui {
class frmAllDocuments;
}

/// The window of all documents of a case: how many have come, what could not be had and why, and
/// what to do about it.
class frmAllDocuments : public JobWindow
{
    Q_OBJECT
    AllDocumentsJob *const documentsJob;

public:
    explicit frmAllDocuments(QWidget *parent = nullptr);
    ~frmAllDocuments() override;

    /// Takes what the starter hands over: the documents of one case, retrievable and not.
    void Take(const QList<DocumentStart> &starts);

    /// Shows the window that is there already for the case of these documents: two of them would
    /// each write the list of the folder as if there were no other. One that is through retrieves
    /// these; one that is not goes on with its own. False when there is none.
    static bool GoOnWith(const QList<DocumentStart> &starts);

protected:
    void ShowState() override;
    bool QueryUnload(UnloadMode mode) override;
    void showEvent(QShowEvent *event) override;

private:
    explicit frmAllDocuments(AllDocumentsJob *ownJob, QWidget *parent);
    void goOnWith(const QList<DocumentStart> &starts);
    void showCase();
    void showDocuments();
    void showCommands();
    void again(void (AllDocumentsJob::*what)());
    void cmdOpenFolder_Click();

    const std::unique_ptr<Ui::frmAllDocuments> ui;
    QString shownMissing;
    bool wasShown = false;
};
