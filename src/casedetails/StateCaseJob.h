#pragma once

#include "casedetails/CaseJob.h"

struct SummaryView;

/// The run of a case of the Washington Superior Courts, the courts of Oregon and Idaho, or a
/// Federal Bankruptcy Court.
class StateCaseJob : public CaseJob
{
    Q_OBJECT
public:
    StateCaseJob();

    void ShowTab(CaseTab tab, bool incomplete, const QString &request) override;

protected:
    void CutTabsToCase() override;
    void ShowSummaryResponse() override;
    void ShowSummaryFailure(const QString &reason) override;

private:
    void SetWashingtonTabs(const QString &number);
    void SetOregonTabs();
    void SetIdahoTabs();
    void showHeader(const SummaryView &view);
    void applySummary(const SummaryView &view);
};
