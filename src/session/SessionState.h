#pragma once

#include "core/Boolean.h"
#include "core/FolderState.h"

#include <QString>

/// What the windows of a session and its exchanges know of each other.
struct SessionState
{
    QString strUserName; ///< the credentials as they were sent
    QString strUserPassword;
    QString strSessionTime; ///< shown as total session time
    Boolean bAutoLogout;    ///< the idle warning ended in favour of logging out

    // What the server sent at login
    QString strSystemMsg;
    QString strPrivateMsgs;
    QString strIniLine; ///< the last parameter line, until the mark behind it has it written
};

inline FolderState<SessionState> Session;
