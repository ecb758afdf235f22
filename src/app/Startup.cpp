#include "app/Startup.h"

#include "app/AskAgain.h"
#include "app/HistoryStart.h"
#include "app/HistoryWiring.h"
#include "app/NewEntries.h"
#include "app/PutBackOffer.h"
#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "controls/WindowPlace.h"
#include "core/AppFolder.h"
#include "core/AtomicFile.h"
#include "core/Clock.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Options.h"
#include "core/TextUtilities.h"
#include "core/TurnHold.h"
#include "documents/DocumentName.h"
#include "history/HistoryEvents.h"
#include "history/frmHistory.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "prefs/frmAbout.h"
#include "prefs/frmCaseDetailsHelp.h"
#include "prefs/frmInfo.h"
#include "prefs/frmNameSearchResultsHelp.h"
#include "prefs/frmOpts.h"
#include "prefs/frmSearchHelp.h"
#include "reports/ReportPrinter.h"
#include "reports/SaveReport.h"
#include "reports/ShowSessionReport.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmSearchWA.h"
#include "session/SessionEvents.h"
#include "session/frmConnect.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "session/frmWaiting.h"

#include <QApplication>
#include <QDirIterator>
#include <QGuiApplication>
#include <QSessionManager>

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr int splashMilliseconds = 2000;

/// The court families of the entries of the menu of courts.
constexpr std::array<CourtFamily, 5> courtsOfEntries{CourtFamily::Superior, CourtFamily::Discis,
                                                     CourtFamily::Oregon, CourtFamily::Bankruptcy,
                                                     CourtFamily::Idaho};

/// In the folders that are this program's alone, and no other copy runs there.
void removeUnfinishedFiles()
{
    RemoveUnfinishedFiles(AppFolder());
    RemoveUnfinishedFiles(ReportsFolder());
    QDirIterator cases(ReportsFolder(), QDir::Dirs | QDir::NoDotAndDotDot);
    while (cases.hasNext())
        RemoveUnfinishedFiles(cases.next());
}

void showSplash()
{
    frmAbout splash;
    splash.ShowAsSplash();
    Clock::Current().SleepMilliseconds(splashMilliseconds);
}

void offerToConnect(frmMain *main)
{
    if (Global.bShowAlerts)
        frmConnect::ShowModal(main);
    else
        Global.bConnectChosen = true;
    if (Global.bConnectChosen)
        frmLogin::ShowForm(main);
}

/// Other programs may have come before the main window while the start was under way. The login
/// window stands before it and has the keyboard.
void bringForward(frmMain *main)
{
    if (frmLogin::IsLoaded())
        main->raise();
    else
        BringToFront(main);
}

