#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMenu;
class QTableView;
class RowFilter;
class WrappedLabel;

/// What a table offers while rows of it are marked as new: a dot at each of them (MarkColumn), a
/// line above the table that counts them, and a command that shows no others. While none is, the
/// table is as if there were no marks.
class TableMarks : public QObject
{
    Q_OBJECT
public:
    TableMarks(QTableView *table, RowFilter *rowFilter, QMenu *tableMenu);

    /// The command's place in the menu is before this one; at its end without one.
    void OfferBefore(QAction *action);
    /// Rows are marked now, and this line says how many and since when; "" when none is.
    void Show(const QString &line);
    /// The line is in sight as long as its table is: another one may take its place.
    void GoWithTable(bool tableShown);

private:
    void offerOnlyNew(bool offered);
    void showOnlyNew(bool only);
    void showLine();

    QTableView *view;
    RowFilter *filter;
    QMenu *menu;
    QAction *onlyNew;
    QAction *placeInMenu = nullptr;
    WrappedLabel *lblNew;
    QString text;
    bool tableInSight = true;
};
