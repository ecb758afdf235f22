#pragma once

#include "controls/FormWindow.h"

#include <QDateTime>

#include <memory>

class HistoryModel;
class QAction;
class QMenu;
class ViewRoom;
struct AskedItem;

namespace Ui {
class frmHistory;
}

/// The history: everything that was asked for, newest first. What it finds can go back on the
/// search form, or be asked for again; both are done above this window.
class frmHistory : public FormWindow
{
    Q_OBJECT
public:
    explicit frmHistory(QWidget *parent = nullptr);
    ~frmHistory() override;

    /// Shows the window in the main window, or brings the one that is open to the front.
    static void ShowForm();

    /// Something that can be asked for again, as far as is known of its origin.
    static bool IsAskable(const AskedItem &item);
    /// Something that was entered on the search form.
    static bool IsEntered(const AskedItem &item);

protected:
    void Unloading() override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeMenu();
    void makeColumns();
    void filterChanged();
    void refresh();
    void rowsCame();
    void showCount();
    void offerCommands();
    AskedItem chosen() const;
    void rowActivated();
    void cmdFill_Click();
    void cmdAgain_Click();
    bool isSecondOfTwo(qint64 id) const;
    void copyRow();

    const std::unique_ptr<Ui::frmHistory> ui;
    HistoryModel *const model;
    ViewRoom *room = nullptr;
    struct
    {
        qint64 Id = 0;
        QDateTime When;
    } lastAgain; ///< what was asked for again last
    QMenu *menu = nullptr;
    QAction *fillForm = nullptr;
    QAction *askAgain = nullptr;
    QAction *copyText = nullptr;
};
