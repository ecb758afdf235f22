#include "prefs/frmAbout.h"

#include "controls/MsgBox.h"
#include "controls/ScreenFit.h"
#include "controls/WindowPlace.h"
#include "core/EventLoop.h"
#include "core/Version.h"
#include "core/VersionText.h"
#include "ui_frmAbout.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QIcon>

#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int logoPixels = 64;
constexpr QSize splashSize(400, 190);

/// What the dialog shows and copies.
QString programDetails()
{
    return VersionText(u"Halvane"_s);
}
} // namespace

frmAbout::frmAbout(QWidget *parent, SystemInfoSource source)
    : QDialog(parent), systemInfo(std::move(source)), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowTitle(u"Halvane"_s);
    ui->lblVersion->setText(u"Version "_s + ProgramVersion());
    ui->imgLogo->setPixmap(QIcon(u":/toolbar/halvane.svg"_s).pixmap(logoPixels));
    ui->lblDetails->setText(programDetails());
    FitOnScreen(this, size());
    // Where there can be no tool, a button that only says so is no use.
    ui->cmdSysInfo->setVisible(systemInfo.hasRegistry);
    connect(ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
    connect(ui->cmdCopy, &QPushButton::clicked, this, &frmAbout::Copy);
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

void frmAbout::ShowAsSplash()
{
    for (QWidget *ofTheDialog :
         std::initializer_list<QWidget *>{ui->cmdOK, ui->cmdSysInfo, ui->cmdCopy, ui->lblDetails})
        ofTheDialog->hide();
    resize(splashSize);
    CentreOnScreen(this);
    show();
    raise();
    // Twice: the first turn shows the window, the second paints it.
    Yield();
    repaint();
    Yield();
}

void frmAbout::Copy()
{
    QGuiApplication::clipboard()->setText(programDetails());
    ui->cmdCopy->setText(u"&Copied"_s);
}

void frmAbout::StartSysInfo()
{
    const QString tool = SystemInfoTool(systemInfo);
    if (tool.isEmpty() || !systemInfo.run(tool))
        MsgBox(this, u"System Information Is Unavailable At This Time"_s);
}
