#pragma once

#include "casedetails/DiscisCaseWindow.h"

#include <memory>

namespace Ui {
class frmCivilCaseDetails;
}

/// One civil case of the Washington District and Municipal Courts.
class frmCivilCaseDetails : public DiscisCaseWindow
{
    Q_OBJECT
public:
    explicit frmCivilCaseDetails(QWidget *parent = nullptr);
    ~frmCivilCaseDetails() override;

protected:
    void ShowHeader() override;

private:
    const std::unique_ptr<Ui::frmCivilCaseDetails> ui;
};
