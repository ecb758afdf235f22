#pragma once

#include "support/ScriptedCourt.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class FakeSocket;

/// A program without a window: an application folder, a clock that stands still, and a session. One
/// a test function.
class LinkDesk
{
public:
    LinkDesk();
    virtual ~LinkDesk();
    Q_DISABLE_COPY_MOVE(LinkDesk)

    /// A session over a real socket to this court.
    static void ConnectTo(const ScriptedCourt &court);
    /// A session over a socket without a network.
    static FakeSocket *ConnectToNothing();

    /// Once, at the first turn of the event loop at which `ready` holds. It happens inside whatever
    /// wait is running then, as a click does.
    void When(std::function<bool()> ready, std::function<void()> act);
    /// True when everything that was to happen has happened.
    bool AllHappened() const { return watchers.isEmpty(); }

    /// For what goes through many windows: no wait of this desk is too long, but for the limit of
    /// the test itself.
    void TakeTime() { guard.stop(); }

    /// What did not happen as it was announced; "" when all did.
    virtual QString Complaints() const;

    /// Goes from event to event, without naps in between, until this holds. False when it never
    /// does.
    static bool WaitUntil(const std::function<bool()> &holds);

    TestFolder Folder;
    TestClock Time;

private:
    QObject context;
    QList<QTimer *> watchers;
    QTimer guard;
};

/// Ends what a test function had: gives what did not happen as it was announced at the desk, and
/// what was not said as it was written for the court; "" when all was. Both are gone then, so that
/// a failure leaves nothing to the next function.
template<class Desk>
QString EndDialogue(std::unique_ptr<Desk> &desk, std::unique_ptr<ScriptedCourt> &court)
{
    QStringList complaints{desk->Complaints(), court->Complaints()};
    complaints.removeAll(QString());
    desk.reset();
    court.reset();
    return complaints.join(QStringLiteral("; "));
}
/// The same, for a desk whose court, if any, is no scripted one.
template<class Desk>
QString EndDialogue(std::unique_ptr<Desk> &desk)
{
    const QString complaints = desk->Complaints();
    desk.reset();
    return complaints;
}

/// A test whose functions each have a desk of their own, and a court that holds the conversation
/// written for it. At the end of each, everything announced must have happened, and nothing else.
class LinkTest : public QObject
{
    Q_OBJECT
protected Q_SLOTS:
    virtual void init();
    virtual void cleanup();

protected:
    std::unique_ptr<LinkDesk> desk;
    std::unique_ptr<ScriptedCourt> court;
};
