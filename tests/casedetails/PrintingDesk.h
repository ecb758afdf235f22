#pragma once

#include "casedetails/OnDemandDesk.h"
#include "reports/NotingViewer.h"

#include <functional>

class QDialog;

/// A test of case windows whose reports go nowhere, but are taken note of.
class PrintingTest : public OnDemandTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override;

protected:
    /// The print manager comes up next: `act` is done with it, then the button of this name is
    /// clicked.
    void AnswerPrintManager(
        const char *button, const std::function<void(QDialog *)> &act = [](QDialog *) {});
    /// The headings of a report.
    static QStringList TabsOfReport(const Report &report);
    /// The warnings of a report.
    static QStringList WarningsOf(const Report &report);

    ReportsSeen seen;
};
