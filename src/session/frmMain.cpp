#include "session/frmMain.h"

#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "controls/Twips.h"
#include "controls/WindowPlace.h"
#include "core/AppFolder.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/UserStore.h"
#include "core/Version.h"
#include "jobs/WaitingList.h"
#include "link/ConnectState.h"
#include "session/EditCommands.h"
#include "session/FrameSize.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/WindowMenu.h"
#include "session/frmConnect.h"
#include "session/frmConnectionStatus.h"
#include "session/frmInactivity.h"
#include "session/frmLogin.h"
#include "session/frmMsg.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFontMetrics>
#include <QMdiSubWindow>
#include <QToolButton>
#include <QUrl>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmMain> loaded;

constexpr int connectStatusMilliseconds = 15000;
constexpr int exitMilliseconds = 700;
constexpr int messagePanel = 1;
constexpr int connectionPanel = 4;

/// Where the window stood is kept in twips.
struct PositionKey
{
    QStringView key;
    QStringView fallback;
};
constexpr std::array<PositionKey, 4> positionKeys{{
    {u"MainLeft", u"1000"},
    {u"MainTop", u"1000"},
    {u"MainWidth", u"6500"},
    {u"MainHeight", u"6500"},
}};

QLabel *plainLabel(QWidget *parent, const QString &name)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(name);
    return label;
}

void openSupportPage()
{
    QDesktopServices::openUrl(QUrl(SupportPage()));
}

} // namespace

/// Outside every namespace, as the macro wants it.
static void initResources()
{
    Q_INIT_RESOURCE(toolbar);
}

frmMain::frmMain()
    : tmrConnectStatus(new QTimer(this)), TimerExit(new QTimer(this)),
      ui(std::make_unique<Ui::frmMain>()), edit(new EditCommands(this)),
      waiting(new WaitingList(this))
{
    initResources();
    ui->setupUi(this);
    loaded = this;
    setWindowIcon(QIcon(u":/toolbar/halvane.svg"_s));
    tmrConnectStatus->setObjectName(u"tmrConnectStatus"_s);
    tmrConnectStatus->setInterval(connectStatusMilliseconds);
    TimerExit->setObjectName(u"TimerExit"_s);
    TimerExit->setInterval(exitMilliseconds);
    makeStatusBar();
    connectFileAndEdit();
    connectMenus();
    connectToolBar();
    connect(tmrConnectStatus, &QTimer::timeout, this, &frmMain::CheckConnection);
    connect(TimerExit, &QTimer::timeout, this, &frmMain::TimerExit_Tick);
    connect(ui->mdiArea, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        // None is active while the program is behind another one, or goes.
        if (!window)
            return;
        listActiveWindows();
        offerCommands();
    });
    offerCommands();
    offerEditing();
    Load();
}

frmMain::~frmMain()
{
    // Its fields lose the keyboard when they go, and the menus are gone by then.
    edit->disconnect(this);
}

frmMain *frmMain::Form()
{
    return loaded;
}

void frmMain::Load()
{
    RestorePosition();
    ShowConnection(Global.bLoggedIn);
    UpdateStatusBarText(messagePanel, u"Halvane Ready .."_s);
    LoadMainWindowOptions();
    tmrConnectStatus->start();
}

