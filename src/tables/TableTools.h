#pragma once

#include "tables/CsvText.h"

#include <QObject>

class ColumnWidths;
class FindBar;
class QAction;
class QKeyEvent;
class QMenu;
class QPoint;
class QShortcut;
class QTableView;
class RowFilter;
class TableMarks;

/// What every table of the program offers beyond showing its rows: a context menu, copying, export
/// to a CSV file, find, and columns that keep the width the user gave them. Made for a view that
/// has its model, and gone with it.
class TableTools : public QObject
{
    Q_OBJECT
public:
    explicit TableTools(QTableView *table);

    ColumnWidths *Widths() const { return widths; }
    RowFilter *Filter() const { return filter; }
    /// What there is while rows are marked as new.
    TableMarks *Marks() const { return marks; }
    /// The context menu. Whoever has commands of their own for the rows puts them ahead of the
    /// others, and says before it is shown which of them can act.
    QMenu *Menu() const { return menu; }

    /// The selected rows that are shown, to the clipboard.
    void Copy(bool withHeaders = false);
    /// All rows that are shown, to a file that the user names.
    void ExportCsv();
    void OpenFind();
    /// The focus of the table's window is in the table, or in the words to find in it.
    bool HoldsFocus() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeMenu();
    void goWithTable(bool tableShown);
    void showMenu(const QPoint &where);
    void writeCsv(const QString &path);
    void listenForFind();
    void openFindOfFocus();
    void showMenuAtRow();
    bool takeKey(QKeyEvent *key);
    ShownTable table(const QList<int> &rows) const;
    QString caption() const;

    QTableView *view;
    ColumnWidths *widths;
    RowFilter *filter;
    FindBar *findBar;
    QMenu *menu;
    TableMarks *marks;
    QAction *copyRows;
    QAction *copyWithHeaders;
    QAction *exportRows;
    QAction *resetWidths;
    QShortcut *findShortcut = nullptr;
};
