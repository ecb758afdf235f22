#pragma once

#include <optional>

/// What the run of a case asks and tells the user while it goes on. The window does it; without one
/// there is nobody to be asked.
///
/// Each of these may wait for the user, and the window may go meanwhile.
class CaseTalk
{
public:
    virtual ~CaseTalk() = default;

    /// The court asks whether the details of the arbitration court are wanted: whether they are.
    virtual bool AskArbitration() = 0;
    /// A tab that is incomplete comes into sight: whether it shall be retrieved again. Nothing when
    /// the same is being asked already.
    virtual std::optional<bool> AskOnDemand() = 0;
    /// The case has no request with which it could begin.
    virtual void TellEmptyQueue() = 0;
    /// Prints the case.
    virtual void Print() = 0;
};