void frmMain::makeStatusBar()
{
    for (size_t i = 0; i < panels.size(); ++i)
        panels[i] = plainLabel(this, u"sbStatusBar_"_s + QString::number(i + 1));
    notice = plainLabel(this, u"lblNotice"_s);
    notice->hide();
    cmdWaiting = statusButton(u"cmdWaiting"_s);
    cmdWaiting->setToolTip(u"Show what runs, what waits for its turn, and what holds it up"_s);
    cmdConnect = statusButton(u"cmdConnect"_s);
    cmdConnect->setText(u"Connect .."_s);
    cmdConnect->setToolTip(u"Connect to the Halvane Server and log in"_s);
    connect(cmdConnect, &QToolButton::clicked, this, &frmMain::mnuConnnectionConnect_Click);
    connect(cmdWaiting, &QToolButton::clicked, ui->mnuSearchWaiting, &QAction::trigger);
    connect(waiting, &WaitingList::Changed, this, &frmMain::showWaiting);
    lamp = plainLabel(this, u"lamp"_s);
    ui->sbStatusBar->addWidget(panels[0], 1);
    ui->sbStatusBar->addPermanentWidget(cmdWaiting);
    ui->sbStatusBar->addPermanentWidget(notice);
    ui->sbStatusBar->addPermanentWidget(panels[1]);
    ui->sbStatusBar->addPermanentWidget(panels[2]);
    ui->sbStatusBar->addPermanentWidget(lamp);
    ui->sbStatusBar->addPermanentWidget(panels[3]);
    ui->sbStatusBar->addPermanentWidget(cmdConnect);
    panels[0]->setContentsMargins(6, 0, 0, 0);
    // A long text is cut before it keeps the window from becoming narrow.
    for (QLabel *text : {panels[0], notice})
        text->setMinimumWidth(1);
    panels[3]->setMinimumWidth(fontMetrics().horizontalAdvance(u"Not Connected"_s) + 8);
}

/// A button of the status bar, out of sight. The keyboard comes to it, but a click does not take
/// the keyboard from whoever types.
QToolButton *frmMain::statusButton(const QString &name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->hide();
    return button;
}

void frmMain::connectFileAndEdit()
{
    connect(ui->mnuFileSave, &QAction::triggered, this, &frmMain::mnuFileSave_Click);
    connect(ui->mnuFilePrint, &QAction::triggered, this, &frmMain::mnuFilePrint_Click);
    connect(ui->mnuFilePageSetup, &QAction::triggered, this,
            [] { Q_EMIT SessionEvents::Of().PageSetupWanted(); });
    connect(ui->mnuViewOptions, &QAction::triggered, this,
            [] { Q_EMIT SessionEvents::Of().OptionsWanted(); });
    connect(ui->mnuFileExit, &QAction::triggered, this, &frmMain::mnuFileExit_Click);
    connect(ui->mnuEditCut, &QAction::triggered, edit, &EditCommands::Cut);
    connect(ui->mnuEditCopy, &QAction::triggered, edit, &EditCommands::Copy);
    connect(ui->mnuEditPaste, &QAction::triggered, edit, &EditCommands::Paste);
    connect(edit, &EditCommands::Changed, this, &frmMain::offerEditing);
    connect(ui->mnuViewToolbar, &QAction::toggled, ui->tbToolBar, &QWidget::setVisible);
    connect(ui->mnuViewStatusBar, &QAction::toggled, ui->sbStatusBar, &QWidget::setVisible);
}

void frmMain::connectMenus()
{
    connectCourts();
    connect(ui->mnuConnnectionConnect, &QAction::triggered, this,
            &frmMain::mnuConnnectionConnect_Click);
    connect(&JobEvents::Of(), &JobEvents::ConnectWanted, this, [this] {
        // The timer may not have looked since the link was lost.
        CheckConnection();
        mnuConnnectionConnect_Click();
    });
    connect(ui->mnuConnectionDisConnect, &QAction::triggered, this,
            &frmMain::mnuConnectionDisConnect_Click);
    connect(ui->mnuConnectionStatus, &QAction::triggered, this,
            [this] { ModalDialog<frmConnectionStatus>(this).Run(); });
    connect(ui->mnuStartSearch, &QAction::triggered, this,
            [] { Q_EMIT SessionEvents::Of().SearchWithStateWanted(); });
    SessionEvents *wanted = &SessionEvents::Of();
    connect(ui->mnuSearchWaiting, &QAction::triggered, wanted, &SessionEvents::WaitingWanted);
    connect(ui->mnuSearchHistory, &QAction::triggered, wanted, &SessionEvents::HistoryWanted);
    connect(ui->mnuSearchUsage, &QAction::triggered, wanted, &SessionEvents::UsageWanted);
    connect(ui->mnuCheckMsgs, &QAction::triggered, this, &frmMain::mnuCheckMsgs_Click);
    windows = new WindowMenu({.Menu = ui->mnuWindow,
                              .Cascade = ui->mnuWindowCascade,
                              .Tile = ui->mnuWindowTile,
                              .Next = ui->mnuWindowNext,
                              .Previous = ui->mnuWindowPrevious,
                              .Close = ui->mnuWindowClose,
                              .CloseAll = ui->mnuWindowCloseAll},
                             ui->mdiArea);
    connect(ui->mnuHelpOnline, &QAction::triggered, this, &openSupportPage);
    connect(ui->mnuCourtDates, &QAction::triggered, this, &openSupportPage);
    connect(ui->mnuHelpAbout, &QAction::triggered, this,
            [] { Q_EMIT SessionEvents::Of().AboutWanted(); });
}

