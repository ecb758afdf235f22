#pragma once

#include "prefs/OptionTable.h"

#include <QDialog>

#include <functional>
#include <initializer_list>
#include <memory>

namespace Ui {
class frmOpts;
}

/// What the options tell the windows that show what depends on them.
class OptionsEvents : public QObject
{
    Q_OBJECT
public:
    static OptionsEvents &Of();

Q_SIGNALS:
    /// The options were saved, and those that are in force at once are in force.
    void Saved();
    /// The user wants the whole history forgotten, and has been asked.
    void ClearHistoryWanted();
};

/// The one window for the settings of options.ini. It shows them as OptionTable reads them, and
/// with OK hands over what its controls show; Cancel leaves everything as it was, except an address
/// that was chosen.
class frmOpts : public QDialog
{
    Q_OBJECT
public:
    explicit frmOpts(QWidget *parent = nullptr, const OptionValues &values = LoadOpts());
    ~frmOpts() override;

    /// Reads the options and shows them until the window is left. A file without addresses is
    /// announced first.
    static void ShowModal(QWidget *parent);

    /// What the controls show now.
    OptionValues Values() const;

private:
    QSize wholeSize() const;
    void connectControls();
    void showValues(const OptionValues &values);
    void showRow(const OptionRow &row, const QString &text);
    QString textOf(const OptionRow &row) const;

    void cmdOK_Click();
    bool mayKeepPort();
    bool mayKeepPhrase();
    void cboxHvServerIPs_Click(const QString &address);
    void cmdChangeRptFolder_Click();
    void takeFolder(const QString &folder);
    void cmdClearHistory_Click();
    void showIdleMinutes();
    void restoreDefaults(std::initializer_list<OptionGroup> groups);
    void chkCaseDefault_Click(bool wanted);
    void tabsChanged();
    bool everyTabIsAsByDefault() const;
    void showAt(QWidget *control);

    const std::unique_ptr<Ui::frmOpts> ui;
    const OptionValues loaded;
    OptionValues chosenTabs; ///< the tabs as they were before chkCaseDefault was ticked
};
