#include "app/PutBackOffer.h"

#include "app/AskAgain.h"
#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "history/HistoryStore.h"
#include "session/SessionEvents.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
constexpr int lookMilliseconds = 100;

/// Waits for a moment in which nothing else is asked, and asks then.
class PutBackOffer : public QObject
{
public:
    PutBackOffer();

private:
    void look();
    void offer();

    QTimer timer;
};

PutBackOffer::PutBackOffer()
{
    timer.setInterval(lookMilliseconds);
    connect(&SessionEvents::Of(), &SessionEvents::LoggedIn, this, [this] { timer.start(); });
    connect(&timer, &QTimer::timeout, this, &PutBackOffer::look);
}

void PutBackOffer::look()
{
    if (!Global.bLoggedIn) {
        timer.stop();
        return;
    }
    // A question stands, or the login is not through in every respect.
    if (TurnHold::IsHeld() || frmLogin::IsLoaded() || QApplication::activeModalWidget()
        || QApplication::activePopupWidget())
        return;
    timer.stop();
    offer();
}

QString questionOf(qsizetype count)
{
    if (count == 1)
        return u"1 search had not run. Put it back?"_s;
    return QString::number(count) + u" searches had not run. Put them back?"_s;
}

QList<qint64> idsOf(const QList<AskedItem> &items)
{
    QList<qint64> ids;
    for (const AskedItem &item : items)
        ids.append(item.Id);
    return ids;
}

void PutBackOffer::offer()
{
    HistoryStore &store = HistoryStore::Of();
    QList<AskedItem> left = store.Unfinished();
    QList<AskedItem> items = left;
    items.removeIf([](const AskedItem &item) { return !CanBeAsked(item); });
    const bool wanted = !items.isEmpty()
                        && MsgBox(frmMain::Form(), questionOf(items.size()), u"History"_s,
                                  MsgButtons::YesNo, MsgIcon::Question)
                               == MsgAnswer::Yes;
    // The session may have ended under the question: then it comes again with the next one.
    if (wanted && !Global.bLoggedIn)
        return;
    const QString hadNotRun = u"Had not run when the program ended."_s;
    if (!wanted) {
        store.Settle(idsOf(left), hadNotRun);
        return;
    }
    left.removeIf([](const AskedItem &item) { return CanBeAsked(item); });
    store.Settle(idsOf(left), hadNotRun);
    const TurnHold hold;
    for (const AskedItem &item : std::as_const(items)) {
        const bool isBack = PutBack(item);
        // So may the session, or the program, under the notice of a court.
        if (!isBack && !Global.bLoggedIn)
            return;
        store.Settle({item.Id}, isBack ? hadNotRun + u" Put back."_s : hadNotRun);
    }
}
} // namespace

void WirePutBackOffer()
{
    static PutBackOffer offer;
}
