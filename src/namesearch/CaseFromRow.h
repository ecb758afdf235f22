#pragma once

#include "namesearch/ResultColumns.h"

#include <QString>
#include <QStringList>

#include <optional>

// From a row of results to the window of its case: what goes where, without a window.

enum class CaseForm {
    Case,    ///< frmCaseDetails
    Civil,   ///< frmCivilCaseDetails
    NonCivil ///< frmNCCaseDetails
};

/// What the window of a case gets from its row. The names are those of its members and labels.
struct CaseFromRow
{
    CaseForm Form = CaseForm::Case;
    QString Caption;
    QString lblState;
    QString lblCaseDetailsHdr; ///< "" leaves it as it is
    QString lblCourtName;
    QString lblDateFiled;
    QString lblTopFrameCaseType;
    QString lblOrCourtType;
    QString lblCaseNo;
    QString txtCaseNumber;
    QString txtCountyName;
    QString txtCourtCode;
    QString txtCaseType;
    QString tboxCaseNumberQueue;
    QString TabRequest; ///< bankruptcy: the one line of lboxTabReqQueue
    bool chkBK = false;
    QString Log; ///< what is logged before the window is shown
};

/// The cell of a case that has been opened: with ">>" in front, once.
QString MarkedAsOpened(const QString &cell);

/// True for a row of a case; false for a warning or a tip among the rows.
bool IsCaseRow(const QStringList &cells);

/// A case of frmNameSearchResults; `state` is a value of lblState. Cells that are missing count as
/// empty.
CaseFromRow CaseOfRow(const QStringList &cells, ResultKind kind, const QString &state);

/// A case of the District and Municipal Courts. `requestType` is the case type that was searched
/// for, "CV" or "IN". Among the non-civil cases are those of the Superior Courts, which have their
/// own window.
CaseFromRow DiscisCaseOfRow(const QStringList &cells, ResultKind kind, const QString &requestType);

/// The case type of a District or Municipal request line, "" when it has none.
QString CaseTypeOfRequest(const QString &requestLine);
