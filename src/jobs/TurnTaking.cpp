#include "jobs/TurnTaking.h"

#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "jobs/frmQueue.h"

Turn AskForTurn(const QString &txtMasterKey)
{
    if (Global.bStopRequested)
        return Turn::Stopped;
    if (Global.bSearchInProgress)
        return Turn::Taken;
    // Somebody waits for the user, who must not wait for a whole job.
    if (TurnHold::IsHeld())
        return Turn::NotYet;
    const ListBox &queue = frmQueue::Form().FIFO;
    return queue.ListCount() > 0 && queue.List(0) == txtMasterKey ? Turn::Mine : Turn::NotYet;
}

void TakeLink()
{
    Global.bSearchInProgress = true;
}

void FreeLink()
{
    Global.bSearchInProgress = false;
}

void EnqueueKey(const QString &txtMasterKey)
{
    frmQueue::Form().FIFO.AddItem(txtMasterKey);
}

void ReleaseTurn()
{
    ListBox &queue = frmQueue::Form().FIFO;
    if (queue.ListCount() > 0)
        queue.RemoveItem(0);
}

void ReleaseTurnOf(const QString &txtMasterKey)
{
    const ListBox &queue = frmQueue::Form().FIFO;
    if (queue.ListCount() > 0 && queue.List(0) == txtMasterKey)
        ReleaseTurn();
}

void WithdrawKey(const QString &txtMasterKey)
{
    ListBox &queue = frmQueue::Form().FIFO;
    for (int i = queue.ListCount() - 1; i >= 0; --i) {
        if (queue.List(i) == txtMasterKey)
            queue.RemoveItem(i);
    }
}