void wireSession()
{
    SessionEvents *session = &SessionEvents::Of();
    QObject::connect(session, &SessionEvents::SearchFormWanted, session, &frmSearchWA::ShowForm);
    QObject::connect(session, &SessionEvents::SearchFormHidden, session, &frmSearchWA::HideForm);
    QObject::connect(session, &SessionEvents::SearchWithStateWanted, session, [] {
        frmSearchWA::ShowForm();
        frmSearchWA::Form().SelectState(Global.strSearchState);
    });
    QObject::connect(session, &SessionEvents::CourtWanted, session, [](CourtEntry court) {
        frmSearchWA::ShowForm();
        frmSearchWA::Form().SelectCourt(courtsOfEntries.at(static_cast<size_t>(court)));
    });
    QObject::connect(session, &SessionEvents::WaitingWanted, session, &frmWaiting::ShowForm);
    QObject::connect(session, &SessionEvents::PageSetupWanted, session,
                     [] { AskForPaper(frmMain::Form()); });
    QObject::connect(session, &SessionEvents::SessionReportWanted, session, &ShowSessionReport);
    QObject::connect(session, &SessionEvents::ResultsHelpWanted, session,
                     &frmNameSearchResultsHelp::ShowForm);
    QObject::connect(session, &SessionEvents::CaseHelpWanted, session,
                     &frmCaseDetailsHelp::ShowForm);
    QObject::connect(session, &SessionEvents::SaveWanted, session, [](FormWindow *window) {
        AskWhereToSaveReport(window, window->windowTitle(),
                             [window](const QString &path) { window->PrintToFile(path); });
    });
    QObject::connect(session, &SessionEvents::AboutWanted, session,
                     [] { ModalDialog<frmAbout>(frmMain::Form()).Run(); });
    QObject::connect(session, &SessionEvents::OptionsWanted, session,
                     [] { frmOpts::ShowModal(frmMain::Form()); });
    QObject::connect(session, &SessionEvents::HistoryWanted, session, &frmHistory::ShowForm);
    HistoryEvents *history = &HistoryEvents::Of();
    QObject::connect(history, &HistoryEvents::FillWanted, history, &FillSearchForm);
    QObject::connect(history, &HistoryEvents::AgainWanted, history, &AskAgain);
    OptionsEvents *options = &OptionsEvents::Of();
    QObject::connect(options, &OptionsEvents::Saved, options, [] {
        Q_EMIT AccountingEvents::Of().OptionChanged(Global.bEnableAcctg || Global.bClientAcctgOpt);
    });
}
} // namespace

void WireWindows()
{
    wireSession();
    FollowJobs();
    WirePutBackOffer();
    WireHistory();
    WireNewEntries();
    LinkEvents *link = &LinkEvents::Of();
    QObject::connect(link, &LinkEvents::IdleLimitReached, link, [] {
        if (frmMain *main = frmMain::Form())
            main->autologout();
    });
    QObject::connect(link, &LinkEvents::LinkDropped, link, [] {
        if (frmMain *main = frmMain::Form())
            main->CheckConnection();
    });
    SearchEvents *search = &SearchEvents::Of();
    QObject::connect(
        search, &SearchEvents::FieldErrorRaised, search,
        [](const QString &what, const QString &why, const QString &action, const QString &caption) {
            frmInfo::ShowFieldError(&frmSearchWA::Form(), what, why, action, caption);
        });
    QObject::connect(search, &SearchEvents::HelpWanted, search,
                     [](HelpTopic topic) { frmSearchHelp::ShowTopic(static_cast<int>(topic)); });
    SetErrorBox([](const QString &text) {
        MsgBox(frmMain::Form(), text, {}, MsgButtons::Ok, MsgIcon::Critical);
    });
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp,
        [](QSessionManager &manager) {
            frmMain *main = frmMain::Form();
            if (main && !main->Unload(UnloadMode::SessionEnd))
                manager.cancel();
        },
        Qt::DirectConnection);
}

void ShowSearchFormOnRequest()
{
    if (!frmMain::Form() || frmLogin::IsLoaded() || TurnHold::IsHeld()
        || QApplication::activeModalWidget())
        return;
    frmSearchWA::ShowForm();
}

void Main(bool practice)
{
    removeUnfinishedFiles();
    auto *main = new frmMain;
    if (practice)
        main->SetNotice(u"Practice court: made-up records. Any user name and password will do."_s);
    main->show();
    StartHistory(practice);
    showSplash();
    frmQueue::Form().FIFO.Clear();
    Global.ClientAcctgCode.clear();
    offerToConnect(main);
    LoadAppOptions();
    TrimMruFiles();
    bringForward(main);
    WriteAppInfo(u" \r\n"_s, LogLines::Own);
    Global.WaDisclaimerAccepted = false;
    frmSearchWA::ShowForm();
    // The first court is Washington's, and selecting it selects its state.
    const QString searchState = Global.strSearchState;
    frmSearchWA::Form().SelectFirstCourt();
    frmSearchWA::Form().SelectStateAtStart(searchState);
    frmSearchWA::Form().repaint();
    if (frmLogin::IsLoaded())
        frmLogin::ShowForm(main);
}
