#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTableView;
class RowFilter;

/// A line below a table in which the user types what to look for in its rows; it says how many rows
/// are shown. Esc closes it and shows all of them again.
class FindBar : public QWidget
{
    Q_OBJECT
public:
    FindBar(QTableView *table, RowFilter *rowFilter);

    /// Shows the bar, below the table, with the focus in its field.
    void Open();
    void Close();
    /// A bar that is open is in sight as long as its table is: another one may take its place.
    void GoWithTable(bool tableShown);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goToTable();
    void showCount();

    QTableView *view;
    RowFilter *filter;
    bool withTable = false; ///< out of sight with its table, to come back with it
    QLineEdit *txtFind;
    QLabel *lblFindCount;
};
