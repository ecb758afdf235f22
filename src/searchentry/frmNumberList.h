#pragma once

#include "controls/FormWindow.h"

#include <QPointer>

#include <memory>

class NumberListRun;
namespace Ui {
class frmNumberList;
}

/// What has come of the numbers of a list, row by row while the cases come. Closed before the end,
/// it comes up again then.
class frmNumberList : public FormWindow
{
    Q_OBJECT
public:
    /// Shows the run, in the main window when there is one, and again at its end. The run goes with
    /// the window that shows the end.
    static void Follow(NumberListRun *run);
    ~frmNumberList() override;

protected:
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;

private:
    explicit frmNumberList(NumberListRun *shown);
    static frmNumberList *show(NumberListRun *run);

    void showStatus();
    void copy();

    const std::unique_ptr<Ui::frmNumberList> ui;
    const QPointer<NumberListRun> run;
};
