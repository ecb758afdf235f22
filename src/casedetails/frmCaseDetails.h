#pragma once

#include "casedetails/CaseWindow.h"

#include <memory>

namespace Ui {
class frmCaseDetails;
}

/// One case of the Washington Superior Courts, the courts of Oregon and Idaho, or a Federal
/// Bankruptcy Court.
class frmCaseDetails : public CaseWindow
{
    Q_OBJECT
public:
    explicit frmCaseDetails(QWidget *parent = nullptr);
    ~frmCaseDetails() override;

    void SetTopFrameCaseType(const QString &text);
    QString lblTopFrameCaseType() const;

private:
    const std::unique_ptr<Ui::frmCaseDetails> ui;
};
