#pragma once

#include "casedetails/DiscisCaseWindow.h"

#include <memory>

namespace Ui {
class frmNCCaseDetails;
}

/// One non-civil case of the Washington District and Municipal Courts: a criminal matter or an
/// infraction.
class frmNCCaseDetails : public DiscisCaseWindow
{
    Q_OBJECT
public:
    explicit frmNCCaseDetails(QWidget *parent = nullptr);
    ~frmNCCaseDetails() override;

protected:
    void ShowHeader() override;

private:
    const std::unique_ptr<Ui::frmNCCaseDetails> ui;
};
