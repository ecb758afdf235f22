#include "sweeps/LiedToUser.h"

#include "casedetails/CaseTabs.h"
#include "casedetails/CaseWindow.h"
#include "controls/SaveDialog.h"
#include "controls/TabStrip.h"
#include "core/AppFolder.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Platform.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "history/HistoryStore.h"
#include "history/frmHistory.h"
#include "history/frmUsage.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "namesearch/NameResultsWindow.h"
#include "reports/ReportPdf.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/Ticks.h"
#include "tables/FlexGrid.h"
#include "tables/ResultListView.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace {
/// What a millisecond of a run counts, in seconds.
constexpr double pace = 0.2;
constexpr int longestWrite = 10'000;

void hurry(JobWindow *window)
{
    window->Timer1->setInterval(1);
    if (auto *details = qobject_cast<CaseWindow *>(window))
        details->TmrSearchOnDemand->setInterval(1);
}

void fetchAtOnce()
{
    CSetting settings;
    settings.Init(u"options.ini"_s);
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s, u"NonCivilCaseTabs"_s,
          u"CivilCaseTabs"_s}) {
        for (int i = 0; i < caseTabCount; ++i)
            settings.SaveSettingStr(
                section, CaseTabRowOf(static_cast<CaseTab>(i)).caption.toString(), u"1"_s);
    }
}

template<typename Window>
QList<Window *> openWindows()
{
    QList<Window *> found;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        auto *window = qobject_cast<Window *>(widget);
        if (window && window->isVisible())
            found.append(window);
    }
    return found;
}
} // namespace

QList<QStringList> CsvRows(const QByteArray &csv)
{
    QList<QStringList> rows;
    QString text = QString::fromUtf8(csv);
    text.remove(QChar::ByteOrderMark);
    QStringList row;
    QString cell;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted && c == u'"' && i + 1 < text.size() && text[i + 1] == u'"') {
            cell += text[++i];
        } else if (c == u'"') {
            quoted = !quoted;
        } else if (!quoted && c == u',') {
            row.append(std::exchange(cell, {}));
        } else if (!quoted && (c == u'\r' || c == u'\n')) {
            i += c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n' ? 1 : 0;
            row.append(std::exchange(cell, {}));
            rows.append(std::exchange(row, {}));
        } else {
            cell += c;
        }
    }
    if (!cell.isEmpty() || !row.isEmpty())
        rows.append(row << cell);
    return rows;
}

bool IsCarriedOut(const QString &cell)
{
    qsizetype at = 0;
    while (at < cell.size() && (cell[at].isSpace() || cell[at].category() == QChar::Other_Control))
        ++at;
    const QString content = cell.mid(at);
    if (content.isEmpty() || !u"=+-@"_s.contains(content[0]))
        return false;
    // A text in quotes, and nothing behind it.
    if (content.startsWith(u"=\"") && content.endsWith(u'"')) {
        QString inside = content.mid(2, content.size() - 3);
        return inside.remove(u"\"\""_s).contains(u'"');
    }
    const bool number = std::all_of(content.begin() + 1, content.end(),
                                    [](QChar c) { return c.isDigit() || c == u'.' || c == u','; });
    return content[0] == u'=' || content[0] == u'@' || !number;
}

LiedToUser::LiedToUser(const Lie &lie) : court(LyingCourt::Install(lie))
{
    LoadAppOptions();
    LoadMainWindowOptions();
    fetchAtOnce();
    NoteReports(&reports);
    watchShell();
    HistoryStore::Of().Open(desk.Folder.Path(u"history.db"_s));
    auto *main = new frmMain;
    main->resize(780, 700);
    main->show();
    answerDialogs();
    frmWinsock::Form();
    FakeSocket::Last()->state = SocketState::Connected;
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    folder = std::make_unique<FolderWatch>(desk.Folder.Path());
    desk.Time.Run(pace);
}

LiedToUser::~LiedToUser()
{
    desk.Time.Stop();
    for (FormWindow *window : openWindows<FormWindow>())
        window->Unload(UnloadMode::MdiParent);
    HistoryStore::Of().Close();
    ReplaceSaveDialog({});
    ReplaceShell({});
    ReplaceReportViewer({});
}

