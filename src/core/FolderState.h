#pragma once

/// What one folder keeps from window to window and shares with nobody: flat and public like
/// GlobalState, but declared in the folder's own header, so that nobody else can lean on it.
///
/// `inline FolderState<SessionState> Session;` makes one. A test puts all of them back with
/// `FolderStates::ForgetAll()`.
class FolderStates
{
public:
    FolderStates(const FolderStates &) = delete;
    FolderStates &operator=(const FolderStates &) = delete;

    /// Every folder's state as it is when the program begins.
    static void ForgetAll();

protected:
    FolderStates();
    virtual ~FolderStates() = default;
    virtual void Forget() = 0;

private:
    FolderStates *const next; ///< they live as long as the program: a chain that only grows
};

template<typename State>
class FolderState final : public FolderStates, public State
{
private:
    void Forget() override { static_cast<State &>(*this) = State(); }
};
