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

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void placeBelowTable();
    void goToTable();
    void showCount();

    QTableView *view;
    RowFilter *filter;
    QLineEdit *txtFind;
    QLabel *lblFindCount;
};