void LiedToUser::answerDialogs()
{
    desk.Boxes.Whenever(u"MsgBox"_s, [this](QDialog *dialog) {
        watch.Look();
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QAbstractButton *yes = box->button(QMessageBox::Yes);
        QAbstractButton *ok = box->button(QMessageBox::Ok);
        QAbstractButton *answer = yes ? yes : ok ? ok : box->buttons().value(0);
        answer->click();
    });
    const auto press = [this](const char *button) {
        return [this, button](QDialog *dialog) {
            watch.Look();
            Click(dialog, button);
        };
    };
    desk.Boxes.Whenever(u"dlgPrintMgr"_s, press("OKButton"));
    desk.Boxes.Whenever(u"frmOnDemand"_s, press("Command1"));
    desk.Boxes.Whenever(u"frmArbPrompt"_s, press("Command1"));
}

void LiedToUser::look()
{
    watch.Look();
}

bool LiedToUser::finish(const JobWindow *window)
{
    const QPointer<const JobWindow> open(window);
    // A run that broke down keeps its key and its button; it does not ask for a turn any more.
    const bool ended = LinkDesk::WaitUntil([&open] {
        const auto *details = qobject_cast<const CaseWindow *>(open.data());
        return !Global.bSearchInProgress
               && (!open
                   || (!open->Timer1->isActive()
                       && !(details && details->TmrSearchOnDemand->isActive())));
    });
    if (!ended)
        complain(u"a run does not end"_s);
    return ended && open && !open->IsUnloaded();
}

void LiedToUser::LogIn()
{
    frmWinsock::Unload();
    Global.bLoggedIn = false;
    Global.intConnectState = ConnectIdle;
    frmLogin::ShowForm(frmMain::Form());
    auto *login = Shown(u"frmLogin"_s);
    if (!login) {
        complain(u"there is no login window"_s);
        return;
    }
    login->findChild<QTimer *>(u"tmrUI"_s)->setInterval(1);
    const QPointer<QWidget> open(login);
    if (!LinkDesk::WaitUntil([&open] { return ButtonOf(open, "cmdLogin")->isEnabled(); }))
        return;
    TypeInto(login, "txtUsername", u"mail"_s);
    TypeInto(login, "txtPassword", u"secret"_s);
    Click(login, "cmdLogin");
    if (!LinkDesk::WaitUntil([&open] { return !open || !Global.bLoginBusy; }))
        complain(u"the login does not end"_s);
    Ticks(3);
    look();
    Child<QAction>(frmMain::Form(), "mnuCheckMsgs")->trigger();
    look();
}

void LiedToUser::Search(NameResultsWindow *window, const QString &line)
{
    window->lboxQueue.AddItem(line);
    window->txtMasterKey = QString();
    desk.WindowDesk::Enqueue(window);
    frmMain::Form()->ShowChild(window);
    window->ShownJob()->ShowCriteria();
    window->ShownJob()->AnnounceLaunch();
    hurry(window);
    window->Timer1->start();
    if (!finish(window))
        return;
    Ticks(3);
    look();
    if (window->RowCount() == 0)
        return;
    window->OpenCaseFromRow(0);
    for (CaseWindow *details : openWindows<CaseWindow>())
        runCase(details);
}

void LiedToUser::OpenCase(CaseWindow *window)
{
    desk.WindowDesk::Enqueue(window);
    frmMain::Form()->ShowChild(window);
    window->ShownJob()->AnnounceLaunch();
    window->Timer1->start();
    runCase(window);
}

void LiedToUser::runCase(CaseWindow *window)
{
    hurry(window);
    const QPointer<CaseWindow> open(window);
    if (!finish(window))
        return;
    Ticks(2);
    auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    const QStringList captions = strip->Captions();
    for (const QString &caption : captions) {
        if (!open || open->IsUnloaded())
            return;
        window->ActivateTab(caption);
        look();
    }
}

