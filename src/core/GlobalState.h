#pragma once

#include "core/Boolean.h"
#include "core/ReceiveBuffer.h"

#include <QString>

class ServerSocket;

/// The state that several folders share: flat, public, owned by nobody. Any window may read or
/// write it, and there is one thread, so nothing is locked. What only one folder knows is no member
/// of it: see core/FolderState.h.
///
/// It is one structure so that a test can put all of it back with `Global = GlobalState()`.
struct GlobalState
{
    // Session and link
    Boolean bLoggedIn;         ///< a user has logged in
    Boolean bLoginBusy;        ///< the login exchange is running
    Boolean bConnectChosen;    ///< the user chose to connect now
    int intConnectState = 0;   ///< a value of ConnectState (link/ConnectState.h)
    Boolean bConnectionClosed; ///< the server closed the socket
    Boolean bSendBusy;         ///< a send has not completed
    ReceiveBuffer strRecvBuffer;
    ServerSocket *sckServer = nullptr; ///< the socket while frmWinsock is loaded; not owned
    int lngServerPort = 80;

    Boolean bClientAcctgOpt; ///< this account must give a client accounting code

    // What is running
    Boolean bSearchInProgress;  ///< some job is using the link
    Boolean bStopRequested;     ///< a logout, disconnect or exit asked every job to give up
    Boolean bUserStoppedSearch; ///< the Stop button of a results window was pressed
    Boolean bCheckingServer;    ///< contacting phase of the login window
    Boolean bGettingParams;     ///< parameter update phase
    Boolean bGettingMessages;   ///< broadcast message phase

    // The search being entered
    QString strSearchState; ///< "WA", "OR", "ID" or "FED"
    QString ClientAcctgCode;
    Boolean WaDisclaimerAccepted;
    Boolean OrDisclaimerAccepted;
    Boolean IdDisclaimerAccepted;

    // Settings, as read at the moments that core/Settings.h names
    Boolean bShowAlerts;
    Boolean bBatchSearch;
    Boolean bEnableMRU;
    Boolean bEnableAcctg;
    qint16 intMaxIndexResults = 500; ///< page limit as the result list uses it
    qint16 CasesPerPage = 500;       ///< the same limit as the search uses it
    qint16 intSearchTimeout = 1;     ///< minutes
    qint16 intSearchingMsgs = 12;
    QString strReportName; ///< name at the head of reports
    QString strDefaultView;
    QString strDefaultWaCounty;
    QString strDefaultOrCounty;
    QString strDefaultIDCounty;
    QString strReportFolder;
    QString strDefaultToWaIndex;
    QString strPrintHdr;
    QString strPrintHdrVal;
};

extern GlobalState Global;
