#pragma once

#include "casedetails/CaseWindow.h"

#include <memory>

namespace Ui {
class frmCaseDetails;
}

class QAction;
struct DocumentStart;

/// One case of the Washington Superior Courts, the courts of Oregon and Idaho, or a Federal
/// Bankruptcy Court.
class frmCaseDetails : public CaseWindow
{
    Q_OBJECT
public:
    explicit frmCaseDetails(QWidget *parent = nullptr);
    ~frmCaseDetails() override;

    void SetTopFrameCaseType(const QString &text)
    {
        setHeader(&CaseRecord::lblTopFrameCaseType, text);
    }
    QString lblTopFrameCaseType() const { return Record().lblTopFrameCaseType; }

    /// Opens an associated case of the same county, by its number, in a window of its own. False,
    /// and a line in the log, when that fails.
    bool DoCaseNumberSearchAss(const QString &number);
    /// The same for a case of the list of judgments.
    bool DoCaseNumberSearchJudgment(const QString &number);

    /// Of several bankruptcy cases: the retrieval command of each row, in order.
    const QStringList &List1;

protected:
    void ShowHeader() override;

private:
    void GridSummary_DblClick(int row);
    void GridJudgment_DblClick(int row);
    bool openCaseOfCounty(const QString &number, const QString &procedure);

    void makeDocumentMenu();
    void offerDocuments();
    void GridDocuments_DblClick(int row);
    void retrieveChosen();
    void retrieveAll();
    bool offersAll(const QList<DocumentStart> &shown) const;
    /// Starts a transfer in a window of its own.
    template<class Transfer, class Start>
    void retrieve(const Start &start);
    /// The documents of the list that are in sight, and the row that a command for one of them is
    /// about, counted as in the grid; 0 when none is.
    QList<DocumentStart> shownDocuments() const;
    int chosenDocumentRow() const;

    const std::unique_ptr<Ui::frmCaseDetails> ui;
    QAction *retrieveDocument = nullptr;
    QAction *retrieveAllDocuments = nullptr;
};