void frmMain::connectToolBar()
{
    connect(ui->tbToolBar_Save, &QAction::triggered, ui->mnuFileSave, &QAction::trigger);
    connect(ui->tbToolBar_Print, &QAction::triggered, ui->mnuFilePrint, &QAction::trigger);
    connect(ui->tbToolBar_Cut, &QAction::triggered, edit, &EditCommands::Cut);
    connect(ui->tbToolBar_Copy, &QAction::triggered, edit, &EditCommands::Copy);
    connect(ui->tbToolBar_Paste, &QAction::triggered, edit, &EditCommands::Paste);
    connect(ui->tbToolBar_Search, &QAction::triggered, ui->mnuStartSearch, &QAction::trigger);
    connect(ui->tbToolBar_Back, &QAction::triggered, this, &frmMain::BackToPreviousChild);
    connect(ui->tbToolBar_Delete, &QAction::triggered, this,
            [this] { MsgBox(this, u"Add 'Delete' button code."_s); });
    connect(ui->tbToolBar_Help, &QAction::triggered, this,
            [this] { MsgBox(this, u"Add 'Help' button code."_s); });
}

void frmMain::RestorePosition()
{
    std::array<int, positionKeys.size()> place{};
    for (size_t i = 0; i < positionKeys.size(); ++i) {
        bool isNumber = false;
        const QString fallback = positionKeys[i].fallback.toString();
        const int twips = UserStoreValue(u"Settings"_s, positionKeys[i].key.toString(), fallback)
                              .toInt(&isNumber);
        place[i] = PixelsFromTwips(isNumber ? twips : fallback.toInt());
    }
    setGeometry(WithinReach({place[0], place[1], place[2], place[3]}));
}

void frmMain::SavePosition()
{
    if (isMinimized())
        return;
    const QRect where = isMaximized() ? normalGeometry() : geometry();
    const std::array<int, positionKeys.size()> place{where.left(), where.top(), where.width(),
                                                     where.height()};
    for (size_t i = 0; i < positionKeys.size(); ++i)
        SaveUserStoreValue(u"Settings"_s, positionKeys[i].key.toString(),
                           QString::number(TwipsFromPixels(place[i])));
}

bool frmMain::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        Activated();
    return QMainWindow::event(event);
}

void frmMain::Activated()
{
    listActiveWindows();
    ShowConnection(Global.bLoggedIn);
    // Once: whoever made the window smaller afterwards wants it so.
    if (!activatedOnce)
        setWindowState(windowState() | Qt::WindowMaximized);
    activatedOnce = true;
}

void frmMain::ShowChild(FormWindow *child)
{
    const QSize designed = child->size();
    QMdiSubWindow *frame = ui->mdiArea->addSubWindow(child);
    // The child is deleted by its own rules, and may have to outlive its frame for a while.
    frame->setAttribute(Qt::WA_DeleteOnClose, false);
    frame->setWindowIcon(windowIcon());
    WindowMenu::Adopt(frame);
    connect(child, &FormWindow::Unloaded, frame, [this, frame] {
        frame->setWidget(nullptr);
        ui->mdiArea->removeSubWindow(frame);
        listActiveWindows();
        offerCommands();
        frame->deleteLater();
    });
    auto *size = new FrameSize(ui->mdiArea, frame, designed);
    size->Give();
    child->show();
    frame->show();
    // The area has put it somewhere when it was shown.
    size->Give();
    ui->mdiArea->setActiveSubWindow(frame);
}

