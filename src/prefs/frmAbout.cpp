#include "prefs/frmAbout.h"

#include "controls/WindowPlace.h"
#include "core/EventLoop.h"
#include "core/Version.h"
#include "ui_frmAbout.h"

#include <QIcon>

using namespace Qt::StringLiterals;

namespace {
constexpr int logoPixels = 64;
}

frmAbout::frmAbout(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowTitle(u"Halvane"_s);
    ui->lblVersion->setText(u"Version "_s + ProgramVersion());
    ui->imgLogo->setPixmap(QIcon(u":/toolbar/halvane.svg"_s).pixmap(logoPixels));
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

void frmAbout::ShowAsSplash()
{
    ui->cmdOK->hide();
    CentreOnScreen(this);
    show();
    raise();
    // Twice: the first turn shows the window, the second paints it.
    Yield();
    repaint();
    Yield();
}