void LiedToUser::RetrieveDocuments(CaseWindow *window)
{
    OpenCase(window);
    const QPointer<CaseWindow> open(window);
    // A case that broke down holds the queue: no document would have its turn.
    if (!open || open->IsUnloaded() || !window->TabExists(CaseTab::Documents)
        || frmQueue::Form().FIFO.ListCount() > 0)
        return;
    window->ActivateTab(CaseTabRowOf(CaseTab::Documents).caption.toString());
    FlexGrid *grid = window->Tab(CaseTab::Documents).Grid;
    Q_EMIT grid->RowActivated(1);
    for (frmDocTransfer *transfer : openWindows<frmDocTransfer>()) {
        hurry(transfer);
        look();
    }
    LinkDesk::WaitUntil(
        [] { return !Global.bSearchInProgress && frmQueue::Form().FIFO.ListCount() == 0; });
    look();
    const QList<QAction *> actions = grid->Tools()->Menu()->actions();
    for (QAction *action : actions) {
        if (action->objectName() == u"mnuDocRetrieveAll"_s)
            action->trigger();
    }
    for (frmAllDocuments *all : openWindows<frmAllDocuments>()) {
        hurry(all);
        LinkDesk::WaitUntil(
            [&] { return !Global.bSearchInProgress && frmQueue::Form().FIFO.ListCount() == 0; });
    }
    look();
}

void LiedToUser::UseAll(bool prints)
{
    if (!HistoryStore::Of().WaitUntilWritten(longestWrite))
        complain(u"the history was not written"_s);
    frmHistory::ShowForm();
    frmUsage::ShowForm();
    Ticks(3);
    if (auto *menu = frmMain::Form()->findChild<QMenu *>(u"mnuWindow"_s)) {
        Q_EMIT menu->aboutToShow();
        menu->popup({0, 0});
        look();
        menu->hide();
    }
    look();
    for (FormWindow *window : openWindows<FormWindow>()) {
        const QList<QTableView *> tables = window->findChildren<QTableView *>();
        for (QTableView *table : tables) {
            if (table->isVisible())
                useTable(table);
        }
        if (window->HasReport())
            useReport(window, prints);
        mailResults(window);
    }
    look();
}

void LiedToUser::useTable(QTableView *table)
{
    auto *tools = table->findChild<TableTools *>(QString(), Qt::FindDirectChildrenOnly);
    if (!tools || tools->Filter()->Shown() == 0)
        return;
    const QString reportsFolder = desk.Folder.Path(u"Reports"_s);
    const QString path = reportsFolder + u"/table-"_s + QString::number(++saved) + u".csv"_s;
    ReplaceSaveDialog([this, path, reportsFolder](const QString &suggested) {
        const QFileInfo offered(suggested);
        if (QDir::cleanPath(offered.absolutePath()) != reportsFolder)
            complain(u"a table would be saved as "_s + Legible(suggested));
        return path;
    });
    tools->ExportCsv();
    LinkDesk::WaitUntil([&] { return QFile::exists(path); });
    checkCsv(table, path);
    table->selectAll();
    QApplication::clipboard()->clear();
    tools->Copy(true);
    checkClipboard(table);
    table->clearSelection();
}

void LiedToUser::checkCsv(const QTableView *table, const QString &path)
{
    auto *tools = table->findChild<TableTools *>(QString(), Qt::FindDirectChildrenOnly);
    const QList<QStringList> rows = CsvRows(WholeFile(path));
    int columns = 0;
    for (int i = 0; i < table->model()->columnCount(); ++i)
        columns += table->isColumnHidden(i) ? 0 : 1;
    const qsizetype shown = tools->Filter()->Shown();
    if (rows.size() != shown && rows.size() != shown + 1)
        complain(u"the CSV of %1 has %2 rows for %3"_s.arg(table->objectName())
                     .arg(rows.size())
                     .arg(shown));
    for (const QStringList &row : rows) {
        if (row.size() > columns)
            complain(u"the CSV of %1 has a row of %2 cells for %3"_s.arg(table->objectName())
                         .arg(row.size())
                         .arg(columns));
        for (const QString &cell : row) {
            if (IsCarriedOut(cell))
                complain(u"a spreadsheet carries out "_s + Legible(cell));
        }
    }
}

void LiedToUser::checkClipboard(const QTableView *table)
{
    const QMimeData *content = QApplication::clipboard()->mimeData();
    const QStringList formats = content->formats();
    if (formats != QStringList{u"text/plain"_s})
        complain(u"the clipboard holds "_s + formats.join(u", "_s));
    const QStringList lines = content->text().split(u'\n');
    const qsizetype shown = table->selectionModel()->selectedRows().size();
    if (lines.size() != shown && lines.size() != shown + 1)
        complain(u"the copy of %1 has %2 lines for %3"_s.arg(table->objectName())
                     .arg(lines.size())
                     .arg(shown));
    for (const QString &line : lines) {
        for (const QString &cell : line.split(u'\t')) {
            if (IsCarriedOut(cell))
                complain(u"pasted, a spreadsheet carries out "_s + Legible(cell));
        }
    }
}

