#pragma once

#include "support/ScriptedCourt.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QList>
#include <QObject>
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
