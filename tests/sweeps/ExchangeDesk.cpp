#include "sweeps/ExchangeDesk.h"

#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/JobWindow.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/Exchange.h"
#include "link/Router.h"
#include "namesearch/CourtSearch.h"
#include "support/FakeSocket.h"

#include "sweeps/Exchanges.h"

#include <QPointer>
#include <QTimer>

namespace {
const QDateTime aMorning({2026, 3, 10}, {10, 0, 0});

/// What is not as it was before the job: "" when the next one can have its turn.
QString leftovers(const JobWindow *window)
{
    QStringList left;
    if (Global.bSearchInProgress)
        left.append(u"a run is on the stack"_s);
    if (frmQueue::Form().FIFO.ListCount() > 0)
        left.append(u"a turn was not given back"_s);
    // By these the limit of the next wait is chosen.
    if (Global.bLoginBusy || Global.bGettingParams || Global.bGettingMessages
        || Global.bCheckingServer || Global.bStopRequested)
        left.append(u"an exchange is still thought to go on"_s);
    if (Global.bSendBusy)
        left.append(u"the link is still sending"_s);
    if (window && !window->isEnabled())
        left.append(u"the window is disabled"_s);
    if (window && (window->Timer1->isActive() || window->tmrBlink->isActive()))
        left.append(u"the window still asks for a turn"_s);
    return left.join(u", "_s);
}

/// A plain search behind the exchange: its rows as they are in the list.
QString nextSearch()
{
    if (!IsLinkUp()) {
        CloseServerLink();
        LinkDesk::ConnectToNothing();
    }
    FakeSocket *socket = FakeSocket::Last();
    socket->heard = [socket](const QByteArray &) {
        QTimer::singleShot(0, socket, [socket] {
            socket->Arrive(ScriptedCourt::Tokens({ResultLine(u"NEXT"_s), u"EOF~"_s}));
        });
    };
    auto *search = new CourtSearch(u"WA"_s, false);
    search->lboxQueue.AddItem(RequestLine());
    search->txtMasterKey = MakeMasterKey();
    EnqueueKey(search->txtMasterKey);
    search->Timer1->start(0);
    const bool ended = LinkDesk::WaitUntil(
        [search] { return search->State() == JobState::Over && !Global.bSearchInProgress; });
    QStringList names;
    for (int row = 0; row < search->RowCount(); ++row)
        names.append(search->Record.Rows.Cells(row).first());
    names.append(search->Status.Text);
    search->Release();
    return ended ? names.join(u'+') : u"it never ends"_s;
}

/// Closes the window as the user does; "" when it went.
QString closed(JobWindow *window)
{
    const QPointer<JobWindow> open(window);
    if (!open)
        return {};
    open->close();
    return !open || open->IsUnloaded() ? QString() : u"the window cannot be closed"_s;
}
} // namespace

ExchangeDesk::ExchangeDesk()
{
    SearchTest::init();
}

void ExchangeDesk::Renew(std::unique_ptr<ExchangeDesk> &desk)
{
    desk.reset();
    desk = std::make_unique<ExchangeDesk>();
}

void ExchangeDesk::FetchOnly(const QString &caption)
{
    if (fetched == caption)
        return;
    fetched = caption;
    for (const char *section : {"CaseSearchTabs", "OrCaseSearchTabs", "IdCaseSearchTabs",
                                "CivilCaseTabs", "NonCivilCaseTabs"})
        FetchAtOnce(QLatin1StringView(section), {caption});
}

void ExchangeDesk::BeginCase()
{
    CloseServerLink();
    desk->Folder.Remove(u"AppInfo.txt"_s);
    desk->Time.Set(aMorning);
    Global.bShowAlerts = false;
    Global.intSearchTimeout = 1;
}

QString ExchangeDesk::EndCase(ExchangeRun &run)
{
    run.Leave();
    QStringList wrong{leftovers(run.Window())};
    // It would wait for ever behind a turn that was not given back.
    const QString next = wrong.first().isEmpty() ? nextSearch() : QString();
    if (next != u"NEXT+Search Complete: 1 Cases Retrieved.")
        wrong.append(u"the next search: "_s + next);
    wrong.append(closed(run.Window()));
    wrong.append(desk->Complaints());
    wrong.removeAll(QString());
    return wrong.join(u", "_s);
}

QStringList ExchangeDesk::Logged(const QStringList &messages) const
{
    QStringList found;
    const QStringList log = desk->Folder.Log();
    for (const QString &message : log) {
        if (messages.contains(message))
            found.append(message);
    }
    return found;
}

QString Line(const char *name, const QString &text)
{
    return QLatin1StringView(name) + u": "_s + text;
}

QStringList Differences(const QStringList &seen, const QStringList &expected)
{
    QStringList differences;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        if (seen.value(i) != expected[i])
            differences.append(u"<%1> instead of <%2>"_s.arg(seen.value(i), expected[i]));
    }
    return differences;
}

const QList<Exchange> &Exchanges()
{
    static const QList<Exchange> all =
        SessionExchanges() + SearchExchanges() + CaseExchanges() + DocumentExchanges();
    return all;
}
