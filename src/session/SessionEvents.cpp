#include "session/SessionEvents.h"

SessionEvents &SessionEvents::Of()
{
    static SessionEvents events;
    return events;
}
