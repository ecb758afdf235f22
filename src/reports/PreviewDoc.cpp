#include "reports/PreviewDoc.h"

#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "controls/WindowPlace.h"
#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "core/TurnHold.h"
#include "reports/PageView.h"
#include "reports/ReportFile.h"
#include "reports/ReportPaper.h"
#include "reports/SaveReport.h"
#include "ui_PreviewDoc.h"

#include <QCloseEvent>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPrinter>
#include <QScreen>
#include <QVariant>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 sliceMilliseconds = 10;
constexpr const char *previewProperty = "preview";
} // namespace

/// One thing at a time, and no job begins inside of it: it lets events through to show how far it
/// is, and would wait for the end of the job.
class PreviewDoc::WorkScope
{
public:
    WorkScope(PreviewDoc *window, Work what) : preview(window), run(window)
    {
        preview->work = what;
        preview->stopWork = false;
        preview->sinceYield.start();
        preview->showCommands();
    }
    ~WorkScope()
    {
        preview->work = Work::None;
        preview->showCommands();
        if (!preview->waiting.isEmpty())
            QTimer::singleShot(0, preview, &PreviewDoc::printWaiting);
    }
    Q_DISABLE_COPY_MOVE(WorkScope)

private:
    PreviewDoc *const preview;
    const RunScope run;
    const TurnHold hold;
};

PreviewDoc::PreviewDoc(QWidget *ownerWindow)
    : tmrPrepare(new QTimer(this)), ui(std::make_unique<Ui::PreviewDoc>()),
      owner(ownerWindow ? FormWindow::Around(ownerWindow) : nullptr)
{
    ui->setupUi(this);
    tmrPrepare->setObjectName(u"tmrPrepare"_s);
    connect(tmrPrepare, &QTimer::timeout, this, &PreviewDoc::prepare);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &PreviewDoc::cmdCancel_Click);
    connect(ui->cmdPrint, &QPushButton::clicked, this, &PreviewDoc::cmdPrint_Click);
    connect(ui->cmdSavePdf, &QPushButton::clicked, this, &PreviewDoc::cmdSavePdf_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &PreviewDoc::putAway);
    connect(&ReportPaper::Of(), &ReportPaper::Changed, this, &PreviewDoc::layOutAgain);
    connectView();
    follow();
    showCommands();
}

PreviewDoc::~PreviewDoc() = default;

PreviewDoc *PreviewDoc::Of(QWidget *owner)
{
    QWidget *window = FormWindow::Around(owner);
    const QVariant kept = window->property(previewProperty);
    if (auto *preview = qobject_cast<PreviewDoc *>(kept.value<QObject *>()))
        return preview;
    auto *preview = new PreviewDoc(window);
    window->setProperty(previewProperty, QVariant::fromValue<QObject *>(preview));
    return preview;
}

void PreviewDoc::follow()
{
    const auto go = [this] { Unload(UnloadMode::Code); };
    if (auto *form = qobject_cast<FormWindow *>(owner))
        connect(form, &FormWindow::Unloaded, this, go);
    if (auto *dialog = qobject_cast<QDialog *>(owner))
        connect(dialog, &QDialog::finished, this, go);
    if (owner)
        connect(owner, &QObject::destroyed, this, go);
}

void PreviewDoc::connectView()
{
    PageView *pages = ui->Pages;
    const std::array<std::pair<QToolButton *, PageArrangement>, 3> arrangements{{
        {ui->cmdOnePage, PageArrangement::OneBelowOther},
        {ui->cmdFacing, PageArrangement::FacingPairs},
        {ui->cmdAllPages, PageArrangement::AllAtOnce},
    }};
    for (const auto &[button, arrangement] : arrangements)
        connect(button, &QToolButton::clicked, this, [this, pages, wanted = arrangement] {
            pages->Arrange(wanted);
            showView();
        });
    const std::array<std::pair<QToolButton *, PageZoom>, 2> zooms{{
        {ui->cmdFitWidth, PageZoom::FitWidth},
        {ui->cmdFitPage, PageZoom::FitPage},
    }};
    for (const auto &[button, zoom] : zooms)
        connect(button, &QToolButton::clicked, pages,
                [pages, wanted = zoom] { pages->SetZoom(wanted); });
    connect(ui->cmdZoomIn, &QToolButton::clicked, pages, &PageView::ZoomIn);
    connect(ui->cmdZoomOut, &QToolButton::clicked, pages, &PageView::ZoomOut);
    connect(ui->cmdFirst, &QToolButton::clicked, pages, [pages] { pages->GoTo(0); });
    connect(ui->cmdPrevious, &QToolButton::clicked, pages,
            [pages] { pages->GoTo(pages->CurrentPage() - 1); });
    connect(ui->cmdNext, &QToolButton::clicked, pages,
            [pages] { pages->GoTo(pages->CurrentPage() + 1); });
    connect(ui->cmdLast, &QToolButton::clicked, this,
            [this, pages] { pages->GoTo(layout ? layout->PageCount() - 1 : 0); });
    connect(pages, &PageView::CurrentPageChanged, this, &PreviewDoc::showPages);
    connect(pages, &PageView::ZoomChanged, this, &PreviewDoc::showView);
    showView();
}

