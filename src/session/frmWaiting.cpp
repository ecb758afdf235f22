#include "session/frmWaiting.h"

#include "controls/MsgBox.h"
#include "controls/WindowPlace.h"
#include "jobs/JobWindow.h"
#include "jobs/WaitingList.h"
#include "session/WaitingModel.h"
#include "session/frmMain.h"
#include "tables/ViewRoom.h"
#include "ui_frmWaiting.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmWaiting> theWindow;

constexpr int rowMargins = 8;

/// The text that each column is made for; what is longer has the room that is left.
QList<QString> usualTexts()
{
    return {u"Holds the queue: closed without Stop"_s, u"All documents"_s,
            u"MONTGOMERY, ALEXANDER, J"_s, u"King County"_s};
}

QString summaryOf(const WaitingList &list)
{
    if (list.Rows().isEmpty())
        return u"Nothing runs, and nothing waits."_s;
    if (list.HeldUp())
        return u"The queue is held up: nothing behind such a line has its turn. Choose it and "
               "press Skip to take it out of the queue."_s;
    return list.Waiting() == 0 ? u"Nothing waits."_s
                               : u"One runs at a time, in this order. "_s + list.Summary() + u'.';
}

QString questionAbout(const WaitingRow &row)
{
    const QString reason =
        row.State == WaitingState::BrokenDown
            ? u"Its run broke down and has kept its place in the queue. What it has fetched stays "
              "in its window."_s
            : u"Its window was closed without Stop before it had its turn, and it has kept its "
              "place in the queue."_s;
    return row.Text() + u"\r\n\r\n"_s + reason
           + u" Nothing behind it can run.\r\n\r\nTake it out of the queue?"_s;
}
} // namespace

frmWaiting::frmWaiting(WaitingList *waiting, QWidget *parent)
    : FormWindow(parent, Qt::Dialog), ui(std::make_unique<Ui::frmWaiting>()), list(waiting),
      model(new WaitingModel(this))
{
    ui->setupUi(this);
    ui->tblWaiting->setModel(model);
    ui->tblWaiting->verticalHeader()->hide();
    ui->tblWaiting->verticalHeader()->setDefaultSectionSize(ui->tblWaiting->fontMetrics().height()
                                                            + rowMargins);
    ui->tblWaiting->horizontalHeader()->setHighlightSections(false);
    connect(list, &WaitingList::Changed, this, &frmWaiting::showRows);
    connect(ui->tblWaiting->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmWaiting::offerCommands);
    connect(ui->tblWaiting, &QTableView::activated, this, &frmWaiting::cmdGoTo_Click);
    connect(ui->cmdGoTo, &QPushButton::clicked, this, &frmWaiting::cmdGoTo_Click);
    connect(ui->cmdStop, &QPushButton::clicked, this, &frmWaiting::cmdStop_Click);
    connect(ui->cmdSkip, &QPushButton::clicked, this, &frmWaiting::cmdSkip_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    ui->tblWaiting->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    room = new ViewRoom(ui->tblWaiting, usualTexts(), WaitingModel::Where);
    list->Refresh();
    showRows();
}

frmWaiting::~frmWaiting() = default;

void frmWaiting::ShowForm()
{
    frmMain *main = frmMain::Form();
    if (!main)
        return;
    if (!theWindow || theWindow->IsUnloaded()) {
        theWindow = new frmWaiting(main->Waiting(), main);
        CentreOnScreen(theWindow);
    }
    BringToFront(theWindow);
}

void frmWaiting::Unloading()
{
    list->disconnect(this);
}

void frmWaiting::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Unload();
    else
        FormWindow::keyPressEvent(event);
}

/// The row that was chosen stays chosen wherever it goes. When it has gone, the one in its place
/// is.
void frmWaiting::showRows()
{
    const int before = ui->tblWaiting->currentIndex().row();
    const WaitingRow *row = chosen();
    const QString key = row ? row->Key : QString();
    model->Show(list->Rows());
    if (model->IndexOf(key) >= 0)
        chooseKey(key);
    else if (model->rowCount() > 0)
        ui->tblWaiting->selectRow(qBound(0, before, model->rowCount() - 1));
    room->Share();
    showSummary();
    offerCommands();
    // What the question asks has been settled without it.
    const WaitingRow *asked = list->RowOf(askedKey);
    if (!askedKey.isEmpty() && !(asked && asked->Holds()))
        SettleQuestions(ui->cmdSkip);
}

void frmWaiting::chooseKey(const QString &key)
{
    ui->tblWaiting->selectRow(model->IndexOf(key));
}

void frmWaiting::showSummary()
{
    ui->lblSummary->setText(summaryOf(*list));
}

void frmWaiting::offerCommands()
{
    const WaitingRow *row = chosen();
    const JobWindow *window = chosenWindow();
    const bool holds = row && row->Holds();
    // The keyboard does not go on to the next button, which would then do something else.
    for (const auto &[button, on] :
         {std::pair<QPushButton *, bool>{ui->cmdGoTo, window != nullptr},
          {ui->cmdStop, window && !holds && window->ShownJob()->CanBeStopped()},
          {ui->cmdSkip, holds}}) {
        if (!on && button->hasFocus())
            ui->tblWaiting->setFocus(Qt::OtherFocusReason);
        button->setEnabled(on);
    }
}

const WaitingRow *frmWaiting::chosen() const
{
    return model->RowAt(ui->tblWaiting->currentIndex().row());
}

JobWindow *frmWaiting::chosenWindow() const
{
    const WaitingRow *row = chosen();
    return row && row->Who ? JobWindow::Of(row->Who) : nullptr;
}

void frmWaiting::cmdGoTo_Click()
{
    JobWindow *window = chosenWindow();
    frmMain *main = frmMain::Form();
    if (!window || !main)
        return;
    main->ShowChildAgain(window);
    BringToFront(main);
}

/// The window comes to the front, since its question does not say which search is meant.
void frmWaiting::cmdStop_Click()
{
    const RunScope scope(this);
    JobWindow *window = chosenWindow();
    if (!window || !window->ShownJob()->CanBeStopped())
        return;
    if (frmMain *main = frmMain::Form())
        main->ShowChildAgain(window);
    window->PressStop();
}

void frmWaiting::cmdSkip_Click()
{
    const RunScope scope(this);
    const WaitingRow *row = chosen();
    if (!row || !row->Holds())
        return;
    const QString key = row->Key;
    if (!confirmed(*row))
        return;
    // It may have been settled while the question stood, and is left alone then.
    list->Skip(key);
}

bool frmWaiting::confirmed(const WaitingRow &row)
{
    askedKey = row.Key;
    const QPointer<frmWaiting> self(this);
    const bool yes = MsgBox(this, questionAbout(row), u"Skip in the Queue .."_s, MsgButtons::YesNo,
                            MsgIcon::Question, ui->cmdSkip)
                     == MsgAnswer::Yes;
    if (self)
        askedKey.clear();
    return yes && self;
}
