#pragma once

#include "namesearch/SearchJobs.h"
#include "support/WindowDesk.h"
#include "support/WindowUser.h"

#include <QColor>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

class FakeSocket;
class JobWindow;
class NameResultsWindow;
class QPushButton;
class QWidget;
class ResultListView;
class frmNameSearchResults;

/// A program with a user who searches: results windows that ask for their turn every millisecond.
/// One a test function.
class SearchDesk : public WindowDesk
{
public:
    /// A results window with its lines and a key at the end of the queue, as the search form leaves
    /// one, shown and asking for its turn.
    frmNameSearchResults *Start(const QStringList &lines, const QString &state = u"WA"_s);
    /// The same, but it does not ask for its turn until its timer is started.
    frmNameSearchResults *MakePending(const QStringList &lines, const QString &state = u"WA"_s);

    using WindowDesk::Enqueue;
    /// The same, with these request lines.
    static void Enqueue(NameResultsWindow *window, const QStringList &lines);

    /// When a login window stands above everything else: logs in as far as the session knows
    /// (`through`), or gives it up, and closes the window.
    void AnswerModalLogin(bool through);
    /// Waits until the search of this window is over and its run has left the stack.
    bool Finish(const QWidget *window);
};

/// A test whose functions each have a desk of their own, and a court that holds the conversation
/// written for it. At the end of each, everything announced must have happened, and nothing else.
class SearchTest : public QObject
{
    Q_OBJECT
protected Q_SLOTS:
    virtual void init();
    void cleanup();

protected:
    /// Connects to the court, which knows by now what it will say, and has this window ask for its
    /// turn with these lines.
    template<class Window>
    Window *Begin(Window *window, const QStringList &lines)
    {
        begin(window, lines);
        return window;
    }
    /// The same, up to the end of the search.
    template<class Window>
    Window *Search(Window *window, const QStringList &lines)
    {
        begin(window, lines);
        finish(window);
        return window;
    }

    std::unique_ptr<SearchDesk> desk;
    std::unique_ptr<ScriptedCourt> court;

private:
    void begin(NameResultsWindow *window, const QStringList &lines);
    void finish(const QWidget *window);
};

ResultListView *ListOf(const QWidget *window, const char *name = "listview1");
/// The cells of a list, row by row, as the view has them.
QList<QStringList> RowsOf(const QWidget *window, const char *list = "listview1");
QStringList HeadersOf(const QWidget *window);
void ClickHeader(const ResultListView *list, int column);
/// Where the arrow stands, and "v" for descending; "" without one.
QString ArrowOf(const ResultListView *list);
