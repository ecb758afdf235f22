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
constexpr QStringView notRun = u"Had not run when the program ended.";

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
    if (!wanted) {
        store.Settle(idsOf(left), notRun.toString());
        return;
    }
    const TurnHold hold;
    for (const AskedItem &item : left) {
        // The session may have ended under this question, or under that of one before: then what is
        // left is asked about again in the next one.
        if (!Global.bLoggedIn)
            return;
        const bool isBack = CanBeAsked(item) && PutBack(item);
        if (isBack || Global.bLoggedIn)
            store.Settle({item.Id}, notRun.toString() + (isBack ? u" Put back."_s : QString()));
    }
}
} // namespace

void WirePutBackOffer()
{
    static PutBackOffer offer;
}
