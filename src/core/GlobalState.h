#pragma once

#include "core/Boolean.h"
#include "core/ReceiveBuffer.h"

#include <QHash>
#include <QString>
#include <QStringList>

class ServerSocket;

/// The state that the whole program shares: flat, public, owned by nobody. Any window may read or
/// write it, and there is one thread, so nothing is locked.
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
    QString strUserName;
    QString strUserPassword;
    int lngServerPort = 80;
    QStringList aServerIPs;
    QString strSessionTime; ///< shown as total session time
    Boolean bAutoLogout;    ///< the idle warning ended in favour of logging out

    // What the server sent at login
    QString strSystemMsg;
    QString strPrivateMsgs;
    QString strIniLine;
    Boolean bClientAcctgOpt; ///< this account must give a client accounting code

    // What is running
    Boolean BkFormLoading;      ///< a bankruptcy results window is being loaded
    Boolean bSearchInProgress;  ///< some job is using the link
    Boolean bStopRequested;     ///< a logout, disconnect or exit asked every job to give up
    Boolean bUserStoppedSearch; ///< the Stop button of a results window was pressed
    Boolean bCheckingServer;    ///< contacting phase of the login window
    Boolean bGettingParams;     ///< parameter update phase
    Boolean bGettingMessages;   ///< broadcast message phase

    // Case windows
    Boolean ArbitrationChosen; ///< the last answer of frmArbPrompt
    Boolean bOnDemandPrompt;   ///< an incomplete tab asks whether it shall be retrieved again
    Boolean bOnDemandRetry;    ///< the last answer to that

    // The search being entered
    QString strSearchState;       ///< "WA", "OR", "ID" or "FED"
    QString strCurrentCourt;      ///< "WASUP", "WADISCIS", "OR", "IDSUP" or "FED"
    QString strCurrentSearchType; ///< "Individual Name", "Business Name" or "Case Number"
    qint16 intSearchWhere = 0;    ///< 1 county, 2 template, 3 statewide, 5 civil, 6 non-civil
    Boolean DiscisDndSearch;      ///< the next non-civil search is for defendants with addresses
    QString ClientAcctgCode;
    Boolean WaDisclaimerAccepted;
    Boolean OrDisclaimerAccepted;
    Boolean IdDisclaimerAccepted;

    /// What goes before options.ini, see core/RunSettings.h
    QHash<QString, QString> SettingsOfThisRun;

    // Settings, as read at the moments that Options.h names
    Boolean bShowAlerts;
    Boolean bBatchSearch;
    Boolean bEnableMRU;
    Boolean bEnableAcctg;
    qint16 intMaxIndexResults = 500; ///< page limit as the result list uses it
    qint16 CasesPerPage = 500;       ///< the same limit as the search uses it
    qint16 intSearchTimeout = 1;     ///< minutes
    qint16 intSearchingMsgs = 12;
    QString strInactivityTimeOut; ///< minutes, compared as text
    QString strReportName;        ///< name at the head of reports
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
