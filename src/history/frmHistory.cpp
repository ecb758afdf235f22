#include "history/frmHistory.h"

#include "core/Clock.h"
#include "history/HistoryEvents.h"
#include "history/HistoryModel.h"
#include "history/HistoryStore.h"
#include "session/frmMain.h"
#include "tables/TableLook.h"
#include "tables/ViewRoom.h"
#include "ui_frmHistory.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QPointer>
#include <QStyleHints>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmHistory> theWindow;

/// The text that each column is made for; what is longer has the room that is left.
QList<QString> usualTexts()
{
    return {u"00/00/0000 00:00"_s,
            u"Document"_s,
            u"MONTGOMERY, ALEXANDER, J"_s,
            u"Statewide (All Counties) -"_s,
            u"Client Code"_s,
            u"Search Complete: 000 Cases Retrieved."_s,
            u"00000"_s};
}

QJsonObject originOf(const AskedItem &item)
{
    return QJsonDocument::fromJson(item.Origin).object();
}

QString hintFor(const AskedItem &item)
{
    if (item.Id == 0)
        return {};
    if (!frmHistory::IsAskable(item))
        return u"It is not known how this was asked for."_s;
    if (frmHistory::IsEntered(item))
        return u"A double click puts this on the search form. Nothing is sent before you start it."_s;
    return item.Kind == AskedKind::Case
               ? u"Search Again opens this case again, and asks the court for it."_s
               : u"Search Again retrieves this once more, and asks the court for it."_s;
}
} // namespace

HistoryEvents &HistoryEvents::Of()
{
    static HistoryEvents events;
    return events;
}

