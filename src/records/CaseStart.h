#pragma once

#include "records/CaseTabs.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What whoever opens a case hands over: a row of a list of results, a number from the search form,
/// a batch of numbers, or another case that names it. The names are those of the members and labels
/// of the case windows.
struct CaseStart
{
    explicit CaseStart(CaseKind kind = CaseKind::State);

    /// The heading; a "*" in it is the mark of an archived case.
    void SetHeading(const QString &text);
    /// The title, in which "&" may be written twice, as a label takes it that has a mnemonic. A
    /// case that is not civil has a name in its place.
    void SetTitle(const QString &text);

    CaseKind Kind; ///< which window shows it

    QString Caption = QStringLiteral("Case Details"); ///< of the window
    QString lblCaseDetailsHdr = QStringLiteral("Case Details");
    bool Archived = false; ///< the heading says so
    QString lblCourtName;
    QString lblCaseTitle;
    QString lblDateFiled;
    QString lblTopFrameCaseType; ///< state and bankruptcy courts
    QString lblCaseType;         ///< District and Municipal Courts, as is the next
    QString lblCaseNo;

    QString lblState;      ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    QString txtCaseNumber; ///< as in the list of results, with its "*" or ">>" if it has one
    QString txtCountyName;
    QString lblOrCourtType;      ///< Oregon: "C" for Circuit, anything else for District
    QString txtCourtCode;        ///< District and Municipal Courts: the court's three letters
    QString txtCaseType;         ///< District and Municipal Courts: "CV" or "IN"
    QString tboxCaseNumberQueue; ///< the request line of the summary
    QStringList TabRequests;     ///< bankruptcy: the one line of lboxTabReqQueue
    QString ClientAcctgCode;
    bool chkBK = false;
    bool chkAutoPrint = false; ///< print when everything has come
    /// How the case was asked for on the search form; empty for one that was opened otherwise.
    QByteArray Origin;
    QString Log; ///< what is logged when the case is opened from a row, "" for nothing

    bool operator==(const CaseStart &) const = default;
};
