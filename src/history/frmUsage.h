#pragma once

#include "controls/FormWindow.h"
#include "history/HistoryReader.h"

#include <QTimer>

#include <memory>

class ReportViewer;

namespace Ui {
class frmUsage;
}

/// The account: a line for each client code and month with what was sent for it, a total, and under
/// it the searches, cases and documents behind the line that is selected. It follows the history
/// while it is open.
class frmUsage : public FormWindow
{
    Q_OBJECT
public:
    explicit frmUsage(QWidget *parent = nullptr);
    ~frmUsage() override;

    /// Shows the window, which there is once, as a child of the main window.
    static void ShowForm();

    bool HasReport() const override { return true; }
    void PrintDirect() override;
    void PrintToFile(const QString &path) override;

    QTimer *tmrRefresh; ///< reads the account some time after the history has changed

protected:
    void Unloading() override;

private:
    void makeColumns();
    void showLines();
    void showBehind();
    const HistoryUsage *selectedLine() const;

    const std::unique_ptr<Ui::frmUsage> ui;
    const std::unique_ptr<ReportViewer> viewer;
    QList<HistoryUsage> lines; ///< without the total
    bool filling = false;
};
