#pragma once

/// Where the connect to the router stands: the values of `Global.intConnectState`.
enum ConnectState : int {
    ConnectIdle = 0,
    ConnectUnderWay = 1,
    ConnectRefused = 2,
    ConnectDone = 10, ///< also stays after the server has closed: only bConnectionClosed tells that
};
