#include "namesearch/CourtStrip.h"

#include "controls/Notice.h"
#include "namesearch/CourtTable.h"
#include "namesearch/NameSearch.h"
#include "tables/TableTools.h"
#include "ui_CourtStrip.h"

#include <QHeaderView>
#include <QLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int showMilliseconds = 40;
constexpr int fewestRows = 2; ///< that can be seen however little room there is
constexpr int mostRows = 6;

ListLayout courtColumns()
{
    return {u"Courts"_s,
            {{u"Court"_s, 1500, Qt::AlignLeft},
             {u"State"_s, 7500, Qt::AlignLeft},
             {u"Time"_s, 900, Qt::AlignLeft}}};
}

QStringList cellsOf(const CourtAnswer &line)
{
    return {line.Court, AnswerText(line), AnswerTime(line)};
}

void showCells(RowTable *rows, int row, const QStringList &cells)
{
    for (int column = 0; column < cells.size(); ++column) {
        if (rows->Cell(row, column) != cells[column])
            rows->SetCell(row, column, cells[column]);
    }
}
} // namespace

CourtStrip::CourtStrip(QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::CourtStrip>()), showTimer(this)
{
    ui->setupUi(this);
    ui->lvCourts->SetColumns(courtColumns());
    ui->lvCourts->horizontalHeader()->setSectionsClickable(false);
    showTimer.setSingleShot(true);
    showTimer.setInterval(showMilliseconds);
    connect(&showTimer, &QTimer::timeout, this, &CourtStrip::showNow);
    connect(ui->cmdCourts, &QToolButton::clicked, this, [this](bool open) {
        usersChoice = true;
        setOpen(open);
    });
    connect(ui->cmdRetryFailed, &QPushButton::clicked, this, &CourtStrip::RetryWanted);
    setOpen(false);
}

CourtStrip::~CourtStrip() = default;

void CourtStrip::Follow(NameSearch *newSearch)
{
    search = newSearch;
    connect(search, &NameSearch::CourtsChanged, this, &CourtStrip::showSoon);
    // What the lines of status say of the end, the strip says with them.
    connect(search, &Job::StateChanged, this,
            [this] { search->State() == JobState::Over ? showNow() : showSoon(); });
    showNow();
}

void CourtStrip::FollowInTabOrder(QWidget *widget)
{
    setTabOrder(widget, ui->cmdCourts);
    setTabOrder(ui->cmdCourts, ui->cmdRetryFailed);
    setTabOrder(ui->cmdRetryFailed, ui->lvCourts);
}

QPushButton *CourtStrip::RetryButton() const
{
    return ui->cmdRetryFailed;
}

void CourtStrip::Speak()
{
    showNow();
    SpeakAlert(ui->lblCourtsInShort);
}

void CourtStrip::showSoon()
{
    if (!showTimer.isActive())
        showTimer.start();
}

void CourtStrip::showNow()
{
    showTimer.stop();
    const ResultsRecord &record = search->Record;
    showLines();
    QStringList parts{AnswersInShort(record.Courts), record.RetryText};
    parts.removeAll(QString());
    ui->lblCourtsInShort->setText(parts.join(u" - "_s));
    fitHeight();
    showButtons();
    if (!usersChoice)
        openAtFailure();
}

/// The first that failed is brought into sight, unless the user looks at another.
void CourtStrip::openAtFailure()
{
    const QList<CourtAnswer> &lines = search->Record.Courts;
    const auto failed = std::find_if(lines.begin(), lines.end(), [](const CourtAnswer &line) {
        return line.State == AnswerState::Failed;
    });
    if (failed == lines.end() || isOpen)
        return;
    setOpen(true);
    const auto row = static_cast<int>(failed - lines.begin());
    ui->lvCourts->scrollTo(ui->lvCourts->model()->index(row, 0), QTableView::PositionAtTop);
}

void CourtStrip::showLines()
{
    const QList<CourtAnswer> &lines = search->Record.Courts;
    RowTable *rows = ui->lvCourts->List()->Rows();
    if (rows->Count() > lines.size())
        rows->Clear();
    for (int row = 0; row < lines.size(); ++row) {
        if (row < rows->Count())
            showCells(rows, row, cellsOf(lines[row]));
        else
            rows->AddRow(cellsOf(lines[row]));
    }
    ui->lvCourts->List()->Flush();
}

/// A run that is over may still be on its way out: it cannot be followed by another before that.
void CourtStrip::showButtons()
{
    ui->cmdRetryFailed->setEnabled(search->CanRetry());
    if (search->State() == JobState::Over && search->HasTurn())
        showSoon();
}

void CourtStrip::fitHeight()
{
    ResultListView *list = ui->lvCourts;
    const int row = list->verticalHeader()->defaultSectionSize();
    const int rows = std::clamp(list->List()->rowCount(), fewestRows, mostRows);
    const int around = list->horizontalHeader()->sizeHint().height() + 2 * list->frameWidth();
    list->setMinimumHeight(around + fewestRows * row);
    list->setMaximumHeight(around + rows * row);
    const QLabel *text = ui->lblCourtsInShort;
    const int line =
        std::max({ui->cmdCourts->sizeHint().height(), ui->cmdRetryFailed->sizeHint().height(),
                  text->heightForWidth(text->width())});
    setMaximumHeight(isOpen ? line + layout()->spacing() + list->maximumHeight() : QWIDGETSIZE_MAX);
}

void CourtStrip::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitHeight();
}

void CourtStrip::setOpen(bool open)
{
    isOpen = open;
    ui->cmdCourts->setChecked(open);
    ui->cmdCourts->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    // Who has the keyboard in the table that goes has it on the button that brings it back.
    if (!open && ui->lvCourts->Tools()->HoldsFocus())
        ui->cmdCourts->setFocus(Qt::OtherFocusReason);
    ui->lvCourts->setVisible(open);
    // Closed it is a line; open it takes its share of the window's height.
    setSizePolicy(QSizePolicy::Preferred, open ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    fitHeight();
}
