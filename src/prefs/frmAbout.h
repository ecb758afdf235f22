#pragma once

#include "prefs/SystemInfo.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

/// Name and version of the program, and what it runs on. At start it is the splash, without its
/// buttons and with nothing but the name and the version.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr,
                      SystemInfoSource source = SystemInfoSource::OfThisMachine());
    ~frmAbout() override;

    /// Shows the window as a splash, painted at once: nothing else will run while it is up.
    void ShowAsSplash();

    /// Puts what a report of a problem has to say of the program on the clipboard, and says so.
    void Copy();

    /// Runs the system's information tool, or says that there is none.
    void StartSysInfo();

private:
    const SystemInfoSource systemInfo;
    const std::unique_ptr<Ui::frmAbout> ui;
};
