#pragma once

#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "session/frmMain.h"

#include <QPointer>
#include <QTimer>

/// A new job window on its way to the screen. Unless it is launched, it is unloaded again, and its
/// key does not stay in the queue, where it would hold up every job behind it.
template<typename Window>
class NewWindow
{
public:
    explicit NewWindow(Window *form) : window(form)
    {
        // It waits for its turn from the moment it is shown, not while it is being filled.
        window->Timer1->stop();
    }
    ~NewWindow()
    {
        if (!window || launched)
            return;
        if (!window->txtMasterKey.isEmpty())
            WithdrawKey(window->txtMasterKey);
        // Nobody is asked: the user never saw it.
        window->Unload(UnloadMode::MdiParent);
    }
    NewWindow(const NewWindow &) = delete;
    NewWindow &operator=(const NewWindow &) = delete;

    Window *operator->() const { return window; }
    Window &operator*() const { return *window; }

    void GiveKey()
    {
        window->txtMasterKey = MakeMasterKey();
        EnqueueKey(window->txtMasterKey);
    }

    void Launch()
    {
        Global.bStopRequested = false;
        // Windows that wait are told apart by what they say of themselves.
        window->ShownJob()->ShowCriteria();
        window->Timer1->start();
        if (frmMain *main = frmMain::Form())
            main->ShowChild(window);
        else
            window->show();
        launched = true;
        if (window)
            window->ShownJob()->AnnounceLaunch();
    }

private:
    QPointer<Window> window;
    bool launched = false;
};
