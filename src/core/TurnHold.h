#pragma once

/// While one of these lives, no job takes its turn. Whoever waits for the user, or lets events
/// through while something is being built, would otherwise have a whole job run on top of it, and
/// go on only when that job has ended: the click on OK would do nothing for minutes.
///
/// It stands below windows and jobs alike: message boxes and modal dialogs hold the turn by
/// themselves (controls/MsgBox, controls/ModalDialog), and nobody who shows one has to think of it.
class TurnHold
{
public:
    TurnHold();
    ~TurnHold();
    TurnHold(const TurnHold &) = delete;
    TurnHold &operator=(const TurnHold &) = delete;

    /// Whether anybody holds the turn now.
    static bool IsHeld();
};