void PreviewDoc::ShowReport(const Report &report)
{
    if (IsUnloaded())
        return;
    failure.clear();
    layOut(report);
    come();
}

void PreviewDoc::come()
{
    const QString caption = owner ? owner->windowTitle() : QString();
    setWindowTitle(caption.isEmpty() ? u"Print Preview"_s : u"Print Preview - "_s + caption);
    if (!isVisible()) {
        if (owner)
            setWindowIcon(owner->window()->windowIcon());
        const QSize room = screen()->availableSize();
        resize(size().boundedTo(room * 0.9));
        const bool overModal = owner && owner->window()->isModal();
        setWindowModality(overModal ? Qt::WindowModal : Qt::NonModal);
        winId();
        // Not its child, with which it would be deleted while it prints.
        windowHandle()->setTransientParent(overModal ? owner->window()->windowHandle() : nullptr);
    }
    BringToFront(this);
    ui->Pages->setFocus();
}

void PreviewDoc::layOut(const Report &report)
{
    layout = std::make_shared<PageLayout>(report, ReportPaper::Of().Current(), &painter);
    layout->AddPage();
    cancelled = false;
    ui->Pages->Show(layout, &painter);
    tmrPrepare->start(0);
    prepare();
}

void PreviewDoc::layOutAgain()
{
    if (!layout)
        return;
    const Report report = layout->Content();
    layOut(report);
}

void PreviewDoc::prepare()
{
    QElapsedTimer slice;
    slice.start();
    while (!layout->IsComplete() && slice.elapsed() < sliceMilliseconds)
        layout->AddPage();
    if (layout->IsComplete())
        tmrPrepare->stop();
    ui->Pages->PagesAdded();
    showPages();
    showCommands();
}

void PreviewDoc::stopPreparing()
{
    tmrPrepare->stop();
    cancelled = true;
    showCommands();
}

void PreviewDoc::showPages()
{
    const int count = layout ? layout->PageCount() : 0;
    const int current = std::min(ui->Pages->CurrentPage() + 1, count);
    ui->lblPage->setText(u"Page "_s + QString::number(current) + u" of "_s
                         + QString::number(count));
    ui->cmdFirst->setEnabled(current > 1);
    ui->cmdPrevious->setEnabled(current > 1);
    ui->cmdNext->setEnabled(current < count);
    ui->cmdLast->setEnabled(current < count);
}

void PreviewDoc::showView()
{
    const PageView *pages = ui->Pages;
    const bool all = pages->Arrangement() == PageArrangement::AllAtOnce;
    ui->cmdOnePage->setChecked(pages->Arrangement() == PageArrangement::OneBelowOther);
    ui->cmdFacing->setChecked(pages->Arrangement() == PageArrangement::FacingPairs);
    ui->cmdAllPages->setChecked(all);
    ui->cmdFitWidth->setChecked(!all && pages->Zoom() == PageZoom::FitWidth);
    ui->cmdFitPage->setChecked(!all && pages->Zoom() == PageZoom::FitPage);
    for (QToolButton *button : {ui->cmdFitWidth, ui->cmdFitPage, ui->cmdZoomIn, ui->cmdZoomOut})
        button->setEnabled(!all);
}

void PreviewDoc::showCommands()
{
    const bool free = layout && work == Work::None && !cancelled;
    ui->cmdPrint->setEnabled(free);
    ui->cmdSavePdf->setEnabled(free);
    if (work != Work::None)
        return;
    if (cancelled)
        showNote(u"Stopped behind page "_s + QString::number(layout->PageCount())
                     + u". The report is not whole, and cannot be printed or saved."_s,
                 false);
    else if (layout && !layout->IsComplete())
        showNote(u"Preparing page "_s + QString::number(layout->PageCount() + 1) + u" .."_s, true);
    else
        showNote(failure, false);
}

void PreviewDoc::showNote(const QString &note, bool canCancel)
{
    ui->lblNote->setText(note);
    ui->cmdCancel->setVisible(canCancel);
}

void PreviewDoc::cmdCancel_Click()
{
    if (work != Work::None)
        stopWork = true;
    else
        stopPreparing();
}

bool PreviewDoc::goesOn(const QString &what, int page)
{
    if (sinceYield.elapsed() >= sliceMilliseconds) {
        showNote(what + u" page "_s + QString::number(page) + u" .."_s, true);
        Yield();
        sinceYield.start();
    }
    return !stopWork;
}

