#pragma once

#include "app/PracticeCourt.h"
#include "namesearch/SearchDesk.h"

#include <QSet>

class CaseWindow;
class NameResultsWindow;
class frmMain;

/// Goes through every window of the program as a session at the practice court fills them, and
/// shows each to a visitor while it is in front.
class WindowRound
{
public:
    /// Called with a name of its own for each view, and the window: one of the screen's, or a child
    /// of the main window.
    using Visitor = std::function<void(const QString &name, QWidget *window)>;

    explicit WindowRound(Visitor visitor);
    ~WindowRound();

    /// Once. "" when every window came that the program has, otherwise what went wrong.
    QString Go();

private:
    void answerDialogs();
    void start();
    void logIn();
    void searchForms();
    void refusedEntries();
    void helpWindows();
    void searches();
    void searchForClient();
    void cases();
    void documents();
    void lists();
    void dialogs();
    void menus();
    void mainWindow();
    void logOut();

    void visit(const QString &name, QWidget *window);
    void letTimePass(bool passes);
    void visitChild(const QString &name, QWidget *child);
    void visitPages(QDialog *options);
    QWidget *form();
    void click(const char *button);
    void type(const QStringList &texts);
    void tick(const char *list, const QStringList &items);
    NameResultsWindow *search();
    NameResultsWindow *searchAndVisit(const QString &name);
    CaseWindow *openCase(NameResultsWindow *results, int row);
    void visitCase(const QString &name, CaseWindow *window);
    void visitJob(const QString &name);
    void visitPreview();
    CaseWindow *caseByNumber(const QString &name, const QString &number);

    SearchDesk desk;
    PracticeCourt court;
    const Visitor visitor;
    QSet<QString> seen;
    QSet<QString> reached; ///< classes and names of the windows that were visited
    QStringList complaints;
    bool timePasses = false;
};
