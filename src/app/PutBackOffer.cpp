#include "app/PutBackOffer.h"

#include "app/AskAgain.h"
#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "history/HistoryStore.h"
#include "searchentry/NumberListRun.h"
#include "searchentry/frmNumberList.h"
#include "session/SessionEvents.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QSet>
#include <QTimer>

#include <algorithm>

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

/// Puts back what had not run. Numbers come back as they were asked for: more than a list asks for
/// at a time are a list again, since each has a window of its own.
class PuttingBack
{
public:
    explicit PuttingBack(const QList<AskedItem> &items)
        : asList(std::count_if(items.begin(), items.end(), &NumberOf) > NumberListRun::MostAtATime)
    {
    }

    void PutBackOne(const AskedItem &item)
    {
        if (const std::optional<CaseStart> number = asList ? NumberOf(item) : std::nullopt)
            list(item, *number);
        else
            settle(item, CanBeAsked(item) && PutBack(item));
    }
    /// Until then a list is not begun, and the next session offers it.
    void End()
    {
        if (starts.isEmpty())
            return;
        frmNumberList::Follow(NumberListRun::Start(starts));
        HistoryStore::Of().Settle(listed, outcomeOf(true));
    }

private:
    static QString outcomeOf(bool isBack)
    {
        return notRun.toString() + (isBack ? u" Put back."_s : QString());
    }
    static void settle(const AskedItem &item, bool isBack)
    {
        if (isBack || Global.bLoggedIn)
            HistoryStore::Of().Settle({item.Id}, outcomeOf(isBack));
    }
    void list(const AskedItem &item, const CaseStart &number)
    {
        // Who has declined a notice is not asked once for each number.
        if (!declined.contains(number.lblState) && NoticeAccepted(item)) {
            starts.append(number);
            listed.append(item.Id);
            return;
        }
        declined.insert(number.lblState);
        settle(item, false);
    }

    const bool asList;
    QList<CaseStart> starts;
    QList<qint64> listed;
    QSet<QString> declined; ///< states whose notice was
};

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
    PuttingBack back(left);
    for (const AskedItem &item : left) {
        // The session may have ended under this question, or under that of one before: then what is
        // left is asked about again in the next one.
        if (!Global.bLoggedIn)
            return;
        back.PutBackOne(item);
    }
    if (Global.bLoggedIn)
        back.End();
}
} // namespace

void WirePutBackOffer()
{
    static PutBackOffer offer;
}
