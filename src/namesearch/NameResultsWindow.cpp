#include "namesearch/NameResultsWindow.h"

#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "controls/Twips.h"
#include "controls/WrappedText.h"
#include "core/Log.h"
#include "namesearch/CourtStrip.h"
#include "namesearch/ResultColumns.h"
#include "tables/ResultListView.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int listMarginTwips = 100;
} // namespace

NameResultsWindow::NameResultsWindow(NameSearch *ownSearch, QWidget *parent)
    : JobWindow(ownSearch, &ownSearch->Record.lblState, &ownSearch->Record.ClientAcctgCode, parent),
      search(ownSearch), lboxQueue(search->lboxQueue),
      SearchIncomplete(search->Record.SearchIncomplete),
      StopWarningFlag(search->Record.StopWarningFlag), SortColumnName(search->Record.SortColumnName)
{
    search->UseTalk(this);
    preview = MakeReportViewer(this);
}

/// A label that is broken into lines needs the more of them the narrower the window is, and the
/// layout does not count that into how low the window may get: its controls would be cut.
bool NameResultsWindow::event(QEvent *event)
{
    const bool handled = JobWindow::event(event);
    const bool changed = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (changed && layout())
        setMinimumHeight(std::max(0, layout()->totalMinimumHeightForWidth(width())));
    return handled;
}

void NameResultsWindow::load(QLabel *lblStatus, QPushButton *cmdStopSearching)
{
    InitListView();
    listview1->List()->UseRows(&search->Record.Rows);
    ShowHeaderIcon(0, Qt::AscendingOrder, true);
    connect(listview1->List(), &ResultListModel::Flushed, this, &NameResultsWindow::showCount);
    connect(search, &NameSearch::ColumnsChanged, this, &NameResultsWindow::showColumns);
    connect(search, &Job::Ended, this, &NameResultsWindow::FlushRows);
    // The button is enabled when a search ends.
    connect(printButton, &QPushButton::clicked, this, &NameResultsWindow::PrintDirect);
    StartJob({lblStatus, cmdStopSearching, listview1, listview1});
}

void NameResultsWindow::connectStrip(CourtStrip *strip)
{
    courtStrip = strip;
    courtStrip->Follow(search);
    courtStrip->FollowInTabOrder(LastList());
    connect(courtStrip, &CourtStrip::RetryWanted, this, &NameResultsWindow::retryFailed);
    connect(search, &NameSearch::RetryEnded, this, [this] {
        FlushRows();
        courtStrip->Speak();
    });
}

void NameResultsWindow::retryFailed()
{
    // Without a link it would fail again, and a moment later.
    if (!MaySearch() || !search->CanRetry())
        return;
    TurnOff(courtStrip->RetryButton());
    search->RetryFailed();
}

void NameResultsWindow::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    listview1->ShowHeaderIcon(column, order, show);
}

void NameResultsWindow::AlsoCountsRowsOf(ResultListView *list)
{
    connect(list->List(), &ResultListModel::Flushed, this, &NameResultsWindow::showCount);
    AlsoFills(list);
}

ListLayout NameResultsWindow::ListColumnsOf(ResultKind kind)
{
    QList<ListColumn> columns;
    for (const ResultColumn &column : ResultColumnsOf(kind)) {
        const bool centred = column.header == centredColumn;
        columns.append(
            {column.header.toString(), column.width, centred ? Qt::AlignHCenter : Qt::AlignLeft});
    }
    return {ResultKindName(kind), columns};
}

void NameResultsWindow::showColumns()
{
    if (!search->Record.TooManyToList) {
        listview1->SetColumns(ListColumnsOf(search->Record.Kind));
        return;
    }
    listview1->SetColumns(
        {{u"NOTE:    This Search Returned More Than The Maximum Number Allowed (200)."_s,
          TwipsFromPixels(listview1->width()) - listMarginTwips}});
}

void NameResultsWindow::FlushRows()
{
    listview1->List()->Flush();
}

void NameResultsWindow::ShowState()
{
    JobWindow::ShowState();
    // The lines of status count what can be seen.
    if (search->State() == JobState::Over)
        FlushRows();
}

void NameResultsWindow::ShowStatus()
{
    const ResultsRecord &record = search->Record;
    JobWindow::ShowStatus();
    SetStatusStyle(lblSearchStatus,
                   record.lblSearchStatus.Trouble ? StatusColour::Trouble : StatusColour::Normal);
    lblSearchStatus->setText(record.lblSearchStatus.Text);
    showCount();
    nameVal->setText(record.lblNameVal);
    lblCaseTypeVals->setText(record.lblCaseTypeVals);
    // Only when it is another one: the user may have gone along in it.
    if (shownCounties != record.txtCountyList) {
        shownCounties = record.txtCountyList;
        countyList->setText(shownCounties);
        countyList->setCursorPosition(0);
    }
    if (shownCaption != record.Caption) {
        shownCaption = record.Caption;
        setWindowTitle(TitleText(shownCaption));
    }
    printButton->setEnabled(record.Printable);
}

void NameResultsWindow::showCount()
{
    Label3->setText(search->Record.Label3);
}

void NameResultsWindow::Unloading()
{
    JobWindow::Unloading();
    preview.reset();
}

void NameResultsWindow::TellEmptyQueue()
{
    const RunScope scope(this);
    MsgBox(this,
           u"No Search Requests Can Be Located! This Form will be closed when you select OK. The "
           "Request Queue Appears to be Empty."_s,
           u"Search Queue Empty .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

void NameResultsWindow::CloseUnasked()
{
    closesUnasked = true;
    Unload();
}

bool NameResultsWindow::QueryUnload(UnloadMode mode)
{
    // The key of a search that never had its turn stays in the queue: closing is not stopping.
    if (lbl911 == u"T") {
        WriteAppInfo(u"Unconditional Form Close Called. Closing Name Search form."_s);
        return true;
    }
    if (closesUnasked)
        return true;
    return MayClose(mode, u"Are you sure you want to close this form?\r\n\r\nAny data that has not "
                          "been printed or saved will be lost!"_s);
}
