#pragma once

#include "prefs/SystemInfo.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

/// Name and version of the program. At start it is the splash, without its button.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr,
                      SystemInfoSource source = SystemInfoSource::OfThisMachine());
    ~frmAbout() override;

    /// Shows the window as a splash, painted at once: nothing else will run while it is up.
    void ShowAsSplash();

    /// Runs the system's information tool, or says that there is none.
    void StartSysInfo();

private:
    const SystemInfoSource systemInfo;
    const std::unique_ptr<Ui::frmAbout> ui;
};