void frmMain::ShowChildAgain(FormWindow *child)
{
    auto *frame = qobject_cast<QMdiSubWindow *>(child->parentWidget());
    if (!frame) {
        ShowChild(child);
        return;
    }
    child->show();
    frame->setWindowState(frame->windowState() & ~Qt::WindowMinimized);
    frame->show();
    ui->mdiArea->setActiveSubWindow(frame);
}

void frmMain::HideChild(FormWindow *child)
{
    if (QWidget *frame = child->parentWidget())
        frame->hide();
    offerCommands();
}

FormWindow *frmMain::ActiveChild() const
{
    const QMdiSubWindow *active = ui->mdiArea->currentSubWindow();
    return active ? qobject_cast<FormWindow *>(active->widget()) : nullptr;
}

/// A command is there exactly when it can do something.
void frmMain::offerCommands()
{
    const FormWindow *child = ActiveChild();
    const bool report = child && !child->parentWidget()->isHidden() && child->HasReport();
    for (QAction *action :
         {ui->mnuFileSave, ui->tbToolBar_Save, ui->mnuFilePrint, ui->tbToolBar_Print})
        action->setEnabled(report);
    windows->OfferCommands();
    ui->tbToolBar_Back->setEnabled(childrenByActivation().size() >= 2);
}

void frmMain::offerEditing()
{
    for (QAction *action : {ui->mnuEditCut, ui->tbToolBar_Cut})
        action->setEnabled(edit->CanCut());
    for (QAction *action : {ui->mnuEditCopy, ui->tbToolBar_Copy})
        action->setEnabled(edit->CanCopy());
    for (QAction *action : {ui->mnuEditPaste, ui->tbToolBar_Paste})
        action->setEnabled(edit->CanPaste());
}

void frmMain::mnuFileSave_Click()
{
    FormWindow *child = ActiveChild();
    if (child && child->HasReport())
        Q_EMIT SessionEvents::Of().SaveWanted(child);
}

void frmMain::mnuFilePrint_Click()
{
    if (FormWindow *child = ActiveChild())
        child->PrintDirect();
}

void frmMain::listActiveWindows()
{
    lstActiveWindows.clear();
    for (const QMdiSubWindow *child : childrenByActivation())
        lstActiveWindows.append(child->windowTitle());
}

QList<QMdiSubWindow *> frmMain::childrenByActivation() const
{
    QList<QMdiSubWindow *> shown = ui->mdiArea->subWindowList(QMdiArea::ActivationHistoryOrder);
    shown.removeIf([](const QMdiSubWindow *child) { return child->isHidden(); });
    return shown;
}

void frmMain::BackToPreviousChild()
{
    // Anew: a results window takes its caption some time after it was activated.
    listActiveWindows();
    const QList<QMdiSubWindow *> shown = childrenByActivation();
    if (shown.size() >= 2)
        ui->mdiArea->setActiveSubWindow(shown[shown.size() - 2]);
}

void frmMain::UpdateStatusBarText(int panel, const QString &text)
{
    if (panel < 1 || panel > static_cast<int>(panels.size()))
        return;
    QLabel *shown = panels[static_cast<size_t>(panel) - 1];
    if (shown->text() == text)
        return;
    shown->setText(text);
    // What is said now may be followed by something that takes its time, and a tip would hide it.
    if (panel == messagePanel)
        ui->sbStatusBar->clearMessage();
    ui->sbStatusBar->repaint();
}

void frmMain::SetNotice(const QString &text)
{
    notice->setText(text);
    notice->setToolTip(text);
    notice->setVisible(!text.isEmpty());
}

