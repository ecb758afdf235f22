#pragma once

#include <QObject>

/// What the session asks of the windows that stand above it. The start of the program connects each
/// of these once.
class SessionEvents : public QObject
{
    Q_OBJECT
public:
    static SessionEvents &Of();

Q_SIGNALS:
    /// Show the search form and put the focus on the first name box.
    void SearchFormWanted();
    /// The same, and select the state of the last search.
    void SearchWithStateWanted();
    /// Take the search form out of the way of the login window.
    void SearchFormHidden();
    /// Show the search form on the Washington Superior Courts.
    void SuperiorCourtsWanted();
    void AboutWanted();
};