void LiedToUser::useReport(FormWindow *window, bool prints)
{
    const QString path =
        desk.Folder.Path(u"Reports/report-"_s + QString::number(++saved) + u".txt"_s);
    window->PrintToFile(path);
    if (QFile::exists(path))
        checkText(path);
    const qsizetype before = reports.Shown.size();
    window->PrintDirect();
    if (!prints || reports.Shown.size() == before)
        return;
    WritePdf(reports.Shown.last(), Paper(),
             desk.Folder.Path(u"Reports/report-"_s + QString::number(saved) + u".pdf"_s));
}

/// Lines end with CR LF, and there is no other control character.
void LiedToUser::checkText(const QString &path)
{
    const QByteArray content = WholeFile(path);
    for (qsizetype i = 0; i < content.size(); ++i) {
        const auto byte = static_cast<quint8>(content[i]);
        const bool ends = content.mid(i, 2) == "\r\n";
        if (ends)
            ++i;
        else if (byte < ' ' || byte == 0x7F) {
            complain(u"a report holds "_s + Legible(QString::fromLatin1(content.mid(i, 20))));
            return;
        }
    }
}

/// Whatever a court says, the mail program is given the same words, and a copy whose name cannot be
/// taken for an option or a folder.
void LiedToUser::mailResults(const FormWindow *window)
{
    auto *button = window->findChild<QPushButton *>(u"cmdEmail"_s);
    if (!button || !button->isEnabled())
        return;
    button->click();
    if (!LinkDesk::WaitUntil([] { return !qApp->findChild<QProcess *>(); }) || !mail.WasCalled()) {
        complain(u"no mail was written"_s);
        return;
    }
    static const QRegularExpression plainName(u"^[A-Za-z0-9][A-Za-z0-9_.,() -]*[.]txt$"_s);
    constexpr qsizetype copyPlace = 6;
    QStringList given = mail.Arguments();
    const QFileInfo copy(given.value(copyPlace));
    if (!copy.exists() || !copy.path().startsWith(QDir::tempPath() + u"/halvane-mail-"_s)
        || !plainName.match(copy.fileName()).hasMatch())
        complain(u"mailed was "_s + Legible(copy.filePath()));
    given.removeAt(copyPlace);
    if (given
        != QStringList{u"--utf8"_s, u"--subject"_s, u"Halvane - Search Results"_s, u"--body"_s,
                       u" \nPlease find attached a report for your review."_s, u"--attach"_s,
                       u"mailto:Enter_Recipient_Names_Here"_s})
        complain(u"the mail program was given "_s + Legible(given.join(u'|')));
}

void LiedToUser::watchShell()
{
    ReplaceShell([this](const QString &path) { return openByDesktop(path); });
}

bool LiedToUser::openByDesktop(const QString &path)
{
    ReplaceShell({});
    const bool handed = OpenByShell(path);
    watchShell();
    opened += handed ? 1 : 0;
    return handed;
}

/// A program that opens files is given one path, of what was saved, and nothing that it could take
/// for something else.
void LiedToUser::checkOpened()
{
    if (!LinkDesk::WaitUntil([this] { return viewer.Calls().size() >= opened; }))
        complain(u"the desktop was not asked to open what was to be opened"_s);
    const QString reportsFolder = desk.Folder.Path(u"Reports"_s);
    const QList<QStringList> calls = viewer.Calls();
    for (const QStringList &call : calls) {
        const QString path = call.value(0);
        const bool inside = path == reportsFolder || path.startsWith(reportsFolder + u'/');
        if (call.size() != 1 || !inside || !QFileInfo::exists(path)
            || QDir::cleanPath(path) != path)
            complain(u"the desktop was asked to open "_s + Legible(call.join(u'|')));
    }
}

QStringList LiedToUser::Complaints(const QStringList &changedKeys)
{
    checkOpened();
    return complaints + watch.Complaints() + folder->Complaints(changedKeys);
}

void LiedToUser::complain(const QString &what)
{
    if (!complaints.contains(what))
        complaints.append(what);
}