void frmMain::showWaiting()
{
    const QString summary = waiting->Summary();
    cmdWaiting->setText(summary);
    cmdWaiting->setAccessibleName(u"Queue: "_s + summary);
    QFont font = ui->sbStatusBar->font();
    font.setBold(waiting->HeldUp());
    cmdWaiting->setFont(font);
    cmdWaiting->setVisible(!summary.isEmpty());
}

void frmMain::ShowConnection(bool connected)
{
    const QString file = connected ? u"greenlt.bmp"_s : u"redlt.bmp"_s;
    QPixmap picture(AppFile(file));
    // The pictures have a ground of their own, which a dark window would show as a square.
    if (!picture.isNull())
        picture.setMask(picture.createHeuristicMask());
    lamp->setPixmap(picture);
    UpdateStatusBarText(connectionPanel, connected ? u"Connected"_s : u"Not Connected"_s);
    UpdateStatusBarText(messagePanel, u"Halvane Ready .."_s);
    ui->mnuConnnectionConnect->setChecked(connected);
    ui->mnuConnnectionConnect->setEnabled(!connected);
    ui->mnuConnectionDisConnect->setChecked(false);
    ui->mnuConnectionDisConnect->setEnabled(connected);
    cmdConnect->setVisible(!connected);
    // The timer may not have looked since the link was lost.
    if (connected && !Global.bConnectionClosed)
        Q_EMIT JobEvents::Of().Connected();
}

void frmMain::SetTxtConnectStatus(const QString &text)
{
    if (connectStatus == text)
        return;
    connectStatus = text;
    CheckConnection();
}

void frmMain::CheckConnection()
{
    if (Global.bConnectionClosed || Global.intConnectState != ConnectDone) {
        connectStatus = u"NOT CONNECTED"_s;
        if (Global.bLoggedIn)
            SessionChanged();
        Global.bLoggedIn = false;
        Global.bLoginBusy = false;
        Global.bGettingParams = false;
        Global.bGettingMessages = false;
    }
    ShowConnection(connectStatus == u"Connected");
}

void frmMain::SessionChanged()
{
    ++sessionChanges;
    frmInactivity::CloseWarning();
    SettleQuestions(ui->mnuConnectionDisConnect);
    Q_EMIT SessionEvents::Of().SessionChanged();
}

void frmMain::mnuConnnectionConnect_Click()
{
    // A click checks the entry by itself; only the connection does.
    ui->mnuConnnectionConnect->setChecked(Global.bLoggedIn);
    if (Global.bLoggedIn)
        return;
    if (Global.bShowAlerts)
        frmConnect::ShowModal(this);
    else
        Global.bConnectChosen = true;
    if (Global.bConnectChosen)
        frmLogin::ShowForm(this);
}

void frmMain::connectCourts()
{
    const std::array<std::pair<QAction *, CourtEntry>, 5> entries{{
        {ui->mnuCourtsWaSuperior, CourtEntry::WaSuperior},
        {ui->mnuCourtsWaDiscis, CourtEntry::WaDiscis},
        {ui->mnuOrCourts, CourtEntry::Oregon},
        {ui->mnuFedBK, CourtEntry::Bankruptcy},
        {ui->mnuIdahoSupremeCourt, CourtEntry::Idaho},
    }};
    for (const auto &[action, court] : entries)
        connect(action, &QAction::triggered, this, [entries, chosen = action, wanted = court] {
            for (const auto &entry : entries)
                entry.first->setChecked(entry.first == chosen);
            Q_EMIT SessionEvents::Of().CourtWanted(wanted);
        });
}

void frmMain::mnuCheckMsgs_Click()
{
    if (Session.strPrivateMsgs == NoMessagesFound() || Session.strPrivateMsgs.isEmpty()) {
        MsgBox(this, u"No Messages Found."_s, u"Halvane - Private Messages"_s);
        return;
    }
    frmMsg::ShowForm(this).SetText1(Session.strPrivateMsgs);
}
