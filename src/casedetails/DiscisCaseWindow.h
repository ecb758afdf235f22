#pragma once

#include "casedetails/CaseWindow.h"

#include <array>
#include <utility>

/// What the two case windows of the District and Municipal Courts have in common, besides what all
/// case windows have.
class DiscisCaseWindow : public CaseWindow
{
    Q_OBJECT
public:
    void SetCaseType(const QString &text) { setHeader(&CaseRecord::lblCaseType, text); }
    QString lblCaseType() const { return Record().lblCaseType; }
    void SetCaseNo(const QString &text) { setHeader(&CaseRecord::lblCaseNo, text); }
    QString lblCaseNo() const { return Record().lblCaseNo; }

protected:
    DiscisCaseWindow(CaseKind kind, QWidget *parent);

    /// UseControls, with the controls that only these windows have.
    template<class Controls>
    void UseDiscisControls(const Controls &ui)
    {
        caseType = ui.lblCaseType;
        caseNo = ui.lblCaseNo;
        UseControls(ui);
    }
    /// The labels that show the notes of a tab; none is seen before it has something to say.
    void UseNotes(CaseTab tab, QLabel *first, QLabel *second);

    void ShowHeader() override;
    void ShowTab(CaseTab tab) override;

private:
    void showNotes(CaseTab tab);

    QLabel *caseType = nullptr;
    QLabel *caseNo = nullptr;
    std::array<std::pair<QLabel *, QLabel *>, caseTabCount> notesOf;
};
