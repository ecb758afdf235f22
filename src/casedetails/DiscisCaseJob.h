#pragma once

#include "casedetails/CaseJob.h"

/// The run of a case of the Washington District and Municipal Courts, civil or not.
class DiscisCaseJob : public CaseJob
{
    Q_OBJECT
public:
    explicit DiscisCaseJob(CaseKind caseKind);

protected:
    void BeginTick() override;
    void CutTabsToCase() override;
    void ShowSummaryResponse() override;
    void ShowSummaryFailure(const QString &reason) override;
};
