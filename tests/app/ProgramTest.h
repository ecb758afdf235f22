#pragma once

#include "namesearch/SearchDesk.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

class frmMain;

/// A test of the whole program: its own start and wiring, its real windows, a user at them, and a
/// court that holds the conversation written for it.
class ProgramTest : public SearchTest
{
    Q_OBJECT
protected Q_SLOTS:
    void initTestCase();
    void init() override;

protected:
    /// Starts the program as its entry point does, and answers its question about connecting.
    void StartProgram();
    /// Waits until the login window has reached the court, and logs in as "paralegal", "secret".
    void LogIn();
    /// Both, with a court that expects them.
    void BeginSession();

    /// What the court is asked for by StartSearch.
    static QString SearchRequest();
    /// Ticks what StartSearch needs on the search form; once a session.
    static void FillForm();
    /// Types Smith, John, Q and starts the search; its window asks for its turn every millisecond.
    /// nullptr when none was made.
    static frmNameSearchResults *StartSearch();

    QPointer<frmMain> Main;
};

void TickItems(const QWidget *window, const char *list, const QStringList &items);
/// Chooses an entry of the main window's menus; a disabled one does nothing.
void ChooseEntry(const QString &action);
