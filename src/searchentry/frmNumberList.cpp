#include "searchentry/frmNumberList.h"

#include "controls/MsgBox.h"
#include "searchentry/NumberListRun.h"
#include "session/frmMain.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"
#include "ui_frmNumberList.h"

using namespace Qt::StringLiterals;

namespace {
/// No wider than they have to be: the room beside them goes to the longest texts.
const ListLayout &layoutOfOutcomes()
{
    static const ListLayout layout{
        u"NumbersAskedFor"_s, {{u"Case Number"_s, 1500}, {u"Court"_s, 3000}, {u"Outcome"_s, 1900}}};
    return layout;
}
} // namespace

frmNumberList::frmNumberList(NumberListRun *shown)
    : ui(std::make_unique<Ui::frmNumberList>()), run(shown)
{
    ui->setupUi(this);
    ui->lvNumbers->SetColumns(layoutOfOutcomes());
    ui->lvNumbers->List()->UseRows(&run->Rows);
    connect(run, &NumberListRun::Changed, this, &frmNumberList::showStatus);
    connect(run, &NumberListRun::Ended, this, &frmNumberList::showStatus);
    connect(ui->cmdStartNoMore, &QPushButton::clicked, run, [this] { run->GiveUpRest(); });
    connect(ui->cmdCopyList, &QPushButton::clicked, this, &frmNumberList::copy);
    connect(ui->cmdExportList, &QPushButton::clicked, ui->lvNumbers->Tools(),
            &TableTools::ExportCsv);
    connect(ui->cmdCloseList, &QPushButton::clicked, this,
            [this] { Unload(UnloadMode::ControlMenu); });
    showStatus();
}

frmNumberList::~frmNumberList() = default;

void frmNumberList::Follow(NumberListRun *run)
{
    const auto window = std::make_shared<QPointer<frmNumberList>>(show(run));
    connect(run, &NumberListRun::Ended, run, [run, window] {
        if (!*window || (*window)->IsUnloaded())
            *window = show(run);
    });
}

frmNumberList *frmNumberList::show(NumberListRun *run)
{
    auto *window = new frmNumberList(run);
    if (frmMain *main = frmMain::Form())
        main->ShowChild(window);
    else
        static_cast<QWidget *>(window)->show();
    return window;
}

/// Without this window nobody can stop what has not begun.
bool frmNumberList::QueryUnload(UnloadMode mode)
{
    if (mode != UnloadMode::ControlMenu || !run->HasRest())
        return true;
    const RunScope scope(this);
    const int answer =
        MsgBoxChoice(this,
                     u"Not all numbers of this list have been asked for. The others "
                     "are asked for behind the closed window, which comes up again "
                     "at the end."_s,
                     u"List of Numbers"_s, MsgIcon::Question, {u"&Go On"_s, u"Start &No More"_s});
    constexpr int startNoMore = 1;
    if (answer == startNoMore && run)
        run->GiveUpRest();
    return answer >= 0;
}

void frmNumberList::Unloading()
{
    if (run && run->IsOver())
        run->deleteLater();
}

void frmNumberList::showStatus()
{
    setWindowTitle(
        (run->IsOver() ? u"List of Numbers - Done"_s : u"List of Numbers - Under Way"_s));
    ui->lblListStatus->setText(run->Summary());
    ui->cmdStartNoMore->setEnabled(run->HasRest());
}

/// All rows that are shown, as in every table, with their headers: what a mail or a spreadsheet
/// wants.
void frmNumberList::copy()
{
    ui->lvNumbers->List()->Flush();
    ui->lvNumbers->selectAll();
    ui->lvNumbers->Tools()->Copy(true);
}
