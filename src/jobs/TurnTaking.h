#pragma once

#include <QString>

// The turn taking that all job windows share. A job owns one key in frmQueue.FIFO; its timer asks
// for the turn on every tick.

enum class Turn {
    Stopped, ///< everything was asked to stop: withdraw, and do not ask again
    Taken,   ///< another job is using the link: ask again
    Mine,    ///< the job's key is at the head: run now
    NotYet   ///< another job's key is at the head: ask again
};

/// Whose turn it is, seen from the job with this key. The stop request goes before the running job,
/// and the running job before the queue: a job at the head must not start while another one is
/// still reading from the link.
Turn AskForTurn(const QString &txtMasterKey);

/// The link is this job's until it gives it back. Nobody else writes bSearchInProgress.
void TakeLink();
/// The link is free, although the job that had it may still be reading what the court has to say:
/// a stop lets the others have their turns at once.
void FreeLink();

/// Puts a key at the end of the queue.
void EnqueueKey(const QString &txtMasterKey);

/// Gives the turn back: removes line 0. Every way out of a job's run does this once.
void ReleaseTurn();

/// The same, if the turn is still this job's: a stop that could not be sent has given it back
/// already, and the key at the head is then the next job's, which would wait for ever without it.
void ReleaseTurnOf(const QString &txtMasterKey);

/// Removes every line that holds the key: for a job that ends without having had its turn.
void WithdrawKey(const QString &txtMasterKey);
