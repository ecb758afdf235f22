#pragma once

#include <QObject>

class FormWindow;
class QWidget;

/// The entries of the menu of courts.
enum class CourtEntry { WaSuperior, WaDiscis, Oregon, Bankruptcy, Idaho };

/// What the session asks of the windows that stand above it. The start of the program connects each
/// of these once.
class SessionEvents : public QObject
{
    Q_OBJECT
public:
    static SessionEvents &Of();

Q_SIGNALS:
    /// A login has come to its end, with all that belongs to it; its window is gone.
    void LoggedIn();
    /// Show the search form and put the focus on the first name box.
    void SearchFormWanted();
    /// The same, and select the state of the last search.
    void SearchWithStateWanted();
    /// Take the search form out of the way of the login window.
    void SearchFormHidden();
    /// Show the search form on these courts.
    void CourtWanted(CourtEntry court);
    void AboutWanted();
    /// Show the options.
    void OptionsWanted();
    /// Ask where to save the report of this window, and save it there.
    void SaveWanted(FormWindow *window);
    /// Ask for the paper of reports.
    void PageSetupWanted();
    /// Show the report of the session, for this window.
    void SessionReportWanted(QWidget *window);
    /// Show what runs, what waits and in which order.
    void WaitingWanted();
    /// Show what was asked for before.
    void HistoryWanted();
    /// Show what was asked for, by client code and month.
    void UsageWanted();
    /// One session has ended, or another begun.
    void SessionChanged();
    /// Help on a window of results.
    void ResultsHelpWanted();
    /// Help on a window of a case.
    void CaseHelpWanted();
};
