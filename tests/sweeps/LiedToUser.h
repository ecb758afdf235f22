#pragma once

#include "namesearch/SearchDesk.h"
#include "reports/NotingViewer.h"
#include "support/MailProgram.h"
#include "support/ViewerProgram.h"
#include "sweeps/FolderWatch.h"
#include "sweeps/LyingCourt.h"
#include "sweeps/WindowWatch.h"

#include <QPointer>
#include <QTemporaryDir>

#include <memory>

class CaseWindow;
class FormWindow;
class JobWindow;
class QTableView;

/// A user of the whole program whose court lies in one place, and who does with what came all that
/// the program offers: looks, opens the next window, copies, exports, prints, saves, mails.
class LiedToUser
{
public:
    explicit LiedToUser(const Lie &lie);
    ~LiedToUser();
    Q_DISABLE_COPY_MOVE(LiedToUser)

    /// Logs in by the login window, and reads the messages.
    void LogIn();
    /// Searches, and opens the case of the first row.
    void Search(NameResultsWindow *window, const QString &line);
    /// Opens a case with all its tabs, and clicks through them.
    void OpenCase(CaseWindow *window);
    /// Opens a case with its documents, retrieves the first one, and then all.
    void RetrieveDocuments(CaseWindow *window);

    /// Uses everything that is open: copies, exports, saves, and with `prints` makes the PDFs too.
    void UseAll(bool prints);

    LyingCourt &Court() const { return court; }
    bool HasSeen() const { return watch.HasSeen(); }
    /// What was otherwise than it has to be; `changedKeys` as FolderWatch has them. Waits until the
    /// desktop's programs have noted what they were given.
    QStringList Complaints(const QStringList &changedKeys);

private:
    void answerDialogs();
    void look();
    bool finish(const JobWindow *window);
    void runCase(CaseWindow *window);
    void useTable(QTableView *table);
    void checkCsv(const QTableView *table, const QString &path);
    void checkClipboard(const QTableView *table);
    void useReport(FormWindow *window, bool prints);
    void checkText(const QString &path);
    void mailResults(const FormWindow *window);
    /// Hands a file to the desktop as the program does, and counts it.
    bool openByDesktop(const QString &path);
    void watchShell();
    void checkOpened();
    void complain(const QString &what);

    SearchDesk desk;
    ReportsSeen reports;
    WindowWatch watch;
    LyingCourt &court;
    std::unique_ptr<FolderWatch> folder;
    QStringList complaints;
    QTemporaryDir programs;
    MailProgram mail{programs.path()};
    ViewerProgram viewer{programs.path()};
    int opened = 0;
    int saved = 0;
};

/// The rows of a CSV file, cell by cell, as a spreadsheet reads them.
QList<QStringList> CsvRows(const QByteArray &csv);

/// Whether a spreadsheet would carry the cell out: a formula that is more than one quoted text.
bool IsCarriedOut(const QString &cell);
