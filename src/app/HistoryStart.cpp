#include "app/HistoryStart.h"

#include "app/HistoryWiring.h"
#include "controls/MsgBox.h"
#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/EndProgram.h"
#include "core/Log.h"
#include "core/Settings.h"
#include "history/HistoryFile.h"
#include "history/HistoryStore.h"
#include "history/frmUsage.h"
#include "prefs/frmOpts.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"

#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
/// What the end of the program waits for at most: a disk, not another program.
constexpr int lastWriteMilliseconds = 2000;

QString historyPath;
bool historyIsWanted = false;

bool keepsHistory()
{
    return SettingValue(Setting::KeepHistory) == u"1";
}

void forgetWhatIsOld()
{
    const int days = SettingValue(Setting::HistoryDays).toInt();
    HistoryStore::Of().ForgetBefore(Clock::Current().Now().addDays(-days));
}

/// A file that was refused is not asked again because something else was set.
void takeHistoryOptions()
{
    const bool wanted = keepsHistory();
    if (wanted && !historyIsWanted) {
        HistoryStore::Of().Open(historyPath);
    } else if (!wanted) {
        LeaveHistory();
        HistoryStore::Of().Close();
    }
    historyIsWanted = wanted;
    forgetWhatIsOld();
}

void clearHistory()
{
    HistoryStore &store = HistoryStore::Of();
    const bool gone = RemoveDamagedHistories(historyPath);
    if (store.IsOpen())
        store.ClearAll();
    if ((store.IsOpen() || RemoveHistoryFile(historyPath)) && gone)
        return;
    MsgBox(frmMain::Form(),
           u"The history cannot be cleared, because its file cannot be removed. It is "_s
               + historyPath,
           u"Clear the History"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

/// A box would hold up the searches that wait, until someone comes and answers it.
void showProblem(const QString &text)
{
    WriteAppInfo(text);
    frmMain *main = frmMain::Form();
    if (!main)
        return;
    auto *button = main->findChild<QToolButton *>(u"cmdHistoryProblem"_s);
    if (!button) {
        button = new QToolButton(main);
        button->setObjectName(u"cmdHistoryProblem"_s);
        button->setText(u"History problem .."_s);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        main->statusBar()->addPermanentWidget(button);
        QObject::connect(button, &QToolButton::clicked, button, [button] {
            button->hide();
            MsgBox(frmMain::Form(), button->toolTip(), u"Halvane - History"_s, MsgButtons::Ok,
                   MsgIcon::Exclamation);
        });
    }
    button->setToolTip(text);
    button->setAccessibleDescription(text);
    button->show();
}
} // namespace

void WireHistory()
{
    HistoryStore *store = &HistoryStore::Of();
    QObject::connect(store, &HistoryStore::Problem, store, &showProblem);
    SessionEvents *session = &SessionEvents::Of();
    QObject::connect(session, &SessionEvents::UsageWanted, session, &frmUsage::ShowForm);
    // A program that is never left forgets, too.
    QObject::connect(session, &SessionEvents::LoggedIn, store, &forgetWhatIsOld);
    OptionsEvents *options = &OptionsEvents::Of();
    QObject::connect(options, &OptionsEvents::Saved, store, &takeHistoryOptions);
    QObject::connect(options, &OptionsEvents::ClearHistoryWanted, store, &clearHistory);
}

void StartHistory(bool practice)
{
    historyPath = AppFile(practice ? u"history-practice.db"_s : u"history.db"_s);
    historyIsWanted = false;
    takeHistoryOptions();
    AtEndOfProgram([] {
        HistoryStore::Of().WaitUntilWritten(lastWriteMilliseconds);
        HistoryStore::Of().Close();
    });
}
