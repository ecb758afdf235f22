#include "searchentry/frmPasteList.h"

#include "controls/ScreenFit.h"
#include "courts/CourtTable.h"
#include "tables/ResultListView.h"
#include "ui_frmPasteList.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {
constexpr int typingMilliseconds = 250;

const ListLayout &layoutOfPasted()
{
    static const ListLayout layout{u"PastedNumbers"_s,
                                   {{u"Case Number"_s, 1900},
                                    {u"County"_s, 1200},
                                    {u"Line"_s, 700, Qt::AlignHCenter},
                                    {u"What Is Made of It"_s, 4800}}};
    return layout;
}
} // namespace

frmPasteList::frmPasteList(const NumberListCourt &place, const QString &text, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmPasteList>()), court(place), readTimer(this)
{
    ui->setupUi(this);
    setWindowTitle(windowTitle() + u" - "_s + CourtOf(court.Court).Display);
    ui->lvNumbers->SetColumns(layoutOfPasted());
    ui->lvNumbers->List()->SetCheckBoxes(true);
    listCounties();
    ui->txtList->setPlainText(text);
    readTimer.setSingleShot(true);
    readTimer.setInterval(typingMilliseconds);
    connect(&readTimer, &QTimer::timeout, this, &frmPasteList::readNow);
    connect(ui->txtList, &QPlainTextEdit::textChanged, &readTimer, qOverload<>(&QTimer::start));
    connect(ui->cboxUsualCounty, &QComboBox::currentIndexChanged, this, &frmPasteList::readNow);
    connect(ui->cmdPaste, &QPushButton::clicked, this, &frmPasteList::paste);
    connect(ui->cmdTickAll, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(ui->cmdTickNone, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(ui->cmdRetrieve, &QPushButton::clicked, this, [this] {
        // What was typed last counts, and whether there is anything to start.
        if (readTimer.isActive())
            readNow();
        else
            accept();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvNumbers->List()->Rows(), &RowTable::CheckChanged, this,
            &frmPasteList::checkChanged);
    readNow();
    FitOnScreen(this, size());
    // The list is what the window is for; the button above it fetches another one.
    ui->txtList->setFocus();
}

frmPasteList::~frmPasteList() = default;

void frmPasteList::listCounties()
{
    ui->cboxUsualCounty->addItem(noCountySelected.toString());
    ui->cboxUsualCounty->addItems(court.Counties);
    ui->cboxUsualCounty->setCurrentIndex(
        std::max(0, ui->cboxUsualCounty->findText(court.UsualCounty)));
}

void frmPasteList::paste()
{
    ui->txtList->selectAll();
    ui->txtList->paste();
    readNow();
}

void frmPasteList::readNow()
{
    readTimer.stop();
    const int usual = ui->cboxUsualCounty->currentIndex();
    court.UsualCounty = usual > 0 ? ui->cboxUsualCounty->currentText() : QString();
    numbers = ReadNumberList(ui->txtList->toPlainText(), court);
    showNumbers();
}

void frmPasteList::showNumbers()
{
    {
        const QScopedValueRollback guard(filling, true);
        RowTable *rows = ui->lvNumbers->List()->Rows();
        rows->Clear();
        for (const ListedNumber &listed : std::as_const(numbers)) {
            rows->AddRow(
                {listed.Number, listed.County, QString::number(listed.Line), VerdictText(listed)});
            if (listed.CanStart())
                rows->SetChecked(
                    rows->Count() - 1,
                    choices.value(keyOf(listed), listed.Verdict == NumberVerdict::Valid));
        }
        ui->lvNumbers->List()->Flush();
    }
    showCount();
}

QString frmPasteList::keyOf(const ListedNumber &listed)
{
    return listed.Number + u'/' + listed.County;
}

void frmPasteList::checkChanged(int row)
{
    if (filling)
        return;
    const ListedNumber &listed = numbers.at(row);
    RowTable *rows = ui->lvNumbers->List()->Rows();
    if (listed.CanStart()) {
        choices.insert(keyOf(listed), rows->IsChecked(row));
    } else if (rows->IsChecked(row)) {
        const QScopedValueRollback guard(filling, true);
        rows->SetChecked(row, false);
    }
    showCount();
}

void frmPasteList::tickAll(bool on)
{
    RowTable *rows = ui->lvNumbers->List()->Rows();
    for (int row = 0; row < rows->Count(); ++row) {
        if (numbers.at(row).CanStart() && rows->IsChecked(row) != on)
            rows->SetChecked(row, on);
    }
}

void frmPasteList::showCount()
{
    const auto ticked = ui->lvNumbers->List()->CheckedRows().size();
    qsizetype fit = 0;
    for (const ListedNumber &listed : std::as_const(numbers))
        fit += listed.CanStart() ? 1 : 0;
    ui->lblListCount->setText(
        QString::number(ticked) + u" ticked, of "_s + QString::number(fit)
        + (fit == 1 ? u" number that can be asked for."_s : u" numbers that can be asked for."_s));
    ui->cmdRetrieve->setEnabled(ticked > 0);
    ui->cmdTickAll->setEnabled(fit > 0);
    ui->cmdTickNone->setEnabled(ticked > 0);
}

QList<ListedNumber> frmPasteList::Ticked() const
{
    QList<ListedNumber> ticked;
    const QList<int> rows = ui->lvNumbers->List()->CheckedRows();
    for (const int row : rows)
        ticked.append(numbers.at(row));
    return ticked;
}

bool frmPasteList::Prints() const
{
    return ui->chkAutoPrint->isChecked();
}

QString frmPasteList::Text() const
{
    return ui->txtList->toPlainText();
}
