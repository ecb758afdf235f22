#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringMatcher>
#include <QTimer>

class QHeaderView;
class QTableView;
class ShownRowSelection;

/// The columns of a table that can be seen, from left to right.
QList<int> ShownColumns(const QTableView *table);

/// Shows only those rows of a table in which every given word occurs, capital or small, in a column
/// that can be seen. The other rows are hidden in the view; the model and its row numbers stay as
/// they are, so whoever fills, sorts or opens by row number need not know of it. Where rows are
/// marked as new it can show those alone, of which the words are looked for.
///
/// Hidden rows are never selected (ShownRowSelection). Whoever acts on selected, current or all
/// rows for the user asks here which they are.
///
/// Very many rows are looked at in slices, from the first on, and the user has a turn between two.
/// Until the last of them a row further down is as the look before has left it; whoever asks for
/// all that are shown or selected has the rest looked at first.
class RowFilter : public QObject
{
    Q_OBJECT
public:
    explicit RowFilter(QTableView *table);

    /// The words, with blanks between them; none shows every row. Rows that are hidden by it are no
    /// longer selected.
    void SetText(const QString &text);

    /// Whether only rows that are new are shown.
    void ShowOnlyNew(bool only);

    bool IsActive() const { return onlyNew || !words.isEmpty(); }
    int Loaded() const;
    int Shown() const;
    bool Shows(int row);
    /// Whether rows are yet to be looked at: Shown is not what it will be.
    bool IsLooking() const { return nextRow != noRow; }
    /// Looks at those now.
    void Settle();

    /// The rows in sight, from top to bottom.
    QList<int> ShownRows();
    /// The first of them, -1 when there is none.
    int FirstShown();
    /// Those of them that are selected.
    QList<int> SelectedRows();
    /// The one row that a command for one row is about: of several that are selected the current
    /// one, or the uppermost; -1 when none is.
    int ChosenRow() const;
    /// The row of the cursor, selected or not; -1 when there is none.
    int CurrentRow() const;

Q_SIGNALS:
    /// The number of rows, loaded or shown, may be another now.
    void Changed();

private:
    static constexpr int noRow = -1;

    void applyChange(bool wasActive);
    void lookAtAll();
    void lookFrom(int row);
    void lookAgain(int first, int last);
    void goOn();
    void lookOn(int count);
    void end();
    void hideOthers(int first, int last);
    bool isInSight(int row) const;
    int firstInSight(int first, int last) const;
    bool matches(int row, const QList<int> &columns) const;

    QTableView *view;
    ShownRowSelection *selection;
    /// Gone before the view itself: a table that owns its model hears of the model's end
    /// afterwards.
    QPointer<QHeaderView> rows;
    QList<QStringMatcher> words;
    bool onlyNew = false;
    int nextRow = noRow;        ///< the first that is yet to be looked at
    bool goesToCurrent = false; ///< behind the last of them
    QTimer pause;               ///< between two slices
};
