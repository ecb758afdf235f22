#pragma once

#include "casedetails/CaseWindow.h"

/// What the two case windows of the District and Municipal Courts have in common, besides what all
/// case windows have.
class DiscisCaseWindow : public CaseWindow
{
    Q_OBJECT
public:
    void SetCaseType(const QString &text);
    QString lblCaseType() const;
    void SetCaseNo(const QString &text);
    QString lblCaseNo() const;

protected:
    explicit DiscisCaseWindow(QWidget *parent);

    /// UseControls, with the controls that only these windows have.
    template<class Controls>
    void UseDiscisControls(const Controls &ui)
    {
        caseType = ui.lblCaseType;
        caseNo = ui.lblCaseNo;
        UseControls(ui);
    }

private:
    QLabel *caseType = nullptr;
    QLabel *caseNo = nullptr;
};
