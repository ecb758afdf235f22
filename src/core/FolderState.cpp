#include "core/FolderState.h"

#include <utility>

namespace {
constinit FolderStates *first = nullptr;
}

FolderStates::FolderStates() : next(std::exchange(first, this)) {}

void FolderStates::ForgetAll()
{
    for (FolderStates *state = first; state; state = state->next)
        state->Forget();
}
