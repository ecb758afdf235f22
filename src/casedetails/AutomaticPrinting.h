#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class CaseWindow;
class QTimer;

/// The cases that print by themselves when their runs are over: one after the other over all
/// windows, in the order in which they ended. None prints while a job works or the next one is
/// about to, since a question on top of a run would keep it waiting, nor while the user is asked
/// something else, nor before the last print is through. What waits asks on every tick, as jobs do.
class AutomaticPrinting : public QObject
{
    Q_OBJECT
public:
    static AutomaticPrinting &Of();

    /// The window has a report that waits. It leaves the line when it is closed.
    void Add(CaseWindow *window);

    QTimer *const TmrReports; ///< stands still while nothing waits

private:
    AutomaticPrinting();

    void TmrReports_Tick();
    void dropClosed();
    bool mayPrint() const;

    QList<QPointer<CaseWindow>> waiting;
    QPointer<CaseWindow> last; ///< the one that printed
};
