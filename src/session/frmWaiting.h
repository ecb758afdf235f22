#pragma once

#include "controls/FormWindow.h"

#include <memory>

class JobWindow;
class ViewRoom;
class WaitingList;
class WaitingModel;
struct WaitingRow;

namespace Ui {
class frmWaiting;
}

/// Shows what runs, what waits and in which order, and what holds the queue, and keeps up with it.
/// It stands beside the children of the main window, not among them: whoever goes to one of them
/// from here still has the list.
class frmWaiting : public FormWindow
{
    Q_OBJECT
public:
    /// Takes the list, which outlives the window.
    explicit frmWaiting(WaitingList *waiting, QWidget *parent = nullptr);
    ~frmWaiting() override;

    /// Shows the window over the main window, or brings the one that is open to the front.
    static void ShowForm();

protected:
    void Unloading() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showRows();
    void showSummary();
    void offerCommands();
    const WaitingRow *chosen() const;
    JobWindow *chosenWindow() const;
    void chooseKey(const QString &key);
    void cmdGoTo_Click();
    void cmdStop_Click();
    void cmdSkip_Click();
    bool confirmed(const WaitingRow &row);

    const std::unique_ptr<Ui::frmWaiting> ui;
    WaitingList *const list;
    WaitingModel *const model;
    ViewRoom *room = nullptr;
    QString askedKey; ///< of the row that a question about Skip is about; "" without one
};