frmHistory::frmHistory(QWidget *parent)
    : FormWindow(parent), ui(std::make_unique<Ui::frmHistory>()), model(new HistoryModel(this))
{
    ui->setupUi(this);
    ui->tblHistory->setModel(model);
    SetTableLook(ui->tblHistory);
    ui->tblHistory->setSelectionMode(QAbstractItemView::SingleSelection);
    makeMenu();
    model->SetFilter({});
    makeColumns();
    ui->txtFilter->installEventFilter(this);
    connect(ui->txtFilter, &QLineEdit::textChanged, this, &frmHistory::filterChanged);
    connect(&HistoryStore::Of(), &HistoryStore::Changed, this, &frmHistory::refresh);
    connect(model, &HistoryModel::RowsCame, this, &frmHistory::rowsCame);
    connect(ui->tblHistory->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmHistory::offerCommands);
    connect(ui->tblHistory, &QTableView::doubleClicked, this, &frmHistory::rowActivated);
    connect(ui->cmdFill, &QPushButton::clicked, this, &frmHistory::cmdFill_Click);
    connect(ui->cmdAgain, &QPushButton::clicked, this, &frmHistory::cmdAgain_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    ui->tblHistory->selectRow(0);
    showCount();
    offerCommands();
}

frmHistory::~frmHistory() = default;

void frmHistory::ShowForm()
{
    frmMain *main = frmMain::Form();
    const bool isOpen = theWindow && !theWindow->IsUnloaded();
    if (!isOpen)
        theWindow = new frmHistory;
    if (!main)
        theWindow->show();
    else if (isOpen)
        main->ShowChildAgain(theWindow);
    else
        main->ShowChild(theWindow);
    theWindow->ui->txtFilter->setFocus();
}

void frmHistory::Unloading()
{
    HistoryStore::Of().disconnect(this);
}

bool frmHistory::IsAskable(const AskedItem &item)
{
    return !originOf(item).isEmpty();
}

bool frmHistory::IsEntered(const AskedItem &item)
{
    // A case that was looked for by its number carries its search.
    const QJsonObject origin = originOf(item);
    return origin.contains(u"Search"_s) || origin.contains(u"Origin"_s);
}

void frmHistory::makeMenu()
{
    menu = new QMenu(this);
    const auto add = [this](const QString &name, const QString &text, auto act) {
        QAction *action = menu->addAction(text);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    askAgain = add(u"mnuSearchAgain"_s, u"Search &Again"_s, &frmHistory::cmdAgain_Click);
    fillForm = add(u"mnuFillForm"_s, u"Show on Search &Form"_s, &frmHistory::cmdFill_Click);
    menu->addSeparator();
    copyText = add(u"mnuCopyRow"_s, u"&Copy"_s, &frmHistory::copyRow);
    ui->tblHistory->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui->tblHistory, &QTableView::customContextMenuRequested, this,
            [this](const QPoint &where) {
                menu->popup(ui->tblHistory->viewport()->mapToGlobal(where));
            });
}

void frmHistory::makeColumns()
{
    constexpr int padding = 8;
    ui->tblHistory->verticalHeader()->setDefaultSectionSize(ui->tblHistory->fontMetrics().height()
                                                            + padding);
    room = new ViewRoom(ui->tblHistory, usualTexts(), HistoryModel::Where);
}

void frmHistory::filterChanged()
{
    model->SetFilter(ui->txtFilter->text());
    ui->tblHistory->selectRow(0);
    room->Share();
    showCount();
    offerCommands();
}

void frmHistory::refresh()
{
    const qint64 id = chosen().Id;
    model->Refresh();
    // Where everything is new, the first row is chosen again.
    if (chosen().Id != id || id == 0)
        ui->tblHistory->selectRow(0);
    room->Share();
    showCount();
    offerCommands();
}

/// The first row that is found is chosen.
void frmHistory::rowsCame()
{
    if (!ui->tblHistory->currentIndex().isValid())
        ui->tblHistory->selectRow(0);
    showCount();
    offerCommands();
}

void frmHistory::showCount()
{
    const int rows = model->rowCount();
    QString text = QLocale::system().toString(rows) + (rows == 1 ? u" entry"_s : u" entries"_s);
    if (!model->IsCounted())
        text = rows == 0 ? u"Looking .."_s : u"More than "_s + text;
    if (!HistoryStore::Of().IsOpen())
        text = u"The history is off."_s;
    else if (rows == 0 && model->IsCounted())
        text = ui->txtFilter->text().isEmpty() ? u"Nothing was asked for yet."_s
                                               : u"Nothing is found."_s;
    ui->lblCount->setText(text);
}

void frmHistory::offerCommands()
{
    const AskedItem item = chosen();
    const bool entered = IsEntered(item);
    const bool askable = IsAskable(item);
    // The keyboard does not go on to the next button, which would then do something else.
    for (const auto &[button, on] :
         {std::pair<QPushButton *, bool>{ui->cmdFill, entered}, {ui->cmdAgain, askable}}) {
        if (!on && button->hasFocus())
            ui->tblHistory->setFocus(Qt::OtherFocusReason);
        button->setEnabled(on);
    }
    fillForm->setEnabled(entered);
    askAgain->setEnabled(askable);
    copyText->setEnabled(item.Id != 0);
    ui->lblHint->setText(hintFor(item));
}

AskedItem frmHistory::chosen() const
{
    return model->ItemAt(ui->tblHistory->currentIndex().row());
}

/// What was entered goes back where it was entered. What was opened from a list costs a request: a
/// double click leaves that to the button, which it offers.
void frmHistory::rowActivated()
{
    if (IsEntered(chosen()))
        cmdFill_Click();
    else if (ui->cmdAgain->isEnabled())
        ui->cmdAgain->setFocus(Qt::OtherFocusReason);
}

void frmHistory::cmdFill_Click()
{
    const RunScope scope(this);
    const AskedItem item = chosen();
    if (IsEntered(item))
        Q_EMIT HistoryEvents::Of().FillWanted(item);
}

void frmHistory::cmdAgain_Click()
{
    const RunScope scope(this);
    const AskedItem item = chosen();
    if (!IsAskable(item) || isSecondOfTwo(item.Id))
        return;
    lastAgain = {item.Id, Clock::Current().Now()};
    Q_EMIT HistoryEvents::Of().AgainWanted(item);
    // A second click may have waited for as long as this took.
    lastAgain.When = Clock::Current().Now();
}

/// Whoever double-clicks a button means it once: the second time would be asked for, and billed,
/// by itself.
bool frmHistory::isSecondOfTwo(qint64 id) const
{
    if (id != lastAgain.Id)
        return false;
    const qint64 since = lastAgain.When.msecsTo(Clock::Current().Now());
    return since >= 0 && since <= QGuiApplication::styleHints()->mouseDoubleClickInterval();
}

void frmHistory::copyRow()
{
    const int row = ui->tblHistory->currentIndex().row();
    QStringList cells;
    for (int column = 0; column < HistoryModel::Columns; ++column)
        cells.append(model->index(row, column).data().toString());
    QGuiApplication::clipboard()->setText(cells.join(u'\t'));
}

/// From the words to the list and back without the mouse.
bool frmHistory::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->txtFilter && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down) {
        ui->tblHistory->setFocus(Qt::TabFocusReason);
        return true;
    }
    return FormWindow::eventFilter(watched, event);
}

void frmHistory::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Unload();
    else if (enter && ui->tblHistory->hasFocus())
        rowActivated();
    else if (event->matches(QKeySequence::Copy) && ui->tblHistory->hasFocus())
        copyRow();
    else
        FormWindow::keyPressEvent(event);
}
