#include "documents/frmAllDocuments.h"

#include "controls/MsgBox.h"
#include "controls/WindowPlace.h"
#include "controls/WrappedText.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/AllDocumentsJob.h"
#include "session/LoginOffer.h"
#include "session/frmMain.h"
#include "ui_frmAllDocuments.h"

#include <QDir>
#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int percent = 100;

QString sizeText(qint64 bytes)
{
    return QLocale::system().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

/// The windows that there are.
QList<frmAllDocuments *> &allWindows()
{
    static QList<frmAllDocuments *> windows;
    return windows;
}

QString folderOf(const DocumentStart &start)
{
    return CaseFolder(start.County, start.CaseNumber);
}
} // namespace

frmAllDocuments::frmAllDocuments(QWidget *parent) : frmAllDocuments(new AllDocumentsJob, parent) {}

frmAllDocuments::frmAllDocuments(AllDocumentsJob *ownJob, QWidget *parent)
    : JobWindow(ownJob, &ownJob->lblState, &ownJob->sClientMatterText, parent),
      documentsJob(ownJob), ui(std::make_unique<Ui::frmAllDocuments>())
{
    ui->setupUi(this);
    allWindows().append(this);
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    connect(ui->cmdOpenFolder, &QPushButton::clicked, this, &frmAllDocuments::cmdOpenFolder_Click);
    connect(ui->cmdRetryFailed, &QPushButton::clicked, this,
            [this] { again(&AllDocumentsJob::RetryFailed); });
    connect(ui->cmdRetrieveAgain, &QPushButton::clicked, this,
            [this] { again(&AllDocumentsJob::RetrieveAgain); });
    connect(documentsJob, &Job::Changed, this, &frmAllDocuments::showDocuments);
    connect(documentsJob, &AllDocumentsJob::Contacting, this, [this] { StopBlinking(); });
    showDocuments();
    showCommands();
    StartJob({.lblStatus = ui->lblStatus,
              .cmdStopSearching = ui->cmdStop,
              .rows = nullptr,
              .home = ui->cmdClose});
}

frmAllDocuments::~frmAllDocuments()
{
    allWindows().removeOne(this);
}

void frmAllDocuments::Take(const QList<DocumentStart> &starts)
{
    documentsJob->Take(starts);
    showCase();
}

bool frmAllDocuments::GoOnWith(const QList<DocumentStart> &starts)
{
    const QString folder = folderOf(starts.value(0));
    const QList<frmAllDocuments *> &windows = allWindows();
    const auto found =
        std::find_if(windows.begin(), windows.end(), [&folder](const frmAllDocuments *one) {
            // Some file systems do not tell capitals from small letters.
            return !one->IsUnloaded()
                   && one->documentsJob->FolderOfCase().compare(folder, Qt::CaseInsensitive) == 0;
        });
    if (found == windows.end())
        return false;
    (*found)->goOnWith(starts);
    return true;
}

void frmAllDocuments::goOnWith(const QList<DocumentStart> &starts)
{
    const RunScope scope(this);
    if (documentsJob->IsOver()) {
        Global.bStopRequested = false;
        documentsJob->RetrieveOthers(starts);
        showCase();
    }
    if (frmMain *main = frmMain::Form())
        main->ShowChildAgain(this);
    else
        BringToFront(this);
}

void frmAllDocuments::showCase()
{
    setWindowTitle(u"Halvane - Case "_s + TitleText(documentsJob->CaseNumber)
                   + u" Retrieving All Documents.."_s);
    ui->lblCaseNo->setText(u"Case #: "_s + documentsJob->CaseNumber);
    ui->lblCounty->setText(u"County: "_s + documentsJob->County);
}

void frmAllDocuments::ShowState()
{
    JobWindow::ShowState();
    showCommands();
}

void frmAllDocuments::showDocuments()
{
    const AllDocumentsJob &all = *documentsJob;
    const bool going = !all.PresentFile().isEmpty();
    ui->lblProgress->setText(QString::number(all.Done()) + u" of "_s
                             + QString::number(all.Retrievable()) + u" Documents"_s);
    const qint64 coming = going ? all.Transfer.Stream().Total() : 0;
    ui->lblBytes->setText(sizeText(all.Bytes() + coming));
    ui->lblDocDescription->setText(
        going ? u"Document: "_s + all.PresentFile() + all.Transfer.lblProgress : QString());
    ui->ProgressBar1->setMaximum(qMax(1, all.Retrievable() * percent));
    ui->ProgressBar1->setValue(all.Done() * percent + (going ? all.Transfer.ProgressBar1 : 0));
    const QString missing = all.Missing().join(u'\n');
    if (std::exchange(shownMissing, missing) != missing)
        ui->txtMissing->setPlainText(missing);
}

void frmAllDocuments::showCommands()
{
    const bool over = documentsJob->IsOver();
    const auto turn = [this](QPushButton *button, bool on) {
        if (on)
            button->setEnabled(true);
        else
            TurnOff(button);
    };
    turn(ui->cmdRetryFailed, over && documentsJob->CountOf(ItemState::Failed) > 0);
    turn(ui->cmdRetrieveAgain, over && documentsJob->CountOf(ItemState::Present) > 0);
    turn(ui->cmdOpenFolder,
         QDir(documentsJob->Folder()).exists() && !documentsJob->Folder().isEmpty());
}

void frmAllDocuments::again(void (AllDocumentsJob::*what)())
{
    const RunScope scope(this);
    if (!Global.bLoggedIn) {
        if (OfferLogin(this))
            ShowLoginModally();
        return;
    }
    Global.bStopRequested = false;
    (documentsJob->*what)();
}

void frmAllDocuments::cmdOpenFolder_Click()
{
    const RunScope scope(this);
    if (!OpenByShell(documentsJob->Folder()))
        MsgBox(this, u"The folder cannot be opened here. The documents are in "_s
                         + QDir::toNativeSeparators(documentsJob->Folder()));
}

bool frmAllDocuments::QueryUnload(UnloadMode mode)
{
    // What is over, or never came on the screen, has nothing that the user could lose.
    return !wasShown || documentsJob->IsOver()
           || MayClose(mode,
                       u"Are you sure you want to close this form?\r\nDocuments that have not "
                       "come yet will not be retrieved."_s);
}

void frmAllDocuments::showEvent(QShowEvent *event)
{
    wasShown = true;
    JobWindow::showEvent(event);
}
