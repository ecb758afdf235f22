#include "tables/TableTools.h"

#include "controls/FormWindow.h"
#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "core/AtomicFile.h"
#include "core/GlobalState.h"
#include "tables/ColumnWidths.h"
#include "tables/FindBar.h"
#include "tables/RowFilter.h"
#include "tables/TableMarks.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QMenu>
#include <QShortcut>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView exportTitle = u"Export to CSV ..";
} // namespace

TableTools::TableTools(QTableView *table)
    : QObject(table), view(table), widths(new ColumnWidths(table)), filter(new RowFilter(table)),
      findBar(new FindBar(table, filter)), menu(new QMenu(table)),
      marks(new TableMarks(table, filter, menu))
{
    makeMenu();
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

void TableTools::makeMenu()
{
    menu->setObjectName(u"mnuList"_s);
    const auto add = [this](const QString &name, const QString &text, const QKeySequence &keys) {
        QAction *action = menu->addAction(text);
        action->setObjectName(name);
        // Only shown in the menu: a menu that is in no window hears no keys.
        action->setShortcut(keys);
        action->setShortcutVisibleInContextMenu(true);
        return action;
    };
    copyRows = add(u"mnuListCopy"_s, u"&Copy"_s, QKeySequence::Copy);
    copyWithHeaders = add(u"mnuListCopyHeaders"_s, u"Copy with &Headers"_s, {});
    exportRows = add(u"mnuListExport"_s, u"&Export to CSV .."_s, {});
    menu->addSeparator();
    const QAction *find = add(u"mnuListFind"_s, u"&Find .."_s, QKeySequence::Find);
    resetWidths = add(u"mnuListResetWidths"_s, u"&Reset Column Widths"_s, {});
    marks->OfferBefore(resetWidths);
    connect(copyRows, &QAction::triggered, this, [this] { Copy(false); });
    connect(copyWithHeaders, &QAction::triggered, this, [this] { Copy(true); });
    connect(exportRows, &QAction::triggered, this, &TableTools::ExportCsv);
    connect(find, &QAction::triggered, this, &TableTools::OpenFind);
    connect(resetWidths, &QAction::triggered, widths, &ColumnWidths::Reset);
}

bool TableTools::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ContextMenu: {
        const auto *wanted = static_cast<QContextMenuEvent *>(event);
        if (wanted->reason() == QContextMenuEvent::Keyboard)
            showMenuAtRow();
        else
            showMenu(wanted->globalPos());
        return true;
    }
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (watched == view && takeKey(static_cast<QKeyEvent *>(event)))
            return true;
        break;
    case QEvent::Show:
        if (watched == view)
            listenForFind();
        break;
    case QEvent::Hide:
        if (watched == view && findShortcut)
            findShortcut->setEnabled(false);
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        if (watched == view)
            goWithTable(event->type() == QEvent::ShowToParent);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void TableTools::goWithTable(bool tableShown)
{
    findBar->GoWithTable(tableShown);
    marks->GoWithTable(tableShown);
}

/// Copying is seen before the menu Edit sees its own Ctrl+C, which knows entry fields only.
bool TableTools::takeKey(QKeyEvent *key)
{
    const bool copies = key->matches(QKeySequence::Copy);
    const bool closesFind = key->key() == Qt::Key_Escape && !findBar->isHidden();
    if (!copies && !closesFind)
        return false;
    key->accept();
    if (key->type() == QEvent::KeyPress) {
        if (copies)
            Copy();
        else
            findBar->Close();
    }
    return true;
}

/// Find is heard wherever the focus is in the table's window: on a tab or a button, too. A table
/// out of sight does not listen: two tables may share one place.
void TableTools::listenForFind()
{
    if (!findShortcut) {
        findShortcut =
            new QShortcut(QKeySequence::Find, FormWindow::Around(view), this, &TableTools::OpenFind,
                          &TableTools::openFindOfFocus, Qt::WidgetWithChildrenShortcut);
        connect(view, &QObject::destroyed, findShortcut, &QObject::deleteLater);
    }
    findShortcut->setEnabled(true);
}

/// Several tables in sight hear the key: the one the user is in is meant.
void TableTools::openFindOfFocus()
{
    const QWidget *focus = QApplication::focusWidget();
    const QList<TableTools *> neighbours = findShortcut->parent()->findChildren<TableTools *>();
    for (TableTools *one : neighbours) {
        if (one->view == focus || one->findBar->isAncestorOf(focus)) {
            one->OpenFind();
            return;
        }
    }
    OpenFind();
}

void TableTools::showMenuAtRow()
{
    const QRect row = view->visualRect(view->currentIndex());
    const QRect place = view->viewport()->rect().intersected(row);
    showMenu(view->viewport()->mapToGlobal(place.isEmpty() ? view->viewport()->rect().center()
                                                           : place.center()));
}

void TableTools::showMenu(const QPoint &where)
{
    const bool someSelected = filter->ChosenRow() >= 0;
    copyRows->setEnabled(someSelected);
    copyWithHeaders->setEnabled(someSelected);
    exportRows->setEnabled(filter->Shown() > 0);
    resetWidths->setEnabled(widths->ChangedByUser());
    menu->popup(where);
}

void TableTools::OpenFind()
{
    findBar->Open();
}

bool TableTools::HoldsFocus() const
{
    // Of its own window, which need not be the one that the user is in.
    const QWidget *around = view->parentWidget() ? view->parentWidget() : view;
    const QWidget *focus = around->focusWidget();
    return focus && (focus == view || findBar->isAncestorOf(focus));
}

void TableTools::Copy(bool withHeaders)
{
    const QList<int> rows = filter->SelectedRows();
    if (!rows.isEmpty())
        QApplication::clipboard()->setText(ClipboardText(table(rows), withHeaders));
}

void TableTools::ExportCsv()
{
    const QString suggested =
        QDir(Global.strReportFolder).filePath(FileNameOf(caption()) + u".csv"_s);
    AskWhereToSave(view->parentWidget(),
                   {.Title = exportTitle.toString(),
                    .Suggested = suggested,
                    .Ending = u"csv"_s,
                    .Filters = {u"CSV files (*.csv)"_s, u"All files (*)"_s}},
                   this, [this](const QString &path) { writeCsv(path); });
}

void TableTools::writeCsv(const QString &path)
{
    if (!ReplaceFileContent(path, CsvText(table(filter->ShownRows()))))
        MsgBox(view->parentWidget(),
               u"The list could not be written to this file:\n\n"_s + QDir::toNativeSeparators(path)
                   + u"\n\nCheck that the folder exists, that you may write there, and that there "
                     "is room on the disk. Nothing was changed."_s,
               exportTitle.toString(), MsgButtons::Ok, MsgIcon::Exclamation);
}

ShownTable TableTools::table(const QList<int> &rows) const
{
    const QAbstractItemModel *model = view->model();
    const QList<int> columns = ShownColumns(view);
    ShownTable shown;
    for (const int column : columns)
        shown.Headers.append(model->headerData(column, Qt::Horizontal).toString());
    // Columns without a title, or with an empty one above a message, have none to be written.
    if (shown.Headers.join(QString()).isEmpty())
        shown.Headers.clear();
    shown.Rows.reserve(rows.size());
    for (const int row : rows) {
        QStringList cells;
        for (const int column : columns)
            cells.append(model->index(row, column).data().toString());
        shown.Rows.append(cells);
    }
    return shown;
}

/// Of the nearest window around the table: in the main window that is not the outermost one.
QString TableTools::caption() const
{
    for (const QWidget *widget = view; widget; widget = widget->parentWidget()) {
        if (!widget->windowTitle().isEmpty())
            return widget->windowTitle();
    }
    return {};
}
