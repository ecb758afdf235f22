#include "session/frmInactivity.h"

#include "core/RunTimeError.h"
#include "session/SessionState.h"
#include "ui_frmInactivity.h"

#include <QApplication>
#include <QPointer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmInactivity> warning;

constexpr int tickMilliseconds = 1000;
} // namespace

void frmInactivity::ShowWarning(QWidget *parent)
{
    CloseWarning();
    warning = new frmInactivity(parent);
    warning->show();
    // A modal window that is open already blocks it silently.
    warning->standOverModal();
}

void frmInactivity::CloseWarning()
{
    if (warning)
        warning->leave(false);
    warning = nullptr;
}

frmInactivity::frmInactivity(QWidget *parent)
    : QDialog(parent), Timer1(new QTimer(this)), Timer1Tag(u"15"_s),
      ui(std::make_unique<Ui::frmInactivity>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    Session.bAutoLogout = false;
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(tickMilliseconds);
    connect(Timer1, &QTimer::timeout, this, &frmInactivity::Tick);
    connect(ui->cmdCancel, &QPushButton::clicked, this, [this] { leave(false); });
    connect(ui->cmdLogOut, &QPushButton::clicked, this, [this] { leave(true); });
    Timer1->start();
}

frmInactivity::~frmInactivity() = default;

bool frmInactivity::event(QEvent *event)
{
    if (event->type() == QEvent::WindowBlocked)
        QMetaObject::invokeMethod(this, &frmInactivity::standOverModal, Qt::QueuedConnection);
    return QDialog::event(event);
}

/// What belongs to a modal window is not blocked by it.
void frmInactivity::standOverModal()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || isHidden() || !windowHandle())
        return;
    windowHandle()->setTransientParent(modal->window()->windowHandle());
    raise();
    activateWindow();
}

void frmInactivity::Tick()
{
    Timer1->stop();
    const int left = ToInteger(Timer1Tag) - 1;
    Timer1Tag = QString::number(left);
    ui->cmdLogOut->setText(u"Logout = "_s + Timer1Tag + u" Seconds"_s);
    ui->cmdLogOut->repaint();
    if (left > 0) {
        Session.bAutoLogout = false;
        Timer1->start();
        return;
    }
    leave(true);
}

void frmInactivity::leave(bool logOut)
{
    Timer1->stop();
    Session.bAutoLogout = logOut;
    close();
}
