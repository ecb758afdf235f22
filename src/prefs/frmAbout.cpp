#include "prefs/frmAbout.h"

#include "controls/MsgBox.h"
#include "controls/WindowPlace.h"
#include "core/EventLoop.h"
#include "core/Version.h"
#include "prefs/ScreenFit.h"
#include "ui_frmAbout.h"

#include <QIcon>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int logoPixels = 64;
}

frmAbout::frmAbout(QWidget *parent, SystemInfoSource source)
    : QDialog(parent), systemInfo(std::move(source)), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowTitle(u"Halvane"_s);
    ui->lblVersion->setText(u"Version "_s + ProgramVersion());
    ui->imgLogo->setPixmap(QIcon(u":/toolbar/halvane.svg"_s).pixmap(logoPixels));
    FitOnScreen(this, size());
    // Where there can be no tool, a button that only says so is no use.
    ui->cmdSysInfo->setVisible(systemInfo.hasRegistry);
    connect(ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

void frmAbout::ShowAsSplash()
{
    ui->cmdOK->hide();
    ui->cmdSysInfo->hide();
    CentreOnScreen(this);
    show();
    raise();
    // Twice: the first turn shows the window, the second paints it.
    Yield();
    repaint();
    Yield();
}

void frmAbout::StartSysInfo()
{
    const QString tool = SystemInfoTool(systemInfo);
    if (tool.isEmpty() || !systemInfo.run(tool))
        MsgBox(this, u"System Information Is Unavailable At This Time"_s);
}
