#include "core/GlobalState.h"

GlobalState Global;