void PreviewDoc::cmdPrint_Click()
{
    const RunScope scope(this);
    const std::shared_ptr<PageLayout> pages = layout;
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer, pages->Sheet());
    if (!AskForPrinter(this, printer) || IsUnloaded() || work != Work::None)
        return;
    const ProgramHold hold;
    if (print(printer, pages) == PrintEnd::Failed)
        MsgBox(this,
               u"The report could not be printed. Please look after the printer and try again, or "
               "save the report as a PDF."_s,
               u"Halvane - Print Error"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

PrintEnd PreviewDoc::print(QPrinter &printer, std::shared_ptr<PageLayout> pages)
{
    const WorkScope scope(this, Work::Printing);
    // The dialog offers other paper, too.
    const Paper paper = PaperOf(printer.pageLayout());
    if (paper != pages->Sheet())
        pages = std::make_shared<PageLayout>(pages->Content(), paper, &painter);
    return PrintPages(printer, *pages, painter,
                      [this](int page) { return goesOn(u"Printing"_s, page); });
}

void PreviewDoc::cmdSavePdf_Click()
{
    const RunScope scope(this);
    const QString caption = owner ? owner->windowTitle() : QString();
    const QString name =
        ReportFileName(caption.isEmpty() ? layout->Content().Title : caption, u".pdf"_s);
    AskWhereToSave(
        this,
        {.Title = u"Save Halvane Report"_s,
         .Suggested = QDir(Global.strReportFolder).filePath(name),
         .Ending = u"pdf"_s,
         .Filters = {u"PDF Files (*.pdf)"_s, u"All Files (*.*)"_s}},
        this, [this, asked = layout->Content()](const QString &path) { savePdf(asked, path); });
}

/// The report that was asked for: the question let events through, and another one, or other
/// paper, may have come in its place.
void PreviewDoc::savePdf(const Report &report, const QString &path)
{
    if (work != Work::None || IsUnloaded())
        return;
    const RunScope run(this);
    const ProgramHold hold;
    PageLayout pages(report, ReportPaper::Of().Current(), &painter);
    try {
        const WorkScope scope(this, Work::Saving);
        WritePdf(pages, painter, path, [this](int page) { return goesOn(u"Saving"_s, page); });
    } catch (const RunTimeError &) {
        SayNotSaved(this, path);
    }
}

void PreviewDoc::PrintAndClose(const Report &report)
{
    waiting.append(report);
    // From now on: whoever called has made sure that no job works, and the print begins later.
    if (!turnHold)
        turnHold = std::make_unique<TurnHold>();
    QTimer::singleShot(0, this, &PreviewDoc::printWaiting);
}

void PreviewDoc::printWaiting()
{
    if (waiting.isEmpty() || work != Work::None)
        return;
    const RunScope scope(this);
    const ProgramHold hold;
    const Report report = waiting.takeFirst();
    const bool printed = printByDefault(report);
    if (waiting.isEmpty())
        turnHold.reset();
    Q_EMIT PrintingOver(printed);
}

bool PreviewDoc::printByDefault(const Report &report)
{
    QPrinter printer(QPrinter::HighResolution);
    const Paper paper = ReportPaper::Of().Current();
    const bool there = TakeDefaultPrinter(printer);
    PrintEnd end = PrintEnd::Failed;
    if (there) {
        PreparePrinter(printer, paper);
        end = print(printer, std::make_shared<PageLayout>(report, paper, &painter));
    }
    if (end == PrintEnd::Failed && !IsUnloaded()) {
        ShowReport(report);
        failure = there ? u"The report could not be printed. It can be saved as a PDF."_s
                        : u"There is no printer. The report can be saved as a PDF."_s;
        showCommands();
    }
    return end == PrintEnd::Printed;
}

void PreviewDoc::putAway()
{
    hide();
    tmrPrepare->stop();
    layout.reset();
    cancelled = false;
    ui->Pages->Show(nullptr, nullptr);
    showCommands();
}

void PreviewDoc::Unloading()
{
    tmrPrepare->stop();
    if (owner)
        owner->setProperty(previewProperty, QVariant());
}

/// Not refused, although the window stays to be used again: a desktop whose user logs out asks each
/// window to close, and stays when one refuses.
void PreviewDoc::closeEvent(QCloseEvent *event)
{
    putAway();
    event->accept();
}

void PreviewDoc::keyPressEvent(QKeyEvent *event)
{
    constexpr std::array<int, 4> pageKeys{Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,
                                          Qt::Key_End};
    const int key = event->key();
    if (key == Qt::Key_Escape)
        putAway();
    else if (std::find(pageKeys.begin(), pageKeys.end(), key) != pageKeys.end())
        QCoreApplication::sendEvent(ui->Pages, event);
    else
        FormWindow::keyPressEvent(event);
}
