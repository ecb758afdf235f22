#include "core/TurnHold.h"

namespace {
int holds = 0;
}

TurnHold::TurnHold()
{
    ++holds;
}

TurnHold::~TurnHold()
{
    --holds;
}

bool TurnHold::IsHeld()
{
    return holds > 0;
}
